#include "shell/layout.h"

#include <gtest/gtest.h>

namespace vellum {
namespace {

PaneLayout Standing(int value, int maximum) {
    PaneLayout layout;
    layout.slider.maximum = maximum;
    layout.slider.value = value;
    return layout;
}

TEST(RightMargin, IsFarAwayUnlessTheTextWrapsAndIsWideEnough) {
    EXPECT_EQ(RightMarginFor(false, 9000), 1000000);
    EXPECT_EQ(RightMarginFor(true, 9000), 8500);
    EXPECT_EQ(RightMarginFor(true, 600), 100);
    EXPECT_EQ(RightMarginFor(true, 599), 1000000);
}

TEST(SideBySide, PlacesSliderEditorAndPreview) {
    const PaneLayout layout = LayOutSideBySide(Standing(50, 100), {12080, 9000, 12080, 9000}, false);
    EXPECT_TRUE(layout.slider.horizontal);
    EXPECT_EQ(layout.slider.place, (TwipRect{0, 0, 12000, 300}));
    EXPECT_EQ(layout.slider.maximum, 12000);
    EXPECT_EQ(layout.slider.value, 6000);
    EXPECT_EQ(layout.slider.tickFrequency, 1500);
    EXPECT_EQ(layout.slider.largeChange, 375);
    EXPECT_EQ(layout.slider.smallChange, 188);  // 187.5, to the even one
    EXPECT_EQ(layout.text, (TwipRect{0, 300, 6000, 9000 - 705}));
    EXPECT_EQ(layout.browser, (TwipRect{6190, 300, 12080 - 6000 - 280, 9000 - 700}));
    EXPECT_EQ(layout.barLeft, 6000);
    EXPECT_EQ(layout.rightMargin, 1000000);
}

TEST(SideBySide, TakesTheActiveWindowsSizeForTheSliderAndTheHeights) {
    const PaneLayout layout = LayOutSideBySide(Standing(1, 4), {5000, 4000, 8080, 6000}, true);
    EXPECT_EQ(layout.slider.maximum, 8000);
    EXPECT_EQ(layout.text.width, 2000);
    EXPECT_EQ(layout.browser.width, 5000 - 2000 - 280);
    EXPECT_EQ(layout.text.height, 6000 - 705);
    EXPECT_EQ(layout.browser.height, 6000 - 700);
    EXPECT_EQ(layout.rightMargin, 1500);
}

TEST(SideBySide, KeepsTheHeightsInAWindowThatIsTooLow) {
    PaneLayout before = Standing(50, 100);
    before.text.height = 1111;
    before.browser.height = 2222;
    const PaneLayout low = LayOutSideBySide(before, {8000, 749, 8000, 749}, false);
    EXPECT_EQ(low.text.height, 1111);
    EXPECT_EQ(low.browser.height, 2222);
    const PaneLayout browserOnly = LayOutSideBySide(before, {8000, 750, 8000, 750}, false);
    EXPECT_EQ(browserOnly.text.height, 1111);
    EXPECT_EQ(browserOnly.browser.height, 50);
    const PaneLayout both = LayOutSideBySide(before, {8000, 800, 8000, 800}, false);
    EXPECT_EQ(both.text.height, 95);
    EXPECT_EQ(both.browser.height, 100);
}

TEST(Stacked, PlacesSliderEditorAndPreview) {
    const PaneLayout layout = LayOutStacked(Standing(1, 2), {12000, 8500, 12000, 8500}, true);
    EXPECT_FALSE(layout.slider.horizontal);
    EXPECT_EQ(layout.slider.place, (TwipRect{0, 0, 300, 8000}));
    EXPECT_EQ(layout.slider.maximum, 8000);
    EXPECT_EQ(layout.slider.value, 4000);
    EXPECT_EQ(layout.slider.tickFrequency, 1000);
    EXPECT_EQ(layout.slider.largeChange, 250);
    EXPECT_EQ(layout.slider.smallChange, 125);
    EXPECT_EQ(layout.text, (TwipRect{300, 0, 12000 - 700, 4000}));
    EXPECT_EQ(layout.browser, (TwipRect{300, 4190, 12000 - 700, 8500 - 4000 - 590}));
    EXPECT_EQ(layout.barTop, 4000);
    EXPECT_EQ(layout.rightMargin, 12000 - 700 - 500);
}

TEST(Stacked, LeavesALowWindowAsItWas) {
    const PaneLayout before = Standing(1, 2);
    EXPECT_EQ(LayOutStacked(before, {12000, 549, 12000, 549}, true), before);
    EXPECT_NE(LayOutStacked(before, {12000, 550, 12000, 550}, true), before);
}

TEST(Stacked, NarrowsThePanesOnlyInAnActiveWindowThatIsHighEnough) {
    PaneLayout before = Standing(1, 2);
    before.text.width = 1234;
    const PaneLayout low = LayOutStacked(before, {9000, 3000, 9000, 699}, false);
    EXPECT_EQ(low.text.width, 1234);
    EXPECT_EQ(low.browser.width, 9000 - 100);
    const PaneLayout high = LayOutStacked(before, {9000, 3000, 9000, 700}, false);
    EXPECT_EQ(high.text.width, 9000 - 700);
    EXPECT_EQ(high.browser.width, 9000 - 700);
}

TEST(Split, KeepsItsProportionWhenTheDirectionIsTurned) {
    const WindowSize size{16080, 10500, 16080, 10500};
    const PaneLayout beside = LayOutSideBySide(Standing(25, 100), size, false);
    ASSERT_EQ(beside.slider.value, 4000);
    const PaneLayout stacked = LayOutStacked(beside, size, false);
    EXPECT_EQ(stacked.slider.maximum, 10000);
    EXPECT_EQ(stacked.slider.value, 2500);
    EXPECT_EQ(LayOutSideBySide(stacked, size, false).slider.value, 4000);
}

TEST(Split, FollowsTheHandle) {
    const WindowSize size{16080, 10500, 16080, 10500};
    const PaneLayout beside = FollowSlider(LayOutSideBySide(Standing(25, 100), size, true), 7000, size, true);
    EXPECT_EQ(beside.text.width, 7000);
    EXPECT_EQ(beside.browser.left, 7190);
    EXPECT_EQ(beside.browser.width, 16080 - 7000 - 280);
    EXPECT_EQ(beside.barLeft, 7000);
    EXPECT_EQ(beside.rightMargin, 6500);
    const PaneLayout stacked = FollowSlider(LayOutStacked(Standing(25, 100), size, true), 6000, size, true);
    EXPECT_EQ(stacked.text.height, 6000);
    EXPECT_EQ(stacked.browser.top, 6190);
    EXPECT_EQ(stacked.browser.height, 10500 - 6000 - 590);
    EXPECT_EQ(stacked.barTop, 6000);
}

TEST(Split, StaysWhereItIsWithoutARange) {
    const PaneLayout layout = LayOutSideBySide(Standing(0, 0), {8000, 8000, 8000, 8000}, false);
    EXPECT_EQ(layout.text, TwipRect{});
    EXPECT_EQ(layout.slider.maximum, 7920);
}

TEST(PlainWindow, LeavesRoomAtTheRightAndBelow) {
    EXPECT_EQ(PlainTextRect(9000, 7000), (TwipRect{0, 0, 8810, 6550}));
}

TEST(MainWindow, SetsTheListsSideBySide) {
    const MainLayout layout = LayOutMain({.panelHeight = 2600}, 19200, 12000, true, 45);
    EXPECT_EQ(layout.tabStripWidth, 19200 - 260);
    EXPECT_EQ(layout.ruleWidth, 19200);
    EXPECT_EQ(layout.panelHeight, 2600);
    EXPECT_EQ(layout.dragBarWidth, 19155);
    EXPECT_EQ(layout.directoryWidth, 2700);
    EXPECT_EQ(layout.fileLeft, 45 + 2700 + 45);
    EXPECT_EQ(layout.fileWidth, 2300);
    EXPECT_EQ(layout.treeLeft, 2790 + 2300 + 45);
    EXPECT_EQ(layout.treeWidth, 19200 - 5135 - 300);
}

TEST(MainWindow, LowersThePanelInALowWindowAndOnlyStretchesTheTree) {
    const MainLayout before{.panelHeight = 2600, .fileLeft = 7, .treeLeft = 5135};
    const MainLayout layout = LayOutMain(before, 19200, 5000, true, 45);
    EXPECT_EQ(layout.panelHeight, 2000);
    EXPECT_EQ(layout.fileLeft, 7);
    EXPECT_EQ(layout.treeWidth, 19200 - 5135 - 100);
    EXPECT_EQ(LayOutMain(before, 19200, 3050, true, 45).panelHeight, 100);
    EXPECT_EQ(LayOutMain(before, 19200, 5000, false, 45).panelHeight, 2600);
}

TEST(MainWindow, LeavesTheTreeOfANarrowWindow) {
    const MainLayout before{.panelHeight = 9000, .treeLeft = 5135, .treeWidth = 4321};
    EXPECT_EQ(LayOutMain(before, 5235, 9000, true, 45).treeWidth, 4321);
    EXPECT_EQ(LayOutMain(before, 5236, 9000, true, 45).treeWidth, 5236 - 5135 - 100);
}

// Two screens side by side, the second one lower.
const std::vector<TwipRect> screens{{0, 0, 19200, 12000}, {19200, 3000, 15000, 9000}};

const WindowLimits limits{3000, 2000, 0};

TEST(RestoredWindow, StaysWhereItIsSeenAsAWhole) {
    for (const TwipRect& place : {TwipRect{450, 600, 11250, 8250}, screens[0], screens[1],
                                  TwipRect{15000, 4000, 12000, 6000}, TwipRect{0, 3000, 34200, 9000}}) {
        EXPECT_EQ(PlaceOnScreens(place, screens, limits), place);
    }
}

TEST(RestoredWindow, IsNoLargerThanItsScreen) {
    EXPECT_EQ(PlaceOnScreens({50, 50, 1'000'000, 1'000'000}, screens, limits), screens[0]);
    EXPECT_EQ(PlaceOnScreens({20000, 4000, 1'000'000, 6000}, screens, limits), (TwipRect{19200, 4000, 15000, 6000}));
    EXPECT_EQ(PlaceOnScreens({50, 50, 600, 1'000'000}, screens, limits), (TwipRect{50, 0, 3000, 12000}));
}

TEST(RestoredWindow, HasItsLeastSize) {
    EXPECT_EQ(PlaceOnScreens({50, 50, 600, 400}, screens, limits), (TwipRect{50, 50, 3000, 2000}));
    EXPECT_EQ(PlaceOnScreens({50, 60, -1'000'000, 0}, screens, limits), (TwipRect{50, 60, 3000, 2000}));
    EXPECT_EQ(PlaceOnScreens({50, 60, 100, 100}, screens, {20000, 2000, 0}), (TwipRect{0, 60, 20000, 2000}))
        << "also where no screen has that room";
}

TEST(RestoredWindow, ComesToTheScreenThatShowsMostOfIt) {
    EXPECT_EQ(PlaceOnScreens({18000, 0, 9000, 4000}, screens, limits), (TwipRect{19200, 3000, 9000, 4000}));
    EXPECT_EQ(PlaceOnScreens({-3000, -2000, 9000, 6000}, screens, limits), (TwipRect{0, 0, 9000, 6000}));
    EXPECT_EQ(PlaceOnScreens({30000, 11000, 9000, 6000}, screens, limits), (TwipRect{25200, 6000, 9000, 6000}));
    EXPECT_EQ(PlaceOnScreens({1'000'000, -1'000'000, 9000, 6000}, screens, limits), (TwipRect{10200, 0, 9000, 6000}))
        << "none shows any of it";
}

TEST(RestoredWindow, ComesWithItsTitleBar) {
    const WindowLimits withBar{3000, 2000, 360};
    EXPECT_EQ(PlaceOnScreens({50, 50, 1'000'000, 1'000'000}, screens, withBar), (TwipRect{0, 360, 19200, 11640}));
    EXPECT_EQ(PlaceOnScreens({50, -5000, 9000, 6000}, screens, withBar), (TwipRect{50, 360, 9000, 6000}));
    EXPECT_EQ(PlaceOnScreens({50, 100, 9000, 6000}, screens, withBar), (TwipRect{50, 100, 9000, 6000}))
        << "one that is seen stays";
}

TEST(RestoredWindow, NeedsNoScreen) {
    EXPECT_EQ(PlaceOnScreens({50, 60, 9000, 100}, {}, limits), (TwipRect{50, 60, 9000, 2000}));
}

TEST(RestoredPanel, LeavesRoomAboveItOnTheScreen) {
    EXPECT_EQ(RestoredPanelHeight(2600, 12000), 2600);
    EXPECT_EQ(RestoredPanelHeight(9001, 12000), 9000);
    EXPECT_EQ(RestoredPanelHeight(1'000'000, 12000), 9000);
    EXPECT_EQ(RestoredPanelHeight(-1'000'000, 12000), 100);
    EXPECT_EQ(RestoredPanelHeight(2600, 2000), 100);
}

TEST(MainWindow, PutsTheStatusBarBelowThePanel) {
    EXPECT_EQ(StatusBarTop(9000, 2600), 11615);
}

TEST(DragBar, ResizesThePanel) {
    EXPECT_EQ(DraggedPanelHeight(2601, 2600, 12000, 90, DragPhase::Moving), 100);
    EXPECT_EQ(DraggedPanelHeight(-7000, 2600, 12000, 90, DragPhase::Moving), 9000);
    EXPECT_EQ(DraggedPanelHeight(-300, 2600, 12000, 90, DragPhase::Moving), 2990);
    EXPECT_EQ(DraggedPanelHeight(-300, 2600, 12000, 90, DragPhase::Released), 2945);
    EXPECT_EQ(DraggedPanelHeight(300, 2600, 12000, 90, DragPhase::Moving), 2390);
}

}  // namespace
}  // namespace vellum
