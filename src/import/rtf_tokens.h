// The tokens that an RTF file is made of.
#pragma once

#include <QByteArrayView>

#include <cstdint>

namespace vellum {

struct RtfToken {
    enum class Kind : std::uint8_t {
        End,
        Open,    // {
        Close,   // }
        Word,    // \name and a number
        Symbol,  // a backslash and a character that is no letter; one before a line end is "\n"
        Byte,    // \' and two hexadecimal digits
        Text,    // bytes that stand for themselves
    };

    Kind kind = Kind::End;
    QByteArrayView text;     // the name of a word, the bytes of a text
    int number = 0;          // the parameter of a word, the character of a symbol, the value of a byte
    bool hasNumber = false;  // the word has a parameter
};

class RtfTokens {
public:
    // The bytes outlive this.
    explicit RtfTokens(QByteArrayView bytes) : at_(bytes.begin()), end_(bytes.end()) {}

    // The next one. Line ends of the file are none; the data after \bin is passed by; what is cut off is left out.
    [[nodiscard]] RtfToken Next();

private:
    RtfToken ReadText();
    RtfToken ReadWord();
    RtfToken ReadSymbol();
    bool ReadNumber(int& number);

    const char* at_;
    const char* end_;
};

}  // namespace vellum
