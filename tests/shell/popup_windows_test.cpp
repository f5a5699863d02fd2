// The popup of documents in the main window.
#include "editor/popup_list.h"
#include "editor/tag_popup.h"
#include "tests/shell/main_window_fixture.h"

namespace vellum::test {
namespace {

class PopupWindowsTest : public MainWindowFixture {
protected:
    static void ClickEntry(const Document& document, const QString& text) {
        QListWidget& list = *document.picAttr->cmbTags;
        const QList<QListWidgetItem*> found = list.findItems(text, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1);
        list.scrollToItem(found.front());
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(found.front()).center());
    }
};

TEST_F(PopupWindowsTest, AChoiceGoesToTheDocumentWhosePopupItIs) {
    Open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    Document& first = Active();
    window->area->currentSubWindow()->showNormal();
    QTest::keyClicks(first.Text1, "<");
    ASSERT_TRUE(first.picAttr->isVisible());
    Document& second = *window->NewForm();
    window->area->tileSubWindows();
    ASSERT_EQ(window->ActiveDocument(), &second);
    QTest::keyClicks(second.Text1, "<");
    ASSERT_TRUE(second.picAttr->isVisible());
    ClickEntry(first, "table");
    EXPECT_EQ(window->ActiveDocument(), &first);
    EXPECT_EQ(first.Text1->Text(), "<table ");
    EXPECT_EQ(second.Text1->Text(), "<");
    ClickEntry(second, "body");
    EXPECT_EQ(second.Text1->Text(), "<body ");
}

TEST_F(PopupWindowsTest, ItStaysInsideWhenTheWindowGetsSmaller) {
    for (const bool usePreview : {false, true}) {
        Open(usePreview);
        Document& document = Active();
        QTest::keyClicks(document.Text1, QString(200, 'x') + "<");
        ASSERT_TRUE(document.picAttr->isVisible());
        window->resize(500, 400);
        EXPECT_TRUE(QTest::qWaitFor([&] { return document.Text1->geometry().contains(document.picAttr->geometry()); }));
    }
}

TEST_F(PopupWindowsTest, ATreeThatIsBuiltAnewLeavesItUsable) {
    Open();
    Document& document = Active();
    QTest::keyClicks(document.Text1, "<");
    ASSERT_TRUE(document.picAttr->isVisible());
    WriteSetting(settings, keys::dtdXhtml, "2");
    window->AddTags();
    ClickEntry(document, "table");
    EXPECT_EQ(document.Text1->Text(), "<table ");
    QTest::keyClicks(document.Text1, "> <");
    EXPECT_EQ(document.picAttr->cmbTags->findItems("frameset", Qt::MatchExactly).size(), 1);
}

}  // namespace
}  // namespace vellum::test
