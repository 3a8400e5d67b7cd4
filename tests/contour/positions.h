// Grid lines at hand.
#pragma once
#include <vector>

#include "contour/fixed_point4.h"

namespace zirvo {

/// The grid lines at these coordinates; 1-based: entry 0 is unused.
inline std::vector<FixedPoint4> Positions(const std::vector<double>& values) {
    std::vector<FixedPoint4> grid{FixedPoint4()};
    for (const double value : values) {
        grid.push_back(FixedPoint4::FromDouble(value));
    }
    return grid;
}

}  // namespace zirvo
