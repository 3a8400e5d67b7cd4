// The tables of the graphics path's data screen as the user of a spreadsheet takes them: pasting, counts, undoing, and
// the mark of a bad cell. The example has two layers and one load.
#include <gtest/gtest.h>

#include "graphics/screens.h"
#include "pavement/graphics_example.h"

namespace zirvo::test {
namespace {

using forms::Press;
using forms::StrokeOfControl;
using forms::Type;
namespace key = forms::key;
using Texts = std::vector<std::string>;

struct Form5Tables : testing::Test {
    Screens screens;
    Form5& form = Shown(screens);
    forms::MSFlexGrid& layers = form.MSFlexGrid1;
    forms::MSFlexGrid& loads = form.MSFlexGrid2;

    static Form5& Shown(Screens& screens) {
        screens.ShowData();
        return screens.Data();
    }
    void Control(char letter) { form.Strike(StrokeOfControl(letter)); }
    void PasteAt(forms::MSFlexGrid& grid, int row, int col, const std::string& text) {
        screens.Desktop.Clipboard = text;
        grid.UserClickCell(row, col);
        Control('V');
    }
    /// All that stands in both tables, and the counts.
    std::string Seen() const {
        std::string seen = form.Label4.Caption.Get() + "," + form.Label5.Caption.Get();
        for (const forms::MSFlexGrid* grid : {&layers, &loads}) {
            for (int row = 1; row < grid->Rows; ++row) {
                seen += "\n";
                for (int col = 0; col < grid->Cols; ++col) {
                    seen += grid->TextMatrix(row, col) + ";";
                }
            }
        }
        return seen;
    }
};

TEST_F(Form5Tables, BlocksRaiseTheirCountsUpToTheMapAndAreUndone) {
    form.Option1.UserClick();
    form.VScroll1.UserRelease(1);
    form.VScroll2.UserRelease(1);
    const std::string empty = Seen();
    PasteAt(layers, 1, 1, "35000\t0.35\t5\t0\r\n1000\t0.4\r\n");
    PasteAt(loads, 1, 1, "5000\t15\t0\t0\t0\t0\n");
    EXPECT_EQ(form.Label4.Caption, " 2");
    EXPECT_EQ(form.VScroll1.Value, 2);
    EXPECT_EQ(layers.TextMatrix(2, 0), "LAYER 2");
    const std::string pasted = Seen();
    Control('Z');
    Control('Z');
    EXPECT_EQ(Seen(), empty);
    Control('Y');
    Control('Y');
    EXPECT_EQ(Seen(), pasted);
    screens.GoToMap();
    EXPECT_EQ(GetFile("Untitled.ven"), ExampleVen());
    EXPECT_EQ(screens.Desktop.Log.back(), "show Form6");
    EXPECT_EQ(screens.Boxes(), Texts{});
}

TEST_F(Form5Tables, ATableComesBackWithItsHeadingsAsItWasCopied) {
    screens.EnterExample();
    const std::string before = Seen();
    layers.UserFocus();
    Control('A');
    Control('C');
    EXPECT_EQ(screens.Desktop.Clipboard,
              "\tMODULUS(kgf/cm2)\tPOISSON RATIO\tTHICKNESS(cm)\tSLIP RATE\nLAYER 1\t35000\t0.35\t5\t0\nLAYER "
              "2\t1000\t0.4\t0\t0");
    form.VScroll1.UserRelease(0);
    layers.UserFocus();
    Control('V');
    EXPECT_EQ(Seen(), before);
    PasteAt(layers, 2, 3, screens.Desktop.Clipboard);  // its rows once more, from the second on
    EXPECT_EQ(form.Label4.Caption, " 3");
    EXPECT_EQ(layers.TextMatrix(3, 1), "1000");
    EXPECT_EQ(screens.Boxes(), Texts{});
}

TEST_F(Form5Tables, HeadingsOfOtherUnitsAreRefused) {
    screens.EnterExample();
    const std::string before = Seen();
    PasteAt(layers, 1, 1, "MODULUS(MPa)\tPOISSON RATIO\n5000\t0.35\n");
    EXPECT_EQ(screens.Boxes(), Texts{"ZIRVO Ver2.3|Nothing was pasted.\n\nLAYER 1, MODULUS(kgf/cm2):\n\"MODULUS(MPa)\" "
                                     "holds characters that cannot be typed into a cell."});
    EXPECT_EQ(Seen(), before);
}

TEST(Form5TablesInJapanese, ATableComesBackWithItsHeadings) {
    Screens screens({.Base = JapaneseBase, .Units = 3});
    screens.ShowData();
    Form5& form = screens.Data();
    screens.EnterExample();
    form.MSFlexGrid2.UserFocus();
    form.Strike(StrokeOfControl('A'));
    form.Strike(StrokeOfControl('C'));
    form.VScroll2.UserRelease(0);
    form.MSFlexGrid2.UserFocus();
    form.Strike(StrokeOfControl('V'));
    EXPECT_EQ(form.Label5.Caption, " 1");
    EXPECT_EQ(form.MSFlexGrid2.TextMatrix(1, 2), "15");
    EXPECT_EQ(screens.Boxes(), Texts{});
}

TEST_F(Form5Tables, BlocksThatAreTooLargeAreRefusedWithTheReason) {
    screens.EnterExample();
    const std::string before = Seen();
    PasteAt(loads, 1, 5, "1\t2\t3");
    std::string rows;
    for (int i = 0; i < 100; ++i) {
        rows += "1\n";
    }
    PasteAt(loads, 2, 1, rows);  // there is no second row: from the first on
    EXPECT_EQ(form.Label5.Caption, " 100");
    Control('Z');
    PasteAt(loads, 1, 1, rows + "1\n");
    EXPECT_EQ(screens.Boxes(),
              (Texts{"ZIRVO Ver2.3|Nothing was pasted.\n\nThe clipboard holds 3 columns; from this cell on the table "
                     "has 2.",
                     "ZIRVO Ver2.3|Nothing was pasted.\n\nThe table would need 101 rows; it can have 100."}));
    EXPECT_EQ(Seen(), before);
}

TEST_F(Form5Tables, ACountByDigitsIsOneStepAndCutOffRowsComeBack) {
    screens.EnterExample();
    const std::string before = Seen();
    form.VScroll1.UserFocus();
    Type(form, "12\r");
    EXPECT_EQ(form.Label4.Caption, " 12");
    EXPECT_EQ(layers.Rows, 13);
    Type(form, "1\r");
    EXPECT_EQ(form.Label4.Caption, " 1");
    Control('Z');
    EXPECT_EQ(form.Label4.Caption, " 12");
    EXPECT_EQ(layers.TextMatrix(2, 1), "1000");
    Control('Z');
    EXPECT_EQ(Seen(), before);
    Type(form, "101\r");  // one more than there may be
    EXPECT_EQ(Seen(), before);
}

TEST_F(Form5Tables, TypedCellsAreTakenBackOneByOne) {
    screens.EnterExample();
    const std::string before = Seen();
    loads.UserClickCell(1, 1);
    Type(form, "7000\t");
    loads.UserClickCell(1, 2);
    Type(form, "20\t");
    form.Command8.UserFocus();
    EXPECT_EQ(loads.TextMatrix(1, 2), "20");
    Control('Z');
    EXPECT_EQ(loads.TextMatrix(1, 2), "15");
    EXPECT_EQ(loads.TextMatrix(1, 1), "7000");
    Control('Z');
    EXPECT_EQ(Seen(), before);
}

TEST_F(Form5Tables, ClearFormNewDataAndAnImportAreOneStepEach) {
    screens.EnterExample();
    form.Text3.UserEdited("road", 4, 0);
    const std::string before = Seen();
    form.Command4.UserClick();  // CLEAR FORM
    EXPECT_EQ(form.Text3.Text, "");
    Control('Z');
    EXPECT_EQ(Seen(), before);
    EXPECT_EQ(form.Text3.Text, "road");
    EXPECT_TRUE(form.Option1.Value && form.Command5.Enabled && form.VScroll2.Enabled);
    form.Option1.UserClick();
    EXPECT_EQ(form.Label4.Caption, "0");
    Control('Z');
    EXPECT_EQ(Seen(), before);
    PutFile("other.ven", ExampleVen());
    screens.Desktop.Paths.emplace_back(screens.Folder.Path("other.ven"));
    screens.Desktop.Answers.push_back(forms::Answer::Yes);
    form.Option2.UserClick();
    form.Command1.UserClick();
    EXPECT_EQ(form.Text3.Text, "other.ven");
    form.Command8.UserFocus();
    Control('Z');
    EXPECT_EQ(form.Label4.Caption, "0");
    EXPECT_TRUE(form.Command1.Enabled && form.Option2.Value);
    Control('Z');
    EXPECT_EQ(Seen(), before);
    EXPECT_EQ(form.Text3.Text, "road");
    Control('Y');
    Control('Y');
    EXPECT_EQ(form.Text3.Text, "other.ven");
    EXPECT_FALSE(form.Option1.Enabled);
}

TEST_F(Form5Tables, NothingIsUndoneBehindDataOk) {
    screens.EnterExample();
    const std::string before = Seen();
    form.Command5.UserClick();
    EXPECT_TRUE(form.Command6.Enabled);
    Control('Z');
    EXPECT_EQ(Seen(), before);
}

TEST_F(Form5Tables, AFailedRuleMarksItsFirstCell) {
    screens.EnterExample();
    loads.UserClickCell(1, 2);
    Type(form, "-15\t");
    form.Command5.UserClick();
    EXPECT_EQ(loads.MarkedCell().Row, 1);
    EXPECT_EQ(loads.MarkedCell().Col, 2);
    EXPECT_EQ(screens.Boxes().size(), 2U);
    form.Command8.UserFocus();
    Control('Z');
    EXPECT_EQ(loads.TextMatrix(1, 2), "15");
    form.Command5.UserClick();
    EXPECT_TRUE(form.Command6.Enabled);
}

}  // namespace
}  // namespace zirvo::test
