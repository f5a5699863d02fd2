// The browsers outside the program: up to three that the settings name, else the system's own.
#pragma once

#include <QString>

namespace vellum {

class Workbench;

// Shows the active document in the browser `index`, 0 to 2, or in the system's when none is set.
void OpenInExternalBrowser(Workbench& workbench, int index);

// Shows a file in the first browser, or in the system's when none is set; that one may fail without a word.
void ShowInFirstBrowser(Workbench& workbench, const QString& path);

}  // namespace vellum
