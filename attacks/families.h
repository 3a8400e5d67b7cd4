// Random pavements of four families, each harder than the one before.
#pragma once
#include <cstdint>
#include <random>
#include <string_view>
#include <vector>

#include "solver/problem.h"

namespace zirvo::attack {

enum class Family {
    Realistic,  ///< roads and runways: 2 to 8 layers, wheels with braking, slip, points on both sides, 20 m away
    Difficult,  ///< skins of 0.1 cm, moduli 1E5 apart, nu 0.5, slip 0.99, up to 100 layers
    Extreme,    ///< skins of 0.001 cm, moduli 1E8 apart, circles of 300 cm, opposite loads 0.01 cm apart
    Films,      ///< soft films between stiff plates, and far points on plates that float on something soft
};
inline constexpr int FamilyCount = 4;

std::string_view NameOf(Family family);

using Random = std::mt19937_64;

/// Uniform in low..high; of the logarithm.
double Between(Random& random, double low, double high);
double LogBetween(Random& random, double low, double high);

solver::Problem RandomProblem(Family family, Random& random);

/// So many points round those of a problem that the solver takes nodes in r and in z: lines at the depths of some of
/// them and many depths between two of one layer.
std::vector<solver::Point> CrowdFor(const solver::Problem& problem, Random& random);

/// Adds so many wheels whose radii are all different that the solver takes nodes between the radii where layers slip,
/// and leaves some of the points only: the reference works for each radius anew.
void AddWheels(solver::Problem& problem, Random& random);

/// Makes the first layer a skin and sets points near the edges of the loads, in it and just below it: exactly on the
/// edge, or as little off it as that a sum over wavenumbers is very long.
void SetEdgePoints(solver::Problem& problem, Random& random);

/// Beyond so many nodes of the reference a point is too dear for the attack; one of a few near an edge.
inline constexpr double MostNodes = 9000;
inline constexpr double MostEdgeNodes = 35000;

/// Nodes that the reference needs for a point, roughly; infinite where its values jump.
double NodesFor(const solver::Problem& problem, const solver::Point& point);

/// Numbers with three digits, so that finds read well.
double Rounded(double x);

}  // namespace zirvo::attack
