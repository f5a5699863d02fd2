// The letter case of markup: tag and attribute names change, text, quoted values and comments stay.
#pragma once

#include <QString>

namespace vellum {

// `mode` is "LCase" or "UCase". Leaves server-side blocks alone.
[[nodiscard]] QString ConvertMarkupCase(const QString& mode, const QString& text);

// The same, server-side blocks included.
[[nodiscard]] QString ChangeCase(const QString& mode, const QString& text);

}  // namespace vellum
