#include "editor/document.h"

#include "editor/popup_list.h"
#include "editor/tag_popup.h"
#include "tests/support/test_workbench.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace vellum {
namespace {

class DocumentTest : public testing::Test {
protected:
    test::TestWorkbench workbench;
    test::PlainDocument document{workbench};
};

TEST_F(DocumentTest, HoldsTheSurfaceAndTheHiddenPopup) {
    EXPECT_EQ(document.findChild<EditSurface*>("Text1"), document.Text1);
    EXPECT_EQ(document.findChild<QFrame*>("picAttr"), document.picAttr);
    EXPECT_EQ(document.picAttr->findChild<QListWidget*>("cmbTags"), document.picAttr->cmbTags);
    EXPECT_EQ(document.picAttr->findChild<QListWidget*>("cmbattr"), document.picAttr->cmbattr);
    document.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&document));
    EXPECT_FALSE(document.picAttr->isVisible());
    EXPECT_EQ(document.picAttr->x(), 133);  // 2000 twips
    document.picAttr->show();
    EXPECT_FALSE(document.picAttr->cmbTags->isVisible());
    EXPECT_FALSE(document.picAttr->cmbattr->isVisible());
}

TEST_F(DocumentTest, StartsSavedAndUnnamed) {
    EXPECT_TRUE(document.Saver());
    EXPECT_FALSE(document.usingKeys);
    EXPECT_FALSE(document.WordWrapOn);
    EXPECT_EQ(document.Caption(), "New");
    EXPECT_EQ(document.windowTitle(), "New");
    EXPECT_TRUE(document.NeverSaved());
}

TEST_F(DocumentTest, ACaptionIsShownAsTyped) {
    document.SetCaption("/x/a[*].htm");
    EXPECT_EQ(document.Caption(), "/x/a[*].htm");
    EXPECT_EQ(document.windowTitle(), "/x/a[*][*].htm");  // the toolkit's spelling of the three characters
    EXPECT_FALSE(document.NeverSaved());
    document.SetCaption("Newsletter.htm");
    EXPECT_TRUE(document.NeverSaved());
}

TEST_F(DocumentTest, TypingEndsTheSavedState) {
    QSignalSpy changed(&document, &Document::SaverChanged);
    document.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&document));
    QTest::keyClicks(document.Text1, "ab");
    EXPECT_FALSE(document.Saver());
    EXPECT_EQ(changed.count(), 1);
    document.SetSaver(true);
    EXPECT_TRUE(document.Saver());
    QTest::keyClick(document.Text1, Qt::Key_Backspace);
    EXPECT_FALSE(document.Saver());
    document.SetSaver(true);
    QTest::keyClick(document.Text1, Qt::Key_Left);
    document.Text1->SetFormat({0, 1}, {0xFF, true});
    EXPECT_TRUE(document.Saver());  // neither the caret nor colours are text
}

}  // namespace
}  // namespace vellum
