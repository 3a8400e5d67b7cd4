// The sums of one level of radii: its nodes in blocks, kernels and Bessel functions at them, and what bounds their
// errors. Called by layered_sums alone.
#pragma once
#include <array>
#include <cstddef>
#include <vector>

#include "solver/depth_plan.h"
#include "solver/engine.h"
#include "solver/prepared_problem.h"
#include "solver/radius_plan.h"
#include "solver/spring_nodes.h"
#include "solver/wavenumbers.h"

namespace zirvo::solver {

/// Bounds of the errors of the sums of one item at one depth, per unit pressure and per unit shear: of displacements
/// [cm] and of strains.
struct SumErrors {
    std::array<double, 2> Displacement{};
    std::array<double, 2> Strain{};
};

/// How much work is put into sums.
struct SumCare {
    bool Precise = false;     ///< kernels in numbers of two parts
    int FirstRefinement = 0;  ///< the step is halved so many times from the start
    double MostNodes = 0;     ///< of one level
};

/// What is summed for: read only.
struct LevelWork {
    const LayerTable& Layers;
    const std::vector<LoadGroup>& Groups;
    const DepthChunk& Chunk;
    const std::vector<RadiusItem>& Items;
    const Engine& TheEngine;

    /// True if the items serve every group (cells), false if each belongs to one.
    bool Shared() const { return Items.front().Group < 0; }
    /// Place of a group's item where each that there is has one.
    std::size_t SlotOf(std::size_t group, std::size_t item) const {
        return Shared() ? group * Items.size() + item : item;
    }
    std::size_t Slots() const { return Shared() ? Groups.size() * Items.size() : Items.size(); }
};

/// Room for the blocks of nodes at hand, kept from sum to sum: getting it from the system costs a small pavement more
/// than filling it. One for each thread, until it ends; some MB for the largest pavements.
struct LevelScratch {
    std::vector<double> Bessel[4];
    std::vector<double> LoadBessel, Raw, Weighted, Precise, Rounding, Mixed;
};
LevelScratch& ScratchOfThread();

class LevelSum {
public:
    LevelSum(const LevelWork& work, const RadiusLevel& level, const SumCare& care);

    void Run();

    /// Place of an item's first column.
    std::size_t ColumnOf(std::size_t item) const { return columnOf_[item]; }
    std::size_t Columns(std::size_t group) const { return static_cast<std::size_t>(sums_[group].Tiles) * TileWidth; }
    /// All columns of a row at a source.
    const double* Row(std::size_t group, int row, std::size_t source) const;
    const SumErrors& Errors(std::size_t group, std::size_t item, std::size_t source) const {
        return errors_[work_.SlotOf(group, item) * static_cast<std::size_t>(sources_) + source];
    }
    /// False where interpolation in r misses its goal.
    bool Smooth() const { return smooth_; }

private:
    static constexpr int Segments = NodeBlock / Segment;

    /// Sums and the measures of their errors for one group. Maxima are per depth and kind, per unit load; magnitudes
    /// and doubts (what rounding of the kernels may amount to) per segment, depth and kind.
    struct GroupSum {
        int FirstTile = 0, Tiles = 0;
        std::vector<double> Total, Difference, Peak, Tail, Magnitude, Doubt;
        int Deepest = 0;
        std::vector<double> Shares;  // of the kernels that is rounding, per segment, depth and kind; of the widest step
    };

    void PlaceColumns();
    void Sum(int refinement);
    void MakeBessel(int firstTile, int tiles, int nodes);
    void SumBlock(const double* weight, int nodes);
    void MakeKernels(double radius, bool vertical, bool horizontal, int nodes, GroupSum& sum);
    void PlanMixing();
    void MakeMixedKernels(bool vertical, bool horizontal, int nodes);
    void AddMissed(int depth, int kind, int nodes);
    void MixKernels(std::size_t g, int nodes);
    void SampleRounding(double radius, bool vertical, bool horizontal, int nodes, int deepest);
    void Weigh(std::size_t g, const double* weight, int nodes);
    void AddDoubts(GroupSum& sum, int segments, std::size_t first) const;
    double* WeightedRows(std::size_t g);
    const double* LoadBessel(std::size_t g) const;
    bool Ended(double xi) const;
    bool Finish();
    bool FinishItem(std::size_t g, std::size_t item);
    struct Measures;
    Measures MeasuresOf(std::size_t g, std::size_t item, std::size_t source) const;
    void MakeEnvelopes(std::size_t item);
    void AddRounding(std::size_t g, std::size_t source, Measures& m) const;

    const LevelWork work_;
    const RadiusLevel& level_;
    SumCare care_;
    int sources_;
    NodeRule rule_;
    long nodes_ = 0;    // of the last pass
    int halvings_ = 0;  // of the step, since the first
    bool smooth_ = true;
    std::vector<SumErrors> errors_;      // [slot of group and item][source]
    std::vector<std::size_t> columnOf_;  // of every item of the table
    std::vector<KernelDepth> depths_;
    std::vector<double> radii_;      // of all tiles
    std::vector<double> loadRadii_;  // of the groups, in tiles
    std::vector<GroupSum> sums_;
    std::vector<double> segmentRounding_;  // of each segment: what a sum of ones may be off
    std::vector<double> envelopes_;        // of the item at hand: sizes of its Bessel functions in each segment
    std::vector<double> segmentXi_;        // largest wavenumber of each segment
    SpringNodes springs_;                  // where the kernels of all groups are mixed of those for a few radii
    int mixedDeepest_ = 0;                 // layer that those still reach
    int mostTiles_ = 0;                    // whose Bessel functions stand at one time
    bool loadsInLastTile_ = false;         // the radii of the loads stand behind those of the points
    std::size_t loadPlace_ = 0;            // there
    int orders_ = 0;                       // of Bessel functions that are wanted
    LevelScratch& scratch_;
    std::vector<double> (&bessel_)[4];
    std::vector<double>&loadBessel_, &raw_, &weighted_, &precise_;
    std::vector<double>& rounding_;  // [segment of the block][depth * Kinds + kind]: share of the kernels
    alignas(64) double xi_[NodeBlock] = {};
    alignas(64) double xiLow_[NodeBlock] = {};
};

}  // namespace zirvo::solver
