// The work on one chunk of pairs, see direct_work.h.
#include "solver/direct_work.h"

#include <algorithm>

#include "solver/chunk_work.h"
#include "solver/direct_sum.h"
#include "solver/pair_rows.h"

namespace zirvo::solver {

namespace {

constexpr std::size_t MostPairs = 4000;     // that are summed at a time: 5 MB
constexpr double CarefulBudgetShare = 0.1;  // what has run out of its budget is not mended by care

/// The pairs of some loads of a group, by point.
std::vector<Pair> PairsOf(const DepthChunk& chunk, const LoadGroup& group, std::size_t first, std::size_t last) {
    std::vector<Pair> pairs;
    for (std::size_t i = 0; i < chunk.Points.size(); ++i) {
        const ChunkPoint& point = chunk.Points[i];
        for (std::size_t load = first; load < last; ++load) {
            const PolarPosition position = PositionFrom(group.Loads[load], point.X, point.Y);
            pairs.push_back({i, load, position, GapFrom(group.Loads[load], group.Radius, position, point.X, point.Y)});
        }
    }
    return pairs;
}

}  // namespace

void DirectWork::Run() {
    std::vector<PointSums> sums(chunk_.Points.size());
    DirectScratch scratch;
    for (const LoadGroup& group : work_.Groups) {
        const std::size_t loads = group.Loads.size();
        const std::size_t step = std::clamp<std::size_t>(MostPairs / chunk_.Points.size(), 1, loads);
        for (std::size_t first = 0; first < loads; first += step) {
            const auto pairs = PairsOf(chunk_, group, first, std::min(first + step, loads));
            const double share = static_cast<double>(step) / static_cast<double>(work_.TheProblem.Loads.size());
            DirectSum direct(work_, chunk_, group, pairs, {share * budget_, careful_}, scratch);
            direct.Run();
            for (std::size_t i = 0; i < pairs.size(); ++i) {
                const Pair& pair = pairs[i];
                const PointDepth& depth = chunk_.Depths[static_cast<std::size_t>(chunk_.Points[pair.Point].Depth)];
                const GroupLoad& load = group.Loads[pair.Load];
                auto rows = direct.Rows(i);
                SumErrors errors = direct.Errors(i);
                AddHalfSpace(work_, depth, load, group.Radius, pair.Gap, rows.data(), errors);
                AddToPoint(work_, depth, load, pair.Position, group.Radius, pair.Gap, rows.data(), errors,
                           sums[pair.Point]);
            }
        }
    }
    for (std::size_t i = 0; i < chunk_.Points.size(); ++i) {
        const PointDepth& depth = chunk_.Depths[static_cast<std::size_t>(chunk_.Points[i].Depth)];
        const auto layer = static_cast<std::size_t>(depth.Layer);
        const PointResult result = ComposeResult(sums[i], work_.Layers.M2[layer], work_.Layers.Nu[layer],
                                                 depth.Z == 0 && layer == 0, work_.Scale);
        PointResult& kept = work_.Results[chunk_.Points[i].Point];
        if (!careful_ || WorstEstimate(result) <= WorstEstimate(kept)) {
            kept = result;
        }
    }
    DoAgain();
}

/// The points whose bounds are not good enough, with more care; what still is not, and is little, on tables, which hold
/// each depth by itself.
void DirectWork::DoAgain() const {
    std::vector<bool> wanted;
    bool any = false;
    for (const ChunkPoint& point : chunk_.Points) {
        wanted.push_back(!(WorstEstimate(work_.Results[point.Point]) <= RedoGoal));
        any = any || wanted.back();
    }
    if (!any) {
        return;
    }
    DepthChunk part = PartOf(chunk_, wanted);
    if (!careful_) {
        part.Direct = true;
        for (std::size_t depth = 0; depth < part.Depths.size(); ++depth) {
            const PointDepth& at = part.Depths[depth];
            part.Depths[depth].Source = static_cast<int>(depth);
            part.Sources.push_back(
                {at.Layer, at.Z, EffectiveDepth(at.Layer, at.Z, work_.TheProblem.Layers[0].Thickness)});
        }
        DirectWork(work_, part, CarefulBudgetShare * budget_, true).Run();
    } else if (part.Depths.size() <= MostSources) {
        for (const DepthChunk& alone : WithoutNodes(work_.TheProblem, part, MostSources)) {
            ChunkWork(work_, alone, budget_, true).Run();
        }
    }
}

}  // namespace zirvo::solver
