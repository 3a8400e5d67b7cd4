// Two-part numbers, and the sum that takes all loads of a place together.
#include "solver/joint_sum.h"

#include <gtest/gtest.h>

#include <boost/math/special_functions/bessel.hpp>
#include <boost/multiprecision/cpp_bin_float.hpp>
#include <cmath>

#include "solver/problems.h"

namespace zirvo::solver {
namespace {

// Against Boost.Math in 50 digits; both sides of the switch at 48.
TEST(TwoPartBessel, AgreesWithTheLibraryToThirtyDigits) {
    using Wide = boost::multiprecision::cpp_bin_float_50;
    for (const double x : {1e-120, 1e-8, 0.003, 0.7, 1.0, 2.404825557695773, 5.0, 13.3, 30.0, 47.99, 48.0, 48.01, 55.5,
                           90.0, 300.0, 4567.8, 1e5}) {
        for (const double low : {0.0, 0.4 * x * 1.1e-16}) {
            TwoPart j[4];
            TwoPartBessel({x, low}, j);
            for (int order = 0; order < 4; ++order) {
                const Wide truth = boost::math::cyl_bessel_j(order, Wide(x) + Wide(low));
                const Wide off = Wide(j[order].High) + Wide(j[order].Low) - truth;
                EXPECT_LT(std::fabs(static_cast<double>(off)), 2e-31 * std::max(1.0, x / 50)) << x << ' ' << order;
            }
        }
    }
}

TEST(SineCosine, OfAQuarterAndOfAnEighthAreExactToThirtyDigits) {
    TwoPart sine;
    TwoPart cosine;
    SineCosine(TwoPartPi / TwoPart(4), sine, cosine);
    EXPECT_LT(std::fabs((sine * sine - TwoPart(0.5)).High), 1e-31);
    SineCosine(TwoPartPi / TwoPart(6), sine, cosine);
    EXPECT_LT(std::fabs((sine - TwoPart(0.5)).High), 1e-31);
    SineCosine(TwoPart(101) * TwoPartPi / TwoPart(2), sine, cosine);
    EXPECT_LT(std::fabs((sine - TwoPart(1)).High), 1e-29);
    EXPECT_LT(std::fabs(cosine.High), 1e-29);
}

/// Three wheels of two radii, two of them braking.
Problem Wheels(double slip) {
    Problem problem = ClassicRoad(slip);
    problem.Loads = {{245, 11, -20, 5, 60, 25}, {245, 13, 40, 0, 0, 0}, {-100, 11, 3, -30, 80, -110}};
    return problem;
}

// The same values by two ways: single sums added up, and one sum of all.
TEST(JointSum, OfLoadsThatDoNotCancelIsWhatTheirSumsAddUpTo) {
    for (const double slip : {0.0, 0.6}) {
        const Problem problem = Wheels(slip);
        const LayerTable layers(problem);
        const LoadScale scale{245 / CircleArea(11), 13};
        for (const double x : {4.0, 75.0, 900.0}) {
            const std::vector<SourceDepth> sources = {{1, 20, 20}, {2, 60, 60}};
            JointSum joint(problem, layers, BestEngine(), scale, x, 8, sources);
            EXPECT_GT(joint.Cost(), 0);
            const auto sums = joint.Run();
            ASSERT_EQ(sums.size(), 2U);
            for (std::size_t d = 0; d < 2; ++d) {
                const auto layer = static_cast<std::size_t>(sources[d].Layer);
                const PointResult result = ComposeResult(sums[d], layers.M2[layer], layers.Nu[layer], false, scale);
                const Point point{sources[d].Layer + 1, x, 8, sources[d].Z};
                const PointResult plain = At(problem, point);
                Problem one = problem;
                one.Points = {point};
                EXPECT_LT(Disagreement(one, 0, result, plain), 1e-3) << slip << ' ' << x << ' ' << d;
                for (std::size_t g = 0; g < 3; ++g) {
                    EXPECT_LT(result.Estimates[g], 1e-12) << slip << ' ' << x << ' ' << d;
                }
            }
        }
    }
}

// Opposite loads in one place, whose sums made apart would leave rounding behind, and three shears that close a
// triangle, told at once by symmetry.
TEST(JointSum, LoadsThatCancelWhollyLeaveNothing) {
    Problem problem = ClassicRoad(0.3);
    problem.Loads = {{245, 11, 0, 0, 90, 15}, {0, 11, 0, 0, 90, 135}, {-245, 11, 0, 0, 90, 255}};
    const LayerTable layers(problem);
    JointSum joint(problem, layers, BestEngine(), {245 / CircleArea(11), 11}, 30, 40, {{1, 20, 20}});
    const PointSums sums = joint.Run()[0];
    const double unit = 245 / CircleArea(11) * 11 / 50;
    for (const double value : {sums.U, sums.V, sums.W}) {
        EXPECT_LT(std::fabs(value), 1e-27 * unit);
    }
}

}  // namespace
}  // namespace zirvo::solver
