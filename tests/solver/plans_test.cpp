// The plans of a solution: nodes, cells, levels, chunks of depths.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "solver/depth_plan.h"
#include "solver/problems.h"
#include "solver/radius_plan.h"
#include "solver/wavenumbers.h"

namespace zirvo::solver {
namespace {

/// Sum of a function over the nodes of a rule.
template <class F>
double Sum(const NodeRule& rule, double end, F f) {
    std::vector<double> xi(64);
    std::vector<double> low(64);
    std::vector<double> weight(64);
    double sum = 0;
    for (long first = 0;; first += 64) {
        FillNodes(BestEngine(), rule, first, 64, xi.data(), low.data(), weight.data());
        for (std::size_t i = 0; i < 64; ++i) {
            sum += weight[i] * f(xi[i]);
        }
        if (xi[63] > end) {
            return sum;
        }
    }
}

// A node's two parts, in all engines, against the map in numbers of 64 bits: at a far point the argument of a Bessel
// function is a thousand times the node's own size, and sums of ten digits that cancel hang on it.
TEST(NodeRule, NodesAreKnownFarBeyondADouble) {
    const Engine* engines[4];
    const int count = RunnableEngines(engines);
    for (const double reach : {20.0, 500.0, 1e6}) {
        const NodeRule rule = MakeNodeRule({reach, 42, 0, 50}, 0);
        for (int e = 0; e < count; ++e) {
            alignas(64) double xi[NodeBlock], low[NodeBlock], weight[NodeBlock];
            for (long first = 0; first < 2L * NodeBlock; first += NodeBlock) {
                FillNodes(*engines[e], rule, first, NodeBlock, xi, low, weight);
                for (int i = 0; i < NodeBlock; ++i) {
                    const long double s =
                        static_cast<long double>(rule.Start) + static_cast<long double>(rule.Step) * (first + i);
                    const long double t = s - std::exp(static_cast<long double>(rule.LowEnd) - s);
                    const long double all = rule.C * (t > 0 ? t + std::log1p(std::exp(-t)) : std::log1p(std::exp(t)));
                    const auto off = static_cast<double>((all - xi[i]) - low[i]);
                    EXPECT_LE(std::fabs(off) * reach, 0.4 * 1.1e-16 + 2e-19 * xi[i] * reach) << engines[e]->Name;
                }
            }
        }
    }
}

// Lipschitz: the integral of exp(-x z) J0(x r) is 1 / sqrt(r^2 + z^2); with cos in place of J0 it is z / (r^2 + z^2).
TEST(NodeRule, SumsOscillatingDecayingFunctionsExactly) {
    for (const double r : {0.0, 3.0, 100.0, 5000.0}) {
        const double z = 10;
        const NodeRule rule = MakeNodeRule({r + 15, 42 / z, 0, 50}, 0);
        const double sum = Sum(rule, 45 / z, [&](double x) { return std::exp(-x * z) * std::cos(x * r); });
        EXPECT_NEAR(sum, z / (r * r + z * z), 1e-14) << r;
    }
}

// A kernel that turns over at a hundredth of the range: the integral of exp(-x z) / (1 + (b x)^2), against a rule of a
// quarter of the step.
TEST(NodeRule, ResolvesKernelsThatTurnOverFarBelowTheFirstZero) {
    for (const double b : {10.0, 300.0, 1e4}) {
        const auto f = [&](double x) { return std::exp(-x * 5) / (1 + b * b * x * x); };
        const double coarse = Sum(MakeNodeRule({30, 8, 0, 50}, 0), 9, f);
        const double fine = Sum(MakeNodeRule({30, 8, 0, 50}, 2), 9, f);
        EXPECT_NEAR(coarse / fine, 1, 1e-13) << b;
    }
}

// The window ends a sum that does not decay by itself: the integral of cos(x r) x^2 / (1 + x^2)^2 without any
// exponential is pi / 4 (1 - r) exp(-r).
TEST(NodeRule, WindowReplacesTheDecayFarFromTheEdge) {
    const double r = 20;
    const NodeRule rule = MakeNodeRule({r, 192 / r, r, 1}, 0);
    EXPECT_DOUBLE_EQ(WindowEnd(rule), 192 / r);
    EXPECT_DOUBLE_EQ(WindowEnd(MakeNodeRule({r, 280 / r, r, 1}, 1)), 280 / r);  // wider beside a halved step
    const auto f = [&](double x) { return std::cos(x * r) * x * x / ((1 + x * x) * (1 + x * x)); };
    EXPECT_NEAR(Sum(rule, 192 / r, f), 3.14159265358979323846 / 4 * (1 - r) * std::exp(-r), 2e-14);
}

TEST(Cells, CoverTheRangeWithoutGapsAndGrowWithTheDistance) {
    const std::vector<double> edges = {8, 15};
    const auto cells = MakeCells(0, 800, edges, 2, CellShare);
    EXPECT_EQ(cells.front().Low, 0);
    EXPECT_EQ(cells.back().High, 800);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const double width = cells[i].High - cells[i].Low;
        EXPECT_LE(width, CellShare * std::hypot(2, cells[i].Gap) * 1.02 + 1e-12);
        if (i > 0) {
            EXPECT_EQ(cells[i].Low, cells[i - 1].High);
        }
    }
    EXPECT_LT(cells.size(), 40U);  // logarithmic, not 800 / 1.2
}

// A skin of 1E-12 cm below an edge at 1E5 cm, where doubles are 1.5E-11 apart.
TEST(Cells, GetOnWhereTheyWouldBeNarrowerThanRadiiAreApart) {
    const std::vector<double> edges = {1e5};
    for (const double share : {CellShare, SlipCellShare}) {
        const auto cells = MakeCells(0.5e5, 2e5, edges, 1e-12, share);
        EXPECT_EQ(cells.back().High, 2e5);
        EXPECT_LT(cells.size(), 400U);
        for (const RadiusItem& cell : cells) {
            EXPECT_GT(cell.High, cell.Low);
        }
    }
}

TEST(Cells, OneRadiusIsOneCellOfNoWidth) {
    const std::vector<double> edges = {15};
    const auto cells = MakeCells(30, 30, edges, 5, CellShare);
    ASSERT_EQ(cells.size(), 1U);
    EXPECT_EQ(cells[0].High, 30);
    EXPECT_EQ(cells[0].Gap, 15);
}

// A few near radii among a great many far ones, for which their sums would have to be a hundred times as long.
TEST(Levels, AreSplitWhereTheDistanceJumpsHoweverManyItemsThereAre) {
    std::vector<RadiusItem> items;
    for (int i = 0; i < 20; ++i) {
        items.push_back({0.01 * i, 0.01 * i, 1.4, 1.6, 0});
    }
    for (int i = 0; i < 1500; ++i) {
        items.push_back({700.0 + i, 700.0 + i, 698.0 + i, 702.0 + i, 0});
    }
    const auto levels = SplitIntoLevels(items, 0.1, 45, {1e4, 10});
    for (const RadiusLevel& level : levels) {
        EXPECT_EQ(level.Items.front() < 20, level.Items.back() < 20);
    }
}

TEST(Levels, HoldEveryItemOnceAndSplitOnlyWhereItPays) {
    const std::vector<double> edges = {15};
    const auto near = MakeCells(0, 60, edges, 15, CellShare);
    EXPECT_EQ(SplitIntoLevels(near, 15, 45, {100, 10}).size(), 1U);
    const auto far = MakeCells(0, 10000, edges, 0.1, CellShare);
    const auto levels = SplitIntoLevels(far, 0.1, 45, {100, 10});
    EXPECT_GT(levels.size(), 2U);
    std::vector<int> seen(far.size());
    for (const RadiusLevel& level : levels) {
        for (const std::size_t item : level.Items) {
            ++seen[item];
            EXPECT_LE(far[item].High + 15, level.Range.Reach);
            EXPECT_GE(far[item].Gap, level.Range.Gap);
        }
    }
    for (const int count : seen) {
        EXPECT_EQ(count, 1);
    }
}

TEST(DepthPlan, EveryPointStandsInOneChunkAtItsOwnDepth) {
    Problem problem = ClassicRoad(0);
    for (int i = 0; i < 3000; ++i) {
        const double z = 0.05 * (i % 1000);
        problem.Points.push_back({z <= 15 ? 1 : z <= 45 ? 2 : 3, 1.0 * i, 0, z});
    }
    std::vector<int> seen(problem.Points.size());
    bool nodes = false;
    for (const DepthChunk& chunk : PlanDepths(problem, 16)) {
        EXPECT_LE(chunk.Sources.size(), 16U);
        for (const ChunkPoint& point : chunk.Points) {
            ++seen[point.Point];
            const PointDepth& depth = chunk.Depths[static_cast<std::size_t>(point.Depth)];
            EXPECT_EQ(depth.Z, problem.Points[point.Point].Z);
            EXPECT_EQ(depth.Layer, problem.Points[point.Point].Layer - 1);
            nodes = nodes || depth.Source < 0;
        }
    }
    EXPECT_TRUE(nodes);
    for (const int count : seen) {
        EXPECT_EQ(count, 1);
    }
}

}  // namespace
}  // namespace zirvo::solver
