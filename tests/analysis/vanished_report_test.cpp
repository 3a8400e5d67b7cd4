// A report that somebody takes away between its stamp and its comma copy.
#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "analysis/solver_run.h"
#include "pavement/support.h"

namespace zirvo {
namespace {

using test::GetFile;
using test::PutFile;

/// Stops a child at each of its system calls and takes its report away as soon as the temporary file of the stamp is
/// gone, which is the moment that the test for the report comes after. True if the child could be watched.
bool TakeAwayAfterTheStamp(pid_t child, const std::string& report, int& status) {
    bool stamping = false;
    while (waitpid(child, &status, 0) == child && WIFSTOPPED(status)) {
        if (std::filesystem::exists("ZIRVO_SV.TMP")) {
            stamping = true;
        } else if (stamping) {
            std::filesystem::remove(report);
        }
        if (ptrace(PTRACE_SYSCALL, child, nullptr, nullptr) != 0) {
            return false;
        }
    }
    return stamping;
}

TEST(VanishedReport, OneThatIsGoneAfterItsStampIsAnUncompletedAnalysis) {
    const test::WorkFolder folder;
    PutFile("Untitled.eva", test::ExampleFile());
    PutFile("Untitled.san", "1");
    PutFile("Untitled.bre", "2");
    class Idle : public ProcessService {
    public:
        int StartHidden(const std::string&) override { return 0; }
        std::intptr_t Open(int) override { return 0; }
        void Wait(std::intptr_t) override {}
        void Close(std::intptr_t) override {}
    } idle;
    const pid_t child = fork();
    if (child == 0) {
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) {
            _exit(99);
        }
        raise(SIGSTOP);
        int result = 98;
        try {
            result = static_cast<int>(RunSolver(
                {"Untitled.eva", "Untitled.bre", "Untitled.san", 2, UnitSystem::KnToMPa, "programs"}, idle, {}));
        } catch (...) {
        }
        _exit(result);
    }
    int status = 0;
    const bool watched = TakeAwayAfterTheStamp(child, "Untitled.san", status);
    if (WIFEXITED(status) && WEXITSTATUS(status) == 99) {
        GTEST_SKIP() << "no process may be watched on this machine";
    }
    ASSERT_TRUE(watched);
    ASSERT_TRUE(WIFEXITED(status)) << status;
    EXPECT_EQ(WEXITSTATUS(status), static_cast<int>(SolverRunResult::Uncompleted));
    EXPECT_EQ(GetFile("Untitled.bre"), "2");  // not reached
    EXPECT_FALSE(std::filesystem::exists("Untitled_san.csv"));
}

}  // namespace
}  // namespace zirvo
