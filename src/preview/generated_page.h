// Shows the pages that the program makes itself, such as the manual.
#pragma once

#include <QString>

namespace vellum {

class PreviewPipeline;
class Workbench;

// Writes a page to "caching.htm" in the website directory and shows it in the preview of the active document until its
// text changes. Opens a document when there is none. A session without previews shows it in the first external browser.
void LoadPage(Workbench& workbench, const QString& html);

// The same in the preview of one window, active or not. It is visible once the page is written, unless it can't be
// written anywhere.
void ShowPageIn(Workbench& workbench, PreviewPipeline& pipeline, const QString& html);

}  // namespace vellum
