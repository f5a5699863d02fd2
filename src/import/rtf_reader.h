// Reads RTF as word processors write it.
#pragma once

#include "import/rich_text.h"

#include <QByteArrayView>

namespace vellum {

[[nodiscard]] bool IsRtf(QByteArrayView bytes);

// The text of an RTF file with its formats. What has no place in it is left out: pictures, headers, footers, notes,
// comments, hidden and deleted text. Tables come as lines with tabs between the cells. A line break is a line end, and
// so is a page break where text stands before it. Bullets are told by the paragraph, the numbers of lists stand in the
// text. Never fails: a damaged file gives what could be read.
[[nodiscard]] RichText ReadRtf(QByteArrayView bytes);

}  // namespace vellum
