// RTF as word processors write it, and as they should not.
#include "import/rtf_reader.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

// A document of two fonts and two colours around this body.
QByteArray Document(const QByteArray& body) {
    return "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\froman\\fcharset0 Times;}{\\f1\\fswiss\\fcharset0 "
           "Arial;}}"
           "{\\colortbl;\\red255\\green0\\blue0;\\red0\\green128\\blue255;}" +
           body + "}";
}

RichText ReadBody(const QByteArray& body) {
    return ReadRtf(Document(body));
}

QString Text(const QByteArray& body) {
    return ReadBody(body).text;
}

// What stands in each format, as "abc", "[b]abc" and so on by its letters: b, i, u, s, f1, 24, cFF.
QString Formatted(const RichText& rich) {
    QString list;
    for (std::size_t i = 0; i < rich.runs.size(); ++i) {
        const RichFormat& format = rich.runs[i].format;
        const auto end = i + 1 < rich.runs.size() ? rich.runs[i + 1].offset : rich.text.size();
        QStringList words;
        if (format.bold) words << "b";
        if (format.italic) words << "i";
        if (format.underline) words << "u";
        if (format.strike) words << "s";
        if (rich.fonts.at(format.font) != u"Times") words << rich.fonts.at(format.font);
        if (format.halfPoints != 24) words << QString::number(format.halfPoints);
        if (format.color != 0) words << QString::number(format.color, 16);
        list += "[" + words.join(' ') + "]" + rich.text.mid(rich.runs[i].offset, end - rich.runs[i].offset);
    }
    return list;
}

QString Formatted(const QByteArray& body) {
    return Formatted(ReadBody(body));
}

TEST(RtfReader, KnowsItsFiles) {
    EXPECT_TRUE(IsRtf("{\\rtf1 a}"));
    EXPECT_TRUE(IsRtf("{\\rtf"));
    EXPECT_FALSE(IsRtf("{\\urtf"));
    EXPECT_FALSE(IsRtf("a{\\rtf1"));
    EXPECT_FALSE(IsRtf(""));
}

TEST(RtfReader, ReadsParagraphs) {
    EXPECT_EQ(Text("one"), "one");
    EXPECT_EQ(Text("one\\par"), "one") << "the last mark ends a line and begins none";
    EXPECT_EQ(Text("one\\par two\\par "), "one\r\ntwo");
    EXPECT_EQ(Text("one\\par\\par\r\ntwo\\par\\par"), "one\r\n\r\ntwo\r\n");
    EXPECT_EQ(Text("one\\\ntwo\\\r\nthree"), "one\r\ntwo\r\nthree");
    EXPECT_EQ(Text("one\\'0atwo"), "one\r\ntwo");
    EXPECT_EQ(Text("one\\u10?two\\u8233?three"), "one\r\ntwo\r\nthree");
    EXPECT_EQ(Text(""), "");
    EXPECT_EQ(Text("\\par"), "");
    EXPECT_EQ(ReadBody("\\par\\par").paragraphs.size(), 2U);
}

TEST(RtfReader, EndsLinesWithinParagraphs) {
    EXPECT_EQ(Text("one\\line two\\lbr0 three\\par four"), "one\r\ntwo\r\nthree\r\nfour");
    EXPECT_EQ(Text("one\\u8232?two\\u11?three"), "one\r\ntwo\r\nthree");
    EXPECT_EQ(Text("one\\line"), "one");
}

TEST(RtfReader, EndsALineAtAPage) {
    EXPECT_EQ(Text("one\\page two\\par\\page three\\sect four\\column five"), "one\r\ntwo\r\nthree\r\nfour\r\nfive");
}

TEST(RtfReader, ReadsSpecialCharacters) {
    EXPECT_EQ(Text("a\\tab b\tc\\emdash\\endash\\bullet\\lquote\\rquote\\ldblquote\\rdblquote\\~\\_\\-"),
              u"a\tb\tc—–•‘’“”\u00A0\u2011\u00AD");
    EXPECT_EQ(Text("\\emspace\\enspace\\qmspace\\zwj\\zwnj\\zwbo\\zwnbo\\ltrmark\\rtlmark"),
              u"\u2003\u2002\u2005\u200D\u200C\u200B\u2060\u200E\u200F");
    EXPECT_EQ(Text("\\{a\\}\\\\b"), "{a}\\b");
    EXPECT_EQ(Text("a\\:b\\|c"), "abc") << "marks of an index";
    EXPECT_EQ(Text("a\\unknown5 b\\;c"), "abc");
}

