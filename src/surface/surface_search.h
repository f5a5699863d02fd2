// Searching in a document line by line, without a copy of its text.
#pragma once

#include "values/text_range.h"

#include <QString>

#include <optional>

class QTextDocument;

namespace vellum {

// The positions of the first match at or after one; empty when there is none. `text` may hold line ends of any kind.
[[nodiscard]] std::optional<TextRange> FindInDocument(QTextDocument& document, const QString& text, int position,
                                                      Qt::CaseSensitivity cs);

}  // namespace vellum
