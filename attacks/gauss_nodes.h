// Gauss-Legendre nodes of the reference, made in two-part numbers.
#pragma once
#include <array>

#include "two_part.h"

namespace zirvo::attack {

inline constexpr std::size_t GaussCount = 20;

struct GaussNodes {
    std::array<Two, GaussCount> X;       ///< on 0..1
    std::array<Two, GaussCount> Weight;  ///< their sum is 1
};

const GaussNodes& Gauss();

}  // namespace zirvo::attack
