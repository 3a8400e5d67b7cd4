// Numbers with four decimals: exact conversion, products, floor, the ends of the range.
#include "contour/fixed_point4.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

#include "base/fault_of.h"

namespace zirvo {
namespace {

constexpr std::int64_t Largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t Smallest = std::numeric_limits<std::int64_t>::min();

std::int64_t UnitsOf(double x) {
    return FixedPoint4::FromDouble(x).Units();
}

std::int64_t ProductOf(std::int64_t a, std::int64_t b) {
    return (FixedPoint4::FromUnits(a) * FixedPoint4::FromUnits(b)).Units();
}

TEST(FixedPoint4, ADoubleGoesToTheNearestTenThousandth) {
    EXPECT_EQ(UnitsOf(0), 0);
    EXPECT_EQ(UnitsOf(-0.0), 0);
    EXPECT_EQ(UnitsOf(2.345), 23450);
    EXPECT_EQ(UnitsOf(-31.0 - 2.0 / 3), -316667);
    EXPECT_EQ(UnitsOf(1e-4), 1);
}

// 1/32 = 0.03125 and 3/32 = 0.09375 are exact in binary: the fifth decimal is a true 5.
TEST(FixedPoint4, ATrueTieGoesToTheEvenNeighbour) {
    EXPECT_EQ(UnitsOf(0.03125), 312);
    EXPECT_EQ(UnitsOf(0.09375), 938);
    EXPECT_EQ(UnitsOf(-0.03125), -312);
    EXPECT_EQ(UnitsOf(-0.09375), -938);
}

// 0.00005 is 5.00000000000000023960868011929E-05 in binary, 0.00015 is 1.49999999999999993...E-04: no ties.
TEST(FixedPoint4, ADecimalFiveThatIsNoTieInBinaryFollowsItsExactValue) {
    EXPECT_EQ(UnitsOf(0.00005), 1);
    EXPECT_EQ(UnitsOf(0.00015), 1);
    EXPECT_EQ(UnitsOf(std::nextafter(0.03125, 1)), 313);
    EXPECT_EQ(UnitsOf(std::nextafter(0.09375, 0)), 937);
}

TEST(FixedPoint4, MagnitudesBelowHalfAStepVanish) {
    EXPECT_EQ(UnitsOf(0.0000499), 0);
    EXPECT_EQ(UnitsOf(-0.0000499), 0);
    EXPECT_EQ(UnitsOf(std::numeric_limits<double>::denorm_min()), 0);
    EXPECT_EQ(UnitsOf(1e-300), 0);
}

// 2^48 + 1/16 = 281474976710656.0625, whose ten-thousandths are 2814749767106560625; the product in doubles would lose
// the last digits.
TEST(FixedPoint4, LargeValuesAreConvertedExactlyInBothDirections) {
    const double x = 281474976710656.0625;
    EXPECT_EQ(UnitsOf(x), 2814749767106560625);
    EXPECT_EQ(FixedPoint4::FromUnits(2814749767106560625).ToDouble(), x);
    EXPECT_EQ(FixedPoint4::FromUnits(-2814749767106560625).ToDouble(), -x);
}

TEST(FixedPoint4, EveryCountComesBackFromItsDoubleWhileADoubleCanHoldIt) {
    std::mt19937_64 random(41);
    for (int bits = 1; bits <= 52; ++bits) {
        for (int i = 0; i < 200; ++i) {
            const auto units = static_cast<std::int64_t>(random() >> (64 - bits));
            EXPECT_EQ(UnitsOf(FixedPoint4::FromUnits(units).ToDouble()), units);
            EXPECT_EQ(UnitsOf(FixedPoint4::FromUnits(-units).ToDouble()), -units);
        }
    }
}

// The neighbours of the nearest double are farther away: compared in whole ten-thousandths of the exact values.
TEST(FixedPoint4, BeyondADoublesDigitsTheNearestDoubleIsGiven) {
    std::mt19937_64 random(43);
    for (int i = 0; i < 5000; ++i) {
        const auto units = static_cast<std::int64_t>(random() >> (1 + random() % 9));
        const double value = FixedPoint4::FromUnits(units).ToDouble();
        const auto distance = [&](double x) { return std::llabs(UnitsOf(x) - units); };
        EXPECT_LE(distance(value), distance(std::nextafter(value, 0)));
        EXPECT_LE(distance(value), distance(std::nextafter(value, 1e30)));
    }
}

TEST(FixedPoint4, WhatLeavesSixtyFourBitsIsAnOverflow) {
    EXPECT_EQ(UnitsOf(922337203685477.5), 9223372036854775000);
    EXPECT_EQ(FaultOf([] { UnitsOf(922337203685478.0); }), fault::Overflow);
    EXPECT_EQ(FaultOf([] { UnitsOf(-922337203685478.0); }), fault::Overflow);
    EXPECT_EQ(FaultOf([] { UnitsOf(1e300); }), fault::Overflow);
    EXPECT_EQ(FaultOf([] { UnitsOf(std::numeric_limits<double>::infinity()); }), fault::Overflow);
    EXPECT_EQ(FaultOf([] { UnitsOf(std::numeric_limits<double>::quiet_NaN()); }), fault::Overflow);
}

TEST(FixedPoint4, AProductIsRoundedToFourDecimalsWithTiesToEven) {
    EXPECT_EQ(ProductOf(23450, 1000000), 2345000);  // 2.345 * 100 = 234.5
    EXPECT_EQ(ProductOf(50, 100), 0);               // 0.005 * 0.01 = 0.00005: a tie between 0 and 1
    EXPECT_EQ(ProductOf(150, 100), 2);              // 0.015 * 0.01 = 0.00015: a tie between 1 and 2
    EXPECT_EQ(ProductOf(-150, 100), -2);
    EXPECT_EQ(ProductOf(-150, -100), 2);
    EXPECT_EQ(ProductOf(149, 100), 1);
    EXPECT_EQ(ProductOf(10001, 15000), 15002);  // 1.0001 * 1.5 = 1.50015: a tie between 15001 and 15002
}

TEST(FixedPoint4, ProductsAreExactUpToTheEndsOfTheRange) {
    EXPECT_EQ(ProductOf(Largest, 10000), Largest);
    EXPECT_EQ(ProductOf(Smallest, 10000), Smallest);
    // 30370004999 * 30370004999 = 922337203639284990001, beyond 64 bits before the division by 10000.
    EXPECT_EQ(ProductOf(30370004999, 30370004999), 92233720363928499);
    EXPECT_EQ(FaultOf([] { ProductOf(Largest, 10001); }), fault::Overflow);
    EXPECT_EQ(FaultOf([] { ProductOf(Smallest, -10000); }), fault::Overflow);
    EXPECT_EQ(FaultOf([] { ProductOf(Largest, Largest); }), fault::Overflow);
}

TEST(FixedPoint4, SumsAndDifferencesAreCheckedToo) {
    const auto max = FixedPoint4::FromUnits(Largest);
    const auto min = FixedPoint4::FromUnits(Smallest);
    const auto step = FixedPoint4::FromUnits(1);
    EXPECT_EQ((FixedPoint4::FromUnits(8333) + FixedPoint4::FromUnits(-3)).Units(), 8330);
    EXPECT_EQ((FixedPoint4::FromUnits(-5) - FixedPoint4::FromUnits(3)).Units(), -8);
    EXPECT_EQ((max - step + step).Units(), Largest);
    EXPECT_EQ(FaultOf([&] { (void)(max + step); }), fault::Overflow);
    EXPECT_EQ(FaultOf([&] { (void)(min - step); }), fault::Overflow);
    EXPECT_EQ(FaultOf([&] { (void)(step - min); }), fault::Overflow);
    EXPECT_EQ(FaultOf([&] { (void)Abs(min); }), fault::Overflow);
}

TEST(FixedPoint4, IntIsTheFloorAlsoBelowZero) {
    EXPECT_EQ(FixedPoint4::FromUnits(29999).Int(), 2);
    EXPECT_EQ(FixedPoint4::FromUnits(30000).Int(), 3);
    EXPECT_EQ(FixedPoint4::FromUnits(-1).Int(), -1);
    EXPECT_EQ(FixedPoint4::FromUnits(-20000).Int(), -2);
    EXPECT_EQ(FixedPoint4::FromUnits(-20001).Int(), -3);
    EXPECT_TRUE(FixedPoint4::FromUnits(-20000).IsWhole());
    EXPECT_FALSE(FixedPoint4::FromUnits(-20001).IsWhole());
}

TEST(FixedPoint4, SignMagnitudeAndOrder) {
    EXPECT_EQ(Sgn(FixedPoint4::FromUnits(-7)), -1);
    EXPECT_EQ(Sgn(FixedPoint4()), 0);
    EXPECT_EQ(Sgn(FixedPoint4::FromUnits(7)), 1);
    EXPECT_EQ(Abs(FixedPoint4::FromUnits(-7)).Units(), 7);
    EXPECT_LT(FixedPoint4::FromUnits(-8), FixedPoint4::FromUnits(7));
}

}  // namespace
}  // namespace zirvo
