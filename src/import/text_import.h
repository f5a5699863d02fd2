// Turns text into markup.
#pragma once

#include <QString>

namespace vellum {

// Plain text with CR LF line ends as markup: angle brackets and double quotes as entities, each pair of blanks as one
// entity, a break at each line end. The ampersand stays as it is, so entities that were typed go through.
[[nodiscard]] QString ConvertPlainText(QString text);

}  // namespace vellum
