#include "values/text_difference.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

TEST(TextDifferences, LieBetweenWhatBothEndsHaveInCommon) {
    const TextDifference found = DifferenceBetween(u"one two three", u"one 2 or 3 three");
    EXPECT_EQ(found.earlier, (TextRange{4, 3}));
    EXPECT_EQ(found.later, (TextRange{4, 6}));
}

TEST(TextDifferences, AreEmptyForTheSameText) {
    EXPECT_EQ(DifferenceBetween(u"same", u"same").earlier, (TextRange{4, 0}));
    EXPECT_EQ(DifferenceBetween(u"same", u"same").later, (TextRange{4, 0}));
    EXPECT_EQ(DifferenceBetween(u"", u"").later, (TextRange{0, 0}));
}

TEST(TextDifferences, NoCharacterCountsAtBothEnds) {
    const TextDifference shorter = DifferenceBetween(u"aaa", u"aa");
    EXPECT_EQ(shorter.earlier, (TextRange{2, 1}));
    EXPECT_EQ(shorter.later, (TextRange{2, 0}));
    const TextDifference longer = DifferenceBetween(u"ab", u"abab");
    EXPECT_EQ(longer.earlier, (TextRange{2, 0}));
    EXPECT_EQ(longer.later, (TextRange{2, 2}));
}

TEST(TextDifferences, TellWhereAnOffsetWent) {
    const TextDifference found = DifferenceBetween(u"one two three", u"one 2 or 3 three");
    EXPECT_EQ(found.Moved(3), 3);
    EXPECT_EQ(found.Moved(4), 4);
    EXPECT_EQ(found.Moved(6), 4) << "what stood there has gone";
    EXPECT_EQ(found.Moved(7), 10);
    EXPECT_EQ(found.Moved(13), 16);
}

}  // namespace
}  // namespace vellum
