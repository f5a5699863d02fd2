// Snapshots of the edit surface.
#include "surface/edit_surface_private.h"

#include <QTextDocument>

namespace vellum {

EditSurface::Snapshot EditSurface::TakeSnapshot() {
    return d_->history.Take(d_->formats);
}

bool EditSurface::Restore(const Snapshot& snapshot) {
    d_->EndComposition(false);
    d_->loading = true;
    d_->restoring = true;
    d_->MarkAllOutdated();
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    const auto replace = [this, &cursor](int position, int length, const QString& text) {
        QString before = d_->Characters(position, length);
        d_->Insert(cursor, position, length, ToDocumentText(text));
        return before;
    };
    const bool restored = d_->history.Restore(snapshot, d_->formats, replace);
    cursor.endEditBlock();
    if (restored) {
        cursor = textCursor();
        if (cursor.hasSelection()) {
            cursor.clearSelection();
            setTextCursor(cursor);
        }
        d_->untouched.clear();
        d_->insertion.reset();
        ++d_->revision;
    }
    d_->restoring = false;
    d_->loading = false;
    if (!restored) return false;
    d_->ReportChange();
    d_->OnCaretMoved();
    return true;
}

void EditSurface::Private::RecordChange(int position, int removed, int added) {
    const bool known =
        handedOut.revision == revision && handedOut.position == position && handedOut.text.size() == removed;
    // Dragged into another window it went without a key, which would have taken the snapshot.
    if (removed > 0 && known && handlers) static_cast<void>(handlers->KeyDown(Qt::Key_unknown, 0, true));
    // What went out is gone by now: it can be told only when it is known from before.
    if (removed == 0 || known) {
        history.Record(position, removed == 0 ? QString() : handedOut.text, added);
    } else {
        history.Forget();
    }
}

}  // namespace vellum
