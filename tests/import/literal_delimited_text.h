// Delimited text read by a plain walk from character to character, to hold the reader against.
#pragma once

#include "import/delimited_text.h"

namespace vellum::test {

[[nodiscard]] DelimitedText LiteralDelimitedText(QStringView text, std::optional<QChar> delimiter);

}  // namespace vellum::test
