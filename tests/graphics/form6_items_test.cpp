// Work on a standing map that needs no new drawing to be judged: display items, contour panel, key filters of the value
// range.
#include <gtest/gtest.h>

#include <array>
#include <set>

#include "graphics/screens.h"

namespace zirvo {
namespace {

using test::Screens;
using test::Ticks;
using Texts = std::vector<std::string>;

const Texts TheMessage{"ZIRVO Ver2.3|ANALYTICAL RESULTS (ON) -> ANALYTICAL POINTS (ON) AND LEGEND (OFF)"};

/// A map of the example at the surface, on the screen of a test.
struct ItemsScreen : Screens {
    explicit ItemsScreen(const test::ScreenOptions& options = {}) : Screens(options), Form(OpenMap()) {
        Choose(1, SectionKind::XY, "0");
        Start();
        Desktop.Forget();
    }
    Form6& Form;
};

// All 32 rows of ticks, each reached by a click on each of its boxes: by hand from the rule.
TEST(DisplayItems, EveryClickFollowsTheRule) {
    ItemsScreen screens;
    Form6& form = screens.Form;
    for (int mask = 0; mask < 32; ++mask) {
        for (int clicked = 0; clicked < 5; ++clicked) {
            // Lines, legend, points, results without the rule: the state before the click.
            const auto bit = [mask](int i) { return (mask >> i & 1) != 0; };
            if (bit(4) && (!bit(3) || bit(2))) {
                continue;  // does not stand before any click
            }
            screens.App.Dispatch([&] {
                for (int i = 4; i >= 0; --i) {
                    form.Check1(i).Value = false;
                }
                for (int i = 0; i < 5; ++i) {
                    form.Check1(i).Value = bit(i);
                }
            });
            screens.Desktop.Forget();
            std::array<bool, 5> expected{bit(0), bit(1), bit(2), bit(3), bit(4)};
            expected[static_cast<std::size_t>(clicked)] = !expected[static_cast<std::size_t>(clicked)];
            const bool corrected = expected[4] && (!expected[3] || expected[2]);
            if (corrected) {
                expected[3] = true;
                expected[2] = false;
            }
            form.Check1(clicked).UserClick();
            for (int i = 0; i < 5; ++i) {
                EXPECT_EQ(form.Check1(i).Value, expected[static_cast<std::size_t>(i)]) << mask << " " << clicked;
            }
            EXPECT_EQ(screens.Boxes(), corrected ? TheMessage : Texts{}) << mask << " " << clicked;
            EXPECT_EQ(form.Command5.Enabled, expected[1] || expected[2] || expected[3] || expected[4])
                << mask << " " << clicked << ": the fill alone does not count";
            EXPECT_EQ(form.Command6.Enabled, expected[1]) << mask << " " << clicked;
        }
    }
}

TEST(DisplayItems, ResultsComeWithPointsAndWithoutTheLegendAndTheUserIsToldOnce) {
    ItemsScreen screens;
    Form6& form = screens.Form;
    std::string atTheMessage;
    screens.Desktop.OnBox = [&](const forms::Message&) { atTheMessage = Ticks(form); };
    form.Check1(4).UserClick();
    EXPECT_EQ(atTheMessage, "x-x-x") << "told first, then done";
    EXPECT_EQ(Ticks(form), "x--xx");
    EXPECT_EQ(screens.Boxes(), TheMessage);
    EXPECT_EQ(screens.Desktop.Boxes[0].Picture, forms::Icon::Exclamation);
    EXPECT_TRUE(form.Command5.Enabled);
    EXPECT_FALSE(form.Command6.Enabled);
    // And again, when the legend is ticked beside them.
    form.Check1(2).UserClick();
    EXPECT_EQ(Ticks(form), "x--xx");
    EXPECT_EQ(screens.Desktop.Boxes.size(), 2U);
    // Taking the points away brings them back.
    form.Check1(3).UserClick();
    EXPECT_EQ(Ticks(form), "x--xx");
    EXPECT_EQ(screens.Desktop.Boxes.size(), 3U);
}

TEST(DisplayItems, AMapShowsWhatIsTicked) {
    ItemsScreen screens;
    Form6& form = screens.Form;
    const auto draw = [&] {
        form.Command5.UserClick();
        return screens.Picture().Texts();
    };
    form.Check1(2).UserClick();
    form.Check1(3).UserClick();
    Texts texts = draw();
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "X"), 625);
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "-35.0"), 2) << "numbers of both axes";
    form.Check1(4).UserClick();
    texts = draw();
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "X"), 625);
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "-35.0"), 0) << "bare frame under results";
    EXPECT_EQ(texts.size(), 625U + 625U + 1U);
    EXPECT_TRUE(screens.Picture().IsPresented());
    EXPECT_FALSE(form.Command5.Enabled);
    EXPECT_FALSE(form.Command6.Enabled) << "the end of a drawing does not enable the panel";
}

