// Keeps a copy of every document that differs from its file, and offers what a crash left behind.
#pragma once

#include "files/recovery_store.h"

#include <QHash>
#include <QObject>

#include <memory>
#include <vector>

namespace vellum {

class DocumentWindow;
class OpenDocuments;
class Workbench;

class RecoveryKeeper : public QObject {
    Q_OBJECT
public:
    RecoveryKeeper(RecoveryStore& store, Workbench& workbench);
    ~RecoveryKeeper() override;

    // Hands every edit of the window's text on as it is made, until the text is saved or the window closed.
    void Watch(DocumentWindow& window);

    // Tells about damaged copies. Then one question lists what can be recovered: it is opened as unsaved documents,
    // discarded, or left for the next start.
    void OfferLost(OpenDocuments& documents);

private:
    struct Watched;

    void Begin(int document);  // its text is no longer the file's
    void Follow(int document, int position, int removed, const QString& text);
    void KeepWhole(int document);
    void Settle(int document);  // its text is the file's
    void Close(int document, bool saved);
    void TellNotKept(int document, const QString& reason);
    void Open(const RecoveredText& lost, OpenDocuments& documents);

    RecoveryStore& store_;
    Workbench& workbench_;
    QHash<int, std::shared_ptr<Watched>> watched_;
    int nextDocument_ = 1;
    bool toldNotKept_ = false;
};

// The question's text for what was found, which is something.
[[nodiscard]] QString RecoveryQuestion(const std::vector<RecoveredText>& lost);

}  // namespace vellum
