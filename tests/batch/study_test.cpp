// `zirvo-batch study` as a user runs it: killed at any moment, without room, in parts, with what is wrong told.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <random>
#include <thread>

#include "batch/study_run.h"
#include "batch/work_folder.h"
#include "solver_io/restrictions.h"

namespace zirvo::test {
namespace {

using Arguments = std::vector<std::string>;

/// A study of some thousand rows, so a tenth of a second of work.
std::string LongStudy() {
    return "base = \"road.eva\"\nunits = 3\nrows = 4000\nseed = 5\n"
           "[[vary]]\nwhat = \"layer 1 thickness\"\ndistribution = \"uniform\"\nfrom = 5\nto = 30\n"
           "[[vary]]\nwhat = \"layer 3 modulus\"\ndistribution = \"lognormal\"\nmean = 60\ndeviation = 20\n"
           "[[keep]]\nvalue = \"EPSx\"\npoint = 2\n[[keep]]\nlife = \"ai-rutting\"\npoint = 5\n";
}

class StudyWork : public WorkFolder {
public:
    StudyWork() {
        PutSample("road.eva");
        Put("long.toml", LongStudy());
    }
};

TEST(Study, TheSampleRunsToTheValuesThatTheRoadHas) {
    const StudyWork folder;
    folder.PutSample("road_study.toml");
    const Outcome outcome = folder.Batch({"study", "road_study.toml"});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Out, "");
    EXPECT_EQ(outcome.Err, "road_study.toml: 33 rows: road_study_results.csv\n");
    const std::vector<std::string> lines = LinesOf(folder.Get("road_study_results.csv"));
    ASSERT_EQ(lines.size(), 34U);
    EXPECT_EQ(lines[0], "row,layer 1 thickness,layer 1 modulus,EPSx 2,EPSz 5,fatigue,rutting");
    EXPECT_EQ(lines[9].substr(0, 10), "9,14,10000");
    const std::string grid = folder.Get("road_study_results.csv");
    EXPECT_TRUE(folder.Has("road_study_results.sqlite"));
    EXPECT_FALSE(folder.Has("road_study_results_bad.csv"));
}

/// Waits until a run has come to a moment of its work, or to its end.
/// @param moment  0: at once; 1: when so many bytes of the table have been written; 2: when so many of the memory have
/// @param bytes   below what there will be
void AwaitMoment(const WorkFolder& folder, const std::string& name, unsigned moment, std::uintmax_t bytes) {
    const auto size = [&](const char* end) {
        std::error_code none;
        const std::uintmax_t length = std::filesystem::file_size(folder.Path(name + end), none);
        return none ? 0 : length;
    };
    while (moment != 0 && !folder.Has(name + ".csv")) {
        if (size(moment == 1 ? ".csv.new" : ".sqlite-wal") > bytes) {
            return;
        }
        std::this_thread::yield();
    }
}

/// The real program, killed at random moments, gives the bytes of a run that was let be. It is killed so often as
/// ZIRVO_KILLS says, 36 times if it says nothing, and let be behind every sixth.
TEST(Study, KilledAtAnyMomentItGoesOnToTheBytesOfAnUnbrokenRun) {
    const StudyWork folder;
    folder.Put("longer.toml", With(LongStudy(), "rows = 4000", "rows = 40000"));
    ASSERT_EQ(folder.Batch({"study", "longer.toml", "-o", "whole"}).Code, 0);
    const std::string csv = folder.Get("whole.csv");
    const std::string sqlite = folder.Get("whole.sqlite");
    const unsigned seed = std::random_device()();
    std::cout << "seed " << seed << "\n";
    std::mt19937 random(seed);
    const char* const asked = std::getenv("ZIRVO_KILLS");
    constexpr int triesOfARound = 6;
    const int rounds = (std::max(asked == nullptr ? 36 : std::atoi(asked), 1) + triesOfARound - 1) / triesOfARound;
    int kills = 0;
    int goingOn = 0;
    for (int round = 0; round < rounds; ++round) {
        const std::string name = "r" + std::to_string(round);
        for (int tries = 0; tries < triesOfARound; ++tries) {
            StartedRun run(folder.Path(), {"study", "longer.toml", "-o", name, "--threads", "2"});
            AwaitMoment(folder, name, static_cast<unsigned>(random() % 3), random() % 300000);
            kills += run.Kill() ? 1 : 0;
        }
        const Outcome last = folder.Batch({"study", "longer.toml", "-o", name});
        ASSERT_EQ(last.Code, 0) << last.Err;
        goingOn += last.Err.find("done by earlier runs") != std::string::npos ? 1 : 0;
        EXPECT_TRUE(folder.Get(name + ".csv") == csv) << round;
        EXPECT_TRUE(folder.Get(name + ".sqlite") == sqlite) << round;
        for (const char* rest : {".sqlite-wal", ".sqlite-journal", ".sqlite.new", ".csv.new"}) {
            EXPECT_FALSE(folder.Has(name + rest)) << rest;
        }
    }
    EXPECT_GT(kills, rounds * triesOfARound * 15 / 36);  // most runs were caught at work, not behind their end
    EXPECT_GT(goingOn, rounds / 6);                      // some had committed
}

TEST(Study, WhatIsDoneBeforeAKillIsNotDoneAgain) {
    const StudyWork folder;
    folder.Put("longer.toml", With(LongStudy(), "rows = 4000", "rows = 40000"));
    {
        StartedRun run(folder.Path(), {"study", "longer.toml", "-o", "l", "--threads", "1"});
        while (folder.Get("l.sqlite-wal").size() < 50000 && !folder.Has("l.csv")) {  // rows have been committed
            std::this_thread::yield();
        }
        EXPECT_TRUE(run.Kill());
    }
    const Outcome rest = folder.Batch({"study", "longer.toml", "-o", "l"});
    EXPECT_EQ(rest.Code, 0);
    EXPECT_NE(rest.Err.find(" of them done by earlier runs: l.csv"), std::string::npos) << rest.Err;
    EXPECT_EQ(LinesOf(folder.Get("l.csv")).size(), 40001U);
}

TEST(Study, ResultsOfAnotherStudyAreToldAndLeft) {
    const StudyWork folder;
    ASSERT_EQ(folder.Batch({"study", "long.toml", "-o", "l"}).Code, 0);
    const std::string before = folder.Get("l.sqlite");
    folder.Put("long.toml", With(LongStudy(), "rows = 4000", "rows = 5000"));
    const Outcome other = folder.Batch({"study", "long.toml", "-o", "l"});
    EXPECT_EQ(other.Code, 1);
    EXPECT_NE(other.Err.find("l.sqlite: holds the results of another study"), std::string::npos) << other.Err;
    EXPECT_EQ(LinesOf(folder.Get("l.csv")).size(), 4001U);
}

TEST(Study, PartsOfSeveralProcessesJoinToTheSameBytes) {
    const StudyWork folder;
    ASSERT_EQ(folder.Batch({"study", "long.toml", "-o", "whole"}).Code, 0);
    for (const char* part : {"2/3", "3/3", "1/3"}) {
        const Outcome outcome = folder.Batch({"study", "long.toml", "-o", "p", "--part", part});
        EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    }
    const Outcome merged = folder.Batch({"study", "long.toml", "-o", "p", "--merge"});
    EXPECT_EQ(merged.Err, "long.toml: 4000 rows: p.csv\n");
    EXPECT_TRUE(folder.Get("p.csv") == folder.Get("whole.csv"));
    EXPECT_TRUE(folder.Get("p.sqlite") == folder.Get("whole.sqlite"));
}

/// No file may grow beyond a size: what a full disk looks like to a writer. Behind it the study goes on.
TEST(Study, AFullDiskIsToldAndLosesNothing) {
    const StudyWork folder;
    ASSERT_EQ(folder.Batch({"study", "long.toml", "-o", "whole"}).Code, 0);
    for (const rlim_t room : {4096U, 60000U, 180000U}) {  // for nothing, for some rows, for the memory but not its end
        const std::string name = "f" + std::to_string(room);
        {
            const solver::test::LargestFile limit(room);
            const Outcome full = folder.Batch({"study", "long.toml", "-o", name, "--threads", "1"});
            EXPECT_EQ(full.Code, 1) << room;
            EXPECT_EQ(full.Err.substr(0, name.size()), name) << full.Err;
            EXPECT_NE(full.Err.find("make room and start the study again"), std::string::npos) << full.Err;
        }
        const Outcome again = folder.Batch({"study", "long.toml", "-o", name});
        EXPECT_EQ(again.Code, 0) << again.Err;
        EXPECT_TRUE(folder.Get(name + ".csv") == folder.Get("whole.csv"));
        EXPECT_TRUE(folder.Get(name + ".sqlite") == folder.Get("whole.sqlite"));
    }
}

TEST(Study, BadRowsAreToldAndKeptApart) {
    const StudyWork folder;
    folder.Put("t.csv", "layer 1 thickness\n10\n-1\n20\n");
    folder.Put("t.toml", "base = \"road.eva\"\nunits = 3\ntable = \"t.csv\"\n[[keep]]\nvalue = \"W\"\npoint = 1\n");
    const Outcome outcome = folder.Batch({"study", "t.toml", "-o", "t_out"});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Err,
              "t.toml: 3 rows: t_out.csv\nt.toml: 1 row cannot be solved, with the reasons in t_out_bad.csv\n");
    EXPECT_EQ(folder.Get("t_out_bad.csv"),
              "row,layer 1 thickness,reason\n2,-1,\"layer 1, Thickness -1: is not above 0\"\n");
}

