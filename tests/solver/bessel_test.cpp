// The Bessel functions of every engine against Boost.Math.
#include <gtest/gtest.h>

#include <boost/math/special_functions/bessel.hpp>
#include <cmath>
#include <random>
#include <vector>

#include "solver/problems.h"
#include "solver/tables.h"

namespace zirvo::solver {
namespace {

/// Worst absolute error over the four orders at xi * r = x.
double WorstError(const Engine& engine, const std::vector<double>& xs) {
    double worst = 0;
    std::vector<double> rows[4];
    double* out[4];
    for (int order = 0; order < 4; ++order) {
        rows[order].resize(static_cast<std::size_t>(NodeBlock) * TileWidth);
        out[order] = rows[order].data();
    }
    for (std::size_t i = 0; i + TileWidth <= xs.size(); i += TileWidth) {
        const double xi = 0.5;  // a power of two: xi * r is x exactly
        double radii[TileWidth];
        for (std::size_t k = 0; k < TileWidth; ++k) {
            radii[k] = 2 * xs[i + k];
        }
        const double low = 0;
        engine.Bessel(Bessels(), &xi, &low, 1, radii, 1, out);
        for (std::size_t k = 0; k < TileWidth; ++k) {
            for (int order = 0; order < 4; ++order) {
                const double truth = boost::math::cyl_bessel_j(order, xs[i + k]);
                const double error = std::fabs(rows[order][k] - truth);
                worst = error <= worst ? worst : error;  // NaN stays
            }
        }
    }
    return worst;
}

TEST(BesselRows, AgreeWithTheLibraryFromZeroToAThousand) {
    std::mt19937_64 random(20261121);
    std::vector<double> xs = {0, 1e-300, 1e-20, 1e-8, 0.249999, 0.25, 0.250001, 1};
    std::uniform_real_distribution<double> small(0, 40);
    std::uniform_real_distribution<double> large(0, 1000);
    for (int i = 0; i < 40000; ++i) {
        xs.push_back(i % 2 == 0 ? small(random) : large(random));
    }
    for (const Engine* engine : AllEngines()) {
        EXPECT_LT(WorstError(*engine, xs), 2e-15) << engine->Name;
    }
}

// Zeros of J0 and J1 (Abramowitz and Stegun, table 9.5), where relative errors show, and both sides of the switch
// at 32.
TEST(BesselRows, AgreeWithTheLibraryAtZerosAndAtTheSwitch) {
    const std::vector<double> xs = {2.404825557695773,
                                    5.520078110286311,
                                    8.653727912911013,
                                    3.831705970207512,
                                    7.015586669815619,
                                    10.173468135062722,
                                    30.634606468431976,
                                    33.775820213573569,
                                    31.999999999999996,
                                    32,
                                    32.00000000000001,
                                    31.75,
                                    32.25,
                                    31.5,
                                    33,
                                    40};
    for (const Engine* engine : AllEngines()) {
        EXPECT_LT(WorstError(*engine, xs), 1e-15) << engine->Name;
    }
}

TEST(BesselRows, KeepTheirAccuracyAtAHundredThousand) {
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> large(9e4, 1.1e5);
    std::vector<double> xs;
    for (int i = 0; i < 4000; ++i) {
        xs.push_back(large(random));
    }
    for (const Engine* engine : AllEngines()) {
        EXPECT_LT(WorstError(*engine, xs), 2e-15) << engine->Name;
    }
}

TEST(ChebyshevWeights, ReproducePolynomialsOfDegreeFifteen) {
    const double low = 3;
    const double high = 7.5;
    const auto nodes = ChebyshevNodes(low, high);
    for (const double x : {3.0, 3.7, 5.25, 7.4999, 7.5, nodes[4]}) {
        const auto weights = ChebyshevWeights(low, high, x);
        double sum = 0;
        for (std::size_t k = 0; k < ChebyshevCount; ++k) {
            sum += weights[k] * std::pow((nodes[k] - 5) / 2.5, 15);
        }
        EXPECT_NEAR(sum, std::pow((x - 5) / 2.5, 15), 1e-14);
    }
}

}  // namespace
}  // namespace zirvo::solver
