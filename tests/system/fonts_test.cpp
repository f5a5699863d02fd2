#include "system/fonts.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

TEST(Fonts, NamesAreGivenOnceEach) {
    const QStringList names = SystemFontNames();
    EXPECT_EQ(QStringList(names).removeDuplicates(), 0);
    EXPECT_FALSE(names.contains(QString()));
}

TEST(Fonts, PointSizeIsReadFromDecimalText) {
    EXPECT_EQ(PointSize("8.5", 8.5), 8.5);
    EXPECT_EQ(PointSize("12", 8.5), 12);
    EXPECT_EQ(PointSize("12pt", 8.5), 12);
    EXPECT_EQ(PointSize(" 10 ", 8.5), 10);
}

TEST(Fonts, PointSizeFallsBackForWhatIsNotAboveZero) {
    for (const char* text : {"", "0", "-3", "big", ","}) {
        EXPECT_EQ(PointSize(text, 8.5), 8.5) << text;
        EXPECT_EQ(PointSize(text, 12), 12) << text;
    }
}

TEST(Fonts, PointSizeStaysWithinReason) {
    EXPECT_EQ(PointSize("1e30", 8.5), 1000);
}

}  // namespace
}  // namespace vellum
