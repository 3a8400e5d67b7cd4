// Charts, see chart.h. Coordinates here are pixels from the top left.
#include "chart/chart.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "chart/axis.h"

namespace zirvo {
namespace {

constexpr Color Paper{255, 255, 255};
constexpr Color Ink{0, 0, 0};
constexpr Color GridInk{220, 220, 220};
constexpr Color BarInk{70, 120, 180};
// Colours that people with any kind of sight can tell apart (Okabe and Ito, 2008), then darker ones of them.
constexpr std::array<Color, 12> LineInks{{{0, 114, 178},
                                          {213, 94, 0},
                                          {0, 158, 115},
                                          {204, 121, 167},
                                          {230, 159, 0},
                                          {86, 180, 233},
                                          {90, 90, 90},
                                          {120, 0, 120},
                                          {0, 60, 95},
                                          {130, 60, 0},
                                          {0, 90, 65},
                                          {150, 150, 0}}};
constexpr int Margin = 12;
constexpr int TickLength = 5;
constexpr int MarkSize = 2;  // around a point
constexpr int LegendLine = 24;
constexpr int ClosestNumbersX = 90;
constexpr int ClosestNumbersY = 45;
constexpr int MostBars = 50;

struct Range {
    double Low = std::numeric_limits<double>::infinity();
    double High = -std::numeric_limits<double>::infinity();

    void Take(double x) {
        Low = std::min(Low, x);
        High = std::max(High, x);
    }
    bool Empty() const { return !(Low <= High); }
};

bool Stands(double x, bool logarithmic) {
    return std::isfinite(x) && (!logarithmic || x > 0);
}

bool Stands(const Chart& chart, const std::pair<double, double>& point) {
    return Stands(point.first, chart.LogX) && Stands(point.second, chart.LogY);
}

std::pair<Range, Range> RangesOf(const Chart& chart) {
    std::pair<Range, Range> ranges;
    for (const ChartLine& line : chart.Lines) {
        for (const auto& point : line.Points) {
            if (Stands(chart, point)) {
                ranges.first.Take(point.first);
                ranges.second.Take(point.second);
            }
        }
    }
    for (const ChartBar& bar : chart.Bars) {
        ranges.first.Take(bar.From);
        ranges.first.Take(bar.To);
        ranges.second.Take(0);
        ranges.second.Take(bar.Count);
    }
    return ranges;
}

class Drawing {
public:
    Drawing(PlotSurface& surface, const Chart& chart, int wide, int high)
        : surface_(surface), chart_(chart), wide_(wide), high_(high) {}

    void Draw() {
        surface_.BackColor = Paper;
        surface_.ForeColor = Ink;
        surface_.FontName = MapFont;
        surface_.FontSize = FontPoints::Ten;
        surface_.DrawWidth = 1;
        surface_.Cls();
        surface_.Scale(0, 0, static_cast<float>(wide_), static_cast<float>(high_));
        MakeAxes();
        DrawGrid();
        DrawBars();
        DrawFrame();
        DrawLines();
        DrawLegend();
    }

private:
    PlotSurface& surface_;
    const Chart& chart_;
    int wide_, high_;
    ChartAxis x_, y_;
    double left_ = 0, right_ = 0, top_ = 0, bottom_ = 0;

    double TextHigh() const { return surface_.TextHeight("0"); }

    void MakeAxes() {
        const auto [xs, ys] = RangesOf(chart_);
        const double line = TextHigh() + Margin / 2.0;
        top_ = 2 * Margin + line * (chart_.Title.empty() ? 1 : 2);
        bottom_ = high_ - Margin - 2 * line - TickLength;
        y_ = AxisOf(ys.Low, ys.High, std::max(2, static_cast<int>((bottom_ - top_) / ClosestNumbersY)), chart_.LogY);
        double widest = 0;
        for (const auto& [value, text] : y_.Ticks) {
            widest = std::max(widest, static_cast<double>(surface_.TextWidth(text)));
        }
        left_ = Margin + widest + TickLength + 4;
        x_ = AxisOf(xs.Low, xs.High, 2, chart_.LogX);
        const double lastNumber = surface_.TextWidth(x_.Ticks.back().second) / 2.0;  // about: the axis is made below
        right_ = wide_ - Margin - std::max(lastNumber, Margin + LegendWidth());
        right_ = std::max(right_, left_ + 20);
        bottom_ = std::max(bottom_, top_ + 20);
        x_ = AxisOf(xs.Low, xs.High, std::max(2, static_cast<int>((right_ - left_) / ClosestNumbersX)), chart_.LogX);
    }

    double LegendWidth() const {
        double widest = 0;
        for (const ChartLine& line : chart_.Lines) {
            if (!line.Name.empty()) {
                widest = std::max(widest, LegendLine + 6.0 + surface_.TextWidth(line.Name));
            }
        }
        return widest == 0 ? 0 : Margin + std::max(widest, static_cast<double>(surface_.TextWidth(chart_.LinesLabel)));
    }

    double XOf(double value) const { return left_ + x_.PlaceOf(value) * (right_ - left_); }
    double YOf(double value) const { return bottom_ - y_.PlaceOf(value) * (bottom_ - top_); }

    void Line(double x1, double y1, double x2, double y2, Color ink) {
        surface_.Line(static_cast<float>(x1), static_cast<float>(y1), static_cast<float>(x2), static_cast<float>(y2),
                      ink);
    }

