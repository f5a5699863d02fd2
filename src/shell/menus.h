// The main window's menus as one table.
#pragma once

#include "shell/commands.h"

#include <span>

class QMenuBar;

namespace vellum {

enum class ItemTrait {
    None,
    Unchecked,  // has a check mark, which is off at first
    Checked,
    EditorsKey,  // the shortcut is the editor's own: the item shows it and leaves the key alone
};

struct MenuEntry {
    int depth;            // 0: a menu of the bar; 1: an item of it; 2: an item of the submenu before it
    const char* name;     // the item's object name; a member of an array has its index, as in "mnuRecents(0)"
    const char* caption;  // "-" is a separator
    Command command{};    // of a menu, only whether it is off counts
    const char* shortcut = "";
    ItemTrait trait = ItemTrait::None;
};

[[nodiscard]] std::span<const MenuEntry> MenuTable();

void BuildMenuBar(QMenuBar& bar, MDIform1& window);

}  // namespace vellum
