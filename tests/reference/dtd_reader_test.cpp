#include "reference/dtd_reader.h"

#include "tests/reference/tree_text.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

// A reading into a tree of its own, as for the first branch.
struct Reading {
    explicit Reading(const QString& text, int nodeIndex = 2, int parentIndex = 1) : next(nodeIndex) {
        try {
            result = AddDtDText(tree, next, text, parentIndex, "Title", [this](const QString& c) { caption = c; });
        } catch (const ReadingFailed&) {
            failed = true;
        } catch (const std::out_of_range&) {
            outOfRange = true;
        }
    }

    [[nodiscard]] QStringList Children(const QString& element) const {
        return ChildTexts(tree, FindNode(tree, element));
    }

    ReferenceTree tree;
    int next;
    int result = 0;
    bool failed = false;
    bool outOfRange = false;
    QString caption;
};

const QString entities = "<!ENTITY % name \"\r\n  id ID #IMPLIED\r\n  class CDATA #IMPLIED\">\r\n";

TEST(DtdReader, AddsARootATypeElementsAndAttributes) {
    const Reading reading(
        "<!-- <!DOCTYPE html PUBLIC \"-//X//EN\"> -->\r\n"
        "<!ELEMENT p (#PCDATA)>\r\n<!ATTLIST p\r\n  id ID #IMPLIED\r\n  class CDATA #IMPLIED\r\n  >\r\n"
        "<!ELEMENT br EMPTY>\r\n<!ATTLIST br\r\n  id ID #IMPLIED\r\n>\r\n");
    EXPECT_EQ(TreeText(reading.tree),
              "1 Title\n"
              "-2 !DOCTYPE html PUBLIC \"-//X//EN\"      EMPTY\n"
              "-3 br      EMPTY\n"
              "--4 id=\n"
              "-5 p\n"
              "--6 class=\n"
              "--7 id=");
    EXPECT_EQ(reading.next, 8);
    EXPECT_EQ(reading.result, 8);
}

TEST(DtdReader, NodesTellTheirKindAndName) {
    const Reading reading(
        "<!-- <!DOCTYPE html> -->\r\n<!ELEMENT a (x)>\r\n<!ATTLIST a\r\n  id ID #IMPLIED>\r\n<!ELEMENT br EMPTY>\r\n");
    const auto expect = [&](int index, NodeKind kind, const QString& name, bool empty) {
        const ReferenceNode& node = reading.tree.Node(index);
        EXPECT_EQ(node.kind, kind) << index;
        EXPECT_EQ(node.name, name) << index;
        EXPECT_EQ(node.empty, empty) << index;
    };
    ASSERT_EQ(reading.tree.Count(), 5);
    expect(1, NodeKind::DocumentType, "Title", false);
    expect(2, NodeKind::Element, "!DOCTYPE html", true);
    expect(3, NodeKind::Element, "a", false);
    expect(4, NodeKind::Attribute, "id", false);
    expect(5, NodeKind::Element, "br", true);
}

TEST(DtdReader, TypeLineIsOptional) {
    const Reading reading("");
    EXPECT_EQ(TreeText(reading.tree), "1 Title");
    EXPECT_EQ(reading.next, 2);
}

TEST(DtdReader, TypeLineComesFromPublicAndSystem) {
    EXPECT_EQ(TreeText(Reading("x PUBLIC \"a\">\r\n").tree), "1 Title\n-2 !DOCTYPE PUBLIC \"a\"      EMPTY");
    // The blank that follows SYSTEM comes along with the one that is put in front.
    EXPECT_EQ(TreeText(Reading("x SYSTEM \"b\" >\r\n").tree), "1 Title\n-2 !DOCTYPE  \"b\"       EMPTY");
    EXPECT_EQ(TreeText(Reading("SYSTEM \"b\"\r\nPUBLIC \"a\"\r\n").tree),
              "1 Title\n-2 !DOCTYPE PUBLIC \"a\"  \"b\"      EMPTY");
    EXPECT_EQ(TreeText(Reading("PUBLIC \"a\">\r\nSYSTEM \"b\"\r\n").tree),
              "1 Title\n-2 !DOCTYPE PUBLIC \"a\">  \"b\"      EMPTY");
}

