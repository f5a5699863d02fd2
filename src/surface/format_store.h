// Colours and weights of characters, and the spelling of line ends, kept by line beside the text and shifted by its
// edits.
#pragma once

#include "files/line_ends.h"
#include "surface/format_rows.h"
#include "values/units.h"

#include <compare>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace vellum {

// A place in the text; line and column count from 0. The column after a line's last character is the line end's own.
struct TextPlace {
    int line = 0;
    int column = 0;

    auto operator<=>(const TextPlace&) const = default;  // NOLINT(modernize-use-nullptr): trips over generated code
};

// What to change of a format; an empty part stays as it is.
struct FormatChange {
    std::optional<std::optional<ColorNumber>> color;
    std::optional<bool> bold;

    [[nodiscard]] CharFormat AppliedTo(CharFormat format) const;
    bool operator==(const FormatChange&) const = default;
};

// A change in a range of the whole text.
struct FormatStep {
    TextRange range;
    FormatChange change;
    bool ofOneColor = false;  // a range of several colours stays as it is

    bool operator==(const FormatStep&) const = default;
};

// A line of a text: its characters without the line end, and how it ends, in the room of one number.
class LineEntry {
public:
    explicit LineEntry(int length = 0, std::optional<LineEnd> end = std::nullopt)
        : packed_((static_cast<std::uint32_t>(length) << endBits) | (end ? static_cast<std::uint32_t>(*end) : 0U)) {}

    [[nodiscard]] int Length() const { return static_cast<int>(packed_ >> endBits); }
    [[nodiscard]] std::optional<LineEnd> End() const {  // the last line of a text has none
        const auto end = static_cast<unsigned char>(packed_ & ((1U << endBits) - 1));
        return end == 0 ? std::nullopt : std::optional(static_cast<LineEnd>(end));
    }

    bool operator==(const LineEntry&) const = default;

private:
    static constexpr int endBits = 2;

    std::uint32_t packed_;
};
static_assert(sizeof(LineEntry) == sizeof(int));

// The format of every character of a text, line ends among them (one character each), and the spelling of its line
// ends. Lines hold only what differs from the base format, and they live in small chunks, so that an edit touches one
// chunk. A copy shares the chunks with its original until either is edited: keeping a copy costs next to nothing.
class FormatStore {
public:
    FormatStore();  // one empty line

    // A new text in the base format {}, one entry a line: its characters without the line end. An empty list means one
    // empty line. Lines end in `usual` but for `others`, which ascend.
    void Reset(std::span<const int> lengths, LineEnd usual, std::span<const OtherLineEnd> others);

    [[nodiscard]] int LineCount() const { return lineCount_; }
    [[nodiscard]] int LineLength(int line) const;  // without the line end
    [[nodiscard]] TextPlace End() const;           // after the last character
    // The place `characters` further on, a line end counting as one; the end of the text when it is nearer.
    [[nodiscard]] TextPlace Advance(TextPlace from, int characters) const;

    // The text from `from` up to `to` is replaced by lines of the given lengths, a line end between each two of them;
    // {0} inserts nothing. What is inserted takes `format`, and its line ends are spelled as `end`; those that stay
    // keep their spelling, the one after the range too.
    void Replace(TextPlace from, TextPlace to, std::span<const int> inserted, const CharFormat& format, LineEnd end);

    // How a line ends; nothing for the last one.
    [[nodiscard]] std::optional<LineEnd> LineEndOf(int line) const { return EntryOf(line).End(); }
    // Of a line that isn't the last one.
    void SetLineEnd(int line, LineEnd end);
    // The line ends that are not `usual`, ascending.
    [[nodiscard]] std::vector<OtherLineEnd> OtherLineEnds(LineEnd usual) const;

    // Leaves the base as it is, also when the range is the whole text.
    void SetFormat(TextPlace from, TextPlace to, const FormatChange& change);
    // Everything takes `rest`, which is the base from now on, and then each run its format. Runs ascend and don't
    // overlap; their offsets count a line end as one character.
    void SetAll(const CharFormat& rest, std::span<const FormatRun> runs);

    // The base format, which all characters have that lie in no run.
    [[nodiscard]] const CharFormat& Base() const { return base_; }
    // The runs of a line that differ from the base, ascending and as long as can be. One may take in the line end.
    // Valid until the next change.
    [[nodiscard]] std::span<const FormatRun> Runs(int line) const;
    // The format of the character at `place`; the base format at the end of the text.
    [[nodiscard]] CharFormat FormatAt(TextPlace place) const;
    // The one colour of a range, empty when there are several or the range is empty. `own` stands for the surface's
    // own.
    [[nodiscard]] std::optional<ColorNumber> CommonColor(TextPlace from, TextPlace to, ColorNumber own) const;
    [[nodiscard]] std::optional<bool> CommonBold(TextPlace from, TextPlace to) const;

private:
    friend class FormatDifference;

    struct Chunk {
        std::vector<LineEntry> lines;
        FormatRows runs;  // a row a line, or none at all while every line is in the base format
    };
    struct Slot {
        int firstLine = 0;
        std::shared_ptr<Chunk> chunk;
    };

    [[nodiscard]] std::size_t SlotOf(int line) const;
    [[nodiscard]] Chunk& Owned(std::size_t slot);  // the chunk, no longer shared
    void SetRuns(int line, std::span<const FormatRun> runs);
    [[nodiscard]] LineEntry EntryOf(int line) const;
    void SetLine(int line, LineEntry entry, std::span<const FormatRun> runs);
    // Replaces at least one line.
    void Splice(int firstLine, int removed, std::span<const LineEntry> lines, const FormatRows& runs);
    template <typename Visitor>
    bool VisitRuns(TextPlace from, TextPlace to, const Visitor& visit) const;

    std::vector<Slot> slots_;
    int lineCount_ = 1;
    CharFormat base_;
};

}  // namespace vellum
