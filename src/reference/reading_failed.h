// What the readers of the reference tree throw.
#pragma once

#include <stdexcept>

namespace vellum {

// A reading came upon something that it can't go on from. The nodes added until then stay in the tree.
class ReadingFailed : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The greatest node index; a count past it ends a reading.
inline constexpr int greatestNodeIndex = 32767;

}  // namespace vellum
