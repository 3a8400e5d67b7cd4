// Tests of what all controls share: the events of keys, Tab, Enter and Esc, and what becomes of a stroke whose control
// goes.
#include "forms/control.h"

#include <gtest/gtest.h>

#include "forms/combo_box.h"
#include "forms/plain_form.h"

namespace zirvo::forms {
namespace {

struct KeyForm : PlainForm {
    TextBox Text1{*this, "Text1"};
    CommandButton Command1{*this, "Command1"};
    OptionButton Option1{*this, "Option1"};
    OptionButton Option2{*this, "Option2"};
    TextBox Text2{*this, "Text2"};

    explicit KeyForm(forms::Application& application) : PlainForm(application) {
        NoteKeys(Text1);
        NoteKeys(Command1);
        Command1.Click = [this] { Note("click"); };
    }
};

struct Keys : testing::Test {
    Screen<KeyForm> screen;
    KeyForm& form = screen.form;
};

TEST_F(Keys, AStrokeWithACharacterRaisesKeyDownAndThenKeyPress) {
    Type(form, "a");
    Type(form, "5");
    EXPECT_EQ(form.Taken(), (Lines{"down 65", "press 97", "down 53", "press 53"}));
    Type(form, "あ");
    EXPECT_EQ(form.Taken().back(), "press 12354");  // U+3042
}

TEST_F(Keys, BackspaceEnterEscAndSpaceMakeCharacters) {
    for (const int code : {key::Backspace, key::Enter, key::Escape, key::Space}) {
        Press(form, code);
        EXPECT_EQ(form.Taken(), (Lines{"down " + std::to_string(code), "press " + std::to_string(code)}));
    }
}

TEST_F(Keys, ControlWithALetterMakesACharacterFrom1To26) {
    form.Strike({.Code = 'C', .Character = 3, .Control = true});
    EXPECT_EQ(form.Taken(), (Lines{"down 67", "press 3"}));
    EXPECT_TRUE(form.Text1.Text == "");
}

TEST_F(Keys, KeysWithoutACharacterRaiseKeyDownAlone) {
    constexpr int BareShift = 16;
    for (const int code : {key::Delete, key::Left, key::Up, key::Right, key::Down, key::Home, key::End, key::PageUp,
                           key::PageDown, key::F1, BareShift}) {
        Press(form, code);
        EXPECT_EQ(form.Taken(), Lines{"down " + std::to_string(code)});
    }
}

TEST_F(Keys, TabRaisesKeyDownAloneAndThenMovesOn) {
    Press(form, key::Tab);
    EXPECT_EQ(form.Taken(), Lines{"down 9"});
    EXPECT_EQ(FocusOf(form), "Command1");
}

TEST_F(Keys, LettersWithAltAreNotUsed) {
    form.Strike({.Code = 'A', .Character = U'a', .Alt = true});
    EXPECT_EQ(form.Taken(), Lines{"down 65"});
    EXPECT_TRUE(form.Text1.Text == "");
}

TEST_F(Keys, ACharacterOfTheThirdLevelOfAKeyboardIsTyped) {
    form.Strike({.Code = 'E', .Character = U'€', .Control = true, .Alt = true});
    EXPECT_TRUE(form.Text1.Text == "€");
}

TEST_F(Keys, AKeyPressThatClearsTheCharacterDropsIt) {
    form.Text1.KeyPress = [](int& code) { code = code == 'x' ? 0 : code; };
    Type(form, "axb");
    EXPECT_TRUE(form.Text1.Text == "ab");
}

TEST_F(Keys, AKeyPressThatChangesTheCharacterTypesTheOtherOne) {
    form.Text1.KeyPress = [](int& code) { code = 'y'; };
    EXPECT_TRUE(form.UserKey(StrokeOf(U'x')));  // the view's own editing would type the "x"
    EXPECT_TRUE(form.Text1.Text == "y");
}

TEST_F(Keys, AKeyDownThatChangesTheCodeChangesWhatTheKeyDoes) {
    form.Text1.Text = "ab";
    form.Text1.SelStart = 1;
    form.Text1.KeyDown = [](int& code) { code = code == key::Delete ? 127 : code == key::Left ? key::Right : code; };
    Press(form, key::Delete);
    EXPECT_TRUE(form.Text1.Text == "ab");
    Press(form, key::Left);
    EXPECT_EQ(form.Text1.SelStart, 2);
    form.Text1.KeyDown = [](int& code) { code = 0; };
    Press(form, key::Tab);
    EXPECT_EQ(FocusOf(form), "Text1");
}

TEST_F(Keys, StrokesThatAViewEditsByItselfAreLeftToIt) {
    EXPECT_FALSE(form.UserKey(StrokeOf(U'x')));
    EXPECT_FALSE(form.UserKey(StrokeOfKey(key::Left)));
    EXPECT_TRUE(form.UserKey(StrokeOfKey(key::Tab)));
    EXPECT_TRUE(form.UserKey(StrokeOf(U'x')));  // now the button has the focus
    EXPECT_TRUE(form.Text1.Text == "");
}

TEST_F(Keys, AStrokeForAControlWithoutTheFocusIsDropped) {
    EXPECT_TRUE(form.Command1.UserKey(StrokeOf(U'x')));
    form.Text1.Enabled = false;
    EXPECT_TRUE(form.Text1.UserKey(StrokeOf(U'x')));
    EXPECT_EQ(form.Taken(), Lines{});
}

TEST_F(Keys, KeyPressGoesToTheControlThatGotTheKeyDown) {
    form.Text1.KeyDown = [&](int&) { form.Text2.SetFocus(); };
    form.NoteKeys(form.Text2);
    Type(form, "5");
    EXPECT_EQ(form.Taken(), Lines{"press 53"});  // from Text1's handler
    EXPECT_EQ(FocusOf(form), "Text2");
    EXPECT_TRUE(form.Text1.Text == "");
    EXPECT_TRUE(form.Text2.Text == "");
}

TEST_F(Keys, KeyPressIsDroppedIfTheControlIsGone) {
    TextBox& box = form.Controls.Add("box", nullptr);
    box.Visible = true;
    box.KeyDown = [&](int&) { form.Controls.Remove("box"); };
    box.KeyPress = [&](int&) { form.Note("press"); };
    box.SetFocus();
    Type(form, "5");
    EXPECT_EQ(form.Taken(), Lines{});
    EXPECT_EQ(form.Controls.Find("box"), nullptr);
}

TEST_F(Keys, TheFocusEventsOfAKeyDownComeBeforeItsKeyPress) {
    form.NoteFocus(form.Text1);
    form.NoteFocus(form.Text2);
    form.Text1.KeyDown = [&](int&) { form.Text2.SetFocus(); };
    Type(form, "5");
    EXPECT_EQ(form.Taken(), (Lines{"lost Text1", "got Text2", "press 53"}));
}

TEST_F(Keys, EnterPressesTheFocusedButton) {
    form.Command1.SetFocus();
    Press(form, key::Enter);
    EXPECT_EQ(form.Taken(), Lines{"click"});
}

TEST_F(Keys, EnterPressesTheDefaultButtonAndTheFocusStays) {
    form.Command1.Default = true;
    Press(form, key::Enter);
    EXPECT_EQ(form.Taken(), Lines{"click"});
    EXPECT_EQ(FocusOf(form), "Text1");
}

TEST_F(Keys, EnterPressesTheFocusedButtonBeforeTheDefaultOne) {
    CommandButton other(form, "other");
    other.Default = true;
    other.Click = [&] { form.Note("other"); };
    form.Command1.SetFocus();
    Press(form, key::Enter);
    EXPECT_EQ(form.Taken(), Lines{"click"});
}

TEST_F(Keys, EnterGoesToTheControlWhereTheDefaultButtonIsDisabledOrHidden) {
    form.Command1.Default = true;
    form.Command1.Enabled = false;
    Press(form, key::Enter);
    EXPECT_EQ(form.Taken(), (Lines{"down 13", "press 13"}));
    form.Command1.Enabled = true;
    form.Command1.Visible = false;
    Press(form, key::Enter);
    EXPECT_EQ(form.Taken(), (Lines{"down 13", "press 13"}));
}

TEST_F(Keys, EscHasNoButton) {
    form.Command1.Default = true;
    Press(form, key::Escape);
    EXPECT_EQ(form.Taken(), (Lines{"down 27", "press 27"}));
}

TEST_F(Keys, WithoutAnActiveControlEnterStillPressesTheDefaultButton) {
    form.Command1.Default = true;
    form.Command1.TabStop = false;
    screen.Run([&] {
        for (Control* control : form.Controls) {
            control->Enabled = control == &form.Command1;
        }
    });
    ASSERT_EQ(FocusOf(form), "");
    EXPECT_TRUE(form.UserKey(StrokeOfKey(key::Tab)));
    EXPECT_TRUE(form.UserKey(StrokeOf(U'x')));
    EXPECT_EQ(form.Taken(), Lines{});
    Press(form, key::Enter);
    EXPECT_EQ(form.Taken(), Lines{"click"});
}

TEST_F(Keys, TabGoesThroughTheStopsInTheOrderOfDeclarationBothWays) {
    Lines visited;
    for (int i = 0; i < 5; ++i) {
        visited.push_back(FocusOf(form));
        Press(form, key::Tab);
    }
    EXPECT_EQ(visited, (Lines{"Text1", "Command1", "Option1", "Text2", "Text1"}));
    form.Text1.SetFocus();
    visited.clear();
    for (int i = 0; i < 5; ++i) {
        visited.push_back(FocusOf(form));
        Press(form, key::Tab, true);
    }
    EXPECT_EQ(visited, (Lines{"Text1", "Text2", "Option1", "Command1", "Text1"}));
}

TEST_F(Keys, TabPassesOverWhatIsDisabledHiddenOrNoStop) {
    form.Command1.Enabled = false;
    form.Option1.Visible = false;
    form.Option2.TabStop = false;
    Press(form, key::Tab);
    EXPECT_EQ(FocusOf(form), "Text2");
}

TEST(Control, MoveSetsAllFourAndTellsTheView) {
    Screen<KeyForm> screen;
    CountingView view;
    screen.form.Text1.Attach(&view);
    screen.form.Text1.Move(10, 20, 300, 400);
    EXPECT_EQ(screen.form.Text1.Left, 10);
    EXPECT_EQ(screen.form.Text1.Top, 20);
    EXPECT_EQ(screen.form.Text1.Width, 300);
    EXPECT_EQ(screen.form.Text1.Height, 400);
    EXPECT_EQ(view.Refreshes, 4);
    screen.form.Text1.Attach(nullptr);
    screen.form.Text1.Left = 0;
    EXPECT_EQ(view.Refreshes, 4);
}

TEST(Control, TheOneThatCameToTheFrontLastStandsInFront) {
    Screen<KeyForm> screen;
    EXPECT_LT(screen.form.Text1.Depth(), screen.form.Text2.Depth());
    screen.form.Text1.ZOrder();
    EXPECT_GT(screen.form.Text1.Depth(), screen.form.Text2.Depth());
}

TEST(Control, AHandlerMayBeReplacedWhileItRuns) {
    Screen<KeyForm> screen;
    KeyForm& form = screen.form;
    auto kept = std::make_shared<std::string>("first");
    form.Command1.Click = [&form, kept] {
        form.Command1.Click = [&form] { form.Note("second"); };
        form.Note(*kept);  // what the first one holds is still there
    };
    kept.reset();
    form.Command1.Press();
    form.Command1.Press();
    EXPECT_EQ(form.Taken(), (Lines{"first", "second"}));
}

}  // namespace
}  // namespace zirvo::forms
