// The contour tracer of the maps: cell by cell, four triangles to a cell, each segment drawn as soon as it is found.
#pragma once
#include <span>

#include "base/int16.h"
#include "base/progress.h"
#include "contour/contour_map.h"
#include "contour/plot_surface.h"

namespace zirvo {

/// The colour of everything that is drawn grey: lines over a fill, and the frame.
inline constexpr Color MapGrey{200, 200, 200};

/// Draws the contour lines of `count` levels from zmin to zmax as single segments, cells in rows from the last to the
/// first and in a row from the first to the last. A level that only touches the highest corner of a cell draws nothing
/// there; a cell with a corner of 1E+37 or more draws nothing at all.
/// @param d     values; d(i, j) belongs to the node x[i], y[j].
/// @param x, y  node positions, ascending.
/// @param count number of levels. Fault 11 if 1, 9 below 1.
/// @param ilb, iub, jlb, jub  first and last node along x and along y. Fault 9 beyond the arrays.
/// @param grey  0: each line takes the colour of its level; otherwise all are MapGrey.
/// @param progress  told behind each row of cells
void conrec(PlotSurface& surface, double zmin, double zmax, const ValueMatrix& d, std::span<const double> x,
            std::span<const double> y, Int16 count, int ilb, int iub, int jlb, int jub, int grey,
            const Progress& progress = {});

}  // namespace zirvo
