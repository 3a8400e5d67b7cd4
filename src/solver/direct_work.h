// One chunk of points each of whose pairs with a load has sums of its own. Caller: Solve, beside ChunkWork.
#pragma once
#include <cstddef>
#include <span>
#include <vector>

#include "solver/depth_plan.h"
#include "solver/direct_sum.h"
#include "solver/work.h"

namespace zirvo::solver {

/// Groups whose pairs are parted in one way.
struct DirectPart {
    std::span<const LoadGroup> Groups;
    int Springs = 0;  ///< radii that fields are made for, where all groups are taken at once; 0: group by group
    double FieldsPerNode = 0;  ///< about what the fields of a node cost, and what mixing them adds [ns]
};
std::vector<DirectPart> PlanDirect(const Work& work, std::size_t points, bool careful);

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
    void AddApart(std::span<const LoadGroup> groups, std::vector<PointSums>& sums) const;
    void AddTogether(const DirectPart& plan, std::vector<PointSums>& sums) const;
    void DoAgain() const;

    const Work& work_;
    const DepthChunk& chunk_;
    double budget_;
    bool careful_;
};

}  // namespace zirvo::solver
