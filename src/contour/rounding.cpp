// Decimal rounding of numbers with four decimals: the magnitude is rounded and the sign put back.
#include "contour/rounding.h"

#include <cstdlib>

#include "base/runtime_fault.h"

namespace zirvo {
namespace {

/// 10^exponent for an exponent of 0 and more; fault 6 from 10^15 on, which FixedPoint4 does not hold.
FixedPoint4 PowerOfTen(int exponent) {
    if (exponent > 14) {
        throw RuntimeFault(fault::Overflow);
    }
    std::int64_t units = FixedPoint4::UnitsPerOne;
    for (int i = 0; i < exponent; ++i) {
        units *= 10;
    }
    return FixedPoint4::FromUnits(units);
}

double Signed(FixedPoint4 value, std::int64_t whole) {
    return static_cast<double>(Sgn(value)) * static_cast<double>(whole);
}

/// The family: `added` is what goes onto the scaled magnitude before the floor.
double RoundAdding(FixedPoint4 value, Int16 digits, FixedPoint4 added) {
    const FixedPoint4 power = PowerOfTen(std::abs(int{digits}));
    const FixedPoint4 magnitude = Abs(value);
    if (digits >= 0) {
        const FixedPoint4 scaled = magnitude * power;
        return scaled.IsWhole() ? value.ToDouble() : Signed(value, (scaled + added).Int()) / power.ToDouble();
    }
    const FixedPoint4 scaled = FixedPoint4::FromDouble(magnitude.ToDouble() / power.ToDouble());
    const FixedPoint4 below = FixedPoint4::FromUnits(scaled.Int() * FixedPoint4::UnitsPerOne) * power;
    const std::int64_t places = magnitude <= below ? scaled.Int() : (scaled + added).Int();
    return Signed(value, places) * power.ToDouble();
}

}  // namespace

double Round(FixedPoint4 value, Int16 digits) {
    return RoundAdding(value, digits, FixedPoint4::FromUnits(5000));
}

double RoundUp(FixedPoint4 value, Int16 digits) {
    return RoundAdding(value, digits, FixedPoint4::FromUnits(9000));
}

double RoundDown(FixedPoint4 value, Int16 digits) {
    return RoundAdding(value, digits, {});
}

}  // namespace zirvo
