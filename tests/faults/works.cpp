// The works, see works.h.
#include "faults/works.h"

#include <gtest/gtest.h>

#include "batch/work_folder.h"

namespace zirvo::test {
namespace {

std::string ControlFileOf(const std::string& input) {
    return "LANGUAGE PREFERENCE\r\n 2 \r\n\r\nUNITS\r\n 3 \r\n\r\nINPUT\r\n" + input + "\r\n";
}

/// Eight rows, one of which cannot be solved.
WorkFiles StudyFiles() {
    return {{"road.eva", SampleBytes("road.eva")},
            {"s.toml", "base = \"road.eva\"\nunits = 3\ntable = \"t.csv\"\n[[keep]]\nvalue = \"EPSx\"\npoint = 2\n"},
            {"t.csv", "layer 1 thickness\n5\n7\n-1\n10\n14\n20\n22\n25\n"}};
}

constexpr const char* FirstPart = "p.part-1-of-2.sqlite";
constexpr const char* SecondPart = "p.part-2-of-2.sqlite";

/// The files of the study with one of its parts, or both.
WorkFiles FilesWithParts(const std::vector<std::string>& parts) {
    const WorkFolder folder;
    WorkFiles files = StudyFiles();
    for (const auto& [name, bytes] : files) {
        folder.Put(name, bytes);
    }
    for (const std::string& part : parts) {
        const std::string share = part == FirstPart ? "1/2" : "2/2";
        EXPECT_EQ(folder.Batch({"study", "s.toml", "-o", "p", "--part", share}).Code, 0);
        files[part] = folder.Get(part);
    }
    return files;
}

}  // namespace

Work AnalyzeWork() {
    return {.Line = {"analyze", "road.eva", "--units", "3", "--language", "en"},
            .Input = {{"road.eva", SampleBytes("road.eva")}},
            .Results = {"road.bre", "road.san", "road_bre.csv", "road_san.csv"},
            .TroublesOfEach = 2};
}

Work SolveWork() {
    return {.Line = {"solve", "road.eva", "--units", "3", "--csv", "road.csv"},
            .Input = {{"road.eva", SampleBytes("road.eva")}},
            .Results = {"road.csv"}};
}

Work CheckWork() {
    return {.Line = {"check", "road.eva"}, .Input = {{"road.eva", SampleBytes("road.eva")}}, .Results = {}};
}

Work CheckMapWork() {
    return {.Line = {"check", "road.ven"}, .Input = {{"road.ven", SampleBytes("road.ven")}}, .Results = {}};
}

Work GearWork() {
    return {.Line = {"gear", "--file", "gear.csv", "--load", "80", "--radius", "15", "--units", "3", "--into",
                     "road.eva", "-o", "other.eva"},
            .Input = {{"road.eva", SampleBytes("road.eva")}, {"gear.csv", "x,y\n0,0\n30,0\n"}},
            .Results = {"other.eva"},
            .TroublesOfEach = 2};
}

Work LivesWork() {
    return {.Line = {"lives", "road.eva", "--units", "3", "--life", "ai-fatigue:2", "--axles", "axles.csv", "--csv",
                     "lives.csv"},
            .Input = {{"road.eva", SampleBytes("road.eva")}, {"axles.csv", "load,repetitions\n49,1000\n80,500\n"}},
            .Results = {"lives.csv"},
            .TroublesOfEach = 2};
}

Work StudyWork() {
    return {.Line = {"study", "s.toml", "-o", "r", "--threads", "1"},
            .Input = StudyFiles(),
            .Results = {"r.csv", "r_bad.csv"},
            .Memories = {"r.sqlite"},
            .FinalFiles = {"r.sqlite"},
            .CallsApart = 6,
            .TroublesOfEach = 1};
}

Work PartWork() {
    return {.Line = {"study", "s.toml", "-o", "p", "--threads", "1", "--part", "1/2"},
            .Input = FilesWithParts({SecondPart}),
            .Results = {},
            .Memories = {FirstPart},
            .LineBehind = {"study", "s.toml", "-o", "p", "--merge"},
            .FinalFiles = {"p.sqlite", "p.csv", "p_bad.csv"},
            .CallsApart = 6,
            .TroublesOfEach = 1};
}

Work MergeWork() {
    return {.Line = {"study", "s.toml", "-o", "p", "--merge"},
            .Input = FilesWithParts({FirstPart, SecondPart}),
            .Results = {"p.csv", "p_bad.csv"},
            .Memories = {"p.sqlite"},
            .FinalFiles = {"p.sqlite"},
            .CallsApart = 6,
            .TroublesOfEach = 1};
}

Work MapWork() {
    return {.Line = {"map", "road.ven", "--section", "xy", "--position", "0", "--units", "3", "--language", "en",
                     "--component", "EPSx", "-o", "map.png"},
            .Input = {{"road.ven", SampleBytes("road.ven")}},
            .Results = {"map.png"},
            .TroublesOfEach = 1};
}

Work ChartWork() {
    Work work = StudyWork();
    for (const char* word : {"--plot", "r.svg", "--histogram", "EPSx 2"}) {
        work.Line.emplace_back(word);
    }
    work.Results.emplace_back("r.svg");
    work.CallsApart = 12;  // most of them are those of the study
    return work;
}

Work AnalysisSolverWork() {
    return {.Program = "ZIRVO_SV12.EXE",
            .Line = {},
            .Input = {{"Initial_File", ControlFileOf("road.eva")}, {"road.eva", SampleBytes("road.eva")}},
            .Results = {"road.bre", "road.san"},
            .SolverReports = true};
}

/// By hand: one layer, one load, two points in the narrow columns of a section.
Work SectionSolverWork() {
    return {.Program = "ZIRVO_SV22.exe",
            .Line = {},
            .Input = {{"Initial_File", ControlFileOf("ZIRVO_SV.EVA")},
                      {"ZIRVO_SV.EVA",
                       "OUTPUT\r\nZIRVO_SV.BRE\r\n\r\nCOUNTS\r\n  1         1          2\r\n\r\n"
                       "LAYERS\r\nHEADING\r\n              300          0.35\r\n\r\n"
                       "LOADS\r\nHEADING\r\n        49             15              0              0"
                       "              0                  0\r\n\r\n"
                       "POINTS\r\nHEADING\r\n    1               0            0            0\r\n"
                       "    1               5            0            0\r\n"}},
            .Results = {"ZIRVO_SV.BRE"},
            .SolverReports = true};
}

}  // namespace zirvo::test
