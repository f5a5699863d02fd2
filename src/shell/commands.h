// Every command of the program, once: what it does, and when it is off. Menus, bars, popup menus and keys only name the
// commands that stand here; the keys of undo and of the clipboard are the editor's own (editor/typing).
#pragma once

#include "editor/text_commands.h"
#include "import/import_commands.h"
#include "preview/external_browser.h"
#include "shell/mdi_arrange.h"
#include "shell/mdiform1.h"
#include "shell/window_commands.h"
#include "tools/forms/frm_forms.h"
#include "tools/forms/frm_input.h"
#include "tools/forms/frm_search_engines.h"
#include "tools/frames/form_wizard.h"
#include "tools/frames/frm_iframe.h"
#include "tools/links/frm_anchors.h"
#include "tools/lists/frm_lists.h"
#include "tools/media/frm_graphics.h"
#include "tools/media/frm_sound.h"
#include "tools/pages/frm_quick_start.h"
#include "tools/pages/new_wizards.h"
#include "tools/scripts/asp.h"
#include "tools/scripts/frm_applet.h"
#include "tools/scripts/frm_controls.h"
#include "tools/scripts/frm_insert_script.h"
#include "tools/scripts/frm_param.h"
#include "tools/scripts/frm_script_wizard.h"
#include "tools/scripts/in_script.h"
#include "tools/styles/css.h"
#include "tools/tables/frm_tables.h"
#include "tools/tables/table_importer.h"
#include "tools/text/cstuff.h"
#include "tools/text/frm_fonts.h"
#include "tools/text/frm_paragraphs.h"
#include "tools/text/hrule.h"
#include "website/website_commands.h"

class QAction;

