// What a sample of a text stands on, so that it can be read in any colour.
#pragma once

#include "values/units.h"

namespace vellum {

// White, as a page is; dark for a light text.
[[nodiscard]] ColorNumber PaperFor(ColorNumber text);

}  // namespace vellum
