// The desktop's trash, where file managers show what was deleted and bring it back.
#pragma once

#include <QString>

namespace vellum {

// Moves a file (a link goes itself) into the trash of the person's home, or for a file on another disk into the one at
// the top of that disk; the folders are made when missing. False, and nothing has changed, when there can be none.
[[nodiscard]] bool MoveToTrash(const QString& path);

}  // namespace vellum
