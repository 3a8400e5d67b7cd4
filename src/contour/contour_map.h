// The types of a map: the fine matrix with its axes, the coarse grid that it came from, section kind, display items.
// Filled by the reader of a section's results, completed by the refinement, drawn by DrawContourMap.
#pragma once
#include <cstddef>
#include <span>
#include <vector>

#include "contour/fixed_point4.h"

namespace zirvo {

/// Fine intervals for each interval of the coarse grid.
inline constexpr int RefineFactor = 10;
/// Parts into which the height of a layer is cut on an X-Z section; a layer has one level more.
inline constexpr int SubDivisionsY = 6;

/// The plane of a section. Y-Z is declared and never offered; where drawing asks, all but X-Y is X-Z.
enum class SectionKind { XY, XZ, YZ };

/// Values on a grid, d(i, j) with i along the first axis and j along the second, both from 0 to a last index (0 is kept
/// free: the nodes count from 1). i runs fastest in memory.
class ValueMatrix {
public:
    ValueMatrix() = default;
    /// All values 0. Fault 9 for a negative index.
    ValueMatrix(int lastX, int lastY);

    /// -1 for the empty matrix.
    int LastX() const { return lastX_; }
    int LastY() const { return lastY_; }

    /// d(i, j). Fault 9 outside the matrix.
    double& At(int i, int j) { return values_[Index(i, j)]; }
    double At(int i, int j) const { return values_[Index(i, j)]; }

    /// The values d(0..LastX, j). Fault 9 outside the matrix.
    std::span<double> Row(int j) { return {&values_[Index(0, j)], static_cast<std::size_t>(lastX_) + 1}; }
    std::span<const double> Row(int j) const { return {&values_[Index(0, j)], static_cast<std::size_t>(lastX_) + 1}; }

private:
    std::size_t Index(int i, int j) const;

    int lastX_ = -1;
    int lastY_ = -1;
    std::vector<double> values_;
};

/// The field of a map: values on the fine grid.
/// Axes are 1-based: entry 0 is unused. They ascend [cm]; on an X-Z section the second one holds the depth of an
/// interface twice, once for the bottom of the upper layer and once for the top of the lower one.
struct ContourField {
    ValueMatrix Values;
    std::vector<double> FineAxis1{0.0};
    std::vector<double> FineAxis2{0.0};

    /// Last used index of each axis; 0 for an empty one.
    int FineCountX() const { return static_cast<int>(FineAxis1.size()) - 1; }
    int FineCountY() const { return static_cast<int>(FineAxis2.size()) - 1; }
};

/// The coarse positions [cm], at which the solver worked. 1-based: entry 0 is unused. On an X-Z section GridY holds
/// SubDivisionsY + 1 depth levels for each layer, one layer after the other.
struct CoarseGrid {
    std::vector<FixedPoint4> GridX{FixedPoint4()};
    std::vector<FixedPoint4> GridY{FixedPoint4()};
    int LayerCount = 0;

    int GridCountX() const { return static_cast<int>(GridX.size()) - 1; }
    int GridCountY() const { return static_cast<int>(GridY.size()) - 1; }
};

/// The two depths of one of the SubDivisionsY gaps of a layer [cm].
struct DepthGap {
    double Top = 0;
    double Bottom = 0;
};

/// Gap `gap` (from 1) of layer `layer` (from 1). Fault 9 if the grid does not hold it.
DepthGap DepthGapOf(const CoarseGrid& grid, int layer, int gap);

/// Ranges of the two axes of a section [cm], first value the smaller one.
struct MapExtent {
    double AxisMin1 = 0;
    double AxisMax1 = 0;
    double AxisMin2 = 0;
    double AxisMax2 = 0;

    bool operator==(const MapExtent&) const = default;
};

/// All that a map shows.
struct ContourMap {
    SectionKind Kind = SectionKind::XY;
    ContourField Field;
    CoarseGrid Grid;
    MapExtent Extent;
    double ValueMin = 0;  ///< the value range that levels, colours and legend rest on; what lies beyond it is black
    double ValueMax = 0;
};

/// The five things that a map may show, as they stand after a reset of the screen.
struct DisplayItems {
    bool ColorFill = true;
    bool ContourLines = false;
    bool Legend = true;
    bool AnalyticalPoints = false;
    bool AnalyticalResults = false;

    bool operator==(const DisplayItems&) const = default;
};

}  // namespace zirvo
