// The five number formats, rounded half away from zero on the decimal digits.
#include "contour/number_format.h"

#include <gtest/gtest.h>

#include <limits>

#include "base/fault_of.h"

namespace zirvo {
namespace {

TEST(FormatNumber, FixedFormats) {
    EXPECT_EQ(FormatNumber(12.5, NumberFormat::Fixed1), "12.5");
    EXPECT_EQ(FormatNumber(-0.3, NumberFormat::Fixed1), "-0.3");
    EXPECT_EQ(FormatNumber(0, NumberFormat::Fixed1), "0.0");
    EXPECT_EQ(FormatNumber(12.5, NumberFormat::Fixed2), "12.50");
}

// 2.675 is 2.67499999999999982236431605997495353221893310546875 in binary, 2.67500000000000 with 15 digits.
TEST(FormatNumber, FixedFormatsRoundOnTheDecimalDigits) {
    EXPECT_EQ(FormatNumber(2.675, NumberFormat::Fixed2), "2.68");
    EXPECT_EQ(FormatNumber(0.125, NumberFormat::Fixed2), "0.13");
    EXPECT_EQ(FormatNumber(-0.25, NumberFormat::Fixed1), "-0.3");
    EXPECT_EQ(FormatNumber(-0.04, NumberFormat::Fixed1), "0.0");
}

TEST(FormatNumber, ScientificWithAShortExponent) {
    EXPECT_EQ(FormatNumber(1.2e-4, NumberFormat::Scientific1), "1.2E-4");
    EXPECT_EQ(FormatNumber(3400, NumberFormat::Scientific1), "3.4E3");
    EXPECT_EQ(FormatNumber(0, NumberFormat::Scientific1), "0.0E0");
    EXPECT_EQ(FormatNumber(1.234e-4, NumberFormat::Scientific2), "1.23E-4");
    EXPECT_EQ(FormatNumber(3400, NumberFormat::Scientific2), "3.40E3");
    EXPECT_EQ(FormatNumber(-1.5e-12, NumberFormat::Scientific2), "-1.50E-12");
    EXPECT_EQ(FormatNumber(1e10, NumberFormat::Scientific1), "1.0E10");
    EXPECT_EQ(FormatNumber(1e100, NumberFormat::Scientific1), "1.0E100");
    EXPECT_EQ(FormatNumber(0, NumberFormat::Scientific2), "0.00E0");
}

TEST(FormatNumber, ACarryMovesTheExponent) {
    EXPECT_EQ(FormatNumber(9.96, NumberFormat::Scientific1), "1.0E1");
    EXPECT_EQ(FormatNumber(0.996, NumberFormat::Scientific1), "1.0E0");
    EXPECT_EQ(FormatNumber(9.996e-5, NumberFormat::Exponent2), "1.00E-04");
}

TEST(FormatNumber, ScientificWithAFullExponent) {
    EXPECT_EQ(FormatNumber(1.23e-4, NumberFormat::Exponent2), "1.23E-04");
    EXPECT_EQ(FormatNumber(3400, NumberFormat::Exponent2), "3.40E+03");
    EXPECT_EQ(FormatNumber(0, NumberFormat::Exponent2), "0.00E+00");
    EXPECT_EQ(FormatNumber(-2.5e120, NumberFormat::Exponent2), "-2.50E+120");
}

TEST(FormatNumber, WhatIsNoNumberIsAFault) {
    for (const auto format : {NumberFormat::Fixed1, NumberFormat::Scientific2, NumberFormat::Exponent2}) {
        EXPECT_EQ(FaultOf([&] { FormatNumber(std::numeric_limits<double>::infinity(), format); }), fault::Overflow);
    }
}

}  // namespace
}  // namespace zirvo
