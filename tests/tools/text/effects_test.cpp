#include "tools/text/effects.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

// Red stands in the low byte.
constexpr ColorNumber black = 0x000000;
constexpr ColorNumber red = 0x0000FF;
constexpr ColorNumber blue = 0xFF0000;

TEST(LayeredTextMarkupOf, TwoLayersOfTheText) {
    EXPECT_EQ(LayeredTextMarkup({.text = "a & <b>", .front = red, .back = blue}),
              "<!-- Begin 3D Text -->\r\n"
              "<div style=\"margin-left: 0px; margin-top: 0px; font-family: Arial; font-size: 30pt; fontsize: 30pt; "
              "font-weight: medium; font-style: normal; color: #0000FF;\">\r\n"
              "a & <b>\r\n"
              "</div>\r\n"
              "<div style=\"margin-left: 2px; margin-top: -48px ; font-family: Arial; font-size: 30pt; fontsize: 30pt; "
              "font-weight: medium; font-style: normal; color: #FF0000;\">\r\n"
              "a & <b>\r\n"
              "</div>\r\n"
              "<!-- End 3D Text -->");
}

TEST(LayeredTextMarkupOf, AnEmptyFontAndASizeWithMore) {
    EXPECT_EQ(LayeredTextMarkup({.text = "x", .font = "", .size = "12 or so", .back = black}),
              "<!-- Begin 3D Text -->\r\n"
              "<div style=\"margin-left: 0px; margin-top: 0px; font-family: ; font-size: 12pt; fontsize: 12pt; "
              "font-weight: medium; font-style: normal; color: #000000;\">\r\n"
              "x\r\n"
              "</div>\r\n"
              "<div style=\"margin-left: 2px; margin-top: -20px ; font-family: ; font-size: 12pt; fontsize: 12pt; "
              "font-weight: medium; font-style: normal; color: #000000;\">\r\n"
              "x\r\n"
              "</div>\r\n"
              "<!-- End 3D Text -->");
}

TEST(LayerMarginOf, IsOneLessUpToTwentyPoints) {
    EXPECT_EQ(LayerMargin(30), -48);
    EXPECT_EQ(LayerMargin(12), -20);
    EXPECT_EQ(LayerMargin(20), -32);
    EXPECT_EQ(LayerMargin(21), -34.5);
    EXPECT_EQ(LayerMargin(0), -2);
}

// The sizes of a wave's characters.
QString Sizes(const SlopedText& fields) {
    QString sizes;
    for (const SlopedCharacter& character : SlopedCharacters(fields)) sizes += QString::number(character.size);
    return sizes;
}

TEST(SlopedTextMarkupOf, AWaveUpAndDown) {
    EXPECT_EQ(SlopedTextMarkup({.text = "ab<d", .smallest = 1, .largest = 3}),
              "<font size=\"1\">a</font><font size=\"2\">b</font><font size=\"3\"><</font><font size=\"2\">d</font>");
    EXPECT_EQ(Sizes({.text = "12345678", .smallest = 1, .largest = 3}), "12321232");
    EXPECT_EQ(Sizes({.text = "x", .smallest = 1, .largest = 7}), "123456765432");
}

TEST(SlopedTextMarkupOf, TheLastWaveRunsToItsEnd) {
    EXPECT_EQ(SlopedTextMarkup({.text = "abcde", .smallest = 5, .largest = 7}),
              "<font size=\"5\">a</font><font size=\"6\">b</font><font size=\"7\">c</font><font size=\"6\">d</font>"
              "<font size=\"5\">e</font><font size=\"6\"></font><font size=\"7\"></font><font size=\"6\"></font>");
}

TEST(SlopedTextMarkupOf, OneSizeForAllOrTwoInTurns) {
    EXPECT_EQ(SlopedTextMarkup({.text = "ab", .smallest = 4, .largest = 4}),
              "<font size=\"4\">a</font><font size=\"4\">b</font>");
    EXPECT_EQ(Sizes({.text = "abc", .smallest = 4, .largest = 5}), "4545");
}

TEST(SlopedTextMarkupOf, NothingIsNothing) {
    EXPECT_EQ(SlopedTextMarkup({.text = "", .smallest = 1, .largest = 7}), "");
}

