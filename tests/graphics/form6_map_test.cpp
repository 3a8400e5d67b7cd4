// RE-DRAW, the probe and SAVE PICTURE on a standing map.
#include <gtest/gtest.h>

#include <algorithm>

#include "contour/number_format.h"
#include "contour/point_overlays.h"
#include "graphics/screens.h"

namespace zirvo {
namespace {

using test::GetFile;
using test::Screens;
using Texts = std::vector<std::string>;

struct MapScreen : Screens {
    explicit MapScreen(SectionKind kind = SectionKind::XY) : Form(OpenMap()) {
        Choose(1, kind, "0");
        Start();
        Desktop.Forget();
    }
    void SetRange(const std::string& low, const std::string& high) {
        App.Dispatch([&] {
            Form.Text3.Text = low;
            Form.Text4.Text = high;
        });
    }
    bool Holds(const std::string& text) {
        const Texts texts = Picture().Texts();
        return std::find(texts.begin(), texts.end(), text) != texts.end();
    }
    Form6& Form;
};

TEST(Redraw, ANarrowedRangeIsDrawnOnTheSameDataWithoutASolverRun) {
    MapScreen screens;
    Form6& form = screens.Form;
    std::filesystem::remove("ZIRVO_SV.BRE");
    std::filesystem::remove("ZIRVO_SV.CSV");
    screens.SetRange("-10", "25");
    form.Command5.UserClick();
    EXPECT_EQ(screens.Desktop.Log, Texts{}) << "nothing painted before a run, nothing thrown away behind one";
    EXPECT_EQ(form.Plot.Data.Map.ValueMin, -10);
    EXPECT_EQ(form.Plot.Data.Map.ValueMax, 25);
    EXPECT_TRUE(screens.Holds("-1.00E1"));  // the legend
    EXPECT_TRUE(screens.Holds("2.50E1"));
    EXPECT_TRUE(screens.Holds("7.50E0"));
    const auto drawn = screens.Picture().Drawn();
    EXPECT_TRUE(std::any_of(drawn.begin(), drawn.end(), [](const PlotCommand& command) {
        return command.What == PlotCommand::Kind::FilledBox && command.Ink == Color{0, 0, 0};
    })) << "what lies beyond the range is black";
}

TEST(Redraw, TheOtherComponentIsTakenOutOfTheReportThatStands) {
    for (const SectionKind kind : {SectionKind::XY, SectionKind::XZ}) {
        MapScreen screens(kind);
        Form6& form = screens.Form;
        const std::string report = GetFile("ZIRVO_SV.BRE");
        const std::string low = form.Text3.Text;
        form.Combo1.UserChoose(1);
        EXPECT_TRUE(screens.Picture().IsClear());
        EXPECT_EQ(form.Text3.Text.Get(), "");
        EXPECT_EQ(form.Text4.Text.Get(), "");
        EXPECT_NE(form.Label17.Caption.Get(), "");
        form.Command5.UserClick();
        EXPECT_EQ(screens.Boxes(), Texts{});
        EXPECT_EQ(GetFile("ZIRVO_SV.BRE"), report) << "stamped once";
        EXPECT_EQ(screens.Desktop.Log, Texts{}) << "no solver run";
        EXPECT_EQ(GetFile("ZIRVO_SV.CSV").substr(16, 13), "# X,Y,Z,EPSz\r");
        EXPECT_NE(form.Text3.Text.Get(), low);
        EXPECT_NE(form.Text3.Text.Get(), "");
        EXPECT_TRUE(screens.Holds(kind == SectionKind::XY ? "EPSz  Section: X-Y  Z=0cm  Layer#=1  <ZIRVO Ver2.3>"
                                                          : "EPSz  Section: X-Z  Y=0cm  <ZIRVO Ver2.3>"));
        EXPECT_TRUE(form.Command7.Enabled);
        EXPECT_FALSE(form.Command5.Enabled);
    }
}

TEST(Redraw, AMaximumBelowTheMinimumIsMendedInSilence) {
    MapScreen screens;
    Form6& form = screens.Form;
    const std::string low = form.Text3.Text;
    const auto drawn = screens.Picture().Drawn().size();
    screens.SetRange("50", "-50");
    form.Command5.UserClick();
    EXPECT_EQ(screens.Boxes(), Texts{});
    EXPECT_EQ(form.Text3.Text.Get(), low);
    EXPECT_EQ(form.Plot.Data.Map.ValueMin, form.Plot.Data.ContourMin);
    EXPECT_EQ(form.Text4.Text.Get(), "-50") << "a maximum that is too low stays";
    EXPECT_EQ(screens.Picture().Drawn().size(), drawn) << "nothing is drawn";
    EXPECT_FALSE(form.Command5.Enabled);
    for (const auto* button : {&form.Command2, &form.Command3, &form.Command7, &form.Command8, &form.Command9}) {
        EXPECT_TRUE(button->Enabled) << button->Name();
    }
    EXPECT_TRUE(form.Text3.Enabled);
    EXPECT_TRUE(form.Check1(4).Enabled);
}

TEST(Redraw, AnEmptyBoxReadsAsNoughtAndMayBeMended) {
    MapScreen screens;
    Form6& form = screens.Form;
    const std::string low = form.Text3.Text;
    std::filesystem::remove("ZIRVO_SV.BRE");  // a rebuild would be fault 53
    screens.SetRange("5", "");
    form.Command5.UserClick();
    EXPECT_FALSE(screens.App.HasEnded());
    EXPECT_EQ(form.Text3.Text.Get(), low);
    EXPECT_EQ(form.Text4.Text.Get(), "");
}

// The other box's text does not change, so no event takes its number into the range; the range has it all the same.
TEST(Redraw, OneEmptyBoxThatPassesRebuildsAndTheRangeIsThatOfBothTexts) {
    MapScreen screens;
    Form6& form = screens.Form;
    const std::string low = form.Text3.Text;
    const std::string high = form.Text4.Text;
    ASSERT_LT(std::stod(low), 0);
    screens.SetRange("", high);
    EXPECT_EQ(form.Plot.Data.Map.ValueMin, 0);
    form.Command5.UserClick();
    EXPECT_EQ(form.Text3.Text.Get(), low);
    EXPECT_EQ(form.Text4.Text.Get(), high);
    EXPECT_EQ(form.Plot.Data.Map.ValueMin, std::stod(low));
    EXPECT_EQ(form.Plot.Data.Map.ValueMax, std::stod(high));
    EXPECT_TRUE(screens.Holds(FormatNumber(std::stod(low), NumberFormat::Scientific2)));
}

TEST(Redraw, WordsReadAsNought) {
    MapScreen screens;
    screens.SetRange("low", "high");
    screens.Form.Command5.UserClick();
    EXPECT_EQ(screens.Form.Plot.Data.Map.ValueMin, 0);
    EXPECT_EQ(screens.Form.Plot.Data.Map.ValueMax, 0);
    EXPECT_TRUE(screens.Holds("0.00E0"));
    EXPECT_FALSE(screens.App.HasEnded());
}

// Nothing is left of the earlier map that could be drawn or saved as if it were of this section.
TEST(Redraw, ChoosingAnotherSectionDropsTheMapUntilTheNextOneStands) {
    MapScreen screens;
    Form6& form = screens.Form;
    form.Option4.UserClick();
    EXPECT_TRUE(screens.Picture().IsClear());
    EXPECT_FALSE(form.DataReady);
    EXPECT_FALSE(form.Command5.Enabled);
    EXPECT_FALSE(form.Command7.Enabled);
    EXPECT_EQ(form.Label17.Caption.Get(), "");
    form.Combo1.UserChoose(1);
    EXPECT_FALSE(form.Option4.Value) << "no map stands: back to the choice of a section";
    EXPECT_FALSE(form.Command5.Enabled);
    EXPECT_FALSE(form.Command7.Enabled);
    screens.Choose(2, SectionKind::XZ, "0");
    screens.Start();
    EXPECT_EQ(screens.Desktop.BoxTexts(), Texts{});
    EXPECT_TRUE(form.Command7.Enabled);
    form.Combo1.UserChoose(0);
    form.Command5.UserClick();
    EXPECT_TRUE(screens.Holds("EPSx  Section: X-Z  Y=0cm  <ZIRVO Ver2.3>"));
}

// Looked at while the map stands ready and the handler has not ended: nothing else could be started meanwhile.
TEST(Redraw, WhileItDrawsNothingElseCanBeStarted) {
    MapScreen screens;
    Form6& form = screens.Form;
    const auto enabled = [&form] {
        return test::NamesOf(form, [&form](const forms::Control& control) {
            return control.Enabled && (control.Name().starts_with("Command") || control.Name() == "Check1" ||
                                       &control == &form.Text3 || &control == &form.Text4);
        });
    };
    screens.App.Dispatch([&] { form.Command10.Enabled = true; });  // as a position of the other section leaves it
    form.Check1(1).UserClick();
    Texts seen;
    screens.Picture().OnPresent = [&] { seen.push_back(enabled()); };
    form.Command5.UserClick();
    EXPECT_EQ(seen, Texts{""});
    EXPECT_EQ(enabled(), "Text3 Text4 Check1 Command2 Command3 Command7 Command8 Command9");
    screens.SetRange("", "");
    seen.clear();
    form.Command5.UserClick();  // the data set is made again: cleared behind the new range texts, then drawn
    EXPECT_EQ(seen, (Texts{"Command5", ""})) << "those texts enable RE-DRAW, which the clearing disables again";
}

TEST(MapPicture, BeginsBlackWithWhiteArial) {
    Screens screens;
    screens.OpenMap();
    const PlotSurface& surface = screens.Picture().Surface();
    EXPECT_EQ(surface.BackColor, (Color{0, 0, 0}));
    EXPECT_EQ(surface.ForeColor, (Color{255, 255, 255}));
    EXPECT_EQ(surface.FontName, "arial");
    EXPECT_EQ(surface.FontSize, FontPoints::Ten);
    EXPECT_TRUE(screens.Picture().IsClear());
}

// By hand: on 1024 by 768 pixels the picture has 669 by 648, 10035 by 9720 twips. The 70 cm of either axis fill it but
// for 750 + 450 and 600 + 600 twips: 35 + 70 * 750 / 8835 = 40.9423 and 35 + 70 * 600 / 8520 = 39.9296.
TEST(MapPicture, IsFilledByTheMapButForItsMargins) {
    MapScreen screens;
    const PictureScale& scale = screens.Picture().Surface().Picture();
    EXPECT_EQ(scale.PixelsWide, 669);
    EXPECT_EQ(scale.PixelsHigh, 648);
    EXPECT_NEAR(scale.X1, -40.9423, 1e-4);
    EXPECT_NEAR(scale.Y1, 39.9296, 1e-4);
}

TEST(MapPicture, GoesWithTheFirstStrokeInThePositionBox) {
    MapScreen screens;
    Form6& form = screens.Form;
    ASSERT_FALSE(screens.Picture().IsClear());
    screens.App.Dispatch([&] { form.Text1.SetFocus(); });
    forms::Type(form, "5");
    EXPECT_TRUE(screens.Picture().IsClear());
    EXPECT_FALSE(form.DataReady);
    for (const forms::Label* label : {&form.Label17, &form.Label18, &form.Label20, &form.Label21}) {
        EXPECT_EQ(label->Caption.Get(), "") << label->Name();
    }
    EXPECT_EQ(form.Text3.Text.Get() + form.Text4.Text.Get(), "");
}

TEST(MapPicture, BehindASectionClickNothingAnswersTheProbe) {
    MapScreen screens;
    screens.Form.Option4.UserClick();
    ASSERT_TRUE(screens.Picture().IsClear());
    screens.Form.Picture1.UserMouseDown(1, 301, 201);
    EXPECT_TRUE(screens.Picture().IsClear());
    EXPECT_TRUE(screens.Picture().IsPresented());
}

// Where a point of the extent lies on the picture, by the scale in force.
struct PixelPoint {
    int X;
    int Y;
};
PixelPoint PixelOf(Screens& screens, double x, double y) {
    const PictureScale& scale = screens.Picture().Surface().Picture();
    return {scale.Column(static_cast<float>(x)) + 1, scale.Row(static_cast<float>(y)) + 1};
}

TEST(Probe, ALeftClickWritesTheValueBesideACross) {
    for (const SectionKind kind : {SectionKind::XY, SectionKind::XZ}) {
        MapScreen screens(kind);
        Form6& form = screens.Form;
        const auto before = screens.Picture().Drawn();
        const PixelPoint at = PixelOf(screens, 10.3, 4.7);
        form.Picture1.UserMouseDown(1, at.X, at.Y);
        const auto after = screens.Picture().Drawn();
        ASSERT_EQ(after.size(), before.size() + 2);
        EXPECT_TRUE(std::equal(before.begin(), before.end(), after.begin())) << "on the map that stands";
        const PicturePoint point = screens.Picture().PointAt(at.X, at.Y);
        EXPECT_NEAR(point.X, 10.3, 0.3);
        EXPECT_NEAR(point.Y, 4.7, 0.3);
        const auto value = ProbeValue(form.Plot.Data.Map, point.X, point.Y);
        ASSERT_TRUE(value.has_value());
        EXPECT_EQ(after[before.size()].Text, "+");
        EXPECT_EQ(after[before.size()].Ink, (Color{250, 250, 250}));
        EXPECT_EQ(after.back().Text, FormatNumber(*value, NumberFormat::Scientific1));
        EXPECT_TRUE(screens.Picture().IsPresented());
        // A second one beside it; both stay until the next clear.
        form.Picture1.UserMouseDown(1, at.X + 20, at.Y);
        EXPECT_EQ(screens.Picture().Drawn().size(), before.size() + 4);
        form.Check1(3).UserClick();
        form.Command5.UserClick();
        const Texts texts = screens.Picture().Texts();
        EXPECT_EQ(std::count(texts.begin(), texts.end(), "+"), 0);
    }
}

TEST(Probe, OtherButtonsMarginsAndAnEmptyScreenDoNothing) {
    MapScreen screens;
    Form6& form = screens.Form;
    const auto drawn = screens.Picture().Drawn().size();
    const PixelPoint at = PixelOf(screens, 10.3, 4.7);
    form.Picture1.UserMouseDown(2, at.X, at.Y);
    form.Picture1.UserMouseDown(4, at.X, at.Y);
    for (const PixelPoint margin : {PixelPoint{2, at.Y}, PixelPoint{at.X, 2}, PixelPoint{10000, at.Y},
                                    PixelPoint{at.X, 10000}, PixelPoint{-5, -5}}) {
        form.Picture1.UserMouseDown(1, margin.X, margin.Y);
    }
    EXPECT_EQ(screens.Picture().Drawn().size(), drawn);
    form.Command8.UserClick();
    form.Picture1.UserMouseDown(1, at.X, at.Y);
    EXPECT_TRUE(screens.Picture().IsClear());
}

TEST(SavePicture, AsksWhereAndSavesThere) {
    for (const Int16 base : {JapaneseBase, EnglishBase}) {
        Screens screens({.Base = base});
        Form6& form = screens.OpenMap();
        screens.Choose(1, SectionKind::XY, "0");
        screens.Start();
        screens.Desktop.Paths = {screens.Folder.Path("map.bmp")};
        form.Command7.UserClick();
        ASSERT_EQ(screens.Desktop.Dialogs.size(), 1U);
        EXPECT_EQ(screens.Desktop.Dialogs[0].What, forms::ScriptedDesktop::Dialog::Kind::Save);
        const forms::FileDialog& asked = screens.Desktop.Dialogs[0].Asked;
        EXPECT_EQ(asked.Owner, &form);
        EXPECT_EQ(asked.Title, GetMessage(base, 55)) << "the words of an open dialog, as they stand";
        EXPECT_EQ(asked.Folder, screens.Folder.Path());
        EXPECT_EQ(asked.Filter, GetMessage(base, 126));
        EXPECT_EQ(asked.FilterIndex, 1);
        EXPECT_EQ(asked.StartName, "*.bmp");
        EXPECT_TRUE(asked.PathMustExist);
        EXPECT_EQ(screens.Picture().Saved, Texts{screens.Folder.Path("map.bmp")});
        EXPECT_EQ(screens.Boxes(), Texts{}) << "and replaces an existing file with no question";
        EXPECT_TRUE(form.Command7.Enabled);
    }
}

TEST(SavePicture, ACancelPassesWithoutAWord) {
    MapScreen screens;
    screens.Desktop.Paths = {std::nullopt};
    screens.Form.Command7.UserClick();
    EXPECT_EQ(screens.Picture().Saved, Texts{});
    EXPECT_EQ(screens.Boxes(), Texts{});
    EXPECT_FALSE(screens.App.HasEnded());
}

TEST(SavePicture, OneFailureOfTheDialogIsToldAndAllOthersAreNot) {
    MapScreen screens;
    screens.Desktop.SaveFailure = RuntimeFault(32755, "Cancel was selected.");
    screens.Form.Command7.UserClick();
    ASSERT_EQ(screens.Desktop.Boxes.size(), 1U);
    EXPECT_EQ(screens.Desktop.Boxes[0], (forms::Message{.Text = "Error: Cancel was selected."}));
    EXPECT_FALSE(screens.App.HasEnded());
    screens.Desktop.Forget();
    for (const int number : {20001, 13450, 53, 61, 70, 75, 76}) {
        screens.Desktop.SaveFailure = RuntimeFault(number, "of the dialog");
        screens.Form.Command7.UserClick();
    }
    screens.Desktop.SaveFailure.reset();
    for (const int number : {57, 61, 70, 75, 76}) {
        screens.Desktop.Paths = {screens.Folder.Path("map.bmp")};
        screens.Picture().SaveFault = number;
        screens.Form.Command7.UserClick();
    }
    EXPECT_EQ(screens.Boxes(), Texts{});
    EXPECT_FALSE(screens.App.HasEnded());
}

TEST(SavePicture, ANameWithoutExtensionIsABitmaps) {
    MapScreen screens;
    screens.Desktop.Paths = {screens.Folder.Path("map")};
    screens.Form.Command7.UserClick();
    EXPECT_EQ(screens.Picture().Saved, Texts{screens.Folder.Path("map.bmp")});
    EXPECT_TRUE(screens.Picture().SavedAs.empty());
}

TEST(SavePicture, PngSvgAndPdfAreWrittenAsSuch) {
    MapScreen screens;
    screens.Desktop.Paths = {screens.Folder.Path("map.png"), screens.Folder.Path("map.SVG"),
                             screens.Folder.Path("map.pdf")};
    for (int i = 0; i < 3; ++i) {
        screens.Form.Command7.UserClick();
    }
    const std::string title = "EPSx  Section: X-Y  Z=0cm  Layer#=1  <ZIRVO Ver2.3>";
    const std::vector<std::pair<MapFileFormat, std::string>> expected{
        {MapFileFormat::Png, title}, {MapFileFormat::Svg, title}, {MapFileFormat::Pdf, title}};
    EXPECT_EQ(screens.Picture().SavedAs, expected);
    EXPECT_EQ(screens.Boxes(), Texts{});
}

TEST(SavePicture, OtherFormatsHoldWhatStandsOnTheScreenNotWhatTheBoxesSayMeanwhile) {
    MapScreen screens;
    Form6& form = screens.Form;
    form.Check1(1).UserClick();  // lines
    screens.SetRange("-10", "25");
    form.Command5.UserClick();
    form.Picture1.UserMouseDown(1, screens.Picture().Surface().Picture().PixelsWide / 2, 200);
    std::vector<PlotCommand> shown = screens.Picture().Drawn();
    ASSERT_FALSE(shown.empty());
    form.Check1(1).UserClick();  // not drawn any more after the next RE-DRAW
    screens.SetRange("-5", "5");
    screens.Desktop.Paths = {screens.Folder.Path("map.svg")};
    form.Command7.UserClick();
    std::vector<PlotCommand> saved = screens.Picture().DrawnForFile;
    const auto clear = std::find_if(saved.rbegin(), saved.rend(),
                                    [](const PlotCommand& command) { return command.What == PlotCommand::Kind::Cls; });
    saved.erase(saved.begin(), clear.base());
    EXPECT_EQ(saved, shown);
    EXPECT_EQ(form.Plot.Data.Map.ValueMin, -5) << "what the user has typed stands";
}

TEST(SavePicture, AClearedPictureIsSavedAsSuchInEveryFormat) {
    MapScreen screens;
    screens.Form.Combo1.UserChoose(1);  // the map goes, its data stand
    screens.Desktop.Paths = {screens.Folder.Path("map.svg")};
    screens.Form.Command7.UserClick();
    ASSERT_EQ(screens.Picture().DrawnForFile.size(), 1U);
    EXPECT_EQ(screens.Picture().DrawnForFile[0].What, PlotCommand::Kind::Cls);
}

TEST(SavePicture, AFileThatIsNoPictureIsReplacedOnlyAfterAQuestion) {
    for (const Int16 base : {JapaneseBase, EnglishBase}) {
        Screens screens({.Base = base});
        Form6& form = screens.OpenMap();
        screens.Choose(1, SectionKind::XY, "0");
        screens.Start();
        screens.Desktop.Forget();
        const std::string data = screens.Folder.Path("road.eva");
        test::PutFile(data, " 3 4\r\n");
        screens.Desktop.Paths = {data, data};
        screens.Desktop.Answers = {forms::Answer::No, forms::Answer::Yes};
        form.Command7.UserClick();
        ASSERT_EQ(screens.Desktop.Boxes.size(), 1U);
        EXPECT_EQ(screens.Desktop.Boxes[0].Text, GetMessage(base, 64));
        EXPECT_EQ(screens.Desktop.Boxes[0].Choice, forms::Buttons::YesNo);
        EXPECT_EQ(screens.Picture().Saved, Texts{});
        EXPECT_EQ(test::GetFile(data), " 3 4\r\n");
        form.Command7.UserClick();
        EXPECT_EQ(screens.Picture().Saved, Texts{data});
    }
}

TEST(CopyPicture, ControlCCopiesTheMapThatStands) {
    MapScreen screens;
    Form6& form = screens.Form;
    const auto copy = [&form](forms::Control& control) {
        control.UserFocus();
        form.Strike({.Code = 'C', .Character = 3, .Control = true});
    };
    copy(form.Command7);
    EXPECT_EQ(screens.Picture().Copies, 1);
    copy(form.Check1(0));
    EXPECT_EQ(screens.Picture().Copies, 2);
    form.Text3.UserFocus();
    form.Text3.SelStart = 0;
    form.Text3.SelLength = 2;
    copy(form.Text3);
    EXPECT_EQ(screens.Picture().Copies, 2) << "what is selected in a box is copied instead";
    form.Text3.SelLength = 0;
    copy(form.Text3);
    EXPECT_EQ(screens.Picture().Copies, 3);
    form.Command8.UserClick();  // no map
    copy(form.Combo1);
    EXPECT_EQ(screens.Picture().Copies, 3);
}

}  // namespace
}  // namespace zirvo
