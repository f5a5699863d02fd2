#include "tools/tables/cell_block.h"

#include <gtest/gtest.h>
#include <random>

namespace vellum {
namespace {

TEST(CellBlocks, AreALineARowWithTabsBetween) {
    EXPECT_EQ(BlockText({{"a", "b"}, {"c", ""}}), "a\tb\nc\t");
    EXPECT_EQ(ReadBlock("a\tb\nc\t"), (CellBlock{{"a", "b"}, {"c", ""}}));
    EXPECT_EQ(ReadBlock("a\r\nb\rc"), (CellBlock{{"a"}, {"b"}, {"c"}}));
}

TEST(CellBlocks, HaveNoRowAfterTheLastLineEnd) {
    EXPECT_EQ(ReadBlock("a\tb\r\n"), (CellBlock{{"a", "b"}}));
    EXPECT_EQ(ReadBlock("a\n\n"), (CellBlock{{"a"}, {""}}));
    EXPECT_EQ(ReadBlock(""), (CellBlock{{""}}));
}

TEST(CellBlocks, QuoteWhatWouldDivideThem) {
    EXPECT_EQ(BlockText({{"a\nb", "say \"x\"", "c\td", "e f"}}), "\"a\nb\"\t\"say \"\"x\"\"\"\t\"c\td\"\te f");
    EXPECT_EQ(ReadBlock("\"a\nb\"\t\"say \"\"x\"\"\"\n\"\"\t\"\"\"\""), (CellBlock{{"a\nb", "say \"x\""}, {"", "\""}}));
}

TEST(CellBlocks, TakeAQuoteThatClosesNothingForALetter) {
    EXPECT_EQ(ReadBlock("\"a\tb\nc"), (CellBlock{{"\"a", "b"}, {"c"}}));
    EXPECT_EQ(ReadBlock("\"a\"b\tc"), (CellBlock{{"\"a\"b", "c"}}));
    EXPECT_EQ(ReadBlock("3\" pipe\t\""), (CellBlock{{"3\" pipe", "\""}}));
}

TEST(CellBlocks, ComeBackAsTheyWent) {
    std::mt19937 random(3);
    const QString letters = "ab\t\n\"";
    for (int round = 0; round < 500; ++round) {
        CellBlock block(1 + random() % 3);
        for (QStringList& row : block) {
            for (int column = 0; column < 3; ++column) {
                QString text;
                for (unsigned i = random() % 4; i > 0; --i) text += letters.at(random() % 5);
                row << text;
            }
        }
        EXPECT_EQ(ReadBlock(BlockText(block)), block) << BlockText(block).toStdString();
    }
}

}  // namespace
}  // namespace vellum
