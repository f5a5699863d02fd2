#include "files/file_names.h"
#include "files/safe_write.h"
#include "files/text_file.h"
#include "tests/shell/main_window_fixture.h"
#include "tests/support/remove_all.h"

#include <QDir>
#include <QPrinterInfo>

namespace vellum::test {
namespace {

class FileCommandsTest : public MainWindowFixture {};

TEST_F(FileCommandsTest, OpenAsksWithTheWholeFilterInTheWebsiteDirectory) {
    Open();
    Trigger("mnuOpenItem");
    ASSERT_EQ(prompts.requests.size(), 1U);
    EXPECT_EQ(
        prompts.requests[0].filter,
        "HTML Documents (*.htm;*.html)|*.htm;*.html|HTML Applications (*.hta)|*.hta|Active Server Files (*.asp)|*.asp|"
        "Synchronized Multimedia Integration Language Files (*.smil)|*.smil|Style Sheet Files (*.css)|*.css|Extensible "
        "Markup Language Files (*.xml)|*.xml|Text Files (*.txt)|*.txt|All Files (*.*)|*.*");
    EXPECT_EQ(prompts.requests[0].directory, site.path());
    EXPECT_TRUE(prompts.requests[0].several);
    EXPECT_EQ(window->OpenDocCount(), 1);
    EXPECT_TRUE(prompts.messages.isEmpty());
}

TEST_F(FileCommandsTest, OpenPutsOneFileIntoANewWindowBesideTheBlankOne) {
    Open();
    const QString path = MakeFile("page.htm", "<p>\r\n</p>");
    prompts.openNames.push_back(path);
    Trigger("mnuOpenItem");
    EXPECT_EQ(window->OpenDocCount(), 2);
    EXPECT_EQ(Active().Caption(), path);
    EXPECT_EQ(Active().Text1->Text(), "<p>\r\n</p>");
    EXPECT_TRUE(Active().Saver());
    EXPECT_EQ(window->area->subWindowList().size(), 2);
    EXPECT_FALSE(window->findChild<QAction*>("mnuRecentFile")->isEnabled()) << "opening does not feed the recent list";
}

TEST_F(FileCommandsTest, OpenTakesSeveralFilesInTheDialogsOrder) {
    Open();
    for (const char* name : {"a.htm", "b.htm", "c.htm"}) (void)MakeFile(name, name);
    prompts.openNames.push_back(QStringList{site.path(), "b.htm", "c.htm", "a.htm"}.join(QChar(0)));
    Trigger("mnuOpenItem");
    QStringList captions;
    for (const QMdiSubWindow* child : window->area->subWindowList()) {
        captions << qobject_cast<Document*>(child->widget())->Caption();
    }
    EXPECT_EQ(captions, (QStringList{"New 1", SitePath("b.htm"), SitePath("c.htm"), SitePath("a.htm")}));
    EXPECT_EQ(window->OpenDocCount(), 4);
    EXPECT_EQ(window->colored, 1 + 3) << "the first document and each of the three";
}

TEST_F(FileCommandsTest, AFileThatCantBeReadIsToldAndLeavesNoWindow) {
    Open();
    prompts.openNames.push_back(SitePath("missing.htm"));
    Trigger("mnuOpenItem");
    EXPECT_EQ(prompts.messages, QStringList{"File Unavailable."});
    EXPECT_EQ(window->OpenDocCount(), 1);
    EXPECT_EQ(window->area->subWindowList().size(), 1);
}

TEST_F(FileCommandsTest, SaveOfABlankDocumentAsksForANameAndFeedsTheRecentList) {
    Open();
    QTest::keyClicks(Active().Text1, "<p>x</p>");
    EXPECT_FALSE(Active().Saver());
    prompts.saveNames.push_back(SitePath("x.htm"));
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(SitePath("x.htm")), "<p>x</p>");
    EXPECT_EQ(Active().Caption(), SitePath("x.htm"));
    EXPECT_TRUE(Active().Saver());
    EXPECT_EQ(window->findChild<QAction*>("mnuRecents(0)")->text(), SitePath("x.htm"));
    EXPECT_TRUE(window->findChild<QAction*>("mnuRecents(0)")->isVisible());
    EXPECT_FALSE(window->findChild<QAction*>("mnuRecents(1)")->isVisible());
    EXPECT_TRUE(window->findChild<QAction*>("mnuRecentFile")->isEnabled());
}

TEST_F(FileCommandsTest, SaveOfAFileAsksNothing) {
    const QString path = MakeFile("page.htm", "one\ntwo\n");
    Open(false, path);
    QTest::keyClicks(Active().Text1, "x");
    Trigger("mnuSaveregItem");
    EXPECT_TRUE(prompts.requests.empty());
    EXPECT_EQ(Bytes(path), "xone\ntwo\n");
    EXPECT_TRUE(Active().Saver());
}

TEST_F(FileCommandsTest, SaveOfAnUneditedFileKeepsEveryByte) {
    const QByteArray mixed = "one\r\ntwo\nthree\rfour";
    const QString path = MakeFile("mixed.htm", mixed);
    Open(false, path);
    Trigger("mnuSaveregItem");
    EXPECT_EQ(Bytes(path), mixed);
}

TEST_F(FileCommandsTest, AFailedSaveIsToldAndKeepsTheTextChanged) {
    Open();
    QTest::keyClicks(Active().Text1, "precious");
    prompts.saveNames.push_back(SitePath("no/such/folder/x.htm"));
    Trigger("mnuSaveItem");
    EXPECT_EQ(prompts.messages, QStringList{"Cannot save file.  It may be locked or read-only."});
    EXPECT_FALSE(Active().Saver());
    EXPECT_EQ(Active().Text1->Text(), "precious");
    EXPECT_EQ(Active().Caption(), "New 1");
    EXPECT_FALSE(window->findChild<QAction*>("mnuRecentFile")->isEnabled());
}

TEST_F(FileCommandsTest, SaveAsWithoutANameDoesNothing) {
    Open();
    QTest::keyClicks(Active().Text1, "x");
    Trigger("mnuSaveItem");
    EXPECT_FALSE(Active().Saver());
    EXPECT_TRUE(prompts.messages.isEmpty());
    EXPECT_EQ(Active().Caption(), "New 1");
}

TEST_F(FileCommandsTest, AFifthSavedFilePushesOutTheOldestAndAResavedOneKeepsItsPlace) {
    Open();
    for (const char* name : {"1.htm", "2.htm", "3.htm", "4.htm", "5.htm", "3.htm"}) {
        prompts.saveNames.push_back(SitePath(name));
        Trigger("mnuSaveItem");
    }
    const auto recent = [this](int i) {
        return window->findChild<QAction*>(QStringLiteral("mnuRecents(%1)").arg(i))->text();
    };
    EXPECT_EQ(recent(0), SitePath("5.htm"));
    EXPECT_EQ(recent(1), SitePath("4.htm"));
    EXPECT_EQ(recent(2), SitePath("3.htm"));
    EXPECT_EQ(recent(3), SitePath("2.htm"));
}

TEST_F(FileCommandsTest, ARecentFileOpensAndAMissingOneLeavesAnEmptyWindow) {
    WriteSetting(settings, keys::recentFile, 0, MakeFile("kept.htm", "kept"));
    WriteSetting(settings, keys::recentFile, 1, SitePath("gone.htm"));
    Open();
    Trigger("mnuRecents(0)");
    EXPECT_EQ(Active().Caption(), SitePath("kept.htm"));
    EXPECT_EQ(Active().Text1->Text(), "kept");
    EXPECT_EQ(window->OpenDocCount(), 2);
    Trigger("mnuRecents(1)");
    EXPECT_EQ(prompts.messages, QStringList{"File Unavailable."});
    EXPECT_EQ(Active().Caption(), "New");
    EXPECT_EQ(window->OpenDocCount(), 3);
}

TEST_F(FileCommandsTest, OnlySaveAsRefreshesTheFileList) {
    const QString path = MakeFile("page.htm", "x");
    Open(false, path);
    Trigger("mnuSaveregItem");
    EXPECT_TRUE(prompts.requests.empty());
    EXPECT_EQ(window->refreshed, 0);
    prompts.saveNames.push_back(SitePath("other.htm"));
    Trigger("mnuSaveItem");
    EXPECT_EQ(window->refreshed, 1);
    EXPECT_EQ(Active().Caption(), SitePath("other.htm"));
}

TEST_F(FileCommandsTest, PrintWithoutAPrinterSaysSo) {
    if (!QPrinterInfo::defaultPrinter().isNull()) GTEST_SKIP() << "this machine has a default printer";
    Open(false, MakeFile("page.htm", "x"));
    Trigger("mnuPrintItem");
    EXPECT_EQ(prompts.messages.size(), 1);
}

TEST_F(FileCommandsTest, BlankDocumentsAreNumberedAndNumbersAreNotReused) {
    Open();
    EXPECT_EQ(window->NewForm()->Caption(), "New 2");
    EXPECT_EQ(window->NewForm()->Caption(), "New 3");
    Trigger("mnuClose");
    EXPECT_EQ(window->NewForm()->Caption(), "New 4");
    EXPECT_EQ(window->OpenDocCount(), 3);
}

TEST_F(FileCommandsTest, AFileWhoseNameIsNoTextIsSavedAndFoundAgain) {
    const QString path = site.path() + "/" + DecodeFileName("caf\xE9.htm");
    ASSERT_TRUE(WriteFileSafely(path, "text"));
    Open(false, path);
    ASSERT_EQ(Active().Caption(), path);
    EXPECT_EQ(Active().windowTitle(), ReadableName(path));
    QTest::keyClicks(Active().Text1, "more ");
    Trigger("mnuSaveregItem");
    EXPECT_EQ(ReadTextFile(path)->text, "more text");
    EXPECT_EQ(window->Item("mnuRecents(0)")->text(), ReadableName(path));
    Trigger("mnuExitItem");

    Open();
    Trigger("mnuRecents(0)");
    EXPECT_EQ(Active().Caption(), path);
    EXPECT_EQ(Active().Text1->Text(), "more text");
    RemoveAll(site.path());
}

}  // namespace
}  // namespace vellum::test
