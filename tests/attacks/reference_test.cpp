// The attack's reference, against the problems with true values: see tests/data/cases/README.md for their origin.
#include "reference.h"

#include <gtest/gtest.h>

#include <cmath>

#include "bessel_reference.h"
#include "half_space_reference.h"
#include "solver/case_file.h"
#include "wave_field.h"

namespace zirvo::attack {
namespace {

using solver::ComponentCount;

/// Points whose values jump or are infinite are not the reference's.
bool OnEdge(const solver::Problem& problem, const solver::Point& point) {
    for (const solver::Load& load : problem.Loads) {
        const double gap = std::hypot(point.X - load.X, point.Y - load.Y) - load.Radius;
        if (point.Z == 0 && std::fabs(gap) < 1e-5 * load.Radius) {
            return true;
        }
    }
    return false;
}

// The truth has 17 digits; one or two are lost where a value is read with its unit.
TEST(Reference, AgreesWithTheTrueValuesToTheirLastDigits) {
    constexpr std::size_t First[4] = {solver::U, solver::SIGx, solver::EPSx, ComponentCount};
    for (const std::string name : {"o02_one_layer_horizontal", "o07_three_layer_slip",
                                   "o08_three_layer_slip99_horizontal", "o13_poisson_extremes"}) {
        const auto file = solver::ReadCaseFile(ZIRVO_TEST_DATA "/cases/" + name + ".json");
        const auto values = ReferenceValues(file.TheProblem);
        ASSERT_EQ(values.size(), file.Truth.size()) << name;
        for (std::size_t p = 0; p < values.size(); ++p) {
            if (OnEdge(file.TheProblem, file.TheProblem.Points[p])) {
                continue;
            }
            for (std::size_t g = 0; g < 3; ++g) {
                const double factor = g == 0 ? 1 : g == 1 ? file.StressFactor : 1e6;
                double largest = 0;
                double off = 0;
                for (std::size_t c = First[g]; c < First[g + 1]; ++c) {
                    largest = std::max(largest, std::fabs(*file.Truth[p][c]));
                    const double error = std::fabs(values[p][c].Hi * factor - *file.Truth[p][c]);
                    off = error <= off ? off : error;  // NaN stays
                }
                EXPECT_LE(off, 2e-15 * largest) << name << " point " << p + 1 << " group " << g;
            }
        }
    }
}

// Far away what is left is a ten-millionth of the load: the window that ends the sums must be as exact as they are.
TEST(Reference, FarPointsAreTheSameWithOtherPanels) {
    solver::Problem problem;
    problem.Layers = {{7520, 0.388, 0.558, 0.5}, {1.27, 0.0313, 13.7, 0.99}, {1730, 0.0721, 26.3, 0.99}};
    problem.Loads = {{9.17, 5.35, 0, 0, 0, 0}};
    problem.Points = {{1, 1980, 0, 0}};
    const auto values = ReferenceValues(problem);
    const auto finer = ReferenceValues(problem, {10, 1.5});
    ASSERT_EQ(finer.size(), 1U);
    EXPECT_LT(values[0][solver::SIGx].Hi, -5e-7);
    EXPECT_LT(Size(values[0][solver::SIGx] - finer[0][solver::SIGx]), 1e-21);
    EXPECT_LT(Size(values[0][solver::W] - finer[0][solver::W]), 1e-21);
}

// exp(B q) as the sum of its powers, B of the law of elasticity (docs/theory.md).
TEST(Reference, TransferThroughALayerIsTheExponentialOfItsMatrix) {
    for (const double nu : {0.01, 0.35, 0.5}) {
        for (const double q : {1e-6, 0.3, 0.5, 1.2}) {
            const double d = 1 / (1 - nu);
            const double b[4][4] = {{0, -1, 2, 0}, {nu * d, 0, 0, (1 - 2 * nu) * d}, {d, 0, 0, -nu * d}, {0, 0, 1, 0}};
            double sum[4][4] = {};
            double power[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
            for (int n = 1; n < 40; ++n) {
                double next[4][4] = {};
                for (int i = 0; i < 4; ++i) {
                    for (int j = 0; j < 4; ++j) {
                        sum[i][j] += power[i][j];
                        for (int k = 0; k < 4; ++k) {
                            next[i][j] += power[i][k] * b[k][j] * q / n;
                        }
                    }
                }
                std::copy(&next[0][0], &next[0][0] + 16, &power[0][0]);
            }
            const auto transfer = Transfer(ElasticMatrices(nu), q);
            for (std::size_t i = 0; i < 4; ++i) {
                for (std::size_t j = 0; j < 4; ++j) {
                    EXPECT_NEAR(transfer[i][j].Hi, sum[i][j], 2e-15 * std::exp(q)) << nu << ' ' << q;
                }
            }
        }
    }
}

// On the axis: the integral of J1(x a) exp(-x z) is (1 - z / sqrt(a^2 + z^2)) / a.
TEST(Reference, HalfSpaceIntegralsOnTheAxisAreTheClosedForm) {
    const ReferenceIntegrals integrals = HalfSpaceIntegrals(15, 0, 4);
    EXPECT_NEAR(integrals.I[0][1].Hi, 1 - 4 / std::sqrt(225.0 + 16), 1e-15);
    EXPECT_NEAR(integrals.I[1][1].Hi, 0, 1e-25);
}

// Abramowitz and Stegun, table 9.1 and its recurrence, at 1; where the two methods meet, Taylor's step over the joint.
TEST(Reference, BesselFunctionsAreRightAndJoinWhereTheirMethodsMeet) {
    Two j[4];
    BesselOrders(1, j);
    EXPECT_DOUBLE_EQ(j[0].Hi, 0.76519768655796655145);
    EXPECT_DOUBLE_EQ(j[1].Hi, 0.44005058574493351596);
    EXPECT_DOUBLE_EQ(j[2].Hi, 0.11490348493190048047);
    EXPECT_DOUBLE_EQ(j[3].Hi, 0.01956335398266840592);
    const double step = 0x1p-40;
    Two below[4];
    Two above[4];
    BesselOrders(Two(40 - step), below);
    BesselOrders(Two(40), above);
    // J0' = -J1, J1' = J0 - J1 / x.
    EXPECT_LT(Size(above[0] - below[0] + Two(step) * above[1]), 1e-24);
    EXPECT_LT(Size(above[1] - below[1] - Two(step) * (above[0] - above[1] / Two(40))), 1e-24);
}

}  // namespace
}  // namespace zirvo::attack
