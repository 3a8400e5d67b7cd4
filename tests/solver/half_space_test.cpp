// The half-space: closed forms that can be worked out by hand, and integrals against other expressions for them.
#include "solver/half_space.h"

#include <gtest/gtest.h>

#include <boost/math/special_functions/ellint_1.hpp>
#include <boost/math/special_functions/ellint_2.hpp>
#include <cmath>

#include "solver/problems.h"
#include "solver/tables.h"

namespace zirvo::solver {
namespace {

Problem HalfSpaceOf(double modulus, double nu) {
    Problem problem;
    problem.Layers = {{modulus, nu, 0, 0}};
    problem.Loads = {{0.7 * Pi * 225, 15, 0, 0, 0, 0}};
    return problem;
}

// By hand: 2 (1 - 0.5^2) * 0.7 MPa * 15 cm / 100 MPa = 0.1575 cm.
TEST(HalfSpace, DeflectionUnderTheCentreIsTheHandComputedValue) {
    EXPECT_NEAR(At(HalfSpaceOf(100, 0.5), {1, 0, 0, 0}).Values[W], 0.1575, 1e-16);
}

// On the axis: SIGz = -p (1 - z^3 / (a^2 + z^2)^1.5), SIGr = -p / 2 (1 + 2 nu - 2 (1 + nu) z / s + (z / s)^3) with
// s = sqrt(a^2 + z^2); W from the same source: Poulos and Davis (1974), Elastic Solutions for Soil and Rock
// Mechanics, 3.3.
TEST(HalfSpace, StressesOnTheAxisAreTheKnownClosedForms) {
    const double nu = 0.35;
    const Problem problem = HalfSpaceOf(100, nu);
    for (const double z : {0.0, 1e-6, 0.001, 0.5, 7.5, 15.0, 60.0, 1000.0}) {
        const PointResult result = At(problem, {1, 0, 0, z});
        const double s = z / std::hypot(15, z);
        const double sigz = -0.7 * (1 - s * s * s);
        const double sigr = -0.35 * (1 + 2 * nu - 2 * (1 + nu) * s + s * s * s);
        EXPECT_NEAR(result.Values[SIGz], sigz, 1e-15) << z;
        EXPECT_NEAR(result.Values[SIGx], sigr, 1e-15) << z;
        EXPECT_NEAR(result.Values[SIGy], sigr, 1e-15) << z;
        EXPECT_EQ(result.Values[U], 0);
        EXPECT_EQ(result.Values[TAUzx], 0);
    }
}

// Deflection at the edge: 4 (1 - nu^2) p a / (pi E).
TEST(HalfSpace, DeflectionAtTheEdgeIsTheKnownClosedForm) {
    EXPECT_NEAR(At(HalfSpaceOf(100, 0.25), {1, 15, 0, 0}).Values[W], 4 * (1 - 0.0625) * 0.7 * 15 / (Pi * 100), 1e-16);
}

// I(0, -1) at z = 0 by complete elliptic integrals: inside (2 a / pi) E(r / a), outside
// (2 / pi) (r E(a / r) - (r^2 - a^2) / r K(a / r)).
TEST(HalfSpace, SurfaceDeflectionAgreesWithEllipticIntegrals) {
    const double a = 15;
    for (const Engine* engine : AllEngines()) {
        for (const double share : {0.0, 1e-9, 0.1, 0.5, 0.9, 0.999, 0.9999999, 1.0, 1.0000001, 1.001, 1.1, 2.0, 10.0}) {
            const double r = a * share;
            HalfSpaceIntegrals integrals;
            engine->HalfSpace(Angles(), a, r - a, 0, integrals);
            const double k = share <= 1 ? share : 1 / share;
            const double e = boost::math::ellint_2(k);
            double truth = 2 * a / Pi * e;
            if (share > 1) {
                truth = 2 / Pi * (r * e - (r * r - a * a) / r * boost::math::ellint_1(k));
            }
            EXPECT_NEAR(integrals.I[0][0], truth, 1e-12 * truth) << engine->Name << " r / a " << share;
        }
    }
}

// Far away I(0, -1) is a^2 / (2 r) (1 + (a / r)^2 / 8 ..), where the integrand almost cancels.
TEST(HalfSpace, SurfaceDeflectionFarAwayKeepsTwelveDigits) {
    for (const Engine* engine : AllEngines()) {
        HalfSpaceIntegrals integrals;
        engine->HalfSpace(Angles(), 15, 29985, 0, integrals);
        EXPECT_NEAR(integrals.I[0][0] / (225 / 60000.0 * (1 + 0.125 / 4e6)), 1, 2e-12) << engine->Name;
    }
}

// The surface limits: I(0, 0) is 1, 1/2, 0 and I(2, 0) is 0, 1/2, (a / r)^2 inside, on and outside the circle; just
// below the surface the sums must come near them.
TEST(HalfSpace, AngularSumsJoinTheSurfaceLimits) {
    HalfSpaceIntegrals integrals;
    for (const Engine* engine : AllEngines()) {
        engine->HalfSpace(Angles(), 15, -8, 1e-9, integrals);
        EXPECT_NEAR(integrals.I[0][1], 1, 1e-9);
        EXPECT_NEAR(integrals.I[2][1], 0, 1e-9);
        engine->HalfSpace(Angles(), 15, 15, 1e-9, integrals);
        EXPECT_NEAR(integrals.I[0][1], 0, 1e-9);
        EXPECT_NEAR(integrals.I[2][1], 0.25, 1e-9);
        engine->HalfSpace(Angles(), 15, 0, 1e-9, integrals);
        EXPECT_NEAR(integrals.I[0][1], 0.5, 1e-8);
        EXPECT_NEAR(integrals.I[2][1], 0.5, 1e-8);
    }
}

// A horizontal load outside of itself far away acts like a force: Cerruti's solution at the surface,
// U(x, 0) = H (1 + nu) / (pi E x), U(0, y) = H (1 - nu^2) / (pi E y), W(x, 0) = H (1 + nu) (1 - 2 nu) / (2 pi E x)
// (Johnson, Contact Mechanics, 3.76), to (a / r)^2.
TEST(HalfSpace, HorizontalLoadFarAwayIsAPointForce) {
    Problem problem;
    const double nu = 0.3;
    problem.Layers = {{100, nu, 0, 0}};
    problem.Loads = {{0, 1, 0, 0, 5, 0}};
    const double r = 2000;
    const PointResult ahead = At(problem, {1, r, 0, 0});
    const PointResult beside = At(problem, {1, 0, r, 0});
    EXPECT_NEAR(ahead.Values[U] / (5 * (1 + nu) / (Pi * 100 * r)), 1, 1e-6);
    EXPECT_NEAR(ahead.Values[W] / (5 * (1 + nu) * (1 - 2 * nu) / (2 * Pi * 100 * r)), 1, 1e-6);
    EXPECT_NEAR(beside.Values[U] / (5 * (1 - nu * nu) / (Pi * 100 * r)), 1, 1e-6);
    EXPECT_NEAR(beside.Values[W], 0, 1e-15);
}

TEST(HalfSpace, PointWithinAMillionthOfTheEdgeCountsAsOnIt) {
    EXPECT_EQ(ContactOf(15 * 0.9e-6, 15), Contact::Edge);
    EXPECT_EQ(ContactOf(15 * 1.1e-6, 15), Contact::Outside);
    EXPECT_EQ(ContactOf(15 * -1.1e-6, 15), Contact::Inside);
    const Problem problem = HalfSpaceOf(100, 0.3);
    const PointResult on = At(problem, {1, 15 * (1 + 0.9e-6), 0, 0});
    EXPECT_DOUBLE_EQ(on.Values[SIGz], -0.35);
    EXPECT_TRUE(on.OnLoadEdge);
    EXPECT_EQ(At(problem, {1, 15 * (1 + 1.1e-6), 0, 0}).Values[SIGz], 0);
    EXPECT_DOUBLE_EQ(At(problem, {1, 15 * (1 - 1.1e-6), 0, 0}).Values[SIGz], -0.7);
    // Below the surface nothing snaps.
    EXPECT_FALSE(At(problem, {1, 15, 0, 1e-9}).OnLoadEdge);
}

// What a horizontal load makes infinite at its edge is the mean of the values 0.001 of the radius inside and outside.
TEST(HalfSpace, InfiniteValuesAtTheEdgeAreTheMeanOfBothSides) {
    Problem problem;
    problem.Layers = {{100, 0.3, 0, 0}};
    problem.Loads = {{0, 15, 2, -1, 300, 25}};
    const double c = std::cos(0.7);
    const double s = std::sin(0.7);
    const PointResult on = At(problem, {1, 2 + 15 * c, -1 + 15 * s, 0});
    const PointResult in = At(problem, {1, 2 + 15 * 0.999 * c, -1 + 15 * 0.999 * s, 0});
    const PointResult out = At(problem, {1, 2 + 15 * 1.001 * c, -1 + 15 * 1.001 * s, 0});
    ASSERT_TRUE(on.OnLoadEdge);
    for (const int i : {SIGx, SIGy, TAUxy, EPSx, EPSy, EPSz, GAMxy}) {
        const auto k = static_cast<std::size_t>(i);
        EXPECT_NEAR(on.Values[k], 0.5 * (in.Values[k] + out.Values[k]), 1e-12) << i;
    }
    EXPECT_NEAR(on.Values[TAUzx], -0.5 * 300 / (Pi * 225) * std::cos(25 * Pi / 180), 1e-16);
}

}  // namespace
}  // namespace zirvo::solver
