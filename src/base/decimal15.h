// A double as 15 significant decimal digits: the ground of every number text of the program and of its reports.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>

namespace zirvo {

/// sign * Digits * 10^(Exponent - 14), with Digits either 0 or from 1E14 to 1E15 - 1, so that Exponent is the decimal
/// exponent of the first digit. Zero has Digits 0, Exponent 0 and no sign.
struct Decimal15 {
    bool Negative = false;
    std::uint64_t Digits = 0;
    int Exponent = 0;

    bool operator==(const Decimal15&) const = default;
};

/// The 15 digits nearest to the exact value of x. Infinities and NaN are fault 6.
Decimal15 ToDecimal15(double x);

/// x in fixed form with `decimals` digits behind the point (0 to 15), rounded half away from zero on the 15 decimal
/// digits: 2.675 with 2 gives "2.68". A value that rounds to zero has no minus sign. Infinities and NaN are fault 6.
std::string FixedText(double x, int decimals);

/// x with one digit before the point and `decimals` (0 to 14) behind it, "E", a sign, at least two exponent digits:
/// "-1.2346E-01"; rounded half away from zero on the 15 decimal digits. Zero is "0.0000E+00". Infinities and NaN are
/// fault 6.
std::string ScientificText(double x, int decimals);

/// As ScientificText, but written to `out` without allocation; returns the length. `out` must have room for 25
/// characters. The reports are made of millions of these.
std::size_t WriteScientific(double x, int decimals, char* out);

}  // namespace zirvo
