#include "shell/menus.h"

#include "shell/commands.h"

#include <QMenu>
#include <QMenuBar>

namespace vellum {
namespace {

using namespace commands;

enum class ItemTrait {
    None,
    Unchecked,  // has a check mark, which is off at first
    Checked,
    ForDocuments,  // a menu that is off while no document is open
    EditorsKey,    // the shortcut is the editor's own: the item shows it and leaves the key alone
};

struct MenuEntry {
    int depth;            // 0: a menu of the bar; 1: an item of it; 2: an item of the submenu before it
    const char* name;     // the item's object name; a member of an array has its index, as in "mnuRecents(0)"
    const char* caption;  // "-" is a separator
    Command command{};    // of a menu none
    const char* shortcut = "";
    ItemTrait trait = ItemTrait::None;
};

using enum ItemTrait;

constexpr MenuEntry table[] = {
    {0, "mnuFile", "&File"},
    {1, "mnuNewItem", "&New...", newPage, "Ctrl+N"},
    {1, "mnuOpenItem", "&Open...", openPages, "Ctrl+O"},
    {1, "mnuInternetItem", "Open From Internet...", openFromInternet},
    {1, "mnuRecentFile", "Open &Recent File"},
    {2, "mnuRecents(0)", "", openRecent<0>},
    {2, "mnuRecents(1)", "", openRecent<1>},
    {2, "mnuRecents(2)", "", openRecent<2>},
    {2, "mnuRecents(3)", "", openRecent<3>},
    {1, "mnuClose", "&Close", closePage, "Ctrl+W"},
    {1, "mnuCloseAll", "Close All", closeAllPages, "Ctrl+Shift+W"},
    {1, "", "-"},
    {1, "mnuImportItem", "&Import"},
    {2, "mnuImport1", "Import Text to New File...", importToNewFile},
    {2, "mnuImport2", "Import Text To Current Document...", importToDocument},
    {2, "mnuImport3", "Import Table Into Current Document...", importTable},
    {1, "", "-"},
    {1, "mnuSaveItem", "Save &As...", savePageAs, "Ctrl+Shift+S"},
    {1, "mnuSaveregItem", "&Save", savePage, "Ctrl+S"},
    {1, "", "-"},
    {1, "mnuPrintItem", "&Print", printPage, "Ctrl+P"},
    {1, "", "-"},
    {1, "mnuFindFileItem", "Find File...", findFiles},
    {1, "mnuFTPItem", "FTP File Transfer...", later},
    {1, "mnuPIMItem", "Orrinade PIM...", later},
    {1, "", "-"},
    {1, "mnuExitItem", "E&xit", quit, "Ctrl+Q"},

    {0, "mnuEdit", "&Edit", {}, "", ForDocuments},
    {1, "mnuUndoItem", "&Undo", undo, "Ctrl+Z", EditorsKey},
    {1, "mnuRedoItem", "Redo", redo, "Ctrl+R", EditorsKey},
    {1, "", "-"},
    {1, "mnuCutItem", "&Cut", cut, "Ctrl+X", EditorsKey},
    {1, "mnuCopyItem", "Cop&y", copy, "Ctrl+C", EditorsKey},
    {1, "mnuItemPaste", "&Paste", paste, "Ctrl+V", EditorsKey},
    {1, "mnuDeleteItem", "&Delete", deleteText},
    {1, "mnuSelectItem", "Select All", selectAll, "Ctrl+A"},
    {1, "", "-"},
    {1, "mnuFindItem", "&Find...", later, "Ctrl+F"},
    {1, "mnuReplaceItem", "&Replace...", later, "Ctrl+H"},
    {1, "mnuFileReplaceItem", "&Multi-File Replace...", later},
    {1, "", "-"},
    {1, "mnuCaseUpperItem", "UpperCase All Tags", upperCase},
    {1, "mnuCaseLowerItem", "LowerCase All Tags", lowerCase},
    {1, "mnuWrapItem", "Word Wrap", wrapLines, "", Unchecked},
    {1, "mnuLineItem", "Goto Line...", goToLine, "Ctrl+G"},

    {0, "mnuHTMLbasic", "&XHTML", {}, "", ForDocuments},
    {1, "mnuPItem", "&Paragraph <p></p>", paragraph},
    {1, "mnuBRItem", "&Line Break <br />", lineBreak},
    {1, "mnuHRItem", "Horizontal &Rule <hr />", Tags("<hr />")},
    {1, "", "-"},
    {1, "mnuCenterItem", "&Center <center></center>", center},
    {1, "mnuBitem", "&Bold Text <b></b>", bold, "Ctrl+B"},
    {1, "mnuIItem", "&Italized <i></i>", italic, "Ctrl+I"},
    {1, "mnuUItem", "&Underline <u></u>", underline, "Ctrl+U"},
    {1, "", "-"},
    {1, "mnuHeadingsItem", "&Headings"},
    {2, "mnuHItem(0)", "Heading &1 <h1></h1>", heading1},
    {2, "mnuHItem(1)", "Heading &2 <h2></h2>", heading2},
    {2, "mnuHItem(2)", "Heading &3 <h3></h3>", heading3},
    {2, "mnuHItem(3)", "Heading &4 <h4></h4>", Tags("<h4>", "</h4>")},
    {2, "mnuHItem(4)", "Heading &5 <h5></h5>", Tags("<h5>", "</h5>")},
    {2, "mnuHItem(5)", "Heading &6 <h6></h6>", Tags("<h6>", "</h6>")},
    {1, "mnuListItem", "Lists"},
    {2, "mnuListDirItem", "&Directory List <dir></dir>", directoryList},
    {2, "mnuListItemizedItem", "&Itemized List <menu></menu>", menuList},
    {2, "mnuOrderedItem", "&Ordered List <ol></ol>", orderedList},
    {2, "mnuUnorderedItem", "&Unordered List <ul></ul>", unorderedList},
    {2, "mnuListItemItem", "&List Item <li></li>", listItem},
    {2, "", "-"},
    {2, "mnuListDefItem", "Definition List <dl></dl>", definitionList},
    {2, "mnuListDefTermItem", "Defintion List Term <dt></dt>", Tags("<dt>", "</dt>")},
    {2, "mnuListDefDeftem", "Definition List Definition <dd></dd>", Tags("<dd>", "</dd>")},

    {0, "mnuTools", "&Tools", {}, "", ForDocuments},
    {1, "mnuAM", "A - J"},
    {2, "mnuAnchorItem", "&Anchor...", anchor},
    {2, "mnuASPItem", "A&SP...", asp},
    {2, "mnuBackgroundSoundItem", "&Background Sound...", sound},
    {2, "mnuFloatingFrameItem", "Floating Frame...", floatingFrame},
    {2, "mnuFrameBuilderItem", "&Frame Builder...", frameBuilder},
    {2, "mnuFontWizardItem", "Font &Wizard...", font},
    {2, "mnuFormWizardItem", "Form Wizard...", formWizard},
    {2, "mnuFormInputItem", "Form Input...", formInput},
    {2, "mnuHorizontalRuleItem", "&Horizontal Rule...", horizontalRule},
    {2, "mnuImageItem", "&Image, Animation...", image},
    {2, "mnuImageMapItem", "Image Map Builder...", imageMap},
    {2, "mnuInlineItem", "Inline Style Sheet...", inlineStyle},
    {2, "mnuInTagScriptItem", "In-tag Script...", inTagScript},
    {2, "inStyleItem", "In-tag Style...", inTagStyle},
    {2, "mnuAppletItem", "&Java Applet...", applet},
    {1, "mnuAZ", "L - Z"},
    {2, "mnuListBuilderItem", "&List Builder...", listBuilder},
    {2, "mnuMarqueeItem", "&Marquee...", marquee},
    {2, "mnuObjectItem", "&Object Tags...", object},
    {2, "mnuParagraphItem", "&Paragraph Builder...", paragraphBuilder},
    {2, "mnuParameterItem", "Parameters...", parameters},
    {2, "mnuQuickstartItem", "&Quickstart...", quickstart},
    {2, "mnuScriptTagsItem", "&Script Tags...", scriptTags},
    {2, "mnuScriptingToolsItem", "Scripting Tools...", scriptingTools},
    {2, "mnuSearchEnginesItem", "Search Engines...", searchEngines},
    {2, "mnuSpecialEffectsItem", "Special Effects...", specialEffects},
    {2, "mnuStyleItem", "Style Sheet...", styleSheet},
    {2, "mnuTableItem", "Table Builder...", tableBuilder},
    {2, "mnuOrbiterItem", "&VRML Orbiter...", orbiter},
    {2, "mnuVisualItem", "&Visual VC...", visualEditor},

    {0, "mnuView", "&View"},
    {1, "mnuViewItem(0)", "&Main Toolbar", showRegion<0>, "", Checked},
    {1, "mnuViewItem(1)", "&Color Bar", showRegion<1>, "", Checked},
    {1, "mnuViewItem(2)", "Custom &Bar", showRegion<2>, "", Checked},
    {1, "mnuViewItem(3)", "&Website Manager", showRegion<3>, "", Checked},
    {1, "", "-"},
    {1, "mnuSettingsItem", "Settin&gs...", settings},

    {0, "mnuWindow", "&Window"},
    {1, "mnuWindowItem(0)", "&Cascade Child Forms", arrange<Arrangement::Cascade>},
    {1, "mnuWindowItem(1)", "&Tile Child Forms Horizontally", arrange<Arrangement::TileHorizontally>},
    {1, "mnuWindowItem(2)", "Tile Child Forms &Vertically", arrange<Arrangement::TileVertically>},
    {1, "mnuWindowItem(3)", "&Arrange Icons", arrange<Arrangement::ArrangeIcons>},

    {0, "mnuMSApps", "&MS Apps"},
    {1, "mnuMSAppsItem(0)", "&Calculator...", calculator},
    {1, "mnuMSAppsItem(1)", "Character &Map...", characterMap},
    {1, "mnuMSAppsItem(2)", "Clipboard &Viewer...", clipboardViewer},

    {0, "mnuHelp", "Hel&p"},
    {1, "mnuManualItem", "&Online Manual", manual, "F1"},
    {1, "mnuTutorialItem", "XHTML Tutorial", {}, "", ForDocuments},
    {2, "mnuLessonItem(0)", "Lesson 1 (The Structure)", later},
    {2, "mnuLessonItem(1)", "Lesson 2 (The Basic Tags)", later},
    {2, "mnuLessonItem(2)", "Lesson 3 (Formatting Tags)", later},
    {2, "mnuLessonItem(3)", "Lesson 4 (Anchors)", later},
    {2, "mnuLessonItem(4)", "Lesson 5 (Images and Sound)", later},
    {2, "mnuLessonItem(5)", "Lesson 6 (Tables)", later},
    {1, "mnuW3CItem", "W3C &XHTML Reference", laterForDocuments},
    {1, "", "-"},
    {1, "mnuBugReportItem", "Send Us a Comment Or Bug Report", laterForDocuments},
    {1, "", "-"},
    {1, "mnuDidYouKnow", "&Did you know?", tips},
    {1, "mnuAboutItem", "&About...", about},
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
    Connect(*item, entry.command, window);
}

QMenu* AddMenu(QMenu& menu, const MenuEntry& entry, MDIform1& window) {
    menu.menuAction()->setObjectName(entry.name);
    if (entry.trait == ForDocuments) {
        QObject::connect(&window, &MDIform1::DocumentsOpen, menu.menuAction(), &QAction::setEnabled);
    }
    return &menu;
}

}  // namespace

void BuildMenuBar(QMenuBar& bar, MDIform1& window) {
    QMenu* menu = nullptr;
    QMenu* submenu = nullptr;
    for (const MenuEntry* row = std::begin(table); row != std::end(table); ++row) {
        const MenuEntry& entry = *row;
        const bool opensSubmenu = entry.depth == 1 && row + 1 != std::end(table) && row[1].depth == 2;
        if (entry.depth == 0) menu = AddMenu(*bar.addMenu(entry.caption), entry, window);
        if (!menu || entry.depth == 0) continue;
        if (opensSubmenu) {
            submenu = AddMenu(*menu->addMenu(entry.caption), entry, window);
        } else {
            AddItem(entry.depth == 2 && submenu ? *submenu : *menu, entry, window);
        }
    }
}

}  // namespace vellum
