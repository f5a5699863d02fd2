// What a person does to the edit surface: keys, input methods, clipboard, dragging and the menu.
#include "surface/edit_surface_private.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>

#include <algorithm>
#include <array>
#include <utility>

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

bool IsOneCharacter(const QString& text) {
    const auto length = text.size();
    return (length == 1 && text.at(0).isPrint()) || (length == 2 && text.at(0).isHighSurrogate());
}

// Modifiers that make no other key of one: where it stands, and a held AltGr, which typing braces leaves behind.
constexpr Qt::KeyboardModifiers noModifiers = Qt::KeypadModifier | Qt::GroupSwitchModifier;

// The toolkit types the digits of the keypad although Ctrl is held.
bool IsDigitWithCtrl(const QKeyEvent& event) {
    const QString text = event.text();
    return event.modifiers().testFlags(Qt::ControlModifier | Qt::KeypadModifier) && !text.isEmpty() &&
           text.at(0).isPrint();
}

int ShiftState(const QKeyEvent& event) {
    const auto modifiers = event.modifiers();
    return (modifiers.testFlag(Qt::ShiftModifier) ? shiftBit : 0) |
           (modifiers.testFlag(Qt::ControlModifier) ? ctrlBit : 0) | (modifiers.testFlag(Qt::AltModifier) ? altBit : 0);
}

// Keys that delete more than a character, with Ctrl as the desktops have them.
bool DeletesByItself(const QKeyEvent& event) {
    return event.matches(QKeySequence::DeleteStartOfWord) || event.matches(QKeySequence::DeleteEndOfWord) ||
           event.matches(QKeySequence::DeleteEndOfLine);
}

// Keys that change the text or move the caret when no input method takes them.
bool ActsOnText(const QKeyEvent& event) {
    static constexpr std::array keys{Qt::Key_Left, Qt::Key_Right,   Qt::Key_Up,        Qt::Key_Down,  Qt::Key_Home,
                                     Qt::Key_End,  Qt::Key_PageUp,  Qt::Key_PageDown,  Qt::Key_Enter, Qt::Key_Return,
                                     Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Backspace, Qt::Key_Delete};
    return IsTypedText(event) || std::ranges::find(keys, event.key()) != keys.end();
}

// The position before `position` that Backspace deletes to.
int PositionBefore(const QTextDocument& text, int position) {
    const bool pair = position > 1 && text.characterAt(position - 1).isLowSurrogate() &&
                      text.characterAt(position - 2).isHighSurrogate();
    return std::max(0, position - (pair ? 2 : 1));
}

}  // namespace

void EditSurface::SetHandlers(SurfaceHandlers* handlers) {
    d_->handlers = handlers;
}

QRect EditSurface::CaretRect() const {
    return cursorRect().translated(viewport()->pos());
}

void EditSurface::keyPressEvent(QKeyEvent* event) {
    if (!isReadOnly()) {
        if (ActsOnText(*event)) d_->EndComposition(true);
        if (d_->HandleClipboardKey(event)) return;
        if (d_->handlers && d_->handlers->KeyDown(event->key(), ShiftState(*event), DeletesByItself(*event))) {
            event->accept();
            return;
        }
        if (event->matches(QKeySequence::Undo) || event->matches(QKeySequence::Redo)) return;
        if (d_->HandleDeletion(event) || d_->HandleTyping(event)) return;
        // These would set a direction for the block, which plain text has no place for.
        if (event->key() == Qt::Key_Direction_L || event->key() == Qt::Key_Direction_R) return;
        if (IsDigitWithCtrl(*event)) return event->ignore();
    }
    QPlainTextEdit::keyPressEvent(event);
}

void EditSurface::keyReleaseEvent(QKeyEvent* event) {
    QPlainTextEdit::keyReleaseEvent(event);
    // A key that repeats while it is held is released once.
    if (d_->handlers && !event->isAutoRepeat()) d_->handlers->KeyUp(event->key(), ShiftState(*event));
}

void EditSurface::mousePressEvent(QMouseEvent* event) {
    if (d_->handlers && event->button() == Qt::RightButton) {
        d_->handlers->ContextMenu(event->globalPosition().toPoint());
        event->accept();
        return;
    }
    d_->EndComposition(true);
    if (d_->handlers) d_->handlers->MouseDown(event->button());
    QPlainTextEdit::mousePressEvent(event);
}

void EditSurface::mouseDoubleClickEvent(QMouseEvent* event) {
    if (d_->handlers) d_->handlers->MouseDown(event->button());
    QPlainTextEdit::mouseDoubleClickEvent(event);
}

void EditSurface::mouseMoveEvent(QMouseEvent* event) {
    if (d_->handlers) d_->handlers->MouseMove();
    QPlainTextEdit::mouseMoveEvent(event);
}

void EditSurface::mouseReleaseEvent(QMouseEvent* event) {
    QPlainTextEdit::mouseReleaseEvent(event);
    if (d_->handlers) d_->handlers->MouseUp(event->button());
}

bool EditSurface::Private::HandleClipboardKey(QKeyEvent* event) {
    if (!handlers) return false;
    const int shiftState = ShiftState(*event);
    if (shiftState == shiftBit && event->key() == Qt::Key_Insert) {
        handlers->Paste(QGuiApplication::clipboard()->text());
    } else if (shiftState == shiftBit && event->key() == Qt::Key_Delete) {
        handlers->Cut();
    } else if (shiftState == ctrlBit && event->key() == Qt::Key_Insert) {
        handlers->Copy();
    } else {
        return false;
    }
    event->accept();
    return true;
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
    } else if (event->key() == Qt::Key_Backspace && !(event->modifiers() & ~(Qt::ShiftModifier | noModifiers))) {
        if (handlers && handlers->KeyPress(QStringLiteral("\b"), ShiftState(*event))) {
            event->accept();
            return true;
        }
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
    const auto modifiers = event->modifiers() & ~(Qt::ShiftModifier | noModifiers);
    if (modifiers == Qt::NoModifier && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        text = QStringLiteral("\r");
    } else if (modifiers == Qt::NoModifier && (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab)) {
        text = QStringLiteral("\t");
    } else if (IsTypedText(*event)) {
        text = event->text();
    } else {
        return false;
    }
    Type(text, ShiftState(*event));
    q.ensureCursorVisible();
    event->accept();
    return true;
}

