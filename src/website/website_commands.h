// The commands of the website panel: what a double click on a file does, the two popup menus of the lists, and the
// search for files.
#pragma once

#include "editor/workbench.h"
#include "website/website_panel.h"

#include <QMenu>
#include <QObject>
#include <QString>

#include <functional>

namespace vellum {

// The tools that the panel opens, filled in with a file. An empty function opens none.
struct FileTools {
    std::function<void(const QString& path)> insertImage;
    std::function<void(const QString& path)> insertSound;
    std::function<void(const QString& name)> linkTo;  // the bare name
};

// Listens to the lists of the panel, which owns it and its menus. Both parameters must outlive it.
class WebsiteCommands : public QObject {
    Q_OBJECT

public:
    WebsiteCommands(Workbench& bench, WebsitePanel& panel, FileTools tools);

    QMenu* const mnuWebsite;
    QMenu* const popDirectory;

    // Opens a file by what its name says it is; more than one tool may open, one after the other.
    void OpenFile(const QString& path);

    void mnuWebsiteLinkItem();
    void mnuWebsiteRenameItem();
    void mnuWebsiteDeleteItem();
    void mnuPropertiesItem();
    void popDirectoryItems();
    void popDirectoryRefresh();
    void mnuFindFileItem();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FillMenus();
    QAction* AddItem(QMenu& menu, const QString& name, const QString& caption, void (WebsiteCommands::*run)());
    void PopUp(QMenu& menu, QAbstractItemView& list, const QContextMenuEvent& event);
    // The bare name of the selected file; empty, and said so, when none is.
    QString SelectedName();

    Workbench& bench_;
    WebsitePanel& panel_;
    FileTools tools_;
};

}  // namespace vellum
