// The colour that a range of a surface shows.
#pragma once

#include "surface/edit_surface.h"

#include <algorithm>
#include <optional>

namespace vellum::test {

// Empty when it has several colours, or no character.
[[nodiscard]] inline std::optional<ColorNumber> ColorOf(const EditSurface& surface, const TextRange& range) {
    const FormatStore& formats = surface.Formats();
    const auto place = [&](int offset) {
        const int line = surface.GetLineFromChar(offset);
        return TextPlace{line, std::min(offset - surface.LineStart(line), formats.LineLength(line))};
    };
    return formats.CommonColor(place(range.offset), place(range.End()), surface.ForeColor());
}

}  // namespace vellum::test
