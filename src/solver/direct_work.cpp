// The work on one chunk of pairs, see direct_work.h.
#include "solver/direct_work.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "solver/chunk_work.h"
#include "solver/direct_sum.h"
#include "solver/pair_rows.h"
#include "solver/sum_rules.h"

namespace zirvo::solver {

namespace {

constexpr std::size_t MostPairs = 4000;     // that are summed at a time: 5 MB
constexpr std::size_t GroupsOfPart = 8;     // that one thread takes at a time
constexpr double CarefulBudgetShare = 0.1;  // what has run out of its budget is not mended by care

}  // namespace

namespace {

/// How the pairs of some groups are parted: group by group, or all at once at some of the points. Costs of a node [ns].
DirectPart PlanPart(const Work& work, std::span<const LoadGroup> groups, double points, bool careful) {
    DirectPart plan;
    plan.Groups = groups;
    double loads = 0;
    bool vertical = false;
    bool horizontal = false;
    for (const LoadGroup& group : groups) {
        loads += static_cast<double>(group.Loads.size());
        vertical = vertical || group.Vertical;
        horizontal = horizontal || group.Horizontal;
    }
    const auto count = static_cast<double>(groups.size());
    const double field = FieldCost(work.Layers, vertical, horizontal);
    plan.FieldsPerNode = count * field;
    if (groups.size() < 2) {
        return plan;
    }
    const double pieces = std::ceil(points * loads / static_cast<double>(MostPairs));
    if (!work.Layers.Slips) {
        plan.Springs = pieces < count ? 1 : 0;
        plan.FieldsPerNode = field * std::min(pieces, count);
        return plan;
    }
    // Plain kernels are cheap, and how much of them is rounding is known of one radius at a time only.
    const int wanted = SpringNodesWanted(groups, careful);
    const double cost = wanted * (pieces * field + points * loads * MixCost(vertical, horizontal));
    if ((careful || work.Layers.Contrast > PreciseContrast) && wanted <= MostMixed && cost < plan.FieldsPerNode) {
        plan.Springs = wanted;
        plan.FieldsPerNode = cost;
    }
    return plan;
}

}  // namespace

/// Groups whose radii are alike: those of very different ones want nodes that are too different.
std::vector<DirectPart> PlanDirect(const Work& work, std::size_t points, bool careful) {
    const std::span<const LoadGroup> groups(work.Groups);
    std::vector<DirectPart> parts;
    for (std::size_t first = 0; first < groups.size();) {
        const double whole = std::log(groups.back().Radius / groups[first].Radius);
        const double part = whole / std::max(1.0, std::ceil(whole / std::log(AlikeRadii)));
        const double largest = groups[first].Radius * std::exp(part) * (1 + 1e-9);
        std::size_t last = first + 1;
        while (last < groups.size() && groups[last].Radius <= largest) {
            ++last;
        }
        parts.push_back(PlanPart(work, groups.subspan(first, last - first), static_cast<double>(points), careful));
        first = last;
    }
    return parts;
}

/// Some loads of a group, or all of all groups, at points first .. last - 1.
struct DirectWork::Piece {
    std::size_t FirstPoint = 0, LastPoint = 0;
    std::span<const LoadGroup> Groups;
    std::size_t FirstLoad = 0, LastLoad = std::numeric_limits<std::size_t>::max();
};

/// The pairs of a piece, by point.
std::vector<Pair> DirectWork::PairsOf(const Piece& piece) const {
    std::vector<Pair> pairs;
    for (std::size_t i = piece.FirstPoint; i < piece.LastPoint; ++i) {
        const ChunkPoint& point = chunk_.Points[i];
        for (std::size_t g = 0; g < piece.Groups.size(); ++g) {
            const LoadGroup& group = piece.Groups[g];
            for (std::size_t load = piece.FirstLoad; load < std::min(piece.LastLoad, group.Loads.size()); ++load) {
                const PolarPosition position = PositionFrom(group.Loads[load], point.X, point.Y);
                pairs.push_back(
                    {g, i, load, position, GapFrom(group.Loads[load], group.Radius, position, point.X, point.Y)});
            }
        }
    }
    return pairs;
}

/// Adds a piece to the sums of the points from FirstPoint on.
void DirectWork::AddPiece(const Piece& piece, const SpringNodes& springs, DirectScratch& scratch,
                          PointSums* sums) const {
    const auto pairs = PairsOf(piece);
    const double all = static_cast<double>(work_.TheProblem.Loads.size() * chunk_.Points.size());
    const double budget = budget_ * static_cast<double>(pairs.size()) / all;
    DirectSum direct(work_, chunk_, piece.Groups, springs, pairs, {budget, careful_}, scratch);
    direct.Run();
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        const Pair& pair = pairs[i];
        const PointDepth& depth = chunk_.Depths[static_cast<std::size_t>(chunk_.Points[pair.Point].Depth)];
        const LoadGroup& group = piece.Groups[pair.Group];
        const GroupLoad& load = group.Loads[pair.Load];
        auto rows = direct.Rows(i);
        SumErrors errors = direct.Errors(i);
        AddHalfSpace(work_, depth, load, group.Radius, pair.Gap, rows.data(), errors);
        AddToPoint(work_, depth, load, pair.Position, group.Radius, pair.Gap, direct.HasExactGap(i), rows.data(),
                   errors, sums[pair.Point - piece.FirstPoint]);
    }
}

