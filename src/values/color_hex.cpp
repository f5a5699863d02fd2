#include "values/color_hex.h"

namespace vellum {

QString ColorToHex(ColorNumber color) {
    constexpr int digits = 6;
    const QString hex = QString::number(color, 16).toUpper().rightJustified(digits, u'0');
    return u'#' + hex.mid(4, 2) + hex.mid(2, 2) + hex.mid(0, 2);
}

const QStringList& ColorNames() {
    static const QStringList names{"AQUA", "BLACK", "BLUE",   "FUCHSIA", "GRAY",   "GREEN", "LIME",  "MAROON",
                                   "NAVY", "OLIVE", "PURPLE", "RED",     "SILVER", "TEAL",  "WHITE", "YELLOW"};
    return names;
}

std::optional<ColorNumber> ColorFromText(const QString& text) {
    const QString name = text.trimmed();
    const bool known = name.startsWith(u'#') || ColorNames().contains(name, Qt::CaseInsensitive);
    const QColor color = known ? QColor(name) : QColor();
    return color.isValid() ? std::optional(NumberFromColor(color)) : std::nullopt;
}

}  // namespace vellum
