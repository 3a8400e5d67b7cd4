// Starting and waiting for real programs: small shell scripts.
#include "platform/process.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <string>
#include <thread>

#include "base/fault_of.h"
#include "platform/files.h"
#include "platform/in_child.h"
#include "platform/temporary_folder.h"

namespace zirvo {
namespace {

std::string PutScript(const TemporaryFolder& folder, const std::string& name, const std::string& body) {
    std::string path = folder.Put(name, "#!/bin/sh\n" + body);
    chmod(path.c_str(), 0755);
    return path;
}

void RunToItsEnd(ProcessService& service, const std::string& program) {
    const int identifier = service.StartHidden(program);
    const std::intptr_t handle = service.Open(identifier);
    ASSERT_NE(handle, 0);
    service.Wait(handle);
    service.Close(handle);
}

/// True if the process is no child of this one any more, not even a dead one.
bool IsGone(int identifier) {
    siginfo_t information{};
    return waitid(P_PID, static_cast<id_t>(identifier), &information, WEXITED | WNOHANG | WNOWAIT) != 0 &&
           errno == ECHILD;
}

TEST(Process, WaitLastsUntilTheProgramHasEnded) {
    const TemporaryFolder folder;
    const auto service = MakeProcessService();
    RunToItsEnd(*service, PutScript(folder, "slow", "sleep 0.2; echo done > \"$(dirname \"$0\")/out\"\n"));
    EXPECT_EQ(folder.Get("out"), "done\n");
}

TEST(Process, WaitForComesBackWhileTheProgramRunsAndTellsItsEnd) {
    const TemporaryFolder folder;
    const auto service = MakeProcessService();
    const std::string script =
        PutScript(folder, "waits", "while [ ! -e \"$(dirname \"$0\")/go\" ]; do sleep 0.01; done\n");
    const int identifier = service->StartHidden(script);
    const std::intptr_t handle = service->Open(identifier);
    ASSERT_NE(handle, 0);
    EXPECT_FALSE(service->WaitFor(handle, 0));
    EXPECT_FALSE(service->WaitFor(handle, 30));
    folder.Put("go", "");
    while (!service->WaitFor(handle, 10000)) {
    }
    EXPECT_TRUE(IsGone(identifier));
    EXPECT_TRUE(service->WaitFor(handle, 10000)) << "a second wait comes back at once";
    service->Close(handle);
}

TEST(Process, RunsInTheCurrentFolderWithoutArgumentsAndOnTheNullDevice) {
    const TemporaryFolder folder;
    const std::string script = PutScript(folder, "look",
                                         "pwd -P > folder\n"
                                         "echo $# > count\n"
                                         "streams=$(for i in 0 1 2; do readlink /proc/$$/fd/$i; done)\n"
                                         "echo \"$streams\" > streams\n");
    const int fault = FaultInChild([] {},
                                   [&] {
                                       ChangeFolder(folder.Path());
                                       const auto service = MakeProcessService();
                                       RunToItsEnd(*service, script);
                                   });
    EXPECT_EQ(fault, 0);
    EXPECT_EQ(folder.Get("folder"), std::filesystem::canonical(folder.Path()).string() + "\n");
    EXPECT_EQ(folder.Get("count"), "0\n");
    EXPECT_EQ(folder.Get("streams"), "/dev/null\n/dev/null\n/dev/null\n");
}

TEST(Process, NameWithoutAFolderIsTakenFromTheCurrentFolderOnly) {
    const TemporaryFolder folder;
    PutScript(folder, "here", "echo yes > out\n");
    const int fault = FaultInChild([] {},
                                   [&] {
                                       ChangeFolder(folder.Path());
                                       const auto service = MakeProcessService();
                                       RunToItsEnd(*service, "here");
                                       EXPECT_EQ(FaultOf([&] { service->StartHidden("sh"); }),
                                                 53);  // stands in the search path, not here
                                   });
    EXPECT_EQ(fault, 0);
    EXPECT_EQ(folder.Get("out"), "yes\n");
}

TEST(Process, MissingProgramIsFileNotFound) {
    const TemporaryFolder folder;
    folder.Put("file", "");
    const auto service = MakeProcessService();
    EXPECT_EQ(FaultOf([&] { service->StartHidden(folder.Path("none")); }), 53);
    EXPECT_EQ(FaultOf([&] { service->StartHidden(folder.Path("none/none")); }), 53);
    EXPECT_EQ(FaultOf([&] { service->StartHidden(folder.Path("file/none")); }), 53);
    EXPECT_EQ(FaultOf([&] { service->StartHidden(""); }), 53);
}

TEST(Process, WhatMayNotBeExecutedIsPermissionDenied) {
    const TemporaryFolder folder;
    const auto service = MakeProcessService();
    EXPECT_EQ(FaultOf([&] { service->StartHidden(folder.Put("text", "no program")); }), 70);
    EXPECT_EQ(FaultOf([&] { service->StartHidden(folder.Path()); }), 70);
    const std::string script = PutScript(folder, "script", "true\n");
    chmod(script.c_str(), 0700);
    if (geteuid() == 0) {
        EXPECT_EQ(FaultAsOrdinaryUser([&] { MakeProcessService()->StartHidden(script); }), 70);
    }
}

TEST(Process, FileThatIsNoProgramIsAnAccessError) {
    const TemporaryFolder folder;
    const auto service = MakeProcessService();
    const std::string empty = folder.Put("empty", "");
    const std::string text = folder.Put("text", "no program\n");
    chmod(empty.c_str(), 0755);
    chmod(text.c_str(), 0755);
    EXPECT_EQ(FaultOf([&] { service->StartHidden(empty); }), 75);
    EXPECT_EQ(FaultOf([&] { service->StartHidden(text); }), 75);
}

TEST(Process, FailedStartLeavesNoChild) {
    const auto service = MakeProcessService();
    EXPECT_EQ(FaultOf([&] { service->StartHidden("/none"); }), 53);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST(Process, ProgramThatHasEndedCanStillBeOpenedAndWaitedFor) {
    const TemporaryFolder folder;
    const auto service = MakeProcessService();
    const int identifier = service->StartHidden(PutScript(folder, "quick", "exit 3\n"));
    siginfo_t information{};
    ASSERT_EQ(waitid(P_PID, static_cast<id_t>(identifier), &information, WEXITED | WNOWAIT), 0);
    const std::intptr_t handle = service->Open(identifier);
    EXPECT_NE(handle, 0);
    service->Wait(handle);
    service->Close(handle);
    EXPECT_TRUE(IsGone(identifier));
}

TEST(Process, WaitingLeavesNoZombieAndASecondWaitComesBackAtOnce) {
    const TemporaryFolder folder;
    const auto service = MakeProcessService();
    const int identifier = service->StartHidden(PutScript(folder, "quick", "exit 0\n"));
    const std::intptr_t handle = service->Open(identifier);
    service->Wait(handle);
    EXPECT_TRUE(IsGone(identifier));
    service->Wait(handle);
    service->Close(handle);
    service->Close(handle);
    EXPECT_EQ(service->Open(identifier), 0);
}

TEST(Process, ProgramThatDiesOfASignalEndsTheWaitToo) {
    const TemporaryFolder folder;
    const auto service = MakeProcessService();
    RunToItsEnd(*service, PutScript(folder, "dies", "kill -9 $$\n"));
}

TEST(Process, ProgramThatIsStoppedForAWhileIsWaitedFor) {
    const TemporaryFolder folder;
    const auto service = MakeProcessService();
    const int identifier =
        service->StartHidden(PutScript(folder, "stops", "sleep 0.3; echo done > \"$(dirname \"$0\")/out\"\n"));
    kill(identifier, SIGSTOP);
    std::thread later([identifier] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        kill(identifier, SIGCONT);
    });
    const std::intptr_t handle = service->Open(identifier);
    service->Wait(handle);
    service->Close(handle);
    later.join();
    EXPECT_EQ(folder.Get("out"), "done\n");
}

TEST(Process, WhatWasNotStartedHereCannotBeOpened) {
    const auto service = MakeProcessService();
    EXPECT_EQ(service->Open(1), 0);
    EXPECT_EQ(service->Open(0), 0);
    EXPECT_EQ(service->Open(-1), 0);
}

TEST(Process, ClosingWithoutAWaitLeavesNoZombieBehindTheNextCall) {
    const TemporaryFolder folder;
    const auto service = MakeProcessService();
    const int identifier = service->StartHidden(PutScript(folder, "quick", "exit 0\n"));
    service->Close(service->Open(identifier));
    siginfo_t information{};
    while (!IsGone(identifier)) {  // ends with the first start that finds the program ended
        waitid(P_PID, static_cast<id_t>(identifier), &information, WEXITED | WNOWAIT);
        RunToItsEnd(*service, folder.Path("quick"));
    }
}

TEST(Process, EndOfTheServiceTakesLeaveOfProgramsThatHaveEnded) {
    const TemporaryFolder folder;
    int identifier = 0;
    {
        const auto service = MakeProcessService();
        identifier = service->StartHidden(PutScript(folder, "quick", "exit 0\n"));
        siginfo_t information{};
        ASSERT_EQ(waitid(P_PID, static_cast<id_t>(identifier), &information, WEXITED | WNOWAIT), 0);
    }
    EXPECT_TRUE(IsGone(identifier));
}

TEST(Process, TwoProgramsAreWaitedForInAnyOrder) {
    const TemporaryFolder folder;
    const auto service = MakeProcessService();
    const int first = service->StartHidden(PutScript(folder, "first", "echo 1 > \"$(dirname \"$0\")/a\"\n"));
    const int second = service->StartHidden(PutScript(folder, "second", "echo 2 > \"$(dirname \"$0\")/b\"\n"));
    for (const int identifier : {second, first}) {
        const std::intptr_t handle = service->Open(identifier);
        ASSERT_NE(handle, 0);
        service->Wait(handle);
        service->Close(handle);
    }
    EXPECT_EQ(folder.Get("a"), "1\n");
    EXPECT_EQ(folder.Get("b"), "2\n");
}

TEST(Process, WaitSurvivesSignalsThatArriveMeanwhile) {
    const TemporaryFolder folder;
    struct sigaction quiet {};
    quiet.sa_handler = [](int) {};  // without SA_RESTART: the wait is interrupted each time
    struct sigaction before {};
    sigaction(SIGALRM, &quiet, &before);
    const itimerval often{{0, 5000}, {0, 5000}};
    setitimer(ITIMER_REAL, &often, nullptr);
    const auto service = MakeProcessService();
    RunToItsEnd(*service, PutScript(folder, "slow", "sleep 0.2; echo done > \"$(dirname \"$0\")/out\"\n"));
    const itimerval never{};
    setitimer(ITIMER_REAL, &never, nullptr);
    sigaction(SIGALRM, &before, nullptr);
    EXPECT_EQ(folder.Get("out"), "done\n");
}

TEST(Process, SignalsThatThisProcessIgnoresAreNotIgnoredInTheProgram) {
    const TemporaryFolder folder;
    const std::string script = PutScript(folder, "pipe", "kill -PIPE $$; echo survived > \"$(dirname \"$0\")/out\"\n");
    const int fault = FaultInChild([] { std::signal(SIGPIPE, SIG_IGN); },
                                   [&] {
                                       const auto service = MakeProcessService();
                                       RunToItsEnd(*service, script);
                                   });
    EXPECT_EQ(fault, 0);
    EXPECT_FALSE(folder.Has("out"));
}

TEST(Process, IsWaitedForAlsoWhereEndedChildrenAreIgnored) {
    const TemporaryFolder folder;
    const std::string script = PutScript(folder, "slow", "sleep 0.1; echo done > \"$(dirname \"$0\")/out\"\n");
    const int fault = FaultInChild([] { std::signal(SIGCHLD, SIG_IGN); },
                                   [&] {
                                       const auto service = MakeProcessService();
                                       RunToItsEnd(*service, script);
                                       if (folder.Get("out") != "done\n") {
                                           throw RuntimeFault(fault::InvalidCall);
                                       }
                                   });
    EXPECT_EQ(fault, 0);
}

TEST(Process, HasItsNullDevicesAlsoWhereThisProcessHasNoStandardStreams) {
    const TemporaryFolder folder;
    const std::string script = PutScript(folder, "look",
                                         "streams=$(for i in 0 1 2; do readlink /proc/$$/fd/$i; done)\n"
                                         "echo \"$streams\" > \"$(dirname \"$0\")/streams\"\n");
    const auto closeAll = [] {
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
            close(stream);
        }
    };
    const int fault = FaultInChild(closeAll, [&] {
        const auto service = MakeProcessService();
        RunToItsEnd(*service, script);
    });
    EXPECT_EQ(fault, 0);
    EXPECT_EQ(folder.Get("streams"), "/dev/null\n/dev/null\n/dev/null\n");
}

}  // namespace
}  // namespace zirvo
