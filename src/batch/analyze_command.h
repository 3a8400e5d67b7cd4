// `zirvo-batch analyze`: the work of the ANALYZE button, in the folder of the file. Caller: main.
#pragma once
#include "batch/command_line.h"
#include "batch/console.h"

namespace zirvo::batch {

/// Runs the solver program that lies beside this one, stamps its reports and makes the comma copies; prints the names
/// of what was written. The names of the reports are those inside the file; where they break the rules, nothing is
/// touched. A report that tells of bad input is kept like any other, and is told on standard error too.
ExitCode RunAnalyze(const AnalyzeRequest& request, Console& console);

}  // namespace zirvo::batch
