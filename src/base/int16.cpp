// Counts in 16 bits: every step that would wrap around is the fault "Overflow" instead.
#include "base/int16.h"

#include <limits>

#include "base/runtime_fault.h"

namespace zirvo {

Int16 ToInt16(long long value) {
    if (value < std::numeric_limits<Int16>::min() || value > std::numeric_limits<Int16>::max()) {
        throw RuntimeFault(fault::Overflow);
    }
    return static_cast<Int16>(value);
}

Int16 AddInt16(Int16 a, Int16 b) {
    return ToInt16(static_cast<long long>(a) + b);
}

}  // namespace zirvo
