// Colours in equal steps from one towards another.
#pragma once

#include "values/units.h"

#include <QStringList>

namespace vellum {

// `steps` colours, as "#RRGGBB", of which the first is `first`; none for fewer than one. Every channel goes by whole
// numbers, the fraction of a step lost, so that the ramp ends at least one step before `last`.
[[nodiscard]] QStringList ColorRamp(ColorNumber first, ColorNumber last, int steps);

}  // namespace vellum
