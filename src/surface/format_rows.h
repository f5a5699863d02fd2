// The formats of consecutive lines, side by side in one piece of memory: a page has hundreds of thousands of runs.
#pragma once

#include "values/text_range.h"
#include "values/units.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <type_traits>
#include <vector>

namespace vellum {

struct CharFormat {
    std::optional<ColorNumber> color;  // empty: the surface's own text colour
    bool bold = false;

    bool operator==(const CharFormat&) const = default;
};

// A run of equally formatted characters, in one line or in a whole text.
struct FormatRun {
    TextRange range;
    CharFormat format;

    bool operator==(const FormatRun&) const = default;
};
static_assert(std::is_trivially_copyable_v<FormatRun> && sizeof(FormatRun) == 2 * sizeof(int) + sizeof(CharFormat));

// Calls `visit(run)` for every run between two columns of a line that has these runs, the gaps in the base format among
// them, until it answers false. Answers whether all were visited.
template <typename Visitor>
bool VisitRow(std::span<const FormatRun> row, int from, int to, const CharFormat& base, const Visitor& visit) {
    auto run = std::ranges::upper_bound(row, from, {}, [](const FormatRun& item) { return item.range.End(); });
    for (int column = from; column < to;) {
        const int start = run == row.end() ? to : std::min(run->range.offset, to);
        const bool gap = column < start;
        const int end = gap ? start : std::min(run->range.End(), to);
        if (!visit(FormatRun{{column, end - column}, gap ? base : run->format})) return false;
        if (!gap) ++run;
        column = end;
    }
    return true;
}

// Rows count from 0, offsets in the row. What `operator[]` answers is valid until the next change.
class FormatRows {
public:
    [[nodiscard]] bool empty() const { return ends_.empty(); }
    [[nodiscard]] bool HasRuns() const { return !runs_.empty(); }
    [[nodiscard]] std::span<const FormatRun> operator[](std::size_t row) const {
        const std::size_t begin = Begin(row);
        return std::span(runs_).subspan(begin, ends_[row] - begin);
    }

    // Adds empty rows, or drops the last ones.
    void Resize(std::size_t rows);
    void Append(std::span<const FormatRun> row);
    // Rows `first` up to `end` of another table.
    void Append(const FormatRows& other, std::size_t first, std::size_t end);
    void Set(std::size_t row, std::span<const FormatRun> runs);

private:
    [[nodiscard]] std::size_t Begin(std::size_t row) const { return row == 0 ? 0 : ends_[row - 1]; }

    std::vector<std::size_t> ends_;  // for each row, where its runs end
    std::vector<FormatRun> runs_;
};

}  // namespace vellum
