// Writing over a file that can't be replaced by another, with a copy of the old content that outlives a cut. The copy
// stands beside the file, or in $XDG_STATE_HOME/vellumcraft/backup when the folder takes no new file.
#pragma once

#include <QByteArray>
#include <QString>

namespace vellum {

// `target`: an existing regular file, not a symbolic link. False with a sentence in *error; the old content then
// stands in the file, or, if even that could not be brought back, in the copy that the sentence names.
[[nodiscard]] bool WriteInPlace(const QByteArray& target, QByteArrayView bytes, QString* error);

// Puts the old content back into a file whose write in place was cut off, and removes the copy. True when that was
// needed and done. A file cut off begins with a NUL: that byte goes in first and the real one last, so any other
// beginning means a whole file, be it the old, the new or one that somebody saved since; then only the copy goes. A
// file that another process is writing right now is left alone.
bool RestoreInterruptedWrite(const QString& path);

// Removes the copy that a cut write left behind, once the file is whole again by other means.
void RemoveBackup(const QByteArray& target);

// The content that a cut off file had before; empty when the file isn't cut off or there is no copy.
[[nodiscard]] QByteArray ContentBeforeCut(const QByteArray& target);

// The file itself at the end of symbolic links, which may not exist; empty with errno ELOOP for links in a ring.
[[nodiscard]] QByteArray FollowLinks(const QByteArray& path);

}  // namespace vellum
