#include "preview/caching_writer.h"

#include "files/safe_write.h"
#include "tests/files/kill_steps.h"

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

    bool Write(const QString& name, const QString& text) const {
        return WriteCachingFile({.path = Path(name), .text = text}) == Path(name);
    }
    QFuture<QString> WriteLater(const QString& name, const QString& text) const {
        return WriteCachingFileLater({.path = Path(name), .text = text});
    }

    QTemporaryDir directory_;
};

TEST_F(CachingWriterTest, ReplacesTheFileAndLeavesNothingBeside) {
    ASSERT_TRUE(Write("caching.htm", "one"));
    ASSERT_TRUE(Write("caching.htm", "two"));
    EXPECT_EQ(Read(Path("caching.htm")), "two");
    EXPECT_EQ(Names(), QStringList{"caching.htm"});
}

TEST_F(CachingWriterTest, WhatAKilledWriteLeftHiddenGoesAtTheNextStart) {
    int leftovers = 0;
    test::KillSteps write([this] { (void)Write("caching.htm", "two"); }, test::Killed::TheProcess);
    for (int step = 1; !HasFailure(); ++step) {
        const test::Killed killed = write.KillAt(step);
        if (killed == test::Killed::CannotTrace) GTEST_SKIP() << "no process may be looked at here";
        if (killed == test::Killed::Nothing) break;
        leftovers += static_cast<int>(Names().filter(".vellumcraft-").size());
        RepairInterruptedSaves();
        EXPECT_EQ(Names().filter(".vellumcraft-"), QStringList()) << step;
    }
    EXPECT_GT(leftovers, 0) << "else the test kills at no step that matters";
}

TEST_F(CachingWriterTest, TheFileOrderedLastStays) {
    const QString large = QString("<p>line</p>\n").repeated(1500000);
    QFuture<QString> other = WriteLater("other.htm", large);
    QFuture<QString> early = WriteLater("caching.htm", "early");
    ASSERT_TRUE(Write("caching.htm", "late"));
    EXPECT_FALSE(early.isFinished()) << "the page doesn't wait for a large document";
    EXPECT_EQ(Read(Path("caching.htm")), "late");
    EXPECT_EQ(early.result(), Path("caching.htm"));
    EXPECT_EQ(other.result(), Path("other.htm"));
    EXPECT_EQ(Read(Path("caching.htm")), "late");
    EXPECT_EQ(Names(), (QStringList{"caching.htm", "other.htm"}));
}

TEST_F(CachingWriterTest, TellsTheNameThatTheFileGotBesideADocument) {
    const CachingJob job{.path = Path("caching.htm"), .text = "x", .documents = {"New 1", Path("caching.htm")}};
    EXPECT_EQ(WriteCachingFile(job), Path("caching-preview.htm"));
    EXPECT_EQ(WriteCachingFileLater(job).result(), Path("caching-preview.htm"));
    EXPECT_EQ(Names(), QStringList{"caching-preview.htm"});
}

TEST_F(CachingWriterTest, TheFileTakesTheEncodingOfTheDocument) {
    TextFormat format;
    format.encoding = "windows-1252";
    format.lineEnd = LineEnd::Lf;
    const CachingJob declared{.text = QString::fromUtf8("<meta charset=\"windows-1252\">\r\n\xC3\xA4"),
                              .format = format};
    EXPECT_EQ(CachingBytes(declared), "<meta charset=\"windows-1252\">\r\n\xE4");
    const CachingJob undeclared{.text = QString::fromUtf8("\xC3\xA4"), .format = format};
    EXPECT_EQ(CachingBytes(undeclared), "\xEF\xBB\xBF\xC3\xA4");
}

TEST_F(CachingWriterTest, ATextThatItsEncodingCannotHoldIsMarkedUtf8) {
    TextFormat format;
    format.encoding = "KOI8-R";
    const CachingJob misfit{.text = u"<meta charset=koi8-r>\u041F\u65E5"_qs, .format = format};
    EXPECT_EQ(CachingBytes(misfit), "\xEF\xBB\xBF<meta charset=koi8-r>\xD0\x9F\xE6\x97\xA5");
}

TEST_F(CachingWriterTest, Utf16WithoutAMarkGetsOneThatBrowsersSee) {
    TextFormat format;
    format.encoding = "UTF-16LE";
    format.oddByte = "x";
    EXPECT_EQ(CachingBytes({.text = "<p>a</p>", .format = format}), "\xEF\xBB\xBF<p>a</p>");
}

TEST_F(CachingWriterTest, KeepsTheModeOfTheFile) {
    ASSERT_TRUE(Write("caching.htm", "one"));
    const QByteArray name = QFile::encodeName(Path("caching.htm"));
    ASSERT_EQ(::chmod(name.constData(), 0640), 0);
    ASSERT_TRUE(Write("caching.htm", "two"));
    struct stat status = {};
    ASSERT_EQ(::stat(name.constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST_F(CachingWriterTest, FollowsASymbolicLink) {
    ASSERT_TRUE(Write("real.htm", "one"));
    ASSERT_TRUE(QFile::link(Path("real.htm"), Path("caching.htm")));
    ASSERT_TRUE(Write("caching.htm", "two"));
    EXPECT_TRUE(QFileInfo(Path("caching.htm")).isSymLink());
    EXPECT_EQ(Read(Path("real.htm")), "two");
}

TEST_F(CachingWriterTest, AFolderInThePlaceIsAFailure) {
    ASSERT_TRUE(QDir(directory_.path()).mkdir("caching.htm"));
    EXPECT_EQ(WriteCachingFile({.path = Path("caching.htm"), .text = "x"}), "");
    EXPECT_EQ(WriteCachingFile({.path = Path("missing/caching.htm"), .text = "x"}), "");
    EXPECT_EQ(Names(), QStringList{"caching.htm"});
}

}  // namespace
}  // namespace vellum
