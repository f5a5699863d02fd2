// Writing a whole file so that neither a full disk nor a power cut leaves half of one.
#pragma once

#include <QByteArray>
#include <QString>

namespace vellum {

// Writes bytes so that at every moment either the old or the new file is whole on disk. Follows symbolic links, keeps
// mode and owner; a file with several hard links or another owner is written in place with a copy beside it until the
// write is complete. A file that we may not write is refused, also where its folder would let us replace it. False on
// failure, with a sentence in *error when given; the old file is then whole.
[[nodiscard]] bool WriteFileSafely(const QString& path, const QByteArray& bytes, QString* error = nullptr);

}  // namespace vellum
