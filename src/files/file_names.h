// Names of files as texts. A name is a row of bytes; those that are no UTF-8 become lone halves of surrogate pairs
// (U+DC80 to U+DCFF), which no UTF-8 spells, so that every name comes back to the byte.
//
// The toolkit's own files and dialogs know nothing of this: what looks at the disk under a name from outside goes
// through EncodeFileName.
#pragma once

#include <QByteArray>
#include <QString>

namespace vellum {

[[nodiscard]] QString DecodeFileName(QByteArrayView bytes);
[[nodiscard]] QByteArray EncodeFileName(QStringView name);

// For a person: in one line, with U+FFFD for each byte that is no text.
[[nodiscard]] QString ReadableName(const QString& name);

// The path from the root, where it begins at the current directory, and without "." and ".." in it.
[[nodiscard]] QString AbsolutePath(const QString& path);

}  // namespace vellum
