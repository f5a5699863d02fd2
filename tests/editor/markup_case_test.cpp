#include "editor/markup_case.h"

#include <QStringList>

#include <gtest/gtest.h>
#include <random>

namespace vellum {
namespace {

QString Lower(const char* text) {
    return ConvertMarkupCase("LCase", QString::fromUtf8(text));
}

QString Upper(const char* text) {
    return ChangeCase("UCase", QString::fromUtf8(text));
}

TEST(MarkupCase, NamesChangeAndTextAndValuesStay) {
    EXPECT_EQ(Lower("<A HREF=\"Big.htm\">Text</A>"), "<a href=\"Big.htm\">Text</a>");
    EXPECT_EQ(Upper("<a href=\"Big.htm\">Text</a>"), "<A HREF=\"Big.htm\">Text</A>");
    EXPECT_EQ(Lower("<IMG SRC=\"A.GIF\" ALT=\"B\" />C"), "<img src=\"A.GIF\" alt=\"B\" />C");
    EXPECT_EQ(Lower("Outside \"Quotes\" AND text"), "Outside \"Quotes\" AND text");
    EXPECT_EQ(Lower(""), "");
}

TEST(MarkupCase, CommentsStay) {
    for (const char* comment : {"<!-- <B> -->", "<!-- <b> -->", "<!--A \"B\" <C>-->", "<!-- never <Closed"}) {
        EXPECT_EQ(Lower(comment), comment);
        EXPECT_EQ(Upper(comment), comment);
    }
    EXPECT_EQ(Lower("<!-- <B> --><B>"), "<!-- <B> --><b>");
    EXPECT_EQ(Upper("<!-- \"x --><b>"), "<!-- \"x --><B>");
}

TEST(MarkupCase, OnlyLowerCaseLeavesServerSideBlocks) {
    EXPECT_EQ(Lower("<% X = 1 %>"), "<% X = 1 %>");
    EXPECT_EQ(Upper("<% x = 1 %>"), "<% X = 1 %>");
    EXPECT_EQ(Lower("<A <%=X%> B>C"), "<a <%=X%> b>C");
    EXPECT_EQ(ChangeCase("LCase", "<% X = 1 %>"), "<% x = 1 %>");
    EXPECT_EQ(ConvertMarkupCase("UCase", "<% x = 1 %><b>"), "<% x = 1 %><B>");
}

TEST(MarkupCase, TextAfterABlockIsConvertedUpToTheNextClose) {
    EXPECT_EQ(Lower("<% X %> Plain TEXT <B> More TEXT"), "<% X %> plain text <b> More TEXT");
    EXPECT_EQ(Lower("<% \"X %> Plain <B>"), "<% \"X %> Plain <b>") << "a quote in the block ends the conversion";
}

TEST(MarkupCase, AQuoteInTextEndsAndInATagRestores) {
    EXPECT_EQ(Lower("<A B=\"C\" D=\"E\">\"F\" G"), "<a b=\"C\" d=\"E\">\"F\" G");
    EXPECT_EQ(Lower("<A B=\"C>D\" E"), "<a b=\"C>D\" E") << "a close ends the tag, in a value too";
}

TEST(MarkupCase, LettersOfOtherLanguagesKeepTheirLength) {
    EXPECT_EQ(Lower("<\xC3\x84X \xC3\x9C>"), QString::fromUtf8("<\xC3\xA4x \xC3\xBC>"));
    EXPECT_EQ(Upper("<stra\xC3\x9F"
                    "e>"),
              QString::fromUtf8("<STRA\xC3\x9F"
                                "E>"));
    EXPECT_EQ(Upper("<a \xF0\x9F\x98\x80>"), QString::fromUtf8("<A \xF0\x9F\x98\x80>"));
}

// The steps for each character one by one, in positions from 1.
QString StepByStep(bool upper, bool sparesBlocks, QString text) {
    bool inMarkup = false;
    bool inComment = false;
    bool active = false;
    bool inAsp = false;
    for (int i = 1; i <= text.size(); ++i) {
        const QString c = text.mid(i - 1, 1);
        const QString pair = i > 1 ? text.mid(i - 2, 2) : QString();
        if (sparesBlocks && pair == "<%") {
            inAsp = true;
        } else if (sparesBlocks && pair == "%>") {
            inAsp = false;
        } else {
            if (c == "<") {
                inMarkup = true;
                if (text.mid(i - 1, 4) == "<!--") {
                    inComment = true;
                    active = false;
                }
                if (!inComment) active = true;
            }
            if (c == "\"") {
                if (!active && inMarkup) {
                    if (!inComment) active = true;
                } else {
                    active = false;
                }
            }
            if (c == ">") {
                active = false;
                inMarkup = false;
                if (i >= 3 && text.mid(i - 3, 3) == "-->") inComment = false;
            }
        }
        if (active && !inAsp) text.replace(i - 1, 1, upper ? c.toUpper() : c.toLower());
    }
    return text;
}

TEST(MarkupCase, ConvertsAsTheStepsDo) {
    const QStringList pieces{"<", ">", "\"", "%", "<%", "%>", "<!--", "-->", "-", "!", " ", "aB", "C", "d", "\r\n"};
    std::mt19937 random(3);
    for (int round = 0; round < 20000; ++round) {
        QString text;
        for (unsigned left = random() % 30; left > 0; --left) {
            text += pieces.at(static_cast<qsizetype>(random() % pieces.size()));
        }
        for (const bool upper : {false, true}) {
            const QString mode = upper ? "UCase" : "LCase";
            ASSERT_EQ(ConvertMarkupCase(mode, text), StepByStep(upper, true, text)) << text.toStdString();
            ASSERT_EQ(ChangeCase(mode, text), StepByStep(upper, false, text)) << text.toStdString();
        }
    }
}

}  // namespace
}  // namespace vellum