/// Opens the panel, puts a count in, closes it.
void AskFor(ItemsScreen& screens, const std::string& count) {
    if (!screens.Form.Command6.Enabled) {
        screens.Form.Check1(1).UserClick();
        if (!screens.Form.Check1(1).Value) {
            screens.Form.Check1(1).UserClick();
        }
    }
    screens.Form.Command6.UserClick();
    screens.App.Dispatch([&] { screens.Form.Text14.Text = count; });
    screens.Form.Command6.UserClick();
}

TEST(ContourPanel, OpensAndCloses) {
    ItemsScreen screens;
    Form6& form = screens.Form;
    form.Check1(1).UserClick();
    form.Command6.UserClick();
    EXPECT_TRUE(form.ContourPanelOpen);
    EXPECT_TRUE(form.Frame4.Visible);
    EXPECT_EQ(form.Command6.Caption.Get(), "<<");
    EXPECT_EQ(forms::FocusOf(form), "Text14");
    EXPECT_FALSE(form.Command5.Enabled);
    form.Command6.UserClick();
    EXPECT_FALSE(form.ContourPanelOpen);
    EXPECT_FALSE(form.Frame4.Visible);
    EXPECT_EQ(form.Command6.Caption.Get(), ">>");
    EXPECT_EQ(forms::FocusOf(form), "Command5");
    EXPECT_TRUE(form.Command5.Enabled);
}

TEST(ContourPanel, EnterInItsBoxClosesIt) {
    ItemsScreen screens;
    Form6& form = screens.Form;
    form.Check1(1).UserClick();
    form.Command6.UserClick();
    screens.App.Dispatch([&] { form.Text14.SelLength = 9; });
    forms::Type(form, "30\r");
    EXPECT_FALSE(form.ContourPanelOpen);
    EXPECT_EQ(form.ContourLineCount, 30);
    EXPECT_EQ(forms::FocusOf(form), "Command5");
}

std::set<std::array<int, 3>> LineColours(Screens& screens) {
    std::set<std::array<int, 3>> colours;
    for (const PlotCommand& command : screens.Picture().Drawn()) {
        if (command.What == PlotCommand::Kind::Line) {
            colours.insert({command.Ink.Red, command.Ink.Green, command.Ink.Blue});
        }
    }
    return colours;
}

struct CountRow {
    const char* Typed;
    const char* Shown;
    Int16 Count;
};

TEST(ContourPanel, TheCountHasALeastAndNoMost) {
    for (const CountRow& row :
         {CountRow{"3", "5", 5}, CountRow{"5", "5", 5}, CountRow{"200", "200", 200}, CountRow{"500", "500", 500},
          CountRow{"", "5", 5}, CountRow{"-8", "5", 5}, CountRow{"4.6", "4.6", 5}, CountRow{"x", "5", 5}}) {
        ItemsScreen screens;
        AskFor(screens, row.Typed);
        EXPECT_EQ(screens.Form.Text14.Text.Get(), row.Shown) << row.Typed;
        EXPECT_EQ(screens.Form.ContourLineCount, row.Count) << row.Typed;
        // And a map is drawn with that many levels: lines alone have the colours of their levels. The lowest and the
        // highest may touch no cell, and far apart levels are all that a small count has.
        screens.Form.Check1(0).UserClick();
        screens.Form.Check1(2).UserClick();
        screens.Form.Command5.UserClick();
        const auto levels = static_cast<int>(LineColours(screens).size());
        EXPECT_LE(levels, row.Count) << row.Typed;
        EXPECT_GE(levels, row.Count - 2) << row.Typed;
        EXPECT_EQ(screens.Boxes(), Texts{});
    }
}

TEST(ContourPanel, ACountBeyond16BitsIsAFault) {
    ItemsScreen screens;
    Form6& form = screens.Form;
    form.Check1(1).UserClick();
    form.Command6.UserClick();
    screens.App.Dispatch([&] { form.Text14.Text = ""; });
    forms::Type(form, "3276");
    EXPECT_EQ(form.ContourLineCount, 3276);
    EXPECT_FALSE(screens.App.HasEnded());
    forms::Type(form, "8");
    EXPECT_EQ(screens.Desktop.BoxTexts(),
              Texts{"Run-time error '6':\n\nOverflow\n\nThe number of contour lines is too large: 32768\n\n"
                    "The program ends now."});
    EXPECT_EQ(screens.Desktop.EndStatus, 1);
}

