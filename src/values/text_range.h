// A range of a text.
#pragma once

namespace vellum {

struct TextRange {
    int offset = 0;  // of its first character, from 0
    int length = 0;

    [[nodiscard]] constexpr int End() const { return offset + length; }  // the offset after its last character
    bool operator==(const TextRange&) const = default;
};

}  // namespace vellum
