#include "shell/popup_menus.h"

#include "editor/document.h"
#include "shell/commands.h"
#include "website/website_panel.h"

#include <QMenu>

namespace vellum {
namespace {

struct PopupItem {
    const char* caption;  // "-" is a separator
    Command command{};
};

constexpr PopupItem textItems[] = {
    {"Undo", commands::undo},
    {"Redo", commands::redo},
    {"-"},
    {"&Cut", commands::cut},
    {"Cop&y", commands::copy},
    {"&Paste", commands::paste},
    {"&Delete", commands::removeSelection},
    {"-"},
    {"Center Text <center></center>", commands::center},
    {"&Line Break <br />", commands::lineBreak},
    {"Paragraph Tag <p></p>", commands::paragraph},
    {"-"},
    {"&Bold Text <b></b>", commands::bold},
    {"&Italic Text <i></i>", commands::italic},
    {"&Strikethru Text <strike></strike>", commands::Tags("<strike>", "</strike>")},
    {"&Underline Text <u></u>", commands::underline},
};

struct PanelItem {
    const char* name;
    const char* caption;
    Command command;
    QKeyCombination key;
};

constexpr PanelItem fileItems[] = {
    {"mnuWebsiteLinkItem", "&Create a Link To File...", commands::linkToFile, Qt::Key_unknown},
    {"mnuWebsiteRenameItem", "&Rename File...", commands::renameFile, Qt::Key_F2},
    {"mnuWebsiteDeleteItem", "&Delete File", commands::deleteFile, Qt::Key_Delete},
    {"mnuPropertiesItem", "&Properties...", commands::fileProperties, Qt::ALT | Qt::Key_Return},
};

constexpr PanelItem directoryItems[] = {
    {"popDirectoryItems", "&Create Directory", commands::makeDirectory, Qt::Key_unknown},
    {"popDirectoryRefresh", "&Refresh Directory", commands::refreshDirectory, Qt::Key_F5},
};

// Return also means the Enter key of the keypad.
QList<QKeySequence> KeysOf(QKeyCombination key) {
    if (key.key() == Qt::Key_unknown) return {};
    if (key.key() != Qt::Key_Return) return {key};
    return {key, QKeyCombination(key.keyboardModifiers(), Qt::Key_Enter)};
}

QAction* AddItem(QMenu& menu, const PanelItem& item, MDIform1& window) {
    QAction* const action = menu.addAction(item.caption);
    action->setObjectName(item.name);
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setShortcuts(KeysOf(item.key));
    Connect(*action, item.command, window);
    return action;
}

}  // namespace

QMenu* ShowTextMenu(MDIform1& window, QPoint place) {
    const Document* const document = window.ActiveDocument();
    if (!document) return nullptr;
    auto* const menu = new QMenu(document->Text1);
    menu->setObjectName(QStringLiteral("mnuPop"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    int index = 0;
    for (const PopupItem& item : textItems) {
        const bool separates = QLatin1String(item.caption) == QLatin1String("-");
        QAction* const action = separates ? menu->addSeparator() : menu->addAction(item.caption);
        action->setObjectName(QStringLiteral("mnuPopItem(%1)").arg(index++));
        if (!separates) Connect(*action, item.command, window);
    }
    menu->popup(place);
    return menu;
}

void BuildWebsiteMenus(MDIform1& window) {
    WebsiteCommands& website = window.Website();
    const WebsitePanel& panel = *window.Picture11;
    for (const PanelItem& item : fileItems) panel.File2->addAction(AddItem(*website.mnuWebsite, item, window));
    for (const PanelItem& item : directoryItems) {
        QAction* const action = AddItem(*website.popDirectory, item, window);
        if (action->shortcut().isEmpty()) continue;
        for (QWidget* list : std::initializer_list<QWidget*>{panel.Drive1, panel.Dir1, panel.File2}) {
            list->addAction(action);
        }
    }
}

}  // namespace vellum
