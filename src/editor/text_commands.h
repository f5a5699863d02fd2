// What the Edit menu and the menu on the text do to the active document. Without one they do nothing.
#pragma once

namespace vellum {

class Workbench;

void UndoText(Workbench& bench);
void RedoText(Workbench& bench);

// Cut and Copy with nothing selected leave the clipboard empty.
void CutText(Workbench& bench);
void CopyText(Workbench& bench);
// The clipboard's text as a step of undo of its own, in the colours of the place; an empty clipboard makes a step too.
void PasteText(Workbench& bench);
// Takes no snapshot: it is undone together with what was done before.
void DeleteText(Workbench& bench);
// The same without marking the document as changed before.
void RemoveSelection(Workbench& bench);
void SelectAllText(Workbench& bench);

// Tag and attribute names of the whole document. Lower case leaves server-side blocks alone and marks the document as
// changed; upper case changes the blocks too and leaves the mark as it was.
void LowerCaseMarkup(Workbench& bench);
void UpperCaseMarkup(Workbench& bench);

// Asks for a line, from 1, and selects it without its line end; a fraction means the nearest line, halves the even one.
// Tells when there is no such line; does nothing for an answer that is no number above 0.
void GoToLine(Workbench& bench);

}  // namespace vellum
