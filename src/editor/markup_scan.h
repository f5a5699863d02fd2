// Finds the tags, comments, script and style regions and server-side blocks of a page and tells what colour each takes.
//
// Offsets count from 0.
#pragma once

#include "surface/format_store.h"
#include "values/text_range.h"
#include "values/units.h"

#include <QStringView>

#include <functional>
#include <vector>

namespace vellum {

// The colours of the constructs, and the author's two switches.
struct MarkupColors {
    ColorNumber tables = 0;
    ColorNumber frames = 0;
    ColorNumber links = 0;
    ColorNumber comments = 0;  // and the bodies of regions
    ColorNumber other = 0;     // and the opening tags of regions
    ColorNumber asp = 0;
    bool off = false;      // nothing takes a colour; tags are counted all the same
    bool aspBold = false;  // server-side blocks are bold, with or without colours
};

struct MarkupScan {
    std::vector<FormatStep> steps;  // painted in their order, later ones over earlier ones
    int tagCount = 0;
    // Where the last selection of a pass that selects what it paints would begin: the start of the last tag or block
    // found, or of the body of a region that was found last. -1 when there was nothing to select.
    int selected = -1;
};

// A range of a text with CR LF at line ends, without the text around it.
struct TextExcerpt {
    QStringView text;   // of the range and one character more, unless the whole text ends there
    TextRange range;    // in the whole text
    int endOfText = 0;  // the length of the whole text
    // The offset in the whole text of the first match at or after one, without regard to case; -1 when there is none.
    // Asked for the closing tag of a region that isn't in `text`.
    std::function<int(QStringView closing, int offset)> find;
};

// What an excerpt looks like. Constructs that end after its range aren't painted, but for the body of a region. Offsets
// in the answer are those of the whole text.
[[nodiscard]] MarkupScan ScanRange(const TextExcerpt& excerpt, const MarkupColors& colors);

// What the whole of a text looks like after all steps: the runs that have a colour or a weight of their own, ascending
// and without overlaps. Everything else is in `rest`, and so is the text before the first step. A line end is a single
// "\n" in `text`.
[[nodiscard]] std::vector<FormatRun> MarkupFormats(QStringView text, const MarkupColors& colors,
                                                   const CharFormat& rest);

}  // namespace vellum
