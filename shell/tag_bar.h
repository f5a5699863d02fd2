// The tag bar: nine tabs, each with a popup of tags and tools, as one table.
#pragma once

#include "shell/command.h"

#include <span>

class QMenu;

namespace vellum {

class TabStrip;

struct TagBarItem {
    const char* caption = nullptr;  // null ends a popup; "&&" shows as "&"
    Command command{};
};

struct TagBarPopup {
    const char* name;  // of the popup's menu; its items are called after it, as in "popFontItem(0)"
    const char* tab;
    TagBarItem items[10];
};

[[nodiscard]] std::span<const TagBarPopup> TagBarTable();

// Adds the tabs to an empty strip, and to the window the popups that they open. A popup shows at the pointer, or below
// its tab when the pointer is elsewhere, and isn't waited for.
void BuildTagBar(TabStrip& strip, MDIform1& window);

}  // namespace vellum
