#include "shell/form26.h"
#include "tests/shell/main_window_fixture.h"

#include <QDir>
#include <QSignalSpy>

namespace vellum::test {
namespace {

class DocumentWindowTest : public MainWindowFixture {
protected:
    void Type(const QString& text) const { QTest::keyClicks(Active().Text1, text); }
};

TEST_F(DocumentWindowTest, ABlankDocumentClosesWithoutAQuestion) {
    Open();
    Trigger("mnuClose");
    EXPECT_TRUE(prompts.questions.isEmpty());
    EXPECT_EQ(window->OpenDocCount(), 0);
    EXPECT_EQ(window->ActiveDocument(), nullptr);
}

TEST_F(DocumentWindowTest, TheShortcutOfCloseReachesTheDocument) {
    Open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    QTest::keyClick(Active().Text1, Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(window->OpenDocCount(), 0);
}

TEST_F(DocumentWindowTest, ABlankDocumentThatWasEmptiedAgainClosesWithoutAQuestion) {
    Open();
    Type("a");
    QTest::keyClick(Active().Text1, Qt::Key_Backspace);
    ASSERT_FALSE(Active().Saver());
    Trigger("mnuClose");
    EXPECT_TRUE(prompts.questions.isEmpty());
    EXPECT_EQ(window->OpenDocCount(), 0);
}

TEST_F(DocumentWindowTest, AChangedDocumentAsksAndNoDropsIt) {
    Open();
    Type("x");
    prompts.answers.push_back(Answer::No);
    Trigger("mnuClose");
    EXPECT_EQ(prompts.questions, QStringList{"You have not saved your file|Do you want to save your document"});
    EXPECT_EQ(window->OpenDocCount(), 0);
}

TEST_F(DocumentWindowTest, CancelKeepsTheDocument) {
    Open();
    Type("x");
    prompts.answers.push_back(Answer::Cancel);
    Trigger("mnuClose");
    EXPECT_EQ(window->OpenDocCount(), 1);
    EXPECT_TRUE(window->documents.StopClosing);
    EXPECT_EQ(Active().Text1->Text(), "x");
}

TEST_F(DocumentWindowTest, YesSavesAFileToItsPathAndListsIt) {
    const QString path = MakeFile("page.htm", "y");
    Open(false, path);
    Type("x");
    prompts.answers.push_back(Answer::Yes);
    Trigger("mnuClose");
    EXPECT_EQ(Bytes(path), "xy");
    EXPECT_TRUE(prompts.requests.empty());
    EXPECT_EQ(window->findChild<QAction*>("mnuRecents(0)")->text(), path);
    EXPECT_EQ(window->OpenDocCount(), 0);
}

TEST_F(DocumentWindowTest, YesAsksABlankDocumentForItsName) {
    Open();
    Type("x");
    prompts.answers.push_back(Answer::Yes);
    prompts.saveNames.push_back(SitePath("new.htm"));
    Trigger("mnuClose");
    ASSERT_EQ(prompts.requests.size(), 1U);
    EXPECT_EQ(prompts.requests[0].filter, "HTML Files (*.htm)|*.htm");
    EXPECT_EQ(prompts.requests[0].directory, site.path());
    EXPECT_EQ(Bytes(SitePath("new.htm")), "x");
    EXPECT_EQ(window->OpenDocCount(), 0);
}

TEST_F(DocumentWindowTest, YesWithoutANameClosesAndLeavesTheCountOneTooHigh) {
    Open();
    Type("x");
    prompts.answers.push_back(Answer::Yes);
    Trigger("mnuClose");
    EXPECT_EQ(window->ActiveDocument(), nullptr);
    EXPECT_EQ(window->OpenDocCount(), 1);
    const QSignalSpy unloaded(window.get(), &MDIform1::Unloaded);
    EXPECT_TRUE(window->close()) << "the close loop ends when no document is left to unload";
    EXPECT_EQ(unloaded.count(), 1);
    EXPECT_FALSE(settings.Contains(u"VellumState", u"Previous", u"WindowState")) << "the state is not written then";
}

TEST_F(DocumentWindowTest, AFailedSaveIsToldAndTheWindowClosesAllTheSame) {
    Open();
    Type("precious");
    prompts.answers.push_back(Answer::Yes);
    prompts.saveNames.push_back(SitePath("no/such/folder/x.htm"));
    Trigger("mnuClose");
    EXPECT_EQ(prompts.messages, QStringList{"Cannot save file.  It may be locked or read-only."});
    EXPECT_EQ(window->OpenDocCount(), 0);
    EXPECT_EQ(window->ActiveDocument(), nullptr);
}

TEST_F(DocumentWindowTest, APathThatStartsWithNewCountsAsNeverSaved) {
    const QString previous = QDir::currentPath();
    QDir::setCurrent(site.path());
    (void)MakeFile("Newsletter.htm", "n");
    Open(false, "Newsletter.htm");
    EXPECT_EQ(Active().Text1->Text(), "n");
    EXPECT_TRUE(Active().NeverSaved());
    Trigger("mnuSaveregItem");
    EXPECT_EQ(prompts.requests.size(), 1U);
    QDir::setCurrent(previous);
}

TEST_F(DocumentWindowTest, AnHtmFileHasNoPreviewInASessionWithoutOne) {
    Open(false, MakeFile("page.htm", "x"));
    EXPECT_NE(qobject_cast<Form26*>(window->ActiveDocument()), nullptr);
}

TEST_F(DocumentWindowTest, CloseAllStopsAtACancel) {
    Open();
    window->NewForm();
    Type("second");
    window->NewForm();
    prompts.answers.push_back(Answer::Cancel);
    Trigger("mnuCloseAll");
    EXPECT_EQ(window->OpenDocCount(), 2);
    EXPECT_EQ(prompts.questions.size(), 1);
    prompts.answers.push_back(Answer::No);
    Trigger("mnuCloseAll");
    EXPECT_EQ(window->OpenDocCount(), 0);
}

TEST_F(DocumentWindowTest, TheWrapItemFollowsTheActiveWindow) {
    Open();
    auto* item = window->findChild<QAction*>("mnuWrapItem");
    EXPECT_FALSE(item->isChecked());
    Trigger("mnuWrapItem");
    EXPECT_TRUE(Active().WordWrapOn);
    EXPECT_LT(Active().Text1->RightMargin(), 1000000);
    QMdiSubWindow* first = window->area->currentSubWindow();
    window->NewForm();
    EXPECT_FALSE(item->isChecked());
    window->area->setActiveSubWindow(first);
    EXPECT_TRUE(item->isChecked());
    Trigger("mnuWrapItem");
    EXPECT_EQ(Active().Text1->RightMargin(), 1000000);
}

TEST_F(DocumentWindowTest, TheEditorFillsTheWindowButForItsMargins) {
    Open();
    QTest::qWait(0);
    const DocumentWindow& document = Active();
    EXPECT_EQ(document.Text1->pos(), QPoint(0, 0));
    EXPECT_EQ(document.Text1->width(), (document.width() * 15 - 190) / 15);
    EXPECT_EQ(document.Text1->height(), (document.height() * 15 - 450) / 15);
}

TEST_F(DocumentWindowTest, APointerMoveOverADocumentClearsTheHint) {
    Open();
    window->SetHint("something");
    QTest::mouseMove(Active().Text1->viewport(), {20, 20});
    QTest::mouseMove(Active().Text1->viewport(), {24, 24});
    EXPECT_EQ(Panel(3), "");
}

TEST_F(DocumentWindowTest, APointerMoveBesideTheEditorClearsTheHintToo) {
    Open();
    window->SetHint("something");
    QTest::mouseMove(&Active(), {Active().width() - 4, 40});
    QTest::mouseMove(&Active(), {Active().width() - 3, 60});
    EXPECT_EQ(Panel(3), "");
}

TEST_F(DocumentWindowTest, TheStatusBarTellsLengthAndLine) {
    Open();
    QTest::keyClicks(Active().Text1, "ab");
    QTest::keyClick(Active().Text1, Qt::Key_Return);
    QTest::keyClicks(Active().Text1, "c");
    EXPECT_EQ(Panel(2), "5 bytes");
    EXPECT_EQ(Panel(6), "2");
    EXPECT_EQ(Panel(5), "1 open");
    EXPECT_EQ(Panel(1), "Changed");
}

}  // namespace
}  // namespace vellum::test
