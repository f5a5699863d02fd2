// UTF-8, with and without flaws.
#pragma once

#include <QByteArray>
#include <QString>

namespace vellum {

// Of UTF-8 without a flaw. What looks like a byte order mark is a character.
[[nodiscard]] QString DecodeUtf8(QByteArrayView bytes);
// Half a surrogate pair becomes the replacement character.
[[nodiscard]] QByteArray EncodeUtf8(QStringView text);

// UTF-8 with bytes in between that are none. Each of these, 0x80 to 0xFF, is half a surrogate pair in the text, U+DC80
// to U+DCFF, and goes back to the same byte.
struct FlawedUtf8 {
    QString text;
    qsizetype sequences = 0;  // good ones of more than one byte
    qsizetype badBytes = 0;
};
[[nodiscard]] FlawedUtf8 DecodeFlawedUtf8(QByteArrayView bytes);
[[nodiscard]] QByteArray EncodeFlawedUtf8(QStringView text);
[[nodiscard]] bool HoldsBytes(QStringView text);  // whether such halves stand in it

}  // namespace vellum
