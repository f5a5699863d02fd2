// Made-up rich texts, full of what the conversion treats in a way of its own.
#pragma once

#include "import/rich_text.h"

#include <random>

namespace vellum::test {

class RandomRichText {
public:
    explicit RandomRichText(std::uint32_t seed) : random_(seed) {}

    [[nodiscard]] RichText Make(int greatestLength) {
        static const QStringList pieces{"<",      ">",  "\"", " ", "  ",         "   ",    "\t", "a", "b c",   "&",
                                        "\u00E9", "\\", "{",  "}", "\U0001F600", "\u20AC", "-",  "'", "\u00A0"};
        RichTextBuilder builder;
        RichFormat format = Format(builder);
        const int length = Below(greatestLength + 1);
        for (int i = 0; i < length; ++i) {
            if (Below(4) == 0) format = Format(builder);
            if (Below(8) == 0) {
                builder.EndParagraph(Paragraph(), format);
            } else {
                builder.AddText(pieces.at(Below(static_cast<int>(pieces.size()))), format);
            }
        }
        builder.EndParagraph(Paragraph(), format);
        return builder.Take();
    }

private:
    int Below(int bound) { return std::uniform_int_distribution(0, bound - 1)(random_); }
    bool Coin() { return Below(2) == 0; }

    RichFormat Format(RichTextBuilder& builder) {
        static const QStringList fonts{"Arial", "Times New Roman", "Courier New"};
        static constexpr int sizes[] = {16, 20, 21, 23, 24, 25, 28, 30, 36, 48, 72, 74, 96};
        static constexpr ColorNumber colors[] = {0, 0x0000FF, 0xFF8000};
        return {.font = builder.FontNumber(fonts.at(Below(3))),
                .halfPoints = static_cast<std::uint16_t>(sizes[Below(std::size(sizes))]),
                .color = colors[Below(3)],
                .bold = Coin(),
                .italic = Coin(),
                .underline = Coin(),
                .strike = Coin()};
    }

    RichParagraph Paragraph() { return {.alignment = static_cast<RichAlignment>(Below(3)), .bullet = Below(3) == 0}; }

    std::mt19937 random_;
};

}  // namespace vellum::test
