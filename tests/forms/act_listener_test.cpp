// Who hears of the ends of handlers, and who is asked first about a stroke.
#include <gtest/gtest.h>

#include <new>

#include "base/runtime_fault.h"
#include "forms/plain_form.h"

namespace zirvo::forms {
namespace {

struct ListenedForm : PlainForm {
    CommandButton Command1{*this, "Command1"};
    TextBox Text1{*this, "Text1"};
    explicit ListenedForm(forms::Application& application) : PlainForm(application) {
        NoteFocus(Command1);
        NoteFocus(Text1);
        NoteKeys(Text1);
        Command1.Click = [this] { Note("click"); };
    }
};

struct Listening : testing::Test, ActListener {
    Screen<ListenedForm> screen;
    ListenedForm& form = screen.form;
    void SetUp() override {
        form.Taken();
        screen.app.Listen(*this);
    }
    void TearDown() override { screen.app.Ignore(*this); }
    void ActEnded() override {
        EXPECT_TRUE(screen.app.InHandler());  // what it does raises no handler of its own
        form.Note("ended");
    }
};

TEST_F(Listening, HearsOfEveryOutermostHandlerByItself) {
    form.Text1.UserFocus();
    EXPECT_EQ(form.Taken(), (Lines{"ended", "lost Command1", "ended", "got Text1", "ended"}));
}

TEST_F(Listening, HearsNothingOfInnerHandlers) {
    screen.Run([this] { screen.Run([this] { form.Note("inner"); }); });
    EXPECT_EQ(form.Taken(), (Lines{"inner", "ended"}));
}

TEST_F(Listening, HearsNothingOnceTheProgramHasEnded) {
    screen.Run([] { throw RuntimeFault(fault::Overflow); });
    EXPECT_EQ(form.Taken(), Lines{});
}

TEST_F(Listening, WithoutMemoryForWhatItNotesTheProgramEndsWithItsBox) {
    struct Hungry : ActListener {
        void ActEnded() override { throw std::bad_alloc(); }
    } hungry;
    screen.app.Listen(hungry);
    EXPECT_NO_THROW(screen.Run([this] { form.Note("act"); }));
    EXPECT_TRUE(screen.app.HasEnded());
    EXPECT_FALSE(screen.app.InHandler());
    ASSERT_EQ(screen.desktop.Boxes.size(), 1U);
    EXPECT_TRUE(screen.desktop.Boxes.front().Text.starts_with("Internal error:"));
    screen.app.Ignore(hungry);
}

TEST_F(Listening, AFormsShortcutIsAskedBeforeAnyControl) {
    form.Text1.UserFocus();
    form.Taken();
    form.Shortcut = [](const KeyStroke& stroke) { return stroke.IsControl('Z'); };
    form.Strike(StrokeOfControl('Z'));
    EXPECT_EQ(form.Taken(), Lines{});
    form.Strike(StrokeOf('z'));
    form.Strike({.Code = 'Z', .Character = 0, .Control = true, .Alt = true});
    EXPECT_EQ(form.Taken()[0], "down 90");
    EXPECT_EQ(form.Text1.Text, "z");
}

}  // namespace
}  // namespace zirvo::forms
