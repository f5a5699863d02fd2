#include "import/rtf_code_page.h"

#include "import/rtf_symbol_font.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

QString Decode(int codePage, const QByteArray& bytes) {
    RtfCodePage page(codePage);
    QString text;
    page.Decode(bytes, text);
    page.Finish(text);
    return text;
}

TEST(RtfCodePage, KnowsTheWindowsPages) {
    EXPECT_EQ(Decode(1250, "\xE8\x9A"), u"čš");
    EXPECT_EQ(Decode(1251, "\xCF\xF0\xE8"), u"При");
    EXPECT_EQ(Decode(1252, "\x80\x93\xE4"), u"€“ä");
    EXPECT_EQ(Decode(1253, "\xE1\xE2\xE3"), u"αβγ");
    EXPECT_EQ(Decode(1254, "\xFD\xFE"), u"ış");
    EXPECT_EQ(Decode(1255, "\xF9\xEC"), u"של");
    EXPECT_EQ(Decode(1256, "\xC8\xC7"), u"با");
    EXPECT_EQ(Decode(1257, "\xE0\xF0"), u"ąš");
    EXPECT_EQ(Decode(1258, "\xF5\xFE"), u"ơ₫");
    EXPECT_EQ(Decode(874, "\xA1\xA2"), u"กข");
}

TEST(RtfCodePage, KnowsTheAsianPages) {
    EXPECT_EQ(Decode(932, "\x93\xFA\x96\x7B\xB1"), u"日本ｱ");
    EXPECT_EQ(Decode(936, "\xD6\xD0\xCE\xC4"), u"中文");
    EXPECT_EQ(Decode(949, "\xC7\xD1\xB1\xDB"), u"한글");
    EXPECT_EQ(Decode(950, "\xA4\xA4\xA4\xE5"), u"中文");
    EXPECT_EQ(Decode(932, "\x83\x5C\x83\x7B"), u"ソボ") << "a second byte may be that of a sign";
}

TEST(RtfCodePage, KnowsOlderPages) {
    EXPECT_EQ(Decode(10000, "\x8A\xDB\xCA"), u"ä€\u00A0");
    EXPECT_EQ(Decode(10007, "\x80\xDF"), u"Ая");
    EXPECT_EQ(Decode(437, "\x84\xE1"), u"äß");
    EXPECT_EQ(Decode(850, "\x84\x9D"), u"äØ");
    EXPECT_EQ(Decode(codePages::utf8, "\xC3\xA4\xF0\x9F\x98\x80"), u"ä😀");
}

TEST(RtfCodePage, ReadsEveryByteOfEveryPage) {
    for (const int page : {42,   437,  850,  852,  866,  874,  932,   936,   949,   950,   1250,  1251, 1252,
                           1253, 1254, 1255, 1256, 1257, 1258, 10000, 10006, 10007, 10029, 10081, 65001}) {
        for (int byte = 0; byte < 256; ++byte) {
            const QString text = Decode(page, QByteArray(1, static_cast<char>(byte)));
            if (byte >= 0x20 && byte < 0x7F && page != 42) {
                EXPECT_EQ(text, QString(QLatin1Char(static_cast<char>(byte)))) << page;
            }
            EXPECT_LE(text.size(), 1) << page << ' ' << byte;
        }
    }
}

TEST(RtfCodePage, IsWesternWhenNobodyKnowsIt) {
    EXPECT_EQ(KnownCodePage(1251), 1251);
    EXPECT_EQ(KnownCodePage(codePages::utf8), codePages::utf8);
    EXPECT_EQ(KnownCodePage(4711), 1252);
    EXPECT_EQ(KnownCodePage(-1), 1252);
    EXPECT_EQ(Decode(4711, "\xE4"), u"ä");
}

TEST(RtfCodePage, PutsPiecesTogether) {
    RtfCodePage japanese(932);
    QString text;
    japanese.Decode("a\x93", text);
    EXPECT_EQ(text, u"a");
    japanese.Decode("\xFA", text);
    EXPECT_EQ(text, u"a日");

    RtfCodePage unicode(codePages::utf8);
    text.clear();
    for (const char byte : QByteArray("\xE2\x82\xAC")) unicode.Decode({&byte, 1}, text);
    EXPECT_EQ(text, u"€");
}

TEST(RtfCodePage, MarksWhatHasNoMeaning) {
    EXPECT_EQ(Decode(1252, "a\x81z"), u"a\uFFFDz");
    EXPECT_EQ(Decode(1253, "\xD2"), u"\uFFFD");
    EXPECT_EQ(Decode(932, "\x93"), u"\uFFFD") << "the second byte is missing";
    EXPECT_EQ(Decode(932, "\x81 a"), u"\uFFFD a") << "a blank is no second byte";
    EXPECT_EQ(Decode(codePages::utf8, "\xE2\x82x\xFF"), u"\uFFFDx\uFFFD");
}

TEST(RtfCodePage, LeavesControlCharactersOut) {
    EXPECT_EQ(Decode(1252, QByteArray("a\0\x01\x1F\tb\x7F", 7)), u"a\tb");
    EXPECT_EQ(Decode(932, QByteArray("a\0\tb", 4)), u"a\tb");
}

TEST(RtfCodePage, BelongsToACharset) {
    EXPECT_EQ(CodePageOfCharset(0), 1252);
    EXPECT_EQ(CodePageOfCharset(1), 0) << "the document tells";
    EXPECT_EQ(CodePageOfCharset(2), codePages::symbol);
    EXPECT_EQ(CodePageOfCharset(77), 10000);
    EXPECT_EQ(CodePageOfCharset(128), 932);
    EXPECT_EQ(CodePageOfCharset(129), 949);
    EXPECT_EQ(CodePageOfCharset(134), 936);
    EXPECT_EQ(CodePageOfCharset(136), 950);
    EXPECT_EQ(CodePageOfCharset(161), 1253);
    EXPECT_EQ(CodePageOfCharset(162), 1254);
    EXPECT_EQ(CodePageOfCharset(163), 1258);
    EXPECT_EQ(CodePageOfCharset(177), 1255);
    EXPECT_EQ(CodePageOfCharset(178), 1256);
    EXPECT_EQ(CodePageOfCharset(186), 1257);
    EXPECT_EQ(CodePageOfCharset(204), 1251);
    EXPECT_EQ(CodePageOfCharset(222), 874);
    EXPECT_EQ(CodePageOfCharset(238), 1250);
    EXPECT_EQ(CodePageOfCharset(99), 0);
}

TEST(SymbolFont, HasGreekLettersAndSigns) {
    EXPECT_EQ(SymbolCharacter('a'), u'α');
    EXPECT_EQ(SymbolCharacter('W'), u'Ω');
    EXPECT_EQ(SymbolCharacter('5'), u'5');
    EXPECT_EQ(SymbolCharacter(0xB7), u'•');
    EXPECT_EQ(SymbolCharacter(0xA5), u'∞');
    EXPECT_EQ(SymbolCharacter(0xFE), u'\u23AD');
    EXPECT_EQ(SymbolCharacter(0xFF), u'\uFFFD');
    EXPECT_EQ(SymbolCharacter(0x80), u'\uFFFD');
    EXPECT_EQ(SymbolCharacter('\n'), u'\uFFFD');
}

}  // namespace
}  // namespace vellum
