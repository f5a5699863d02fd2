#include "import/delimited_text.h"

#include "tests/import/literal_delimited_text.h"

#include <gtest/gtest.h>
#include <random>

namespace vellum {
namespace {

using Cells = std::vector<QStringList>;

TEST(Delimiters, AreKnownToTheLetter) {
    EXPECT_EQ(DelimiterOf(u"Tab"), u'\t');
    EXPECT_EQ(DelimiterOf(u"Comma"), u',');
    EXPECT_EQ(DelimiterOf(u"Space"), u' ');
    EXPECT_EQ(DelimiterOf(u"SemiColon"), u':');
    EXPECT_EQ(DelimiterOf(u"Semicolon"), std::nullopt);
    EXPECT_EQ(DelimiterOf(u"tab"), std::nullopt);
    EXPECT_EQ(DelimiterOf(u""), std::nullopt);
}

TEST(DelimitedTexts, HaveARowALineAndACellBetweenDelimiters) {
    const DelimitedText read = ReadDelimitedText(u"a\tb\r\nc\td\te\r\nf", u'\t');
    EXPECT_EQ(read.rows, 3);
    EXPECT_EQ(read.columns, 3);
    EXPECT_EQ(read.cells, (Cells{{"a", "b"}, {"c", "d", "e"}, {"f"}}));
}

TEST(DelimitedTexts, GetARowMoreByALastLineFeed) {
    const DelimitedText read = ReadDelimitedText(u"a,b\n", u',');
    EXPECT_EQ(read.rows, 2);
    EXPECT_EQ(read.columns, 2);
    EXPECT_EQ(read.cells, (Cells{{"a", "b"}, {""}}));
}

TEST(DelimitedTexts, GiveQuotesNoMeaning) {
    EXPECT_EQ(ReadDelimitedText(u"\"a,b\",c\n", u',').cells.front(), QStringList({"\"a", "b\"", "c"}));
}

TEST(DelimitedTexts, LeaveAShortLineShort) {
    const DelimitedText read = ReadDelimitedText(u"a,b,c\nd\n\n,e\n", u',');
    EXPECT_EQ(read.rows, 5);
    EXPECT_EQ(read.columns, 3);
    EXPECT_EQ(read.cells, (Cells{{"a", "b", "c"}, {"d"}, {""}, {"", "e"}, {""}}));
}

TEST(DelimitedTexts, DontCountALastLineWithoutALineFeed) {
    const DelimitedText read = ReadDelimitedText(u"a,b\nc,d,e,f", u',');
    EXPECT_EQ(read.rows, 2);
    EXPECT_EQ(read.columns, 2);
    EXPECT_EQ(read.cells, (Cells{{"a", "b"}, {"c", "d"}}));
    EXPECT_EQ(ReadDelimitedText(u"a,b,c", u',').cells, (Cells{{"a"}}));
}

TEST(DelimitedTexts, AreOneCellALineWithoutADelimiter) {
    const DelimitedText read = ReadDelimitedText(u"a;b\nc:d,e\tf g", std::nullopt);
    EXPECT_EQ(read.columns, 1);
    EXPECT_EQ(read.cells, (Cells{{"a;b"}, {"c:d,e\tf g"}}));
}

TEST(DelimitedTexts, OfNothingAreOneEmptyCell) {
    const DelimitedText read = ReadDelimitedText(u"", u',');
    EXPECT_EQ(read.rows, 1);
    EXPECT_EQ(read.columns, 1);
    EXPECT_EQ(read.cells, (Cells{{""}}));
}

TEST(DelimitedTexts, SkipCarriageReturnsWhereverTheyStand) {
    EXPECT_EQ(ReadDelimitedText(u"a\rb,\r\r\n", u',').cells, (Cells{{"ab", ""}, {""}}));
}

TEST(DelimitedTexts, AreReadAsAWalkByCharacterReadsThem) {
    std::mt19937 random(7);
    const QString characters = ",\n\rab \t";
    for (int round = 0; round < 2000; ++round) {
        QString text;
        const int length = static_cast<int>(random() % 40);
        for (int i = 0; i < length; ++i) text += characters.at(random() % static_cast<unsigned>(characters.size()));
        const std::optional<QChar> delimiter = round % 5 == 0 ? std::nullopt : std::optional<QChar>(u',');
        const DelimitedText read = ReadDelimitedText(text, delimiter);
        const DelimitedText literal = test::LiteralDelimitedText(text, delimiter);
        ASSERT_EQ(read.rows, literal.rows) << text.toStdString();
        ASSERT_EQ(read.columns, literal.columns) << text.toStdString();
        ASSERT_EQ(read.cells, literal.cells) << text.toStdString();
    }
}

}  // namespace
}  // namespace vellum
