// From the sums of single loads to the 15 values of a point: turned into X and Y, added up, completed by the law of
// elasticity at the end, once.
#pragma once
#include "solver/engine.h"
#include "solver/layered_sums.h"
#include "solver/problem.h"

namespace zirvo::solver {

/// A point's position relative to one load.
struct PolarPosition {
    double R = 0;             ///< cm
    double Cos = 1, Sin = 0;  ///< of the angle from X
};

/// Position of (x, y) seen from the load; on the axis the angle is 0.
PolarPosition PositionFrom(const GroupLoad& load, double x, double y);

/// Distance of (x, y) outside the edge of the load (inside: negative), to the last digit also where it is far smaller
/// than the coordinates: the field near the edge hangs on it.
double GapFrom(const GroupLoad& load, double radius, const PolarPosition& position, double x, double y);
/// The same to the last digit anywhere, which is dear.
double ExactGapFrom(const GroupLoad& load, double radius, const PolarPosition& position, double x, double y);
/// Share of the radius from the edge within which GapFrom gives the last digit.
inline constexpr double ExactGapShare = 0.1;

/// What is added up at a point. Tractions over m2 of the point's layer, strains as plain numbers, displacements in cm.
struct PointSums {
    double U = 0, V = 0, W = 0;
    double Normal = 0;              ///< SIGz / m2
    double ShearX = 0, ShearY = 0;  ///< TAUzx / m2, TAUyz / m2
    double AreaStrain = 0;          ///< EPSx + EPSy
    double StrainDifference = 0;    ///< EPSx - EPSy
    double ShearStrain = 0;         ///< GAMxy
    double DisplacementError = 0, StrainError = 0;
    double DisplacementSize = 0, StrainSize = 0;  ///< sums of sizes, whose rounding comes on top
    /// At z = 0: the surface traction itself, in the unit of the moduli.
    double SurfaceNormal = 0, SurfaceX = 0, SurfaceY = 0;
    bool OnEdge = false;

    /// Adds what other loads do at the same point.
    void Add(const PointSums& other);
};

/// Adds one load's rows (sums per unit pressure and per unit shear).
void AddRows(const GroupLoad& load, const PolarPosition& position, const double* rows, PointSums& sums);

/// Adds the traction that one load puts on the surface, for points at z = 0.
void AddSurfaceTraction(const GroupLoad& load, double radius, double gap, PointSums& sums);

/// The unit in which errors may vanish: largest pressure (or shear) and radius of the loads.
struct LoadScale {
    double Pressure = 0;
    double Radius = 0;
};

/// The 15 values and the bounds of their errors.
/// @param m2, nu  of the point's layer; @param surface  true at z = 0, where the tractions are the loads' own.
PointResult ComposeResult(const PointSums& sums, double m2, double nu, bool surface, const LoadScale& scale);

}  // namespace zirvo::solver