TEST(DtdReader, TypeLineIsThatOfTheDoctype) {
    EXPECT_EQ(TreeText(Reading("PUBLIC \"a\"\r\n<!DOCTYPE html\r\n  x >").tree),
              "1 Title\n-2 !DOCTYPE html\r\n  x       EMPTY");
    // One that doesn't end changes nothing, and one without anything in it is no line.
    EXPECT_EQ(TreeText(Reading("PUBLIC \"a\"\r\n<!DOCTYPE html").tree), "1 Title\n-2 !DOCTYPE PUBLIC \"a\"      EMPTY");
    EXPECT_EQ(TreeText(Reading("PUBLIC \"a\"\r\n<!DOCTYPE>").tree), "1 Title");
}

TEST(DtdReader, TypeLineNeedsALineEnd) {
    const Reading reading("<!ELEMENT p ANY> PUBLIC \"a\"");
    EXPECT_TRUE(reading.failed);
    EXPECT_EQ(TreeText(reading.tree), "1 Title");
}

TEST(DtdReader, LineEndsOfAnyKindAndTabsAreFine) {
    const Reading reading("<!ELEMENT\tbr EMPTY>\n<!ATTLIST\tbr\n\tid\tID #IMPLIED\r\tclass\tCDATA #IMPLIED>\n");
    EXPECT_EQ(TreeText(reading.tree), "1 Title\n-2 br      EMPTY\n--3 class=\n--4 id=");
}

TEST(DtdReader, DeclarationsOfOneElementGiveOneNode) {
    const Reading reading("<!ELEMENT a EMPTY>\r\n<!ELEMENT a (b)>\r\n<!ELEMENT abbr (b)>\r\n<!ELEMENT b (a)>\r\n");
    EXPECT_EQ(TreeText(reading.tree), "1 Title\n-2 a      EMPTY\n-3 abbr\n-4 b");
    EXPECT_EQ(reading.next, 5);
}

TEST(DtdReader, ElementsAreSortedWithoutRegardToCase) {
    EXPECT_EQ(TreeText(Reading("<!ELEMENT b (x)> <!ELEMENT C (x)> <!ELEMENT a (x)> <!ELEMENT aB (x)>").tree),
              "1 Title\n-2 a\n-3 aB\n-4 b\n-5 C");
}

TEST(DtdReader, NameOfAnElementMayBeAnEntity) {
    const Reading reading(
        "<!ENTITY % heading \"h1\">\r\n<!ELEMENT %heading; (#PCDATA)>\r\n<!ATTLIST %heading;\r\n  align CDATA "
        "#IMPLIED>");
    EXPECT_EQ(TreeText(reading.tree), "1 Title\n-2 h1\n--3 align=");
}

TEST(DtdReader, OnlyTheFirstReferenceAfterTheKeywordIsTheKey) {
    // The name comes from the second expansion, the key stays that of the first.
    EXPECT_EQ(TreeText(Reading("<!ENTITY % a \"%b;\"><!ENTITY % b \"h1\"><!ELEMENT %a; (x)>").tree), "1 Title\n-2 h1");
    // An entity further on in the declaration is no key, so the name itself is.
    EXPECT_EQ(TreeText(Reading("<!ENTITY % c \"(x)\"><!ELEMENT p %c;>\r\n<!ELEMENT p %c; >").tree), "1 Title\n-2 p");
}

TEST(DtdReader, NameEndsAtABlankOrLineEnd) {
    EXPECT_EQ(TreeText(Reading("<!ELEMENT p\r\n  (#PCDATA | a)>").tree), "1 Title\n-2 p");
    EXPECT_TRUE(Reading("<!ELEMENT p>").failed);
    EXPECT_TRUE(Reading("<!ELEMENT p\r\n>").failed);
}

TEST(DtdReader, AnyEmptyCounts) {
    EXPECT_EQ(TreeText(Reading("<!ELEMENT p (nonempty)>").tree), "1 Title\n-2 p      EMPTY");
    EXPECT_EQ(TreeText(Reading("<!ELEMENT p -- empty in words -- (x)>").tree), "1 Title\n-2 p      EMPTY");
    EXPECT_EQ(TreeText(Reading("<!ELEMENT p (x)> EMPTY").tree), "1 Title\n-2 p");
}

