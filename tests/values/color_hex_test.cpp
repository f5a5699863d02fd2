#include "values/color_hex.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

TEST(ColorToHexOf, TurnsBlueGreenRedAround) {
    EXPECT_EQ(ColorToHex(0x0000FF), "#FF0000");
    EXPECT_EQ(ColorToHex(0xFF0000), "#0000FF");
    EXPECT_EQ(ColorToHex(0xABCDEF), "#EFCDAB");
}

TEST(ColorToHexOf, FillsShortNumbersWithZeros) {
    EXPECT_EQ(ColorToHex(0), "#000000");
    EXPECT_EQ(ColorToHex(0xA), "#0A0000");
    EXPECT_EQ(ColorToHex(0xAB), "#AB0000");
    EXPECT_EQ(ColorToHex(0xABC), "#BC0A00");
    EXPECT_EQ(ColorToHex(0xABCD), "#CDAB00");
    EXPECT_EQ(ColorToHex(0xABCDE), "#DEBC0A");
}

TEST(ColorToHexOf, TakesTheFirstSixDigitsOfALongNumber) {
    EXPECT_EQ(ColorToHex(0x8000000F), "#000080");
    EXPECT_EQ(ColorToHex(0x1234567), "#563412");
}

TEST(ColorNamesOfABox, AreSixteenInOrder) {
    EXPECT_EQ(ColorNames().join(' '),
              "AQUA BLACK BLUE FUCHSIA GRAY GREEN LIME MAROON NAVY OLIVE PURPLE RED SILVER TEAL WHITE YELLOW");
}

TEST(ColorFromTextOf, ReadsHexAndNamesAndNothingElse) {
    EXPECT_EQ(ColorFromText("#FF8000"), 0x0080FFU);
    EXPECT_EQ(ColorFromText(" navy "), 0x800000U);
    EXPECT_EQ(ColorFromText("RED"), 0x0000FFU);
    EXPECT_FALSE(ColorFromText(""));
    EXPECT_FALSE(ColorFromText("FF8000"));
    EXPECT_FALSE(ColorFromText("#FF80"));
}

}  // namespace
}  // namespace vellum
