// The positions at which the solver works for a section: dense under and near the loads, where strains change fast.
// Callers: the start buttons of the graphics screen, the batch tool; the reader of the results uses the same grid.
#pragma once
#include <span>
#include <vector>

#include "contour/contour_map.h"
#include "contour/fixed_point4.h"
#include "pavement/graphics_input.h"

namespace zirvo {

/// Parts into which each gap between two key positions of an axis is cut.
inline constexpr int SubDivisionsX = 6;
/// How far the grid reaches beyond the outermost load edge, on both sides [cm].
inline constexpr double GridMargin = 20;
/// Key positions this far apart, or closer, count as one [cm].
inline constexpr double MinKeyGap = 0.01;
/// Height at which the only layer of a pavement is shown on an X-Z section [cm].
inline constexpr double OnlyLayerHeight = 60;
/// The largest number of points of a section.
inline constexpr int PointLimit = 100000;
/// Depth levels of one layer on an X-Z section: top, bottom, and between.
inline constexpr int LevelsOfLayer = SubDivisionsY + 1;

/// The positions of one axis [cm], ascending, 1-based: entry 0 is unused. Left edge, centre and right edge of each load
/// are the key positions, with GridMargin beyond both ends; each gap above MinKeyGap is cut into SubDivisionsX parts.
/// The gap is compared and cut in doubles. Fault 6 for a position that FixedPoint4 does not hold.
/// @param centre, radius  of the loads [cm], 1-based: entry 0 is unused. Spans of different length are fault 9.
std::vector<FixedPoint4> BuildAxisPositions(std::span<const double> centre, std::span<const double> radius);

/// The depth levels of a section [cm], LevelsOfLayer for each layer, 1-based: entry 0 is unused. The last layer is
/// shown as high as the one above it. The levels have 2 decimals, but are reached in steps of 4, whose error builds up
/// over a layer; so the two levels at an interface can differ by 0.01.
/// @param thickness  of layers 1 to layerCount - 1 [cm], 1-based: entry 0 is unused. Fewer entries are fault 9.
std::vector<FixedPoint4> BuildDepthLevels(std::span<const double> thickness, int layerCount);

/// The layer of a level, both 1-based.
constexpr int LayerOfLevel(int level) {
    return (level - 1) / LevelsOfLayer + 1;
}

/// Both axes of a section of this pavement. Fault 5 for a Y-Z section, which no screen offers.
CoarseGrid BuildSectionGrid(const GraphicsInputData& model, SectionKind kind);

/// Points that the grid has; more than PointLimit must not be written.
long long PointCountOf(const CoarseGrid& grid);

/// Thicknesses of the layers above the last [cm], 1-based: entry 0 is unused.
std::vector<double> ThicknessesOf(const GraphicsInputData& model);

}  // namespace zirvo