/// Group by group, some of them on each thread; their sums are added in the order of the groups.
void DirectWork::AddApart(std::span<const LoadGroup> groups, std::vector<PointSums>& sums) const {
    const std::size_t points = chunk_.Points.size();
    std::vector<std::vector<PointSums>> parts((groups.size() + GroupsOfPart - 1) / GroupsOfPart);
    ShareWith(work_.Helpers, parts.size(), [&](std::size_t part) {
        parts[part].resize(points);
        DirectScratch scratch;
        const std::size_t end = std::min((part + 1) * GroupsOfPart, groups.size());
        for (std::size_t g = part * GroupsOfPart; g < end; ++g) {
            const SpringNodes springs = OneSpringNode(groups[g].Radius);
            const std::size_t loads = groups[g].Loads.size();
            const std::size_t step = std::clamp<std::size_t>(MostPairs / points, 1, loads);
            for (std::size_t first = 0; first < loads; first += step) {
                AddPiece({0, points, groups.subspan(g, 1), first, std::min(first + step, loads)}, springs, scratch,
                         parts[part].data());
            }
        }
    });
    for (const auto& part : parts) {
        for (std::size_t i = 0; i < points; ++i) {
            sums[i].Add(part[i]);
        }
    }
}

/// All groups at once, some of the points on each thread.
void DirectWork::AddTogether(const DirectPart& plan, std::vector<PointSums>& sums) const {
    const SpringNodes springs =
        plan.Springs > 1 ? SpringNodesOf(plan.Groups, plan.Springs) : OneSpringNode(plan.Groups.front().Radius);
    std::size_t loads = 0;  // at least one in each group
    for (const LoadGroup& group : plan.Groups) {
        loads += group.Loads.size();
    }
    const std::size_t points = chunk_.Points.size();
    const std::size_t step = std::max<std::size_t>(MostPairs / std::max<std::size_t>(loads, 1), 1);
    const std::size_t pieces = (points + step - 1) / step;
    ShareWith(work_.Helpers, pieces, [&](std::size_t i) {
        const Piece piece{i * points / pieces, (i + 1) * points / pieces, plan.Groups};
        DirectScratch scratch;
        AddPiece(piece, springs, scratch, sums.data() + piece.FirstPoint);
    });
}

void DirectWork::Run() {
    std::vector<PointSums> sums(chunk_.Points.size());
    for (const DirectPart& part : PlanDirect(work_, chunk_.Points.size(), careful_)) {
        if (part.Springs > 0) {
            AddTogether(part, sums);
        } else {
            AddApart(part.Groups, sums);
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
/// each depth by itself: but for those near an edge, which would want too many nodes there.
void DirectWork::DoAgain() const {
    std::vector<bool> wanted;
    bool any = false;
    for (const ChunkPoint& point : chunk_.Points) {
        const PointDepth& at = chunk_.Depths[static_cast<std::size_t>(point.Depth)];
        wanted.push_back(
            !(WorstEstimate(work_.Results[point.Point]) <= RedoGoal) &&
            !(careful_ &&
              IsNearEdge(work_, point, EffectiveDepth(at.Layer, at.Z, work_.TheProblem.Layers[0].Thickness))));
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
