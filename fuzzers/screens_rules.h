// What must hold of the screens behind every act of the user. Caller: the fuzzer of the screens.
#pragma once
#include "screens_program.h"

namespace zirvo::fuzz {

/// Stops the program where a rule is broken. Nothing is asked of a program that has ended.
void RequireRules(ScreensProgram& program);

}  // namespace zirvo::fuzz
