// Hill climbing: from a pavement and one of its points by small changes towards larger errors, or towards errors that
// the bound does not cover.
#pragma once
#include "families.h"
#include "measure.h"

namespace zirvo::attack {

enum class Goal { Error, Ratio };

struct Climbed {
    solver::Problem Problem;  ///< with one point
    GroupError Worst;
    int Steps = 0;
};

/// Climbs for so many changes. @param start  a problem with at least one point; the point `point` is kept
Climbed Climb(const solver::Engine& engine, const solver::Problem& start, std::size_t point, Goal goal, int changes,
              Random& random, Tally& tally, double promise);

}  // namespace zirvo::attack
