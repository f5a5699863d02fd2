#include "files/line_ends.h"

#include <gtest/gtest.h>
#include <random>

namespace vellum {
namespace {

TEST(LineEnds, ComeBackAsTheyWere) {
    std::mt19937 random(7);
    for (int round = 0; round < 500; ++round) {
        QString spelled;
        for (int left = static_cast<int>(random() % 12); left > 0; --left) {
            spelled += QStringList{"\r\n", "\n", "\r", "a", "bc"}.at(static_cast<qsizetype>(random() % 5));
        }
        for (const LineEnd usual : {LineEnd::CrLf, LineEnd::Lf, LineEnd::Cr}) {
            QString text = spelled;
            const std::vector<OtherLineEnd> others = UnifyLineEnds(text, usual);
            EXPECT_FALSE(text.contains(u'\r'));
            EXPECT_EQ(SpellLineEnds(text, usual, others), spelled);
            const LineEndCounts found = CountLineEnds(spelled);
            const LineEndCounts told = CountLineEnds(text, usual, others);
            EXPECT_EQ(told.crLf, found.crLf);
            EXPECT_EQ(told.lf, found.lf);
            EXPECT_EQ(told.cr, found.cr);
        }
    }
}

TEST(LineEnds, PreferCrLfThenLf) {
    EXPECT_EQ(CountLineEnds(u"a\nb\rc\r\n").MostFrequent(), LineEnd::CrLf);
    EXPECT_EQ(CountLineEnds(u"a\rb\n").MostFrequent(), LineEnd::Lf);
    EXPECT_EQ(CountLineEnds(u"a\rb\r\n\r").MostFrequent(), LineEnd::Cr);
    EXPECT_FALSE(CountLineEnds(u"a\rb\r").Mixed());
    EXPECT_TRUE(CountLineEnds(u"a\rb\n").Mixed());
}

}  // namespace
}  // namespace vellum
