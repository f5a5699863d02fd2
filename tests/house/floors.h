// The floors of the house: which folder of src/ may include which. A folder includes only folders that stand below it.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace vellum::house {

struct SourceFile {
    QString path;          // from src/: "tools/text/hrule.cpp"
    QStringList includes;  // as they are written, without the quotes: "values/units.h"
};

// The names in the #include lines of a source text.
[[nodiscard]] QStringList IncludesOf(const QString& text);

// One sentence for every arrow that runs up, to a sibling or out of the house, and for every file on no floor.
[[nodiscard]] QStringList WrongArrows(const std::vector<SourceFile>& files);

}  // namespace vellum::house
