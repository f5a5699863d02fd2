// What the program holds on the heap, for tests of what something costs.
#pragma once

#include <cstddef>
#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/allocator_interface.h>
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
