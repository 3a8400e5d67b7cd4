// The real programs killed at any moment: what a crash or the end of the power leaves.
//
// When: before each call to the system that changes a file or starts a program, since between two of them nothing
// changes; and at moments spread over the time that the work takes. So often altogether as ZIRVO_KILLS says, 20 times
// if it says nothing.
//
// What is checked: the input is untouched. Every result is the old one or the new one, whole; a report may be gone, as
// the solver deletes the old ones first, or lie whole in ZIRVO_SV.TMP, unstamped. The next run works, whatever has been
// left: at once, or once ZIRVO_SV.TMP is removed, which it asks for by name. What has a memory goes on from it to the
// bytes of a run that was let be. Temporary files are gone behind it, once they are old enough to be nobody's.
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <thread>

#include "batch/work_folder.h"
#include "faults/failing_calls.h"
#include "faults/works.h"

namespace zirvo::test {
namespace {

using Clock = std::chrono::steady_clock;

constexpr const char* LeftAside = "ZIRVO_SV.TMP";
constexpr int ExitOfKilled = 128 + SIGKILL;
constexpr int MoreCallsThanAny = 1024;

int KillsOfEach() {
    const char* const asked = std::getenv("ZIRVO_KILLS");
    return std::max(asked == nullptr ? 20 : std::atoi(asked), 2);
}

class Kill : public testing::Test {
protected:
    const WorkFolder Folder;
    const WorkFolder Temporary;
    const WorkFolder Logs;
    WorkFiles Whole;  ///< of the results
    WorkFiles Final;  ///< of what is there at last

    Kill() { prctl(PR_SET_CHILD_SUBREAPER, 1); }
    ~Kill() override { prctl(PR_SET_CHILD_SUBREAPER, 0); }

    static bool IsReport(const std::string& name) {
        return name.ends_with(".bre") || name.ends_with(".san") || name.ends_with(".BRE");
    }

