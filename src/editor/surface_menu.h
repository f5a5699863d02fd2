// The menu that the right button opens on the text: undo, the clipboard and the tags for a selection.
#pragma once

#include <QPoint>

class QMenu;

namespace vellum {

class Workbench;

// Shows the menu `mnuPop` of the active document at a point of the screen and doesn't wait for it; it is gone when it
// closes. Null without a document.
QMenu* ShowSurfaceMenu(Workbench& bench, QPoint place);

}  // namespace vellum
