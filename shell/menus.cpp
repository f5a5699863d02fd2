#include "shell/menus.h"

#include "shell/mdiform1.h"

#include <QMenu>
#include <QMenuBar>

namespace vellum {
namespace {

using M = MDIform1;

constexpr MenuEntry table[] = {
    {0, "mnuFile", "&File", nullptr},
    {1, "mnuNewItem", "&New...", &M::mnuNewItem, 0, "Ctrl+N"},
    {1, "mnuOpenItem", "&Open...", &M::mnuOpenItem, 0, "Ctrl+O"},
    {1, "mnuRecentFile", "Open &Recent File", nullptr},
    {2, "mnuRecents(0)", "", &M::mnuRecents, 0},
    {2, "mnuRecents(1)", "", &M::mnuRecents, 1},
    {2, "mnuRecents(2)", "", &M::mnuRecents, 2},
    {2, "mnuRecents(3)", "", &M::mnuRecents, 3},
    {1, "mnuClose", "&Close", &M::mnuClose, 0, "Ctrl+W"},
    {1, "mnuCloseAll", "Close All", &M::mnuCloseAll, 0, "Ctrl+Shift+W"},
    {1, "", "-", nullptr},
    {1, "mnuSaveItem", "Save &As...", &M::mnuSaveItem, 0, "Ctrl+Shift+S"},
    {1, "mnuSaveregItem", "&Save", &M::mnuSaveregItem, 0, "Ctrl+S"},
    {1, "", "-", nullptr},
    {1, "mnuPrintItem", "&Print", &M::mnuPrintItem, 0, "Ctrl+P"},
    {1, "", "-", nullptr},
    {1, "mnuExitItem", "E&xit", &M::mnuExitItem, 0, "Ctrl+Q"},

    {0, "mnuEdit", "&Edit", nullptr},
    {1, "mnuUndoItem", "&Undo", &M::mnuUndoItem, 0, "Ctrl+Z", false, false, true},
    {1, "mnuRedoItem", "Redo", &M::mnuRedoItem, 0, "Ctrl+R", false, false, true},
    {1, "", "-", nullptr},
    {1, "mnuCutItem", "&Cut", &M::mnuCutItem, 0, "Ctrl+X", false, false, true},
    {1, "mnuCopyItem", "Cop&y", &M::mnuCopyItem, 0, "Ctrl+C", false, false, true},
    {1, "mnuItemPaste", "&Paste", &M::mnuItemPaste, 0, "Ctrl+V", false, false, true},
    {1, "mnuDeleteItem", "&Delete", &M::mnuDeleteItem},
    {1, "mnuSelectItem", "Select All", &M::mnuSelectItem, 0, "Ctrl+A"},
    {1, "", "-", nullptr},
    {1, "mnuCaseUpperItem", "UpperCase All Tags", &M::mnuCaseUpperItem},
    {1, "mnuCaseLowerItem", "LowerCase All Tags", &M::mnuCaseLowerItem},
    {1, "mnuWrapItem", "Word Wrap", &M::mnuWrapItem, 0, "", true, false},
    {1, "mnuLineItem", "Goto Line...", &M::mnuLineItem},

    {0, "mnuTools", "&Tools", nullptr},
    {1, "mnuAZ", "L - Z", nullptr},
    {2, "mnuVisualItem", "&Visual VC...", &M::mnuVisualItem},

    {0, "mnuView", "&View", nullptr},
    {1, "mnuViewItem(0)", "&Main Toolbar", &M::mnuViewItem, 0, "", true, true},
    {1, "mnuViewItem(1)", "&Color Bar", &M::mnuViewItem, 1, "", true, true},
    {1, "mnuViewItem(2)", "Custom &Bar", &M::mnuViewItem, 2, "", true, true},
    {1, "mnuViewItem(3)", "&Website Manager", &M::mnuViewItem, 3, "", true, true},
    {1, "", "-", nullptr},
    {1, "mnuSettingsItem", "Settin&gs...", &M::mnuSettingsItem},

    {0, "mnuWindow", "&Window", nullptr},
    {1, "mnuWindowItem(0)", "&Cascade Child Forms", &M::mnuWindowItem, 0},
    {1, "mnuWindowItem(1)", "&Tile Child Forms Horizontally", &M::mnuWindowItem, 1},
    {1, "mnuWindowItem(2)", "Tile Child Forms &Vertically", &M::mnuWindowItem, 2},
    {1, "mnuWindowItem(3)", "&Arrange Icons", &M::mnuWindowItem, 3},
};

QAction* AddItem(QMenu& menu, const MenuEntry& entry, MDIform1& window) {
    if (QLatin1String(entry.caption) == QLatin1String("-")) return menu.addSeparator();
    QAction* item = menu.addAction(entry.caption);
    item->setObjectName(entry.name);
    item->setCheckable(entry.checkable);
    item->setChecked(entry.checked);
    item->setShortcut(QKeySequence(entry.shortcut));
    // Such a key would act for the menu bar alone, when that has the keyboard.
    if (entry.editorsKey) item->setShortcutContext(Qt::WidgetShortcut);
    if (entry.run) {
        QObject::connect(item, &QAction::triggered, &window,
                         [&window, run = entry.run, index = entry.index] { (window.*run)(index); });
    }
    return item;
}

}  // namespace

std::span<const MenuEntry> MenuTable() {
    return table;
}

void BuildMenuBar(QMenuBar& bar, MDIform1& window) {
    QMenu* menu = nullptr;
    QMenu* submenu = nullptr;
    const auto entries = MenuTable();
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const MenuEntry& entry = entries[i];
        const bool opensSubmenu = entry.depth == 1 && i + 1 < entries.size() && entries[i + 1].depth == 2;
        if (entry.depth == 0) {
            menu = bar.addMenu(entry.caption);
            menu->menuAction()->setObjectName(entry.name);
            continue;
        }
        if (!menu) continue;
        if (opensSubmenu) {
            submenu = menu->addMenu(entry.caption);
            submenu->menuAction()->setObjectName(entry.name);
        } else {
            AddItem(entry.depth == 2 && submenu ? *submenu : *menu, entry, window);
        }
    }
}

}  // namespace vellum
