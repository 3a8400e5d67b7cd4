// The work on one chunk of depths, see chunk_work.h.
#include "solver/chunk_work.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "solver/pair_rows.h"
#include "solver/sum_rules.h"

namespace zirvo::solver {

namespace {

constexpr double NarrowestShare = 0.1;
constexpr double DepthGoal = 1e-15;          // of interpolation in z, in units of the load
constexpr double RelativeDepthGoal = 5e-12;  // or as a share of the value
constexpr double DepthSpread = 2;            // of errors at the nodes in z, by the weights of the interpolation
constexpr double CarefulShare = 0.1;         // of the budget: what has run out of it once is not mended by care
constexpr std::size_t PairsOfPart = 1000;    // that one thread takes at a time: some 50 microseconds

/// Where runs of items begin that hold at least PairsOfPart pairs each (the last may hold fewer), and the end.
/// @param ends  of the items in the points; @param loads  at each point
std::vector<std::size_t> PartsOf(const std::vector<std::size_t>& ends, std::size_t loads) {
    std::vector<std::size_t> parts{0};
    std::size_t from = 0;
    for (std::size_t i = 0; i < ends.size(); ++i) {
        if ((ends[i] - from) * loads >= PairsOfPart || i + 1 == ends.size()) {
            parts.push_back(i + 1);
            from = ends[i];
        }
    }
    return parts;
}

}  // namespace

/// The pairs' own radii where they are fewer than the nodes of the cells that would serve them.
std::vector<RadiusItem> ChunkWork::ChooseItems(double share) {
    lows_.clear();
    groupRadii_.clear();
    groupFirst_.clear();
    double low = HUGE_VAL;
    double high = 0;
    double ze = HUGE_VAL;
    std::vector<double> edges;
    groupRadii_.resize(work_.Groups.size());
    for (std::size_t g = 0; g < work_.Groups.size(); ++g) {
        edges.push_back(work_.Groups[g].Radius);
        for (std::size_t i = 0; i < chunk_.Points.size(); ++i) {
            const ChunkPoint& point = chunk_.Points[i];
            if (i > 0 && point.X == chunk_.Points[i - 1].X && point.Y == chunk_.Points[i - 1].Y) {
                continue;
            }
            for (const GroupLoad& load : work_.Groups[g].Loads) {
                const double r = PositionFrom(load, point.X, point.Y).R;
                low = std::min(low, r);
                high = std::max(high, r);
                groupRadii_[g].push_back(r);
            }
        }
    }
    for (const SourceDepth& source : chunk_.Sources) {
        ze = std::min(ze, source.Effective);
    }
    std::vector<RadiusItem> cells = MakeCells(low, high, edges, ze, share);
    cells_ = MoreRadiiThan(RadiiWorth(cells.size() * ChebyshevCount));
    if (cells_) {
        groupRadii_.clear();
        for (const RadiusItem& cell : cells) {
            lows_.push_back(cell.Low);
        }
        return cells;
    }
    columns_ = 1;
    std::vector<RadiusItem> items;
    for (std::size_t g = 0; g < groupRadii_.size(); ++g) {
        groupFirst_.push_back(items.size());
        for (const double r : groupRadii_[g]) {
            const double radius = work_.Groups[g].Radius;
            const double reach = r + std::min(edges.back(), AlikeRadii * radius);
            items.push_back({r, r, std::fabs(r - radius), reach, static_cast<int>(g)});
        }
    }
    return items;
}

/// How many radii, each of one group, cost as much as so many columns that all groups share.
std::size_t ChunkWork::RadiiWorth(std::size_t columns) const {
    constexpr double BesselCost = 20;  // of one argument, in units of eight sums
    constexpr double Rows = 10;
    const double sums = Rows / 8 * static_cast<double>(chunk_.Sources.size());
    const double shared = BesselCost + sums * static_cast<double>(work_.Groups.size());
    return static_cast<std::size_t>(static_cast<double>(columns) * shared / (BesselCost + sums));
}

/// True if the groups have more radii than that; else they are left sorted, each once.
bool ChunkWork::MoreRadiiThan(std::size_t most) {
    const auto sortOut = [](auto from, auto to) {
        std::sort(from, to);
        return std::unique(from, to);
    };
    std::size_t count = 0;
    for (auto& radii : groupRadii_) {
        // The first few may tell already, without sorting them all.
        const auto part = static_cast<std::ptrdiff_t>(4 * (most + 1));
        if (part < static_cast<std::ptrdiff_t>(radii.size()) / 2) {
            std::vector<double> first(radii.begin(), radii.begin() + part);
            if (count + static_cast<std::size_t>(sortOut(first.begin(), first.end()) - first.begin()) > most) {
                return true;
            }
        }
        radii.erase(sortOut(radii.begin(), radii.end()), radii.end());
        count += radii.size();
        if (count > most) {
            return true;
        }
    }
    return false;
}

std::size_t ChunkWork::ItemOf(std::size_t group, double r) const {
    if (cells_) {
        const auto above = std::upper_bound(lows_.begin(), lows_.end(), r);
        return above == lows_.begin() ? 0 : static_cast<std::size_t>(above - lows_.begin()) - 1;
    }
    const auto& radii = groupRadii_[group];
    return groupFirst_[group] +
           static_cast<std::size_t>(std::lower_bound(radii.begin(), radii.end(), r) - radii.begin());
}

void ChunkWork::MakeTable() {
    const TableCare care{budget_, careful_ || work_.Layers.Contrast > PreciseContrast, careful_ ? 1 : 0, work_.Helpers};
    const double widest = (work_.Layers.Slips ? SlipCellShare : CellShare) * (careful_ ? 0.5 : 1);
    for (double share = widest; table_.empty() || (cells_ && !table_[0].Smooth() && share > NarrowestShare);
         share *= 0.5) {
        table_.clear();
        table_.emplace_back(work_.Layers, work_.Groups, chunk_, ChooseItems(share), work_.TheEngine, care);
    }
}

/// The depths of a chunk taken as they are.
void ChunkWork::RunParts(const DepthChunk& whole, bool careful) const {
    const auto parts = WithoutNodes(work_.TheProblem, whole, MostSources);
    const double budget = careful && !careful_ ? CarefulShare * budget_ : budget_;
    ShareWith(work_.Helpers, parts.size(), [&](std::size_t i) {
        ChunkWork(work_, parts[i], budget / static_cast<double>(parts.size()), careful).Run();
    });
}

void ChunkWork::Run() {
    if (work_.Layers.M2.size() > 1) {
        MakeTable();
        if (chunk_.Depths.front().Source < 0 && !GoodInDepth()) {
            RunParts(chunk_, careful_);
            return;
        }
    }
    if (ByDepth()) {
        AddDepths();
    } else {
        AddPlaces();
    }
    if (!table_.empty()) {
        if (careful_) {
            DoJointly();
        } else {
            DoAgain();
        }
    }
}

/// The points whose bounds are not good enough, with more care.
void ChunkWork::DoAgain() const {
    std::vector<bool> wanted;
    bool any = false;
    for (const ChunkPoint& point : chunk_.Points) {
        wanted.push_back(!(WorstEstimate(work_.Results[point.Point]) <= RedoGoal));
        any = any || wanted.back();
    }
    if (any) {
        RunParts(PartOf(chunk_, wanted), true);
    }
}

/// Of two results of a point the one with the smaller bounds.
void ChunkWork::Keep(std::size_t point, const PointResult& result) const {
    PointResult& kept = work_.Results[point];
    if (!careful_ || WorstEstimate(result) <= WorstEstimate(kept)) {
        kept = result;
    }
}

/// Errors of interpolation in z, into depthErrors_; true if they are small.
bool ChunkWork::GoodInDepth() {
    const SumTable& table = table_[0];
    const double m2 = work_.Layers.M2[static_cast<std::size_t>(chunk_.Depths.front().Layer)];
    // A depth and the nodes that it is seen from are rounded; in a thin layer all of what changes in it shows that.
    const double height = std::fabs(chunk_.Sources.back().Z - chunk_.Sources.front().Z);
    const double depth = std::max(chunk_.Sources.back().Z, chunk_.Sources.front().Z);
    const double place = 2 * PlaceRounding * depth / height;
    bool good = true;
    for (std::size_t g = 0; g < work_.Groups.size(); ++g) {
        for (std::size_t item = 0; item < table.Items().size(); ++item) {
            const int owner = table.Items()[item].Group;
            if (owner >= 0 && owner != static_cast<int>(g)) {
                continue;
            }
            SumErrors sizes;
            SumErrors errors = table.DepthErrors(g, item, sizes);
            const SumErrors others = table.LargestErrors(g, item);
            for (std::size_t load = 0; load < 2; ++load) {
                good = good &&
                       errors.Strain[load] <= std::max(DepthGoal / m2, RelativeDepthGoal * sizes.Strain[load]) &&
                       errors.Displacement[load] <= std::max(DepthGoal * work_.Groups[g].Radius / m2,
                                                             RelativeDepthGoal * sizes.Displacement[load]);
                errors.Strain[load] += DepthSpread * others.Strain[load] + place * sizes.Strain[load];
                errors.Displacement[load] += DepthSpread * others.Displacement[load] + place * sizes.Displacement[load];
            }
            depthErrors_.push_back(errors);
        }
    }
    return good;
}

/// On nodes in z: true if one interpolation of a group's whole table serves all its pairs of a depth, since they
/// outnumber the items.
bool ChunkWork::ByDepth() const {
    if (table_.empty() || chunk_.Depths.front().Source >= 0) {
        return false;
    }
    const std::size_t items = table_[0].Items().size();
    return std::any_of(work_.Groups.begin(), work_.Groups.end(), [&](const LoadGroup& group) {
        return group.Loads.size() * chunk_.Points.size() > items * chunk_.Depths.size();
    });
}

void ChunkWork::AddPlaces() const {
    const std::size_t loads = work_.TheProblem.Loads.size();
    std::vector<std::size_t> ends;
    ends.reserve(chunk_.Points.size());
    for (std::size_t i = 1; i <= chunk_.Points.size(); ++i) {
        if (i == chunk_.Points.size() || chunk_.Points[i].X != chunk_.Points[i - 1].X ||
            chunk_.Points[i].Y != chunk_.Points[i - 1].Y) {
            ends.push_back(i);
        }
    }
    const auto parts = PartsOf(ends, loads);
    ShareWith(work_.Helpers, parts.size() - 1, [&](std::size_t part) {
        PointRoom room;
        for (std::size_t i = parts[part]; i < parts[part + 1]; ++i) {
            AddPlace(i > 0 ? ends[i - 1] : 0, ends[i], room);
        }
    });
}

void ChunkWork::AddDepths() const {
    std::vector<std::size_t> ends(chunk_.Depths.size(), 0);
    for (const ChunkPoint& point : chunk_.Points) {
        ++ends[static_cast<std::size_t>(point.Depth)];
    }
    std::partial_sum(ends.begin(), ends.end(), ends.begin());
    std::vector<std::size_t> points(chunk_.Points.size());  // by depth, then place
    std::vector<std::size_t> places = ends;
    for (std::size_t i = chunk_.Points.size(); i-- > 0;) {
        points[--places[static_cast<std::size_t>(chunk_.Points[i].Depth)]] = i;
    }
    const auto parts = PartsOf(ends, work_.TheProblem.Loads.size());
    ShareWith(work_.Helpers, parts.size() - 1, [&](std::size_t part) {
        PointRoom room;
        for (std::size_t i = parts[part]; i < parts[part + 1]; ++i) {
            AddDepth(points.data() + places[i], points.data() + ends[i], room);
        }
    });
}

/// All points of one place (X, Y): their loads, then their results.
void ChunkWork::AddPlace(std::size_t first, std::size_t last, PointRoom& room) const {
    room.Sums.assign(last - first, PointSums{});
    room.DepthRows.clear();
    for (std::size_t g = 0; g < work_.Groups.size(); ++g) {
        for (const GroupLoad& load : work_.Groups[g].Loads) {
            AddPair(g, load, PositionFrom(load, chunk_.Points[first].X, chunk_.Points[first].Y), first, last,
                    room.DepthRows, room.Sums.data());
        }
    }
    for (std::size_t i = first; i < last; ++i) {
        Compose(i, room.Sums[i - first]);
    }
}

/// All points of one depth of a chunk on nodes in z, given by their places in the chunk.
void ChunkWork::AddDepth(const std::size_t* first, const std::size_t* last, PointRoom& room) const {
    const auto count = static_cast<std::size_t>(last - first);
    room.Sums.assign(count, PointSums{});
    for (std::size_t g = 0; g < work_.Groups.size(); ++g) {
        room.DepthRows.clear();
        if (work_.Groups[g].Loads.size() * count > table_[0].Items().size()) {
            const PointDepth& depth = chunk_.Depths[static_cast<std::size_t>(chunk_.Points[*first].Depth)];
            table_[0].InterpolateDepth(g, depth.Weights, room.DepthRows);
        }
        for (std::size_t i = 0; i < count; ++i) {
            const ChunkPoint& point = chunk_.Points[first[i]];
            for (const GroupLoad& load : work_.Groups[g].Loads) {
                AddPair(g, load, PositionFrom(load, point.X, point.Y), first[i], first[i] + 1, room.DepthRows,
                        &room.Sums[i]);
            }
        }
    }
    for (std::size_t i = 0; i < count; ++i) {
        Compose(first[i], room.Sums[i]);
    }
}

void ChunkWork::Compose(std::size_t point, const PointSums& sums) const {
    const PointDepth& depth = chunk_.Depths[static_cast<std::size_t>(chunk_.Points[point].Depth)];
    const auto layer = static_cast<std::size_t>(depth.Layer);
    Keep(chunk_.Points[point].Point,
         ComposeResult(sums, work_.Layers.M2[layer], work_.Layers.Nu[layer], depth.Z == 0 && layer == 0, work_.Scale));
}

/// One load at points first .. last - 1 of one place.
/// @param depthRows  the group's table at their depth, or empty; @param sums  of the points
void ChunkWork::AddPair(std::size_t group, const GroupLoad& load, const PolarPosition& position, std::size_t first,
                        std::size_t last, const std::vector<double>& depthRows, PointSums* sums) const {
    const double radius = work_.Groups[group].Radius;
    const double gap = GapFrom(load, radius, position, chunk_.Points[first].X, chunk_.Points[first].Y);
    std::array<double, ChebyshevCount> weights{1};
    std::size_t item = 0;
    if (!table_.empty()) {
        item = ItemOf(group, position.R);
        if (cells_) {
            const RadiusItem& cell = table_[0].Items()[item];
            const double half = cell.High - cell.Low;
            const ChebyshevTable& unit = Chebyshevs();
            work_.TheEngine.ChebyshevWeights(unit.X.data(), unit.Lambda.data(),
                                             half > 0 ? (2 * position.R - cell.Low - cell.High) / half : 0,
                                             weights.data());
        }
    }
    int before = -1;
    alignas(64) double rows[RowStride] = {};
    SumErrors errors;
    for (std::size_t i = first; i < last; ++i) {
        const PointDepth& depth = chunk_.Depths[static_cast<std::size_t>(chunk_.Points[i].Depth)];
        if (chunk_.Points[i].Depth != before) {
            before = chunk_.Points[i].Depth;
            std::fill(std::begin(rows), std::end(rows), 0.0);
            errors = {};
            if (!table_.empty()) {
                AddLayered(group, item, weights, depth, depthRows, rows);
                errors = depth.Source >= 0 ? table_[0].Errors(group, item, static_cast<std::size_t>(depth.Source))
                                           : depthErrors_[cells_ ? group * table_[0].Items().size() + item : item];
            }
            AddHalfSpace(work_, depth, load, radius, gap, rows, errors);
        }
        AddToPoint(work_, depth, load, position, radius, gap, false, rows, errors, sums[i - first]);
    }
}

void ChunkWork::AddLayered(std::size_t group, std::size_t item, const std::array<double, ChebyshevCount>& weights,
                           const PointDepth& depth, const std::vector<double>& depthRows, double* rows) const {
    const SumTable& table = table_[0];
    const int stride = table.Stride(group);
    if (depth.Source >= 0) {
        work_.TheEngine.Interpolate(table.Rows(group, item, static_cast<std::size_t>(depth.Source)), weights.data(),
                                    columns_, stride, rows);
        return;
    }
    if (!depthRows.empty()) {
        work_.TheEngine.Interpolate(table.RowsIn(depthRows, group, item), weights.data(), columns_, stride, rows);
        return;
    }
    for (std::size_t source = 0; source < ChebyshevCount; ++source) {
        std::array<double, ChebyshevCount> both = weights;
        for (double& weight : both) {
            weight *= depth.Weights[source];
        }
        work_.TheEngine.Interpolate(table.Rows(group, item, source), both.data(), columns_, stride, rows);
    }
}

}  // namespace zirvo::solver
