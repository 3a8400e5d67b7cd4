// A chart: lines over one quantity, or bars that count. Callers: `zirvo-batch study --plot`.
#pragma once
#include <string>
#include <utility>
#include <vector>

#include "contour/plot_surface.h"

namespace zirvo {

struct ChartLine {
    std::string Name;                               ///< in the legend; none if empty
    std::vector<std::pair<double, double>> Points;  ///< by x; what is not finite leaves a gap
};

/// How many values lie from From to To.
struct ChartBar {
    double From = 0;
    double To = 0;
    double Count = 0;
};

struct Chart {
    std::string Title;   ///< above it
    std::string XLabel;  ///< quantity and unit
    std::string YLabel;
    std::string LinesLabel;  ///< above the legend
    bool LogX = false;
    bool LogY = false;
    std::vector<ChartLine> Lines;
    std::vector<ChartBar> Bars;
};

/// Bars of one width (of one ratio on a logarithmic axis) over all finite values; none where there is no such value.
/// @param bins  0: the square root of the count, from 1 to 50
std::vector<ChartBar> BarsOf(const std::vector<double>& values, int bins, bool logarithmic);

/// False if no value can stand on the axes: all are infinite, or not above 0 on a logarithmic axis.
bool CanBeDrawn(const Chart& chart);

/// Draws on a surface of so many pixels; it can be drawn.
void DrawChart(PlotSurface& surface, const Chart& chart, int pixelsWide, int pixelsHigh);

}  // namespace zirvo
