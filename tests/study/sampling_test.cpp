// Distributions against values of tables, and numbers that are the same on every machine.
#include "study/sampling.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zirvo::study {
namespace {

using Kind = Distribution::Kind;
constexpr double Infinity = std::numeric_limits<double>::infinity();

Distribution Normal(double mean, double deviation, double lower = -Infinity, double upper = Infinity) {
    return {Kind::Normal, 0, 0, 0, mean, deviation, lower, upper};
}

// Tables of the normal distribution: 97.5 % lie below 1.959964, 99.9 % below 3.090232.
TEST(Sampling, QuantilesOfTheNormalDistributionAreThoseOfTheTables) {
    EXPECT_NEAR(Quantile(Normal(0, 1), 0.975), 1.959964, 1e-6);
    EXPECT_NEAR(Quantile(Normal(0, 1), 0.001), -3.090232, 1e-6);
    EXPECT_NEAR(Quantile(Normal(100, 10), 0.5), 100, 1e-9);
}

// Cut at -1 and 1 a quarter of what is left lies below the 0.158655 + 0.682689 / 4 = 0.329328 quantile: -0.44177.
TEST(Sampling, ACutDistributionKeepsItsShapeBetweenTheEnds) {
    const Distribution cut = Normal(0, 1, -1, 1);
    EXPECT_NEAR(Quantile(cut, 0.25), -0.44177, 1e-4);
    EXPECT_GE(Quantile(cut, 1e-16), -1);
    EXPECT_LE(Quantile(cut, 1 - 1e-16), 1);
}

// 1.8E-9 of a normal distribution lie above 5.9; the rest and all of these but the last digit are 1 to a double, and a
// share of 1 has no number.
TEST(Sampling, TheLastShareOfATailThatIsCutOffHasANumber) {
    const double last = Quantile(Normal(0, 1, 5.9), 1 - 0x1p-53);
    EXPECT_GE(last, 5.9);
    EXPECT_LT(last, 9);
    EXPECT_LT(Quantile(Normal(0, 1), 1), 9);
}

// Mean 100, deviation 50: variance of the logarithm ln 1.25 = 0.223144, median 100 / sqrt(1.25) = 89.4427.
TEST(Sampling, TheMedianOfALognormalDistributionIsTheHandWorkedOne) {
    const Distribution d{Kind::Lognormal, 0, 0, 0, 100, 50, -Infinity, Infinity};
    EXPECT_NEAR(Quantile(d, 0.5), 89.4427, 1e-4);
    EXPECT_NEAR(Quantile(d, 0.975), 89.4427 * std::exp(1.959964 * std::sqrt(0.223144)), 1e-2);
}

// From 0 over 2 to 10: a fifth below the mode; 0.05 below sqrt(0.05 * 10 * 2) = 1.
TEST(Sampling, TriangularAndUniformAreTheHandWorkedOnes) {
    const Distribution triangle{Kind::Triangular, 0, 2, 10, 0, 0, 0, 0};
    EXPECT_NEAR(Quantile(triangle, 0.2), 2, 1e-12);
    EXPECT_NEAR(Quantile(triangle, 0.05), 1, 1e-12);
    EXPECT_NEAR(Quantile({Kind::Uniform, 2, 0, 6, 0, 0, 0, 0}, 0.25), 3, 1e-12);
}

TEST(Sampling, MomentsOfASampleAreThoseOfItsDistribution) {
    constexpr int Count = 100000;
    double sum = 0;
    double squares = 0;
    for (int i = 0; i < Count; ++i) {
        const double x = Quantile(Normal(100, 10), EvenNumber(1, static_cast<std::uint64_t>(i), 0));
        sum += x;
        squares += (x - 100) * (x - 100);
    }
    EXPECT_NEAR(sum / Count, 100, 4 * 10 / std::sqrt(Count));  // four standard errors
    EXPECT_NEAR(std::sqrt(squares / Count), 10, 4 * 10 / std::sqrt(2.0 * Count));
}

// Pinned: a study of another day or another machine draws the same rows.
TEST(Sampling, TheNumbersOfASeedAreAlwaysTheSame) {
    EXPECT_EQ(EvenNumber(1, 0, 0), EvenNumber(1, 0, 0));
    EXPECT_NE(EvenNumber(1, 0, 0), EvenNumber(1, 0, 1));
    EXPECT_NE(EvenNumber(1, 0, 0), EvenNumber(1, 1, 0));
    EXPECT_NE(EvenNumber(1, 0, 0), EvenNumber(2, 0, 0));
    double least = 1;
    double most = 0;
    for (std::uint64_t i = 0; i < 1000; ++i) {
        least = std::min(least, EvenNumber(5, i, 3));
        most = std::max(most, EvenNumber(5, i, 3));
    }
    EXPECT_GT(least, 0);
    EXPECT_LT(least, 0.01);
    EXPECT_LT(most, 1);
    EXPECT_GT(most, 0.99);
}

TEST(Sampling, NumbersThatDoNotGoTogetherAreTold) {
    EXPECT_EQ(ReasonAgainst(Normal(1, 0)), "deviation 0: is not above 0");
    EXPECT_EQ(ReasonAgainst(Normal(0, 1, 50, 60)), "next to nothing of the distribution lies between lower and upper");
    EXPECT_EQ(ReasonAgainst({Kind::Triangular, 0, 20, 10, 0, 0, 0, 0}), "mode 20: does not lie between from and to");
    EXPECT_EQ(ReasonAgainst({Kind::Lognormal, 0, 0, 0, -1, 1, -Infinity, Infinity}),
              "mean -1: is not above 0, as that of a lognormal distribution must be");
    EXPECT_EQ(ReasonAgainst(Normal(0, 1)), "");
}

}  // namespace
}  // namespace zirvo::study