namespace vellum {

// What a command is off without: an open document, or a session with previews. One that stands only in menus and bars
// that are off themselves needs no mark.
enum class Needs { Nothing, Document, Preview };

// One of three: a function, a tag pair, or nothing at all, where a tool has yet to come.
struct Command {
    void (*run)(MDIform1& window) = nullptr;
    Needs needs = Needs::Nothing;
    const char* open = nullptr;  // goes before the selection, or in its place when `close` is empty
    const char* close = "";
};

// Carries a command out. After a tag pair the keyboard is with the active document's text.
void Execute(const Command& command, MDIform1& window);

// Lets an item run a command, and be off when the command is.
void Connect(QAction& item, const Command& command, MDIform1& window);

namespace commands {

[[nodiscard]] constexpr Command Tags(const char* open, const char* close = "") {
    return {nullptr, Needs::Nothing, open, close};
}
template <typename Tool>
[[nodiscard]] constexpr Command Open() {
    return {[](MDIform1& window) { ShowTool<Tool>(window); }};
}
inline constexpr Command later{};
inline constexpr Command laterForDocuments{nullptr, Needs::Document};

// Files
inline constexpr Command newPage{[](MDIform1& window) { ShowNewWizards(window); }};
inline constexpr Command openPages{[](MDIform1& window) { window.Files().Open(); }};
template <int slot>
inline constexpr Command openRecent{[](MDIform1& window) { window.Files().OpenRecent(slot); }};
inline constexpr Command openFromInternet{[](MDIform1& window) { window.Internet().Open(); }};
inline constexpr Command closePage{[](MDIform1& window) { window.documents.CloseActive(); }, Needs::Document};
inline constexpr Command closeAllPages{[](MDIform1& window) { window.documents.CloseAll(); }, Needs::Document};
inline constexpr Command importToNewFile{[](MDIform1& window) { ImportToNewFile(window); }};
inline constexpr Command importToDocument{[](MDIform1& window) { ImportToDocument(window); }, Needs::Document};
inline constexpr Command importTable{[](MDIform1& window) { ImportTable(window); }, Needs::Document};
inline constexpr Command savePage{[](MDIform1& window) { window.Files().Save(); }, Needs::Document};
inline constexpr Command savePageAs{[](MDIform1& window) { window.Files().SaveAs(); }, Needs::Document};
inline constexpr Command printPage{[](MDIform1& window) { window.Files().Print(); }, Needs::Document};
inline constexpr Command quit{[](MDIform1& window) { window.close(); }};

// Text
inline constexpr Command undo{[](MDIform1& window) { UndoText(window); }};
inline constexpr Command redo{[](MDIform1& window) { RedoText(window); }};
inline constexpr Command cut{[](MDIform1& window) { CutText(window); }};
inline constexpr Command copy{[](MDIform1& window) { CopyText(window); }};
inline constexpr Command paste{[](MDIform1& window) { PasteText(window); }};
inline constexpr Command deleteText{[](MDIform1& window) { DeleteText(window); }};
inline constexpr Command removeSelection{[](MDIform1& window) { RemoveSelection(window); }};
inline constexpr Command selectAll{[](MDIform1& window) { SelectAllText(window); }};
inline constexpr Command upperCase{[](MDIform1& window) { UpperCaseMarkup(window); }};
inline constexpr Command lowerCase{[](MDIform1& window) { LowerCaseMarkup(window); }};
inline constexpr Command wrapLines{ToggleWordWrap};
inline constexpr Command goToLine{[](MDIform1& window) { GoToLine(window); }};
inline constexpr Command colorCode{[](MDIform1& window) { window.Smartcolor(); }, Needs::Document};

// Tags that stand in more than one place
inline constexpr Command center = Tags("<center>", "</center>");
inline constexpr Command paragraph = Tags("<p>", "</p>");
inline constexpr Command lineBreak = Tags("<br />");
inline constexpr Command bold = Tags("<b>", "</b>");
inline constexpr Command italic = Tags("<i>", "</i>");
inline constexpr Command underline = Tags("<u>", "</u>");
inline constexpr Command heading1 = Tags("<h1>", "</h1>");
inline constexpr Command heading2 = Tags("<h2>", "</h2>");
inline constexpr Command heading3 = Tags("<h3>", "</h3>");
inline constexpr Command directoryList = Tags("<dir>", "</dir>");
inline constexpr Command menuList = Tags("<menu>", "</menu>");
inline constexpr Command orderedList = Tags("<ol>", "</ol>");
inline constexpr Command unorderedList = Tags("<ul>", "</ul>");
inline constexpr Command listItem = Tags("<li>", "</li>");
inline constexpr Command definitionList = Tags("<dl>", "</dl>");

// Tools
inline constexpr Command anchor = Open<frmAnchors>();
inline constexpr Command asp = Open<ASP>();
inline constexpr Command sound = Open<frmSound>();
inline constexpr Command floatingFrame = Open<frmIFrame>();
inline constexpr Command frameBuilder{[](MDIform1& window) { ShowFrameBuilder(window); }};
inline constexpr Command font = Open<frmFonts>();
inline constexpr Command formWizard = Open<frmForms>();
inline constexpr Command formInput = Open<frmInput>();
inline constexpr Command horizontalRule = Open<HRule>();
inline constexpr Command image = Open<frmGraphics>();
inline constexpr Command imageMap = later;
inline constexpr Command inlineStyle{[](MDIform1& window) { ShowTool<CSS>(window, StyleMode::Inline); }};
inline constexpr Command inTagScript{[](MDIform1& window) { ShowInScript(window); }};
inline constexpr Command inTagStyle{[](MDIform1& window) { ShowInTagStyle(window); }};
inline constexpr Command applet = Open<frmApplet>();
inline constexpr Command listBuilder = Open<frmLists>();
inline constexpr Command marquee = later;
inline constexpr Command object = Open<frmControls>();
inline constexpr Command paragraphBuilder = Open<frmParagraphs>();
inline constexpr Command parameters = Open<frmParam>();
inline constexpr Command quickstart = Open<frmQuickStart>();
inline constexpr Command scriptTags = Open<frmInsertScript>();
inline constexpr Command scriptingTools = Open<frmScriptWizard>();
inline constexpr Command searchEngines = Open<frmSearchEngines>();
inline constexpr Command specialEffects = Open<CStuff>();
inline constexpr Command styleSheet = Open<CSS>();
inline constexpr Command tableBuilder{[](MDIform1& window) { ShowTableBuilder(window); }};
inline constexpr Command orbiter = later;
inline constexpr Command visualEditor{EditVisually, Needs::Preview};

// The window
template <int region>
inline constexpr Command showRegion{[](MDIform1& window) { ShowRegion(window, region); }};
template <Arrangement arrangement>
inline constexpr Command arrange{[](MDIform1& window) { Arrange(*window.area, arrangement); }};
template <int step>
inline constexpr Command stepPane{[](MDIform1& window) { window.StepPane(step); }};
template <int step>
inline constexpr Command stepDocument{[](MDIform1& window) { StepDocument(window, step); }};
inline constexpr Command settings{ShowSettings, Needs::Document};

// The website
inline constexpr Command linkToFile{[](MDIform1& window) { window.Website().LinkToFile(); }, Needs::Document};
inline constexpr Command renameFile{[](MDIform1& window) { window.Website().RenameFile(); }};
inline constexpr Command deleteFile{[](MDIform1& window) { window.Website().DeleteFile(); }};
inline constexpr Command fileProperties{[](MDIform1& window) { window.Website().ShowProperties(); }};
inline constexpr Command makeDirectory{[](MDIform1& window) { window.Website().MakeDirectory(); }};
inline constexpr Command refreshDirectory{[](MDIform1& window) { window.RefreshWebsite(); }};
inline constexpr Command findFiles{[](MDIform1& window) { window.Website().FindFiles(); }};

// Other programs, and help
template <int browser>
inline constexpr Command externalBrowser{[](MDIform1& window) { OpenInExternalBrowser(window, browser); },
                                         Needs::Document};
inline constexpr Command calculator{[](MDIform1& window) { StartAccessory(window, "calc.exe"); }};
inline constexpr Command characterMap{[](MDIform1& window) { StartAccessory(window, "charmap.exe"); }};
inline constexpr Command clipboardViewer{[](MDIform1& window) { StartAccessory(window, "clipbrd.exe"); }};
inline constexpr Command manual{ShowManual};
inline constexpr Command tips{ShowTips};
inline constexpr Command about{ShowAbout};

}  // namespace commands
}  // namespace vellum
