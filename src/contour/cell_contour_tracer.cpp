// The second contour tracer. Callers: none but its tests.
//
// Notation        corners 1 to 4 are (i, j), (i+1, j), (i+1, j+1), (i, j+1); c their values, h their heights above a
//                 level; dz the distance of two levels; levels count from 0, the first at low.
// Steps           two divisions give the levels that a cell can hold; per level the crossings of its four edges are
//                 joined.
// Special cases   an edge that lies on the level gives its first corner. A corner on the level is met by two edges:
//                 with three crossings one line joins the two that are farthest apart; with four it is a saddle.
#include "contour/cell_contour_tracer.h"

#include <array>
#include <cmath>

#include "base/runtime_fault.h"
#include "contour/color_scale.h"
#include "contour/conrec.h"

namespace zirvo {
namespace {

constexpr double HighestTraced = 1e10;

struct EdgePoint {
    double X = 0;
    double Y = 0;
};

double SquaredDistance(EdgePoint a, EdgePoint b) {
    return (a.X - b.X) * (a.X - b.X) + (a.Y - b.Y) * (a.Y - b.Y);
}

/// One cell: entry m - 1 belongs to corner m.
struct Cell {
    std::array<double, 4> C{};
    std::array<EdgePoint, 4> At{};
};

/// The crossings of a level with the edges of a cell, in the order of the edges 1-2, 2-3, 3-4, 4-1.
struct Crossings {
    std::array<EdgePoint, 4> At{};
    std::size_t Count = 0;

    void Add(EdgePoint point) { At[Count++] = point; }
};

/// True if the level does not cross the edge between two corners of these heights.
bool SameSide(double ha, double hb) {
    return (ha > 0 && hb > 0) || (ha < 0 && hb < 0);
}

Crossings FindCrossings(const Cell& cell, const std::array<double, 4>& h, double cellX, double cellY) {
    // An edge on the level: its first corner.
    const auto along = [](double ha, double hb, double length) { return ha == hb ? 0 : ha * length / (hb - ha); };
    Crossings found;
    if (!SameSide(h[0], h[1])) {
        found.Add({cell.At[0].X - along(h[0], h[1], cellX), cell.At[0].Y});
    }
    if (!SameSide(h[1], h[2])) {
        found.Add({cell.At[1].X, cell.At[1].Y - along(h[1], h[2], cellY)});
    }
    if (!SameSide(h[2], h[3])) {
        found.Add({cell.At[2].X + along(h[2], h[3], cellX), cell.At[2].Y});
    }
    if (!SameSide(h[3], h[0])) {
        found.Add({cell.At[3].X, cell.At[3].Y + along(h[3], h[0], cellY)});
    }
    return found;
}

void DrawLine(PlotSurface& surface, EdgePoint from, EdgePoint to, Color color) {
    surface.Line(static_cast<float>(from.X), static_cast<float>(from.Y), static_cast<float>(to.X),
                 static_cast<float>(to.Y), color);
}

void JoinThree(PlotSurface& surface, const std::array<EdgePoint, 4>& at, Color color) {
    std::size_t from = 0;
    std::size_t to = 1;
    for (const auto [a, b] : {std::array<std::size_t, 2>{0, 2}, std::array<std::size_t, 2>{1, 2}}) {
        if (SquaredDistance(at[a], at[b]) > SquaredDistance(at[from], at[to])) {
            from = a;
            to = b;
        }
    }
    DrawLine(surface, at[from], at[to], color);
}

void Join(PlotSurface& surface, const Crossings& found, Color color) {
    const auto& at = found.At;
    if (found.Count == 2) {
        DrawLine(surface, at[0], at[1], color);
    } else if (found.Count == 3) {
        JoinThree(surface, at, color);
    } else if (found.Count == 4 && SquaredDistance(at[0], at[1]) < SquaredDistance(at[0], at[3])) {
        DrawLine(surface, at[0], at[1], color);
        DrawLine(surface, at[2], at[3], color);
    } else if (found.Count == 4) {
        DrawLine(surface, at[0], at[3], color);
        DrawLine(surface, at[1], at[2], color);
    }
}

/// What all cells share.
struct LevelRange {
    double Low = 0;
    double High = 0;
    double Step = 0;
    int Grey = 0;
};

void TraceCell(PlotSurface& surface, const Cell& cell, const LevelRange& range, double cellX, double cellY) {
    double dmin = cell.C[0];
    double dmax = cell.C[0];
    for (std::size_t m = 1; m < 4; ++m) {
        dmin = cell.C[m] < dmin ? cell.C[m] : dmin;
        dmax = cell.C[m] > dmax ? cell.C[m] : dmax;
    }
    if (dmax > HighestTraced) {
        return;
    }
    const double lo = dmin < range.Low ? range.Low : dmin;
    const double hi = dmax > range.High ? range.High : dmax;
    const double first = std::floor((lo - range.Low) / range.Step + 0.9999);
    const double last = std::floor((hi - range.Low) / range.Step + 0.0001);
    if (!(first <= last)) {
        return;
    }
    const double tiny = (range.High - range.Low) * 1e-6;
    for (int k = static_cast<int>(first); k <= static_cast<int>(last); ++k) {  // 0 to count - 1
        const double level = range.Low + range.Step * k;
        std::array<double, 4> h{};
        for (std::size_t m = 0; m < 4; ++m) {
            h[m] = cell.C[m] - level;
            if (h[m] == 0) {
                h[m] = tiny * h[m];  // 0 again: a corner on a level stays there, by design
            }
        }
        Join(surface, FindCrossings(cell, h, cellX, cellY),
             range.Grey == 0 ? ColorSet(level, range.Low, range.High) : MapGrey);
    }
}

}  // namespace

void CellContourTracer(PlotSurface& surface, double low, double high, int ilb, int iub, int jlb, int jub, double cellX,
                       double cellY, std::span<const double> x, std::span<const double> y, const ValueMatrix& d,
                       Int16 count, int grey) {
    if (count < 1) {
        throw RuntimeFault(fault::SubscriptOutOfRange);
    }
    if (count == 1 || low == high) {
        throw RuntimeFault(fault::DivisionByZero);
    }
    const LevelRange range{low, high, (high - low) / (count - 1), grey};
    if (!std::isfinite(range.Step)) {
        throw RuntimeFault(fault::Overflow);
    }
    if (!(range.Step > 0) || ilb >= iub || jlb >= jub) {
        return;
    }
    if (ilb < 0 || jlb < 0 || static_cast<std::size_t>(iub) >= x.size() || static_cast<std::size_t>(jub) >= y.size()) {
        throw RuntimeFault(fault::SubscriptOutOfRange);
    }
    for (int i = ilb; i < iub; ++i) {
        for (int j = jlb; j < jub; ++j) {
            const auto column = static_cast<std::size_t>(i);
            const auto row = static_cast<std::size_t>(j);
            const Cell cell{{d.At(i, j), d.At(i + 1, j), d.At(i + 1, j + 1), d.At(i, j + 1)},
                            {EdgePoint{x[column], y[row]}, EdgePoint{x[column + 1], y[row]},
                             EdgePoint{x[column + 1], y[row + 1]}, EdgePoint{x[column], y[row + 1]}}};
            TraceCell(surface, cell, range, cellX, cellY);
        }
    }
}

}  // namespace zirvo
