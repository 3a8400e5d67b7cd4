// The solution of a problem. Installed as zirvo/solve.h.
//
// Source of the theory: elastic layers by Hankel transforms (Burmister, Journal of Applied Physics 16, 1945), for each
// wavenumber a compliance carried up through the layers and tractions carried down, summed over wavenumbers;
// docs/theory.md has the equations and the bounds of their errors.
#pragma once
#include "solver/problem.h"

namespace zirvo::solver {

/// Solves the problem: as many results as there are points, in their order. The answer does not depend on the number of
/// threads. Every value is right to 1E-9 of the largest of its group at the point, or its bound (Estimates) says so.
///
/// Preconditions, which CheckProblem (check_problem.h) judges: 1 to 100 layers, at least one load, moduli, radii and
/// thicknesses > 0, 0 < nu <= 0.5, 0 <= slip <= 0.99, points inside their layers. No exception but std::bad_alloc.
/// Lengths beyond 1E12 cm or thicknesses and radii below 1E-12 cm, moduli beyond 1E+-30 or 1E15 apart, forces beyond
/// 1E100 are no pavement: all values are then NaN. It may be called from several threads at once.
Solution Solve(const Problem& problem, const SolveOptions& options = {});

}  // namespace zirvo::solver
