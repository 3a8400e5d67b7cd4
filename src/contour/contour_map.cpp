// The types of a map: checked access to the matrix and to the depth levels.
#include "contour/contour_map.h"

#include "base/runtime_fault.h"

namespace zirvo {

ValueMatrix::ValueMatrix(int lastX, int lastY) : lastX_(lastX), lastY_(lastY) {
    if (lastX < 0 || lastY < 0) {
        throw RuntimeFault(fault::SubscriptOutOfRange);
    }
    values_.resize((static_cast<std::size_t>(lastX) + 1) * (static_cast<std::size_t>(lastY) + 1));
}

std::size_t ValueMatrix::Index(int i, int j) const {
    if (i < 0 || i > lastX_ || j < 0 || j > lastY_) {
        throw RuntimeFault(fault::SubscriptOutOfRange);
    }
    return static_cast<std::size_t>(j) * (static_cast<std::size_t>(lastX_) + 1) + static_cast<std::size_t>(i);
}

DepthGap DepthGapOf(const CoarseGrid& grid, int layer, int gap) {
    const int top = (layer - 1) * (SubDivisionsY + 1) + gap;
    if (top < 1 || top + 1 > grid.GridCountY()) {
        throw RuntimeFault(fault::SubscriptOutOfRange);
    }
    const auto index = static_cast<std::size_t>(top);
    return {grid.GridY[index].ToDouble(), grid.GridY[index + 1].ToDouble()};
}

}  // namespace zirvo
