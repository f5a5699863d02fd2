// The main window's menus, as one table of the commands that stand in them.
#pragma once

class QMenuBar;

namespace vellum {

class MDIform1;

void BuildMenuBar(QMenuBar& bar, MDIform1& window);

}  // namespace vellum
