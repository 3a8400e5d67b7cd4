// Tables of special functions and quadrature nodes, made once when they are first asked for.
#pragma once
#include <array>

#include "solver/engine.h"

namespace zirvo::solver {

/// Taylor and asymptotic coefficients of J0..J3. Source of the values at the centres: Boost.Math's J0 and J1; of the
/// higher orders Miller's backward recurrence on them; of the asymptotic terms Abramowitz and Stegun 9.2.9, 9.2.10.
const BesselTable& Bessels();

/// Parts of the nodes of the sums over wavenumbers.
const NodeTable& NodeParts();

/// Gauss nodes of the angular sums, 16 to a panel (Boost.Math).
const AngleTable& Angles();

/// The nodes on [low, high], descending from high to low.
std::array<double, ChebyshevCount> ChebyshevNodes(double low, double high);

/// The nodes on -1..1, from high to low, and their barycentric factors.
struct ChebyshevTable {
    alignas(64) std::array<double, ChebyshevCount> X, Lambda;
};
const ChebyshevTable& Chebyshevs();

/// Weights that turn values at those nodes into the value of the interpolating polynomial at x (barycentric form).
std::array<double, ChebyshevCount> ChebyshevWeights(double low, double high, double x);

/// Rows that turn values at the nodes into the two highest Chebyshev coefficients: what they are is what interpolation
/// still misses, times about the rate of convergence.
const std::array<std::array<double, ChebyshevCount>, 2>& ChebyshevTail();

}  // namespace zirvo::solver
