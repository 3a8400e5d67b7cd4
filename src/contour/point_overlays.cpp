// Overlays of a map. Callers: DrawContourMap, the click on the picture.
//
// Notation        x(i), y(j) the fine axes, d(i, j) the matrix; TW, TH the signed size of the text about to be printed.
#include "contour/point_overlays.h"

#include <cmath>
#include <vector>

#include "contour/depth_bands.h"
#include "contour/number_format.h"

namespace zirvo {
namespace {

struct DepthRow {
    int Row = 0;
    double Depth = 0;
};

/// The rows that hold results of the solver, from the top down.
std::vector<DepthRow> ResultRows(const CoarseGrid& grid) {
    std::vector<DepthRow> rows;
    VisitDepthBands(grid, HasRoomForRows, [&rows](const DepthBand& band) {
        if (!band.HasRows) {
            return;
        }
        const auto [top, bottom] = band.Depths;
        const double step = (bottom - top) / RefineFactor;
        if (band.OpensLayer) {
            rows.push_back({band.FirstRow, top});
        }
        rows.push_back({band.LastRow, top + step * RefineFactor});
    });
    return rows;
}

double At(const std::vector<double>& axis, int index) {
    return axis[static_cast<std::size_t>(index)];
}

/// `share` of the text's height is added to y: -0.5 centres it, 0.5 puts it under the point.
void PrintAround(PlotSurface& surface, double x, double y, double share, std::string_view text) {
    PrintAt(surface, x - 0.5 * surface.TextWidth(text), y + share * surface.TextHeight(text), text);
}

/// Tells that the line of nodes at `index` of `last` is drawn.
void Tick(const Progress& progress, int index, int last) {
    if (progress) {
        progress(static_cast<double>(index) / last);
    }
}

template <class Visit>
void VisitNodesXY(const ContourField& field, const Progress& progress, Visit visit) {
    for (int j = 1; j <= field.FineCountY(); j += RefineFactor) {
        for (int i = 1; i <= field.FineCountX(); i += RefineFactor) {
            visit(i, j, At(field.FineAxis1, i), At(field.FineAxis2, j));
        }
        Tick(progress, j, field.FineCountY());
    }
}

template <class Visit>
void VisitNodesXZ(const ContourMap& map, const Progress& progress, Visit visit) {
    const std::vector<DepthRow> rows = ResultRows(map.Grid);
    for (int i = 1; i <= map.Field.FineCountX(); i += RefineFactor) {
        for (const DepthRow& row : rows) {
            visit(i, row.Row, At(map.Field.FineAxis1, i), row.Depth);
        }
        Tick(progress, i, map.Field.FineCountX());
    }
}

/// Fonts and width of the marks for as long as they are drawn.
class MarkStyle {
public:
    MarkStyle(PlotSurface& surface, Color color) : surface_(surface), drawWidth_(surface.DrawWidth) {
        surface.FontItalic = false;
        surface.ForeColor = color;
        surface.FontSize = FontPoints::Ten;
        surface.FontBold = true;
        surface.DrawWidth = 2;
    }
    ~MarkStyle() { surface_.DrawWidth = drawWidth_; }
    MarkStyle(const MarkStyle&) = delete;
    MarkStyle& operator=(const MarkStyle&) = delete;

private:
    PlotSurface& surface_;
    int drawWidth_;
};

void SetValueStyle(PlotSurface& surface, Color color) {
    surface.ForeColor = color;
    surface.FontSize = FontPoints::Seven;
    surface.FontBold = false;
    surface.FontItalic = false;
}

std::string ValueText(double value) {
    return FormatNumber(value, NumberFormat::Scientific2);
}

/// The last cell (its first node) whose open range holds the position; 0 if there is none.
int CellOf(const std::vector<double>& axis, double position) {
    int found = 0;
    for (int i = 1; i + 1 < static_cast<int>(axis.size()); ++i) {
        if (At(axis, i) < position && position < At(axis, i + 1)) {
            found = i;
        }
    }
    return found;
}

}  // namespace

void DrawPointMarksXY(PlotSurface& surface, const ContourMap& map, Color color, const Progress& progress) {
    const MarkStyle style(surface, color);
    VisitNodesXY(map.Field, progress, [&](int, int, double x, double y) { PrintAround(surface, x, y, -0.5, "X"); });
}

void DrawPointMarksXZ(PlotSurface& surface, const ContourMap& map, Color color, const Progress& progress) {
    const MarkStyle style(surface, color);
    VisitNodesXZ(map, progress, [&](int, int, double x, double y) { PrintAround(surface, x, y, -0.5, "X"); });
}

void DrawPointValuesXY(PlotSurface& surface, const ContourMap& map, Color color, const Progress& progress) {
    SetValueStyle(surface, color);
    VisitNodesXY(map.Field, progress, [&](int i, int j, double x, double y) {
        PrintAround(surface, x, y, 0.5, ValueText(map.Field.Values.At(i, j)));
    });
}

void DrawPointValuesXZ(PlotSurface& surface, const ContourMap& map, Color color, const Progress& progress) {
    SetValueStyle(surface, color);
    VisitNodesXZ(map, progress, [&](int i, int j, double x, double y) {
        PrintAround(surface, x, y, -0.5, ValueText(map.Field.Values.At(i, j)));
    });
}

std::optional<double> ProbeValue(const ContourMap& map, double x, double y) {
    const auto [x0, x1, y0, y1] = map.Extent;
    if (!(x0 <= x && x <= x1 && y0 <= y && y <= y1)) {
        return std::nullopt;
    }
    const int ia = CellOf(map.Field.FineAxis1, x);
    const int ja = CellOf(map.Field.FineAxis2, y);
    if (ia == 0 || ja == 0) {
        return std::nullopt;
    }
    const ValueMatrix& d = map.Field.Values;
    const double dxa = std::fabs(x - At(map.Field.FineAxis1, ia));
    const double dya = std::fabs(y - At(map.Field.FineAxis2, ja));
    const double width = std::fabs(At(map.Field.FineAxis1, ia) - At(map.Field.FineAxis1, ia + 1));
    const double height = std::fabs(At(map.Field.FineAxis2, ja) - At(map.Field.FineAxis2, ja + 1));
    const double a = d.At(ia, ja) + dxa * (d.At(ia + 1, ja) - d.At(ia, ja)) / width;
    const double b = d.At(ia, ja + 1) + dxa * (d.At(ia + 1, ja + 1) - d.At(ia, ja + 1)) / width;
    return a + dya * (b - a) / height;
}

void DrawProbeMark(PlotSurface& surface, double x, double y, double value) {
    surface.ForeColor = {250, 250, 250};
    surface.FontItalic = false;
    surface.FontBold = false;
    surface.FontSize = FontPoints::Ten;
    PrintAround(surface, x, y, -0.5, "+");
    surface.FontSize = FontPoints::Eight;
    PrintAround(surface, x, y, 0.5, FormatNumber(value, NumberFormat::Scientific1));
}

}  // namespace zirvo
