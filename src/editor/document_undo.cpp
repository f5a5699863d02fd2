#include "editor/document.h"

namespace vellum {
namespace {

constexpr int linesOfContext = 4;  // above the caret's line after a step

// An empty text form makes an empty text.
void Show(EditSurface& surface, const SnapshotText& text, int caret) {
    if (const auto* const snapshot = std::get_if<EditSurface::Snapshot>(&text)) {
        surface.Restore(*snapshot);
    } else {
        surface.SetText(std::get<QString>(text));
    }
    surface.SetSelStart(caret);
}

}  // namespace

void Document::ProcessUndo() {
    UndoHistory::Push(history_.UndoText, history_.UndoPos, Text1->TakeSnapshot(), Text1->SelStart());
}

void Document::ProcessRedo() {
    UndoHistory::Push(history_.RedoText, history_.RedoPos, Text1->TakeSnapshot(), Text1->SelStart());
}

void Document::HandleUndo() {
    if (!history_.CanUndo()) return;
    ProcessRedo();
    SetSaver(false);
    Show(*Text1, history_.UndoText[0], history_.UndoPos[0]);
    UndoHistory::Drop(history_.UndoText, history_.UndoPos);
    Text1->setFocus();
    Text1->PlaceCaretLine(linesOfContext);
}

void Document::HandleRedo() {
    if (!history_.CanRedo()) return;
    ProcessUndo();
    SetSaver(false);
    Show(*Text1, history_.RedoText[0], history_.RedoPos[0]);
    UndoHistory::Drop(history_.RedoText, history_.RedoPos);
    Text1->setFocus();
    Text1->PlaceCaretLine(linesOfContext);
}

void Document::ResetRedo() {
    history_.ResetRedo();
}

}  // namespace vellum
