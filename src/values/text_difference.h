// Where two versions of a text differ.
#pragma once

#include "values/text_range.h"

#include <QStringView>

namespace vellum {

// One range of the earlier text that became one of the later text. What both have in common at either end lies outside.
struct TextDifference {
    TextRange earlier;
    TextRange later;

    // Where an offset in the earlier text went: one within the range goes to its start.
    [[nodiscard]] int Moved(int offset) const;
};

[[nodiscard]] TextDifference DifferenceBetween(QStringView earlier, QStringView later);

}  // namespace vellum
