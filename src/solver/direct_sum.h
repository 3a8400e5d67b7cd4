// The sums over wavenumbers of single pairs of a load and a point, each at its own distance and depth: for points that
// share neither places nor depths with others, where a table of radii and depths would hold far more sums than there
// are pairs. The pairs of one group of loads (one radius) share the fields of the layers; those of several do where no
// layer slips, or where fields for a few radii stand for all (spring_nodes.h).
#pragma once
#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "solver/depth_plan.h"
#include "solver/engine.h"
#include "solver/level_sum.h"
#include "solver/radius_plan.h"
#include "solver/spring_nodes.h"
#include "solver/work.h"

namespace zirvo::solver {

/// One load of a group at one point.
struct Pair {
    std::size_t Group = 0;  ///< of those of the sum
    std::size_t Point = 0;  ///< of the chunk's
    std::size_t Load = 0;   ///< of the group's
    PolarPosition Position;
    double Gap = 0;  ///< distance outside the edge of the load [cm]
};

/// How much work is put into direct sums.
struct DirectCare {
    double Budget = 0;     ///< about how many nanoseconds they may take; what is cut off shows in the errors
    bool Careful = false;  ///< kernels in two parts, half the step
};

/// Room that is kept from sum to sum.
struct DirectScratch {
    std::vector<double> Fields, Thin, Precise, Doubts, Factors, Sizes, Components;
    std::vector<unsigned char> Forms;
    std::vector<PairSums> Sums;
};

/// About what a node costs for a radius, for each pair, and for each of the radii that a pair is mixed of [ns].
double FieldCost(const LayerTable& layers, bool vertical, bool horizontal);
double PairCost(bool vertical, bool horizontal);
double MixCost(bool vertical, bool horizontal);

/// True for a pair near the edge of its load, and so near in depth, that its sum would take thousands of nodes if it
/// were made whole: a direct sum is then made in two shares (direct_edges.cpp).
/// @param gap  distance outside the edge; @param effective  ze, all in cm
bool WorthSplitting(double radius, double r, double gap, double effective);
/// The same of a point and any of the loads.
bool IsNearEdge(const Work& work, const ChunkPoint& point, double effective);

class DirectSum {
public:
    /// @param chunk  its points by depth; @param groups  of the pairs, ascending; @param springs  for these groups;
    /// @param pairs  by point
    DirectSum(const Work& work, const DepthChunk& chunk, std::span<const LoadGroup> groups, const SpringNodes& springs,
              const std::vector<Pair>& pairs, const DirectCare& care, DirectScratch& scratch);

    void Run();

    /// True for a pair whose sums have the distance from the edge of the load to its last digit.
    bool HasExactGap(std::size_t pair) const { return IsNearEdge(pairs_[pair]); }

    const std::array<double, RowCount>& Rows(std::size_t pair) const { return rows_[pair]; }
    const SumErrors& Errors(std::size_t pair) const { return errors_[pair]; }

private:
    static constexpr int Segments = NodeBlock / Segment;
    static constexpr int SampleDepths = 2;  // of a layer

    /// What of the products of two Bessel functions is summed, see direct_edges.cpp.
    enum class Share { Whole, BelowSplit, SlowBeyondSplit };

    LevelCosts Costs() const;
    double EffectiveOf(const Pair& pair) const;
    bool IsNearEdge(const Pair& pair) const;
    void RunLevels(const std::vector<std::size_t>& pairs, const std::vector<RadiusItem>& items);
    void RunNearEdges(std::vector<std::size_t> pairs);
    void SplitRule();
    double BeyondSplit(double xi) const;
    void MakeLow(const Pair& pair, int first, int nodes, double* low) const;
    void MakeSlow(const Pair& pair, int first, int nodes, double* slow) const;
    void Refine(std::vector<std::size_t> pairs, const WaveRange& range, double most);
    void Sum(const std::vector<std::size_t>& pairs, const WaveRange& range, int refinement);
    void PlaceLayers();
    void MakeFactors(int nodes, const double* weight);
    void MakeFields(int nodes);
    void SampleRounding(int nodes, int deepest);
    void CompareSample(std::size_t sample, int segment, int node, const double* depth, double least);
    void SpreadDoubts(int segments);
    void AddBlock(int nodes);
    void AddNodes(int first, int nodes);
    void MixAtDepth(PairBlock& block, std::size_t slot, int first, double* shares);
    bool IsVertical(const Pair& pair) const { return groups_[pair.Group].Vertical; }
    bool IsHorizontal(const Pair& pair) const { return groups_[pair.Group].Horizontal; }
    int FirstRow() const { return vertical_ ? 0 : VerticalRows; }
    int LastRow() const { return horizontal_ ? static_cast<int>(RowCount) : VerticalRows; }
    void DropEnded(double xi);
    bool Finish(std::size_t pair);
    int DepthOf(std::size_t pair) const { return chunk_.Points[pairs_[pair].Point].Depth; }
    const double* ThinOf(std::size_t slot, int node) const;

    alignas(64) double xi_[NodeBlock] = {}, xiLow_[NodeBlock] = {}, inverse_[NodeBlock] = {};
    const Work& work_;
    const DepthChunk& chunk_;
    std::span<const LoadGroup> groups_;
    const SpringNodes& springs_;
    const std::vector<Pair>& pairs_;
    DirectCare care_;
    DirectScratch& scratch_;
    std::vector<KernelDepth> depths_;  // of the chunk
    std::vector<std::array<double, RowCount>> rows_;
    std::vector<SumErrors> errors_;
    std::vector<std::array<double, RowCount>> slowRows_;  // of Share::SlowBeyondSplit, where there is one
    std::vector<SumErrors> slowErrors_;

    // of the pass at hand
    Share share_ = Share::Whole;
    double split_ = 0;        // sigma of the window between both shares [1/cm]
    double slowestFrom_ = 0;  // wavenumber below which the slow share is nothing [1/cm]
    NodeRule rule_;
    WaveRange range_;
    long nodes_ = 0;
    std::vector<std::size_t> active_;      // pairs whose sums go on, by depth
    std::vector<int> slots_;               // of each layer, or -1
    std::vector<int> slotLayers_;          // layer of each slot
    std::vector<std::size_t> thinPlaces_;  // of each slot: layers of one thickness share them
    std::vector<KernelDepth> samples_;     // SampleDepths of each slot
    double segmentRounding_[Segments] = {}, segmentEnvelope_[Segments] = {};
    int deepest_ = 0;
    int deepestWanted_ = 0;
    int nodeBlock_;                               // nodes that fields are made for at a time
    bool vertical_ = false, horizontal_ = false;  // what loads there are
    bool precise_;
};

}  // namespace zirvo::solver
