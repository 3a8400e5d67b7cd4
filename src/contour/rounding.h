// Decimal rounding of numbers with four decimals. Callers: the point grid of a section (Round); none of RoundUp and
// RoundDown, which complete the family.
#pragma once
#include "base/int16.h"
#include "contour/fixed_point4.h"

namespace zirvo {

/// The value rounded half away from zero to `digits` places: behind the point if positive, before it if negative. A
/// value that needs no rounding comes back as it is, so always with 4 digits and more. Fault 6 where 10^|digits| or
/// |value| * 10^digits leaves FixedPoint4.
double Round(FixedPoint4 value, Int16 digits);

/// The same with nine tenths of the last place added in place of a half. No ceiling, and meant so: what lies less than
/// a tenth of the last place above it goes down.
double RoundUp(FixedPoint4 value, Int16 digits);

/// The same with nothing added: towards zero.
double RoundDown(FixedPoint4 value, Int16 digits);

}  // namespace zirvo