TEST(RtfReader, ReadsFormats) {
    EXPECT_EQ(Formatted("a{\\b b}c\\i d\\i0 e"), "[]a[b]b[]c[i]d[]e");
    EXPECT_EQ(Formatted("\\ul a\\ulnone b\\ulw c\\ul0 d{\\uldb e}{\\ulwave f}{\\uld g}{\\ulth h}{\\uldash i}"),
              "[u]a[]b[u]c[]d[u]efghi");
    EXPECT_EQ(Formatted("a\\ulc2 b"), "[]ab") << "the colour of a line draws none";
    EXPECT_EQ(Formatted("\\strike a\\strike0 b\\striked1 c"), "[s]a[]b[s]c");
    EXPECT_EQ(Formatted("\\f1 a\\fs21 b\\f0\\fs40 c"), "[Arial]a[Arial 21]b[40]c");
    EXPECT_EQ(Formatted("\\cf1 a\\cf2 b\\cf0 c\\cf9 d\\cf2 e\\cf f"), "[ff]a[ff8000]b[]cd[ff8000]e[]f");
    EXPECT_EQ(Formatted("\\b\\i\\ul\\strike\\f1\\fs20\\cf1 a\\plain b"), "[b i u s Arial 20 ff]a[]b");
    EXPECT_EQ(Formatted("a\\fs0 b\\fs-4 c\\fs99999 d"), "[]abc[3276]d");
    EXPECT_EQ(Formatted("{\\b a}{\\b b}c"), "[b]ab[]c");
}

TEST(RtfReader, GivesLineEndsTheFormatBeforeThem) {
    EXPECT_EQ(Formatted("{\\b a}\\par b\\par"), "[b]a\r\n[]b");
    EXPECT_EQ(Formatted("a\\par\\b\\par\\b0 b"), "[]a\r\n[b]\r\n[]b");
    EXPECT_EQ(Formatted("a\\par\\b\\par"), "[]a\r\n[b]");
}

TEST(RtfReader, FindsFonts) {
    EXPECT_EQ(ReadRtf("{\\rtf1 a}").fonts, QStringList("Times New Roman"));
    EXPECT_EQ(ReadRtf("{\\rtf1\\deff2{\\fonttbl{\\f0 Times;}{\\f2 Courier;}}a}").fonts, QStringList("Courier"));
    EXPECT_EQ(ReadRtf("{\\rtf1\\deff2{\\fonttbl{\\f2 Courier;}}\\f7 a}").fonts, QStringList("Courier"));
    EXPECT_EQ(ReadRtf("{\\rtf1{\\fonttbl\\f0\\fnil Helvetica;\\f1\\fnil Geneva;}\\f1 a}").fonts, QStringList("Geneva"));
    EXPECT_EQ(ReadRtf("{\\rtf1{\\fonttbl{\\f0 Helvetica}{\\f1 Geneva}}\\f1 a}").fonts, QStringList("Geneva"))
        << "without semicolons";
    EXPECT_EQ(ReadRtf("{\\rtf1{\\fonttbl{\\f0\\fnil\\fcharset0 Arial{\\*\\falt Helvetica};}}a}").fonts,
              QStringList("Arial"));
    EXPECT_EQ(ReadRtf("{\\rtf1{\\fonttbl{\\f0{\\*\\panose 020b}{\\*\\fname Other;}Arial Black;}}a}").fonts,
              QStringList("Arial Black"));
    EXPECT_EQ(ReadRtf("{\\rtf1{\\fonttbl{\\f0\\fcharset128 \\'82\\'6c\\'82\\'72 P\\'96\\'be\\'92\\'a9;}}a}").fonts,
              QStringList("ＭＳ P明朝"));
    EXPECT_EQ(ReadRtf("{\\rtf1{\\fonttbl{\\f0 A\\u228?rger\\'3b;}}a}").fonts, QStringList("Aärger;"));
}

