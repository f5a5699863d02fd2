#include "tools/framework/text_grid.h"

#include <QDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

// Three columns, with one name of its own.
class TextGrids : public testing::Test {
protected:
    void SetUp() override {
        auto* const column = new QVBoxLayout(&form);
        column->addWidget(grid);
        QObject::connect(grid, &TextGrid::Changed, [this](const GridRows& rows) { told.push_back(rows); });
        grid->SetRows({{"a", "b", "c"}, {"d", "e", "f"}});
        told.clear();
        form.show();
        form.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    }

    [[nodiscard]] QTableWidget& Table() const { return *grid->findChild<QTableWidget*>("Grid1"); }
    [[nodiscard]] QString Count() const { return grid->findChild<QLabel*>("lblRows")->text(); }

    void Press(const QString& button) const {
        QTest::mouseClick(grid->findChild<QPushButton*>(button), Qt::LeftButton);
    }

    void ClickCell(int row, int column) const {
        const QPoint center = Table().visualRect(Table().model()->index(row, column)).center();
        QTest::mouseClick(Table().viewport(), Qt::LeftButton, {}, center);
    }

    QDialog form;
    TextGrid* grid = new TextGrid({.titles = {"One", "Two", "Three"}, .plus = "cmdTextPlus"});
    std::vector<GridRows> told;
};

TEST_F(TextGrids, ShowTheirTitlesRowsAndButtons) {
    EXPECT_EQ(Table().columnCount(), 3);
    EXPECT_EQ(Table().horizontalHeaderItem(2)->text(), "Three");
    EXPECT_EQ(Table().accessibleName(), "One, Two, Three");
    EXPECT_EQ(Count(), "2");
    EXPECT_EQ(grid->Rows(), (GridRows{{"a", "b", "c"}, {"d", "e", "f"}}));
    EXPECT_TRUE(grid->findChild<QLineEdit*>("Text1"));
    EXPECT_EQ(grid->findChild<QPushButton*>("cmdTextPlus")->text(), "+");
    EXPECT_EQ(grid->findChild<QPushButton*>("cmdMinus")->text(), "-");
    EXPECT_LE(Table().columnViewportPosition(2) + Table().columnWidth(2), Table().viewport()->width());
}

TEST_F(TextGrids, TakeWhatIsTypedIntoACell) {
    ClickCell(1, 2);
    QTest::keyClicks(form.focusWidget(), "xy");
    EXPECT_EQ(grid->Rows(), (GridRows{{"a", "b", "c"}, {"d", "e", "xy"}}));
    ASSERT_EQ(told.size(), 2U) << "once a letter";
    EXPECT_EQ(told[0][1][2], "x");
    EXPECT_EQ(told[1][1][2], "xy");
}

TEST_F(TextGrids, AddEmptyRowsAndTakeTheLastAwayDownToOne) {
    Press("cmdTextPlus");
    EXPECT_EQ(Count(), "3");
    EXPECT_EQ(told.back(), (GridRows{{"a", "b", "c"}, {"d", "e", "f"}, {"", "", ""}}));
    for (int i = 0; i < 2; ++i) Press("cmdMinus");
    EXPECT_EQ(told.back(), (GridRows{{"a", "b", "c"}}));
    told.clear();
    Press("cmdMinus");
    EXPECT_EQ(grid->Rows().size(), 1U);
    EXPECT_EQ(Count(), "1");
    EXPECT_TRUE(told.empty());
    Press("cmdTextPlus");
    EXPECT_EQ(told.back(), (GridRows{{"a", "b", "c"}, {"", "", ""}})) << "a row that went has left nothing";
}

TEST_F(TextGrids, ForgetTheCellsOfColumnsThatGo) {
    grid->SetColumns({"Left", "Right"}, {1, 3});
    EXPECT_EQ(grid->Rows(), (GridRows{{"a", "b"}, {"d", "e"}}));
    EXPECT_EQ(told.back(), grid->Rows());
    EXPECT_EQ(Table().horizontalHeaderItem(1)->text(), "Right");
    EXPECT_EQ(Table().accessibleName(), "Left, Right");
    EXPECT_LT(Table().columnWidth(0) * 2, Table().columnWidth(1));
    grid->SetColumns({"One", "Two", "Three"}, {1, 1, 1});
    EXPECT_EQ(grid->Rows(), (GridRows{{"a", "b", ""}, {"d", "e", ""}}));
}

TEST_F(TextGrids, SelectOneCellAtATimeUnlessToldOtherwise) {
    ClickCell(0, 0);
    QTest::mouseClick(Table().viewport(), Qt::LeftButton, Qt::ShiftModifier,
                      Table().visualRect(Table().model()->index(1, 0)).center());
    EXPECT_EQ(Table().selectionModel()->selectedIndexes().size(), 1);
}

TEST_F(TextGrids, ColorTheSelectionOrTheCurrentCell) {
    EXPECT_EQ(grid->Colors(), (GridColors{{0, 0, 0}, {0, 0, 0}}));
    ClickCell(1, 1);
    grid->ColorSelection(0x0080FF);
    EXPECT_EQ(grid->CurrentColor(), 0x0080FFU);
    Table().clearSelection();
    grid->ColorSelection(0x000001);
    EXPECT_EQ(grid->Colors(), (GridColors{{0, 0, 0}, {0, 0x000001, 0}}));
    ClickCell(0, 0);
    EXPECT_EQ(grid->CurrentColor(), 0U);
    grid->SetColumns({"One"}, {1});
    EXPECT_EQ(grid->Colors(), (GridColors{{0}, {0}}));
}

TEST_F(TextGrids, AreWalkedThroughByTheKeyboard) {
    grid->setFocus();
    QTest::keyClicks(form.focusWidget(), "1");
    for (int i = 0; i < 5; ++i) QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
    QTest::keyClicks(form.focusWidget(), "6");
    EXPECT_EQ(grid->Rows(), (GridRows{{"1", "b", "c"}, {"d", "e", "6"}}));
    QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(form.focusWidget()->objectName(), "cmdTextPlus");
    QTest::keyClick(form.focusWidget(), Qt::Key_Space);
    EXPECT_EQ(grid->Rows().size(), 3U);
    QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
    QTest::keyClick(form.focusWidget(), Qt::Key_Space);
    EXPECT_EQ(grid->Rows().size(), 2U);
}

}  // namespace
}  // namespace vellum::test
