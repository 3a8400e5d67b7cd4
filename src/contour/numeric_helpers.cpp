// The small numeric operations of the contour view. Callers: the tracers, the map scale, the legend, the result reader.
#include "contour/numeric_helpers.h"

#include <cmath>

#include "base/runtime_fault.h"

namespace zirvo {

ValueRange ArrayRange(std::span<const double> values, int count) {
    const auto last = static_cast<std::size_t>(count < 1 ? 1 : count);
    if (last >= values.size()) {
        throw RuntimeFault(fault::SubscriptOutOfRange);
    }
    ValueRange range{values[1], values[1]};
    for (const double value : values.subspan(1, last)) {
        if (range.Smallest > value) {
            range.Smallest = value;
        }
        if (range.Largest < value) {
            range.Largest = value;
        }
    }
    return range;
}

double LinearInterpolate(double x, double x1, double y1, double x2, double y2) {
    if (x2 - x1 == 0) {
        return 0;
    }
    const double slope = (y2 - y1) / (x2 - x1);
    const double intercept = y1 - x1 * slope;
    return x * slope + intercept;
}

std::vector<double> ContourLevels(double zmin, double zmax, Int16 count) {
    if (count < 0) {
        throw RuntimeFault(fault::SubscriptOutOfRange);
    }
    if (count == 1) {
        throw RuntimeFault(fault::DivisionByZero);
    }
    const double step = (zmax - zmin) / (count - 1);
    if (!std::isfinite(step)) {
        throw RuntimeFault(fault::Overflow);
    }
    std::vector<double> levels(static_cast<std::size_t>(count) + 1);
    for (std::size_t k = 1; k < levels.size(); ++k) {
        levels[k] = step * static_cast<double>(k - 1) + zmin;
    }
    return levels;
}

}  // namespace zirvo
