// `zirvo-batch analyze` where it fails: each is told, ends with 1, and costs the user no file.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "batch/waiting_solver.h"
#include "batch/work_folder.h"
#include "platform/code_page.h"

namespace zirvo::test {
namespace {

using Lines = std::vector<std::string>;

class AnalyzeFailure : public testing::Test {
protected:
    WorkFolder Folder;
    const std::string Road = SampleBytes("road.eva");

    AnalyzeFailure() { Folder.Put("road.eva", Road); }

    Outcome Run(Surroundings surroundings = {}, const std::string& file = "road.eva") {
        return Folder.Batch({"analyze", file, "--units", "3", "--language", "en"}, std::move(surroundings));
    }

    /// Nothing but the message: no report, no work file, the input as it was.
    void ExpectUntouched(const std::string& bytes, const std::string& message) {
        Folder.Put("road.eva", bytes);
        const Lines before = Folder.Names();
        const Outcome outcome = Run();
        EXPECT_EQ(outcome.Code, 1);
        EXPECT_EQ(outcome.Out, "");
        EXPECT_EQ(outcome.Err, message + "\n");
        EXPECT_EQ(Folder.Names(), before);
        EXPECT_EQ(Folder.Get("road.eva"), bytes);
    }
};

TEST_F(AnalyzeFailure, AMissingFileOrFolderIsNamed) {
    EXPECT_EQ(Run({}, "none.eva").Err, "none.eva: the file does not exist\n");
    EXPECT_EQ(Run({}, "none/road.eva").Err,
              "none/road.eva: the folder cannot be entered: Run-time error '76': Path not found\n");
    std::filesystem::create_directory(Folder.Path("folder.eva"));
    EXPECT_EQ(Run({}, "folder.eva").Err, "folder.eva: the file cannot be read\n");
    EXPECT_EQ(Folder.Names(), (Lines{"folder.eva", "road.eva"}));
}

TEST_F(AnalyzeFailure, BadInputGivesReportsThatSayItAndALineOnStandardError) {
    Folder.Put("road.eva", With(Road, "0.35", "0.75"));
    const Outcome outcome = Folder.Batch({"analyze", "road.eva", "--units", "3", "--language", "ja"});
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Err, "road.eva: layer 1 (line 10): Poisson ratio 0.75: must be at most 0.5\n");
    // What ANALYZE leaves in that case: stamped reports that hold the reason in the language of the reports.
    EXPECT_EQ(LinesOf(outcome.Out), (Lines{"road.san", "road_san.csv", "road.bre", "road_bre.csv"}));
    EXPECT_NE(DecodeText(Folder.Get("road.bre")).find("ポアソン比 0.75"), std::string::npos);
    EXPECT_EQ(Folder.Get("road.bre").rfind("   <ZIRVO Ver2.3>\r\n", 0), 0U);
}

TEST_F(AnalyzeFailure, AnOldReportNeverPassesForANewOne) {
    ASSERT_EQ(Run().Code, 0);
    Folder.Put("road.eva", Road.substr(0, Road.find("300")));
    EXPECT_EQ(Run().Code, 1);
    EXPECT_EQ(Folder.Get("road.bre").find("   ==="), std::string::npos);
}

// The solver would look for another file and leave no report, so that the old ones would be stamped as new.
TEST_F(AnalyzeFailure, ANameThatCannotBeToldToTheSolverTouchesNothing) {
    ASSERT_EQ(Run().Code, 0);
    const std::string old = Folder.Get("road.bre");
    const std::string name = "road\xFF.eva";  // no UTF-8
    Folder.Put(name, Road);
    const Outcome outcome = Run({}, name);
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Out, "");
    EXPECT_EQ(outcome.Err,
              name + ": Run-time error '52': Bad file name or number (this name cannot be told to the solver)\n");
    EXPECT_EQ(Folder.Get("road.bre"), old);
}

