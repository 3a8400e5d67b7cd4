// 16-bit signed integers with overflow detection: the counts of the program.
#pragma once
#include <cstdint>

namespace zirvo {

using Int16 = std::int16_t;

/// The value as a 16-bit integer. Fault 6 outside -32768 to 32767.
Int16 ToInt16(long long value);

/// The sum. Fault 6 where it leaves the 16-bit range.
Int16 AddInt16(Int16 a, Int16 b);

}  // namespace zirvo