TEST(DtdReader, FailuresKeepWhatWasAdded) {
    // The name of an element that only its expansion has isn't found again.
    const Reading reading(
        "<!ENTITY % c \"z (x)\"><!ELEMENT a (x)>\r\n<!ATTLIST a\r\n  id ID #IMPLIED>\r\n<!ELEMENT b %d;>\r\n");
    EXPECT_TRUE(reading.failed);
    EXPECT_EQ(TreeText(reading.tree), "1 Title");
    EXPECT_EQ(reading.next, 2) << "the count is handed over at the end only";

    const Reading late("<!ENTITY % z \"q\"><!ELEMENT a (x)><!ATTLIST a\r\n  id ID #IMPLIED><!ELEMENT b%z; (x)>");
    EXPECT_TRUE(late.failed);
    EXPECT_EQ(TreeText(late.tree), "1 Title\n-2 a\n--3 id=");
    EXPECT_EQ(late.next, 2);
}

TEST(DtdReader, BrokenDeclarationsFail) {
    EXPECT_TRUE(Reading("<!ELEMENT a (x)").failed);
    EXPECT_TRUE(Reading("<!ELEMENT a (50%)>").failed);
    EXPECT_TRUE(Reading("<!ELEMENT a %x;>").failed);
    EXPECT_TRUE(Reading("<!ENTITY % x 'y'><!ELEMENT a %x;>").failed);
    EXPECT_TRUE(Reading("<!ENTITY % x \"y><!ELEMENT a (%x;)>").failed);
    EXPECT_TRUE(Reading("<!ELEMENT a (x)><!ATTLIST a\r\n  id ID \"x\"").failed);
    EXPECT_TRUE(Reading("<!ELEMENT a (x)><!ATTLIST a\r\n  width CDATA \"50%\">").failed);
}

TEST(DtdReader, TheGuideThatCantBeFoundLeavesATrace) {
    const Reading reading("<!ENTITY % z \"de\"><!ELEMENT gui%z; (x)>");
    EXPECT_TRUE(reading.failed);
    EXPECT_EQ(reading.caption, "ga");
    EXPECT_EQ(Reading("<!ELEMENT guide (x)>").caption, "");
    EXPECT_EQ(Reading("<!ENTITY % z \"des\"><!ELEMENT gui%z; (x)>").caption, "");
}

TEST(DtdReader, HeadWithBlankEndsItsLine) {
    const Reading reading("<!ELEMENT a (x)>\r\n<!ATTLIST a id ID #IMPLIED\r\n  class CDATA #IMPLIED>\r\n");
    // The first attribute stands at the very start of the new line, so its first letter is lost.
    EXPECT_EQ(reading.Children("a"), QStringList({"class=", "d="}));
}

TEST(DtdReader, AttributeWithoutIndentationLosesItsFirstLetter) {
    const Reading reading("<!ELEMENT a (x)>\r\n<!ATTLIST a\r\nhref CDATA #IMPLIED\r\n rel CDATA #IMPLIED>\r\n");
    EXPECT_EQ(reading.Children("a"), QStringList({"ref=", "rel="}));
}

TEST(DtdReader, FirstDeclarationOfAttributesCounts) {
    const Reading reading(
        "<!ELEMENT a (x)>\r\n<!ATTLIST ab\r\n  x CDATA #IMPLIED>\r\n<!ATTLIST a  y CDATA #IMPLIED>\r\n"
        "<!ATTLIST a\r\n  z CDATA #IMPLIED>\r\n");
    EXPECT_EQ(reading.Children("a"), QStringList({"y="}));
}

TEST(DtdReader, ElementWithoutAttributesGetsNone) {
    // The declaration in hand stays that of the element before, but nothing of it is added.
    const Reading reading("<!ELEMENT a (x)><!ATTLIST a\r\n  id ID #IMPLIED>\r\n<!ELEMENT b (x)>");
    EXPECT_EQ(TreeText(reading.tree), "1 Title\n-2 a\n--3 id=\n-4 b");
    EXPECT_EQ(reading.next, 5);
}

TEST(DtdReader, AngleBracketInADefaultEndsTheDeclaration) {
    const Reading reading("<!ELEMENT a (x)><!ATTLIST a\r\n  x CDATA \">\"\r\n  y CDATA #IMPLIED>\r\n");
    EXPECT_EQ(reading.Children("a"), QStringList({"x="}));
}

TEST(DtdReader, LastLineNeedsABlankAfterItsWord) {
    const Reading reading("<!ELEMENT a (x)><!ATTLIST a\r\n  x CDATA #IMPLIED\r\n  y>\r\n");
    EXPECT_EQ(reading.Children("a"), QStringList({"x="}));
}

