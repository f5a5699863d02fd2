#include "import/rich_file.h"

#include "files/text_file.h"
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
    return PlainRichText(WithCrLf(loaded->ReadableText()), font, points);
}

}  // namespace vellum
