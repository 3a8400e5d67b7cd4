// Pavements and helpers that several tests of the theory share.
#pragma once
#include <array>
#include <numbers>
#include <vector>

#include "solver/engine.h"
#include "solver/solve.h"

namespace zirvo::solver {

inline constexpr double Pi = std::numbers::pi;

/// Three layers, E 5000, 300, 50 MPa, nu 0.35, 0.35, 0.40, h 15, 30 cm, with one slip rate at both interfaces; no loads
/// yet.
Problem ClassicRoad(double slip);

/// A unit of load: 49 kN on radius 15 cm at the origin [MPa cm2].
Load Wheel();

/// The values at one point alone.
PointResult At(Problem problem, const Point& point);

/// The engines of this machine, and the one with plain arrays.
std::vector<const Engine*> AllEngines();

/// Largest difference of two results in the three groups, over 1E-9 of the group's largest value plus 1E-13 units of
/// the load: below 1 where they agree as promised.
double Disagreement(const Problem& problem, std::size_t point, const PointResult& a, const PointResult& b);

}  // namespace zirvo::solver
