// "Initial_File": what the program that starts a solver tells it. Caller: the solver run.
#pragma once
#include <istream>
#include <string>
#include <variant>

#include "solver/io/input_error.h"
#include "solver/io/unit_systems.h"

namespace zirvo::solver {

inline constexpr const char* ControlFileName = "Initial_File";

struct ControlFile {
    Language Words = Language::English;
    UnitSystem Units = UnitSystem::KgfToKgf;
    std::string InputName;  ///< decoded, a whole line
};

/// Reads the eight lines: heading, language number, empty, heading, unit system, empty, heading, name of the input. The
/// words of the headings do not matter. The error names the line and the value.
std::variant<ControlFile, InputError> ReadControlFile(std::istream& input);

}  // namespace zirvo::solver
