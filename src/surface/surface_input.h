// What a person does to the text of an edit surface with keys, an input method, the clipboard and dragging.
#pragma once

#include <QString>

#include <functional>

class QDropEvent;
class QInputMethodEvent;
class QKeyEvent;
class QMouseEvent;
class QPlainTextEdit;

namespace vellum {

class Composition;
class SurfaceHandlers;
class SurfaceText;

class SurfaceInput {
public:
    // All outlive this.
    SurfaceInput(QPlainTextEdit& edit, SurfaceText& text, Composition& composition)
        : edit_(edit), text_(text), composition_(composition) {}

    // Who is asked first; nobody at the beginning.
    void SetHandlers(SurfaceHandlers* handlers) { handlers_ = handlers; }
    [[nodiscard]] SurfaceHandlers* Handlers() const { return handlers_; }

    // True when that was all; else the toolkit goes on with the event.
    [[nodiscard]] bool KeyPress(QKeyEvent& event);
    [[nodiscard]] bool MousePress(QMouseEvent& event);
    void KeyRelease(const QKeyEvent& event);

    // `show` has the toolkit show what is being composed.
    void Compose(const QInputMethodEvent& event, const std::function<void(QInputMethodEvent&)>& show);
    // Text comes by the clipboard.
    void Insert(const QString& text);
    void Drop(QDropEvent& event);

private:
    [[nodiscard]] bool UseClipboard(QKeyEvent& event);
    [[nodiscard]] bool Delete(QKeyEvent& event);
    [[nodiscard]] bool TypeKey(QKeyEvent& event);
    // Characters one by one, each after the handlers were asked. "\r" is the line end.
    void Type(const QString& text, int shiftState);
    // The same for what comes without a key of its own, as from an input method.
    void TypeAsKey(const QString& text);
    // `moved`: what is selected is what was dragged, and leaves its place.
    void DropAt(const QString& text, int target, bool moved);

    QPlainTextEdit& edit_;
    SurfaceText& text_;
    Composition& composition_;
    SurfaceHandlers* handlers_ = nullptr;
};

}  // namespace vellum
