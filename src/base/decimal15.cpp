// A double as 15 decimal digits, and the fixed and scientific forms that are rounded on those digits.
// Callers: FormatNumberText, the solver's reports, the number formats of the maps.
//
// Notation        x the double, D its 15 digits as an integer, e the decimal exponent of the first digit:
//                 |x| ~ D * 10^(e - 14).
// Steps           1. The shortest digits that give x back are taken first, because they come fast. Up to 15 of them are
//                    the answer: two decimals of 15 digits lie further apart than two neighbouring doubles, so that the
//                    one next to x is the only one that x can be read from.
//                 2. With 16 or 17 of them, those behind the 15th are rounded away. That is right unless they are
//                    exactly one half: were a half between x and the shortest digits, the half would be shorter or
//                    nearer, and so be the shortest digits itself.
//                 3. In that case, and for denormal values, where step 1 does not hold, the exact expansion decides.
// Special cases   an exact tie of the binary value between two decimals of 15 digits goes to the even one, as the
//                 printing functions of the platforms do. Only the second rounding, on the digits, goes away from zero.
#include "base/decimal15.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "base/runtime_fault.h"

namespace zirvo {
namespace {

constexpr int DigitCount = 15;

constexpr std::array<std::uint64_t, DigitCount + 1> PowersOfTen = [] {
    std::array<std::uint64_t, DigitCount + 1> powers{};
    powers[0] = 1;
    for (std::size_t i = 1; i < powers.size(); ++i) {
        powers[i] = powers[i - 1] * 10;
    }
    return powers;
}();

std::uint64_t PowerOfTen(int n) {
    return PowersOfTen[static_cast<std::size_t>(n)];
}

struct ScannedDigits {
    std::uint64_t Digits;
    int Count;
    int Exponent;
};

/// "1.2345e-05" as digits, their number, and the exponent of the first one.
ScannedDigits ScanScientific(const char* p, const char* end) {
    ScannedDigits scanned{0, 0, 0};
    for (; p != end && *p != 'e'; ++p) {
        if (*p != '.') {
            scanned.Digits = scanned.Digits * 10 + static_cast<std::uint64_t>(*p - '0');
            ++scanned.Count;
        }
    }
    ++p;
    const bool negative = *p == '-';
    for (++p; p != end; ++p) {
        scanned.Exponent = scanned.Exponent * 10 + (*p - '0');
    }
    if (negative) {
        scanned.Exponent = -scanned.Exponent;
    }
    return scanned;
}

/// The 15 digits of the exact expansion; `magnitude` is finite and above 0.
Decimal15 ExactDigits(double magnitude) {
    std::array<char, 32> text{};
    const auto result =
        std::to_chars(text.data(), text.data() + text.size(), magnitude, std::chars_format::scientific, DigitCount - 1);
    const ScannedDigits scanned = ScanScientific(text.data(), result.ptr);
    return {false, scanned.Digits, scanned.Exponent};
}

/// The 15 digits of a finite magnitude above 0.
Decimal15 NearestDigits(double magnitude) {
    if (magnitude < std::numeric_limits<double>::min()) {
        return ExactDigits(magnitude);
    }
    std::array<char, 32> text{};
    const auto result = std::to_chars(text.data(), text.data() + text.size(), magnitude, std::chars_format::scientific);
    ScannedDigits scanned = ScanScientific(text.data(), result.ptr);
    const int excess = scanned.Count - DigitCount;
    if (excess <= 0) {
        return {false, scanned.Digits * PowerOfTen(-excess), scanned.Exponent};
    }
    const std::uint64_t unit = PowerOfTen(excess);
    const std::uint64_t rest = scanned.Digits % unit;
    if (2 * rest == unit) {
        return ExactDigits(magnitude);
    }
    std::uint64_t digits = scanned.Digits / unit + (2 * rest > unit ? 1 : 0);
    if (digits == PowerOfTen(DigitCount)) {
        digits /= 10;
        ++scanned.Exponent;
    }
    return {false, digits, scanned.Exponent};
}

/// The first `keep` (1 to 15) of the digits, rounded half away from zero; a carry moves the exponent.
Decimal15 KeepDigits(Decimal15 value, int keep) {
    const std::uint64_t unit = PowerOfTen(DigitCount - keep);
    value.Digits = (value.Digits + unit / 2) / unit * unit;
    if (value.Digits == PowerOfTen(DigitCount)) {
        value.Digits /= 10;
        ++value.Exponent;
    }
    return value;
}

void RequireDecimals(int decimals, int most) {
    if (decimals < 0 || decimals > most) {
        throw RuntimeFault(fault::InvalidCall);
    }
}

/// The `n` lowest decimal digits of `digits`, the highest of them first.
char* WriteDigits(char* out, std::uint64_t digits, int n) {
    for (int i = n - 1; i >= 0; --i) {
        out[i] = static_cast<char>('0' + digits % 10);
        digits /= 10;
    }
    return out + n;
}

}  // namespace

Decimal15 ToDecimal15(double x) {
    if (!std::isfinite(x)) {
        throw RuntimeFault(fault::Overflow);
    }
    if (x == 0) {
        return {};
    }
    Decimal15 value = NearestDigits(std::fabs(x));
    value.Negative = x < 0;
    return value;
}

std::string FixedText(double x, int decimals) {
    RequireDecimals(decimals, DigitCount);
    Decimal15 value = ToDecimal15(x);
    const int keep = value.Exponent + 1 + decimals;  // digits down to the last one shown
    if (keep < 0) {
        value = {};
    } else if (keep == 0) {  // nothing but the carry of the first digit can be left
        value = 2 * value.Digits >= PowerOfTen(DigitCount)
                    ? Decimal15{value.Negative, PowerOfTen(DigitCount - 1), value.Exponent + 1}
                    : Decimal15{};
    } else if (keep < DigitCount) {
        value = KeepDigits(value, keep);
    }
    std::array<char, DigitCount> digits{};
    WriteDigits(digits.data(), value.Digits, DigitCount);
    const auto digitAt = [&](int place) {  // the digit of 10^place
        const int index = value.Exponent - place;
        return index >= 0 && index < DigitCount ? digits[static_cast<std::size_t>(index)] : '0';
    };
    std::string text = value.Negative ? "-" : "";
    for (int place = value.Exponent > 0 ? value.Exponent : 0; place >= 0; --place) {
        text += digitAt(place);
    }
    if (decimals > 0) {
        text += '.';
        for (int place = -1; place >= -decimals; --place) {
            text += digitAt(place);
        }
    }
    return text;
}

std::size_t WriteScientific(double x, int decimals, char* out) {
    RequireDecimals(decimals, DigitCount - 1);
    Decimal15 value = ToDecimal15(x);
    if (value.Digits != 0) {
        value = KeepDigits(value, decimals + 1);
    }
    char* p = out;
    if (value.Negative) {
        *p++ = '-';
    }
    char* const first = p;
    p = WriteDigits(first + 1, value.Digits / PowerOfTen(DigitCount - 1 - decimals), decimals + 1);
    first[0] = first[1];  // the digits were written one place to the right, to leave room for the point
    if (decimals > 0) {
        first[1] = '.';
    } else {
        --p;
    }
    *p++ = 'E';
    *p++ = value.Exponent < 0 ? '-' : '+';
    const int exponent = value.Exponent < 0 ? -value.Exponent : value.Exponent;
    p = WriteDigits(p, static_cast<std::uint64_t>(exponent), exponent < 100 ? 2 : 3);
    return static_cast<std::size_t>(p - out);
}

std::string ScientificText(double x, int decimals) {
    std::array<char, 25> text{};
    return std::string(text.data(), WriteScientific(x, decimals, text.data()));
}

}  // namespace zirvo
