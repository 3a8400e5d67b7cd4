// DATA OK! on imported data: each rule with its messages, the faults of the strict layer number, and the grids in which
// the data is changed.
#include <gtest/gtest.h>

#include "analysis/analysis_screens.h"

namespace zirvo {
namespace {

using forms::Answer;
using forms::FocusOf;
using forms::Press;
using forms::Type;
using test::AnalysisScreens;
using Texts = std::vector<std::string>;
namespace key = forms::key;

class Form3Rules : public testing::Test {
protected:
    AnalysisScreens Screens;
    Form3& Form = Screens.Data();

    Texts Boxes() const { return Screens.Desktop.BoxHeads(); }
    Form3Rules() {
        Screens.ImportAndAnswer(Answer::Yes);
        Screens.Desktop.Forget();
    }
    void ExpectRefused(const char* message) {
        Form.Text7.UserFocus();
        Form.Command5.Press();
        EXPECT_EQ(Boxes(), (Texts{message, "ANALYSIS STOPPED - CHECK INPUT DATA"}));
        EXPECT_EQ(FocusOf(Form), "Text7");
        EXPECT_TRUE(Form.Command5.Enabled);
        EXPECT_FALSE(Form.Command6.Enabled);
        EXPECT_TRUE(Form.MSFlexGrid1.Enabled);
    }
    void ExpectFault(const char* text) {
        Form.Command5.UserClick();
        EXPECT_EQ(Boxes(), Texts{text});
        EXPECT_EQ(Screens.Desktop.EndStatus, 1);
    }
};

TEST_F(Form3Rules, NoCountsAreRefused) {
    Form.VScroll2.UserStepToMax();
    ExpectRefused("INITIAL SETTING ERROR!");
}

TEST_F(Form3Rules, AnEmptyNameIsRefused) {
    Form.Text8.Text = "";
    ExpectRefused("IN/OUTPUT FILE ERROR!");
}

// Each of the three would not come back from the file as it went in: the solver would take another file, behind
// ANALYZE.
TEST_F(Form3Rules, ANameThatDoesNotSurviveInAFileIsRefusedByTheRuleOfTheNames) {
    for (forms::TextBox* box : {&Form.Text7, &Form.Text8, &Form.Text1}) {
        const std::string before = box->Text;
        // The bytes of the first in code page 932 are C2 B5, which is UTF-8 for U+00B5.
        for (const char* const name : {"ﾂｵ", "a,b", "folder/a", "/a", " a", "\ta", "\"a\"", "a\nb"}) {
            box->Text = name;
            Form.Text7.UserFocus();
            Form.Command5.Press();
            EXPECT_EQ(Boxes(), (Texts{"IN/OUTPUT FILE ERROR!", "ANALYSIS STOPPED - CHECK INPUT DATA"})) << name;
            EXPECT_EQ(box->Text, name);
            EXPECT_FALSE(Form.Command6.Enabled);
            Screens.Desktop.Forget();
        }
        box->Text = before;
    }
    Form.Text8.Text = "ｱｽﾌｧﾙﾄ a\"b Straße 10％";
    Form.Text1.Text = "run ";  // the extension comes behind the blank
    Form.Command5.UserClick();
    EXPECT_TRUE(Boxes().empty());
    EXPECT_TRUE(Form.Command6.Enabled);
}

TEST_F(Form3Rules, ALayerOutsideItsLimitsIsRefused) {
    Form.MSFlexGrid1.SetTextMatrix(1, 2, "0.51");
    ExpectRefused("LAYER PROPERTIES ERROR!");
}

TEST_F(Form3Rules, ALoadWithAnEmptyCellIsRefused) {
    Form.MSFlexGrid2.SetTextMatrix(1, 6, "");
    ExpectRefused("LOAD ERROR!");
}

TEST_F(Form3Rules, APointAboveTheSurfaceIsRefused) {
    Form.MSFlexGrid3.SetTextMatrix(1, 4, "-1");
    ExpectRefused("MEASUREMENT POINT ERROR!");
}

TEST_F(Form3Rules, APointOutsideItsLayerIsRefused) {
    Form.MSFlexGrid3.SetTextMatrix(1, 4, "6");
    ExpectRefused("MEASUREMENT POINT ERROR!");
}

TEST_F(Form3Rules, TheFirstRuleThatFailsSpeaks) {
    Form.MSFlexGrid3.SetTextMatrix(1, 4, "-1");
    Form.MSFlexGrid1.SetTextMatrix(1, 1, "");
    ExpectRefused("LAYER PROPERTIES ERROR!");
}

TEST_F(Form3Rules, WhatStandsInTheLastLayersThicknessDoesNotMatter) {
    Form.MSFlexGrid1.SetTextMatrix(2, 3, "-5");
    Form.MSFlexGrid1.SetTextMatrix(2, 4, "abc");
    Form.Command5.UserClick();
    EXPECT_TRUE(Boxes().empty());
    EXPECT_TRUE(Form.Command6.Enabled);
}

TEST_F(Form3Rules, AnEmptyLayerNumberEndsTheProgram) {
    Form.MSFlexGrid3.SetTextMatrix(1, 1, "");
    ExpectFault("Run-time error '13':\n\nType mismatch");
    EXPECT_EQ(Screens.Desktop.BoxTexts().back(),
              "Run-time error '13':\n\nType mismatch\n\n"
              "The LAYER cell of point of interest 1 does not hold a number.\n\nThe program ends now.");
}

TEST_F(Form3Rules, ALayerNumberThatIsNoNumberAsAWholeEndsTheProgram) {
    Form.MSFlexGrid3.SetTextMatrix(1, 1, "1a");
    ExpectFault("Run-time error '13':\n\nType mismatch");
}

TEST_F(Form3Rules, ALayerNumberBeyondSixteenBitsIsARefusedRow) {
    Form.MSFlexGrid3.SetTextMatrix(1, 1, "40000");
    ExpectRefused("MEASUREMENT POINT ERROR!");
}

TEST_F(Form3Rules, AcceptedNamesAreNormalisedInTheirBoxes) {
    Form.Text7.Text = "run.txt";
    Form.Text8.Text = "run";
    Form.Text1.Text = "RUN.SAN";
    Form.Command5.UserClick();
    EXPECT_EQ(Form.Text7.Text, "run_txt.eva");
    EXPECT_EQ(Form.Text8.Text, "run.bre");
    EXPECT_EQ(Form.Text1.Text, "RUN_SAN.san");
}

TEST_F(Form3Rules, AcceptedDataSendsTheFocusToSaveDataFromAnywhere) {
    Form.Text7.UserFocus();
    Form.Command5.Press();
    EXPECT_EQ(FocusOf(Form), "Command6");
}

TEST_F(Form3Rules, RefusedDataLeavesTheNamesAsTheyAre) {
    Form.Text7.Text = "run.txt";
    Form.MSFlexGrid1.SetTextMatrix(1, 2, "0.51");
    Form.Command5.UserClick();
    EXPECT_EQ(Form.Text7.Text, "run.txt");
}

// A cell that is being edited goes in before the button acts.
TEST_F(Form3Rules, AClickOnDataOkCommitsTheOpenCellFirst) {
    Form.MSFlexGrid1.UserFocus();
    Type(Form, "0");
    Form.Command5.UserClick();
    EXPECT_EQ(Form.MSFlexGrid1.TextMatrix(1, 1), "0");
    EXPECT_EQ(Boxes().front(), "LAYER PROPERTIES ERROR!");
}

TEST_F(Form3Rules, TabsToDataOkAndSpaceCommitTheOpenCellFirst) {
    Form.MSFlexGrid3.UserFocus();
    Type(Form, "2");  // layer 2 begins at 5 cm, where the point lies
    while (FocusOf(Form) != "Command5") {
        Press(Form, key::Tab);
    }
    Type(Form, " ");
    EXPECT_EQ(Form.MSFlexGrid3.TextMatrix(1, 1), "2");
    EXPECT_TRUE(Form.Command6.Enabled);
}

// Grids -------------------------------------------------------------------------------------------------------------

TEST_F(Form3Rules, AGridShowsItsMarkingOnlyWithoutTheFocus) {
    for (forms::MSFlexGrid* grid : {&Form.MSFlexGrid1, &Form.MSFlexGrid2, &Form.MSFlexGrid3}) {
        EXPECT_EQ(grid->Highlight, forms::HighlightKind::Always);
        grid->UserFocus();
        EXPECT_EQ(grid->Highlight, forms::HighlightKind::Never);
        Form.Text7.UserFocus();
        EXPECT_EQ(grid->Highlight, forms::HighlightKind::Always);
    }
}

TEST_F(Form3Rules, EachGridIsEditedInPlaceWithOneBoxForAll) {
    for (forms::MSFlexGrid* grid : {&Form.MSFlexGrid1, &Form.MSFlexGrid2, &Form.MSFlexGrid3}) {
        grid->UserFocus();
        Type(Form, "7\r");
        EXPECT_EQ(grid->TextMatrix(1, 1), "7");
        EXPECT_EQ(FocusOf(Form), "tbFgEdit1");
        EXPECT_EQ(Form.Editor()->Box()->Container(), grid->Container());
        EXPECT_EQ(Form.Controls.Find("tbFgEdit11"), nullptr);
    }
}

TEST_F(Form3Rules, PreviousInTheMiddleOfAnEditUnloadsTheScreen) {
    Form.MSFlexGrid1.UserFocus();
    Type(Form, "7");
    Form.Command3.UserClick();
    EXPECT_FALSE(Screens.IsLoaded("Form3"));
    EXPECT_EQ(Screens.Desktop.EndStatus, std::nullopt);
}

}  // namespace
}  // namespace zirvo
