#include "shell/menus.h"

#include "shell/mdiform1.h"
#include "shell/tool_openers.h"

#include <QMenu>
#include <QMenuBar>

namespace vellum {
namespace {

using M = MDIform1;
using enum ItemTrait;

constexpr MenuEntry table[] = {
    {0, "mnuFile", "&File"},
    {1, "mnuNewItem", "&New...", Run(&M::mnuNewItem), "Ctrl+N"},
    {1, "mnuOpenItem", "&Open...", Run(&M::mnuOpenItem), "Ctrl+O"},
    {1, "mnuInternetItem", "Open From Internet...", Later()},
    {1, "mnuRecentFile", "Open &Recent File"},
    {2, "mnuRecents(0)", "", Run(&M::mnuRecents, 0)},
    {2, "mnuRecents(1)", "", Run(&M::mnuRecents, 1)},
    {2, "mnuRecents(2)", "", Run(&M::mnuRecents, 2)},
    {2, "mnuRecents(3)", "", Run(&M::mnuRecents, 3)},
    {1, "mnuClose", "&Close", Run(&M::mnuClose), "Ctrl+W"},
    {1, "mnuCloseAll", "Close All", Run(&M::mnuCloseAll), "Ctrl+Shift+W"},
    {1, "", "-"},
    {1, "mnuImportItem", "&Import"},
    {2, "mnuImport1", "Import Text to New File...", Later()},
    {2, "mnuImport2", "Import Text To Current Document...", Later()},
    {2, "mnuImport3", "Import Table Into Current Document...", Later()},
    {1, "", "-"},
    {1, "mnuSaveItem", "Save &As...", Run(&M::mnuSaveItem), "Ctrl+Shift+S"},
    {1, "mnuSaveregItem", "&Save", Run(&M::mnuSaveregItem), "Ctrl+S"},
    {1, "", "-"},
    {1, "mnuPrintItem", "&Print", Run(&M::mnuPrintItem), "Ctrl+P"},
    {1, "", "-"},
    {1, "mnuFindFileItem", "Find File...", Run(&M::mnuFindFileItem)},
    {1, "mnuFTPItem", "FTP File Transfer...", Later()},
    {1, "mnuPIMItem", "Orrinade PIM...", Later()},
    {1, "", "-"},
    {1, "mnuExitItem", "E&xit", Run(&M::mnuExitItem), "Ctrl+Q"},

    {0, "mnuEdit", "&Edit"},
    {1, "mnuUndoItem", "&Undo", Run(&M::mnuUndoItem), "Ctrl+Z", EditorsKey},
    {1, "mnuRedoItem", "Redo", Run(&M::mnuRedoItem), "Ctrl+R", EditorsKey},
    {1, "", "-"},
    {1, "mnuCutItem", "&Cut", Run(&M::mnuCutItem), "Ctrl+X", EditorsKey},
    {1, "mnuCopyItem", "Cop&y", Run(&M::mnuCopyItem), "Ctrl+C", EditorsKey},
    {1, "mnuItemPaste", "&Paste", Run(&M::mnuItemPaste), "Ctrl+V", EditorsKey},
    {1, "mnuDeleteItem", "&Delete", Run(&M::mnuDeleteItem)},
    {1, "mnuSelectItem", "Select All", Run(&M::mnuSelectItem), "Ctrl+A"},
    {1, "", "-"},
    {1, "mnuFindItem", "&Find...", Later(), "Ctrl+F"},
    {1, "mnuReplaceItem", "&Replace...", Later(), "Ctrl+H"},
    {1, "mnuFileReplaceItem", "&Multi-File Replace...", Later()},
    {1, "", "-"},
    {1, "mnuCaseUpperItem", "UpperCase All Tags", Run(&M::mnuCaseUpperItem)},
    {1, "mnuCaseLowerItem", "LowerCase All Tags", Run(&M::mnuCaseLowerItem)},
    {1, "mnuWrapItem", "Word Wrap", Run(&M::mnuWrapItem), "", Unchecked},
    {1, "mnuLineItem", "Goto Line...", Run(&M::mnuLineItem), "Ctrl+G"},

    {0, "mnuHTMLbasic", "&XHTML"},
    {1, "mnuPItem", "&Paragraph <p></p>", Tags("<p>", "</p>")},
    {1, "mnuBRItem", "&Line Break <br />", Tags("<br />")},
    {1, "mnuHRItem", "Horizontal &Rule <hr />", Tags("<hr />")},
    {1, "", "-"},
    {1, "mnuCenterItem", "&Center <center></center>", Tags("<center>", "</center>")},
    {1, "mnuBitem", "&Bold Text <b></b>", Tags("<b>", "</b>"), "Ctrl+B"},
    {1, "mnuIItem", "&Italized <i></i>", Tags("<i>", "</i>"), "Ctrl+I"},
    {1, "mnuUItem", "&Underline <u></u>", Tags("<u>", "</u>"), "Ctrl+U"},
    {1, "", "-"},
    {1, "mnuHeadingsItem", "&Headings"},
    {2, "mnuHItem(0)", "Heading &1 <h1></h1>", Tags("<h1>", "</h1>")},
    {2, "mnuHItem(1)", "Heading &2 <h2></h2>", Tags("<h2>", "</h2>")},
    {2, "mnuHItem(2)", "Heading &3 <h3></h3>", Tags("<h3>", "</h3>")},
    {2, "mnuHItem(3)", "Heading &4 <h4></h4>", Tags("<h4>", "</h4>")},
    {2, "mnuHItem(4)", "Heading &5 <h5></h5>", Tags("<h5>", "</h5>")},
    {2, "mnuHItem(5)", "Heading &6 <h6></h6>", Tags("<h6>", "</h6>")},
    {1, "mnuListItem", "Lists"},
    {2, "mnuListDirItem", "&Directory List <dir></dir>", Tags("<dir>", "</dir>")},
    {2, "mnuListItemizedItem", "&Itemized List <menu></menu>", Tags("<menu>", "</menu>")},
    {2, "mnuOrderedItem", "&Ordered List <ol></ol>", Tags("<ol>", "</ol>")},
    {2, "mnuUnorderedItem", "&Unordered List <ul></ul>", Tags("<ul>", "</ul>")},
    {2, "mnuListItemItem", "&List Item <li></li>", Tags("<li>", "</li>")},
    {2, "", "-"},
    {2, "mnuListDefItem", "Definition List <dl></dl>", Tags("<dl>", "</dl>")},
    {2, "mnuListDefTermItem", "Defintion List Term <dt></dt>", Tags("<dt>", "</dt>")},
    {2, "mnuListDefDeftem", "Definition List Definition <dd></dd>", Tags("<dd>", "</dd>")},

    {0, "mnuTools", "&Tools"},
    {1, "mnuAM", "A - J"},
    {2, "mnuAnchorItem", "&Anchor...", anchorTool},
    {2, "mnuASPItem", "A&SP...", aspTool},
    {2, "mnuBackgroundSoundItem", "&Background Sound...", soundTool},
    {2, "mnuFloatingFrameItem", "Floating Frame...", floatingFrameTool},
    {2, "mnuFrameBuilderItem", "&Frame Builder...", frameBuilderTool},
    {2, "mnuFontWizardItem", "Font &Wizard...", fontTool},
    {2, "mnuFormWizardItem", "Form Wizard...", formWizardTool},
    {2, "mnuFormInputItem", "Form Input...", formInputTool},
    {2, "mnuHorizontalRuleItem", "&Horizontal Rule...", horizontalRuleTool},
    {2, "mnuImageItem", "&Image, Animation...", imageTool},
    {2, "mnuImageMapItem", "Image Map Builder...", imageMapTool},
    {2, "mnuInlineStyleItem", "Inline Style Sheet...", inlineStyleTool},
    {2, "mnuInTagScriptItem", "In-tag Script...", inTagScriptTool},
    {2, "mnuInTagStyleItem", "In-tag Style...", inTagStyleTool},
    {2, "mnuAppletItem", "&Java Applet...", appletTool},
    {1, "mnuAZ", "L - Z"},
    {2, "mnuListBuilderItem", "&List Builder...", listTool},
    {2, "mnuMarqueeItem", "&Marquee...", marqueeTool},
    {2, "mnuObjectItem", "&Object Tags...", objectTool},
    {2, "mnuParagraphItem", "&Paragraph Builder...", paragraphTool},
    {2, "mnuParameterItem", "Parameters...", parameterTool},
    {2, "mnuQuickstartItem", "&Quickstart...", quickstartTool},
    {2, "mnuScriptTagsItem", "&Script Tags...", scriptTagTool},
    {2, "mnuScriptingToolsItem", "Scripting Tools...", scriptingTool},
    {2, "mnuSearchEnginesItem", "Search Engines...", searchEngineTool},
    {2, "mnuSpecialEffectsItem", "Special Effects...", specialEffectsTool},
    {2, "mnuStyleSheetItem", "Style Sheet...", styleSheetTool},
    {2, "mnuTableItem", "Table Builder...", tableTool},
    {2, "mnuOrbiterItem", "&VRML Orbiter...", orbiterTool},
    {2, "mnuVisualItem", "&Visual VC...", Run(&M::mnuVisualItem)},

    {0, "mnuView", "&View"},
    {1, "mnuViewItem(0)", "&Main Toolbar", Run(&M::mnuViewItem, 0), "", Checked},
    {1, "mnuViewItem(1)", "&Color Bar", Run(&M::mnuViewItem, 1), "", Checked},
    {1, "mnuViewItem(2)", "Custom &Bar", Run(&M::mnuViewItem, 2), "", Checked},
    {1, "mnuViewItem(3)", "&Website Manager", Run(&M::mnuViewItem, 3), "", Checked},
    {1, "", "-"},
    {1, "mnuSettingsItem", "Settin&gs...", Run(&M::mnuSettingsItem)},

    {0, "mnuWindow", "&Window"},
    {1, "mnuWindowItem(0)", "&Cascade Child Forms", Run(&M::mnuWindowItem, 0)},
    {1, "mnuWindowItem(1)", "&Tile Child Forms Horizontally", Run(&M::mnuWindowItem, 1)},
    {1, "mnuWindowItem(2)", "Tile Child Forms &Vertically", Run(&M::mnuWindowItem, 2)},
    {1, "mnuWindowItem(3)", "&Arrange Icons", Run(&M::mnuWindowItem, 3)},

    {0, "mnuMSApps", "&MS Apps"},
    {1, "mnuMSAppsItem(0)", "&Calculator...", Run(&M::mnuMSAppsItem, 0)},
    {1, "mnuMSAppsItem(1)", "Character &Map...", Run(&M::mnuMSAppsItem, 1)},
    {1, "mnuMSAppsItem(2)", "Clipboard &Viewer...", Run(&M::mnuMSAppsItem, 2)},

    {0, "mnuHelp", "Hel&p"},
    {1, "mnuManualItem", "&Online Manual", Run(&M::mnuManualItem), "F1"},
    {1, "mnuTutorialItem", "XHTML Tutorial"},
    {2, "mnuLessonItem(0)", "Lesson 1 (The Structure)", Later()},
    {2, "mnuLessonItem(1)", "Lesson 2 (The Basic Tags)", Later()},
    {2, "mnuLessonItem(2)", "Lesson 3 (Formatting Tags)", Later()},
    {2, "mnuLessonItem(3)", "Lesson 4 (Anchors)", Later()},
    {2, "mnuLessonItem(4)", "Lesson 5 (Images and Sound)", Later()},
    {2, "mnuLessonItem(5)", "Lesson 6 (Tables)", Later()},
    {1, "mnuW3CItem", "W3C &XHTML Reference", Later()},
    {1, "", "-"},
    {1, "mnuBugReportItem", "Send Us a Comment Or Bug Report", Later()},
    {1, "", "-"},
    {1, "mnuDidYouKnow", "&Did you know?", Run(&M::mnuDidYouKnow)},
    {1, "mnuAboutItem", "&About...", Run(&M::mnuAboutItem)},
};

void AddItem(QMenu& menu, const MenuEntry& entry, MDIform1& window) {
    if (QLatin1String(entry.caption) == QLatin1String("-")) {
        menu.addSeparator();
        return;
    }
    QAction* const item = menu.addAction(entry.caption);
    item->setObjectName(entry.name);
    item->setCheckable(entry.trait == Checked || entry.trait == Unchecked);
    item->setChecked(entry.trait == Checked);
    item->setShortcut(QKeySequence(entry.shortcut));
    // Such a key would act for the menu bar alone, when that has the keyboard.
    if (entry.trait == EditorsKey) item->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(item, &QAction::triggered, &window,
                     [&window, command = entry.command] { Execute(command, window); });
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