    void Prepare(const Work& work) const {
        WaitForOrphans();
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

    /// @param call  before which the program is killed; 0: none
    Surroundings Here(const Work& work, int call = 0) const {
        Surroundings surroundings{.Program = ZIRVO_BIN "/" + work.Program, .Folder = Folder.Path()};
        surroundings.Variables = FailingCallOf(work.ProcessName(), {Folder.Path(), Temporary.Path()}, call,
                                               Trouble::Killed, Logs.Path("killed"));
        surroundings.Variables.emplace_back("TMPDIR", Temporary.Path());
        return surroundings;
    }

    /// Before the call of that number. False if there are not so many.
    bool KillAtCall(const Work& work, int number) const {
        return RunProcess(work.Line, Here(work, number)).Code == ExitOfKilled;
    }

    /// How many calls the work makes.
    int CallsOf(const Work& work) const {
        int fewest = 0;
        int most = MoreCallsThanAny;
        while (most - fewest > 1) {
            const int middle = (fewest + most) / 2;
            Prepare(work);
            (KillAtCall(work, middle) ? fewest : most) = middle;
        }
        return fewest;
    }

    void KillAtMoment(const Work& work, Clock::duration moment) const {
        const RunningProcess process(work.Line, Here(work));
        for (const auto then = Clock::now() + moment; Clock::now() < then;) {
            std::this_thread::yield();
        }
        process.Send(SIGKILL);
    }

    /// A solver whose starter was killed works on to its end.
    static void WaitForOrphans() {
        while (waitpid(-1, nullptr, 0) > 0) {
        }
    }

    void CheckWhatIsLeft(const Work& work) const {
        for (const auto& [name, bytes] : work.Input) {
            EXPECT_EQ(Folder.Get(name), bytes) << name;
        }
        for (const auto& [name, whole] : Whole) {
            EXPECT_TRUE(IsWhole(name, Folder.Get(name))) << name << ":\n" << Folder.Get(name);
        }
        if (Folder.Has(LeftAside)) {
            EXPECT_TRUE(std::any_of(Whole.begin(), Whole.end(), [&](const auto& result) {
                return IsReport(result.first) && Folder.Get(LeftAside) == Unstamped(result.second);
            })) << Folder.Get(LeftAside);
        }
    }

    bool IsWhole(const std::string& name, const std::string& found) const {
        const std::string& whole = Whole.at(name);
        return found == OldBytes || found == whole ||
               (IsReport(name) && (found == "<missing>" || found == Unstamped(whole)));
    }

    static std::string Unstamped(const std::string& report) { return report.substr(report.find('\n') + 1); }

    /// As if the next run came days later: so it removes them.
    void MakeTemporariesOlder() const {
        for (const std::string& name : Folder.Names()) {
            if (name.starts_with(".zirvo-") && name.ends_with(".tmp")) {
                std::filesystem::last_write_time(
                    Folder.Path(name), std::filesystem::file_time_type::clock::now() - std::chrono::hours(48));
            }
        }
    }

    void CheckTheNextRun(const Work& work) const {
        if (Folder.Has(LeftAside)) {
            const Outcome refused = RunProcess(work.Line, Here(work));
            EXPECT_EQ(refused.Code, 1);
            EXPECT_NE(refused.Err.find(std::string(LeftAside) + " is left over from an interrupted run"),
                      std::string::npos)
                << refused.Err;
            std::filesystem::remove(Folder.Path(LeftAside));
        }
        if (work.Input.contains("Initial_File")) {
            Folder.Put("Initial_File", work.Input.at("Initial_File"));
        }
        MakeTemporariesOlder();
        const Outcome outcome = RunProcess(work.Line, Here(work));
        EXPECT_EQ(outcome.Code, 0) << outcome.Err;
        for (const auto& [name, whole] : Whole) {
            EXPECT_TRUE(Folder.Get(name) == whole) << name;
        }
        if (!work.LineBehind.empty()) {
            const Outcome behind = RunProcess(work.LineBehind, Here(work));
            EXPECT_EQ(behind.Code, 0) << behind.Err;
        }
        for (const auto& [name, bytes] : Final) {
            EXPECT_TRUE(Folder.Get(name) == bytes) << name;
        }
        for (const std::string& name : Folder.Names()) {
            const bool memory = std::find(work.Memories.begin(), work.Memories.end(), name) != work.Memories.end();
            EXPECT_TRUE(memory || Whole.contains(name) || Final.contains(name) || work.Input.contains(name)) << name;
        }
    }

    void Check(const Work& work, const std::string& when) const {
        const testing::ScopedTrace trace(__FILE__, __LINE__, when);
        WaitForOrphans();
        CheckWhatIsLeft(work);
        CheckTheNextRun(work);
    }

    /// The work undisturbed: what it leaves. Gives the time that it takes.
    Clock::duration RunWhole(const Work& work) {
        Prepare(work);
        const Clock::time_point start = Clock::now();
        EXPECT_EQ(RunProcess(work.Line, Here(work)).Code, 0);
        const Clock::duration time = Clock::now() - start;
        for (const std::string& name : work.Results) {
            Whole[name] = Folder.Get(name);
            EXPECT_NE(Whole[name], OldBytes) << name;
        }
        if (!work.LineBehind.empty()) {
            EXPECT_EQ(RunProcess(work.LineBehind, Here(work)).Code, 0);
        }
        for (const std::string& name : work.FinalFiles) {
            Final[name] = Folder.Get(name);
        }
        return time;
    }

    void KillOverAndOver(const Work& work) {
        const Clock::duration time = RunWhole(work);
        const int calls = CallsOf(work);
        ASSERT_GT(calls, 1) << "hardly a call was seen";
        const int atCalls = std::min(calls, KillsOfEach() / 2);
        for (int i = 0; i < atCalls; ++i) {
            Prepare(work);
            EXPECT_TRUE(KillAtCall(work, 1 + i * calls / atCalls));
            Check(work, "killed before " + Logs.Get("killed"));
        }
        const int atMoments = KillsOfEach() - atCalls;
        for (int i = 0; i < atMoments; ++i) {
            Prepare(work);
            KillAtMoment(work, time * i / atMoments);
            Check(work, "killed at moment " + std::to_string(i) + " of " + std::to_string(atMoments));
        }
        std::cout << atCalls << " kills before one of " << calls << " calls, " << atMoments << " at moments\n";
    }
};

TEST_F(Kill, AnalyzeLeavesReportsOldOrNewAndTheNextRunSaysWhatToRemove) {
    KillOverAndOver(AnalyzeWork());
}

TEST_F(Kill, SolveLeavesItsRowsOldOrNew) {
    KillOverAndOver(SolveWork());
}

TEST_F(Kill, CheckLeavesTheFileThatItLooksAt) {
    KillOverAndOver(CheckWork());
}

TEST_F(Kill, GearLeavesItsFileOldOrNew) {
    KillOverAndOver(GearWork());
}

TEST_F(Kill, LivesLeavesItsRowsOldOrNew) {
    KillOverAndOver(LivesWork());
}

#ifdef ZIRVO_STUDIES
TEST_F(Kill, StudyLeavesItsTablesOldOrNewAndGoesOn) {
    KillOverAndOver(StudyWork());
}

TEST_F(Kill, APartOfAStudyGoesOn) {
    KillOverAndOver(PartWork());
}

TEST_F(Kill, TheJoiningOfPartsLeavesThemAsTheyAreAndGoesOn) {
    KillOverAndOver(MergeWork());
}

// Each run goes on from what the one before it has left.
TEST_F(Kill, AStudyThatIsKilledAgainAndAgainComesToItsEnd) {
    const Work work = StudyWork();
    RunWhole(work);
    Prepare(work);
    int kills = 0;
    while (kills < MoreCallsThanAny && KillAtCall(work, 1 + kills * 3)) {
        ++kills;
        CheckWhatIsLeft(work);
    }
    EXPECT_GT(kills, 10);
    Check(work, "killed " + std::to_string(kills) + " times");
}
#endif

#ifdef ZIRVO_DRAWS_MAPS
TEST_F(Kill, MapLeavesItsPictureOldOrNew) {
    KillOverAndOver(MapWork());
}
#endif

#ifdef ZIRVO_DRAWS_CHARTS
TEST_F(Kill, TheChartOfAStudyIsTheOldOneOrTheNewOne) {
    KillOverAndOver(ChartWork());
}
#endif

TEST_F(Kill, TheSolverOfAnAnalysisLeavesReportsOldOrNew) {
    KillOverAndOver(AnalysisSolverWork());
}

TEST_F(Kill, TheSolverOfASectionLeavesItsReportOldOrNew) {
    KillOverAndOver(SectionSolverWork());
}

}  // namespace
}  // namespace zirvo::test
