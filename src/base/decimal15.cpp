// A double as 15 decimal digits, and the fixed and scientific forms that are rounded on those digits.
// Callers: FormatNumberText, the solver's reports, the number formats of the maps.
//
// Notation        x the double, D its 15 digits as an integer, e the decimal exponent of the first digit:
//                 |x| ~ D * 10^(e - 14).
// Steps           std::to_chars gives the 15 digits of the exact binary value; every shorter form is rounded on those.
// Special cases   an exact tie of the binary value between two decimals of 15 digits goes to the even one, as in the
//                 printing functions of all platforms. Only the second rounding, on the digits, goes away from zero.
#include "base/decimal15.h"

#include <array>
#include <charconv>
#include <cmath>

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

/// The 15 digits of a finite magnitude above 0.
Decimal15 NearestDigits(double magnitude) {
    std::array<char, 32> text{};
    char* const begin = text.data();
    const auto result =
        std::to_chars(begin, begin + text.size(), magnitude, std::chars_format::scientific, DigitCount - 1);
    Decimal15 value;
    value.Digits = static_cast<std::uint64_t>(begin[0] - '0');
    const char* p = begin + 2;  // behind the point
    for (int i = 1; i < DigitCount; ++i) {
        value.Digits = value.Digits * 10 + static_cast<std::uint64_t>(*p++ - '0');
    }
    ++p;  // the letter of the exponent
    std::from_chars(*p == '+' ? p + 1 : p, result.ptr, value.Exponent);
    return value;
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
