#include "surface/surface_input.h"

#include "surface/composition.h"
#include "surface/document_text.h"
#include "surface/surface_handlers.h"
#include "surface/surface_text.h"

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
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

bool IsOneCharacter(const QString& text) {
    const auto length = text.size();
    return (length == 1 && text.at(0).isPrint()) || (length == 2 && text.at(0).isHighSurrogate());
}

// Modifiers that don't count: a key of the keypad is the same key, and AltGr may still be held after a brace.
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

bool SurfaceInput::KeyPress(QKeyEvent& event) {
    if (ActsOnText(event)) composition_.End(true);
    if (UseClipboard(event)) return true;
    if (handlers_ && handlers_->KeyDown(event.key(), ShiftState(event), DeletesByItself(event))) {
        event.accept();
        return true;
    }
    if (event.matches(QKeySequence::Undo) || event.matches(QKeySequence::Redo)) return true;
    if (Delete(event) || TypeKey(event)) return true;
    // These would set a direction for the block, which plain text has no place for.
    if (event.key() == Qt::Key_Direction_L || event.key() == Qt::Key_Direction_R) return true;
    if (!IsDigitWithCtrl(event)) return false;
    event.ignore();
    return true;
}

void SurfaceInput::KeyRelease(const QKeyEvent& event) {
    // A key that repeats while it is held is released once.
    if (handlers_ && !event.isAutoRepeat()) handlers_->KeyUp(event.key(), ShiftState(event));
}

bool SurfaceInput::MousePress(QMouseEvent& event) {
    if (handlers_ && event.button() == Qt::RightButton) {
        handlers_->ContextMenu(event.globalPosition().toPoint());
        event.accept();
        return true;
    }
    composition_.End(true);
    if (handlers_) handlers_->MouseDown(event.button());
    return false;
}

bool SurfaceInput::UseClipboard(QKeyEvent& event) {
    if (!handlers_) return false;
    const int shiftState = ShiftState(event);
    if (shiftState == shiftBit && event.key() == Qt::Key_Insert) {
        handlers_->Paste(QGuiApplication::clipboard()->text());
    } else if (shiftState == shiftBit && event.key() == Qt::Key_Delete) {
        handlers_->Cut();
    } else if (shiftState == ctrlBit && event.key() == Qt::Key_Insert) {
        handlers_->Copy();
    } else {
        return false;
    }
    event.accept();
    return true;
}

bool SurfaceInput::Delete(QKeyEvent& event) {
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
    QTextCursor cursor = edit_.textCursor();
    if (event.matches(QKeySequence::Cut)) {
        if (cursor.hasSelection()) edit_.copy();
    } else if (event.key() == Qt::Key_Backspace && !(event.modifiers() & ~(Qt::ShiftModifier | noModifiers))) {
        if (handlers_ && handlers_->KeyPress(QStringLiteral("\b"), ShiftState(event))) {
            event.accept();
            return true;
        }
        if (!cursor.hasSelection()) {
            cursor.setPosition(PositionBefore(*edit_.document(), cursor.position()), QTextCursor::KeepAnchor);
        }
    } else {
        const auto* const found =
            std::ranges::find_if(deletions, [&](const Deletion& deletion) { return event.matches(deletion.key); });
        if (found == deletions.end()) return false;
        if (!cursor.hasSelection()) cursor.movePosition(found->move, QTextCursor::KeepAnchor);
    }
    text_.Remove(SelectedRange(cursor));
    edit_.ensureCursorVisible();
    event.accept();
    return true;
}

bool SurfaceInput::TypeKey(QKeyEvent& event) {
    QString text;
    const auto modifiers = event.modifiers() & ~(Qt::ShiftModifier | noModifiers);
    if (modifiers == Qt::NoModifier && (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter)) {
        text = QStringLiteral("\r");
    } else if (modifiers == Qt::NoModifier && (event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab)) {
        text = QStringLiteral("\t");
    } else if (IsTypedText(event)) {
        text = event.text();
    } else {
        return false;
    }
    Type(text, ShiftState(event));
    edit_.ensureCursorVisible();
    event.accept();
    return true;
}

