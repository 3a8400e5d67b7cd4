#include "solver/depth_plan.h"

#include <algorithm>
#include <tuple>

namespace zirvo::solver {

namespace {

constexpr double DepthCellShare = 0.6;  // width of a cell in z over its smallest effective depth
constexpr std::size_t WorthNodes = 20;  // distinct depths in a cell from which on its nodes are cheaper

/// A distinct depth and its points.
struct Distinct {
    int Layer = 0;
    double Z = 0;
    double Effective = 0;
    std::size_t First = 0, Last = 0;  // range in the sorted points
};

/// The points by layer and depth. Those of a grid often come in this order.
std::vector<std::size_t> SortedPoints(const Problem& problem) {
    struct Key {
        int Layer;
        double Z;
        std::size_t Point;
    };
    std::vector<Key> keys;
    keys.reserve(problem.Points.size());
    for (const Point& point : problem.Points) {
        keys.push_back({point.Layer, point.Z, keys.size()});
    }
    const auto before = [](const Key& a, const Key& b) {
        return std::tie(a.Layer, a.Z, a.Point) < std::tie(b.Layer, b.Z, b.Point);
    };
    if (!std::is_sorted(keys.begin(), keys.end(), before)) {
        std::sort(keys.begin(), keys.end(), before);
    }
    std::vector<std::size_t> order;
    order.reserve(keys.size());
    for (const Key& key : keys) {
        order.push_back(key.Point);
    }
    return order;
}

void AddPoints(const Problem& problem, const std::vector<std::size_t>& order, const Distinct& depth,
               DepthChunk& chunk) {
    const int index = static_cast<int>(chunk.Depths.size()) - 1;
    for (std::size_t i = depth.First; i < depth.Last; ++i) {
        const Point& point = problem.Points[order[i]];
        chunk.Points.push_back({order[i], index, point.X, point.Y});
    }
}

/// True if all depths have the same places, in ascending order: a grid.
bool IsGrid(const DepthChunk& chunk) {
    const std::size_t places = chunk.Points.size() / chunk.Depths.size();
    if (places * chunk.Depths.size() != chunk.Points.size()) {
        return false;
    }
    for (std::size_t i = 0; i < chunk.Points.size(); ++i) {
        const ChunkPoint& point = chunk.Points[i];
        const ChunkPoint& first = chunk.Points[i % places];
        const bool ascends = i == 0 || i >= places ||
                             std::tie(chunk.Points[i - 1].X, chunk.Points[i - 1].Y) < std::tie(point.X, point.Y);
        if (point.Depth != static_cast<int>(i / places) || point.X != first.X || point.Y != first.Y || !ascends) {
            return false;
        }
    }
    return true;
}

/// Points that stand by depth, as they are taken from the problem, by place.
void SortByPlace(DepthChunk& chunk) {
    if (chunk.Depths.size() > 1 && IsGrid(chunk)) {
        const std::vector<ChunkPoint> points = std::move(chunk.Points);
        const std::size_t places = points.size() / chunk.Depths.size();
        chunk.Points.clear();
        chunk.Points.reserve(points.size());
        for (std::size_t i = 0; i < points.size(); ++i) {
            chunk.Points.push_back(points[i % chunk.Depths.size() * places + i / chunk.Depths.size()]);
        }
        return;
    }
    const auto before = [](const ChunkPoint& a, const ChunkPoint& b) {
        return std::tie(a.X, a.Y, a.Depth, a.Point) < std::tie(b.X, b.Y, b.Depth, b.Point);
    };
    if (!std::is_sorted(chunk.Points.begin(), chunk.Points.end(), before)) {
        std::sort(chunk.Points.begin(), chunk.Points.end(), before);
    }
}

/// One chunk for distinct depths first .. last - 1, all in one layer, on Chebyshev nodes.
DepthChunk NodeChunk(const Problem& problem, const std::vector<std::size_t>& order,
                     const std::vector<Distinct>& distinct, std::size_t first, std::size_t last) {
    DepthChunk chunk;
    const int layer = distinct[first].Layer;
    const double low = distinct[first].Z;
    const double high = distinct[last - 1].Z;
    const auto nodes = ChebyshevNodes(low, high);
    for (auto z = nodes.rbegin(); z != nodes.rend(); ++z) {
        chunk.Sources.push_back({layer, *z, EffectiveDepth(layer, *z, problem.Layers[0].Thickness)});
    }
    for (std::size_t i = first; i < last; ++i) {
        PointDepth depth{layer, distinct[i].Z, -1, ChebyshevWeights(low, high, distinct[i].Z)};
        std::reverse(depth.Weights.begin(), depth.Weights.end());
        chunk.Depths.push_back(depth);
        AddPoints(problem, order, distinct[i], chunk);
    }
    return chunk;
}

/// Takes the depths that lie close together in one layer into chunks of their own; gives the others.
std::vector<Distinct> TakeCells(const Problem& problem, const std::vector<std::size_t>& order,
                                const std::vector<Distinct>& distinct, std::vector<DepthChunk>& chunks) {
    std::vector<Distinct> rest;
    for (std::size_t i = 0; i < distinct.size();) {
        const double share = distinct[i].Layer == 0 ? DepthCellShare / (1 + DepthCellShare) : DepthCellShare;
        const double end = distinct[i].Z + share * distinct[i].Effective;
        std::size_t last = i;
        while (last < distinct.size() && distinct[last].Layer == distinct[i].Layer && distinct[last].Z <= end) {
            ++last;
        }
        if (last - i >= WorthNodes) {
            chunks.push_back(NodeChunk(problem, order, distinct, i, last));
        } else {
            rest.insert(rest.end(), distinct.begin() + static_cast<std::ptrdiff_t>(i),
                        distinct.begin() + static_cast<std::ptrdiff_t>(last));
        }
        i = last;
    }
    return rest;
}

}  // namespace

double EffectiveDepth(int layer, double z, double firstThickness) {
    return layer == 0 ? 2 * firstThickness - z : z;
}

std::vector<double> LayerTopsOf(const Problem& problem) {
    std::vector<double> tops{0};
    for (std::size_t i = 0; i + 1 < problem.Layers.size(); ++i) {
        tops.push_back(tops.back() + problem.Layers[i].Thickness);
    }
    return tops;
}

std::vector<DepthChunk> WithoutNodes(const Problem& problem, const DepthChunk& chunk, std::size_t mostSources) {
    std::vector<DepthChunk> chunks((chunk.Depths.size() + mostSources - 1) / mostSources);
    for (std::size_t i = 0; i < chunk.Depths.size(); ++i) {
        const PointDepth& depth = chunk.Depths[i];
        DepthChunk& part = chunks[i / mostSources];
        part.Depths.push_back({depth.Layer, depth.Z, static_cast<int>(part.Sources.size()), {}});
        part.Sources.push_back(
            {depth.Layer, depth.Z, EffectiveDepth(depth.Layer, depth.Z, problem.Layers[0].Thickness)});
    }
    for (ChunkPoint point : chunk.Points) {
        const auto depth = static_cast<std::size_t>(point.Depth);
        point.Depth = static_cast<int>(depth % mostSources);
        chunks[depth / mostSources].Points.push_back(point);
    }
    return chunks;
}

DepthChunk PartOf(const DepthChunk& chunk, const std::vector<bool>& wanted) {
    DepthChunk part;
    std::vector<int> place(chunk.Depths.size(), -1);
    for (std::size_t i = 0; i < chunk.Points.size(); ++i) {
        if (wanted[i]) {
            place[static_cast<std::size_t>(chunk.Points[i].Depth)] = 0;
        }
    }
    for (std::size_t d = 0; d < place.size(); ++d) {
        if (place[d] == 0) {
            place[d] = static_cast<int>(part.Depths.size());
            part.Depths.push_back(chunk.Depths[d]);
        }
    }
    for (std::size_t i = 0; i < chunk.Points.size(); ++i) {
        if (wanted[i]) {
            part.Points.push_back(chunk.Points[i]);
            part.Points.back().Depth = place[static_cast<std::size_t>(chunk.Points[i].Depth)];
        }
    }
    return part;
}

std::vector<DepthChunk> PlanDepths(const Problem& problem, std::size_t mostSources, Crew* helpers) {
    const auto order = SortedPoints(problem);
    std::vector<Distinct> distinct;
    for (std::size_t i = 0; i < order.size(); ++i) {
        const Point& point = problem.Points[order[i]];
        if (distinct.empty() || distinct.back().Layer != point.Layer - 1 || distinct.back().Z != point.Z) {
            distinct.push_back({point.Layer - 1, point.Z,
                                EffectiveDepth(point.Layer - 1, point.Z, problem.Layers[0].Thickness), i, i});
        }
        distinct.back().Last = i + 1;
    }
    std::vector<DepthChunk> chunks;
    // In one material alone there are no sums to be saved.
    std::vector<Distinct> rest =
        problem.Layers.size() > 1 ? TakeCells(problem, order, distinct, chunks) : std::move(distinct);
    std::stable_sort(rest.begin(), rest.end(),
                     [](const Distinct& a, const Distinct& b) { return a.Effective < b.Effective; });
    for (std::size_t i = 0; i < rest.size();) {
        std::size_t last = i;
        while (last < rest.size() && last - i < mostSources && rest[last].Effective <= BandRatio * rest[i].Effective) {
            ++last;
        }
        last = std::max(last, i + 1);
        std::sort(rest.begin() + static_cast<std::ptrdiff_t>(i), rest.begin() + static_cast<std::ptrdiff_t>(last),
                  [](const Distinct& a, const Distinct& b) { return std::tie(a.Layer, a.Z) < std::tie(b.Layer, b.Z); });
        DepthChunk chunk;
        for (; i < last; ++i) {
            chunk.Depths.push_back({rest[i].Layer, rest[i].Z, static_cast<int>(chunk.Sources.size()), {}});
            chunk.Sources.push_back({rest[i].Layer, rest[i].Z, rest[i].Effective});
            AddPoints(problem, order, rest[i], chunk);
        }
        chunks.push_back(std::move(chunk));
    }
    ShareWith(helpers, chunks.size(), [&](std::size_t i) { SortByPlace(chunks[i]); });
    return chunks;
}

}  // namespace zirvo::solver
