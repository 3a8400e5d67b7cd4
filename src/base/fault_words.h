// What a fault was about, in the words of the user's language: one table for the fault box of the screens and for the
// command line. Callers: forms (the box), zirvo-batch.
#pragma once
#include <string>
#include <string_view>

#include "base/runtime_fault.h"

namespace zirvo {

enum class FaultLanguage { Japanese, English };

/// Lines without a last line end: the name of the file, folder or program, what is wrong with it and what helps, then
/// the reason in the solver's own words. Empty where nothing is known.
std::string FaultExplanation(const RuntimeFault& caught, FaultLanguage language);

/// "The program ends now."
std::string_view ProgramEnds(FaultLanguage language);

/// Whether what was typed has been kept.
std::string_view TypedDataKept(FaultLanguage language, bool kept);

}  // namespace zirvo
