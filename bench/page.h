// Pages of any size for the benchmarks, the same at every run.
#pragma once

#include "surface/format_store.h"

#include <QString>

#include <vector>

namespace vellum::bench {

// XHTML in lines of some 40 to 80 characters with "\n" between them; at least `size` characters.
[[nodiscard]] QString MakePage(qsizetype size);

// A run for every tag of `page`.
[[nodiscard]] std::vector<FormatRun> TagRuns(const QString& page);

}  // namespace vellum::bench
