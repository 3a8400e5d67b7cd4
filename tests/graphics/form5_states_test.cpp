// The data screen of the graphics path: what is enabled in each of its states, what leads from one to the next, the
// rules of DATA OK!.
#include <gtest/gtest.h>

#include "graphics/screens.h"
#include "pavement/graphics_example.h"

namespace zirvo {
namespace {

using forms::Answer;
using forms::Icon;
using test::English;
using test::PutFile;
using test::Screens;
using Texts = std::vector<std::string>;

/// Names of all enabled controls that a user can act on; PREVIOUS, HELP and QUIT are never disabled and left out.
std::string EnabledOf(const Form5& form) {
    return test::NamesOf(form, [](const forms::Control& control) {
        const std::string& name = control.Name();
        return control.TakesFocus() && control.Enabled && name != "Command3" && name != "Command8" &&
               name != "Command9" && !name.starts_with("tbFgEdit");
    });
}

/// A choice of the example's file, which lies in the user's folder.
void Import(Screens& screens, Answer update, const std::string& bytes = test::ExampleVen()) {
    PutFile("example.ven", bytes);
    screens.Desktop.Paths = {screens.Folder.Path("example.ven")};
    screens.Desktop.Answers = {update};
    screens.Data().Option2.UserClick();
    screens.Data().Command1.UserClick();
    screens.Desktop.Answers.clear();
}

struct State {
    const char* Name;
    std::function<void(Screens&)> Reach;
    const char* Enabled;
    const char* Focus;
    const char* Counts;  ///< captions of Label4 and Label5
};

void PrintTo(const State& state, std::ostream* out) {
    *out << state.Name;
}

constexpr const char* IdleEnabled = "Option1 Option2";

const std::array States{
    State{"Idle", [](Screens&) {}, IdleEnabled, "Option1", "0|0"},
    State{"New", [](Screens& s) { s.Data().Option1.UserClick(); },
          "Option1 Option2 VScroll1 VScroll2 Text3 Command4 Command5", "Option1", "0|0"},
    State{"NewWithLayers",
          [](Screens& s) {
              s.Data().Option1.UserClick();
              s.Data().VScroll1.UserStepToMin();
              s.Data().VScroll1.UserStepToMin();
          },
          "Option1 Option2 VScroll1 VScroll2 MSFlexGrid1 Text3 Command4 Command5", "VScroll1", " 2|0"},
    State{"NewFilled", [](Screens& s) { s.EnterExample(); },
          "Option1 Option2 VScroll1 VScroll2 MSFlexGrid1 MSFlexGrid2 Text3 Command4 Command5", "Option1", " 2| 1"},
    State{"ImportPending", [](Screens& s) { s.Data().Option2.UserClick(); }, "Option1 Option2 Command1 Command4",
          "Command1", "0|0"},
    State{"ImportedViewOnly", [](Screens& s) { Import(s, Answer::No); }, "Command4 Command7", "Command7", " 2| 1"},
    State{"ImportedUpdate", [](Screens& s) { Import(s, Answer::Yes); },
          "VScroll1 VScroll2 MSFlexGrid1 MSFlexGrid2 Text3 Command4 Command5", "Command5", " 2| 1"},
    State{"Checked",
          [](Screens& s) {
              s.EnterExample();
              s.Data().Command5.UserClick();
          },
          "Command4 Command6", "Command6", " 2| 1"},
    State{"Saved",
          [](Screens& s) {
              s.EnterExample();
              s.Data().Command5.UserClick();
              s.Data().Command6.UserClick();
          },
          "Command4 Command7", "Command7", " 2| 1"},
    State{"NotOverwritten",
          [](Screens& s) {
              s.EnterExample();
              PutFile("Untitled.ven", "mine");
              s.Data().Command5.UserClick();
              s.Desktop.Answers = {Answer::No};
              s.Data().Command6.UserClick();
          },
          // Boxes, bars and grids stay disabled: only DATA OK! leads to the same question again.
          "Command4 Command5", "Command5", " 2| 1"},
    State{"ClearedFromNew",
          [](Screens& s) {
              s.Data().Option1.UserClick();
              s.Data().Command4.UserClick();
          },
          IdleEnabled, "Command8", "0|0"},
    State{"ClearedFromFilled",
          [](Screens& s) {
              s.EnterExample();
              s.Data().Command4.UserClick();
          },
          // The counts have enabled the grids, which have no rows; the bars that were not 0 wrote their count again.
          "Option1 Option2 MSFlexGrid1 MSFlexGrid2", "Command8", " 0| 0"},
    State{"ClearedFromSaved",
          [](Screens& s) {
              s.EnterExample();
              s.GoToMap();
              s.Desktop.Answers = {Answer::No};
              s.Map().Command2.UserClick();
              s.Data().Command4.UserClick();
          },
          "Option1 Option2 MSFlexGrid1 MSFlexGrid2", "Command8", " 0| 0"},
    State{"NewAfterClear",
          [](Screens& s) {
              s.EnterExample();
              s.Data().Command4.UserClick();
              s.Data().Option1.UserClick();
          },
          // "0" where " 0" stood is a change, so the grids are enabled before any count has changed.
          "Option1 Option2 VScroll1 VScroll2 MSFlexGrid1 MSFlexGrid2 Text3 Command4 Command5", "Option1", "0|0"},
    State{"NewAfterImportPending",
          [](Screens& s) {
              s.Data().Option2.UserClick();
              s.Data().Option1.UserClick();
          },
          // "0" over "0" is no change, so the grids stay as the import has left them.
          "Option1 Option2 VScroll1 VScroll2 Text3 Command4 Command5", "Option1", "0|0"},
    State{"NewTwice",
          [](Screens& s) {
              s.EnterExample();
              s.Data().Option1.UserClick();
          },
          "Option1 Option2 VScroll1 VScroll2 MSFlexGrid1 MSFlexGrid2 Text3 Command4 Command5", "Option1", "0|0"},
    State{"ImportAfterNew",
          [](Screens& s) {
              s.EnterExample();
              s.Data().Option2.UserClick();
          },
          "Option1 Option2 Command1 Command4", "Command1", "0|0"},
    State{"BackWithUpdate",
          [](Screens& s) {
              s.EnterExample();
              s.GoToMap();
              s.Desktop.Answers = {Answer::Yes};
              s.Map().Command2.UserClick();
          },
          "VScroll1 VScroll2 MSFlexGrid1 MSFlexGrid2 Text3 Command4 Command5", "Command8", " 2| 1"},
    State{"BackAsItWas",
          [](Screens& s) {
              s.EnterExample();
              s.GoToMap();
              s.Desktop.Answers = {Answer::No};
              s.Map().Command2.UserClick();
          },
          "Command4 Command7", "Command7", " 2| 1"},
    State{"BackViewOnly",
          [](Screens& s) {
              Import(s, Answer::No);
              s.Data().Command7.UserClick();
              s.Desktop.Answers = {Answer::No};
              s.Map().Command2.UserClick();
          },
          "Command4 Command7", "Command7", " 2| 1"},
};

class Form5State : public testing::TestWithParam<State> {};

TEST_P(Form5State, EnablesAndFocusesWhatItsRowSays) {
    const State& state = GetParam();
    Screens screens;
    screens.ShowData();
    Form5& form = screens.Data();
    state.Reach(screens);
    EXPECT_EQ(EnabledOf(form), state.Enabled);
    EXPECT_EQ(forms::FocusOf(form), state.Focus);
    EXPECT_EQ(form.Label4.Caption.Get() + "|" + form.Label5.Caption.Get(), state.Counts);
    EXPECT_TRUE(form.Command3.Enabled && form.Command8.Enabled && form.Command9.Enabled);
}

INSTANTIATE_TEST_SUITE_P(Form5, Form5State, testing::ValuesIn(States),
                         [](const testing::TestParamInfo<State>& row) { return row.param.Name; });

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

struct Refusal {
    const char* What;
    std::function<void(Form5&)> Spoil;
    Int16 Message;  ///< 0: the data pass
};

TEST(Form5, DataOkAppliesItsRulesInTheirOrder) {
    const auto cell = [](int grid, int row, int col, const char* text) {
        return [=](Form5& form) { (grid == 1 ? form.MSFlexGrid1 : form.MSFlexGrid2).SetTextMatrix(row, col, text); };
    };
    const std::vector<Refusal> rows{
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
    for (const Refusal& row : rows) {
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

// With the keys of a user: from the options over bars and grids to the map, no mouse.
TEST(Form5, ThePavementCanBeTypedInByKeyboardAlone) {
    Screens screens;
    screens.ShowData();
    Form5& form = screens.Data();
    ASSERT_EQ(forms::FocusOf(form), "Option1");
    forms::Type(form, " ");
    forms::Type(form, "\t");  // VScroll1
    ASSERT_EQ(forms::FocusOf(form), "VScroll1");
    forms::Press(form, forms::key::Up);
    forms::Press(form, forms::key::Up);
    forms::Type(form, "\t");
    ASSERT_EQ(forms::FocusOf(form), "VScroll2");
    forms::Press(form, forms::key::Up);
    forms::Type(form, "\t");
    ASSERT_EQ(forms::FocusOf(form), "MSFlexGrid1");
    forms::Type(form, "35000\r0.35\r5\r0\r1000\r0.4\r");
    forms::Type(form, "\t");
    ASSERT_EQ(forms::FocusOf(form), "MSFlexGrid2");
    forms::Type(form, "5000\r15\r0\r0\r0\r0\r");
    forms::Type(form, "\t");
    ASSERT_EQ(forms::FocusOf(form), "Text3");
    for (int i = 0; i < 3; ++i) {
        forms::Type(form, "\t");
    }
    ASSERT_EQ(forms::FocusOf(form), "Command5");
    forms::Type(form, "\r");
    ASSERT_EQ(forms::FocusOf(form), "Command6");
    forms::Type(form, " ");
    ASSERT_EQ(forms::FocusOf(form), "Command7");
    EXPECT_EQ(test::GetFile("Untitled.ven"), test::ExampleVen());
    forms::Type(form, "\r");
    Form6& map = screens.Map();
    EXPECT_EQ(screens.Desktop.Log.back(), "show Form6");
    forms::Press(map, forms::key::Down);
    ASSERT_EQ(map.Combo1.Text.Get(), "EPSx");
    forms::Type(map, "\t");
    ASSERT_EQ(forms::FocusOf(map), "Option3");
    forms::Type(map, " ");
    ASSERT_EQ(forms::FocusOf(map), "Text1");
    forms::Type(map, "2.5\r");
    EXPECT_TRUE(map.DataReady);
    EXPECT_EQ(screens.Boxes(), Texts{});
}

TEST(Form5, AClickOnDataOkCommitsTheCellThatIsBeingEdited) {
    Screens screens;
    screens.ShowData();
    Form5& form = screens.Data();
    screens.EnterExample();
    form.MSFlexGrid1.UserClickCell(1, 1);
    forms::Type(form, "40000");
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(1, 1), "35000");
    form.Command5.UserClick();
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(1, 1), "40000");
    EXPECT_FALSE(form.Command5.Enabled);

    Screens dropped;
    dropped.ShowData();
    dropped.EnterExample();
    Form5& other = dropped.Data();
    other.MSFlexGrid1.UserClickCell(1, 1);
    forms::Type(other, "0\x1b");
    other.Command5.UserClick();
    EXPECT_EQ(other.MSFlexGrid1.TextMatrix(1, 1), "35000") << "Esc has dropped what was typed";
    EXPECT_EQ(dropped.Boxes(), Texts{});
}

TEST(Form5, TheGridWithTheFocusHasAnEditorAndNoMarking) {
    Screens screens;
    screens.ShowData();
    Form5& form = screens.Data();
    screens.EnterExample();
    form.MSFlexGrid1.UserClickCell(1, 2);
    EXPECT_EQ(form.MSFlexGrid1.Highlight, forms::HighlightKind::Never);
    ASSERT_NE(form.Controls.Find("tbFgEdit1"), nullptr);
    EXPECT_EQ(form.Controls.Find("tbFgEdit1")->Container(), &form.Frame3);
    form.MSFlexGrid2.UserClickCell(1, 1);
    EXPECT_EQ(form.MSFlexGrid1.Highlight, forms::HighlightKind::Always);
    EXPECT_EQ(form.MSFlexGrid2.Highlight, forms::HighlightKind::Never);
    int boxes = 0;
    for (const forms::Control* control : form.Controls) {
        boxes += control->Name().starts_with("tbFgEdit") ? 1 : 0;
    }
    EXPECT_EQ(boxes, 1) << "the one before has gone with its editor";
    forms::Type(form, "7");
    form.Command5.UserClick();
    EXPECT_EQ(form.MSFlexGrid2.TextMatrix(1, 1), "7");
    EXPECT_EQ(form.MSFlexGrid2.Highlight, forms::HighlightKind::Always);
}

// Each focus of a grid brings an editor of its own, which knows nothing of what the one before has been given.
TEST(Form5, AnEditorBeginsWithAnEmptyBox) {
    Screens screens;
    screens.ShowData();
    Form5& form = screens.Data();
    screens.EnterExample();
    form.MSFlexGrid1.UserClickCell(1, 1);
    forms::Type(form, "123\x1b");
    form.Text3.UserFocus();
    form.MSFlexGrid1.UserClickCell(1, 2);
    forms::Type(form, "\b\r");
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(1, 1), "35000");
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(1, 2), "");
}

TEST(Form5, TheWayBackWithNoDisablesGridsAndNameWhateverTheyWere) {
    Screens screens;
    screens.ShowData();
    Form5& form = screens.Data();
    screens.EnterExample();
    ASSERT_TRUE(form.MSFlexGrid1.Enabled && form.MSFlexGrid2.Enabled && form.Text3.Enabled);
    screens.App.Dispatch([&] { form.ReturnAsItWas(); });
    EXPECT_EQ(EnabledOf(form), "Option1 Option2 VScroll1 VScroll2 Command4 Command5") << "and nothing else changes";
}

TEST(Form5, PreviousGoesBackToTheSettingsAndTheDataAreGone) {
    Screens screens;
    screens.ShowData();
    screens.EnterExample();
    screens.Desktop.Forget();
    screens.Data().Command3.UserClick();
    EXPECT_EQ(screens.App.Find("Form5"), nullptr);
    EXPECT_EQ(screens.Desktop.Log, (Texts{"hide Form5", "show Form2", "gone Form5"}));
    EXPECT_EQ(screens.Boxes(), Texts{});
    screens.ShowData();
    EXPECT_EQ(screens.Data().Label4.Caption.Get(), "0");
}

TEST(Form5, QuitEndsAtOnceAndHelpOpensTheManual) {
    const TemporaryFolder programs;
    programs.Put("ZIRVO2.html", "<html/>");
    Screens screens({.ProgramFolder = programs.Path()});
    screens.ShowData();
    screens.Data().Command8.UserClick();
    ASSERT_EQ(screens.Desktop.HelpCalls.size(), 1U);
    EXPECT_EQ(screens.Desktop.HelpCalls[0].File, programs.Path("ZIRVO2.html"));
    screens.Data().UserClose();
    EXPECT_NE(screens.App.Find("Form5"), nullptr);
    screens.Data().Command9.UserClick();
    EXPECT_EQ(screens.Desktop.EndStatus, 0);
    EXPECT_EQ(screens.Boxes(), Texts{});
}

}  // namespace
}  // namespace zirvo
