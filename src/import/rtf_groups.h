// The groups of an RTF file: what holds within their braces.
#pragma once

#include "import/rich_text.h"
#include "import/rtf_words.h"

#include <vector>

namespace vellum {

// What a group gives back at its end.
struct RtfGroup {
    RichFormat format;  // but for its font
    int font = -1;      // by its number in the file; -1 for the document's own
    bool hidden = false;
    bool deleted = false;
    RichAlignment alignment = RichAlignment::Left;
    RtfNumbering numbering = RtfNumbering::None;  // as the paragraph itself tells
    bool inTable = false;
    int list = 0;            // that the paragraph belongs to; 0 for none
    int level = 0;           // in it
    int fallbackLength = 1;  // of what comes after a Unicode character for readers without Unicode
    RtfDestination destination = RtfDestination::Body;

    bool operator==(const RtfGroup&) const = default;
};

// The groups around, from the outermost. Those that begin alike share one entry, so that a file of nothing but braces
// costs little.
class RtfGroupStack {
public:
    [[nodiscard]] qint64 Depth() const { return depth_; }
    void Push(const RtfGroup& group);
    [[nodiscard]] RtfGroup Pop();  // there has to be one

private:
    struct Entry {
        RtfGroup group;
        int count = 0;
    };

    std::vector<Entry> entries_;
    qint64 depth_ = 0;
};

}  // namespace vellum
