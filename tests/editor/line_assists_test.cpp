#include "editor/line_assists.h"

#include "tests/editor/editor_fixture.h"

namespace vellum {
namespace {

class LineAssists : public test::EditorFixture {
protected:
    QString Indented(const QString& marked) {
        Put(marked);
        IndentBlock(Surface());
        return Shown();
    }
    QString Unindented(const QString& marked) {
        Put(marked);
        UnindentBlock(Surface());
        return Shown();
    }
    QString Broken(const QString& marked) {
        Put(marked);
        BreakLine(Surface());
        return Shown();
    }
};

TEST_F(LineAssists, IndentsEveryLineOfTheSelection) {
    EXPECT_EQ(Indented("one\nt|wo\nth|ree\nfour"), "one\n|\ttwo\n\tth|ree\nfour");
    EXPECT_EQ(Indented("|one\ntwo|"), "|\tone\n\ttwo|");
    EXPECT_EQ(Indented("o|ne\n\n\n\ttwo|\nthree"), "|\tone\n\t\n\t\n\t\ttwo|\nthree");
}

TEST_F(LineAssists, IndentsTheLineThatTheSelectionJustReaches) {
    EXPECT_EQ(Indented("|one\n|two"), "|\tone\n\t|two");
}

TEST_F(LineAssists, UnindentsEveryLineThatHasATab) {
    EXPECT_EQ(Unindented("\to|ne\n\t\ttw|o\n\tthree"), "|one\n\ttw|o\n\tthree");
    EXPECT_EQ(Unindented("\t|one\ntwo\n\tthree|"), "|one\ntwo\nthree|");
    EXPECT_EQ(Unindented("x\n\t|one\n  two|\n\tthree"), "x\n|one\n  two|\n\tthree");
}

TEST_F(LineAssists, UnindentsTheCaretsLineToo) {
    EXPECT_EQ(Unindented("\tab|c"), "|ab|c");
    EXPECT_EQ(Unindented("a\n\t|bc"), "a\n|bc");
    EXPECT_EQ(Unindented("a\n|\tbc"), "a\n|bc");
}

TEST_F(LineAssists, ALineWithoutATabStaysAndIsSelectedFromItsStart) {
    EXPECT_EQ(Unindented("one\ntw|o"), "one\n|tw|o");
}

TEST_F(LineAssists, BreaksALineWithTheTabsItBeginsWith) {
    EXPECT_EQ(Broken("\t\tab|c"), "\t\tab\n\t\t|c");
    EXPECT_EQ(Broken("a\n\tb|"), "a\n\tb\n\t|");
    EXPECT_EQ(Broken("ab|"), "ab\n|");
    EXPECT_EQ(Broken("a\tb|"), "a\tb\n|");
    EXPECT_EQ(Broken("\ta|b|c"), "\ta\n\t|c");
}

TEST_F(LineAssists, CountsOnlyTheTabsBeforeTheCaret) {
    EXPECT_EQ(Broken("\t|\tx"), "\t\n\t|\tx");
    EXPECT_EQ(Broken("a\n|\t\tx"), "a\n\n|\t\tx");
}

TEST_F(LineAssists, KeepsTheColoursOfIndentedLines) {
    Put("|one\ntwo|");
    Surface().SetFormat({5, 3}, {.color = 0xFF, .bold = true});
    IndentBlock(Surface());
    EXPECT_EQ(Surface().FormatAt(7), (CharFormat{.color = 0xFF, .bold = true}));
    UnindentBlock(Surface());
    EXPECT_EQ(Surface().FormatAt(5), (CharFormat{.color = 0xFF, .bold = true}));
    EXPECT_EQ(ColorAt(0), 0U);
}

}  // namespace
}  // namespace vellum
