// The pages that the program makes itself, such as the manual, on their way to a browser.
#pragma once

#include <QString>

namespace vellum {

class PreviewPipeline;
class Workbench;

// Shows a page that the program made: writes it to "caching.htm" in the website directory and sends the active
// document's browser there, whose refresh timer stops. Opens a document when there is none. In a session without
// previews the page goes to the first external browser.
void LoadPage(Workbench& workbench, const QString& html);

// The same for the window of `pipeline`, be it the active one or not, in a session with previews. The browser is
// visible afterwards unless the page can be put nowhere.
void ShowPageIn(Workbench& workbench, PreviewPipeline& pipeline, const QString& html);

}  // namespace vellum
