// What all chunks of a solution share.
#pragma once
#include <vector>

#include "solver/crew.h"
#include "solver/engine.h"
#include "solver/prepared_problem.h"
#include "solver/problem.h"
#include "solver/superposition.h"

namespace zirvo::solver {

/// What all chunks share; read only, but that each writes the results of its own points.
struct Work {
    const Problem& TheProblem;
    LayerTable Layers;
    std::vector<LoadGroup> Groups;
    const Engine& TheEngine;
    LoadScale Scale;
    std::vector<PointResult>& Results;
    Crew* Helpers = nullptr;  ///< of ShareWith; none: all is done on the caller's thread
};

}  // namespace zirvo::solver
