// Loads a file as text with formats.
#pragma once

#include "import/rich_text.h"

#include <optional>

namespace vellum {

// An RTF file, told by its first bytes, with its formats; any other as plain text, in whichever encoding it is, in the
// font given. Empty when it can't be read.
[[nodiscard]] std::optional<RichText> LoadRichFile(const QString& path, const QString& font, double points);

}  // namespace vellum
