// Finds the tags, comments, script and style regions and server-side blocks of a page and tells what colour each takes.
//
// Offsets count from 0.
#pragma once

#include "surface/format_store.h"
#include "values/units.h"

#include <QStringView>

#include <functional>
#include <limits>
#include <optional>
#include <vector>

namespace vellum {

// The colours of the constructs, and the author's two switches.
struct MarkupColors {
    ColorNumber tables = 8388736;
    ColorNumber frames = 192;
    ColorNumber links = 8388608;
    ColorNumber comments = 8421504;  // and the bodies of regions
    ColorNumber other = 32768;       // and the opening tags of regions
    ColorNumber asp = 6776628;
    bool off = false;     // nothing takes a colour; tags are counted all the same
    bool aspBold = true;  // server-side blocks are bold, with or without colours
};

// What a line end of the scanned text is. A "\n" that stands for CR LF ends a tag's name as the CR does.
enum class LineEnds { CrLf, Lf };

// A stretch to paint. Steps are painted in their order, later ones over earlier ones.
struct PaintStep {
    int offset = 0;
    int length = 0;
    std::optional<ColorNumber> color;  // empty: stays as it is
    bool bold = false;                 // true turns bold, false changes nothing
    bool compare = false;              // a stretch of several colours keeps them

    bool operator==(const PaintStep&) const = default;
};

struct MarkupScan {
    std::vector<PaintStep> steps;
    int tagCount = 0;
    // Where the last selection of a pass that selects what it paints would begin: the start of the last tag or block
    // found, or of the body of a region that was found last. -1 when there was nothing to select.
    int selected = -1;
};

// A stretch of a text; constructs that end behind it aren't painted, but for the body of a region.
struct MarkupSpan {
    int start = 0;
    int length = 0;
};

// What the whole of `text`, or the span of it, looks like.
[[nodiscard]] MarkupScan ScanMarkup(QStringView text, const MarkupColors& colors,
                                    const std::optional<MarkupSpan>& span = std::nullopt,
                                    LineEnds lineEnds = LineEnds::CrLf);

// The same for a stretch without the text around it. Offsets in the answer are those of the whole text.
struct MarkupStretch {
    QStringView text;   // of the span and one character more, unless the text ends there
    MarkupSpan span;    // start >= 0
    int endOfText = 0;  // the length of the whole text
    // The offset of the first match at or behind one, without regard to case; -1 when there is none. Asked for the
    // closing tag of a region that isn't in `text`.
    std::function<int(QStringView closing, int offset)> find;
};
[[nodiscard]] MarkupScan ScanStretch(const MarkupStretch& stretch, const MarkupColors& colors);

// What the whole of `text` looks like after all steps: the stretches that have a colour or a weight of their own,
// ascending and without overlaps. Everything else is in `rest`, and so is the text before the first step.
[[nodiscard]] std::vector<FormatSpan> MarkupFormats(QStringView text, const MarkupColors& colors,
                                                    const CharFormat& rest, LineEnds lineEnds = LineEnds::CrLf);

}  // namespace vellum
