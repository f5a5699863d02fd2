// The indentation of the caret's line, which a new line or an inserted text takes over.
#pragma once

namespace vellum {

class EditSurface;

// The tabs that the line of the selection's start begins with, counted no further than that place. Costs what the
// indentation is long.
[[nodiscard]] int TabsBeforeCaret(const EditSurface& surface);

}  // namespace vellum
