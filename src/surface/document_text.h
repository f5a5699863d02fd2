// Text on its way into a QTextDocument and back, with nothing lost: the toolkit would take a few characters that a file
// may hold for ends of its blocks, so these are swapped for a stand-in that remembers them.
#pragma once

#include "values/text_range.h"

#include <QString>

#include <utility>
#include <vector>

class QTextCursor;
class QTextDocument;

namespace vellum {

struct DocumentText {
    QString text;                                // "\n" at line ends, stand-ins for what the document can't hold
    std::vector<std::pair<int, char16_t>> held;  // index in `text` and the character that stands there in truth
};

// CR, LF and CR LF become line ends.
[[nodiscard]] DocumentText ToDocumentText(const QString& text);

// The text that it stands for, with "\n" at line ends.
[[nodiscard]] QString RawTextOf(const DocumentText& text);

// Marks the stand-ins of a text that was just inserted at `position`. A change of formats for the document.
void MarkStandIns(QTextDocument& document, int position, const DocumentText& inserted);

// Puts back what `raw`, taken from `document` at `position` with its block ends, stands for; line ends become "\n".
[[nodiscard]] QString FromDocumentText(QString raw, QTextDocument& document, int position);

// The characters in a range of positions, with "\n" at line ends.
[[nodiscard]] QString ReadDocument(QTextDocument& document, const TextRange& range);

// The positions that are selected; where the cursor stands when none is.
[[nodiscard]] TextRange SelectedRange(const QTextCursor& cursor);

// `text` with line ends of any kind, with "\n" instead.
[[nodiscard]] QString WithLf(QString text);

// `text` with "\n" line ends, with CR LF instead.
[[nodiscard]] QString WithCrLf(const QString& text);

}  // namespace vellum