TEST_F(AnalyzeFailure, ReportNamesThatBreakTheRulesTouchNothing) {
    Folder.Put("notes.txt", "mine");
    Folder.Put("mine.bre", "mine");
    std::filesystem::create_directory(Folder.Path("sub"));
    ExpectUntouched(With(Road, "road.bre", "notes.txt"),
                    "road.eva: report name notes.txt: has another extension, not .bre");
    ExpectUntouched(With(Road, "road.san", "mine.bre"),
                    "road.eva: report name mine.bre: has another extension, not .san");
    const auto refused = [this](const std::string& from, const std::string& to) {
        Folder.Put("road.eva", With(Road, from, to));
        const Outcome outcome = Run();
        EXPECT_EQ(outcome.Code, 1) << to;
        EXPECT_EQ(outcome.Err.rfind("road.eva: ", 0), 0U) << outcome.Err;
    };
    refused("road.bre", "");
    refused("road.bre", "sub/road.bre");
    refused("road.bre", "../road.bre");
    refused("road.bre", "road.eva");
    refused("road.bre", "Initial_File");
    refused("road.bre", "sub");
    refused("road.san", "road.bre");
    EXPECT_EQ(Folder.Get("notes.txt"), "mine");
    EXPECT_EQ(Folder.Get("mine.bre"), "mine");
    EXPECT_EQ(Folder.Names(), (Lines{"mine.bre", "notes.txt", "road.eva", "sub"}));
}

TEST_F(AnalyzeFailure, AnEmptyFileTouchesNothing) {
    ExpectUntouched("", "road.eva: heading (line 1): the file ends too early");
}

TEST_F(AnalyzeFailure, ALeftOverTemporaryFileIsFaultFiftyEight) {
    Folder.Put("ZIRVO_SV.TMP", "left over");
    const Outcome outcome = Run();
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Err,
              "road.eva: Run-time error '58': File already exists (ZIRVO_SV.TMP is left over from an "
              "interrupted run)\n");
    EXPECT_EQ(Folder.Get("ZIRVO_SV.TMP"), "left over");
}

TEST_F(AnalyzeFailure, AMissingSolverIsFaultFiftyThreeAndLeavesTheControlFile) {
    const WorkFolder programs;
    const Outcome outcome = Run({.Program = PutBatch(programs.Path())});
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Err,
              "road.eva: Run-time error '53': File not found (" + programs.Path("ZIRVO_SV12.EXE") + " is missing)\n");
    EXPECT_EQ(Folder.Names(), (Lines{"Initial_File", "road.eva"}));
}

TEST_F(AnalyzeFailure, ASolverThatLeavesNoReportIsFaultFiftyThree) {
    const WorkFolder programs;
    PutWaitingSolver(programs.Path(), "ZIRVO_SV12.EXE");
    programs.Put("go", "");
    const Outcome outcome = Run({.Program = PutBatch(programs.Path())});
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Err, "road.eva: Run-time error '53': File not found (the solver left no report: road.san)\n");
    EXPECT_EQ(Folder.Names(), Lines{"road.eva"});
}

TEST_F(AnalyzeFailure, AFolderWithoutTheRightToWriteIsAFaultAndStaysAsItIs) {
    const WorkFolder programs;  // of everybody, since the build may lie in a folder that only its owner may enter
    for (const char* name : {"zirvo-batch", "ZIRVO_SV12.EXE"}) {
        std::filesystem::copy_file(std::string(ZIRVO_BIN "/") + name, programs.Path(name));
    }
    chmod(Folder.Path().c_str(), 0555);
    const Outcome outcome = Run({.Program = programs.Path("zirvo-batch"), .OrdinaryUser = true});
    chmod(Folder.Path().c_str(), 0777);
    EXPECT_EQ(outcome.Code, 1);
    EXPECT_EQ(outcome.Err.rfind("road.eva: Run-time error '7", 0), 0U) << outcome.Err;  // 70 or 75
    EXPECT_EQ(Folder.Names(), Lines{"road.eva"});
}

TEST_F(AnalyzeFailure, AnInputWithoutTheRightToReadIsNamed) {
    const WorkFolder programs;
    std::filesystem::copy_file(ZIRVO_BIN "/zirvo-batch", programs.Path("zirvo-batch"));
    chmod(Folder.Path("road.eva").c_str(), 0000);
    for (const Lines& line : {Lines{"analyze", "road.eva", "--units", "3", "--language", "en"},
                              Lines{"solve", "road.eva", "--units", "3"}}) {
        const Outcome outcome = Folder.Batch(line, {.Program = programs.Path("zirvo-batch"), .OrdinaryUser = true});
        EXPECT_EQ(outcome.Code, 1);
        EXPECT_EQ(outcome.Err, "road.eva: the file cannot be read\n");
    }
    const Outcome check =
        Folder.Batch({"check", "road.eva"}, {.Program = programs.Path("zirvo-batch"), .OrdinaryUser = true});
    EXPECT_EQ(check.Code, 1);
    EXPECT_EQ(check.Err, "road.eva: Permission denied\n");
}

}  // namespace
}  // namespace zirvo::test
