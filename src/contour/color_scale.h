// The colour of a value, common to fill, lines and legend, and the fill of the fine matrix.
#pragma once
#include "contour/contour_map.h"
#include "contour/plot_surface.h"

namespace zirvo {

/// The colour of a value on the scale blue, cyan, green, yellow, red between low and high; black outside of it. With
/// low equal to high that value is blue and every other black.
Color ColorSet(double value, double low, double high);

/// One filled rectangle for each fine cell, in the colour of the value at its middle; rows outer, columns inner, both
/// ascending, so that later cells cover the shared edges of earlier ones. Cells of which later ones cover every pixel
/// are left out: the picture is the same.
void FillContourCells(PlotSurface& surface, double low, double high, const ContourField& field);

}  // namespace zirvo
