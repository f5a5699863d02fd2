// The four files saved last, newest first.
#pragma once

#include <QString>

#include <array>

namespace vellum {

class RecentFileList {
public:
    static constexpr int slotCount = 4;

    // Slot 0 is the newest; an empty string is an empty slot.
    [[nodiscard]] const QString& Slot(int index) const { return slots_.at(static_cast<std::size_t>(index)); }
    void SetSlot(int index, const QString& path) { slots_.at(static_cast<std::size_t>(index)) = path; }

    // Puts a path in front and drops the oldest. A path that is listed already, compared with case, changes nothing;
    // tells whether anything changed.
    bool Add(const QString& path);

private:
    std::array<QString, slotCount> slots_;
};

}  // namespace vellum
