// The number of the fault that a call raises, and what it is about, for tests of what must fail.
#pragma once
#include "base/runtime_fault.h"

namespace zirvo {

/// The fault's number, 0 if the call came back.
template <class Call>
int FaultOf(Call call) {
    try {
        call();
    } catch (const RuntimeFault& fault) {
        return fault.Number();
    }
    return 0;
}

/// What the fault that a call raises is about; nothing if the call came back.
template <class Call>
FaultSubject SubjectOf(Call call) {
    try {
        call();
    } catch (const RuntimeFault& fault) {
        return fault.About();
    }
    return {};
}

}  // namespace zirvo
