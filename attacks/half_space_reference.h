// Integrals of the half-space for the reference: I(n, k) = integral of a J1(xi a) Jn(xi r) exp(-xi z) xi^k.
#pragma once
#include "two_part.h"

namespace zirvo::attack {

struct ReferenceIntegrals {
    Two I[4][3];  ///< [n][k + 1], k = -1, 0, 1
};

/// @param a  radius of the circle; @param r, z  place; not on the edge at z = 0. At z = 0 I(0, 0) and I(2, 0) are the
/// exact jumps and k = 1 is left out.
ReferenceIntegrals HalfSpaceIntegrals(Two a, Two r, Two z);

}  // namespace zirvo::attack
