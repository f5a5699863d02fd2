// Lists and tables of RTF files.
#include "import/rtf_reader.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

// Every line, with a star before those that are items.
QString Lines(const QByteArray& body) {
    const RichText rich = ReadRtf("{\\rtf1" + body + "}");
    QStringList lines = rich.text.split("\r\n");
    EXPECT_EQ(static_cast<std::size_t>(lines.size()), rich.paragraphs.size());
    for (int i = 0; i < lines.size(); ++i) {
        if (rich.paragraphs.at(static_cast<std::size_t>(i)).bullet) lines[i].prepend('*');
    }
    return lines.join('/');
}

constexpr auto bullet = R"({\pntext\f1\'B7\tab}{\*\pn\pnlvlblt\pnf1\pnindent0{\pntxtb\'B7}}\fi-200\li200 )";
constexpr auto number = R"({\pntext 1.\tab}{\*\pn\pnlvlbody\pndec{\pntxta.}})";

TEST(RtfLists, HaveBulletsOfTheirParagraphs) {
    EXPECT_EQ(Lines(QByteArray("\\pard") + bullet + "one\\par {\\pntext\\'B7\\tab}two\\par\\pard three\\par"),
              "*one/*two/three");
    EXPECT_EQ(Lines(QByteArray("\\pard") + bullet + "one\\line more\\par"), "*one/more");
    EXPECT_EQ(Lines(QByteArray("\\pard") + bullet + "\\par"), "*");
    EXPECT_EQ(Lines(QByteArray("{\\pard") + bullet + "one\\par}two"), "*one/two");
}

TEST(RtfLists, HaveNumbersInTheirText) {
    EXPECT_EQ(Lines(QByteArray("\\pard") + number + "one\\par{\\pntext 2.\\tab}two\\par\\pard three"),
              "1. one/2. two/three");
    EXPECT_EQ(Lines("{\\listtext\\pard\\plain  IV)\\tab}\\ls3 four\\par"), "IV) four");
}

constexpr auto tables =
    "{\\*\\listtable{\\list\\listtemplateid1"
    "{\\listlevel\\levelnfc23\\levelnfcn23{\\leveltext\\'01\\u-3913 ?;}{\\levelnumbers;}\\f3\\fi-360\\li720}"
    "{\\listlevel\\levelnfc0\\levelnfcn0{\\leveltext\\'02\\'01.;}{\\levelnumbers\\'01;}}"
    "{\\listlevel\\levelnfc255{\\leveltext\\'00;}{\\levelnumbers;}}{\\listname ;}\\listid77}}"
    "{\\*\\listoverridetable{\\listoverride\\listid77\\listoverridecount0\\ls1}{\\listoverride\\listid78\\ls2}}";

TEST(RtfLists, GoByTheTablesOfLists) {
    const QByteArray head(tables);
    EXPECT_EQ(Lines(head + "{\\listtext\\'b7\\tab}\\ls1\\ilvl0 a\\par{\\listtext 1.\\tab}\\ilvl1 b\\par\\pard c"),
              "*a/1. b/c");
    EXPECT_EQ(Lines(head + "{\\listtext x\\tab}\\ls1 a\\par"), "*a") << "whatever the bullet looks like";
    EXPECT_EQ(Lines(head + "{\\listtext -\\tab}\\ls1\\ilvl1 a\\par"), "- a");
    EXPECT_EQ(Lines(head + "\\pard\\ls1 a\\par\\pard\\ls0 b\\par\\pard\\ls1\\ilvl2 c\\par"), "*a/b/c");
    EXPECT_EQ(Lines(head + "{\\listtext\\tab}\\ls1\\ilvl2 a\\par"), "a") << "neither bullet nor number";
}

TEST(RtfLists, GoByTheMarkerWhenNothingIsSaidOfThem) {
    EXPECT_EQ(Lines("{\\listtext\t\\uc0\\u8226 \t}\\ls9 a\\par"), "*a");
    EXPECT_EQ(Lines("{\\listtext o\\tab}\\ls9 a\\par"), "*a");
    EXPECT_EQ(Lines("{\\listtext -\\tab}a\\par b"), "*a/b");
    EXPECT_EQ(Lines("{\\listtext a)\\tab}b\\par c"), "a) b/c");
    EXPECT_EQ(Lines("{\\listtext \\tab}a\\par"), "a");
}

TEST(RtfLists, HaveMarkersInTheirOwnFormat) {
    const RichText rich = ReadRtf(R"({\rtf1{\listtext\b 1.\tab}\ls1 a\par})");
    EXPECT_EQ(rich.text, "1. a");
    ASSERT_EQ(rich.runs.size(), 2U);
    EXPECT_TRUE(rich.runs.front().format.bold);
    EXPECT_EQ(rich.runs.back().offset, 3);
}

TEST(RtfTables, AreLinesWithTabs) {
    EXPECT_EQ(Lines("\\trowd\\cellx1\\cellx2\\pard\\intbl a\\cell b\\cell\\row\\intbl c\\cell d\\cell\\row\\pard e"),
              "a\tb/c\td/e");
    EXPECT_EQ(Lines("before\\par\\intbl a\\cell\\row\\pard after"), "before/a/after");
}

TEST(RtfTables, KeepTheirEmptyCells) {
    EXPECT_EQ(Lines("\\intbl\\cell b\\cell\\cell\\row\\intbl\\cell\\cell\\row\\pard e"), "\tb\t/\t/e");
}

TEST(RtfTables, KeepTheLinesOfACellTogether) {
    EXPECT_EQ(Lines("\\intbl a\\par b\\line c\\cell d\\par\\cell\\row\\pard e"), "a b c\td/e");
    EXPECT_EQ(Lines("\\intbl\\par a\\cell b\\cell\\row"), "a\tb");
}

TEST(RtfTables, HaveNoItems) {
    EXPECT_EQ(Lines(QByteArray("\\intbl") + bullet + "a\\cell{\\pntext 1.\\tab}b\\cell\\row\\pard c"), "a\tb/c");
    EXPECT_EQ(Lines(QByteArray("\\intbl x\\cell{\\listtext 1.\\tab}b\\cell\\row\\pard c")), "x\t1. b/c");
}

TEST(RtfTables, HaveInnerTablesInTheirLine) {
    EXPECT_EQ(Lines("\\intbl a\\cell\\itap2 b\\nestcell c\\nestcell{\\*\\nesttableprops\\trowd\\nestrow}"
                    "{\\nonesttables\\par}\\itap1\\cell d\\cell\\row\\pard e"),
              "a\tb\tc\t\td/e");
}

}  // namespace
}  // namespace vellum
