// A program that is killed while its solver works on.
#include <gtest/gtest.h>

#include <filesystem>
#include <thread>

#include "batch/waiting_solver.h"
#include "batch/work_folder.h"

namespace zirvo::test {
namespace {

const std::vector<std::string> Line{"analyze", "road.eva", "--units", "3", "--language", "en"};

class KilledProgram : public testing::Test {
protected:
    const WorkFolder Folder;
    const WorkFolder Programs;

    KilledProgram() {
        Folder.PutSample("road.eva");
        const std::string batch = PutBatch(Programs.Path());
        PutWaitingSolver(Programs.Path(), "ZIRVO_SV12.EXE");
        RunningProcess first(Line, {.Program = batch, .Folder = Folder.Path()});
        while (!first.HasEnded() && !Programs.Has("works")) {
            std::this_thread::yield();
        }
        first.Kill();
        EXPECT_EQ(first.Wait().Code, 128 + 9);
    }
};

#ifdef _WIN32
// It has no window in which its user could end it. A file that a process holds open cannot be removed.
TEST_F(KilledProgram, TakesItsSolverWithIt) {
    std::error_code held;
    do {
        std::this_thread::yield();
        std::filesystem::remove(Utf8Path(Programs.Path("works")), held);
    } while (held);
    const Outcome next = RunProcess(Line, {.Folder = Folder.Path()});
    EXPECT_EQ(next.Code, 0) << next.Err;
    EXPECT_FALSE(Folder.Has(".zirvo-lock"));
}
#else
// It may still write what the second one would take for its own.
TEST_F(KilledProgram, LeavesItsFolderBusyUntilItsSolverHasEnded) {
    RunningProcess second(Line, {.Folder = Folder.Path()});
    while (!second.HasEnded() && second.ErrorsSoFar().empty()) {
        std::this_thread::yield();
    }
    EXPECT_FALSE(second.HasEnded());
    EXPECT_FALSE(Folder.Has("road.bre"));
    Programs.Put("go", "");
    const Outcome outcome = second.Wait();
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    EXPECT_EQ(outcome.Err, "road.eva: another zirvo computes in this folder; waiting for its end\n");
    EXPECT_FALSE(Folder.Has(".zirvo-lock"));
}
#endif

}  // namespace
}  // namespace zirvo::test
