// The map screen without a solver: what is enabled and visible in each of its states, and what leads from one to the
// next.
#include <gtest/gtest.h>

#include "graphics/screens.h"

namespace zirvo {
namespace {

using forms::Answer;
using forms::Icon;
using test::English;
using test::Screens;
using test::Ticks;
using Texts = std::vector<std::string>;

/// Names of all enabled controls that a user can act on.
std::string EnabledOf(const Form6& form) {
    return test::NamesOf(form, [](const forms::Control& control) { return control.TakesFocus() && control.Enabled; });
}

/// Names of the visible ones among the controls that come and go.
std::string VisibleOf(const Form6& form) {
    const std::string changing =
        " Image1 Image2 Image3 Label1 Text1 Command1 Label2 Text2 Command10 Label16 Label19 Label22 Frame4 Label24 ";
    return test::NamesOf(form, [&](const forms::Control& control) {
        return control.Visible && changing.find(" " + control.Name() + " ") != std::string::npos;
    });
}

struct MapScreenState {
    const char* Name;
    std::function<void(Screens&)> Reach;
    const char* Enabled;
    const char* Visible;
    const char* Focus;
};

void PrintTo(const MapScreenState& state, std::ostream* out) {
    *out << state.Name;
}

void Pick(Screens& screens, int component) {
    screens.Map().Combo1.UserChoose(component - 1);
}

/// A map of the example at the surface, with EPSx.
void ShowMap(Screens& screens, SectionKind kind = SectionKind::XY) {
    screens.Choose(1, kind, "0");
    screens.Start();
}

// Text14 counts as enabled where its panel is hidden; Text1 and Text2 where they are.
const std::array MapScreenStates{
    MapScreenState{"Loaded", [](Screens&) {}, "Combo1 Text1 Text2 Text14 Command2 Command3 Command9", "Command1",
                   "Combo1"},
    MapScreenState{"ComponentChosen", [](Screens& s) { Pick(s, 1); },
                   "Combo1 Option3 Option4 Text1 Text2 Text14 Command2 Command3 Command9", "Command1", "Combo1"},
    MapScreenState{"SectionXYChosen", [](Screens& s) { s.Choose(1, SectionKind::XY, ""); },
                   "Combo1 Option3 Option4 Text1 Text2 Text14 Command2 Command3 Command9",
                   "Image2 Label1 Text1 Command1 Label16 Label19 Label22", "Text1"},
    MapScreenState{"SectionXZChosen", [](Screens& s) { s.Choose(1, SectionKind::XZ, ""); },
                   "Combo1 Option3 Option4 Text1 Text2 Text14 Command2 Command3 Command9",
                   "Image1 Label2 Text2 Command10 Label16 Label19 Label22", "Text2"},
    MapScreenState{"PositionXYEntered", [](Screens& s) { s.Choose(2, SectionKind::XY, "5"); },
                   "Combo1 Option3 Option4 Text1 Command1 Text2 Text14 Command2 Command3 Command9",
                   "Image2 Label1 Text1 Command1 Label16 Label19 Label22", "Text1"},
    MapScreenState{"PositionXZEntered", [](Screens& s) { s.Choose(2, SectionKind::XZ, "0"); },
                   "Combo1 Option3 Option4 Text1 Text2 Command10 Text14 Command2 Command3 Command9",
                   "Image1 Label2 Text2 Command10 Label16 Label19 Label22", "Text2"},
    MapScreenState{
        "MapXY", [](Screens& s) { ShowMap(s); },
        "Combo1 Option3 Option4 Text1 Text2 Text3 Text4 Check1 Text14 Command2 Command3 Command7 Command8 Command9",
        "Image2 Label1 Text1 Command1 Label16 Label19 Label22", "Text3"},
    MapScreenState{
        "MapXZ", [](Screens& s) { ShowMap(s, SectionKind::XZ); },
        "Combo1 Option3 Option4 Text1 Text2 Text3 Text4 Check1 Text14 Command2 Command3 Command7 Command8 Command9",
        "Image1 Label2 Text2 Command10 Label16 Label19 Label22", "Text3"},
    MapScreenState{
        "MapThenItemClicked",
        [](Screens& s) {
            ShowMap(s);
            s.Map().Check1(1).UserClick();
        },
        "Combo1 Option3 Option4 Text1 Text2 Text3 Text4 Command5 Check1 Command6 Text14 Command2 Command3 Command7 "
        "Command8 Command9",
        "Image2 Label1 Text1 Command1 Label16 Label19 Label22", "Check1(1)"},
    MapScreenState{
        "MapThenPanelOpened",
        [](Screens& s) {
            ShowMap(s);
            s.Map().Check1(1).UserClick();
            s.Map().Command6.UserClick();
        },
        "Combo1 Option3 Option4 Text1 Text2 Text3 Text4 Check1 Command6 Text14 Command2 Command3 Command7 Command8 "
        "Command9",
        "Image2 Label1 Text1 Command1 Label16 Label19 Label22 Frame4", "Text14"},
    MapScreenState{
        "MapThenOtherComponent",
        [](Screens& s) {
            ShowMap(s);
            Pick(s, 2);
        },
        "Combo1 Option3 Option4 Text1 Text2 Text3 Text4 Command5 Check1 Text14 Command2 Command3 Command7 Command8 "
        "Command9",
        "Image2 Label1 Text1 Command1 Label16 Label19 Label22", "Combo1"},
    MapScreenState{"MapThenPositionChanged",
                   [](Screens& s) {
                       ShowMap(s);
                       s.App.Dispatch([&] { s.Map().Text1.SetFocus(); });
                       forms::Type(s.Map(), "5");
                   },
                   "Combo1 Option3 Option4 Text1 Command1 Text2 Text14 Command2 Command3 Command9",
                   "Image2 Label1 Text1 Command1 Label16 Label19 Label22", "Text1"},
    MapScreenState{
        "MapThenTheOtherSection",
        [](Screens& s) {
            ShowMap(s);
            s.Map().Option4.UserClick();
        },
        // The box was empty already and has not changed, but the map is dropped: no SAVE PICTURE. CLEAR FORM stays.
        "Combo1 Option3 Option4 Text1 Text2 Text14 Command2 Command3 Command8 Command9",
        "Image1 Label2 Text2 Command10 Label16 Label19 Label22", "Text2"},
    MapScreenState{"MapXZThenTheOtherSection",
                   [](Screens& s) {
                       ShowMap(s, SectionKind::XZ);
                       s.Map().Option3.UserClick();
                   },
                   "Combo1 Option3 Option4 Text1 Text2 Text14 Command2 Command3 Command8 Command9",
                   "Image2 Label1 Text1 Command1 Label16 Label19 Label22", "Text1"},
    MapScreenState{"MapOfAnEmptyPositionThenTheSameSection",
                   [](Screens& s) {
                       s.Choose(1, SectionKind::XY, "");
                       s.App.Dispatch([&] { s.Map().Command1.Enabled = true; });
                       s.Start();
                       s.Map().Option3.UserClick();
                   },
                   "Combo1 Option3 Option4 Text1 Text2 Text14 Command2 Command3 Command8 Command9",
                   "Image2 Label1 Text1 Command1 Label16 Label19 Label22", "Text1"},
    MapScreenState{"MapThenTheOtherSectionAndAnotherComponent",
                   [](Screens& s) {
                       ShowMap(s);
                       s.Map().Option4.UserClick();
                       Pick(s, 2);
                   },
                   "Combo1 Option3 Option4 Text1 Text2 Text14 Command2 Command3 Command9", "Command1", "Combo1"},
    MapScreenState{"MapThenPanelOpenedTheOtherSectionAndPanelClosed",
                   [](Screens& s) {
                       ShowMap(s);
                       s.Map().Check1(1).UserClick();
                       s.Map().Command6.UserClick();
                       s.Map().Option4.UserClick();
                       s.Map().Command6.UserClick();
                   },
                   // The panel can be closed, and RE-DRAW stays off all the same.
                   "Combo1 Option3 Option4 Text1 Text2 Command6 Text14 Command2 Command3 Command8 Command9",
                   "Image1 Label2 Text2 Command10 Label16 Label19 Label22", "Command6"},
    MapScreenState{
        "MapThenTheOtherSectionsMap",
        [](Screens& s) {
            ShowMap(s);
            s.Map().Option4.UserClick();
            forms::Type(s.Map(), "0");
            s.Start();
        },
        "Combo1 Option3 Option4 Text1 Text2 Text3 Text4 Check1 Text14 Command2 Command3 Command7 Command8 Command9",
        "Image1 Label2 Text2 Command10 Label16 Label19 Label22", "Text3"},
    MapScreenState{"MapThenTheSameSection",
                   [](Screens& s) {
                       ShowMap(s);
                       s.Map().Option3.UserClick();
                   },
                   // The box held "0" and was emptied, which is a change of the position.
                   "Combo1 Option3 Option4 Text1 Text2 Text14 Command2 Command3 Command9",
                   "Image2 Label1 Text1 Command1 Label16 Label19 Label22", "Text1"},
    MapScreenState{"MapXYThenClearForm",
                   [](Screens& s) {
                       ShowMap(s);
                       s.Map().Command8.UserClick();
                   },
                   "Combo1 Text1 Text2 Text14 Command2 Command3 Command9", "Command1", "Command9"},
    MapScreenState{"MapXZThenClearForm",
                   [](Screens& s) {
                       ShowMap(s, SectionKind::XZ);
                       s.Map().Command8.UserClick();
                   },
                   "Combo1 Text1 Text2 Text14 Command2 Command3 Command9", "Command1", "Command9"},
    MapScreenState{"PositionThenComponent",
                   [](Screens& s) {
                       s.Choose(1, SectionKind::XZ, "7");
                       Pick(s, 2);
                   },
                   "Combo1 Option3 Option4 Text1 Text2 Text14 Command2 Command3 Command9", "Command1", "Combo1"},
};

class Form6State : public testing::TestWithParam<MapScreenState> {};

TEST_P(Form6State, EnablesShowsAndFocusesWhatItsRowSays) {
    const MapScreenState& state = GetParam();
    Screens screens;
    Form6& form = screens.OpenMap();
    state.Reach(screens);
    EXPECT_EQ(EnabledOf(form), state.Enabled);
    EXPECT_EQ(VisibleOf(form), state.Visible);
    EXPECT_EQ(forms::FocusOf(form), state.Focus);
    EXPECT_TRUE(screens.Picture().IsPresented());
    EXPECT_FALSE(form.Option5.Enabled) << "the Y-Z section is never offered";
    EXPECT_EQ(screens.Boxes(), Texts{});
}

INSTANTIATE_TEST_SUITE_P(Form6, Form6State, testing::ValuesIn(MapScreenStates),
                         [](const testing::TestParamInfo<MapScreenState>& row) { return row.param.Name; });

TEST(Form6, TheWordsOfTheSecondAxisFollowTheSection) {
    Screens screens;
    Form6& form = screens.OpenMap();
    screens.Choose(1, SectionKind::XY, "");
    EXPECT_EQ(form.Label16.Caption.Get(), "X-AXIS");
    EXPECT_EQ(form.Label19.Caption.Get(), "Y-AXIS");
    EXPECT_EQ(form.Label22.Caption.Get(), "VALUE");
    EXPECT_EQ(form.Label1.Caption.Get(), "POSITION(Z-SECT.(cm))");
    form.Option4.UserClick();
    EXPECT_EQ(form.Label19.Caption.Get(), "Z-AXIS");
    EXPECT_EQ(form.Label2.Caption.Get(), "POSITION(Y-SECT.(cm))");
    form.Option3.UserClick();
    EXPECT_EQ(form.Label19.Caption.Get(), "Y-AXIS");
}

TEST(Form6, APositionMakesItsStartButtonTheDefaultOne) {
    Screens screens;
    Form6& form = screens.OpenMap();
    screens.Choose(1, SectionKind::XY, "0");
    EXPECT_EQ(form.DefaultButton(), &form.Command1);
    form.Option4.UserClick();
    EXPECT_EQ(form.DefaultButton(), nullptr) << "the first one is hidden";
    forms::Type(form, "0");
    EXPECT_EQ(form.DefaultButton(), &form.Command10);
    forms::Type(form, "\b");
    EXPECT_EQ(form.DefaultButton(), &form.Command10) << "an empty box is a position too";
}

TEST(Form6, TheSketchesShowThePlaneOfTheSection) {
    Screens screens;
    Form6& form = screens.OpenMap();
    EXPECT_EQ(form.Image1.Picture.Get(), "plane_xz");
    EXPECT_EQ(form.Image2.Picture.Get(), "plane_xy");
    EXPECT_EQ(form.Image3.Picture.Get(), "plane_yz");
    // The handler of the option that is never enabled.
    screens.Choose(1, SectionKind::XZ, "");
    screens.App.Dispatch([&] { form.Option5_Click(); });
    EXPECT_EQ(VisibleOf(form), "Image3 Label2 Text2 Command10 Label16 Label19 Label22");
    form.Option5.UserClick();
    EXPECT_FALSE(form.Option5.Value);
}

TEST(Form6, ClearFormKeepsTheComponentAndShowsNone) {
    Screens screens;
    Form6& form = screens.OpenMap();
    screens.Choose(2, SectionKind::XY, "0");
    screens.Start();
    form.Check1(1).UserClick();
    form.Command8.UserClick();
    EXPECT_EQ(form.Combo1.Text.Get(), "");
    EXPECT_EQ(form.Combo1.ListIndex, -1);
    EXPECT_EQ(form.Plot.Section.OutputComponent, ComponentEpsZ);
    EXPECT_TRUE(screens.Picture().IsClear());
    EXPECT_EQ(Ticks(form), "x-x--");
    EXPECT_FALSE(form.DataReady);
    for (const forms::Label* label : {&form.Label17, &form.Label18, &form.Label20, &form.Label21}) {
        EXPECT_EQ(label->Caption.Get(), "") << label->Name();
    }
    EXPECT_EQ(form.Text1.Text.Get(), "");
    EXPECT_EQ(form.Text3.Text.Get(), "");
    EXPECT_EQ(form.Text4.Text.Get(), "");
    EXPECT_FALSE(form.Option3.Value);
    // Only a new choice in the list leads on.
    form.Option3.UserClick();
    EXPECT_FALSE(form.Option3.Value);
    Pick(screens, 2);
    form.Option3.UserClick();
    EXPECT_TRUE(form.Option3.Value);
}

// Results and points ticked: cleared from the last one down, or the rule of the items would speak up on the way.
TEST(Form6, AResetOfTheItemsBringsNoMessage) {
    for (const char* way : {"component", "clear", "position"}) {
        Screens screens;
        Form6& form = screens.OpenMap();
        ShowMap(screens);
        form.Check1(1).UserClick();
        form.Check1(2).UserClick();
        form.Check1(3).UserClick();
        form.Check1(4).UserClick();
        ASSERT_EQ(Ticks(form), "xx-xx");
        ASSERT_EQ(screens.Boxes(), Texts{});
        if (way == std::string("component")) {
            Pick(screens, 2);
        } else if (way == std::string("clear")) {
            form.Command8.UserClick();
        } else {
            screens.App.Dispatch([&] { form.Text1.Text = "3"; });
        }
        EXPECT_EQ(Ticks(form), "x-x--") << way;
        EXPECT_EQ(screens.Boxes(), Texts{}) << way;
        EXPECT_FALSE(form.Command6.Enabled) << way;
        EXPECT_EQ(form.Command5.Enabled, way == std::string("component")) << way;
    }
}

TEST(Form6, PreviousAsksAndGivesTheDataScreenBack) {
    for (const Answer answer : {Answer::Yes, Answer::No}) {
        Screens screens;
        Form6& form = screens.OpenMap();
        Form5& data = screens.Data();
        screens.Desktop.Answers = {answer};
        form.Command2.UserClick();
        ASSERT_EQ(screens.Desktop.Boxes.size(), 1U);
        EXPECT_EQ(screens.Desktop.Boxes[0], (forms::Message{.Text = "UPDATE INPUT DATA?",
                                                            .Title = "ZIRVO Ver2.3",
                                                            .Picture = Icon::None,
                                                            .Choice = forms::Buttons::YesNo,
                                                            .Words = forms::Language::English}));
        EXPECT_EQ(screens.Desktop.Log, (Texts{"show Form5", "hide Form6", "gone Form6"}));
        EXPECT_EQ(screens.App.Find("Form6"), nullptr);
        const bool yes = answer == Answer::Yes;
        EXPECT_EQ(data.Command5.Enabled, yes);
        EXPECT_FALSE(data.Command6.Enabled);
        EXPECT_EQ(data.Command7.Enabled, !yes);
        EXPECT_EQ(data.MSFlexGrid1.Enabled, yes);
        EXPECT_EQ(data.MSFlexGrid2.Enabled, yes);
        EXPECT_EQ(data.Text3.Enabled, yes);
        EXPECT_EQ(data.VScroll1.Enabled, yes);
        EXPECT_EQ(data.VScroll2.Enabled, yes);
        EXPECT_TRUE(data.Command4.Enabled);
        EXPECT_EQ(data.MSFlexGrid1.TextMatrix(1, 1), "35000");
        EXPECT_NE(data.ActiveControl(), nullptr) << "all of it goes by keyboard";
    }
}

TEST(Form6, TheWayBackAndForthStartsAfresh) {
    Screens screens;
    screens.OpenMap();
    ShowMap(screens);
    screens.Desktop.Answers = {Answer::No};
    screens.Map().Command2.UserClick();
    screens.Data().Command7.UserClick();
    Form6& form = screens.Map();
    EXPECT_EQ(EnabledOf(form), "Combo1 Text1 Text2 Text14 Command2 Command3 Command9");
    EXPECT_EQ(form.Combo1.Text.Get(), "");
    EXPECT_EQ(form.Label17.Caption.Get(), "");
    EXPECT_TRUE(screens.Picture().IsClear());
}

TEST(Form6, QuitAsksAndCancelStays) {
    Screens screens;
    Form6& form = screens.OpenMap();
    screens.Desktop.Answers = {Answer::Cancel, Answer::Ok};
    form.Command9.UserClick();
    EXPECT_EQ(screens.Desktop.Boxes[0], (forms::Message{.Text = "DO YOU WANT TO QUIT?",
                                                        .Title = "ZIRVO Ver2.3",
                                                        .Picture = Icon::Information,
                                                        .Choice = forms::Buttons::OkCancel,
                                                        .Words = forms::Language::English}));
    EXPECT_FALSE(screens.App.HasEnded());
    form.Command9.UserClick();
    EXPECT_EQ(screens.Desktop.EndStatus, 0);
    EXPECT_EQ(screens.Desktop.Log, Texts{"end 0"}) << "at once, with no form unloaded";
}

TEST(Form6, HelpOpensTheManualOfTheLanguage) {
    for (const Int16 base : {JapaneseBase, EnglishBase}) {
        const TemporaryFolder programs;
        const std::string page = base == JapaneseBase ? "ZIRVO1.html" : "ZIRVO2.html";
        programs.Put(page, "<html/>");
        Screens screens({.Base = base, .ProgramFolder = programs.Path()});
        screens.OpenMap().Command3.UserClick();
        ASSERT_EQ(screens.Desktop.HelpCalls.size(), 1U);
        EXPECT_EQ(screens.Desktop.HelpCalls[0].File, programs.Path(page));
        EXPECT_EQ(screens.Desktop.HelpCalls[0].Form, "Form6");
    }
}

TEST(Form6, TheFrameDoesNotCloseIt) {
    Screens screens;
    screens.OpenMap().UserClose();
    EXPECT_NE(screens.App.Find("Form6"), nullptr);
    EXPECT_FALSE(screens.App.HasEnded());
}

}  // namespace
}  // namespace zirvo
