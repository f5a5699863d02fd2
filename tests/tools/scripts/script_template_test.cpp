#include "tools/scripts/script_template.h"

#include <gtest/gtest.h>

namespace vellum::test {
namespace {

TEST(FillScriptBy, ValuesInThePlaceOfTheirNames) {
    EXPECT_EQ(FillScript("a%X%b%Y%\nc%X%", {{"X", "1"}, {"Y", ""}}), "a1b\r\nc1");
    EXPECT_EQ(FillScript("plain\n"), "plain\r\n");
    EXPECT_EQ(FillScript(""), "");
}

TEST(FillScriptBy, ValuesAsTheyStand) {
    EXPECT_EQ(FillScript("<%X%>%Y%", {{"X", "%Y%\n&\""}, {"Y", "%X%"}}), "<%Y%\n&\">%X%");
}

TEST(FillScriptBy, HeadAndTail) {
    EXPECT_EQ(FillScript("%HEAD%\nx\n%TAIL%"),
              "<script language=\"Javascript\">\r\n<!--\r\n// <![CDATA[\r\n"
              "x\r\n"
              "\r\n// ]]>\r\n// -->\r\n</script>");
}

}  // namespace
}  // namespace vellum::test
