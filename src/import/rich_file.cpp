#include "import/rich_file.h"

#include "files/text_file.h"
#include "files/utf8.h"
#include "import/rtf_reader.h"
#include "surface/document_text.h"

namespace vellum {

std::optional<RichText> LoadRichFile(const QString& path, const QString& font, double points) {
    std::optional<LoadedText> loaded = ReadTextFile(path);
    if (!loaded) return std::nullopt;
    if (IsRtf(loaded->bytes)) {
        loaded->text.clear();  // which is larger than the file
        return ReadRtf(loaded->bytes);
    }
    // Bytes that are no text stand in it as halves of surrogate pairs, which only the file's own document can keep.
    const QString text = loaded->format.badBytes ? DecodeUtf8(EncodeUtf8(loaded->text)) : loaded->text;
    return PlainRichText(WithCrLf(text), font, points);
}

}  // namespace vellum
