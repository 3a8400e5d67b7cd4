// The data screen of the graphics path: what is enabled in each of its states, what leads from one to the next, and the
// ways out.
#include <gtest/gtest.h>

#include "graphics/screens.h"
#include "pavement/graphics_example.h"

namespace zirvo {
namespace {

using forms::Answer;
using test::EnabledOf;
using test::PutFile;
using test::Screens;
using Texts = std::vector<std::string>;

/// A choice of the example's file, which lies in the user's folder.
void Import(Screens& screens, Answer update, const std::string& bytes = test::ExampleVen()) {
    PutFile("example.ven", bytes);
    screens.Desktop.Paths = {screens.Folder.Path("example.ven")};
    screens.Desktop.Answers = {update};
    screens.Data().Option2.UserClick();
    screens.Data().Command1.UserClick();
    screens.Desktop.Answers.clear();
}

struct DataScreenState {
    const char* Name;
    std::function<void(Screens&)> Reach;
    const char* Enabled;
    const char* Focus;
    const char* Counts;  ///< captions of Label4 and Label5
};

void PrintTo(const DataScreenState& state, std::ostream* out) {
    *out << state.Name;
}

constexpr const char* IdleEnabled = "Option1 Option2";

const std::array DataScreenStates{
    DataScreenState{"Idle", [](Screens&) {}, IdleEnabled, "Option1", "0|0"},
    DataScreenState{"New", [](Screens& s) { s.Data().Option1.UserClick(); },
                    "Option1 Option2 VScroll1 VScroll2 Text3 Command4 Command5", "Option1", "0|0"},
    DataScreenState{"NewWithLayers",
                    [](Screens& s) {
                        s.Data().Option1.UserClick();
                        s.Data().VScroll1.UserStepToMin();
                        s.Data().VScroll1.UserStepToMin();
                    },
                    "Option1 Option2 VScroll1 VScroll2 MSFlexGrid1 Text3 Command4 Command5", "VScroll1", " 2|0"},
    DataScreenState{"NewFilled", [](Screens& s) { s.EnterExample(); },
                    "Option1 Option2 VScroll1 VScroll2 MSFlexGrid1 MSFlexGrid2 Text3 Command4 Command5", "Option1",
                    " 2| 1"},
    DataScreenState{"ImportPending", [](Screens& s) { s.Data().Option2.UserClick(); },
                    "Option1 Option2 Command1 Command4", "Command1", "0|0"},
    DataScreenState{"ImportedViewOnly", [](Screens& s) { Import(s, Answer::No); }, "Command4 Command7", "Command7",
                    " 2| 1"},
    DataScreenState{"ImportedUpdate", [](Screens& s) { Import(s, Answer::Yes); },
                    "VScroll1 VScroll2 MSFlexGrid1 MSFlexGrid2 Text3 Command4 Command5", "Command5", " 2| 1"},
    DataScreenState{"Checked",
                    [](Screens& s) {
                        s.EnterExample();
                        s.Data().Command5.UserClick();
                    },
                    "Command4 Command6", "Command6", " 2| 1"},
    DataScreenState{"Saved",
                    [](Screens& s) {
                        s.EnterExample();
                        s.Data().Command5.UserClick();
                        s.Data().Command6.UserClick();
                    },
                    "Command4 Command7", "Command7", " 2| 1"},
    DataScreenState{"NotOverwritten",
                    [](Screens& s) {
                        s.EnterExample();
                        PutFile("Untitled.ven", "mine");
                        s.Data().Command5.UserClick();
                        s.Desktop.Answers = {Answer::No};
                        s.Data().Command6.UserClick();
                    },
                    // Boxes, bars and grids stay disabled: only DATA OK! leads to the same question again.
                    "Command4 Command5", "Command5", " 2| 1"},
    DataScreenState{"ClearedFromNew",
                    [](Screens& s) {
                        s.Data().Option1.UserClick();
                        s.Data().Command4.UserClick();
                    },
                    IdleEnabled, "Command8", "0|0"},
    DataScreenState{
        "ClearedFromFilled",
        [](Screens& s) {
            s.EnterExample();
            s.Data().Command4.UserClick();
        },
        // The counts have enabled the grids, which have no rows; the bars that were not 0 wrote their count again.
        "Option1 Option2 MSFlexGrid1 MSFlexGrid2", "Command8", " 0| 0"},
    DataScreenState{"ClearedFromSaved",
                    [](Screens& s) {
                        s.EnterExample();
                        s.GoToMap();
                        s.Desktop.Answers = {Answer::No};
                        s.Map().Command2.UserClick();
                        s.Data().Command4.UserClick();
                    },
                    "Option1 Option2 MSFlexGrid1 MSFlexGrid2", "Command8", " 0| 0"},
    DataScreenState{"NewAfterClear",
                    [](Screens& s) {
                        s.EnterExample();
                        s.Data().Command4.UserClick();
                        s.Data().Option1.UserClick();
                    },
                    // "0" where " 0" stood is a change, so the grids are enabled before any count has changed.
                    "Option1 Option2 VScroll1 VScroll2 MSFlexGrid1 MSFlexGrid2 Text3 Command4 Command5", "Option1",
                    "0|0"},
    DataScreenState{"NewAfterImportPending",
                    [](Screens& s) {
                        s.Data().Option2.UserClick();
                        s.Data().Option1.UserClick();
                    },
                    // "0" over "0" is no change, so the grids stay as the import has left them.
                    "Option1 Option2 VScroll1 VScroll2 Text3 Command4 Command5", "Option1", "0|0"},
    DataScreenState{"NewTwice",
                    [](Screens& s) {
                        s.EnterExample();
                        s.Data().Option1.UserClick();
                    },
                    "Option1 Option2 VScroll1 VScroll2 MSFlexGrid1 MSFlexGrid2 Text3 Command4 Command5", "Option1",
                    "0|0"},
    DataScreenState{"ImportAfterNew",
                    [](Screens& s) {
                        s.EnterExample();
                        s.Data().Option2.UserClick();
                    },
                    "Option1 Option2 Command1 Command4", "Command1", "0|0"},
    DataScreenState{"BackWithUpdate",
                    [](Screens& s) {
                        s.EnterExample();
                        s.GoToMap();
                        s.Desktop.Answers = {Answer::Yes};
                        s.Map().Command2.UserClick();
                    },
                    "VScroll1 VScroll2 MSFlexGrid1 MSFlexGrid2 Text3 Command4 Command5", "Command8", " 2| 1"},
    DataScreenState{"BackAsItWas",
                    [](Screens& s) {
                        s.EnterExample();
                        s.GoToMap();
                        s.Desktop.Answers = {Answer::No};
                        s.Map().Command2.UserClick();
                    },
                    "Command4 Command7", "Command7", " 2| 1"},
    DataScreenState{"BackViewOnly",
                    [](Screens& s) {
                        Import(s, Answer::No);
                        s.Data().Command7.UserClick();
                        s.Desktop.Answers = {Answer::No};
                        s.Map().Command2.UserClick();
                    },
                    "Command4 Command7", "Command7", " 2| 1"},
};

class Form5State : public testing::TestWithParam<DataScreenState> {};

TEST_P(Form5State, EnablesAndFocusesWhatItsRowSays) {
    const DataScreenState& state = GetParam();
    Screens screens;
    screens.ShowData();
    Form5& form = screens.Data();
    state.Reach(screens);
    EXPECT_EQ(EnabledOf(form), state.Enabled);
    EXPECT_EQ(forms::FocusOf(form), state.Focus);
    EXPECT_EQ(form.Label4.Caption.Get() + "|" + form.Label5.Caption.Get(), state.Counts);
    EXPECT_TRUE(form.Command3.Enabled && form.Command8.Enabled && form.Command9.Enabled);
}

INSTANTIATE_TEST_SUITE_P(Form5, Form5State, testing::ValuesIn(DataScreenStates),
                         [](const testing::TestParamInfo<DataScreenState>& row) { return row.param.Name; });

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
