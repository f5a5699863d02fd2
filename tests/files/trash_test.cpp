#include "files/trash.h"

#include "tests/files/child_process.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vellum {
namespace {

QByteArray Content(const QString& path) {
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
}

// A trash of its own, that is yet to be made.
class TrashTest : public testing::Test {
protected:
    void SetUp() override { qputenv("XDG_DATA_HOME", QFile::encodeName(data)); }
    void TearDown() override { qputenv("XDG_DATA_HOME", before_); }

    [[nodiscard]] QString Put(const QString& name, const QByteArray& bytes = "x") const {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
    [[nodiscard]] QByteArray Trashed(const QString& name) const { return Content(data + "/Trash/files/" + name); }
    [[nodiscard]] QByteArray Note(const QString& name) const {
        return Content(data + "/Trash/info/" + name + ".trashinfo");
    }

    QTemporaryDir folder;
    QString data = folder.filePath("data");

private:
    QByteArray before_ = qgetenv("XDG_DATA_HOME");
};

TEST_F(TrashTest, TakesAFileWithANoteOfWhereItWas) {
    const QString path = Put("50% of it\u00E9.htm", "precious");
    ASSERT_TRUE(MoveToTrash(path));
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_EQ(Trashed("50% of it\u00E9.htm"), "precious");
    const QList<QByteArray> lines = Note("50% of it\u00E9.htm").split('\n');
    ASSERT_EQ(lines.size(), 4);
    EXPECT_EQ(lines[0], "[Trash Info]");
    EXPECT_EQ(lines[1], "Path=" + QFile::encodeName(folder.path()) + "/50%25%20of%20it%C3%A9.htm");
    EXPECT_EQ(lines[2].size(), qsizetype(sizeof("DeletionDate=2024-05-06T07:08:09") - 1));
    EXPECT_TRUE(lines[2].startsWith("DeletionDate=20"));
    struct stat status = {};
    ASSERT_EQ(::stat(QFile::encodeName(data + "/Trash").constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0700U);
}

TEST_F(TrashTest, KeepsFilesOfTheSameName) {
    for (const char* content : {"first", "second", "third"}) ASSERT_TRUE(MoveToTrash(Put("page.htm", content)));
    EXPECT_EQ(Trashed("page.htm"), "first");
    EXPECT_EQ(Trashed("page.htm.2"), "second");
    EXPECT_EQ(Trashed("page.htm.3"), "third");
    EXPECT_EQ(Note("page.htm.3").split('\n').value(1), Note("page.htm").split('\n').value(1));
}

TEST_F(TrashTest, NeverReplacesAFileThatHasNoNote) {
    ASSERT_TRUE(QDir().mkpath(data + "/Trash/files"));
    QFile lost(data + "/Trash/files/page.htm");
    ASSERT_TRUE(lost.open(QFile::WriteOnly));
    lost.close();
    ASSERT_TRUE(MoveToTrash(Put("page.htm", "new")));
    EXPECT_EQ(Trashed("page.htm"), "");
    EXPECT_EQ(Trashed("page.htm.2"), "new");
    EXPECT_EQ(Note("page.htm"), "(cannot be read)");
}

TEST_F(TrashTest, TakesTheLongestNames) {
    const QString name(255, u'n');
    ASSERT_TRUE(MoveToTrash(Put(name, "long")));
    EXPECT_EQ(Trashed(name.left(200)), "long");
    EXPECT_TRUE(Note(name.left(200)).contains("/" + name.toLatin1() + "\n"));
}

TEST_F(TrashTest, TakesALinkAndNotWhatItLeadsTo) {
    const QString path = Put("page.htm", "kept");
    ASSERT_TRUE(QFile::link(path, folder.filePath("link.htm")));
    ASSERT_TRUE(MoveToTrash(folder.filePath("link.htm")));
    EXPECT_EQ(Content(path), "kept");
    EXPECT_TRUE(QFileInfo(data + "/Trash/files/link.htm").isSymLink());
}

TEST_F(TrashTest, LeavesTheFileWhereThereCanBeNoTrash) {
    const QString path = Put("page.htm", "kept");
    (void)Put("data");
    EXPECT_FALSE(MoveToTrash(path));
    EXPECT_EQ(Content(path), "kept");
}

TEST_F(TrashTest, TakesNothingThatIsNotThere) {
    EXPECT_FALSE(MoveToTrash(folder.filePath("missing.htm")));
    EXPECT_FALSE(MoveToTrash(""));
    EXPECT_EQ(QDir(data + "/Trash/info").entryList(QDir::Files), QStringList());
}

TEST(TrashChild, DISABLED_HasAnotherDisk) {
    const QString disk = ChildFolder() + "/disk";
    ASSERT_TRUE(QDir().mkdir(disk));
    if (::unshare(CLONE_NEWNS) != 0 || ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        ::mount("none", QFile::encodeName(disk).constData(), "tmpfs", 0, "size=256k") != 0) {
        QFile(ChildFolder() + "/no-disk").open(QFile::WriteOnly);
        GTEST_SKIP() << "no disk of our own";
    }
    const QByteArray person = QByteArray::number(::geteuid());
    const auto throwAway = [&](const QString& trash) {
        ASSERT_TRUE(QDir().mkpath(disk + "/site"));
        const QString path = disk + "/site/two words.htm";
        QFile file(path);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write("precious");
        file.close();
        ASSERT_TRUE(MoveToTrash(path));
        EXPECT_FALSE(QFile::exists(path));
        EXPECT_EQ(Content(disk + trash + "/files/two words.htm"), "precious");
        EXPECT_TRUE(Content(disk + trash + "/info/two words.htm.trashinfo").contains("\nPath=site/two%20words.htm\n"));
    };
    const QByteArray shared = QFile::encodeName(disk + "/.Trash");
    throwAway("/.Trash-" + person);
    ASSERT_EQ(::mkdir(shared.constData(), 0777), 0);
    ASSERT_TRUE(QDir(disk + "/.Trash-" + person).removeRecursively());
    throwAway("/.Trash-" + person);
    ASSERT_EQ(::chmod(shared.constData(), 01777), 0);
    throwAway("/.Trash/" + person);
}

TEST_F(TrashTest, TakesAFileOfAnotherDiskToTheTopOfThat) {
    ChildProcess child("TrashChild.DISABLED_HasAnotherDisk", folder.path());
    EXPECT_TRUE(child.Succeeds());
    if (QFile::exists(folder.filePath("no-disk"))) GTEST_SKIP() << "no disk of our own";
}

}  // namespace
}  // namespace vellum
