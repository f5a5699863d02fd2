// The end of the process, whatever holds it up.
#pragma once

#include <chrono>

namespace vellum {

// Ends the process with `code` when it hasn't ended by itself after `patience`. To be called when all that matters is
// on disk: what is left by then, such as the browser engine with a page that hangs or a folder that doesn't answer, is
// dropped.
void EndProcessWithin(std::chrono::milliseconds patience, int code);

}  // namespace vellum
