// Rich texts as markup.
#include "import/rich_text.h"
#include "import/text_import.h"
#include "tests/import/literal_rich_walk.h"
#include "tests/import/random_rich_text.h"

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

const QString opening = "<span style=\"font-weight: normal; font-style: normal; text-decoration: normal;\">\r\n";
const QString standardDivision =
    "<div style=\"text-align: left; font-size: 12pt; font-family: Arial; color: #000000;\">\r\n";
const QString closing = "</span>\r\n</div>\r\n</span>";

// The markup of one line in 12 point Arial.
QString Line(const QString& content) {
    return opening + standardDivision + "<span>" + content + closing;
}

QString Convert(const QString& text, double points = 12) {
    return ConvertRichText(PlainRichText(text, "Arial", points));
}

// The markup inside the span of a text that is one line of that size.
QString Content(const QString& text, double points) {
    QString markup = Convert(text, points);
    markup.remove(0, markup.indexOf("<span>") + 6);
    return markup.chopped(closing.size());
}

// One line whose characters come in runs.
struct Piece {
    QString text;
    RichFormat format;
};

QString ConvertPieces(const std::vector<Piece>& pieces, const RichParagraph& paragraph = {}) {
    RichTextBuilder builder;
    EXPECT_EQ(builder.FontNumber("Arial"), 0);
    EXPECT_EQ(builder.FontNumber("Courier New"), 1);
    for (const Piece& piece : pieces) builder.AddText(piece.text, piece.format);
    builder.EndParagraph(paragraph, {});
    return ConvertRichText(builder.Take());
}

TEST(RichMarkup, OfNothingIsOneEmptyDivision) {
    EXPECT_EQ(Convert(""), Line(""));
    EXPECT_EQ(ConvertRichText({}),
              "<span style=\"font-weight: normal; font-style: normal; text-decoration: normal;\">\r\n"
              "<div style=\"text-align: left; font-size: 12pt; font-family: Times New Roman; color: #000000;\">\r\n"
              "<span></span>\r\n"
              "</div>\r\n"
              "</span>");
}

TEST(RichMarkup, OfNothingHasTheFormatOfTheBeginning) {
    RichTextBuilder builder;
    builder.EndParagraph({.alignment = RichAlignment::Center, .bullet = true},
                         {.font = builder.FontNumber("Arial"), .halfPoints = 36, .color = 0xFF, .italic = true});
    EXPECT_EQ(ConvertRichText(builder.Take()),
              opening +
                  "<div style=\"text-align: center; font-style: italic; font-size: 18pt; font-family: Arial; "
                  "color: #FF0000;\">\r\n<li><span></span>\r\n</li></div>\r\n</span>");
}

TEST(RichMarkup, SaysEverythingOfTheFirstCharacter) {
    EXPECT_EQ(
        ConvertPieces(
            {{"x",
              {.halfPoints = 20, .color = 0x0080FF, .bold = true, .italic = true, .underline = true, .strike = true}}},
            {.alignment = RichAlignment::Right}),
        opening +
            "<div style=\"text-align: right; font-weight: bold; font-style: italic; text-decoration: "
            "underline; font-size: 10pt; font-family: Arial; color: #FF8000;\">\r\n<span>x" +
            closing);
}

TEST(RichMarkup, HasEntitiesForBracketsQuotesAndBlanks) {
    EXPECT_EQ(Convert("a<b"), Line("a&lt;b"));
    EXPECT_EQ(Convert("a>b"), Line("a&gt;b"));
    EXPECT_EQ(Convert("say \"x\""), Line("say &quot;x&quot;"));
    EXPECT_EQ(Convert("a b"), Line("a b"));
    EXPECT_EQ(Convert("a  b"), Line("a&nbsp; b"));
}

TEST(RichMarkup, KeepsItsAmpersands) {
    EXPECT_EQ(Convert("a&b &lt; &"), Line("a&b &lt; &"));
}

TEST(RichMarkup, LeavesTheCharacterAfterAReplacementAlone) {
    EXPECT_EQ(Convert("<<"), Line("&lt;<"));
    EXPECT_EQ(Convert("<<<<<"), Line("&lt;<&lt;<&lt;"));
    EXPECT_EQ(Convert(">>"), Line("&gt;>"));
    EXPECT_EQ(Convert(">>>"), Line("&gt;>&gt;"));
    EXPECT_EQ(Convert("\"\""), Line("&quot;\""));
    EXPECT_EQ(Convert("\"\"\""), Line("&quot;\"&quot;"));
    EXPECT_EQ(Convert("<>\"<>"), Line("&lt;&gt;&quot;&lt;&gt;")) << "each search has its own";
}

