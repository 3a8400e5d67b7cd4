// Tests of the active control: who has it, who gets it next, and when its events are raised.
#include <gtest/gtest.h>

#include "forms/control_collection.h"
#include "forms/ms_flex_grid.h"
#include "forms/plain_form.h"

namespace zirvo::forms {
namespace {

struct FocusForm : PlainForm {
    Label Label1{*this, "Label1"};
    TextBox A{*this, "A"};
    Frame Frame1{*this, "Frame1"};
    TextBox B{*this, "B", &Frame1};
    CommandButton C{*this, "C"};

    explicit FocusForm(forms::Application& application) : PlainForm(application) {
        for (Control* control : {static_cast<Control*>(&A), static_cast<Control*>(&B), static_cast<Control*>(&C)}) {
            NoteFocus(*control);
        }
    }
};

struct Focus : testing::Test {
    Screen<FocusForm> screen;
    FocusForm& form = screen.form;

    void SetUp() override { form.Taken(); }
};

TEST_F(Focus, SetFocusMovesTheActiveControlAtOnceAndItsEventsWaitForTheEndOfTheHandler) {
    screen.Run([&] {
        form.B.SetFocus();
        EXPECT_EQ(FocusOf(form), "B");
        EXPECT_TRUE(form.B.HasFocus());
        EXPECT_FALSE(form.A.HasFocus());
        form.Note("handler ends");
    });
    EXPECT_EQ(form.Taken(), (Lines{"handler ends", "lost A", "got B"}));
}

TEST_F(Focus, ThereAndBackWithinAHandlerRaisesNothing) {
    screen.Run([&] {
        form.B.SetFocus();
        form.A.SetFocus();
    });
    EXPECT_EQ(form.Taken(), Lines{});
}

TEST_F(Focus, OnlyTheLastOfManyMovesRaisesEvents) {
    screen.Run([&] {
        form.B.SetFocus();
        form.C.SetFocus();
    });
    EXPECT_EQ(form.Taken(), (Lines{"lost A", "got C"}));
}

TEST_F(Focus, AnInnerHandlerRaisesNothingYet) {
    screen.Run([&] {
        screen.Run([&] { form.B.SetFocus(); });
        form.Note("outer");
    });
    EXPECT_EQ(form.Taken(), (Lines{"outer", "lost A", "got B"}));
}

TEST_F(Focus, SetFocusOutsideOfHandlersRaisesItsEventsAtOnce) {
    form.C.SetFocus();
    EXPECT_EQ(form.Taken(), (Lines{"lost A", "got C"}));
}

TEST_F(Focus, SetFocusOnADisabledOrHiddenControlDoesNothing) {
    form.C.Enabled = false;
    form.C.SetFocus();
    form.C.Enabled = true;
    form.C.Visible = false;
    form.C.SetFocus();
    EXPECT_EQ(FocusOf(form), "A");
    EXPECT_EQ(form.Taken(), Lines{});
}

TEST_F(Focus, SetFocusOnAControlInADisabledOrHiddenContainerDoesNothing) {
    form.Frame1.Enabled = false;
    form.B.SetFocus();
    form.Frame1.Enabled = true;
    form.Frame1.Visible = false;
    form.B.SetFocus();
    EXPECT_EQ(FocusOf(form), "A");
    EXPECT_FALSE(form.B.IsUsable());
    EXPECT_FALSE(form.B.IsTabStop());
}

TEST_F(Focus, LabelsAndFramesTakeNoFocus) {
    form.Label1.SetFocus();
    form.Frame1.SetFocus();
    form.Frame1.UserFocus();
    EXPECT_EQ(FocusOf(form), "A");
}

TEST_F(Focus, AChangeByTheUserRaisesBothEventsBeforeItReturns) {
    form.C.UserFocus();
    EXPECT_EQ(form.Taken(), (Lines{"lost A", "got C"}));
    form.C.UserFocus();
    EXPECT_EQ(form.Taken(), Lines{});
}

TEST_F(Focus, AClickRaisesTheFocusEventsFirst) {
    form.C.Click = [&] { form.Note("click"); };
    form.C.UserClick();
    EXPECT_EQ(form.Taken(), (Lines{"lost A", "got C", "click"}));
}

TEST_F(Focus, AClickOnAButtonThatTheFocusEventsDisableDoesNothing) {
    form.A.LostFocus = [&] { form.C.Enabled = false; };
    form.C.Click = [&] { form.Note("click"); };
    form.C.UserClick();
    EXPECT_EQ(form.Taken(), Lines{"got A"});  // C handed on to the next one behind it, wrapping
}

TEST_F(Focus, TabRaisesBothEventsBeforeTheNextKey) {
    form.NoteKeys(form.B);
    Press(form, key::Tab);
    Type(form, "x");
    EXPECT_EQ(form.Taken(), (Lines{"lost A", "got B", "down 88", "press 120"}));
}

TEST_F(Focus, ADisabledControlHandsOnOnceWhenTheOutermostHandlerHasEnded) {
    screen.Run([&] {
        form.A.Enabled = false;
        EXPECT_EQ(FocusOf(form), "A");
        form.B.Enabled = false;  // the next one; no focus goes there and on
        form.Note("handler ends");
    });
    EXPECT_EQ(FocusOf(form), "C");
    EXPECT_EQ(form.Taken(), (Lines{"handler ends", "lost A", "got C"}));
}

TEST_F(Focus, AControlThatIsEnabledAgainWithinTheHandlerKeepsIt) {
    screen.Run([&] {
        form.A.Enabled = false;
        form.A.Enabled = true;
    });
    EXPECT_EQ(FocusOf(form), "A");
    EXPECT_EQ(form.Taken(), Lines{});
}

TEST_F(Focus, AHiddenControlHandsOn) {
    screen.Run([&] { form.A.Visible = false; });
    EXPECT_EQ(form.Taken(), (Lines{"lost A", "got B"}));
}

TEST_F(Focus, AControlInAHiddenContainerHandsOn) {
    form.B.SetFocus();
    form.Taken();
    screen.Run([&] { form.Frame1.Visible = false; });
    EXPECT_EQ(form.Taken(), (Lines{"lost B", "got C"}));
}

TEST_F(Focus, HandingOnWrapsAndPassesOverWhatIsNoTabStop) {
    form.C.SetFocus();
    form.Taken();
    screen.Run([&] {
        form.A.TabStop = false;
        form.C.Enabled = false;
    });
    EXPECT_EQ(form.Taken(), (Lines{"lost C", "got B"}));
}

TEST_F(Focus, WithNoTabStopLeftTheFormHoldsNoneAndTakesTheFirstThatAppears) {
    screen.Run([&] {
        form.A.Enabled = false;
        form.B.Enabled = false;
        form.C.Enabled = false;
    });
    EXPECT_EQ(FocusOf(form), "");
    EXPECT_EQ(form.Taken(), Lines{"lost A"});
    screen.Run([&] {
        form.C.Enabled = true;
        form.B.Enabled = true;
    });
    EXPECT_EQ(FocusOf(form), "B");
    EXPECT_EQ(form.Taken(), Lines{"got B"});
}

TEST_F(Focus, ALostFocusThatMovesTheFocusAgainIsHeard) {
    form.A.LostFocus = [&] {
        form.Note("lost A");
        form.C.SetFocus();
    };
    screen.Run([&] { form.B.SetFocus(); });
    EXPECT_EQ(form.Taken(), (Lines{"lost A", "got C"}));
}

TEST_F(Focus, EachWaitingEventIsAHandlerOfItsOwn) {
    form.A.LostFocus = [&] {
        form.Note("lost A");
        form.B.Enabled = false;  // B has the focus by now: it hands on before its GotFocus
    };
    screen.Run([&] { form.B.SetFocus(); });
    EXPECT_EQ(form.Taken(), (Lines{"lost A", "got C"}));
}

TEST_F(Focus, TwoControlsThatSendTheFocusToEachOtherForEverAreStopped) {
    int count = 0;
    form.A.GotFocus = [&] {
        ++count;
        form.B.SetFocus();
    };
    form.B.GotFocus = [&] { form.A.SetFocus(); };
    screen.Run([&] { form.B.SetFocus(); });
    EXPECT_GT(count, 10);
    EXPECT_LT(count, 1000);
    const int before = count;
    screen.Run([] {});
    EXPECT_EQ(count, before);  // and it does not begin again by itself
}

TEST_F(Focus, AMessageBoxChangesNothing) {
    screen.desktop.OnBox = [&](const Message&) { EXPECT_EQ(FocusOf(form), "A"); };
    screen.Run([&] { form.World().Show({.Text = "?"}); });
    EXPECT_EQ(FocusOf(form), "A");
    EXPECT_EQ(form.Taken(), Lines{});
}

TEST_F(Focus, HidingAFormRaisesNothingAndTheNextShowFindsTheControlThatHadIt) {
    form.B.SetFocus();
    form.Taken();
    screen.Run([&] { form.Hide(); });
    EXPECT_EQ(form.Taken(), Lines{});
    screen.Run([&] { form.Show(); });
    EXPECT_EQ(FocusOf(form), "B");
    EXPECT_EQ(form.Taken(), Lines{});
}

TEST_F(Focus, AFormThatIsNotShownHandsOnWhenItIsShown) {
    form.B.SetFocus();
    form.Taken();
    screen.Run([&] { form.Hide(); });
    screen.Run([&] { form.B.Enabled = false; });
    EXPECT_EQ(form.Taken(), Lines{});
    screen.Run([&] { form.Show(); });
    EXPECT_EQ(form.Taken(), (Lines{"lost B", "got C"}));
}

TEST_F(Focus, AControlThatIsEnabledAgainBeforeTheNextShowHasKeptIt) {
    form.B.SetFocus();
    form.Taken();
    screen.Run([&] {
        form.B.Enabled = false;
        form.Hide();
    });
    screen.Run([&] {
        form.B.Enabled = true;
        form.Show();
    });
    EXPECT_EQ(FocusOf(form), "B");
    EXPECT_EQ(form.Taken(), Lines{});
}

struct FirstShow : testing::Test {
    ScriptedDesktop desktop;
    Application app{desktop};
};

TEST_F(FirstShow, TakesTheFirstTabStop) {
    app.Register("Plain", [](Application& a) { return std::make_unique<FocusForm>(a); });
    auto& form = dynamic_cast<FocusForm&>(app.Load("Plain"));
    EXPECT_EQ(FocusOf(form), "");
    app.Show("Plain");
    EXPECT_EQ(FocusOf(form), "A");
    EXPECT_EQ(form.Taken(), Lines{"got A"});
}

TEST_F(FirstShow, TakesWhatTheLoadHasFocused) {
    struct LoadFocuses : FocusForm {
        using FocusForm::FocusForm;
        void Form_Load() override { C.SetFocus(); }
    };
    app.Register("Plain", [](Application& a) { return std::make_unique<LoadFocuses>(a); });
    auto& form = dynamic_cast<FocusForm&>(app.Load("Plain"));
    EXPECT_EQ(form.Taken(), Lines{});  // nothing is raised before the form is on the screen
    app.Show("Plain");
    EXPECT_EQ(form.Taken(), Lines{"got C"});
}

struct BoxForm : PlainForm {
    TextBox A{*this, "A"};
    MSFlexGrid Grid{*this, "Grid"};
    TextBox B{*this, "B"};

