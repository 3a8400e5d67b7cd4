// One chunk of points each of whose pairs with a load has sums of its own. Caller: Solve, beside ChunkWork.
#pragma once
#include <cstddef>
#include <vector>

#include "solver/depth_plan.h"
#include "solver/direct_sum.h"
#include "solver/work.h"

namespace zirvo::solver {

/// How the pairs of a chunk are parted.
struct DirectPlan {
    bool Together = false;     ///< all groups at once, else group by group
    int Springs = 0;           ///< radii that fields are made for, where all groups are taken at once
    double FieldsPerNode = 0;  ///< about what the fields of a node cost, and what mixing them adds [ns]
};
DirectPlan PlanDirect(const Work& work, double points, bool careful);

class DirectWork {
public:
    /// @param careful  with kernels in two parts and finer nodes, for points that were not good enough
    DirectWork(const Work& work, const DepthChunk& chunk, double budget, bool careful = false)
        : work_(work), chunk_(chunk), budget_(budget), careful_(careful) {}

    void Run();

private:
    struct Piece;
    std::vector<Pair> PairsOf(const Piece& piece) const;
    void AddPiece(const Piece& piece, const SpringNodes& springs, DirectScratch& scratch, PointSums* sums) const;
    void AddApart() const;
    void AddTogether(int count) const;
    void Compose(std::size_t first, const std::vector<PointSums>& sums) const;
    void DoAgain() const;

    const Work& work_;
    const DepthChunk& chunk_;
    double budget_;
    bool careful_;
};

}  // namespace zirvo::solver
