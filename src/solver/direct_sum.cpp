// Sums of single pairs, see direct_sum.h. The bounds of their errors have the terms of level_errors.cpp, but for those
// of interpolation, which there is none of; the share of rounding in a layer's kernels is sampled at two of its depths.
#include "solver/direct_sum.h"

#include <algorithm>
#include <cmath>

#include "solver/level_rows.h"
#include "solver/sum_rules.h"
#include "solver/tables.h"

namespace zirvo::solver {

namespace {

constexpr double PairRounding = 4 * UnitRounding;   // of a sum of four products, times a Bessel function
constexpr double MixedRounding = 6 * UnitRounding;  // where that is mixed of several
constexpr double SlowRounding = 4 * UnitRounding;   // more of it in the slow share near an edge

}  // namespace

double FieldCost(const LayerTable& layers, bool vertical, bool horizontal) {
    const double cases = (vertical ? 1 : 0) + (horizontal ? 1 : 0);
    const double cost = static_cast<double>(layers.M2.size()) * (4 + 4 * cases) + 50;
    return layers.Contrast > PreciseContrast ? 7 * cost : 1.5 * cost;
}

double PairCost(bool vertical, bool horizontal) {
    return 1.5 + (vertical ? 0.8 : 0) + (horizontal ? 1.2 : 0);
}

double MixCost(bool vertical, bool horizontal) {
    return (vertical ? 0.28 : 0) + (horizontal ? 0.42 : 0);
}

DirectSum::DirectSum(const Work& work, const DepthChunk& chunk, std::span<const LoadGroup> groups,
                     const SpringNodes& springs, const std::vector<Pair>& pairs, const DirectCare& care,
                     DirectScratch& scratch)
    : work_(work),
      chunk_(chunk),
      groups_(groups),
      springs_(springs),
      pairs_(pairs),
      care_(care),
      scratch_(scratch),
      rows_(pairs.size()),
      errors_(pairs.size()),
      nodeBlock_(springs.Mixed() ? PairNodes : NodeBlock),
      precise_(care.Careful || work.Layers.Contrast > PreciseContrast) {
    for (const LoadGroup& group : groups) {
        vertical_ = vertical_ || group.Vertical;
        horizontal_ = horizontal_ || group.Horizontal;
    }
    for (const PointDepth& depth : chunk.Depths) {
        depths_.push_back(KernelDepthOf(work.Layers, depth.Layer, depth.Z));
    }
    scratch_.Sums.resize(pairs.size());
}

void DirectSum::Run() {
    std::vector<RadiusItem> items;
    std::vector<std::size_t> pairs, nearEdges;
    for (std::size_t i = 0; i < pairs_.size(); ++i) {
        const Pair& pair = pairs_[i];
        if (IsNearEdge(pair)) {
            nearEdges.push_back(i);
        } else {
            pairs.push_back(i);
            const double r = pair.Position.R;
            items.push_back({r, r, std::fabs(pair.Gap), r + groups_.back().Radius, 0});
        }
    }
    RunLevels(pairs, items);
    RunNearEdges(std::move(nearEdges));
}

/// Effective depth of a pair [cm].
double DirectSum::EffectiveOf(const Pair& pair) const {
    return chunk_.Sources[static_cast<std::size_t>(chunk_.Points[pair.Point].Depth)].Effective;
}

LevelCosts DirectSum::Costs() const {
    LevelCosts costs;
    costs.Mild = !work_.Layers.Slips && work_.Layers.Contrast <= MildContrast;
    const auto radii = static_cast<double>(springs_.Radii.size());
    costs.PerNode = radii * FieldCost(work_.Layers, vertical_, horizontal_);
    costs.PerNodeAndColumn =
        PairCost(vertical_, horizontal_) + (springs_.Mixed() ? radii * MixCost(vertical_, horizontal_) : 0);
    return costs;
}

/// @param items  of the pairs, in their order
void DirectSum::RunLevels(const std::vector<std::size_t>& pairs, const std::vector<RadiusItem>& items) {
    double ze = HUGE_VAL;
    for (const std::size_t pair : pairs) {
        ze = std::min(ze, EffectiveOf(pairs_[pair]));
    }
    const LevelCosts costs = Costs();
    const auto levels = SplitIntoLevels(items, ze, work_.Layers.LowScale, costs);
    for (const RadiusLevel& level : levels) {
        const double most = std::clamp(care_.Budget / static_cast<double>(levels.size()) /
                                           (costs.PerNode + costs.PerNodeAndColumn * static_cast<double>(items.size())),
                                       FewestNodes, MostNodes);
        std::vector<std::size_t> ofLevel;
        for (const std::size_t item : level.Items) {
            ofLevel.push_back(pairs[item]);
        }
        Refine(std::move(ofLevel), level.Range, most);
    }
}

/// Finer steps for the pairs that want them, as long as there is room for twice the nodes.
void DirectSum::Refine(std::vector<std::size_t> pairs, const WaveRange& range, double most) {
    for (int refinement = care_.Careful ? 1 : 0; !pairs.empty(); ++refinement) {
        nodes_ = static_cast<long>(most);
        Sum(pairs, range, refinement);
        const bool last = refinement >= MostRefinements || 2 * static_cast<double>(nodes_) > most;
        pairs.erase(std::remove_if(pairs.begin(), pairs.end(), [&](std::size_t pair) { return Finish(pair); }),
                    pairs.end());
        if (last) {
            break;
        }
    }
}

void DirectSum::Sum(const std::vector<std::size_t>& pairs, const WaveRange& range, int refinement) {
    range_ = range;
    rule_ = MakeNodeRule(range, refinement, work_.Layers.Slips);
    SplitRule();
    active_ = pairs;
    for (const std::size_t pair : pairs) {
        scratch_.Sums[pair] = PairSums{};
    }
    deepest_ = static_cast<int>(work_.Layers.M2.size()) - 1;
    const double expected = NodesBelow(rule_, range.Largest);
    const long most = nodes_;
    double lowest = 0;
    alignas(64) double weight[NodeBlock];
    for (long first = 0;;) {
        const int nodes = NodesOfBlock(expected, first, nodeBlock_);
        FillNodes(work_.TheEngine, rule_, first, nodes, xi_, xiLow_, weight);
        for (int s = 0; s * Segment < nodes; ++s) {
            const double xi = xi_[std::min((s + 1) * Segment, nodes) - 1];
            segmentRounding_[s] = (springs_.Mixed() ? MixedRounding : PairRounding) +
                                  (share_ == Share::SlowBeyondSplit ? SlowRounding : 0) +
                                  ArgumentRounding(xi * range.Reach);
            segmentEnvelope_[s] = 0.9 / std::sqrt(lowest);
            lowest = xi;
        }
        PlaceLayers();
        MakeFactors(nodes, weight);
        MakeFields(nodes);
        AddBlock(nodes);
        first += nodes;
        nodes_ = first;
        const double xi = xi_[nodes - 1];
        if (xi > WindowEnd(rule_) || first >= most) {
            return;
        }
        DropEnded(xi);
        if (active_.empty()) {
            return;
        }
    }
}

/// Slots for the layers in which there are pairs.
void DirectSum::PlaceLayers() {
    const LayerTable& layers = work_.Layers;
    slots_.assign(layers.M2.size(), -1);
    slotLayers_.clear();
    thinPlaces_.clear();
    samples_.clear();
    for (const std::size_t pair : active_) {
        const KernelDepth& depth = depths_[static_cast<std::size_t>(DepthOf(pair))];
        int& slot = slots_[static_cast<std::size_t>(depth.Layer)];
        if (slot < 0) {
            slot = static_cast<int>(slotLayers_.size());
            slotLayers_.push_back(depth.Layer);
            samples_.insert(samples_.end(), SampleDepths, depth);
            const std::size_t before = thinPlaces_.size();
            const auto thickness = [&](int layer) { return layers.Thickness[static_cast<std::size_t>(layer)]; };
            thinPlaces_.push_back(before > 0 && thickness(slotLayers_[before - 1]) == thickness(depth.Layer)
                                      ? thinPlaces_.back()
                                      : before);
        }
        samples_.back() = depth;
    }
    deepestWanted_ = slotLayers_.back();
}

/// What kernels are weighed with, for each group.
void DirectSum::MakeFactors(int nodes, const double* weight) {
    scratch_.Factors.resize(groups_.size() * NodeBlock);
    scratch_.Sizes.resize(groups_.size() * NodeBlock);
    alignas(64) double j1[NodeBlock * TileWidth];
    double* const bessel[4] = {nullptr, j1, nullptr, nullptr};
    for (int k = 0; k < nodes; ++k) {
        inverse_[k] = 1 / xi_[k];
    }
    for (std::size_t first = 0; first < groups_.size(); first += TileWidth) {
        alignas(64) double radii[TileWidth];
        for (std::size_t i = 0; i < TileWidth; ++i) {
            radii[i] = groups_[std::min(first + i, groups_.size() - 1)].Radius;
        }
        work_.TheEngine.Bessel(Bessels(), xi_, xiLow_, nodes, radii, 1, bessel);
        for (std::size_t g = first; g < std::min(first + TileWidth, groups_.size()); ++g) {
            double* const factor = scratch_.Factors.data() + g * NodeBlock;
            double* const size = scratch_.Sizes.data() + g * NodeBlock;
            const double radius = groups_[g].Radius;
            for (int k = 0; k < nodes; ++k) {
                factor[k] = weight[k] * radius * j1[static_cast<std::size_t>(k) * TileWidth + g - first];
                size[k] = weight[k] * radius * Envelope(xi_[k] * radius);
            }
            if (share_ == Share::SlowBeyondSplit) {  // J1 stands in the slow share of both Bessel functions
                for (int k = 0; k < nodes; ++k) {
                    const double beyond = BeyondSplit(xi_[k]);
                    factor[k] = weight[k] * radius * beyond;
                    size[k] *= beyond;
                }
            }
        }
    }
}

/// Fields of the layers at the block of nodes, and how much of them is rounding.
void DirectSum::MakeFields(int nodes) {
    const auto grow = [](auto& room, std::size_t size) {
        if (room.size() < size) {
            room.resize(size);
        }
    };
    const std::size_t slots = slotLayers_.size();
    const std::size_t slotNumbers = static_cast<std::size_t>(nodeBlock_) * FieldNumbers;
    const std::size_t radii = springs_.Radii.size();
    grow(scratch_.Fields, radii * slots * slotNumbers);
    grow(scratch_.Forms, slots * NodeBlock);
    grow(scratch_.Thin, slots * ThinNumbers * NodeBlock);
    grow(scratch_.Doubts, slots * 2 * Segments * Kinds);
    const Engine& engine = work_.TheEngine;
    const int before = deepest_;
    const FieldsPlace place{scratch_.Fields.data(), static_cast<std::ptrdiff_t>(slots * slotNumbers),
                            static_cast<std::ptrdiff_t>(slotNumbers), scratch_.Forms.data()};
    const auto count = static_cast<int>(radii);
    if (precise_) {
        engine.PreciseFields(work_.Layers.View(), springs_.Radii.data(), count, xi_, xiLow_, nodes, slots_.data(),
                             deepestWanted_, vertical_, horizontal_, deepest_, place);
    } else {
        engine.Fields(work_.Layers.View(), springs_.Radii.data(), count, xi_, nodes, slots_.data(), deepestWanted_,
                      vertical_, horizontal_, deepest_, place);
    }
    for (std::size_t slot = 0; slot < slots; ++slot) {
        if (thinPlaces_[slot] == slot) {
            engine.ThinFunctions(work_.Layers.Thickness[static_cast<std::size_t>(slotLayers_[slot])], xi_, nodes,
                                 scratch_.Thin.data() + slot * ThinNumbers * NodeBlock);
        }
    }
    SampleRounding(nodes, before);
}

const double* DirectSum::ThinOf(std::size_t slot, int node) const {
    return scratch_.Thin.data() + thinPlaces_[slot] * ThinNumbers * NodeBlock + node;
}

void DirectSum::AddBlock(int nodes) {
    for (int first = 0; first < nodes; first += PairNodes) {
        AddNodes(first, std::min(PairNodes, nodes - first));
    }
}

/// Components of all radii at the depth whose functions stand in the block, and what lies between the radii.
/// @param shares  of the kernels, by segment and kind
void DirectSum::MixAtDepth(PairBlock& block, std::size_t slot, int first, double* shares) {
    const std::size_t radii = springs_.Radii.size();
    const std::size_t slotNumbers = static_cast<std::size_t>(nodeBlock_) * FieldNumbers;
    scratch_.Components.resize(radii * ComponentNumbers);
    for (std::size_t i = 0; i < radii; ++i) {
        const double* fields = scratch_.Fields.data() + (i * slotLayers_.size() + slot) * slotNumbers +
                               static_cast<std::size_t>(first) * FieldNumbers;
        work_.TheEngine.Components(fields, block.Depth, block.Nodes, vertical_, horizontal_,
                                   scratch_.Components.data() + i * ComponentNumbers);
    }
    block.Components = scratch_.Components.data();
    block.Mixed = static_cast<int>(radii);
    work_.TheEngine.MissedByMixing(block.Components, springs_.Tails.data(), block.Mixed, block.Nodes, vertical_,
                                   horizontal_, shares);
    block.Doubt = shares;
    block.DoubtStride = Kinds;
}

/// Some nodes of the block for all pairs.
void DirectSum::AddNodes(int first, int nodes) {
    const Engine& engine = work_.TheEngine;
    const std::size_t slots = slotLayers_.size();
    alignas(64) double functions[4 * NodeBlock];
    alignas(64) double slow[4 * PairNodes];
    alignas(64) double low[PairNodes];
    double shares[Segments * Kinds];
    PairBlock block;
    block.Nodes = nodes;
    block.Xi = xi_ + first;
    block.XiLow = xiLow_ + first;
    block.InverseXi = inverse_ + first;
    block.Depth = functions;
    block.DoubtStride = static_cast<int>(slots * Kinds);
    block.SegmentRounding = segmentRounding_ + first / Segment;
    block.SegmentEnvelope = segmentEnvelope_ + first / Segment;
    const double* doubts =
        scratch_.Doubts.data() + (Segments + static_cast<std::size_t>(first / Segment)) * slots * Kinds;
    int before = -1;
    for (const std::size_t index : active_) {
        const Pair& pair = pairs_[index];
        const int depth = DepthOf(index);
        if (depth != before) {
            before = depth;
            const KernelDepth& at = depths_[static_cast<std::size_t>(depth)];
            const auto slot = static_cast<std::size_t>(slots_[static_cast<std::size_t>(at.Layer)]);
            engine.DepthFunctions(at, at.Layer + 1 == static_cast<int>(work_.Layers.M2.size()), block.Xi, nodes,
                                  scratch_.Forms.data() + slot * NodeBlock + static_cast<std::size_t>(first),
                                  ThinOf(slot, first), functions);
            if (springs_.Mixed()) {
                MixAtDepth(block, slot, first, shares);
            } else {
                block.Fields =
                    scratch_.Fields.data() +
                    (slot * static_cast<std::size_t>(nodeBlock_) + static_cast<std::size_t>(first)) * FieldNumbers;
                block.Doubt = doubts + slot * Kinds;
            }
        }
        const std::size_t factors = pair.Group * NodeBlock + static_cast<std::size_t>(first);
        block.Factor = scratch_.Factors.data() + factors;
        block.Size = scratch_.Sizes.data() + factors;
        if (springs_.Mixed()) {
            const SpringNodes::Mix& mix = springs_.Mixes[pair.Group];
            block.Weights = mix.Weights.data();
            block.SizeFirst = mix.SizeFirst;
            block.SizeShare = mix.SizeShare;
        }
        if (share_ == Share::SlowBeyondSplit) {
            MakeSlow(pair, first, nodes, slow);
            block.Slow = slow;
        } else if (share_ == Share::BelowSplit) {
            MakeLow(pair, first, nodes, low);
            block.XiLow = low;
        }
        (springs_.Mixed() ? engine.AddMixedToPair : engine.AddToPair)(
            Bessels(), block, pair.Position.R, IsVertical(pair), IsHorizontal(pair), scratch_.Sums[index]);
    }
}

void DirectSum::DropEnded(double xi) {
    const auto ended = [&](std::size_t pair) {
        if (xi * chunk_.Sources[static_cast<std::size_t>(DepthOf(pair))].Effective < EndedPhase) {
            return false;
        }
        const PairSums& sums = scratch_.Sums[pair];
        for (std::size_t kind = 0; kind < Kinds; ++kind) {
            if (sums.Tail[kind] > EndedKernel * sums.Peak[kind]) {
                return false;
            }
        }
        return true;
    };
    active_.erase(std::remove_if(active_.begin(), active_.end(), ended), active_.end());
}

/// Rows and errors of a pair; false if it needs a finer step.
bool DirectSum::Finish(std::size_t pair) {
    const PairSums& sums = scratch_.Sums[pair];
    const auto depth = static_cast<std::size_t>(DepthOf(pair));
    const double m2 = work_.Layers.M2[static_cast<std::size_t>(chunk_.Depths[depth].Layer)];
    const double decay = -std::expm1(-rule_.C * rule_.Step * chunk_.Sources[depth].Effective);
    const bool slow = share_ == Share::SlowBeyondSplit;
    auto& rows = slow ? slowRows_[pair] : rows_[pair];
    SumErrors& errors = slow ? slowErrors_[pair] : errors_[pair];
    std::array<double, Kinds> half{}, value{};
    for (std::size_t row = 0; row < RowCount; ++row) {
        double even = 0;
        double odd = 0;
        for (std::size_t i = 0; i < 8; i += 2) {
            even += sums.Rows[row][i];
            odd += sums.Rows[row][i + 1];
        }
        rows[row] = even + odd;
        const auto kind = static_cast<std::size_t>(RowKind[row]);
        half[kind] = std::max(half[kind], std::fabs(even - odd));
        value[kind] = std::max(value[kind], std::fabs(even + odd));
    }
    bool good = true;
    for (std::size_t kind = 0; kind < Kinds; ++kind) {
        const double unit = (kind % 2 == 1 ? groups_[pairs_[pair].Group].Radius : 1) / m2;
        const double scale = std::min(unit, sums.Magnitude[kind]);
        const double rule = scale > 0 ? RuleError(half[kind], scale) : 0;
        good = good && rule <= std::max(AbsoluteGoal * unit, RelativeGoal * value[kind]);
        auto& error = kind % 2 == 1 ? errors.Displacement : errors.Strain;
        // Below the split nothing is cut off: what the window takes from the sum is in the other share.
        const double cut = share_ == Share::BelowSplit ? 0 : sums.Tail[kind] / decay;
        const double growth = GrowthRounding(static_cast<double>(nodes_) / PairNodes, value[kind]);
        error[kind / 2] = rule + cut + growth + std::sqrt(sums.Kernel2[kind]) + std::sqrt(sums.Sum2[kind]);
    }
    return good;
}

}  // namespace zirvo::solver
