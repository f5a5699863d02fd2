// The line ends of a file. In a text every one is a "\n"; those that differ from the usual one are kept beside it.
#pragma once

#include <QString>

#include <span>
#include <vector>

namespace vellum {

enum class LineEnd : unsigned char { CrLf = 1, Lf, Cr };  // the numbers stand in recovery copies

// The end of a line, from 0, that isn't the usual one.
struct OtherLineEnd {
    int line = 0;
    LineEnd end = LineEnd::CrLf;

    bool operator==(const OtherLineEnd&) const = default;
};

// How often each kind stands in a text.
struct LineEndCounts {
    qsizetype crLf = 0;
    qsizetype lf = 0;
    qsizetype cr = 0;

    [[nodiscard]] qsizetype& Of(LineEnd end) { return end == LineEnd::CrLf ? crLf : end == LineEnd::Lf ? lf : cr; }
    [[nodiscard]] qsizetype All() const { return crLf + lf + cr; }
    [[nodiscard]] bool Mixed() const { return (crLf > 0) + (lf > 0) + (cr > 0) > 1; }
    // Among equals CR LF comes first, then LF.
    [[nodiscard]] LineEnd MostFrequent() const;
};

// CR, LF and CR LF in a text as a file spells it.
[[nodiscard]] LineEndCounts CountLineEnds(QStringView text);
// In a text with "\n" at line ends: `usual` but for `others`.
[[nodiscard]] LineEndCounts CountLineEnds(QStringView text, LineEnd usual, std::span<const OtherLineEnd> others);

// Makes every line end one "\n". Returns those that are not `usual`, ascending.
std::vector<OtherLineEnd> UnifyLineEnds(QString& text, LineEnd usual);

// `text`, which has "\n" at line ends, as a file spells it: `usual` at every line but for `others`, which ascend.
[[nodiscard]] QString SpellLineEnds(QStringView text, LineEnd usual, std::span<const OtherLineEnd> others);

}  // namespace vellum
