// Opening an input file as the solver does. Callers: the solve and analyze commands.
#pragma once
#include <fstream>
#include <string>

#include "solver/io/input_error.h"

namespace zirvo::batch {

/// Opens a plain file in binary mode. @return why it cannot be read, or an error with the reason None.
solver::InputError OpenInputFile(const std::string& path, std::ifstream& file);

}  // namespace zirvo::batch
