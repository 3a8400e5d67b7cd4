// One load at one point, see pair_rows.h.
#include "solver/pair_rows.h"

#include <algorithm>
#include <cmath>

#include "solver/half_space.h"
#include "solver/sum_rules.h"

namespace zirvo::solver {

namespace {

/// How many times its rounding a place (R, depth) shows in the sums: R over the distance of their singularities, and 1,
/// or depth over thickness where they are interpolated in z.
double SharpnessAt(const Work& work, const PointDepth& depth, double radius, double r, double gap, bool exactGap) {
    const auto& thickness = work.Layers.Thickness;
    const auto layer = static_cast<std::size_t>(depth.Layer);
    // Near the edge the half-space has the gap to the last digit.
    const bool rounded = layer == 0 && std::fabs(gap) > ExactGapShare * radius;
    const double own = rounded ? r / std::sqrt(gap * gap + depth.Z * depth.Z) : 0;
    if (thickness.size() == 1) {
        return own;
    }
    const double ze = layer == 0 ? 2 * thickness[0] - depth.Z : depth.Z;
    const double inDepth = depth.Source < 0 && layer + 1 < thickness.size() ? depth.Z / thickness[layer] : 1;
    return std::max(own, exactGap ? 1 : r / std::sqrt(gap * gap + ze * ze)) + inDepth;
}

}  // namespace

void AddHalfSpace(const Work& work, const PointDepth& depth, const GroupLoad& load, double radius, double gap,
                  double* rows, SumErrors& errors) {
    if (depth.Layer != 0) {
        return;
    }
    const double m2 = work.Layers.M2[0];
    const auto own =
        HalfSpaceRows(work.TheEngine, m2, work.Layers.Nu[0], radius, gap, depth.Z, load.Pressure != 0, load.Shear != 0);
    for (std::size_t row = 0; row < RowCount; ++row) {
        rows[row] += own[row];
    }
    const HalfSpaceRounding rounding = HalfSpaceRoundingAt(work.Layers.Nu[0], radius, gap, depth.Z);
    errors.Strain[0] += rounding.PressureStrain / m2;
    errors.Strain[1] += rounding.Strain / m2;
    for (std::size_t k = 0; k < 2; ++k) {
        errors.Displacement[k] += rounding.Displacement * radius / m2;
    }
}

void AddLoad(const GroupLoad& load, const PolarPosition& position, double radius, double gap, double z, double* rows,
             const SumErrors& errors, PointSums& sums) {
    if (position.R == 0) {
        // On the axis all Bessel functions but J0 vanish: no rounding noise in place of a zero.
        for (std::size_t row = 0; row < RowCount; ++row) {
            rows[row] = RowOrder[row] == 0 ? rows[row] : 0;
        }
    }
    if (z == 0) {
        // Tractions are the loads' own there: what rounding leaves of the sums is in no value.
        for (const int row : {RowVerticalS, RowVerticalT, RowHorizontalS, RowShear0, RowShear2}) {
            rows[row] = 0;
        }
    }
    AddRows(load, position, rows, sums);
    const double p = std::fabs(load.Pressure);
    const double h = std::fabs(load.Shear);
    // Values of a shear load are sums of two rows.
    sums.StrainError += p * errors.Strain[0] + 2 * h * errors.Strain[1];
    sums.DisplacementError += p * errors.Displacement[0] + 2 * h * errors.Displacement[1];
    if (z == 0) {
        AddSurfaceTraction(load, radius, gap, sums);
    }
}

void AddToPoint(const Work& work, const PointDepth& depth, const GroupLoad& load, const PolarPosition& position,
                double radius, double gap, bool exactGap, double* rows, const SumErrors& errors, PointSums& sums) {
    const double strain = sums.StrainSize;
    const double displacement = sums.DisplacementSize;
    AddLoad(load, position, radius, gap, depth.Z, rows, errors, sums);
    // Each load has a place of its own, whose rounding stays where loads cancel.
    const double place = PlaceRounding * SharpnessAt(work, depth, radius, position.R, gap, exactGap);
    sums.StrainError += place * (sums.StrainSize - strain);
    sums.DisplacementError += place * (sums.DisplacementSize - displacement);
}

}  // namespace zirvo::solver
