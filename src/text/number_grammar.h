// The one grammar of number texts, shared by cells and file fields; private to the shell's text rules.
#pragma once
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zirvo {

/// Takes characters one after the other as long as they form the beginning of a number: an optional sign, digits, one
/// point, an optional exponent with E, D, e or d.
class NumberScanner {
public:
    /// False if the character cannot stand here; it is then not taken.
    bool Take(char c);

    /// True if what was taken is a number as it stands: at least one digit, and no exponent letter without its digits.
    bool IsWhole() const { return state_ == State::Whole || state_ == State::Fraction || state_ == State::Exponent; }

    /// The number in front of what was taken; an exponent without digits is none, no digit at all gives 0. A magnitude
    /// beyond a double is the largest double, one below it is 0 or denormal. Never negative zero.
    double Value() const;

private:
    enum class State { Start, Sign, Whole, Point, Fraction, ExponentLetter, ExponentSign, Exponent };

    State state_ = State::Start;
    bool negative_ = false;
    std::string mantissa_;  // digits and point
    bool exponentNegative_ = false;
    std::int64_t exponent_ = 0;
};

/// The number that the whole text is; false if it is none.
bool ReadWholeNumber(std::string_view text, double& value);

}  // namespace zirvo
