// What a file held before it is written in place and what it holds after: as bytes that can be kept, and as the means
// to tell a write that was cut off.
#pragma once

#include <QByteArray>

#include <optional>

namespace vellum {

struct WriteContents {
    QByteArray before;
    QByteArray after;
};

// Writes both, with a checksum, to an empty file. False with errno.
[[nodiscard]] bool WriteTo(int descriptor, const WriteContents& contents);

// Empty when the bytes are damaged.
[[nodiscard]] std::optional<WriteContents> ContentsFrom(QByteArrayView bytes);

// Whether `found` is neither of the two but made of both: page by page, as the system writes a file, it holds either
// one or nothing yet. Anything else is what somebody wrote since.
[[nodiscard]] bool IsHalfOf(const WriteContents& contents, QByteArrayView found);

}  // namespace vellum
