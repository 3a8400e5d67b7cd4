// `zirvo-batch map` where it fails: the reason is told, nothing is written, nothing is left.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>

#include "batch/work_folder.h"

namespace zirvo::test {
namespace {

using Arguments = std::vector<std::string>;

class MapFailure : public testing::Test {
protected:
    WorkFolder Folder;
    const TemporaryFolder Temporary;
    const std::string Road = SampleBytes("road.ven");

    MapFailure() { Folder.Put("road.ven", Road); }

    Outcome Run(const Arguments& options, Surroundings surroundings = {}, const std::string& file = "road.ven") {
        Arguments line{"map", file, "--units", "3", "--language", "en"};
        line.insert(line.end(), options.begin(), options.end());
        surroundings.Variables.emplace_back(TemporaryVariable, Temporary.Path());
        return Folder.Batch(line, std::move(surroundings));
    }

    /// The road's file with these bytes; the message, exit code 1, and no file more than before.
    void ExpectRefused(const std::string& bytes, const Arguments& options, const std::string& message) {
        Folder.Put("road.ven", bytes);
        const Arguments before = Folder.Names();
        Arguments line = options;
        line.insert(line.end(), {"-o", "map.png"});
        const Outcome outcome = Run(line);
        EXPECT_EQ(outcome.Code, 1) << message;
        EXPECT_EQ(outcome.Out, "");
        EXPECT_EQ(outcome.Err, message + "\n");
        EXPECT_EQ(Folder.Names(), before);
        EXPECT_EQ(Temporary.Entries(), 0U);
    }

    static Arguments XY(const std::string& depth, Arguments more = {}) {
        more.insert(more.begin(), {"--section", "xy", "--position", depth, "--component", "EPSx"});
        return more;
    }
    static Arguments XZ(const std::string& y) { return {"--section", "xz", "--position", y, "--component", "EPSx"}; }
};

TEST_F(MapFailure, AMissingFileIsNamed) {
    const Outcome outcome = Run(XY("0", {"-o", "map.png"}), {}, "none.ven");
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Err, "none.ven: File not found\n");
    EXPECT_EQ(Folder.Names(), (Arguments{"road.ven"}));
}

TEST_F(MapFailure, EveryRowThatBreaksARuleIsNamed) {
    ExpectRefused(With(With(Road, "0.35", "0.75"), "0.35", "0"), XY("0"),
                  "road.ven: layer 1, PoissonRatio 0.75: is above 0.5\n"
                  "road.ven: layer 2, PoissonRatio 0: is not above 0");
    ExpectRefused(With(Road, "49               15", "49                0"), XY("0"),
                  "road.ven: load 1, Radius 0: is not above 0");
}

TEST_F(MapFailure, AnInterfaceWithoutALayerNamesBoth) {
    ExpectRefused(Road, XY("15"),
                  "road.ven: depth 15 cm is the interface of layers 1 and 2: --layer 1 or --layer 2 decides");
    ExpectRefused(Road, XY("45", {"--layer", "1"}),
                  "road.ven: depth 45 cm is the interface of layers 2 and 3: --layer 2 or --layer 3 decides");
    ExpectRefused(Road, XY("7", {"--layer", "2"}), "road.ven: depth 7 cm lies in layer 1, not in layer 2");
}

TEST_F(MapFailure, ADepthThatRoundingMovesIntoTheLayerAboveIsRefused) {
    ExpectRefused(With(Road, "               30   ", "           30.004   "), XZ("0"),
                  "road.ven: layer 3: its top at 45.004 cm, rounded to 2 decimals, lies in the layer above");
}

// Two loads of 18 that share no edge: 3 * 18 + 1 gaps of six positions, and one more, on each axis.
TEST_F(MapFailure, TooManyPointsAreCounted) {
    std::string bytes = With(Road, "  3         1", "  3        18");
    for (int n = 1; n < 18; ++n) {
        bytes += "49 15 " + std::to_string(50 * n) + " " + std::to_string(45 * n) + " 0 0\r\n";
    }
    ExpectRefused(bytes, XY("0"), "road.ven: the loads make a grid of 109561 points, more than 100000");
}

TEST_F(MapFailure, ARangeThatTheDataLeaveEmptyIsToldWithTheirEnd) {
    const Outcome low = Run(XY("0", {"-o", "map.png", "--min", "1000"}));
    EXPECT_EQ(low.Code, 1);
    EXPECT_EQ(low.Err.rfind("road.ven: --min is above the largest value, ", 0), 0U) << low.Err;
    const Outcome high = Run(XY("0", {"-o", "map.png", "--max", "-1E3"}));
    EXPECT_EQ(high.Code, 1);
    EXPECT_EQ(high.Err, "road.ven: --max is below the smallest value, -1.85E+02\n");
    EXPECT_EQ(Folder.Names(), (Arguments{"road.ven"}));
}

TEST_F(MapFailure, WhatTheSolverRefusesIsToldInItsWords) {
    const Outcome outcome = Run(XZ("1E300"));
    EXPECT_EQ(outcome.Code, 2) << "no output is named";
    const Outcome far = Run({"--section", "xz", "--position", "1E300", "--component", "EPSx", "-o", "map.png"});
    EXPECT_EQ(far.Code, 1);
    EXPECT_EQ(far.Err.rfind("road.ven: the solver gave no results; its report says:\n", 0), 0U) << far.Err;
    EXPECT_NE(far.Err.find("REASON: "), std::string::npos);
    EXPECT_EQ(Temporary.Entries(), 0U);
    EXPECT_FALSE(Folder.Has("map.png"));
}

TEST_F(MapFailure, LoadsTooFarOutForAGridAreToldInWordsAndLeaveNoEmptyMap) {
    std::string far = Road;
    const std::string load = "        49               15                0 ";
    const std::size_t place = far.find(load);
    ASSERT_NE(place, std::string::npos);
    far.replace(place, load.size(), "        49               15             1E20 ");
    for (const Arguments& section : {XY("0"), XZ("0")}) {
        ExpectRefused(far, section,
                      "road.ven: Run-time error '6': Overflow (The loads lie so far out that no grid of points can be "
                      "made. Please check their X, Y and radius.)");
    }
}

TEST_F(MapFailure, LayersTooThickForTheirLevelsAreToldInWords) {
    std::string thick = Road;
    const std::string layer = "         5000             0.35               15 ";
    const std::size_t place = thick.find(layer);
    ASSERT_NE(place, std::string::npos);
    thick.replace(place, layer.size(), "         5000             0.35             1E15 ");
    ExpectRefused(thick, XZ("0"),
                  "road.ven: Run-time error '6': Overflow (The layers are so thick that no grid of points can be made. "
                  "Please check their thicknesses.)");
}

TEST_F(MapFailure, AMissingSolverIsNamed) {
    std::filesystem::create_directory(Folder.Path("bin"));
    Surroundings alone;
    alone.Program = PutBatch(Folder.Path("bin"));
    const Outcome outcome = Run(XY("0", {"-o", "map.png"}), alone);
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Err, "road.ven: " + Folder.Path("bin/ZIRVO_SV22.exe") + " is missing\n");
    EXPECT_FALSE(Folder.Has("map.png"));
}

