#include "system/fonts.h"

#include "values/number_rules.h"

#include <QFontDatabase>

#include <algorithm>

namespace vellum {

QStringList SystemFontNames() {
    return QFontDatabase::families();
}

double PointSize(const QString& text, double fallback) {
    constexpr double largest = 1000;  // beyond it the font engine gives up
    const double size = LeadingNumber(text);
    return size > 0 ? std::min(size, largest) : fallback;
}

}  // namespace vellum
