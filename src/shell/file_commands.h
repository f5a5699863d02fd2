// The document commands of the File menu.
#pragma once

#include "shell/recent_files.h"

#include <QObject>

namespace vellum {

class Document;
class Workbench;

// The filter of Open and Save As.
extern const QString documentFilter;

class FileCommands : public QObject {
    Q_OBJECT
public:
    explicit FileCommands(Workbench& workbench, QObject* parent = nullptr);

    // Asks for files and opens each in a window of its own, in the order that the dialog returns.
    void Open();
    // Opens one file in a new window. Empty when it can't be read; the author has then been told.
    Document* OpenFile(const QString& path);
    // Opens the file of a recent slot, 0 the newest. A window is made even when the file is gone.
    void OpenRecent(int index);
    // Opens a file in a window of its own. When it can't be read, the window stays, blank, and `failure` is shown.
    void OpenInNewWindow(const QString& path, const QString& failure);

    void Save();
    void SaveAs();
    void Print();

    [[nodiscard]] RecentFileList& Recent() { return recent_; }
    void AddRecentFile(const QString& path);

signals:
    void RecentFilesChanged();

private:
    void SaveTo(const QString& path, bool asNewName);

    Workbench& workbench_;
    RecentFileList recent_;
};

}  // namespace vellum
