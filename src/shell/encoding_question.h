// What becomes of a text that its encoding can't hold any more. The author is asked once per document.
#pragma once

#include "files/text_file.h"

#include <QString>

#include <optional>
#include <vector>

namespace vellum {

class Document;
class Workbench;

class EncodingQuestion {
public:
    // Both outlive this.
    EncodingQuestion(Workbench& workbench, Document& document) : workbench_(workbench), document_(document) {}

    // How the document is to be written to `path`. What the author chose may have changed its text, as one step of
    // undo. Empty when the author cancelled; nothing has changed then.
    [[nodiscard]] std::optional<EncodedText> Settle(const QString& path);

private:
    enum class Way { Unknown, Utf8, References };

    // A text that doesn't fit, and what stands in it that doesn't.
    struct Misfit {
        QString path;
        QString text;
        TextFormat format;
        std::vector<TextRange> ranges;
        std::optional<QString> noReferences;  // why
    };

    [[nodiscard]] Way Ask(const Misfit& misfit) const;  // unknown when the author cancelled
    [[nodiscard]] EncodedText TurnToUtf8(const Misfit& misfit);
    void WriteReferences(const Misfit& misfit);
    void BeginStep();

    Workbench& workbench_;
    Document& document_;
    Way way_ = Way::Unknown;
};

}  // namespace vellum
