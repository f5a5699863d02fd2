#include "import/rich_text.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

TEST(RichTextOf, PlainTextHasOneRunAndAParagraphALine) {
    const RichText rich = PlainRichText("a\r\n\r\nb", "Courier New", 8.5);
    EXPECT_EQ(rich.text, "a\r\n\r\nb");
    EXPECT_EQ(rich.fonts, QStringList("Courier New"));
    EXPECT_EQ(rich.runs, (std::vector<RichRun>{{0, {.halfPoints = 17}}}));
    EXPECT_EQ(rich.paragraphs, std::vector<RichParagraph>(3));
    EXPECT_EQ(PlainRichText({}, "Courier New", 12).paragraphs.size(), 1U);
}

TEST(RichTextBuilder, MakesNothingOfNothing) {
    EXPECT_EQ(RichTextBuilder().Take(), RichText());
}

TEST(RichTextBuilder, GivesEachLineButTheLastItsEnd) {
    RichTextBuilder builder;
    const RichFormat plain{.font = builder.FontNumber("Arial")};
    RichFormat bold = plain;
    bold.bold = true;
    builder.AddText(u"one", plain);
    builder.AddText(u" two", plain);
    builder.AddText(u"", bold);
    builder.EndParagraph({.alignment = RichAlignment::Right}, bold);
    EXPECT_TRUE(builder.AtLineStart());
    builder.AddText(u"three", bold);
    EXPECT_FALSE(builder.AtLineStart());
    builder.EndParagraph({.bullet = true}, plain);

    const RichText rich = builder.Take();
    EXPECT_EQ(rich.text, "one two\r\nthree");
    EXPECT_EQ(rich.runs, (std::vector<RichRun>{{0, plain}, {9, bold}}));
    EXPECT_EQ(rich.paragraphs, (std::vector<RichParagraph>{{.alignment = RichAlignment::Right}, {.bullet = true}}));
    EXPECT_EQ(builder.Take(), RichText()) << "it begins anew";
}

TEST(RichTextBuilder, GivesEmptyLinesTheirOwnFormat) {
    RichTextBuilder builder;
    const RichFormat small{.font = builder.FontNumber("Arial"), .halfPoints = 16};
    const RichFormat large{.font = small.font, .halfPoints = 48};
    builder.AddText(u"a", small);
    builder.EndParagraph({}, large);
    builder.EndParagraph({}, large);
    builder.EndParagraph({}, small);

    const RichText rich = builder.Take();
    EXPECT_EQ(rich.text, "a\r\n\r\n");
    EXPECT_EQ(rich.runs, (std::vector<RichRun>{{0, small}, {3, large}, {5, small}}));
    EXPECT_EQ(rich.paragraphs.size(), 3U);
}

TEST(RichTextBuilder, NumbersFontsByTheirFirstUse) {
    RichTextBuilder builder;
    const std::uint16_t unused = builder.FontNumber("Unused");
    const std::uint16_t second = builder.FontNumber("Second");
    const std::uint16_t first = builder.FontNumber("First");
    EXPECT_EQ(builder.FontNumber("Unused"), unused);
    builder.AddText(u"a", {.font = first});
    builder.AddText(u"b", {.font = second});
    builder.AddText(u"c", {.font = first});
    builder.EndParagraph({}, {.font = unused});

    const RichText rich = builder.Take();
    EXPECT_EQ(rich.fonts, (QStringList{"First", "Second"}));
    EXPECT_EQ(rich.runs, (std::vector<RichRun>{{0, {.font = 0}}, {1, {.font = 1}}, {2, {.font = 0}}}));
}

}  // namespace
}  // namespace vellum
