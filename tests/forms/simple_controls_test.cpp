// Tests of labels, frames and pictures.
#include "forms/simple_controls.h"

#include <gtest/gtest.h>

#include "forms/plain_form.h"

namespace zirvo::forms {
namespace {

struct LabelForm : PlainForm {
    using PlainForm::PlainForm;
    Label Label7{*this, "Label7"};
    Frame Frame1{*this, "Frame1"};
    PictureBox Picture1{*this, "Picture1", &Frame1};
    Image Image1{*this, "Image1"};
};

TEST(Label, AChangedCaptionRaisesChangeAndTheSameOneDoesNot) {
    Screen<LabelForm> screen;
    screen.form.Label7.Change = [&] { screen.form.Note(screen.form.Label7.Caption); };
    screen.form.Label7.Caption = " 3";
    screen.form.Label7.Caption = " 3";
    screen.form.Label7.Caption = "0";
    EXPECT_EQ(screen.form.Taken(), (Lines{" 3", "0"}));
}

TEST(Label, TheViewIsToldBeforeTheEvent) {
    Screen<LabelForm> screen;
    CountingView view;
    screen.form.Label7.Attach(&view);
    screen.form.Label7.Change = [&] { EXPECT_EQ(view.Refreshes, 1); };
    screen.form.Label7.Caption = "1";
    EXPECT_EQ(view.Refreshes, 1);
    screen.form.Label7.ForeColor = 0xFF0000;
    screen.form.Label7.Align = Alignment::Center;
    EXPECT_EQ(view.Refreshes, 3);
}

TEST(SimpleControls, NoneOfThemTakesTheFocus) {
    Screen<LabelForm> screen;
    for (Control* control : screen.form.Controls) {
        EXPECT_FALSE(control->TakesFocus()) << control->Name();
        EXPECT_FALSE(control->IsTabStop()) << control->Name();
    }
    EXPECT_EQ(FocusOf(screen.form), "");
}

TEST(PictureBox, GivesTheButtonAndThePixelOfAMousePress) {
    Screen<LabelForm> screen;
    Lines seen;
    screen.form.Picture1.MouseDown = [&](int button, int x, int y) {
        seen.push_back(std::to_string(button) + " " + std::to_string(x) + " " + std::to_string(y));
    };
    screen.form.Picture1.UserMouseDown(1, 17, 4);
    screen.form.Picture1.Enabled = false;
    screen.form.Picture1.UserMouseDown(1, 18, 4);
    screen.form.Picture1.Enabled = true;
    screen.form.Frame1.Visible = false;
    screen.form.Picture1.UserMouseDown(1, 19, 4);
    EXPECT_EQ(seen, Lines{"1 17 4"});
}

}  // namespace
}  // namespace zirvo::forms
