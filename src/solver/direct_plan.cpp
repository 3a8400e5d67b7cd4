// Costs of tables and of pairs, see direct_plan.h. They are rough: what matters is that a choice which is far off is
// never made.
#include "solver/direct_plan.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "solver/direct_sum.h"
#include "solver/direct_work.h"
#include "solver/radius_plan.h"
#include "solver/sum_rules.h"

namespace zirvo::solver {

namespace {

constexpr std::size_t WorthPlanning = 2000;  // pairs from which on the question is asked
constexpr std::size_t MostPoints = 1000;     // of a direct chunk: several for each thread where there is much to do
constexpr std::size_t MostPrecise = 2000;    // where kernels in two parts are dear
constexpr double MostNumbers = 1e7;          // of a table: 80 MB for each thread
constexpr double ClearlyLess = 0.4;          // of costs this rough
constexpr double Nodes = 220;                // of a sum, roughly
constexpr double TableNodes = 1.5 * Nodes;   // of one of a table, whose radii crowd where sums are long

/// What all points have in common.
struct Loads {
    std::vector<double> Edges;
    double Count = 0;
    bool Vertical = false, Horizontal = false;
};

struct Candidate {
    DepthChunk* Chunk;
    double Effective;  // least
    double Table;      // cost [ns]
};

double LeastEffective(const DepthChunk& chunk) {
    double ze = HUGE_VAL;
    for (const SourceDepth& source : chunk.Sources) {
        ze = std::min(ze, source.Effective);
    }
    return ze;
}

double FarthestPair(const Work& work, const DepthChunk& chunk) {
    double reach = 0;
    const GroupLoad& middle = work.Groups.front().Loads.front();
    for (const ChunkPoint& point : chunk.Points) {
        reach = std::max(reach, PositionFrom(middle, point.X, point.Y).R);
    }
    double spread = 0;
    for (const LoadGroup& group : work.Groups) {
        for (const GroupLoad& load : group.Loads) {
            spread = std::max(spread, PositionFrom(middle, load.X, load.Y).R);
        }
    }
    return reach + spread;
}

std::size_t PlacesOf(const DepthChunk& chunk) {
    std::size_t places = 0;
    for (std::size_t i = 0; i < chunk.Points.size(); ++i) {
        places += i == 0 || chunk.Points[i].X != chunk.Points[i - 1].X || chunk.Points[i].Y != chunk.Points[i - 1].Y;
    }
    return places;
}

/// What the tables of a chunk cost [ns].
double TableCost(const Work& work, const Loads& loads, const DepthChunk& chunk, double ze) {
    const auto groups = static_cast<double>(work.Groups.size());
    const auto sources = static_cast<double>(chunk.Sources.size());
    const double rows = (loads.Vertical ? 6 : 0) + (loads.Horizontal ? 9 : 0);
    const double field = FieldCost(work.Layers, loads.Vertical, loads.Horizontal) * (work.Layers.Slips ? groups : 1);
    const double share = work.Layers.Slips ? SlipCellShare : CellShare;
    const auto cells = MakeCells(0, FarthestPair(work, chunk), loads.Edges, ze, share);
    const double column = 8 + 0.06 * rows * sources * groups;
    // The sums, their differences and their rows side by side.
    const double numbers = static_cast<double>(cells.size() * ChebyshevCount) * sources * groups * 46;
    if (numbers > MostNumbers) {
        return HUGE_VAL;
    }
    const double ownRadii = static_cast<double>(PlacesOf(chunk)) * loads.Count * (8 + 0.06 * rows * sources);
    const double radii = std::min(static_cast<double>(cells.size() * ChebyshevCount) * column, ownRadii);
    const double interpolation = chunk.Depths.front().Source < 0 ? 80 : 20;
    return TableNodes * (field + radii) + interpolation * loads.Count * static_cast<double>(chunk.Points.size());
}

/// Points of several chunks as direct ones, by depth, so many at most in each.
void AddDirect(const std::vector<Candidate>& band, double firstThickness, std::size_t most,
               std::vector<DepthChunk>& direct) {
    struct Place {
        int Layer;
        double Z;
        double Effective;
        ChunkPoint Point;
    };
    std::vector<Place> places;
    for (const Candidate& candidate : band) {
        for (const ChunkPoint& point : candidate.Chunk->Points) {
            const PointDepth& depth = candidate.Chunk->Depths[static_cast<std::size_t>(point.Depth)];
            places.push_back({depth.Layer, depth.Z, EffectiveDepth(depth.Layer, depth.Z, firstThickness), point});
        }
    }
    std::sort(places.begin(), places.end(), [](const Place& a, const Place& b) {
        return std::tie(a.Layer, a.Z, a.Point.Point) < std::tie(b.Layer, b.Z, b.Point.Point);
    });
    const std::size_t count = (places.size() + most - 1) / most;
    for (std::size_t i = 0; i < count; ++i) {
        DepthChunk chunk;
        chunk.Direct = true;
        for (std::size_t k = i * places.size() / count; k < (i + 1) * places.size() / count; ++k) {
            const Place& place = places[k];
            if (chunk.Depths.empty() || chunk.Depths.back().Layer != place.Layer || chunk.Depths.back().Z != place.Z) {
                chunk.Depths.push_back({place.Layer, place.Z, static_cast<int>(chunk.Sources.size()), {}});
                chunk.Sources.push_back({place.Layer, place.Z, place.Effective});
            }
            chunk.Points.push_back(place.Point);
            chunk.Points.back().Depth = static_cast<int>(chunk.Depths.size()) - 1;
        }
        direct.push_back(std::move(chunk));
    }
}

}  // namespace

std::vector<DepthChunk> WithEdgeChunks(const Work& work, std::vector<DepthChunk> chunks) {
    const double largest = work.Groups.back().Radius;
    const auto asked = [&](const DepthChunk& chunk) {
        return !chunk.Direct && WorthSplitting(largest, 1.1 * largest, 0, LeastEffective(chunk));
    };
    if (work.Layers.M2.size() < 2 || std::none_of(chunks.begin(), chunks.end(), asked)) {
        return chunks;
    }
    std::vector<DepthChunk> edges;
    std::vector<DepthChunk> rest;
    for (DepthChunk& chunk : chunks) {
        if (asked(chunk)) {
            const auto isNear = [&](const ChunkPoint& point) {
                const PointDepth& depth = chunk.Depths[static_cast<std::size_t>(point.Depth)];
                return IsNearEdge(work, point, EffectiveDepth(depth.Layer, depth.Z, work.Layers.Thickness[0]));
            };
            DepthChunk near = chunk;
            std::erase_if(near.Points, [&](const ChunkPoint& point) { return !isNear(point); });
            if (!near.Points.empty()) {
                std::erase_if(chunk.Points, isNear);
                AddDirect({{&near, 0, 0}}, work.Layers.Thickness[0], MostPoints, edges);
            }
        }
        if (!chunk.Points.empty()) {
            rest.push_back(std::move(chunk));
        }
    }
    edges.insert(edges.end(), std::make_move_iterator(rest.begin()), std::make_move_iterator(rest.end()));
    return edges;
}

std::vector<DepthChunk> WithDirectChunks(const Work& work, std::vector<DepthChunk> chunks) {
    Loads loads;
    for (const LoadGroup& group : work.Groups) {
        loads.Edges.push_back(group.Radius);
        loads.Count += static_cast<double>(group.Loads.size());
        loads.Vertical = loads.Vertical || group.Vertical;
        loads.Horizontal = loads.Horizontal || group.Horizontal;
    }
    if (work.Layers.M2.size() < 2 || work.TheProblem.Points.size() * work.TheProblem.Loads.size() < WorthPlanning) {
        return chunks;
    }
    const double perPair = Nodes * PairCost(loads.Vertical, loads.Horizontal);
    std::vector<Candidate> candidates;
    std::vector<DepthChunk> rest;
    for (DepthChunk& chunk : chunks) {
        const double ze = LeastEffective(chunk);
        const double table = TableCost(work, loads, chunk, ze);
        if (table > perPair * loads.Count * static_cast<double>(chunk.Points.size())) {
            candidates.push_back({&chunk, ze, table});
        } else {
            rest.push_back(std::move(chunk));
        }
    }
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const Candidate& a, const Candidate& b) { return a.Effective < b.Effective; });
    const std::size_t most = work.Layers.Contrast > PreciseContrast ? MostPrecise : MostPoints;
    std::vector<DepthChunk> direct;
    for (std::size_t i = 0; i < candidates.size();) {
        std::vector<Candidate> band;
        double table = 0;
        std::size_t points = 0;
        const double ze = candidates[i].Effective;
        for (; i < candidates.size() && candidates[i].Effective <= BandRatio * ze; ++i) {
            band.push_back(candidates[i]);
            table += candidates[i].Table;
            points += candidates[i].Chunk->Points.size();
        }
        const double parts = std::ceil(static_cast<double>(points) / static_cast<double>(most));
        double fields = 0;
        for (const DirectPart& part :
             PlanDirect(work, static_cast<std::size_t>(static_cast<double>(points) / parts), false)) {
            fields += part.FieldsPerNode;
        }
        const double pairs = perPair * loads.Count * static_cast<double>(points) + parts * 2 * Nodes * fields;
        if (pairs < ClearlyLess * table) {
            AddDirect(band, work.Layers.Thickness[0], most, direct);
        } else {
            for (const Candidate& candidate : band) {
                rest.push_back(std::move(*candidate.Chunk));
            }
        }
    }
    std::stable_sort(direct.begin(), direct.end(),
                     [](const DepthChunk& a, const DepthChunk& b) { return a.Points.size() > b.Points.size(); });
    direct.insert(direct.end(), std::make_move_iterator(rest.begin()), std::make_move_iterator(rest.end()));
    return direct;
}

}  // namespace zirvo::solver
