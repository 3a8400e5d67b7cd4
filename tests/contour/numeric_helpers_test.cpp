// Smaller and larger of two, range of an array, the straight line in slope-and-intercept form, contour levels.
#include "contour/numeric_helpers.h"

#include <gtest/gtest.h>

#include <vector>

#include "base/fault_of.h"

namespace zirvo {
namespace {

TEST(MinMax, OfTwoAndOfEquals) {
    EXPECT_EQ(Min(1, 2), 1);
    EXPECT_EQ(Min(2, 1), 1);
    EXPECT_EQ(Max(1, 2), 2);
    EXPECT_EQ(Max(-1, -2), -1);
    EXPECT_EQ(Min(3, 3), 3);
}

TEST(ArrayRange, CountsFromOneAndStopsAtTheCount) {
    const std::vector<double> values{-99, 3, -1, 7, 100};
    EXPECT_EQ(ArrayRange(values, 3), (ValueRange{-1, 7}));
    EXPECT_EQ(ArrayRange(values, 1), (ValueRange{3, 3}));
}

TEST(ArrayRange, StartsWithTheFirstEntryWhateverTheCount) {
    const std::vector<double> values{-99, 3, -1};
    EXPECT_EQ(ArrayRange(values, 0), (ValueRange{3, 3}));
    EXPECT_EQ(ArrayRange(values, -1), (ValueRange{3, 3}));
    EXPECT_EQ(FaultOf([] { ArrayRange(std::vector<double>{5}, 0); }), fault::SubscriptOutOfRange);
}

TEST(ArrayRange, AnEntryThatIsNotThereIsAFault) {
    const std::vector<double> values{0, 1};
    EXPECT_EQ(FaultOf([&] { ArrayRange(values, 2); }), fault::SubscriptOutOfRange);
}

TEST(LinearInterpolate, GivesTheLineAlsoBeyondItsPoints) {
    EXPECT_EQ(LinearInterpolate(1, 0, 10, 2, 20), 15);
    EXPECT_EQ(LinearInterpolate(-2, 0, 10, 2, 20), 0);
}

TEST(LinearInterpolate, TwoEqualAbscissasGiveZeroWhateverTheRest) {
    EXPECT_EQ(LinearInterpolate(5, 3, 10, 3, 20), 0);
    EXPECT_EQ(LinearInterpolate(3, 3, 10, 3, 10), 0);
}

// A form relative to x1 would give an end at x1 always exactly; this one does not.
TEST(LinearInterpolate, IsSlopeAndInterceptAndMayMissAnEndByAnUlp) {
    const double slope = (7.0e-4 - 1.3e-4) / (12.7 - 3.1);
    const double intercept = 1.3e-4 - 3.1 * slope;
    EXPECT_EQ(LinearInterpolate(12.7, 3.1, 1.3e-4, 12.7, 7.0e-4), 12.7 * slope + intercept);
    int missed = 0;
    for (int i = 1; i <= 1000; ++i) {
        const double x2 = 0.037 * i;
        missed += LinearInterpolate(x2, 0.11, 1.3e-4, x2, 7.1e-4) != 7.1e-4 ? 1 : 0;
    }
    EXPECT_GT(missed, 0);
}

TEST(ContourLevels, AreEquallySpacedFromTheLowestToTheHighest) {
    EXPECT_EQ(ContourLevels(1, 3, 5), (std::vector<double>{0, 1, 1.5, 2, 2.5, 3}));
    EXPECT_EQ(ContourLevels(-4, 4, 2), (std::vector<double>{0, -4, 4}));
    EXPECT_EQ(ContourLevels(0, 1, 20).size(), 21u);
}

// Expected in that order; (k - 1) * (zmax - zmin) / (count - 1) would differ in the last bit for some.
TEST(ContourLevels, DivideFirstThenMultiplyThenAdd) {
    for (const double zmax : {0.7, 1.1, 3.3, 1e-4}) {
        const auto levels = ContourLevels(0.1, zmax, 7);
        const double step = (zmax - 0.1) / 6;
        EXPECT_EQ(levels[1], 0.1);
        EXPECT_EQ(levels[4], step * 3 + 0.1);
        EXPECT_EQ(levels[7], step * 6 + 0.1);
    }
}

TEST(ContourLevels, TheLastLevelMayLieAnUlpAboveTheHighestValue) {
    int above = 0;
    for (int i = 1; i <= 2000; ++i) {
        const double zmax = 1e-6 * i + 1.7e-4;
        above += ContourLevels(1.1e-4, zmax, 20).back() > zmax ? 1 : 0;
    }
    EXPECT_GT(above, 0);
}

TEST(ContourLevels, OfAnEmptyRangeCoincide) {
    EXPECT_EQ(ContourLevels(2.5, 2.5, 3), (std::vector<double>{0, 2.5, 2.5, 2.5}));
}

TEST(ContourLevels, CountsAndRangesThatCannotBeAreFaults) {
    EXPECT_EQ(FaultOf([] { ContourLevels(0, 1, 1); }), fault::DivisionByZero);
    EXPECT_EQ(FaultOf([] { ContourLevels(0, 1, -1); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(FaultOf([] { ContourLevels(-1.7e308, 1.7e308, 5); }), fault::Overflow);
    EXPECT_EQ(ContourLevels(0, 1, 0), std::vector<double>{0});
}

}  // namespace
}  // namespace zirvo
