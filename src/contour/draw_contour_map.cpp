// The whole map of a section.
#include "contour/draw_contour_map.h"

#include "contour/color_scale.h"
#include "contour/conrec.h"
#include "contour/point_overlays.h"

namespace zirvo {
namespace {

constexpr Color MarkColor{255, 204, 0};
constexpr Color ValueColor{255, 100, 100};
constexpr Color TitleColor{255, 255, 255};

void DrawField(PlotSurface& surface, const ContourMap& map, const MapView& view) {
    const ContourField& field = map.Field;
    if (view.Items.ColorFill) {
        FillContourCells(surface, map.ValueMin, map.ValueMax, field);
    }
    if (view.Items.ContourLines) {
        conrec(surface, map.ValueMin, map.ValueMax, field.Values, field.FineAxis1, field.FineAxis2,
               view.ContourLineCount, 1, field.FineCountX(), 1, field.FineCountY(), view.Items.ColorFill ? 1 : 0,
               view.OfLines);
    }
}

void DrawOverlays(PlotSurface& surface, const ContourMap& map, const DisplayItems& items) {
    const bool isXY = map.Kind == SectionKind::XY;
    if (items.AnalyticalPoints) {
        (isXY ? DrawPointMarksXY : DrawPointMarksXZ)(surface, map, MarkColor);
    }
    if (items.AnalyticalResults) {
        (isXY ? DrawPointValuesXY : DrawPointValuesXZ)(surface, map, ValueColor);
    }
}

}  // namespace

void DrawContourMap(PlotSurface& surface, const ContourMap& map, const MapView& view) {
    const MapExtent extent = WithoutEmptyAxis(map.Extent);
    surface.Cls();
    const MapScale scale = ScaleOfMap(view.Plot, map.Kind, extent);
    surface.Scale(static_cast<float>(scale.X1), static_cast<float>(scale.Y1), static_cast<float>(scale.X2),
                  static_cast<float>(scale.Y2));
    DrawField(surface, map, view);
    DrawPlotFrame(surface, map.Kind, extent, MapGrey, view.Items.AnalyticalResults);
    DrawOverlays(surface, map, view.Items);
    DrawPlotTitle(surface, view.Title, extent.AxisMax1, map.Kind == SectionKind::XY ? extent.AxisMax2 : extent.AxisMin2,
                  TitleColor);
    if (view.Items.Legend) {
        DrawLegend(surface, map.Kind, view.Plot, extent, map.ValueMin, map.ValueMax);
    }
}

}  // namespace zirvo
