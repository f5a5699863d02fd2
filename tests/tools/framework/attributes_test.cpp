#include "tools/framework/attributes.h"

#include "tools/framework/values.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

TEST(Attributes, HaveABlankInFrontAndQuotes) {
    EXPECT_EQ(Attribute(QLatin1String("href"), "a b.htm"), " href=\"a b.htm\"");
    EXPECT_EQ(Attribute(QLatin1String("href"), ""), " href=\"\"");
}

TEST(Attributes, OfEmptyFieldsAreLeftOut) {
    EXPECT_EQ(AttributeIfAny(QLatin1String("title"), "x"), " title=\"x\"");
    EXPECT_EQ(AttributeIfAny(QLatin1String("title"), " "), " title=\" \"");
    EXPECT_EQ(AttributeIfAny(QLatin1String("title"), ""), "");
}

TEST(Attributes, TakeTheTextOfAFieldAsItStands) {
    EXPECT_EQ(Attribute(QLatin1String("alt"), "\"<&>"), " alt=\"\"<&>\"");
}

TEST(NumbersOf, RunInSteps) {
    EXPECT_EQ(Numbers(1, 3).join(' '), "1 2 3");
    EXPECT_EQ(Numbers(10, 30, 10, "%").join(' '), "10% 20% 30%");
}

}  // namespace
}  // namespace vellum