TEST(RichMarkup, LeavesTheBlankAfterAPairAlone) {
    EXPECT_EQ(Convert("a   b"), Line("a&nbsp;  b"));
    EXPECT_EQ(Convert("a    b"), Line("a&nbsp;   b"));
    EXPECT_EQ(Convert("a     b"), Line("a&nbsp;  &nbsp; b"));
    EXPECT_EQ(Convert("a      b"), Line("a&nbsp;  &nbsp;  b"));
    EXPECT_EQ(Convert("  "), Line("&nbsp; "));
}

TEST(RichMarkup, FillsTheRoomOfATab) {
    const auto blanks = [](int count) { return QString("&nbsp;").repeated(count); };
    EXPECT_EQ(Content("\t", 8), blanks(16));
    EXPECT_EQ(Content("\t", 10), blanks(16));
    EXPECT_EQ(Content("\t", 11), blanks(12));
    EXPECT_EQ(Content("\t", 12), blanks(12));
    EXPECT_EQ(Content("\t", 14), blanks(10));
    EXPECT_EQ(Content("\t", 18), blanks(8));
    EXPECT_EQ(Content("\t", 19), blanks(6));
    EXPECT_EQ(Content("\t", 24), blanks(6));
    EXPECT_EQ(Content("\t", 36), blanks(4));
    EXPECT_EQ(Content("a\tb", 36), "a" + blanks(4) + "b");
    EXPECT_EQ(Content("\t\t", 14), blanks(20)) << "a tab after a tab is found";
}

TEST(RichMarkup, KeepsTheTabsOfLargeLetters) {
    EXPECT_EQ(Content("\t", 37), "\t");
    EXPECT_EQ(Content("a\tb", 48), "a\tb");
    EXPECT_EQ(Content("\t\t", 48), "\t\t");
}

TEST(RichMarkup, GivesATabItsOwnSize) {
    const QString blank = "&nbsp;";
    EXPECT_EQ(ConvertPieces({{"a", {.halfPoints = 96}}, {"\t", {.halfPoints = 20}}}),
              opening +
                  "<div style=\"text-align: left; font-size: 48pt; font-family: Arial; color: #000000;\">\r\n"
                  "<span>a</span><span style=\" font-size: 10pt;\">" +
                  blank.repeated(16) + closing);
}

TEST(RichMarkup, OpensASpanWhereTheFormatChanges) {
    const RichFormat plain;
    EXPECT_EQ(ConvertPieces({{"a", plain}, {"b", {.bold = true}}, {"c", plain}}),
              Line("a</span><span style=\" font-weight: bold;\">b</span><span style=\" font-weight: normal;\">c"));
    EXPECT_EQ(ConvertPieces({{"a", plain}, {"b", {.italic = true}}, {"c", plain}}),
              Line("a</span><span style=\" font-style: italic;\">b</span><span style=\" font-style: normal;\">c"));
    EXPECT_EQ(ConvertPieces({{"a", plain}, {"b", {.underline = true}}, {"c", plain}}),
              Line("a</span><span style=\" text-decoration: underline;\">b</span><span style=\" text-decoration: "
                   "normal;\">c"));
    EXPECT_EQ(ConvertPieces({{"a", plain}, {"b", {.font = 1}}}),
              Line("a</span><span style=\" font-family: Courier New;\">b"));
    EXPECT_EQ(ConvertPieces({{"a", plain}, {"b", {.halfPoints = 48}}}),
              Line("a</span><span style=\" font-size: 24pt;\">b"));
    EXPECT_EQ(ConvertPieces({{"a", plain}, {"b", {.color = 0xFF0000}}}),
              Line("a</span><span style=\" color: #0000FF;\">b"));
}

TEST(RichMarkup, SaysAllChangesInOrder) {
    EXPECT_EQ(
        ConvertPieces(
            {{"a", {}},
             {"b", {.font = 1, .halfPoints = 16, .color = 0xFFFFFF, .bold = true, .italic = true, .underline = true}}}),
        Line("a</span><span style=\" font-weight: bold; font-style: italic; text-decoration: underline; "
             "font-family: Courier New; font-size: 8pt; color: #FFFFFF;\">b"));
}

TEST(RichMarkup, HasNoWordForStruckText) {
    EXPECT_EQ(ConvertPieces({{"a", {}}, {"b", {.strike = true}}, {"c", {}}}), Line("abc"));
}

TEST(RichMarkup, GivesAPairOfBlanksTheFormatOfItsFirst) {
    EXPECT_EQ(ConvertPieces({{"a ", {}}, {" ", {.bold = true}}, {"b", {}}}), Line("a&nbsp; b"));
    EXPECT_EQ(ConvertPieces({{"a ", {}}, {" b", {.bold = true}}}),
              Line("a&nbsp; </span><span style=\" font-weight: bold;\">b"));
}

