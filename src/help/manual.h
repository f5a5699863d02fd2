// The manual, generated as a page.
#pragma once

#include <QString>

namespace vellum {

// A whole page; every line ends in CR LF. The preview knows it by its title, "Vellumcraft Manual".
[[nodiscard]] QString ManualPage();

}  // namespace vellum
