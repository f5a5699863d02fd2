// Bytes and code units of an RTF file on their way to text.
#pragma once

#include "import/rtf_code_page.h"

#include <map>

namespace vellum {

// What is handed out holds until the next call.
class RtfCharacters {
public:
    // The text of bytes in a code page. A character may come in pieces, one after the other.
    [[nodiscard]] QStringView FromBytes(QByteArrayView bytes, int codePage);
    // The text of a UTF-16 code unit: none for the first half of a pair.
    [[nodiscard]] QStringView FromUnit(char16_t unit);
    // What is left of a character that lacks a byte: U+FFFD.
    [[nodiscard]] QStringView FinishBytes();
    // The same for one that lacks bytes or half of its pair.
    [[nodiscard]] QStringView Finish();

private:
    void AddHalf();

    std::map<int, RtfCodePage> pages_;
    RtfCodePage* page_ = nullptr;  // of the last bytes
    int pageNumber_ = 0;
    char16_t high_ = 0;  // a surrogate whose other half has yet to come
    QString text_;
};

}  // namespace vellum
