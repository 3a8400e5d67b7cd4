// Numbers as text and back: the rules on which every file format and every cell of the screens rest.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

#include "base/int16.h"

namespace zirvo {

/// The number that a cell, box or caption begins with. Blanks, tabs and line feeds are skipped anywhere (a carriage
/// return and U+3000 are not); then an optional sign, digits, one point, an optional exponent with E, D, e or d that
/// has digits; the rest is ignored. No number at all is 0. A magnitude beyond a double is the largest double.
double ParseNumberPrefix(std::string_view text);

/// The nearest integer, ties to the even neighbour. Fault 6 if the rounded value is outside -32768 to 32767 (also NaN).
Int16 RoundToInt16(double x);

/// The strict reading of a LayerNumber cell: blanks at both ends, then sign, digits, point, exponent as a whole,
/// rounded half to even. Fault 13 if it does not read as a number, fault 6 outside 16 bits.
Int16 StrictInt16(std::string_view text);

/// x with up to 15 significant digits, no trailing zeros, a zero before a leading point: plain form while it needs at
/// most 15 digits before and 15 behind the point, otherwise mantissa, "E", sign, at least two digits ("1E+15").
/// Negative zero is "0". Infinities and NaN are fault 6.
std::string FormatNumberText(double x);

/// Blanks in front until the text is `columns` characters wide; a longer text stays whole.
std::string PadLeft(std::string_view text, std::size_t columns);

/// The integer of files: a blank (or the minus sign), the digits, a blank: " 2 ".
std::string PrintedInteger(long long value);

/// The integer of captions: a blank (or the minus sign) and the digits: " 2".
std::string CaptionInteger(long long value);

}  // namespace zirvo
