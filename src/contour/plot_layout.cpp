// Scale, frame, title and legend of a map.
//
// Notation        x0, x1, y0, y1 the extent [cm]; TW, TH width and height of the text about to be printed, signed
//                 like the axes: TH is negative on an X-Y section, so that one formula moves a text the same way on
//                 the screen on both kinds of section.
// Special cases   the legend's anchor goes by the whole picture and not by the margins, without the picture's top on
//                 X-Y sections; its middle number stands a little apart from the middle on X-Z sections. Both are
//                 meant so.
#include "contour/plot_layout.h"

#include <algorithm>
#include <cmath>

#include "contour/color_scale.h"
#include "contour/number_format.h"
#include "contour/numeric_helpers.h"

namespace zirvo {
namespace {

// Margins in twips: 1.25, 0.75, 1 and 1 times 600.
constexpr double LeftMargin = 750;
constexpr double RightMargin = 450;
constexpr double TopMargin = 600;
constexpr double BottomMargin = 600;

// The legend: anchor [twips], size and gap in twentieths of the extent, step of its lines [cm].
constexpr double LegendAnchor = 400;
constexpr double LegendWidth = 0.586854;
constexpr double LegendHeight = 7.124464;
constexpr double LegendGap = 0.1643192;
constexpr double LegendStep = 0.01;
constexpr double MostLegendLines = 1e7;  // beyond a kilometre of bar the step grows, so that it comes to an end

struct TextFont {
    FontPoints Size;
    bool Bold;
};

void SetFont(PlotSurface& surface, const TextFont& font) {
    surface.FontSize = font.Size;
    surface.FontBold = font.Bold;
}

/// Calls `visit` at first, first + a quarter, ... by repeated addition, up to last.
template <class Visit>
void AtQuarters(double first, double last, Visit visit) {
    const double step = 0.25 * (last - first);
    double t = first;
    while (t <= last) {
        visit(t);
        if (!(t + step > t)) {  // an extent too small for its distance from zero
            return;
        }
        t += step;
    }
}

void DrawFirstAxis(PlotSurface& surface, SectionKind kind, const MapExtent& extent) {
    const auto [x0, x1, y0, y1] = extent;
    const bool isXY = kind == SectionKind::XY;
    AtQuarters(x0, x1, [&, x0 = x0, x1 = x1, y0 = y0, y1 = y1](double t) {
        if (x0 < t && t < x1) {
            SetFont(surface, {FontPoints::Ten, true});
            const double tw = surface.TextWidth("I");
            const double th = surface.TextHeight("I");
            PrintAt(surface, t - 0.5 * tw, y0 - (isXY ? 0.75 : 0.25) * th, "I");
            PrintAt(surface, t - 0.5 * tw, y1 - (isXY ? 0.25 : 0.75) * th, "I");
        }
        SetFont(surface, {FontPoints::Ten, false});
        const std::string text = FormatNumber(t, NumberFormat::Fixed1);
        PrintAt(surface, t - 0.5 * surface.TextWidth(text), (isXY ? y0 : y1) + 0.5 * surface.TextHeight(text), text);
    });
}

void DrawSecondAxis(PlotSurface& surface, const MapExtent& extent) {
    const auto [x0, x1, y0, y1] = extent;
    AtQuarters(y0, y1, [&, x0 = x0, x1 = x1, y0 = y0, y1 = y1](double t) {
        if (y0 < t && t < y1) {
            SetFont(surface, {FontPoints::Twenty, false});
            const double y = t - 0.6 * surface.TextHeight("-");
            PrintAt(surface, x0, y, "-");
            PrintAt(surface, x1 - surface.TextWidth("-"), y, "-");
        }
        SetFont(surface, {FontPoints::Ten, false});
        const std::string text = FormatNumber(t, NumberFormat::Fixed1);
        PrintAt(surface, x0 - 1.25 * surface.TextWidth(text), t - 0.5 * surface.TextHeight(text), text);
    });
}

/// Horizontal lines from one end of the bar to the other. Of the many lines on one row of pixels only the first and the
/// last are drawn: the last covers all others, and with the first no gap is left where a picture is drawn as vectors.
template <class ValueAt>
void DrawBar(PlotSurface& surface, double left, double right, double from, double to, double low, double high,
             ValueAt valueAt) {
    const PictureScale& picture = surface.Picture();
    const double step = std::max(LegendStep, (to - from) / MostLegendLines);
    const auto rowOf = [&](double t) { return picture.Row(static_cast<float>(t)); };
    bool firstOfRow = true;
    int row = rowOf(from);
    double t = from;
    while (t <= to) {
        const double next = t + step;
        const int nextRow = rowOf(next);
        const bool lastOfRow = !(next <= to) || nextRow != row;
        if (firstOfRow || lastOfRow || !picture.HasPixels()) {
            surface.Line(static_cast<float>(left), static_cast<float>(t), static_cast<float>(right),
                         static_cast<float>(t), ColorSet(valueAt(t), low, high));
        }
        if (!(next > t)) {
            return;
        }
        firstOfRow = nextRow != row;
        row = nextRow;
        t = next;
    }
}

void PrintLegendNumber(PlotSurface& surface, double value, double x, double y, double share) {
    const std::string text = FormatNumber(value, NumberFormat::Scientific2);
    PrintAt(surface, x, y - share * surface.TextHeight(text), text);
}

}  // namespace

PlotGeometry GeometryOfPixels(int pixelsWide, int pixelsHigh) {
    return {0, 0, static_cast<double>(pixelsWide) * TwipsPerPixel, static_cast<double>(pixelsHigh) * TwipsPerPixel};
}

int PixelsOfTwips(double twips) {
    return static_cast<int>(std::floor(twips / TwipsPerPixel + 0.5));
}

MapExtent WithoutEmptyAxis(MapExtent extent) {
    if (extent.AxisMin1 == extent.AxisMax1) {
        extent.AxisMax1 += 1;
    }
    if (extent.AxisMin2 == extent.AxisMax2) {
        extent.AxisMax2 += 1;
    }
    return extent;
}

MapScale ScaleOfMap(const PlotGeometry& plot, SectionKind kind, const MapExtent& extent) {
    const auto fx = [&](double p) {
        return LinearInterpolate(p, plot.Left + LeftMargin, extent.AxisMin1, plot.Left + plot.Width - RightMargin,
                                 extent.AxisMax1);
    };
    const auto fy = [&](double p) {
        return LinearInterpolate(p, plot.Top + TopMargin, extent.AxisMax2, plot.Top + plot.Height - BottomMargin,
                                 extent.AxisMin2);
    };
    const double upward = fy(plot.Top);
    const double downward = fy(plot.Top + plot.Height);
    const bool isXY = kind == SectionKind::XY;
    return {fx(plot.Left), isXY ? upward : downward, fx(plot.Left + plot.Width), isXY ? downward : upward};
}

std::string MakeTitleText(SectionKind kind, int outputComponent, std::string_view position, int layerOfInterest,
                          std::string_view suffix) {
    if (outputComponent != 1 && outputComponent != 2) {
        return "";
    }
    std::string text = outputComponent == 1 ? "EPSx" : "EPSz";
    text += kind == SectionKind::XY ? "  Section: X-Y  Z=" : "  Section: X-Z  Y=";
    text += position;
    text += "cm";
    if (kind == SectionKind::XY) {
        text += "  Layer#=" + std::to_string(layerOfInterest);
    }
    text += suffix;
    return text;
}

void DrawPlotFrame(PlotSurface& surface, SectionKind kind, const MapExtent& extent, Color color, bool bare) {
    surface.FontItalic = false;
    surface.ForeColor = color;
    surface.DrawWidth = 2;
    surface.Box(static_cast<float>(extent.AxisMin1), static_cast<float>(extent.AxisMax2),
                static_cast<float>(extent.AxisMax1), static_cast<float>(extent.AxisMin2), color);
    if (!bare) {
        DrawFirstAxis(surface, kind, extent);
        DrawSecondAxis(surface, extent);
    }
    surface.DrawWidth = 1;
}

void DrawPlotTitle(PlotSurface& surface, std::string_view title, double right, double top, Color color) {
    surface.ForeColor = color;
    surface.FontItalic = false;
    SetFont(surface, {FontPoints::Ten, true});
    PrintAt(surface, right - surface.TextWidth(title), top - 1.1 * surface.TextHeight(title), title);
}

void DrawLegend(PlotSurface& surface, SectionKind kind, const PlotGeometry& plot, const MapExtent& extent, double low,
                double high) {
    const auto [x0, x1, y0, y1] = extent;
    const bool isXY = kind == SectionKind::XY;
    const double xa = LinearInterpolate(LegendAnchor, 0, x0, plot.Width + plot.Left, x1);
    const double ya = isXY ? LinearInterpolate(LegendAnchor, 0, y1, plot.Height, y0)
                           : LinearInterpolate(LegendAnchor, 0, y0, plot.Height + plot.Top, y1);
    const double lw = (x1 - x0) * LegendWidth / 20;
    const double lh = (y1 - y0) * LegendHeight / 20;
    const double gap = (x1 - x0) * LegendGap / 20;
    if (isXY) {
        DrawBar(surface, xa, xa + lw, ya - lh, ya, low, high,
                [&](double t) { return LinearInterpolate(t, ya, high, ya - lh, low); });
    } else {
        DrawBar(surface, xa, xa + lw, ya, ya + lh, low, high,
                [&](double t) { return LinearInterpolate(t, ya + lh, low, ya, high); });
    }
    surface.ForeColor = {255, 255, 255};
    surface.FontItalic = true;
    SetFont(surface, {FontPoints::Ten, true});
    const double x = xa + lw + gap;
    PrintLegendNumber(surface, high, x, ya, 0.4);
    PrintLegendNumber(surface, low, x, isXY ? ya - lh : ya + lh, 0.8);
    PrintLegendNumber(surface, 0.5 * (low + high), x, isXY ? 0.5 * ((ya + ya) - lh) : 0.5 * (ya + lh), 0.4);
}

}  // namespace zirvo
