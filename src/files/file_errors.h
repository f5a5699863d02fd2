// What went wrong with a file, in sentences for a person.
#pragma once

#include <QString>

#include <sys/types.h>

namespace vellum {

// Puts a sentence where one is wanted.
void Say(QString* error, const QString& sentence);

// `number`: what errno was.
[[nodiscard]] QString SystemMessage(int number);
[[nodiscard]] QString CannotRead(const QString& path, int number);
[[nodiscard]] QString CannotWrite(const QString& path, int number);

// For a path that leads to a folder, a pipe or a device; `mode` is that of its status.
[[nodiscard]] QString NotAFile(const QString& path, mode_t mode);

}  // namespace vellum