TEST_F(MapFailure, WithoutATemporaryFolderNothingIsDone) {
    Surroundings without;  // the test's own files need one
    without.Variables.emplace_back(TemporaryVariable, Folder.Path("none"));
    Arguments line{"map", "road.ven", "--units", "3", "--language", "en"};
    for (const std::string& option : XY("0", {"-o", "map.png"})) {
        line.push_back(option);
    }
    const Outcome outcome = Folder.Batch(line, without);
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Err.rfind("road.ven: no temporary folder can be made: ", 0), 0U) << outcome.Err;
    EXPECT_EQ(Folder.Names(), (Arguments{"road.ven"}));
}

#ifdef ZIRVO_DRAWS_MAPS
TEST_F(MapFailure, APictureThatCannotBeWrittenIsNamed) {
    const Outcome nowhere = Run(XY("0", {"-o", "none/map.png"}));
    EXPECT_EQ(nowhere.Code, 1);
    EXPECT_EQ(nowhere.Err, "none/map.png: cannot be written: Run-time error '76': Path not found\n");
    std::filesystem::create_directory(Folder.Path("folder.png"));
    EXPECT_EQ(Run(XY("0", {"-o", "folder.png"})).Err,
              "folder.png: cannot be written: Run-time error '75': Path/File access error\n");
    EXPECT_EQ(Folder.Names(), (Arguments{"folder.png", "road.ven"}));
    EXPECT_EQ(Temporary.Entries(), 0U);
}

TEST_F(MapFailure, APictureThatMayNotBeReplacedIsKept) {
    Folder.Put("map.png", "earlier");
    chmod(Folder.Path("map.png").c_str(), 0444);
    chmod(Folder.Path().c_str(), 0555);
    {
        const WorkFolder programs;  // of everybody, since the build may lie in a folder that only its owner may enter
        std::filesystem::copy(ZIRVO_BIN, programs.Path("bin"), std::filesystem::copy_options::recursive);
        Surroundings nobody;
        nobody.Program = programs.Path("bin/zirvo-batch");
        nobody.OrdinaryUser = true;
        for (const std::string name : {"map.png", "new.png"}) {
            const Outcome outcome = Run(XY("0", {"-o", name}), nobody);
            EXPECT_EQ(outcome.Code, 1) << name;
            EXPECT_EQ(outcome.Err, name + ": cannot be written: Run-time error '75': Path/File access error\n");
        }
    }
    chmod(Folder.Path().c_str(), 0777);
    EXPECT_EQ(Folder.Get("map.png"), "earlier");
    EXPECT_EQ(Folder.Names(), (Arguments{"map.png", "road.ven"}));
    EXPECT_EQ(Temporary.Entries(), 0U);
}
#endif