TEST(Study, AnInputOfTheStudyIsNeverReplaced) {
    const StudyWork folder;
    const std::string table = "layer 1 thickness\n10\n20\n";
    for (const std::string name :
         {"t.csv", "t.csv.new", "t_bad.csv", "t_bad.csv.new", "t.sqlite", "t.sqlite.new", "t.sqlite.lock",
          "t.sqlite-wal", "t.sqlite-journal", "t.part-1-of-2.sqlite", "t.part-1-of-2.sqlite.new",
          "t.part-1-of-2.sqlite.lock", "t.part-1-of-2.sqlite-wal", "t.part-1-of-2.sqlite-journal"}) {
        folder.Put(name, table);
        folder.Put("t.toml", std::string("base = \"road.eva\"\nunits = 3\ntable = \"") + name +
                                 "\"\n[[keep]]\nvalue = \"W\"\npoint = 1\n");
        for (const char* output : {"t", "./t"}) {
            Arguments line{"study", "t.toml", "-o", output};
            if (name.find("part") != std::string::npos) {
                line.insert(line.end(), {"--part", "1/2"});
            }
            const Outcome outcome = folder.Batch(line);
            EXPECT_EQ(outcome.Code, 2);
            EXPECT_EQ(outcome.Err, "--output: " + name + " is an input of the study, and would be lost\n");
            EXPECT_EQ(folder.Get(name), table);
        }
        std::filesystem::remove(folder.Path(name));
    }
    folder.Put("base.svg", folder.Get("road.eva"));
    folder.Put("s.toml", With(LongStudy(), "road.eva", "base.svg"));
    const Outcome outcome =
        folder.Batch({"study", "s.toml", "--plot", "base.svg", "--x", "layer 1 thickness", "--y", "EPSx 2"});
    EXPECT_EQ(outcome.Code, 2);
    EXPECT_EQ(outcome.Err, "--plot: base.svg is an input of the study, and would be lost\n");
    EXPECT_EQ(folder.Get("base.svg"), folder.Get("road.eva"));
    EXPECT_EQ(folder.Names(), (Arguments{"base.svg", "long.toml", "road.eva", "s.toml", "t.toml"}));
}

