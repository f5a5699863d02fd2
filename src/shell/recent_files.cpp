#include "shell/recent_files.h"

#include <algorithm>

namespace vellum {

bool RecentFileList::Add(const QString& path) {
    if (std::find(slots_.begin(), slots_.end(), path) != slots_.end()) return false;
    std::move_backward(slots_.begin(), slots_.end() - 1, slots_.end());
    slots_.front() = path;
    return true;
}

}  // namespace vellum
