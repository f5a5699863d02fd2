#include "tools/styles/style_table.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

class StyleTables : public testing::Test {
protected:
    void SetUp() override {
        for (int row = 0; row < StyleTable::rowCount; ++row) table.Set(row, 61, QString::number(row));
    }

    [[nodiscard]] QString At(int row) const { return table.Row(row).at(61); }

    StyleTable table;
};

TEST_F(StyleTables, HaveAHundredAndOneRows) {
    EXPECT_EQ(At(0), "0");
    EXPECT_EQ(At(100), "100");
    EXPECT_THROW((void)table.Row(101), std::out_of_range);
    EXPECT_THROW(table.Set(101, 0, "x"), std::out_of_range);
}

TEST_F(StyleTables, MoveUpWhatComesAfterARemovedRow) {
    table.Remove(1);
    EXPECT_EQ(At(0), "0");
    EXPECT_EQ(At(1), "2");
    EXPECT_EQ(At(98), "99");
    EXPECT_EQ(At(99), "99");
    EXPECT_EQ(At(100), "100");
    table.Remove(100);
    EXPECT_EQ(At(100), "100");
}

TEST_F(StyleTables, EmptyAHundredRows) {
    table.Clear();
    EXPECT_EQ(At(0), "");
    EXPECT_EQ(At(99), "");
    EXPECT_EQ(At(100), "100");
}

}  // namespace
}  // namespace vellum
