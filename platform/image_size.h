// The size of a picture in a file.
#pragma once

#include <QSize>
#include <QString>

#include <optional>

namespace vellum {

// In pixels, told by the file's content and not by its name; nothing when the file is missing or no picture.
[[nodiscard]] std::optional<QSize> ImageSize(const QString& path);

}  // namespace vellum
