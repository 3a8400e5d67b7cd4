// Many pavements on all cores. Caller: the Python module.
#pragma once
#include <functional>
#include <string>
#include <variant>
#include <vector>

#include "solver/io/unit_systems.h"
#include "solver/problem.h"

namespace zirvo::python {

/// A solution in the units of the output, or why there is none.
using Solved = std::variant<solver::Solution, std::string>;

/// Solves each pavement on one thread, as many at a time as there are threads; `tell` is called on the caller's thread
/// about ten times a second with the number that is done, and what it throws stops the work and is thrown on.
/// @param problems  with the numbers as they are typed, judged; an empty one (no layers) is passed over
std::vector<Solved> SolveMany(const std::vector<solver::Problem>& problems, solver::UnitSystem units, int threads,
                              const std::function<void(std::size_t)>& tell);

}  // namespace zirvo::python
