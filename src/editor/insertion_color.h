// The colour and weight that the next characters take, set before they go in: so typing paints nothing a second time.
//
// Nothing is selected where these run, but for the three typed characters below.
#pragma once

#include "editor/place.h"

namespace vellum {

class EditSurface;
struct EditorOptions;

// Text inside a tag takes the colour of the tag's "<", unless it is in one of the four tag colours already.
void TakeTagColor(const EditorOptions& options, EditSurface& surface, const PosInfo& place);

// The format of the next typed character by its place. Writes nothing when it is right already.
void ApplyPlaceColor(const EditorOptions& options, EditSurface& surface, const PosInfo& place);

// What three typed characters do on top of that, before they go in and in this order. Each is to be called for its own
// character alone, in a document that isn't a script.

// "-": turns a "<!-" before the caret into the start of a comment, with colour coding disabled too.
void ColorBeforeDash(const EditorOptions& options, EditSurface& surface, const PosInfo& place);
// "%": turns a "<" before the caret into the start of a server-side block.
void ColorBeforePercent(const EditorOptions& options, EditSurface& surface);
// "<": in plain text, what comes is a tag until its end tells of which kind.
void ColorForOpening(const EditorOptions& options, EditSurface& surface, const PosInfo& place);

}  // namespace vellum
