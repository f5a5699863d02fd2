#include "values/number_rules.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace vellum {
namespace {

struct TextAndNumber {
    const char* text;
    double number;
};

TEST(NumberRules, LeadingNumberStopsAtWhatCannotBelongToIt) {
    const TextAndNumber cases[] = {
        {"", 0},
        {"abc", 0},
        {"12abc", 12},
        {"12", 12},
        {" 1 2 3", 123},
        {"1\t2\r\n3", 123},
        {"-7", -7},
        {"+7", 7},
        {"- 7", -7},
        {"--7", 0},
        {"1.5", 1.5},
        {".5", 0.5},
        {"-.5e1x", -5},
        {"1.", 1},
        {".", 0},
        {"-", 0},
        {"1.2.3", 1.2},
        {"1,5", 1},
        {"1e3", 1000},
        {"1E-2", 0.01},
        {"1d3", 1000},
        {"1D+2x", 100},
        {"1e", 1},
        {"1e+", 1},
        {"2e 3", 2000},
        {"&HFF", 255},
        {"&hff", 255},
        {"& H F F", 255},
        {"&HFG", 15},
        {"&H", 0},
        {"&O17", 15},
        {"&o78", 7},
        {"&HFFFFFF", 16777215},
        {"8388736", 8388736},
        {"007", 7},
        {"100%", 100},
    };
    for (const auto& [text, number] : cases) EXPECT_EQ(LeadingNumber(QString::fromLatin1(text)), number) << text;
}

TEST(NumberRules, LeadingNumberKnowsNoOtherDigitsAndNoLocale) {
    EXPECT_EQ(LeadingNumber(u"\u0663"), 0);      // Arabic three
    EXPECT_EQ(LeadingNumber(u"1\u00A0000"), 1);  // a no-break space is no blank
    EXPECT_EQ(LeadingNumber(u"\u22125"), 0);     // minus sign
    EXPECT_EQ(LeadingNumber(u"&H\u0131"), 0);
}

TEST(NumberRules, LeadingNumberBeyondTheRangeIsTheLargest) {
    EXPECT_EQ(LeadingNumber(u"1e999"), std::numeric_limits<double>::max());
    EXPECT_EQ(LeadingNumber(u"-1e999"), -std::numeric_limits<double>::max());
    EXPECT_EQ(LeadingNumber(u"1e-999"), 0);
}

TEST(NumberRules, IsNumericWantsTheWholeText) {
    for (const char* text : {"1.5", " 3 ", "1e3", "1E-3", "1d3", "-1", "+1", ".5", "5.", "0", "\t7\n"}) {
        EXPECT_TRUE(IsNumeric(QString::fromLatin1(text))) << text;
    }
    for (const char* text : {"abc", "", " ", "1,5", "1 2", "- 1", "1e", "e3", ".", "-", "12abc", "&HFF", "1.2.3"}) {
        EXPECT_FALSE(IsNumeric(QString::fromLatin1(text))) << text;
    }
}

TEST(NumberRules, HalvesRoundToTheEvenNeighbour) {
    const std::pair<double, double> cases[] = {{0.5, 0},
                                               {1.5, 2},
                                               {2.5, 2},
                                               {3.5, 4},
                                               {-0.5, 0},
                                               {-1.5, -2},
                                               {-2.5, -2},
                                               {2.4, 2},
                                               {2.6, 3},
                                               {-2.4, -2},
                                               {-2.6, -3},
                                               {7, 7},
                                               {0.49999999999999994, 0},
                                               {2.5000000001, 3},
                                               {1e300, 1e300}};
    for (const auto& [value, rounded] : cases) EXPECT_EQ(RoundHalfEven(value), rounded) << value;
}

TEST(NumberRules, SixteenBitsHoldWhatRoundsIntoThem) {
    EXPECT_EQ(ToInt16(32767), 32767);
    EXPECT_EQ(ToInt16(32767.4), 32767);
    EXPECT_EQ(ToInt16(32767.5), std::nullopt);
    EXPECT_EQ(ToInt16(-32768), -32768);
    EXPECT_EQ(ToInt16(-32768.5), -32768);
    EXPECT_EQ(ToInt16(-32769), std::nullopt);
    EXPECT_EQ(ToInt16(1e300), std::nullopt);
    EXPECT_EQ(ToInt16(std::nan("")), std::nullopt);
    EXPECT_EQ(ToInt16(2.5), 2);
}

TEST(NumberRules, SixteenBitProductOverflows) {
    EXPECT_EQ(MultiplyInt16(30, 1000), 30000);
    EXPECT_EQ(MultiplyInt16(32, 1000), 32000);
    EXPECT_EQ(MultiplyInt16(33, 1000), std::nullopt);
    EXPECT_EQ(MultiplyInt16(-32768, 1), -32768);
    EXPECT_EQ(MultiplyInt16(-32768, -1), std::nullopt);
}

TEST(NumberRules, NumberTextHasFifteenDigitsAtMost) {
    const std::pair<double, const char*> cases[] = {
        {0, "0"},
        {-0.0, "0"},
        {7, "7"},
        {-7, "-7"},
        {8.5, "8.5"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {-2.0 / 3, "-0.666666666666667"},
        {100, "100"},
        {8388736, "8388736"},
        {123456789012345, "123456789012345"},
        {999999999999999, "999999999999999"},
        {1e15, "1E+15"},
        {-1e15, "-1E+15"},
        {1234567890123456, "1.23456789012346E+15"},
        {1e100, "1E+100"},
        {0.0001, "0.0001"},
    };
    for (const auto& [value, text] : cases) EXPECT_EQ(NumberText(value).toStdString(), text);
}

TEST(NumberRules, TruthIsAWordOrANumber) {
    for (const char* text : {"True", "true", "TRUE", " True ", "1", "-1", "2", "0.5"}) {
        EXPECT_TRUE(TruthValue(QString::fromLatin1(text))) << text;
    }
    for (const char* text : {"False", "false", "0", "0.0", "", "yes", "on", "True!", "1x"}) {
        EXPECT_FALSE(TruthValue(QString::fromLatin1(text))) << text;
    }
}

}  // namespace
}  // namespace vellum
