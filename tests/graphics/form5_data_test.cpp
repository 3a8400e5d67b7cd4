// What the data screen of the graphics path shows: words, headings, counts and their rows.
#include <gtest/gtest.h>

#include "graphics/screens.h"

namespace zirvo {
namespace {

using test::Screens;
using Texts = std::vector<std::string>;

TEST(Form5, LoadSetsWordsInBothLanguages) {
    for (const Int16 base : {JapaneseBase, EnglishBase}) {
        Screens screens({.Base = base});
        screens.ShowData();
        Form5& form = screens.Data();
        const auto words = [base](Int16 k) { return std::string(GetMessage(base, k)); };
        EXPECT_EQ(form.Caption.Get(), "- ZIRVO Ver2.3 -");
        EXPECT_FALSE(form.HasCloseEntry);
        EXPECT_EQ(form.Label1.Caption.Get(), words(162));
        EXPECT_EQ(form.Frame1.Caption.Get(), words(15));
        EXPECT_EQ(form.Option1.Caption.Get(), words(16));
        EXPECT_EQ(form.Option2.Caption.Get(), words(17));
        EXPECT_EQ(form.Command1.Caption.Get(), words(18));
        EXPECT_EQ(form.Frame2.Caption.Get(), words(19));
        EXPECT_EQ(form.Label2.Caption.Get(), words(20));
        EXPECT_EQ(form.Label3.Caption.Get(), words(21));
        EXPECT_EQ(form.Frame3.Caption.Get(), words(23));
        EXPECT_EQ(form.Frame4.Caption.Get(), words(24));
        EXPECT_EQ(form.Frame5.Caption.Get(), words(27));
        EXPECT_EQ(form.Command3.Caption.Get(), words(30));
        EXPECT_EQ(form.Command4.Caption.Get(), words(31));
        EXPECT_EQ(form.Command5.Caption.Get(), words(32));
        EXPECT_EQ(form.Command6.Caption.Get(), words(33));
        EXPECT_EQ(form.Command7.Caption.Get(), words(80));
        EXPECT_EQ(form.Command8.Caption.Get(), words(35));
        EXPECT_EQ(form.Command9.Caption.Get(), words(36));
        EXPECT_EQ(form.Text3.Text.Get(), "");
        EXPECT_EQ(form.MSFlexGrid1.Rows, 1);
        EXPECT_EQ(form.MSFlexGrid2.Rows, 1);
        EXPECT_EQ(form.MSFlexGrid1.Cols, 5);
        EXPECT_EQ(form.MSFlexGrid2.Cols, 7);
    }
}

Texts HeadingsOf(const forms::MSFlexGrid& grid) {
    Texts headings;
    for (int col = 1; col < grid.Cols; ++col) {
        headings.push_back(grid.TextMatrix(0, col));
    }
    return headings;
}

TEST(Form5, TheHeadingsFollowTheUnitsAndBothOptionsSetThem) {
    for (const int units : {0, 1, 2, 3}) {
        for (const bool import : {false, true}) {
            Screens screens({.Units = units});
            screens.ShowData();
            Form5& form = screens.Data();
            EXPECT_EQ(HeadingsOf(form.MSFlexGrid1), (Texts{"", "", "", ""}));
            (import ? form.Option2 : form.Option1).UserClick();
            const std::string modulus = units == 0 ? "" : units == 3 ? "MODULUS(MPa)" : "MODULUS(kgf/cm2)";
            const std::string vertical = units == 0 ? "" : units == 3 ? "VERT. LOAD(kN)" : "VERT. LOAD(kgf)";
            const std::string horizontal = units == 0 ? "" : units == 3 ? "HORIZ. LOAD(kN)" : "HORIZ. LOAD(kgf)";
            EXPECT_EQ(HeadingsOf(form.MSFlexGrid1), (Texts{modulus, "POISSON RATIO", "THICKNESS(cm)", "SLIP RATE"}));
            EXPECT_EQ(HeadingsOf(form.MSFlexGrid2), (Texts{vertical, "RADIUS(cm)", "X-AXIS(cm)", "Y-AXIS(cm)",
                                                           horizontal, "ANGLE FROM X-AXIS(deg)"}));
            // 105 twips a character and as much for the margin.
            EXPECT_EQ(form.MSFlexGrid1.ColWidth(2), 105 * 13 + 105);
            EXPECT_EQ(form.MSFlexGrid2.ColWidth(6), 105 * 22 + 105);
            form.Command4.UserClick();
            EXPECT_EQ(HeadingsOf(form.MSFlexGrid1), (Texts{"", "", "", ""}));
            EXPECT_EQ(HeadingsOf(form.MSFlexGrid2), (Texts{"", "", "", "", "", ""}));
            EXPECT_EQ(form.Text3.Text.Get(), "") << "the name has gone with them";
        }
    }
}

TEST(Form5, NewDataMovesToTheFolderOfTheUser) {
    Screens screens;
    screens.ShowData();
    const TemporaryFolder elsewhere;
    screens.Data().Option1.UserClick();
    ChangeFolder(elsewhere.Path());
    screens.Data().Option2.UserClick();
    EXPECT_EQ(screens.Data().Text3.Text.Get(), "") << "the import brings its own name";
    EXPECT_EQ(CurrentFolder(), elsewhere.Path()) << "the import leaves that to its dialog";
    screens.Data().Option1.UserClick();
    EXPECT_EQ(CurrentFolder(), screens.Folder.Path());
    EXPECT_EQ(screens.Data().Text3.Text.Get(), "Untitled.ven");
    // A folder that is gone ends the program.
    screens.App.Dispatch([&] { screens.Settings().Label2.Caption = elsewhere.Path("gone"); });
    screens.Data().Option1.UserClick();
    EXPECT_EQ(screens.Desktop.BoxHeads(), Texts{"Run-time error '76':\n\nPath not found"});
}

TEST(Form5, ABarCountsWithinItsEndsAndASecondNewDataLeavesItWhereItStands) {
    Screens screens;
    screens.ShowData();
    Form5& form = screens.Data();
    form.Option1.UserClick();
    form.VScroll1.UserStepToMax();
    EXPECT_EQ(form.Label4.Caption.Get(), "0") << "there is nothing below 0";
    for (int i = 0; i < 3; ++i) {
        form.VScroll1.UserStepToMin();
    }
    EXPECT_EQ(form.Label4.Caption.Get(), " 3");
    EXPECT_EQ(form.MSFlexGrid1.Rows, 4);
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(3, 0), "LAYER 3");
    form.Option1.UserClick();
    EXPECT_EQ(form.Label4.Caption.Get(), "0");
    EXPECT_EQ(form.VScroll1.Value, 3);
    EXPECT_EQ(form.MSFlexGrid1.Rows, 1);
    form.VScroll1.UserStepToMin();
    EXPECT_EQ(form.Label4.Caption.Get(), " 4");
    form.VScroll2.UserRelease(100);
    form.VScroll2.UserStepToMin();
    EXPECT_EQ(form.Label5.Caption.Get(), " 100");
    EXPECT_EQ(form.MSFlexGrid2.TextMatrix(100, 0), "LOAD 100");
}

TEST(Form5, LoweringACountDropsTheLastRowsAndRaisingItBringsEmptyOnes) {
    Screens screens;
    screens.ShowData();
    Form5& form = screens.Data();
    screens.EnterExample();
    form.VScroll1.UserStepToMax();
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(1, 1), "35000");
    form.VScroll1.UserStepToMin();
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(2, 1), "");
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(2, 0), "LAYER 2");
}

}  // namespace
}  // namespace zirvo
