// The points at which the solver worked, marked on a map or with their values, and the mark of a click.
#pragma once
#include <optional>

#include "base/progress.h"
#include "contour/contour_map.h"
#include "contour/plot_surface.h"

namespace zirvo {

// A hundred thousand texts take seconds, so that each of the four tells how far it has come.

/// An "X" at each coarse node: second axis outer, first axis inner.
void DrawPointMarksXY(PlotSurface& surface, const ContourMap& map, Color color, const Progress& progress = {});
/// The same on an X-Z section: first axis outer, then layer by layer down; both rows of an interface are marked.
void DrawPointMarksXZ(PlotSurface& surface, const ContourMap& map, Color color, const Progress& progress = {});

/// The value at each coarse node, under the point on an X-Y section.
void DrawPointValuesXY(PlotSurface& surface, const ContourMap& map, Color color, const Progress& progress = {});
/// The same on an X-Z section, centred on the point.
void DrawPointValuesXZ(PlotSurface& surface, const ContourMap& map, Color color, const Progress& progress = {});

/// The value of the field at a point of the map [cm], bilinear in its fine cell. Nothing outside the extent, nor
/// exactly on a node line. Where rows overlap at an interface the last one counts.
std::optional<double> ProbeValue(const ContourMap& map, double x, double y);

/// A "+" at the point and the value under it.
void DrawProbeMark(PlotSurface& surface, double x, double y, double value);

}  // namespace zirvo
