// What whoever keeps the data of a form relies on: it hears of every change, its handlers run behind the others, and it
// is told of the end in time.
#include <gtest/gtest.h>

#include <algorithm>

#include "base/runtime_fault.h"
#include "forms/ms_flex_grid.h"
#include "forms/plain_form.h"

namespace zirvo::forms {
namespace {

struct DataForm : PlainForm {
    using PlainForm::PlainForm;
    Label Label1{*this, "Label1"};
    TextBox Text1{*this, "Text1"};
    VScrollBar VScroll1{*this, "VScroll1"};
    MSFlexGrid MSFlexGrid1{*this, "MSFlexGrid1"};
};

struct ChangesOfAForm : testing::Test, Screen<DataForm> {
    using Screen<DataForm>::Run;
    int changes = 0;
    ChangesOfAForm() {
        form.VScroll1.Max = 100;
        form.ControlsChanged = [this] { ++changes; };
    }
    /// Whether the form heard of what the work changed.
    template <class Work>
    bool Heard(const Work& work) {
        changes = 0;
        Run(work);
        return changes > 0;
    }
};

TEST_F(ChangesOfAForm, EachTextCountAndCellThatTheProgramWritesIsHeard) {
    EXPECT_TRUE(Heard([this] { form.Label1.Caption = " 3"; }));
    EXPECT_TRUE(Heard([this] { form.Text1.Text = "road.eva"; }));
    EXPECT_TRUE(Heard([this] { form.VScroll1.Value = 3; }));
    EXPECT_TRUE(Heard([this] { form.MSFlexGrid1.Rows = 4; }));
    EXPECT_TRUE(Heard([this] { form.MSFlexGrid1.SetTextMatrix(3, 1, "5000"); }));
}

TEST_F(ChangesOfAForm, WhatTheUserTypesIsHeardInABoxOfItsOwnToo) {
    EXPECT_TRUE(Heard([this] { form.Text1.UserEdited("a", 1, 0); }));
    TextBox* box = nullptr;
    Run([&] {
        box = &form.Controls.Add("tbFgEdit1", nullptr);
        box->Visible = true;
    });
    EXPECT_TRUE(Heard([&] { box->UserEdited("12", 2, 0); }));
}

TEST_F(ChangesOfAForm, AWriteOfTheSameValueIsNone) {
    Run([this] {
        form.Text1.Text = "a";
        form.MSFlexGrid1.SetTextMatrix(1, 1, "5");
    });
    EXPECT_FALSE(Heard([this] {
        form.Text1.Text = "a";
        form.MSFlexGrid1.SetTextMatrix(1, 1, "5");
        form.MSFlexGrid1.Rows = 2;
    }));
}

TEST_F(ChangesOfAForm, TheHearerFindsTheNewStateThere) {
    std::string seen;
    form.ControlsChanged = [&] { seen = form.MSFlexGrid1.TextMatrix(1, 1); };
    Run([this] { form.MSFlexGrid1.SetTextMatrix(1, 1, "5"); });
    EXPECT_EQ(seen, "5");
    form.ControlsChanged = [&] { seen = std::to_string(form.MSFlexGrid1.Rows.Get()); };
    Run([this] { form.MSFlexGrid1.Rows = 7; });
    EXPECT_EQ(seen, "7");
}

using HandlersBehind = Screen<DataForm>;

TEST(HandlersBehindOthers, RunBehindTheOutermostOneAndItsFocusEvents) {
    HandlersBehind screen;
    screen.form.NoteFocus(screen.form.Text1);
    screen.form.NoteFocus(screen.form.VScroll1);
    screen.Run([&] { screen.form.Text1.SetFocus(); });
    screen.form.Taken();
    screen.Run([&] {
        screen.app.DispatchBehind([&] {
            screen.form.Note("behind");
            screen.form.Text1.SetFocus();
        });
        screen.Run([&] { screen.form.VScroll1.SetFocus(); });
        screen.form.Note("handler");
    });
    EXPECT_EQ(screen.form.Taken(),
              (Lines{"handler", "lost Text1", "got VScroll1", "behind", "lost VScroll1", "got Text1"}));
}

TEST(HandlersBehindOthers, RunAtOnceWhereNoneIsRunning) {
    HandlersBehind screen;
    screen.app.DispatchBehind([&] { screen.form.Note(screen.app.InHandler() ? "as a handler" : "bare"); });
    EXPECT_EQ(screen.form.Taken(), Lines{"as a handler"});
}

TEST(HandlersBehindOthers, AreCaughtLikeOthersAndDoNotRunBehindTheEnd) {
    HandlersBehind screen;
    screen.Run([&] {
        screen.app.DispatchBehind([] { throw RuntimeFault(fault::Overflow); });
        screen.app.DispatchBehind([&] { screen.form.Note("too late"); });
    });
    EXPECT_EQ(screen.desktop.EndStatus, 1);
    EXPECT_EQ(std::count(screen.form.Events.begin(), screen.form.Events.end(), "too late"), 0);
}

struct EndedForm : DataForm {
    using DataForm::DataForm;
    void Form_ProgramEnds() override { Note("ends"); }
};

TEST(TheEndOfTheProgram, IsToldToALoadedFormWhileItIsWhole) {
    Screen<EndedForm> screen;
    screen.Run([&] {
        screen.form.Hide();
        screen.app.End();
    });
    EXPECT_EQ(screen.form.Taken(), Lines{"ends"});
    EXPECT_EQ(screen.desktop.EndStatus, 0);
}

TEST(TheEndOfTheProgram, IsToldBeforeTheBoxOfAFault) {
    Screen<EndedForm> screen;
    screen.desktop.OnBox = [&](const Message&) { screen.form.Note("box"); };
    screen.Run([] { throw RuntimeFault(fault::TypeMismatch); });
    ASSERT_GE(screen.form.Events.size(), 2U);
    EXPECT_EQ(screen.form.Events[0], "ends");
    EXPECT_EQ(screen.form.Events[1], "box");
}

}  // namespace
}  // namespace zirvo::forms
