// Lists of values that more than one tool offers.
#pragma once

#include <QString>
#include <QStringList>

namespace vellum {

// The numbers from `first` to `last`, in steps, each with a suffix: "10%", "20%", ...
[[nodiscard]] inline QStringList Numbers(int first, int last, int step = 1, const QString& suffix = {}) {
    QStringList numbers;
    for (int number = first; number <= last; number += step) numbers << QString::number(number) + suffix;
    return numbers;
}

}  // namespace vellum
