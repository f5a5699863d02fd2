// Units that forms, settings and colours are measured in.
#pragma once

#include <QColor>

#include <cstdint>

namespace vellum {

// A colour as the settings keep it: 24 bits, red in the low byte, blue in the high byte.
using ColorNumber = std::uint32_t;

[[nodiscard]] inline QColor ColorFromNumber(ColorNumber number) {
    return {static_cast<int>(number & 0xFFU), static_cast<int>((number >> 8U) & 0xFFU),
            static_cast<int>((number >> 16U) & 0xFFU)};
}

[[nodiscard]] inline ColorNumber NumberFromColor(const QColor& color) {
    return static_cast<ColorNumber>(color.red()) | (static_cast<ColorNumber>(color.green()) << 8U) |
           (static_cast<ColorNumber>(color.blue()) << 16U);
}

// Forms are measured in twips, 15 to the logical pixel.
inline constexpr int twipsPerPixel = 15;

[[nodiscard]] constexpr int PixelsFromTwips(int twips) {
    return twips / twipsPerPixel;
}
[[nodiscard]] constexpr int TwipsFromPixels(int pixels) {
    return pixels * twipsPerPixel;
}

}  // namespace vellum