TEST(Study, ProgressIsShownOnATerminalWithTheTimeLeft) {
    const StudyWork folder;
    folder.Put("long.toml", With(LongStudy(), "rows = 4000", "rows = 20000"));
    const Outcome outcome = folder.Batch({"study", "long.toml", "--threads", "1"}, {.ErrorsOnTerminal = true});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_NE(outcome.Err.find(" of 20000 rows, "), std::string::npos) << outcome.Err;
    EXPECT_NE(outcome.Err.find(" s left"), std::string::npos) << outcome.Err;
}

TEST(Study, WrongUsageAndWrongStudiesAreTold) {
    const StudyWork folder;
    folder.Put("bad.toml", "base = \"road.eva\"\nunits = 3\n[[vary]]\nwhat = \"layer 7 modulus\"\nvalues = [1]\n");
    const std::vector<std::tuple<Arguments, int, std::string>> rows{
        {{"study"}, 2, "STUDY is required"},
        {{"study", "none.toml"}, 1, "none.toml: cannot be read: File not found"},
        {{"study", "bad.toml"}, 1, "bad.toml:4: \"layer 7 modulus\": names no layer: there are 3"},
        {{"study", "long.toml", "--part", "0/4"}, 2, "0/4 is no part"},
        {{"study", "long.toml", "--part", "5/4"}, 2, "5/4 is no part"},
        {{"study", "long.toml", "--part", "1/4", "--merge"}, 2, "a part is run, or all are joined"},
        {{"study", "long.toml", "--threads", "0"}, 2, "0 is no number"},
        {{"study", "long.toml", "--merge"}, 1, "long_results.part-1-of-N.sqlite: there is no such file"},
        {{"study", "long.toml", "--x", "row"}, 2, "--plot is required"},
        {{"study", "long.toml", "--plot", "a.pdf"}, 2, "a.pdf is no picture file"},
        {{"study", "long.toml", "--plot", "a.svg"}, 2, "either --x and --y, or --histogram"},
        {{"study", "long.toml", "--plot", "a.svg", "--x", "depth", "--y", "EPSx 2"},
         2,
         "depth is no column of this study; there are layer 1 thickness, layer 3 modulus, EPSx 2, ai-rutting 5"},
        {{"study", "long.toml", "-o", "no/where"}, 1, "no/where.sqlite: cannot be opened"},
    };
    for (const auto& [line, code, told] : rows) {
        const Outcome outcome = folder.Batch(line);
        EXPECT_EQ(outcome.Code, code) << testing::PrintToString(line);
        EXPECT_NE(outcome.Err.find(told), std::string::npos) << testing::PrintToString(line) << outcome.Err;
    }
    EXPECT_EQ(folder.Names(), (Arguments{"bad.toml", "long.toml", "road.eva"}));
}

}  // namespace
}  // namespace zirvo::test