TEST(RtfReader, ReadsBytesByTheCharsetOfTheirFont) {
    const QByteArray fonts =
        "{\\rtf1\\ansi\\ansicpg1250{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset204 B;}{\\f2 C;}{\\f3\\fcharset1 D;}"
        "{\\f4\\fcharset128 E;}{\\f5\\fcharset0\\cpg1253 F;}{\\f6\\fcharset2 Symbol;}{\\f7\\fcharset2 Wingdings;}}";
    EXPECT_EQ(ReadRtf(fonts + "\\f0 \\'e8}").text, u"è");
    EXPECT_EQ(ReadRtf(fonts + "\\f1 \\'e8}").text, u"и");
    EXPECT_EQ(ReadRtf(fonts + "\\f2 \\'e8}").text, u"č");
    EXPECT_EQ(ReadRtf(fonts + "\\f3 \\'e8}").text, u"č");
    EXPECT_EQ(ReadRtf(fonts + "\\f4 \\'93\\'fa\\'83A\\'93\r\n\\'fa}").text, u"日ア日");
    EXPECT_EQ(ReadRtf(fonts + "\\f5 \\'e8}").text, u"θ");
    EXPECT_EQ(ReadRtf(fonts + "\\f6 ab\\'b7\\u-3999?}").text, u"αβ•α");
    EXPECT_EQ(ReadRtf(fonts + "\\f7 a\\'e8}").text, u"ač");
    EXPECT_EQ(ReadRtf(fonts + "{\\f1 \\'e8}\\'e8}").text, u"иè");
    EXPECT_EQ(ReadRtf(fonts + "\\f4 \\'93\\f0 a}").text, u"\uFFFDa") << "half a character ends with its font";
    EXPECT_EQ(ReadRtf(fonts + "\\f1 \xE8\xE9}").text, u"ий") << "bytes may stand as they are";
}

TEST(RtfReader, ReadsBytesByTheDocumentsCodePage) {
    const auto text = [](const QByteArray& head) { return ReadRtf("{\\rtf1" + head + " \\'e4\\'80}").text; };
    EXPECT_EQ(text(""), u"ä€");
    EXPECT_EQ(text("\\ansi"), u"ä€");
    EXPECT_EQ(text("\\mac"), u"‰Ä");
    EXPECT_EQ(text("\\pc"), u"ΣÇ");
    EXPECT_EQ(text("\\pca"), u"õÇ");
    EXPECT_EQ(text("\\ansi\\ansicpg1251"), u"дЂ");
    EXPECT_EQ(text("\\ansi\\ansicpg10000"), u"‰Ä");
    EXPECT_EQ(text("\\ansi\\ansicpg4711"), u"ä€");
    EXPECT_EQ(text("\\ansi\\ansicpg0"), u"ä€");
    EXPECT_EQ(ReadRtf("{\\rtf1\\ansicpg932 \\'93\\'fa\\'96{}\\'7b}").text, u"日\uFFFD{");
    EXPECT_EQ(ReadRtf("{\\rtf1\\ansicpg936 \\'d6\\'d0}").text, u"中");
    EXPECT_EQ(ReadRtf("{\\rtf1\\ansicpg949 \\'c7\\'d1}").text, u"한");
    EXPECT_EQ(ReadRtf("{\\rtf1\\ansicpg950 \\'a4\\'a4}").text, u"中");
    EXPECT_EQ(ReadRtf("{\\rtf1\\ansicpg65001 \\'c3\\'a4\xC3\xA4}").text, u"ää");
}

TEST(RtfReader, ReadsUnicode) {
    EXPECT_EQ(Text("\\u8364?5"), u"€5");
    EXPECT_EQ(Text("\\u8364\\'805"), u"€5");
    EXPECT_EQ(Text("\\u-3844?"), u"\uF0FC");
    EXPECT_EQ(Text("\\u-10179?\\u-8704?x"), u"😀x");
    EXPECT_EQ(Text("\\u128512?x"), u"😀x");
    EXPECT_EQ(Text("\\u-10179?x\\u-8704?"), u"\uFFFDx\uFFFD") << "halves of a pair";
    EXPECT_EQ(Text("a\\u-10179?\\par b"), u"a\uFFFD\r\nb");
    EXPECT_EQ(Text("a\\u-10179?"), u"a\uFFFD");
    EXPECT_EQ(Text("a\\u0 ?b\\u5 ?c\\u-1 ?d\\u1200000 ?e\\u-40000 ?f"), u"abcdef") << "what is no character";
}

