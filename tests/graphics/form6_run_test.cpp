// The run of the map screen: the chain inside one click of a start button, with the solver itself or a scripted one;
// questions, refusals and faults.
#include <gtest/gtest.h>

#include <array>
#include <deque>

#include "graphics/screens.h"
#include "pavement/graphics_example.h"
#include "pavement/scripted_process.h"

namespace zirvo {
namespace {

using forms::Answer;
using forms::Icon;
using test::GetFile;
using test::PutFile;
using test::Screens;
using Texts = std::vector<std::string>;

/// The fault that ended the program; 0 if none did.
int FaultOf(const Screens& screens) {
    if (!screens.Desktop.EndStatus || screens.Desktop.Boxes.empty()) {
        return 0;
    }
    EXPECT_EQ(screens.Desktop.EndStatus, 1);
    int number = 0;
    EXPECT_EQ(std::sscanf(screens.Desktop.Boxes.back().Text.c_str(), "Run-time error '%d':", &number), 1);
    return number;
}

/// The example with a second interface: 5 cm and 15 cm.
GraphicsInputData ThreeLayers() {
    GraphicsInputData data = test::ExampleData();
    data.LayerCount = 3;
    data.Layers[2] = {3000, 0.35, 10, 0};
    data.Layers[3] = {1000, 0.4, 0, 0};
    return data;
}

/// A layer of 5.004 cm: its bottom, rounded to 2 decimals, lies in the layer above.
GraphicsInputData RoundedTop() {
    GraphicsInputData data = test::ExampleData();
    data.Layers[1].Thickness = 5.004;
    return data;
}

/// 100 loads side by side: 1807 positions an axis.
GraphicsInputData ManyLoads() {
    GraphicsInputData data = test::ExampleData();
    data.LoadCount = 100;
    for (int i = 1; i <= 100; ++i) {
        data.Loads[i] = {5000, 1, 3.0 * i, 3.0 * i, 0, 0};
    }
    return data;
}

TEST(Form6Run, OneClickLeadsFromAPositionToAMap) {
    Screens screens;
    Form6& form = screens.OpenMap();
    screens.Choose(1, SectionKind::XY, "0");
    screens.Start();
    EXPECT_EQ(screens.Boxes(), Texts{}) << "no question at the surface";
    EXPECT_EQ(screens.Folder.Names(), (Texts{"Untitled.ven", "ZIRVO_SV.BRE", "ZIRVO_SV.CSV", "ZIRVO_SV.EVA"}));
    EXPECT_EQ(form.Plot.Section, (SectionDefinition{ComponentEpsX, SectionKind::XY, 0, 1}));
    EXPECT_TRUE(form.DataReady);
    EXPECT_EQ(form.Plot.Data.Count(), 625);
    // One load of radius 15 at the origin, 20 cm of margin.
    EXPECT_EQ(form.Label17.Caption.Get(), "-35.00");
    EXPECT_EQ(form.Label18.Caption.Get(), "35.00");
    EXPECT_EQ(form.Label20.Caption.Get(), "-35.00");
    EXPECT_EQ(form.Label21.Caption.Get(), "35.00");
    for (const forms::Label* label : {&form.Label17, &form.Label18, &form.Label20, &form.Label21}) {
        EXPECT_EQ(label->BackColor, 0xFFFFFF) << label->Name();
    }
    EXPECT_EQ(form.Plot.Data.Map.ValueMin, std::stod(form.Text3.Text.Get()));
    EXPECT_EQ(form.Plot.Data.Map.ValueMax, std::stod(form.Text4.Text.Get()));
    EXPECT_EQ(form.Plot.Data.ContourMin, std::stod(form.Text3.Text.Get()));
    const Texts texts = screens.Picture().Texts();
    EXPECT_NE(std::find(texts.begin(), texts.end(), "EPSx  Section: X-Y  Z=0cm  Layer#=1  <ZIRVO Ver2.3>"),
              texts.end());
    EXPECT_FALSE(form.Label24.Visible);
    EXPECT_EQ(GetFile("ZIRVO_SV.CSV").substr(0, 35), "# ZIRVO Ver2.3\r\n# X,Y,Z,EPSx\r\n# (cm");
}

TEST(Form6Run, AnXZSectionGoesThroughTheLayers) {
    Screens screens;
    Form6& form = screens.OpenMap();
    screens.Choose(2, SectionKind::XZ, "-3.5 cm");
    screens.Start();
    EXPECT_EQ(form.Plot.Section, (SectionDefinition{ComponentEpsZ, SectionKind::XZ, -3.5, 0}));
    EXPECT_EQ(form.Plot.Data.Count(), 350);
    EXPECT_EQ(form.Label20.Caption.Get(), "0.00");
    EXPECT_EQ(form.Label21.Caption.Get(), "10.00") << "the ground is shown as high as the layer above it";
    const Texts texts = screens.Picture().Texts();
    EXPECT_NE(std::find(texts.begin(), texts.end(), "EPSz  Section: X-Z  Y=-3.5 cmcm  <ZIRVO Ver2.3>"), texts.end())
        << "the title has the box as typed";
}

// The first line of the report tells, whatever the read-outs say.
TEST(Form6Run, AReportOfEitherKindIsStampedOnceAndReadAgainAsStamped) {
    for (const SectionKind kind : {SectionKind::XY, SectionKind::XZ}) {
        Screens screens;
        Form6& form = screens.OpenMap();
        screens.Choose(1, kind, "0");
        screens.Start();
        const std::string report = GetFile("ZIRVO_SV.BRE");
        const std::string values = GetFile("ZIRVO_SV.CSV");
        EXPECT_EQ(report.substr(0, 17), "   <ZIRVO Ver2.3>");
        for (const bool readOuts : {true, false}) {
            screens.App.Dispatch([&] {
                if (!readOuts) {
                    form.Label17.Caption = "";
                }
                form.ConvertSectionXZ();
                form.ConvertSectionXY();
            });
            EXPECT_EQ(FaultOf(screens), 0);
            EXPECT_EQ(GetFile("ZIRVO_SV.BRE"), report);
            EXPECT_EQ(GetFile("ZIRVO_SV.CSV"), values);
        }
    }
}

TEST(Form6Run, EnterInThePositionBoxStarts) {
    Screens screens;
    Form6& form = screens.OpenMap();
    screens.Choose(1, SectionKind::XZ, "0\r");
    EXPECT_TRUE(form.DataReady);
}

TEST(Form6Run, ALanguageAndAUnitSystemGoWithTheRun) {
    for (const Int16 base : {JapaneseBase, EnglishBase}) {
        for (const int units : {1, 2, 3}) {
            Screens screens({.Base = base, .Units = units});
            Form6& form = screens.OpenMap();
            screens.Choose(1, SectionKind::XY, "0");
            screens.Start();
            EXPECT_EQ(form.Plot.Data.Count(), 625);
            // And the stamped report is read again for the other component.
            form.Combo1.UserChoose(1);
            form.Command5.UserClick();
            EXPECT_EQ(FaultOf(screens), 0);
            EXPECT_EQ(form.Plot.Data.Count(), 625);
        }
    }
}

// What the user sees while the solver runs, painted once and then standing still.
TEST(Form6Run, WhileItRunsOnlyTheNoteShows) {
    for (const SectionKind kind : {SectionKind::XY, SectionKind::XZ}) {
        Texts log;
        auto process = std::make_shared<test::ScriptedProcess>(log);
        process->Handle = 0;
        Screens screens({.ProgramFolder = "programs", .Process = process});
        Form6& form = screens.OpenMap();
        screens.Choose(1, kind, "0");
        screens.Desktop.OnPaint = [&](forms::Form&) {
            EXPECT_TRUE(form.Label24.Visible);
            EXPECT_EQ(form.Label24.Caption.Get(), "COMPUTING NOW...");
            EXPECT_TRUE(log.empty());
            for (const auto* button :
                 {&form.Command2, &form.Command3, &form.Command6, &form.Command7, &form.Command8}) {
                EXPECT_FALSE(button->Enabled) << button->Name();
            }
            EXPECT_FALSE((kind == SectionKind::XY ? form.Command1 : form.Command10).Enabled);
            EXPECT_EQ(form.Command9.Enabled, kind == SectionKind::XZ) << "QUIT of an X-Z start goes with the solver";
        };
        process->WorkInWait = false;
        process->Work = [&] {
            EXPECT_FALSE(form.Command9.Enabled);
            EXPECT_EQ(GetFile("Initial_File"),
                      "LANGUAGE PREFERENCE\r\n 2 \r\n\r\nINPUT/OUTPUT UNITS OF MEASUREMENT\r\n"
                      " 1 \r\n\r\nInput FileName\r\nZIRVO_SV.EVA\r\n");
        };
        screens.Start();
        EXPECT_EQ(log, (Texts{"start programs/ZIRVO_SV22.exe", "open 41"}));
        EXPECT_EQ(screens.Desktop.Log, (Texts{"paint Form6", "discard", "end 1"}));
        EXPECT_EQ(FaultOf(screens), 53) << "there is no report, since nothing was solved";
        EXPECT_FALSE(form.Label24.Visible);
        EXPECT_FALSE(screens.Folder.Has("Initial_File"));
    }
}

TEST(Form6Run, AMissingSolverPassesInSilenceAndAnOlderReportIsShown) {
    Screens screens;
    Form6& form = screens.OpenMap();
    screens.Choose(1, SectionKind::XY, "0");
    // A report of an earlier run of this section at another depth, not stamped yet.
    screens.Start();
    const std::string report = GetFile("ZIRVO_SV.BRE");
    const std::string first = GetFile("ZIRVO_SV.CSV");

    Texts log;
    auto process = std::make_shared<test::ScriptedProcess>(log);
    process->Identifier = 0;
    Screens later({.Process = process});
    Form6& other = later.OpenMap();
    PutFile("ZIRVO_SV.BRE", report.substr(report.find('\n') + 1));
    later.Choose(1, SectionKind::XY, "3");
    later.Start();
    EXPECT_EQ(log.size(), 1U);
    EXPECT_EQ(FaultOf(later), 0);
    EXPECT_EQ(GetFile("ZIRVO_SV.CSV"), first);
    EXPECT_TRUE(other.DataReady);
    EXPECT_EQ(form.Text3.Text.Get(), other.Text3.Text.Get());

    Screens none({.ProgramFolder = "nowhere"});
    none.OpenMap();
    none.Choose(1, SectionKind::XY, "0");
    none.Start();
    EXPECT_EQ(FaultOf(none), 53);
    EXPECT_EQ(none.Boxes(), Texts{"ZIRVO Ver2.3|Run-time error '53':\n\nFile not found"});
}

TEST(Form6Run, WithoutAnInputTheUserIsToldAndTheReportIsReadAllTheSame) {
    Screens screens;
    Form6& form = screens.OpenMap();
    screens.Choose(1, SectionKind::XY, "0");
    screens.App.Dispatch([&] { form.RunSectionXY(); });
    EXPECT_EQ(screens.Boxes(), (Texts{"ZIRVO Ver2.3|INPUT FILE DOES NOT EXIST OR EMPTY",
                                      "ZIRVO Ver2.3|Run-time error '53':\n\nFile not found"}));
    EXPECT_EQ(screens.Desktop.Boxes[0].Picture, Icon::Stop);
}

struct Interface {
    const char* Position;
    std::vector<Answer> Answers;
    Texts Boxes;
    int Layer;  ///< 0: refused
};

TEST(Form6Run, AtAnInterfaceTheUserDecidesTheLayer) {
    const std::array rows{
        Interface{"", {}, {}, 1},
        Interface{"0", {}, {}, 1},
        Interface{"-2", {}, {}, 3},
        Interface{"4.9", {}, {}, 1},
        Interface{"5", {Answer::Yes}, {"LAYER OF INTEREST|1"}, 1},
        Interface{"5", {Answer::No, Answer::Yes}, {"LAYER OF INTEREST|1", "着 目 層|2"}, 2},
        Interface{"15", {Answer::No, Answer::Yes}, {"LAYER OF INTEREST|2", "着 目 層|3"}, 3},
        Interface{"5",
                  {Answer::No, Answer::No},
                  {"LAYER OF INTEREST|1", "着 目 層|2", "|DECIDE ON THE LAYER OF INTEREST"},
                  0},
        Interface{"15.1", {}, {}, 3},
    };
    for (const Interface& row : rows) {
        Screens screens;
        Form6& form = screens.OpenMap(ThreeLayers());
        screens.Desktop.Answers.assign(row.Answers.begin(), row.Answers.end());
        screens.Choose(1, SectionKind::XY, row.Position);
        screens.App.Dispatch([&] { form.Command1.Enabled = true; });  // an untouched box has not enabled it
        screens.Start();
        EXPECT_EQ(screens.Boxes(), row.Boxes) << row.Position;
        EXPECT_EQ(form.Plot.Section.LayerOfInterest, row.Layer) << row.Position;
        EXPECT_EQ(form.DataReady, row.Layer != 0) << row.Position;
        for (const forms::Message& box : screens.Desktop.Boxes) {
            const bool refusal = box.Choice == forms::Buttons::Ok;
            EXPECT_EQ(box.Picture, refusal ? Icon::Stop : Icon::Question);
        }
        if (!row.Boxes.empty()) {
            EXPECT_EQ(forms::FocusOf(form), "Text1");
        }
    }
}

TEST(Form6Run, TheFirstQuestionIsInTheLanguageOfTheScreenAndTheSecondIsNot) {
    Screens screens({.Base = JapaneseBase});
    screens.OpenMap();
    screens.Desktop.Answers = {Answer::No, Answer::Yes};
    screens.Choose(1, SectionKind::XY, "5");
    screens.Start();
    EXPECT_EQ(screens.Boxes(), (Texts{"着　目　層|1", "着 目 層|2"}));
    EXPECT_EQ(screens.Desktop.Boxes[0].Words, forms::Language::Japanese);
}

std::string EnabledButtons(const Form6& form) {
    return test::NamesOf(
        form, [](const forms::Control& control) { return control.Enabled && control.Name().starts_with("Command"); });
}

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

TEST(Form6Run, TheBoxOfAnEndlessCommaFileHasItsThreeTexts) {
    Screens screens;
    Form6& form = screens.OpenMap();
    screens.App.Dispatch([&] { form.TellTooManyDataLines(); });
    ASSERT_EQ(screens.Desktop.Boxes.size(), 1U);
    EXPECT_EQ(
        screens.Desktop.Boxes[0],
        (forms::Message{.Text = "ANALYTICAL RESULTS (ON) -> ANALYTICAL POINTS (ON) AND LEGEND (OFF)\n9000000ERROR!",
                        .Title = "POINTS SHOULD NOT BE EXCEEDED ",
                        .Picture = Icon::Exclamation}));
}

// Every fault on the way ends the program with its number; what lay in the folder stays whole.
TEST(Form6Run, FaultsOnTheWayEndTheProgram) {
    struct Row {
        const char* What;
        std::function<void(const Screens&)> Spoil;
        int Fault;
    };
    const std::array rows{
        Row{"input is a folder",
            [](const Screens& s) { std::filesystem::create_directory(s.Folder.Path("ZIRVO_SV.EVA")); }, 75},
        Row{"control file is a folder",
            [](const Screens& s) { std::filesystem::create_directory(s.Folder.Path("Initial_File")); }, 75},
        Row{"temporary file in the way", [](const Screens&) { PutFile("ZIRVO_SV.TMP", "x"); }, 58},
        Row{"comma file is a folder",
            [](const Screens& s) { std::filesystem::create_directory(s.Folder.Path("ZIRVO_SV.CSV")); }, 75},
    };
    for (const Row& row : rows) {
        Screens screens;
        screens.OpenMap();
        PutFile("mine.txt", "mine");
        row.Spoil(screens);
        screens.Choose(1, SectionKind::XY, "0");
        screens.Start();
        EXPECT_EQ(FaultOf(screens), row.Fault) << row.What;
        EXPECT_EQ(GetFile("mine.txt"), "mine");
        EXPECT_EQ(GetFile("Untitled.ven"), test::ExampleVen());
    }
}

/// The text of the box that ended the program behind its two lines.
std::string WordsOfFault(const Screens& screens) {
    if (!screens.Desktop.EndStatus || screens.Desktop.Boxes.empty()) {
        return "no fault";
    }
    const std::string& text = screens.Desktop.Boxes.back().Text;
    return text.substr(forms::ScriptedDesktop::HeadOf(text).size());
}

TEST(Form6Run, AMissingSolverIsNamedByTheFaultOfItsReport) {
    for (const Int16 base : {EnglishBase, JapaneseBase}) {
        const TemporaryFolder programs;
        Screens screens({.Base = base, .ProgramFolder = programs.Path()});
        screens.OpenMap();
        screens.Choose(1, SectionKind::XY, "0");
        screens.Start();
        EXPECT_EQ(FaultOf(screens), 53);
        const std::string solver = programs.Path("ZIRVO_SV22.exe");
        EXPECT_EQ(WordsOfFault(screens),
                  base == EnglishBase
                      ? "\n\nProgram: " + solver +
                            "\nThis program is missing or cannot be started. Please unpack ZIRVO again.\n\n"
                            "The program ends now."
                      : "\n\nプログラム: " + solver +
                            "\nこのプログラムがないか、起動できません。ZIRVOを展開し直してください。\n\n"
                            "プログラムを終了します。");
        EXPECT_EQ(screens.Desktop.Boxes.back().Words,
                  base == EnglishBase ? forms::Language::English : forms::Language::Japanese);
    }
}

TEST(Form6Run, ASolverThatLeavesNoReportIsToldByTheReportsName) {
    Texts log;
    auto process = std::make_shared<test::ScriptedProcess>(log);
    Screens screens({.Process = process});
    screens.OpenMap();
    screens.Choose(1, SectionKind::XY, "0");
    screens.Start();
    EXPECT_EQ(WordsOfFault(screens), "\n\nFile: " + screens.Folder.Path("ZIRVO_SV.BRE") +
                                         "\nThe solver has not written this file.\n\nThe program ends now.");
}

// 1E400 is read as the largest double, whose 20 columns touch the X in front of it in the input: the solver says so.
TEST(Form6Run, TheReasonThatTheSolverLeftStandsInTheBox) {
    for (const Int16 base : {EnglishBase, JapaneseBase}) {
        Screens screens({.Base = base});
        screens.OpenMap();
        screens.Choose(1, SectionKind::XZ, "1E400");
        screens.Start();
        EXPECT_EQ(FaultOf(screens), 62);
        const std::string words = WordsOfFault(screens);
        const bool english = base == EnglishBase;
        EXPECT_TRUE(words.starts_with((english ? "\n\nFile: " : "\n\nファイル: ") +
                                      screens.Folder.Path("ZIRVO_SV.BRE") +
                                      (english ? "\nIt ends too early.\nThe solver's report says:\n"
                                               : "\nファイルが途中で終わっています。\nソルバーの報告:\n")))
            << words;
        EXPECT_NE(words.find(english ? "\nREASON: " : "\n理由: "), std::string::npos) << words;
        EXPECT_TRUE(words.ends_with(english ? "\n\nThe program ends now." : "\n\nプログラムを終了します。")) << words;
    }
}

TEST(Form6Run, LoadsTooFarOutForAGridAreFaultSixInWords) {
    for (const SectionKind kind : {SectionKind::XY, SectionKind::XZ}) {
        GraphicsInputData data = test::ExampleData();
        data.Loads[1].LoadX = 1E20;
        Screens screens;
        screens.OpenMap(data);
        screens.Choose(1, kind, "0");
        screens.Start();
        EXPECT_EQ(FaultOf(screens), 6);
        EXPECT_EQ(WordsOfFault(screens),
                  "\n\nThe loads lie so far out that no grid of points can be made. Please check their X, Y and "
                  "radius.\n\nThe program ends now.");
        EXPECT_EQ(screens.Folder.Names(), Texts{"Untitled.ven"}) << "nothing was written";
    }
}

TEST(Form6Run, FaultsOnTheWayNameTheFile) {
    struct Row {
        const char* File;
        const char* Hint;
        bool InTheWay;
    };
    for (const Row& row : {Row{"ZIRVO_SV.EVA", "It may not be read or written.", false},
                           Row{"Initial_File", "It may not be read or written.", false},
                           Row{"ZIRVO_SV.CSV", "It may not be read or written.", false},
                           Row{"ZIRVO_SV.TMP", "A file of this name is in the way. Please move or delete it.", true}}) {
        Screens screens;
        screens.OpenMap();
        if (row.InTheWay) {
            PutFile(row.File, "x");
        } else {
            std::filesystem::create_directory(screens.Folder.Path(row.File));
        }
        screens.Choose(1, SectionKind::XY, "0");
        screens.Start();
        EXPECT_TRUE(WordsOfFault(screens).starts_with("\n\nFile: " + screens.Folder.Path(row.File) + "\n" + row.Hint))
            << WordsOfFault(screens);
    }
    Screens again;
    again.OpenMap(RoundedTop());
    again.Choose(1, SectionKind::XZ, "0");
    again.Start();
    again.Map().Command10.UserClick();
    EXPECT_EQ(WordsOfFault(again), "\n\nFile: " + again.Folder.Path("ZIRVO_SV.EVA") +
                                       "\nThis file is still open. Please start ZIRVO again.\n\nThe program ends now.");
}

TEST(Form6Run, ReportsThatAreShortOrHoldWordsAreFaults) {
    struct Row {
        const char* Report;
        int Fault;
    };
    for (const Row& row : {Row{"", 62}, Row{"1\r\n2\r\n", 62},
                           Row{"1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n1\r\n2\r\n1\r\n2\r\n3\r\n4\r\n1 2 x\r\n", 13}}) {
        Texts log;
        auto process = std::make_shared<test::ScriptedProcess>(log);
        process->Work = [&] { PutFile("ZIRVO_SV.BRE", row.Report); };
        Screens screens({.Process = process});
        screens.OpenMap();
        screens.Choose(1, SectionKind::XY, "0");
        screens.Start();
        EXPECT_EQ(FaultOf(screens), row.Fault) << row.Report;
    }
}

}  // namespace
}  // namespace zirvo
