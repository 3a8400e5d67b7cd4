// Two programs in one folder: the second waits for the first, and never reads the other's report.
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <memory>
#include <thread>

#include "batch/work_folder.h"
#include "platform/file_lock.h"

namespace zirvo::test {
namespace {

using Arguments = std::vector<std::string>;

constexpr const char* LockName = ".zirvo-lock";
constexpr const char* Waiting = "another zirvo computes in this folder; waiting for its end\n";

Arguments ToAnalyze(const std::string& file) {
    return {"analyze", file, "--units", "3", "--language", "en"};
}

class TwoPrograms : public testing::Test {
protected:
    const WorkFolder Folder;

    Surroundings Here() const { return {.Folder = Folder.Path()}; }
    void WaitUntilItWaits(const RunningProcess& process) const {
        while (!process.HasEnded() && process.ErrorsSoFar().empty()) {
            std::this_thread::yield();
        }
    }
};

TEST_F(TwoPrograms, TheSecondWaitsUntilTheFolderIsFree) {
    Folder.PutSample("road.eva");
    bool held = false;
    std::unique_ptr<FileLock> first = FileLock::OfAnyFile(Folder.Path(LockName), held);
    ASSERT_NE(first, nullptr);
    RunningProcess second(ToAnalyze("road.eva"), Here());
    WaitUntilItWaits(second);
    EXPECT_EQ(Folder.Names(), (Arguments{LockName, "road.eva"})) << "nothing is written meanwhile";
    EXPECT_FALSE(second.HasEnded());
    first->RemoveFile();
    const Outcome outcome = second.Wait();
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Err, std::string("road.eva: ") + Waiting);
    EXPECT_FALSE(Folder.Has(LockName));
}

TEST_F(TwoPrograms, OneThatWaitsCanBeInterrupted) {
    Folder.PutSample("road.eva");
    bool held = false;
    const std::unique_ptr<FileLock> first = FileLock::OfAnyFile(Folder.Path(LockName), held);
    RunningProcess second(ToAnalyze("road.eva"), Here());
    WaitUntilItWaits(second);
    second.Send(SIGINT);
    EXPECT_EQ(second.Wait().Code, 130);
    EXPECT_EQ(Folder.Names(), (Arguments{LockName, "road.eva"})) << "the lock is the other's";
}

TEST_F(TwoPrograms, ManyAtOnceGiveTheReportsOfEachAlone) {
    constexpr int Rounds = 5;
    const Arguments names{"road", "motorway", "runway", "braking"};
    std::vector<std::string> alone;
    for (const std::string& name : names) {
        Folder.PutSample(name + ".eva");
        ASSERT_EQ(RunProcess(ToAnalyze(name + ".eva"), Here()).Code, 0);
        alone.push_back(Folder.Get(name + ".bre") + Folder.Get(name + ".san") + Folder.Get(name + "_bre.csv"));
    }
    for (int round = 0; round < Rounds; ++round) {
        std::vector<std::unique_ptr<RunningProcess>> processes;
        for (const std::string& name : names) {
            processes.push_back(std::make_unique<RunningProcess>(ToAnalyze(name + ".eva"), Here()));
        }
        for (std::size_t i = 0; i < names.size(); ++i) {
            const Outcome outcome = processes[i]->Wait();
            EXPECT_EQ(outcome.Code, 0) << outcome.Err;
        }
        for (std::size_t i = 0; i < names.size(); ++i) {
            EXPECT_EQ(Folder.Get(names[i] + ".bre") + Folder.Get(names[i] + ".san") + Folder.Get(names[i] + "_bre.csv"),
                      alone[i]);
        }
    }
    for (const std::string& name : Folder.Names()) {
        EXPECT_TRUE(name.ends_with(".eva") || name.ends_with(".bre") || name.ends_with(".san") ||
                    name.ends_with(".csv"))
            << name;
    }
}

TEST_F(TwoPrograms, ALockThatAKilledProgramHasLeftIsNoHindrance) {
    Folder.PutSample("road.eva");
    Folder.Put(LockName, "");
    const Outcome outcome = RunProcess(ToAnalyze("road.eva"), Here());
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Err, "");
    EXPECT_FALSE(Folder.Has(LockName));
}

}  // namespace
}  // namespace zirvo::test
