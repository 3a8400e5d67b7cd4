// A run of a solver in the current folder: control file, input, solution, reports. Callers: the mains of ZIRVO_SV12.EXE
// (analysis path) and ZIRVO_SV22.exe (graphics path).
#pragma once
#include <functional>
#include <ostream>

#include "solver/problem.h"

namespace zirvo::solver {

/// The theory, handed in so that a run can be tested with results made by hand.
using SolveFunction = std::function<Solution(const Problem&, const SolveOptions&)>;

/// What the process tells the one who started it.
enum class ExitCode {
    Solved = 0,
    BadInput = 1,       ///< also: a report that could not be written
    NoControlFile = 2,  ///< or one that cannot be used
};

/// Reads "Initial_File" and the input that it names, deletes the reports that the input names, solves, and writes them.
/// What is wrong is said in every report whose name is known, in the chosen language, and on one line of `messages`
/// (UTF-8). A report name that must not be used stops the run before anything is touched. No exception leaves.
ExitCode RunAnalysis(const SolveFunction& solve, std::ostream& messages) noexcept;

/// The same for the generated input of a section and its one report.
ExitCode RunSection(const SolveFunction& solve, std::ostream& messages) noexcept;

}  // namespace zirvo::solver
