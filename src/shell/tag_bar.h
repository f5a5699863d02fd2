// The tag bar: nine tabs, each with a popup of tags and tools, as one table.
#pragma once

namespace vellum {

class MDIform1;
class TabStrip;

// Adds the tabs to an empty strip, and to the window the popups that they open. A popup shows at the pointer, or below
// its tab when the pointer is elsewhere, and isn't waited for.
void BuildTagBar(TabStrip& strip, MDIform1& window);

}  // namespace vellum
