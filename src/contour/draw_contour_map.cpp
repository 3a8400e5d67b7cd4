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

/// What may take long, one after the other; each counts as much as the others.
class Parts {
public:
    Parts(const DisplayItems& items, const Progress& whole)
        : whole_(whole),
          count_((items.ContourLines ? 1 : 0) + (items.AnalyticalPoints ? 1 : 0) + (items.AnalyticalResults ? 1 : 0)) {}

    /// Of the next of them.
    Progress Next() {
        const double first = begun_++;
        return PartOf(whole_, first / count_, static_cast<double>(begun_) / count_);
    }

private:
    const Progress& whole_;
    int count_;
    int begun_ = 0;
};

void DrawField(PlotSurface& surface, const ContourMap& map, const MapView& view, Parts& parts) {
    const ContourField& field = map.Field;
    if (view.Items.ColorFill) {
        FillContourCells(surface, map.ValueMin, map.ValueMax, field);
    }
    if (view.Items.ContourLines) {
        conrec(surface, map.ValueMin, map.ValueMax, field.Values, field.FineAxis1, field.FineAxis2,
               view.ContourLineCount, 1, field.FineCountX(), 1, field.FineCountY(), view.Items.ColorFill ? 1 : 0,
               parts.Next());
    }
}

void DrawOverlays(PlotSurface& surface, const ContourMap& map, const DisplayItems& items, Parts& parts) {
    const bool isXY = map.Kind == SectionKind::XY;
    if (items.AnalyticalPoints) {
        (isXY ? DrawPointMarksXY : DrawPointMarksXZ)(surface, map, MarkColor, parts.Next());
    }
    if (items.AnalyticalResults) {
        (isXY ? DrawPointValuesXY : DrawPointValuesXZ)(surface, map, ValueColor, parts.Next());
    }
}

}  // namespace

void DrawContourMap(PlotSurface& surface, const ContourMap& map, const MapView& view) {
    const MapExtent extent = WithoutEmptyAxis(map.Extent);
    surface.Cls();
    const MapScale scale = ScaleOfMap(view.Plot, map.Kind, extent);
    surface.Scale(static_cast<float>(scale.X1), static_cast<float>(scale.Y1), static_cast<float>(scale.X2),
                  static_cast<float>(scale.Y2));
    Parts parts(view.Items, view.OfDrawing);
    DrawField(surface, map, view, parts);
    DrawPlotFrame(surface, map.Kind, extent, MapGrey, view.Items.AnalyticalResults);
    DrawOverlays(surface, map, view.Items, parts);
    DrawPlotTitle(surface, view.Title, extent.AxisMax1, map.Kind == SectionKind::XY ? extent.AxisMax2 : extent.AxisMin2,
                  TitleColor);
    if (view.Items.Legend) {
        DrawLegend(surface, map.Kind, view.Plot, extent, map.ValueMin, map.ValueMax);
    }
}

}  // namespace zirvo
