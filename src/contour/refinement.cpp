// Bilinear refinement of the value matrix.
//
// Notation        F = RefineFactor. A coarse cell has the columns Ia to Ib = Ia + F and the rows Ja to Jb; c1 to c4 are
//                 its corners (Ia, Ja), (Ib, Ja), (Ib, Jb), (Ia, Jb); DX, DY its size, sx = DX / F, sy = DY / F.
// Steps           per row the values at the left and right edge, then the nodes between them. Corners and edges are
//                 written again by the cells that share them, and the next cell takes its corners as they then are.
// Special cases   a cell without width or height (no valid input makes one) goes by the index alone. On an X-Z section
//                 a gap without height adds no rows; the rows of the last gap that had a height are worked over again.
//                 Where the first gap of the first layer has none, the rows of the next begin at row 0, which holds
//                 zeros.
#include "contour/refinement.h"

#include "base/runtime_fault.h"
#include "contour/depth_bands.h"

namespace zirvo {
namespace {

/// Where the nodes of a coarse interval lie: step from node to node, and whole width.
struct Interval {
    double Step = 0;
    double Width = 0;

    explicit Interval(double width) : Step(width / RefineFactor), Width(width) {}

    /// The value at node `index` (0 to RefineFactor) between those at both ends.
    double Between(double first, double last, int index) const {
        if (Width == 0) {
            return first + index * (last - first) / RefineFactor;
        }
        return first + Step * index * (last - first) / Width;
    }
};

double CheckedAt(const std::vector<double>& axis, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= axis.size()) {
        throw RuntimeFault(fault::SubscriptOutOfRange);
    }
    return axis[static_cast<std::size_t>(index)];
}

/// The coarse cells between two rows, from left to right.
void RefineRows(ContourField& field, int gridCountX, int firstRow, int lastRow, const Interval& height) {
    ValueMatrix& d = field.Values;
    for (int ic = 1; ic < gridCountX; ++ic) {
        const int first = (ic - 1) * RefineFactor + 1;
        const int last = first + RefineFactor;
        const Interval width(CheckedAt(field.FineAxis1, last) - CheckedAt(field.FineAxis1, first));
        const double c1 = d.At(first, firstRow);
        const double c2 = d.At(last, firstRow);
        const double c3 = d.At(last, lastRow);
        const double c4 = d.At(first, lastRow);
        for (int row = firstRow; row <= lastRow; ++row) {
            const double left = height.Between(c1, c4, row - firstRow);
            const double right = height.Between(c2, c3, row - firstRow);
            double* const nodes = &d.At(first, row);
            for (int node = 0; node <= RefineFactor; ++node) {
                nodes[node] = width.Between(left, right, node);
            }
        }
    }
}

}  // namespace

std::vector<double> BuildFineAxis(std::span<const FixedPoint4> grid) {
    std::vector<double> axis{0.0};
    if (grid.size() < 3) {
        return axis;
    }
    axis.reserve((grid.size() - 2) * RefineFactor + 2);
    axis.push_back(grid[1].ToDouble());
    for (std::size_t i = 1; i + 1 < grid.size(); ++i) {
        const double position = grid[i].ToDouble();
        const double step = (grid[i + 1].ToDouble() - position) / RefineFactor;
        for (int m = 1; m <= RefineFactor; ++m) {
            axis.push_back(position + m * step);
        }
    }
    return axis;
}

void RefineMatrixXY(ContourField& field, const CoarseGrid& grid) {
    for (int jc = 1; jc < grid.GridCountY(); ++jc) {
        const int first = (jc - 1) * RefineFactor + 1;
        const int last = first + RefineFactor;
        RefineRows(field, grid.GridCountX(), first, last,
                   Interval(CheckedAt(field.FineAxis2, last) - CheckedAt(field.FineAxis2, first)));
    }
}

void RefineMatrixXZ(ContourField& field, const CoarseGrid& grid) {
    Interval height(0);
    const auto hasHeight = [](const DepthGap& depths) { return depths.Bottom > depths.Top; };  // however small
    VisitDepthBands(grid, hasHeight, [&](const DepthBand& band) {
        if (band.HasRows) {
            height = Interval(band.Depths.Bottom - band.Depths.Top);
        }
        if (band.LastRow > 0) {
            RefineRows(field, grid.GridCountX(), band.FirstRow, band.LastRow, height);
        }
    });
}

}  // namespace zirvo
