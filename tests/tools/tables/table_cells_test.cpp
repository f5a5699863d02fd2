#include "tools/tables/table_cells.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

TEST(TableCellsOf, ANewTableAreTwoByTwo) {
    const TableCells cells;
    EXPECT_EQ(cells.Rows(), 2);
    EXPECT_EQ(cells.Columns(), 2);
    EXPECT_EQ(cells.ColumnWidth(1), 1900);
    EXPECT_EQ(cells.RowHeight(1), 315);
    EXPECT_EQ(cells.At(1, 1).text, "");
    EXPECT_EQ(cells.At(1, 1).color, 0U);
    EXPECT_EQ(cells.At(1, 1).backColor, 0U);
    EXPECT_EQ(cells.At(1, 1).fontSize, 12);
}

TEST(TableCellsOf, AnotherSizeKeepWhatStandsWithinBoth) {
    TableCells cells;
    cells.Cell(0, 1).text = "b";
    cells.Cell(1, 0).text = "c";
    cells.Cell(1, 1).text = "d";
    cells.SetColumnWidth(0, 600);
    cells.SetRowHeight(0, 450);
    cells.Resize(1, 3);
    EXPECT_EQ(cells.At(0, 1).text, "b");
    EXPECT_EQ(cells.At(0, 2).text, "");
    EXPECT_EQ(cells.ColumnWidth(0), 600);
    EXPECT_EQ(cells.ColumnWidth(2), 1900);
    EXPECT_EQ(cells.RowHeight(0), 450);
    cells.Resize(2, 1);
    cells.Resize(2, 2);
    EXPECT_EQ(cells.At(0, 1).text, "") << "a column that went takes its cells along";
    EXPECT_EQ(cells.At(1, 0).text, "") << "and so does a row";
}

TEST(TableCellsOf, AClearedTableAreEmptyAndAsLarge) {
    TableCells cells;
    cells.Cell(0, 0) = {.text = "a", .color = 1, .backColor = 2, .fontSize = 36, .image = "a.gif", .picture = {}};
    cells.SetColumnWidth(0, 600);
    cells.Clear();
    EXPECT_EQ(cells.At(0, 0).text + cells.At(0, 0).image, "");
    EXPECT_EQ(cells.At(0, 0).fontSize, 12);
    EXPECT_EQ(cells.Rows(), 2);
    EXPECT_EQ(cells.ColumnWidth(0), 600);
}

TEST(TableCellsOf, OneWideRowCostNoMoreThanItHolds) {
    TableCells cells;
    cells.Resize(1'000'000, 1'000'000);
    cells.Cell(999'999, 2).text = "x";
    EXPECT_EQ(cells.At(999'999, 2).text, "x");
    EXPECT_EQ(cells.At(999'999, 999'999).text, "");
}

TEST(FontSizes, AreShownByTheLargestThatIsNotAbove) {
    const std::pair<float, int> shown[] = {{36, 6}, {48, 6},    {24, 5},    {35.9F, 5}, {18, 4},   {14, 3},
                                           {12, 2}, {9.75F, 1}, {11.9F, 1}, {8, 0},     {9.7F, 0}, {7.9F, -1}};
    for (const auto& [points, index] : shown) EXPECT_EQ(FontSizeIndex(points), index) << points;
}

TEST(RowHeights, FollowTheLinesAndTheirSize) {
    EXPECT_EQ(HeightFor({}), 315);
    EXPECT_EQ(HeightFor({.text = "a\nb"}), 615);
    EXPECT_EQ(HeightFor({.fontSize = 36}), 915);
    EXPECT_EQ(HeightFor({.text = QString(1000, '\n')}), 9015) << "no higher than a screen";
}

TEST(ScrollMaxima, AreTenthsOfTheEndOfTheLastOne) {
    EXPECT_EQ(ScrollMaximum(500, {1900, 1900}), 430);
    EXPECT_EQ(ScrollMaximum(500, {1900, 1909}), 430) << "the integer part";
    EXPECT_EQ(ScrollMaximum(500, {327'179}), 32767);
    EXPECT_EQ(ScrollMaximum(500, {327'180}), 0) << "too far for 16 bits";
    EXPECT_EQ(ScrollMaximum(500, {1900, 327'180}), 240) << "the last one that can be told";
}

}  // namespace
}  // namespace vellum
