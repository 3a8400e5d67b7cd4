// The colour scale and the fill. Callers: DrawContourMap; the tracers and the legend take their colours here.
//
// Notation        a, b the ends of the range (low, high); C its middle, D and B the quarters.
// Steps           the fill first finds the last cell on each pixel. A cell covers the columns of its x range and the
//                 rows of its y range, so on the pixel (c, r) the last one drawn is the last row of cells on r, and in
//                 it the last column of cells on c: two short lists, and no cell outside of their product is ever seen.
// Special cases   axes that turn back by a hundredth at an interface (the levels of two layers are rounded apart) are
//                 covered, since the lists are painted and not searched. A picture without pixels gets every cell.
#include "contour/color_scale.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "base/runtime_fault.h"

namespace zirvo {
namespace {

/// 255 * part / whole: the product first, then the division, then the floor.
std::uint8_t Channel(double part, double whole) {
    const double floored = std::floor(255 * part / whole);
    return static_cast<std::uint8_t>(floored >= 255 ? 255 : floored > 0 ? floored : 0);  // no number: 0
}

/// Beyond this 255 * (v - E) leaves a double.
constexpr double LargestPlain = 1e300;

/// The numbers of those indices below `count` that `from` maps to a stretch of pixels which no later stretch covers.
/// @param pixel  of node i, for the nodes first..last; cell i lies between the nodes i and i + 1.
std::vector<int> CellsInSight(const std::vector<int>& pixel, int pixels) {
    const int cells = static_cast<int>(pixel.size()) - 2;  // nodes count from 1
    std::vector<int> last(static_cast<std::size_t>(pixels), 0);
    for (int i = 1; i <= cells; ++i) {
        const auto [low, high] =
            std::minmax(pixel[static_cast<std::size_t>(i)], pixel[static_cast<std::size_t>(i) + 1]);
        for (int p = std::max(low, 0); p <= std::min(high, pixels - 1); ++p) {
            last[static_cast<std::size_t>(p)] = i;
        }
    }
    std::sort(last.begin(), last.end());
    last.erase(std::unique(last.begin(), last.end()), last.end());
    if (!last.empty() && last.front() == 0) {  // pixels without a cell
        last.erase(last.begin());
    }
    return last;
}

/// The cells along one axis that have to be drawn, ascending.
template <class PixelOf>
std::vector<int> CellsToDraw(const std::vector<double>& axis, const PictureScale& picture, int pixels,
                             PixelOf pixelOf) {
    const int cells = static_cast<int>(axis.size()) - 2;
    std::vector<int> list;
    if (!picture.HasPixels()) {
        for (int i = 1; i <= cells; ++i) {
            list.push_back(i);
        }
        return list;
    }
    if (cells < 1) {
        return list;
    }
    std::vector<int> pixel(axis.size());
    std::transform(axis.begin(), axis.end(), pixel.begin(),
                   [&](double position) { return pixelOf(static_cast<float>(position)); });
    return CellsInSight(pixel, pixels);
}

}  // namespace

Color ColorSet(double value, double low, double high) {
    const double magnitude = std::max(std::fabs(low), std::fabs(high));
    if (magnitude > LargestPlain && std::isfinite(magnitude)) {  // a power of two changes no quotient
        return ColorSet(value / 1024, low / 1024, high / 1024);
    }
    if ((value < high && value < low) || (value > high && value > low)) {
        return {0, 0, 0};
    }
    const double quarter = 0.25 * (3 * low + high);
    const double middle = 0.5 * (low + high);
    const double threeQuarters = 0.25 * (low + 3 * high);
    if (value <= low) {
        return {0, 0, 255};
    }
    if (low < value && value <= quarter) {
        return {0, Channel(value - low, quarter - low), 255};
    }
    if (quarter < value && value <= middle) {
        return {0, 255, Channel(value - middle, quarter - middle)};
    }
    if (middle < value && value <= threeQuarters) {
        return {Channel(value - middle, threeQuarters - middle), 255, 0};
    }
    if (threeQuarters < value && value <= high) {
        return {255, Channel(value - high, threeQuarters - high), 0};
    }
    return {255, 0, 0};
}

void FillContourCells(PlotSurface& surface, double low, double high, const ContourField& field) {
    const ValueMatrix& d = field.Values;
    if (field.FineCountX() < 2 || field.FineCountY() < 2) {
        return;
    }
    if (field.FineCountX() > d.LastX() || field.FineCountY() > d.LastY()) {
        throw RuntimeFault(fault::SubscriptOutOfRange);
    }
    const PictureScale& picture = surface.Picture();
    const auto columns =
        CellsToDraw(field.FineAxis1, picture, picture.PixelsWide, [&](float x) { return picture.Column(x); });
    const auto rows =
        CellsToDraw(field.FineAxis2, picture, picture.PixelsHigh, [&](float y) { return picture.Row(y); });
    for (const int row : rows) {
        const auto j = static_cast<std::size_t>(row);
        const auto lower = d.Row(row);
        const auto upper = d.Row(row + 1);
        const auto y1 = static_cast<float>(field.FineAxis2[j]);
        const auto y2 = static_cast<float>(field.FineAxis2[j + 1]);
        for (const int column : columns) {
            const auto i = static_cast<std::size_t>(column);
            const double s1 = lower[i] + 0.5 * (lower[i + 1] - lower[i]);
            const double s2 = upper[i] + 0.5 * (upper[i + 1] - upper[i]);
            const double centre = s1 + 0.5 * (s2 - s1);
            surface.FilledBox(static_cast<float>(field.FineAxis1[i]), y1, static_cast<float>(field.FineAxis1[i + 1]),
                              y2, ColorSet(centre, low, high));
        }
    }
}

}  // namespace zirvo
