// What all fuzzers share: the one function that each of them has, what must hold, and how long an input may take.
#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "base/runtime_fault.h"

namespace zirvo::fuzz {

/// Each fuzzer's own: runs one input, and comes back if all that must hold did.
void RunInput(std::string_view bytes);

/// The longest that one input may compute [s of the processor]. Each fuzzer says its own; the guard of RunInput stops
/// the program at an input that takes longer, which is a finding as any other.
extern const int LongestRun;

/// Stops the program with the sentence where it does not hold.
void Require(bool holds, std::string_view sentence);
/// The same with both sides of a comparison.
void RequireEqual(std::string_view one, std::string_view other, std::string_view sentence);

/// Does it; the number of the RuntimeFault that ended it, if one did. Whatever else is thrown is a finding.
template <class Act>
std::optional<int> FaultOf(Act act) {
    try {
        act();
        return std::nullopt;
    } catch (const RuntimeFault& caught) {
        return caught.Number();
    }
}

}  // namespace zirvo::fuzz
