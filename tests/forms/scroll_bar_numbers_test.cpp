// Large numbers on a scroll bar: digits that are typed, and an arrow that is held.
#include <gtest/gtest.h>

#include "forms/plain_form.h"

namespace zirvo::forms {
namespace {

struct PointsForm : PlainForm {
    TextBox Text1{*this, "Text1"};
    VScrollBar Points{*this, "Points"};

    explicit PointsForm(forms::Application& application) : PlainForm(application) {
        Points.Max = 0;
        Points.Min = 10000;
        Points.Change = [this] { Note("change " + std::to_string(Points.Value)); };
    }
};

struct NumberOnABar : testing::Test {
    Screen<PointsForm> screen;
    PointsForm& form = screen.form;
    VScrollBar& bar = form.Points;

    void SetUp() override {
        bar.UserFocus();
        form.Taken();
    }
};

TEST_F(NumberOnABar, DigitsAndEnterSetTheValueInOneStep) {
    Type(form, "9999");
    EXPECT_EQ(bar.Typed, "9999");
    EXPECT_EQ(bar.Value, 0);
    Type(form, "\r");
    EXPECT_EQ(form.Taken(), Lines{"change 9999"});
    EXPECT_EQ(bar.Typed, "");
}

TEST_F(NumberOnABar, BackspaceTakesADigitAwayAndEscAll) {
    Type(form, "12\b3\r");
    EXPECT_EQ(bar.Value, 13);
    Type(form, "45\x1b\r");
    EXPECT_EQ(bar.Value, 13);
}

TEST_F(NumberOnABar, ANumberBeyondTheLimitIsNotTakenAndStaysToBeMended) {
    Type(form, "10001\r");
    EXPECT_EQ(bar.Value, 0);
    EXPECT_EQ(bar.Typed, "10001");
    EXPECT_TRUE(bar.TypedIsOutside());
    Type(form, "\b\r");
    EXPECT_EQ(bar.Value, 1000);
}

TEST_F(NumberOnABar, TheLargestNumberCanBeTyped) {
    Type(form, "10000\r");
    EXPECT_EQ(bar.Value, 10000);
}

TEST_F(NumberOnABar, LettersDoNothingAndEnterAloneNeither) {
    Type(form, "x\r1e2\r");
    EXPECT_EQ(form.Taken(), Lines{"change 12"});
}

TEST_F(NumberOnABar, AnArrowDropsWhatWasTyped) {
    Type(form, "50");
    Press(form, key::Up);
    EXPECT_EQ(bar.Value, 1);
    EXPECT_EQ(bar.Typed, "");
}

TEST_F(NumberOnABar, TheLossOfTheFocusDropsWhatWasTyped) {
    Type(form, "50");
    form.Text1.UserFocus();
    EXPECT_EQ(bar.Typed, "");
    bar.UserFocus();
    Type(form, "\r");
    EXPECT_EQ(bar.Value, 0);
}

TEST_F(NumberOnABar, AHeldArrowStepsByOneInItsFirstSecond) {
    bar.UserStepToMin();
    for (int held = 500; held <= 1000; held += 50) {
        bar.UserStepToMin(held);
    }
    EXPECT_EQ(bar.Value, 12);  // the press and eleven repetitions
}

/// Milliseconds that an arrow is held until the value is there; it repeats at that interval behind the first half
/// second, as the toolkit's bars (50 ms) and the keyboards (40 ms) do.
int HeldUntil(VScrollBar& bar, int target, int interval, int limit) {
    bar.UserStepToMin();
    int held = 500;
    while (bar.Value < target && held < limit) {
        bar.UserStepToMin(held);
        held += interval;
    }
    return held;
}

TEST_F(NumberOnABar, AHeldArrowReaches9999WithinTenSeconds) {
    EXPECT_LT(HeldUntil(bar, 9999, 50, 20000), 10000);
    bar.UserRelease(0);
    EXPECT_LT(HeldUntil(bar, 9999, 40, 20000), 10000);
    bar.UserRelease(0);
    EXPECT_LT(HeldUntil(bar, 9999, 150, 20000), 10000);  // a slow machine
}

TEST_F(NumberOnABar, AHeldArrowStillHitsAHundredRoughly) {
    // A count of layers, up to 100: it must not be over before the hand can let go.
    EXPECT_GT(HeldUntil(bar, 100, 50, 20000), 2000);
}

TEST_F(NumberOnABar, ANewPressBeginsWithSingleStepsAgain) {
    HeldUntil(bar, 9999, 50, 20000);
    bar.UserRelease(0);
    bar.UserStepToMin();
    bar.UserStepToMin(500);
    EXPECT_EQ(bar.Value, 2);
}

TEST_F(NumberOnABar, AHeldKeyGoesFasterToo) {
    form.Strike({.Code = key::Up});
    for (int held = 660; held <= 9700; held += 40) {
        form.Strike({.Code = key::Up, .HeldFor = held});
    }
    EXPECT_EQ(bar.Value, 10000);
    form.Strike({.Code = key::Down, .HeldFor = 9700});
    EXPECT_LT(bar.Value, 10000);
}

TEST_F(NumberOnABar, TellsWhetherTheArrowWasHeld) {
    bar.UserStepToMin();
    EXPECT_FALSE(bar.IsHeld());
    bar.UserStepToMin(600);
    EXPECT_TRUE(bar.IsHeld());
    bar.UserRelease(50);
    EXPECT_FALSE(bar.IsHeld());
    bar.UserStepToMin(600);
    screen.Run([this] { bar.Value = 70; });
    EXPECT_FALSE(bar.IsHeld());
}

TEST_F(NumberOnABar, AMachineThatWasBusyDoesNotJump) {
    bar.UserStepToMin();
    bar.UserStepToMin(8000);  // one repetition after eight seconds: what 0.2 s of that speed make
    EXPECT_LT(bar.Value, 1000);
}

}  // namespace
}  // namespace zirvo::forms
