#include "reference/insertion.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

class InsertionTest : public testing::Test {
protected:
    [[nodiscard]] Insertion Plan(int node, const QString& selection = {}) const {
        return PlanInsertion(tree, node, selection);
    }
    // A node in a group of a root.
    int Under(const QString& group, NodeKind kind, const QString& text) {
        const int root = tree.AddRoot(NodeKind::Text, "JScript 5.0 Language");
        return tree.AddNoder(tree.AddNoder(root, NodeKind::Text, group), kind, text);
    }
    int OwnTag(const QString& text) {
        return tree.AddNoder(tree.AddRoot(NodeKind::Text, "Custom List"), NodeKind::Text, text);
    }

    ReferenceTree tree;
    const int type = tree.AddRoot(NodeKind::DocumentType, "XHTML1 Transitional");
};

TEST_F(InsertionTest, ARootGivesNothing) {
    EXPECT_EQ(Plan(type), Insertion());
    EXPECT_EQ(Plan(tree.AddRoot(NodeKind::Text, "Emoticons")), Insertion());
    EXPECT_EQ(Plan(tree.AddRoot(NodeKind::Dates, "Date/Time")), Insertion());
}

TEST_F(InsertionTest, MethodsAndFunctionsAreCalled) {
    EXPECT_EQ(Plan(Under("Methods", NodeKind::Call, "abs")), (Insertion{InsertionKind::Call, "abs()"}));
    EXPECT_EQ(Plan(Under("Functions", NodeKind::Call, "Asc")), (Insertion{InsertionKind::Call, "Asc()"}));
}

TEST_F(InsertionTest, OtherWordsAndGroupsGiveThemselves) {
    const int object = Under("Objects", NodeKind::Text, "Array");
    EXPECT_EQ(Plan(object), (Insertion{InsertionKind::Text, "Array"}));
    EXPECT_EQ(Plan(tree.Node(object).parent), (Insertion{InsertionKind::Text, "Objects"}));
}

TEST_F(InsertionTest, DatesEmoticonsAndOwnTagsGoInAsTheyStand) {
    EXPECT_EQ(Plan(tree.AddNoder(tree.AddRoot(NodeKind::Dates, "Date/Time"), NodeKind::Text, "16:05")),
              (Insertion{InsertionKind::Text, "16:05"}));
    for (const char* text : {": - )", "<a href=\"&x\">", "&copy; me", "size=", "EMPTY"}) {
        EXPECT_EQ(Plan(OwnTag(text), "selected"), (Insertion{InsertionKind::Text, text}));
    }
}

TEST_F(InsertionTest, ElementsGoAroundTheSelection) {
    EXPECT_EQ(Plan(tree.AddElement(type, "p", false), "text"), (Insertion{InsertionKind::Element, "<p>text</p>"}));
    EXPECT_EQ(Plan(tree.AddElement(type, "p", false)), (Insertion{InsertionKind::Element, "<p></p>"}));
    EXPECT_EQ(Plan(tree.AddElement(type, "br", true), "text"), (Insertion{InsertionKind::Element, "<br />"}));
}

TEST_F(InsertionTest, AnElementMayBeNamedLikeAMarkOrAGroup) {
    EXPECT_EQ(Plan(tree.AddElement(type, "EMPTY", false), "x"),
              (Insertion{InsertionKind::Element, "<EMPTY>x</EMPTY>"}));
    const int methods = tree.AddElement(type, "Methods", false);
    EXPECT_EQ(Plan(tree.AddNoder(methods, NodeKind::Attribute, "id")),
              (Insertion{InsertionKind::Attribute, "id=\"\""}));
}

TEST_F(InsertionTest, AnElementThatHangsElsewhereIsAWord) {
    const int other = tree.AddElement(type, "p", false);
    EXPECT_EQ(Plan(tree.AddElement(other, "par", false), "text"), (Insertion{InsertionKind::Text, "par"}));
    EXPECT_EQ(Plan(tree.AddElement(other, "br", true)), (Insertion{InsertionKind::Text, "br      EMPTY"}));
}

TEST_F(InsertionTest, TheDocumentTypeGoesInLikeAnEmptyElement) {
    EXPECT_EQ(Plan(tree.AddElement(type, "!DOCTYPE html", true)),
              (Insertion{InsertionKind::Element, "<!DOCTYPE html />"}));
}

TEST_F(InsertionTest, AttributesGetQuotes) {
    const int id = tree.AddNoder(tree.AddElement(type, "p", false), NodeKind::Attribute, "id");
    EXPECT_EQ(Plan(id), (Insertion{InsertionKind::Attribute, "id=\"\""}));
}

TEST_F(InsertionTest, CharactersGoInByTheirNames) {
    const int latin = tree.AddNoder(tree.AddRoot(NodeKind::Text, "Character Sets"), NodeKind::CharacterSet, "Latin");
    EXPECT_EQ(Plan(latin), Insertion());
    const int space = tree.AddCharacter(latin, "nbsp", "x");
    EXPECT_EQ(Plan(space), (Insertion{InsertionKind::Text, "&nbsp;"}));
    EXPECT_EQ(Plan(tree.AddCharacter(space, "euro", "&#8364;")), (Insertion{InsertionKind::Text, "&euro;"}));
    EXPECT_EQ(Plan(tree.AddCharacter(latin, "equals", "=")), (Insertion{InsertionKind::Text, "&equals;"}));
    EXPECT_EQ(Plan(tree.AddCharacter(latin, "thetasymb", "x")), (Insertion{InsertionKind::Text, "&thetasymb;"}));
    EXPECT_EQ(Plan(tree.AddCharacter(latin, "tenletters", "&#9;")), Insertion());
}

}  // namespace
}  // namespace vellum
