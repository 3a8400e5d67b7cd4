// Kernels of a level where layers slip and loads have many radii: made for a few radii in two parts, mixed for those of
// the groups (spring_nodes.h).
#include <algorithm>
#include <cmath>

#include "solver/level_rows.h"
#include "solver/level_sum.h"

namespace zirvo::solver {

namespace {

constexpr double WorthMixing = 0.6;  // nodes over groups
constexpr double TailShare = 0.5;    // of the last two Chebyshev coefficients: what follows them at most

}  // namespace

/// Plain kernels are cheap, and how much of them is rounding is told of each radius.
void LevelSum::PlanMixing() {
    if (!work_.Layers.Slips || !care_.Precise || work_.Groups.size() < 2) {
        return;
    }
    const int wanted = SpringNodesWanted(work_.Groups, care_.FirstRefinement > 0);
    if (wanted <= MostMixed && wanted <= WorthMixing * static_cast<double>(work_.Groups.size())) {
        springs_ = SpringNodesOf(work_.Groups, wanted);
    }
}

/// Kernels for all radii at the block of nodes, and the share of them that lies between the radii unseen, as rounding_.
void LevelSum::MakeMixedKernels(bool vertical, bool horizontal, int nodes) {
    const std::size_t radii = springs_.Radii.size();
    const std::size_t numbers = static_cast<std::size_t>(sources_) * RowCount * NodeBlock;
    if (scratch_.Mixed.size() < radii * numbers) {
        scratch_.Mixed.resize(radii * numbers);
    }
    const int before = mixedDeepest_;
    mixedDeepest_ = 0;
    for (std::size_t i = 0; i < radii; ++i) {
        int deepest = before;
        work_.TheEngine.PreciseKernels(work_.Layers.View(), springs_.Radii[i], xi_, xiLow_, nodes, depths_.data(),
                                       sources_, vertical, horizontal, deepest, scratch_.Mixed.data() + i * numbers,
                                       nullptr);
        mixedDeepest_ = std::max(mixedDeepest_, deepest);
    }
    std::fill(rounding_.begin(), rounding_.end(), 0.0);
    for (int d = 0; d < sources_; ++d) {
        for (int kind = vertical ? 0 : 2; kind < (horizontal ? Kinds : 2); ++kind) {
            AddMissed(d, kind, nodes);
        }
    }
}

/// What lies unseen between the radii of the kernels of one kind at one depth, over their least size, into rounding_.
void LevelSum::AddMissed(int depth, int kind, int nodes) {
    const std::size_t numbers = static_cast<std::size_t>(sources_) * RowCount * NodeBlock;
    double missed[NodeBlock] = {};
    double least[NodeBlock];
    std::fill(std::begin(least), std::end(least), HUGE_VAL);
    const auto kernels = [&](std::size_t radius, int row) {
        return scratch_.Mixed.data() + radius * numbers + static_cast<std::size_t>(depth * RowCount + row) * NodeBlock;
    };
    for (std::size_t i = 0; i < springs_.Radii.size(); ++i) {
        double size[NodeBlock] = {};
        for (int row = 0; row < RowCount; ++row) {
            const double* at = kernels(i, row);
            for (int k = 0; RowKind[row] == kind && k < nodes; ++k) {
                size[k] = std::max(size[k], std::fabs(at[k]));
            }
        }
        for (int k = 0; k < nodes; ++k) {
            least[k] = std::min(least[k], size[k]);
        }
    }
    for (int row = 0; row < RowCount; ++row) {
        double high[2][NodeBlock] = {};
        for (std::size_t i = 0; RowKind[row] == kind && i < springs_.Radii.size(); ++i) {
            const double* at = kernels(i, row);
            for (int k = 0; k < nodes; ++k) {
                high[0][k] += springs_.Tails[i] * at[k];
                high[1][k] += springs_.Tails[MostMixed + i] * at[k];
            }
        }
        for (int k = 0; k < nodes; ++k) {
            missed[k] = std::max(missed[k], TailShare * (std::fabs(high[0][k]) + std::fabs(high[1][k])));
        }
    }
    for (int k = 0; k < nodes; ++k) {
        const int place = (k / Segment * sources_ + depth) * Kinds + kind;
        double& share = rounding_[static_cast<std::size_t>(place)];
        // Where the field does not reach there is nothing to be missed.
        share = least[k] > 0 ? std::max(share, missed[k] / least[k]) : share;
    }
}

/// Kernels of a group at the block of nodes, into raw_.
void LevelSum::MixKernels(std::size_t g, int nodes) {
    const LoadGroup& group = work_.Groups[g];
    const std::size_t numbers = static_cast<std::size_t>(sources_) * RowCount * NodeBlock;
    for (int d = 0; d < sources_; ++d) {
        for (int row = RowsFrom(group); row < RowsTo(group); ++row) {
            const std::size_t place = static_cast<std::size_t>(d * RowCount + row) * NodeBlock;
            work_.TheEngine.Mix(scratch_.Mixed.data() + place, static_cast<std::ptrdiff_t>(numbers),
                                springs_.Mixes[g].Weights.data(), static_cast<int>(springs_.Radii.size()), nodes,
                                raw_.data() + place);
        }
    }
}

}  // namespace zirvo::solver
