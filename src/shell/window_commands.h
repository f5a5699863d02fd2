// The commands of the main window that are more than a call of another unit: on documents, colours, other programs,
// help.
#pragma once

#include "values/units.h"

class QString;

namespace vellum {

class MDIform1;

// The next document, or with -1 the one before, in the order in which they were opened.
void StepDocument(MDIform1& window, int step);

// Both follow the check mark of their item.
void ToggleWordWrap(MDIform1& window);
void ShowRegion(MDIform1& window, int region);

// Writes a colour of the colour bar into the page, as one step of undo.
void InsertColor(MDIform1& window, ColorNumber color);
// Asks for a colour and writes it. Takes no snapshot: it is undone together with what was done before.
void InsertOtherColor(MDIform1& window);
// Tab 1 of the custom bar is that of the settings; the others write the author's own texts.
void RunCustomBar(MDIform1& window, int tab);

void EditVisually(MDIform1& window);
void ShowSettings(MDIform1& window);
void StartAccessory(MDIform1& window, const QString& program);
void ShowManual(MDIform1& window);
// The tips; what the author goes for in them follows when they are gone.
void ShowTips(MDIform1& window);
void ShowAbout(MDIform1& window);

}  // namespace vellum
