// Principal values by Jacobi rotations. Called by the report of the principal values.
//
// Notation        a the symmetric matrix, p and q the plane of a rotation, t its tangent, c and s cosine and sine.
// Steps           1. The matrix is scaled by a power of two, so that squares neither overflow nor vanish.
//                 2. Cyclic sweeps over the three planes, each rotation making its off-diagonal entry 0, until all are
//                 below Negligible. The sweeps converge quadratically: three to five are needed.
//                 3. Sorted, largest first.
// Special cases   see ComputePrincipalValues for equal stresses. The strains of an isotropic layer have the directions
//                 of its stresses, so that their matrix is all but diagonal there; nothing relies on it but the speed.
// Source          H. Rutishauser, The Jacobi method for real symmetric matrices, Numerische Mathematik 9 (1966) 1-10:
//                 t = sign(theta) / (|theta| + sqrt(theta^2 + 1)), theta = (a_qq - a_pp) / (2 a_pq).
#include "solver/io/principal_values.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace zirvo::solver {
namespace {

using Matrix3 = std::array<Vector3, 3>;

constexpr Matrix3 Axes{Vector3{1, 0, 0}, Vector3{0, 1, 0}, Vector3{0, 0, 1}};
constexpr double Negligible = 1e-20;  // beside a largest entry between 0.5 and 1
constexpr int MostSweeps = 12;

Matrix3 ToMatrix(const SymmetricTensor& t, double scale) {
    Matrix3 a{Vector3{t.XX, t.XY, t.ZX}, Vector3{t.XY, t.YY, t.YZ}, Vector3{t.ZX, t.YZ, t.ZZ}};
    for (Vector3& row : a) {
        for (double& entry : row) {
            entry *= scale;
        }
    }
    return a;
}

double Dot(const Vector3& a, const Vector3& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/// v a v^T for the directions v as rows: the matrix in their axes.
Matrix3 InAxes(const Matrix3& a, const Matrix3& v) {
    Matrix3 turned{};
    for (std::size_t j = 0; j < 3; ++j) {
        const Vector3 image{Dot(a[0], v[j]), Dot(a[1], v[j]), Dot(a[2], v[j])};
        for (std::size_t i = 0; i <= j; ++i) {
            turned[i][j] = turned[j][i] = Dot(v[i], image);
        }
    }
    return turned;
}

/// Makes a[p][q] 0 and turns the directions with it.
void Rotate(Matrix3& a, Matrix3& v, std::size_t p, std::size_t q) {
    if (std::fabs(a[p][q]) < Negligible) {
        return;
    }
    const double theta = (a[q][q] - a[p][p]) / (2 * a[p][q]);
    const double t = std::copysign(1 / (std::fabs(theta) + std::sqrt(theta * theta + 1)), theta);
    const double c = 1 / std::sqrt(t * t + 1);
    const double s = t * c;
    const std::size_t r = 3 - p - q;
    a[p][p] -= t * a[p][q];
    a[q][q] += t * a[p][q];
    a[p][q] = a[q][p] = 0;
    const double arp = a[r][p];
    const double arq = a[r][q];
    a[r][p] = a[p][r] = c * arp - s * arq;
    a[r][q] = a[q][r] = s * arp + c * arq;
    for (std::size_t i = 0; i < 3; ++i) {
        const double vp = v[p][i];
        const double vq = v[q][i];
        v[p][i] = c * vp - s * vq;
        v[q][i] = s * vp + c * vq;
    }
}

/// A power of two that brings the largest entry between 0.5 and 1; 0 for a tensor of zeros.
double ScaleOf(const SymmetricTensor& t) {
    const double largest = std::max(
        {std::fabs(t.XX), std::fabs(t.YY), std::fabs(t.ZZ), std::fabs(t.XY), std::fabs(t.YZ), std::fabs(t.ZX)});
    if (largest == 0) {
        return 0;
    }
    int exponent = 0;
    std::frexp(largest, &exponent);
    return std::ldexp(1, std::clamp(-exponent, -1000, 1000));
}

/// The cosines below the tolerance as 0, and the first that is not 0 positive.
Vector3 Tidied(Vector3 direction) {
    double sign = 0;
    for (double& cosine : direction) {
        if (std::fabs(cosine) < DirectionTolerance) {
            cosine = 0;
        }
        if (sign == 0 && cosine != 0) {
            sign = cosine > 0 ? 1 : -1;
        }
    }
    for (double& cosine : direction) {
        cosine = cosine == 0 ? 0 : sign * cosine;
    }
    return direction;
}

/// The unit vector along the projection of the first coordinate axis that has one onto the plane across `normal`.
Vector3 FirstAxisAcross(const Vector3& normal) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
        // 1 - n^2 from the other two cosines: the difference would lose the short projections.
        const double n1 = normal[(axis + 1) % 3];
        const double n2 = normal[(axis + 2) % 3];
        const double length = std::sqrt(n1 * n1 + n2 * n2);
        if (length >= DirectionTolerance) {
            Vector3 direction;
            direction[axis] = length;
            direction[(axis + 1) % 3] = -normal[axis] * n1 / length;
            direction[(axis + 2) % 3] = -normal[axis] * n2 / length;
            return direction;
        }
    }
    return Axes[0];
}

}  // namespace

