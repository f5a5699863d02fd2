// Where things stand in the main window and in a document window: plain arithmetic in twips.
//
// The sizes of a window are those inside the frame that the desktop or the multi-document area draws around it.
#pragma once

#include <vector>

namespace vellum {

struct TwipRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool operator==(const TwipRect&) const = default;
};

// The split handle of a document window. `value` runs from 0 to `maximum`, both in twips.
struct SplitSlider {
    bool horizontal = true;
    TwipRect place;
    int maximum = 0;
    int value = 0;
    int tickFrequency = 0;
    int largeChange = 0;
    int smallChange = 0;

    bool operator==(const SplitSlider&) const = default;
};

// A document window with a preview. The bar holds the preview commands and the AutoPreview box.
struct PaneLayout {
    SplitSlider slider;
    TwipRect text;
    TwipRect browser;
    int barLeft = 0;
    int barTop = 0;
    int rightMargin = 0;

    bool operator==(const PaneLayout&) const = default;
};

struct WindowSize {
    int width = 0;  // of the window that is laid out
    int height = 0;
    int activeWidth = 0;  // of the active document window, which may be another one
    int activeHeight = 0;
};

// The right margin in twips; noWrapMargin where nothing is to wrap.
[[nodiscard]] int RightMarginFor(bool wordWrap, int textWidth);

// Each takes the layout that stands and gives the one for `size`; where the window is too small for a step, that step's
// part of the layout stays. The slider keeps its proportion.
[[nodiscard]] PaneLayout LayOutSideBySide(PaneLayout layout, const WindowSize& size, bool wordWrap);
[[nodiscard]] PaneLayout LayOutStacked(PaneLayout layout, const WindowSize& size, bool wordWrap);

// The panes follow the slider that now stands at `value`.
[[nodiscard]] PaneLayout FollowSlider(PaneLayout layout, int value, const WindowSize& size, bool wordWrap);

// The editor of a document window without preview.
[[nodiscard]] TwipRect PlainTextRect(int width, int height);

// The main window.
struct MainLayout {
    int tabStripWidth = 0;
    int ruleWidth = 0;
    int panelHeight = 0;
    int dragBarWidth = 0;
    int directoryWidth = 0;  // of Drive1 and Dir1
    int fileLeft = 0;
    int fileWidth = 0;
    int treeLeft = 0;
    int treeWidth = 0;

    bool operator==(const MainLayout&) const = default;
};

// `directoryLeft` is where Drive1 and Dir1 stand.
[[nodiscard]] MainLayout LayOutMain(MainLayout layout, int windowWidth, int windowHeight, bool panelVisible,
                                    int directoryLeft);

// Of a window: the least that it can be, and the height of what the desktop draws above it.
struct WindowLimits {
    int leastWidth = 0;
    int leastHeight = 0;
    int titleBar = 0;
};

// A window that is restored to `place`. It stays where it is seen as a whole, on one of the screens (the rooms that
// windows have on them) or over several; else it goes to the screen that shows most of it, the first one when none
// does, and is no larger than that with its title bar. In no case is it smaller than its least size.
[[nodiscard]] TwipRect PlaceOnScreens(TwipRect place, const std::vector<TwipRect>& screens, const WindowLimits& limits);

// The website panel as it is restored on a screen of that height.
[[nodiscard]] int RestoredPanelHeight(int stored, int screenHeight);

[[nodiscard]] int StatusBarTop(int panelTop, int panelHeight);

enum class DragPhase { Moving, Released };

// The height of the website panel when its drag bar is held at `pointerY`, measured from the bar's top.
[[nodiscard]] int DraggedPanelHeight(int pointerY, int panelHeight, int windowHeight, int barHeight, DragPhase phase);

}  // namespace vellum