TEST(RtfReader, LeavesFallbacksOut) {
    EXPECT_EQ(Text("\\uc0\\u8364 5"), u"€5");
    EXPECT_EQ(Text("\\uc2\\u8364\\'a2\\'e65"), u"€5");
    EXPECT_EQ(Text("\\uc3 \\u8364EUR5"), u"€5");
    EXPECT_EQ(Text("{\\uc0\\u8364 5}\\u8364?5"), u"€5€5") << "a group keeps its own";
    EXPECT_EQ(Text("\\uc2\\u8364\\emdash\\~5"), u"€5") << "signs count, too";
    EXPECT_EQ(Text("\\uc2\\u8364{}??"), u"€??") << "a group ends it";
    EXPECT_EQ(Text("\\u8364\\par x"), u"€\r\nx") << "some give none";
    EXPECT_EQ(Text("\\u8364\\u8364?x"), u"€€x");
    EXPECT_EQ(Text("\\uc-4\\u8364 x"), u"€x");
    EXPECT_EQ(Formatted("\\uc2\\u8364\\b ?!5"), u"[]€[b]5");
}

TEST(RtfReader, ReadsAlignments) {
    const auto alignments = [](const QByteArray& body) {
        std::vector<RichAlignment> list;
        for (const RichParagraph& paragraph : ReadBody(body).paragraphs) list.push_back(paragraph.alignment);
        return list;
    };
    using enum RichAlignment;
    using List = std::vector<RichAlignment>;
    EXPECT_EQ(alignments("\\qc a\\par b\\par\\pard c\\par\\qr d\\par\\ql e\\par\\qr f\\qj g\\par"),
              (List{Center, Center, Left, Right, Left, Left}));
    EXPECT_EQ(alignments("{\\qc a\\par}b\\par"), (List{Center, Left}));
    EXPECT_EQ(alignments("\\qr a"), List{Right});
    EXPECT_EQ(alignments("\\qr a\\line b\\par"), (List{Right, Right}));
    EXPECT_EQ(alignments("\\qc"), List{Center});
}

TEST(RtfReader, LeavesOutWhatIsNoText) {
    EXPECT_EQ(Text("{\\info{\\title A title}{\\author Someone}}{\\stylesheet{\\s1 heading 1;}}a"), "a");
    EXPECT_EQ(Text("{\\header Head\\par}{\\footerf Foot\\par}a{\\footnote\\chftn A note}b"), "ab");
    EXPECT_EQ(Text("a{\\pict\\pngblip 89504e47\n0d0a}b{\\*\\shppict{\\pict 00}}{\\nonshppict{\\pict 00}}c"), "abc");
    EXPECT_EQ(Text("a{\\*\\unheard of}{\\*\\bkmkstart here}b{\\*\\annotation note}c"), "abc");
    EXPECT_EQ(Text("a{\\xe\\v an entry}b{\\tc a line}c"), "abc");
    EXPECT_EQ(Text("a{\\pict\\bin8 }}{{\\par}b"), "ab");
    EXPECT_EQ(Text("a{\\*\\x{\\b b}{\\fldrslt c}}d"), "ad");
    EXPECT_EQ(Text("a{\\unheard b}c"), "abc") << "only a star says that it may be left out";
}

TEST(RtfReader, LeavesHiddenTextOut) {
    EXPECT_EQ(Text("a{\\v b\\par}c\\v d\\v0 e\\v f\\plain g"), "aceg");
    EXPECT_EQ(Text("a{\\deleted b\\par c}d"), "ad");
}

TEST(RtfReader, ShowsTheResultsOfFields) {
    EXPECT_EQ(Formatted("See {\\field{\\*\\fldinst{HYPERLINK \"http://x\"}}{\\fldrslt{\\ul\\cf1 this}}}."),
              "[]See [u ff]this[].");
    EXPECT_EQ(Text("{\\field\\flddirty{\\fldinst PAGE}{\\fldrslt 7}}"), "7");
    EXPECT_EQ(Text("{\\field{\\*\\fldinst {\\field{\\fldrslt inner}}}{\\fldrslt outer}}"), "outer");
}

