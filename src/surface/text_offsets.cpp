#include "surface/text_offsets.h"

#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace vellum {
namespace {

constexpr int lineEndLength = 2;

}  // namespace

int TextOffsets::Length() const {
    return document_.characterCount() - 1 + document_.blockCount() - 1;
}

int TextOffsets::OffsetOf(int position) const {
    return position + document_.findBlock(position).blockNumber();
}

int TextOffsets::PositionOf(int offset) const {
    const auto startsUpTo = [&](int line) { return document_.findBlockByNumber(line).position() + line <= offset; };
    // One offset is mostly asked for near the one before: the search goes out from there in ever wider steps.
    int low = 0;
    int high = document_.blockCount() - 1;
    const int known = std::min(knownLine_, high);
    int step = 1;
    if (startsUpTo(known)) {
        for (low = known; low + step <= high && startsUpTo(low + step); step *= 2) low += step;
        high = std::min(high, low + step - 1);
    } else {
        for (high = known - 1; high - step >= 0 && !startsUpTo(high - step); step *= 2) high -= step;
        low = std::max(low, high - step);
    }
    while (low < high) {  // the last line that starts at or before the offset
        const int middle = low + (high - low + 1) / 2;
        if (startsUpTo(middle)) {
            low = middle;
        } else {
            high = middle - 1;
        }
    }
    knownLine_ = std::max(low, 0);
    const QTextBlock block = document_.findBlockByNumber(knownLine_);
    return block.position() + std::clamp(offset - block.position() - knownLine_, 0, block.length() - 1);
}

TextPlace PlaceFinder::At(int offset) {
    while (offset < lineStart_ && line_ > 0) lineStart_ -= formats_.LineLength(--line_) + lineEndLength;
    int length = formats_.LineLength(line_);
    while (offset >= lineStart_ + length + lineEndLength && line_ + 1 < formats_.LineCount()) {
        lineStart_ += length + lineEndLength;
        length = formats_.LineLength(++line_);
    }
    return {line_, std::clamp(offset - lineStart_, 0, length)};
}

}  // namespace vellum
