// Runs of the analysis solver in a folder, with results made by hand: what is read, deleted, written, said.
#include "solver/io/solver_run.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <sstream>

#include "platform/code_page.h"
#include "solver_io/restrictions.h"
#include "solver_io/support.h"

namespace zirvo::solver {
namespace {

using namespace test;
namespace fs = std::filesystem;

/// A result for every point: W is the number of the point.
Solution HandMade(const Problem& problem, const SolveOptions&) {
    Solution solution;
    for (std::size_t i = 0; i < problem.Points.size(); ++i) {
        PointResult result;
        result.Values[W] = static_cast<double>(i + 1);
        solution.Points.push_back(result);
    }
    return solution;
}

std::string Control(const std::string& inputName, int language = 2, int units = 3) {
    return Lines({"LANGUAGE PREFERENCE", " " + std::to_string(language) + " ", "", "INPUT/OUTPUT UNITS OF MEASUREMENT",
                  " " + std::to_string(units) + " ", "", "INPUT FILENAME", inputName});
}

class SolverRun : public ::testing::Test {
protected:
    OwnFolder Folder;
    std::string Messages;

    ExitCode Execute(const SolveFunction& solve = HandMade) {
        std::ostringstream messages;
        const ExitCode code = RunAnalysis(solve, messages);
        Messages = messages.str();
        return code;
    }

    /// Writes the control file and the input under its usual name.
    static void Prepare(const std::string& input, int language = 2, int units = 3) {
        WriteBytes("Initial_File", Control("Untitled.eva", language, units));
        WriteBytes("Untitled.eva", input);
    }

    /// Names of all that lies in the folder, in order, blanks between.
    static std::string Listing() {
        std::vector<std::string> names;
        for (const fs::directory_entry& entry : fs::directory_iterator(".")) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        std::string listing;
        for (const std::string& name : names) {
            listing += (listing.empty() ? "" : " ") + name;
        }
        return listing;
    }

