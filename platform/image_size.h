// The size of a picture in a file.
#pragma once

#include <QSize>
#include <QString>

#include <optional>

namespace vellum {

// In pixels, told by the file's content and not by its name; nothing when it is missing, no picture or no plain file.
[[nodiscard]] std::optional<QSize> ImageSize(const QString& path);

}  // namespace vellum
