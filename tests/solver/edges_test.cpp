// Points near the edge of a load where the depth is next to nothing: their sums are made in two shares.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "solver/chunk_work.h"
#include "solver/direct_plan.h"
#include "solver/direct_sum.h"
#include "solver/problems.h"
#include "solver/solve_with.h"

namespace zirvo::solver {
namespace {

constexpr double Budget = 6e10;

/// Two braking loads on a skin over a base and a subgrade.
Problem Skin(double modulus, double slip) {
    Problem problem;
    problem.Layers = {{modulus, 0.4, 0.05, slip}, {1000, 0.5, 20, slip}, {100, 0.35, 0, 0}};
    problem.Loads = {{900, 20, 0, 0, 300, 30}, {400, 12, 50, 5, 0, 0}};
    return problem;
}

/// Points in the skin, at its bottom and below it, at some distances outside the edge of the first load.
void SetPoints(Problem& problem, std::initializer_list<double> gaps) {
    for (const double gap : gaps) {
        const double r = problem.Loads[0].Radius + gap;
        for (const auto& [layer, z] : {std::pair{1, 0.04}, {1, 0.05}, {2, 0.05}, {2, 0.06}}) {
            problem.Points.push_back({layer, 0.6 * r, 0.8 * r, z});
        }
    }
}

/// All points on tables, whose sums are made whole.
std::vector<PointResult> OnTables(const Problem& problem, const Engine& engine) {
    std::vector<PointResult> results(problem.Points.size());
    const Work work{problem, LayerTable(problem), GroupLoads(problem), engine, {1, 20}, results};
    for (const DepthChunk& chunk : PlanDepths(problem, MostSources)) {
        ChunkWork(work, chunk, Budget, false).Run();
    }
    return results;
}

TEST(Edges, TwoSharesOfASumAgreeWithItWhole) {
    for (const double modulus : {300.0, 1e7}) {  // kernels in doubles, and in two parts
        for (const double slip : {0.0, 0.9}) {
            Problem problem = Skin(modulus, slip);
            SetPoints(problem, {0, 1e-9, -1e-6, -0.003, 0.3, 1.9});
            for (const Engine* engine : AllEngines()) {
                if ((modulus > 300 || slip == 0) && engine != &BestEngine()) {
                    continue;  // slow where registers are narrow
                }
                const auto whole = OnTables(problem, *engine);
                const Solution split = SolveWith(*engine, problem, {1});
                for (std::size_t i = 0; i < problem.Points.size(); ++i) {
                    EXPECT_LT(Disagreement(problem, i, whole[i], split.Points[i]), 0.1)
                        << engine->Name << ' ' << modulus << ' ' << slip << ' ' << i;
                    EXPECT_LT(WorstEstimate(split.Points[i]), 5e-11);
                }
            }
        }
    }
}

// A film of 0.001 cm under the edge of a circle of 300 cm would want nine million nodes.
TEST(Edges, AHairsBreadthUnderAWideCircleIsWithinThePromise) {
    for (const double modulus : {0.1, 1000.0, 1e7}) {
        Problem problem;
        problem.Layers = {{modulus, 0.4, 0.001, 0}, {1000, 0.4, 0, 0}};
        problem.Loads = {{3380, 300, 0, 0, 0, 0}};
        for (const double gap : {0.0, 3e-5, -0.03, 3.0}) {
            problem.Points.push_back({1, 300 + gap, 0, 0.001});
            problem.Points.push_back({2, 300 + gap, 0, 0.001});
            problem.Points.push_back({1, 300 + gap, 0, 0});
        }
        EXPECT_LT(Solve(problem, {1}).LargestEstimate, PromisedError) << modulus;
    }
}

// Nodes are made for what meets at a point: a small wheel within a large circle has no need of the circle's.
TEST(Edges, ASmallCircleWithinALargeOneHasSumsOfItsOwnLength) {
    Problem problem;
    problem.Layers = {{1e6, 0.4, 0.001, 0.7}, {1000, 0.4, 0, 0}};
    problem.Loads = {{50, 0.1, 0, 0, 20, 0}, {1e6, 300, 0, 0, 0, 0}};
    problem.Points = {{1, 0.05, 0, 0}, {1, 0.1001, 0, 0.001}, {2, 0.05, 0.02, 0.001}};
    EXPECT_LT(Solve(problem, {1}).LargestEstimate, 1e-10);
}

TEST(Edges, WorthSplittingIsAMatterOfDepthAndOfTheDistanceFromTheEdge) {
    EXPECT_TRUE(WorthSplitting(15, 15, 0, 0.1));
    EXPECT_TRUE(WorthSplitting(15, 15.5, 0.5, 0.1));
    EXPECT_TRUE(WorthSplitting(15, 14.5, -0.5, 0.1));
    EXPECT_FALSE(WorthSplitting(15, 15, 0, 1));
    EXPECT_FALSE(WorthSplitting(15, 16, 1, 0.1));     // a window ends it soon enough
    EXPECT_FALSE(WorthSplitting(15, 30, 15, 0.001));  // not near the edge
}

TEST(Edges, TakeTheirPointsOutOfTheChunksAndLeaveTheOthers) {
    Problem problem = Skin(300, 0.5);
    SetPoints(problem, {0, 0.3, 5, 100});
    problem.Points.push_back({1, 62, 5, 0.05});  // on the edge of the second load
    problem.Points.push_back({2, 20, 0, 15});
    std::vector<PointResult> results(problem.Points.size());
    const Work work{problem, LayerTable(problem), GroupLoads(problem), BestEngine(), {1, 20}, results};
    std::vector<int> direct(problem.Points.size(), -1);
    for (const DepthChunk& chunk : WithEdgeChunks(work, PlanDepths(problem, MostSources))) {
        EXPECT_FALSE(chunk.Points.empty());
        for (const ChunkPoint& point : chunk.Points) {
            EXPECT_EQ(direct[point.Point], -1);
            direct[point.Point] = chunk.Direct ? 1 : 0;
            const PointDepth& depth = chunk.Depths[static_cast<std::size_t>(point.Depth)];
            EXPECT_EQ(depth.Z, problem.Points[point.Point].Z);
            EXPECT_EQ(depth.Layer + 1, problem.Points[point.Point].Layer);
        }
    }
    const std::vector<int> expected = {1, 1, 1, 1, 1, 1, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0};
    EXPECT_EQ(direct, expected);
}

TEST(Edges, OfARoadHaveNoChunksOfTheirOwn) {
    Problem problem = ClassicRoad(0.5);
    problem.Loads = {Wheel()};
    problem.Points = {{1, 15, 0, 0}, {1, 15, 0, 15}, {2, 15, 0, 15}};
    std::vector<PointResult> results(problem.Points.size());
    const Work work{problem, LayerTable(problem), GroupLoads(problem), BestEngine(), {1, 15}, results};
    for (const DepthChunk& chunk : WithEdgeChunks(work, PlanDepths(problem, MostSources))) {
        EXPECT_FALSE(chunk.Direct);
    }
}

}  // namespace
}  // namespace zirvo::solver
