// Colours as markup spells them.
#pragma once

#include "values/units.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace vellum {

// "#RRGGBB" of a colour with red in its low byte. Of a value with more than six hexadecimal digits, as the system's own
// colours have, the first six count.
[[nodiscard]] QString ColorToHex(ColorNumber color);

// The sixteen names that every colour box offers, in upper case.
[[nodiscard]] const QStringList& ColorNames();

// The colour that a field's text stands for, as "#FF8000" or a name; nothing when it is neither.
[[nodiscard]] std::optional<ColorNumber> ColorFromText(const QString& text);

}  // namespace vellum
