// The real programs killed at any moment: what a crash or the end of the power leaves.
//
// When            Before each call to the system that changes a file or starts a program, since between two of them
// nothing
//                 changes; and at moments spread over the time that the work takes. So often altogether as
//                 ZIRVO_KILLS says, 40 times if it says nothing.
// What is checked The input is untouched. Every result is the old one or the new one, whole; a report may be gone, as
// the
//                 solver deletes the old ones first, or lie whole in ZIRVO_SV.TMP, unstamped. The next run works,
//                 whatever has been left: at once, or once ZIRVO_SV.TMP is removed, which it asks for by name.
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <thread>

#include "batch/work_folder.h"
#include "faults/failing_calls.h"

namespace zirvo::test {
namespace {

using Arguments = std::vector<std::string>;
using Files = std::map<std::string, std::string>;
using Clock = std::chrono::steady_clock;

constexpr const char* OldBytes = "old\r\n";
constexpr const char* Aside = "ZIRVO_SV.TMP";
constexpr int ExitOfKilled = 128 + SIGKILL;

int KillsOfEach() {
    const char* const asked = std::getenv("ZIRVO_KILLS");
    return std::max(asked == nullptr ? 40 : std::atoi(asked), 2);
}

struct KilledWork {
    std::string Program;
    Arguments Line;
    Files Input;
    Arguments Results;
};

class Kill : public testing::Test {
protected:
    const WorkFolder Folder;
    const WorkFolder Temporary;
    const WorkFolder Logs;
    Files Whole;

    Kill() { prctl(PR_SET_CHILD_SUBREAPER, 1); }
    ~Kill() override { prctl(PR_SET_CHILD_SUBREAPER, 0); }

    static bool IsReport(const std::string& name) { return name.ends_with(".bre") || name.ends_with(".san"); }

