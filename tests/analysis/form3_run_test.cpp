// ANALYZE: what the screen does around a run, with a scripted solver, a stand-in and the solver itself, and the faults
// that end the program.
#include <gtest/gtest.h>

#include <filesystem>

#include "analysis/analysis_screens.h"
#include "platform/file_lock.h"
#include "platform/files.h"
#include "platform/small_disk.h"
#include "text/file_helpers.h"

namespace zirvo {
namespace {

using forms::Answer;
using forms::FocusOf;
using test::AnalysisScreens;
using test::ExampleFile;
using test::GetFile;
using test::PutFile;
using Texts = std::vector<std::string>;

class Form3Run : public testing::Test {
protected:
    AnalysisScreens Screens;

    Form3& Form() { return Screens.Data(); }
    void Import() {
        Screens.ImportAndAnswer(Answer::No);
        Screens.Desktop.Forget();
        Screens.ProcessLog.clear();
    }
    void Analyze() { Form().Command7.UserClick(); }
    Texts Boxes() const { return Screens.Desktop.BoxHeads(); }
    void ExpectFault(const char* text) {
        EXPECT_EQ(Boxes(), Texts{text});
        EXPECT_EQ(Screens.Desktop.Boxes[0].Title, "ZIRVO Ver2.3");
        EXPECT_EQ(Screens.Desktop.EndStatus, 1);
        EXPECT_EQ(GetFile("Untitled.eva"), ExampleFile());
    }
};

TEST_F(Form3Run, PaintsTheNoteBeforeTheWaitAndThrowsAwayWhatWasTypedMeanwhile) {
    Import();
    bool shownWhenPainted = false;
    Screens.Desktop.OnPaint = [&](forms::Form&) { shownWhenPainted = Form().Text9.Visible; };
    Screens.Desktop.Log.clear();
    Screens.Scripted.Work = [&] {
        EXPECT_EQ(Screens.Desktop.Log, Texts{"paint Form3"});
        PutFile("Untitled.san", "s\r\n");
        PutFile("Untitled.bre", "b\r\n");
    };
    Analyze();
    EXPECT_TRUE(shownWhenPainted);
    EXPECT_EQ(Screens.Desktop.Log, (Texts{"paint Form3", "discard", "hide Form3", "show Form4"}));
    EXPECT_FALSE(Form().Text9.Visible);
    EXPECT_EQ(Screens.ProcessLog,
              (Texts{"start " + Screens.Program.Path("ZIRVO_SV12.EXE"), "open 41", "wait 7", "close 7"}));
}

TEST_F(Form3Run, TellsTheSolverLanguageUnitsAndTheNameInTheBox) {
    for (const bool japanese : {true, false}) {
        for (int unit = 1; unit <= 3; ++unit) {
            AnalysisScreens screens(japanese ? JapaneseBase : EnglishBase, unit);
            screens.ImportAndAnswer(Answer::No);
            std::string control;
            screens.Scripted.Work = [&] {
                control = GetFile("Initial_File");
                PutFile("Untitled.san", "s\r\n");
                PutFile("Untitled.bre", "b\r\n");
            };
            screens.Data().Command7.UserClick();
            EXPECT_EQ(control, std::string("LANGUAGE PREFERENCE\r\n ") + (japanese ? "1" : "2") +
                                   " \r\n\r\nINPUT/OUTPUT UNITS OF MEASUREMENT\r\n " + std::to_string(unit) +
                                   " \r\n\r\nINPUT FILENAME\r\nUntitled.eva\r\n");
            EXPECT_FALSE(FileExists("Initial_File"));
        }
    }
}

TEST_F(Form3Run, StampsTheReportsAndMakesTheirCommaCopies) {
    Import();
    Analyze();
    EXPECT_EQ(GetFile("Untitled.san"), "   <ZIRVO Ver2.3>\r\nprincipal\r\n");
    EXPECT_EQ(GetFile("Untitled.bre"), "   <ZIRVO Ver2.3>\r\nresults\r\n");
    EXPECT_EQ(GetFile("Untitled_san.csv"), "<ZIRVO,Ver2.3>\r\nprincipal\r\n");
    EXPECT_EQ(GetFile("Untitled_bre.csv"), "<ZIRVO,Ver2.3>\r\nresults\r\n");
}

TEST_F(Form3Run, AMissingInputFileIsToldAndNothingStarts) {
    Import();
    std::filesystem::remove("Untitled.eva");
    bool noteShown = false;
    Screens.Desktop.OnBox = [&](const forms::Message&) { noteShown = Form().Text9.Visible; };
    Analyze();
    EXPECT_EQ(Boxes(), Texts{"INPUT FILE DOES NOT EXIST OR EMPTY"});
    EXPECT_EQ(Screens.Desktop.Boxes[0].Picture, forms::Icon::Stop);
    EXPECT_TRUE(noteShown);
    EXPECT_FALSE(Form().Text9.Visible);
    EXPECT_TRUE(Screens.ProcessLog.empty());
    EXPECT_FALSE(FileExists("Initial_File"));
    EXPECT_TRUE(Form().Command7.Enabled);
    EXPECT_EQ(FocusOf(Form()), "Command7");
}

TEST_F(Form3Run, IdentifierZeroLeavesTheControlsAsTheyWere) {
    Import();
    Screens.Scripted.Identifier = 0;
    Screens.Scripted.WorkInWait = false;
    Screens.Data().LosesReport = true;  // to look at the screen behind it
    Analyze();
    EXPECT_EQ(Boxes(), Texts{"ANALYSIS UNCOMPLETED"});
    EXPECT_TRUE(Form().Command7.Enabled);
    EXPECT_TRUE(Form().Command3.Enabled);
    EXPECT_FALSE(Form().Text9.Visible);
    EXPECT_FALSE(FileExists("Initial_File"));
}

TEST_F(Form3Run, AProcessThatCannotBeOpenedIsNotWaitedForAndNothingIsDisabled) {
    Import();
    Screens.Scripted.Handle = 0;
    Screens.Scripted.WorkInWait = false;
    Screens.Data().LosesReport = true;
    Analyze();
    EXPECT_EQ(Screens.ProcessLog.size(), 2U);  // start, open
    EXPECT_TRUE(Form().Command7.Enabled);
    EXPECT_TRUE(Form().Command8.Enabled);
}

TEST_F(Form3Run, AnUncompletedRunLeavesPreviousClearHelpAndQuit) {
    Import();
    Screens.Data().LosesReport = true;
    Analyze();
    EXPECT_EQ(Boxes(), Texts{"ANALYSIS UNCOMPLETED"});
    EXPECT_EQ(Screens.Desktop.Boxes[0].Picture, forms::Icon::Stop);
    EXPECT_TRUE(Screens.IsShown("Form3"));
    EXPECT_FALSE(Screens.IsLoaded("Form4"));
    EXPECT_FALSE(Form().Command7.Enabled);
    EXPECT_EQ(FocusOf(Form()), "Command8");
}

TEST_F(Form3Run, AnOutputOfZeroBytesEndsUpWithTheStampAlone) {
    Import();
    Screens.Scripted.Work = [] {
        PutFile("Untitled.san", "");
        PutFile("Untitled.bre", "");
    };
    Analyze();
    EXPECT_EQ(GetFile("Untitled.san"), "   <ZIRVO Ver2.3>\r\n");
    EXPECT_EQ(Screens.Reports().txtContents.Text, "   <ZIRVO Ver2.3>\r\n");
}

TEST_F(Form3Run, ASecondRunGivesOneStampAgain) {
    Import();
    Analyze();
    Screens.Desktop.Answers.push_back(Answer::No);
    Screens.Reports().Command2.UserClick();
    Analyze();
    EXPECT_TRUE(Screens.IsShown("Form4"));
    EXPECT_EQ(GetFile("Untitled.bre"), "   <ZIRVO Ver2.3>\r\nresults\r\n");
}

// Faults ------------------------------------------------------------------------------------------------------------

TEST_F(Form3Run, AMissingSolverEndsTheProgramAndLeavesTheControlFile) {
    const std::unique_ptr<ProcessService> processes = MakeProcessService();
    Screens.UseSolver(*processes, Screens.Program.Path());
    Import();
    Analyze();
    ExpectFault("Run-time error '53':\n\nFile not found");
    EXPECT_EQ(Screens.Folder.Names(), (Texts{"Initial_File", "Untitled.eva"}));
}

TEST_F(Form3Run, ASolverThatLeavesNoFilesEndsTheProgram) {
    Import();
    Screens.Scripted.Work = nullptr;
    Analyze();
    ExpectFault("Run-time error '53':\n\nFile not found");
    EXPECT_EQ(Screens.Folder.Names(), Texts{"Untitled.eva"});
}

TEST_F(Form3Run, ASolverThatLeavesThePrincipalsAloneEndsTheProgram) {
    Import();
    Screens.Scripted.Work = [] { PutFile("Untitled.san", "principal\r\n"); };
    Analyze();
    ExpectFault("Run-time error '53':\n\nFile not found");
    EXPECT_EQ(Screens.Folder.Names(), (Texts{"Untitled.eva", "Untitled.san", "Untitled_san.csv"}));
}

TEST_F(Form3Run, ALeftOverStampFileEndsTheProgramAndStays) {
    Import();
    PutFile("ZIRVO_SV.TMP", "of an interrupted run");
    Analyze();
    ExpectFault("Run-time error '58':\n\nFile already exists");
    EXPECT_EQ(GetFile("ZIRVO_SV.TMP"), "of an interrupted run");
    EXPECT_EQ(GetFile("Untitled.san"), "principal\r\n");
}

TEST_F(Form3Run, ACommaCopyThatCannotBeWrittenEndsTheProgram) {
    Import();
    std::filesystem::create_directory("Untitled_san.csv");
    Analyze();
    ExpectFault("Run-time error '75':\n\nPath/File access error");
}

TEST_F(Form3Run, AControlFileThatCannotBeWrittenEndsTheProgram) {
    Import();
    std::filesystem::create_directory("Initial_File");
    Analyze();
    ExpectFault("Run-time error '75':\n\nPath/File access error");
    EXPECT_TRUE(Screens.ProcessLog.empty());
}

// What the box of an error says behind its two lines.

/// @param words  behind the empty line
std::string EndOf(const std::string& words) {
    return "\n\n" + words + "\n\nThe program ends now.";
}

std::string WordsIn(const test::AnalysisScreens& screens) {
    const std::string text = screens.Desktop.Boxes.empty() ? std::string() : screens.Desktop.Boxes.back().Text;
    return text.substr(forms::ScriptedDesktop::HeadOf(text).size());
}

TEST_F(Form3Run, AMissingSolverIsNamed) {
    const std::unique_ptr<ProcessService> processes = MakeProcessService();
    Screens.UseSolver(*processes, Screens.Program.Path());
    Import();
    Analyze();
    EXPECT_EQ(WordsIn(Screens), EndOf("Program: " + Screens.Program.Path("ZIRVO_SV12.EXE") +
                                      "\nThis program is missing or cannot be started. Please unpack ZIRVO again."));
}

TEST_F(Form3Run, AReportThatTheSolverDidNotLeaveIsNamed) {
    Import();
    Screens.Scripted.Work = nullptr;
    Analyze();
    EXPECT_EQ(WordsIn(Screens),
              EndOf("File: " + Screens.Folder.Path("Untitled.san") + "\nThe solver has not written this file."));
}

// A disk too full for the principal values, on which a note of the failure has found room beside them.
TEST_F(Form3Run, TheReasonThatTheSolverLeftInItsOtherReportIsTold) {
    Import();
    Screens.Scripted.Work = [] {
        PutFile("Untitled.bre",
                "   TITLE\r\n\r\n   ERROR - THIS REPORT HOLDS NO RESULTS\r\n   FILE: Untitled.bre\r\n"
                "   REASON: could not be written: Disk full\r\n");
    };
    Analyze();
    EXPECT_EQ(WordsIn(Screens), EndOf("File: " + Screens.Folder.Path("Untitled.san") +
                                      "\nThe solver has not written this file.\nThe solver's report says:\nTITLE\n"
                                      "ERROR - THIS REPORT HOLDS NO RESULTS\nFILE: Untitled.bre\n"
                                      "REASON: could not be written: Disk full"));
}

TEST_F(Form3Run, AFileInTheWayIsNamed) {
    Import();
    PutFile("ZIRVO_SV.TMP", "of an interrupted run");
    Analyze();
    EXPECT_EQ(WordsIn(Screens), EndOf("File: " + Screens.Folder.Path("ZIRVO_SV.TMP") +
                                      "\nA file of this name is in the way. Please move or delete it."));
}

TEST(Form3RunInAFolderOfTwo, IsRefusedInBothLanguagesAndCanBeTriedAgain) {
    for (const auto& [base, words] :
         {std::pair{EnglishBase, "ANOTHER ZIRVO IS COMPUTING IN THIS FOLDER.\nPLEASE TRY AGAIN WHEN IT HAS FINISHED."},
          std::pair{JapaneseBase, "このフォルダでは別の ZIRVO が計算中です。\n終了後にもう一度実行してください。"}}) {
        AnalysisScreens screens(base);
        screens.ImportAndAnswer(Answer::No);
        screens.Desktop.Forget();
        screens.ProcessLog.clear();
        bool held = false;
        std::unique_ptr<FileLock> other = FileLock::OfAnyFile(screens.Folder.Path(".zirvo-lock"), held);
        screens.Data().Command7.UserClick();
        EXPECT_EQ(screens.Desktop.Boxes,
                  (std::vector<forms::Message>{
                      {.Text = words,
                       .Title = "ZIRVO Ver2.3",
                       .Picture = forms::Icon::Stop,
                       .Words = base == JapaneseBase ? forms::Language::Japanese : forms::Language::English}}));
        EXPECT_EQ(screens.ProcessLog, Texts{});
        EXPECT_FALSE(screens.Data().Text9.Visible);
        EXPECT_TRUE(screens.Data().Command7.Enabled);
        EXPECT_EQ(screens.Folder.Names(), (Texts{".zirvo-lock", "Untitled.eva"}));
        other->RemoveFile();
        screens.Data().Command7.UserClick();
        EXPECT_TRUE(screens.IsShown("Form4"));
        EXPECT_FALSE(screens.Folder.Has(".zirvo-lock"));
    }
}

TEST(Form3RunInJapanese, AFileInTheWayIsNamed) {
    AnalysisScreens screens(JapaneseBase);
    screens.ImportAndAnswer(Answer::No);
    PutFile("ZIRVO_SV.TMP", "of an interrupted run");
    screens.Desktop.Forget();
    screens.Data().Command7.UserClick();
    ASSERT_EQ(screens.Desktop.Boxes.size(), 1U);
    EXPECT_NE(screens.Desktop.Boxes[0].Text.find("ファイル: " + screens.Folder.Path("ZIRVO_SV.TMP") +
                                                 "\n同じ名前のファイルが残っています。移動するか削除してください。"),
              std::string::npos)
        << screens.Desktop.Boxes[0].Text;
}

TEST_F(Form3Run, AFileThatMayNotBeWrittenIsNamed) {
    Import();
    std::filesystem::create_directory("Initial_File");
    Analyze();
    EXPECT_TRUE(WordsIn(Screens).starts_with("\n\nFile: " + Screens.Folder.Path("Initial_File") +
                                             "\nIt may not be read or written."))
        << WordsIn(Screens);
}

TEST_F(Form3Run, ForeignFilesStandAsBefore) {
    Import();
    PutFile("notes.txt", "mine");
    PutFile("Other.bre", "mine too");
    Screens.Scripted.Work = nullptr;
    Analyze();
    EXPECT_EQ(GetFile("notes.txt"), "mine");
    EXPECT_EQ(GetFile("Other.bre"), "mine too");
}

// With the solver itself --------------------------------------------------------------------------------------------

class Form3RealRun : public testing::Test {
protected:
    std::unique_ptr<ProcessService> Processes = MakeProcessService();
    std::unique_ptr<AnalysisScreens> Screens;

