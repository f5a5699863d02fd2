#include "surface/surface_search.h"

#include "tests/surface/surface_fixture.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

using SurfaceSearchTest = test::SurfaceFixture;

TEST_F(SurfaceSearchTest, FindsWithoutRegardToCase) {
    surface.SetText("one\r\nTWO one\r\ntwo");
    EXPECT_EQ(surface.Find("two", 0), 5);
    EXPECT_EQ(surface.SelText(), "TWO");
    EXPECT_EQ(surface.Find("two", 6), 14);
    EXPECT_EQ(surface.Find("two", 15), -1);
    EXPECT_EQ(surface.SelStart(), 14);  // a failure leaves the selection
    EXPECT_EQ(surface.Find("two", 0, Qt::CaseSensitive), 14);
    EXPECT_EQ(surface.Find("", 0), -1);
    EXPECT_EQ(surface.Find("one", 99), -1);
    EXPECT_EQ(surface.Find("one", -5), 0);
}

TEST_F(SurfaceSearchTest, FindsOverLineEnds) {
    surface.SetText("a\r\nb\r\na\r\nB\r\nc");
    EXPECT_EQ(surface.Find("\r\n", 0), 1);
    EXPECT_EQ(surface.SelText(), "\r\n");
    EXPECT_EQ(surface.Find("\r\n", 2), 4);  // between CR and LF: that line end is passed by
    EXPECT_EQ(surface.Find("b\r\nc", 0), 9);
    EXPECT_EQ(surface.SelText(), "B\r\nc");
    EXPECT_EQ(surface.Find("A\r\nb\r\nC", 0), 6);
    EXPECT_EQ(surface.Find("A\r\nb\r\nC", 7), -1);
    surface.SetText("\r\n\r\n\t");
    EXPECT_EQ(surface.Find("\r\n\t", 0), 2);
    EXPECT_EQ(surface.Find("\r\n\r\n", 0), 0);
    EXPECT_EQ(surface.SelLength(), 4);
}

}  // namespace
}  // namespace vellum
