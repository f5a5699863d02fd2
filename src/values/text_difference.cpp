#include "values/text_difference.h"

#include <algorithm>

namespace vellum {

int TextDifference::Moved(int offset) const {
    if (offset <= earlier.offset) return offset;
    return offset < earlier.End() ? later.offset : offset + later.End() - earlier.End();
}

TextDifference DifferenceBetween(QStringView earlier, QStringView later) {
    const qsizetype shorter = std::min(earlier.size(), later.size());
    const qsizetype begin = std::ranges::mismatch(earlier, later).in1 - earlier.begin();
    qsizetype end = 0;
    while (end < shorter - begin && earlier.at(earlier.size() - 1 - end) == later.at(later.size() - 1 - end)) ++end;
    const auto range = [&](QStringView text) {
        return TextRange{static_cast<int>(begin), static_cast<int>(text.size() - begin - end)};
    };
    return {range(earlier), range(later)};
}

}  // namespace vellum
