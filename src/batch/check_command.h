// `zirvo-batch check`: the rules of the data, row by row. Callers: main, the map command.
#pragma once
#include <string>
#include <vector>

#include "batch/command_line.h"
#include "batch/console.h"
#include "pavement/data_findings.h"

namespace zirvo::batch {

/// Names on standard error every row and value that breaks a rule of the data screen, in English, or the place where
/// the file cannot be read on; says on standard output what the file holds if there is none.
ExitCode RunCheck(const CheckRequest& request, Console& console);

/// Names every finding on standard error; true if there is one.
bool TellFindings(const std::string& file, const std::vector<Finding>& findings, Console& console);

}  // namespace zirvo::batch
