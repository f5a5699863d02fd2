// Scripts that need nothing from the author but a choice.
#pragma once

#include <QString>
#include <QStringList>

namespace vellum {

enum class ScriptLanguage { Javascript, VBScript };

// In the order of their list on screen.
[[nodiscard]] QStringList PremadeNames(ScriptLanguage language);

// What goes into the page; empty for a name that isn't there.
[[nodiscard]] QString PremadeScript(ScriptLanguage language, const QString& name);

}  // namespace vellum
