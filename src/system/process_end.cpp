#include "system/process_end.h"

#include <thread>
#include <unistd.h>

namespace vellum {

void EndProcessWithin(std::chrono::milliseconds patience, int code) {
    std::thread([patience, code] {
        std::this_thread::sleep_for(patience);
        ::_exit(code);
    }).detach();
}

}  // namespace vellum
