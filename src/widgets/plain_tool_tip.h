// Tooltips that may hold anything, such as the name of a file.
#pragma once

#include <QString>

namespace vellum {

// The tooltip that shows `text` letter by letter. A tooltip reads a text with tags in it as markup.
[[nodiscard]] QString PlainToolTip(const QString& text);

}  // namespace vellum
