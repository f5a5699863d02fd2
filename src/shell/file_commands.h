// The document commands of the File menu.
#pragma once

#include "shell/recent_files.h"

#include <QObject>

namespace vellum {

class OpenDocuments;
class Workbench;

// The filter of Open and Save As.
extern const QString documentFilter;

class FileCommands : public QObject {
    Q_OBJECT
public:
    FileCommands(Workbench& workbench, OpenDocuments& documents);

    // Asks for files and opens each in a window of its own, in the order that the dialog returns.
    void Open();
    // Opens the file of a recent slot, 0 the newest. A window is made even when the file is gone.
    void OpenRecent(int index);

    void Save();
    void SaveAs();
    void Print();

    [[nodiscard]] RecentFileList& Recent() { return recent_; }
    void AddRecentFile(const QString& path);

signals:
    void RecentFilesChanged();

private:
    Workbench& workbench_;
    OpenDocuments& documents_;
    RecentFileList recent_;
};

}  // namespace vellum
