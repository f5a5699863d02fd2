#include "files/safe_write.h"

#include "files/file_descriptor.h"
#include "files/in_place_write.h"
#include "files/text_file.h"
#include "files/write_contents.h"
#include "tests/files/child_process.h"
#include "tests/files/file_fixture.h"

#include <QCryptographicHash>

#include <csignal>
#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace vellum::test {
namespace {

constexpr uid_t kNobody = 65534;

TEST_F(FileWriting, MakesANewFileWithTheModeOfTheUmask) {
    const mode_t mask = ::umask(027);
    Write(Path(), "new");
    ::umask(mask);
    EXPECT_EQ(StatusOf(Path()).st_mode & 07777, 0640U);
    ExpectOnly({"page.html"});
}

TEST_F(FileWriting, KeepsTheMode) {
    for (const mode_t mode : {0600U, 0644U, 0775U, 02664U}) {
        Put(Path(), "old");
        ASSERT_EQ(::chmod(Name().constData(), mode), 0);
        Write(Path(), "new");
        EXPECT_EQ(StatusOf(Path()).st_mode & 07777, mode);
    }
    ExpectOnly({"page.html"});
}

TEST_F(FileWriting, ReplacesALongerFileAndAnEmptyOne) {
    Put(Path(), "a long old content");
    Write(Path(), "b");
    Write(Path(), "");
    Write(Path(), QByteArray("with\0a NUL", 10));
}

TEST_F(FileWriting, NeverTouchesTheOldFileWhileItReplacesIt) {
    Put(Path(), "old");
    QFile reader(Path());
    ASSERT_TRUE(reader.open(QFile::ReadOnly));
    Write(Path(), "newer");
    EXPECT_EQ(reader.readAll(), "old");
}

TEST_F(FileWriting, KeepsOwnerAndGroup) {
    if (::geteuid() != 0) GTEST_SKIP() << "only the superuser gives files away";
    Put(Path(), "old");
    ASSERT_EQ(::chown(Name().constData(), kNobody, kNobody), 0);
    ASSERT_EQ(::chmod(Name().constData(), 0640), 0);
    Write(Path(), "new");
    EXPECT_EQ(StatusOf(Path()).st_uid, kNobody);
    EXPECT_EQ(StatusOf(Path()).st_gid, kNobody);
    EXPECT_EQ(StatusOf(Path()).st_mode & 07777, 0640U);
}

TEST_F(FileWriting, KeepsExtendedAttributes) {
    Put(Path(), "old");
    if (::setxattr(Name().constData(), "user.note", "mine", 4, 0) != 0) GTEST_SKIP() << "no attributes here";
    Write(Path(), "new");
    char value[16] = {};
    EXPECT_EQ(::getxattr(Name().constData(), "user.note", value, sizeof(value)), 4);
    EXPECT_STREQ(value, "mine");
}

TEST_F(FileWriting, FollowsSymbolicLinks) {
    ASSERT_TRUE(QDir(folder_.path()).mkdir("real"));
    Put(Path("real/page.html"), "old");
    ASSERT_EQ(::symlink("real/page.html", Name("relative").constData()), 0);
    ASSERT_EQ(::symlink(Name("relative").constData(), Name("absolute").constData()), 0);
    Write(Path("absolute"), "new");
    EXPECT_EQ(Content(Path("real/page.html")), "new");
    EXPECT_TRUE(S_ISLNK(StatusOf(Path("absolute")).st_mode));
    EXPECT_TRUE(S_ISLNK(StatusOf(Path("relative")).st_mode));
    ExpectOnly({"absolute", "real", "relative"});
}

TEST_F(FileWriting, MakesTheFileThatADanglingLinkNames) {
    ASSERT_TRUE(QDir(folder_.path()).mkdir("real"));
    ASSERT_EQ(::symlink("real/page.html", Name("link").constData()), 0);
    Write(Path("link"), "new");
    EXPECT_EQ(Content(Path("real/page.html")), "new");
    EXPECT_TRUE(S_ISLNK(StatusOf(Path("link")).st_mode));
}

TEST_F(FileWriting, RefusesLinksInARing) {
    ASSERT_EQ(::symlink("b", Name("a").constData()), 0);
    ASSERT_EQ(::symlink("a", Name("b").constData()), 0);
    ExpectRefused(Path("a"));
}

TEST_F(FileWriting, WritesAFileWithSeveralNamesInPlace) {
    Put(Path(), "a rather long old content");
    ASSERT_EQ(::link(Name().constData(), Name("other.html").constData()), 0);
    const ino_t inode = StatusOf(Path()).st_ino;
    for (const QByteArray content : {"short", "longer than the one before", "", "x"}) {
        Write(Path(), content);
        EXPECT_EQ(Content(Path("other.html")), content);
        EXPECT_EQ(StatusOf(Path()).st_ino, inode);
    }
    ExpectOnly({"other.html", "page.html"});
}

TEST_F(FileWriting, KeepsTheModeOfAFileWithSeveralNames) {
    Put(Path(), "old");
    ASSERT_EQ(::link(Name().constData(), Name("other.html").constData()), 0);
    ASSERT_EQ(::chmod(Name().constData(), 0604), 0);
    Write(Path(), "new");
    EXPECT_EQ(StatusOf(Path()).st_mode & 07777, 0604U);
}

TEST_F(FileWriting, RefusesFoldersPipesAndDevices) {
    ExpectRefused(folder_.path());
    ASSERT_EQ(::mkfifo(Name("pipe").constData(), 0600), 0);
    ExpectRefused(Path("pipe"));
    ExpectRefused("/dev/null");
    ExpectRefused(Path("missing/page.html"));
    Put(Path(), "old");
    ExpectRefused(Path("page.html/inside"));
    EXPECT_FALSE(WriteFileSafely({}, "new"));
    ExpectOnly({"page.html", "pipe"});
}

TEST_F(FileWriting, TakesTheLongestNameThereIs) {
    const QString name(255, u'n');
    Write(Path(name), "old");
    Write(Path(name), "new");
    ASSERT_EQ(::link(Name(name).constData(), Name("other").constData()), 0);
    Write(Path(name), "in place");
    ExpectOnly({name, "other"});
}

// As somebody who has no power over files but that of their modes.
TEST(FileWritingChild, DISABLED_HasNoPrivileges) {
    if (::geteuid() == 0) {
        ASSERT_EQ(::setgid(kNobody), 0);
        ASSERT_EQ(::setuid(kNobody), 0);
    }
    const QString folder = ChildFolder();
    const QString state = folder + "/open/state";
    qputenv("XDG_STATE_HOME", QFile::encodeName(state));

    const QString readOnly = folder + "/open/read-only.html";
    Put(readOnly, "old");
    ASSERT_EQ(::chmod(QFile::encodeName(readOnly).constData(), 0444), 0);
    const ino_t inode = StatusOf(readOnly).st_ino;
    ExpectRefused(readOnly);
    EXPECT_EQ(Content(readOnly), "old");
    EXPECT_EQ(StatusOf(readOnly).st_ino, inode);

    const QString secret = folder + "/open/secret.html";
    Put(secret, "old");
    ASSERT_EQ(::chmod(QFile::encodeName(secret).constData(), 0), 0);
    QString error;
    EXPECT_FALSE(ReadTextFile(secret, &error));
    EXPECT_TRUE(error.contains("secret.html"));

    // A folder that takes no file: what is there is written in place, its copy kept elsewhere, nothing new is made.
    const QString closed = folder + "/open/closed";
    ASSERT_TRUE(QDir().mkdir(closed));
    Put(closed + "/page.html", "old");
    ASSERT_EQ(::chmod(QFile::encodeName(closed).constData(), 0555), 0);
    Write(closed + "/page.html", "new");
    EXPECT_EQ(NamesIn(closed), QStringList("page.html"));
    EXPECT_TRUE(NamesIn(state + "/vellumcraft/backup").isEmpty());
    ExpectRefused(closed + "/second.html");

    const QByteArray longer = QByteArray("new\n").repeated(2000);
    Put(closed + "/page.html", longer.first(4096));
    const QByteArray mark =
        QCryptographicHash::hash(QFile::encodeName(closed + "/page.html"), QCryptographicHash::Sha1);
    const FileDescriptor copy =
        OpenFile(QFile::encodeName(state) + "/vellumcraft/backup/" + mark.toHex() + ".vellumcraft-backup",
                 O_WRONLY | O_CREAT, 0600);
    ASSERT_TRUE(copy.IsOpen() && WriteTo(copy.Get(), {"old", longer}));
    EXPECT_TRUE(RestoreInterruptedWrite(closed + "/page.html"));
    EXPECT_EQ(Content(closed + "/page.html"), longer);

    const QString foreign = folder + "/open/foreign.html";
    if (QFile::exists(foreign)) {
        Write(foreign, "new");
        EXPECT_EQ(StatusOf(foreign).st_uid, 0U);
        EXPECT_EQ(StatusOf(foreign).st_mode & 07777, 0666U);
        EXPECT_EQ(NamesIn(folder + "/open").filter("foreign"), QStringList("foreign.html"));
    }
    ASSERT_EQ(::chmod(QFile::encodeName(closed).constData(), 0755), 0);
}

TEST_F(FileWriting, BowsToPermissions) {
    ASSERT_TRUE(QDir(folder_.path()).mkdir("open"));
    ASSERT_TRUE(QDir(folder_.path()).mkdir("tmp"));
    for (const char* name : {".", "open", "tmp"}) ASSERT_EQ(::chmod(Name(name).constData(), 0777), 0);
    if (::geteuid() == 0) {
        Put(Path("open/foreign.html"), "old");
        ASSERT_EQ(::chmod(Name("open/foreign.html").constData(), 0666), 0);
    }
    ChildProcess child("FileWritingChild.DISABLED_HasNoPrivileges", folder_.path());
    EXPECT_TRUE(child.Succeeds());
}

// A save of `large` bytes fails on the file with one name and on that with two, and both keep what they had.
void ExpectNoRoomFor(qsizetype large, const QString& folder) {
    const QByteArray old = QByteArray("old line\n").repeated(2000);
    Put(folder + "/page.html", old);
    Put(folder + "/linked.html", old);
    ASSERT_EQ(::link(QFile::encodeName(folder + "/linked.html").constData(),
                     QFile::encodeName(folder + "/other.html").constData()),
              0);
    const QByteArray content(large, 'n');
    for (const char* name : {"/page.html", "/linked.html"}) {
        ExpectRefused(folder + name, content);
        EXPECT_EQ(Content(folder + name), old);
    }
    ExpectRefused(folder + "/new.html", content);
    EXPECT_EQ(NamesIn(folder), QStringList({"linked.html", "other.html", "page.html"}));
    Write(folder + "/page.html", "still to be written");
    Write(folder + "/linked.html", "still to be written");
}

TEST(FileWritingChild, DISABLED_HasAFullDisk) {
    const QString folder = ChildFolder() + "/disk";
    ASSERT_TRUE(QDir().mkdir(folder));
    if (::unshare(CLONE_NEWNS) != 0 || ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        ::mount("none", QFile::encodeName(folder).constData(), "tmpfs", 0, "size=256k") != 0) {
        Put(ChildFolder() + "/no-disk", {});
        GTEST_SKIP() << "no disk of our own to fill";
    }
    ExpectNoRoomFor(300'000, folder);
}

TEST_F(FileWriting, KeepsTheOldFileOnAFullDisk) {
    ChildProcess child("FileWritingChild.DISABLED_HasAFullDisk", folder_.path());
    EXPECT_TRUE(child.Succeeds());
    if (QFile::exists(Path("no-disk"))) GTEST_SKIP() << "no disk of our own to fill";
}

TEST(FileWritingChild, DISABLED_MayWriteSmallFilesOnly) {
    const QString folder = ChildFolder() + "/disk";
    ASSERT_TRUE(QDir().mkdir(folder));
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {200'000, 200'000};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    ExpectNoRoomFor(300'000, folder);
}

TEST_F(FileWriting, KeepsTheOldFileWhenTheSystemAllowsNoLargeOne) {
    ChildProcess child("FileWritingChild.DISABLED_MayWriteSmallFilesOnly", folder_.path());
    EXPECT_TRUE(child.Succeeds());
}

}  // namespace
}  // namespace vellum::test
