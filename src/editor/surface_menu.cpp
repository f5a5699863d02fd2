#include "editor/surface_menu.h"

#include "editor/document.h"
#include "editor/text_commands.h"
#include "editor/workbench.h"

#include <QAction>
#include <QMenu>

#include <array>

namespace vellum {
namespace {

struct PopItem {
    const char* caption;  // "-" is a separator
    void (*command)(Workbench&) = nullptr;
    const char* open = nullptr;  // else the tags that go around the selection
    const char* close = "";
};

void RemoveSelection(Workbench& bench) {
    if (const Document* document = bench.ActiveDocument()) document->Text1->SetSelText({});
}

constexpr std::array<PopItem, 16> items{{
    {"Undo", UndoText},
    {"Redo", RedoText},
    {"-"},
    {"&Cut", CutText},
    {"Cop&y", CopyText},
    {"&Paste", PasteText},
    {"&Delete", RemoveSelection},
    {"-"},
    {"Center Text <center></center>", nullptr, "<center>", "</center>"},
    {"&Line Break <br />", nullptr, "<br />"},
    {"Paragraph Tag <p></p>", nullptr, "<p>", "</p>"},
    {"-"},
    {"&Bold Text <b></b>", nullptr, "<b>", "</b>"},
    {"&Italic Text <i></i>", nullptr, "<i>", "</i>"},
    {"&Strikethru Text <strike></strike>", nullptr, "<strike>", "</strike>"},
    {"&Underline Text <u></u>", nullptr, "<u>", "</u>"},
}};

void Run(const PopItem& item, Workbench& bench) {
    if (item.command) return item.command(bench);
    bench.Addstuff(item.open, item.close);
}

}  // namespace

QMenu* ShowSurfaceMenu(Workbench& bench, QPoint place) {
    const Document* const document = bench.ActiveDocument();
    if (!document) return nullptr;
    auto* const menu = new QMenu(document->Text1);
    menu->setObjectName(QStringLiteral("mnuPop"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    int index = 0;
    for (const PopItem& item : items) {
        const bool separates = !item.command && !item.open;
        QAction* const action = separates ? menu->addSeparator() : menu->addAction(item.caption);
        action->setObjectName(QStringLiteral("mnuPopItem(%1)").arg(index++));
        if (!separates) QObject::connect(action, &QAction::triggered, menu, [&item, &bench] { Run(item, bench); });
    }
    menu->popup(place);
    return menu;
}

}  // namespace vellum
