// The characters of the font Symbol, which has an encoding of its own: Greek letters and mathematical signs.
#pragma once

namespace vellum {

// U+FFFD where the font has none.
[[nodiscard]] char16_t SymbolCharacter(unsigned char byte);

}  // namespace vellum
