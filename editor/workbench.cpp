#include "editor/workbench.h"

#include <algorithm>
#include <array>

namespace vellum {

bool IsScriptCaption(const QString& caption) {
    constexpr int shortest = 4;
    static constexpr std::array<QLatin1String, 4> endings{QLatin1String(".js"), QLatin1String(".txt"),
                                                          QLatin1String(".css"), QLatin1String(".vbs")};
    return caption.size() >= shortest && std::ranges::any_of(endings, [&](QLatin1String ending) {
               return caption.endsWith(ending, Qt::CaseInsensitive);
           });
}

}  // namespace vellum
