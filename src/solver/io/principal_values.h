// Principal stresses and strains of a point, the largest shear values, and the directions of the first and third
// principal stress. Caller: the report of the principal values.
#pragma once
#include <array>

#include "solver/problem.h"

namespace zirvo::solver {

/// A symmetric tensor by its six components, in the order in which the results hold them.
struct SymmetricTensor {
    double XX = 0, YY = 0, ZZ = 0, XY = 0, YZ = 0, ZX = 0;
};

using Vector3 = std::array<double, 3>;

/// Eigenvalues, largest first, and orthonormal eigenvectors: Vectors[i] belongs to Values[i].
struct PrincipalSystem {
    Vector3 Values{};
    std::array<Vector3, 3> Vectors{};
};

/// Errors of the values are a few 1E-16 of the largest magnitude. All components finite.
PrincipalSystem SolvePrincipalSystem(const SymmetricTensor& tensor);

/// The same, from directions that are nearly or fully principal already (orthonormal): faster.
PrincipalSystem SolvePrincipalSystem(const SymmetricTensor& tensor, const std::array<Vector3, 3>& directions);

/// Stresses and strains in the units of the values that they were made from.
struct PrincipalValues {
    Vector3 Stresses{};      ///< largest first, tension positive
    Vector3 Strains{};       ///< largest first
    double ShearStress = 0;  ///< the largest: half the difference of the first and third stress
    double ShearStrain = 0;  ///< the largest, engineering: the difference of the first and third strain
    Vector3 First{};         ///< direction cosines x, y, z of the first principal stress
    Vector3 Third{};         ///< of the third
};

/// Stresses within this share of the largest magnitude are equal, and a smaller cosine is 0.
inline constexpr double DirectionTolerance = 1e-8;

/// The directions have their first component that is not 0 positive. Where two stresses agree, the direction is that of
/// the projection of the first coordinate axis that has one onto the free plane; where all three do, x is the first and
/// z the third.
PrincipalValues ComputePrincipalValues(const std::array<double, ComponentCount>& values);

}  // namespace zirvo::solver