TEST(DtdReader, EndOfDeclarationIsNoAttribute) {
    const Reading reading("<!ELEMENT a (x)><!ATTLIST a\r\n  x CDATA #IMPLIED\r\n  > <!ELEMENT b (x)>");
    EXPECT_EQ(reading.Children("a"), QStringList({"x="}));
    // With a blank in front of it the ">" is the word of its line when another blank follows from an entity.
    const Reading entity("<!ELEMENT a (x)><!ENTITY % e \"\r\n   z \"><!ATTLIST a\r\n  x CDATA #IMPLIED %e;>");
    EXPECT_EQ(entity.Children("a"), QStringList({"x=", "z="}));
}

TEST(DtdReader, ValuesOfAListOverSeveralLinesAreSkipped) {
    const Reading reading(
        "<!ELEMENT a (x)><!ATTLIST a\r\n  align (left|center\r\n     right | justify) #IMPLIED\r\n  id ID "
        "#IMPLIED>\r\n");
    EXPECT_EQ(reading.Children("a"), QStringList({"align=", "id="}));
    // A word that begins with the parenthesis isn't inside it, nor is one in a list that never closes.
    const Reading open("<!ELEMENT a (x)><!ATTLIST a\r\n  (left|\r\n  right )\r\n  (b\r\n  c d>\r\n");
    EXPECT_EQ(open.Children("a"), QStringList({"(b\r\n=", "(left|\r\n="}));
}

TEST(DtdReader, NestedParenthesesEndWithTheFirstClosingOne) {
    const Reading reading("<!ELEMENT a (x)><!ATTLIST a\r\n  a (b (c\r\n  d | e)\r\n  f | g) #IMPLIED>\r\n");
    EXPECT_EQ(reading.Children("a"), QStringList({"a=", "f="}));
}

TEST(DtdReader, AHundredCharactersOfIndentationAreLookedAt) {
    const auto attlist = [](int blanks) {
        return "<!ELEMENT a (x)><!ATTLIST a\r\n" + QString(blanks, ' ') + "id ID #IMPLIED>\r\n";
    };
    EXPECT_EQ(Reading(attlist(100)).Children("a"), QStringList({"id="}));
    // One more and the scan stops at a blank: an empty word.
    EXPECT_EQ(Reading(attlist(101)).Children("a"), QStringList({"="}));
}

TEST(DtdReader, EntitiesGiveAttributes) {
    const Reading reading(entities + "<!ELEMENT a (x)><!ATTLIST a\r\n  %name;\r\n  href CDATA #IMPLIED>\r\n");
    EXPECT_EQ(reading.Children("a"), QStringList({"class=", "href=", "id="}));
}

TEST(DtdReader, AttributeOfTwoEntitiesAppearsTwice) {
    const Reading reading(
        "<!ENTITY % one \"\r\n  id ID #IMPLIED\"><!ENTITY % two \"\r\n  id ID #IMPLIED\r\n  Class CDATA #IMPLIED\">"
        "<!ELEMENT a (x)><!ATTLIST a\r\n  %one;\r\n  %two;\r\n  >\r\n");
    EXPECT_EQ(reading.Children("a"), QStringList({"Class=", "id=", "id="}));
}

TEST(DtdReader, EntityIsFoundByTheBeginningOfItsName) {
    const Reading reading(
        "<!ENTITY % attrsfoo \"\r\n  foo CDATA #IMPLIED\"><!ENTITY % attrs \"\r\n  id ID #IMPLIED\">"
        "<!ELEMENT a (x)><!ATTLIST a\r\n  %attrs;\r\n  >\r\n");
    EXPECT_EQ(reading.Children("a"), QStringList({"foo="}));
}

TEST(DtdReader, UnknownEntityStaysAsAWord) {
    const Reading reading(
        "<!ELEMENT a (x)><!ATTLIST a\r\n  %none; x\r\n  href %none; #IMPLIED\r\n  %none; y>\r\n<!ELEMENT b (x)>");
    EXPECT_FALSE(reading.failed);
    EXPECT_EQ(reading.Children("a"), QStringList({"ErrorNotFound=", "ErrorNotFound=", "href="}));
}

