// The open documents: how their windows are made, what is opened in them, how many there are, and how they are closed.
#pragma once

#include "shell/document_window.h"

#include <QList>
#include <QObject>
#include <QString>

class QMdiArea;

namespace vellum {

// What a window is opened for.
struct OpenRequest {
    QString path = {};                         // empty for a blank document, which gets a number
    const RecoveredText* recovered = nullptr;  // the text to show, as unsaved, in place of the file's
    QString failure = {};                      // what is said when the file can't be read; nothing when empty
    bool closesOnFailure = false;              // the window goes then; else it stays, blank
    bool isFirst = false;                      // of the session: numbered in any case, and counted already
};

class OpenDocuments : public QObject {
    Q_OBJECT
public:
    OpenDocuments(Workbench& workbench, QMdiArea& area);

    int NewDocCount = 0;       // blank documents made in this session
    bool StopClosing = false;  // a document's close was cancelled

    [[nodiscard]] int OpenDocCount() const { return openDocCount_; }
    [[nodiscard]] DocumentWindow* Active() const;  // null when no document is open
    [[nodiscard]] QList<Document*> All() const;    // in the order in which they were opened

    // The one way to a document window, of the session's kind: makes it the active one, fills and colours it. Null when
    // it was closed again.
    DocumentWindow* Open(const OpenRequest& request);

    // Asks the active window to close. False when it stays or there is none.
    bool CloseActive();
    // One after the other, up to one that stays.
    void CloseAll();

signals:
    void Made(DocumentWindow* window);  // not shown yet
    void CountChanged();

private:
    DocumentWindow* MakeWindow();
    bool Fill(DocumentWindow& window, const OpenRequest& request);  // false when the file can't be read
    void Count(int change);

    Workbench& workbench_;
    QMdiArea& area_;
    int openDocCount_ = 1;  // the first document
};

}  // namespace vellum
