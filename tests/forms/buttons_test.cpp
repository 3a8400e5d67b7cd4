// Tests of command buttons, option buttons and check boxes.
#include <gtest/gtest.h>

#include "forms/control_collection.h"
#include "forms/plain_form.h"
#include "forms/simple_controls.h"

namespace zirvo::forms {
namespace {

struct ButtonForm : PlainForm {
    CommandButton Command1{*this, "Command1"};
    CommandButton Command2{*this, "Command2"};
    OptionButton Option1{*this, "Option1"};
    OptionButton Option2{*this, "Option2"};
    OptionButton Option3{*this, "Option3"};
    Frame Frame1{*this, "Frame1"};
    OptionButton Option4{*this, "Option4", &Frame1};
    OptionButton Option5{*this, "Option5", &Frame1};
    ControlArray<CheckBox> Check1{*this, "Check1", 5};

    explicit ButtonForm(forms::Application& application) : PlainForm(application) {
        Command1.Click = [this] { Note("Command1"); };
        for (OptionButton* option : {&Option1, &Option2, &Option3, &Option4, &Option5}) {
            option->Click = [this, option] { Note(option->Name()); };
        }
        for (int i = 0; i < Check1.Count(); ++i) {
            Check1(i).Click = [this, i] { Note("Check1(" + std::to_string(i) + ")"); };
        }
    }
    std::string SetOptions() const {
        std::string set;
        for (const OptionButton* option : {&Option1, &Option2, &Option3, &Option4, &Option5}) {
            set += option->Value ? option->Name().substr(6) : "";
        }
        return set;
    }
};

struct Buttons : testing::Test {
    Screen<ButtonForm> screen;
    ButtonForm& form = screen.form;
};

using CommandButtons = Buttons;
using OptionButtons = Buttons;
using CheckBoxes = Buttons;

TEST_F(CommandButtons, PressRaisesClickAndMovesNoFocus) {
    form.Command2.SetFocus();
    form.Command1.Press();
    EXPECT_EQ(form.Taken(), Lines{"Command1"});
    EXPECT_EQ(FocusOf(form), "Command2");
}

TEST_F(CommandButtons, AUsersClickTakesTheFocus) {
    form.Option1.SetFocus();
    form.Command1.UserClick();
    EXPECT_EQ(form.Taken(), Lines{"Command1"});
    EXPECT_EQ(FocusOf(form), "Command1");
}

TEST_F(CommandButtons, ADisabledOrHiddenButtonCannotBePressedByMouseKeyOrProgram) {
    form.Command1.SetFocus();
    for (Property<bool>* state : {&form.Command1.Enabled, &form.Command1.Visible}) {
        *state = false;
        form.Command1.Press();
        form.Command1.UserClick();
        Press(form, key::Space);
        *state = true;
    }
    EXPECT_EQ(form.Taken(), Lines{});
}

TEST_F(CommandButtons, SpaceIsAPress) {
    form.Command1.SetFocus();
    Press(form, key::Space);
    EXPECT_EQ(form.Taken(), Lines{"Command1"});
    Press(form, key::Down);
    EXPECT_EQ(FocusOf(form), "Command1");
}

TEST_F(CommandButtons, AFormHasOneDefaultButton) {
    EXPECT_EQ(form.DefaultButton(), nullptr);
    form.Command1.Default = true;
    form.Command2.Default = true;
    EXPECT_FALSE(form.Command1.Default);
    EXPECT_EQ(form.DefaultButton(), &form.Command2);
    form.Command2.Default = false;
    EXPECT_EQ(form.DefaultButton(), nullptr);
}

TEST_F(CommandButtons, ADefaultButtonThatIsDisabledOrHiddenIsNone) {
    form.Command1.Default = true;
    form.Command1.Enabled = false;
    EXPECT_EQ(form.DefaultButton(), nullptr);
    form.Command1.Enabled = true;
    form.Command1.Visible = false;
    EXPECT_EQ(form.DefaultButton(), nullptr);
}

TEST_F(OptionButtons, SettingOneClearsTheOthersOfItsContainerAndThenRaisesClick) {
    form.Option1.Value = true;
    form.Option5.Value = true;
    form.Option2.Click = [&] { form.Note("set " + form.SetOptions()); };
    form.Taken();
    form.Option2.Value = true;
    EXPECT_EQ(form.Taken(), Lines{"set 25"});  // the frame is a group of its own, the form another
}

TEST_F(OptionButtons, SettingASetOneRaisesNothing) {
    form.Option1.Value = true;
    form.Taken();
    form.Option1.Value = true;
    EXPECT_EQ(form.Taken(), Lines{});
}

TEST_F(OptionButtons, ClearingOneRaisesNothing) {
    form.Option1.Value = true;
    form.Taken();
    form.Option1.Value = false;
    EXPECT_EQ(form.Taken(), Lines{});
    EXPECT_EQ(form.SetOptions(), "");
}

TEST_F(OptionButtons, AUsersClickRaisesClickAlsoWhereItIsSet) {
    form.Option1.UserClick();
    form.Option1.UserClick();
    EXPECT_EQ(form.Taken(), (Lines{"Option1", "Option1"}));
    EXPECT_EQ(FocusOf(form), "Option1");
    EXPECT_EQ(form.SetOptions(), "1");
}

TEST_F(OptionButtons, AClickOnADisabledOneDoesNothing) {
    form.Option1.Enabled = false;
    form.Option1.UserClick();
    EXPECT_EQ(form.Taken(), Lines{});
    EXPECT_EQ(form.SetOptions(), "");
    form.Frame1.Enabled = false;
    form.Option4.UserClick();
    EXPECT_EQ(form.SetOptions(), "");
}

TEST_F(OptionButtons, AGroupIsOneTabStopTheSetOne) {
    form.Option2.Value = true;
    form.Command2.SetFocus();
    Press(form, key::Tab);
    EXPECT_EQ(FocusOf(form), "Option2");
    Press(form, key::Tab);
    EXPECT_EQ(FocusOf(form), "Option4");
    Press(form, key::Tab);
    EXPECT_EQ(FocusOf(form), "Check1(0)");
    Press(form, key::Tab, true);
    Press(form, key::Tab, true);
    EXPECT_EQ(FocusOf(form), "Option2");
}

TEST_F(OptionButtons, WithNoneSetTheGroupsStopIsItsFirstEnabled) {
    form.Option1.Enabled = false;
    form.Command2.SetFocus();
    Press(form, key::Tab);
    EXPECT_EQ(FocusOf(form), "Option2");
    form.Option1.Value = true;  // set, and no stop, since it is disabled
    form.Command2.SetFocus();
    Press(form, key::Tab);
    EXPECT_EQ(FocusOf(form), "Option2");
}

TEST_F(OptionButtons, ReceivingTheFocusSetsNothing) {
    form.Taken();
    form.Option1.SetFocus();
    form.Option2.UserFocus();
    EXPECT_EQ(form.SetOptions(), "");
    EXPECT_EQ(form.Taken(), Lines{});
}

TEST_F(OptionButtons, SpaceIsAClickOnASetOneToo) {
    form.Option1.SetFocus();
    Press(form, key::Space);
    Press(form, key::Space);
    EXPECT_EQ(form.Taken(), (Lines{"Option1", "Option1"}));
    EXPECT_EQ(form.SetOptions(), "1");
}

TEST_F(OptionButtons, ArrowsSetTheNeighbourWithClickAndPassOverDisabledOnes) {
    form.Option1.SetFocus();
    Press(form, key::Down);
    EXPECT_EQ(form.SetOptions(), "2");
    EXPECT_EQ(FocusOf(form), "Option2");
    form.Option1.Enabled = false;
    Press(form, key::Right);
    Press(form, key::Right);  // around the end, over Option1
    EXPECT_EQ(FocusOf(form), "Option2");
    Press(form, key::Left);
    Press(form, key::Up);
    EXPECT_EQ(form.Taken(), (Lines{"Option2", "Option3", "Option2", "Option3", "Option2"}));
}

TEST_F(OptionButtons, ArrowsStayInTheGroup) {
    form.Option5.SetFocus();
    Press(form, key::Down);
    EXPECT_EQ(FocusOf(form), "Option4");
    form.Option5.Visible = false;
    Press(form, key::Down);
    EXPECT_EQ(FocusOf(form), "Option4");
    EXPECT_EQ(form.Taken(), Lines{"Option4"});
}

TEST_F(OptionButtons, TheFocusMovesBeforeTheClickOfAnArrow) {
    form.NoteFocus(form.Option1);
    form.NoteFocus(form.Option2);
    form.Option1.SetFocus();
    form.Taken();
    Press(form, key::Down);
    EXPECT_EQ(form.Taken(), (Lines{"lost Option1", "got Option2", "Option2"}));
}

TEST_F(OptionButtons, ADisabledOneWithTheFocusHandsOnWithinItsGroup) {
    form.Option1.SetFocus();
    screen.Run([&] { form.Option1.Enabled = false; });
    EXPECT_EQ(FocusOf(form), "Option2");
    EXPECT_EQ(form.SetOptions(), "");
}

TEST_F(CheckBoxes, AChangeRaisesClickAndAnEqualValueDoesNot) {
    form.Check1(2).Value = true;
    form.Check1(2).Value = true;
    form.Check1(2).Value = false;
    EXPECT_EQ(form.Taken(), (Lines{"Check1(2)", "Check1(2)"}));
}

TEST_F(CheckBoxes, AUsersClickAndSpaceTurnItOver) {
    form.Check1(1).UserClick();
    EXPECT_TRUE(form.Check1(1).Value);
    EXPECT_EQ(FocusOf(form), "Check1(1)");
    Press(form, key::Space);
    EXPECT_FALSE(form.Check1(1).Value);
    EXPECT_EQ(form.Taken(), (Lines{"Check1(1)", "Check1(1)"}));
}

TEST_F(CheckBoxes, ADisabledOneDoesNothing) {
    form.Check1(1).Enabled = false;
    form.Check1(1).UserClick();
    EXPECT_FALSE(form.Check1(1).Value);
    EXPECT_EQ(form.Taken(), Lines{});
}

TEST_F(CheckBoxes, AHandlerMayBeEnteredAgainWhileItRuns) {
    int depth = 0;
    form.Check1(0).Click = [&] {
        if (++depth == 1) {
            form.Check1(0).Value = false;  // the inner run
        }
    };
    form.Check1(0).UserClick();
    EXPECT_EQ(depth, 2);
    EXPECT_FALSE(form.Check1(0).Value);
}

}  // namespace
}  // namespace zirvo::forms
