// Which depths the sums are made for, and how the points find them.
//
// The points' distinct depths are few as a rule and are taken as they are. Where many lie close together in one layer,
// the sums are made on Chebyshev nodes in z instead and interpolated: inside a layer they are analytic functions of z
// whose singularities lie an effective depth ze away. ze is 2 h1 - z in layer 1, whose own half-space share is left
// out, and z below it. Depths of similar ze make one chunk of work, which needs nothing of any other.
#pragma once
#include <array>
#include <cstddef>
#include <vector>

#include "solver/crew.h"
#include "solver/problem.h"
#include "solver/tables.h"

namespace zirvo::solver {

/// A depth for which sums are made.
struct SourceDepth {
    int Layer = 0;         ///< 0-based
    double Z = 0;          ///< cm
    double Effective = 0;  ///< ze [cm]
};

/// A depth at which points lie.
struct PointDepth {
    int Layer = 0;  ///< 0-based
    double Z = 0;   ///< cm
    /// The chunk's source with the same depth, or -1: all sources of the chunk with these weights.
    int Source = -1;
    std::array<double, ChebyshevCount> Weights{};
};

/// A point's place in a chunk.
struct ChunkPoint {
    std::size_t Point = 0;  ///< 0-based index into the problem's points
    int Depth = 0;          ///< index into the chunk's Depths
    double X = 0, Y = 0;    ///< cm
};

struct DepthChunk {
    std::vector<SourceDepth> Sources;  ///< by layer, then depth
    std::vector<PointDepth> Depths;
    std::vector<ChunkPoint> Points;  ///< by place (X, Y), then depth; by depth, then place where Direct
    bool Direct = false;             ///< each pair of a load and a point has sums of its own (direct_work.h)
};

/// Largest ratio of the effective depths in one chunk.
inline constexpr double BandRatio = 1.7;

/// ze of a depth in a layer (0-based) [cm].
double EffectiveDepth(int layer, double z, double firstThickness);

/// Tops of the layers [cm]; entry Count is the sum of all thicknesses but the last layer's.
std::vector<double> LayerTopsOf(const Problem& problem);

/// The depths of a chunk on Chebyshev nodes, taken as they are: for the case that interpolation in z is not good
/// enough.
std::vector<DepthChunk> WithoutNodes(const Problem& problem, const DepthChunk& chunk, std::size_t mostSources);

/// What is left of a chunk when only some of its points are wanted; its depths have no sources yet (WithoutNodes).
/// @param wanted  for each of the chunk's points
DepthChunk PartOf(const DepthChunk& chunk, const std::vector<bool>& wanted);

/// All points, in chunks of work. A chunk has at most `mostSources` sources.
/// @param helpers  of ShareWith
std::vector<DepthChunk> PlanDepths(const Problem& problem, std::size_t mostSources, Crew* helpers = nullptr);

}  // namespace zirvo::solver
