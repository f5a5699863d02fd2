// Writing over a file that can't be replaced by another. Both contents stand in a copy until it is done: beside the
// file, or in $XDG_STATE_HOME/vellumcraft/backup when the folder takes no new file.
#pragma once

#include <QByteArray>
#include <QString>

namespace vellum {

// `target`: an existing regular file, not a symbolic link. A kill of this process doesn't cut the write off, for
// another one does it; what cuts off both, such as a power failure, is completed by the next start or the next opening.
// False with a sentence in *error; the old content then stands in the file, or, if even that could not be brought back,
// in the copy that the sentence names.
[[nodiscard]] bool WriteInPlace(const QByteArray& target, QByteArrayView bytes, QString* error);

// Completes a write in place that was cut off, and removes the copy. True when that was needed and done. A file that
// is whole, be it the old, the new or one that somebody saved since, only loses its copy. A file that another process
// is writing right now is left alone.
bool RestoreInterruptedWrite(const QString& path);

// Removes the copy that a cut write left behind, once the file is whole again by other means.
void RemoveBackup(const QByteArray& target);

// `found`, which was read from the file; where it is half of a write in place, all that is being written.
[[nodiscard]] QByteArray WholeContent(const QByteArray& target, const QByteArray& found);

// The file itself at the end of symbolic links, which may not exist; empty with errno ELOOP for links in a ring.
[[nodiscard]] QByteArray FollowLinks(const QByteArray& path);

}  // namespace vellum
