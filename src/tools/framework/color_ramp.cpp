#include "tools/framework/color_ramp.h"

#include "values/color_hex.h"

namespace vellum {

QStringList ColorRamp(ColorNumber first, ColorNumber last, int steps) {
    const QColor from = ColorFromNumber(first);
    const QColor to = ColorFromNumber(last);
    QStringList colors;
    for (int step = 0; step < steps; ++step) {
        const auto channel = [&](int start, int end) { return start + (end - start) / steps * step; };
        const QColor color(channel(from.red(), to.red()), channel(from.green(), to.green()),
                           channel(from.blue(), to.blue()));
        colors << ColorToHex(NumberFromColor(color));
    }
    return colors;
}

}  // namespace vellum
