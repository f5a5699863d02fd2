#include "import/rtf_groups.h"

namespace vellum {

void RtfGroupStack::Push(const RtfGroup& group) {
    if (entries_.empty() || entries_.back().group != group) entries_.push_back({group});
    ++entries_.back().count;
    ++depth_;
}

RtfGroup RtfGroupStack::Pop() {
    const RtfGroup group = entries_.back().group;
    if (--entries_.back().count == 0) entries_.pop_back();
    --depth_;
    return group;
}

}  // namespace vellum
