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
    const LoadedText& found = look.found;
    const bool heldBytes = format_.holdsBytes;  // which undo may bring back
    format_ = found.format;
    format_.holdsBytes = format_.holdsBytes || heldBytes;
    text_.LoadText(found.text, format_.lineEnd, found.otherLineEnds);
    Note(look);
    heldRevision_ = text_.Revision();
}

void DocumentFile::Note(const FileLook& look) {
    stamp_ = look.stamp;
    held_ = look.found.bytes;
    heldRevision_.reset();
}

EncodedText DocumentFile::Encoded() const {
    if (IsUntouched()) return {held_, format_};
    return EncodeText(text_.RawText(), text_.OtherLineEnds(format_.lineEnd), format_);
}

EncodedText DocumentFile::EncodedAsUtf8(bool byteOrderMark) const {
    TextFormat format = format_;
    format.byteOrderMark = byteOrderMark;
    return EncodeAsUtf8(text_.RawText(), text_.OtherLineEnds(format_.lineEnd), std::move(format));
}

bool DocumentFile::Save(const QString& path, const EncodedText& encoded) {
    if (!encoded.bytes || !WriteFileSafely(path, *encoded.bytes)) return false;
    path_ = path;
    format_ = encoded.format;
    stamp_ = StampOf(path).value_or(FileStamp());
    held_ = *encoded.bytes;
    heldRevision_ = text_.Revision();
    text_.SetUsualLineEnd(format_.lineEnd);
    return true;
}

void DocumentFile::Recover(const QString& text, const TextFormat& format, std::span<const OtherLineEnd> otherLineEnds) {
    format_ = format;
    text_.LoadText(text, format.lineEnd, otherLineEnds);
}

}  // namespace vellum
