// The manual, generated as a page.
#pragma once

#include <QString>

namespace vellum {

// A whole page; every line ends in CR LF. Its title, "Vellumcraft Manual", tells the preview what it shows.
[[nodiscard]] QString ManualPage();

}  // namespace vellum
