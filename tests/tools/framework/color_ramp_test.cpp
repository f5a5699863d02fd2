#include "tools/framework/color_ramp.h"

#include <gtest/gtest.h>
#include <random>

namespace vellum {
namespace {

// Red stands in the low byte.
constexpr ColorNumber black = 0x000000;
constexpr ColorNumber red = 0x0000FF;
constexpr ColorNumber white = 0xFFFFFF;

TEST(ColorRampOf, TenStepsGoByTheWholePartOfATenth) {
    EXPECT_EQ(ColorRamp(black, red, 10).join(' '),
              "#000000 #190000 #320000 #4B0000 #640000 #7D0000 #960000 #AF0000 #C80000 #E10000");
}

TEST(ColorRampOf, ThreeStepsEndBeforeTheLastColor) {
    EXPECT_EQ(ColorRamp(black, white, 3).join(' '), "#000000 #555555 #AAAAAA");
}

TEST(ColorRampOf, ADescentLosesItsFractionsTowardsZero) {
    // -255 in ten steps are -25 each, not -26.
    EXPECT_EQ(ColorRamp(red, black, 10).join(' '),
              "#FF0000 #E60000 #CD0000 #B40000 #9B0000 #820000 #690000 #500000 #370000 #1E0000");
}

TEST(ColorRampOf, EachChannelGoesItsOwnWay) {
    // From #0A6400 to #1464C8 in two: red by 5, green not at all, blue by 100.
    EXPECT_EQ(ColorRamp(0x00640A, 0xC86414, 2).join(' '), "#0A6400 #0F6464");
    // Blue rises by 127 while red falls by 127.
    EXPECT_EQ(ColorRamp(red, 0xFF0000, 2).join(' '), "#FF0000 #80007F");
}

TEST(ColorRampOf, OneStepIsTheFirstColor) {
    EXPECT_EQ(ColorRamp(0x0080FF, white, 1).join(' '), "#FF8000");
}

TEST(ColorRampOf, MoreStepsThanThereAreColorsStayAtTheFirst) {
    EXPECT_EQ(ColorRamp(black, white, 256).join(' '), QStringList(256, "#000000").join(' '));
    EXPECT_EQ(ColorRamp(black, white, 255).last(), "#FEFEFE");
}

// The channel of a step by plain arithmetic.
int Channel(int first, int last, int steps, int step) {
    const int difference = last - first;
    const int increment = difference < 0 ? -(-difference / steps) : difference / steps;
    return increment * step + first;
}

TEST(ColorRampOf, AnyPairOfColorsInAnyNumberOfSteps) {
    std::mt19937 random(20020);
    std::uniform_int_distribution<int> channels(0, 255);
    std::uniform_int_distribution<int> counts(1, 300);
    for (int round = 0; round < 2000; ++round) {
        const int first[] = {channels(random), channels(random), channels(random)};
        const int last[] = {channels(random), channels(random), channels(random)};
        const int steps = counts(random);
        const auto number = [](const int(&rgb)[3]) {
            return static_cast<ColorNumber>(rgb[0] | rgb[1] << 8 | rgb[2] << 16);
        };
        const QStringList colors = ColorRamp(number(first), number(last), steps);
        ASSERT_EQ(colors.size(), steps);
        for (int step = 0; step < steps; ++step) {
            QString expected = "#";
            for (int i = 0; i < 3; ++i) {
                const int channel = Channel(first[i], last[i], steps, step);
                ASSERT_GE(channel, 0);
                ASSERT_LE(channel, 255);
                const QString hex = QString::number(channel, 16).toUpper();
                expected += hex.size() == 1 ? '0' + hex : hex;
            }
            ASSERT_EQ(colors.at(step), expected) << "step " << step << " of " << steps;
        }
    }
}

TEST(ColorRampOf, NoStepsAreNoColors) {
    EXPECT_EQ(ColorRamp(black, white, 0), QStringList());
    EXPECT_EQ(ColorRamp(black, white, -3), QStringList());
}

}  // namespace
}  // namespace vellum
