// The programs interrupted: Ctrl-C and a request to end leave nothing half done, and are told by the exit status.
//
// When it comes   At moments spread over the time that the same work took undisturbed, from the start of the process to
//                 beyond its end; and at once when a file appears that lies there for a moment only.
// What is checked The exit status is 130 or 143, or 0 where the work was done before. No temporary file or folder, no
//                 control file, no report moved aside. What is there is whole. The input is untouched. No solver works
//                 on: as a reaper of orphans this process would have it for a child.
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <map>
#include <thread>

#include "batch/work_folder.h"

namespace zirvo::test {
namespace {

using Arguments = std::vector<std::string>;
using Clock = std::chrono::steady_clock;

constexpr int Moments = 16;
constexpr int MostTries = 500;

class Interruption : public testing::Test {
protected:
    const WorkFolder Folder;
    const WorkFolder Temporary;  ///< of the system, as the programs see it

    Interruption() { prctl(PR_SET_CHILD_SUBREAPER, 1); }
    ~Interruption() override { prctl(PR_SET_CHILD_SUBREAPER, 0); }

    Surroundings Here(const std::string& program = ZIRVO_BIN "/zirvo-batch") const {
        // The sanitizers look for leaks in a process of its own, which an interruption would leave behind.
        return {.Program = program,
                .Folder = Folder.Path(),
                .Variables = {{"TMPDIR", Temporary.Path()}, {"ASAN_OPTIONS", "detect_leaks=0"}}};
    }

    /// The names in the folder, of which only these may be there: those of the input, and whole results.
    void ExpectOnly(const Arguments& allowed, const std::string& when) const {
        for (const std::string& name : Folder.Names()) {
            EXPECT_NE(std::find(allowed.begin(), allowed.end(), name), allowed.end()) << name << " " << when;
        }
        EXPECT_EQ(Temporary.Names(), Arguments{}) << when;
        EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a process works on " << when;
        EXPECT_EQ(errno, ECHILD);
    }

    /// The work is interrupted at moments spread over the time that it takes; `check` looks at what is there behind
    /// each. The first run may have been slow, on a machine that does much else: one that ends before its signal says
    /// how fast the others are.
    /// @param lastWords  of what it says when all is done; a signal may come between them and its end
    template <class Check>
    void AtEachMoment(const Surroundings& surroundings, const Arguments& line, Check check,
                      const std::string& lastWords = {}) {
        const Clock::time_point start = Clock::now();
        ASSERT_EQ(RunProcess(line, surroundings).Code, 0);
        auto whole = Clock::now() - start;
        int interrupted = 0;
        for (int moment = 0; moment < Moments; ++moment) {
            const int signal = moment % 2 == 0 ? SIGINT : SIGTERM;
            const std::string when = "behind signal " + std::to_string(signal) + " at moment " + std::to_string(moment);
            RunningProcess process(line, surroundings);
            const Clock::time_point begin = Clock::now();
            for (const auto then = begin + whole * (moment + 2) / Moments;
                 Clock::now() < then && !process.HasEnded();) {
                std::this_thread::yield();
            }
            if (process.HasEnded()) {
                whole = std::min(whole, Clock::now() - begin);
            }
            process.Send(signal);
            const Outcome outcome = process.Wait();
            EXPECT_TRUE(outcome.Code == 128 + signal || outcome.Code == 0) << outcome.Code << ' ' << when;
            EXPECT_TRUE(outcome.Err.empty() || (!lastWords.empty() && outcome.Err.ends_with(lastWords)))
                << outcome.Err << when;
            interrupted += outcome.Code == 0 ? 0 : 1;
            check(when);
        }
        EXPECT_GT(interrupted, 0);
    }

    /// Interrupts the work at once when something of that name lies in the folder. Tries again where it was gone by
    /// the time that the signal came.
    void WhenThereIs(const std::string& name, const WorkFolder& folder, const Arguments& line, int signal) const {
        for (int attempt = 0; attempt < MostTries; ++attempt) {
            RunningProcess process(line, Here());
            while (!process.HasEnded() && !HasOneLike(folder, name)) {
                std::this_thread::yield();
            }
            process.Send(signal);
            if (process.Wait().Code == 128 + signal) {
                return;
            }
        }
        ADD_FAILURE() << name << " was never there";
    }

