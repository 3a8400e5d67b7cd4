// What all chunks of a solution share.
#pragma once
#include <vector>

#include "solver/engine.h"
#include "solver/prepared_problem.h"
#include "solver/problem.h"
#include "solver/superposition.h"

namespace zirvo::solver {

/// What all chunks share, read only.
struct Work {
    const Problem& TheProblem;
    LayerTable Layers;
    std::vector<LoadGroup> Groups;
    const Engine& TheEngine;
    LoadScale Scale;
    std::vector<PointResult>& Results;
};

}  // namespace zirvo::solver
