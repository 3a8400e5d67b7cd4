// How much memory was asked for in one piece: the proof that a reader does not grow with its file.
#pragma once
#include <cstddef>

namespace zirvo {

/// The largest piece that this program asked for since ForgetAllocations [bytes].
std::size_t LargestAllocation();
void ForgetAllocations();

}  // namespace zirvo
