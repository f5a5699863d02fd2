#include "reference/reference_view.h"

#include "editor/tag_popup.h"
#include "reference/add_tags.h"
#include "tests/support/test_workbench.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

namespace vellum {
namespace {

class ReferenceViewTest : public testing::Test {
protected:
    void SetUp() override {
        tree.AddRoot(NodeKind::DocumentType, "XHTML1 Transitional");
        p = tree.AddElement(1, "p", false);
        id = tree.AddNoder(p, NodeKind::Attribute, "id");
        br = tree.AddElement(1, "br", true);
        smil = tree.AddRoot(NodeKind::DocumentType, "SMIL 1.0");
        sets = tree.AddRoot(NodeKind::Text, "Character Sets");
        entity = tree.AddCharacter(tree.AddNoder(sets, NodeKind::CharacterSet, "Latin Characters"), "nbsp", "x");
        script = tree.AddRoot(NodeKind::Text, "JScript 5.0 Language");
        abs = tree.AddNoder(tree.AddNoder(script, NodeKind::Text, "Methods"), NodeKind::Call, "abs");
        dates = tree.AddRoot(NodeKind::Dates, "Date/Time");
        for (const char* text : {"1", "2", "3", "4", "5", "6", "7"}) tree.AddNoder(dates, NodeKind::Text, text);
        tree.SetBold(1, true);

        bench.active = &document;
        document.show();
        view.resize(300, 400);
        view.Show(tree, bench);
        view.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    }

    QPoint PlaceOf(int node) {
        const QModelIndex index = view.IndexOf(node);
        for (QModelIndex above = index.parent(); above.isValid(); above = above.parent()) view.expand(above);
        view.scrollTo(index);
        return view.visualRect(index).center();
    }
    // A person's double click: a press comes first.
    void DoubleClick(int node) {
        const QPoint place = PlaceOf(node);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, place);
    }
    void RightClick(int node) { QTest::mouseClick(view.viewport(), Qt::RightButton, {}, PlaceOf(node)); }
    [[nodiscard]] QString Text() const { return document.Text1->Text(); }

