// The menus of the right button: on the text of a document, on the files and on the directories of the website panel.
#pragma once

#include <QPoint>

class QMenu;

namespace vellum {

class MDIform1;

// Shows the menu `mnuPop` of the active document at a point of the screen and doesn't wait for it; it is gone when it
// closes. Null without a document.
QMenu* ShowTextMenu(MDIform1& window, QPoint place);

// Fills the menus of the panel. Their keys act where a list has the keyboard, and are nobody else's.
void BuildWebsiteMenus(MDIform1& window);

}  // namespace vellum
