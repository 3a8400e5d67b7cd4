// The run of the graphics solver with a scripted process: control file, order of the steps, what passes in silence.
#include "graphics/section_run.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "base/fault_of.h"
#include "pavement/scripted_process.h"
#include "pavement/support.h"
#include "platform/files.h"
#include "platform/in_child.h"

namespace zirvo {
namespace {

using test::GetFile;
using test::PutFile;
using Lines = std::vector<std::string>;

class RunGraphicsSolverTest : public testing::Test {
protected:
    test::WorkFolder Folder;
    Lines Log;
    test::ScriptedProcess Process{Log};
    GraphicsRunRequest Request{2, UnitSystem::KnToMPa, "programs"};
    const std::string Start = "start " + JoinPath("programs", "ZIRVO_SV22.exe");

    RunGraphicsSolverTest() {
        PutFile("ZIRVO_SV.EVA", "input");
        Process.Work = [] { PutFile("ZIRVO_SV.BRE", "report"); };
    }

    GraphicsRunResult Run() {
        return RunGraphicsSolver(
            Request, Process, {[this] { Log.push_back("handle obtained"); }, [this] { Log.push_back("wait over"); }});
    }
    int Fault() {
        return FaultOf([this] { Run(); });
    }
};

TEST_F(RunGraphicsSolverTest, StartsOpensWaitsAndCloses) {
    EXPECT_EQ(Run(), GraphicsRunResult::Finished);
    EXPECT_EQ(Log, (Lines{Start, "open 41", "handle obtained", "wait 7", "close 7", "wait over"}));
    EXPECT_EQ(Folder.Names(), (Lines{"ZIRVO_SV.BRE", "ZIRVO_SV.EVA"})) << "the control file is gone";
    EXPECT_EQ(GetFile("ZIRVO_SV.BRE"), "report") << "not stamped yet: that is the conversion's";
}

TEST_F(RunGraphicsSolverTest, TheControlFileIsThereWhileTheSolverRuns) {
    std::string control;
    Process.Work = [&control] { control = GetFile("Initial_File"); };
    PutFile("Initial_File", std::string(1000, 'x'));
    Run();
    // Line 7 is in mixed case, unlike on the analysis path, and line 8 has no folder.
    EXPECT_EQ(control,
              "LANGUAGE PREFERENCE\r\n 2 \r\n\r\nINPUT/OUTPUT UNITS OF MEASUREMENT\r\n 3 \r\n\r\nInput "
              "FileName\r\nZIRVO_SV.EVA\r\n");
    Request = {1, UnitSystem::KgfToKgf, "programs"};
    Run();
    EXPECT_EQ(control,
              "LANGUAGE PREFERENCE\r\n 1 \r\n\r\nINPUT/OUTPUT UNITS OF MEASUREMENT\r\n 1 \r\n\r\nInput "
              "FileName\r\nZIRVO_SV.EVA\r\n");
}

TEST_F(RunGraphicsSolverTest, AMissingInputWritesNothingAndStartsNothing) {
    std::filesystem::remove("ZIRVO_SV.EVA");
    EXPECT_EQ(Run(), GraphicsRunResult::InputMissing);
    EXPECT_EQ(Log, Lines{});
    EXPECT_EQ(Folder.Names(), Lines{});
}

// On the analysis path this is a fault that ends the program.
TEST_F(RunGraphicsSolverTest, ASolverThatCannotBeStartedPassesInSilence) {
    Process.WorkInWait = false;
    Process.Work = [] { throw RuntimeFault(fault::FileNotFound); };
    EXPECT_EQ(Run(), GraphicsRunResult::NotStarted);
    EXPECT_EQ(Log, Lines{Start});
    EXPECT_EQ(Folder.Names(), Lines{"ZIRVO_SV.EVA"});
}

TEST_F(RunGraphicsSolverTest, TheSystemsOwnProcessesPassAMissingSolverInSilenceToo) {
    Request.ProgramFolder = Folder.Path();
    EXPECT_EQ(RunGraphicsSolver(Request, *MakeProcessService(), {}), GraphicsRunResult::NotStarted);
    EXPECT_EQ(Folder.Names(), Lines{"ZIRVO_SV.EVA"});
}

TEST_F(RunGraphicsSolverTest, IdentifierZeroAndAMissingHandleAreNoWaitAndNoMessage) {
    Process.Identifier = 0;
    EXPECT_EQ(Run(), GraphicsRunResult::Finished);
    EXPECT_EQ(Log, Lines{Start});
    Log.clear();
    Process.Identifier = 41;
    Process.Handle = 0;
    EXPECT_EQ(Run(), GraphicsRunResult::Finished);
    EXPECT_EQ(Log, (Lines{Start, "open 41", "wait over"}));
}

TEST_F(RunGraphicsSolverTest, AControlFileThatCannotBeWrittenIsAFaultBeforeAnythingStarts) {
    EXPECT_EQ(FaultWithFilesLimitedTo(10, [this] { Run(); }), 61);
    std::filesystem::create_directory("Initial_File");
    EXPECT_EQ(Fault(), 75);
    EXPECT_EQ(Log, Lines{});
}

TEST_F(RunGraphicsSolverTest, ASolverThatTakesAwayTheControlFileFaultsInItsDeletion) {
    Process.Work = [] { std::filesystem::remove("Initial_File"); };
    EXPECT_EQ(Fault(), 53);
}

}  // namespace
}  // namespace zirvo
