// What an owner of an edit surface wants to know of, before the surface acts by itself.
#pragma once

#include <QPoint>
#include <QString>
#include <Qt>

namespace vellum {

// Modifiers of a key event, as bits of one number.
inline constexpr int shiftBit = 1;
inline constexpr int ctrlBit = 2;
inline constexpr int altBit = 4;

class SurfaceHandlers {
public:
    SurfaceHandlers() = default;
    virtual ~SurfaceHandlers() = default;
    SurfaceHandlers(const SurfaceHandlers&) = delete;
    SurfaceHandlers& operator=(const SurfaceHandlers&) = delete;

    // A key goes down. True swallows it, and the character with it. `edits` says that the key changes the text by
    // itself although Ctrl is held, as the one that deletes a word does.
    virtual bool KeyDown(int key, int shiftState, bool edits) = 0;
    // A character is about to go in, whichever way it was typed: "\r" for Enter, "\t", "\b", else one character of the
    // text. True swallows it.
    virtual bool KeyPress(const QString& character, int shiftState) = 0;
    virtual void KeyUp(int key, int shiftState) = 0;
    virtual void MouseDown(Qt::MouseButton button) = 0;
    virtual void MouseMove() = 0;
    virtual void MouseUp(Qt::MouseButton button) = 0;
    // The menu of the surface is asked for, at a point of the screen.
    virtual void ContextMenu(QPoint place) = 0;
    // Text comes by the clipboard or is dropped, and belongs at the selection.
    virtual void Paste(const QString& text) = 0;
    // The clipboard keys of other desktops.
    virtual void Cut() = 0;
    virtual void Copy() = 0;
};

}  // namespace vellum
