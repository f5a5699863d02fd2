#include "files/file_look.h"

#include "files/file_names.h"

#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vellum {
namespace {

class FileLooks : public testing::Test {
protected:
    [[nodiscard]] QString At(const QString& name) const { return folder_.filePath(name); }

    void Write(const QString& name, const QByteArray& bytes) const {
        QFile file(At(name));
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    // As other programs save: a new file takes the name.
    void Replace(const QString& name, const QByteArray& bytes) const {
        Write("new file", bytes);
        ASSERT_EQ(::rename(QFile::encodeName(At("new file")).constData(), QFile::encodeName(At(name)).constData()), 0);
    }

    [[nodiscard]] QByteArray Bytes(const QString& path) const {
        QFile file(path);
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("no such file");
    }

    [[nodiscard]] KnownFile Known(const QString& name) const { return {At(name), *StampOf(At(name)), Bytes(At(name))}; }

    const QTemporaryDir folder_;
};

TEST_F(FileLooks, FindNothingNewInAFileThatNobodyTouched) {
    Write("page.htm", "old");
    EXPECT_FALSE(LookAt(Known("page.htm")));
    EXPECT_FALSE(LookAt({At("none.htm"), {}, {}}));
}

TEST_F(FileLooks, FindWhatWasWrittenInPlace) {
    Write("page.htm", "old");
    const KnownFile known = Known("page.htm");
    Write("page.htm", "newer\r\n");
    const auto look = LookAt(known);
    ASSERT_TRUE(look);
    EXPECT_EQ(look->change, FileChange::Changed);
    EXPECT_EQ(look->found.text, "newer\n");
    EXPECT_EQ(look->found.bytes, "newer\r\n");
    EXPECT_EQ(look->stamp, *StampOf(At("page.htm")));
}

TEST_F(FileLooks, FindAFileThatTookThePlaceOfTheOldOne) {
    Write("page.htm", "old");
    const KnownFile known = Known("page.htm");
    Replace("page.htm", "new");
    // The same size, and the time of the old one.
    const timespec times[] = {{0, UTIME_OMIT},
                              {known.stamp.modified / 1'000'000'000, known.stamp.modified % 1'000'000'000}};
    ASSERT_EQ(::utimensat(AT_FDCWD, QFile::encodeName(At("page.htm")).constData(), times, 0), 0);
    const auto look = LookAt(known);
    ASSERT_TRUE(look);
    EXPECT_EQ(look->found.text, "new");
}

TEST_F(FileLooks, TheSameBytesAreNoChange) {
    Write("page.htm", "same");
    const KnownFile known = Known("page.htm");
    Replace("page.htm", "same");
    const auto look = LookAt(known);
    ASSERT_TRUE(look);
    EXPECT_EQ(look->change, FileChange::None);
    EXPECT_EQ(look->stamp, *StampOf(At("page.htm")));
}

TEST_F(FileLooks, FindThatTheFileHasGone) {
    Write("page.htm", "old");
    const KnownFile known = Known("page.htm");
    ASSERT_TRUE(QFile::remove(At("page.htm")));
    const auto look = LookAt(known);
    ASSERT_TRUE(look);
    EXPECT_EQ(look->change, FileChange::Gone);
    EXPECT_FALSE(look->stamp.IsThere());
}

TEST_F(FileLooks, SayNothingOfAFileThatIsAFolderNow) {
    Write("page.htm", "old");
    const KnownFile known = Known("page.htm");
    ASSERT_TRUE(QFile::remove(At("page.htm")));
    ASSERT_EQ(::mkdir(QFile::encodeName(At("page.htm")).constData(), 0700), 0);
    EXPECT_FALSE(LookAt(known));
}

TEST_F(FileLooks, KnowAFileByEachOfItsNames) {
    Write("page.htm", "x");
    Write("other.htm", "x");
    ASSERT_EQ(::link(QFile::encodeName(At("page.htm")).constData(), QFile::encodeName(At("hard.htm")).constData()), 0);
    ASSERT_TRUE(QFile::link(At("page.htm"), At("soft.htm")));
    const FileStamp page = *StampOf(At("page.htm"));
    EXPECT_TRUE(page.IsSameFile(*StampOf(At("hard.htm"))));
    EXPECT_TRUE(page.IsSameFile(*StampOf(At("soft.htm"))));
    EXPECT_FALSE(page.IsSameFile(*StampOf(At("other.htm"))));
    EXPECT_FALSE(FileStamp().IsSameFile(FileStamp()));
}

TEST_F(FileLooks, ReachNamesThatAreNoUtf8) {
    const QString path = folder_.path() + DecodeFileName("/caf\xE9.htm");
    EXPECT_EQ(KeepBeside(path, "x"), folder_.path() + DecodeFileName("/caf\xE9.other.htm"));
    EXPECT_TRUE(StampOf(folder_.path() + DecodeFileName("/caf\xE9.other.htm"))->IsThere());
}

TEST_F(FileLooks, KeepACopyBesideUnderANameThatIsFree) {
    Write("page.htm", "mine");
    EXPECT_EQ(KeepBeside(At("page.htm"), "theirs"), At("page.other.htm"));
    EXPECT_EQ(KeepBeside(At("page.htm"), "later"), At("page.other-2.htm"));
    EXPECT_EQ(Bytes(At("page.other.htm")), "theirs");
    EXPECT_EQ(Bytes(At("page.other-2.htm")), "later");
    EXPECT_EQ(KeepBeside(At("README"), "x"), At("README.other"));
    EXPECT_EQ(Bytes(At("page.htm")), "mine");
    EXPECT_EQ(KeepBeside(At("no folder/page.htm"), "x"), "");
}

}  // namespace
}  // namespace vellum
