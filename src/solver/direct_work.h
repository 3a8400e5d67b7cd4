// One chunk of points each of whose pairs with a load has sums of its own. Caller: Solve, beside ChunkWork.
#pragma once
#include "solver/depth_plan.h"
#include "solver/work.h"

namespace zirvo::solver {

class DirectWork {
public:
    /// @param careful  with kernels in two parts and finer nodes, for points that were not good enough
    DirectWork(const Work& work, const DepthChunk& chunk, double budget, bool careful = false)
        : work_(work), chunk_(chunk), budget_(budget), careful_(careful) {}

    void Run();

private:
    void DoAgain() const;

    const Work& work_;
    const DepthChunk& chunk_;
    double budget_;
    bool careful_;
};

}  // namespace zirvo::solver
