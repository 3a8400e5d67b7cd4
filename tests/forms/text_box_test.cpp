// Tests of the text box: the program's writes, typing, pasting, the view's own editing.
#include "forms/text_box.h"

#include <gtest/gtest.h>

#include "base/fault_of.h"
#include "forms/plain_form.h"

namespace zirvo::forms {
namespace {

struct TextForm : PlainForm {
    TextBox Text1{*this, "Text1"};
    TextBox Text2{*this, "Text2"};

    explicit TextForm(forms::Application& application) : PlainForm(application) {
        Text1.Change = [this] { Note(Text1.Text); };
    }
};

struct Box : testing::Test {
    Screen<TextForm> screen;
    TextForm& form = screen.form;
    TextBox& box = form.Text1;
};

TEST_F(Box, AChangedTextRaisesChangeAndTheSameOneDoesNot) {
    box.Text = "a";
    box.Text = "a";
    EXPECT_EQ(form.Taken(), Lines{"a"});
}

TEST_F(Box, AWrittenTextHasItsCaretAtTheStart) {
    box.Text = "123";
    box.SelStart = 2;
    box.SelLength = 1;
    box.Text = "4567";
    EXPECT_EQ(box.SelStart, 0);
    EXPECT_EQ(box.SelLength, 0);
}

TEST_F(Box, SelectionsCountCharactersAndEndWithTheText) {
    box.Text = "舗装a";
    box.SelStart = 1;
    box.SelLength = 9999;
    EXPECT_EQ(box.SelStart, 1);
    EXPECT_EQ(box.SelLength, 2);
    box.SelStart = 9;
    EXPECT_EQ(box.SelStart, 3);
    EXPECT_EQ(box.SelLength, 0);
    EXPECT_EQ(FaultOf([&] { box.SelStart = -1; }), fault::InvalidCall);
    EXPECT_EQ(FaultOf([&] { box.SelLength = -1; }), fault::InvalidCall);
}

TEST_F(Box, TypingRaisesTheKeysAndTheChangeOfEachCharacter) {
    form.NoteKeys(box);
    box.Type("1x");
    EXPECT_EQ(form.Taken(), (Lines{"down 49", "press 49", "1", "down 88", "press 120", "1x"}));
    EXPECT_EQ(box.SelStart, 2);
}

TEST_F(Box, TypingTakesTheFocusFirst) {
    form.NoteFocus(form.Text2);
    form.Text2.Type("5");
    EXPECT_EQ(form.Taken(), Lines{"got Text2"});
    EXPECT_TRUE(form.Text2.Text == "5");
}

TEST_F(Box, WhatTheHandlersDropIsNotTyped) {
    box.KeyPress = [](int& code) { code = code >= 'a' ? 0 : code; };
    box.Type("1a2あ3");
    EXPECT_TRUE(box.Text == "123");
}

TEST_F(Box, TypingGoesOnWhereTheFocusHasGone) {
    box.KeyPress = [&](int& code) {
        if (code == '+') {
            code = 0;
            form.Text2.SetFocus();
        }
    };
    box.Type("1+2");
    EXPECT_TRUE(box.Text == "1");
    EXPECT_TRUE(form.Text2.Text == "2");
}

TEST_F(Box, TypingEndsWithTheBox) {
    TextBox& added = form.Controls.Add("added", nullptr);
    added.Visible = true;
    added.Change = [&] { form.Controls.Remove("added"); };
    added.Type("123");  // the box is destroyed behind the first character
    EXPECT_EQ(form.Controls.Find("added"), nullptr);
    EXPECT_TRUE(form.Text1.Text == "");
}

TEST_F(Box, BackspaceAndDeleteEdit) {
    box.Type("123");
    Press(form, key::Backspace);
    Press(form, key::Home);
    Press(form, key::Delete);
    EXPECT_TRUE(box.Text == "2");
    EXPECT_EQ(form.Taken().size(), 5U);
}

TEST_F(Box, PasteTakesTheFirstLineUnfiltered) {
    box.KeyPress = [](int& code) { code = 0; };
    box.Paste("ab c\r\nsecond");
    EXPECT_TRUE(box.Text == "ab c");
    EXPECT_EQ(box.SelStart, 4);
    box.Paste("\nsecond");  // an empty first line
    EXPECT_TRUE(box.Text == "ab c");
    EXPECT_EQ(form.Taken(), Lines{"ab c"});
}

TEST_F(Box, PasteReplacesTheSelection) {
    box.Text = "舗装123";
    box.SelStart = 1;
    box.SelLength = 2;
    box.Paste("あ");
    EXPECT_TRUE(box.Text == "舗あ23");
    EXPECT_EQ(box.SelStart, 2);
}

TEST_F(Box, ABoxOfManyLinesTakesAllOfThem) {
    box.MultiLine = true;
    box.Paste("a\r\nb");
    EXPECT_TRUE(box.Text == "a\r\nb");
}

TEST_F(Box, TheViewsEditingIsOneActOfTheUser) {
    box.Change = [&] {
        EXPECT_TRUE(box.Text == "abc");
        EXPECT_EQ(box.SelStart, 3);
        EXPECT_TRUE(form.App().InHandler());
        form.Note("change");
    };
    box.UserEdited("abc", 3, 0);
    box.UserEdited("abc", 1, 2);
    EXPECT_EQ(form.Taken(), Lines{"change"});
    EXPECT_EQ(box.SelStart, 1);
    EXPECT_EQ(box.SelLength, 2);
    box.UserSelected(0, 99);
    EXPECT_EQ(box.SelLength, 3);
    EXPECT_EQ(form.Taken(), Lines{});
}

TEST_F(Box, ALockedBoxCanBeReadAndSelectedAndNotEdited) {
    box.Text = "abc";
    box.Locked = true;
    form.Taken();
    box.Type("x");
    Press(form, key::Delete);
    box.Paste("y");
    box.UserEdited("z", 0, 0);
    EXPECT_TRUE(box.Text == "abc");
    Press(form, key::End);
    EXPECT_EQ(box.SelStart, 3);
    EXPECT_EQ(form.Taken(), Lines{});
    box.Text = "program";  // which may
    EXPECT_EQ(form.Taken(), Lines{"program"});
}

TEST_F(Box, ADisabledOrHiddenBoxCannotBeEdited) {
    for (Property<bool>* state : {&box.Enabled, &box.Visible}) {
        *state = false;
        box.Type("x");
        box.Paste("y");
        box.UserEdited("z", 0, 0);
        *state = true;
    }
    EXPECT_EQ(form.Taken(), Lines{});
}

}  // namespace
}  // namespace zirvo::forms
