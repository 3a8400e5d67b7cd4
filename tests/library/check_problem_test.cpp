// The rules of a problem: the same as those that `zirvo-batch check` applies to a file, in the same words.
#include "solver/check_problem.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

#include "pavement/analysis_input.h"

namespace zirvo::solver {
namespace {

Problem Road() {
    Problem road;
    road.Layers = {{5000, 0.35, 15, 0}, {300, 0.35, 30, 0}, {50, 0.4, 0, 0}};
    road.Loads = {{49, 15, 0, 0, 0, 0}};
    road.Points = {{1, 0, 0, 15}, {3, 0, 0, 45}};
    return road;
}

std::vector<std::string> Told(Problem problem) {
    std::vector<std::string> texts;
    for (const ProblemFault& fault : CheckProblem(problem)) {
        texts.push_back(fault.Text());
    }
    return texts;
}

/// What `check` says of the same problem in a file.
std::vector<std::string> ToldOfFile(const Problem& problem) {
    PavementModel model;
    model.ResultFileName = "a.bre";
    model.PrincipalFileName = "a.san";
    for (const Layer& layer : problem.Layers) {
        model.Layers[++model.LayerCount] = {layer.Modulus, layer.PoissonRatio, layer.Thickness, layer.SlipRate};
    }
    for (const Load& load : problem.Loads) {
        model.Loads[++model.LoadCount] = {load.Vertical, load.Radius, load.X, load.Y, load.Horizontal, load.Angle};
    }
    for (const Point& point : problem.Points) {
        model.Points[++model.PointCount] = {static_cast<Int16>(point.Layer), point.X, point.Y, point.Z};
    }
    std::istringstream file(WriteAnalysisInput(model, zirvo::UnitSystem::KnToMPa, 200));
    std::vector<std::string> texts;
    for (const Finding& finding : CheckAnalysisInput(file)) {
        texts.push_back(FindingText(finding));
    }
    return texts;
}

TEST(CheckProblem, AProblemThatCanBeSolvedHasNoFault) {
    EXPECT_EQ(Told(Road()), std::vector<std::string>());
    EXPECT_EQ(ToldOfFile(Road()), std::vector<std::string>());
}

TEST(CheckProblem, EveryBrokenRuleIsToldInTheWordsOfTheCheck) {
    const std::vector<void (*)(Problem&)> faults{
        [](Problem& p) { p.Layers[0].Modulus = 0; },
        [](Problem& p) { p.Layers[2].Modulus = -5; },
        [](Problem& p) { p.Layers[1].PoissonRatio = 0; },
        [](Problem& p) { p.Layers[1].PoissonRatio = 0.75; },
        [](Problem& p) { p.Layers[0].Thickness = -1; },
        [](Problem& p) { p.Layers[0].SlipRate = -0.5; },
        [](Problem& p) { p.Layers[1].SlipRate = 1; },
        [](Problem& p) { p.Loads[0].Radius = 0; },
        [](Problem& p) { p.Loads[0].Vertical = 0; },
        [](Problem& p) { p.Points[0].Layer = 4; },
        [](Problem& p) { p.Points[0].Layer = -1; },
        [](Problem& p) { p.Points[1].Z = 44; },
        [](Problem& p) { p.Points[0].Z = 15.5; },
        [](Problem& p) { p.Layers[0].PoissonRatio = p.Layers[1].PoissonRatio = 0.75; },
    };
    for (std::size_t i = 0; i < faults.size(); ++i) {
        Problem problem = Road();
        faults[i](problem);
        EXPECT_EQ(Told(problem), ToldOfFile(problem)) << i;
        EXPECT_FALSE(Told(problem).empty()) << i;
    }
}

TEST(CheckProblem, WhatIsNoNumberIsRefusedWhereverItStands) {
    for (const double bad : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        Problem problem = Road();
        problem.Layers[0].Modulus = problem.Layers[0].SlipRate = problem.Loads[0].Angle = bad;
        problem.Points[1].X = bad;
        const std::vector<std::string> told = Told(problem);
        ASSERT_EQ(told.size(), 4U);
        EXPECT_EQ(told[3], std::string("point 2, PointX ") + (bad > 0 ? "inf" : "nan") + ": is no finite number");
    }
}

TEST(CheckProblem, ADepthThatIsOffByTheRoundingOfASumIsBroughtOntoTheBoundary) {
    Problem problem = Road();
    problem.Layers[0].Thickness = 0.1;
    problem.Layers[1].Thickness = 0.2;  // the third layer begins at 0.30000000000000004
    problem.Points = {{2, 0, 0, 0.3}, {3, 0, 0, 0.3}, {0, 0, 0, 0}};
    EXPECT_TRUE(CheckProblem(problem).empty());
    EXPECT_EQ(problem.Points[1].Z, 0.1 + 0.2);
    EXPECT_EQ(problem.Points[2].Layer, 1);
}

TEST(CheckProblem, NothingAtAllIsTwoFaults) {
    EXPECT_EQ(Told(Problem()), (std::vector<std::string>{"counts, LayerCount 0: is 0", "counts, LoadCount 0: is 0"}));
}

}  // namespace
}  // namespace zirvo::solver
