// The floors of the house: which folder may include which. A folder includes only folders that stand below it.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace vellum::house {

struct SourceFile {
    QString path;          // from the root of the project: "tools/hrule.cpp"
    QStringList includes;  // as they are written, without the quotes: "platform/units.h"
};

// The names in the #include lines of a source text.
[[nodiscard]] QStringList IncludesOf(const QString& text);

// One sentence for every arrow that runs up, to a sibling or out of the house, and for every file on no floor.
[[nodiscard]] QStringList WrongArrows(const std::vector<SourceFile>& files);

}  // namespace vellum::house
