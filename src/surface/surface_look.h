// How an edit surface looks.
#pragma once

#include "values/units.h"

#include <QFont>
#include <QPalette>

namespace vellum {

inline constexpr int tabColumns = 4;  // as wide as so many blanks

// A monospaced one. The size is in points, as the settings keep it.
[[nodiscard]] QFont EditorFont(const QString& family, const QString& pointSize);

// `palette` with the two colours, and a selection that can be seen on them.
[[nodiscard]] QPalette SurfacePalette(QPalette palette, ColorNumber foreColor, ColorNumber backColor);

}  // namespace vellum
