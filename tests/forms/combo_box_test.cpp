// Tests of the combo box: its entries, its text, choices by key and by mouse.
#include "forms/combo_box.h"

#include <gtest/gtest.h>

#include "base/fault_of.h"
#include "forms/plain_form.h"

namespace zirvo::forms {
namespace {

struct ComboForm : PlainForm {
    CommandButton Command1{*this, "Command1"};
    ComboBox Combo1{*this, "Combo1"};

    explicit ComboForm(forms::Application& application) : PlainForm(application) {
        Combo1.AddItem("EPSx");
        Combo1.AddItem("EPSz");
        Combo1.Click = [this] { Note("click " + std::to_string(Combo1.ListIndex)); };
        Combo1.Change = [this] { Note("change " + Combo1.Text.Get()); };
    }
};

struct Combo : testing::Test {
    Screen<ComboForm> screen;
    ComboForm& form = screen.form;
    ComboBox& combo = form.Combo1;
};

TEST_F(Combo, StartsWithNoEntry) {
    EXPECT_EQ(combo.ListIndex, -1);
    EXPECT_EQ(combo.ListCount(), 2);
    EXPECT_EQ(combo.List(1), "EPSz");
    EXPECT_EQ(FaultOf([&] { combo.List(2); }), fault::InvalidCall);
    EXPECT_EQ(FaultOf([&] { combo.List(-1); }), fault::InvalidCall);
}

TEST_F(Combo, AChangedIndexSetsTheTextAndRaisesClick) {
    combo.ListIndex = 1;
    combo.ListIndex = 1;
    EXPECT_TRUE(combo.Text == "EPSz");
    EXPECT_EQ(form.Taken(), Lines{"click 1"});
    combo.ListIndex = -1;
    EXPECT_TRUE(combo.Text == "");
    EXPECT_EQ(form.Taken(), Lines{"click -1"});
}

TEST_F(Combo, AnIndexOutsideTheListIsFault5) {
    EXPECT_EQ(FaultOf([&] { combo.ListIndex = 2; }), fault::InvalidCall);
    EXPECT_EQ(FaultOf([&] { combo.ListIndex = -2; }), fault::InvalidCall);
    EXPECT_EQ(combo.ListIndex, -1);
}

TEST_F(Combo, WritingTheTextOfAnEntryMakesItCurrent) {
    combo.Text = "EPSz";
    EXPECT_EQ(combo.ListIndex, 1);
    combo.Text = "EPSz";
    EXPECT_EQ(form.Taken(), Lines{"click 1"});
}

TEST_F(Combo, WritingATextThatIsNoEntryMakesTheIndexMinusOneWithoutAnEvent) {
    combo.ListIndex = 0;
    form.Taken();
    combo.Text = "EP";
    EXPECT_EQ(combo.ListIndex, -1);
    EXPECT_TRUE(combo.Text == "EP");
    combo.Text = "";
    EXPECT_EQ(form.Taken(), Lines{});
}

TEST_F(Combo, AChoiceRaisesClickAlsoWhenItIsTheSame) {
    combo.ListOpen = true;
    combo.UserChoose(1);
    EXPECT_FALSE(combo.ListOpen);
    EXPECT_EQ(FocusOf(form), "Combo1");
    combo.UserChoose(1);
    EXPECT_EQ(form.Taken(), (Lines{"click 1", "click 1"}));
    combo.UserChoose(2);
    combo.UserChoose(-1);
    EXPECT_EQ(form.Taken(), Lines{});
}

TEST_F(Combo, ADisabledOneTakesNoChoiceAndNoText) {
    combo.Enabled = false;
    combo.UserChoose(1);
    combo.UserEdited("E", 1, 0);
    EXPECT_EQ(combo.ListIndex, -1);
    EXPECT_TRUE(combo.Text == "");
    EXPECT_EQ(form.Taken(), Lines{});
}

TEST_F(Combo, UpAndDownWithTheListClosedAreAChoice) {
    combo.SetFocus();
    Press(form, key::Down);
    Press(form, key::Down);
    Press(form, key::Down);  // the last one already: no choice
    Press(form, key::Up);
    Press(form, key::Up);
    EXPECT_EQ(form.Taken(), (Lines{"click 0", "click 1", "click 0"}));
    EXPECT_EQ(combo.ListIndex, 0);
}

TEST_F(Combo, WithTheListOpenUpAndDownAreTheListsOwn) {
    combo.SetFocus();
    combo.ListOpen = true;
    EXPECT_FALSE(form.UserKey(StrokeOfKey(key::Down)));
    EXPECT_EQ(combo.ListIndex, -1);
    EXPECT_EQ(form.Taken(), Lines{});
}

TEST_F(Combo, EnterWithTheListOpenDoesNothingElse) {
    form.Command1.Default = true;
    form.Command1.Click = [&] { form.Note("button"); };
    form.NoteKeys(combo);
    combo.SetFocus();
    combo.ListOpen = true;
    EXPECT_FALSE(form.UserKey(StrokeOfKey(key::Enter)));  // the view takes the marked entry
    EXPECT_EQ(form.Taken(), Lines{});
    combo.ListOpen = false;
    Press(form, key::Enter);
    EXPECT_EQ(form.Taken(), Lines{"button"});
}

TEST_F(Combo, TheUsersEditingRaisesChangeAndLeavesTheEntry) {
    combo.ListIndex = 0;
    form.Taken();
    combo.SetFocus();
    Press(form, key::End);
    Type(form, "2");
    EXPECT_TRUE(combo.Text == "EPSx2");
    EXPECT_EQ(combo.ListIndex, -1);
    EXPECT_EQ(form.Taken(), Lines{"change EPSx2"});
    combo.UserSelected(0, 2);
    Press(form, key::Backspace);
    EXPECT_EQ(form.Taken(), Lines{"change Sx2"});
}

// What is typed behind a choice takes its place, and does not stand before it.
TEST_F(Combo, AChoiceOfTheUserSelectsTheWholeText) {
    combo.UserChoose(1);
    EXPECT_EQ(combo.SelStart, 0);
    EXPECT_EQ(combo.SelLength, 4);
    combo.UserSelected(2, 0);
    combo.UserChoose(1);
    EXPECT_EQ(combo.SelLength, 4) << "the same entry once more";
    Press(form, key::Up);
    EXPECT_EQ(combo.SelLength, 4);
    Type(form, "x");
    EXPECT_TRUE(combo.Text == "x");
    combo.ListIndex = 1;
    EXPECT_EQ(combo.SelLength, 0) << "the program's own write selects nothing";
}

TEST_F(Combo, AKeyPressThatTakesTheCharacterMayWriteTextAndSelection) {
    combo.KeyPress = [&](int& code) {
        code = 0;
        combo.ListIndex = 1;
        combo.SelStart = 1;
        combo.SelLength = 9999;
    };
    combo.SetFocus();
    Type(form, "E");
    EXPECT_TRUE(combo.Text == "EPSz");
    EXPECT_EQ(combo.SelStart, 1);
    EXPECT_EQ(combo.SelLength, 3);
    EXPECT_EQ(form.Taken(), Lines{"click 1"});
}

TEST_F(Combo, AnEntryIsShownAgainWithoutAnEvent) {
    combo.ListIndex = 1;
    form.Taken();
    combo.UserFocus();
    combo.UserEdited("EPS", 3, 0);
    EXPECT_EQ(combo.ListIndex, -1);
    form.Taken();
    combo.ShowEntry(1);
    EXPECT_TRUE(combo.Text == "EPSz");
    EXPECT_EQ(combo.ListIndex, 1);
    EXPECT_EQ(combo.SelStart, 0);
    EXPECT_EQ(combo.SelLength, 4) << "what is typed next takes its place";
    combo.ShowEntry(-1);
    EXPECT_TRUE(combo.Text == "");
    EXPECT_EQ(combo.ListIndex, -1);
    EXPECT_EQ(form.Taken(), Lines{});
    EXPECT_EQ(FaultOf([&] { combo.ShowEntry(2); }), fault::InvalidCall);
}

}  // namespace
}  // namespace zirvo::forms
