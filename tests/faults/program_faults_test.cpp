// zirvo-batch and the solver programs with one call to the system that fails, each call in turn and in five ways.
//
// What is checked Every file that was there is the old one or the new one, whole. No temporary is left. Where the work
//                 was not done the exit status is 1 (2 for a solver without its control file) and standard error names
//                 the file that it was about; where it is 0 all is as without the failure. A call that was interrupted
//                 is made again, so that nothing is different at all.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <sstream>

#include "batch/work_folder.h"
#include "faults/failing_calls.h"

namespace zirvo::test {
namespace {

using Arguments = std::vector<std::string>;
using Files = std::map<std::string, std::string>;

constexpr const char* Old = "old\r\n";
constexpr int MostCalls = 500;

struct Work {
    std::string Program;
    Arguments Line;
    Files Input;                 ///< stays as it is
    Arguments Results;           ///< lie there from an earlier run
    bool SolverReports = false;  ///< the results are a solver's: a failure is said in them
    bool EveryTrouble = true;    ///< else two of them at each call, other ones at the next
};

class ProgramFault : public testing::Test {
protected:
    const WorkFolder Folder;
    const WorkFolder Temporary;
    const WorkFolder Logs;

    /// The folder as it was before the run.
    void Prepare(const Work& work) const {
        for (const std::string& name : Folder.Names()) {
            std::filesystem::remove_all(Folder.Path(name));
        }
        for (const auto& [name, bytes] : work.Input) {
            Folder.Put(name, bytes);
        }
        for (const std::string& name : work.Results) {
            Folder.Put(name, Old);
        }
    }

    Outcome Run(const Work& work, int number, Trouble trouble) const {
        Prepare(work);
        std::filesystem::remove(Logs.Path("failed"));
        Surroundings surroundings{.Program = ZIRVO_BIN "/" + work.Program, .Folder = Folder.Path()};
        surroundings.Variables = FailingCallOf(work.Program.substr(0, 15), {Folder.Path(), Temporary.Path()}, number,
                                               trouble, Logs.Path("failed"));
        surroundings.Variables.emplace_back("TMPDIR", Temporary.Path());
        surroundings.Variables.emplace_back("LC_ALL", "C");
        return RunProcess(work.Line, surroundings);
    }

    /// Each call fails in turn.
    void FailEachCall(const Work& work) const {
        ASSERT_EQ(Run(work, 0, Trouble::Denied).Code, 0);
        Files whole;
        for (const std::string& name : work.Results) {
            whole[name] = Folder.Get(name);
            ASSERT_NE(whole[name], Old) << name;
        }
        int failed = 0;
        const bool all = work.EveryTrouble || std::getenv("ZIRVO_ALL_FAULTS") != nullptr;
        for (int number = 1; number < MostCalls; ++number) {
            const int before = failed;
            for (std::size_t i = 0; i < AllTroubles.size(); ++i) {
                if (!all && (static_cast<std::size_t>(number) + i) % AllTroubles.size() > 1) {
                    continue;
                }
                const Outcome outcome = Run(work, number, AllTroubles[i]);
                if (Logs.Has("failed")) {
                    ++failed;
                    Judge(work, whole, AllTroubles[i], outcome);
                }
            }
            if (failed == before) {
                break;
            }
        }
        EXPECT_GT(failed, static_cast<int>(5 * work.Results.size())) << "hardly a call was seen";
    }

    void Judge(const Work& work, const Files& whole, Trouble trouble, const Outcome& outcome) const {
        const std::string failed = Logs.Get("failed");
        const testing::ScopedTrace trace(
            __FILE__, __LINE__,
            failed + ": " + NameOf(trouble) + ": status " + std::to_string(outcome.Code) + ": " + outcome.Err);
        const bool done = outcome.Code == 0;
        EXPECT_TRUE(done || outcome.Code == 1 || outcome.Code == 2);
        EXPECT_TRUE(done || trouble != Trouble::Interrupted);
        for (const auto& [name, bytes] : work.Input) {
            EXPECT_EQ(Folder.Get(name), bytes) << name;
        }
        for (const auto& [name, bytes] : whole) {
            const std::string found = Folder.Get(name);
            EXPECT_TRUE(found == bytes || (!done && IsWhole(work, name, found, bytes))) << name << ":\n" << found;
        }
        ExpectNoTemporary(work, failed);
        if (!done) {
            EXPECT_TRUE(Names(work, failed, outcome.Err));
        }
    }

