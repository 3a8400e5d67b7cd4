// The map screen as it stands: its words in both languages, and where everything of it is.
#include <gtest/gtest.h>

#include "graphics/screens.h"

namespace zirvo {
namespace {

using test::Screens;
using Texts = std::vector<std::string>;

TEST(Form6, LoadSetsWordsInBothLanguages) {
    for (const Int16 base : {JapaneseBase, EnglishBase}) {
        Screens screens({.Base = base});
        Form6& form = screens.OpenMap();
        const auto words = [base](Int16 k) { return std::string(GetMessage(base, k)); };
        EXPECT_EQ(form.Caption.Get(), "- ZIRVO Ver2.3 -");
        EXPECT_FALSE(form.HasCloseEntry);
        EXPECT_EQ(form.Frame1.Caption.Get(), words(100));
        EXPECT_EQ(form.Combo1.ListCount(), 2);
        EXPECT_EQ(form.Combo1.List(0), words(83));
        EXPECT_EQ(form.Combo1.List(1), words(84));
        EXPECT_EQ(form.Combo1.Text.Get(), "");
        EXPECT_EQ(form.Frame5.Caption.Get(), words(135));
        EXPECT_EQ(form.Option3.Caption.Get(), words(136));
        EXPECT_EQ(form.Option4.Caption.Get(), words(137));
        EXPECT_EQ(form.Option5.Caption.Get(), words(138));
        EXPECT_EQ(form.Label1.Caption.Get(), words(86));
        EXPECT_EQ(form.Label2.Caption.Get(), words(144));
        EXPECT_EQ(form.Command1.Caption.Get(), words(98));
        EXPECT_EQ(form.Command10.Caption.Get(), words(98));
        EXPECT_EQ(form.Frame2.Caption.Get(), words(102));
        EXPECT_EQ(form.Label14.Caption.Get(), words(103));
        EXPECT_EQ(form.Label15.Caption.Get(), words(104));
        EXPECT_EQ(form.Command5.Caption.Get(), words(108));
        EXPECT_EQ(form.Frame3.Caption.Get(), words(109));
        for (Int16 i = 0; i < Form6::DisplayItemCount; ++i) {
            EXPECT_EQ(form.Check1(i).Caption.Get(), words(ToInt16(110 + i)));
        }
        EXPECT_EQ(form.Command6.Caption.Get(), words(115));
        EXPECT_EQ(form.Frame4.Caption.Get(), words(117));
        EXPECT_EQ(form.Label23.Caption.Get(), words(118));
        EXPECT_EQ(form.Label5.Caption.Get(), "(5 - 200)");
        EXPECT_EQ(form.Text14.Text.Get(), "20");
        EXPECT_EQ(form.Command2.Caption.Get(), words(30));
        EXPECT_EQ(form.Command3.Caption.Get(), words(10));
        EXPECT_EQ(form.Command7.Caption.Get(), words(119));
        EXPECT_EQ(form.Command8.Caption.Get(), words(133));
        EXPECT_EQ(form.Command9.Caption.Get(), words(120));
        EXPECT_TRUE(form.Check1(0).Value && form.Check1(2).Value);
        EXPECT_FALSE(form.Check1(1).Value || form.Check1(3).Value || form.Check1(4).Value);
        EXPECT_EQ(form.ContourLineCount, 20);
        EXPECT_FALSE(form.DataReady);
        EXPECT_FALSE(form.ContourPanelOpen);
    }
}

TEST(Form6, ThePictureStandsWhereItIsAndGrowsWithTheScreen) {
    Screens screens;
    screens.Desktop.Size = {.Width = 810 * 15, .Height = 640 * 15, .TwipsPerPixel = 15};
    Form6& form = screens.OpenMap();
    EXPECT_EQ(form.Picture1.Left, 3660);
    EXPECT_EQ(form.Picture1.Top, 240);
    EXPECT_EQ(form.Picture1.Width, 7935);
    EXPECT_EQ(form.Picture1.Height, 8100);
    EXPECT_EQ(form.Width, 11730);
    EXPECT_EQ(form.Height, 8505);
    EXPECT_EQ(screens.Picture().Geometry(), PlotGeometry());
    EXPECT_TRUE(screens.Picture().IsClear());

    // By hand: 7935 * 1920 / 810 / 15 = 1253.93 and 8100 * 1080 / 640 / 15 = 911.25.
    Screens large;
    large.Desktop.Size = {.Width = 1920 * 15, .Height = 1080 * 15, .TwipsPerPixel = 15};
    large.OpenMap();
    EXPECT_EQ(large.Picture().Geometry(), GeometryOfPixels(1254, 911));
}

// Every frame, label, box and button to the left of the picture, none over another, frames around what they hold.
TEST(Form6, TheControlsStandToTheLeftOfThePictureAndNoneOverAnother) {
    Screens screens;
    screens.Desktop.Size = {.Width = 810 * 15, .Height = 640 * 15, .TwipsPerPixel = 15};
    Form6& form = screens.OpenMap();
    const auto shareAPlace = [](const forms::Control& a, const forms::Control& b) {
        const std::string pair = a.Name() + " " + b.Name();
        return pair == "Label1 Label2" || pair == "Text1 Text2" || pair == "Command1 Command10" ||
               (a.Name().starts_with("Image") && b.Name().starts_with("Image"));
    };
    for (const forms::Control* a : form.Controls) {
        const forms::Control* frame = a->Container();
        const double width = frame == nullptr ? form.Width.Get() : frame->Width.Get();
        const double height = frame == nullptr ? form.Height.Get() : frame->Height.Get();
        EXPECT_GE(a->Left, 0) << a->Name();
        EXPECT_GE(a->Top, 0) << a->Name();
        EXPECT_LE(a->Left + a->Width, width) << a->Name();
        EXPECT_LE(a->Top + a->Height, height) << a->Name();
        if (frame == nullptr && a != &form.Picture1) {
            EXPECT_LE(a->Left + a->Width, form.Picture1.Left) << a->Name();
        }
        for (const forms::Control* b : form.Controls) {
            if (a == b || a->Container() != b->Container() || shareAPlace(*a, *b) || shareAPlace(*b, *a)) {
                continue;
            }
            const bool apart = a->Left + a->Width <= b->Left || b->Left + b->Width <= a->Left ||
                               a->Top + a->Height <= b->Top || b->Top + b->Height <= a->Top;
            EXPECT_TRUE(apart) << a->Name() << " over " << b->Name();
        }
    }
}

}  // namespace
}  // namespace zirvo
