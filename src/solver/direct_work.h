// One chunk of points each of whose pairs with a load has sums of its own. Caller: Solve, beside ChunkWork.
#pragma once
#include "solver/depth_plan.h"
#include "solver/work.h"

namespace zirvo::solver {

class DirectWork {
public:
    DirectWork(const Work& work, const DepthChunk& chunk, double budget)
        : work_(work), chunk_(chunk), budget_(budget) {}

    void Run();

private:
    void DoAgain() const;

    const Work& work_;
    const DepthChunk& chunk_;
    double budget_;
};

}  // namespace zirvo::solver
