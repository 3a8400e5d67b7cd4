// Principal stresses and strains, and the directions of equal ones.
#include "solver/io/principal_values.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace zirvo::solver {
namespace {

constexpr double Pi = 3.14159265358979323846;

using Components = std::array<double, ComponentCount>;

/// The values of a point with these stresses and without strains.
Components Stresses(double xx, double yy, double zz, double xy = 0, double yz = 0, double zx = 0) {
    Components values{};
    values[SIGx] = xx;
    values[SIGy] = yy;
    values[SIGz] = zz;
    values[TAUxy] = xy;
    values[TAUyz] = yz;
    values[TAUzx] = zx;
    return values;
}

double Dot(const Vector3& a, const Vector3& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

Vector3 Times(const SymmetricTensor& t, const Vector3& v) {
    return {t.XX * v[0] + t.XY * v[1] + t.ZX * v[2], t.XY * v[0] + t.YY * v[1] + t.YZ * v[2],
            t.ZX * v[0] + t.YZ * v[1] + t.ZZ * v[2]};
}

/// Q diag(values) Q^T for a random rotation Q (from a random unit quaternion).
SymmetricTensor Rotated(const Vector3& values, std::mt19937_64& random, std::array<Vector3, 3>& columns) {
    std::normal_distribution<double> normal;
    double w = normal(random), x = normal(random), y = normal(random), z = normal(random);
    const double length = std::sqrt(w * w + x * x + y * y + z * z);
    w /= length, x /= length, y /= length, z /= length;
    columns = {Vector3{1 - 2 * (y * y + z * z), 2 * (x * y + w * z), 2 * (x * z - w * y)},
               Vector3{2 * (x * y - w * z), 1 - 2 * (x * x + z * z), 2 * (y * z + w * x)},
               Vector3{2 * (x * z + w * y), 2 * (y * z - w * x), 1 - 2 * (x * x + y * y)}};
    const auto entry = [&](std::size_t i, std::size_t j) {
        double sum = 0;
        for (std::size_t k = 0; k < 3; ++k) {
            sum += values[k] * columns[k][i] * columns[k][j];
        }
        return sum;
    };
    return {entry(0, 0), entry(1, 1), entry(2, 2), entry(0, 1), entry(1, 2), entry(2, 0)};
}

TEST(PrincipalSystem, RandomTensorsAreSolvedToTheLastDigits) {
    std::mt19937_64 random(1);
    std::normal_distribution<double> normal;
    for (int i = 0; i < 20000; ++i) {
        const SymmetricTensor t{normal(random), normal(random), normal(random),
                                normal(random), normal(random), normal(random)};
        const PrincipalSystem system = SolvePrincipalSystem(t);
        const double largest = std::max(std::fabs(system.Values[0]), std::fabs(system.Values[2]));
        for (std::size_t k = 0; k < 3; ++k) {
            const Vector3 image = Times(t, system.Vectors[k]);
            for (std::size_t c = 0; c < 3; ++c) {
                ASSERT_NEAR(image[c], system.Values[k] * system.Vectors[k][c], 4e-15 * largest);
            }
            for (std::size_t m = 0; m < 3; ++m) {
                ASSERT_NEAR(Dot(system.Vectors[k], system.Vectors[m]), k == m ? 1 : 0, 2e-15);
            }
        }
        ASSERT_GE(system.Values[0], system.Values[1]);
        ASSERT_GE(system.Values[1], system.Values[2]);
        ASSERT_NEAR(system.Values[0] + system.Values[1] + system.Values[2], t.XX + t.YY + t.ZZ, 4e-15 * largest);
    }
}

TEST(PrincipalSystem, KnownValuesInRandomAxesComeBackWhateverTheirScaleAndGaps) {
    std::mt19937_64 random(2);
    for (const double scale : {1.0, 1e-300, 1e-90, 1e90, 1e300}) {
        for (const Vector3& shape : {Vector3{3, 2, 1}, Vector3{1, 0, -1}, Vector3{1, 1 - 1e-7, -1}, Vector3{1, 1, -1},
                                     Vector3{1, 1e-9, 0}, Vector3{2, -1, -1}, Vector3{-1, -1, -1}, Vector3{1, 0, 0}}) {
            for (int i = 0; i < 200; ++i) {
                std::array<Vector3, 3> axes;
                const SymmetricTensor t = Rotated({scale * shape[0], scale * shape[1], scale * shape[2]}, random, axes);
                const PrincipalSystem system = SolvePrincipalSystem(t);
                for (std::size_t k = 0; k < 3; ++k) {
                    ASSERT_NEAR(system.Values[k], scale * shape[k], 4e-15 * scale * 2);
                }
            }
        }
    }
}

TEST(PrincipalSystem, NearlyPrincipalDirectionsGiveTheSameValues) {
    std::mt19937_64 random(3);
    for (int i = 0; i < 1000; ++i) {
        std::array<Vector3, 3> axes;
        const SymmetricTensor t = Rotated({5, -1, 0.25}, random, axes);
        const PrincipalSystem from = SolvePrincipalSystem(t, axes);
        EXPECT_NEAR(from.Values[0], 5, 2e-14);
        EXPECT_NEAR(from.Values[1], 0.25, 2e-14);
        EXPECT_NEAR(from.Values[2], -1, 2e-14);
        EXPECT_NEAR(std::fabs(Dot(from.Vectors[1], axes[2])), 1, 1e-14);
    }
}

TEST(PrincipalSystem, NoTensorHasNoValues) {
    const PrincipalSystem system = SolvePrincipalSystem({});
    EXPECT_EQ(system.Values, (Vector3{0, 0, 0}));
}

TEST(PrincipalValues, UniaxialCompressionAlongZ) {
    const PrincipalValues p = ComputePrincipalValues(Stresses(0, 0, -0.7));
    EXPECT_EQ(p.Stresses, (Vector3{0, 0, -0.7}));
    EXPECT_EQ(p.ShearStress, 0.35);
    EXPECT_EQ(p.First, (Vector3{1, 0, 0})) << "x has a projection onto the free plane";
    EXPECT_EQ(p.Third, (Vector3{0, 0, 1}));
}

TEST(PrincipalValues, UniaxialTensionAlongXLeavesYForTheThird) {
    const PrincipalValues p = ComputePrincipalValues(Stresses(2, 0, 0));
    EXPECT_EQ(p.First, (Vector3{1, 0, 0}));
    EXPECT_EQ(p.Third, (Vector3{0, 1, 0}));
    const PrincipalValues q = ComputePrincipalValues(Stresses(-2, 0, 0));
    EXPECT_EQ(q.First, (Vector3{0, 1, 0}));
    EXPECT_EQ(q.Third, (Vector3{1, 0, 0}));
}

TEST(PrincipalValues, EqualStressesAllRoundTakeXAndZ) {
    for (const double p : {-3.5, 0.0, 1e-80}) {
        const PrincipalValues values = ComputePrincipalValues(Stresses(p, p, p, p * 1e-10, 0, -p * 1e-10));
        EXPECT_EQ(values.First, (Vector3{1, 0, 0}));
        EXPECT_EQ(values.Third, (Vector3{0, 0, 1}));
    }
}

// Tension along x = y, compression across it; the cosines are 1 / sqrt(2), the first of each positive.
TEST(PrincipalValues, PureShearInThePlaneOfXAndY) {
    const PrincipalValues p = ComputePrincipalValues(Stresses(0, 0, 0, 3));
    EXPECT_DOUBLE_EQ(p.Stresses[0], 3);
    EXPECT_NEAR(p.Stresses[1], 0, 1e-15);
    EXPECT_DOUBLE_EQ(p.Stresses[2], -3);
    EXPECT_DOUBLE_EQ(p.ShearStress, 3);
    EXPECT_NEAR(p.First[0], std::sqrt(0.5), 1e-15);
    EXPECT_NEAR(p.First[1], std::sqrt(0.5), 1e-15);
    EXPECT_EQ(p.First[2], 0);
    EXPECT_NEAR(p.Third[0], std::sqrt(0.5), 1e-15);
    EXPECT_NEAR(p.Third[1], -std::sqrt(0.5), 1e-15);
    EXPECT_FALSE(std::signbit(p.Third[2]));
}

TEST(PrincipalValues, TheFreePlaneOfTwoEqualStressesMayLieAslant) {
    // Compression along (0, cos 30, sin 30), the other two equal: x lies in the free plane.
    const double c = std::cos(Pi / 6), s = std::sin(Pi / 6);
    const PrincipalValues p = ComputePrincipalValues(Stresses(1, 1 - 3 * c * c, 1 - 3 * s * s, 0, -3 * c * s, 0));
    EXPECT_NEAR(p.Stresses[2], -2, 1e-15);
    EXPECT_EQ(p.First, (Vector3{1, 0, 0}));
    EXPECT_NEAR(p.Third[1], c, 1e-15);
    EXPECT_NEAR(p.Third[2], s, 1e-15);
    // Along (1, 1, 1) / sqrt(3): the projection of x is (2, -1, -1) / sqrt(6).
    const PrincipalValues q = ComputePrincipalValues(Stresses(0, 0, 0, -1, -1, -1));
    EXPECT_NEAR(q.First[0], 2 / std::sqrt(6.0), 1e-14);
    EXPECT_NEAR(q.First[1], -1 / std::sqrt(6.0), 1e-14);
    EXPECT_NEAR(q.First[2], -1 / std::sqrt(6.0), 1e-14);
    EXPECT_NEAR(q.Third[0], 1 / std::sqrt(3.0), 1e-15);
}

TEST(PrincipalValues, StressesThatAgreeWithinTheToleranceCountAsEqual) {
    // 5E-9 of the largest apart, turned by 45 degrees in their plane.
    EXPECT_EQ(ComputePrincipalValues(Stresses(0, 0, -1, 2.5e-9)).First, (Vector3{1, 0, 0}));
    const PrincipalValues apart = ComputePrincipalValues(Stresses(0, 0, -1, 2.5e-8));
    EXPECT_NEAR(apart.First[0], std::sqrt(0.5), 1e-8);
    EXPECT_NEAR(apart.First[1], std::sqrt(0.5), 1e-8);
}

TEST(PrincipalValues, TinyCosinesAreZero) {
    const PrincipalValues p = ComputePrincipalValues(Stresses(1, 0.5, -1, 0, 0, 1e-9));
    EXPECT_EQ(p.First, (Vector3{1, 0, 0}));
    EXPECT_EQ(p.Third, (Vector3{0, 0, 1}));
}

TEST(PrincipalValues, DirectionsAreThoseOfTheStressesWithTheFirstCosinePositive) {
    std::mt19937_64 random(5);
    for (int i = 0; i < 2000; ++i) {
        std::array<Vector3, 3> axes;
        const SymmetricTensor t = Rotated({2, 0.5, -3}, random, axes);
        const PrincipalValues p = ComputePrincipalValues(Stresses(t.XX, t.YY, t.ZZ, t.XY, t.YZ, t.ZX));
        EXPECT_NEAR(std::fabs(Dot(p.First, axes[0])), 1, 1e-14);
        EXPECT_NEAR(std::fabs(Dot(p.Third, axes[2])), 1, 1e-14);
        EXPECT_GT(p.First[0], 0);
        EXPECT_GT(p.Third[0], 0);
        EXPECT_NEAR(p.ShearStress, 2.5, 1e-14);
    }
}

// Engineering shear of 200 in x-y: principal strains +100 and -100, the largest shear strain 200 again.
TEST(PrincipalValues, StrainsTakeHalfOfTheEngineeringShear) {
    Components values{};
    values[GAMxy] = 200;
    const PrincipalValues p = ComputePrincipalValues(values);
    EXPECT_NEAR(p.Strains[0], 100, 1e-13);
    EXPECT_NEAR(p.Strains[1], 0, 1e-13);
    EXPECT_NEAR(p.Strains[2], -100, 1e-13);
    EXPECT_NEAR(p.ShearStrain, 200, 1e-13);
}

// Hooke's law in principal axes: EPS1 = (SIG1 - nu (SIG2 + SIG3)) / E.
TEST(PrincipalValues, StrainsOfAnIsotropicMaterialFollowHookesLaw) {
    std::mt19937_64 random(6);
    const double E = 5000, nu = 0.35;
    for (int i = 0; i < 500; ++i) {
        std::array<Vector3, 3> axes;
        const SymmetricTensor t = Rotated({0.4, -0.1, -0.7}, random, axes);
        Components v = Stresses(t.XX, t.YY, t.ZZ, t.XY, t.YZ, t.ZX);
        v[EPSx] = (t.XX - nu * (t.YY + t.ZZ)) / E;
        v[EPSy] = (t.YY - nu * (t.XX + t.ZZ)) / E;
        v[EPSz] = (t.ZZ - nu * (t.XX + t.YY)) / E;
        v[GAMxy] = 2 * (1 + nu) / E * t.XY;
        v[GAMyz] = 2 * (1 + nu) / E * t.YZ;
        v[GAMzx] = 2 * (1 + nu) / E * t.ZX;
        const PrincipalValues p = ComputePrincipalValues(v);
        EXPECT_NEAR(p.Strains[0], (0.4 + nu * 0.8) / E, 1e-18);
        EXPECT_NEAR(p.Strains[2], (-0.7 - nu * 0.3) / E, 1e-18);
    }
}

}  // namespace
}  // namespace zirvo::solver
