#include "surface/format_rows.h"

#include <algorithm>

namespace vellum {

void FormatRows::Resize(std::size_t rows) {
    if (rows < ends_.size()) runs_.resize(Begin(rows));
    ends_.resize(rows, runs_.size());
}

void FormatRows::Append(std::span<const FormatRun> row) {
    runs_.insert(runs_.end(), row.begin(), row.end());
    ends_.push_back(runs_.size());
}

void FormatRows::Append(const FormatRows& other, std::size_t first, std::size_t end) {
    const std::size_t begin = other.Begin(first);
    const auto from = other.runs_.begin() + static_cast<std::ptrdiff_t>(begin);
    const auto to = other.runs_.begin() + static_cast<std::ptrdiff_t>(other.Begin(end));
    const std::size_t shifted = runs_.size();
    runs_.insert(runs_.end(), from, to);
    for (std::size_t row = first; row < end; ++row) ends_.push_back(other.ends_[row] - begin + shifted);
}

void FormatRows::Set(std::size_t row, std::span<const FormatRun> runs) {
    const std::size_t before = (*this)[row].size();
    const std::size_t after = runs.size();
    const auto begin = runs_.begin() + static_cast<std::ptrdiff_t>(Begin(row));
    const auto common = static_cast<std::ptrdiff_t>(std::min(before, after));
    std::copy_n(runs.begin(), common, begin);
    if (after > before) {
        runs_.insert(begin + common, runs.begin() + common, runs.end());
    } else {
        runs_.erase(begin + common, begin + static_cast<std::ptrdiff_t>(before));
    }
    // Wraps around when the row gets shorter, and back again.
    for (std::size_t index = row; index < ends_.size(); ++index) ends_[index] += after - before;
}

}  // namespace vellum
