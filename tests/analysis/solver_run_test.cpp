// The run of the analysis solver with a scripted process: order of the steps, files, failures.
#include "analysis/solver_run.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>

#include "base/fault_of.h"
#include "base/runtime_fault.h"
#include "pavement/scripted_process.h"
#include "pavement/support.h"
#include "platform/files.h"
#include "platform/in_child.h"

namespace zirvo {
namespace {

using test::GetFile;
using test::PutFile;
using test::ScriptedProcess;

class RunSolverTest : public testing::Test {
protected:
    test::WorkFolder Folder;
    std::vector<std::string> Log;
    ScriptedProcess Process{Log};
    SolverRunRequest Request{"run.eva", "run.bre", "run.san", 2, UnitSystem::KnToMPa, "programs"};
    SolverRunCallbacks Callbacks{
        [this] { Log.push_back("paint computing"); },
        [this] { Log.push_back("handle obtained"); },
        [this] { Log.push_back("wait over"); },
        [this] {
            // What stands in the folder when the note goes: the reports are as the solver left them.
            Log.push_back(std::filesystem::exists("Initial_File") ? "hide computing" : "hide computing too late");
        },
    };

    RunSolverTest() {
        PutFile("run.eva", test::ExampleFile());
        Process.Work = [] {
            PutFile("run.san", "1  2\r\n");
            PutFile("run.bre", "3  4\r\n");
        };
    }