    /// The old file, or what a failure may leave of the new one: nothing that is half.
    static bool IsWhole(const Work& work, const std::string& name, const std::string& found, const std::string& whole) {
        if (found == Old) {
            return true;
        }
        const bool report = name.ends_with(".bre") || name.ends_with(".san") || name.ends_with(".BRE");
        const bool reason = found.find("REASON: ") != std::string::npos && found.ends_with("\r\n");
        if (work.SolverReports) {
            return report && reason;
        }
        // The solver has deleted the old one and left the new one, which has no stamp yet.
        return report && (found == "<missing>" || found == whole.substr(whole.find('\n') + 1));
    }

    void ExpectNoTemporary(const Work& work, const std::string& failed) const {
        Arguments expected = work.Results;
        for (const auto& [name, bytes] : work.Input) {
            expected.push_back(name);
        }
        for (const std::string& name : Folder.Names()) {
            // One that could not be removed is still there, and so is the control file of a solver that did not start.
            const bool told =
                failed == "remove " + Folder.Path(name) || (name == "Initial_File" && failed.starts_with("start "));
            EXPECT_TRUE(told || std::find(expected.begin(), expected.end(), name) != expected.end()) << name;
        }
        EXPECT_EQ(Temporary.Names(), Arguments{});
    }

    /// Whether the message names the file, folder or program of the call that failed, as the user knows it.
    bool Names(const Work& work, const std::string& failed, const std::string& message) const {
        const auto has = [&](const std::string& name) { return message.find(name) != std::string::npos; };
        if (failed.find(Temporary.Path()) != std::string::npos) {  // what lay there is gone: the input tells more
            return has(work.Input.begin()->first);
        }
        std::istringstream words(failed);
        std::string path;
        words >> path;
        while (words >> path) {  // of a rename either name tells
            const std::string name = std::filesystem::path(path).filename().string();
            if (has(name) || has(Folder.Path() + ")")) {
                return true;
            }
            if (name.starts_with(".zirvo-") &&
                (has("Initial_File") || std::any_of(work.Results.begin(), work.Results.end(), has))) {
                return true;
            }
        }
        return false;
    }
};

TEST_F(ProgramFault, AnalyzeTellsOfEachAndLeavesEveryFileOldOrNew) {
    FailEachCall({.Program = "zirvo-batch",
                  .Line = {"analyze", "road.eva", "--units", "3", "--language", "en"},
                  .Input = {{"road.eva", SampleBytes("road.eva")}},
                  .Results = {"road.bre", "road.san", "road_bre.csv", "road_san.csv"},
                  .EveryTrouble = false});
}

TEST_F(ProgramFault, SolveTellsOfEachAndLeavesItsRowsOldOrNew) {
    FailEachCall({.Program = "zirvo-batch",
                  .Line = {"solve", "road.eva", "--units", "3", "--csv", "road.csv"},
                  .Input = {{"road.eva", SampleBytes("road.eva")}},
                  .Results = {"road.csv"}});
}

TEST_F(ProgramFault, CheckTellsOfEach) {
    FailEachCall({.Program = "zirvo-batch",
                  .Line = {"check", "road.eva"},
                  .Input = {{"road.eva", SampleBytes("road.eva")}},
                  .Results = {}});
    FailEachCall({.Program = "zirvo-batch",
                  .Line = {"check", "road.ven"},
                  .Input = {{"road.ven", SampleBytes("road.ven")}},
                  .Results = {}});
}

#ifdef ZIRVO_DRAWS_MAPS
TEST_F(ProgramFault, MapTellsOfEachAndLeavesItsPictureOldOrNewAndNoFolder) {
    FailEachCall({.Program = "zirvo-batch",
                  .Line = {"map", "road.ven", "--section", "xy", "--position", "0", "--units", "3", "--language", "en",
                           "--component", "EPSx", "-o", "map.png"},
                  .Input = {{"road.ven", SampleBytes("road.ven")}},
                  .Results = {"map.png"},
                  .EveryTrouble = false});
}
#endif

std::string ControlFileOf(const std::string& input) {
    return "LANGUAGE PREFERENCE\r\n 2 \r\n\r\nUNITS\r\n 3 \r\n\r\nINPUT\r\n" + input + "\r\n";
}

TEST_F(ProgramFault, TheSolverOfAnAnalysisTellsOfEachInItsReportsToo) {
    FailEachCall({.Program = "ZIRVO_SV12.EXE",
                  .Line = {},
                  .Input = {{"Initial_File", ControlFileOf("road.eva")}, {"road.eva", SampleBytes("road.eva")}},
                  .Results = {"road.bre", "road.san"},
                  .SolverReports = true});
}

// By hand: one layer, one load, two points in the narrow columns of a section.
TEST_F(ProgramFault, TheSolverOfASectionTellsOfEachInItsReportToo) {
    FailEachCall({.Program = "ZIRVO_SV22.exe",
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
                  .SolverReports = true});
}

}  // namespace
}  // namespace zirvo::test
