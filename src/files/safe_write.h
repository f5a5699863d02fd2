// Writing a whole file so that neither a full disk nor a power cut leaves half of one.
#pragma once

#include <QByteArray>
#include <QString>

namespace vellum {

// Writes bytes so that at every moment either the old or the new file is whole on disk. Follows symbolic links, keeps
// mode and owner; a file with several hard links or another owner is written in place, by one call of the system, with
// a copy beside it until that is on disk. A file that we may not write is refused, also where its folder would let us
// replace it. False on failure, with a sentence in *error when given; the old file is then whole.
[[nodiscard]] bool WriteFileSafely(const QString& path, const QByteArray& bytes, QString* error = nullptr);

// For the start of the program: completes what a kill or a power failure cut off, and removes what killed saves left
// hidden. Saves of living processes are left alone; a file whose folder isn't there waits for a later start. Costs next
// to nothing when every save has ended.
void RepairInterruptedSaves();

}  // namespace vellum
