#include "editor/document.h"

namespace vellum {

void Document::ProcessUndo() {}

void Document::ProcessRedo() {}

void Document::HandleUndo() {}

void Document::HandleRedo() {}

void Document::ResetRedo() {}

}  // namespace vellum
