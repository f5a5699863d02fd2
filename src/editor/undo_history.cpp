#include "editor/undo_history.h"

namespace vellum {

bool UndoHistory::CanUndo() const {
    return UndoText[0] != SnapshotText(QString());
}

bool UndoHistory::CanRedo() const {
    return RedoText[0] != SnapshotText(QString(noUndoInformation));
}

void UndoHistory::Push(Texts& texts, Carets& carets, const EditSurface::Snapshot& snapshot, int caret) {
    for (std::size_t index = deepestEntry; index > 0; --index) {
        texts.at(index) = texts.at(index - 1);
        carets.at(index) = carets.at(index - 1);
    }
    texts[0] = snapshot;
    carets[0] = caret;
}

void UndoHistory::Drop(Texts& texts, Carets& carets) {
    for (std::size_t index = 0; index < deepestEntry; ++index) {
        texts.at(index) = texts.at(index + 1);
        carets.at(index) = carets.at(index + 1);
    }
}

void UndoHistory::ResetRedo() {
    RedoText[0] = QString(noUndoInformation);
}

}  // namespace vellum
