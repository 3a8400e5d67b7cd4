// The whole map of a section, drawn on any surface. Callers: the screen's picture, the batch tool.
#pragma once
#include <string>

#include "base/int16.h"
#include "base/progress.h"
#include "contour/contour_map.h"
#include "contour/plot_layout.h"
#include "contour/plot_surface.h"

namespace zirvo {

/// How a map is to be shown.
struct MapView {
    DisplayItems Items;
    Int16 ContourLineCount = 20;  ///< levels, not intervals
    PlotGeometry Plot;
    std::string Title;   ///< of MakeTitleText
    Progress OfDrawing;  ///< of lines, point marks and values, which may take long
};

/// Clears the picture, sets its scale and draws fill, lines, frame, point marks, values, title and legend, in this
/// order: what comes later covers what came before. The scale stays in force. Lines over a fill are grey.
void DrawContourMap(PlotSurface& surface, const ContourMap& map, const MapView& view);

}  // namespace zirvo
