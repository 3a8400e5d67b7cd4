#include "solver/superposition.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "solver/half_space.h"

namespace zirvo::solver {

PolarPosition PositionFrom(const GroupLoad& load, double x, double y) {
    PolarPosition position;
    const double dx = x - load.X;
    const double dy = y - load.Y;
    position.R = std::sqrt(dx * dx + dy * dy);
    if (position.R > 0) {
        position.Cos = dx / position.R;
        position.Sin = dy / position.R;
    }
    return position;
}

namespace {

/// A sum of doubles kept in two parts.
struct TwoSum {
    double High = 0, Low = 0;

    void Add(double x) {
        const double sum = High + x;
        const double part = sum - High;
        Low += (High - (sum - part)) + (x - part);
        High = sum;
    }
    void AddSquare(double x, double sign) {
        const double square = x * x;
        Add(sign * square);
        Add(sign * std::fma(x, x, -square));
    }
    /// (x - y)^2, with what the difference loses to rounding.
    void AddSquaredDifference(double x, double y) {
        TwoSum difference{x, 0};
        difference.Add(-y);
        AddSquare(difference.High, 1);
        Add(2 * difference.High * difference.Low);
    }
};

}  // namespace

double GapFrom(const GroupLoad& load, double radius, const PolarPosition& position, double x, double y) {
    if (std::fabs(position.R - radius) > ExactGapShare * radius) {
        return position.R - radius;
    }
    return ExactGapFrom(load, radius, position, x, y);
}

double ExactGapFrom(const GroupLoad& load, double radius, const PolarPosition& position, double x, double y) {
    TwoSum sum;  // r^2 - a^2
    sum.AddSquaredDifference(x, load.X);
    sum.AddSquaredDifference(y, load.Y);
    sum.AddSquare(radius, -1);
    return (sum.High + sum.Low) / (position.R + radius);
}

void PointSums::Add(const PointSums& other) {
    U += other.U;
    V += other.V;
    W += other.W;
    Normal += other.Normal;
    ShearX += other.ShearX;
    ShearY += other.ShearY;
    AreaStrain += other.AreaStrain;
    StrainDifference += other.StrainDifference;
    ShearStrain += other.ShearStrain;
    DisplacementError += other.DisplacementError;
    StrainError += other.StrainError;
    DisplacementSize += other.DisplacementSize;
    StrainSize += other.StrainSize;
    SurfaceNormal += other.SurfaceNormal;
    SurfaceX += other.SurfaceX;
    SurfaceY += other.SurfaceY;
    OnEdge = OnEdge || other.OnEdge;
}

void AddRows(const GroupLoad& load, const PolarPosition& position, const double* rows, PointSums& sums) {
    const double c = position.Cos;
    const double s = position.Sin;
    if (load.Pressure != 0) {
        const double p = load.Pressure;
        const double radial = -p * rows[RowVerticalU1];
        const double shear = -p * rows[RowVerticalT];
        const double difference = p * rows[RowVerticalU2];
        sums.U += radial * c;
        sums.V += radial * s;
        sums.W += p * rows[RowVerticalW];
        sums.Normal += p * rows[RowVerticalS];
        sums.ShearX += shear * c;
        sums.ShearY += shear * s;
        sums.AreaStrain -= p * rows[RowVerticalU0];
        sums.StrainDifference += difference * (c * c - s * s);
        sums.ShearStrain += difference * (2 * c * s);
        sums.DisplacementSize += std::fabs(p) * (std::fabs(rows[RowVerticalU1]) + std::fabs(rows[RowVerticalW]));
        sums.StrainSize += std::fabs(p) * (std::fabs(rows[RowVerticalS]) + std::fabs(rows[RowVerticalU0]) +
                                           std::fabs(rows[RowVerticalT]) + std::fabs(rows[RowVerticalU2]));
    }
    if (load.Shear != 0) {
        const double p = load.Shear;
        const double lc = load.Cos;
        const double ls = load.Sin;
        // Angle from the load's direction, twice it; (c2, s2) stands for exp(2 i theta).
        const double c1 = c * lc + s * ls;
        const double s1 = s * lc - c * ls;
        const double c2 = c1 * c1 - s1 * s1;
        const double s2 = 2 * c1 * s1;
        const double ux = rows[RowSum0] - rows[RowDifference2] * c2;
        const double uy = -rows[RowDifference2] * s2;
        const double tx = rows[RowShear0] - rows[RowShear2] * c2;
        const double ty = -rows[RowShear2] * s2;
        const double dx = -rows[RowSum1] * c1 + rows[RowDifference3] * (c1 * c2 - s1 * s2);
        const double dy = -rows[RowSum1] * s1 + rows[RowDifference3] * (s1 * c2 + c1 * s2);
        const double lc2 = lc * lc - ls * ls;
        const double ls2 = 2 * lc * ls;
        sums.U += p * (ux * lc - uy * ls);
        sums.V += p * (ux * ls + uy * lc);
        sums.W += p * c1 * rows[RowHorizontalW];
        sums.Normal += p * c1 * rows[RowHorizontalS];
        sums.ShearX += p * (tx * lc - ty * ls);
        sums.ShearY += p * (tx * ls + ty * lc);
        sums.AreaStrain -= p * c1 * rows[RowHorizontalU];
        sums.StrainDifference += p * (dx * lc2 - dy * ls2);
        sums.ShearStrain += p * (dx * ls2 + dy * lc2);
        double sizes[2] = {};
        for (int row = VerticalRows; row < RowCount; ++row) {
            sizes[RowIsDisplacement[row] ? 1 : 0] += std::fabs(rows[row]);
        }
        sums.StrainSize += std::fabs(p) * sizes[0];
        sums.DisplacementSize += std::fabs(p) * sizes[1];
    }
}

void AddSurfaceTraction(const GroupLoad& load, double radius, double gap, PointSums& sums) {
    const Contact contact = ContactOf(gap, radius);
    if (contact == Contact::Outside) {
        return;
    }
    const double share = contact == Contact::Edge ? 0.5 : 1;
    sums.SurfaceNormal -= share * load.Pressure;
    sums.SurfaceX -= share * load.Shear * load.Cos;
    sums.SurfaceY -= share * load.Shear * load.Sin;
    sums.OnEdge = sums.OnEdge || contact == Contact::Edge;
}

namespace {

/// What is smaller than rounding leaves of the group's largest value is nothing: zero, so that a report shows a value
/// that vanishes by symmetry as 0 and not as noise. Far below the promise, and no negative zero either. Gives the
/// largest that was swept.
double SweepGroup(std::array<double, ComponentCount>& values, std::size_t first, std::size_t last) {
    constexpr double Noise = 1e-14;
    double swept = 0;
    double largest = 0;
    for (std::size_t i = first; i <= last; ++i) {
        largest = std::max(largest, std::fabs(values[i]));
    }
    for (std::size_t i = first; i <= last; ++i) {
        if (std::fabs(values[i]) <= Noise * largest) {
            swept = std::max(swept, std::fabs(values[i]));
            values[i] = 0;
        }
    }
    return swept;
}

}  // namespace

PointResult ComposeResult(const PointSums& sums, double m2, double nu, bool surface, const LoadScale& scale) {
    PointResult result;
    auto& v = result.Values;
    const double mu = 0.5 * m2;
    const double sigz = surface ? sums.SurfaceNormal : sums.Normal * m2;
    const double tzx = surface ? sums.SurfaceX : sums.ShearX * m2;
    const double tyz = surface ? sums.SurfaceY : sums.ShearY * m2;
    const double side = nu / (1 - nu);
    const double area = sums.AreaStrain;
    v[U] = sums.U;
    v[V] = sums.V;
    v[W] = sums.W;
    v[EPSx] = 0.5 * (area + sums.StrainDifference);
    v[EPSy] = 0.5 * (area - sums.StrainDifference);
    v[EPSz] = (1 - 2 * nu) / (1 - nu) * sigz / m2 - side * area;
    v[SIGx] = side * (sigz + m2 * area) + m2 * v[EPSx];
    v[SIGy] = side * (sigz + m2 * area) + m2 * v[EPSy];
    v[SIGz] = sigz;
    v[GAMxy] = sums.ShearStrain;
    v[TAUxy] = mu * sums.ShearStrain;
    v[TAUyz] = tyz;
    v[TAUzx] = tzx;
    v[GAMyz] = tyz / mu;
    v[GAMzx] = tzx / mu;
    const double sweptDisplacement = SweepGroup(v, U, W);
    const double sweptStress = SweepGroup(v, SIGx, TAUzx);
    const double sweptStrain = SweepGroup(v, EPSx, GAMzx);
    // A tolerance of e times the largest plus 1E-4 e units of the load is what a bound of e stands for.
    constexpr double Floor = 1e-4;
    const double modulus = m2 * (1 + nu);
    const auto largest = [&](int first, int last) {
        double size = 0;
        for (int i = first; i <= last; ++i) {
            size = std::max(size, std::fabs(v[static_cast<std::size_t>(i)]));
        }
        return size;
    };
    // Of the sums that make them up; a shear strain is twice its traction over m2.
    constexpr double Rounding = 8 * 1.1e-16;
    const double normal = Rounding * std::fabs(sigz) / m2;
    const double error = sums.StrainError + Rounding * sums.StrainSize;
    const double stressError = (error + normal) * m2 * (1 + nu) / (1 - nu) + sweptStress;
    const double strainError = 2 * (error + normal * (1 - 2 * nu) / (1 - nu)) + sweptStrain;
    const double displacementError = sums.DisplacementError + Rounding * sums.DisplacementSize + sweptDisplacement;
    const auto share = [](double bound, double allowance) {
        // Below that nothing is told apart: sums of a thousand rounded terms, weights.
        constexpr double Least = 2e-14;
        return bound > 0 ? Least + bound / std::max(allowance, std::numeric_limits<double>::min())
                         : (bound == 0 ? 0 : std::numeric_limits<double>::infinity());  // no number is no bound
    };
    result.Estimates = {
        share(displacementError, largest(U, W) + Floor * scale.Pressure * scale.Radius / modulus),
        share(stressError, largest(SIGx, TAUzx) + Floor * scale.Pressure),
        share(strainError, largest(EPSx, GAMzx) + Floor * scale.Pressure / modulus),
    };
    if (!std::all_of(v.begin(), v.end(), [](double value) { return std::isfinite(value); })) {
        result.Estimates.fill(std::numeric_limits<double>::infinity());
    }
    result.OnLoadEdge = surface && sums.OnEdge;
    return result;
}

}  // namespace zirvo::solver