    SolverRunResult Run() { return RunSolver(Request, Process, Callbacks); }
    int Fault() {
        return FaultOf([this] { Run(); });
    }
};

using Lines = std::vector<std::string>;

const char* const Stamped = "   <ZIRVO Ver2.3>\r\n";

TEST_F(RunSolverTest, TakesTheStepsInOrder) {
    EXPECT_EQ(Run(), SolverRunResult::Finished);
    EXPECT_EQ(Log, (Lines{"paint computing", "start " + JoinPath("programs", "ZIRVO_SV12.EXE"), "open 41",
                          "handle obtained", "wait 7", "close 7", "wait over", "hide computing"}));
}

TEST_F(RunSolverTest, LeavesStampedReportsWithTheirCommaCopiesAndNothingElse) {
    EXPECT_EQ(Run(), SolverRunResult::Finished);
    EXPECT_EQ(Folder.Names(), (Lines{"run.bre", "run.eva", "run.san", "run_bre.csv", "run_san.csv"}));
    EXPECT_EQ(GetFile("run.san"), std::string(Stamped) + "1  2\r\n");
    EXPECT_EQ(GetFile("run.bre"), std::string(Stamped) + "3  4\r\n");
    EXPECT_EQ(GetFile("run_san.csv"), "<ZIRVO,Ver2.3>\r\n1,2\r\n");
    EXPECT_EQ(GetFile("run_bre.csv"), "<ZIRVO,Ver2.3>\r\n3,4\r\n");
    EXPECT_EQ(GetFile("run.eva"), test::ExampleFile());
}

TEST_F(RunSolverTest, TheControlFileIsThereWhileTheSolverRuns) {
    std::string control;
    Process.Work = [&control] {
        control = GetFile("Initial_File");
        PutFile("run.san", "");
        PutFile("run.bre", "");
    };
    PutFile("Initial_File",
            "an old one that is much longer than the new one will be, so that a rest of it would show\r\n"
            "............................................................................................");
    EXPECT_EQ(Run(), SolverRunResult::Finished);
    EXPECT_EQ(control,
              "LANGUAGE PREFERENCE\r\n 2 \r\n\r\nINPUT/OUTPUT UNITS OF MEASUREMENT\r\n 3 \r\n\r\nINPUT "
              "FILENAME\r\nrun.eva\r\n");
}

TEST_F(RunSolverTest, AMissingInputWritesNothingAndStartsNothing) {
    std::filesystem::remove("run.eva");
    EXPECT_EQ(Run(), SolverRunResult::InputMissing);
    EXPECT_EQ(Log, (Lines{"paint computing"}));  // the note is the caller's to hide, behind its message
    EXPECT_EQ(Folder.Names(), Lines{});
}

TEST_F(RunSolverTest, AnInputOfZeroBytesGoesToTheSolver) {
    PutFile("run.eva", "");
    EXPECT_EQ(Run(), SolverRunResult::Finished);
}

TEST_F(RunSolverTest, WithIdentifierZeroTheReportsAreTakenUpAtOnce) {
    Process.Identifier = 0;
    Process.WorkInWait = false;
    EXPECT_EQ(Run(), SolverRunResult::Finished);
    EXPECT_EQ(Log, (Lines{"paint computing", "start " + JoinPath("programs", "ZIRVO_SV12.EXE"), "hide computing"}));
    EXPECT_EQ(GetFile("run.san"), std::string(Stamped) + "1  2\r\n");
}

TEST_F(RunSolverTest, WithoutAHandleNothingIsDisabledButTheWaitIsOver) {
    Process.Handle = 0;
    Process.WorkInWait = false;
    EXPECT_EQ(Run(), SolverRunResult::Finished);
    EXPECT_EQ(Log, (Lines{"paint computing", "start " + JoinPath("programs", "ZIRVO_SV12.EXE"), "open 41", "wait over",
                          "hide computing"}));
}

TEST_F(RunSolverTest, ASolverThatCannotBeStartedIsAFaultThatLeavesTheControlFile) {
    Process.WorkInWait = false;
    Process.Work = [] { throw RuntimeFault(fault::FileNotFound); };
    EXPECT_EQ(Fault(), 53);
    EXPECT_EQ(Folder.Names(), (Lines{"Initial_File", "run.eva"}));
}

TEST_F(RunSolverTest, AMissingPrincipalReportIsTheFaultOfItsRename) {
    Process.Work = [] { PutFile("run.bre", "3  4\r\n"); };
    EXPECT_EQ(Fault(), 53);
    EXPECT_EQ(Folder.Names(), (Lines{"run.bre", "run.eva"}));
    EXPECT_EQ(GetFile("run.bre"), "3  4\r\n");  // the principal values come first: this one is not stamped yet
}

TEST_F(RunSolverTest, AMissingResultReportIsTheFaultOfItsRenameAfterThePrincipalReportIsDone) {
    Process.Work = [] { PutFile("run.san", "1  2\r\n"); };
    EXPECT_EQ(Fault(), 53);
    EXPECT_EQ(Folder.Names(), (Lines{"run.eva", "run.san", "run_san.csv"}));
    EXPECT_EQ(GetFile("run.san"), std::string(Stamped) + "1  2\r\n");
}

TEST_F(RunSolverTest, ALeftOverTemporaryFileIsFaultFiftyEightAndNothingIsReplaced) {
    PutFile("ZIRVO_SV.TMP", "from an interrupted run");
    EXPECT_EQ(Fault(), 58);
    EXPECT_EQ(GetFile("ZIRVO_SV.TMP"), "from an interrupted run");
    EXPECT_EQ(GetFile("run.san"), "1  2\r\n");
    EXPECT_EQ(GetFile("run.bre"), "3  4\r\n");
    EXPECT_FALSE(std::filesystem::exists("Initial_File"));
}

TEST_F(RunSolverTest, ASolverThatTakesAwayTheControlFileFaultsInItsDeletion) {
    Process.Work = [] { std::filesystem::remove("Initial_File"); };
    EXPECT_EQ(Fault(), 53);
}

TEST_F(RunSolverTest, ReportsOfZeroBytesEndAsTheStampAlone) {
    Process.Work = [] {
        PutFile("run.san", "");
        PutFile("run.bre", "");
    };
    EXPECT_EQ(Run(), SolverRunResult::Finished);
    EXPECT_EQ(GetFile("run.san"), Stamped);
    EXPECT_EQ(GetFile("run.bre"), Stamped);
    EXPECT_EQ(GetFile("run_bre.csv"), "<ZIRVO,Ver2.3>\r\n");
}

TEST_F(RunSolverTest, ASecondRunStampsTheNewReportsOnce) {
    EXPECT_EQ(Run(), SolverRunResult::Finished);
    EXPECT_EQ(Run(), SolverRunResult::Finished);
    EXPECT_EQ(GetFile("run.bre"), std::string(Stamped) + "3  4\r\n");
}

TEST_F(RunSolverTest, ExistingCommaCopiesAreReplacedWithoutAQuestion) {
    PutFile("run_san.csv", "the user's own notes, much longer than what comes\r\n");
    EXPECT_EQ(Run(), SolverRunResult::Finished);
    EXPECT_EQ(GetFile("run_san.csv"), "<ZIRVO,Ver2.3>\r\n1,2\r\n");
}

// No test is made here whether a report is new. The stamp stands twice, and the old numbers are shown.
TEST_F(RunSolverTest, AnOldReportPassesForANewOneWhenTheSolverWritesNothing) {
    EXPECT_EQ(Run(), SolverRunResult::Finished);
    Process.Work = nullptr;
    EXPECT_EQ(Run(), SolverRunResult::Finished);
    EXPECT_EQ(GetFile("run.bre"), std::string(Stamped) + Stamped + "3  4\r\n");
    EXPECT_EQ(GetFile("run_bre.csv"), "<ZIRVO,Ver2.3>\r\n<ZIRVO,Ver2.3>\r\n3,4\r\n");
}

TEST_F(RunSolverTest, BytesThatTheCodePageLacksStayInTheReports) {
    Process.Work = [] {
        PutFile("run.san", "\xFF\xFE\x80  1");
        PutFile("run.bre", "\x83\x5C  \x81\x40  1\r\n");
    };
    EXPECT_EQ(Run(), SolverRunResult::Finished);
    EXPECT_EQ(GetFile("run.san"), std::string(Stamped) + "\xFF\xFE\x80  1\r\n");
    EXPECT_EQ(GetFile("run.bre"), std::string(Stamped) + "\x83\x5C  \x81\x40  1\r\n");
}

TEST_F(RunSolverTest, NamesOfAnyScriptRun) {
    Request.InputFileName = "舗装.eva";
    Request.ResultFileName = "Straße.bre";
    Request.PrincipalFileName = "舗装.san";
    PutFile("舗装.eva", "x");
    Process.Work = [] {
        PutFile("舗装.san", "1  2");
        PutFile("Straße.bre", "3  4");
    };
    EXPECT_EQ(Run(), SolverRunResult::Finished);
    EXPECT_EQ(GetFile("Straße_bre.csv"), "<ZIRVO,Ver2.3>\r\n3,4\r\n");
    EXPECT_EQ(GetFile("舗装_san.csv"), "<ZIRVO,Ver2.3>\r\n1,2\r\n");
}

TEST_F(RunSolverTest, CallbacksMayBeMissing) {
    EXPECT_EQ(RunSolver(Request, Process, {}), SolverRunResult::Finished);
}

TEST_F(RunSolverTest, AFolderThatMayNotBeWrittenToIsAFaultBeforeAnythingStarts) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can become another user";
    }
    std::filesystem::permissions(Folder.Path(), std::filesystem::perms(0755));
    Process.WorkInWait = false;
    Process.Work = [] { throw std::logic_error("started all the same"); };
    const int fault = FaultAsOrdinaryUser([this] { Run(); });
    EXPECT_TRUE(fault == 70 || fault == 75) << fault;
    EXPECT_EQ(Folder.Names(), Lines{"run.eva"});
}

