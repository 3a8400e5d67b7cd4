// Which points are better served by sums of their own pairs than by tables of depths and radii.
#pragma once
#include <vector>

#include "solver/depth_plan.h"
#include "solver/work.h"

namespace zirvo::solver {

/// The chunks, with those joined into direct ones that this makes cheaper. Direct ones come first, the dearest before
/// the others.
std::vector<DepthChunk> WithDirectChunks(const Work& work, std::vector<DepthChunk> chunks);

/// The chunks, with the points near an edge of a load that would want a great many nodes in a table taken out of
/// theirs, for direct ones in front of the others.
std::vector<DepthChunk> WithEdgeChunks(const Work& work, std::vector<DepthChunk> chunks);

}  // namespace zirvo::solver
