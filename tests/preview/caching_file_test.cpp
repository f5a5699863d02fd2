#include "preview/caching_file.h"

#include "files/file_names.h"
#include "files/safe_write.h"
#include "tests/support/remove_all.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vellum {
namespace {

TEST(CachingFileNameTest, HasTheExtensionOfTheDocument) {
    EXPECT_EQ(CachingFileName("/a/b.html"), "caching.html");
    EXPECT_EQ(CachingFileName("/a/b.htm"), "caching.htm");
    EXPECT_EQ(CachingFileName("/a/b.css"), "caching.css");
    EXPECT_EQ(CachingFileName("/a/b.HTML"), "caching.HTML");
    EXPECT_EQ(CachingFileName("/a/b.c.txt"), "caching.txt");
}

TEST(CachingFileNameTest, IsAnHtmFileWithoutADot) {
    EXPECT_EQ(CachingFileName("New 1"), "caching.htm");
    EXPECT_EQ(CachingFileName("/a/page"), "caching.htm");
    EXPECT_EQ(CachingFileName(""), "caching.htm");
}

TEST(CachingFileNameTest, TakesFourCharactersOfOtherExtensions) {
    EXPECT_EQ(CachingFileName("/a/b.js"), "cachingb.js");
    EXPECT_EQ(CachingFileName("/a/menu.js"), "cachingu.js");
    EXPECT_EQ(CachingFileName("/a/b.xhtml"), "cachinghtml");
    EXPECT_EQ(CachingFileName("/a/b.properties"), "cachingties");
    EXPECT_EQ(CachingFileName("/ab/cde."), "cachingcde.");
}

TEST(CachingFileNameTest, TakesThemWhenTheDotIsInADirectory) {
    EXPECT_EQ(CachingFileName("/x.y/page"), "cachingpage");
    EXPECT_EQ(CachingFileName("/x.y/index"), "cachingndex");
    EXPECT_EQ(CachingFileName("/a.page"), "caching.page");
}

TEST(CachingFileNameTest, NeverPointsIntoAnotherDirectory) {
    EXPECT_EQ(CachingFileName("/x.y/abc"), "cachingabc");
    EXPECT_EQ(CachingFileName("/a/b.c/x"), "caching.cx");
    EXPECT_EQ(CachingFileName("/a/.b/cd"), "caching.bcd");
}

TEST(CachingFileNameTest, TakesAShortCaptionWhole) {
    EXPECT_EQ(CachingFileName("a.b"), "cachinga.b");
    EXPECT_EQ(CachingFileName(".js"), "caching.js");
}

TEST(CachingPathTest, StandsBesideASavedDocument) {
    EXPECT_EQ(CachingPath("/a/b.html", "/site"), "/a/caching.html");
    EXPECT_EQ(CachingPath("/x.y/page", "/site"), "/x.y/cachingpage");
    EXPECT_EQ(CachingPath("/b.css", "/site"), "/caching.css");
    EXPECT_EQ(CachingPath("/a/page", "/site"), "/a/caching.htm");
}

TEST(CachingPathTest, HasNoDirectoryWhenTheCaptionHasNone) {
    EXPECT_EQ(CachingPath("page.html", "/site"), "caching.html");
}

TEST(CachingPathTest, StandsInTheWebsiteDirectoryForAnUnsavedDocument) {
    EXPECT_EQ(CachingPath("New 1", "/site"), "/site/caching.htm");
    EXPECT_EQ(CachingPath("Newsletter.html", "/site"), "/site/caching.html");
    EXPECT_EQ(CachingPath("New/a.css", "/site"), "/site/caching.css");
    EXPECT_EQ(CachingPath("new.htm", "/site"), "caching.htm");
    EXPECT_EQ(CachingPath("/a/New.htm", "/site"), "/a/caching.htm");
}

TEST(CachingPathTest, TheDriveRootGetsNoSecondSeparator) {
    EXPECT_EQ(CachingPath("New 1", "/"), "/caching.htm");
}

TEST(PathBesideDocumentsTest, IsThePathItselfUnlessADocumentStandsThere) {
    EXPECT_EQ(PathBesideDocuments("/a/caching.htm", {}), "/a/caching.htm");
    EXPECT_EQ(PathBesideDocuments("/a/caching.htm", {"New 1", "/a/b.htm", "/b/caching.htm"}), "/a/caching.htm");
    EXPECT_EQ(PathBesideDocuments("/a/caching.htm", {"/a/b.htm", "/a/caching.htm"}), "/a/caching-preview.htm");
    EXPECT_EQ(PathBesideDocuments("/a/caching.htm", {"/a/x/../caching.htm"}), "/a/caching-preview.htm");
    EXPECT_EQ(PathBesideDocuments("/x.y/cachingpage", {"/x.y/cachingpage"}), "/x.y/caching-previewpage");
}

TEST(PathBesideDocumentsTest, GoesOnUntilANameIsFree) {
    EXPECT_EQ(PathBesideDocuments("/a/caching.htm", {"/a/caching-preview.htm", "/a/caching.htm"}),
              "/a/caching-preview2.htm");
}

TEST(PathBesideDocumentsTest, SeesThroughSymbolicLinks) {
    const QTemporaryDir directory;
    const QDir folder(directory.path());
    ASSERT_TRUE(folder.mkpath("site"));
    ASSERT_TRUE(QFile::link(folder.filePath("site"), folder.filePath("same")));
    const QString path = folder.filePath("site/caching.htm");
    const QString spare = folder.filePath("site/caching-preview.htm");
    EXPECT_EQ(PathBesideDocuments(path, {folder.filePath("same/caching.htm")}), spare) << "not on disk yet";
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    EXPECT_EQ(PathBesideDocuments(path, {folder.filePath("same/caching.htm")}), spare);
    ASSERT_TRUE(QFile::link(path, folder.filePath("page.htm")));
    EXPECT_EQ(PathBesideDocuments(path, {folder.filePath("page.htm")}), spare);
}

TEST(PathBesideDocumentsTest, SeesThroughLinksInFoldersWhoseNamesAreNoText) {
    const QTemporaryDir directory;
    const QByteArray folder = QFile::encodeName(directory.path()) + "/caf\xE9";
    ASSERT_EQ(::mkdir(folder.constData(), 0700), 0);
    const QString path = DecodeFileName(folder + "/caching.htm");
    ASSERT_TRUE(WriteFileSafely(path, "x"));
    ASSERT_EQ(::symlink("caching.htm", (folder + "/page.htm").constData()), 0);
    EXPECT_EQ(PathBesideDocuments(path, {DecodeFileName(folder + "/page.htm")}),
              DecodeFileName(folder + "/caching-preview.htm"));
    test::RemoveAll(directory.path());
}

TEST(ScrollScriptTest, FollowsTheText) {
    EXPECT_EQ(WithScrollScript("<html>\r\n</html>", 240),
              "<html>\r\n</html>\r\n"
              "<SCRIPT language=\"Javascript\">\r\n"
              "setTimeout('ScrollStart()',5)\r\n"
              "function ScrollStart() {\r\n"
              "window.scrollTo(0,240)\r\n"
              "}</SCRIPT>\r\n");
}

TEST(ScrollScriptTest, GoesIntoHtmAndHtmlFilesOnly) {
    EXPECT_TRUE(TakesScrollScript("caching.htm"));
    EXPECT_TRUE(TakesScrollScript("caching.html"));
    EXPECT_TRUE(TakesScrollScript("caching.HTM"));
    EXPECT_FALSE(TakesScrollScript("caching.txt"));
    EXPECT_FALSE(TakesScrollScript("cachinghtml"));
}

}  // namespace
}  // namespace vellum