TEST_F(RunSolverTest, AControlFileThatMayNotBeWrittenIsFaultSeventyFiveAndStaysWhole) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can become another user";
    }
    PutFile("Initial_File", "someone else's");
    std::filesystem::permissions("Initial_File", std::filesystem::perms(0444));
    EXPECT_EQ(FaultAsOrdinaryUser([this] { Run(); }), 75);
    EXPECT_EQ(GetFile("Initial_File"), "someone else's");
}

TEST_F(RunSolverTest, AFullDiskAtTheControlFileIsFaultSixtyOneAndLeavesNoHalfFile) {
    EXPECT_EQ(FaultWithFilesLimitedTo(10, [this] { Run(); }), 61);
    EXPECT_EQ(Folder.Names(), Lines{"run.eva"});
}

TEST_F(RunSolverTest, AFullDiskAtTheStampLosesNoReport) {
    const std::string report(400, '.');
    Process.Work = [&report] {
        PutFile("run.san", report);
        PutFile("run.bre", report);
    };
    // Room for the report as the solver leaves it, but not for the stamp's 20 bytes on top.
    EXPECT_EQ(FaultWithFilesLimitedTo(410, [this] { Run(); }), 61);
    EXPECT_EQ(Folder.Names(), (Lines{"run.bre", "run.eva", "run.san"}));
    EXPECT_EQ(GetFile("run.san"), report);
    EXPECT_EQ(GetFile("run.bre"), report);
}

TEST_F(RunSolverTest, ACommaCopyThatCannotBeWrittenIsAFaultAndTheOldOneStaysWhole) {
    std::filesystem::create_directory("run_san.csv");
    EXPECT_EQ(Fault(), 75);
    EXPECT_EQ(GetFile("run.san"), std::string(Stamped) + "1  2\r\n");
    EXPECT_EQ(GetFile("run.bre"), "3  4\r\n");
}

TEST(CommaCopyName, MakesEveryPointAnUnderscore) {
    EXPECT_EQ(CommaCopyName("a.san"), "a_san.csv");
    EXPECT_EQ(CommaCopyName("Untitled.bre"), "Untitled_bre.csv");
    EXPECT_EQ(CommaCopyName(".bre"), "_bre.csv");
    EXPECT_EQ(CommaCopyName("舗装.bre"), "舗装_bre.csv");
}

}  // namespace
}  // namespace zirvo
