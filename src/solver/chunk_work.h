// One chunk of depths: its sums, then its points. Caller: Solve, which gives each chunk to one thread; others help with
// its levels, its points and what is done again.
#pragma once
#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <vector>

#include "solver/depth_plan.h"
#include "solver/engine.h"
#include "solver/joint_sum.h"
#include "solver/layered_sums.h"
#include "solver/problem.h"
#include "solver/superposition.h"
#include "solver/work.h"

namespace zirvo::solver {

/// Depths of a chunk at most, each with its own sums; more stand on nodes in z.
inline constexpr std::size_t MostSources = 16;

/// A bound above this is not good enough: the point is done again.
inline constexpr double RedoGoal = 5e-11;

inline double WorstEstimate(const PointResult& result) {
    return *std::max_element(result.Estimates.begin(), result.Estimates.end());
}

/// One chunk: its sums, then its points.
class ChunkWork {
public:
    /// @param careful  with kernels in two parts, finer nodes and narrower cells, for points that were not good enough
    ChunkWork(const Work& work, const DepthChunk& chunk, double budget, bool careful)
        : work_(work), chunk_(chunk), budget_(budget), careful_(careful) {}

    void Run();

private:
    std::vector<RadiusItem> ChooseItems(double share);
    std::size_t RadiiWorth(std::size_t columns) const;
    bool MoreRadiiThan(std::size_t most);
    std::size_t ItemOf(std::size_t group, double r) const;
    bool GoodInDepth();
    void MakeTable();
    void RunParts(const DepthChunk& whole, bool careful) const;
    bool ByDepth() const;
    void AddPlaces() const;
    void AddDepths() const;
    void DoAgain() const;
    void DoJointly() const;
    struct JointPlace {
        std::vector<SourceDepth> Sources;
        std::vector<std::size_t> Points;  // of the chunk, one for each source
        std::unique_ptr<JointSum> Sum;
    };
    JointPlace JointAt(std::size_t first, std::size_t last) const;
    void JoinPlace(const JointPlace& place) const;
    void Keep(std::size_t point, const PointResult& result) const;
    /// Room for some points, of one thread.
    struct PointRoom {
        std::vector<PointSums> Sums;
        std::vector<double> DepthRows;  // a group's table at the depth at hand, or empty
    };
    void AddPlace(std::size_t first, std::size_t last, PointRoom& room) const;
    void AddDepth(const std::size_t* first, const std::size_t* last, PointRoom& room) const;
    void AddPair(std::size_t group, const GroupLoad& load, const PolarPosition& position, std::size_t first,
                 std::size_t last, const std::vector<double>& depthRows, PointSums* sums) const;
    void AddLayered(std::size_t group, std::size_t item, const std::array<double, ChebyshevCount>& weights,
                    const PointDepth& depth, const std::vector<double>& depthRows, double* rows) const;
    void Compose(std::size_t point, const PointSums& sums) const;

    const Work& work_;
    const DepthChunk& chunk_;
    double budget_;
    bool careful_;
    std::vector<SumTable> table_;  // none in one material
    bool cells_ = true;
    int columns_ = ChebyshevCount;                 // of an item: 1 where radii are taken as they are
    std::vector<double> lows_;                     // of the cells, ascending
    std::vector<std::vector<double>> groupRadii_;  // of each group, ascending, where radii are taken as they are
    std::vector<std::size_t> groupFirst_;          // the group's first item there
    std::vector<SumErrors> depthErrors_;           // as the items' errors, where the chunk stands on nodes in z
};

}  // namespace zirvo::solver
