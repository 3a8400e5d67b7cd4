// The grammar of number texts. Called by number_text.cpp and text_fields.cpp.
#include "text/number_grammar.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace zirvo {
namespace {

/// No text that fits into memory has so many digits that a larger exponent could be made good by them.
constexpr std::int64_t LargestExponent = 1'000'000'000'000'000;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Decimal exponent of the first digit of "digits[.digits]" that is not 0; 0 if there is none.
std::int64_t LeadingExponent(std::string_view mantissa) {
    const std::size_t first = mantissa.find_first_of("123456789");
    if (first == std::string_view::npos) {
        return 0;
    }
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    return first < point ? static_cast<std::int64_t>(point - first) - 1 : -static_cast<std::int64_t>(first - point);
}

}  // namespace

bool NumberScanner::Take(char c) {
    const bool digit = IsDigit(c);
    const bool sign = c == '+' || c == '-';
    const bool letter = c == 'E' || c == 'e' || c == 'D' || c == 'd';
    State next = State::Start;  // means: cannot stand here
    switch (state_) {
        case State::Start:
            next = digit ? State::Whole : sign ? State::Sign : c == '.' ? State::Point : next;
            break;
        case State::Sign:
            next = digit ? State::Whole : c == '.' ? State::Point : next;
            break;
        case State::Whole:
            next = digit ? State::Whole : c == '.' ? State::Fraction : letter ? State::ExponentLetter : next;
            break;
        case State::Point:
            next = digit ? State::Fraction : next;
            break;
        case State::Fraction:
            next = digit ? State::Fraction : letter ? State::ExponentLetter : next;
            break;
        case State::ExponentLetter:
            next = digit ? State::Exponent : sign ? State::ExponentSign : next;
            break;
        case State::ExponentSign:
        case State::Exponent:
            next = digit ? State::Exponent : next;
            break;
    }
    if (next == State::Start) {
        return false;
    }
    state_ = next;
    if (next == State::Sign) {
        negative_ = c == '-';
    } else if (next == State::ExponentSign) {
        exponentNegative_ = c == '-';
    } else if (next == State::Exponent) {
        exponent_ = std::min(exponent_ * 10 + (c - '0'), LargestExponent);
    } else if (next != State::ExponentLetter) {
        mantissa_ += c;
    }
    return true;
}

double NumberScanner::Value() const {
    if (mantissa_.find_first_of("123456789") == std::string::npos) {
        return 0;
    }
    const std::int64_t exponent = exponentNegative_ ? -exponent_ : exponent_;
    // The bounds keep the exponent text short; between them the conversion itself rounds to the nearest double.
    const std::int64_t leading = LeadingExponent(mantissa_) + exponent;
    if (leading < -400) {
        return 0;
    }
    const double largest = std::numeric_limits<double>::max();
    double value = 0;
    if (leading > 400) {
        value = largest;
    } else {
        const std::string text = mantissa_ + "e" + std::to_string(exponent);
        const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
        if (result.ec == std::errc::result_out_of_range) {
            value = leading > 0 ? largest : 0;
        }
        value = std::min(value, largest);
    }
    return negative_ && value != 0 ? -value : value;
}

bool ReadWholeNumber(std::string_view text, double& value) {
    NumberScanner scanner;
    for (const char c : text) {
        if (!scanner.Take(c)) {
            return false;
        }
    }
    if (!scanner.IsWhole()) {
        return false;
    }
    value = scanner.Value();
    return true;
}

}  // namespace zirvo
