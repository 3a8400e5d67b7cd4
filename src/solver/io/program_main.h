// What the mains of the two solver programs share: no arguments but --help and --version. Callers: analysis_main.cpp
// and section_main.cpp.
#pragma once
#include <functional>

#include "solver/io/solver_run.h"

namespace zirvo::solver {

struct ProgramTexts {
    const char* Name;   ///< "ZIRVO_SV12"
    const char* Usage;  ///< whole lines
};

/// Runs the program, or answers the argument on the standard streams. @return the exit code of the process
int ProgramMain(int argumentCount, char** arguments, const ProgramTexts& texts, const std::function<ExitCode()>& run);

}  // namespace zirvo::solver
