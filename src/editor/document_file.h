// The file of a document: where it is, how it spells the text, and what it held when it was last read or written.
#pragma once

#include "files/file_look.h"
#include "files/text_file.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <span>

namespace vellum {

class EditSurface;

class DocumentFile {
public:
    // `text` has to outlive it.
    explicit DocumentFile(EditSurface& text);

    // As long as there is no file, "New" and a number stand in place of its path.
    [[nodiscard]] const QString& Path() const { return path_; }
    void SetPath(const QString& path) { path_ = path; }
    [[nodiscard]] const TextFormat& Format() const { return format_; }
    // What the file held when it was last read, written or noted.
    [[nodiscard]] KnownFile Known() const { return {path_, stamp_, held_}; }
    // The text says what the file held when it was last read or written.
    [[nodiscard]] bool IsUntouched() const;

    // Puts the file's text into the surface. False when it can't be read; nothing has changed then.
    [[nodiscard]] bool Load(const QString& path);
    // The text as it is to be written: byte for byte as the file held it when nothing was edited since, else in the
    // file's format, which it may not fit any more.
    [[nodiscard]] EncodedText Encoded() const;
    // As UTF-8, with a byte order mark where one is wanted or without it the bytes would be misread.
    [[nodiscard]] EncodedText EncodedAsUtf8(bool byteOrderMark) const;
    // Writes what these gave. False when it has no bytes or they can't be written; nothing of the document has changed
    // then.
    [[nodiscard]] bool Save(const QString& path, const EncodedText& encoded);
    // Puts what a look found in the file into the surface.
    void Take(const FileLook& look);
    // What a look found in the file is known from then on. The text stays as it is, and differs.
    void Note(const FileLook& look);
    // The file has been looked at with this stamp.
    void SetStamp(const FileStamp& stamp) { stamp_ = stamp; }
    // Puts a text into the surface that no file holds, with the format of the file that it was meant for. The line ends
    // that are not the format's usual one ascend.
    void Recover(const QString& text, const TextFormat& format, std::span<const OtherLineEnd> otherLineEnds);

private:
    EditSurface& text_;
    QString path_ = QStringLiteral("New");
    TextFormat format_;
    FileStamp stamp_;
    QByteArray held_;                      // what the file held
    std::optional<quint64> heldRevision_;  // of the text that says the same
};

}  // namespace vellum
