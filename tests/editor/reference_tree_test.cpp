#include "editor/reference_tree.h"

#include <gtest/gtest.h>
#include <limits>

namespace vellum::test {
namespace {

TEST(ReferenceTree, NumbersNodesFromOneInOrderOfAddition) {
    ReferenceTree tree;
    EXPECT_EQ(tree.Count(), 0);
    EXPECT_EQ(tree.AddRoot(NodeKind::DocumentType, "XHTML"), 1);
    EXPECT_EQ(tree.AddElement(1, "p", false), 2);
    EXPECT_EQ(tree.AddRoot(NodeKind::Text, "Emoticons"), 3);
    EXPECT_EQ(tree.AddElement(1, "br", true), 4);
    EXPECT_EQ(tree.AddNoder(2, NodeKind::Attribute, "id"), 5);
    EXPECT_EQ(tree.AddCharacter(2, "nbsp", "x"), 6);
    EXPECT_EQ(tree.Count(), 6);
    EXPECT_EQ(tree.Roots(), std::vector<int>({1, 3}));
    EXPECT_EQ(tree.Node(1).children, std::vector<int>({2, 4}));
    EXPECT_EQ(tree.Node(2).children, std::vector<int>({5, 6}));
}

TEST(ReferenceTree, NodesTellTheirPlaceAndWhatTheyAre) {
    ReferenceTree tree;
    tree.AddRoot(NodeKind::DocumentType, "XHTML");
    tree.AddRoot(NodeKind::Dates, "Date/Time");
    tree.AddElement(1, "p", false);
    tree.AddElement(1, "br", true);
    tree.AddCharacter(2, "nbsp", "x");
    EXPECT_EQ(tree.Node(1).kind, NodeKind::DocumentType);
    EXPECT_EQ(tree.Node(1).parent, 0);
    EXPECT_EQ(tree.Node(2).kind, NodeKind::Dates);
    EXPECT_EQ(tree.Node(2).row, 1);
    EXPECT_EQ(tree.Node(3).row, 0);
    EXPECT_FALSE(tree.Node(3).empty);
    EXPECT_EQ(tree.Node(4).kind, NodeKind::Element);
    EXPECT_EQ(tree.Node(4).name, "br");
    EXPECT_TRUE(tree.Node(4).empty);
    EXPECT_EQ(tree.Node(4).parent, 1);
    EXPECT_EQ(tree.Node(4).row, 1);
    EXPECT_EQ(tree.Node(5).kind, NodeKind::Character);
    EXPECT_EQ(tree.Node(5).shown, "x");
    EXPECT_EQ(tree.Node(5).row, 0);
}

TEST(ReferenceTree, CaptionsTellWhatANodeIs) {
    ReferenceTree tree;
    const int root = tree.AddRoot(NodeKind::DocumentType, "SMIL 1.0");
    const auto caption = [&tree](int index) { return Caption(tree.Node(index)); };
    EXPECT_EQ(caption(root), "SMIL 1.0");
    EXPECT_EQ(caption(tree.AddElement(root, "p", false)), "p");
    EXPECT_EQ(caption(tree.AddElement(root, "br", true)), "br      EMPTY");
    EXPECT_EQ(caption(tree.AddElement(root, "!DOCTYPE html", true)), "!DOCTYPE html      EMPTY");
    EXPECT_EQ(caption(tree.AddNoder(root, NodeKind::Attribute, "id")), "id=");
    EXPECT_EQ(caption(tree.AddCharacter(root, "nbsp", "x")), "&nbsp;      x");
    EXPECT_EQ(caption(tree.AddCharacter(root, "thetasymb", "x")), "&thetasymb; x");
    EXPECT_EQ(caption(tree.AddCharacter(root, "tenletters", "x")), "&tenletters;x");
    EXPECT_EQ(caption(tree.AddCharacter(root, "elevenletters", "x")), "&elevenletters;x");
    for (const NodeKind kind : {NodeKind::CharacterSet, NodeKind::Call, NodeKind::Dates, NodeKind::Text}) {
        EXPECT_EQ(caption(tree.AddNoder(root, kind, "abs")), "abs");
    }
}

TEST(ReferenceTree, FirstBoldRootIsTheActiveOne) {
    ReferenceTree tree;
    EXPECT_EQ(tree.ActiveRoot(), 0);
    tree.AddRoot(NodeKind::DocumentType, "one");
    const int child = tree.AddElement(1, "child", false);
    const int two = tree.AddRoot(NodeKind::DocumentType, "two");
    const int three = tree.AddRoot(NodeKind::DocumentType, "three");
    tree.SetBold(child, true);
    EXPECT_EQ(tree.ActiveRoot(), 0);
    tree.SetBold(three, true);
    EXPECT_EQ(tree.ActiveRoot(), three);
    tree.SetBold(two, true);
    EXPECT_EQ(tree.ActiveRoot(), two);
    tree.SetBold(two, false);
    EXPECT_EQ(tree.ActiveRoot(), three);
}

TEST(ReferenceTree, NamesChange) {
    ReferenceTree tree;
    tree.AddRoot(NodeKind::Dates, "Date/Time");
    tree.AddNoder(1, NodeKind::Text, "1");
    tree.SetName(2, "12:00");
    EXPECT_EQ(tree.Node(2).name, "12:00");
}

TEST(ReferenceTree, StartsAnewWhenCleared) {
    ReferenceTree tree;
    tree.AddRoot(NodeKind::DocumentType, "one");
    tree.AddElement(1, "child", false);
    tree.SetBold(1, true);
    tree.Clear();
    EXPECT_EQ(tree.Count(), 0);
    EXPECT_TRUE(tree.Roots().empty());
    EXPECT_EQ(tree.ActiveRoot(), 0);
    EXPECT_EQ(tree.AddRoot(NodeKind::Text, "two"), 1);
    EXPECT_EQ(tree.Node(1).row, 0);
    EXPECT_TRUE(tree.Node(1).children.empty());
}

TEST(ReferenceTree, RefusesIndexesThatAreNoneOfIts) {
    ReferenceTree tree;
    tree.AddRoot(NodeKind::Text, "one");
    for (const int index : {0, -1, 2, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        EXPECT_THROW((void)tree.Node(index), std::out_of_range) << index;
        EXPECT_THROW(tree.AddNoder(index, NodeKind::Text, "x"), std::out_of_range) << index;
        EXPECT_THROW(tree.AddElement(index, "x", true), std::out_of_range) << index;
        EXPECT_THROW(tree.AddCharacter(index, "x", "y"), std::out_of_range) << index;
        EXPECT_THROW(tree.SetName(index, "x"), std::out_of_range) << index;
        EXPECT_THROW(tree.SetBold(index, true), std::out_of_range) << index;
    }
    EXPECT_EQ(tree.Count(), 1);
    EXPECT_EQ(tree.Node(1).name, "one");
}

}  // namespace
}  // namespace vellum::test
