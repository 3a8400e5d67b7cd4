// Numbers with four decimals. Callers: the point grid of a section, the rounding family.
//
// Notation        u the count of ten-thousandths. A double is m * 2^e with m below 2^53.
// Steps           10000 = 625 * 2^4, and m * 625 fits into 63 bits, so that the conversion is one product and one shift
//                 of integers, with the dropped bits at hand for the rounding.
// Special cases   what leaves 64 bits, infinities and NaN are fault 6.
#include "contour/fixed_point4.h"

#include <bit>
#include <cmath>
#include <limits>

#include "base/runtime_fault.h"

namespace zirvo {
namespace {

constexpr std::uint64_t One = FixedPoint4::UnitsPerOne;
constexpr int MantissaBits = 53;
constexpr std::uint64_t LargestMagnitude = std::numeric_limits<std::int64_t>::max();

[[noreturn]] void Overflow() {
    throw RuntimeFault(fault::Overflow);
}

/// The magnitude of any 64-bit integer, -2^63 included.
std::uint64_t Magnitude(std::int64_t units) {
    const auto bits = static_cast<std::uint64_t>(units);
    return units < 0 ? 0 - bits : bits;
}

FixedPoint4 WithSign(std::uint64_t magnitude, bool negative) {
    if (magnitude > LargestMagnitude + (negative ? 1 : 0)) {
        Overflow();
    }
    return FixedPoint4::FromUnits(static_cast<std::int64_t>(negative ? 0 - magnitude : magnitude));
}

std::uint64_t Product(std::uint64_t a, std::uint64_t b) {
    if (a != 0 && b > std::numeric_limits<std::uint64_t>::max() / a) {
        Overflow();
    }
    return a * b;
}

std::uint64_t Sum(std::uint64_t a, std::uint64_t b) {
    if (a > std::numeric_limits<std::uint64_t>::max() - b) {
        Overflow();
    }
    return a + b;
}

/// quotient, or one more: what the remainder (of the divisor) asks for, a tie going to the even number.
std::uint64_t RoundHalfEven(std::uint64_t quotient, std::uint64_t remainder, std::uint64_t divisor) {
    const std::uint64_t rest = divisor - remainder;
    return quotient + (remainder > rest || (remainder == rest && quotient % 2 == 1) ? 1 : 0);
}

}  // namespace

FixedPoint4 FixedPoint4::FromDouble(double x) {
    if (!std::isfinite(x)) {
        Overflow();
    }
    int exponent = 0;
    const double fraction = std::frexp(std::fabs(x), &exponent);  // 0.5 <= fraction < 1, or 0
    const auto mantissa = static_cast<std::uint64_t>(std::ldexp(fraction, MantissaBits));
    const std::uint64_t scaled = mantissa * 625;
    const int shift = exponent - MantissaBits + 4;
    if (scaled == 0 || shift <= -64) {  // below 2^63 / 2^64
        return {};
    }
    if (shift >= 0) {
        if (shift >= 64) {
            Overflow();
        }
        return WithSign(Product(scaled, std::uint64_t{1} << shift), x < 0);
    }
    const std::uint64_t divisor = std::uint64_t{1} << -shift;
    return WithSign(RoundHalfEven(scaled / divisor, scaled % divisor, divisor), x < 0);
}

double FixedPoint4::ToDouble() const {
    const std::uint64_t magnitude = Magnitude(units_);
    if (magnitude <= std::uint64_t{1} << MantissaBits) {  // both operands exact: one rounding
        return static_cast<double>(units_) / static_cast<double>(UnitsPerOne);
    }
    const std::uint64_t whole = magnitude / One;
    const int spare =
        MantissaBits -
        static_cast<int>(std::bit_width(whole));  // bits of the double that the whole part leaves: 3 to 13
    const std::uint64_t part = (magnitude % One) << spare;
    const std::uint64_t bits = RoundHalfEven((whole << spare) + part / One, part % One, One);
    const double value = std::ldexp(static_cast<double>(bits), -spare);
    return units_ < 0 ? -value : value;
}

std::int64_t FixedPoint4::Int() const {
    return units_ / UnitsPerOne - (units_ % UnitsPerOne < 0 ? 1 : 0);
}

FixedPoint4 operator+(FixedPoint4 a, FixedPoint4 b) {
    const std::int64_t x = a.Units();
    const std::int64_t y = b.Units();
    if (y > 0 ? x > std::numeric_limits<std::int64_t>::max() - y : x < std::numeric_limits<std::int64_t>::min() - y) {
        Overflow();
    }
    return FixedPoint4::FromUnits(x + y);
}

FixedPoint4 operator-(FixedPoint4 a, FixedPoint4 b) {
    const std::int64_t x = a.Units();
    const std::int64_t y = b.Units();
    if (y > 0 ? x < std::numeric_limits<std::int64_t>::min() + y : x > std::numeric_limits<std::int64_t>::max() + y) {
        Overflow();
    }
    return FixedPoint4::FromUnits(x - y);
}

FixedPoint4 operator*(FixedPoint4 a, FixedPoint4 b) {
    const std::uint64_t x = Magnitude(a.Units());
    const std::uint64_t y = Magnitude(b.Units());
    // (xw * 10000 + xf) * (yw * 10000 + yf) / 10000, the only fraction in the last of four terms.
    const std::uint64_t whole =
        Sum(Product(Product(x / One, y / One), One), Sum(Product(x / One, y % One), Product(x % One, y / One)));
    const std::uint64_t last = (x % One) * (y % One);
    return WithSign(RoundHalfEven(Sum(whole, last / One), last % One, One), (a.Units() < 0) != (b.Units() < 0));
}

FixedPoint4 Abs(FixedPoint4 value) {
    return WithSign(Magnitude(value.Units()), false);
}

int Sgn(FixedPoint4 value) {
    return value.Units() < 0 ? -1 : value.Units() > 0 ? 1 : 0;
}

}  // namespace zirvo
