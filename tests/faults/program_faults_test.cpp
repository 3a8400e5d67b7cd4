// zirvo-batch and the solver programs with one call to the system that fails, each call in turn and in five ways.
//
// What is checked Every file that was there is the old one or the new one, whole. No temporary is left. Where the work
//                 was not done the exit status is 1 (2 for a solver without its control file) and standard error names
//                 the file that it was about; where it is 0 all is as without the failure. A call that was interrupted
//                 is made again, so that nothing is different at all. What has a memory goes on from whatever is left
//                 of it, to the same bytes as without the failure.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <set>
#include <sstream>

#include "batch/work_folder.h"
#include "faults/failing_calls.h"
#include "faults/works.h"

namespace zirvo::test {
namespace {

constexpr int MostCallsOfAWork = 1000;

class ProgramFault : public testing::Test {
protected:
    const WorkFolder Folder;
    const WorkFolder Temporary;
    const WorkFolder Logs;

    /// The folder as it was before the run.
    void Prepare(const Work& work) const {
        for (const WorkFolder* folder : {&Folder, &Temporary}) {
            for (const std::string& name : folder->Names()) {
                std::filesystem::remove_all(folder->Path(name));
            }
        }
        for (const auto& [name, bytes] : work.Input) {
            Folder.Put(name, bytes);
        }
        for (const std::string& name : work.Results) {
            Folder.Put(name, OldBytes);
        }
    }

    /// @param number  of the call that fails; 0: none
    /// @param only    the kind of call that counts; empty: each
    Outcome Run(const Work& work, const std::vector<std::string>& line, int number, Trouble trouble,
                const std::string& only = "") const {
        std::filesystem::remove(Logs.Path("failed"));
        Surroundings surroundings{.Program = ZIRVO_BIN "/" + work.Program, .Folder = Folder.Path()};
        surroundings.Variables = FailingCallOf(work.ProcessName(), {Folder.Path(), Temporary.Path()}, number, trouble,
                                               Logs.Path("failed"), only);
        surroundings.Variables.emplace_back("TMPDIR", Temporary.Path());
        surroundings.Variables.emplace_back("LC_ALL", "C");
        return RunProcess(line, surroundings);
    }

    /// The bytes that a work without a failure leaves at last.
    WorkFiles RunWhole(const Work& work) const {
        Prepare(work);
        EXPECT_EQ(Run(work, work.Line, 0, Trouble::Denied).Code, 0);
        WorkFiles whole;
        for (const std::string& name : work.Results) {
            whole[name] = Folder.Get(name);
            EXPECT_NE(whole[name], OldBytes) << name;
        }
        if (!work.LineBehind.empty()) {
            EXPECT_EQ(Run(work, work.LineBehind, 0, Trouble::Denied).Code, 0);
        }
        return whole;
    }

    /// Each call fails in turn.
    void FailEachCall(const Work& work) const {
        const WorkFiles whole = RunWhole(work);
        const WorkFiles final = FinalFilesOf(work);
        ASSERT_FALSE(testing::Test::HasFailure());
        const bool all = std::getenv("ZIRVO_ALL_FAULTS") != nullptr;
        const int ways = all ? static_cast<int>(AllTroubles.size()) : work.TroublesOfEach;
        const int apart = all ? 1 : work.CallsApart;
        int failed = 0;
        int number = 1;
        for (; number < MostCallsOfAWork; number += apart) {
            const int before = failed;
            for (int way = 0; way < ways; ++way) {
                const Trouble trouble = AllTroubles[static_cast<std::size_t>(number + way) % AllTroubles.size()];
                Prepare(work);
                const Outcome outcome = Run(work, work.Line, number, trouble);
                if (Logs.Has("failed")) {
                    ++failed;
                    Judge(work, whole, trouble, outcome);
                    GoOn(work, whole, final);
                }
                if (!all && OnlyLooks(Logs.Get("failed"))) {  // one way each, another one at the next
                    break;
                }
            }
            if (failed == before) {
                break;
            }
        }
        std::cout << failed << " failures of " << number - apart << " calls\n";
        EXPECT_GT(failed, ways * static_cast<int>(1 + work.Results.size())) << "hardly a call was seen";
    }