    test::TestWorkbench bench;
    test::PlainDocument document{bench};
    ReferenceTree tree;
    ReferenceView view;
    int p = 0;
    int id = 0;
    int br = 0;
    int smil = 0;
    int sets = 0;
    int entity = 0;
    int script = 0;
    int abs = 0;
    int dates = 0;
};

TEST_F(ReferenceViewTest, ShowsTheNodesAndStartsAtTheFirst) {
    EXPECT_EQ(view.model()->rowCount(), 5);
    EXPECT_EQ(view.NodeOf(view.currentIndex()), 1);
    EXPECT_EQ(view.IndexOf(id).data().toString(), "id=");
    EXPECT_EQ(view.IndexOf(br).data().toString(), "br      EMPTY");
    EXPECT_EQ(view.IndexOf(entity).data().toString(), "&nbsp;      x");
    EXPECT_EQ(view.IndexOf(id).parent(), view.IndexOf(p));
    EXPECT_TRUE(view.IndexOf(1).data(Qt::FontRole).value<QFont>().bold());
    EXPECT_FALSE(view.IndexOf(smil).data(Qt::FontRole).isValid());
}

TEST_F(ReferenceViewTest, AnElementGoesAroundTheSelectionAndOpens) {
    document.Text1->SetText("text");
    document.Text1->SetSelLength(4);
    DoubleClick(p);
    EXPECT_EQ(Text(), "<p>text</p>");
    EXPECT_TRUE(view.isExpanded(view.IndexOf(p)));
    DoubleClick(p);
    EXPECT_TRUE(view.isExpanded(view.IndexOf(p)));
}

TEST_F(ReferenceViewTest, AnEmptyElementReplacesTheSelection) {
    document.Text1->SetText("text");
    document.Text1->SetSelLength(4);
    DoubleClick(br);
    EXPECT_EQ(Text(), "<br />");
}

TEST_F(ReferenceViewTest, AMethodLeavesTheCaretBetweenItsParentheses) {
    DoubleClick(abs);
    EXPECT_EQ(Text(), "abs()");
    EXPECT_EQ(document.Text1->SelStart(), 4);
}

TEST_F(ReferenceViewTest, AnAttributeGoesInWithQuotes) {
    document.Text1->SetText("<p ");
    document.Text1->SetSelStart(3);
    DoubleClick(id);
    EXPECT_EQ(Text(), "<p id=\"\"");
    EXPECT_EQ(document.Text1->SelStart(), 7);
    EXPECT_TRUE(document.usingKeys);
}

TEST_F(ReferenceViewTest, AnEntityGoesInAlone) {
    DoubleClick(entity);
    EXPECT_EQ(Text(), "&nbsp;");
}

TEST_F(ReferenceViewTest, EnterDoesTheSame) {
    view.setCurrentIndex(view.IndexOf(br));
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(Text(), "<br />");
}

TEST_F(ReferenceViewTest, ARootOnlyOpensAndCloses) {
    DoubleClick(1);
    EXPECT_TRUE(view.isExpanded(view.IndexOf(1)));
    DoubleClick(1);
    EXPECT_FALSE(view.isExpanded(view.IndexOf(1)));
    EXPECT_EQ(Text(), "");
}

TEST_F(ReferenceViewTest, NothingGoesInWithoutADocument) {
    bench.count = 0;
    DoubleClick(br);
    EXPECT_EQ(Text(), "");
    bench.active = nullptr;
    DoubleClick(p);
}

TEST_F(ReferenceViewTest, TheDatesAreFreshWhenTheirBranchOpens) {
    view.expand(view.IndexOf(dates));
    const QString first = tree.Node(dates + 1).name;
    EXPECT_NE(first, "1");
    EXPECT_NE(tree.Node(dates + 7).name, "7");
    tree.SetName(dates + 1, "old");
    view.collapse(view.IndexOf(dates));
    view.expand(view.IndexOf(dates));
    EXPECT_NE(tree.Node(dates + 1).name, "old");
}

TEST_F(ReferenceViewTest, TheRightButtonMakesADocumentTypeTheActiveOne) {
    RightClick(smil);
    EXPECT_EQ(tree.ActiveRoot(), smil);
    EXPECT_FALSE(tree.Node(1).bold);
    EXPECT_TRUE(view.IndexOf(smil).data(Qt::FontRole).value<QFont>().bold());
    EXPECT_EQ(view.IndexOf(smil).data(Qt::AccessibleDescriptionRole).toString(), "Active document type");
    EXPECT_EQ(view.IndexOf(1).data(Qt::AccessibleDescriptionRole).toString(), "");
    for (const int node : {script, sets, dates, p}) {
        RightClick(node);
        EXPECT_EQ(tree.ActiveRoot(), smil) << node;
        EXPECT_FALSE(tree.Node(node).bold) << node;
    }
    view.setCurrentIndex(view.IndexOf(1));
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(1, 1), QPoint(1, 1));
    QApplication::sendEvent(&view, &key);
    EXPECT_EQ(tree.ActiveRoot(), 1);
}

TEST_F(ReferenceViewTest, AnotherDocumentTypeClosesThePopup) {
    document.Text1->setFocus();
    bench.references = tree;
    QTest::keyClicks(document.Text1, "<p ");
    ASSERT_TRUE(document.picAttr->isVisible());
    RightClick(smil);
    EXPECT_FALSE(document.picAttr->isVisible());
}

TEST_F(ReferenceViewTest, TheLeftButtonMakesNothingActive) {
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, PlaceOf(smil));
    EXPECT_EQ(tree.ActiveRoot(), 1);
}

TEST_F(ReferenceViewTest, TellsWhatItIsForUnderThePointer) {
    QSignalSpy hints(&view, &ReferenceView::Hint);
    QMouseEvent move(QEvent::MouseMove, QPointF(20, 20), view.viewport()->mapToGlobal(QPointF(20, 20)), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(view.viewport(), &move);
    ASSERT_FALSE(hints.isEmpty());
    EXPECT_EQ(hints.last().at(0).toString(), "Allows access to XHTML language and other references.");
}

TEST_F(ReferenceViewTest, ARefillStartsAtTheFirstNodeAgain) {
    view.setCurrentIndex(view.IndexOf(smil));
    view.BeginRefill();
    tree.Clear();
    tree.AddRoot(NodeKind::Text, "Only");
    view.EndRefill();
    EXPECT_EQ(view.model()->rowCount(), 1);
    EXPECT_EQ(view.NodeOf(view.currentIndex()), 1);
}

TEST_F(ReferenceViewTest, TheModelKeepsTheRulesOfModels) {
    const QAbstractItemModelTester tester(view.model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    view.expandAll();
    view.BeginRefill();
    tree.AddNoder(tree.AddRoot(NodeKind::Text, "More"), NodeKind::Text, "one");
    view.EndRefill();
    view.expandAll();
    EXPECT_EQ(view.model()->rowCount(), 6);
}

TEST_F(ReferenceViewTest, TheTitlesOfCharacterSetsDoNothing) {
    DoubleClick(sets + 1);
    EXPECT_EQ(Text(), "");
    EXPECT_FALSE(view.isExpanded(view.IndexOf(sets + 1)));
}

TEST_F(ReferenceViewTest, TheSignInFrontOfANodeInsertsNothing) {
    const QPoint place = PlaceOf(p);
    const QPoint sign(view.visualRect(view.IndexOf(p)).left() - view.indentation() / 2, place.y());
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, sign);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, sign);
    EXPECT_EQ(Text(), "");
}

