// The stretches of consecutive lines, side by side in one piece of memory: a page has hundreds of thousands of them.
#pragma once

#include "values/units.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace vellum {

struct CharFormat {
    std::optional<ColorNumber> color;  // empty: the surface's own text colour
    bool bold = false;

    bool operator==(const CharFormat&) const = default;
};

// A run of equally formatted characters within one line; positions count from 0 in the line.
struct Stretch {
    int start = 0;
    int length = 0;
    CharFormat format;

    bool operator==(const Stretch&) const = default;
};

// Rows count from 0. What `operator[]` answers is valid until the next change.
class StretchRows {
public:
    [[nodiscard]] bool empty() const { return ends_.empty(); }
    [[nodiscard]] bool HasStretches() const { return !stretches_.empty(); }
    [[nodiscard]] std::span<const Stretch> operator[](std::size_t row) const {
        const std::size_t begin = Begin(row);
        return std::span(stretches_).subspan(begin, ends_[row] - begin);
    }

    // In its tables.
    [[nodiscard]] std::size_t HeldBytes() const {
        return ends_.capacity() * sizeof(std::size_t) + stretches_.capacity() * sizeof(Stretch);
    }

    // Adds empty rows, or drops the last ones.
    void Resize(std::size_t rows);
    void Append(std::span<const Stretch> row);
    // Rows `first` up to `behind` of another table.
    void Append(const StretchRows& other, std::size_t first, std::size_t behind);
    void Set(std::size_t row, std::span<const Stretch> stretches);

private:
    [[nodiscard]] std::size_t Begin(std::size_t row) const { return row == 0 ? 0 : ends_[row - 1]; }

    std::vector<std::size_t> ends_;  // for each row, where its stretches end
    std::vector<Stretch> stretches_;
};

}  // namespace vellum
