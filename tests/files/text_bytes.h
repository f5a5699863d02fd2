// What the tests of text files share.
#pragma once

#include "files/text_file.h"

#include <QByteArray>

#include <span>

namespace vellum::test {

// Bytes of a literal that may hold NULs.
template <size_t size>
QByteArray Raw(const char (&literal)[size]) {
    return QByteArray(literal, size - 1);
}

// The format is that of the bytes afterwards.
inline QByteArray Encode(QStringView text, TextFormat& format, std::span<const OtherLineEnd> others = {}) {
    EncodedText encoded = EncodeText(text, others, format);
    format = encoded.format;
    return encoded.bytes.value_or("doesn't fit");
}

// The bytes of a text in UTF-16 without a mark.
inline QByteArray Utf16(const QString& text, bool bigEndian) {
    QByteArray bytes;
    for (const QChar unit : text) {
        bytes += static_cast<char>(bigEndian ? unit.row() : unit.cell());
        bytes += static_cast<char>(bigEndian ? unit.cell() : unit.row());
    }
    return bytes;
}

}  // namespace vellum::test
