// Tables of special functions and quadrature nodes, made once when they are first asked for.
#pragma once
#include <array>

#include "solver/engine.h"

namespace zirvo::solver {

/// Taylor and asymptotic coefficients of J0..J3. Source of the values at the centres: Boost.Math's J0 and J1; of the
/// higher orders Miller's backward recurrence on them; of the asymptotic terms Abramowitz and Stegun 9.2.9, 9.2.10.
const BesselTable& Bessels();

/// Gauss nodes of the angular sums, 16 to a panel (Boost.Math).
const AngleTable& Angles();

/// Interpolation on Chebyshev nodes of the first kind, x_k = cos((k + 1/2) pi / 16) on -1..1.
inline constexpr int ChebyshevCount = 16;

/// The nodes on [low, high], descending from high to low.
std::array<double, ChebyshevCount> ChebyshevNodes(double low, double high);

/// Weights that turn values at those nodes into the value of the interpolating polynomial at x (barycentric form).
std::array<double, ChebyshevCount> ChebyshevWeights(double low, double high, double x);

/// Rows that turn values at the nodes into the two highest Chebyshev coefficients: what they are is what interpolation
/// still misses, times about the rate of convergence.
const std::array<std::array<double, ChebyshevCount>, 2>& ChebyshevTail();

}  // namespace zirvo::solver
