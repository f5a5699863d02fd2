// What the program holds on the heap, for tests of what something costs.
#pragma once

#include <cstddef>
#if defined(__SANITIZE_ADDRESS__)
// The sanitizer's own; the header that declares it doesn't come with this compiler.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();  // NOLINT
#else
#include <malloc.h>
#endif

namespace vellum::test {

// In bytes. Some small blocks that were freed may still count, a few hundred KB at most.
[[nodiscard]] inline std::size_t HeapBytes() {
#if defined(__SANITIZE_ADDRESS__)
    return __sanitizer_get_current_allocated_bytes();
#else
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
#endif
}

}  // namespace vellum::test