    void DrawBars() {
        for (const ChartBar& bar : chart_.Bars) {
            if (bar.Count > 0) {
                surface_.FilledBox(static_cast<float>(XOf(bar.From) + 1), static_cast<float>(YOf(bar.Count)),
                                   static_cast<float>(std::max(XOf(bar.To) - 1, XOf(bar.From) + 1)),
                                   static_cast<float>(bottom_), BarInk);
            }
        }
    }

    void DrawGrid() {
        for (const auto& tick : x_.Ticks) {
            Line(XOf(tick.first), top_, XOf(tick.first), bottom_, GridInk);
        }
        for (const auto& tick : y_.Ticks) {
            Line(left_, YOf(tick.first), right_, YOf(tick.first), GridInk);
        }
    }

    /// The frame, numbers and labels.
    void DrawFrame() {
        for (const auto& [value, text] : x_.Ticks) {
            const double x = XOf(value);
            Line(x, bottom_, x, bottom_ + TickLength, Ink);
            PrintAt(surface_, x - surface_.TextWidth(text) / 2.0, bottom_ + TickLength + 2, text);
        }
        for (const auto& [value, text] : y_.Ticks) {
            const double y = YOf(value);
            Line(left_ - TickLength, y, left_, y, Ink);
            PrintAt(surface_, left_ - TickLength - 3 - surface_.TextWidth(text), y - TextHigh() / 2, text);
        }
        surface_.Box(static_cast<float>(left_), static_cast<float>(top_), static_cast<float>(right_),
                     static_cast<float>(bottom_), Ink);
        const double labelsTop = top_ - Margin - TextHigh();
        PrintAt(surface_, Margin, labelsTop, chart_.YLabel);
        const double middle = (left_ + right_ - surface_.TextWidth(chart_.XLabel)) / 2;
        PrintAt(surface_, std::max(0.0, middle), high_ - Margin - TextHigh(), chart_.XLabel);
        if (!chart_.Title.empty()) {
            PrintAt(surface_, std::max(0.0, (wide_ - static_cast<double>(surface_.TextWidth(chart_.Title))) / 2),
                    Margin / 2.0, chart_.Title);
        }
    }

    void DrawLines() {
        surface_.DrawWidth = 2;
        for (std::size_t i = 0; i < chart_.Lines.size(); ++i) {
            const Color ink = LineInks[i % LineInks.size()];
            const auto& points = chart_.Lines[i].Points;
            for (std::size_t k = 0; k < points.size(); ++k) {
                if (!Stands(chart_, points[k])) {
                    continue;
                }
                const double x = XOf(points[k].first);
                const double y = YOf(points[k].second);
                if (k > 0 && Stands(chart_, points[k - 1])) {
                    Line(XOf(points[k - 1].first), YOf(points[k - 1].second), x, y, ink);
                }
                surface_.FilledBox(static_cast<float>(x - MarkSize), static_cast<float>(y - MarkSize),
                                   static_cast<float>(x + MarkSize), static_cast<float>(y + MarkSize), ink);
            }
        }
        surface_.DrawWidth = 1;
    }

    void DrawLegend() {
        if (LegendWidth() == 0) {
            return;
        }
        const double x = right_ + Margin;
        double y = top_;
        PrintAt(surface_, x, y, chart_.LinesLabel);
        surface_.DrawWidth = 2;
        for (std::size_t i = 0; i < chart_.Lines.size(); ++i) {
            y += TextHigh() + 4;
            Line(x, y + TextHigh() / 2, x + LegendLine, y + TextHigh() / 2, LineInks[i % LineInks.size()]);
            PrintAt(surface_, x + LegendLine + 6, y, chart_.Lines[i].Name);
        }
        surface_.DrawWidth = 1;
    }
};

}  // namespace

std::vector<ChartBar> BarsOf(const std::vector<double>& values, int bins, bool logarithmic) {
    Range range;
    std::size_t count = 0;
    for (const double value : values) {
        if (Stands(value, logarithmic)) {
            range.Take(value);
            ++count;
        }
    }
    if (range.Empty()) {
        return {};
    }
    const auto fit = static_cast<int>(std::sqrt(static_cast<double>(count)));
    const auto bars = static_cast<std::size_t>(bins > 0 ? bins : std::clamp(fit, 1, MostBars));
    const auto place = [&](double value) { return logarithmic ? std::log(value) : value; };
    const double low = place(range.Low);
    const double width = (place(range.High) - low) / static_cast<double>(bars);
    const auto edge = [&](std::size_t i) {
        const double at = low + width * static_cast<double>(i);
        return logarithmic ? std::exp(at) : at;
    };
    std::vector<ChartBar> list;
    for (std::size_t i = 0; i < bars; ++i) {
        list.push_back({edge(i), edge(i + 1), 0});
    }
    for (const double value : values) {
        if (Stands(value, logarithmic)) {
            const double bar = width > 0 ? std::floor((place(value) - low) / width) : 0;
            list[std::min(bars - 1, static_cast<std::size_t>(std::max(bar, 0.0)))].Count += 1;
        }
    }
    return list;
}

bool CanBeDrawn(const Chart& chart) {
    const auto [xs, ys] = RangesOf(chart);
    return !xs.Empty() && !ys.Empty();
}

void DrawChart(PlotSurface& surface, const Chart& chart, int pixelsWide, int pixelsHigh) {
    Drawing(surface, chart, pixelsWide, pixelsHigh).Draw();
}

}  // namespace zirvo
