// What an interruption undoes, in what order, and what it waits for. The programs are interrupted in tests/batch.
#include "platform/interruption.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <functional>
#include <optional>
#include <stdexcept>

#include "platform/temporary_folder.h"

namespace zirvo {
namespace {

/// The exit status of a child process that listens for interruptions and does this work; -1 where it died of a signal.
int StatusInChild(const std::function<void()>& work) {
    const pid_t child = fork();
    if (child == 0) {
        EndCleanlyWhenInterrupted();
        work();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

[[noreturn]] void WaitForTheEnd() {
    for (;;) {
        pause();
    }
}

class InterruptionUndoes : public testing::Test {
protected:
    const TemporaryFolder Folder;
    void Note(const char* text) const { std::ofstream(Folder.Path("notes"), std::ios::app) << text; }
};

TEST_F(InterruptionUndoes, WhatIsUnderWayTheNewestFirstAndNothingThatIsOver) {
    const int status = StatusInChild([this] {
        const UndoneIfInterrupted first([this] { Note("first "); });
        const UndoneIfInterrupted failing([] { throw std::runtime_error("cannot be undone"); });
        std::optional<UndoneIfInterrupted> over([this] { Note("over "); });
        const UndoneIfInterrupted last([this] { Note("last "); });
        over.reset();
        kill(getpid(), SIGTERM);
        WaitForTheEnd();
    });
    EXPECT_EQ(status, 143);
    EXPECT_EQ(Folder.Get("notes"), "last first ");
}

TEST_F(InterruptionUndoes, BetweenStepsThatBelongTogetherNothing) {
    const int status = StatusInChild([this] {
        bool noted = false;
        const UndoneIfInterrupted undo([&] { Note(noted ? "whole" : "half"); });
        {
            const NotInterrupted together;
            kill(getpid(), SIGINT);
            usleep(20000);  // long enough for a handler that does not wait
            const NotInterrupted nested;
            noted = true;
        }
        WaitForTheEnd();
    });
    EXPECT_EQ(status, 130);
    EXPECT_EQ(Folder.Get("notes"), "whole");
}

TEST_F(InterruptionUndoes, ASignalThatIsIgnoredEndsNothing) {
    const auto ignoring = [](int signal) {
        const pid_t child = fork();
        if (child == 0) {
            std::signal(signal, SIG_IGN);
            EndCleanlyWhenInterrupted();
            kill(getpid(), signal);
            usleep(20000);
            _exit(7);
        }
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    };
    EXPECT_EQ(ignoring(SIGINT), 7);
    EXPECT_EQ(ignoring(SIGHUP), 7);
}

}  // namespace
}  // namespace zirvo
