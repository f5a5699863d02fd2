#include "surface/stretch_rows.h"

#include <algorithm>

namespace vellum {

void StretchRows::Resize(std::size_t rows) {
    if (rows < ends_.size()) stretches_.resize(Begin(rows));
    ends_.resize(rows, stretches_.size());
}

void StretchRows::Append(std::span<const Stretch> row) {
    stretches_.insert(stretches_.end(), row.begin(), row.end());
    ends_.push_back(stretches_.size());
}

void StretchRows::Append(const StretchRows& other, std::size_t first, std::size_t behind) {
    const std::size_t begin = other.Begin(first);
    const auto from = other.stretches_.begin() + static_cast<std::ptrdiff_t>(begin);
    const auto to = other.stretches_.begin() + static_cast<std::ptrdiff_t>(other.Begin(behind));
    const std::size_t shifted = stretches_.size();
    stretches_.insert(stretches_.end(), from, to);
    for (std::size_t row = first; row < behind; ++row) ends_.push_back(other.ends_[row] - begin + shifted);
}

void StretchRows::Set(std::size_t row, std::span<const Stretch> stretches) {
    const std::size_t before = (*this)[row].size();
    const std::size_t after = stretches.size();
    const auto begin = stretches_.begin() + static_cast<std::ptrdiff_t>(Begin(row));
    const auto common = static_cast<std::ptrdiff_t>(std::min(before, after));
    std::copy_n(stretches.begin(), common, begin);
    if (after > before) {
        stretches_.insert(begin + common, stretches.begin() + common, stretches.end());
    } else {
        stretches_.erase(begin + common, begin + static_cast<std::ptrdiff_t>(before));
    }
    // Wraps around when the row gets shorter, and back again.
    for (std::size_t index = row; index < ends_.size(); ++index) ends_[index] += after - before;
}

}  // namespace vellum
