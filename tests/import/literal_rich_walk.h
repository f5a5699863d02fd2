// The conversion of a rich text as it is told: on a surface that is searched, altered and read character by character.
#pragma once

#include "import/rich_text.h"

#include <QString>

namespace vellum::test {

[[nodiscard]] QString LiteralConvertRichText(const RichText& rich);

}  // namespace vellum::test