TEST(GradientDividerMarkupOf, ACellForEachStep) {
    EXPECT_EQ(GradientDividerMarkup({.height = "5", .steps = "3", .first = black, .last = 0xFFFFFF}),
              "<!-- Begin Gradient Divider -->\r\n"
              "<table style=\"font-size: 5; fontsize: 5\" cellspacing=\"0\" border\"=0\" width=\"100%\">\r\n"
              "<tr>\r\n"
              "<td width=\"33.3333333333333%\" bgcolor=\"#000000\">&nbsp;</td>\r\n"
              "<td width=\"33.3333333333333%\" bgcolor=\"#555555\">&nbsp;</td>\r\n"
              "<td width=\"33.3333333333333%\" bgcolor=\"#AAAAAA\">&nbsp;</td>\r\n"
              "</tr>\r\n"
              "</table>\r\n"
              "<!-- End Gradient Divider-->");
}

TEST(GradientDividerMarkupOf, TenStepsFromBlackToRed) {
    const QString markup = GradientDividerMarkup({.first = black, .last = red});
    EXPECT_EQ(markup.count("<td width=\"10%\""), 10);
    EXPECT_TRUE(markup.contains("bgcolor=\"#190000\">"));
    EXPECT_TRUE(markup.contains("bgcolor=\"#E10000\">&nbsp;</td>\r\n</tr>"));
}

TEST(GradientDividerMarkupOf, TheHeightAsItIsTyped) {
    EXPECT_EQ(GradientDividerMarkup({.height = "a\"b", .steps = "1", .first = blue}),
              "<!-- Begin Gradient Divider -->\r\n"
              "<table style=\"font-size: a\"b; fontsize: a\"b\" cellspacing=\"0\" border\"=0\" width=\"100%\">\r\n"
              "<tr>\r\n"
              "<td width=\"100%\" bgcolor=\"#0000FF\">&nbsp;</td>\r\n"
              "</tr>\r\n"
              "</table>\r\n"
              "<!-- End Gradient Divider-->");
}

TEST(DividerStepsOf, AreAWholeNumber) {
    EXPECT_EQ(DividerSteps({.steps = "10"}), 10);
    EXPECT_EQ(DividerSteps({.steps = "2.6"}), 3);
    EXPECT_EQ(DividerSteps({.steps = "few"}), 0);
    EXPECT_EQ(DividerSteps({.steps = "32768"}), 0);
}

TEST(GradientTextMarkupOf, EachCharacterInItsColor) {
    EXPECT_EQ(GradientTextMarkup({.text = "a<", .first = red, .last = blue}),
              "<!-- Begin Gradient Text -->\r\n"
              "<span style=\"font-size: 12pt\">\r\n"
              "<span style=\"color: #FF0000\">a</span><span style=\"color: #80007F\"><</span></span>\r\n"
              "<!-- End Gradient Text -->");
}

TEST(GradientTextMarkupOf, OneCharacterIsInTheFirstColor) {
    EXPECT_EQ(GradientTextMarkup({.text = "x", .size = "", .first = 0x0080FF, .last = blue}),
              "<!-- Begin Gradient Text -->\r\n<span style=\"color: #FF8000\">x</span></span>\r\n"
              "<!-- End Gradient Text -->");
}

TEST(GradientTextMarkupOf, TheSizeGetsItsUnitOnce) {
    const auto size = [](const char* typed) {
        return GradientTextMarkup({.text = "x", .size = typed}).section("\r\n", 1, 1);
    };
    EXPECT_EQ(size("14PT"), "<span style=\"font-size: 14PT\">");
    EXPECT_EQ(size("14"), "<span style=\"font-size: 14pt\">");
    EXPECT_EQ(size("large"), "<span style=\"font-size: largept\">");
}

TEST(CharactersOfAText, StayWhole) {
    EXPECT_EQ(CharactersOf(QString::fromUtf8("a\xC3\xA4\xF0\x9F\x98\x80z")),
              (QStringList{"a", QString::fromUtf8("\xC3\xA4"), QString::fromUtf8("\xF0\x9F\x98\x80"), "z"}));
    EXPECT_EQ(CharactersOf(QString(QChar(0xD83D))), QStringList{QString(QChar(0xD83D))});
    EXPECT_EQ(CharactersOf(""), QStringList());
}

}  // namespace
}  // namespace vellum
