// Numbers with exactly four decimals: the grid positions of a section, and what the rounding family works on.
#pragma once
#include <compare>
#include <cstdint>

namespace zirvo {

/// A 64-bit integer that counts ten-thousandths. All arithmetic is exact or rounded once; what leaves the 64 bits is
/// fault 6.
class FixedPoint4 {
public:
    static constexpr std::int64_t UnitsPerOne = 10000;

    constexpr FixedPoint4() = default;

    /// The number of `units` ten-thousandths.
    static constexpr FixedPoint4 FromUnits(std::int64_t units) {
        FixedPoint4 value;
        value.units_ = units;
        return value;
    }
    /// The ten-thousandth nearest to the exact binary value of x; only a true tie goes to the even neighbour.
    static FixedPoint4 FromDouble(double x);

    constexpr std::int64_t Units() const { return units_; }

    /// The nearest double.
    double ToDouble() const;

    /// The largest whole number not above the value.
    std::int64_t Int() const;

    /// True if Int() equals the value.
    bool IsWhole() const { return units_ % UnitsPerOne == 0; }

    // clang-tidy 14 takes the zero inside for a pointer.
    friend constexpr auto operator<=>(FixedPoint4, FixedPoint4) = default;  // NOLINT(modernize-use-nullptr)

private:
    std::int64_t units_ = 0;
};

FixedPoint4 operator+(FixedPoint4 a, FixedPoint4 b);
FixedPoint4 operator-(FixedPoint4 a, FixedPoint4 b);
/// The product, rounded to the nearest ten-thousandth, a tie to the even one.
FixedPoint4 operator*(FixedPoint4 a, FixedPoint4 b);

/// The magnitude.
FixedPoint4 Abs(FixedPoint4 value);

/// -1, 0 or 1.
int Sgn(FixedPoint4 value);

}  // namespace zirvo
