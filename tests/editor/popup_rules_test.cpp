#include "editor/popup_rules.h"

#include "tests/editor/editor_fixture.h"

namespace vellum {
namespace {

// The bar is the caret.
PopupDecision Decide(QString marked) {
    const auto caret = marked.indexOf(u'|');
    marked.remove(caret, 1);
    return DecidePopup(marked, static_cast<int>(caret));
}

TEST(DecidePopup, OffersTagsAfterABareOpening) {
    EXPECT_EQ(Decide("<|").step, PopupStep::Tags);
    EXPECT_EQ(Decide("<|\r\ntext").step, PopupStep::Tags);
    EXPECT_EQ(Decide("<| text").step, PopupStep::Tags);
    EXPECT_EQ(Decide("<|>").step, PopupStep::Tags);
}

TEST(DecidePopup, OffersAttributesAfterAName) {
    for (const char* tag : {"<a |", "<a\t|>", "<a\r\n|", "<a href=\"x\"|", "<a href=\"x\" |>", "<a hr|", "<a hr|>"}) {
        const PopupDecision decision = Decide(tag);
        EXPECT_EQ(decision.step, PopupStep::Attributes) << tag;
        EXPECT_EQ(decision.name, "a") << tag;
    }
    EXPECT_EQ(Decide("<Table |border").name, "Table");
}

TEST(DecidePopup, HidesInAQuotedValue) {
    EXPECT_EQ(Decide("<a href=\"|").step, PopupStep::Hide);
    EXPECT_EQ(Decide("<a href=\"x|").step, PopupStep::Hide);
    EXPECT_EQ(Decide("<a href=\"x |y\">").step, PopupStep::Hide);
}

TEST(DecidePopup, HidesInAName) {
    EXPECT_EQ(Decide("<ta|").step, PopupStep::Hide);
    EXPECT_EQ(Decide("<ta| ").step, PopupStep::Hide);
    EXPECT_EQ(Decide("<|ta").step, PopupStep::Leave);  // no end of the name in sight
    EXPECT_EQ(Decide("<|ta>").step, PopupStep::Hide);
}

TEST(DecidePopup, HidesInTheMiddleOfAWord) {
    EXPECT_EQ(Decide("<a hr|ef>").step, PopupStep::Hide);
    EXPECT_EQ(Decide("<a |href>").step, PopupStep::Attributes);
    EXPECT_EQ(Decide("<a hr|/>").step, PopupStep::Attributes);
    EXPECT_EQ(Decide("<a x=\"y\"|b>").step, PopupStep::Attributes);  // a quote ends a word
}

TEST(DecidePopup, HidesAfterAnOpeningThatBlanksFollow) {
    EXPECT_EQ(Decide("< |").step, PopupStep::Hide);
    EXPECT_EQ(Decide("< a|").step, PopupStep::Hide);
}

TEST(DecidePopup, LeavesAllAsItIsWhileTheNameHasNoEnd) {
    EXPECT_EQ(Decide("<abc|def").step, PopupStep::Leave);
    EXPECT_EQ(Decide("|<a ").step, PopupStep::Leave);
}

TEST(PartialWord, IsWhatComesAfterTheLastMark) {
    EXPECT_EQ(PartialWord(u"<ta"), "ta");
    EXPECT_EQ(PartialWord(u"<a hr"), "hr");
    EXPECT_EQ(PartialWord(u"<a\thr"), "hr");
    EXPECT_EQ(PartialWord(u"<a\r\nhr"), "hr");
    EXPECT_EQ(PartialWord(u"<a x=\"y"), "y");
    EXPECT_EQ(PartialWord(u"<a x=\"y\"z"), "z");
    EXPECT_EQ(PartialWord(u"<a x>y"), "y");
    EXPECT_EQ(PartialWord(u"<a "), "");
    EXPECT_EQ(PartialWord(u"<"), "");
    EXPECT_EQ(PartialWord(u"word"), "");
    EXPECT_EQ(PartialWord(u""), "");
}

QStringList Written(const std::vector<PopupEntry>& entries) {
    QStringList texts;
    for (const PopupEntry& entry : entries) texts << entry.written;
    return texts;
}

TEST(TagEntries, HoldElementsThenClosingForms) {
    ReferenceTree tree;
    test::FillReferences(tree);
    EXPECT_EQ(Written(TagEntries(tree, 1)), (QStringList{"!--", "!DOCTYPE html\r\n PUBLIC \"-//X//EN\"", "a", "br",
                                                         "img", "table", "tbody", "/a", "/table", "/tbody"}));
}

TEST(TagEntries, AreElementsAlone) {
    ReferenceTree tree;
    const int root = tree.AddRoot(NodeKind::DocumentType, "Type");
    tree.AddElement(root, "EMPTY", false);
    tree.AddNoder(root, NodeKind::Attribute, "id");
    EXPECT_EQ(Written(TagEntries(tree, root)), (QStringList{"!--", "EMPTY", "/EMPTY"}));
}

TEST(AttributeEntries, AreWrittenWithQuotes) {
    ReferenceTree tree;
    const int element = tree.AddElement(tree.AddRoot(NodeKind::DocumentType, "Type"), "a", false);
    tree.AddNoder(element, NodeKind::Attribute, "id");
    tree.AddElement(element, "b", false);
    tree.AddNoder(element, NodeKind::Attribute, "href");
    EXPECT_EQ(AttributeEntries(tree, element), (std::vector<PopupEntry>{{NodeKind::Attribute, "id=", "id=\"\""},
                                                                        {NodeKind::Attribute, "href=", "href=\"\""}}));
    EXPECT_TRUE(AttributeEntries(tree, 1).empty());
}

TEST(CharacterEntries, AreAllOfTheTreeInOrderOfAddition) {
    ReferenceTree tree;
    const int sets = tree.AddRoot(NodeKind::Text, "Character Sets");
    const int first = tree.AddCharacter(tree.AddNoder(sets, NodeKind::CharacterSet, "First"), "lt", "<");
    tree.AddNoder(sets, NodeKind::CharacterSet, "Second");
    tree.AddCharacter(first, "tenletters", "&#8364;");
    tree.AddNoder(tree.AddRoot(NodeKind::Text, "Custom List"), NodeKind::Text, "&mine;");
    EXPECT_EQ(CharacterEntries(tree),
              (std::vector<PopupEntry>{{NodeKind::Character, "&lt;        <", "&lt;"},
                                       {NodeKind::Character, "&tenletters;&#8364;", "&tenletters;"}}));
}

TEST(FindElement, GoesByTheNameInAnyCase) {
    ReferenceTree tree;
    test::FillReferences(tree);
    EXPECT_EQ(tree.Node(FindElement(tree, 1, "a")).name, "a");
    EXPECT_EQ(tree.Node(FindElement(tree, 1, "BR")).name, "br");
    EXPECT_EQ(tree.Node(FindElement(tree, 1, "tAble")).name, "table");
    EXPECT_EQ(FindElement(tree, 1, "tab"), 0);
    EXPECT_EQ(FindElement(tree, 1, "html"), 0);
    EXPECT_EQ(FindElement(tree, 1, "par"), 0);
    EXPECT_EQ(FindElement(tree, 1, "empty"), 0);
    EXPECT_EQ(FindElement(tree, 1, ""), 0);
}

TEST(PopupPlace, StandsBelowTheCaret) {
    const QRect area(0, 0, 800, 600);
    EXPECT_EQ(PopupPlace({100, 50, 1, 14}, area, {200, 120}), QRect(100, 66, 200, 120));
}

TEST(PopupPlace, FlipsNearTheBottom) {
    const QRect area(0, 0, 800, 600);
    const QRect place = PopupPlace({100, 550, 1, 14}, area, {200, 120});
    EXPECT_EQ(place.bottom(), 550 - 3);
    EXPECT_EQ(place.size(), QSize(200, 120));
}

TEST(PopupPlace, StaysInsideTheSurface) {
    for (const QRect& area : {QRect(0, 0, 800, 600), QRect(10, 30, 300, 90), QRect(0, 0, 120, 60)}) {
        for (int x = area.left(); x <= area.right(); x += 7) {
            for (int y = area.top(); y + 13 <= area.bottom(); y += 7) {
                const QRect place = PopupPlace({x, y, 1, 14}, area, {200, 120});
                EXPECT_TRUE(place.isEmpty() || area.contains(place)) << x << ' ' << y << ' ' << place.top();
                EXPECT_FALSE(place.intersects({x, y, 1, 14})) << x << ' ' << y;
            }
        }
    }
    EXPECT_EQ(PopupPlace({790, 50, 1, 14}, {0, 0, 800, 600}, {200, 120}).right(), 800 - 20 - 1);
}

TEST(PopupPlace, StaysInsideWhenTheCaretIsScrolledOut) {
    const QRect area(10, 30, 400, 300);
    for (const int y : {-5000, -20, 20, 320, 340, 5000}) {
        for (const int x : {-5000, 100, 5000}) {
            const QRect place = PopupPlace({x, y, 1, 14}, area, {200, 120});
            EXPECT_TRUE(area.contains(place)) << x << ' ' << y << ' ' << place.top();
            EXPECT_EQ(place.size(), QSize(200, 120)) << x << ' ' << y;
        }
    }
}

}  // namespace
}  // namespace vellum
