#include "import/text_import.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

TEST(PlainText, HasItsBracketsAndQuotesAsEntities) {
    EXPECT_EQ(ConvertPlainText("a<b"), "a&lt;b");
    EXPECT_EQ(ConvertPlainText("<<>>"), "&lt;&lt;&gt;&gt;");
    EXPECT_EQ(ConvertPlainText("say \"\"yes\"\""), "say &quot;&quot;yes&quot;&quot;");
}

TEST(PlainText, KeepsItsAmpersands) {
    EXPECT_EQ(ConvertPlainText("a&b &lt;"), "a&b &lt;");
}

TEST(PlainText, HasAnEntityForEachPairOfBlanks) {
    EXPECT_EQ(ConvertPlainText("a b"), "a b");
    EXPECT_EQ(ConvertPlainText("a  b"), "a&nbsp;b");
    EXPECT_EQ(ConvertPlainText("a   b"), "a&nbsp; b");
    EXPECT_EQ(ConvertPlainText("a    b"), "a&nbsp;&nbsp;b");
    EXPECT_EQ(ConvertPlainText("a  \"b"), "a&nbsp;&quot;b");
}

TEST(PlainText, BreaksAtEachLineEnd) {
    EXPECT_EQ(ConvertPlainText("a\r\nb\r\n"), "a<br />\r\nb<br />\r\n");
    EXPECT_EQ(ConvertPlainText("a\nb\rc"), "a\nb\rc");
    EXPECT_EQ(ConvertPlainText(""), "");
}

}  // namespace
}  // namespace vellum
