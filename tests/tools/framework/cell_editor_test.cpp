#include "tools/framework/cell_editor.h"

#include <QDialog>
#include <QHeaderView>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

// A grid of three rows and two columns with a field before and a button behind it.
class CellEditors : public testing::Test {
protected:
    void SetUp() override {
        grid.setHorizontalHeaderLabels({"Name", "Value"});
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 2; ++column) {
                grid.setItem(row, column, new QTableWidgetItem(QString("%1%2").arg(row).arg(column)));
            }
        }
        ok.setDefault(true);
        auto* layout = new QVBoxLayout(&form);
        for (QWidget* widget : {static_cast<QWidget*>(&before), static_cast<QWidget*>(&grid),
                                static_cast<QWidget*>(&behind), static_cast<QWidget*>(&ok)}) {
            layout->addWidget(widget);
        }
        QObject::connect(&ok, &QPushButton::clicked, [this] { ++confirmed; });
        form.resize(400, 300);
        form.show();
        form.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    }

    void ClickCell(int row, int column) {
        const QPoint center = grid.visualRect(grid.model()->index(row, column)).center();
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, center);
    }

    void ExpectIn(int row, int column) {
        EXPECT_EQ(grid.currentRow(), row);
        EXPECT_EQ(grid.currentColumn(), column);
        EXPECT_EQ(form.focusWidget(), editor);
        EXPECT_EQ(editor->text(), Cell(row, column));
        EXPECT_EQ(editor->selectedText(), editor->text());
        EXPECT_EQ(editor->geometry(), grid.visualRect(grid.currentIndex()));
        EXPECT_TRUE(editor->isVisible());
    }

    [[nodiscard]] QString Cell(int row, int column) const { return grid.model()->index(row, column).data().toString(); }

    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(form.focusWidget(), key, modifiers); }

    QDialog form;
    QLineEdit before{&form};
    QTableWidget grid{3, 2, &form};
    CellEditor* editor = new CellEditor(&grid, "Text1");
    QPushButton behind{"Behind", &form};
    QPushButton ok{"OK", &form};
    int confirmed = 0;
};

TEST_F(CellEditors, StayHiddenUntilACellIsEntered) {
    EXPECT_TRUE(editor->isHidden());
    ClickCell(1, 1);
    ExpectIn(1, 1);
    grid.setCurrentCell(-1, -1);
    EXPECT_TRUE(editor->isHidden());
    EXPECT_EQ(editor->text(), "");
}

TEST_F(CellEditors, EnterACellByAClickWhereverTheKeyboardWas) {
    before.setFocus();
    ClickCell(0, 1);
    ExpectIn(0, 1);
    ClickCell(2, 0);
    ExpectIn(2, 0);
    before.setFocus();
    ClickCell(1, 0);
    ExpectIn(1, 0);
}

TEST_F(CellEditors, WriteEachChangeBackAtOnce) {
    ClickCell(1, 0);
    QTest::keyClicks(editor, "new");
    EXPECT_EQ(Cell(1, 0), "new");
    Key(Qt::Key_Backspace);
    EXPECT_EQ(Cell(1, 0), "ne");
    editor->clear();
    EXPECT_EQ(Cell(1, 0), "");
    for (const auto& [row, column] : {std::pair{0, 0}, {0, 1}, {1, 1}, {2, 0}, {2, 1}}) {
        EXPECT_EQ(Cell(row, column), QString("%1%2").arg(row).arg(column)) << "another cell changed";
    }
}

TEST_F(CellEditors, WriteIntoACellThatHeldNothing) {
    grid.setRowCount(4);
    ClickCell(2, 1);
    Key(Qt::Key_Tab);
    ExpectIn(3, 0);
    QTest::keyClicks(editor, "more");
    EXPECT_EQ(Cell(3, 0), "more");
}

TEST_F(CellEditors, TakeTabThroughTheCellsAndOut) {
    before.setFocus();
    Key(Qt::Key_Tab);
    ExpectIn(0, 0);
    for (const auto& [row, column] : {std::pair{0, 1}, {1, 0}, {1, 1}, {2, 0}, {2, 1}}) {
        Key(Qt::Key_Tab);
        ExpectIn(row, column);
    }
    Key(Qt::Key_Tab);
    EXPECT_EQ(form.focusWidget(), &behind);
}

TEST_F(CellEditors, TakeShiftTabBackThroughTheCellsAndOut) {
    behind.setFocus();
    grid.setCurrentCell(1, 1);
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    ExpectIn(1, 1);
    for (const auto& [row, column] : {std::pair{1, 0}, {0, 1}, {0, 0}}) {
        Key(Qt::Key_Backtab, Qt::ShiftModifier);
        ExpectIn(row, column);
    }
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(form.focusWidget(), &before);
}

TEST_F(CellEditors, TakeTheArrowsUpAndDown) {
    ClickCell(0, 1);
    Key(Qt::Key_Down);
    ExpectIn(1, 1);
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    ExpectIn(2, 1);
    Key(Qt::Key_Up);
    ExpectIn(1, 1);
    Key(Qt::Key_Home);
    Key(Qt::Key_Right);
    EXPECT_EQ(editor->cursorPosition(), 1) << "left and right stay in the text";
    EXPECT_EQ(grid.currentColumn(), 1);
}

