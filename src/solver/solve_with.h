// The solution by inner loops of one's choice, for what compares them.
#pragma once
#include "solver/engine.h"
#include "solver/solve.h"

namespace zirvo::solver {

/// Solve, by these loops.
/// @param engine  one that this machine can run (RunnableEngines)
Solution SolveWith(const Engine& engine, const Problem& problem, const SolveOptions& options = {});

}  // namespace zirvo::solver
