#include "shell/tag_bar.h"

#include "shell/commands.h"
#include "widgets/tab_strip.h"

#include <QCursor>
#include <QMenu>

namespace vellum {
namespace {

using namespace commands;

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
     {{"Quickstart", quickstart},
      {"Anchor", anchor},
      {"Frame Builder", frameBuilder},
      {"Image", image},
      {"List Builder", listBuilder},
      {"Marquee", marquee},
      {"Paragraph Builder", paragraphBuilder},
      {"Special Effects", specialEffects},
      {"Table Builder", tableBuilder}}},
    {"popFont",
     "Fonts",
     {{"Paragraph Builder", paragraphBuilder},
      {"Font", font},
      {"<b>", bold},
      {"<i>", italic},
      {"<u>", underline},
      {"<big>", Tags("<big>", "</big>")},
      {"<small>", Tags("<small>", "</small>")},
      {"<h1>", heading1},
      {"<h2>", heading2},
      {"<h3>", heading3}}},
    {"popForms",
     "Forms",
     {{"Form Wizard", formWizard},
      {"Form Input", formInput},
      {"Search Engines", searchEngines},
      {"<form>", Tags("<form>", "</form>")},
      {"<input />", Tags("<input />")}}},
    {"popFrames",
     "Frames",
     {{"Frame Builder", frameBuilder},
      {"Floating Frame", floatingFrame},
      {"<frameset>", Tags("<frameset>", "</frameset>")},
      {"<frame />", Tags("<frame />")},
      {"<noframe>", Tags("<noframe>", "</noframe>")},
      {"<iframe>", Tags("<iframe>", "</iframe>")}}},
    {"popGraphicsSound",
     "Graphics and Sound",
     {{"Image", image},
      {"Marquee", marquee},
      {"Sound", sound},
      {"Special Effects", specialEffects},
      {"Image Map Builder", imageMap},
      {"VRML Orbitor", orbiter},
      {"<map>", Tags("<map>", "</map>")}}},
    {"popLists",
     "Lists",
     {{"List Builder", listBuilder},
      {"<dir>", directoryList},
      {"<dl>", definitionList},
      {"<menu>", menuList},
      {"<ol>", orderedList},
      {"<ul>", unorderedList},
      {"<li>", listItem},
      {"<dt> && <dd>", Tags("<dt>", "</dt><dd></dd>")}}},
    {"popTables",
     "Tables",
     {{"Table Builder", tableBuilder},
      {"<table>", Tags("<table>", "</table>")},
      {"<tr>", Tags("<tr>", "</tr>")},
      {"<td>", Tags("<td>", "</td>")},
      {"<th>", Tags("<th>", "</th>")},
      {"<thead>", Tags("<thead>", "</thead>")},
      {"<tfoot>", Tags("<tfoot>", "</tfoot>")},
      {"<tbody>", Tags("<tbody>", "</tbody>")}}},
    {"popScripting",
     "Scripts",
     {{"Script Tags", scriptTags},
      {"In-tag Scripts", inTagScript},
      {"Scripting Tools", scriptingTools},
      {"Object Tags", object},
      {"Java Applet", applet},
      {"Parameter Tags", parameters},
      {"ASP", asp}}},
    {"popStyle",
     "Style Sheets",
     {{"Style Sheet", styleSheet}, {"In-line Style Sheet", inlineStyle}, {"In-tag Style", inTagStyle}}},
};

QMenu* MakePopup(const TagBarPopup& popup, MDIform1& window) {
    auto* const menu = new QMenu(&window);
    menu->setObjectName(popup.name);
    int index = 0;
    for (const TagBarItem& item : popup.items) {
        if (!item.caption) break;
        QAction* const action = menu->addAction(item.caption);
        action->setObjectName(QStringLiteral("%1Item(%2)").arg(QLatin1String(popup.name)).arg(index++));
        Connect(*action, item.command, window);
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
