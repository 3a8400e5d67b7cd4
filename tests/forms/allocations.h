// What this test program has asked of the heap since the start, for tests of what must stay light.
#pragma once
#include <cstddef>

namespace zirvo {

struct Allocations {
    std::size_t Count = 0;  ///< calls of operator new
    std::size_t Bytes = 0;  ///< asked for in all of them
};

Allocations AllocationsSoFar();

}  // namespace zirvo
