#include "editor/reference_tree.h"

#include <gtest/gtest.h>
#include <limits>

namespace vellum::test {
namespace {

TEST(ReferenceTree, NumbersNodesFromOneInOrderOfAddition) {
    ReferenceTree tree;
    EXPECT_EQ(tree.Count(), 0);
    EXPECT_EQ(tree.AddRoot("XHTML", "DTD"), 1);
    EXPECT_EQ(tree.AddChild(1, "p"), 2);
    EXPECT_EQ(tree.AddRoot("Emoticons"), 3);
    EXPECT_EQ(tree.AddChild(1, "br"), 4);
    EXPECT_EQ(tree.AddChild(2, "id="), 5);
    EXPECT_EQ(tree.Count(), 5);
    EXPECT_EQ(tree.Roots(), std::vector<int>({1, 3}));
    EXPECT_EQ(tree.Node(1).children, std::vector<int>({2, 4}));
    EXPECT_EQ(tree.Node(2).children, std::vector<int>({5}));
}

TEST(ReferenceTree, NodesTellTheirPlace) {
    ReferenceTree tree;
    tree.AddRoot("XHTML", "DTD");
    tree.AddRoot("Emoticons");
    tree.AddChild(1, "p");
    tree.AddChild(1, "br");
    EXPECT_EQ(tree.Node(1).tag, "DTD");
    EXPECT_EQ(tree.Node(1).parent, 0);
    EXPECT_EQ(tree.Node(2).row, 1);
    EXPECT_EQ(tree.Node(2).tag, "");
    EXPECT_EQ(tree.Node(4).text, "br");
    EXPECT_EQ(tree.Node(4).parent, 1);
    EXPECT_EQ(tree.Node(3).row, 0);
    EXPECT_EQ(tree.Node(4).row, 1);
}

TEST(ReferenceTree, FirstBoldRootIsTheActiveOne) {
    ReferenceTree tree;
    EXPECT_EQ(tree.ActiveRoot(), 0);
    tree.AddRoot("one");
    const int child = tree.AddChild(1, "child");
    const int two = tree.AddRoot("two");
    const int three = tree.AddRoot("three");
    tree.SetBold(child, true);
    EXPECT_EQ(tree.ActiveRoot(), 0);
    tree.SetBold(three, true);
    EXPECT_EQ(tree.ActiveRoot(), three);
    tree.SetBold(two, true);
    EXPECT_EQ(tree.ActiveRoot(), two);
    tree.SetBold(two, false);
    EXPECT_EQ(tree.ActiveRoot(), three);
}

TEST(ReferenceTree, TextsChange) {
    ReferenceTree tree;
    tree.AddRoot("Date/Time");
    tree.AddChild(1, "1");
    tree.SetText(2, "12:00");
    EXPECT_EQ(tree.Node(2).text, "12:00");
}

TEST(ReferenceTree, StartsAnewWhenCleared) {
    ReferenceTree tree;
    tree.AddRoot("one");
    tree.AddChild(1, "child");
    tree.SetBold(1, true);
    tree.Clear();
    EXPECT_EQ(tree.Count(), 0);
    EXPECT_TRUE(tree.Roots().empty());
    EXPECT_EQ(tree.ActiveRoot(), 0);
    EXPECT_EQ(tree.AddRoot("two"), 1);
    EXPECT_EQ(tree.Node(1).row, 0);
    EXPECT_TRUE(tree.Node(1).children.empty());
}

TEST(ReferenceTree, RefusesIndexesThatAreNoneOfIts) {
    ReferenceTree tree;
    tree.AddRoot("one");
    for (const int index : {0, -1, 2, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        EXPECT_THROW((void)tree.Node(index), std::out_of_range) << index;
        EXPECT_THROW(tree.AddChild(index, "x"), std::out_of_range) << index;
        EXPECT_THROW(tree.SetText(index, "x"), std::out_of_range) << index;
        EXPECT_THROW(tree.SetBold(index, true), std::out_of_range) << index;
    }
    EXPECT_EQ(tree.Count(), 1);
    EXPECT_EQ(tree.Node(1).text, "one");
}

}  // namespace
}  // namespace vellum::test
