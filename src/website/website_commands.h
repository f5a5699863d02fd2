// The commands of the website panel: what a double click on a file does, what the items of its two popup menus do, and
// where the menus open.
#pragma once

#include "editor/workbench.h"
#include "website/website_panel.h"

#include <QMenu>
#include <QObject>
#include <QString>

#include <functional>

namespace vellum {

// Open tools with a file filled in. An empty function opens none.
struct FileTools {
    std::function<void(const QString& path)> insertImage;
    std::function<void(const QString& path)> insertSound;
    std::function<void(const QString& name)> linkTo;  // the bare name
};

// Listens to the lists of the panel, whose child it is, as are its menus. Both references must outlive it.
class WebsiteCommands : public QObject {
    Q_OBJECT

public:
    WebsiteCommands(Workbench& bench, WebsitePanel& panel, FileTools tools);

    // The menus of the files and of the directories, empty at first: the main window fills them.
    QMenu* const mnuWebsite;
    QMenu* const popDirectory;

    // Opens a file in every way that its name asks for, one after the other.
    void OpenFile(const QString& path);

    // Of the selected file; without one they say so. A document whose file was deleted counts as unsaved.
    void LinkToFile();
    void RenameFile();
    void DeleteFile();
    void ShowProperties();

    void MakeDirectory();  // in the shown one, after a question for its name
    void FindFiles();      // starts the system's search on the panel's drive

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void PopUp(QMenu& menu, QAbstractItemView& list, const QContextMenuEvent& event);
    // The bare name of the selected file; empty, after a message, when none is selected.
    QString SelectedName();
    bool ThrowAway(const QString& path);

    Workbench& bench_;
    WebsitePanel& panel_;
    FileTools tools_;
};

}  // namespace vellum
