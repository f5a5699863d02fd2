#include "tools/tables/table_pane.h"

#include "tests/tools/tables/builder_fixture.h"

#include <QScrollBar>

namespace vellum::test {
namespace {

class TablePanes : public BuilderFixture {};

TEST_F(TablePanes, ScrollsInStepsOfTenTwips) {
    Open([](frmTables& tool) {
        const auto& across = Get<QScrollBar>(tool, "HScroll1");
        auto& down = Get<QScrollBar>(tool, "VScroll1");
        const TableGrid& grid = Grid(tool);
        EXPECT_EQ(across.maximum(), (500 + 2 * 1900) / 10);
        EXPECT_EQ(down.maximum(), (315 + 2 * 315) / 10);
        Click(tool, "cmdColPlus");
        Click(tool, "cmdRowPlus");
        EXPECT_EQ(across.maximum(), 620);
        EXPECT_EQ(down.maximum(), 126);
        DragSection(*grid.horizontalHeader(), 0, 34);
        EXPECT_EQ(across.maximum(), 670);
        down.setValue(1);
        EXPECT_EQ(down.value(), 1) << "less than a pixel";
        down.setValue(45);
        EXPECT_EQ(grid.visualRect(grid.model()->index(0, 0)).top(), -30);
        down.setValue(down.maximum());
        EXPECT_EQ(grid.visualRect(grid.model()->index(2, 0)).bottom(), -23) << "the whole grid has left";
        for (int i = 0; i < 60; ++i) Click(tool, "cmdRowPlus");
        ClickCell(grid, 1, 0);
        QTest::keyClick(tool.focusWidget(), Qt::Key_End, Qt::ControlModifier);
        EXPECT_NEAR(down.value() * 10 / 15, grid.verticalScrollBar()->value(), 1) << "the bar follows the keyboard";
    });
}

TEST_F(TablePanes, ReachesRowsThatItsScrollBarCantCount) {
    Open([](frmTables& tool) {
        Grid(tool).Resize(1039, 2);
        const auto& down = Get<QScrollBar>(tool, "VScroll1");
        EXPECT_EQ(down.maximum(), 32760);
        Click(tool, "cmdRowPlus");
        EXPECT_EQ(Get<QLabel>(tool, "Label14").text(), "1040");
        EXPECT_EQ(down.maximum(), 32760) << "16 bits hold no more";
        Grid(tool).Resize(3000, 2);
        ClickCell(Grid(tool), 0, 0);
        QTest::keyClick(tool.focusWidget(), Qt::Key_Down, Qt::ControlModifier);
        EXPECT_TRUE(Grid(tool).viewport()->rect().contains(Editor(tool).geometry().topLeft()));
        EXPECT_EQ(down.value(), 32760);
        QTest::keyClicks(tool.focusWidget(), "x");
        EXPECT_EQ(Cell(tool, 2999, 0).text, "x");
    });
}

}  // namespace
}  // namespace vellum::test
