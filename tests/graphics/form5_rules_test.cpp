// DATA OK! of the graphics path: its rules in their order, and the name that it makes.
#include <gtest/gtest.h>

#include "graphics/screens.h"

namespace zirvo {
namespace {

using forms::Icon;
using test::EnabledOf;
using test::English;
using test::Screens;
using Texts = std::vector<std::string>;

struct SpoiltData {
    const char* What;
    std::function<void(Form5&)> Spoil;
    Int16 Message;  ///< 0: the data pass
};

TEST(Form5, DataOkAppliesItsRulesInTheirOrder) {
    const auto cell = [](int grid, int row, int col, const char* text) {
        return [=](Form5& form) { (grid == 1 ? form.MSFlexGrid1 : form.MSFlexGrid2).SetTextMatrix(row, col, text); };
    };
    const std::vector<SpoiltData> rows{
        {"as it is", [](Form5&) {}, 0},
        {"no layers", [](Form5& f) { f.VScroll1.Value = 0; }, 58},
        {"no loads", [](Form5& f) { f.VScroll2.Value = 0; }, 58},
        {"an empty caption", [](Form5& f) { f.Label4.Caption = ""; }, 58},
        {"no name", [](Form5& f) { f.Text3.Text = ""; }, 63},
        {"no name and no modulus",
         [](Form5& f) {
             f.Text3.Text = "";
             f.MSFlexGrid1.SetTextMatrix(1, 1, "");
         },
         63},
        {"an empty modulus", cell(1, 1, 1, ""), 59},
        {"a modulus of 0", cell(1, 1, 1, "0"), 59},
        {"a blank modulus is 0", cell(1, 1, 1, " "), 59},
        {"words for a modulus", cell(1, 1, 1, "stiff"), 59},
        {"an empty Poisson ratio", cell(1, 1, 2, ""), 59},
        {"a Poisson ratio of 0", cell(1, 1, 2, "0"), 59},
        {"a Poisson ratio of 0.5", cell(1, 1, 2, "0.5"), 0},
        {"a Poisson ratio of 0.51", cell(1, 1, 2, "0.51"), 59},
        {"an empty thickness", cell(1, 1, 3, ""), 59},
        {"a thickness of 0", cell(1, 1, 3, "0"), 59},
        {"an empty slip rate", cell(1, 1, 4, ""), 59},
        {"a slip rate of 0.99", cell(1, 1, 4, "0.99"), 0},
        {"a slip rate of 0.991", cell(1, 1, 4, "0.991"), 59},
        {"a slip rate below 0", cell(1, 1, 4, "-0.1"), 59},
        {"a number with an exponent", cell(1, 1, 1, "35E3"), 0},
        {"the last layer without thickness and slip rate",
         [](Form5& f) {
             f.MSFlexGrid1.SetTextMatrix(2, 3, "");
             f.MSFlexGrid1.SetTextMatrix(2, 4, "words");
         },
         0},
        {"the last layer's modulus", cell(1, 2, 1, ""), 59},
        {"the last layer's Poisson ratio", cell(1, 2, 2, "0.6"), 59},
        {"an empty load", cell(2, 1, 1, ""), 60},
        {"no load either way", cell(2, 1, 1, "0"), 60},
        {"a horizontal load alone",
         [](Form5& f) {
             f.MSFlexGrid2.SetTextMatrix(1, 1, "0");
             f.MSFlexGrid2.SetTextMatrix(1, 5, "10");
         },
         0},
        {"a radius of 0", cell(2, 1, 2, "0"), 60},
        {"an empty X", cell(2, 1, 3, ""), 60},
        {"an empty Y", cell(2, 1, 4, ""), 60},
        {"an empty horizontal load", cell(2, 1, 5, ""), 60},
        {"an empty angle", cell(2, 1, 6, ""), 60},
        {"a layer and a load",
         [](Form5& f) {
             f.MSFlexGrid1.SetTextMatrix(2, 1, "-1");
             f.MSFlexGrid2.SetTextMatrix(1, 2, "-1");
         },
         59},
    };
    for (const SpoiltData& row : rows) {
        Screens screens;
        screens.ShowData();
        Form5& form = screens.Data();
        screens.EnterExample();
        screens.App.Dispatch([&] {
            row.Spoil(form);
            form.Command6.Enabled = true;  // to see who disables it
        });
        form.Command5.UserClick();
        if (row.Message == 0) {
            EXPECT_EQ(screens.Boxes(), Texts{}) << row.What;
            EXPECT_EQ(EnabledOf(form), "Command4 Command6") << row.What;
            continue;
        }
        EXPECT_EQ(screens.Boxes(),
                  (Texts{"ZIRVO Ver2.3|" + English(row.Message), "ZIRVO Ver2.3|ANALYSIS STOPPED - CHECK INPUT DATA"}))
            << row.What;
        EXPECT_EQ(screens.Desktop.Boxes[0].Picture, Icon::Exclamation);
        EXPECT_EQ(screens.Desktop.Boxes[1].Picture, Icon::Stop);
        EXPECT_TRUE(form.Command5.Enabled) << row.What;
        EXPECT_EQ(form.Command6.Enabled, row.Message == 59 || row.Message == 60) << row.What;
        EXPECT_TRUE(form.Text3.Enabled && form.VScroll1.Enabled && form.MSFlexGrid1.Enabled) << row.What;
        EXPECT_EQ(form.MSFlexGrid2.TextMatrix(form.MSFlexGrid2.Rows - 1, 0).substr(0, 4),
                  form.MSFlexGrid2.Rows > 1 ? "LOAD" : "");
    }
}

TEST(Form5, DataOkMakesAProperNameOfTheTypedOne) {
    for (const auto& [typed, name] : std::vector<std::pair<std::string, std::string>>{{"x", "x.ven"},
                                                                                      {"data.ven", "data.ven"},
                                                                                      {"data.txt", "data_txt.ven"},
                                                                                      {"a.b.ven", "a_b_ven.ven"},
                                                                                      {"DATA.VEN", "DATA_VEN.ven"}}) {
        Screens screens;
        screens.ShowData();
        screens.EnterExample();
        screens.App.Dispatch([&, text = typed] { screens.Data().Text3.Text = text; });
        screens.Data().Command5.UserClick();
        EXPECT_EQ(screens.Data().Text3.Text.Get(), name);
    }
}

}  // namespace
}  // namespace zirvo
