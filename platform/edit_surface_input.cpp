// What a person does to the edit surface: keys, input methods, clipboard, dragging and the menu.
#include "platform/edit_surface_private.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>

#include <array>

namespace vellum {
namespace {

bool IsTypedText(const QKeyEvent& event) {
    const QString text = event.text();
    if (text.isEmpty()) return false;
    const QChar first = text.at(0);
    if (first.category() == QChar::Other_Format) return true;
    const auto modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (modifiers == Qt::ControlModifier || modifiers == (Qt::ControlModifier | Qt::ShiftModifier)) return false;
    return first.isPrint() || first.category() == QChar::Other_PrivateUse || first.isHighSurrogate();
}

// The position before `position` that Backspace deletes to.
int PositionBefore(const QTextDocument& text, int position) {
    const bool pair = position > 1 && text.characterAt(position - 1).isLowSurrogate() &&
                      text.characterAt(position - 2).isHighSurrogate();
    return std::max(0, position - (pair ? 2 : 1));
}

}  // namespace

void EditSurface::keyPressEvent(QKeyEvent* event) {
    if (!isReadOnly()) {
        if (event->matches(QKeySequence::Undo) || event->matches(QKeySequence::Redo)) return;
        if (d_->HandleDeletion(event) || d_->HandleTyping(event)) return;
        // These would set a direction for the block, which plain text has no place for.
        if (event->key() == Qt::Key_Direction_L || event->key() == Qt::Key_Direction_R) return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

bool EditSurface::Private::HandleDeletion(QKeyEvent* event) {
    struct Deletion {
        QKeySequence::StandardKey key;
        QTextCursor::MoveOperation move;
    };
    static constexpr std::array deletions{
        Deletion{QKeySequence::Delete, QTextCursor::NextCharacter},
        Deletion{QKeySequence::DeleteStartOfWord, QTextCursor::PreviousWord},
        Deletion{QKeySequence::DeleteEndOfWord, QTextCursor::NextWord},
        Deletion{QKeySequence::DeleteEndOfLine, QTextCursor::EndOfBlock},
    };
    QTextCursor cursor = q.textCursor();
    if (event->matches(QKeySequence::Cut)) {
        if (cursor.hasSelection()) q.copy();
    } else if (event->key() == Qt::Key_Backspace && !(event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier))) {
        if (!cursor.hasSelection()) {
            cursor.setPosition(PositionBefore(*q.document(), cursor.position()), QTextCursor::KeepAnchor);
        }
    } else {
        const auto* const found =
            std::ranges::find_if(deletions, [&](const Deletion& deletion) { return event->matches(deletion.key); });
        if (found == deletions.end()) return false;
        if (!cursor.hasSelection()) cursor.movePosition(found->move, QTextCursor::KeepAnchor);
    }
    Replace(cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart(), QString(), InsertionFormat());
    q.ensureCursorVisible();
    event->accept();
    return true;
}

bool EditSurface::Private::HandleTyping(QKeyEvent* event) {
    QString text;
    const auto modifiers = event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    if (modifiers == Qt::NoModifier && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        text = QStringLiteral("\n");
    } else if (modifiers == Qt::NoModifier && (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab)) {
        text = QStringLiteral("\t");
    } else if (IsTypedText(*event)) {
        text = event->text();
    } else {
        return false;
    }
    ReplaceSelection(text);
    q.ensureCursorVisible();
    event->accept();
    return true;
}

void EditSurface::inputMethodEvent(QInputMethodEvent* event) {
    if (isReadOnly()) {
        event->ignore();
        return;
    }
    d_->composing = true;
    if (!event->commitString().isEmpty() || event->replacementLength() > 0) {
        // What was being composed goes first; then the committed text comes as if it were typed.
        QInputMethodEvent finish;
        QPlainTextEdit::inputMethodEvent(&finish);
        if (textCursor().hasSelection()) d_->ReplaceSelection(QString());
        const int last = document()->characterCount() - 1;
        const int from = std::clamp(textCursor().position() + event->replacementStart(), 0, last);
        const int length = std::clamp(event->replacementLength(), 0, last - from);
        d_->Replace(from, length, event->commitString(), d_->InsertionFormat());
    } else if (!event->preeditString().isEmpty() && textCursor().hasSelection()) {
        const CharFormat format = d_->InsertionFormat();
        d_->ReplaceSelection(QString());
        d_->insertion = format;
    }
    QInputMethodEvent composition(event->preeditString(), event->attributes());
    QPlainTextEdit::inputMethodEvent(&composition);
    d_->composing = false;
    event->accept();
    ensureCursorVisible();
}

QMimeData* EditSurface::createMimeDataFromSelection() const {
    const QTextCursor cursor = textCursor();
    auto* const copied = new QMimeData;
    copied->setText(d_->Characters(cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()));
    return copied;
}

void EditSurface::insertFromMimeData(const QMimeData* source) {
    if (isReadOnly() || source == nullptr || !source->hasText()) return;
    d_->ReplaceSelection(source->text());
    ensureCursorVisible();
}

void EditSurface::dropEvent(QDropEvent* event) {
    const bool takes = !isReadOnly() && event->mimeData() != nullptr && event->mimeData()->hasText();
    int target = cursorForPosition(event->position().toPoint()).position();
    // The toolkit ends its part of the dragging, and has nothing to insert.
    const QMimeData nothing;
    QDropEvent end(event->position(), event->possibleActions(), &nothing, event->buttons(), event->modifiers());
    QPlainTextEdit::dropEvent(&end);
    if (!takes) {
        event->ignore();
        return;
    }
    const QString text = event->mimeData()->text();
    const bool moved =
        event->dropAction() == Qt::MoveAction && (event->source() == this || event->source() == viewport());
    QTextCursor cursor = textCursor();
    if (moved && cursor.hasSelection()) {
        const int begin = cursor.selectionStart();
        const int end_ = cursor.selectionEnd();
        if (target >= begin && target <= end_) {  // dropped on itself
            event->acceptProposedAction();
            return;
        }
        d_->ReplaceSelection(QString());
        if (target > end_) target -= end_ - begin;
    }
    cursor = textCursor();
    cursor.setPosition(target);
    setTextCursor(cursor);
    d_->ReplaceSelection(text);
    ensureCursorVisible();
    event->acceptProposedAction();
}

void EditSurface::contextMenuEvent(QContextMenuEvent* event) {
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const bool selected = textCursor().hasSelection();
    const auto add = [&](const QString& caption, bool enabled, auto&& action) {
        QAction* const item = menu->addAction(caption, this, std::forward<decltype(action)>(action));
        item->setEnabled(enabled);
    };
    add(tr("Cu&t"), selected && !isReadOnly(), [this] {
        copy();
        SetSelText(QString());
    });
    add(tr("&Copy"), selected, [this] { copy(); });
    add(tr("&Paste"), canPaste(), [this] { paste(); });
    add(tr("&Delete"), selected && !isReadOnly(), [this] { SetSelText(QString()); });
    menu->addSeparator();
    add(tr("Select &All"), !document()->isEmpty(), [this] { selectAll(); });
    menu->popup(event->globalPos());
    event->accept();
}

}  // namespace vellum
