// Fine axes, the bilinear refinement of both section kinds, and the jump at an interface.
#include "contour/refinement.h"

#include <gtest/gtest.h>

#include "base/fault_of.h"
#include "contour/positions.h"

namespace zirvo {
namespace {

TEST(BuildFineAxis, CutsEachIntervalIntoTenWhateverItsWidth) {
    const auto axis = BuildFineAxis(Positions({-35, -31.6667, 10}));
    ASSERT_EQ(axis.size(), 22u);
    EXPECT_EQ(axis[1], -35);
    const double step = (-31.6667 - -35) / 10;
    EXPECT_EQ(axis[2], -35 + 1 * step);
    EXPECT_EQ(axis[11], -35 + 10 * step);  // not set to the position itself
    const double next = (10 - -31.6667) / 10;
    EXPECT_EQ(axis[12], -31.6667 + 1 * next);
    EXPECT_EQ(axis[21], -31.6667 + 10 * next);
}

TEST(BuildFineAxis, OfOnePositionOrNoneIsEmpty) {
    EXPECT_EQ(BuildFineAxis(Positions({5})).size(), 1u);
    EXPECT_EQ(BuildFineAxis(Positions({})).size(), 1u);
    EXPECT_EQ(BuildFineAxis({}).size(), 1u);
}

ContourMap SectionXY(const std::vector<double>& x, const std::vector<double>& y) {
    ContourMap map;
    map.Grid.GridX = Positions(x);
    map.Grid.GridY = Positions(y);
    map.Field.FineAxis1 = BuildFineAxis(map.Grid.GridX);
    map.Field.FineAxis2 = BuildFineAxis(map.Grid.GridY);
    const auto last = [](int count) { return (count - 1) * RefineFactor + 1; };
    map.Field.Values = ValueMatrix(last(map.Grid.GridCountX()), last(map.Grid.GridCountY()));
    return map;
}

// f(i, j) = 100 i + 3 j + 0.5 i j at the coarse nodes; bilinear in the index in every cell, here over the whole grid.
TEST(RefineMatrixXY, IsBilinearInTheIndexOfTheNode) {
    ContourMap map = SectionXY({0, 1, 6}, {0, 10, 12, 20});
    auto& d = map.Field.Values;
    const auto f = [](double i, double j) { return 100 * i + 3 * j + 0.5 * i * j; };
    for (int j = 0; j < 4; ++j) {
        for (int i = 0; i < 3; ++i) {
            d.At(10 * i + 1, 10 * j + 1) = f(i, j);
        }
    }
    RefineMatrixXY(map.Field, map.Grid);
    for (int j = 1; j <= 31; ++j) {
        for (int i = 1; i <= 21; ++i) {
            EXPECT_NEAR(d.At(i, j), f((i - 1) / 10.0, (j - 1) / 10.0), 1e-11) << i << ' ' << j;
        }
    }
    EXPECT_EQ(d.At(0, 5), 0);
    EXPECT_EQ(d.At(5, 0), 0);
}

// Positions and values are small whole numbers and tens: nothing is rounded.
TEST(RefineMatrixXY, APlaneIsReproducedExactly) {
    ContourMap map = SectionXY({0, 10, 20}, {0, 20, 40});
    auto& d = map.Field.Values;
    for (int j = 1; j <= 21; j += 10) {
        for (int i = 1; i <= 21; i += 10) {
            d.At(i, j) = 3 * map.Field.FineAxis1[static_cast<std::size_t>(i)] -
                         2 * map.Field.FineAxis2[static_cast<std::size_t>(j)];
        }
    }
    RefineMatrixXY(map.Field, map.Grid);
    for (int j = 1; j <= 21; ++j) {
        for (int i = 1; i <= 21; ++i) {
            EXPECT_EQ(d.At(i, j), 3 * (i - 1) - 4 * (j - 1));
        }
    }
}

// a + 10 * 1 * (b - a) / 10 is not always b in doubles: the corner is written by the formula like any other node.
TEST(RefineMatrixXY, ACornerNeedNotComeBackToTheLastBit) {
    ContourMap map = SectionXY({0, 10}, {0, 10});
    auto& d = map.Field.Values;
    int changed = 0;
    for (int n = 1; n <= 100; ++n) {
        const double far = 0.1 + 0.037 * n;
        d.At(1, 1) = d.At(1, 11) = 1.0 / 3;
        d.At(11, 1) = d.At(11, 11) = far;
        RefineMatrixXY(map.Field, map.Grid);
        const double difference = far - 1.0 / 3;
        EXPECT_EQ(d.At(11, 1), 1.0 / 3 + 10 * 1.0 * difference / 10);
        changed += d.At(11, 1) != far ? 1 : 0;
    }
    EXPECT_GT(changed, 0);
}

TEST(RefineMatrixXY, ASingleRowOrColumnStaysAsItCame) {
    ContourMap map = SectionXY({0, 1, 2}, {5});
    map.Field.Values.At(1, 1) = 7;
    map.Field.Values.At(11, 1) = 9;
    RefineMatrixXY(map.Field, map.Grid);
    EXPECT_EQ(map.Field.Values.At(1, 1), 7);
    EXPECT_EQ(map.Field.Values.At(6, 1), 0);
    map = SectionXY({5}, {0, 1, 2});
    map.Field.Values.At(1, 11) = 9;
    RefineMatrixXY(map.Field, map.Grid);
    EXPECT_EQ(map.Field.Values.At(1, 6), 0);
}

TEST(RefineMatrixXY, AnIntervalWithoutWidthGoesByTheIndexAndGivesNumbers) {
    ContourMap map = SectionXY({0, 0}, {3, 3});
    map.Field.Values.At(11, 1) = 10;
    map.Field.Values.At(11, 11) = 10;
    RefineMatrixXY(map.Field, map.Grid);
    EXPECT_EQ(map.Field.Values.At(4, 6), 3);
}

TEST(RefineMatrixXY, AMatrixOrAnAxisThatIsTooSmallIsAFault) {
    ContourMap map = SectionXY({0, 1, 2}, {0, 1, 2});
    map.Field.Values = ValueMatrix(21, 11);
    EXPECT_EQ(FaultOf([&] { RefineMatrixXY(map.Field, map.Grid); }), fault::SubscriptOutOfRange);
    map = SectionXY({0, 1, 2}, {0, 1, 2});
    map.Field.FineAxis1.pop_back();
    EXPECT_EQ(FaultOf([&] { RefineMatrixXY(map.Field, map.Grid); }), fault::SubscriptOutOfRange);
}

/// Two columns at x 0 and 10, the depth levels of all layers one after the other; fine rows as wide as it takes.
ContourMap SectionXZ(const std::vector<double>& levels) {
    ContourMap map;
    map.Kind = SectionKind::XZ;
    map.Grid.GridX = Positions({0, 10});
    map.Grid.GridY = Positions(levels);
    map.Grid.LayerCount = static_cast<int>(levels.size()) / (SubDivisionsY + 1);
    map.Field.FineAxis1 = BuildFineAxis(map.Grid.GridX);
    map.Field.Values = ValueMatrix(11, (map.Grid.GridCountY() - 1) * RefineFactor + 1);
    return map;
}

void SetRow(ContourMap& map, int row, double value) {
    map.Field.Values.At(1, row) = value;
    map.Field.Values.At(11, row) = value + 10;
}

// Two layers of 6 and 12 cm: rows 1 to 61 and 62 to 122. The strain falls 60 to 0 in the upper one and starts anew at
// 500.
TEST(RefineMatrixXZ, AJumpAtAnInterfaceStaysAJump) {
    ContourMap map = SectionXZ({0, 1, 2, 3, 4, 5, 6, 6, 8, 10, 12, 14, 16, 18});
    for (int level = 0; level <= 6; ++level) {
        SetRow(map, 1 + 10 * level, 60 - 10 * level);
        SetRow(map, 62 + 10 * level, 500 + 20 * level);
    }
    RefineMatrixXZ(map.Field, map.Grid);
    const auto& d = map.Field.Values;
    for (int row = 1; row <= 61; ++row) {
        for (int i = 1; i <= 11; ++i) {
            EXPECT_NEAR(d.At(i, row), 60 - (row - 1) + (i - 1), 1e-12) << i << ' ' << row;
            EXPECT_NEAR(d.At(i, 61 + row), 500 + 2 * (row - 1) + (i - 1), 1e-12) << i << ' ' << row;
        }
    }
    EXPECT_EQ(d.At(1, 61), 0);
    EXPECT_EQ(d.At(1, 62), 500);
    EXPECT_EQ(d.At(1, 123), 0);  // nothing beyond the last row
}

// The second and third gap have no height: rows go on from the first gap to the fourth.
TEST(RefineMatrixXZ, AGapWithoutHeightAddsNoRows) {
    ContourMap map = SectionXZ({0, 1, 1, 1, 2, 3, 4});
    for (int level = 0; level <= 4; ++level) {
        SetRow(map, 1 + 10 * level, level);
    }
    RefineMatrixXZ(map.Field, map.Grid);
    for (int row = 1; row <= 41; ++row) {
        EXPECT_NEAR(map.Field.Values.At(1, row), (row - 1) / 10.0, 1e-12);
    }
    EXPECT_EQ(map.Field.Values.At(1, 42), 0);
}

TEST(RefineMatrixXZ, NothingIsRefinedBeforeTheFirstGapThatHasAHeight) {
    ContourMap map = SectionXZ({2, 2, 2, 2, 2, 2, 2});
    map.Field.Values.At(1, 1) = 5;
    RefineMatrixXZ(map.Field, map.Grid);
    EXPECT_EQ(map.Field.Values.At(1, 1), 5);
    EXPECT_EQ(map.Field.Values.At(6, 1), 0);
}

// A first layer of 0.02 cm has the levels 0, 0, 0.01, ...: its second gap is the first with a height, and shares its
// first row with a gap that is not there: row 0, which holds zeros.
TEST(RefineMatrixXZ, AFirstGapWithoutHeightLeavesTheNextOneToBeginAtRowZero) {
    ContourMap map = SectionXZ({0, 0, 0.01, 0.01, 0.01, 0.02, 0.02});
    SetRow(map, 10, 100);
    SetRow(map, 20, 200);
    RefineMatrixXZ(map.Field, map.Grid);
    EXPECT_NEAR(map.Field.Values.At(1, 5), 50, 1e-12);
    EXPECT_NEAR(map.Field.Values.At(1, 15), 150, 1e-12);
    EXPECT_NEAR(map.Field.Values.At(11, 15), 160, 1e-12);
}

// Unlike where rows are laid out, any height counts here: 0.0005 cm between the second and the third level.
TEST(RefineMatrixXZ, AGapOfAnyHeightHasRows) {
    ContourMap map = SectionXZ({0, 1, 1.0005, 2, 3, 4, 5});
    for (int level = 0; level <= 6; ++level) {
        SetRow(map, 1 + 10 * level, level);
    }
    RefineMatrixXZ(map.Field, map.Grid);
    for (int row = 1; row <= 61; ++row) {
        EXPECT_NEAR(map.Field.Values.At(1, row), (row - 1) / 10.0, 1e-9) << row;
    }
}

TEST(RefineMatrixXZ, LevelsThatAreNotThereAreAFault) {
    ContourMap map = SectionXZ({0, 1, 2, 3, 4, 5, 6});
    map.Grid.LayerCount = 2;
    EXPECT_EQ(FaultOf([&] { RefineMatrixXZ(map.Field, map.Grid); }), fault::SubscriptOutOfRange);
}

}  // namespace
}  // namespace zirvo