void EditSurface::Private::Type(const QString& text, int shiftState) {
    for (qsizetype index = 0, length = 1; index < text.size(); index += length) {
        const bool pair = text.at(index).isHighSurrogate() && index + 1 < text.size();
        length = pair ? 2 : 1;
        const QString character = text.mid(index, length);
        if (!handlers || !handlers->KeyPress(character, shiftState)) ReplaceSelection(character);
    }
}

void EditSurface::Private::TypeAsKey(const QString& text) {
    if (handlers && handlers->KeyDown(Qt::Key_unknown, 0, false)) return;
    Type(text, 0);
    if (handlers) handlers->KeyUp(Qt::Key_unknown, 0);
}

// The toolkit takes what is being composed for text when it looks for a place beside it, and finds none that there is.
void EditSurface::Private::EndComposition(bool commits) {
    if (composing || composed.isNull()) return;
    QInputMethod& method = *QGuiApplication::inputMethod();
    commits ? method.commit() : method.reset();
    if (composed.isNull()) return;
    const QTextBlock block = std::exchange(composed, QTextCursor()).block();
    block.layout()->setPreeditArea(-1, QString());
    MarkOutdated(block.blockNumber(), block.blockNumber());
    q.document()->markContentsDirty(block.position(), block.length());
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
        if (event->replacementLength() > 0) {
            const int last = document()->characterCount() - 1;
            const int from = std::clamp(textCursor().position() + event->replacementStart(), 0, last);
            const int length = std::clamp(event->replacementLength(), 0, last - from);
            if (d_->handlers) static_cast<void>(d_->handlers->KeyDown(Qt::Key_unknown, 0, false));
            d_->Replace(from, length, QString(), d_->InsertionFormat());
        }
        d_->TypeAsKey(event->commitString());
    } else if (!event->preeditString().isEmpty() && textCursor().hasSelection()) {
        const CharFormat format = d_->InsertionFormat();
        if (d_->handlers) static_cast<void>(d_->handlers->KeyDown(Qt::Key_unknown, 0, false));
        d_->ReplaceSelection(QString());
        d_->insertion = format;
    }
    QInputMethodEvent composition(event->preeditString(), event->attributes());
    QPlainTextEdit::inputMethodEvent(&composition);
    d_->composed = event->preeditString().isEmpty() ? QTextCursor() : textCursor();
    d_->composing = false;
    event->accept();
    ensureCursorVisible();
}

QMimeData* EditSurface::createMimeDataFromSelection() const {
    const QTextCursor cursor = textCursor();
    auto* const copied = new QMimeData;
    const int begin = cursor.selectionStart();
    d_->handedOut = {begin, d_->Characters(begin, cursor.selectionEnd() - begin), d_->revision};
    copied->setText(d_->handedOut.text);
    return copied;
}

void EditSurface::insertFromMimeData(const QMimeData* source) {
    if (isReadOnly() || source == nullptr || !source->hasText()) return;
    const QString text = source->text();
    if (!d_->handlers) {
        d_->ReplaceSelection(text);
    } else if (IsOneCharacter(text)) {
        d_->TypeAsKey(text);  // tables of characters and the like hand over what is picked there this way
    } else {
        d_->handlers->Paste(text);
    }
    ensureCursorVisible();
}

void EditSurface::dropEvent(QDropEvent* event) {
    d_->EndComposition(true);
    const bool takes = !isReadOnly() && event->mimeData() != nullptr && event->mimeData()->hasText();
    const int target = cursorForPosition(event->position().toPoint()).position();
    // The toolkit ends its part of the dragging, and has nothing to insert.
    const QMimeData nothing;
    QDropEvent end(event->position(), event->possibleActions(), &nothing, event->buttons(), event->modifiers());
    QPlainTextEdit::dropEvent(&end);
    if (!takes) {
        event->ignore();
        return;
    }
    const bool moved =
        event->dropAction() == Qt::MoveAction && (event->source() == this || event->source() == viewport());
    d_->Drop(event->mimeData()->text(), target, moved);
    ensureCursorVisible();
    event->acceptProposedAction();
}

void EditSurface::Private::Drop(const QString& text, int target, bool moved) {
    const QTextCursor origin = q.textCursor();
    const bool leaves = moved && origin.hasSelection();
    if (leaves && target >= origin.selectionStart() && target <= origin.selectionEnd()) return;  // dropped on itself
    QTextCursor cursor = q.textCursor();
    cursor.setPosition(target);
    q.setTextCursor(cursor);
    if (handlers) {
        handlers->Paste(text);
    } else {
        ReplaceSelection(text);
    }
    if (!leaves) return;
    // What was dragged goes from its old place last, so that one step of undo brings all back.
    const QTextCursor caret = q.textCursor();
    const int from = origin.selectionStart();
    Replace(from, origin.selectionEnd() - from, QString(), formats.Base());
    q.setTextCursor(caret);
}

void EditSurface::contextMenuEvent(QContextMenuEvent* event) {
    // The right button has opened it already when it went down.
    if (d_->handlers && event->reason() != QContextMenuEvent::Mouse) d_->handlers->ContextMenu(event->globalPos());
    event->accept();
}

}  // namespace vellum
