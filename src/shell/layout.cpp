#include "shell/layout.h"

#include "surface/edit_surface.h"
#include "values/number_rules.h"

#include <algorithm>
#include <cstdint>

namespace vellum {
namespace {

// Room between the editor and the preview.
constexpr int paneGap = 190;

int Rounded(double value) {
    return static_cast<int>(RoundHalfEven(value));
}

// Gives the slider its new range and keeps the proportion that it stood at. Returns that proportion, or nothing when
// there was no range to take it from.
std::optional<double> Rescale(SplitSlider& slider, int maximum) {
    const int oldMaximum = slider.maximum;
    const int oldValue = slider.value;
    slider.maximum = maximum;
    slider.tickFrequency = Rounded(maximum / 8.0);
    if (oldMaximum == 0) return std::nullopt;
    const double ratio = static_cast<double>(oldValue) / oldMaximum;
    slider.value = Rounded(maximum * ratio);
    slider.largeChange = Rounded(maximum / 32.0);
    slider.smallChange = Rounded(maximum / 64.0);
    return ratio;
}

// What two places have in common, in square twips.
std::int64_t Overlap(const TwipRect& one, const TwipRect& other) {
    const std::int64_t width =
        std::min(one.left + one.width, other.left + other.width) - std::max(one.left, other.left);
    const std::int64_t height = std::min(one.top + one.height, other.top + other.height) - std::max(one.top, other.top);
    return width > 0 && height > 0 ? width * height : 0;
}

// The start nearest to `start` that keeps `length` between two ends; the first end where it is too long.
int StartWithin(int first, int room, int start, int length) {
    return std::max(std::min(start, first + room - length), first);
}

void PlaceBrowserBeside(PaneLayout& layout, int windowWidth) {
    layout.browser.left = layout.text.width + paneGap;
    layout.browser.width = windowWidth - layout.text.width - 280;
    layout.barLeft = layout.text.width;
}

void PlaceBrowserBelow(PaneLayout& layout, int windowHeight) {
    layout.browser.top = layout.text.height + paneGap;
    layout.browser.height = windowHeight - layout.text.height - 590;
    layout.barTop = layout.text.top + layout.text.height;
}

}  // namespace

int RightMarginFor(bool wordWrap, int textWidth) {
    return wordWrap && textWidth >= 600 ? textWidth - 500 : noWrapMargin;
}

PaneLayout LayOutSideBySide(PaneLayout layout, const WindowSize& size, bool wordWrap) {
    const int maximum = size.activeWidth - 80;
    layout.slider.horizontal = true;
    layout.slider.place = {0, 0, maximum, 300};
    const std::optional<double> ratio = Rescale(layout.slider, maximum);
    if (!ratio) return layout;

    layout.text.top = 300;
    layout.text.left = 0;
    layout.text.width = Rounded(maximum * *ratio);
    layout.browser.top = 300;
    PlaceBrowserBeside(layout, size.width);
    if (size.activeHeight >= 800) {
        layout.text.height = size.activeHeight - 705;
        layout.browser.height = size.activeHeight - 675;
    }
    layout.rightMargin = RightMarginFor(wordWrap, layout.text.width);
    if (size.activeHeight >= 750) layout.browser.height = size.activeHeight - 700;
    layout.barTop = size.height - 400;
    return layout;
}

PaneLayout LayOutStacked(PaneLayout layout, const WindowSize& size, bool wordWrap) {
    if (size.height < 550) return layout;
    const int maximum = size.height - 500;
    layout.slider.horizontal = false;
    layout.slider.place = {0, 0, 300, maximum};
    const std::optional<double> ratio = Rescale(layout.slider, maximum);
    if (!ratio) return layout;

    layout.text.left = 300;
    layout.text.top = 0;
    layout.text.height = Rounded(maximum * *ratio);
    layout.browser.left = 300;
    layout.browser.width = size.width - 100;
    PlaceBrowserBelow(layout, size.height);
    if (size.activeHeight >= 700) {
        layout.text.width = size.width - 700;
        layout.browser.width = size.width - 700;
    }
    layout.barLeft = layout.text.left;
    layout.rightMargin = RightMarginFor(wordWrap, layout.text.width);
    return layout;
}

PaneLayout FollowSlider(PaneLayout layout, int value, const WindowSize& size, bool wordWrap) {
    layout.slider.value = value;
    if (layout.slider.horizontal) {
        layout.text.width = value;
        PlaceBrowserBeside(layout, size.width);
    } else {
        layout.text.height = value;
        PlaceBrowserBelow(layout, size.height);
    }
    layout.rightMargin = RightMarginFor(wordWrap, layout.text.width);
    return layout;
}

TwipRect PlainTextRect(int width, int height) {
    return {0, 0, width - 190, height - 450};
}

MainLayout LayOutMain(MainLayout layout, int windowWidth, int windowHeight, bool panelVisible, int directoryLeft) {
    layout.tabStripWidth = windowWidth - 260;
    layout.ruleWidth = windowWidth;
    if (layout.treeLeft + 100 < windowWidth) layout.treeWidth = windowWidth - layout.treeLeft - 100;
    if (panelVisible && windowHeight - 3000 < layout.panelHeight) {
        layout.panelHeight = std::max(windowHeight - 3000, 100);
        return layout;
    }
    layout.directoryWidth = 2700;
    layout.dragBarWidth = windowWidth - 45;
    layout.fileLeft = directoryLeft + layout.directoryWidth + 45;
    layout.fileWidth = 2300;
    layout.treeLeft = layout.fileLeft + layout.fileWidth + 45;
    layout.treeWidth = windowWidth - layout.treeLeft - 300;
    return layout;
}

TwipRect PlaceOnScreens(TwipRect place, const std::vector<TwipRect>& screens, const WindowLimits& limits) {
    place.width = std::max(place.width, limits.leastWidth);
    place.height = std::max(place.height, limits.leastHeight);
    if (screens.empty()) return place;
    TwipRect screen = screens.front();
    std::int64_t seen = 0;
    for (const TwipRect& candidate : screens) {
        const std::int64_t shown = Overlap(place, candidate);
        if (shown > Overlap(place, screen)) screen = candidate;
        seen += shown;
    }
    if (seen == std::int64_t{place.width} * place.height) return place;
    screen.top += limits.titleBar;
    screen.height -= limits.titleBar;
    place.width = std::max(std::min(place.width, screen.width), limits.leastWidth);
    place.height = std::max(std::min(place.height, screen.height), limits.leastHeight);
    place.left = StartWithin(screen.left, screen.width, place.left, place.width);
    place.top = StartWithin(screen.top, screen.height, place.top, place.height);
    return place;
}

int RestoredPanelHeight(int stored, int screenHeight) {
    return std::max(std::min(stored, screenHeight - 3000), 100);
}

int StatusBarTop(int panelTop, int panelHeight) {
    return panelTop + panelHeight + 15;
}

int DraggedPanelHeight(int pointerY, int panelHeight, int windowHeight, int barHeight, DragPhase phase) {
    if (pointerY > panelHeight) return 100;
    if (windowHeight - 3000 < panelHeight - pointerY) return windowHeight - 3000;
    return panelHeight - pointerY + (phase == DragPhase::Moving ? barHeight : barHeight / 2);
}

}  // namespace vellum
