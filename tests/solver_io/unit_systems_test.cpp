// Units in and out of the solver programs.
#include "solver/io/unit_systems.h"

#include <gtest/gtest.h>

namespace zirvo::solver {
namespace {

Problem OneLoad() {
    Problem problem;
    problem.Layers = {{5000, 0.35, 15, 0.5}, {50, 0.4, 0, 0}};
    problem.Loads = {{49, 15, 1, 2, -5, 30}};
    problem.Points = {{1, 3, 4, 5}};
    return problem;
}

TEST(Units, OnlyForcesInKilonewtonsAreConvertedOnTheWayIn) {
    for (const UnitSystem units : {UnitSystem::KgfToKgf, UnitSystem::KgfToMpa}) {
        const Problem problem = ToConsistentUnits(OneLoad(), units);
        EXPECT_EQ(problem.Loads[0].Vertical, 49);
        EXPECT_EQ(problem.Loads[0].Horizontal, -5);
        EXPECT_EQ(problem.Layers[0].Modulus, 5000);
    }
    // 49 kN = 49000 N, and 1 N on 1 cm2 is 0.01 MPa.
    const Problem problem = ToConsistentUnits(OneLoad(), UnitSystem::KnToMpa);
    EXPECT_EQ(problem.Loads[0].Vertical, 490);
    EXPECT_EQ(problem.Loads[0].Horizontal, -50);
    EXPECT_EQ(problem.Loads[0].Radius, 15);
    EXPECT_EQ(problem.Loads[0].Angle, 30);
    EXPECT_EQ(problem.Layers[0].Modulus, 5000);
    EXPECT_EQ(problem.Points[0].Z, 5);
}

TEST(Units, StressesComeOutInTheUnitOfTheOutputAndStrainsInMicro) {
    std::array<double, ComponentCount> values;
    values.fill(2);
    for (const auto& [units, stress] : {std::pair(UnitSystem::KgfToKgf, 2.0), std::pair(UnitSystem::KgfToMpa, 0.196133),
                                        std::pair(UnitSystem::KnToMpa, 2.0)}) {
        const std::array<double, ComponentCount> out = ToOutputUnits(values, units);
        for (std::size_t i = 0; i < out.size(); ++i) {
            EXPECT_DOUBLE_EQ(out[i], i <= W ? 2 : i <= TAUzx ? stress : 2e6) << ComponentNames[i];
        }
    }
}

TEST(Units, AreNamedAsTheyAreTyped) {
    EXPECT_EQ(ForceUnit(UnitSystem::KgfToMpa), "kgf");
    EXPECT_EQ(ForceUnit(UnitSystem::KnToMpa), "kN");
    EXPECT_EQ(InputStressUnit(UnitSystem::KgfToMpa), "kgf/cm2");
    EXPECT_EQ(OutputStressUnit(UnitSystem::KgfToKgf), "kgf/cm2");
    EXPECT_EQ(OutputStressUnit(UnitSystem::KgfToMpa), "MPa");
    EXPECT_EQ(UnitSystemOf(3), UnitSystem::KnToMpa);
    EXPECT_EQ(UnitSystemOf(0), std::nullopt);
    EXPECT_EQ(UnitSystemOf(4), std::nullopt);
}

}  // namespace
}  // namespace zirvo::solver
