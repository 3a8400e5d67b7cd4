// The whole reference: the 15 values of every point in two-part arithmetic, by the field of each wavenumber from one
// banded system and Gauss panels graded towards zero. Not fast: a second for a pavement.
#pragma once
#include <array>
#include <vector>

#include "solver/problem.h"
#include "two_part.h"

namespace zirvo::attack {

struct ReferenceOptions {
    double Phase = 16;       ///< largest xi (r + a) of a panel
    double Growth = 2;       ///< largest ratio of a panel's ends
    long MostNodes = 40000;  ///< beyond, the problem is too dear
};

/// Values as the solver has them. Empty where the problem is too dear.
std::vector<std::array<Two, solver::ComponentCount>> ReferenceValues(const solver::Problem& problem,
                                                                     const ReferenceOptions& options = {});

}  // namespace zirvo::attack
