#include "editor/tag_completion.h"

#include "editor/reference_tree.h"
#include "tests/editor/editor_fixture.h"

namespace vellum {
namespace {

constexpr CompletionRules both{.lowerCase = true, .closeEmpty = true};

class CompletedTagTest : public testing::Test {
protected:
    void SetUp() override { test::FillReferences(references); }
    ReferenceTree references;
};

TEST_F(CompletedTagTest, LowersNamesButNoQuotedValues) {
    EXPECT_EQ(CompletedTag("<A HREF=\"Big.HTML\">", both, references), "<a href=\"Big.HTML\">");
    EXPECT_EQ(CompletedTag("</TABLE>", both, references), "</table>");
    EXPECT_EQ(CompletedTag("<A HREF=\"Big.HTML\">", {.closeEmpty = true}, references), "<A HREF=\"Big.HTML\">");
}

TEST_F(CompletedTagTest, LeavesCommentsBlocksAndTheDocumentTypeAlone) {
    EXPECT_EQ(CompletedTag("<!-- A -->", both, references), "<!-- A -->");
    EXPECT_EQ(CompletedTag("<% X = 1 %>", both, references), "<% X = 1 %>");
    EXPECT_EQ(CompletedTag("<!DOCTYPE HTML>", both, references), "<!DOCTYPE HTML>");
    EXPECT_EQ(CompletedTag("<!Doctype HTML>", both, references), "<!doctype html>");
}

TEST_F(CompletedTagTest, LowersOnlyWhileTheFirstDocumentTypeIsTheActiveOne) {
    references.SetBold(1, false);
    references.SetBold(references.Roots().at(1), true);
    EXPECT_EQ(CompletedTag("<PAR>", both, references), "<PAR>");
    EXPECT_EQ(CompletedTag("<PAR>", both, ReferenceTree()), "<PAR>");
}

TEST_F(CompletedTagTest, ClosesEmptyElements) {
    EXPECT_EQ(CompletedTag("<br>", both, references), "<br />");
    EXPECT_EQ(CompletedTag("<BR>", both, references), "<br />");
    EXPECT_EQ(CompletedTag("<BR>", {.closeEmpty = true}, references), "<BR />");
    EXPECT_EQ(CompletedTag("<br >", both, references), "<br />");
    EXPECT_EQ(CompletedTag("<br/>", both, references), "<br/>");
    EXPECT_EQ(CompletedTag("<img src=\"x\">", both, references), "<img src=\"x\" />");
    EXPECT_EQ(CompletedTag("<img\tsrc=\"x\">", both, references), "<img\tsrc=\"x\" />");
    EXPECT_EQ(CompletedTag("<img\r\nsrc=\"x\">", both, references), "<img\r\nsrc=\"x\" />");
    EXPECT_EQ(CompletedTag("<br>", {.lowerCase = true}, references), "<br>");
}

TEST_F(CompletedTagTest, LeavesOtherElementsOpen) {
    for (const char* tag : {"<a>", "</br>", "<table>", "<b>", "< br>", "<>", "<html>", "<par>", "<empty>"}) {
        EXPECT_EQ(CompletedTag(tag, both, references), tag) << tag;
    }
}

TEST_F(CompletedTagTest, GoesByTheWholeName) {
    const int root = references.AddRoot(NodeKind::DocumentType, "Type");
    references.AddElement(root, "!DOCTYPE page PUBLIC", true);
    references.AddElement(root, "", true);
    references.AddElement(root, "Box", true);
    references.SetBold(1, false);
    references.SetBold(root, true);
    for (const char* tag : {"<page>", "< br>", "<Box>"}) EXPECT_EQ(CompletedTag(tag, both, references), tag);
}

TEST_F(CompletedTagTest, ClosesNothingWithoutAnActiveDocumentType) {
    references.SetBold(1, false);
    EXPECT_EQ(CompletedTag("<br>", both, references), "<br>");
    EXPECT_EQ(CompletedTag("<br>", both, ReferenceTree()), "<br>");
}

}  // namespace
}  // namespace vellum
