#include "shell/tag_bar.h"

#include "shell/mdiform1.h"
#include "shell/tool_openers.h"
#include "widgets/tab_strip.h"

#include <QCursor>
#include <QMenu>

namespace vellum {
namespace {

struct TagBarItem {
    const char* caption = nullptr;  // null ends a popup; "&&" shows as "&"
    Command command{};
};

struct TagBarPopup {
    const char* name;  // of the popup's menu; its items are called after it, as in "popFontItem(0)"
    const char* tab;
    TagBarItem items[10];
};

constexpr TagBarPopup table[] = {
    {"popNonCodingTools",
     "Non-Coding Tools",
     {{"Quickstart", quickstartTool},
      {"Anchor", anchorTool},
      {"Frame Builder", frameBuilderTool},
      {"Image", imageTool},
      {"List Builder", listTool},
      {"Marquee", marqueeTool},
      {"Paragraph Builder", paragraphTool},
      {"Special Effects", specialEffectsTool},
      {"Table Builder", tableTool}}},
    {"popFont",
     "Fonts",
     {{"Paragraph Builder", paragraphTool},
      {"Font", fontTool},
      {"<b>", Tags("<b>", "</b>")},
      {"<i>", Tags("<i>", "</i>")},
      {"<u>", Tags("<u>", "</u>")},
      {"<big>", Tags("<big>", "</big>")},
      {"<small>", Tags("<small>", "</small>")},
      {"<h1>", Tags("<h1>", "</h1>")},
      {"<h2>", Tags("<h2>", "</h2>")},
      {"<h3>", Tags("<h3>", "</h3>")}}},
    {"popForms",
     "Forms",
     {{"Form Wizard", formWizardTool},
      {"Form Input", formInputTool},
      {"Search Engines", searchEngineTool},
      {"<form>", Tags("<form>", "</form>")},
      {"<input />", Tags("<input />")}}},
    {"popFrames",
     "Frames",
     {{"Frame Builder", frameBuilderTool},
      {"Floating Frame", floatingFrameTool},
      {"<frameset>", Tags("<frameset>", "</frameset>")},
      {"<frame />", Tags("<frame />")},
      {"<noframe>", Tags("<noframe>", "</noframe>")},
      {"<iframe>", Tags("<iframe>", "</iframe>")}}},
    {"popGraphicsSound",
     "Graphics and Sound",
     {{"Image", imageTool},
      {"Marquee", marqueeTool},
      {"Sound", soundTool},
      {"Special Effects", specialEffectsTool},
      {"Image Map Builder", imageMapTool},
      {"VRML Orbitor", orbiterTool},
      {"<map>", Tags("<map>", "</map>")}}},
    {"popLists",
     "Lists",
     {{"List Builder", listTool},
      {"<dir>", Tags("<dir>", "</dir>")},
      {"<dl>", Tags("<dl>", "</dl>")},
      {"<menu>", Tags("<menu>", "</menu>")},
      {"<ol>", Tags("<ol>", "</ol>")},
      {"<ul>", Tags("<ul>", "</ul>")},
      {"<li>", Tags("<li>", "</li>")},
      {"<dt> && <dd>", Tags("<dt>", "</dt><dd></dd>")}}},
    {"popTables",
     "Tables",
     {{"Table Builder", tableTool},
      {"<table>", Tags("<table>", "</table>")},
      {"<tr>", Tags("<tr>", "</tr>")},
      {"<td>", Tags("<td>", "</td>")},
      {"<th>", Tags("<th>", "</th>")},
      {"<thead>", Tags("<thead>", "</thead>")},
      {"<tfoot>", Tags("<tfoot>", "</tfoot>")},
      {"<tbody>", Tags("<tbody>", "</tbody>")}}},
    {"popScripting",
     "Scripts",
     {{"Script Tags", scriptTagTool},
      {"In-tag Scripts", inTagScriptTool},
      {"Scripting Tools", scriptingTool},
      {"Object Tags", objectTool},
      {"Java Applet", appletTool},
      {"Parameter Tags", parameterTool},
      {"ASP", aspTool}}},
    {"popStyle",
     "Style Sheets",
     {{"Style Sheet", styleSheetTool}, {"In-line Style Sheet", inlineStyleTool}, {"In-tag Style", inTagStyleTool}}},
};

QMenu* MakePopup(const TagBarPopup& popup, MDIform1& window) {
    auto* const menu = new QMenu(&window);
    menu->setObjectName(popup.name);
    int index = 0;
    for (const TagBarItem& item : popup.items) {
        if (!item.caption) break;
        QAction* const action = menu->addAction(item.caption);
        action->setObjectName(QStringLiteral("%1Item(%2)").arg(QLatin1String(popup.name)).arg(index++));
        QObject::connect(action, &QAction::triggered, &window,
                         [&window, command = item.command] { Execute(command, window); });
    }
    return menu;
}

// The Return key opens a popup wherever the pointer is.
void ShowPopup(QMenu& menu, const TabStrip& strip, int tab) {
    const QRect room = strip.tabRect(tab - 1);
    const QPoint pointer = QCursor::pos();
    if (room.contains(strip.mapFromGlobal(pointer))) return menu.popup(pointer);
    menu.popup(strip.mapToGlobal(room.bottomLeft() + QPoint(0, 1)));
    menu.setActiveAction(menu.actions().constFirst());
}

}  // namespace

void BuildTagBar(TabStrip& strip, MDIform1& window) {
    QList<QMenu*> popups;
    for (const TagBarPopup& popup : table) {
        strip.AddTab(popup.tab);
        popups << MakePopup(popup, window);
    }
    QObject::connect(&strip, &TabStrip::TabClicked, &window, [&strip, popups](int tab) {
        ShowPopup(*popups.at(tab - 1), strip, tab);
        strip.update();
    });
}

}  // namespace vellum
