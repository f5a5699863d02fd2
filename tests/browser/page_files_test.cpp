#include "browser/page_files.h"

#include "tests/support/dead_folder.h"
#include "tests/support/wait_for.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vellum {
namespace {

const PageSurroundings plain{.homes = {"/home/me", "/data/home"}, .folders = {"/data/site"}};

TEST(MayBeShownRule, FilesOfPeopleAreForPages) {
    for (const char* file :
         {"/data/site/a.png", "/data/images/a.png", "/home/me/site/a.png", "/home/you/site/a.png", "/srv/www/a.png",
          "/tmp/a.png", "/media/me/disk/a.png", "/mnt/a.png", "/opt/a.png", "/etcetera/a.png", "/a.png"})
        EXPECT_TRUE(MayBeShown(file, plain)) << file;
}

TEST(MayBeShownRule, FilesOfTheSystemAreNot) {
    for (const char* file : {"/etc/passwd", "/proc/self/environ", "/sys/kernel/notes", "/dev/zero", "/run/user/1/x",
                             "/var/log/syslog", "/boot/config", "/root/a.png", "/usr/bin/a.png", "/lib/x", "/sbin/x"})
        EXPECT_FALSE(MayBeShown(file, plain)) << file;
}

TEST(MayBeShownRule, SystemFoldersThatHoldSitesDisksAndSharedPicturesAreOpen) {
    for (const char* file : {"/var/www/html/a.png", "/var/tmp/a.png", "/run/media/me/disk/a.png",
                             "/usr/share/pixmaps/a.png", "/usr/local/share/a.png", "/var/home/me/a.png"})
        EXPECT_TRUE(MayBeShown(file, plain)) << file;
    const QByteArray mounts = "/run/user/" + QByteArray::number(::getuid()) + "/gvfs/server/a.png";
    EXPECT_TRUE(MayBeShown(mounts, plain));
}

TEST(MayBeShownRule, HiddenFilesOfAnyHomeAreNot) {
    for (const char* file : {"/home/me/.ssh/key", "/home/me/.netrc", "/home/me/site/.git/config", "/home/you/.ssh/key",
                             "/data/home/.config/deep/down/x", "/var/home/you/.ssh/key"})
        EXPECT_FALSE(MayBeShown(file, plain)) << file;
    EXPECT_TRUE(MayBeShown("/data/.hidden/a.png", plain)) << "in no home";
    EXPECT_TRUE(MayBeShown("/home/.shared/a.png", plain)) << "in no home";
}

TEST(MayBeShownRule, APageHasWhatLiesWithItEverywhere) {
    const PageSurroundings around{.homes = {"/home/me"}, .folders = {"/etc/pages", "/home/me/.sites/mill/pages"}};
    EXPECT_TRUE(MayBeShown("/etc/pages/images/a.png", around));
    EXPECT_FALSE(MayBeShown("/etc/passwd", around));
    EXPECT_FALSE(MayBeShown("/etc/pages2/a.png", around));
    EXPECT_TRUE(MayBeShown("/home/me/.sites/mill/images/a.png", around));
    EXPECT_FALSE(MayBeShown("/home/me/.sites/mill/pages/.git/config", around));
    EXPECT_FALSE(MayBeShown("/home/me/.ssh/key", around));
}

TEST(MayBeShownRule, AHomeInASystemFolderIsAHome) {
    const PageSurroundings around{.homes = {"/root", "/var/lib/me"}, .folders = {}};
    EXPECT_TRUE(MayBeShown("/root/site/a.png", around));
    EXPECT_FALSE(MayBeShown("/root/.ssh/key", around));
    EXPECT_TRUE(MayBeShown("/var/lib/me/a.png", around));
}

TEST(LocalPathOf, TakesAddressesByteForByte) {
    EXPECT_EQ(LocalPath(QUrl::fromEncoded("file:///a%20b/%E4%25%23%3F.png?x#y")), "/a b/\xE4%#?.png");
    EXPECT_EQ(LocalPath(QUrl::fromLocalFile(QString::fromUtf8("/\xC3\xBC.png"))), "/\xC3\xBC.png");
    for (const char* address : {"http://example.org/a", "file://example.org/a", "file:///a%2Fb", "file:///a%2fb",
                                "file:///a%00b", "data:,x", ""})
        EXPECT_EQ(LocalPath(QUrl::fromEncoded(address)), "") << address;
}

class PageFilesTest : public testing::Test {
protected:
    QByteArray Path(const char* name) const { return QFile::encodeName(directory_.filePath(name)); }

    QByteArray Write(const char* name, const QByteArray& bytes) const {
        QFile file(directory_.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return Path(name);
    }

    QTemporaryDir directory_;
};

TEST_F(PageFilesTest, RegularFilesAlone) {
    EXPECT_TRUE(IsForPages(Write("a.png", "x")));
    ASSERT_EQ(::mkfifo(Path("pipe").constData(), 0600), 0);
    EXPECT_FALSE(IsForPages(Path("pipe")));
    EXPECT_FALSE(IsForPages(Path("")));
    EXPECT_FALSE(IsForPages(Path("missing")));
    EXPECT_FALSE(IsForPages(""));
    EXPECT_FALSE(IsForPages("/dev/null"));
}

TEST_F(PageFilesTest, LinksAreFollowedFirst) {
    Write("a.png", "x");
    ASSERT_EQ(::symlink("a.png", Path("good").constData()), 0);
    ASSERT_EQ(::symlink("/etc/passwd", Path("bad").constData()), 0);
    ASSERT_EQ(::symlink("/etc", Path("folder").constData()), 0);
    EXPECT_TRUE(IsForPages(Path("good")));
    EXPECT_FALSE(IsForPages(Path("bad")));
    EXPECT_FALSE(IsForPages(Path("folder/passwd")));
    EXPECT_EQ(ReadForPages(Path("good")), "x");
    EXPECT_EQ(ReadForPages(Path("bad")), std::nullopt);
}

TEST_F(PageFilesTest, AShownFolderIsOpenForAsLongAsItIsShown) {
    EXPECT_FALSE(IsForPages("/etc/passwd"));
    {
        const ShownFolder folder("/etc");
        const ShownFolder again("/etc");
        EXPECT_TRUE(IsForPages("/etc/passwd"));
    }
    EXPECT_FALSE(IsForPages("/etc/passwd"));
    const ShownFolder root("/");
    EXPECT_FALSE(IsForPages("/etc/passwd")) << "a page in the root doesn't open all";
}

TEST_F(PageFilesTest, AFolderThatDoesNotAnswerHoldsUpNothingTwice) {
    ASSERT_TRUE(QDir(directory_.path()).mkdir("dead"));
    const QByteArray file = Write("dead/a.png", "x");
    const QByteArray beside = Write("b.png", "x");
    EXPECT_TRUE(IsForPagesNow(file));
    test::DeadFolder dead(directory_.filePath("dead"));
    EXPECT_FALSE(IsForPagesNow(file));
    EXPECT_EQ(dead.Waiting(), 1);
    EXPECT_FALSE(IsForPagesNow(file));
    EXPECT_EQ(dead.Waiting(), 1) << "nobody asks again";
    EXPECT_TRUE(IsForPagesNow(beside));
    EXPECT_EQ(dead.CallsOfTheMainThread(), 0);
    dead.Revive();
    EXPECT_TRUE(test::WaitFor([&] { return IsForPagesNow(file); }));
}

}  // namespace
}  // namespace vellum