    /// Each lock is interrupted in turn, as it is taken and as it is given back.
    void InterruptEachLock(const Work& work) const {
        const WorkFiles whole = RunWhole(work);
        const WorkFiles final = FinalFilesOf(work);
        int number = 1;
        for (; number < MostCallsOfAWork; ++number) {
            Prepare(work);
            const Outcome outcome = Run(work, work.Line, number, Trouble::Interrupted, "lock");
            if (!Logs.Has("failed")) {
                break;
            }
            Judge(work, whole, Trouble::Interrupted, outcome);
            GoOn(work, whole, final);
        }
        EXPECT_GT(number, 10) << "hardly a lock was seen";
    }

    WorkFiles FinalFilesOf(const Work& work) const {
        WorkFiles files;
        for (const std::string& name : work.FinalFiles) {
            files[name] = Folder.Get(name);
            EXPECT_NE(files[name], "<missing>") << name;
        }
        return files;
    }

    /// The next run of a work with a memory, behind a failure.
    void GoOn(const Work& work, const WorkFiles& whole, const WorkFiles& final) const {
        if (work.Memories.empty()) {
            return;
        }
        const testing::ScopedTrace trace(__FILE__, __LINE__, "behind " + Logs.Get("failed"));
        const Outcome next = Run(work, work.Line, 0, Trouble::Denied);
        EXPECT_EQ(next.Code, 0) << next.Err;
        if (!work.LineBehind.empty()) {
            const Outcome behind = Run(work, work.LineBehind, 0, Trouble::Denied);
            EXPECT_EQ(behind.Code, 0) << behind.Err;
        }
        for (const WorkFiles* files : {&whole, &final}) {
            for (const auto& [name, bytes] : *files) {
                EXPECT_TRUE(Folder.Get(name) == bytes) << name;
            }
        }
        EXPECT_EQ(Folder.Names().size(), Known(work).size()) << testing::PrintToString(Folder.Names());
    }

    /// Names of all that belongs to the work.
    static std::set<std::string> Known(const Work& work) {
        std::set<std::string> names(work.Results.begin(), work.Results.end());
        names.insert(work.Memories.begin(), work.Memories.end());
        names.insert(work.FinalFiles.begin(), work.FinalFiles.end());
        for (const auto& [name, bytes] : work.Input) {
            names.insert(name);
        }
        return names;
    }

    void Judge(const Work& work, const WorkFiles& whole, Trouble trouble, const Outcome& outcome) const {
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
        ExpectNoTemporary(work, trouble, failed);
        EXPECT_TRUE(trouble == Trouble::Gone || outcome.Err.find("does not exist") == std::string::npos);
        if (!done) {
            EXPECT_TRUE(Names(work, failed, outcome.Err));
        }
    }

