// Finished forms that ask a search engine, and what they ask.
#pragma once

#include <QString>
#include <QStringList>

namespace vellum {

// In the order of the list.
[[nodiscard]] QStringList SearchEngineNames();

// The whole form of an engine; empty for a name that isn't one.
[[nodiscard]] QString SearchMarkup(const QString& engine);

}  // namespace vellum