TEST_F(MapFailure, APictureThatIsALinkToTheInputIsWrongUsage) {
    std::filesystem::create_symlink("road.ven", Folder.Path("map.png"));
    const Outcome outcome = Run(XY("0", {"-o", "map.png"}));
    EXPECT_EQ(outcome.Code, 2);
    EXPECT_EQ(outcome.Err, "--output: road.ven is the input, and would be lost\n");
    EXPECT_EQ(Folder.Get("road.ven"), Road);
}

struct WrongOption {
    Arguments Options;
    std::string Told;  ///< part of the message
};

TEST_F(MapFailure, AWrongOptionEndsWithTwoAndIsToldBeforeAnythingIsDone) {
    const std::vector<WrongOption> rows{
        {{"--section", "yz"}, "--section: yz not in"},
        {{"--component", "EPSy"}, "--component: EPSy not in"},
        {{"--component", "epsx"}, "--component: epsx not in"},
        {{"--position", "deep"}, "--position: deep is no number"},
        {{"--position", ""}, "--position:  is no number"},
        {{"--position", "5cm"}, "--position: 5cm is no number"},
        {{"--layer", "0"}, "--layer: 0 is no number from 1 to 100"},
        {{"--layer", "101"}, "--layer: 101 is no number from 1 to 100"},
        {{"--section", "xz", "--layer", "1"}, "--layer: only an xy section lies in a layer"},
        {{"--lines", "4"}, "--lines: 4 is no number from 5 to 32767"},
        {{"--lines", "32768"}, "--lines: 32768 is no number"},
        {{"--lines", "20.5"}, "--lines: 20.5 is no number"},
        {{"--items", "fill,frame"}, "--items: fill,frame is no list"},
        {{"--items", "fill,"}, "--items: fill, is no list"},
        {{"--items", ""}, "--items:  is no list"},
        {{"--min", "low"}, "--min: low is no number"},
        {{"--max", "1e"}, "--max: 1e is no number"},
        {{"--min", "2", "--max", "1.5"}, "--min: 2 is above --max 1.5"},
        {{"--size", "99x540"}, "--size: 99x540 is no size"},
        {{"--size", "529x8001"}, "--size: 529x8001 is no size"},
        {{"--size", "529"}, "--size: 529 is no size"},
        {{"--size", "529x"}, "--size: 529x is no size"},
        {{"--size", "-529x540"}, "--size"},
        {{"--output", "map.jpg"}, "--output: map.jpg is no picture file"},
        {{"--output", "map"}, "--output: map is no picture file"},
        {{"--output", ".png"}, "--output: .png is no picture file"},
        {{"--bogus"}, "--bogus"},
    };
    const Arguments usual{"--section", "xy", "--position", "0", "--component", "EPSx", "--output", "map.png"};
    for (const WrongOption& row : rows) {
        Arguments line = row.Options;
        for (std::size_t n = 0; n < usual.size(); n += 2) {
            if (std::find(line.begin(), line.end(), usual[n]) == line.end()) {
                line.insert(line.end(), {usual[n], usual[n + 1]});
            }
        }
        const Outcome outcome = Run(line);
        EXPECT_EQ(outcome.Code, 2) << testing::PrintToString(row.Options);
        EXPECT_EQ(outcome.Out, "");
        EXPECT_NE(outcome.Err.find(row.Told), std::string::npos) << row.Told << '\n' << outcome.Err;
    }
    for (std::size_t n = 0; n < usual.size(); n += 2) {
        Arguments line = usual;
        line.erase(line.begin() + static_cast<std::ptrdiff_t>(n), line.begin() + static_cast<std::ptrdiff_t>(n) + 2);
        const Outcome outcome = Run(line);
        EXPECT_EQ(outcome.Code, 2);
        EXPECT_NE(outcome.Err.find(usual[n] + " is required"), std::string::npos) << outcome.Err;
    }
    EXPECT_EQ(Run(usual, {}, "road.eva").Code, 2);
    EXPECT_EQ(Folder.Names(), (Arguments{"road.ven"}));
    EXPECT_EQ(Temporary.Entries(), 0U);
}

#ifndef ZIRVO_DRAWS_MAPS
TEST_F(MapFailure, AProgramWithoutQtSaysThatItCannotDraw) {
    ExpectRefused(Road, XY("0"), "map.png: cannot be drawn: this zirvo-batch was built without Qt");
}
#endif

}  // namespace
}  // namespace zirvo::test
