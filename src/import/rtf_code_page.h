// The characters that the bytes of an RTF file stand for.
#pragma once

#include "files/icu_converter.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <array>
#include <optional>
#include <vector>

namespace vellum {

namespace codePages {

inline constexpr int symbol = 42;
inline constexpr int western = 1252;
inline constexpr int utf8 = 65001;

}  // namespace codePages

// The code page of a font's character set; 0 where that leaves it to the document.
[[nodiscard]] int CodePageOfCharset(int charset);

// The number itself, or that of Windows-1252 when nobody knows it.
[[nodiscard]] int KnownCodePage(int number);

// Bytes of one code page on their way to text. A byte without a meaning becomes U+FFFD, a control character other than
// the tab nothing.
class RtfCodePage {
public:
    explicit RtfCodePage(int number);

    // Adds what the bytes say. A character of several bytes may come in pieces.
    void Decode(QByteArrayView bytes, QString& text);
    // Adds U+FFFD when the last character lacks a byte.
    void Finish(QString& text);

private:
    void FillSingles(int number);
    const char* DecodeSingles(const char* at, const char* end, QString& text) const;
    void DecodeByte(char byte, QString& text);
    void DecodePair(QString& text);

    [[nodiscard]] char16_t CharacterOf(QByteArrayView bytes) const;

    const bool isUtf8_;
    const std::optional<IcuConverter> converter_;
    std::array<char16_t, 256> singles_{};       // the characters of one byte; 0 for nothing
    std::array<unsigned char, 256> lengths_{};  // in bytes, of the characters that begin with a byte
    std::vector<char16_t> pairs_;  // the characters of two bytes, by their number; 0 for those that have not come yet
    QByteArray begun_;             // what there is of a character of several bytes
};

}  // namespace vellum
