#include "tools/framework/attributes.h"

#include "tools/framework/values.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

TEST(Attributes, HaveABlankInFrontAndQuotes) {
    EXPECT_EQ(Attribute("href", "a b.htm"), " href=\"a b.htm\"");
    EXPECT_EQ(Attribute("href", ""), " href=\"\"");
}

TEST(Attributes, OfEmptyFieldsAreLeftOut) {
    EXPECT_EQ(AttributeIfAny("title", "x"), " title=\"x\"");
    EXPECT_EQ(AttributeIfAny("title", " "), " title=\" \"");
    EXPECT_EQ(AttributeIfAny("title", ""), "");
}

TEST(Attributes, TakeTheTextOfAFieldAsItStands) {
    EXPECT_EQ(Attribute("alt", "\"<&>"), " alt=\"\"<&>\"");
}

TEST(NumbersOf, RunInSteps) {
    EXPECT_EQ(Numbers(1, 3).join(' '), "1 2 3");
    EXPECT_EQ(Numbers(10, 30, 10, "%").join(' '), "10% 20% 30%");
}

}  // namespace
}  // namespace vellum
