#include "preview/caching_writer.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace vellum {
namespace {

QByteArray Read(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
}

class CachingWriterTest : public testing::Test {
protected:
    QString Path(const QString& name) const { return directory_.filePath(name); }
    QStringList Names() const {
        return QDir(directory_.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    QTemporaryDir directory_;
};

TEST_F(CachingWriterTest, ReplacesTheFileAndLeavesNothingBeside) {
    ASSERT_TRUE(WriteCachingBytes(Path("caching.htm"), "one"));
    ASSERT_TRUE(WriteCachingBytes(Path("caching.htm"), "two"));
    EXPECT_EQ(Read(Path("caching.htm")), "two");
    EXPECT_EQ(Names(), QStringList{"caching.htm"});
}

TEST_F(CachingWriterTest, TheFileOrderedLastStays) {
    const QString large = QString("<p>line</p>\n").repeated(1500000);
    QFuture<bool> other = WriteCachingFileLater({Path("other.htm"), large, {}, {}});
    QFuture<bool> early = WriteCachingFileLater({Path("caching.htm"), "early", {}, {}});
    ASSERT_TRUE(WriteCachingBytes(Path("caching.htm"), "late"));
    EXPECT_FALSE(early.isFinished()) << "the page doesn't wait behind a large document";
    EXPECT_EQ(Read(Path("caching.htm")), "late");
    EXPECT_TRUE(early.result());
    EXPECT_TRUE(other.result());
    EXPECT_EQ(Read(Path("caching.htm")), "late");
    EXPECT_EQ(Names(), (QStringList{"caching.htm", "other.htm"}));
}

TEST_F(CachingWriterTest, KeepsTheModeOfTheFile) {
    ASSERT_TRUE(WriteCachingBytes(Path("caching.htm"), "one"));
    const QByteArray name = QFile::encodeName(Path("caching.htm"));
    ASSERT_EQ(::chmod(name.constData(), 0640), 0);
    ASSERT_TRUE(WriteCachingBytes(Path("caching.htm"), "two"));
    struct stat status = {};
    ASSERT_EQ(::stat(name.constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST_F(CachingWriterTest, FollowsASymbolicLink) {
    ASSERT_TRUE(WriteCachingBytes(Path("real.htm"), "one"));
    ASSERT_TRUE(QFile::link(Path("real.htm"), Path("caching.htm")));
    ASSERT_TRUE(WriteCachingBytes(Path("caching.htm"), "two"));
    EXPECT_TRUE(QFileInfo(Path("caching.htm")).isSymLink());
    EXPECT_EQ(Read(Path("real.htm")), "two");
}

TEST_F(CachingWriterTest, AFolderInThePlaceIsAFailure) {
    ASSERT_TRUE(QDir(directory_.path()).mkdir("caching.htm"));
    EXPECT_FALSE(WriteCachingBytes(Path("caching.htm"), "x"));
    EXPECT_FALSE(WriteCachingBytes(Path("missing/caching.htm"), "x"));
    EXPECT_EQ(Names(), QStringList{"caching.htm"});
}

}  // namespace
}  // namespace vellum
