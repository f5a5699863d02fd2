// Writes RTF that every word processor reads.
#pragma once

#include "import/rich_text.h"

#include <QByteArray>

namespace vellum {

// In seven bits, characters beyond these by their Unicode numbers. ReadRtf makes the same text of it.
[[nodiscard]] QByteArray WriteRtf(const RichText& rich);

}  // namespace vellum
