// The pages that two choices of the New dialog start with, and what all generated pages share.
#pragma once

#include <QString>

namespace vellum {

// A page that a frameset goes into, among its empty lines.
[[nodiscard]] QString FramesetSkeleton();

// Characters from that place to the end of the page, line ends counted as two.
inline constexpr int framesetFromEnd = 34;

// The tags that every page has.
[[nodiscard]] QString StructuralSkeleton();

// What the html element of a page has: the namespace of XHTML 1.0, as an attribute with a blank before it.
[[nodiscard]] QString NameSpaceAttribute();

}  // namespace vellum