TEST(RichMarkup, DividesAtLineEnds) {
    EXPECT_EQ(Convert("a\r\nb"), opening + standardDivision + "<span>a\r\n&nbsp;</span></div>\r\n" + standardDivision +
                                     "<span>b" + closing);
    EXPECT_EQ(Convert("a\r\n"), opening + standardDivision + "<span>a\r\n&nbsp;</span></div>\r\n" + standardDivision +
                                    "<span>" + closing);
    EXPECT_EQ(Convert("\r\n\r\na"), opening + standardDivision + "<span>\r\n&nbsp;</span></div>\r\n" +
                                        standardDivision + "<span>\r\n&nbsp;</span></div>\r\n" + standardDivision +
                                        "<span>a" + closing);
}

TEST(RichMarkup, SaysEverythingAtTheBeginningOfALine) {
    RichTextBuilder builder;
    ASSERT_EQ(builder.FontNumber("Arial"), 0);
    builder.AddText(u"a", {.bold = true});
    builder.EndParagraph({}, {});
    builder.AddText(u"b", {.bold = true});
    builder.AddText(u"c", {});
    builder.EndParagraph({.alignment = RichAlignment::Center}, {});
    EXPECT_EQ(ConvertRichText(builder.Take()),
              opening +
                  "<div style=\"text-align: left; font-weight: bold; font-size: 12pt; font-family: Arial; color: "
                  "#000000;\">\r\n<span>a\r\n&nbsp;</span></div>\r\n"
                  "<div style=\"text-align: center; font-weight: bold; font-size: 12pt; font-family: Arial; color: "
                  "#000000;\">\r\n<span>b</span><span style=\" font-weight: normal;\">c" +
                  closing);
}

TEST(RichMarkup, MakesItemsOfBullets) {
    RichTextBuilder builder;
    const RichFormat format{.font = builder.FontNumber("Arial")};
    builder.AddText(u"a", format);
    builder.EndParagraph({.bullet = true}, format);
    builder.AddText(u"b", format);
    builder.EndParagraph({.bullet = true}, format);
    builder.AddText(u"c", format);
    builder.EndParagraph({}, format);
    EXPECT_EQ(ConvertRichText(builder.Take()),
              opening + standardDivision + "<li><span>a\r\n&nbsp;</span></li></div>\r\n" + standardDivision +
                  "<li><span>b\r\n&nbsp;</span></li></div>\r\n" + standardDivision + "<span>c" + closing);

    builder.AddText(u"a", {.font = builder.FontNumber("Arial")});
    builder.EndParagraph({.bullet = true}, {});
    EXPECT_EQ(ConvertRichText(builder.Take()),
              opening + standardDivision + "<li><span>a</span>\r\n</li></div>\r\n</span>");
}

TEST(RichMarkup, OpensASpanAtEachCharacterOfAFractionalSize) {
    const QString again = "</span><span style=\" font-size: 10.5pt;\">";
    EXPECT_EQ(Convert("ab", 10.5),
              opening +
                  "<div style=\"text-align: left; font-size: 10pt; font-family: Arial; color: #000000;\">\r\n"
                  "<span>a" +
                  again + "b" + again + again + closing)
        << "the end of the text is looked at twice";
    EXPECT_EQ(Content("<", 10.5), "&" + again + "l" + again + "t" + again + ";" + again + again);
    EXPECT_EQ(Content("", 10.5), again);
    EXPECT_EQ(ConvertPieces({{"a", {}}, {"bc", {.halfPoints = 21, .bold = true}}, {"d", {.halfPoints = 20}}}),
              Line("a</span><span style=\" font-weight: bold; font-size: 10.5pt;\">b" + again +
                   "c</span><span style=\" font-weight: normal;\">d"))
        << "10 points is what was noted for 10.5";
}

TEST(RichMarkup, RoundsHalvesToTheEvenSize) {
    EXPECT_TRUE(Convert("a", 11.5).contains("font-size: 12pt; font-family"));
    EXPECT_TRUE(Convert("a", 12.5).contains("font-size: 12pt; font-family"));
}

TEST(RichMarkup, IsThatOfTheLiteralWalk) {
    RandomRichText random(20261121);
    for (int i = 0; i < 3000; ++i) {
        const RichText rich = random.Make(i % 60);
        ASSERT_EQ(ConvertRichText(rich), LiteralConvertRichText(rich)) << i << ": " << rich.text.toStdString();
    }
}

}  // namespace
}  // namespace vellum::test
