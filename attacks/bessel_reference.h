// Bessel functions of about 28 digits for the reference.
#pragma once
#include "two_part.h"

namespace zirvo::attack {

/// J0 .. J3 at x >= 0, absolute error below 1E-27.
void BesselOrders(Two x, Two out[4]);

}  // namespace zirvo::attack