    explicit BoxForm(forms::Application& application) : PlainForm(application) {
        NoteFocus(A);
        NoteFocus(Grid);
        NoteFocus(B);
    }
    TextBox& AddBox() {
        TextBox& box = Controls.Add("box", nullptr);
        box.Visible = true;
        NoteFocus(box);
        return box;
    }
};

struct AddedBox : testing::Test {
    Screen<BoxForm> screen;
    BoxForm& form = screen.form;
    TextBox& box = form.AddBox();
};

TEST_F(AddedBox, TabFromABoxThatCountsAtAGridLeavesTheGrid) {
    box.CountAt(form.Grid);
    box.SetFocus();
    Press(form, key::Tab);
    EXPECT_EQ(FocusOf(form), "B");
    box.SetFocus();
    Press(form, key::Tab, true);
    EXPECT_EQ(FocusOf(form), "A");
}

TEST_F(AddedBox, TabReachesTheGridAndNotTheBoxThatCountsThere) {
    box.CountAt(form.Grid);
    form.A.SetFocus();
    Press(form, key::Tab);
    EXPECT_EQ(FocusOf(form), "Grid");
    Press(form, key::Tab);
    EXPECT_EQ(FocusOf(form), "B");
    Press(form, key::Tab);
    EXPECT_EQ(FocusOf(form), "A");
}

TEST_F(AddedBox, TabStaysInABoxWhoseGridIsTheOnlyOtherStop) {
    box.CountAt(form.Grid);
    form.A.Enabled = false;
    form.B.Enabled = false;
    box.SetFocus();
    Press(form, key::Tab);
    EXPECT_EQ(FocusOf(form), "box");
}

TEST_F(AddedBox, ARemovedBoxHandsOnFromItsGridsPlaceAndItsOwnEventIsDropped) {
    box.CountAt(form.Grid);
    box.SetFocus();
    form.Taken();
    screen.Run([&] {
        form.Controls.Remove("box");
        EXPECT_EQ(FocusOf(form), "");
    });
    EXPECT_EQ(form.Taken(), Lines{"got B"});
}

TEST_F(AddedBox, ARemovedBoxOfItsOwnPlaceHandsOnToTheOneBehindIt) {
    TextBox& second = form.Controls.Add("second", nullptr);
    second.Visible = true;
    form.NoteFocus(second);
    box.SetFocus();
    form.Taken();
    screen.Run([&] { form.Controls.Remove("box"); });
    EXPECT_EQ(form.Taken(), Lines{"got second"});
    screen.Run([&] { form.Controls.Remove("second"); });
    EXPECT_EQ(form.Taken(), Lines{"got A"});
}

TEST_F(AddedBox, TheOneBeforeItMayGoTooInTheSameHandler) {
    for (const char* name : {"second", "third"}) {
        TextBox& added = form.Controls.Add(name, nullptr);
        added.Visible = true;
        form.NoteFocus(added);
    }
    form.Controls.Find("second")->SetFocus();
    form.Taken();
    screen.Run([&] {
        form.Controls.Remove("second");
        form.Controls.Remove("box");
    });
    EXPECT_EQ(form.Taken(), Lines{"got third"});
}

TEST_F(AddedBox, SettingTheFocusBehindARemovalIsWhatCounts) {
    box.SetFocus();
    form.Taken();
    screen.Run([&] {
        form.Controls.Remove("box");
        form.B.SetFocus();
    });
    EXPECT_EQ(form.Taken(), Lines{"got B"});
}

TEST_F(AddedBox, AGotFocusThatWaitsForARemovedBoxIsDropped) {
    form.A.SetFocus();
    form.Taken();
    form.A.LostFocus = [&] { form.Controls.Remove("box"); };
    screen.Run([&] { box.SetFocus(); });
    EXPECT_EQ(form.Taken(), Lines{"got A"});
}

TEST_F(AddedBox, AGridMayReplaceItsBoxInItsOwnGotFocus) {
    form.Grid.GotFocus = [&] {
        form.Controls.Remove("box");
        form.AddBox().CountAt(form.Grid);
    };
    box.CountAt(form.Grid);
    for (int i = 0; i < 3; ++i) {
        form.A.UserFocus();
        form.Grid.UserFocus();
    }
    EXPECT_EQ(FocusOf(form), "Grid");
    EXPECT_NE(form.Controls.Find("box"), nullptr);
}

/// A view of the form: which active controls it was told of.
struct FocusView : FormView {
    explicit FocusView(Form& shown) : form(shown) {}
    Form& form;
    Lines Told;
    void Refresh() override {}
    void ControlAdded(Control& control) override { Told.push_back("added " + control.Name()); }
    void ControlRemoved(Control& control) override { Told.push_back("removed " + control.Name()); }
    void FocusMoved() override { Told.push_back(FocusOf(form)); }
};

TEST_F(AddedBox, TheViewIsToldOfEveryMove) {
    FocusView view(form);
    form.Attach(&view);
    box.SetFocus();
    screen.Run([&] { form.Controls.Remove("box"); });
    screen.Run([&] { form.A.Enabled = false; });
    form.AddBox();
    EXPECT_EQ(view.Told, (Lines{"box", "removed box", "A", "Grid", "added box"}));
    form.Attach(nullptr);
}

}  // namespace
}  // namespace zirvo::forms
