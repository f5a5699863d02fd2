// The pages that two choices of the New dialog start with.
#pragma once

#include <QString>

namespace vellum {

// A page that a frameset goes into, among its empty lines.
[[nodiscard]] QString FramesetSkeleton();

// Characters from that place to the end of the page, line ends counted as two.
inline constexpr int framesetFromEnd = 34;

// The tags that every page has.
[[nodiscard]] QString StructuralSkeleton();

}  // namespace vellum