    /// The old file, or what a failure may leave of the new one: nothing that is half.
    static bool IsWhole(const Work& work, const std::string& name, const std::string& found, const std::string& whole) {
        if (found == OldBytes) {
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

    void ExpectNoTemporary(const Work& work, Trouble trouble, const std::string& failed) const {
        const std::set<std::string> expected = Known(work);
        const auto belongsToAMemory = [&](const std::string& name) {
            return std::any_of(expected.begin(), expected.end(), [&](const std::string& memory) {
                return memory.ends_with(".sqlite") && (name == memory + "-wal" || name == memory + "-journal");
            });
        };
        for (const std::string& name : Folder.Names()) {
            // One that could not be removed is still there, and so is the control file of a solver that did not start.
            const bool told =
                failed == "remove " + Folder.Path(name) || (name == "Initial_File" && failed.starts_with("start "));
            EXPECT_TRUE(told || expected.contains(name) || belongsToAMemory(name)) << name;
        }
        for (const std::string& name : Temporary.Names()) {
            // What is said to be gone is not removed, and Qt tries but once to make a folder of its own, and to remove
            // it.
            const bool ofQt = failed.find(Temporary.Path("qt_temp-")) != std::string::npos;
            EXPECT_TRUE((trouble == Trouble::Gone && failed.find(Temporary.Path(name)) != std::string::npos) ||
                        (ofQt && (name.starts_with("qt_temp-") || name.starts_with("runtime-"))))
                << name;
        }
    }

    /// Whether the message names the file, folder or program of the call that failed, as the user knows it.
    bool Names(const Work& work, const std::string& failed, const std::string& message) const {
        const auto has = [&](const std::string& name) { return message.find(name) != std::string::npos; };
        // So the rules have it: a report that cannot be looked at is one that is missing.
        const bool uncompleted = failed.starts_with("stat ") && has("ANALYSIS UNCOMPLETED");
        const bool thread = failed.starts_with("thread ") && has("no thread can be started");
        const bool listed = failed.starts_with("list ") || failed == "open " + Folder.Path();
        const bool parts = listed && has(".part-1-of-N.sqlite: its folder");
        if (uncompleted || parts || thread) {
            return true;
        }
        if (failed.find(Temporary.Path()) != std::string::npos) {  // what lay there is gone: the input tells more
            return has(work.Input.begin()->first);
        }
        const std::set<std::string> known = Known(work);
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
            // What lies beside a file for a while bears its name with more behind it; a folder is brought to the disk.
            const bool folder = path == Folder.Path();
            if (std::any_of(known.begin(), known.end(),
                            [&](const std::string& file) { return (folder || name.starts_with(file)) && has(file); })) {
                return true;
            }
        }
        return false;
    }
};

TEST_F(ProgramFault, AnalyzeTellsOfEachAndLeavesEveryFileOldOrNew) {
    FailEachCall(AnalyzeWork());
}

TEST_F(ProgramFault, SolveTellsOfEachAndLeavesItsRowsOldOrNew) {
    FailEachCall(SolveWork());
}

TEST_F(ProgramFault, CheckTellsOfEach) {
    FailEachCall(CheckWork());
    FailEachCall(CheckMapWork());
}

TEST_F(ProgramFault, GearTellsOfEachAndLeavesItsFileOldOrNew) {
    FailEachCall(GearWork());
}

TEST_F(ProgramFault, LivesTellsOfEachAndLeavesItsRowsOldOrNew) {
    FailEachCall(LivesWork());
}

#ifdef ZIRVO_STUDIES
TEST_F(ProgramFault, StudyTellsOfEachLeavesItsTablesOldOrNewAndGoesOn) {
    FailEachCall(StudyWork());
}

TEST_F(ProgramFault, StudyTakesAndGivesBackEachLockAgainThatASignalInterrupts) {
    InterruptEachLock(StudyWork());
}

TEST_F(ProgramFault, APartOfAStudyTellsOfEachAndGoesOn) {
    FailEachCall(PartWork());
}

TEST_F(ProgramFault, TheJoiningOfPartsTellsOfEachLeavesThemAsTheyAreAndGoesOn) {
    FailEachCall(MergeWork());
}
#endif

#ifdef ZIRVO_DRAWS_MAPS
TEST_F(ProgramFault, MapTellsOfEachAndLeavesItsPictureOldOrNewAndNoFolder) {
    FailEachCall(MapWork());
}
#endif

#ifdef ZIRVO_DRAWS_CHARTS
TEST_F(ProgramFault, TheChartOfAStudyIsTheOldOneOrTheNewOne) {
    FailEachCall(ChartWork());
}
#endif

TEST_F(ProgramFault, TheSolverOfAnAnalysisTellsOfEachInItsReportsToo) {
    FailEachCall(AnalysisSolverWork());
}

TEST_F(ProgramFault, TheSolverOfASectionTellsOfEachInItsReportToo) {
    FailEachCall(SectionSolverWork());
}

}  // namespace
}  // namespace zirvo::test
