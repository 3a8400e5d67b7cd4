// The small numeric operations of the contour view: smaller and larger of two, range of an array, straight line,
// levels.
#pragma once
#include <span>
#include <vector>

#include "base/int16.h"

namespace zirvo {

/// The smaller of two; hot: three calls for each cell that the tracers look into.
constexpr double Min(double a, double b) {
    return a >= b ? b : a;
}

/// The larger of two.
constexpr double Max(double a, double b) {
    return a >= b ? a : b;
}

/// Smallest and largest of an array.
struct ValueRange {
    double Smallest = 0;
    double Largest = 0;

    bool operator==(const ValueRange&) const = default;
};

/// The range of entries 1 to `count`; entry 1 counts also where `count` is less than 1.
/// @param values  1-based: entry 0 is unused. Fault 9 if there is no entry 1, or none of the number `count`.
ValueRange ArrayRange(std::span<const double> values, int count);

/// The ordinate at x of the straight line through (x1, y1) and (x2, y2), as x * slope + intercept; 0 if x1 equals x2.
/// Not the same to the last bit as a form relative to x1: the ends can be missed by an ulp.
double LinearInterpolate(double x, double x1, double y1, double x2, double y2);

/// The contour levels: `count` levels, equally spaced, the first at zmin, the last at zmax up to rounding (it may lie
/// an ulp above). 1-based: entry 0 is 0 and unused. Fault 11 for a count of 1, 9 for one below 0, 6 if the range is
/// beyond a double.
std::vector<double> ContourLevels(double zmin, double zmax, Int16 count);

}  // namespace zirvo
