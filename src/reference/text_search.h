// Searches in a text with positions from 1, where 0 says "not found". A position or a length that makes no sense, as
// one reckoned from something that wasn't found, ends the reading.
#pragma once

#include "reference/reading_failed.h"

#include <QString>
#include <QStringView>

namespace vellum {

// The first `needle` at or after `pos`.
template <typename Needle>
[[nodiscard]] qsizetype FirstFrom(qsizetype pos, QStringView text, Needle needle) {
    if (pos < 1) throw ReadingFailed("a search from a place that wasn't found");
    return text.indexOf(needle, pos - 1) + 1;
}

// The last `needle` at or before `pos`.
[[nodiscard]] inline qsizetype LastUpTo(qsizetype pos, QStringView text, QChar needle) {
    if (pos < 1) throw ReadingFailed("a search back from a place that wasn't found");
    return text.lastIndexOf(needle, pos - 1) + 1;
}

// `length` characters from `pos`, cut at the end of the text.
[[nodiscard]] inline QStringView Range(QStringView text, qsizetype pos, qsizetype length) {
    if (pos < 1 || length < 0) throw ReadingFailed("a range that ends before it begins");
    return text.mid(pos - 1, length);
}

// From `pos` up to `end`, which is not taken.
[[nodiscard]] inline QStringView UpTo(QStringView text, qsizetype pos, qsizetype end) {
    return Range(text, pos, end - pos);
}

}  // namespace vellum
