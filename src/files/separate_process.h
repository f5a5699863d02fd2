// A few system calls that go on when this process is killed.
#pragma once

#include <functional>

namespace vellum {

// Runs `step` in a process of its own and waits for it. Returns what the step returned: 0, or what errno was. The step
// runs between fork and exit, so it makes system calls only. It must be one that can be begun anew: when there can't be
// another process, or that one is killed, the step runs in this one.
[[nodiscard]] int RunSeparately(const std::function<int()>& step);

}  // namespace vellum