TEST_F(CellEditors, TakeEnterDownAndFromTheLastRowToTheDefaultButton) {
    ClickCell(0, 1);
    Key(Qt::Key_Return);
    ExpectIn(1, 1);
    Key(Qt::Key_Enter, Qt::KeypadModifier);
    ExpectIn(2, 1);
    EXPECT_EQ(confirmed, 0);
    Key(Qt::Key_Return);
    EXPECT_EQ(confirmed, 1);
    ClickCell(0, 0);
    Key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(confirmed, 2);
    EXPECT_EQ(grid.currentRow(), 0);
}

TEST_F(CellEditors, LeaveEscToTheForm) {
    ClickCell(0, 0);
    Key(Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(CellEditors, FollowScrollingAndResizing) {
    grid.setRowCount(60);
    ASSERT_TRUE(QTest::qWaitFor([this] { return grid.verticalScrollBar()->maximum() > 0; }));
    ClickCell(1, 0);
    grid.verticalScrollBar()->setValue(1);
    EXPECT_EQ(editor->geometry(), grid.visualRect(grid.currentIndex()));
    EXPECT_EQ(editor->y(), 0);
    grid.verticalScrollBar()->setValue(40);
    EXPECT_LT(editor->geometry().bottom(), 0);
    form.hide();
    grid.verticalScrollBar()->setValue(1);
    EXPECT_EQ(editor->geometry(), grid.visualRect(grid.currentIndex()));
    form.show();
    grid.verticalScrollBar()->setValue(0);
    grid.horizontalHeader()->resizeSection(0, 177);
    EXPECT_EQ(editor->width(), grid.visualRect(grid.currentIndex()).width());
    grid.verticalHeader()->resizeSection(0, 55);
    EXPECT_EQ(editor->geometry(), grid.visualRect(grid.currentIndex()));
}

TEST_F(CellEditors, BringAFarCellIntoSight) {
    grid.setRowCount(60);
    ASSERT_TRUE(QTest::qWaitFor([this] { return grid.verticalScrollBar()->maximum() > 0; }));
    editor->Enter(59, 1);
    EXPECT_TRUE(grid.viewport()->rect().contains(editor->geometry()));
    ExpectIn(59, 1);
}

TEST_F(CellEditors, MoveWithTheirCellWhenRowsGoWithoutTakingTheKeyboard) {
    ClickCell(2, 0);
    behind.setFocus();
    grid.setRowCount(2);
    EXPECT_EQ(grid.currentRow(), 1);
    EXPECT_EQ(editor->text(), "10");
    EXPECT_EQ(editor->geometry(), grid.visualRect(grid.currentIndex()));
    EXPECT_EQ(form.focusWidget(), &behind);
    grid.setRowCount(0);
    EXPECT_TRUE(editor->isHidden());
}

TEST_F(CellEditors, WriteIntoTheWholeSelectionButLoadFromOneCell) {
    ClickCell(0, 0);
    const QPoint other = grid.visualRect(grid.model()->index(1, 0)).center();
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, Qt::ControlModifier, other);
    EXPECT_EQ(Cell(0, 0), "00");
    EXPECT_EQ(editor->text(), "10");
    QTest::keyClicks(editor, "both");
    EXPECT_EQ(Cell(0, 0), "both");
    EXPECT_EQ(Cell(1, 0), "both");
    EXPECT_EQ(Cell(0, 1), "01");
}

TEST_F(CellEditors, SelectTheirCellAloneByAPress) {
    ClickCell(0, 0);
    const QPoint other = grid.visualRect(grid.model()->index(1, 0)).center();
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, Qt::ControlModifier, other);
    QTest::mouseClick(editor, Qt::LeftButton, Qt::ControlModifier);
    EXPECT_EQ(grid.selectionModel()->selectedIndexes().size(), 2);
    QTest::mouseClick(editor, Qt::LeftButton);
    editor->clear();
    EXPECT_EQ(Cell(0, 0), "00");
    EXPECT_EQ(Cell(1, 0), "");
}

TEST_F(CellEditors, HaveTheColorsOfTheirCell) {
    grid.item(1, 0)->setForeground(Qt::red);
    grid.item(1, 0)->setBackground(Qt::yellow);
    const QPalette plain = editor->palette();
    ClickCell(1, 0);
    EXPECT_EQ(editor->palette().color(QPalette::Text), QColor(Qt::red));
    EXPECT_EQ(editor->palette().color(QPalette::Base), QColor(Qt::yellow));
    grid.item(1, 0)->setForeground(Qt::blue);
    editor->ShowColors();
    EXPECT_EQ(editor->palette().color(QPalette::Text), QColor(Qt::blue));
    ClickCell(0, 0);
    EXPECT_EQ(editor->palette().color(QPalette::Text), plain.color(QPalette::Text));
    EXPECT_EQ(editor->palette().color(QPalette::Base), plain.color(QPalette::Base));
}

TEST_F(CellEditors, TellTheirCellToAScreenReader) {
    ClickCell(1, 1);
    EXPECT_EQ(editor->accessibleName(), "Value, row 2");
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(editor->accessibleName(), "Name, row 2");
}

}  // namespace
}  // namespace vellum::test
