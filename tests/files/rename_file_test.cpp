#include "files/rename_file.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vellum {
namespace {

class Renaming : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(folder_.isValid()); }
    [[nodiscard]] QString At(const QString& name) const { return folder_.filePath(name); }
    void Write(const QString& name, const QByteArray& bytes) {
        QFile file(At(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    [[nodiscard]] QByteArray Read(const QString& name) const {
        QFile file(At(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir folder_;
};

TEST_F(Renaming, GivesAFileItsNewName) {
    Write("a.htm", "a");
    EXPECT_TRUE(RenameFile(At("a.htm"), At("-\u043f\u0440 \"b\"\n.htm")));
    EXPECT_EQ(Read("-\u043f\u0440 \"b\"\n.htm"), QByteArray("a"));
    EXPECT_FALSE(QFile::exists(At("a.htm")));
}

TEST_F(Renaming, CapitalsMakeAnotherName) {
    Write("a.htm", "a");
    EXPECT_TRUE(RenameFile(At("a.htm"), At("A.htm")));
    EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files), QStringList({"A.htm"}));
}

TEST_F(Renaming, TakesNoNameThatIsTaken) {
    Write("a.htm", "a");
    Write("b.htm", "b");
    ASSERT_TRUE(QDir(folder_.path()).mkdir("folder"));
    ASSERT_TRUE(QFile::link(At("nowhere"), At("link")));
    for (const char* taken : {"b.htm", "folder", "link"}) EXPECT_FALSE(RenameFile(At("a.htm"), At(taken))) << taken;
    EXPECT_EQ(Read("a.htm"), QByteArray("a"));
    EXPECT_EQ(Read("b.htm"), QByteArray("b"));
    EXPECT_EQ(QFile::symLinkTarget(At("link")), At("nowhere"));
}

TEST_F(Renaming, IsFalseForWhatIsNotThere) {
    Write("a.htm", "a");
    EXPECT_FALSE(RenameFile(At("gone.htm"), At("b.htm")));
    EXPECT_FALSE(RenameFile(At("a.htm"), At("gone/b.htm")));
    EXPECT_EQ(Read("a.htm"), QByteArray("a"));
}

}  // namespace
}  // namespace vellum
