// `zirvo-batch solve`: all results at full precision, worked out in this process. Caller: main.
#pragma once
#include "batch/command_line.h"
#include "batch/console.h"

namespace zirvo::batch {

/// Reads the input as the solver does, solves it, and writes the rows: to the file, whole or not at all, or to standard
/// output. The first thing that is wrong is said with file, row and value.
ExitCode RunSolve(const SolveRequest& request, Console& console);

}  // namespace zirvo::batch
