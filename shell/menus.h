// The main window's menus as one table.
#pragma once

#include <span>

class QMenuBar;

namespace vellum {

class MDIform1;

struct MenuEntry {
    int depth;            // 0: a menu of the bar; 1: an item of it; 2: an item of the submenu before it
    const char* name;     // the item's object name; a member of an array has its index, as in "mnuRecents(0)"
    const char* caption;  // "-" is a separator
    void (MDIform1::*run)(int index);  // null for menus and separators
    int index = 0;
    const char* shortcut = "";
    bool checkable = false;
    bool checked = false;
    bool editorsKey = false;  // the shortcut is the editor's own: the item shows it and leaves the key alone
};

[[nodiscard]] std::span<const MenuEntry> MenuTable();

void BuildMenuBar(QMenuBar& bar, MDIform1& window);

}  // namespace vellum