    void Prepare(const KilledWork& work) const {
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

    Surroundings Here(const KilledWork& work) const {
        return {.Program = ZIRVO_BIN "/" + work.Program,
                .Folder = Folder.Path(),
                .Variables = {{"TMPDIR", Temporary.Path()}}};
    }

    /// Before the call of that number. False if there are not so many.
    bool KillAtCall(const KilledWork& work, int number) const {
        Surroundings surroundings = Here(work);
        for (const auto& variable : FailingCallOf(work.Program.substr(0, 15), {Folder.Path(), Temporary.Path()}, number,
                                                  Trouble::Killed, Logs.Path("killed"))) {
            surroundings.Variables.push_back(variable);
        }
        return RunProcess(work.Line, surroundings).Code == ExitOfKilled;
    }

    void KillAtMoment(const KilledWork& work, Clock::duration moment) const {
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

    void CheckWhatIsLeft(const KilledWork& work) const {
        for (const auto& [name, bytes] : work.Input) {
            EXPECT_EQ(Folder.Get(name), bytes) << name;
        }
        for (const auto& [name, whole] : Whole) {
            EXPECT_TRUE(IsWhole(name, Folder.Get(name))) << name << ":\n" << Folder.Get(name);
        }
        if (Folder.Has(Aside)) {
            EXPECT_TRUE(std::any_of(Whole.begin(), Whole.end(), [&](const auto& result) {
                return IsReport(result.first) && Folder.Get(Aside) == Unstamped(result.second);
            })) << Folder.Get(Aside);
        }
    }

    bool IsWhole(const std::string& name, const std::string& found) const {
        const std::string& whole = Whole.at(name);
        return found == OldBytes || found == whole ||
               (IsReport(name) && (found == "<missing>" || found == Unstamped(whole)));
    }

    static std::string Unstamped(const std::string& report) { return report.substr(report.find('\n') + 1); }

    void CheckTheNextRun(const KilledWork& work) const {
        if (Folder.Has(Aside)) {
            const Outcome refused = RunProcess(work.Line, Here(work));
            EXPECT_EQ(refused.Code, 1);
            EXPECT_NE(refused.Err.find(std::string(Aside) + " is left over from an interrupted run"), std::string::npos)
                << refused.Err;
            std::filesystem::remove(Folder.Path(Aside));
        }
        if (work.Input.contains("Initial_File")) {
            Folder.Put("Initial_File", work.Input.at("Initial_File"));
        }
        const Outcome outcome = RunProcess(work.Line, Here(work));
        EXPECT_EQ(outcome.Code, 0) << outcome.Err;
        for (const auto& [name, whole] : Whole) {
            EXPECT_EQ(Folder.Get(name), whole) << name;
        }
        for (const std::string& name : Folder.Names()) {
            const bool temporary = name.starts_with(".zirvo-") && name.ends_with(".tmp");
            EXPECT_TRUE(temporary || Whole.contains(name) || work.Input.contains(name)) << name;
        }
    }

    void Check(const KilledWork& work, const std::string& when) const {
        const testing::ScopedTrace trace(__FILE__, __LINE__, when);
        WaitForOrphans();
        CheckWhatIsLeft(work);
        CheckTheNextRun(work);
    }

    void KillOverAndOver(const KilledWork& work) {
        Prepare(work);
        const Clock::time_point start = Clock::now();
        ASSERT_EQ(RunProcess(work.Line, Here(work)).Code, 0);
        const Clock::duration whole = Clock::now() - start;
        for (const std::string& name : work.Results) {
            Whole[name] = Folder.Get(name);
        }
        int calls = 0;
        do {
            Prepare(work);
        } while (KillAtCall(work, ++calls));
        ASSERT_GT(calls, 3) << "hardly a call was seen";
        const int atCalls = std::min(calls - 1, KillsOfEach() / 2);
        for (int i = 0; i < atCalls; ++i) {
            const int call = 1 + i * (calls - 1) / atCalls;
            Prepare(work);
            EXPECT_TRUE(KillAtCall(work, call));
            Check(work, "killed before " + Logs.Get("killed"));
        }
        const int atMoments = KillsOfEach() - atCalls;
        for (int i = 0; i < atMoments; ++i) {
            Prepare(work);
            KillAtMoment(work, whole * i / atMoments);
            Check(work, "killed at moment " + std::to_string(i) + " of " + std::to_string(atMoments));
        }
    }
};

TEST_F(Kill, AnalyzeLeavesReportsOldOrNewAndTheNextRunSaysWhatToRemove) {
    KillOverAndOver({.Program = "zirvo-batch",
                     .Line = {"analyze", "road.eva", "--units", "3", "--language", "en"},
                     .Input = {{"road.eva", SampleBytes("road.eva")}},
                     .Results = {"road.bre", "road.san", "road_bre.csv", "road_san.csv"}});
}

TEST_F(Kill, SolveLeavesItsRowsOldOrNew) {
    KillOverAndOver({.Program = "zirvo-batch",
                     .Line = {"solve", "road.eva", "--units", "3", "--csv", "road.csv"},
                     .Input = {{"road.eva", SampleBytes("road.eva")}},
                     .Results = {"road.csv"}});
}

#ifdef ZIRVO_DRAWS_MAPS
TEST_F(Kill, MapLeavesItsPictureOldOrNew) {
    KillOverAndOver({.Program = "zirvo-batch",
                     .Line = {"map", "road.ven", "--section", "xy", "--position", "0", "--units", "3", "--language",
                              "en", "--component", "EPSx", "-o", "map.png"},
                     .Input = {{"road.ven", SampleBytes("road.ven")}},
                     .Results = {"map.png"}});
}
#endif

TEST_F(Kill, TheSolverLeavesReportsOldOrNew) {
    KillOverAndOver(
        {.Program = "ZIRVO_SV12.EXE",
         .Line = {},
         .Input = {{"Initial_File", "LANGUAGE PREFERENCE\r\n 2 \r\n\r\nUNITS\r\n 3 \r\n\r\nINPUT\r\nroad.eva\r\n"},
                   {"road.eva", SampleBytes("road.eva")}},
         .Results = {"road.bre", "road.san"}});
}

}  // namespace
}  // namespace zirvo::test
