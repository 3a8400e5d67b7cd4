// How often this test program has asked for memory, for tests of what must not.
#pragma once
#include <cstddef>

namespace zirvo {

/// Calls of operator new since the start.
std::size_t AllocationCount();

}  // namespace zirvo
