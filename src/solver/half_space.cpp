// A kernel (c0 + c1 zeta) exp(-zeta) sums to c0 I(n, k) + c1 z I(n, k + 1). The kernels of a unit load on a half-space,
// over m2: pressure u = 1 - 2 nu - zeta, w = 2 - 2 nu + zeta, T = zeta, S = -1 - zeta; shear u = 2 - 2 nu - zeta, w = 1
// - 2 nu + zeta, T = zeta - 1, S = -zeta, v = 2, Q = -1.
#include "solver/half_space.h"

#include <algorithm>
#include <cmath>

#include "solver/tables.h"

namespace zirvo::solver {

namespace {

/// Sum of the kernel (c0 + c1 zeta) exp(-zeta) xi^power with J_order.
struct Summer {
    const HalfSpaceIntegrals& Integrals;
    double Z;

    double operator()(double c0, double c1, int order, int power) const {
        const double* row = Integrals.I[order];
        // At the surface every term with a factor z is dropped, also where its integral is infinite.
        return c0 * row[power + 1] + (Z == 0 || c1 == 0 ? 0 : c1 * Z * row[power + 2]);
    }
};

void SetSurfaceIntegrals(double a, double gap, HalfSpaceIntegrals& integrals) {
    switch (ContactOf(gap, a)) {
        case Contact::Inside:
            integrals.I[0][1] = 1;
            integrals.I[2][1] = 0;
            break;
        case Contact::Edge:
            integrals.I[0][1] = 0.5;
            integrals.I[2][1] = 0.5;
            break;
        case Contact::Outside:
            integrals.I[0][1] = 0;
            integrals.I[2][1] = (a / (a + gap)) * (a / (a + gap));
            break;
    }
}

void AddVertical(const Summer& sum, double nu, double m2, std::array<double, RowCount>& rows) {
    const double k1 = 2 - 2 * nu;
    const double k2 = 1 - 2 * nu;
    rows[RowVerticalW] = sum(k1, 1, 0, -1) / m2;
    rows[RowVerticalS] = sum(-1, -1, 0, 0) / m2;
    rows[RowVerticalU0] = sum(k2, -1, 0, 0) / m2;
    rows[RowVerticalU1] = sum(k2, -1, 1, -1) / m2;
    rows[RowVerticalT] = sum(0, 1, 1, 0) / m2;
    rows[RowVerticalU2] = sum(k2, -1, 2, 0) / m2;
}

void AddInfinite(const Summer& sum, double nu, double m2, double share, std::array<double, RowCount>& rows) {
    const double k1 = 2 - 2 * nu;
    rows[RowHorizontalU] += share * sum(k1, -1, 1, 0) / m2;
    rows[RowSum1] += share * sum(0.5 * k1 + 1, -0.5, 1, 0) / m2;
    rows[RowDifference3] += share * sum(0.5 * k1 - 1, -0.5, 3, 0) / m2;
}

void AddHorizontal(const Summer& sum, double nu, double m2, std::array<double, RowCount>& rows) {
    const double k1 = 2 - 2 * nu;
    const double k2 = 1 - 2 * nu;
    rows[RowHorizontalW] = sum(k2, 1, 1, -1) / m2;
    rows[RowHorizontalS] = sum(0, -1, 1, 0) / m2;
    rows[RowSum0] = sum(0.5 * k1 + 1, -0.5, 0, -1) / m2;
    rows[RowShear0] = sum(-1, 0.5, 0, 0) / m2;
    rows[RowDifference2] = sum(0.5 * k1 - 1, -0.5, 2, -1) / m2;
    rows[RowShear2] = sum(0, 0.5, 2, 0) / m2;
}

}  // namespace

Contact ContactOf(double gap, double a) {
    if (std::fabs(gap) <= EdgeShare * a) {
        return Contact::Edge;
    }
    return gap < 0 ? Contact::Inside : Contact::Outside;
}

std::array<double, RowCount> HalfSpaceRows(const Engine& engine, double m2, double nu, double a, double gap, double z,
                                           bool vertical, bool horizontal) {
    std::array<double, RowCount> rows{};
    HalfSpaceIntegrals integrals;
    const bool edge = z == 0 && ContactOf(gap, a) == Contact::Edge;
    engine.HalfSpace(Angles(), a, edge ? 0 : gap, z, integrals);
    if (z == 0) {
        SetSurfaceIntegrals(a, gap, integrals);
    }
    const Summer sum{integrals, z};
    if (vertical) {
        AddVertical(sum, nu, m2, rows);
    }
    if (horizontal) {
        AddHorizontal(sum, nu, m2, rows);
        if (edge) {
            for (const double side : {-EdgeMean, EdgeMean}) {
                HalfSpaceIntegrals beside;
                engine.HalfSpace(Angles(), a, a * side, 0, beside);
                AddInfinite({beside, 0}, nu, m2, 0.5, rows);
            }
        } else {
            AddInfinite(sum, nu, m2, 1, rows);
        }
    }
    return rows;
}

HalfSpaceRounding HalfSpaceRoundingAt(double nu, double a, double gap, double z) {
    // Three integrals at most, each 7E-16 off in comparisons with 30 digits.
    constexpr double Rounding = 1.5e-15;
    const double r = a + gap;
    const double nearest = std::max(std::sqrt(gap * gap + z * z), EdgeShare * a);
    // The mean of a / distance over the circle: a logarithm near the edge, a / r far away.
    const double near = nearest < a ? 1 + 0.3 * std::log(a / nearest) : 1;
    const double strain = Rounding * near * std::min(1.0, 2 * a / std::sqrt(r * r + z * z));
    return {strain, Rounding, z == 0 ? (1 - 2 * nu) * Rounding * std::min(1.0, 2 * a / r) : strain};
}

}  // namespace zirvo::solver
