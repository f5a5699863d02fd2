// The copy of a document that the visual editor works on.
#pragma once

#include <QString>

namespace vellum {

class Document;
class Workbench;

// Writes the document's text to "caching.htm" in the website directory and returns the path. Empty, after a message,
// for a document with a frameset, which the visual editor can't load, and for a file that can't be written.
[[nodiscard]] QString WriteVisualCopy(Workbench& workbench, const Document& document);

}  // namespace vellum
