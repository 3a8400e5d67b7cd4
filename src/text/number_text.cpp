// Numbers as text and back. Called by every screen, file format and report.
#include "text/number_text.h"

#include <cmath>
#include <cstdlib>
#include <utility>

#include "base/decimal15.h"
#include "base/runtime_fault.h"
#include "base/utf8.h"
#include "text/number_grammar.h"

namespace zirvo {
namespace {

/// Most digits that the plain form may need on either side of the point.
constexpr int PlainDigits = 15;

/// The digits without the zeros at their end; `value` is not zero.
std::string SignificantDigits(const Decimal15& value) {
    std::string digits = std::to_string(value.Digits);
    digits.erase(digits.find_last_not_of('0') + 1);
    return digits;
}

std::string ExponentForm(std::string digits, int exponent) {
    if (digits.size() > 1) {
        digits.insert(1, 1, '.');
    }
    const int size = std::abs(exponent);
    digits += exponent < 0 ? "E-" : "E+";
    digits += size < 10 ? "0" : "";
    digits += std::to_string(size);
    return digits;
}

std::string PlainForm(std::string digits, int exponent) {
    if (exponent < 0) {
        digits.insert(0, static_cast<std::size_t>(-exponent) - 1, '0');
        return digits.insert(0, "0.");
    }
    const std::size_t before = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() <= before) {
        digits.resize(before, '0');
    } else {
        digits.insert(before, 1, '.');
    }
    return digits;
}

}  // namespace

double ParseNumberPrefix(std::string_view text) {
    NumberScanner scanner;
    for (const char c : text) {
        if (c == ' ' || c == '\t' || c == '\n') {
            continue;
        }
        if (!scanner.Take(c)) {
            break;
        }
    }
    return scanner.Value();
}

Int16 RoundToInt16(double x) {
    if (!(x > -32770 && x < 32770)) {  // NaN fails too
        throw RuntimeFault(fault::Overflow);
    }
    const double below = std::floor(x);
    const double rest = x - below;  // exact
    long long rounded = static_cast<long long>(below);
    if (rest > 0.5 || (rest == 0.5 && rounded % 2 != 0)) {
        ++rounded;
    }
    return ToInt16(rounded);
}

Int16 StrictInt16(std::string_view text) {
    while (!text.empty() && text.front() == ' ') {
        text.remove_prefix(1);
    }
    while (!text.empty() && text.back() == ' ') {
        text.remove_suffix(1);
    }
    double value = 0;
    if (!ReadWholeNumber(text, value)) {
        throw RuntimeFault(fault::TypeMismatch);
    }
    return RoundToInt16(value);
}

std::string FormatNumberText(double x) {
    const Decimal15 value = ToDecimal15(x);
    if (value.Digits == 0) {
        return "0";
    }
    std::string digits = SignificantDigits(value);
    const int behind = static_cast<int>(digits.size()) - 1 - value.Exponent;  // digits behind the point, if any
    const bool plain = value.Exponent < PlainDigits && behind <= PlainDigits;
    std::string text =
        plain ? PlainForm(std::move(digits), value.Exponent) : ExponentForm(std::move(digits), value.Exponent);
    if (value.Negative) {
        text.insert(0, 1, '-');
    }
    return text;
}

std::string PadLeft(std::string_view text, std::size_t columns) {
    const std::size_t width = CharacterCount(text);
    std::string padded(width < columns ? columns - width : 0, ' ');
    padded += text;
    return padded;
}

std::string PrintedInteger(long long value) {
    return CaptionInteger(value) + " ";
}

std::string CaptionInteger(long long value) {
    std::string text(value < 0 ? 0 : 1, ' ');
    text += std::to_string(value);
    return text;
}

}  // namespace zirvo
