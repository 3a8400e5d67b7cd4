// What is wrong with a problem, row by row and value by value, in the words of `zirvo-batch check`. Installed as
// zirvo/check_problem.h. Callers: studies, the Python module, whoever builds on the library.
#pragma once
#include <string>
#include <vector>

#include "solver/problem.h"

namespace zirvo::solver {

inline constexpr int MostLayers = 100;

/// One value that a rule refuses.
struct ProblemFault {
    enum class Part { Counts, Layer, Load, Point };

    Part Where = Part::Counts;
    int Row = 0;         ///< 1-based; 0 for counts
    std::string Value;   ///< its name, for example "PoissonRatio"
    double Number = 0;   ///< that stands there
    std::string Reason;  ///< "is above 0.5"

    /// "layer 2, PoissonRatio 0.7: is above 0.5".
    std::string Text() const;
};

/// Judges the preconditions of Solve: every value of every row that fails, in the order layers, loads, points; empty if
/// the problem can be solved. While a layer fails, points are judged by their layer number only.
/// @param problem  a point with layer number 0 at the surface is given to layer 1; a depth that lies outside its layer
///                 by no more than 1E-9 cm, which is the rounding of sums of thicknesses, is brought onto the boundary
std::vector<ProblemFault> CheckProblem(Problem& problem);

}  // namespace zirvo::solver
