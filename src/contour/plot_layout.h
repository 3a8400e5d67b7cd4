// Where everything of a map stands: scale, frame, title, legend. Caller: DrawContourMap.
#pragma once
#include <string>
#include <string_view>

#include "contour/contour_map.h"
#include "contour/plot_surface.h"

namespace zirvo {

/// A logical pixel, at 96 to the inch.
inline constexpr int TwipsPerPixel = 15;

/// The picture in its own unit, as it was before any scale was set [twips]; by design 7935 by 8100.
struct PlotGeometry {
    double Left = 0;
    double Top = 0;
    double Width = 7935;
    double Height = 8100;

    bool operator==(const PlotGeometry&) const = default;
};

/// The geometry of a picture of so many pixels; by design 529 by 540. Pictures of the same size have the same map.
PlotGeometry GeometryOfPixels(int pixelsWide, int pixelsHigh);

/// The pixels of a length in twips, rounded half up.
int PixelsOfTwips(double twips);

/// The extent with one unit added at the far end of an axis that has none.
MapExtent WithoutEmptyAxis(MapExtent extent);

/// The four numbers of PlotSurface::Scale.
struct MapScale {
    double X1 = 0;
    double Y1 = 0;
    double X2 = 0;
    double Y2 = 0;
};

/// The scale that lets the extent fill the picture less its margins (750, 450, 600, 600 twips at the left, right, top,
/// bottom), each axis for itself; the second axis runs upward on an X-Y section, downward on an X-Z section.
MapScale ScaleOfMap(const PlotGeometry& plot, SectionKind kind, const MapExtent& extent);

/// The title of a map.
/// @param outputComponent  1 for EPSx, 2 for EPSz; any other has no title.
/// @param position         the text of the section's position as typed [cm].
/// @param layerOfInterest  shown on X-Y sections only.
/// @param suffix           what ends the title: two blanks and the version stamp of output files.
std::string MakeTitleText(SectionKind kind, int outputComponent, std::string_view position, int layerOfInterest,
                          std::string_view suffix);

/// The frame, with ticks and numbers at its ends and quarter points unless it is to stand bare. The quarter step is
/// added again and again, so that rounding can leave out the last number of an axis.
void DrawPlotFrame(PlotSurface& surface, SectionKind kind, const MapExtent& extent, Color color, bool bare);

/// The title, ending at `right` above the edge `top` of the frame.
void DrawPlotTitle(PlotSurface& surface, std::string_view title, double right, double top, Color color);

/// The bar of colours with three numbers, near the top left corner of the frame; high at its top.
void DrawLegend(PlotSurface& surface, SectionKind kind, const PlotGeometry& plot, const MapExtent& extent, double low,
                double high);

}  // namespace zirvo
