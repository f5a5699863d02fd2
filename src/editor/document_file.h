// The file of a document: where it is, how it spells the text, and what it held when it was last read or written.
#pragma once

#include "files/text_file.h"

#include <QByteArray>
#include <QString>

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

    // Puts the file's text into the surface. False when it can't be read; nothing has changed then.
    [[nodiscard]] bool Load(const QString& path);
    // Writes the text, byte for byte as the file held it when nothing was edited since, else in the file's format.
    // False when it can't be written; nothing of the document has changed then.
    [[nodiscard]] bool Save(const QString& path);
    // Puts a text into the surface that no file holds, with the format of the file that it was meant for.
    void Recover(const QString& text, const TextFormat& format);

private:
    EditSurface& text_;
    QString path_ = QStringLiteral("New");
    TextFormat format_;
    QByteArray held_;       // what the file held
    quint64 heldRevision_;  // of the text that says the same
};

}  // namespace vellum
