// Positions of a section, see point_grid.h.
#include "graphics/point_grid.h"

#include <algorithm>

#include "base/runtime_fault.h"
#include "contour/rounding.h"

namespace zirvo {

namespace {

constexpr Int16 LevelDecimals = 2;

// Both axes of an X-Y section are cut alike.
static_assert(SubDivisionsX == SubDivisionsY);

/// Edges and centres of the loads in ascending order, and one position beyond each end.
std::vector<double> KeyPositions(std::span<const double> centre, std::span<const double> radius) {
    std::vector<double> keys;
    for (std::size_t i = 1; i < centre.size(); ++i) {
        for (const double side : {-1.0, 0.0, 1.0}) {
            keys.push_back(side * radius[i] + centre[i]);
        }
    }
    if (keys.empty()) {
        return keys;
    }
    std::sort(keys.begin(), keys.end());
    keys.insert(keys.begin(), keys.front() - GridMargin);
    keys.push_back(keys.back() + GridMargin);
    return keys;
}

/// Height at which each layer is shown [cm], 1-based; entry 0 is 0.
std::vector<double> DisplayHeights(std::span<const double> thickness, int layerCount) {
    std::vector<double> heights(static_cast<std::size_t>(layerCount) + 1);
    if (thickness.size() < heights.size() - 1) {
        throw RuntimeFault(fault::SubscriptOutOfRange);
    }
    std::copy(thickness.begin() + 1, thickness.begin() + layerCount, heights.begin() + 1);
    heights.back() = layerCount == 1 ? OnlyLayerHeight : heights[heights.size() - 2];
    return heights;
}

}  // namespace

std::vector<FixedPoint4> BuildAxisPositions(std::span<const double> centre, std::span<const double> radius) {
    if (centre.size() != radius.size()) {
        throw RuntimeFault(fault::SubscriptOutOfRange);
    }
    const std::vector<double> keys = KeyPositions(centre, radius);
    std::vector<FixedPoint4> positions{FixedPoint4()};
    for (std::size_t i = 0; i + 1 < keys.size(); ++i) {
        const double gap = keys[i + 1] - keys[i];
        if (!(gap > MinKeyGap)) {
            continue;
        }
        if (i == 0) {
            positions.push_back(FixedPoint4::FromDouble(keys[i]));
        }
        const double step = gap / SubDivisionsX;
        for (int j = 1; j <= SubDivisionsX; ++j) {
            positions.push_back(FixedPoint4::FromDouble(j * step + keys[i]));
        }
    }
    return positions;
}

std::vector<FixedPoint4> BuildDepthLevels(std::span<const double> thickness, int layerCount) {
    std::vector<FixedPoint4> levels{FixedPoint4()};
    if (layerCount < 1) {
        return levels;
    }
    const std::vector<double> heights = DisplayHeights(thickness, layerCount);
    double top = 0;
    for (std::size_t layer = 1; layer < heights.size(); ++layer) {
        top += heights[layer - 1];
        const FixedPoint4 step = FixedPoint4::FromDouble(heights[layer] / SubDivisionsY);
        FixedPoint4 depth = FixedPoint4::FromDouble(top);
        for (int j = 1; j <= LevelsOfLayer; ++j) {
            levels.push_back(FixedPoint4::FromDouble(Round(depth, LevelDecimals)));
            depth = j < LevelsOfLayer ? depth + step : depth;
        }
    }
    return levels;
}

namespace {

/// An axis over the loads. They may lie so far out that the numbers around them have no decimals left, and all
/// positions fall into one, or that a position passes the bound of its type: there is nothing to be drawn then.
std::vector<FixedPoint4> LoadAxis(std::span<const double> centre, std::span<const double> radius) {
    try {
        std::vector<FixedPoint4> positions = BuildAxisPositions(centre, radius);
        if (positions.size() < 2) {
            throw RuntimeFault(fault::Overflow);
        }
        return positions;
    } catch (RuntimeFault& caught) {
        caught.SayAbout(FaultMatter::LoadPositions, "");
        throw;
    }
}

/// The levels of all layers. Their depth may pass the bound of its type.
std::vector<FixedPoint4> LayerLevels(std::span<const double> thickness, int layerCount) {
    try {
        return BuildDepthLevels(thickness, layerCount);
    } catch (RuntimeFault& caught) {
        if (caught.Number() == fault::Overflow) {
            caught.SayAbout(FaultMatter::Thicknesses, "");
        }
        throw;
    }
}

}  // namespace

CoarseGrid BuildSectionGrid(const GraphicsInputData& model, SectionKind kind) {
    if (kind == SectionKind::YZ) {
        throw RuntimeFault(fault::InvalidCall);
    }
    std::vector<double> radius;
    std::vector<double> x;
    std::vector<double> y;
    for (const SurfaceLoad& load : model.Loads.UpTo(model.LoadCount)) {  // row 0 too, which stands for entry 0
        radius.push_back(load.Radius);
        x.push_back(load.LoadX);
        y.push_back(load.LoadY);
    }
    CoarseGrid grid;
    grid.LayerCount = model.LayerCount;
    grid.GridX = LoadAxis(x, radius);
    grid.GridY = kind == SectionKind::XY ? LoadAxis(y, radius) : LayerLevels(ThicknessesOf(model), model.LayerCount);
    return grid;
}

long long PointCountOf(const CoarseGrid& grid) {
    return static_cast<long long>(grid.GridCountX()) * grid.GridCountY();
}

std::vector<double> ThicknessesOf(const GraphicsInputData& model) {
    std::vector<double> thickness{0};
    for (int i = 1; i < model.LayerCount; ++i) {
        thickness.push_back(model.Layers[i].Thickness);
    }
    return thickness;
}

}  // namespace zirvo