TEST(DtdReader, ValueOfSeveralLinesBeginsALineUnlessItIsAList) {
    // Without the line end in front, the first attribute of the value would follow "x" on its line.
    const Reading reading(
        "<!ENTITY % e \"  one CDATA #IMPLIED\r\n  two CDATA #IMPLIED\">"
        "<!ELEMENT a (x)><!ATTLIST a\r\n  x CDATA #IMPLIED %e;\r\n>\r\n");
    EXPECT_EQ(reading.Children("a"), QStringList({"one=", "two=", "x="}));
    const Reading list("<!ENTITY % e \"(left|\r\n  right )\"><!ELEMENT a (x)><!ATTLIST a\r\n  x %e; #IMPLIED>\r\n");
    EXPECT_EQ(list.Children("a"), QStringList({"x="}));
    // A value of one line stays on its line.
    const Reading line(
        "<!ENTITY % e \"  one CDATA #IMPLIED\"><!ELEMENT a (x)><!ATTLIST a\r\n  x CDATA #IMPLIED %e;>\r\n");
    EXPECT_EQ(line.Children("a"), QStringList({"x="}));
}

TEST(DtdReader, WhatEntitiesHoldIsExpandedToo) {
    const Reading reading("<!ENTITY % all \"%name;\">" + entities +
                          "<!ELEMENT a (x)><!ATTLIST a\r\n  %all;\r\n  >\r\n");
    EXPECT_EQ(reading.Children("a"), QStringList({"class=", "id="}));
}

TEST(DtdReader, EntityThatHoldsItselfEndsTheReading) {
    EXPECT_TRUE(Reading("<!ENTITY % a \"%a;\"><!ELEMENT p (%a;)>").failed);
    EXPECT_TRUE(Reading("<!ENTITY % a \"x %a; %a; x\"><!ELEMENT p (%a;)>").failed);
    EXPECT_TRUE(Reading("<!ENTITY % a \"%b;\"><!ENTITY % b \"%a;\"><!ELEMENT p (x)><!ATTLIST p\r\n  %a; >").failed);
}

TEST(DtdReader, AttributesGoToTheCountedNode) {
    // The caller's count lags by one, so the attributes of an element hang under the node before it.
    ReferenceTree tree;
    tree.AddRoot(NodeKind::Text, "Before");
    int next = 2;
    AddDtDText(tree, next, "<!ELEMENT a (x)><!ATTLIST a\r\n  id ID #IMPLIED>", 2, "Title");
    EXPECT_EQ(TreeText(tree), "1 Before\n2 Title\n-3 a\n-4 id=");
    EXPECT_EQ(next, 4);
}

TEST(DtdReader, NodesThatAreNoneOfTheTreeEndTheReading) {
    EXPECT_TRUE(Reading("<!ELEMENT a (x)>", 2, 2).outOfRange);
    EXPECT_TRUE(Reading("<!ELEMENT a (x)>", 2, 0).outOfRange);
    const Reading ahead("<!ELEMENT a (x)><!ATTLIST a\r\n  id ID #IMPLIED>", 9);
    EXPECT_TRUE(ahead.outOfRange);
    EXPECT_EQ(TreeText(ahead.tree), "1 Title\n-2 a");
    EXPECT_EQ(ahead.next, 9);
}

TEST(DtdReader, CountHasSixteenBits) {
    EXPECT_TRUE(Reading("<!ELEMENT a (x)>", greatestNodeIndex).failed);
    EXPECT_EQ(Reading("<!ELEMENT a (x)>", greatestNodeIndex - 1).result, greatestNodeIndex);
}

TEST(DtdReader, ReadsFiles) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("x.dtd");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<!ELEMENT caf\xE9 EMPTY>\n<!ATTLIST caf\xE9\n\tid ID #IMPLIED\n>\n");
    file.close();
    ReferenceTree tree;
    int next = 2;
    EXPECT_EQ(AddDtD(tree, next, path, 1, "Title"), 4);
    EXPECT_EQ(TreeText(tree), "1 Title\n-2 café      EMPTY\n--3 id=");
}

TEST(DtdReader, FileThatIsMissingLeavesTheRoot) {
    ReferenceTree tree;
    int next = 2;
    EXPECT_THROW(AddDtD(tree, next, "/nowhere/x.dtd", 1, "Title"), ReadingFailed);
    EXPECT_EQ(TreeText(tree), "1 Title");
    EXPECT_EQ(tree.Node(1).kind, NodeKind::DocumentType);
    EXPECT_EQ(next, 2);
}

}  // namespace
}  // namespace vellum::test
