// Columns of the reports. Called by the reports and by the input reader.
//
// Notation        m the magnitude of a value, e its decimal exponent, m = s * 10^(e - 4) with 1E4 <= s < 1E5.
// Steps           a report holds hundreds of thousands of numbers, so s is first worked out in plain double. Through
//                 the table of powers and the product it is off by less than 1E-8. Where it lies further than 1E-6 from
//                 the middle between two integers, its rounding is settled, and it is the rounding of the 15 digits as
//                 well (they are within 1E-9 of it). Everything else takes the slow and exact road of base/decimal15.h.
//                 Coordinates likewise, with m * 1000 in place of s.
#include "solver/io/report_columns.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "base/decimal15.h"
#include "text/number_text.h"

namespace zirvo::solver {
namespace {

constexpr double NearHalf = 1e-6;
constexpr int LargestPower = 110;

/// 10^i for i from -LargestPower, to 2E-14 relative.
constexpr std::array<double, 2 * LargestPower + 1> Powers = [] {
    std::array<double, 2 * LargestPower + 1> powers{};
    double power = 1;
    for (std::size_t i = 0; i <= LargestPower; ++i) {
        powers[LargestPower + i] = power;
        powers[LargestPower - i] = 1 / power;
        power *= 10;
    }
    return powers;
}();

double PowerOfTen(int n) {
    return Powers.data()[n + LargestPower];
}

/// Writes `count` digits so that they end before `end`; gives where they begin.
char* WriteDigitsBefore(char* end, std::uint32_t digits, int count) {
    for (int i = 0; i < count; ++i) {
        *--end = static_cast<char>('0' + digits % 10);
        digits /= 10;
    }
    return end;
}

/// The integer next to `scaled`, or false where that is too close to call.
bool RoundSettled(double scaled, std::uint32_t& rounded) {
    rounded = static_cast<std::uint32_t>(scaled);
    const double rest = scaled - rounded;
    if (std::fabs(rest - 0.5) < NearHalf) {
        return false;
    }
    rounded += rest > 0.5 ? 1 : 0;
    return true;
}

/// Five digits of a magnitude from SmallestPrinted to LargestPrinted, and the exponent of the first.
bool FiveDigits(double magnitude, std::uint32_t& digits, int& exponent) {
    const int binary = static_cast<int>(std::bit_cast<std::uint64_t>(magnitude) >> 52) - 1023;
    exponent = static_cast<int>(std::floor(binary * 0.30103));
    double scaled = magnitude * PowerOfTen(4 - exponent);
    if (scaled >= 1e5) {
        ++exponent;
    } else if (scaled < 1e4) {
        --exponent;
    }
    scaled = magnitude * PowerOfTen(4 - exponent);
    if (!RoundSettled(scaled, digits)) {
        return false;
    }
    if (digits == 100000) {
        digits = 10000;
        ++exponent;
    }
    return digits >= 10000 && digits < 100000;
}

/// "1234.567" so that it ends before `end`, if it fits the column with a blank in front; else false.
bool WriteThreeDecimals(double x, char* end) {
    const double magnitude = std::fabs(x) * 1000;
    const double limit = x < 0 ? 999999 : 9999999;
    std::uint32_t rounded = 0;
    if (!(magnitude < limit) || !RoundSettled(magnitude, rounded)) {
        return false;
    }
    char* p = WriteDigitsBefore(end, rounded % 1000, 3);
    *--p = '.';
    std::uint32_t whole = rounded / 1000;
    do {
        *--p = static_cast<char>('0' + whole % 10);
        whole /= 10;
    } while (whole > 0);
    if (x < 0 && rounded > 0) {
        *--p = '-';
    }
    return true;
}

void WriteTextBefore(char* end, const std::string& text) {
    text.copy(end - text.size(), text.size());
}

/// x rounded to so many significant digits.
double RoundedTo(double x, int digits) {
    const std::string text = ScientificText(x, digits - 1);
    double value = x;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

/// "1.5E+14" for 1.5E14: the exponent form of at most `digits` digits without zeros at the end of its mantissa.
std::string ShortExponentForm(double x, int digits) {
    const std::string text = ScientificText(x, digits - 1);
    const std::size_t exponent = text.find('E');
    std::size_t end = exponent;
    if (text.find('.') != std::string::npos) {
        while (text[end - 1] == '0') {
            --end;
        }
        end -= text[end - 1] == '.' ? 1 : 0;
    }
    return text.substr(0, end) + text.substr(exponent);
}

}  // namespace

std::string CoordinateText(double x) {
    for (int decimals = 3; decimals >= 0; --decimals) {
        std::string text = std::fabs(x) < 1e9 ? FixedText(x, decimals) : std::string(CoordinateWidth, '9');
        if (text.size() < CoordinateWidth) {
            return text;
        }
    }
    std::string text = ScientificText(x, 1);
    return text.size() < CoordinateWidth ? text : std::string();
}

bool FitsCoordinateColumn(double x) {
    return std::fabs(x) < 1e9 || !CoordinateText(x).empty();
}

void WritePointColumns(const Point& point, char* row) {
    char* end = row + LayerWidth;
    WriteTextBefore(end, std::to_string(point.Layer));
    for (const double coordinate : {point.X, point.Y, point.Z}) {
        end += CoordinateWidth;
        if (!WriteThreeDecimals(coordinate, end)) {
            WriteTextBefore(end, CoordinateText(coordinate));
        }
    }
}

void WriteValueColumn(double value, char* end) {
    const double magnitude = std::fabs(value);
    if (!(magnitude >= SmallestPrinted)) {
        end[-1] = '0';
        return;
    }
    std::uint32_t digits = 0;
    int exponent = 0;
    if (!FiveDigits(magnitude, digits, exponent)) {
        std::array<char, 25> text{};
        const std::size_t length = WriteScientific(value, 4, text.data());
        std::memcpy(end - length, text.data(), length);
        return;
    }
    char* p = WriteDigitsBefore(end, static_cast<std::uint32_t>(std::abs(exponent)), 2);
    *--p = exponent < 0 ? '-' : '+';
    *--p = 'E';
    p = WriteDigitsBefore(p, digits % 10000, 4);
    *--p = '.';
    *--p = static_cast<char>('0' + digits / 10000);
    if (value < 0) {
        *--p = '-';
    }
}

std::string FittedNumberText(double x, std::size_t columns) {
    std::string text = FormatNumberText(x);
    for (int digits = 15; digits > 0 && text.size() > columns; --digits) {
        text = FormatNumberText(RoundedTo(x, digits));
        if (text.size() > columns) {
            text = ShortExponentForm(x, digits);
        }
    }
    return text;
}

}  // namespace zirvo::solver
