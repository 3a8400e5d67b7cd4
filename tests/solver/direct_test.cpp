// Sums of single pairs, for points that share neither places nor depths: the same values as those of tables.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "solver/direct_plan.h"
#include "solver/direct_work.h"
#include "solver/problems.h"

namespace zirvo::solver {
namespace {

/// Wheels with a radius each, every second braking, on thin and thick, stiff and soft layers; points anywhere.
Problem Scattered(double slip, double contrast, int loads, std::size_t points) {
    Problem problem;
    for (int i = 0; i < 12; ++i) {
        problem.Layers.push_back({5000 * std::pow(contrast, -i / 12.0), i % 4 == 1 ? 0.5 : 0.35, i % 3 == 0 ? 2.0 : 6.0,
                                  i % 2 == 0 ? slip : 0});
    }
    problem.Layers.push_back({5000 / contrast, 0.4, 0, 0});
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> plane(-100, 100);
    std::uniform_real_distribution<double> share(0, 1);
    for (int i = 0; i < loads; ++i) {
        problem.Loads.push_back(
            {245, 5 + 1.5 * i, plane(random), plane(random), i % 2 == 0 ? 80.0 : 0.0, 360 * share(random)});
    }
    for (std::size_t i = 0; i < points; ++i) {
        const std::size_t layer = i % problem.Layers.size();
        double top = 0;
        for (std::size_t k = 0; k < layer; ++k) {
            top += problem.Layers[k].Thickness;
        }
        const double thickness = layer + 1 < problem.Layers.size() ? problem.Layers[layer].Thickness : 40;
        // Some at the top and at the bottom of their layer, below the centre of a load and on the edge of one.
        const double inside = i % 11 == 0 ? 0 : i % 11 == 1 ? 1 : share(random);
        Point point{static_cast<int>(layer) + 1, plane(random), plane(random), top + inside * thickness};
        const Load& load = problem.Loads[i % problem.Loads.size()];
        if (i % 17 == 0) {
            point.X = load.X + (i % 2 == 0 ? 0 : load.Radius);
            point.Y = load.Y;
        }
        problem.Points.push_back(point);
    }
    return problem;
}

/// All points as one direct chunk, by one engine.
std::vector<PointResult> Direct(const Problem& problem, const Engine& engine) {
    std::vector<PointResult> results(problem.Points.size());
    LoadScale scale;
    for (const Load& load : problem.Loads) {
        scale.Radius = std::max(scale.Radius, load.Radius);
        scale.Pressure = std::max(scale.Pressure, load.Vertical / CircleArea(load.Radius));
    }
    const Work work{problem, LayerTable(problem), GroupLoads(problem), engine, scale, results};
    DepthChunk chunk;
    chunk.Direct = true;
    std::vector<std::size_t> order(problem.Points.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        order[i] = i;
    }
    std::sort(order.begin(), order.end(),
              [&](std::size_t a, std::size_t b) { return problem.Points[a].Layer < problem.Points[b].Layer; });
    for (const std::size_t i : order) {
        const Point& point = problem.Points[i];
        const int place = static_cast<int>(chunk.Depths.size());
        chunk.Depths.push_back({point.Layer - 1, point.Z, place, {}});
        chunk.Sources.push_back(
            {point.Layer - 1, point.Z, EffectiveDepth(point.Layer - 1, point.Z, problem.Layers[0].Thickness)});
        chunk.Points.push_back({i, place, point.X, point.Y});
    }
    DirectWork(work, chunk, 1e10).Run();
    return results;
}

/// Largest difference in a group over the sum of both bounds, as a share of the group's largest value and the floor.
double ShareOfBounds(const PointResult& a, const PointResult& b) {
    double worst = 0;
    for (const auto& [first, last, group] : {std::array{0, 3, 0}, std::array{3, 9, 1}, std::array{9, 15, 2}}) {
        double largest = 0;
        double difference = 0;
        for (auto i = static_cast<std::size_t>(first); i < static_cast<std::size_t>(last); ++i) {
            largest = std::max(largest, std::fabs(a.Values[i]));
            difference = std::max(difference, std::fabs(a.Values[i] - b.Values[i]));
        }
        const auto at = static_cast<std::size_t>(group);
        worst = std::max(worst, difference / (1.01 * largest * (a.Estimates[at] + b.Estimates[at])));
    }
    return worst;
}

TEST(Direct, PairsAgreeWithTablesWithinBothBounds) {
    for (const double slip : {0.0, 0.6}) {
        for (const double contrast : {30.0, 1e5}) {  // kernels in doubles, and in two parts
            const Problem problem = Scattered(slip, contrast, 3, 39);
            for (const Engine* engine : AllEngines()) {
                if (contrast > 30 && engine != &BestEngine()) {
                    continue;  // slow where registers are narrow
                }
                const auto results = Direct(problem, *engine);
                for (std::size_t i = 0; i < problem.Points.size(); ++i) {
                    const PointResult alone = At(problem, problem.Points[i]);
                    EXPECT_LT(ShareOfBounds(alone, results[i]), 1) << engine->Name << ' ' << slip << ' ' << i;
                    EXPECT_LT(*std::max_element(results[i].Estimates.begin(), results[i].Estimates.end()), 1e-10);
                    EXPECT_EQ(alone.OnLoadEdge, results[i].OnLoadEdge);
                }
            }
        }
    }
}

// Far points among those at the loads once made sums of ninety thousand nodes, most of them too small to show one by
// one beside what there was already: opposite loads were five thousand millionths off, beyond their bounds.
TEST(Direct, OppositeLoadsInACrowdOfFarPointsKeepTheirBounds) {
    Problem problem;
    problem.Layers = {{91.6, 0.5, 0.101, 0.99}, {8490, 0.5, 0.0147, 0.99}, {0.799, 0.345, 0.442, 0.99},
                      {901000, 0.5, 5.01, 0.3}, {0.0295, 0.5, 1.55, 0.99}, {0.0295, 0.5, 0, 0}};
    problem.Loads = {{11.3, 1.38, 0, 0, 0, 0}, {-11.3, 1.38, 0.01, 0, 0, 0}};
    for (int i = 0; i < 20; ++i) {
        problem.Points.push_back({2, 0, 0, 0.101 + 0.0147 * (i + 1) / 21});
    }
    for (int i = 0; i < 700; ++i) {
        problem.Points.push_back({2, -531 + 0.3 * i, 516, 0.1064});
    }
    for (const Engine* engine : AllEngines()) {
        if (engine != AllEngines().front() && engine != &BestEngine()) {
            continue;  // the narrowest, which add most nodes to one number, and the widest
        }
        const auto results = Direct(problem, *engine);
        for (std::size_t i = 0; i < 20; ++i) {
            EXPECT_LT(ShareOfBounds(At(problem, problem.Points[i]), results[i]), 1) << engine->Name << ' ' << i;
        }
    }
}

TEST(Direct, ScatteredPointsUnderManyRadiiAreTakenPairByPair) {
    const Problem problem = Scattered(0.6, 30, 20, 2000);
    std::vector<PointResult> results(problem.Points.size());
    const Work work{problem, LayerTable(problem), GroupLoads(problem), BestEngine(), {}, results};
    const auto chunks = WithDirectChunks(work, PlanDepths(problem, 16));
    std::vector<int> seen(problem.Points.size());
    std::size_t direct = 0;
    for (const DepthChunk& chunk : chunks) {
        direct += chunk.Direct ? chunk.Points.size() : 0;
        for (const ChunkPoint& point : chunk.Points) {
            ++seen[point.Point];
            const PointDepth& depth = chunk.Depths[static_cast<std::size_t>(point.Depth)];
            EXPECT_EQ(depth.Z, problem.Points[point.Point].Z);
            EXPECT_EQ(depth.Layer + 1, problem.Points[point.Point].Layer);
        }
    }
    EXPECT_EQ(seen, std::vector<int>(problem.Points.size(), 1));
    EXPECT_GT(direct, problem.Points.size() / 2);
}

TEST(Direct, PlacesAtFewDepthsStandOnTables) {
    Problem problem = Scattered(0.6, 30, 20, 0);
    for (int i = 0; i < 4000; ++i) {
        problem.Points.push_back({1, 0.05 * i - 100, 0.03 * i, i % 2 == 0 ? 0.0 : 2.0});
    }
    std::vector<PointResult> results(problem.Points.size());
    const Work work{problem, LayerTable(problem), GroupLoads(problem), BestEngine(), {}, results};
    for (const DepthChunk& chunk : WithDirectChunks(work, PlanDepths(problem, 16))) {
        EXPECT_FALSE(chunk.Direct);
    }
}

/// What each load does alone, added up: no radius but its own stands behind it.
PointResult SumOfLoads(const Problem& problem, const Point& point) {
    PointResult sum;
    Problem alone = problem;
    for (const Load& load : problem.Loads) {
        alone.Loads = {load};
        const PointResult result = At(alone, point);
        for (std::size_t i = 0; i < sum.Values.size(); ++i) {
            sum.Values[i] += result.Values[i];
        }
    }
    sum.Estimates.fill(1e-14);
    return sum;
}

TEST(Direct, RadiiTakenTogetherAgreeWithEachLoadAlone) {
    for (const double slip : {0.0, 0.6}) {
        const Problem problem = Scattered(slip, 1e5, 60, 26);
        std::vector<PointResult> results(problem.Points.size());
        const Work work{problem, LayerTable(problem), GroupLoads(problem), BestEngine(), {}, results};
        const auto plan = PlanDirect(work, 26, false);
        EXPECT_TRUE(std::any_of(plan.begin(), plan.end(), [&](const DirectPart& part) {
            return slip == 0 ? part.Springs == 1 : part.Springs > 1;
        }));
        results = Direct(problem, BestEngine());
        const Solution tables = Solve(problem);  // too few pairs for direct sums
        for (std::size_t i = 0; i < problem.Points.size(); i += 3) {
            const PointResult sum = SumOfLoads(problem, problem.Points[i]);
            EXPECT_LT(ShareOfBounds(sum, results[i]), 1) << slip << ' ' << i;
            EXPECT_LT(ShareOfBounds(sum, tables.Points[i]), 1) << slip << ' ' << i;
            EXPECT_LT(*std::max_element(results[i].Estimates.begin(), results[i].Estimates.end()), 1e-10);
        }
    }
}

// Springs that slip freely or hardly, at all interfaces, and radii 40 times apart.
TEST(Direct, FewRadiiStandForAllThatLieBetween) {
    std::vector<LoadGroup> groups(50);
    for (std::size_t i = 0; i < groups.size(); ++i) {
        groups[i].Radius = 4 * std::pow(40, static_cast<double>(i) / 49);
    }
    const int count = SpringNodesWanted(groups, false);
    ASSERT_LE(count, MostMixed);
    const SpringNodes nodes = SpringNodesOf(groups, count);
    for (const double pole : {0.01, 1.0, 30.0, 1e4}) {
        const auto field = [&](double a) { return 1 / (1 + a / pole); };
        for (std::size_t g = 0; g < groups.size(); ++g) {
            double sum = 0;
            for (std::size_t i = 0; i < nodes.Radii.size(); ++i) {
                sum += nodes.Mixes[g].Weights[i] * field(nodes.Radii[i]);
            }
            EXPECT_NEAR(sum, field(groups[g].Radius), 3e-15 * field(groups[0].Radius)) << pole << ' ' << g;
        }
    }
}

// The tops of many layers are rounded by more than the middle of a plate can bear, where it hardly bends; its depths
// are known from both its ends beyond that.
TEST(Direct, PlatesBelowManyLayersHaveTheirOwnDepths) {
    Problem problem;
    for (int i = 0; i < 41; ++i) {
        const bool film = i % 2 == 1;
        problem.Layers.push_back({film ? 0.03 : 20000.0, film ? 0.5 : 0.3, film ? 0.11 : 9.1 + 0.37 * i, 0});
    }
    problem.Layers.push_back({50, 0.35, 0, 0});
    problem.Loads = {{245, 15, 0, 0, 0, 0}};
    double top = 0;
    for (std::size_t k = 0; k + 1 < problem.Layers.size(); ++k) {
        for (const double share : {0.499, 0.49999, 0.5001}) {
            problem.Points.push_back({static_cast<int>(k) + 1, 0, 0, top + share * problem.Layers[k].Thickness});
        }
        top += problem.Layers[k].Thickness;
    }
    const auto results = Direct(problem, BestEngine());
    for (std::size_t i = 0; i < problem.Points.size(); ++i) {
        EXPECT_LT(ShareOfBounds(At(problem, problem.Points[i]), results[i]), 1) << i;
    }
}

TEST(Direct, ThreadsDoNotChangeABit) {
    const Problem problem = Scattered(0.6, 30, 20, 1500);
    const Solution one = Solve(problem, {1});
    const Solution two = Solve(problem, {2});
    for (std::size_t i = 0; i < problem.Points.size(); ++i) {
        ASSERT_EQ(one.Points[i].Values, two.Points[i].Values);
        ASSERT_EQ(one.Points[i].Estimates, two.Points[i].Estimates);
    }
}

}  // namespace
}  // namespace zirvo::solver
