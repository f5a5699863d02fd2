// The pictures on buttons, menus and windows, by the project's names for them ("open", "save-as", "browser-1").
#pragma once

#include <QIcon>
#include <QString>

namespace vellum {

// The icon of the desktop's theme where it has one for that meaning, else the project's own drawing, which reads on
// light and on dark. A null icon for an unknown name.
[[nodiscard]] QIcon ThemeIcon(const QString& name);

// The project's own drawing, whatever the theme has: for sets that must look alike.
[[nodiscard]] QIcon OwnIcon(const QString& name);

}  // namespace vellum
