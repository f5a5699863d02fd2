// The browsers outside the program: the three of the settings, and the system's own.
#pragma once

#include <QString>

namespace vellum {

class Workbench;

// Shows the active document in the browser `index`, 0 to 2, or in the system's when none is set.
void OpenInExternalBrowser(Workbench& workbench, int index);

// Shows a file in the first browser, or in the system's when none is set. Only a failure of the first one is told.
void ShowInFirstBrowser(Workbench& workbench, const QString& path);

}  // namespace vellum
