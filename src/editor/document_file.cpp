#include "editor/document_file.h"

#include "files/safe_write.h"
#include "surface/edit_surface.h"

#include <utility>

namespace vellum {

DocumentFile::DocumentFile(EditSurface& text) : text_(text), heldRevision_(text.Revision()) {}

bool DocumentFile::Load(const QString& path) {
    std::optional<LoadedText> loaded = ReadTextFile(path);
    if (!loaded) return false;
    text_.SetText(loaded->text);
    path_ = path;
    format_ = std::move(loaded->format);
    held_ = std::move(loaded->bytes);
    heldRevision_ = text_.Revision();
    return true;
}

bool DocumentFile::Save(const QString& path) {
    const bool unedited = text_.Revision() == heldRevision_;
    TextFormat format = format_;
    const QByteArray bytes = unedited ? held_ : EncodeText(text_.RawText(), format);
    if (!WriteFileSafely(path, bytes)) return false;
    path_ = path;
    format_ = std::move(format);
    held_ = bytes;
    heldRevision_ = text_.Revision();
    return true;
}

void DocumentFile::Recover(const QString& text, const TextFormat& format) {
    text_.SetText(text);
    format_ = format;
}

}  // namespace vellum
