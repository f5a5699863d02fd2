#include "editor/document_file.h"

#include "files/safe_write.h"
#include "surface/edit_surface.h"

#include <utility>

namespace vellum {

DocumentFile::DocumentFile(EditSurface& text) : text_(text), heldRevision_(text.Revision()) {}

bool DocumentFile::IsUntouched() const {
    return text_.Revision() == heldRevision_;
}

bool DocumentFile::Load(const QString& path) {
    // The stamp is taken first: a change while the file is read is then found at the next look.
    const FileStamp stamp = StampOf(path).value_or(FileStamp());
    std::optional<LoadedText> loaded = ReadTextFile(path);
    if (!loaded) return false;
    path_ = path;
    Take({.change = FileChange::Changed, .stamp = stamp, .found = std::move(*loaded)});
    return true;
}

void DocumentFile::Take(const FileLook& look) {
    text_.SetText(look.found.text);
    format_ = look.found.format;
    Note(look);
    heldRevision_ = text_.Revision();
}

void DocumentFile::Note(const FileLook& look) {
    stamp_ = look.stamp;
    held_ = look.found.bytes;
    heldRevision_.reset();
}

bool DocumentFile::Save(const QString& path) {
    TextFormat format = format_;
    const QByteArray bytes = IsUntouched() ? held_ : EncodeText(text_.RawText(), format);
    if (!WriteFileSafely(path, bytes)) return false;
    path_ = path;
    format_ = std::move(format);
    stamp_ = StampOf(path).value_or(FileStamp());
    held_ = bytes;
    heldRevision_ = text_.Revision();
    return true;
}

void DocumentFile::Recover(const QString& text, const TextFormat& format) {
    text_.SetText(text);
    format_ = format;
}

}  // namespace vellum
