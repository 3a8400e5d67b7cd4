// The contour tracer of the maps. Caller: DrawContourMap.
//
// Notation        z(k) the levels; d(i, j) the values at the nodes x(i), y(j). Corners 1 to 4 of a cell are (i, j),
//                 (i+1, j), (i+1, j+1), (i, j+1); corner 0 is its centre. h the heights above a level, sh their signs.
// What is stored  nothing but the smallest and largest value of stretches of two rows of nodes. No allocation takes
//                 place once the first row has begun.
// Steps           a stretch of cells whose values reach no level is passed over at once: a cell holds the level z only
//                 if its smallest value <= z < its largest, so it cannot if the stretch does not. In the others each
//                 cell and each level goes the long way: triangles (corner m, centre, corner m + 1), their case by
//                 three signs, their segment by the case.
// Special cases   levels that descend (a range given the wrong way round) leave no order to search: every level is
//                 tried in every cell.
// Source          the classical conversion of a regular grid by four triangles with the mean value at the centre.
#include "contour/conrec.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/runtime_fault.h"
#include "contour/color_scale.h"
#include "contour/numeric_helpers.h"

namespace zirvo {
namespace {

constexpr double CutOff = 1e37;
constexpr std::size_t StretchWidth = 16;  // cells

constexpr std::array<std::size_t, 5> OffsetI{0, 0, 1, 1, 0};  // entry 0, the centre, is unused
constexpr std::array<std::size_t, 5> OffsetJ{0, 0, 0, 1, 1};

/// Case by the signs of first, second and third vertex, each sign plus 1.
constexpr int CaseTable[3][3][3] = {
    {{0, 0, 8}, {0, 2, 5}, {7, 6, 9}}, {{0, 3, 4}, {1, 3, 1}, {4, 3, 0}}, {{9, 6, 7}, {5, 2, 0}, {8, 0, 0}}};

struct Point {
    double X = 0;
    double Y = 0;
};

struct Segment {
    Point From;
    Point To;
};

/// Centre and corners of a cell against one level.
struct CellHeights {
    std::array<double, 5> H{};
    std::array<int, 5> Sign{};
    std::array<Point, 5> At{};

    /// Where the level crosses the side from vertex p to vertex q, whose heights differ in sign.
    Point Crossing(std::size_t p, std::size_t q) const {
        const double width = H[q] - H[p];
        return {(H[q] * At[p].X - H[p] * At[q].X) / width, (H[q] * At[p].Y - H[p] * At[q].Y) / width};
    }

    /// The segment of a case other than 0 in the triangle m1, m2, m3.
    Segment SegmentOf(int triangleCase, std::size_t m1, std::size_t m2, std::size_t m3) const {
        switch (triangleCase) {
            case 1:
                return {At[m1], At[m2]};
            case 2:
                return {At[m2], At[m3]};
            case 3:
                return {At[m3], At[m1]};
            case 4:
                return {At[m1], Crossing(m2, m3)};
            case 5:
                return {At[m2], Crossing(m3, m1)};
            case 6:
                return {At[m3], Crossing(m1, m2)};
            case 7:
                return {Crossing(m1, m2), Crossing(m2, m3)};
            case 8:
                return {Crossing(m2, m3), Crossing(m3, m1)};
            default:
                return {Crossing(m3, m1), Crossing(m1, m2)};
        }
    }
};

constexpr int SignOf(double h) {
    return h > 0 ? 1 : h < 0 ? -1 : 0;
}

/// Smallest and largest value of each stretch of a row of nodes.
struct RowExtremes {
    std::vector<double> Smallest;
    std::vector<double> Largest;
};

/// The extremes of first..last, in lanes that the compiler can work on side by side.
ValueRange ExtremesOf(const double* first, const double* last) {
    constexpr std::size_t Lanes = 8;
    ValueRange range{*last, *last};
    if (static_cast<std::size_t>(last - first) < Lanes) {
        for (; first != last; ++first) {
            range = {Min(*first, range.Smallest), Max(*first, range.Largest)};
        }
        return range;
    }
    std::array<double, Lanes> smallest{};
    std::array<double, Lanes> largest{};
    std::copy_n(first, Lanes, smallest.begin());
    largest = smallest;
    for (first += Lanes; static_cast<std::size_t>(last - first) >= Lanes; first += Lanes) {
        for (std::size_t lane = 0; lane < Lanes; ++lane) {
            smallest[lane] = first[lane] < smallest[lane] ? first[lane] : smallest[lane];
            largest[lane] = first[lane] > largest[lane] ? first[lane] : largest[lane];
        }
    }
    for (; first != last; ++first) {
        range = {Min(*first, range.Smallest), Max(*first, range.Largest)};
    }
    for (std::size_t lane = 0; lane < Lanes; ++lane) {
        range = {Min(smallest[lane], range.Smallest), Max(largest[lane], range.Largest)};
    }
    return range;
}

class Tracer {
public:
    Tracer(PlotSurface& surface, double zmin, double zmax, std::span<const double> x, std::span<const double> y,
           Int16 count, int grey)
        : surface_(surface), x_(x), y_(y), levels_(ContourLevels(zmin, zmax, count)), ascending_(zmin <= zmax) {
        for (const double level : levels_) {
            colors_.push_back(grey == 0 ? ColorSet(level, zmin, zmax) : MapGrey);
        }
    }