TEST(ContourPanel, AnItemClickedBesideTheOpenPanelLetsALowCountReachTheMapAsFive) {
    ItemsScreen screens;
    Form6& form = screens.Form;
    form.Check1(1).UserClick();
    form.Command6.UserClick();
    screens.App.Dispatch([&] { form.Text14.Text = "2"; });
    EXPECT_EQ(form.ContourLineCount, 2);
    form.Check1(3).UserClick();
    ASSERT_TRUE(form.Command5.Enabled);
    form.Command5.UserClick();
    EXPECT_EQ(form.ContourLineCount, 5);
    EXPECT_EQ(form.Text14.Text.Get(), "5");
    EXPECT_TRUE(form.Frame4.Visible) << "and the panel stays open";
}

TEST(ContourPanel, StaysOpenOverAResetAndGoesBackToTwenty) {
    for (const char* way : {"component", "clear", "position"}) {
        ItemsScreen screens;
        Form6& form = screens.Form;
        form.Check1(1).UserClick();
        form.Command6.UserClick();
        screens.App.Dispatch([&] { form.Text14.Text = "77"; });
        if (way == std::string("component")) {
            form.Combo1.UserChoose(1);
            EXPECT_EQ(form.ContourLineCount, 77) << "the map still stands";
        } else {
            if (way == std::string("clear")) {
                form.Command8.UserClick();
            } else {
                screens.App.Dispatch([&] { form.Text1.Text = "3"; });
            }
            EXPECT_EQ(form.ContourLineCount, 20) << way;
            EXPECT_EQ(form.Text14.Text.Get(), "20") << way;
        }
        EXPECT_TRUE(form.ContourPanelOpen) << way;
        EXPECT_TRUE(form.Frame4.Visible) << way;
        EXPECT_EQ(form.Command6.Caption.Get(), "<<") << way;
        EXPECT_FALSE(form.Command6.Enabled) << way;
        if (way == std::string("clear")) {
            screens.App.Dispatch([&] { form.Text14.SetFocus(); });
            forms::Press(form, forms::key::Enter);
            EXPECT_TRUE(form.ContourPanelOpen) << "a disabled button is not pressed";
        }
    }
}

TEST(ValueRange, KeysThatNoNumberHoldsAreDropped) {
    ItemsScreen screens;
    Form6& form = screens.Form;
    for (forms::TextBox* box : {&form.Text3, &form.Text4}) {
        screens.App.Dispatch([&] {
            box->Text = "";
            box->SetFocus();
        });
        forms::Type(form, "1.5e-3");
        EXPECT_EQ(box->Text.Get(), "1.5e-3");
        screens.App.Dispatch([&] { box->Text = ""; });
        forms::Type(form, "1,5/x:A~\x1b D+E7\b8");
        EXPECT_EQ(box->Text.Get(), "15 D+E8") << "the blank passes here";
    }
}

TEST(ValueRange, ATextIsTheRangeAtOnce) {
    ItemsScreen screens;
    Form6& form = screens.Form;
    screens.App.Dispatch([&] { form.Text3.SetFocus(); });
    EXPECT_FALSE(form.Command5.Enabled);
    screens.App.Dispatch([&] { form.Text3.Text = "-12.345 x"; });
    EXPECT_EQ(form.Plot.Data.Map.ValueMin, -12.345);
    EXPECT_TRUE(form.Command5.Enabled);
    screens.App.Dispatch([&] {
        form.Command5.Enabled = false;
        form.Text4.Text = "";
    });
    EXPECT_EQ(form.Plot.Data.Map.ValueMax, 0);
    EXPECT_TRUE(form.Command5.Enabled);
}

TEST(ValueRange, EnterWritesTheNumberInItsFormat) {
    ItemsScreen screens;
    Form6& form = screens.Form;
    screens.App.Dispatch([&] {
        form.Text3.Text = "-12.345";
        form.Text4.Text = "1500 or so";
        form.Text3.SetFocus();
    });
    forms::Press(form, forms::key::Enter);
    EXPECT_EQ(form.Text3.Text.Get(), "-1.23E+01") << "half away from zero on the decimal digits: -12.345 is -1.2345";
    EXPECT_EQ(form.Plot.Data.Map.ValueMin, -12.3) << "the change takes the number of the new text";
    screens.App.Dispatch([&] { form.Text4.SetFocus(); });
    forms::Press(form, forms::key::Enter);
    EXPECT_EQ(form.Text4.Text.Get(), "1.50E+03");
}

}  // namespace
}  // namespace zirvo
