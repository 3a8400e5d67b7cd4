// Tests of the scroll bar: a count whose minimum stands at the top.
#include <gtest/gtest.h>

#include "base/fault_of.h"
#include "forms/plain_form.h"
#include "forms/simple_controls.h"

namespace zirvo::forms {
namespace {

/// The bar of the points: pressing the upper arrow raises the count, up to 10000.
struct BarForm : PlainForm {
    TextBox Text1{*this, "Text1"};
    VScrollBar VScroll3{*this, "VScroll3"};

    explicit BarForm(forms::Application& application) : PlainForm(application) {
        VScroll3.Max = 0;
        VScroll3.Min = 10000;
        VScroll3.Change = [this] { Note(std::to_string(VScroll3.Value)); };
    }
};

struct Bar : testing::Test {
    Screen<BarForm> screen;
    BarForm& form = screen.form;
    VScrollBar& bar = form.VScroll3;
};

TEST_F(Bar, AChangedValueRaisesChangeAndTheSameOneDoesNot) {
    bar.Value = 7;
    bar.Value = 7;
    EXPECT_EQ(form.Taken(), Lines{"7"});
}

TEST_F(Bar, AValueOutsideIsFault5) {
    EXPECT_EQ(FaultOf([&] { bar.Value = 10001; }), fault::InvalidCall);
    EXPECT_EQ(FaultOf([&] { bar.Value = -1; }), fault::InvalidCall);
    EXPECT_EQ(FaultOf([&] { bar.Value = 10000; }), 0);
    EXPECT_EQ(form.Taken(), Lines{"10000"});
}

TEST_F(Bar, TheUpperArrowGoesToMinWhichMayBeTheLargerEnd) {
    bar.UserStepToMin();
    bar.UserStepToMin();
    bar.UserStepToMax();
    EXPECT_EQ(form.Taken(), (Lines{"1", "2", "1"}));
}

TEST_F(Bar, StepsEndAtTheEnds) {
    bar.UserStepToMax();
    EXPECT_EQ(bar.Value, 0);
    bar.Value = 10000;
    bar.UserStepToMin();
    EXPECT_EQ(bar.Value, 10000);
    EXPECT_EQ(form.Taken(), Lines{"10000"});
}

TEST_F(Bar, ABarWithItsMinimumBelowItsMaximumGrowsDownwards) {
    VScrollBar other(form, "other");
    other.Min = 1;
    other.Max = 3;
    EXPECT_EQ(other.Value, 1);
    other.UserStepToMax();
    EXPECT_EQ(other.Value, 2);
    other.UserStepToMin();
    other.UserStepToMin();
    EXPECT_EQ(other.Value, 1);
}

TEST_F(Bar, KeysCountOneStepEach) {
    bar.SetFocus();
    for (const int code : {key::Up, key::Left, key::PageUp}) {
        Press(form, code);
    }
    EXPECT_EQ(form.Taken(), (Lines{"1", "2", "3"}));
    for (const int code : {key::Down, key::Right, key::PageDown}) {
        Press(form, code);
    }
    EXPECT_EQ(form.Taken(), (Lines{"2", "1", "0"}));
    Press(form, key::Home);
    Press(form, key::End);
    EXPECT_EQ(form.Taken(), Lines{});  // no key leaps over ten thousand rows
}

TEST_F(Bar, IsATabStopAndTakesTheFocusOnAClickBeforeItsChange) {
    EXPECT_TRUE(bar.IsTabStop());
    form.NoteFocus(form.Text1);
    form.NoteFocus(bar);
    bar.UserStepToMin();
    EXPECT_EQ(form.Taken(), (Lines{"lost Text1", "got VScroll3", "1"}));
}

TEST_F(Bar, DraggingCountsAtTheRelease) {
    bar.UserRelease(4711);
    bar.UserRelease(20000);
    EXPECT_EQ(form.Taken(), (Lines{"4711", "10000"}));
}

TEST_F(Bar, ADisabledBarDoesNothing) {
    bar.Enabled = false;
    bar.UserStepToMin();
    bar.UserRelease(5);
    EXPECT_EQ(form.Taken(), Lines{});
    bar.Value = 3;  // the program may
    EXPECT_EQ(form.Taken(), Lines{"3"});
}

TEST_F(Bar, AnEndThatMovesTakesTheValueAlong) {
    bar.Value = 50;
    form.Taken();
    bar.Min = 20;
    EXPECT_EQ(form.Taken(), Lines{"20"});
}

}  // namespace
}  // namespace zirvo::forms
