// Keeps a copy of every document that differs from its file, and offers what a crash left behind.
#pragma once

#include "files/recovery_store.h"

#include <QHash>
#include <QObject>

namespace vellum {

class DocumentWindow;
class OpenDocuments;
class Workbench;

class RecoveryKeeper : public QObject {
    Q_OBJECT
public:
    explicit RecoveryKeeper(RecoveryStore& store, QObject* parent = nullptr);

    // Copies the window's text in the first pause after a change, within 2 s of the last key, until it is saved or
    // closed.
    void Watch(DocumentWindow& window);

    // One question that lists what can be recovered. Yes opens it as unsaved documents, No discards it; Cancel leaves
    // it for the next start.
    void OfferLost(Workbench& workbench, OpenDocuments& documents);

private:
    void KeepAll();  // every open document that differs from its file, at once

    RecoveryStore& store_;
    QHash<int, DocumentWindow*> watched_;
    int nextDocument_ = 1;
};

// The question's text for texts with these captions.
[[nodiscard]] QString RecoveryQuestion(const std::vector<RecoveredText>& lost);

}  // namespace vellum
