// Colours in equal steps from one towards another.
#pragma once

#include "values/units.h"

#include <QStringList>

namespace vellum {

// `steps` colours, as "#RRGGBB", of which the first is `first`; none for fewer than one. Every channel goes by whole
// numbers, the fraction of a step lost, so that `last` comes out only where it is `first`: the ramp ends a step before
// it, or more.
[[nodiscard]] QStringList ColorRamp(ColorNumber first, ColorNumber last, int steps);

}  // namespace vellum