PrincipalSystem SolvePrincipalSystem(const SymmetricTensor& tensor, const std::array<Vector3, 3>& directions) {
    PrincipalSystem system;
    const double scale = ScaleOf(tensor);
    Matrix3 v = directions;
    Matrix3 a = InAxes(ToMatrix(tensor, scale), v);
    for (int sweep = 0; sweep < MostSweeps; ++sweep) {
        if (std::max({std::fabs(a[0][1]), std::fabs(a[0][2]), std::fabs(a[1][2])}) < Negligible) {
            break;
        }
        Rotate(a, v, 0, 1);
        Rotate(a, v, 0, 2);
        Rotate(a, v, 1, 2);
    }
    std::array<std::size_t, 3> order{0, 1, 2};
    for (const auto& [upper, lower] : {std::pair(0U, 1U), std::pair(1U, 2U), std::pair(0U, 1U)}) {
        if (a[order[upper]][order[upper]] < a[order[lower]][order[lower]]) {
            std::swap(order[upper], order[lower]);
        }
    }
    for (std::size_t i = 0; i < 3; ++i) {
        const std::size_t from = order[i];
        system.Values[i] = scale == 0 ? 0 : a[from][from] / scale;
        system.Vectors[i] = v[from];
    }
    return system;
}

PrincipalSystem SolvePrincipalSystem(const SymmetricTensor& tensor) {
    return SolvePrincipalSystem(tensor, Axes);
}

PrincipalValues ComputePrincipalValues(const std::array<double, ComponentCount>& values) {
    const PrincipalSystem stress =
        SolvePrincipalSystem({values[SIGx], values[SIGy], values[SIGz], values[TAUxy], values[TAUyz], values[TAUzx]});
    const PrincipalSystem strain = SolvePrincipalSystem(
        {values[EPSx], values[EPSy], values[EPSz], values[GAMxy] / 2, values[GAMyz] / 2, values[GAMzx] / 2},
        stress.Vectors);
    PrincipalValues principal;
    principal.Stresses = stress.Values;
    principal.Strains = strain.Values;
    principal.ShearStress = stress.Values[0] / 2 - stress.Values[2] / 2;
    principal.ShearStrain = strain.Values[0] - strain.Values[2];

    const double equal = DirectionTolerance * std::max(std::fabs(stress.Values[0]), std::fabs(stress.Values[2]));
    const bool firstTwo = stress.Values[0] - stress.Values[1] <= equal;
    const bool lastTwo = stress.Values[1] - stress.Values[2] <= equal;
    if (firstTwo && lastTwo) {
        principal.First = Axes[0];
        principal.Third = Axes[2];
        return principal;
    }
    principal.First = Tidied(stress.Vectors[0]);
    principal.Third = Tidied(stress.Vectors[2]);
    if (firstTwo) {
        principal.First = Tidied(FirstAxisAcross(principal.Third));
    } else if (lastTwo) {
        principal.Third = Tidied(FirstAxisAcross(principal.First));
    }
    return principal;
}

}  // namespace zirvo::solver
