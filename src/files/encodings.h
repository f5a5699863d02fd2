// Text to bytes and back in one encoding, strictly: what can't be said in it isn't said in another way.
#pragma once

#include "values/text_range.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace vellum {

// Names of encodings that the program deals with by itself. All others are names that ICU opens.
inline constexpr const char* utf8Name = "UTF-8";
inline constexpr const char* utf16LeName = "UTF-16LE";
inline constexpr const char* utf16BeName = "UTF-16BE";
inline constexpr const char* windows1252Name = "windows-1252";

// Empty when the bytes are not in the encoding, or when their text would be other bytes in it.
//
// Some names mean less to one reader than to another: browsers read GBK as GB 18030, and ISO-8859-1 as Windows-1252,
// which XML parsers don't. By these names goes only what has the same code for both; the wider encoding has another.
[[nodiscard]] std::optional<QString> DecodeBytes(QByteArrayView bytes, const QByteArray& encoding);
// Empty when the encoding can't hold the text. Half a surrogate pair becomes the replacement character in UTF-8.
[[nodiscard]] std::optional<QByteArray> EncodeUnits(QStringView text, const QByteArray& encoding);

// The runs of characters that the encoding can't hold, ascending; a surrogate pair is one character.
[[nodiscard]] std::vector<TextRange> FindMisfits(QStringView text, const QByteArray& encoding);

// The order of the bytes when they look like UTF-16 without a byte order mark: its name, or nothing. An odd last byte
// doesn't count.
[[nodiscard]] QByteArray LooksLikeUtf16(QByteArrayView bytes);

}  // namespace vellum
