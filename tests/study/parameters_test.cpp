// What may vary, by name.
#include "study/parameters.h"

#include <gtest/gtest.h>

namespace zirvo::study {
namespace {

solver::Problem Base() {
    solver::Problem base;
    base.Layers = {{5000, 0.35, 15, 0}, {50, 0.4, 0, 0}};
    base.Loads = {{20, 11, -16, 0, 2, 0}, {30, 11, 16, 0, 0, 0}};
    return base;
}

solver::Problem With(const char* name, double value) {
    solver::Problem problem = Base();
    const auto parameter = ParameterOf(name, problem);
    EXPECT_EQ(parameter.index(), 0U) << std::get<std::string>(parameter);
    SetParameter(std::get<Parameter>(parameter), value, problem);
    return problem;
}

TEST(Parameters, EachNameSetsItsValue) {
    EXPECT_EQ(With("layer 2 modulus", 70).Layers[1].Modulus, 70);
    EXPECT_EQ(With("layer 1 poisson", 0.3).Layers[0].PoissonRatio, 0.3);
    EXPECT_EQ(With("layer 1 thickness", 9).Layers[0].Thickness, 9);
    EXPECT_EQ(With("layer 1 slip", 0.5).Layers[0].SlipRate, 0.5);
    EXPECT_EQ(With("load 2 vertical", 9).Loads[1].Vertical, 9);
    EXPECT_EQ(With("load 2 vertical", 9).Loads[0].Vertical, 20);
    EXPECT_EQ(With("load all radius", 9).Loads[0].Radius, 9);
    EXPECT_EQ(With("load all radius", 9).Loads[1].Radius, 9);
    EXPECT_EQ(With("load 1 x", 9).Loads[0].X, 9);
    EXPECT_EQ(With("load 1 y", 9).Loads[0].Y, 9);
    EXPECT_EQ(With("load 1 horizontal", 9).Loads[0].Horizontal, 9);
    EXPECT_EQ(With("load 1 angle", 9).Loads[0].Angle, 9);
}

TEST(Parameters, TheTotalScalesAllLoadsAlike) {
    const solver::Problem problem = With("loads total", 100);  // from 50
    EXPECT_EQ(problem.Loads[0].Vertical, 40);
    EXPECT_EQ(problem.Loads[0].Horizontal, 4);
    EXPECT_EQ(problem.Loads[1].Vertical, 60);
    EXPECT_EQ(problem.Loads[1].Radius, 11);
}

TEST(Parameters, WhatNoPavementCanHaveIsToldInTheWordsOfTheCheck) {
    const auto reason = [](const char* name, double value) {
        return ReasonAgainst(std::get<Parameter>(ParameterOf(name, Base())), value);
    };
    EXPECT_EQ(reason("layer 1 modulus", 0), "is not above 0");
    EXPECT_EQ(reason("layer 1 poisson", 0.6), "is above 0.5");
    EXPECT_EQ(reason("layer 1 slip", -0.1), "is below 0");
    EXPECT_EQ(reason("layer 1 slip", 1), "is above 0.99");
    EXPECT_EQ(reason("layer 1 slip", 0), "");
    EXPECT_EQ(reason("load all radius", -1), "is not above 0");
    EXPECT_EQ(reason("load 1 x", -1), "");
}

}  // namespace
}  // namespace zirvo::study
