// Reads pictures that may be broken or larger than is good for the memory.
#pragma once

#include <QImage>
#include <QSize>
#include <QString>

#include <optional>

namespace vellum {

struct Picture {
    QSize size;    // in pixels, as the file has it; invalid when it is missing, no picture or no plain file
    QImage image;  // of an animation the first; null when it can't be read or would take too much memory
};

// The size of a picture in pixels, told by the file's content and not by its name; nothing when the file is missing, no
// picture or no plain file.
[[nodiscard]] std::optional<QSize> ImageSize(const QString& path);

// Told by the content too. Pixels stay as they lie in the file: a camera's note on how it was
// held turns nothing, as in markup that gives width and height. Blocks, and may run in any thread.
[[nodiscard]] Picture ReadPicture(const QString& path);

}  // namespace vellum