    static bool IsErrorReport(const std::string& name) {
        return ReadBytes(name).find("ERROR - THIS REPORT HOLDS NO RESULTS") != std::string::npos;
    }
    static bool IsResultReport(const std::string& name) {
        return ReadBytes(name).find("   END OF REPORT\r\n") != std::string::npos;
    }
};

TEST_F(SolverRun, LeavesBothReportsAndNothingElse) {
    Prepare(Example());
    EXPECT_EQ(Execute(), ExitCode::Solved);
    EXPECT_EQ(Messages, "");
    EXPECT_EQ(Listing(), "Initial_File Untitled.bre Untitled.eva Untitled.san");
    EXPECT_TRUE(IsResultReport("Untitled.bre"));
    EXPECT_TRUE(IsResultReport("Untitled.san"));
    EXPECT_EQ(ReadBytes("Untitled.eva"), Example());
    EXPECT_NE(ReadBytes("Untitled.bre").find("MULTI-LAYERED ELASTIC ANALYSIS - RESULTS"), std::string::npos);
    EXPECT_NE(ReadBytes("Untitled.san").find("MULTI-LAYERED ELASTIC ANALYSIS - PRINCIPAL VALUES"), std::string::npos);
}

TEST_F(SolverRun, HandsTheTheoryConsistentUnits) {
    Prepare(Example());
    double vertical = 0;
    Execute([&](const Problem& problem, const SolveOptions& options) {
        vertical = problem.Loads[0].Vertical;
        return HandMade(problem, options);
    });
    EXPECT_EQ(vertical, 490) << "49 kN in MPa cm2";
    EXPECT_NE(ReadBytes("Untitled.bre").find("     1           49           15"), std::string::npos)
        << "the head tells what was typed";
}

TEST_F(SolverRun, TheLanguageIsThatOfTheControlFile) {
    Prepare(Example(), 1, 1);
    EXPECT_EQ(Execute(), ExitCode::Solved);
    EXPECT_NE(DecodeText(ReadBytes("Untitled.bre")).find("入力ファイル: Untitled.eva"), std::string::npos);
    Prepare(ExampleWith(11, "1000 0.6"), 1, 1);
    EXPECT_EQ(Execute(), ExitCode::BadInput);
    EXPECT_NE(DecodeText(ReadBytes("Untitled.san")).find("値: ポアソン比 0.6"), std::string::npos);
    EXPECT_EQ(Messages, "Untitled.eva: 層 2 (11行目): ポアソン比 0.6: 0.5以下でなければなりません\n");
}

TEST_F(SolverRun, WithoutAUsableControlFileNothingIsTouchedAndTheCodeIsTwo) {
    EXPECT_EQ(Execute(), ExitCode::NoControlFile);
    EXPECT_EQ(Messages, "Initial_File: the file does not exist\n");
    EXPECT_EQ(Listing(), "");
    fs::create_directory("Initial_File");
    EXPECT_EQ(Execute(), ExitCode::NoControlFile);
    EXPECT_EQ(Messages, "Initial_File: the file cannot be read\n");
    fs::remove("Initial_File");
    Prepare(Example(), 3, 1);
    EXPECT_EQ(Execute(), ExitCode::NoControlFile);
    EXPECT_EQ(Messages, "Initial_File: line 2: language number 3: must be 1 to 2\n");
    EXPECT_EQ(Listing(), "Initial_File Untitled.eva");
}

TEST_F(SolverRun, AMissingInputIsBadInput) {
    WriteBytes("Initial_File", Control("Untitled.eva"));
    EXPECT_EQ(Execute(), ExitCode::BadInput);
    EXPECT_EQ(Messages, "Untitled.eva: the file does not exist\n");
    EXPECT_EQ(Listing(), "Initial_File");
    fs::create_directory("Untitled.eva");
    EXPECT_EQ(Execute(), ExitCode::BadInput);
    EXPECT_EQ(Messages, "Untitled.eva: the file cannot be read\n");
}

TEST_F(SolverRun, BadInputEndsInAReportThatSaysSoInBothFiles) {
    Prepare(ExampleWith(19, "1 0 0 7"));
    WriteBytes("Untitled.bre", "old");
    WriteBytes("Untitled.san", "old");
    EXPECT_EQ(Execute(), ExitCode::BadInput);
    for (const std::string name : {"Untitled.bre", "Untitled.san"}) {
        EXPECT_TRUE(IsErrorReport(name));
        EXPECT_NE(ReadBytes(name).find("   ROW: point of interest 1 (line 19)\r\n"), std::string::npos);
        EXPECT_NE(ReadBytes(name).find("   VALUE: Z 7\r\n"), std::string::npos);
    }
    EXPECT_EQ(Messages,
              "Untitled.eva: point of interest 1 (line 19): Z 7: lies below layer 1 (its bottom is at 5 cm)\n");
}

TEST_F(SolverRun, OldReportsAreGoneBeforeAnythingIsComputed) {
    Prepare(Example());
    WriteBytes("Untitled.bre", "old");
    WriteBytes("Untitled.san", "old");
    std::string seen;
    Execute([&](const Problem& problem, const SolveOptions& options) {
        seen = Listing();
        return HandMade(problem, options);
    });
    EXPECT_EQ(seen, "Initial_File Untitled.eva");
}

TEST_F(SolverRun, AReportThatIsALinkIsReplacedAndItsFileStays) {
    Prepare(Example());
    WriteBytes("precious.txt", "precious");
    fs::create_symlink("precious.txt", "Untitled.bre");
    EXPECT_EQ(Execute(), ExitCode::Solved);
    EXPECT_EQ(ReadBytes("precious.txt"), "precious");
    EXPECT_TRUE(IsResultReport("Untitled.bre"));
}

/// The input names the report of the line so; nothing may change, and the message must say why.
struct NameCase {
    std::size_t Line;
    std::string Name;
    std::string Message;
};

TEST_F(SolverRun, AReportNameThatMustNotBeUsedTouchesNothing) {
    fs::create_directory("folder");
    const std::string r = "output file names (line 2): name of the result file";
    const std::string s = "output file names (line 3): name of the file of principal values";
    for (const NameCase& c :
         std::vector<NameCase>{{2, "", r + ": is empty"},
                               {2, "folder/x.bre", r + " folder/x.bre: must not hold a folder"},
                               {3, "../x.san", s + " ../x.san: must not hold a folder"},
                               {3, "/folder/x.san", s + " /folder/x.san: must not hold a folder"},
                               {2, "folder", r + " folder: is a folder"},
                               {3, ".", s + " .: is a folder"},
                               {3, "..", s + " ..: is a folder"},
                               {2, "Untitled.eva", r + " Untitled.eva: is the input file or the control file"},
                               {3, "Untitled.eva", s + " Untitled.eva: is the input file or the control file"},
                               {2, "Initial_File", r + " Initial_File: is the input file or the control file"},
                               {3, "link", s + " link: is the input file or the control file"},
                               {3, "Untitled.bre", s + " Untitled.bre: the two output files have the same name"},
                               {3, std::string("a\0b", 3), s + " a?b: cannot be the name of a file"}}) {
        Prepare(ExampleWith(c.Line, c.Name));
        WriteBytes("Untitled.bre", "old");
        WriteBytes("Untitled.san", "old");
        if (!fs::exists("link")) {
            fs::create_symlink("Untitled.eva", "link");
        }
        EXPECT_EQ(Execute(), ExitCode::BadInput) << c.Name;
        EXPECT_EQ(Messages, "Untitled.eva: " + c.Message + "\n");
        EXPECT_EQ(Listing(), "Initial_File Untitled.bre Untitled.eva Untitled.san folder link") << c.Name;
        EXPECT_EQ(ReadBytes("Untitled.bre"), "old");
        EXPECT_EQ(ReadBytes("Untitled.san"), "old");
        EXPECT_EQ(ReadBytes("Untitled.eva"), ExampleWith(c.Line, c.Name));
        EXPECT_EQ(ReadBytes("Initial_File"), Control("Untitled.eva"));
    }
}

TEST_F(SolverRun, TwoLinksToOneFileAreTwoReports) {
    Prepare(Example());
    WriteBytes("one", "x");
    fs::create_symlink("one", "Untitled.bre");
    fs::create_hard_link("one", "Untitled.san");
    EXPECT_EQ(Execute(), ExitCode::BadInput) << "they stand for one file now";
    EXPECT_EQ(ReadBytes("one"), "x");
}

TEST_F(SolverRun, NamesWithBlanksCommasAndOtherLettersAreWrittenAsTheyStand) {
    std::vector<std::string> lines = SplitLines(Example());
    lines[1] = " a, b.bre ";
    lines[2] = "\x95\x5C.san";  // code page 932
    Prepare(Lines(lines));
    EXPECT_EQ(Execute(), ExitCode::Solved);
    EXPECT_TRUE(IsResultReport(" a, b.bre "));
    EXPECT_TRUE(IsResultReport("表.san"));
    lines[2] = "Straße.san";  // UTF-8
    Prepare(Lines(lines));
    EXPECT_EQ(Execute(), ExitCode::Solved);
    EXPECT_TRUE(IsResultReport("Straße.san"));
}

TEST_F(SolverRun, TheInputsOwnNameIsAWholeLineToo) {
    const std::string name = "my, road  表.eva";
    WriteBytes("Initial_File", Control(EncodeName(name)));
    WriteBytes(name, Example());
    EXPECT_EQ(Execute(), ExitCode::Solved);
    EXPECT_NE(DecodeText(ReadBytes("Untitled.bre")).find("   INPUT FILE: my; road 表.eva\r\n"), std::string::npos);
}

TEST_F(SolverRun, WithOneNameKnownThatReportTellsOfTheShortFile) {
    const std::string text = Example();
    Prepare(text.substr(0, text.find("Untitled.san") + 5));
    EXPECT_EQ(Execute(), ExitCode::BadInput);
    EXPECT_EQ(Listing(), "Initial_File Untitled.bre Untitled.eva") << "half a name is none";
    EXPECT_TRUE(IsErrorReport("Untitled.bre"));
}

TEST_F(SolverRun, AnInputCutAtAnyByteLeavesErrorReportsUnderKnownNamesOnly) {
    const std::string text = Example();
    const std::size_t lastNumber = text.rfind('5');
    for (std::size_t length = 0; length < text.size(); ++length) {
        Prepare(text.substr(0, length));
        fs::remove("Untitled.bre");
        fs::remove("Untitled.san");
        const bool whole = length > lastNumber;
        EXPECT_EQ(Execute(), whole ? ExitCode::Solved : ExitCode::BadInput) << length;
        const std::string listing = Listing();
        EXPECT_TRUE(listing == "Initial_File Untitled.eva" || listing == "Initial_File Untitled.bre Untitled.eva" ||
                    listing == "Initial_File Untitled.bre Untitled.eva Untitled.san")
            << listing;
        if (!whole && fs::exists("Untitled.san")) {
            EXPECT_TRUE(IsErrorReport("Untitled.bre") && IsErrorReport("Untitled.san")) << length;
        }
    }
}

TEST_F(SolverRun, AResultThatIsNoNumberIsAnErrorReport) {
    Prepare(Example());
    EXPECT_EQ(Execute([](const Problem& problem, const SolveOptions& options) {
                  Solution solution = HandMade(problem, options);
                  solution.Points[0].Values[SIGx] = std::nan("");
                  return solution;
              }),
              ExitCode::BadInput);
    EXPECT_EQ(Messages, "Untitled.eva: point of interest 1: SIGx: the result is not a finite number\n");
    EXPECT_TRUE(IsErrorReport("Untitled.bre"));
    EXPECT_TRUE(IsErrorReport("Untitled.san"));
}

TEST_F(SolverRun, WhateverTheTheoryThrowsEndsInAnErrorReport) {
    Prepare(Example());
    const auto expect = [&](const std::string& message) {
        EXPECT_EQ(Messages, message);
        EXPECT_TRUE(IsErrorReport("Untitled.bre") && IsErrorReport("Untitled.san"));
    };
    EXPECT_EQ(Execute([](const Problem&, const SolveOptions&) -> Solution { throw std::bad_alloc(); }),
              ExitCode::BadInput);
    expect("Untitled.eva: there is not enough memory\n");
    EXPECT_EQ(Execute([](const Problem&, const SolveOptions&) -> Solution { throw std::runtime_error("why"); }),
              ExitCode::BadInput);
    expect("Untitled.eva: the program failed: why\n");
    EXPECT_EQ(Execute([](const Problem&, const SolveOptions&) -> Solution { throw 5; }), ExitCode::BadInput);
    expect("Untitled.eva: the program failed: ?\n");
}

TEST_F(SolverRun, AStreamThatTakesNoMessagesDoesNoHarm) {
    Prepare(ExampleWith(11, "1000 0.6"));
    std::ostream nowhere(nullptr);
    EXPECT_EQ(RunAnalysis(HandMade, nowhere), ExitCode::BadInput);
    EXPECT_TRUE(IsErrorReport("Untitled.bre"));
}

TEST_F(SolverRun, AProtectedReportStaysAndTheOtherOneSaysWhy) {
    Prepare(Example());
    WriteBytes("Untitled.bre", "protected");
    fs::permissions("Untitled.bre", fs::perms::owner_read | fs::perms::others_read);
    WriteBytes("Untitled.san", "old");
    fs::permissions("Untitled.san", fs::perms::all);
    {
        const AsOrdinaryUser user;
        EXPECT_EQ(Execute(), ExitCode::BadInput);
    }
    EXPECT_EQ(ReadBytes("Untitled.bre"), "protected");
    EXPECT_TRUE(IsErrorReport("Untitled.san"));
    EXPECT_NE(ReadBytes("Untitled.san").find("   VALUE: name of the result file Untitled.bre\r\n"), std::string::npos);
    EXPECT_NE(ReadBytes("Untitled.san").find("   REASON: may not be written\r\n"), std::string::npos);
}

TEST_F(SolverRun, ANameThatNoFileCanHaveIsToldInTheOtherReport) {
    std::vector<std::string> lines = SplitLines(Example());
    lines[1] = std::string(300, 'x');  // Linux takes names of 255 bytes
    Prepare(Lines(lines));
    EXPECT_EQ(Execute(), ExitCode::BadInput);
    EXPECT_TRUE(IsErrorReport("Untitled.san"));
    EXPECT_NE(ReadBytes("Untitled.san").find("   VALUE: name of the result file x"), std::string::npos);
    EXPECT_NE(ReadBytes("Untitled.san").find("   REASON: cannot be the name of a file\r\n"), std::string::npos);
}

TEST_F(SolverRun, AFolderWithoutTheRightToWriteIsToldOnStandardError) {
    Prepare(Example());
    fs::permissions(".", fs::perms::all & ~(fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write));
    {
        const AsOrdinaryUser user;
        EXPECT_EQ(Execute(), ExitCode::BadInput);
    }
    EXPECT_NE(Messages.find("Untitled.bre: could not be written: "), std::string::npos);
    EXPECT_NE(Messages.find("Untitled.san: could not be written: "), std::string::npos);
    EXPECT_EQ(Listing(), "Initial_File Untitled.eva");
}

// A report of the example is 3 kB long; the few lines of an error find room in 1000 bytes.
TEST_F(SolverRun, AFullDiskLeavesAShortReportThatSaysSo) {
    Prepare(Example());
    {
        const LargestFile limit(1000);
        EXPECT_EQ(Execute(), ExitCode::BadInput);
    }
    EXPECT_EQ(Messages,
              "Untitled.bre: could not be written: Disk full\nUntitled.san: could not be written: Disk full\n");
    EXPECT_TRUE(IsErrorReport("Untitled.bre"));
    EXPECT_TRUE(IsErrorReport("Untitled.san"));
    EXPECT_EQ(Listing(), "Initial_File Untitled.bre Untitled.eva Untitled.san");
}

TEST_F(SolverRun, ADiskWithoutAnyRoomLeavesNoHalfReport) {
    Prepare(Example());
    WriteBytes("Untitled.bre", "old");
    {
        const LargestFile limit(10);
        EXPECT_EQ(Execute(), ExitCode::BadInput);
    }
    EXPECT_EQ(Listing(), "Initial_File Untitled.eva");
}

TEST_F(SolverRun, APipeInPlaceOfAFileDoesNotHang) {
    MakePipe("Initial_File");
    EXPECT_EQ(Execute(), ExitCode::NoControlFile);
    fs::remove("Initial_File");
    WriteBytes("Initial_File", Control("Untitled.eva"));
    MakePipe("Untitled.eva");
    EXPECT_EQ(Execute(), ExitCode::BadInput);
    EXPECT_EQ(Messages, "Untitled.eva: the file cannot be read\n");
}

TEST_F(SolverRun, TheInputMayLieInAnotherFolder) {
    fs::create_directory("folder");
    WriteBytes("Initial_File", Control("folder/Untitled.eva"));
    WriteBytes("folder/Untitled.eva", Example());
    EXPECT_EQ(Execute(), ExitCode::Solved);
    EXPECT_EQ(Listing(), "Initial_File Untitled.bre Untitled.san folder");
}

}  // namespace
}  // namespace zirvo::solver
