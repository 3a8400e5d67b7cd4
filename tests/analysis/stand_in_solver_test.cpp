// The run with real processes: the stand-in solver's failures, and a solver that is not there.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "analysis/solver_run.h"
#include "base/fault_of.h"
#include "pavement/support.h"
#include "platform/files.h"

namespace zirvo {
namespace {

using test::GetFile;
using test::PutFile;

using Lines = std::vector<std::string>;

class StandInSolver : public testing::Test {
protected:
    test::WorkFolder Folder;
    std::unique_ptr<ProcessService> Process = MakeProcessService();
    Lines Log;
    SolverRunRequest Request{"Untitled.eva",      "Untitled.bre",       "Untitled.san", 2,
                             UnitSystem::KnToMPa, ZIRVO_STAND_IN_FOLDER};
    SolverRunCallbacks Callbacks{
        {},
        [this] { Log.push_back("handle obtained"); },
        [this] { Log.push_back(std::filesystem::exists("Untitled.bre") ? "wait over" : "wait over, no report"); },
        {},
    };

    StandInSolver() { PutFile("Untitled.eva", test::ExampleFile()); }

    void Behave(const char* how) { PutFile("stand_in.txt", how); }
    SolverRunResult Run() { return RunSolver(Request, *Process, Callbacks); }
    int Fault() {
        return FaultOf([this] { Run(); });
    }
};

TEST_F(StandInSolver, GetsLanguageUnitsAndNamesAndNoArguments) {
    EXPECT_EQ(Run(), SolverRunResult::Finished);
    EXPECT_EQ(GetFile("Untitled.bre"), "   <ZIRVO Ver2.3>\r\nlanguage 2 units 3 arguments 0\r\n");
    EXPECT_EQ(GetFile("Untitled.san"), "   <ZIRVO Ver2.3>\r\nprincipal  values\r\n");
    EXPECT_EQ(GetFile("Untitled_san.csv"), "<ZIRVO,Ver2.3>\r\nprincipal,values\r\n");
    EXPECT_EQ(Folder.Names(),
              (Lines{"Untitled.bre", "Untitled.eva", "Untitled.san", "Untitled_bre.csv", "Untitled_san.csv"}));
}

TEST_F(StandInSolver, IsWaitedForUntilItHasEnded) {
    Behave("slow");
    EXPECT_EQ(Run(), SolverRunResult::Finished);
    EXPECT_EQ(Log, (Lines{"handle obtained", "wait over"}));
}

TEST_F(StandInSolver, ItsExitCodeIsNotLookedAt) {
    Behave("error");
    EXPECT_EQ(Run(), SolverRunResult::Finished);
}

TEST_F(StandInSolver, ThatWritesNothingIsTheFaultOfTheRename) {
    Behave("nothing");
    EXPECT_EQ(Fault(), 53);
    EXPECT_EQ(Folder.Names(), (Lines{"Untitled.eva", "stand_in.txt"}));
}

TEST_F(StandInSolver, ThatWritesOnlyThePrincipalReportIsTheFaultOfTheSecondRename) {
    Behave("sanOnly");
    EXPECT_EQ(Fault(), 53);
    EXPECT_EQ(Folder.Names(), (Lines{"Untitled.eva", "Untitled.san", "Untitled_san.csv", "stand_in.txt"}));
}

TEST_F(StandInSolver, ThatWritesEmptyReportsLeavesTheStampAlone) {
    Behave("empty");
    EXPECT_EQ(Run(), SolverRunResult::Finished);
    EXPECT_EQ(GetFile("Untitled.bre"), "   <ZIRVO Ver2.3>\r\n");
    EXPECT_EQ(GetFile("Untitled_bre.csv"), "<ZIRVO,Ver2.3>\r\n");
}

TEST_F(StandInSolver, ALeftOverTemporaryFileStopsTheRunWithFaultFiftyEight) {
    PutFile("ZIRVO_SV.TMP", "left over");
    EXPECT_EQ(Fault(), 58);
    EXPECT_EQ(GetFile("ZIRVO_SV.TMP"), "left over");
}

// Nothing here tells an old report from a new one; the stamp that then stands twice is the only trace.
TEST_F(StandInSolver, ThatWritesNothingShowsTheReportOfTheRunBeforeAsIfItWereNew) {
    EXPECT_EQ(Run(), SolverRunResult::Finished);
    Behave("nothing");
    EXPECT_EQ(Run(), SolverRunResult::Finished);
    EXPECT_EQ(GetFile("Untitled.bre"), "   <ZIRVO Ver2.3>\r\n   <ZIRVO Ver2.3>\r\nlanguage 2 units 3 arguments 0\r\n");
}

TEST_F(StandInSolver, AMissingExecutableIsFaultFiftyThreeAndTheControlFileStaysBehind) {
    Request.ProgramFolder = Folder.Path();
    EXPECT_EQ(Fault(), 53);
    EXPECT_EQ(Folder.Names(), (Lines{"Initial_File", "Untitled.eva"}));
    EXPECT_EQ(Log, Lines{});
}

TEST_F(StandInSolver, AnExecutableThatMayNotBeExecutedIsAFaultToo) {
    Request.ProgramFolder = Folder.Path();
    PutFile("ZIRVO_SV12.EXE", "#!/bin/sh\n");
    ASSERT_EQ(chmod("ZIRVO_SV12.EXE", 0644), 0);
    const int fault = Fault();
    EXPECT_TRUE(fault == 70 || fault == 75) << fault;
}

}  // namespace
}  // namespace zirvo
