// The same answer whatever other points, loads, order, engines and threads stand behind it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

#include "solver/layered_sums.h"
#include "solver/problems.h"
#include "solver/solve_with.h"

namespace zirvo::solver {
namespace {

/// Eight wheels of two radii, some braking.
Problem Gear(double slip) {
    Problem problem = ClassicRoad(slip);
    for (int i = 0; i < 8; ++i) {
        problem.Loads.push_back({245, i % 3 == 0 ? 13.0 : 11.0, -100.0 + 60 * (i % 4), -70.0 + 140 * (i / 4),
                                 i % 2 == 0 ? 60.0 : 0.0, 25.0 * i});
    }
    return problem;
}

TEST(Sameness, APointAloneAgreesWithItselfAmongThousands) {
    for (const double slip : {0.0, 0.7}) {
        Problem problem = Gear(slip);
        std::mt19937_64 random(99);
        std::uniform_real_distribution<double> plane(-250, 250);
        std::uniform_real_distribution<double> share(0, 1);
        for (int i = 0; i < 3000; ++i) {
            // A third at the surface, a third anywhere (so that depths lie close together), a third on a few depths.
            const double z = i % 3 == 0 ? 0 : i % 3 == 1 ? 120 * share(random) : 15.0 * (i % 7);
            problem.Points.push_back({z <= 15 ? 1 : z <= 45 ? 2 : 3, plane(random), plane(random), z});
        }
        const Solution all = Solve(problem, {2});
        EXPECT_LT(all.LargestEstimate, PromisedError);
        for (std::size_t i = 0; i < problem.Points.size(); i += 61) {
            EXPECT_LT(Disagreement(problem, i, At(problem, problem.Points[i]), all.Points[i]), 1) << slip << ' ' << i;
        }
    }
}

TEST(Sameness, ManyDepthsInOneLayerAgreeWithEachAlone) {
    for (const double slip : {0.0, 0.9}) {
        Problem problem = Gear(slip);
        for (int i = 0; i <= 400; ++i) {
            const double z = 0.25 * i;
            problem.Points.push_back({z <= 15 ? 1 : z <= 45 ? 2 : 3, 10, -60, z});
        }
        const Solution all = Solve(problem, {1});
        for (std::size_t i = 0; i < problem.Points.size(); i += 7) {
            EXPECT_LT(Disagreement(problem, i, At(problem, problem.Points[i]), all.Points[i]), 1) << slip << ' ' << i;
        }
    }
}

// More loads of one radius than cells of radii: whole tables are interpolated in z.
TEST(Sameness, ManyLoadsAtManyDepthsAgreeWithEachPointAlone) {
    Problem problem = ClassicRoad(0.2);
    for (int i = 0; i < 60; ++i) {
        problem.Loads.push_back({245, 11, 31.0 * (i % 10), 27.0 * (i / 10), i % 4 == 0 ? 50.0 : 0.0, 10.0 * i});
    }
    for (int i = 0; i < 300; ++i) {
        const double z = 0.3 * i;
        problem.Points.push_back({z <= 15 ? 1 : z <= 45 ? 2 : 3, 1.5 * i, 0.7 * i, z});
    }
    const Solution all = Solve(problem, {1});
    EXPECT_LT(all.LargestEstimate, PromisedError);
    for (std::size_t i = 0; i < problem.Points.size(); i += 11) {
        EXPECT_LT(Disagreement(problem, i, At(problem, problem.Points[i]), all.Points[i]), 1) << i;
    }
}

TEST(Sameness, ThreadsDoNotChangeABit) {
    Problem problem = Gear(0.4);
    for (int i = 0; i < 500; ++i) {
        const double z = 1.7 * (i % 60);
        problem.Points.push_back({z <= 15 ? 1 : z <= 45 ? 2 : 3, 3.0 * (i % 17), 4.0 * (i % 23), z});
    }
    const Solution one = Solve(problem, {1});
    for (const int threads : {2, 3, 8}) {
        const Solution more = Solve(problem, {threads});
        for (std::size_t i = 0; i < problem.Points.size(); ++i) {
            ASSERT_EQ(one.Points[i].Values, more.Points[i].Values) << threads;
            ASSERT_EQ(one.Points[i].Estimates, more.Points[i].Estimates) << threads;
        }
    }
}

TEST(Sameness, OrderOfLoadsAndPointsDoesNotMatter) {
    Problem problem = Gear(0.4);
    for (int i = 0; i < 40; ++i) {
        problem.Points.push_back({i % 2 == 0 ? 1 : 2, 3.0 * i, -5.0 * i, i % 2 == 0 ? 7.0 : 20.0});
    }
    Problem turned = problem;
    std::reverse(turned.Loads.begin(), turned.Loads.end());
    std::reverse(turned.Points.begin(), turned.Points.end());
    const Solution a = Solve(problem, {1});
    const Solution b = Solve(turned, {1});
    for (std::size_t i = 0; i < problem.Points.size(); ++i) {
        EXPECT_LT(Disagreement(problem, i, a.Points[i], b.Points[problem.Points.size() - 1 - i]), 1e-3);
    }
}

TEST(Sameness, LoadsInOnePlaceAreOneLoadAndMayCancel) {
    Problem two = ClassicRoad(0.3);
    Problem one = two;
    two.Loads = {{300, 15, 1, 2, 40, 0}, {190, 15, 1, 2, 30, 90}};
    one.Loads = {{490, 15, 1, 2, 50, std::atan2(30, 40) * 180 / 3.14159265358979323846}};
    const Point point{2, 9, 4, 30};
    two.Points = {point};
    EXPECT_LT(Disagreement(two, 0, At(one, point), At(two, point)), 0.01);
    two.Loads = {{300, 15, 1, 2, 40, 0}, {-300, 15, 1, 2, 40, 180}};
    const PointResult nothing = At(two, point);
    for (const double value : nothing.Values) {
        EXPECT_NEAR(value, 0, 1e-15);
    }
    for (const double estimate : nothing.Estimates) {
        EXPECT_LT(estimate, PromisedError);
    }
}

// 1E6 kgf up and down, and two of a gram: only these are left, whatever the order in which the forces are added.
TEST(Sameness, LoadsInOnePlaceLeaveWhatIsLeftOfThemToTheLastDigit) {
    Problem problem = ClassicRoad(0.3);
    problem.Points = {{1, 0, 0, 0}, {2, 9, 4, 30}};
    Problem rest = problem;
    rest.Loads = {{0.003, 15, 1, 2, 0.0005, 90}};
    const Solution truth = Solve(rest, {1});
    std::vector<Load> loads = {
        {-1e6, 15, 1, 2, 2e5, 17}, {0.001, 15, 1, 2, 0, 0}, {1e6, 15, 1, 2, 2e5, -163}, {0.002, 15, 1, 2, 0.0005, 90}};
    const auto byForce = [](const Load& a, const Load& b) { return a.Vertical < b.Vertical; };
    std::sort(loads.begin(), loads.end(), byForce);
    do {
        problem.Loads = loads;
        const Solution solution = Solve(problem, {1});
        for (std::size_t i = 0; i < problem.Points.size(); ++i) {
            for (std::size_t c = 0; c < ComponentCount; ++c) {
                EXPECT_NEAR(solution.Points[i].Values[c], truth.Points[i].Values[c],
                            1e-12 * std::fabs(truth.Points[i].Values[c]) + 1e-25)
                    << i << ' ' << c;
            }
        }
    } while (std::next_permutation(loads.begin(), loads.end(), byForce));
}

TEST(Sameness, LoadsOfNothingGiveZerosWithoutError) {
    Problem problem = ClassicRoad(0.3);
    problem.Loads = {{0, 15, 0, 0, 0, 0}};
    for (const Point& point : {Point{1, 0, 0, 0}, Point{2, 5, 0, 20}}) {
        const PointResult result = At(problem, point);
        for (const double value : result.Values) {
            EXPECT_EQ(value, 0);
        }
        for (const double estimate : result.Estimates) {
            EXPECT_EQ(estimate, 0);
        }
    }
}

// Many braking wheels of several radii and points at depths of their own: interpolation in z must be judged by itself,
// not by the rounding of the sums that it stands on.
TEST(Sameness, ScatteredPointsAgreeWithEachAlone) {
    Problem problem;
    problem.Layers = {{5000, 0.35, 1, 0}, {1000, 0.35, 20, 0.4}, {200, 0.35, 30, 0}, {50, 0.4, 0, 0}};
    std::mt19937_64 random(5);
    std::uniform_real_distribution<double> plane(-50, 50);
    std::uniform_real_distribution<double> share(0, 1);
    for (int i = 0; i < 20; ++i) {
        problem.Loads.push_back({245, 10.0 + i % 4, plane(random), plane(random), 25, 18.0 * i});
    }
    for (int i = 0; i < 1500; ++i) {
        problem.Points.push_back({i % 2 + 1, plane(random), plane(random), i % 2 + share(random)});
    }
    const Solution all = Solve(problem, {2});
    EXPECT_LT(all.LargestEstimate, PromisedError);
    for (std::size_t i = 0; i < problem.Points.size(); i += 37) {
        EXPECT_LT(Disagreement(problem, i, At(problem, problem.Points[i]), all.Points[i]), 1) << i;
    }
}

// Numbers that are no pavement give no numbers back, and at once.
TEST(Sameness, AbsurdSizesGiveNoNumbers) {
    for (int kind = 0; kind < 6; ++kind) {
        Problem problem = ClassicRoad(0.3);
        problem.Loads = {Wheel()};
        Point point{3, 5, 5, 60};
        switch (kind) {
            case 0:
                problem.Layers[0].Thickness = 1e15;
                point = {1, 5, 5, 60};
                break;
            case 1:
                problem.Loads[0].Radius = 1e300;
                break;
            case 2:
                point.X = 1e30;
                break;
            case 3:
                problem.Layers[1].Modulus = 1e300;
                break;
            case 4:
                problem.Layers[0].Modulus = 1e17;  // 2E15 times the subgrade's
                break;
            default:
                problem.Loads[0].Vertical = std::numeric_limits<double>::infinity();
                break;
        }
        const PointResult result = At(problem, point);
        EXPECT_TRUE(std::isnan(result.Values[W])) << kind;
        EXPECT_TRUE(std::isinf(result.Estimates[0])) << kind;
    }
}

// On the plane of symmetry between two wheels nothing is turned: zeros, no noise that a report would show.
TEST(Sameness, ValuesThatVanishBySymmetryAreZeros) {
    Problem problem = ClassicRoad(0);
    problem.Loads = {{245, 11, -16, 0, 0, 0}, {245, 11, 16, 0, 0, 0}};
    for (const Point& point : {Point{1, 0, 7, 0}, Point{1, 0, 7, 9}, Point{2, 0, 40, 30}}) {
        const auto v = At(problem, point).Values;
        EXPECT_EQ(v[U], 0);
        EXPECT_EQ(v[TAUxy], 0);
        EXPECT_EQ(v[TAUzx], 0);
        EXPECT_EQ(v[GAMxy], 0);
        EXPECT_NE(v[V], 0);
        EXPECT_FALSE(std::signbit(v[U]));
    }
}

// The wheel beside it bends the film under the point so that its stresses are 1E9 and more.
TEST(Sameness, APressureThatIsNothingBesideTheStressesIsZeroAndItsBoundSaysSo) {
    Problem problem;
    problem.Layers = {{457231, 0.5, 0.001, 0}, {0.1, 0.5, 0, 0}};
    problem.Loads = {{0.0054, 17, 0, 0.46, 104813, 135}, {46180, 0.114, -0.078, 0, 0, 0}};
    const Point under{1, 0, 0.46, 0};
    const PointResult little = At(problem, under);
    const double pressure = 0.0054 / CircleArea(17);
    EXPECT_EQ(little.Values[SIGz], 0);
    EXPECT_NEAR(little.Values[TAUzx], 104813 / CircleArea(17) * std::sqrt(0.5), 1e-11);
    EXPECT_GT(std::fabs(little.Values[SIGy]), 1e14 * pressure);
    EXPECT_GT(little.Estimates[1] * std::fabs(little.Values[SIGy]), pressure);
    problem.Loads[0].Vertical *= 1000;
    EXPECT_NEAR(At(problem, under).Values[SIGz], -1000 * pressure, 1e-15);
}

TEST(Sameness, LoadsSuperpose) {
    Problem problem = Gear(0.0);
    const Point point{2, 12, 7, 30};
    const PointResult all = At(problem, point);
    PointResult sum;
    for (const Load& load : problem.Loads) {
        Problem one = problem;
        one.Loads = {load};
        const PointResult part = At(one, point);
        for (std::size_t c = 0; c < ComponentCount; ++c) {
            sum.Values[c] += part.Values[c];
        }
    }
    problem.Points = {point};
    EXPECT_LT(Disagreement(problem, 0, all, sum), 0.1);
}

TEST(Sameness, EnginesAgreeToRounding) {
    Problem problem = Gear(0.5);
    problem.Points = {{1, 0, 0, 0}, {1, 0, 0, 15}, {2, 0, 0, 15}, {2, 0, 0, 30}};
    const LayerTable layers(problem);
    const auto groups = GroupLoads(problem);
    const auto chunks = PlanDepths(problem, 16);
    const std::vector<double> edges = {11, 13};
    for (const DepthChunk& chunk : chunks) {
        const auto items = MakeCells(0, 200, edges, chunk.Sources.front().Effective, CellShare);
        const auto engines = AllEngines();
        const SumTable first(layers, groups, chunk, items, *engines[0], {1e10, false, 0});
        for (const Engine* engine : engines) {
            const SumTable other(layers, groups, chunk, items, *engine, {1e10, false, 0});
            for (std::size_t g = 0; g < groups.size(); ++g) {
                for (std::size_t item = 0; item < items.size(); ++item) {
                    for (std::size_t d = 0; d < chunk.Sources.size(); ++d) {
                        const auto stride = static_cast<std::size_t>(first.Stride(g));
                        for (std::size_t i = 0; i < ChebyshevCount * stride; ++i) {
                            const double m2 = layers.M2[static_cast<std::size_t>(chunk.Sources[d].Layer)];
                            EXPECT_NEAR(first.Rows(g, item, d)[i] * m2, other.Rows(g, item, d)[i] * m2, 1e-11)
                                << engine->Name;
                        }
                    }
                }
            }
        }
    }
}

/// Forty braking wheels whose radii are all different on a stiff road that slips.
Problem ManyRadii() {
    Problem problem = ClassicRoad(0.8);
    problem.Layers[0].Modulus = 2e5;
    for (int i = 0; i < 40; ++i) {
        problem.Loads.push_back({245, 9.0 + 0.21 * i, -200.0 + 10 * i, 15.0 * (i % 7), 40, 9.0 * i});
    }
    return problem;
}

TEST(Sameness, AnyWidthOfLoopsGivesTheWholeAnswerToTheTenthDigit) {
    for (Problem problem : {Gear(0.5), ManyRadii()}) {
        problem.Points = {{1, 3, 4, 0}, {2, 30, -20, 15}};
        const Solution best = Solve(problem, {1});
        for (const Engine* engine : AllEngines()) {
            const Solution other = SolveWith(*engine, problem, {1});
            EXPECT_LT(other.LargestEstimate, 1e-10) << engine->Name;
            for (std::size_t i = 0; i < problem.Points.size(); ++i) {
                EXPECT_LT(Disagreement(problem, i, best.Points[i], other.Points[i]), 0.1) << engine->Name << ' ' << i;
                if (engine == &BestEngine()) {
                    EXPECT_EQ(best.Points[i].Values, other.Points[i].Values);
                }
            }
        }
    }
}

// What rounding may do is told from a few wavenumbers; at any other depth than the first it was once taken from a wrong
// place, which made every bound a hundred per cent and every point of a road be done twice.
TEST(Sameness, PlainSumsHaveSmallBoundsAtEveryDepthOfAChunk) {
    Problem problem = Gear(0.5);
    problem.Points = {{1, 0, 0, 0}, {1, 0, 0, 15}, {2, 0, 0, 15}, {2, 0, 0, 30}};
    const LayerTable layers(problem);
    const auto groups = GroupLoads(problem);
    const Engine* engine = AllEngines().back();
    std::size_t depths = 0;
    for (const DepthChunk& chunk : PlanDepths(problem, 16)) {
        const SumTable sums(layers, groups, chunk, {{5, 5, 6, 16, 0}}, *engine, {1e10, false, 0});
        depths = std::max(depths, chunk.Sources.size());
        for (std::size_t d = 0; d < chunk.Sources.size(); ++d) {
            const double m2 = layers.M2[static_cast<std::size_t>(chunk.Sources[d].Layer)];
            EXPECT_LT(sums.Errors(0, 0, d).Strain[0] * m2, 1e-12) << d;
            EXPECT_GT(sums.Errors(0, 0, d).Strain[0] * m2, 1e-17) << d;
        }
    }
    EXPECT_GT(depths, 1U);
}

}  // namespace
}  // namespace zirvo::solver
