// The run of the map screen: the chain inside one click of a start button, with the solver itself or a scripted one.
#include <gtest/gtest.h>

#include <array>

#include "graphics/map_starts.h"
#include "pavement/scripted_process.h"
#include "platform/files.h"

namespace zirvo {
namespace {

using forms::Answer;
using forms::Icon;
using test::FaultOf;
using test::GetFile;
using test::PutFile;
using test::Screens;
using test::ThreeLayers;
using Texts = std::vector<std::string>;

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
        EXPECT_EQ(log, (Texts{"start " + JoinPath("programs", "ZIRVO_SV22.exe"), "open 41"}));
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

// Ten loads side by side: 187 positions an axis, 34969 points.
TEST(Form6Run, ALargeSectionTellsHowFarItHasComeAndThatItHasEnded) {
    Screens screens;
    Form6& form = screens.OpenMap(test::LoadsSideBySide(10));
    screens.Choose(1, SectionKind::XY, "0");
    screens.Desktop.Ticks.clear();
    screens.Start();
    ASSERT_EQ(form.Plot.Data.Count(), 34969);
    const std::vector<double>& ticks = screens.Desktop.Ticks;
    EXPECT_EQ(screens.Desktop.WorksUnderWay, 0);
    EXPECT_EQ(screens.Desktop.TicksOutsideOfWork, 0);
    // Of the solver's time nobody knows the share; then conversion and reading are one work.
    const auto known = std::find_if(ticks.begin(), ticks.end(), [](double done) { return done >= 0; });
    EXPECT_TRUE(std::all_of(ticks.begin(), known, [](double done) { return done == -1; }));
    EXPECT_GT(ticks.end() - known, 300);
    EXPECT_TRUE(std::is_sorted(known, ticks.end()));
    EXPECT_GT(ticks.back(), 0.95);
    EXPECT_LE(ticks.back(), 1);
    screens.Desktop.Ticks.clear();
    form.Check1(1).UserClick();                      // CONTOUR LINE
    form.Command5.UserClick();                       // RE-DRAW
    EXPECT_EQ(screens.Desktop.Ticks.size(), 1860U);  // one for each row of the fine matrix, ten to a gap
    EXPECT_TRUE(std::is_sorted(ticks.begin(), ticks.end()));
    EXPECT_EQ(ticks.back(), 1);
    screens.Desktop.Ticks.clear();
    form.Check1(4).UserClick();  // ANALYTICAL RESULTS, which bring the points
    form.Command5.UserClick();
    EXPECT_EQ(ticks.size(), 1860U + 2 * 187U);  // and one for each row of points and of values
    EXPECT_TRUE(std::is_sorted(ticks.begin(), ticks.end()));
    EXPECT_EQ(ticks.back(), 1);
    EXPECT_EQ(screens.Desktop.WorksUnderWay, 0);
}

TEST(Form6Run, AFaultWithinTheConversionEndsTheWorkToo) {
    Screens screens;
    screens.OpenMap(test::LoadsSideBySide(2));
    screens.Choose(1, SectionKind::XY, "0");
    PutFile("ZIRVO_SV.TMP", "in the way");
    screens.Start();
    EXPECT_EQ(FaultOf(screens), 58);
    EXPECT_FALSE(screens.Desktop.Ticks.empty());
    EXPECT_EQ(screens.Desktop.WorksUnderWay, 0);
    EXPECT_EQ(screens.Desktop.TicksOutsideOfWork, 0);
}

}  // namespace
}  // namespace zirvo
