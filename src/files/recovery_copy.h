// One copy of an unsaved text as a file: a line of JSON that describes it, then its UTF-16 code units as they stand, so
// that whatever the text holds comes back.
#pragma once

#include "files/recovery_store.h"

#include <QByteArray>

#include <optional>

namespace vellum {

// Replaces the file in one step; only its owner may read it. False with errno, the former copy then stands.
bool WriteRecoveryCopy(const QByteArray& path, const RecoveredText& copy);

// Empty for a file that can't be read or is damaged.
[[nodiscard]] std::optional<RecoveredText> ReadRecoveryCopy(const QByteArray& path);

}  // namespace vellum