    static bool HasOneLike(const WorkFolder& folder, const std::string& front) {
        std::error_code gone;
        for (std::filesystem::directory_iterator entry(folder.Path(), gone), end; !gone && entry != end;
             entry.increment(gone)) {
            if (entry->path().filename().string().starts_with(front)) {
                return true;
            }
        }
        return false;
    }
};

/// A report is whole: not there, or stamped, or as the solver leaves it.
bool IsWhole(const std::string& bytes, const std::string& stamped) {
    return bytes == "<missing>" || bytes == stamped || bytes == stamped.substr(stamped.find('\n') + 1);
}

const Arguments AnalyzeLine{"analyze", "runway.eva", "--units", "3", "--language", "en"};
const Arguments AnalyzeFiles{"runway.eva", "runway.san", "runway_san.csv", "runway.bre", "runway_bre.csv"};
const Arguments MapLine{"map", "motorway.ven", "--section", "xy",          "--position", "5",  "--units",
                        "3",   "--language",   "en",        "--component", "EPSx",       "-o", "map.png"};

TEST_F(Interruption, AnalyzeLeavesItsFilesWholeAndNoWorkFile) {
    const std::string input = SampleBytes("runway.eva");
    Folder.Put("runway.eva", input);
    ASSERT_EQ(RunProcess(AnalyzeLine, Here()).Code, 0);
    std::map<std::string, std::string> whole;
    for (const std::string& name : AnalyzeFiles) {
        whole[name] = Folder.Get(name);
    }
    AtEachMoment(Here(), AnalyzeLine, [&](const std::string& when) {
        ExpectOnly(AnalyzeFiles, when);
        EXPECT_EQ(Folder.Get("runway.eva"), input);
        for (const std::string& name : AnalyzeFiles) {
            EXPECT_TRUE(IsWhole(Folder.Get(name), whole[name])) << name << ' ' << when;
        }
    });
}

TEST_F(Interruption, AnalyzeTakesItsControlFileAwayAndPutsAReportThatIsMovedAsideBack) {
    Folder.PutSample("runway.eva");
    for (const char* name : {"Initial_File", "ZIRVO_SV.TMP", ".zirvo-"}) {
        WhenThereIs(name, Folder, AnalyzeLine, SIGINT);
        ExpectOnly(AnalyzeFiles, std::string("behind ") + name);
        WhenThereIs(name, Folder, AnalyzeLine, SIGTERM);
        ExpectOnly(AnalyzeFiles, std::string("behind ") + name);
    }
}

TEST_F(Interruption, SolveWritesItsRowsWholeOrNotAtAll) {
    Folder.PutSample("runway.eva");
    std::string whole;
    AtEachMoment(Here(), {"solve", "runway.eva", "--units", "3", "--csv", "rows.csv"}, [&](const std::string& when) {
        whole = whole.empty() ? Folder.Get("rows.csv") : whole;
        ExpectOnly({"runway.eva", "rows.csv"}, when);
        EXPECT_EQ(Folder.Get("rows.csv"), whole) << when;
    });
}

TEST_F(Interruption, CheckEndsWithoutATrace) {
    Folder.PutSample("runway.eva");
    AtEachMoment(Here(), {"check", "runway.eva"}, [&](const std::string& when) { ExpectOnly({"runway.eva"}, when); });
}

#ifdef ZIRVO_STUDIES
// What it has done stays, for the next run to go on.
TEST_F(Interruption, StudyLeavesItsMemoryAloneAndGoesOn) {
    Folder.PutSample("road.eva");
    Folder.Put("s.toml",
               "base = \"road.eva\"\nunits = 3\n"
               "[[vary]]\nwhat = \"layer 1 thickness\"\nfrom = 5\nto = 30\ncount = 2000\n"
               "[[keep]]\nvalue = \"EPSx\"\npoint = 2\n");
    const Arguments line{"study", "s.toml", "-o", "r"};
    Arguments allowed{"road.eva", "s.toml", "r.csv", "r.sqlite", "r.sqlite-wal", "r.sqlite-journal"};
    Arguments finished{"road.eva", "s.toml", "r.csv", "r.sqlite"};
    std::map<std::string, std::string> whole;
    AtEachMoment(
        Here(), line,
        [&](const std::string& when) {
            if (whole.empty()) {
                ASSERT_EQ(RunProcess(line, Here()).Code, 0);
                whole = {{"r.csv", Folder.Get("r.csv")}, {"r.sqlite", Folder.Get("r.sqlite")}};
            }
            ExpectOnly(allowed, when);
            const Outcome next = RunProcess(line, Here());
            EXPECT_EQ(next.Code, 0) << next.Err << when;
            ExpectOnly(finished, when);
            for (const auto& [name, bytes] : whole) {
                EXPECT_TRUE(Folder.Get(name) == bytes) << name << when;
                std::filesystem::remove(Folder.Path(name));
            }
        },
        ": r.csv\n");
    for (const char* name : {"r.sqlite.new", "r.csv.new", "r.sqlite.lock"}) {
        WhenThereIs(name, Folder, line, SIGTERM);
        ExpectOnly(allowed, std::string("behind ") + name);
    }
}
#endif

#ifdef ZIRVO_DRAWS_MAPS
TEST_F(Interruption, MapTakesItsFolderOfWorkFilesAwayWithTheSolverInIt) {
    Folder.PutSample("motorway.ven");
    std::string picture;
    AtEachMoment(Here(), MapLine, [&](const std::string& when) {
        picture = picture.empty() ? Folder.Get("map.png") : picture;
        ExpectOnly({"motorway.ven", "map.png"}, when);
        EXPECT_EQ(Folder.Get("map.png"), picture) << when;
    });
    WhenThereIs("zirvo-", Temporary, MapLine, SIGINT);
    ExpectOnly({"motorway.ven", "map.png"}, "behind the folder");
}
#endif

TEST_F(Interruption, ASolverProgramAloneLeavesWholeReportsOnly) {
    Folder.PutSample("runway.eva");
    Folder.Put("Initial_File", "LANGUAGE PREFERENCE\r\n 2 \r\n\r\nUNITS\r\n 3 \r\n\r\nINPUT\r\nrunway.eva\r\n");
    AtEachMoment(Here(ZIRVO_BIN "/ZIRVO_SV12.EXE"), {}, [&](const std::string& when) {
        ExpectOnly({"runway.eva", "Initial_File", "runway.bre", "runway.san"}, when);
    });
}

// A solver of somebody else's that keeps the formats may do with signals what it likes.
TEST_F(Interruption, ASolverThatDoesNotWantToEndIsMadeToEnd) {
    Folder.PutSample("runway.eva");
    const WorkFolder programs;
    std::filesystem::copy_file(ZIRVO_BIN "/zirvo-batch", programs.Path("zirvo-batch"));
    ASSERT_EQ(mkfifo(programs.Path("never").c_str(), 0600), 0);
    programs.Put("ZIRVO_SV12.EXE", "#!/bin/sh\ntrap '' INT TERM\necho half > .zirvo-$$-1.tmp\n: > works\nread line < " +
                                       programs.Path("never") + "\n");
    chmod(programs.Path("ZIRVO_SV12.EXE").c_str(), 0755);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        RunningProcess process(AnalyzeLine, Here(programs.Path("zirvo-batch")));
        while (!process.HasEnded() && !Folder.Has("works")) {
            std::this_thread::yield();
        }
        process.Send(signal);
        EXPECT_EQ(process.Wait().Code, 128 + signal);
        std::filesystem::remove(Folder.Path("works"));
        ExpectOnly({"runway.eva"}, "behind signal " + std::to_string(signal));
    }
}

TEST_F(Interruption, WhatTheStarterIgnoresIsIgnored) {
    Folder.PutSample("runway.eva");
    const WorkFolder programs;
    programs.Put("start", "#!/bin/sh\ntrap '' HUP INT\nexec " ZIRVO_BIN "/zirvo-batch \"$@\"\n");
    chmod(programs.Path("start").c_str(), 0755);
    for (const int signal : {SIGHUP, SIGINT}) {
        RunningProcess process(AnalyzeLine, Here(programs.Path("start")));
        while (!process.HasEnded() && !Folder.Has("runway.san")) {
            std::this_thread::yield();
        }
        process.Send(signal);
        EXPECT_EQ(process.Wait().Code, 0);
        std::filesystem::remove(Folder.Path("runway.san"));
    }
}

TEST_F(Interruption, ALineOfProgressIsTakenFromTheTerminal) {
    Folder.PutSample("runway.eva");
    Surroundings surroundings = Here();
    surroundings.ErrorsOnTerminal = true;
    Outcome outcome;
    for (int attempt = 0; attempt < MostTries && outcome.Code != 130; ++attempt) {
        RunningProcess process(AnalyzeLine, surroundings);
        while (!process.HasEnded() && !Folder.Has("Initial_File")) {
            std::this_thread::yield();
        }
        process.Send(SIGINT);
        outcome = process.Wait();
    }
    EXPECT_EQ(outcome.Code, 130);
    EXPECT_TRUE(outcome.Err.ends_with("\r\x1b[K")) << outcome.Err;
}

}  // namespace
}  // namespace zirvo::test
