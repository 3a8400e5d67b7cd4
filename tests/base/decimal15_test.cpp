// Fifteen decimal digits of a double, and the two forms that are rounded on them.
#include "base/decimal15.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

#include "base/fault_of.h"

namespace zirvo {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double Largest = std::numeric_limits<double>::max();
constexpr double Smallest = std::numeric_limits<double>::denorm_min();

TEST(ToDecimal15, GivesTheFifteenNearestDigits) {
    EXPECT_EQ(ToDecimal15(1), (Decimal15{false, 100000000000000, 0}));
    EXPECT_EQ(ToDecimal15(-0.35), (Decimal15{true, 350000000000000, -1}));
    // 2/3 in binary is 0.66666666666666662965...
    EXPECT_EQ(ToDecimal15(2.0 / 3), (Decimal15{false, 666666666666667, -1}));
    // 0.1 + 0.2 in binary is 0.3000000000000000444...
    EXPECT_EQ(ToDecimal15(0.1 + 0.2), (Decimal15{false, 300000000000000, -1}));
}

TEST(ToDecimal15, CarryThroughAllDigitsMovesTheExponent) {
    EXPECT_EQ(ToDecimal15(0.99999999999999989), (Decimal15{false, 100000000000000, 0}));
    EXPECT_EQ(ToDecimal15(9999999999999999.0), (Decimal15{false, 100000000000000, 16}));
}

TEST(ToDecimal15, ZeroHasNoSignAndNoExponent) {
    EXPECT_EQ(ToDecimal15(0.0), Decimal15{});
    EXPECT_EQ(ToDecimal15(-0.0), Decimal15{});
}

TEST(ToDecimal15, EndsOfTheRangeHaveTheirExactDigits) {
    // 2^1024 - 2^971 = 1.797693134862315708...E308, 2^-1074 = 4.940656458412465441...E-324
    EXPECT_EQ(ToDecimal15(Largest), (Decimal15{false, 179769313486232, 308}));
    EXPECT_EQ(ToDecimal15(Smallest), (Decimal15{false, 494065645841247, -324}));
}

TEST(ToDecimal15, AnExactTieOfTheBinaryValueGoesToTheEvenDigit) {
    EXPECT_EQ(ToDecimal15(100000000000000.5).Digits, 100000000000000U);
    EXPECT_EQ(ToDecimal15(100000000000001.5).Digits, 100000000000002U);
}

TEST(ToDecimal15, InfinitiesAndNotANumberOverflow) {
    for (const double x : {Infinity, -Infinity, NotANumber}) {
        EXPECT_EQ(FaultOf([x] { ToDecimal15(x); }), 6);
        EXPECT_EQ(FaultOf([x] { FixedText(x, 2); }), 6);
        EXPECT_EQ(FaultOf([x] { ScientificText(x, 2); }), 6);
    }
}

// The C library prints exact digits too, by a way of its own; "%.14e" has 15 of them.
TEST(ToDecimal15, AgreesWithTheDigitsOfTheCLibraryOnRandomBitPatterns) {
    std::mt19937_64 random(20260101);
    for (int i = 0; i < 200000; ++i) {
        const double x = std::bit_cast<double>(random());
        if (!std::isfinite(x) || x == 0) {
            continue;
        }
        std::array<char, 32> text{};
        std::snprintf(text.data(), text.size(), "%.14e", std::fabs(x));
        const std::string printed(text.data());
        const std::string digits = printed[0] + printed.substr(2, 14);
        const Decimal15 expected{x < 0, std::stoull(digits), std::stoi(printed.substr(17))};
        ASSERT_EQ(ToDecimal15(x), expected) << printed;
    }
}

TEST(FixedText, RoundsHalfAwayFromZeroOnTheDecimalDigits) {
    EXPECT_EQ(FixedText(2.675, 2), "2.68");  // in binary 2.67499999999999982236431605997495353221893310546875
    EXPECT_EQ(FixedText(-2.675, 2), "-2.68");
    EXPECT_EQ(FixedText(0.125, 2), "0.13");  // an exact tie, which printing functions take to "0.12"
    EXPECT_EQ(FixedText(2.5, 0), "3");
    EXPECT_EQ(FixedText(-2.5, 0), "-3");
    EXPECT_EQ(FixedText(1.005, 2), "1.01");
    EXPECT_EQ(FixedText(1.0049999999999, 2), "1.00");
}

TEST(FixedText, WhatRoundsToZeroHasNoMinusSign) {
    EXPECT_EQ(FixedText(-0.001, 2), "0.00");
    EXPECT_EQ(FixedText(-0.0, 3), "0.000");
    EXPECT_EQ(FixedText(-0.4, 0), "0");
    EXPECT_EQ(FixedText(-Smallest, 15), "0.000000000000000");
    EXPECT_EQ(FixedText(-0.005, 2), "-0.01");
}

TEST(FixedText, TheFirstDigitMayComeFromTheCarryAlone) {
    EXPECT_EQ(FixedText(0.5, 0), "1");
    EXPECT_EQ(FixedText(0.05, 1), "0.1");
    EXPECT_EQ(FixedText(0.049999, 1), "0.0");
    EXPECT_EQ(FixedText(0.0049, 1), "0.0");
    EXPECT_EQ(FixedText(9.996, 2), "10.00");
    EXPECT_EQ(FixedText(999.5, 0), "1000");
    EXPECT_EQ(FixedText(0.96, 1), "1.0");
}

TEST(FixedText, DigitsBeyondTheFifteenthAreZeros) {
    EXPECT_EQ(FixedText(123456789012345678.0, 1), "123456789012346000.0");
    EXPECT_EQ(FixedText(1.0 / 3, 15), "0.333333333333333");
    EXPECT_EQ(FixedText(100.0 / 3, 15), "33.333333333333300");
    EXPECT_EQ(FixedText(1e22, 0), "10000000000000000000000");
}

TEST(FixedText, TheLargestDoubleIsWrittenOut) {
    const std::string text = FixedText(-Largest, 2);
    EXPECT_EQ(text.substr(0, 17), "-1797693134862320");
    EXPECT_EQ(text.size(), 1U + 309U + 3U);
    EXPECT_EQ(text.substr(text.size() - 4), "0.00");
}

TEST(FixedText, DecimalsOutsideTheRangeAreAnInvalidCall) {
    EXPECT_EQ(FaultOf([] { FixedText(1, -1); }), 5);
    EXPECT_EQ(FaultOf([] { FixedText(1, 16); }), 5);
}

TEST(ScientificText, HasOneDigitBeforeThePointAndAtLeastTwoOfTheExponent) {
    EXPECT_EQ(ScientificText(-0.123456, 4), "-1.2346E-01");
    EXPECT_EQ(ScientificText(0, 4), "0.0000E+00");
    EXPECT_EQ(ScientificText(-0.0, 4), "0.0000E+00");
    EXPECT_EQ(ScientificText(0, 0), "0E+00");
    EXPECT_EQ(ScientificText(12345, 0), "1E+04");
    EXPECT_EQ(ScientificText(1e10, 1), "1.0E+10");
    EXPECT_EQ(ScientificText(1e99, 1), "1.0E+99");
    EXPECT_EQ(ScientificText(1e100, 1), "1.0E+100");
    EXPECT_EQ(ScientificText(-1e-22, 1), "-1.0E-22");
    EXPECT_EQ(ScientificText(1e-9, 1), "1.0E-09");
    EXPECT_EQ(ScientificText(2.0 / 3, 14), "6.66666666666667E-01");
}

TEST(ScientificText, RoundsHalfAwayFromZeroAndCarries) {
    EXPECT_EQ(ScientificText(1.00005, 4), "1.0001E+00");
    EXPECT_EQ(ScientificText(0.00012345, 3), "1.235E-04");  // in binary 1.2344999999999999203E-04
    EXPECT_EQ(ScientificText(9.99995, 4), "1.0000E+01");
    EXPECT_EQ(ScientificText(9.99994999, 4), "9.9999E+00");
    EXPECT_EQ(ScientificText(-0.99999999, 2), "-1.00E+00");
    EXPECT_EQ(ScientificText(9.5, 0), "1E+01");
    EXPECT_EQ(ScientificText(0.25, 0), "3E-01");
}

TEST(ScientificText, EndsOfTheRangeFitTheBuffer) {
    EXPECT_EQ(ScientificText(-Largest, 14), "-1.79769313486232E+308");
    EXPECT_EQ(ScientificText(-Smallest, 14), "-4.94065645841247E-324");
    EXPECT_EQ(ScientificText(Largest, 0), "2E+308");
}

TEST(ScientificText, DecimalsOutsideTheRangeAreAnInvalidCall) {
    EXPECT_EQ(FaultOf([] { ScientificText(1, -1); }), 5);
    EXPECT_EQ(FaultOf([] { ScientificText(1, 15); }), 5);
}

TEST(WriteScientific, WritesNothingBehindItsLength) {
    std::array<char, 25> out{};
    out.fill('#');
    EXPECT_EQ(WriteScientific(-0.123456, 4, out.data()), 11U);
    EXPECT_EQ(std::string(out.data(), out.size()), "-1.2346E-01##############");
    out.fill('#');
    EXPECT_EQ(WriteScientific(7, 0, out.data()), 5U);
    EXPECT_EQ(std::string(out.data(), 8), "7E+00###");
}

// The text of n decimals is off by at most half a unit of its last digit, and reads back to the 15 digits with 14.
TEST(ScientificText, IsTheNearestTextOnRandomValues) {
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> mantissa(-10, 10);
    std::uniform_int_distribution<int> exponent(-20, 20);
    for (int i = 0; i < 100000; ++i) {
        const double x = mantissa(random) * std::pow(10.0, exponent(random));
        const double rounded = std::strtod(ScientificText(x, 4).c_str(), nullptr);
        const double unit = std::pow(10.0, ToDecimal15(x).Exponent - 4);
        ASSERT_LE(std::fabs(rounded - x), 0.5 * unit * (1 + 1e-9)) << x;
        ASSERT_EQ(ToDecimal15(std::strtod(ScientificText(x, 14).c_str(), nullptr)), ToDecimal15(x)) << x;
    }
}

}  // namespace
}  // namespace zirvo
