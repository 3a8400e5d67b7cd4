// Decimal rounding on magnitudes, and the rules of RoundUp that are no ceiling.
#include "contour/rounding.h"

#include <gtest/gtest.h>

#include "base/fault_of.h"

namespace zirvo {
namespace {

FixedPoint4 Fixed(double x) {
    return FixedPoint4::FromDouble(x);
}

TEST(Round, RoundsTheMagnitudeAndPutsTheSignBack) {
    EXPECT_EQ(Round(Fixed(2.345), 2), 2.35);
    EXPECT_EQ(Round(Fixed(-2.345), 2), -2.35);
    EXPECT_EQ(Round(Fixed(-31.6667), 2), -31.67);
    EXPECT_EQ(Round(Fixed(0.5), 0), 1);
    EXPECT_EQ(Round(Fixed(-0.5), 0), -1);
    EXPECT_EQ(Round(Fixed(0.4999), 0), 0);
}

// y = 230 is whole: the input comes back.
TEST(Round, AValueThatNeedsNoRoundingComesBackUnchanged) {
    EXPECT_EQ(Round(Fixed(2.3), 2), 2.3);
    EXPECT_EQ(Round(Fixed(-7), 0), -7);
}

TEST(Round, FourDigitsAndMoreGiveTheValue) {
    for (Int16 digits = 4; digits <= 14; ++digits) {
        EXPECT_EQ(Round(Fixed(0.1234), digits), 0.1234);
        EXPECT_EQ(RoundUp(Fixed(-0.1234), digits), -0.1234);
        EXPECT_EQ(RoundDown(Fixed(0.1234), digits), 0.1234);
    }
}

// t = 12.5, Int(t) * 100 = 1200 is below 1250, so q = Int(13) = 13.
TEST(Round, NegativeDigitsCountPlacesBeforeThePoint) {
    EXPECT_EQ(Round(Fixed(1250), -2), 1300);
    EXPECT_EQ(Round(Fixed(-1250), -2), -1300);
    EXPECT_EQ(Round(Fixed(1200), -2), 1200);
    EXPECT_EQ(Round(Fixed(1249), -2), 1200);
    EXPECT_EQ(RoundUp(Fixed(1210), -2), 1300);    // t = 12.1, 13.0
    EXPECT_EQ(RoundUp(Fixed(1209), -2), 1200);    // t = 12.09, 12.99
    EXPECT_EQ(RoundDown(Fixed(1299), -2), 1200);  // t = 12.99
    EXPECT_EQ(RoundDown(Fixed(-1299), -2), -1200);
}

// t is converted to four decimals: 1249999.99 / 1E6 = 1.24999999 becomes 1.25, 1499999.99 becomes 1.5, which goes up.
TEST(Round, TheQuotientOfNegativeDigitsHasFourDecimals) {
    EXPECT_EQ(Round(Fixed(1499999.99), -6), 2000000);
    EXPECT_EQ(Round(Fixed(1499900), -6), 1000000);
    EXPECT_EQ(RoundDown(Fixed(1999999.99), -6), 2000000);  // t = 2.0000: Int(t) * p is not below the value
}

// y = 12.09, and 12.99 floors to 12: a fraction below a tenth of the last place goes down, and that is the rule.
TEST(RoundUp, AddsNineTenthsAndIsNoCeiling) {
    EXPECT_EQ(RoundUp(Fixed(1.21), 1), 1.3);
    EXPECT_EQ(RoundUp(Fixed(1.209), 1), 1.2);
    EXPECT_EQ(RoundUp(Fixed(1.205), 2), 1.21);
    EXPECT_EQ(RoundUp(Fixed(1.2005), 2), 1.2);
    EXPECT_EQ(RoundUp(Fixed(-1.21), 1), -1.3);
}

TEST(RoundDown, GoesTowardsZero) {
    EXPECT_EQ(RoundDown(Fixed(2.349), 2), 2.34);
    EXPECT_EQ(RoundDown(Fixed(-2.349), 2), -2.34);
    EXPECT_EQ(RoundDown(Fixed(0.9999), 0), 0);
}

TEST(Round, ZeroIsZeroOnEveryPath) {
    for (const Int16 digits : {Int16{-3}, Int16{0}, Int16{2}, Int16{14}}) {
        EXPECT_EQ(Round({}, digits), 0);
        EXPECT_EQ(RoundUp({}, digits), 0);
        EXPECT_EQ(RoundDown({}, digits), 0);
    }
    EXPECT_EQ(Round(Fixed(0.00004), 4), 0);  // vanished before any rounding
}

TEST(Round, WhatFourDecimalsCannotHoldIsAnOverflow) {
    EXPECT_EQ(FaultOf([] { Round(Fixed(1), 15); }), fault::Overflow);
    EXPECT_EQ(FaultOf([] { Round(Fixed(1), -15); }), fault::Overflow);
    EXPECT_EQ(FaultOf([] { Round(Fixed(1), -32768); }), fault::Overflow);
    EXPECT_EQ(FaultOf([] { Round(Fixed(1e12), 4); }), fault::Overflow);
}

}  // namespace
}  // namespace zirvo
