// The share of layer 1's own half-space, in closed form: the part of the field that decays too slowly near the surface
// to be summed over wavenumbers.
#pragma once
#include <array>

#include "solver/engine.h"

namespace zirvo::solver {

/// A point within this share of the radius from the edge of a circle, at z = 0, counts as on the edge.
inline constexpr double EdgeShare = 1e-6;
/// There, what a shear load makes infinite is the mean of the values at the radius times 1 -+ this.
inline constexpr double EdgeMean = 1e-3;

/// Where a point of the surface lies.
enum class Contact { Inside, Edge, Outside };

/// For a point `gap` outside the edge (inside: negative) of a circle of radius a, in cm.
Contact ContactOf(double gap, double a);

/// Rows of the half-space of modulus m2 = E / (1 + nu), unit pressure and unit shear, at depth z and the
/// distance `gap` outside the edge of a circle of radius a (inside: negative); all in cm. At z = 0 on the edge: means,
/// as EdgeMean tells, in the rows that are infinite.
/// @param vertical, horizontal  which of the two loads is wanted; the other's rows are 0.
std::array<double, RowCount> HalfSpaceRows(const Engine& engine, double m2, double nu, double a, double gap, double z,
                                           bool vertical, bool horizontal);

/// What rounding may leave in those rows, in units of 1 / m2 (strains) and a / m2 (displacements): the angular sums are
/// sums of 1 / distance. At z = 0 pressure leaves strains as its own share 1 - 2 nu only, for their integrals are set
/// there and tractions are the loads' own.
struct HalfSpaceRounding {
    double Strain = 0, Displacement = 0;
    double PressureStrain = 0;  ///< of pressure alone; Strain is of shear
};
HalfSpaceRounding HalfSpaceRoundingAt(double nu, double a, double gap, double z);

}  // namespace zirvo::solver
