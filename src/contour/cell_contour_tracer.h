// A second way to contour lines: each cell as one quadrilateral. No control leads here, and its lines must never be
// mixed with those of conrec on one map.
#pragma once
#include <span>

#include "base/int16.h"
#include "contour/contour_map.h"
#include "contour/plot_surface.h"

namespace zirvo {

/// Draws the contour lines of `count` levels from low to high; columns of cells outer, both ways ascending. A cell with
/// a corner above 1E+10 draws nothing. Fault 11 where the levels have no distance (a count of 1, low equal to high), 9
/// for a count below 1 or a node beyond the arrays; a high below low draws nothing.
/// @param ilb, iub, jlb, jub  first and last node along x and along y.
/// @param cellX, cellY        size of a cell along the two axes, the same for all.
/// @param grey                0: each line takes the colour of its level; otherwise all are grey.
void CellContourTracer(PlotSurface& surface, double low, double high, int ilb, int iub, int jlb, int jub, double cellX,
                       double cellY, std::span<const double> x, std::span<const double> y, const ValueMatrix& d,
                       Int16 count, int grey);

}  // namespace zirvo
