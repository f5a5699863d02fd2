// Looks at the files of the open documents when something may have changed them: when the system tells so, and whenever
// the author comes to a window.
#pragma once

#include "files/file_watch.h"

#include <QHash>
#include <QObject>

namespace vellum {

class DocumentWindow;
class OpenDocuments;

class OutsideChanges : public QObject {
    Q_OBJECT
public:
    // Both outlive it. `mainWindow` holds the documents.
    OutsideChanges(OpenDocuments& documents, QWidget& mainWindow);

    void Watch(DocumentWindow& window);

    // The author has come to the active document: looks at its file, and asks where that differs from the text.
    void Arrive();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void WatchFiles();
    void LookAtAll();
    void Look(DocumentWindow& window);  // on a worker thread
    void AskWhereTheAuthorIs();

    OpenDocuments& documents_;
    QWidget& mainWindow_;
    FileWatch watch_;
    QHash<DocumentWindow*, bool> looking_;  // at whose file, and whether once more
    bool arrived_ = false;                  // a question may come when the looks are done
};

}  // namespace vellum
