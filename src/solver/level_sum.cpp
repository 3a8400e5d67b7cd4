// Nodes in blocks: kernels, Bessel functions, sums; and the measures of rounding that go with them. What becomes of
// those stands in level_errors.cpp.
#include "solver/level_sum.h"

#include <algorithm>
#include <cmath>

#include "solver/level_rows.h"
#include "solver/sum_rules.h"
#include "solver/tables.h"

namespace zirvo::solver {

namespace {

constexpr int ShortBlock = 64;  // a last block that takes the rounding of the one before

}  // namespace

LevelScratch& ScratchOfThread() {
    thread_local LevelScratch scratch;
    return scratch;
}

LevelSum::LevelSum(const LevelWork& work, const RadiusLevel& level, const SumCare& care)
    : work_(work),
      level_(level),
      care_(care),
      sources_(static_cast<int>(work.Chunk.Sources.size())),
      depths_(KernelDepthsOf(work.Layers, work.Chunk.Sources)),
      scratch_(ScratchOfThread()),
      bessel_(scratch_.Bessel),
      loadBessel_(scratch_.LoadBessel),
      raw_(scratch_.Raw),
      weighted_(scratch_.Weighted),
      precise_(scratch_.Precise),
      rounding_(scratch_.Rounding) {
    PlaceColumns();
    PlanMixing();
}

void LevelSum::Run() {
    for (int refinement = care_.FirstRefinement;; ++refinement) {
        Sum(refinement);
        // A finer step must not cut a sum short that had ended.
        const bool last = refinement >= MostRefinements || 2 * static_cast<double>(nodes_) > care_.MostNodes;
        if (Finish() || last) {
            return;
        }
    }
}

void LevelSum::PlaceColumns() {
    const auto& items = work_.Items;
    sums_.resize(work_.Groups.size());
    columnOf_.resize(items.size());
    const bool shared = work_.Shared();
    for (std::size_t g = 0; g < work_.Groups.size(); ++g) {
        GroupSum& sum = sums_[g];
        if (shared && g > 0) {
            sum.FirstTile = sums_[0].FirstTile;
            sum.Tiles = sums_[0].Tiles;
        } else {
            const std::size_t first = radii_.size();
            for (const std::size_t i : level_.Items) {
                if (!shared && items[i].Group != static_cast<int>(g)) {
                    continue;
                }
                columnOf_[i] = radii_.size() - first;
                if (shared) {
                    const auto nodes = ChebyshevNodes(items[i].Low, items[i].High);
                    radii_.insert(radii_.end(), nodes.begin(), nodes.end());
                } else {
                    radii_.push_back(items[i].Low);
                }
            }
            const std::size_t own = radii_.size();
            while (radii_.size() % TileWidth != 0) {
                radii_.push_back(radii_.back());
            }
            // The radii of the loads take the room that is left over.
            const bool alone = shared || work_.Groups.size() == 1;
            loadsInLastTile_ = alone && radii_.size() - own >= work_.Groups.size();
            loadPlace_ = own;
            for (std::size_t i = 0; loadsInLastTile_ && i < work_.Groups.size(); ++i) {
                radii_[own + i] = work_.Groups[i].Radius;
            }
            sum.FirstTile = static_cast<int>(first / TileWidth);
            sum.Tiles = static_cast<int>((radii_.size() - first) / TileWidth);
            mostTiles_ = std::max(mostTiles_, sum.Tiles);
        }
        loadRadii_.push_back(work_.Groups[g].Radius);
    }
    while (loadRadii_.size() % TileWidth != 0) {
        loadRadii_.push_back(loadRadii_.back());
    }
}

void LevelSum::Sum(int refinement) {
    rule_ = MakeNodeRule(level_.Range, refinement, work_.Layers.Slips);
    halvings_ = refinement - care_.FirstRefinement;
    bool horizontal = false;
    for (std::size_t g = 0; g < work_.Groups.size(); ++g) {
        GroupSum& sum = sums_[g];
        const auto rows = static_cast<std::size_t>(sources_) * RowCount;
        const auto kinds = static_cast<std::size_t>(sources_) * static_cast<std::size_t>(Kinds);
        sum.Total.assign(rows * static_cast<std::size_t>(sum.Tiles) * TileWidth, 0);
        sum.Difference.assign(sum.Total.size(), 0);
        sum.Peak.assign(kinds, 0);
        sum.Tail.assign(kinds, 0);
        sum.Magnitude.clear();
        sum.Doubt.clear();
        if (halvings_ == 0) {
            sum.Shares.clear();
        }
        sum.Deepest = static_cast<int>(work_.Layers.M2.size()) - 1;
        horizontal = horizontal || work_.Groups[g].Horizontal;
    }
    mixedDeepest_ = static_cast<int>(work_.Layers.M2.size()) - 1;
    segmentXi_.clear();
    // Sizes only grow: room is cleared once.
    const auto grow = [](std::vector<double>& room, std::size_t size) {
        if (room.size() < size) {
            room.resize(size);
        }
    };
    orders_ = horizontal ? 4 : 3;
    for (int order = 0; order < orders_; ++order) {
        grow(bessel_[order], static_cast<std::size_t>(mostTiles_) * TileWidth * NodeBlock);
    }
    grow(loadBessel_, loadRadii_.size() * NodeBlock);
    grow(raw_, static_cast<std::size_t>(sources_) * RowCount * NodeBlock);
    grow(precise_, static_cast<std::size_t>(sources_) * RowCount * NodeBlock);
    grow(rounding_,
         static_cast<std::size_t>(Segments) * static_cast<std::size_t>(sources_) * static_cast<std::size_t>(Kinds));

    alignas(64) double weight[NodeBlock];
    const double expected = NodesBelow(rule_, level_.Range.Largest);
    for (long first = 0;;) {
        const int nodes = NodesOfBlock(expected, first, NodeBlock);
        FillNodes(work_.TheEngine, rule_, first, nodes, xi_, xiLow_, weight);
        SumBlock(weight, nodes);
        first += nodes;
        nodes_ = first;
        const double xi = xi_[nodes - 1];
        if (xi > WindowEnd(rule_) || static_cast<double>(first) >= care_.MostNodes || Ended(xi)) {
            return;
        }
    }
}

/// Kernels of the block at hand; `sum` keeps what goes from block to block.
void LevelSum::MakeKernels(double radius, bool vertical, bool horizontal, int nodes, GroupSum& sum) {
    const int before = sum.Deepest;
    if (care_.Precise) {
        work_.TheEngine.PreciseKernels(work_.Layers.View(), radius, xi_, xiLow_, nodes, depths_.data(), sources_,
                                       vertical, horizontal, sum.Deepest, raw_.data(), nullptr);
    } else {
        work_.TheEngine.Kernels(work_.Layers.View(), radius, xi_, nodes, depths_.data(), sources_, vertical, horizontal,
                                sum.Deepest, raw_.data());
    }
    const auto segments = static_cast<std::size_t>((nodes + Segment - 1) / Segment);
    const auto width = static_cast<std::size_t>(sources_) * static_cast<std::size_t>(Kinds);
    const std::size_t firstSegment = segmentXi_.size() - segments;
    if (halvings_ == 0 && (nodes > ShortBlock || firstSegment == 0)) {
        SampleRounding(radius, vertical, horizontal, nodes, before);
    } else {
        // What share of a kernel is rounding has been told by the wider step; of the last few nodes of a sum by the
        // block before.
        for (std::size_t s = 0; s < segments; ++s) {
            const std::size_t told = std::min((firstSegment + s) >> halvings_, sum.Shares.size() / width - 1);
            std::copy_n(sum.Shares.begin() + static_cast<std::ptrdiff_t>(told * width), width,
                        rounding_.begin() + static_cast<std::ptrdiff_t>(s * width));
        }
    }
    if (halvings_ == 0) {
        sum.Shares.insert(sum.Shares.end(), rounding_.begin(),
                          rounding_.begin() + static_cast<std::ptrdiff_t>(segments * width));
    }
}

/// Rounding of the kernels at hand, into rounding_.
void LevelSum::SampleRounding(double radius, bool vertical, bool horizontal, int nodes, int deepest) {
    std::fill(rounding_.begin(), rounding_.end(), 0.0);
    if (care_.Precise) {
        return;  // the sums' own rounding is more
    }
    // Where layers turn from thin to thick a kernel may lose more for a few nodes: in proportion to the contrast.
    const double least = LeastRounding + ContrastRounding * work_.Layers.Contrast;
    const int segments = (nodes + Segment - 1) / Segment;
    alignas(64) double xi[Segments], xiLow[Segments];
    int node[Segments];
    for (int s = 0; s < Segments; ++s) {
        node[s] = std::min(std::min(s, segments - 1) * Segment + Segment / 2, nodes - 1);
        xi[s] = xi_[node[s]];
        xiLow[s] = xiLow_[node[s]];
    }
    work_.TheEngine.PreciseKernels(work_.Layers.View(), radius, xi, xiLow, Segments, depths_.data(), sources_, vertical,
                                   horizontal, deepest, precise_.data(), nullptr);
    for (int d = 0; d < sources_; ++d) {
        for (int s = 0; s < segments; ++s) {
            double off[Kinds] = {};
            double largest[Kinds] = {};
            double plain[Kinds] = {};
            for (int row = vertical ? 0 : VerticalRows; row < (horizontal ? static_cast<int>(RowCount) : VerticalRows);
                 ++row) {
                const auto place = static_cast<std::size_t>(d * RowCount + row) * NodeBlock;
                const double precise = precise_[place + static_cast<std::size_t>(s)];
                const auto kind = static_cast<std::size_t>(RowKind[row]);
                const double raw = raw_[place + static_cast<std::size_t>(node[s])];
                off[kind] = LargerOrNone(off[kind], std::fabs(raw - precise));
                largest[kind] = std::max(largest[kind], std::fabs(precise));
                plain[kind] = std::max(plain[kind], std::fabs(raw));
            }
            for (std::size_t kind = 0; kind < Kinds; ++kind) {
                const double share = RoundingShare(off[kind], largest[kind], plain[kind]);
                rounding_[static_cast<std::size_t>((s * sources_ + d) * Kinds) + kind] = std::max(share, least);
            }
        }
    }
}

/// Bessel functions of some tiles of radii at the block of nodes, into bessel_.
void LevelSum::MakeBessel(int firstTile, int tiles, int nodes) {
    double* bessel[4] = {};
    for (int order = 0; order < orders_; ++order) {
        bessel[order] = bessel_[order].data();
    }
    work_.TheEngine.Bessel(Bessels(), xi_, xiLow_, nodes,
                           radii_.data() + static_cast<std::ptrdiff_t>(firstTile) * TileWidth, tiles, bessel);
}

void LevelSum::SumBlock(const double* weight, int nodes) {
    const double* bessel[4] = {};
    for (int order = 0; order < orders_; ++order) {
        bessel[order] = bessel_[order].data();
    }
    const Engine& engine = work_.TheEngine;
    if (work_.Shared() || work_.Groups.size() == 1) {
        MakeBessel(0, sums_[0].Tiles, nodes);
    }
    if (!loadsInLastTile_) {
        double* const loadBessel[4] = {nullptr, loadBessel_.data(), nullptr, nullptr};
        engine.Bessel(Bessels(), xi_, xiLow_, nodes, loadRadii_.data(), static_cast<int>(loadRadii_.size() / TileWidth),
                      loadBessel);
    }
    bool anyVertical = false;
    bool anyHorizontal = false;
    for (const LoadGroup& group : work_.Groups) {
        anyVertical = anyVertical || group.Vertical;
        anyHorizontal = anyHorizontal || group.Horizontal;
    }
    for (int first = 0; first < nodes; first += Segment) {
        segmentXi_.push_back(xi_[std::min(first + Segment, nodes) - 1]);
    }
    if (springs_.Mixed()) {
        MakeMixedKernels(anyVertical, anyHorizontal, nodes);
    }
    for (std::size_t g = 0; g < work_.Groups.size(); ++g) {
        const LoadGroup& group = work_.Groups[g];
        if (springs_.Mixed()) {
            if (sums_[g].Tiles > 0) {
                MixKernels(g, nodes);
            }
        } else if (work_.Layers.Slips && sums_[g].Tiles > 0) {
            MakeKernels(group.Radius, group.Vertical, group.Horizontal, nodes, sums_[g]);
        } else if (!work_.Layers.Slips && g == 0) {
            MakeKernels(0, anyVertical, anyHorizontal, nodes, sums_[0]);
        }
        if (sums_[g].Tiles == 0) {
            continue;
        }
        Weigh(g, weight, nodes);
        if (!work_.Shared() && work_.Groups.size() > 1) {  // the group's own radii, in the room of the one before
            MakeBessel(sums_[g].FirstTile, sums_[g].Tiles, nodes);
        }
        engine.Accumulate(WeightedRows(g), sources_, nodes, bessel, 0, sums_[g].Tiles, RowsFrom(group), RowsTo(group),
                          sums_[g].Total.data(), sums_[g].Difference.data());
    }
}

/// Where the weighted kernels of a group go: over the raw ones where no other group wants them.
double* LevelSum::WeightedRows(std::size_t g) {
    if (work_.Layers.Slips || g + 1 == work_.Groups.size()) {
        return raw_.data();
    }
    if (weighted_.size() < raw_.size()) {
        weighted_.resize(raw_.size());
    }
    return weighted_.data();
}

/// J1 of the group's radius at the first node, TileWidth apart.
const double* LevelSum::LoadBessel(std::size_t g) const {
    if (loadsInLastTile_) {
        const std::size_t place = loadPlace_ + g;
        return bessel_[1].data() + place / TileWidth * NodeBlock * TileWidth + place % TileWidth;
    }
    return loadBessel_.data() + g / TileWidth * NodeBlock * TileWidth + g % TileWidth;
}

void LevelSum::Weigh(std::size_t g, const double* weight, int nodes) {
    const LoadGroup& group = work_.Groups[g];
    GroupSum& sum = sums_[g];
    alignas(64) double factor[NodeBlock];
    alignas(64) double size[NodeBlock];
    const double* j1 = LoadBessel(g);
    for (int k = 0; k < nodes; ++k) {
        factor[k] = weight[k] * group.Radius * j1[static_cast<std::ptrdiff_t>(k) * TileWidth];
        size[k] = weight[k] * group.Radius * Envelope(xi_[k] * group.Radius);
    }
    const int segments = (nodes + Segment - 1) / Segment;
    const std::size_t first = sum.Magnitude.size();
    sum.Magnitude.resize(first + static_cast<std::size_t>(segments * sources_ * Kinds), 0);
    double* out = WeightedRows(g);
    for (int d = 0; d < sources_; ++d) {
        const std::ptrdiff_t place = static_cast<std::ptrdiff_t>(d) * RowCount * NodeBlock;
        const std::ptrdiff_t kinds = static_cast<std::ptrdiff_t>(d) * Kinds;
        const WeighMeasures measures{sum.Magnitude.data() + static_cast<std::ptrdiff_t>(first) + kinds,
                                     sources_ * Kinds, sum.Peak.data() + kinds, sum.Tail.data() + kinds};
        work_.TheEngine.Weigh(raw_.data() + place, factor, size, nodes, RowsFrom(group), RowsTo(group), out + place,
                              measures);
    }
    AddDoubts(sum, segments, first);
}

/// What the rounding of the kernels may amount to in each segment of the block whose magnitudes begin at `first`.
void LevelSum::AddDoubts(GroupSum& sum, int segments, std::size_t first) const {
    const auto width = static_cast<std::size_t>(sources_) * static_cast<std::size_t>(Kinds);
    sum.Doubt.resize(sum.Magnitude.size(), 0);
    for (int s = 0; s < segments; ++s) {
        const auto at = static_cast<std::size_t>(s) * width;
        for (std::size_t i = 0; i < width; ++i) {
            double worst = rounding_[at + i];
            worst = s > 0 ? std::max(worst, rounding_[at - width + i]) : worst;
            worst = s + 1 < segments ? std::max(worst, rounding_[at + width + i]) : worst;
            sum.Doubt[first + at + i] = KernelSafety * worst * sum.Magnitude[first + at + i];
        }
    }
}

bool LevelSum::Ended(double xi) const {
    for (std::size_t g = 0; g < work_.Groups.size(); ++g) {
        for (int d = 0; d < sources_; ++d) {
            if (xi * work_.Chunk.Sources[static_cast<std::size_t>(d)].Effective < EndedPhase) {
                return false;
            }
            for (std::size_t kind = 0; kind < Kinds; ++kind) {
                const std::size_t place = static_cast<std::size_t>(d * Kinds) + kind;
                if (sums_[g].Tail[place] > EndedKernel * sums_[g].Peak[place]) {
                    return false;
                }
            }
        }
    }
    return true;
}

const double* LevelSum::Row(std::size_t group, int row, std::size_t source) const {
    return sums_[group].Total.data() + (static_cast<std::size_t>(row * sources_) + source) * Columns(group);
}

}  // namespace zirvo::solver
