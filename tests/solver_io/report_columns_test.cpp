// Numbers in the columns of the reports.
#include "solver/io/report_columns.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "base/decimal15.h"

namespace zirvo::solver {
namespace {

std::string ValueColumn(double value) {
    std::string column(ValueWidth, ' ');
    WriteValueColumn(value, column.data() + ValueWidth);
    return column;
}

std::string PointColumns(const Point& point) {
    std::string columns(PointWidth, ' ');
    WritePointColumns(point, columns.data());
    return columns;
}

TEST(ValueColumn, HoldsFiveDigitsAndATwoDigitExponent) {
    EXPECT_EQ(ValueColumn(-0.123456), " -1.2346E-01");
    EXPECT_EQ(ValueColumn(0.7), "  7.0000E-01");
    EXPECT_EQ(ValueColumn(1), "  1.0000E+00");
    EXPECT_EQ(ValueColumn(99999.4), "  9.9999E+04");
    EXPECT_EQ(ValueColumn(99999.6), "  1.0000E+05");
    EXPECT_EQ(ValueColumn(-9.9999e99), " -9.9999E+99");
}

// 1.23445 and 2.00005 lie below their decimal text in binary; their 15 digits do not.
TEST(ValueColumn, RoundsHalfAwayFromZeroOnTheDecimalDigits) {
    EXPECT_EQ(ValueColumn(1.23445), "  1.2345E+00");
    EXPECT_EQ(ValueColumn(-1.23445), " -1.2345E+00");
    EXPECT_EQ(ValueColumn(2.00005), "  2.0001E+00");
    EXPECT_EQ(ValueColumn(1.00004999999999), "  1.0000E+00");
    EXPECT_EQ(ValueColumn(1.2344999999999996), "  1.2345E+00") << "1.23450000000000 on 15 digits";
}

TEST(ValueColumn, ZeroAndTinyMagnitudesAreOneCharacter) {
    const std::string zero = std::string(11, ' ') + "0";
    for (const double value : {0.0, -0.0, 9.9999999e-100, -9e-100, std::numeric_limits<double>::denorm_min()}) {
        EXPECT_EQ(ValueColumn(value), zero) << value;
    }
    EXPECT_EQ(ValueColumn(1e-99), "  1.0000E-99");
    EXPECT_EQ(ValueColumn(-1e-99), " -1.0000E-99");
}

TEST(ValueColumn, AgreesWithTheExactRoadOnRandomValuesTiesAndPowersOfTen) {
    std::mt19937_64 random(20240229);
    std::uniform_real_distribution<double> exponents(-98.9, 99.9);
    std::uniform_int_distribution<int> digits(10000, 99999);
    std::vector<double> values;
    for (int i = 0; i < 200000; ++i) {
        values.push_back(std::pow(10, exponents(random)));
        // Five digits and a half: on the edge of rounding.
        const std::string tie = std::to_string(digits(random)) + "5e" + std::to_string(i % 180 - 95);
        values.push_back(std::strtod(tie.c_str(), nullptr));
    }
    for (int i = -99; i < 100; ++i) {
        const double power = std::strtod(("1e" + std::to_string(i)).c_str(), nullptr);
        values.insert(values.end(), {power, std::nextafter(power, 0), std::nextafter(power, 1e300)});
    }
    for (const double value : values) {
        if (value < SmallestPrinted || value > LargestPrinted) {
            continue;
        }
        std::string exact = ScientificText(value, 4);
        ASSERT_EQ(ValueColumn(value), std::string(ValueWidth - exact.size(), ' ') + exact);
        exact = ScientificText(-value, 4);
        ASSERT_EQ(ValueColumn(-value), std::string(ValueWidth - exact.size(), ' ') + exact);
    }
}

TEST(PointColumns, LayerAndCoordinatesStandAtTheRightOfTheirColumns) {
    EXPECT_EQ(PointColumns({1, 0, -15.5, 7.5}), "  1    0.000  -15.500    7.500");
    EXPECT_EQ(PointColumns({100, 9999.999, -999.999, 0.0005}), "100 9999.999 -999.999    0.001");
}

TEST(PointColumns, DecimalsGoWhereThereIsNoRoomForThem) {
    EXPECT_EQ(CoordinateText(12345.678), "12345.68");
    EXPECT_EQ(CoordinateText(9999.9996), "10000.00");
    EXPECT_EQ(CoordinateText(-1234.5678), "-1234.57");
    EXPECT_EQ(CoordinateText(-999.9996), "-1000.00");
    EXPECT_EQ(CoordinateText(123456.78), "123456.8");
    EXPECT_EQ(CoordinateText(1234567.8), "1234568");
    EXPECT_EQ(CoordinateText(12345678.4), "12345678");
    EXPECT_EQ(CoordinateText(-1234567.4), "-1234567");
    EXPECT_EQ(CoordinateText(99999999.4), "99999999");
    EXPECT_EQ(CoordinateText(99999999.6), "1.0E+08");
    EXPECT_EQ(CoordinateText(-12345678), "-1.2E+07");
    EXPECT_EQ(CoordinateText(1e10), "1.0E+10");
    EXPECT_EQ(CoordinateText(1e100), "1.0E+100");
    EXPECT_EQ(CoordinateText(-1e99), "-1.0E+99");
    EXPECT_EQ(CoordinateText(-1e100), "");
    EXPECT_EQ(CoordinateText(-9.96e99), "") << "rounds to a third digit of the exponent";
    EXPECT_EQ(CoordinateText(std::numeric_limits<double>::max()), "1.8E+308");
}

TEST(PointColumns, NoZeroHasASign) {
    EXPECT_EQ(PointColumns({1, -0.0, -0.0001, -0.0004999}), "  1    0.000    0.000    0.000");
    EXPECT_EQ(PointColumns({1, -0.0005, -1e-300, 0}), "  1   -0.001    0.000    0.000");
}

// 2.0005 is below its text in binary, 15 digits round it up.
TEST(PointColumns, AgreeWithTheExactRoadOnRandomValuesAndTies) {
    EXPECT_EQ(PointColumns({1, 2.0005, -2.0005, 0}), "  1    2.001   -2.001    0.000");
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> wide(-20000, 20000);
    std::uniform_int_distribution<int> thousandths(-1100000, 1100000);
    for (int i = 0; i < 100000; ++i) {
        const std::string tie = std::to_string(thousandths(random)) + "5e-4";
        const Point point{2, wide(random), std::strtod(tie.c_str(), nullptr), 0};
        std::string expected = "  2";
        for (const std::string& text : {CoordinateText(point.X), CoordinateText(point.Y), std::string("0.000")}) {
            expected.append(CoordinateWidth - text.size(), ' ');
            expected += text;
        }
        ASSERT_EQ(PointColumns(point), expected);
    }
}

TEST(FittedNumberText, KeepsAsManyDigitsAsTheColumnsHold) {
    EXPECT_EQ(FittedNumberText(0.35, 12), "0.35");
    EXPECT_EQ(FittedNumberText(-0.0, 12), "0");
    EXPECT_EQ(FittedNumberText(0.333333333333333, 12), "0.3333333333");
    EXPECT_EQ(FittedNumberText(-0.666666666666667, 12), "-0.666666667");
    EXPECT_EQ(FittedNumberText(123456789012345, 12), "1.234568E+14");
    EXPECT_EQ(FittedNumberText(1e14, 12), "1E+14");
    EXPECT_EQ(FittedNumberText(-999999999999, 12), "-1E+12") << "12 digits and a sign do not fit";
    EXPECT_EQ(FittedNumberText(1.5e-13, 12), "1.5E-13");
    EXPECT_EQ(FittedNumberText(0.0000001234567, 12), "1.234567E-07");
    EXPECT_EQ(FittedNumberText(-std::numeric_limits<double>::max(), 12), "-1.7977E+308");
    EXPECT_EQ(FittedNumberText(std::numeric_limits<double>::denorm_min(), 12), "4.94066E-324");
}

TEST(FittedNumberText, EveryDoubleFitsTwelveColumns) {
    std::mt19937_64 random(11);
    for (int i = 0; i < 20000; ++i) {
        const std::uint64_t bits = random();
        const double x = std::bit_cast<double>(bits);
        if (std::isfinite(x)) {
            ASSERT_LE(FittedNumberText(x, 12).size(), 12U) << x;
        }
    }
}

}  // namespace
}  // namespace zirvo::solver
