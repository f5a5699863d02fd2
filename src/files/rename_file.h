// Gives a file another name, and never one that is taken.
#pragma once

#include <QString>

namespace vellum {

// Paths are absolute. False, and nothing changes, when something stands at the new path, when the two lie on different
// file systems, or when the system refuses.
bool RenameFile(const QString& oldPath, const QString& newPath);

}  // namespace vellum
