// Values that others have published.
#include <gtest/gtest.h>

#include "solver/problems.h"

namespace zirvo::solver {
namespace {

// The single wheel of the European AMADEUS project (final report, 2000), rounded as printed there: 0.7 MPa on a radius
// of 15.08 cm; E 5000, 200, 50 MPa, nu 0.35, 0.40, 0.45, h 26, 50 cm, full bond. Strains in micro.
TEST(PublishedValues, SingleWheelOfTheAmadeusProject) {
    Problem problem;
    problem.Layers = {{5000, 0.35, 26, 0}, {200, 0.40, 50, 0}, {50, 0.45, 0, 0}};
    problem.Loads = {{0.7 * Pi * 15.08 * 15.08, 15.08, 0, 0, 0, 0}};
    EXPECT_NEAR(At(problem, {1, 0, 0, 26}).Values[EPSx] * 1e6, 100.5, 0.05);
    EXPECT_NEAR(At(problem, {1, 15.08, 0, 26}).Values[EPSx] * 1e6, 61.9, 0.05);
    EXPECT_NEAR(At(problem, {2, 0, 0, 26}).Values[EPSz] * 1e6, -251.7, 0.05);
    EXPECT_NEAR(At(problem, {2, 15.08, 0, 26}).Values[EPSz] * 1e6, -192.2, 0.05);
    EXPECT_NEAR(At(problem, {3, 0, 0, 76}).Values[EPSz] * 1e6, -185.1, 0.05);
    EXPECT_NEAR(At(problem, {3, 15.08, 0, 76}).Values[EPSz] * 1e6, -177.5, 0.05);
}

}  // namespace
}  // namespace zirvo::solver
