// Copying, pasting, undoing and the mark of a bad cell on the data screen of an analysis, by the user's keys.
#include <gtest/gtest.h>

#include "analysis/analysis_screens.h"

namespace zirvo::test {
namespace {

using forms::Press;
using forms::StrokeOfControl;
using forms::Type;
namespace key = forms::key;

struct EditedForm3 : testing::Test {
    AnalysisScreens screens;
    Form3& form = screens.Data();
    forms::MSFlexGrid& layers = form.MSFlexGrid1;
    forms::MSFlexGrid& points = form.MSFlexGrid3;
    forms::ScriptedDesktop& desktop = screens.Desktop;

    void Control(char letter) { form.Strike(StrokeOfControl(letter)); }
    void NewData(int layerCount, int pointCount = 0) {
        form.Option1.UserClick();
        form.VScroll1.UserRelease(layerCount);
        if (pointCount > 0) {
            form.VScroll3.UserRelease(pointCount);
        }
    }
    void PasteAt(forms::MSFlexGrid& grid, int row, int col, const std::string& text) {
        desktop.Clipboard = text;
        grid.UserClickCell(row, col);
        Control('V');
    }
    static std::string RowOf(const forms::MSFlexGrid& grid, int row) {
        std::string texts;
        for (int col = 1; col < grid.Cols; ++col) {
            texts += grid.TextMatrix(row, col) + ";";
        }
        return texts;
    }
};

TEST_F(EditedForm3, ABlockFillsTheTableAndRaisesItsCount) {
    NewData(1);
    PasteAt(layers, 1, 1, "5000\t0.35\t15\t0\r\n300\t0.35\t30\t0\r\n50\t0.4\r\n");
    EXPECT_EQ(form.Label7.Caption, " 3");
    EXPECT_EQ(form.VScroll1.Value, 3);
    EXPECT_EQ(RowOf(layers, 1), "5000;0.35;15;0;");
    EXPECT_EQ(RowOf(layers, 3), "50;0.4;;;");
    EXPECT_EQ(layers.TextMatrix(3, 0), "LAYER 3");
    EXPECT_EQ(desktop.Boxes.size(), 0U);
    EXPECT_EQ(forms::FocusOf(form), "MSFlexGrid1");
    Control('Z');
    EXPECT_EQ(form.Label7.Caption, " 1");
    EXPECT_EQ(RowOf(layers, 1), ";;;;");
    Control('Y');
    EXPECT_EQ(RowOf(layers, 2), "300;0.35;30;0;");
}

TEST_F(EditedForm3, ATextThatCannotBeTypedRefusesTheBlockAndNamesItsCellInEnglish) {
    NewData(1);
    PasteAt(layers, 1, 1, "5000\t0.35\n300\tabc");
    EXPECT_EQ(desktop.BoxTexts(), std::vector<std::string>{"Nothing was pasted.\n\nLAYER 2, POISSON RATIO:\n\"abc\" "
                                                           "holds characters that cannot be typed into a cell."});
    EXPECT_EQ(desktop.Boxes[0].Title, "ZIRVO Ver2.3");
    EXPECT_EQ(desktop.Boxes[0].Picture, forms::Icon::Exclamation);
    EXPECT_EQ(form.Label7.Caption, " 1");
    EXPECT_EQ(RowOf(layers, 1), ";;;;");
}

TEST(EditedForm3InJapanese, ATextThatCannotBeTypedRefusesTheBlockAndNamesItsCell) {
    AnalysisScreens screens(JapaneseBase);
    Form3& form = screens.Data();
    form.Option1.UserClick();
    form.VScroll1.UserRelease(1);
    form.MSFlexGrid1.UserFocus();
    screens.Desktop.Clipboard = "5000\tabc";
    form.Strike(StrokeOfControl('V'));
    ASSERT_EQ(screens.Desktop.Boxes.size(), 1U);
    EXPECT_EQ(screens.Desktop.Boxes[0].Text,
              "貼り付けませんでした。\n\n層 1, ﾎﾟｱｿﾝ比：\n「abc」はキーで入力できない文字を含みます。");
    EXPECT_EQ(screens.Desktop.Boxes[0].Words, forms::Language::Japanese);
}

TEST_F(EditedForm3, BlocksThatAreTooLargeAreRefusedWithTheReason) {
    NewData(2);
    PasteAt(layers, 1, 3, "1\t2\t3");
    std::string rows;
    for (int i = 0; i < 100; ++i) {
        rows += "1\n";
    }
    PasteAt(layers, 2, 1, rows);
    EXPECT_EQ(desktop.BoxTexts(),
              (std::vector<std::string>{
                  "Nothing was pasted.\n\nThe clipboard holds 3 columns; from this cell on the table has 2.",
                  "Nothing was pasted.\n\nThe table would need 101 rows; it can have 100."}));
    EXPECT_EQ(form.Label7.Caption, " 2");
}

TEST_F(EditedForm3, CopiesACellAndTheWholeTable) {
    NewData(1);
    PasteAt(layers, 1, 1, "5000\t0.35");
    layers.UserClickCell(1, 2);
    Control('C');
    EXPECT_EQ(desktop.Clipboard, "0.35");
    Control('A');
    EXPECT_TRUE(layers.AllSelected);
    Control('C');
    EXPECT_EQ(desktop.Clipboard, "\tMODULUS(MPa)\tPOISSON RATIO\tTHICKNESS(cm)\tSLIP RATE\nLAYER 1\t5000\t0.35\t\t");
}

TEST_F(EditedForm3, ATypedCellIsUndoneFromTheBoxOfTheNextOne) {
    NewData(2);
    layers.UserFocus();
    Type(form, "5\r");  // the box stands open over the next cell
    EXPECT_EQ(layers.TextMatrix(1, 1), "5");
    Control('Z');
    EXPECT_EQ(layers.TextMatrix(1, 1), "");
    EXPECT_EQ(layers.Col, 1);
    EXPECT_EQ(forms::FocusOf(form), "MSFlexGrid1");
    Control('Y');
    EXPECT_EQ(layers.TextMatrix(1, 1), "5");
    form.Command8.UserFocus();
    EXPECT_EQ(layers.TextMatrix(1, 2), "");
}

TEST_F(EditedForm3, WhatIsBeingTypedIsTakenBackFirst) {
    NewData(2);
    layers.UserFocus();
    Type(form, "5\r");
    Type(form, "0.3");
    Control('Z');
    EXPECT_EQ(form.Editor()->Box()->Text, "");
    EXPECT_TRUE(form.Editor()->Box()->Visible);
    EXPECT_EQ(layers.TextMatrix(1, 1), "5");
    Control('Z');
    EXPECT_EQ(layers.TextMatrix(1, 1), "");
}

TEST_F(EditedForm3, APasteIntoABoxTakesTheFirstLineAndABlockGoesIntoTheCells) {
    NewData(2);
    layers.UserFocus();
    Type(form, "5\r");
    desktop.Clipboard = "1\t2\n3\t4";
    Control('V');
    EXPECT_EQ(RowOf(layers, 1), "5;1;2;;");
    EXPECT_EQ(RowOf(layers, 2), ";3;4;;");
    layers.UserClickCell(1, 1);
    Type(form, "7");
    Control('V');  // what has been typed into is left to the box
    EXPECT_EQ(layers.TextMatrix(1, 1), "5");
    EXPECT_EQ(forms::FocusOf(form), form.Editor()->BoxName());
}

TEST_F(EditedForm3, ClearFormAndNewDataAreUndoneInOneStepWithTheirScreen) {
    screens.TypeNewData();
    form.Text7.UserFocus();
    Type(form, "my");
    form.Command8.UserFocus();
    const std::string layer = RowOf(layers, 1);
    const std::string name = form.Text7.Text;
    form.Command4.UserClick();             // CLEAR FORM
    EXPECT_EQ(form.Label7.Caption, " 0");  // as its bar writes it
    Control('Z');
    EXPECT_EQ(form.Label7.Caption, " 1");
    EXPECT_EQ(RowOf(layers, 1), layer);
    EXPECT_EQ(form.Text7.Text, name);
    EXPECT_TRUE(form.Option1.Value);
    EXPECT_TRUE(form.Command5.Enabled);
    EXPECT_TRUE(form.VScroll3.Enabled);
    EXPECT_EQ(layers.TextMatrix(0, 1), "MODULUS(MPa)");
    form.Option1.UserClick();  // NEW DATA once more
    EXPECT_EQ(form.Label9.Caption, "0");
    Control('Z');
    EXPECT_EQ(form.Label9.Caption, " 1");
    EXPECT_EQ(form.Text7.Text, name);
    EXPECT_EQ(desktop.Boxes.size(), 0U);
    form.Command5.UserClick();  // and the data are as good as before
    EXPECT_TRUE(form.Command6.Enabled);
}

TEST_F(EditedForm3, AnImportIsUndoneInOneStep) {
    screens.ImportAndAnswer(forms::Answer::Yes);
    const std::string caption = form.Label7.Caption;
    const std::string row = RowOf(layers, 1);
    EXPECT_NE(caption, "0");
    desktop.Forget();
    Control('Z');
    EXPECT_EQ(form.Label7.Caption, "0");
    EXPECT_EQ(form.Text7.Text, "");
    EXPECT_TRUE(form.Option1.Enabled);
    EXPECT_TRUE(form.Command1.Enabled);
    Control('Y');
    EXPECT_EQ(form.Label7.Caption, caption);
    EXPECT_EQ(RowOf(layers, 1), row);
    EXPECT_TRUE(form.Command5.Enabled);
    EXPECT_FALSE(form.Option1.Enabled);
    EXPECT_EQ(desktop.Boxes.size(), 0U);
}

TEST_F(EditedForm3, TheChoiceOfAnImportThatWasASlipIsUndone) {
    screens.TypeNewData();
    form.Option2.UserClick();
    EXPECT_EQ(form.Label7.Caption, "0");
    Control('Z');
    EXPECT_EQ(form.Label7.Caption, " 1");
    EXPECT_EQ(RowOf(layers, 1), "1000;0.35;;;");
    EXPECT_TRUE(form.Option1.Value);
    EXPECT_FALSE(form.Option2.Value);
    EXPECT_FALSE(form.Command1.Enabled);
}

TEST_F(EditedForm3, NothingIsUndoneWhereTheDataHaveBeenAccepted) {
    screens.TypeNewData();
    form.Command5.UserClick();
    EXPECT_TRUE(form.Command6.Enabled);
    Control('Z');
    Control('Y');
    EXPECT_EQ(RowOf(layers, 1), "1000;0.35;;;");
    EXPECT_EQ(form.Label9.Caption, " 1");
    form.Command4.UserClick();
    Control('Z');  // back to what had been accepted, which still cannot be changed
    EXPECT_TRUE(form.Command6.Enabled);
    EXPECT_FALSE(layers.Enabled);
    Control('Z');
    EXPECT_EQ(RowOf(layers, 1), "1000;0.35;;;");
}

TEST_F(EditedForm3, AFileNameKeepsItsOwnUndoing) {
    NewData(2);
    form.Text7.UserFocus();
    Control('Z');
    EXPECT_EQ(form.Label7.Caption, " 2");
    form.Command8.UserFocus();
    Control('Z');
    EXPECT_EQ(form.Label7.Caption, "0");
}

TEST_F(EditedForm3, AFailedRuleMarksItsFirstCellAndLeavesTheFocus) {
    NewData(1, 60);
    PasteAt(layers, 1, 1, "5000\t0.35");
    form.VScroll2.UserRelease(1);
    PasteAt(form.MSFlexGrid2, 1, 1, "49\t15\t0\t0\t0\t0");
    std::string rows;
    for (int i = 1; i <= 60; ++i) {
        rows += i == 55 ? "1\t0\t0\t-5\n" : "1\t0\t0\t5\n";
    }
    PasteAt(points, 1, 1, rows);
    bool markedBehindTheBox = false;
    desktop.OnBox = [&](const forms::Message&) { markedBehindTheBox = points.MarkedCell().Row == 55; };
    form.Command5.UserClick();
    EXPECT_TRUE(markedBehindTheBox);
    EXPECT_EQ(desktop.BoxTexts(), (std::vector<std::string>{screens.Words(61), screens.Words(57)}));
    EXPECT_EQ(points.MarkedCell().Row, 55);
    EXPECT_EQ(points.MarkedCell().Col, 4);
    EXPECT_TRUE(points.RowIsVisible(55));
    EXPECT_EQ(points.Row, 1);
    EXPECT_EQ(forms::FocusOf(form), "Command5");
    points.UserClickCell(55, 4);
    Type(form, "5\t");
    EXPECT_EQ(points.MarkedCell().Row, -1);
    form.Command5.UserClick();
    EXPECT_TRUE(form.Command6.Enabled);
}

TEST_F(EditedForm3, AFormGoesWithItsHistory) {
    NewData(3);
    form.Command3.UserClick();
    EXPECT_FALSE(screens.IsLoaded("Form3"));
    screens.App.Show("Form3");
    screens.Data().Command8.UserFocus();
    screens.Data().Strike(StrokeOfControl('Z'));
    EXPECT_EQ(screens.Data().Label7.Caption, "0");
    EXPECT_EQ(screens.Data().History().UndoSteps(), 0U);
}

}  // namespace
}  // namespace zirvo::test
