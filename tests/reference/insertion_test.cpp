#include "reference/insertion.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

class InsertionTest : public testing::Test {
protected:
    [[nodiscard]] Insertion Plan(int node, const QString& selection = {}) const {
        return PlanInsertion(tree, node, selection);
    }
    int Under(const QString& root, const QString& group, const QString& text) {
        return tree.AddChild(tree.AddChild(tree.AddRoot(root), group), text);
    }

    ReferenceTree tree;
};

TEST_F(InsertionTest, ARootGivesNothing) {
    EXPECT_EQ(Plan(tree.AddRoot("XHTML1 Strict", "DTD")), Insertion());
    EXPECT_EQ(Plan(tree.AddRoot("Emoticons")), Insertion());
}

TEST_F(InsertionTest, MethodsAndFunctionsAreCalled) {
    EXPECT_EQ(Plan(Under("JScript 5.0 Language", "Methods", "abs")), (Insertion{InsertionKind::Call, "abs()"}));
    EXPECT_EQ(Plan(Under("VBScript 5.0 Language", "Functions", "Asc")), (Insertion{InsertionKind::Call, "Asc()"}));
}

TEST_F(InsertionTest, OtherWordsAndGroupsGiveThemselves) {
    const int object = Under("JScript 5.0 Language", "Objects", "Array");
    EXPECT_EQ(Plan(object), (Insertion{InsertionKind::Text, "Array"}));
    EXPECT_EQ(Plan(tree.Node(object).parent), (Insertion{InsertionKind::Text, "Objects"}));
}

TEST_F(InsertionTest, DatesEmoticonsAndOwnTagsGoInAsTheyStand) {
    EXPECT_EQ(Plan(tree.AddChild(tree.AddRoot("Emoticons"), ": - )")), (Insertion{InsertionKind::Text, ": - )"}));
    EXPECT_EQ(Plan(tree.AddChild(tree.AddRoot("Date/Time"), "16:05")), (Insertion{InsertionKind::Text, "16:05"}));
    EXPECT_EQ(Plan(tree.AddChild(tree.AddRoot("Custom List"), "<a href=\"&x\">")),
              (Insertion{InsertionKind::Text, "<a href=\"&x\">"}));
}

TEST_F(InsertionTest, ElementsGoAroundTheSelection) {
    const int root = tree.AddRoot("XHTML1 Transitional", "DTD");
    EXPECT_EQ(Plan(tree.AddChild(root, "p"), "text"), (Insertion{InsertionKind::Element, "<p>text</p>"}));
    EXPECT_EQ(Plan(tree.AddChild(root, "p")), (Insertion{InsertionKind::Element, "<p></p>"}));
    EXPECT_EQ(Plan(tree.AddChild(root, "br" + emptyElementMark), "text"),
              (Insertion{InsertionKind::Element, "<br />"}));
}

TEST_F(InsertionTest, AnElementNamedLikeTheMarkGivesNothing) {
    EXPECT_EQ(Plan(tree.AddChild(tree.AddRoot("XHTML1 Transitional", "DTD"), "EMPTY"), "text"), Insertion());
}

TEST_F(InsertionTest, TheDocumentTypeGoesInLikeAnEmptyElement) {
    const int type = tree.AddChild(tree.AddRoot("XHTML1 Strict", "DTD"), "!DOCTYPE html" + emptyElementMark);
    EXPECT_EQ(Plan(type), (Insertion{InsertionKind::Element, "<!DOCTYPE html />"}));
}

TEST_F(InsertionTest, AttributesGetQuotes) {
    const int root = tree.AddRoot("XHTML1 Transitional", "DTD");
    EXPECT_EQ(Plan(tree.AddChild(tree.AddChild(root, "p"), "id=")), (Insertion{InsertionKind::Attribute, "id=\"\""}));
}

TEST_F(InsertionTest, EntitiesGoInWithoutTheirCharacter) {
    const int sets = tree.AddRoot("Character Sets");
    const int latin = tree.AddChild(sets, "Latin Characters");
    EXPECT_EQ(Plan(latin), Insertion());
    const int entity = tree.AddChild(latin, "&nbsp;      x");
    EXPECT_EQ(Plan(entity), (Insertion{InsertionKind::Text, "&nbsp;"}));
    EXPECT_EQ(Plan(tree.AddChild(entity, "&euro;      &#8364;")), (Insertion{InsertionKind::Text, "&euro;"}));
    EXPECT_EQ(Plan(tree.AddChild(latin, "&tenletters;&#9;")), Insertion());
}

}  // namespace
}  // namespace vellum
