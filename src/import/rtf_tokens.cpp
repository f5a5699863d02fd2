#include "import/rtf_tokens.h"

#include <algorithm>
#include <limits>

namespace vellum {
namespace {

using Kind = RtfToken::Kind;

bool IsLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

bool IsSpecial(char character) {
    return character == '\\' || character == '{' || character == '}' || character == '\r' || character == '\n';
}

// -1 for what is no hexadecimal digit.
int HexDigit(char character) {
    if (IsDigit(character)) return character - '0';
    if (character >= 'a' && character <= 'f') return character - 'a' + 10;
    return character >= 'A' && character <= 'F' ? character - 'A' + 10 : -1;
}

}  // namespace

RtfToken RtfTokens::Next() {
    while (at_ != end_) {
        switch (*at_) {
            case '{':
                ++at_;
                return {Kind::Open};
            case '}':
                ++at_;
                return {Kind::Close};
            case '\r':
            case '\n':
                ++at_;
                continue;
            case '\\': {
                ++at_;
                const RtfToken token = at_ != end_ && IsLetter(*at_) ? ReadWord() : ReadSymbol();
                if (token.kind != Kind::End) return token;
                continue;
            }
            default:
                return ReadText();
        }
    }
    return {};
}

RtfToken RtfTokens::ReadText() {
    const char* const start = at_;
    at_ = std::find_if(at_, end_, IsSpecial);
    return {.kind = Kind::Text, .text = {start, at_}};
}

RtfToken RtfTokens::ReadWord() {
    RtfToken token{.kind = Kind::Word};
    const char* const start = at_;
    at_ = std::find_if_not(at_, end_, IsLetter);
    token.text = {start, at_};
    token.hasNumber = ReadNumber(token.number);
    if (at_ != end_ && *at_ == ' ') ++at_;
    if (token.text == QByteArrayView("bin") && token.number > 0) at_ += std::min<qsizetype>(token.number, end_ - at_);
    return token;
}

// A number that is too large is the greatest there is.
bool RtfTokens::ReadNumber(int& number) {
    const bool negative = end_ - at_ >= 2 && at_[0] == '-' && IsDigit(at_[1]);
    if (negative) ++at_;
    if (at_ == end_ || !IsDigit(*at_)) return false;
    constexpr std::int64_t greatest = std::numeric_limits<int>::max();
    std::int64_t value = 0;
    for (; at_ != end_ && IsDigit(*at_); ++at_) value = std::min(value * 10 + (*at_ - '0'), greatest);
    number = static_cast<int>(negative ? -value : value);
    return true;
}

// None for a byte without its digits.
RtfToken RtfTokens::ReadSymbol() {
    if (at_ == end_) return {};
    const char symbol = *at_++;
    if (symbol != '\'') return {.kind = Kind::Symbol, .number = symbol == '\r' ? '\n' : symbol};
    if (end_ - at_ < 2 || HexDigit(at_[0]) < 0 || HexDigit(at_[1]) < 0) return {};
    const int value = HexDigit(at_[0]) * 16 + HexDigit(at_[1]);
    at_ += 2;
    return {.kind = Kind::Byte, .number = value};
}

}  // namespace vellum
