#include "tools/styles/style_table.h"

#include <algorithm>

namespace vellum {
namespace {

constexpr int movedRows = 99;
constexpr int clearedRows = 100;

}  // namespace

void StyleTable::Set(int row, std::size_t property, const QString& value) {
    rows_.at(static_cast<std::size_t>(row)).at(property) = value;
}

void StyleTable::Remove(int row) {
    for (auto i = static_cast<std::size_t>(row); i < movedRows; ++i) rows_.at(i) = rows_.at(i + 1);
}

void StyleTable::Clear() {
    std::fill_n(rows_.begin(), clearedRows, StyleValues());
}

}  // namespace vellum
