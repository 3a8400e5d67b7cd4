// Starts of the map screen that are refused, and the ways out behind them.
#include <gtest/gtest.h>

#include <array>
#include <deque>

#include "graphics/map_starts.h"
#include "pavement/graphics_example.h"
#include "pavement/scripted_process.h"

namespace zirvo {
namespace {

using forms::Answer;
using forms::Icon;
using test::EnabledButtons;
using test::FaultOf;
using test::GetFile;
using test::ManyLoads;
using test::PutFile;
using test::RoundedTop;
using test::Screens;
using test::ThreeLayers;
using Texts = std::vector<std::string>;

TEST(Form6Run, ARefusedLayerLeavesTheStartAndTheWaysOut) {
    Screens screens;
    Form6& form = screens.OpenMap();
    screens.Desktop.Answers = {Answer::No, Answer::No, Answer::Yes};
    screens.Choose(1, SectionKind::XY, "5");
    screens.Start();
    EXPECT_EQ(EnabledButtons(form), "Command1 Command2 Command3 Command8 Command9");
    EXPECT_EQ(screens.Folder.Names(), Texts{"Untitled.ven"}) << "nothing was written";
    EXPECT_EQ(forms::FocusOf(form), "Text1");
    forms::Type(form, "\r");  // once more, with another answer
    EXPECT_TRUE(form.DataReady);
    EXPECT_EQ(form.Plot.Section.LayerOfInterest, 1);
}

TEST(Form6Run, ClearFormBehindARefusalLeavesPreviousHelpAndQuit) {
    Screens screens;
    Form6& form = screens.OpenMap();
    screens.Desktop.Answers = {Answer::No, Answer::No};
    screens.Choose(1, SectionKind::XY, "5");
    screens.Start();
    form.Command8.UserClick();
    EXPECT_EQ(EnabledButtons(form), "Command2 Command3 Command9");
}

TEST(Form6Run, TooManyPointsAreToldAndTheWaysOutAndAChangeOfThePositionLeadOn) {
    Screens screens;
    Form6& form = screens.OpenMap(ManyLoads());
    screens.Choose(1, SectionKind::XY, "0");
    screens.Start();
    EXPECT_EQ(screens.Boxes(),
              (Texts{"ZIRVO Ver2.3|ERROR! TOO MUCH POINTS", "ZIRVO Ver2.3|POINTS SHOULD BE < 100000"}));
    EXPECT_EQ(screens.Desktop.Boxes[0].Picture, Icon::None);
    EXPECT_EQ(EnabledButtons(form), "Command2 Command3 Command8 Command9");
    EXPECT_TRUE(form.Option3.Enabled);
    EXPECT_TRUE(form.Option4.Enabled);
    EXPECT_EQ(screens.Folder.Names(), Texts{"Untitled.ven"});
    screens.App.Dispatch([&] { form.Text1.SetFocus(); });
    forms::Type(form, "1");
    EXPECT_EQ(EnabledButtons(form), "Command1 Command2 Command3 Command8 Command9");
    // An X-Z section has fewer points: 7 levels for each of 2 layers.
    screens.Desktop.Forget();
    screens.Choose(1, SectionKind::XZ, "0");
    screens.Start();
    EXPECT_EQ(screens.Boxes(), Texts{});
    EXPECT_EQ(form.Plot.Data.Count(), 2 * 7 * form.Plot.Input.Grid.GridCountX());
    EXPECT_TRUE(form.Command2.Enabled);
}

struct Refusal {
    const char* What;
    GraphicsInputData Data;
    const char* Position;
    std::deque<Answer> Answers;
    const char* Left;  ///< buttons behind it
};

/// k=128 and k=129; k=170.
std::vector<Refusal> Refusals() {
    return {{"too many points", ManyLoads(), "0", {}, "Command2 Command3 Command8 Command9"},
            {"no layer", ThreeLayers(), "5", {Answer::No, Answer::No}, "Command1 Command2 Command3 Command8 Command9"}};
}

/// Of PREVIOUS, HELP, CLEAR FORM and QUIT.
std::string EnabledWaysOut(const Form6& form) {
    return test::NamesOf(form, [&form](const forms::Control& control) {
        const bool out = &control == &form.Command2 || &control == &form.Command3 || &control == &form.Command8 ||
                         &control == &form.Command9;
        return out && control.Enabled;
    });
}

TEST(Form6Run, AfterARefusalTheWaysOutAreOpenOnEveryWayBackToTheChoiceOfASection) {
    struct Way {
        const char* What;
        std::function<void(Form6&)> Go;
        const char* Left;
    };
    const std::array ways{
        Way{"another position",
            [](Form6& form) {
                form.App().Dispatch([&] { form.Text1.SetFocus(); });
                forms::Type(form, "1");
            },
            "Command2 Command3 Command8 Command9"},
        Way{"the other section", [](Form6& form) { form.Option4.UserClick(); }, "Command2 Command3 Command8 Command9"},
        Way{"the same section", [](Form6& form) { form.Option3.UserClick(); }, "Command2 Command3 Command8 Command9"},
        Way{"the component", [](Form6& form) { form.Combo1.UserChoose(1); }, "Command2 Command3 Command8 Command9"},
        Way{"CLEAR FORM", [](Form6& form) { form.Command8.UserClick(); }, "Command2 Command3 Command9"},
    };
    for (const Refusal& refusal : Refusals()) {
        for (const Way& way : ways) {
            Screens screens;
            Form6& form = screens.OpenMap(refusal.Data);
            screens.Desktop.Answers = refusal.Answers;
            screens.Choose(1, SectionKind::XY, refusal.Position);
            screens.Start();
            EXPECT_EQ(EnabledButtons(form), refusal.Left) << refusal.What;
            way.Go(form);
            EXPECT_EQ(EnabledWaysOut(form), way.Left) << refusal.What << ", " << way.What;
        }
    }
}

TEST(Form6Run, AfterARefusalPreviousHelpAndQuitWork) {
    for (const Refusal& refusal : Refusals()) {
        Screens screens;
        Form6& form = screens.OpenMap(refusal.Data);
        screens.Desktop.Answers = refusal.Answers;
        screens.Choose(1, SectionKind::XY, refusal.Position);
        screens.Start();
        form.Command3.UserClick();
        EXPECT_EQ(screens.Desktop.HelpCalls.size(), 1U);
        screens.Desktop.Answers = {Answer::Cancel};
        form.Command9.UserClick();
        EXPECT_FALSE(screens.Desktop.EndStatus);
        screens.Desktop.Answers = {Answer::Yes};
        form.Command2.UserClick();
        EXPECT_EQ(screens.App.Find("Form6"), nullptr);
        EXPECT_TRUE(screens.Data().Command5.Enabled);
    }
}

TEST(Form6Run, TheNextStartIsWatchedAnew) {
    Screens screens;
    Form6& form = screens.OpenMap(ManyLoads());
    screens.Choose(1, SectionKind::XY, "0");
    screens.Start();
    screens.Choose(1, SectionKind::XZ, "0");
    screens.Start();
    ASSERT_TRUE(form.DataReady);
    forms::Type(form, "1");  // a map was there: a change of the position takes CLEAR FORM with it, as always
    screens.App.Dispatch([&] { form.Text2.Text = "1"; });
    EXPECT_FALSE(form.Command8.Enabled);
}

// More than 32767 points are worked through: 100 loads by 3 layers are 37947.
TEST(Form6Run, ASectionBeyond16BitsIsWorkedThrough) {
    Texts log;
    auto process = std::make_shared<test::ScriptedProcess>(log);
    Screens screens({.Process = process});
    GraphicsInputData data = ManyLoads();
    data.LayerCount = 3;
    data.Layers[2] = {3000, 0.35, 10, 0};
    data.Layers[3] = {1000, 0.4, 0, 0};
    Form6& form = screens.OpenMap(data);
    int points = 0;
    process->Work = [&] {
        points = form.Plot.Input.PointCount;
        std::string report = "1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n1\r\n2\r\n3\r\n1\r\n2\r\n3\r\n4\r\n";
        for (int i = 0; i < points; ++i) {
            report += "1 2 3 4 5 6 7 8 9 10 11 12 " + std::to_string(i) + " 14 15 16 17 18\r\n";
        }
        PutFile("ZIRVO_SV.BRE", report);
    };
    screens.Choose(1, SectionKind::XZ, "0");
    screens.Start();
    EXPECT_GT(points, 32767);
    EXPECT_EQ(form.Plot.Data.Count(), points);
    EXPECT_EQ(form.Plot.Data.ContourMax, std::stod(form.Text4.Text.Get()));
    EXPECT_EQ(screens.Boxes(), Texts{});
}

TEST(Form6Run, AFailedDepthTestLeavesTheInputOpenUntilTheScreenGoes) {
    Screens screens;
    Form6& form = screens.OpenMap(RoundedTop());
    screens.Choose(1, SectionKind::XZ, "0");
    screens.Start();
    EXPECT_EQ(screens.Boxes(),
              (Texts{"ZIRVO Ver2.3|MEASUREMENT POINT ERROR!", "ZIRVO Ver2.3|ANALYSIS STOPPED - CHECK INPUT DATA"}));
    EXPECT_EQ(screens.Desktop.Boxes[0].Picture, Icon::Exclamation);
    EXPECT_EQ(screens.Desktop.Boxes[1].Picture, Icon::Stop);
    EXPECT_EQ(EnabledButtons(form), "Command10 Command8 Command9");
    EXPECT_EQ(screens.Folder.Names(), (Texts{"Untitled.ven", "ZIRVO_SV.EVA"}));
    const std::string input = GetFile("ZIRVO_SV.EVA");
    EXPECT_EQ(test::CrLfLines(input).size(), 17U + 350) << "it stands complete";

    // A new screen starts clean.
    form.Command8.UserClick();
    screens.Desktop.Answers = {Answer::No};
    form.Command2.UserClick();
    screens.Desktop.Forget();
    screens.Data().Command7.UserClick();
    screens.Choose(1, SectionKind::XY, "0");
    screens.Start();
    EXPECT_TRUE(screens.Map().DataReady);
    EXPECT_EQ(screens.Boxes(), Texts{});

    Screens again;
    again.OpenMap(RoundedTop());
    again.Choose(1, SectionKind::XZ, "0");
    again.Start();
    const std::string whole = GetFile("ZIRVO_SV.EVA");
    again.Map().Command10.UserClick();
    EXPECT_EQ(FaultOf(again), 55);
    EXPECT_EQ(GetFile("ZIRVO_SV.EVA"), whole);
}

TEST(Form6Run, TheOpenInputStopsTheOtherSectionTooButTooManyPointsComeFirst) {
    GraphicsInputData data = ManyLoads();
    data.Layers[1].Thickness = 5.004;
    Screens screens;
    Form6& form = screens.OpenMap(data);
    screens.Choose(1, SectionKind::XZ, "0");
    screens.Start();
    ASSERT_EQ(screens.Desktop.Boxes.size(), 2U);
    screens.Desktop.Forget();
    screens.Choose(1, SectionKind::XY, "0");
    screens.Start();
    EXPECT_EQ(screens.Desktop.BoxHeads(), (Texts{"ERROR! TOO MUCH POINTS", "POINTS SHOULD BE < 100000"}));
    EXPECT_EQ(FaultOf(screens), 0);

    Screens few;
    few.OpenMap(RoundedTop());
    few.Choose(1, SectionKind::XZ, "0");
    few.Start();
    few.Choose(1, SectionKind::XY, "0");
    few.Start();
    EXPECT_EQ(FaultOf(few), 55);
    EXPECT_FALSE(form.DataReady);
}

}  // namespace
}  // namespace zirvo