    void Start(Int16 languageBase, int unit) {
        Screens.reset();  // the folder before is the current one again
        Screens = std::make_unique<AnalysisScreens>(languageBase, unit);
        Screens->UseSolver(*Processes, ZIRVO_BIN);
    }
    Form3& Form() { return Screens->Data(); }
};

TEST_F(Form3RealRun, TheWholeRoadByKeysAlone) {
    Start(EnglishBase, 3);
    using forms::Press;
    using forms::Type;
    namespace key = forms::key;
    Screens->TypeNewData();
    const auto press = [&](const char* button) {
        for (int i = 0; i < 40 && FocusOf(Form()) != button; ++i) {
            Press(Form(), key::Tab);
        }
        EXPECT_EQ(FocusOf(Form()), button);
        Type(Form(), "\r");
    };
    press("Command5");
    press("Command6");
    press("Command7");
    ASSERT_TRUE(Screens->IsShown("Form4"));
    EXPECT_TRUE(Screens->Desktop.Boxes.empty());
    Form4& reports = Screens->Reports();
    EXPECT_NE(reports.txtContents.Text.Get().find("   <ZIRVO Ver2.3>"), std::string::npos);
    EXPECT_NE(reports.txtContents.Text.Get().find("   ==="), std::string::npos);
    EXPECT_NE(reports.ActiveControl(), nullptr);

    // One number changed, and the road once more.
    Screens->Desktop.Answers.push_back(Answer::Yes);
    for (int i = 0; i < 10 && FocusOf(reports) != "Command2"; ++i) {
        Press(reports, key::Tab);
    }
    Type(reports, " ");
    ASSERT_TRUE(Screens->IsShown("Form3"));
    const std::string before = GetFile("Untitled.bre");
    for (int i = 0; i < 40 && FocusOf(Form()) != "MSFlexGrid1"; ++i) {
        Press(Form(), key::Tab);
    }
    Press(Form(), key::Home);
    Type(Form(), "2000\t");
    press("Command5");
    Screens->Desktop.Answers.push_back(Answer::Yes);
    press("Command6");
    press("Command7");
    ASSERT_TRUE(Screens->IsShown("Form4"));
    EXPECT_NE(GetFile("Untitled.bre"), before);
}

TEST_F(Form3RealRun, EachLanguageAndUnitSystemComesToItsReports) {
    for (const Int16 languageBase : {JapaneseBase, EnglishBase}) {
        for (int unit = 1; unit <= 3; ++unit) {
            Start(languageBase, unit);
            Screens->ImportAndAnswer(Answer::No);
            Form().Command7.UserClick();
            ASSERT_TRUE(Screens->IsShown("Form4")) << languageBase << " " << unit;
            Screens->Reports().Option2.UserClick();
            EXPECT_TRUE(Screens->Reports().Option2.Value);
            EXPECT_EQ(Screens->Desktop.EndStatus, std::nullopt);
        }
    }
}

// The name of the box is what the solver reads; the names of its reports stand in the file. Data that was imported and
// not updated keeps the two together.
TEST_F(Form3RealRun, NamesChangedOnTheScreenReachTheFileTheSolverAndTheViewer) {
    Start(EnglishBase, 3);
    Screens->ImportAndAnswer(Answer::Yes);
    Form().Text7.Text = "道路";
    Form().Text8.Text = "結果";
    Form().Text1.Text = "主値";
    Form().Command5.UserClick();
    Form().Command6.UserClick();
    Form().Command7.UserClick();
    ASSERT_TRUE(Screens->IsShown("Form4"));
    EXPECT_TRUE(FileExists("道路.eva"));
    EXPECT_TRUE(FileExists("結果_bre.csv"));
    EXPECT_TRUE(FileExists("主値_san.csv"));
}

// No room at all, room for the control file and the solver's note, room for the reports and not for their stamped
// copies: the box names a file of the folder and says that the disk is full, in the solver's words where they are the
// only ones; the data stand.
TEST_F(Form3RealRun, ADiskWithoutRoomForTheReportsIsTold) {
    std::string points;
    for (int i = 0; i < 400; ++i) {
        points += "    1               0            0            5\r\n";
    }
    const std::string bytes =
        test::Replaced(test::Replaced(ExampleFile(), "    1               0            0            5\r\n", points),
                       "  2         1          1\r\n", "  2         1        400\r\n");
    bool solverSaidIt = false;
    for (const Int16 languageBase : {JapaneseBase, EnglishBase}) {
        for (const int spared : {0, 8, 12}) {
            Start(languageBase, 3);
            const std::string folder = Screens->Folder.Path("small");
            const test::SmallDisk disk(folder, 256);
            if (!disk.IsThere()) {
                GTEST_SKIP() << "no disk can be mounted here";
            }
            Screens->App.Dispatch([&] { Screens->App.Get<Form2>().Label2.Caption = folder; });
            Screens->Desktop.Answers.push_back(Answer::No);
            Screens->Import(bytes, "small/Untitled.eva");
            ASSERT_TRUE(Form().Command7.Enabled);
            disk.Fill(spared);
            Screens->Desktop.Forget();
            Form().Command7.UserClick();
            EXPECT_EQ(Screens->Desktop.EndStatus, 1) << spared;
            ASSERT_EQ(Screens->Desktop.Boxes.size(), 1U) << spared;
            const std::string told = Screens->Desktop.Boxes[0].Text;
            EXPECT_NE(told.find(": " + folder + "/"), std::string::npos) << spared << told;
            EXPECT_NE(told.find("Disk full"), std::string::npos) << spared << told;
            solverSaidIt = solverSaidIt || told.find("\nREASON: could not be written: Disk full") != std::string::npos;
            EXPECT_EQ(GetFile(folder + "/Untitled.eva"), bytes);
            ChangeFolder(Screens->Folder.Path());
        }
    }
    EXPECT_TRUE(solverSaidIt);
}

}  // namespace
}  // namespace zirvo