TEST(RtfReader, ShowsWhatStandsForObjects) {
    EXPECT_EQ(Text("a{\\object\\objemb{\\*\\objclass X}{\\*\\objdata 0102}{\\result{\\pict 00}{\\b b}}}c"), "abc");
    EXPECT_EQ(Text("{\\upr{ansi}{\\*\\ud{\\u8364?}}}"), u"€");
    EXPECT_EQ(Text("a{\\shp{\\*\\shpinst\\shpleft1{\\sp{\\sn x}{\\sv 1}}{\\shptxt \\pard In a box\\par}}"
                   "{\\shprslt{\\*\\do\\dptxbx{\\dptxbxtext In a box\\par}}}}b"),
              "a\r\nIn a box\r\nb");
}

TEST(RtfReader, NeverLeavesItsDocumentForATable) {
    EXPECT_EQ(Text("a\\header b\\stylesheet c"), "abc");
    EXPECT_EQ(Text("a\\* b\\*\\unheard c"), "a bc");
}

TEST(RtfReader, FindsNoTextInTables) {
    EXPECT_EQ(ReadRtf("{\\rtf1{\\colortbl;{\\fldrslt a\\par}}b}").text, "b");
    EXPECT_EQ(ReadRtf("{\\rtf1{\\fonttbl{\\f0 Arial{\\shp{\\shptxt a}};}}b}").text, "b");
    EXPECT_EQ(ReadRtf("{\\rtf1{\\*\\listtable{\\list{\\listtext 1.}}}{\\*\\pn{\\result a}}b}").text, "b");
}

TEST(RtfReader, EndsWithItsDocument) {
    EXPECT_EQ(ReadRtf("{\\rtf1 a}b{\\rtf1 c}").text, "a");
    EXPECT_EQ(ReadRtf(QByteArray("{\\rtf1 a}\r\n\0\0", 13)).text, "a");
}

TEST(RtfReader, ReadsWhatIsLeftOfADamagedFile) {
    EXPECT_EQ(ReadRtf("{\\rtf1 a{\\b b").text, "ab");
    EXPECT_EQ(ReadRtf("{\\rtf1 a\\par b\\'").text, "a\r\nb");
    EXPECT_EQ(ReadRtf("{\\rtf1 a}} b}").text, "a");
    EXPECT_EQ(ReadRtf("}{\\rtf1 a}").text, "a");
    EXPECT_EQ(ReadRtf("{\\rtf1{\\fonttbl{\\f0 Times").text, "");
    EXPECT_EQ(ReadRtf("{\\rtf1{\\fonttbl{\\f0 Times;}a\\par b").text, "") << "nothing says where the table ends";
    EXPECT_EQ(ReadRtf("a plain text").text, "a plain text");
    EXPECT_EQ(ReadRtf("").text, "");
    EXPECT_EQ(Text("\\cell a\\row"), "\ta");
    EXPECT_EQ(Text("\\ls5\\ilvl70000\\pnlvlblt a"), "a");
    const QByteArray whole = Document(R"({\b a}\par{\pntext\'b7\tab}\u8364?{\pict 00}\cell\row\f1 \'e4)");
    for (int length = 0; length < whole.size(); ++length) {
        const RichText rich = ReadRtf(whole.first(length));
        EXPECT_EQ(rich.paragraphs.size(), static_cast<std::size_t>(rich.text.count("\r\n")) + 1) << length;
    }
}

TEST(RtfReader, ReadsDeepGroups) {
    constexpr int depth = 100000;
    EXPECT_EQ(Text(QByteArray("{").repeated(depth) + "a" + QByteArray("}").repeated(depth) + "b"), "ab");
    EXPECT_EQ(Text(QByteArray("{").repeated(depth) + "a"), "a");
    EXPECT_EQ(Text(QByteArray("{\\b{\\i ").repeated(depth) + "a" + QByteArray("}}").repeated(depth) + "b"), "ab");
    EXPECT_EQ(Text(QByteArray("{\\*\\x").repeated(depth) + "a" + QByteArray("}").repeated(depth) + "b"), "b");
}

}  // namespace
}  // namespace vellum