TEST_F(ReferenceViewTest, TheRightButtonInsertsNothing) {
    const QPoint place = PlaceOf(br);
    QTest::mouseDClick(view.viewport(), Qt::RightButton, {}, place);
    EXPECT_EQ(Text(), "");
}

TEST_F(ReferenceViewTest, TheMenuKeysMakeADocumentTypeTheActiveOne) {
    view.setCurrentIndex(view.IndexOf(smil));
    QTest::keyClick(&view, Qt::Key_Menu);
    EXPECT_EQ(tree.ActiveRoot(), smil);
    view.setCurrentIndex(view.IndexOf(1));
    QTest::keyClick(&view, Qt::Key_F10);
    EXPECT_EQ(tree.ActiveRoot(), smil);
    QTest::keyClick(&view, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(tree.ActiveRoot(), 1);
}

TEST_F(ReferenceViewTest, LettersFindANode) {
    QTest::keyClicks(&view, "sm");
    EXPECT_EQ(view.NodeOf(view.currentIndex()), smil);
}

TEST_F(ReferenceViewTest, EnterOpensARoot) {
    view.setCurrentIndex(view.IndexOf(script));
    QTest::keyClick(&view, Qt::Key_Enter);
    EXPECT_TRUE(view.isExpanded(view.IndexOf(script)));
    QTest::keyClick(&view, Qt::Key_Enter);
    EXPECT_FALSE(view.isExpanded(view.IndexOf(script)));
}

TEST_F(ReferenceViewTest, TheCaretsOfMethodsAndAttributesGetTheKeyboard) {
    document.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&document));
    document.Text1->clearFocus();
    ASSERT_FALSE(document.Text1->hasFocus());
    DoubleClick(abs);
    EXPECT_TRUE(document.Text1->hasFocus());
    document.Text1->clearFocus();
    DoubleClick(id);
    EXPECT_TRUE(document.Text1->hasFocus());
}

TEST_F(ReferenceViewTest, ShowsNothingOnceTheTreeHasGone) {
    view.Forget();
    tree.Clear();
    EXPECT_EQ(view.model()->rowCount(), 0);
    EXPECT_FALSE(view.currentIndex().isValid());
    QTest::keyClick(&view, Qt::Key_Return);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, {20, 5});
    EXPECT_EQ(Text(), "");
}

TEST_F(ReferenceViewTest, TextsThatAreCutShowWhole) {
    const int type = tree.AddRoot(NodeKind::Text, "<b>Type</b>\r\n    PUBLIC");
    const int wide = tree.AddRoot(NodeKind::Text, QString(200, 'w'));
    view.Show(tree, bench);
    EXPECT_EQ(view.IndexOf(type).data().toString(), "<b>Type</b> PUBLIC");
    const auto tipOver = [this](int node) {
        QToolTip::hideText();
        const QPoint place = PlaceOf(node) - QPoint(view.visualRect(view.IndexOf(node)).width() / 2 - 4, 0);
        QHelpEvent help(QEvent::ToolTip, place, view.viewport()->mapToGlobal(place));
        QApplication::sendEvent(view.viewport(), &help);
        return QToolTip::text();
    };
    EXPECT_TRUE(tipOver(type).contains("&lt;b&gt;Type&lt;/b&gt;\r\n    PUBLIC")) << tipOver(type).toStdString();
    EXPECT_TRUE(tipOver(wide).contains(QString(200, 'w')));
    EXPECT_FALSE(tipOver(script).contains("JScript"));
}

}  // namespace
}  // namespace vellum
