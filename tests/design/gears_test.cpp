// Gears as loads: what two of load, pressure and radius decide, where the wheels stand, and that they fit into a file.
#include "design/gears.h"

#include <gtest/gtest.h>

#include <numbers>
#include <set>
#include <sstream>

#include "pavement/graphics_input.h"
#include "platform/temporary_folder.h"

namespace zirvo::design {
namespace {

using solver::Load;
using solver::UnitSystem;

std::vector<Load> LoadsOf(const char* name, const GearFit& fit = {}, UnitSystem units = UnitSystem::KnToMpa) {
    const StandardGear* gear = FindGear(name);
    EXPECT_NE(gear, nullptr) << name;
    const auto loads = LoadsOfGear(*gear, fit, units);
    EXPECT_TRUE(std::holds_alternative<std::vector<Load>>(loads)) << std::get<std::string>(loads);
    return std::get<std::vector<Load>>(loads);
}

std::string Refused(const char* name, const GearFit& fit) {
    const auto loads = LoadsOfGear(*FindGear(name), fit, UnitSystem::KnToMpa);
    return loads.index() == 1 ? std::get<std::string>(loads) : "passes";
}

TEST(Gears, TheCatalogueHasTwelveOrMoreEachWithItsSource) {
    std::set<std::string> names;
    for (const StandardGear& gear : GearCatalogue()) {
        EXPECT_TRUE(names.insert(gear.Name).second) << gear.Name;
        EXPECT_GT(std::string(gear.Source).size(), 10U) << gear.Name;
        EXPECT_GT(std::string(gear.What).size(), 10U) << gear.Name;
    }
    EXPECT_GE(names.size(), 12U);
    EXPECT_EQ(FindGear("sledge"), nullptr);
}

// 20 kN / (pi (4.52 in)^2): sqrt(20 * 10 / (pi * 0.483)) = 11.48 cm = 4.52 in, the radius of the source.
TEST(Gears, LoadAndPressureGiveTheRadiusOfTheSource) {
    const std::vector<Load> loads = LoadsOf("ms1-80");
    ASSERT_EQ(loads.size(), 2U);
    EXPECT_EQ(loads[0].Vertical, 20);
    EXPECT_NEAR(loads[0].Radius, 4.52 * 2.54, 0.01);
    EXPECT_EQ(loads[0].X, -17.25);
    EXPECT_EQ(loads[1].X, 17.25);
    EXPECT_EQ(loads[0].Y, 0);
}

// Radii that the sources state: 9.21 cm, 12.5 cm, 10.65 cm, 11.3 cm, 15.1 cm.
TEST(Gears, RadiiAreThoseThatTheSourcesState) {
    EXPECT_NEAR(LoadsOf("austroads-80")[0].Radius, 9.21, 0.01);
    EXPECT_NEAR(LoadsOf("france-65")[0].Radius, 12.5, 0.01);
    EXPECT_NEAR(LoadsOf("china-bzz100")[0].Radius, 10.65, 0.02);
    EXPECT_NEAR(LoadsOf("japan-49")[0].Radius, 11.3, 0.01);
    EXPECT_NEAR(LoadsOf("lr1132-40")[0].Radius, 15.1, 0.01);
}

/// Load and circle of each wheel and the middle of the last one. By hand, per wheel:
///   india-80              20 kN, 0.56 MPa: sqrt(200 / (pi 0.56)) = 10.662 cm, 31 / 2 = 15.5
///   south-africa-80       20 kN, 0.52 MPa: sqrt(200 / (pi 0.52)) = 11.065 cm, 35 / 2 = 17.5
///   us-single             20 000 / 4 = 5000 lb = 22.241 kN; sqrt(5000 / (120 pi)) = 3.6418 in = 9.250 cm; X (6 ft +
///                         12 in) / 2 = 106.68
///   us-tandem             34 000 / 8 = 4250 lb = 18.905 kN; sqrt(4250 / (120 pi)) = 3.3576 in = 8.528 cm; Y 51.6 in /
///   2 us-tridem             42 000 / 12 = 3500 lb = 15.569 kN; sqrt(3500 / (120 pi)) = 3.0470 in = 7.739 cm; Y 49.2 in
///   faa-single-30         0.95 * 30 000 / 2 = 14 250 lb = 63.387 kN; sqrt(14 250 / (75 pi)) = 7.7768 in = 19.753 cm
///   faa-dual-200          0.95 * 200 000 / 4 = 47 500 lb = 211.291 kN; sqrt(47 500 / (200 pi)) = 8.6948 in = 22.085
///   cm;
///                         X 34 in / 2
///   faa-dual-tandem-400   the same load and circle; X 30 in / 2, Y 55 in / 2
///   b737-800              0.95 * 174 700 / 4 = 41 491.25 lb = 184.562 kN; sqrt(41 491.25 / (205 pi)) = 8.0265 in =
///                         20.387 cm; X 34 in / 2
///   b747-400              0.95 * 875 000 / 16 = 51 953.125 lb = 231.099 kN; sqrt(51 953.125 / (200 pi)) = 9.0932 in =
///                         23.097 cm; X 44 in / 2, Y 58 in / 2
TEST(Gears, LoadsCirclesAndPlacesAreTheHandWorkedOnes) {
    struct Row {
        const char* Name;
        std::size_t Wheels;
        Load Last;
    };
    const std::vector<Row> rows{
        {"india-80", 2, {20, 10.662, 15.5, 0, 0, 0}},
        {"south-africa-80", 2, {20, 11.065, 17.5, 0, 0, 0}},
        {"us-single", 4, {22.241, 9.250, 106.68, 0, 0, 0}},
        {"us-tandem", 8, {18.905, 8.528, 106.68, 65.532, 0, 0}},
        {"us-tridem", 12, {15.569, 7.739, 106.68, 124.968, 0, 0}},
        {"faa-single-30", 1, {63.387, 19.753, 0, 0, 0, 0}},
        {"faa-dual-200", 2, {211.291, 22.085, 43.18, 0, 0, 0}},
        {"faa-dual-tandem-400", 4, {211.291, 22.085, 38.1, 69.85, 0, 0}},
        {"b737-800", 2, {184.562, 20.387, 43.18, 0, 0, 0}},
        {"b747-400", 4, {231.099, 23.097, 55.88, 73.66, 0, 0}},
    };
    for (const Row& row : rows) {
        const std::vector<Load> loads = LoadsOf(row.Name);
        ASSERT_EQ(loads.size(), row.Wheels) << row.Name;
        EXPECT_NEAR(loads.front().Vertical, row.Last.Vertical, 0.001) << row.Name;
        EXPECT_NEAR(loads.back().Vertical, row.Last.Vertical, 0.001) << row.Name;
        EXPECT_NEAR(loads.back().Radius, row.Last.Radius, 0.001) << row.Name;
        EXPECT_NEAR(loads.back().X, row.Last.X, 1e-6) << row.Name;
        EXPECT_NEAR(loads.back().Y, row.Last.Y, 1e-6) << row.Name;
    }
}

// Half of the distances that the sources state: 37.5, 31.95, 32 cm.
TEST(Gears, PairsOfWheelsStandAsFarApartAsTheSourcesState) {
    EXPECT_EQ(LoadsOf("france-65")[1].X, 18.75);
    EXPECT_EQ(LoadsOf("china-bzz100")[1].X, 15.975);
    EXPECT_EQ(LoadsOf("japan-49")[1].X, 16);
}

// The source puts the wheels at 0, 33, 180 and 213 cm: from the middle -106.5, -73.5, 73.5, 106.5.
TEST(Gears, AWholeAxleStandsAroundItsMiddle) {
    const std::vector<Load> loads = LoadsOf("austroads-80", {.X = 10, .Y = 5});
    ASSERT_EQ(loads.size(), 4U);
    EXPECT_EQ(loads[0].X, -96.5);
    EXPECT_EQ(loads[1].X, -63.5);
    EXPECT_EQ(loads[2].X, 83.5);
    EXPECT_EQ(loads[3].X, 116.5);
    EXPECT_EQ(loads[3].Y, 5);
}

TEST(Gears, AxlesStandBehindOneAnotherAndTheGearTurns) {
    const std::vector<Load> straight = LoadsOf("faa-dual-tandem-400", {.Spacing = 100, .AxleSpacing = 140});
    ASSERT_EQ(straight.size(), 4U);
    EXPECT_EQ(straight[0].X, -50);
    EXPECT_EQ(straight[0].Y, -70);
    EXPECT_EQ(straight[3].X, 50);
    EXPECT_EQ(straight[3].Y, 70);
    const std::vector<Load> turned = LoadsOf("faa-dual-tandem-400", {.Spacing = 100, .AxleSpacing = 140, .Angle = 90});
    EXPECT_EQ(turned[0].X, 70);  // (-50, -70) turned by a right angle
    EXPECT_EQ(turned[0].Y, -50);
}

// 0.95 * 400 000 lb * 4.4482216 N / 2 legs / 4 wheels = 211.29 kN.
TEST(Gears, AnAircraftsLegHasItsShareOfTheMass) {
    EXPECT_NEAR(LoadsOf("faa-dual-tandem-400")[0].Vertical, 211.29, 0.01);
}

// By hand: 0.7 MPa * pi * 15^2 cm2 / 10 = 49.48 kN; sqrt(50 * 10 / (pi 0.8)) = 14.105 cm.
TEST(Gears, AnyTwoOfLoadPressureAndRadiusGiveTheThird) {
    const std::vector<Load> byPressure = LoadsOf("lr1132-40", {.Pressure = 0.7, .Radius = 15});
    EXPECT_NEAR(byPressure[0].Vertical, 49.48, 0.005);
    EXPECT_EQ(byPressure[0].Radius, 15);
    const std::vector<Load> byLoad = LoadsOf("lr1132-40", {.Load = 50, .Pressure = 0.8});
    EXPECT_EQ(byLoad[0].Vertical, 50);
    EXPECT_NEAR(byLoad[0].Radius, 14.105, 0.001);
    const std::vector<Load> byBoth = LoadsOf("lr1132-40", {.Load = 50, .Radius = 14});
    EXPECT_EQ(byBoth[0].Vertical, 50);
    EXPECT_EQ(byBoth[0].Radius, 14);
}

TEST(Gears, WhatIsNotGivenIsThatOfTheGear) {
    EXPECT_EQ(LoadsOf("lr1132-40", {.Radius = 16})[0].Vertical, 40);
    EXPECT_NEAR(LoadsOf("lr1132-40", {.Load = 80})[0].Radius, 15.1 * std::numbers::sqrt2, 0.01);
    EXPECT_EQ(LoadsOf("lr1132-40", {.Pressure = 0.8})[0].Vertical, 40);
}

// 40 kN = 4078.86 kgf; the radius does not depend on the units.
TEST(Gears, InKilogramsOfForceTheCircleIsTheSame) {
    const std::vector<Load> loads = LoadsOf("lr1132-40", {}, UnitSystem::KgfToMpa);
    EXPECT_NEAR(loads[0].Vertical, 4078.86, 0.01);
    EXPECT_NEAR(loads[0].Radius, LoadsOf("lr1132-40")[0].Radius, 2e-6);
}

TEST(Gears, WishesThatDoNotGoTogetherAreRefused) {
    EXPECT_EQ(Refused("ms1-80", {.Load = 40, .Pressure = 0.5, .Radius = 11}),
              "--load, --pressure, --radius: two of them decide the third");
    EXPECT_EQ(Refused("ms1-80", {.Load = -40}), "--load: -40 is not from 1E-5 to 1E6");
    EXPECT_EQ(Refused("lr1132-40", {.Spacing = 30}), "--spacing: this gear has one wheel on each end of an axle");
    EXPECT_EQ(Refused("ms1-80", {.AxleSpacing = 30}), "--axle-spacing: this gear has one axle");
    EXPECT_EQ(Refused("ms1-80", {.Track = 30}), "--track: this is one side of an axle");
    EXPECT_EQ(Refused("ms1-80", {.X = 2e6}), "--at, --angle: 2e+06 is farther out than 1E6");
}

/// Every gear in every unit system, far out and turned, so that all columns are full.
TEST(Gears, EveryGearStandsInAFileAndIsReadBackAsItWas) {
    for (const StandardGear& gear : GearCatalogue()) {
        for (const UnitSystem units : {UnitSystem::KgfToKgf, UnitSystem::KnToMpa}) {
            const std::vector<Load> loads =
                LoadsOf(gear.Name, {.X = -999999.123456, .Y = -999999.654321, .Angle = 33}, units);
            GraphicsInputData data;
            data.LayerCount = 1;
            data.Layers[1] = {100, 0.35, 0, 0};
            for (const Load& load : loads) {
                data.Loads[++data.LoadCount] = {load.Vertical, load.Radius, load.X, load.Y, 0, 0};
            }
            std::istringstream file(WriteGraphicsInput(data, zirvo::UnitSystem::KnToMPa, 200));
            const GraphicsInputResult read = ReadGraphicsInput(file);
            ASSERT_TRUE(read.Passed()) << gear.Name << FindingText(read.Failure().First);
            EXPECT_EQ(*read, data) << gear.Name;
        }
    }
}

TEST(Gears, AFileOfOnesOwnSharesTheLoad) {
    const TemporaryFolder folder;
    const auto wheels = ReadGearFile(folder.Put("own.csv", "# a trailer\nx,y,share\n0,0,1\n30, 0,1\r\n\n0,120,2\n"));
    ASSERT_EQ(wheels.index(), 0U) << std::get<FileError>(wheels).Text();
    const auto loads =
        LoadsOfWheels(std::get<std::vector<Wheel>>(wheels), {.Load = 40, .Pressure = 0.5}, UnitSystem::KnToMpa);
    ASSERT_EQ(loads.index(), 0U) << std::get<std::string>(loads);
    const auto& all = std::get<std::vector<Load>>(loads);
    ASSERT_EQ(all.size(), 3U);
    EXPECT_EQ(all[0].Vertical, 10);
    EXPECT_EQ(all[2].Vertical, 20);
    EXPECT_NEAR(all[2].Radius, all[0].Radius * std::numbers::sqrt2, 1e-5);
    EXPECT_EQ(LoadsOfWheels(std::get<std::vector<Wheel>>(wheels), {.Load = 40}, UnitSystem::KnToMpa).index(), 1U);
    EXPECT_EQ(
        LoadsOfWheels(std::get<std::vector<Wheel>>(wheels), {.Pressure = 1, .Radius = 9}, UnitSystem::KnToMpa).index(),
        1U);
}

TEST(Gears, WhatIsWrongInAFileIsToldWithItsLine) {
    const TemporaryFolder folder;
    const auto told = [&](const char* bytes) {
        const auto read = ReadGearFile(folder.Put("g.csv", bytes));
        return read.index() == 1 ? std::get<FileError>(read).Text().substr(folder.Path().size() + 1) : "passes";
    };
    EXPECT_EQ(told("x,y,share\n0,0,0\n"), "g.csv:2: share 0: is not above 0");
    EXPECT_EQ(told("x,y\n0,0\n0,zero\n"), "g.csv:3: y \"zero\": is no number");
    EXPECT_EQ(told("x,y\n0\n"), "g.csv:2: 1 numbers beneath 2 headings");
    EXPECT_EQ(told("x,z\n0,0\n"), "g.csv: the headings of a gear are x,y or x,y,share");
    EXPECT_EQ(told("x,y\n"), "g.csv: holds 0 wheels; 1 to 100 are expected");
    EXPECT_EQ(told("x,y\n0,1E300\n"), "g.csv:2: y 1e+300: is farther out than 1E6 cm");
    EXPECT_EQ(told(""), "g.csv: is empty: a row of headings and rows of numbers are expected");
    EXPECT_NE(std::get<FileError>(ReadGearFile(folder.Path("none.csv"))).Text().find("File not found"),
              std::string::npos);
}

}  // namespace
}  // namespace zirvo::design
