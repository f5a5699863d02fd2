#include "shell/mdi_arrange.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

TEST(Tiles, StandBelowOneAnotherWithoutGaps) {
    const QList<QRect> tiles = TileRects({0, 0, 700, 100}, 3, Arrangement::TileHorizontally);
    EXPECT_EQ(tiles, (QList<QRect>{{0, 0, 700, 33}, {0, 33, 700, 33}, {0, 66, 700, 34}}));
}

TEST(Tiles, StandSideBySideWithoutGaps) {
    const QList<QRect> tiles = TileRects({0, 0, 100, 50}, 3, Arrangement::TileVertically);
    EXPECT_EQ(tiles, (QList<QRect>{{0, 0, 33, 50}, {33, 0, 33, 50}, {66, 0, 34, 50}}));
}

TEST(Tiles, AreNoneForNoWindow) {
    EXPECT_TRUE(TileRects({0, 0, 100, 50}, 0, Arrangement::TileVertically).isEmpty());
}

}  // namespace
}  // namespace vellum