void SurfaceInput::Type(const QString& text, int shiftState) {
    for (qsizetype index = 0, length = 1; index < text.size(); index += length) {
        const bool pair = text.at(index).isHighSurrogate() && index + 1 < text.size();
        length = pair ? 2 : 1;
        const QString character = text.mid(index, length);
        if (!handlers_ || !handlers_->KeyPress(character, shiftState)) text_.ReplaceSelection(character);
    }
}

void SurfaceInput::TypeAsKey(const QString& text) {
    if (handlers_ && handlers_->KeyDown(Qt::Key_unknown, 0, false)) return;
    Type(text, 0);
    if (handlers_) handlers_->KeyUp(Qt::Key_unknown, 0);
}

void SurfaceInput::Compose(const QInputMethodEvent& event, const std::function<void(QInputMethodEvent&)>& show) {
    composition_.BeginChange();
    if (!event.commitString().isEmpty() || event.replacementLength() > 0) {
        // What was being composed goes first; then the committed text comes as if it were typed.
        QInputMethodEvent finish;
        show(finish);
        if (event.replacementLength() > 0) {
            const int last = edit_.document()->characterCount() - 1;
            const int from = std::clamp(edit_.textCursor().position() + event.replacementStart(), 0, last);
            const int length = std::clamp(event.replacementLength(), 0, last - from);
            if (handlers_) static_cast<void>(handlers_->KeyDown(Qt::Key_unknown, 0, false));
            text_.Remove({from, length});
        }
        TypeAsKey(event.commitString());
    } else if (!event.preeditString().isEmpty() && edit_.textCursor().hasSelection()) {
        const CharFormat format = text_.InsertionFormat();
        if (handlers_) static_cast<void>(handlers_->KeyDown(Qt::Key_unknown, 0, false));
        text_.ReplaceSelection(QString());
        text_.SetInsertionFormat(format);
    }
    QInputMethodEvent composition(event.preeditString(), event.attributes());
    show(composition);
    composition_.EndChange(event.preeditString().isEmpty() ? QTextCursor() : edit_.textCursor());
}

void SurfaceInput::Insert(const QString& text) {
    if (!handlers_) {
        text_.ReplaceSelection(text);
    } else if (IsOneCharacter(text)) {
        TypeAsKey(text);  // tables of characters and the like hand over what is picked there this way
    } else {
        handlers_->Paste(text);
    }
}

void SurfaceInput::Drop(QDropEvent& event) {
    composition_.End(true);
    if (edit_.isReadOnly() || event.mimeData() == nullptr || !event.mimeData()->hasText()) {
        event.ignore();
        return;
    }
    const int target = edit_.cursorForPosition(event.position().toPoint()).position();
    const bool fromHere = event.source() == &edit_ || event.source() == edit_.viewport();
    DropAt(event.mimeData()->text(), target, event.dropAction() == Qt::MoveAction && fromHere);
    edit_.ensureCursorVisible();
    event.acceptProposedAction();
}

void SurfaceInput::DropAt(const QString& text, int target, bool moved) {
    const QTextCursor origin = edit_.textCursor();
    const bool leaves = moved && origin.hasSelection();
    if (leaves && target >= origin.selectionStart() && target <= origin.selectionEnd()) return;  // dropped on itself
    QTextCursor cursor = origin;
    cursor.setPosition(target);
    edit_.setTextCursor(cursor);
    if (handlers_) {
        handlers_->Paste(text);
    } else {
        text_.ReplaceSelection(text);
    }
    if (!leaves) return;
    // What was dragged goes from its old place last, so that one step of undo brings all back.
    const QTextCursor caret = edit_.textCursor();
    text_.Remove(SelectedRange(origin));
    edit_.setTextCursor(caret);
}

}  // namespace vellum
