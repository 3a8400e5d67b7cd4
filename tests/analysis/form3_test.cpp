// The data screen apart from its table of states: captions, counts, grids, DATA OK!, SAVE DATA, the oddities that are
// kept.
#include "analysis/form3.h"

#include <gtest/gtest.h>

#include "analysis/analysis_screens.h"
#include "forms/tidy_layout.h"
#include "platform/files.h"

namespace zirvo {
namespace {

using forms::Answer;
using forms::FocusOf;
using forms::Press;
using forms::Type;
using test::AnalysisScreens;
namespace key = forms::key;

class Form3Test : public testing::Test {
protected:
    AnalysisScreens Screens;
    Form3& Form = Screens.Data();

    std::vector<std::string> Boxes() const { return Screens.Desktop.BoxHeads(); }
    /// The rows 1 to the last of a grid, cells with "|" between them.
    static std::vector<std::string> Rows(const forms::MSFlexGrid& grid, int firstCol = 1) {
        std::vector<std::string> rows;
        for (int row = 1; row < grid.Rows; ++row) {
            std::string text = grid.TextMatrix(row, firstCol);
            for (int col = firstCol + 1; col < grid.Cols; ++col) {
                text += "|" + grid.TextMatrix(row, col);
            }
            rows.push_back(text);
        }
        return rows;
    }
    static std::vector<std::string> Headings(const forms::MSFlexGrid& grid) {
        std::vector<std::string> headings;
        for (int col = 0; col < grid.Cols; ++col) {
            headings.push_back(grid.TextMatrix(0, col));
        }
        return headings;
    }
};
using Texts = std::vector<std::string>;

// Load --------------------------------------------------------------------------------------------------------------

TEST_F(Form3Test, LoadSetsTheCaptionsInEnglish) {
    EXPECT_EQ(Form.Caption, "- ZIRVO Ver2.3 -");
    EXPECT_FALSE(Form.HasCloseEntry);
    EXPECT_EQ(Form.Label1.Caption, "INITIAL SETTING FOR ANALYSIS ONLY");
    EXPECT_EQ(Form.Frame1.Caption, "1. Data");
    EXPECT_EQ(Form.Option1.Caption, "NEW DATA");
    EXPECT_EQ(Form.Option2.Caption, "IMPORT FROM FILE");
    EXPECT_EQ(Form.Command1.Caption, "OPEN FILE");
    EXPECT_EQ(Form.Frame2.Caption, "2. Initial Setting");
    EXPECT_EQ(Form.Label2.Caption, "LAYERS");
    EXPECT_EQ(Form.Label3.Caption, "LOADS");
    EXPECT_EQ(Form.Label4.Caption, "POINTS");
    EXPECT_EQ(Form.Frame3.Caption, "3. Layer Properties");
    EXPECT_EQ(Form.Frame4.Caption, "4. Load Characteristics");
    EXPECT_EQ(Form.Frame5.Caption, "5. Point(s) of Interest");
    EXPECT_EQ(Form.Frame6.Caption, "In/Output File");
    EXPECT_EQ(Form.Label5.Caption, "INPUT FILE");
    EXPECT_EQ(Form.Label6.Caption, "RESULTS");
    EXPECT_EQ(Form.Label10.Caption, "PRINC. VAL.");
    EXPECT_EQ(Form.Command3.Caption, "PREVIOUS");
    EXPECT_EQ(Form.Command4.Caption, "CLEAR FORM");
    EXPECT_EQ(Form.Command5.Caption, "DATA OK!");
    EXPECT_EQ(Form.Command6.Caption, "SAVE DATA");
    EXPECT_EQ(Form.Command7.Caption, "ANALYZE");
    EXPECT_EQ(Form.Command8.Caption, "HELP");
    EXPECT_EQ(Form.Command9.Caption, "QUIT");
}

TEST_F(Form3Test, LoadSetsTheCaptionsInJapanese) {
    AnalysisScreens japanese(JapaneseBase);
    Form3& form = japanese.Data();
    EXPECT_EQ(form.Caption, "- ZIRVO Ver2.3 -");
    EXPECT_EQ(form.Label1.Caption, "初 期 設 定 （ 解 析 用 ）");
    EXPECT_EQ(form.Option1.Caption, "新規ﾃﾞｰﾀ作成");
    EXPECT_EQ(form.Label10.Caption, "主応力・主ひずみ");
    EXPECT_EQ(form.Command7.Caption, "解　析");
}

TEST_F(Form3Test, LoadLeavesZeroCountsHeadingRowsAloneAndGridsDisabled) {
    for (const forms::Label* count : {&Form.Label7, &Form.Label8, &Form.Label9}) {
        EXPECT_EQ(count->Caption, "0");
    }
    for (const forms::MSFlexGrid* grid : {&Form.MSFlexGrid1, &Form.MSFlexGrid2, &Form.MSFlexGrid3}) {
        EXPECT_EQ(grid->Rows, 1);
        EXPECT_FALSE(grid->Enabled);
        for (const std::string& heading : Headings(*grid)) {
            EXPECT_EQ(heading, "");
        }
    }
    EXPECT_EQ(Form.MSFlexGrid1.Cols, 5);
    EXPECT_EQ(Form.MSFlexGrid2.Cols, 7);
    EXPECT_EQ(Form.MSFlexGrid3.Cols, 5);
    EXPECT_FALSE(Form.Text9.Visible);
}

TEST_F(Form3Test, TheBarsGrowUpwardsToTheirLimits) {
    EXPECT_EQ(Form.VScroll1.Min, 100);
    EXPECT_EQ(Form.VScroll2.Min, 100);
    EXPECT_EQ(Form.VScroll3.Min, 10000);
    for (const forms::VScrollBar* bar : {&Form.VScroll1, &Form.VScroll2, &Form.VScroll3}) {
        EXPECT_EQ(bar->Max, 0);
        EXPECT_EQ(bar->Value, 0);
    }
}

// 1024 / 810 and 768 / 640, in 32-bit floats.
TEST_F(Form3Test, TheFormIsScaledToTheScreen) {
    EXPECT_NEAR(Form.Width, 11730 * 1024.0 / 810, 0.01);
    EXPECT_NEAR(Form.Height, 8505 * 768.0 / 640, 0.01);
    EXPECT_NEAR(Form.Left, 210 * 1024.0 / 810, 0.01);
    EXPECT_NEAR(Form.Top, 300 * 768.0 / 640, 0.01);
    EXPECT_NEAR(Form.MSFlexGrid2.Left, 8 * 15 * 1024.0 / 810, 0.01);
}

TEST_F(Form3Test, ItsLayoutIsTidyOnEveryScreen) {
    for (const auto& [width, height] : {std::pair{810, 640}, {1024, 768}, {1280, 800}, {1920, 1080}}) {
        SCOPED_TRACE(std::to_string(width) + " by " + std::to_string(height));
        Screens.Desktop.Size = {.Width = width * 15.0, .Height = height * 15.0, .TwipsPerPixel = 15};
        Screens.App.Dispatch([this] { Screens.Data().Unload(); });
        Screens.App.Show("Form3");
        Form3& form = Screens.Data();
        form.Text9.Visible = true;
        ExpectTidyLayout(form);
        EXPECT_LE(form.Left + form.Width, width * 15.0);
        EXPECT_LE(form.Top + form.Height, height * 15.0);
    }
}

TEST_F(Form3Test, TabGoesThroughTheControlsInTheOrderOfTheWork) {
    Screens.TypeNewData();
    Form.Option1.UserFocus();
    Texts order{FocusOf(Form)};
    for (int i = 0; i < 13; ++i) {
        Press(Form, key::Tab);
        order.push_back(FocusOf(Form));
    }
    EXPECT_EQ(order, (Texts{"Option1", "VScroll1", "VScroll2", "VScroll3", "MSFlexGrid1", "MSFlexGrid2", "MSFlexGrid3",
                            "Text7", "Text8", "Text1", "Command3", "Command4", "Command5", "Command8"}));
}

// New data, headings, units -----------------------------------------------------------------------------------------

TEST_F(Form3Test, NewDataNamesTheFilesAndMovesToTheFolder) {
    TemporaryFolder elsewhere;
    ChangeFolder(elsewhere.Path());
    Form.Option1.UserClick();
    EXPECT_EQ(Form.Text7.Text, "Untitled.eva");
    EXPECT_EQ(Form.Text8.Text, "Untitled.bre");
    EXPECT_EQ(Form.Text1.Text, "Untitled.san");
    EXPECT_EQ(CurrentFolder(), Screens.Folder.Path());
}

TEST_F(Form3Test, ImportFromFileDoesNotMove) {
    TemporaryFolder elsewhere;
    ChangeFolder(elsewhere.Path());
    Form.Option2.UserClick();
    EXPECT_EQ(CurrentFolder(), elsewhere.Path());
    EXPECT_EQ(Form.Text7.Text, "");
    ChangeFolder(Screens.Folder.Path());
}

TEST_F(Form3Test, NewDataInAFolderThatIsGoneEndsTheProgram) {
    Screens.App.Get<Form2>().Label2.Caption = Screens.Folder.Path("gone");
    Form.Option1.UserClick();
    EXPECT_EQ(Screens.Desktop.EndStatus, 1);
    EXPECT_EQ(Boxes(), Texts{"Run-time error '76':\n\nPath not found"});
}

TEST(Form3Headings, FollowTheUnits) {
    const Texts layersKgf{"", "MODULUS(kgf/cm2)", "POISSON RATIO", "THICKNESS(cm)", "SLIP RATE"};
    const Texts layersKn{"", "MODULUS(MPa)", "POISSON RATIO", "THICKNESS(cm)", "SLIP RATE"};
    const Texts layersNone{"", "", "POISSON RATIO", "THICKNESS(cm)", "SLIP RATE"};
    for (int unit = 0; unit <= 3; ++unit) {
        AnalysisScreens screens(EnglishBase, unit);
        Form3& form = screens.Data();
        form.Option1.UserClick();
        Texts layers, loads, points;
        for (int col = 0; col < 7; ++col) {
            loads.push_back(form.MSFlexGrid2.TextMatrix(0, col));
            if (col < 5) {
                layers.push_back(form.MSFlexGrid1.TextMatrix(0, col));
                points.push_back(form.MSFlexGrid3.TextMatrix(0, col));
            }
        }
        EXPECT_EQ(layers, unit == 0 ? layersNone : unit == 3 ? layersKn : layersKgf) << unit;
        EXPECT_EQ(loads[1], unit == 0 ? "" : unit == 3 ? "VERT. LOAD(kN)" : "VERT. LOAD(kgf)") << unit;
        EXPECT_EQ(loads[5], unit == 0 ? "" : unit == 3 ? "HORIZ. LOAD(kN)" : "HORIZ. LOAD(kgf)") << unit;
        EXPECT_EQ(loads[2] + loads[3] + loads[4] + loads[6], "RADIUS(cm)X-AXIS(cm)Y-AXIS(cm)ANGLE FROM X-AXIS(deg)");
        EXPECT_EQ(points, (Texts{"", "LAYER", "X-AXIS(cm)", "Y-AXIS(cm)", "Z-AXIS(cm)"}));
    }
}

TEST(Form3Headings, ColumnsAreAsWideAsTheirHeadingsInEachLanguage) {
    AnalysisScreens english;
    english.Data().Option1.UserClick();
    AnalysisScreens japanese(JapaneseBase);
    japanese.Data().Option2.UserClick();
    // 105 twips a character, 210 for one of full width; and "J" as margin.
    EXPECT_EQ(english.Data().MSFlexGrid1.ColWidth(4), 9 * 105 + 105);   // "SLIP RATE"
    EXPECT_EQ(japanese.Data().MSFlexGrid1.ColWidth(4), 6 * 210 + 105);  // 層間すべり率
}

// Counts ------------------------------------------------------------------------------------------------------------

TEST_F(Form3Test, ABarSetsItsCountAndTheCountItsGrid) {
    Form.Option1.UserClick();
    Form.VScroll1.UserStepToMin();
    Form.VScroll1.UserStepToMin();
    EXPECT_EQ(Form.Label7.Caption, " 2");
    EXPECT_EQ(Rows(Form.MSFlexGrid1, 0), (Texts{"LAYER 1||||", "LAYER 2||||"}));
    Form.VScroll2.UserStepToMin();
    EXPECT_EQ(Form.Label8.Caption, " 1");
    EXPECT_EQ(Rows(Form.MSFlexGrid2, 0), Texts{"LOAD 1||||||"});
    Form.VScroll3.UserRelease(3);
    EXPECT_EQ(Form.Label9.Caption, " 3");
    EXPECT_EQ(Rows(Form.MSFlexGrid3, 0), (Texts{"POINT 1||||", "POINT 2||||", "POINT 3||||"}));
}

TEST_F(Form3Test, LoweringACountDropsTheLastRowsAndRaisingItBringsEmptyOnes) {
    Screens.ImportAndAnswer(Answer::Yes);
    Form.VScroll1.UserStepToMax();
    EXPECT_EQ(Rows(Form.MSFlexGrid1), Texts{"35000|0.35|5|0"});
    Form.VScroll1.UserStepToMin();
    EXPECT_EQ(Rows(Form.MSFlexGrid1), (Texts{"35000|0.35|5|0", "|||"}));
}

TEST_F(Form3Test, AGridIsEnabledByTheFirstChangeOfItsCountOnly) {
    Form.Option1.UserClick();  // the captions are "0" already, so nothing has changed
    EXPECT_FALSE(Form.MSFlexGrid1.Enabled);
    Form.VScroll1.UserStepToMin();
    EXPECT_TRUE(Form.MSFlexGrid1.Enabled);
    EXPECT_FALSE(Form.MSFlexGrid2.Enabled);
    EXPECT_FALSE(Form.MSFlexGrid3.Enabled);
}

TEST_F(Form3Test, NewDataAgainSetsBarsAndCountsBackAndNamesAgain) {
    Form.Option1.UserClick();
    Form.VScroll1.UserStepToMin();
    Form.Text7.Text = "mine";
    Form.Option1.UserClick();
    EXPECT_EQ(Form.VScroll1.Value, 0);
    EXPECT_EQ(Form.Label7.Caption, "0");
    EXPECT_EQ(Form.MSFlexGrid1.Rows, 1);
    EXPECT_TRUE(Form.MSFlexGrid1.Enabled);
    EXPECT_EQ(Form.Text7.Text, "Untitled.eva");
    EXPECT_TRUE(Form.Option1.Value);
}

TEST_F(Form3Test, NewDataAndClearFormSetEveryBarAndCountBack) {
    for (const bool clears : {false, true}) {
        Form.Option1.UserClick();
        for (forms::VScrollBar* bar : {&Form.VScroll1, &Form.VScroll2, &Form.VScroll3}) {
            bar->UserRelease(3);
        }
        if (clears) {
            Form.Command4.UserClick();
        } else {
            Form.Option1.UserClick();
        }
        for (const forms::VScrollBar* bar : {&Form.VScroll1, &Form.VScroll2, &Form.VScroll3}) {
            EXPECT_EQ(bar->Value, 0) << bar->Name();
        }
        for (const forms::Label* count : {&Form.Label7, &Form.Label8, &Form.Label9}) {
            EXPECT_EQ(count->Caption, clears ? " 0" : "0") << count->Name();
        }
        for (const forms::MSFlexGrid* grid : {&Form.MSFlexGrid1, &Form.MSFlexGrid2, &Form.MSFlexGrid3}) {
            EXPECT_EQ(grid->Rows, 1) << grid->Name();
            EXPECT_EQ(grid->Row, 0) << grid->Name();
        }
    }
}

// What each step writes, it writes whatever stood there before.
TEST_F(Form3Test, NewDataAndImportWriteTheirButtonsWhateverStoodBefore) {
    const auto turnRound = [this] {
        for (forms::CommandButton* button : {&Form.Command3, &Form.Command4}) {
            button->Enabled = false;
        }
        for (forms::CommandButton* button : {&Form.Command1, &Form.Command5, &Form.Command6, &Form.Command7}) {
            button->Enabled = true;
        }
    };
    const auto enabled = [this] {
        std::string marks;
        for (const forms::CommandButton* button : {&Form.Command1, &Form.Command3, &Form.Command4, &Form.Command5,
                                                   &Form.Command6, &Form.Command7, &Form.Command8, &Form.Command9}) {
            marks += button->Enabled ? 'x' : '.';
        }
        return marks;
    };
    turnRound();
    Form.Option1.UserClick();
    EXPECT_EQ(enabled(), ".xxxxxxx");  // SAVE DATA and ANALYZE are left alone
    turnRound();
    Form.Option2.UserClick();
    EXPECT_EQ(enabled(), "xxx..xxx");  // ANALYZE is left alone
    turnRound();
    Screens.ImportAndAnswer(Answer::No);
    EXPECT_EQ(enabled(), ".xx..xxx");
    Form.Command4.UserClick();
    EXPECT_EQ(enabled(), ".x....xx");
    Form.Option2.UserClick();
    test::PutFile("Untitled.eva", test::ExampleFile());
    Screens.Desktop.Paths.emplace_back(Screens.Folder.Path("Untitled.eva"));
    Screens.Desktop.Answers.push_back(Answer::Yes);
    turnRound();
    Form.Command1.UserClick();
    EXPECT_EQ(enabled(), ".xxx..xx");
}

TEST_F(Form3Test, ImportFromFileLeavesTheBarsWhereTheyAre) {
    Form.Option1.UserClick();
    Form.VScroll1.UserStepToMin();
    Form.Option2.UserClick();
    EXPECT_EQ(Form.VScroll1.Value, 1);
    EXPECT_EQ(Form.Label7.Caption, "0");
    EXPECT_EQ(Form.MSFlexGrid1.Rows, 1);
    EXPECT_FALSE(Form.MSFlexGrid1.Enabled);
}

TEST_F(Form3Test, ACountKeepsItsTextsWhenTheOtherCountsMove) {
    Screens.ImportAndAnswer(Answer::Yes);
    Form.VScroll3.UserRelease(5);
    EXPECT_EQ(Rows(Form.MSFlexGrid3), (Texts{"1|0|0|5", "|||", "|||", "|||", "|||"}));
    EXPECT_EQ(Rows(Form.MSFlexGrid1), (Texts{"35000|0.35|5|0", "1000|0.4||"}));
}

// CLEAR FORM --------------------------------------------------------------------------------------------------------

// The captions are set first and the bars afterwards, so a bar that was not 0 writes into its count once more.
TEST_F(Form3Test, ClearFormEndsWithTheBarsZeroWhereABarWasNotZero) {
    Form.Option1.UserClick();
    Form.VScroll1.UserStepToMin();
    Form.Command4.UserClick();
    EXPECT_EQ(Form.Label7.Caption, " 0");
    EXPECT_EQ(Form.Label8.Caption, "0");
    EXPECT_EQ(Form.VScroll1.Value, 0);
}

TEST_F(Form3Test, ClearFormLeavesAGridWhoseCountChangedEnabledWithItsHeadingRow) {
    Form.Option1.UserClick();
    Form.VScroll1.UserStepToMin();
    Form.Command4.UserClick();
    EXPECT_TRUE(Form.MSFlexGrid1.Enabled);
    EXPECT_FALSE(Form.MSFlexGrid2.Enabled);
    EXPECT_EQ(Form.MSFlexGrid1.Rows, 1);
    EXPECT_EQ(Form.MSFlexGrid1.Row, 0);
    EXPECT_EQ(Headings(Form.MSFlexGrid1), (Texts{"", "", "", "", ""}));
}

TEST_F(Form3Test, NewDataBehindAClearedFormEnablesAGridBeforeItsCountHasMoved) {
    Form.Option1.UserClick();
    Form.VScroll1.UserStepToMin();
    Form.Command4.UserClick();
    Form.MSFlexGrid1.Enabled = false;
    Form.Option1.UserClick();  // " 0" becomes "0": a changed text
    EXPECT_TRUE(Form.MSFlexGrid1.Enabled);
    EXPECT_FALSE(Form.MSFlexGrid2.Enabled);
}

// SAVE DATA ---------------------------------------------------------------------------------------------------------

TEST_F(Form3Test, SavedDataIsTheFileToTheByte) {
    Screens.ImportAndAnswer(Answer::Yes);
    Form.Text7.Text = "copy";
    Form.Command5.UserClick();
    Form.Command6.UserClick();
    EXPECT_EQ(test::GetFile("copy.eva"), test::ExampleFile());
}

TEST_F(Form3Test, SavedDataHasTheNumbersOfTheCellsAndNotTheirTexts) {
    Screens.ImportAndAnswer(Answer::Yes, test::ExampleFile());
    Form.MSFlexGrid1.SetTextMatrix(1, 1, "35E3");
    Form.MSFlexGrid1.SetTextMatrix(1, 2, "0.350 or so");
    Form.Text7.Text = "copy";
    Form.Command5.UserClick();
    Form.Command6.UserClick();
    EXPECT_EQ(test::GetFile("copy.eva"), test::ExampleFile());
}

TEST_F(Form3Test, DataTypedWithKeysAloneIsSaved) {
    Screens.TypeNewData();
    Form.Command5.UserClick();
    Form.Command6.UserClick();
    EXPECT_EQ(Boxes(), Texts{});
    const AnalysisInputResult file = ReadAnalysisInput(Screens.Folder.Path("Untitled.eva"));
    ASSERT_TRUE(file.Passed());
    EXPECT_EQ(file->Layers[1], (PavementLayer{1000, 0.35, 0, 0}));
    EXPECT_EQ(file->Loads[1], (SurfaceLoad{49, 15, 0, 0, 0, 0}));
    EXPECT_EQ(file->Points[1], (InterestPoint{1, 0, 0, 5}));
    EXPECT_EQ(file->ResultFileName, "Untitled.bre");
}

TEST_F(Form3Test, AnUntitledFileThatIsThereIsNotReplacedWithoutAQuestion) {
    Screens.TypeNewData();
    test::PutFile("Untitled.eva", "of somebody else");
    Form.Command5.UserClick();
    Screens.Desktop.Answers.push_back(Answer::No);
    Form.Command6.UserClick();
    EXPECT_EQ(Boxes(), (Texts{"OVERWRITE EXISTING FILE?", "CHANGE FILENAME!"}));
    EXPECT_EQ(test::GetFile("Untitled.eva"), "of somebody else");
}

TEST_F(Form3Test, AFileThatCannotBeWrittenEndsTheProgramAndStaysWhole) {
    Screens.ImportAndAnswer(Answer::Yes);
    Form.Command5.UserClick();
    std::filesystem::remove("Untitled.eva");
    std::filesystem::create_directory("Untitled.eva");
    test::PutFile("Untitled.eva/inside", "kept");
    Screens.Desktop.Forget();
    Screens.Desktop.Answers.push_back(Answer::Yes);  // a folder exists too
    Form.Command6.UserClick();
    EXPECT_EQ(Boxes().back(), "Run-time error '75':\n\nPath/File access error");
    EXPECT_EQ(Screens.Desktop.EndStatus, 1);
    EXPECT_EQ(test::GetFile("Untitled.eva/inside"), "kept");
}

// HELP --------------------------------------------------------------------------------------------------------------

TEST(Form3Help, OpensThePageOfTheLanguageBesideTheProgram) {
    for (const bool japanese : {true, false}) {
        AnalysisScreens screens(japanese ? JapaneseBase : EnglishBase);
        const char* page = japanese ? "ZIRVO1.html" : "ZIRVO2.html";
        screens.Program.Put(page, "<p>help</p>");
        screens.Data().Command8.UserClick();
        ASSERT_EQ(screens.Desktop.HelpCalls.size(), 1U);
        EXPECT_EQ(screens.Desktop.HelpCalls[0].Form, "Form3");
        EXPECT_EQ(screens.Desktop.HelpCalls[0].File, screens.Program.Path(page));
    }
}

}  // namespace
}  // namespace zirvo
