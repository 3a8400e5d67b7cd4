// Which radii the sums are made for: the radii of the pairs themselves where they are few, else cells of Chebyshev
// nodes; and which of them share a set of wavenumber nodes.
//
// A sum is an analytic function of r whose nearest singularities lie at r = a +- i ze, so cells as wide as 0.6 of that
// distance need 16 nodes everywhere, and their number grows with the logarithm of the range only. Radii far from every
// load edge need few wavenumbers, each of them a fine step; those near an edge many, but at a coarser step: so the
// radii are split into levels by that distance, where this is cheaper.
#pragma once
#include <cstddef>
#include <span>
#include <vector>

#include "solver/wavenumbers.h"

namespace zirvo::solver {

/// Largest ratio of radii of loads that share nodes as if they were one: a step that follows the larger seldom wants to
/// be halved, but one that followed a circle of 3 m would be much too fine for a small wheel.
inline constexpr double AlikeRadii = 6;

/// One cell of radii, or one radius of one group of loads.
struct RadiusItem {
    double Low = 0;    ///< cm
    double High = 0;   ///< cm; equal to Low for a single radius
    double Gap = 0;    ///< distance to the nearest load edge [cm]
    double Reach = 0;  ///< High plus the largest load radius that it shares nodes with [cm]
    int Group = -1;    ///< loads of one radius that it serves; -1: all
};

/// Items that share their wavenumbers.
struct RadiusLevel {
    WaveRange Range;
    std::vector<std::size_t> Items;
};

/// What one node costs, in any one unit.
struct LevelCosts {
    double PerNode = 0;           ///< kernels at one wavenumber
    double PerNodeAndColumn = 0;  ///< Bessel functions and sums of one radius
    bool Mild = false;            ///< see WaveRange
};

/// What the nodes of a level must reach.
/// @param reach  largest radius plus largest load radius; @param gap  distance of all radii from all load edges; @param
/// ze  smallest effective depth; @param thickness  LowScale of the layers, all in cm; @param mild  see WaveRange
WaveRange RangeOf(double reach, double gap, double ze, double thickness, bool mild);

/// Width of a cell over the distance of the singularities, to begin with: interpolation good to 3E-13. Slip brings them
/// nearer than the depth tells.
inline constexpr double CellShare = 0.6;
inline constexpr double SlipCellShare = 0.42;

/// Cells that cover low..high for the load radii `edges` (ascending) and effective depth ze [cm], as wide as `share` of
/// the distance of their singularities.
std::vector<RadiusItem> MakeCells(double low, double high, std::span<const double> edges, double ze, double share);

/// The cheapest split of the items into levels.
/// @param ze  smallest effective depth [cm]; @param thickness  sum of the layers' thicknesses [cm]
std::vector<RadiusLevel> SplitIntoLevels(std::span<const RadiusItem> items, double ze, double thickness,
                                         const LevelCosts& costs);

}  // namespace zirvo::solver