    /// Rows from last to first.
    void Trace(const ValueMatrix& d, std::size_t ilb, std::size_t iub, int jlb, int jub, const Progress& progress) {
        if (levels_.size() < 2) {
            throw RuntimeFault(fault::SubscriptOutOfRange);
        }
        RowExtremes lower;
        RowExtremes upper;
        const std::size_t stretches = (iub - ilb + StretchWidth - 1) / StretchWidth;
        for (RowExtremes* row : {&lower, &upper}) {
            row->Smallest.resize(stretches);
            row->Largest.resize(stretches);
        }
        Measure(d.Row(jub).data(), ilb, iub, upper);
        for (int j = jub - 1; j >= jlb; --j) {
            lower_ = d.Row(j).data();
            upper_ = d.Row(j + 1).data();
            j_ = static_cast<std::size_t>(j);
            Measure(lower_, ilb, iub, lower);
            TraceRow(ilb, iub, lower, upper);
            std::swap(lower, upper);
            if (progress) {
                progress(static_cast<double>(jub - j) / (jub - jlb));
            }
        }
    }

private:
    static void Measure(const double* row, std::size_t ilb, std::size_t iub, RowExtremes& extremes) {
        for (std::size_t s = 0, first = ilb; first < iub; ++s, first += StretchWidth) {
            const ValueRange range = ExtremesOf(row + first, row + std::min(first + StretchWidth, iub));
            extremes.Smallest[s] = range.Smallest;
            extremes.Largest[s] = range.Largest;
        }
    }

    void TraceRow(std::size_t ilb, std::size_t iub, const RowExtremes& lower, const RowExtremes& upper) {
        for (std::size_t s = 0, first = ilb; first < iub; ++s, first += StretchWidth) {
            const double smallest = Min(lower.Smallest[s], upper.Smallest[s]);
            const double largest = Max(lower.Largest[s], upper.Largest[s]);
            const std::size_t k = FirstLevel(smallest);
            if (ascending_ && (k == levels_.size() || levels_[k] >= largest)) {
                continue;
            }
            const std::size_t end = std::min(first + StretchWidth, iub);
            for (std::size_t i = first; i < end; ++i) {
                TraceCell(i, k);
            }
        }
    }

    /// The first level that is not below the value, one past the last if there is none; 1 where levels have no order.
    /// Neighbours mostly lie between the same two levels, so the last answer is tried first.
    std::size_t FirstLevel(double value) {
        if (!ascending_) {
            return 1;
        }
        const bool aboveLower = last_ == 1 || levels_[last_ - 1] < value;
        const bool belowUpper = last_ == levels_.size() || levels_[last_] >= value;
        if (!aboveLower || !belowUpper) {
            last_ =
                static_cast<std::size_t>(std::lower_bound(levels_.begin() + 1, levels_.end(), value) - levels_.begin());
        }
        return last_;
    }

    /// The cell at i, for the levels from `k` on.
    void TraceCell(std::size_t i, std::size_t k) {
        const double dmin = Min(Min(lower_[i], upper_[i]), Min(lower_[i + 1], upper_[i + 1]));
        const double dmax = Max(Max(lower_[i], upper_[i]), Max(lower_[i + 1], upper_[i + 1]));
        if (!(dmax < CutOff && dmax >= levels_[1] && dmin <= levels_.back())) {
            return;
        }
        for (; k < levels_.size(); ++k) {
            if (levels_[k] >= dmin && levels_[k] < dmax) {
                TraceLevel(i, k);
            } else if (ascending_ && levels_[k] >= dmax) {
                return;
            }
        }
    }

    void TraceLevel(std::size_t i, std::size_t k) {
        CellHeights cell;
        for (std::size_t m = 4; m >= 1; --m) {
            cell.H[m] = (OffsetJ[m] == 0 ? lower_ : upper_)[i + OffsetI[m]] - levels_[k];
            cell.At[m] = {x_[i + OffsetI[m]], y_[j_ + OffsetJ[m]]};
        }
        cell.H[0] = 0.25 * (cell.H[1] + cell.H[2] + cell.H[3] + cell.H[4]);
        cell.At[0] = {0.5 * (x_[i] + x_[i + 1]), 0.5 * (y_[j_] + y_[j_ + 1])};
        std::transform(cell.H.begin(), cell.H.end(), cell.Sign.begin(), SignOf);
        for (std::size_t m = 1; m <= 4; ++m) {
            const std::size_t next = m == 4 ? 1 : m + 1;
            const int triangleCase = CaseTable[cell.Sign[m] + 1][cell.Sign[0] + 1][cell.Sign[next] + 1];
            if (triangleCase != 0) {
                const Segment line = cell.SegmentOf(triangleCase, m, 0, next);
                surface_.Line(static_cast<float>(line.From.X), static_cast<float>(line.From.Y),
                              static_cast<float>(line.To.X), static_cast<float>(line.To.Y), colors_[k]);
            }
        }
    }

    PlotSurface& surface_;
    std::span<const double> x_;
    std::span<const double> y_;
    std::vector<double> levels_;  // 1-based
    std::vector<Color> colors_;
    bool ascending_;
    std::size_t last_ = 1;
    const double* lower_ = nullptr;
    const double* upper_ = nullptr;
    std::size_t j_ = 0;
};

}  // namespace

void conrec(PlotSurface& surface, double zmin, double zmax, const ValueMatrix& d, std::span<const double> x,
            std::span<const double> y, Int16 count, int ilb, int iub, int jlb, int jub, int grey,
            const Progress& progress) {
    Tracer tracer(surface, zmin, zmax, x, y, count, grey);
    if (ilb >= iub || jlb >= jub) {
        return;
    }
    if (ilb < 0 || jlb < 0 || iub > d.LastX() || jub > d.LastY() || static_cast<std::size_t>(iub) >= x.size() ||
        static_cast<std::size_t>(jub) >= y.size()) {
        throw RuntimeFault(fault::SubscriptOutOfRange);
    }
    tracer.Trace(d, static_cast<std::size_t>(ilb), static_cast<std::size_t>(iub), jlb, jub, progress);
}

}  // namespace zirvo
