#include "surface/surface_look.h"

#include "settings/settings_keys.h"
#include "system/fonts.h"
#include "values/number_rules.h"

#include <QGuiApplication>

#include <cmath>

namespace vellum {
namespace {

// How bright a colour looks, 0 to 255.
int Brightness(const QColor& color) {
    return (color.red() * 299 + color.green() * 587 + color.blue() * 114) / 1000;
}

// With less of a difference than this a selection would be hard to see on its background.
constexpr int visibleDifference = 40;

}  // namespace

QFont EditorFont(const QString& family, const QString& pointSize) {
    QFont font(family);
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    font.setPointSizeF(PointSize(pointSize, LeadingNumber(keys::fontSize.fallback)));
    return font;
}

QPalette SurfacePalette(QPalette palette, ColorNumber foreColor, ColorNumber backColor) {
    const QColor fore = ColorFromNumber(foreColor);
    const QColor back = ColorFromNumber(backColor);
    const QPalette desktop = QGuiApplication::palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        palette.setColor(group, QPalette::Base, back);
        palette.setColor(group, QPalette::Text, fore);
        const QColor highlight = desktop.color(group, QPalette::Highlight);
        const bool visible = std::abs(Brightness(highlight) - Brightness(back)) >= visibleDifference;
        palette.setColor(group, QPalette::Highlight, visible ? highlight : fore);
        palette.setColor(group, QPalette::HighlightedText,
                         visible ? desktop.color(group, QPalette::HighlightedText) : back);
    }
    return palette;
}

}  // namespace vellum
