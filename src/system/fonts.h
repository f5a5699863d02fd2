// The fonts that the system has.
#pragma once

#include <QStringList>

namespace vellum {

[[nodiscard]] QStringList SystemFontNames();  // in the system's order

// Point sizes in settings are decimal text ("8.5"). The size as a number, at most 1000; `fallback` for anything that
// isn't above 0.
[[nodiscard]] double PointSize(const QString& text, double fallback);

}  // namespace vellum
