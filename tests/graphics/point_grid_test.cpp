// Positions and depth levels of a section.
#include "graphics/point_grid.h"

#include <gtest/gtest.h>

#include <vector>

#include "base/fault_of.h"
#include "pavement/graphics_example.h"

namespace zirvo {
namespace {

using Row = std::vector<double>;

/// Entries 1 onward.
Row Values(const std::vector<FixedPoint4>& positions) {
    Row values;
    for (std::size_t i = 1; i < positions.size(); ++i) {
        values.push_back(positions[i].ToDouble());
    }
    return values;
}

Row Axis(Row centre, Row radius) {
    centre.insert(centre.begin(), 99.0);  // entry 0 is unused
    radius.insert(radius.begin(), 99.0);
    return Values(BuildAxisPositions(centre, radius));
}

Row Levels(Row thickness, int layerCount) {
    thickness.insert(thickness.begin(), 99.0);
    return Values(BuildDepthLevels(thickness, layerCount));
}

// Key positions -35, -15, 0, 15, 35; each gap in six parts: 20 / 6 = 3.3333.., 15 / 6 = 2.5.
TEST(BuildAxisPositions, OneLoadGivesTwentyFivePositions) {
    EXPECT_EQ(Axis({0}, {15}),
              (Row{-35, -31.6667, -28.3333, -25, -21.6667, -18.3333, -15,     -12.5,   -10, -7.5,    -5,      -2.5, 0,
                   2.5, 5,        7.5,      10,  12.5,     15,       18.3333, 21.6667, 25,  28.3333, 31.6667, 35}));
}

TEST(BuildAxisPositions, TheOrderOfTheLoadsDoesNotMatter) {
    EXPECT_EQ(Axis({100, 0, -50}, {15, 10, 5}), Axis({-50, 100, 0}, {5, 15, 10}));
}

// Loads at 0 and 30 with radius 15: the edge at 15 stands twice in the list, and gives one key position.
TEST(BuildAxisPositions, CoincidingEdgesGiveOnePosition) {
    const Row axis = Axis({0, 30}, {15, 15});
    EXPECT_EQ(axis.size(), 37U);  // gaps 20, 15, 15, 15, 15, 20
    EXPECT_EQ(std::count(axis.begin(), axis.end(), 15.0), 1);
    EXPECT_TRUE(std::is_sorted(axis.begin(), axis.end()));
}

TEST(BuildAxisPositions, ALoadWithoutARadiusAndLoadsInOnePlaceAreOneKeyPosition) {
    EXPECT_EQ(Axis({0}, {0}).size(), 13U);  // gaps 20 and 20
    EXPECT_EQ(Axis({0, 0, 0}, {15, 15, 15}), Axis({0}, {15}));
}

// Gaps are compared in doubles: 0.01 - 0 is 0.01 and skipped, 1.01 - 1 is 0.010000000000000009 and not.
TEST(BuildAxisPositions, AGapOfAHundredthIsSkippedUnlessItsDoubleIsMore) {
    EXPECT_EQ(Axis({0, 0.01}, {0, 0}).size(), 13U);
    EXPECT_EQ(Axis({1, 1.01}, {0, 0}).size(), 19U);
    // The parts of the narrow gap are 1.00166.., 1.00333.., to four decimals.
    const Row narrow = Axis({1, 1.01}, {0, 0});
    EXPECT_EQ(Row(narrow.begin() + 6, narrow.begin() + 13), (Row{1, 1.0017, 1.0033, 1.005, 1.0067, 1.0083, 1.01}));
}

// A skipped gap leaves no trace: the next gap begins at its own key, 0.01, and not at the last position, 0.
TEST(BuildAxisPositions, BehindASkippedGapTheNextKeyItselfIsNoPosition) {
    const Row axis = Axis({0, 0.01}, {0, 0});
    EXPECT_EQ(axis[6], 0);
    EXPECT_EQ(axis[7], 3.3433);  // 20 / 6 + 0.01
    EXPECT_EQ(axis[12], 20.01);
}

// 1E18 - 20 is 1E18 again: the margin is lost in the sum, and with it the first position.
TEST(BuildAxisPositions, PositionsBeyondFixedPointAreFaultSixOrNone) {
    EXPECT_EQ(Axis({1e18}, {0}).size(), 0U);
    EXPECT_EQ(FaultOf([] { Axis({1e15}, {0}); }), 6);
}

TEST(BuildAxisPositions, WithoutLoadsThereIsNoPosition) {
    EXPECT_TRUE(Axis({}, {}).empty());
    EXPECT_EQ(FaultOf([] { Axis({1}, {}); }), 9);
}

TEST(BuildDepthLevels, OneLayerIsShownSixtyCentimetresHigh) {
    EXPECT_EQ(Levels({}, 1), (Row{0, 10, 20, 30, 40, 50, 60}));
}

// By hand: d = 5 / 6 = 0.8333; 0.8333, 1.6666, 2.4999, 3.3332, 4.1665, 4.9998, each to two decimals.
TEST(BuildDepthLevels, TheErrorOfFourDecimalsBuildsUpOverALayer) {
    const Row levels = Levels({5}, 2);
    EXPECT_EQ(Row(levels.begin(), levels.begin() + 7), (Row{0, 0.83, 1.67, 2.5, 3.33, 4.17, 5}));
    EXPECT_EQ(Row(levels.begin() + 7, levels.end()), (Row{5, 5.83, 6.67, 7.5, 8.33, 9.17, 10}));
}

TEST(BuildDepthLevels, AnInterfaceHasTwoLevelsOfOneDepth) {
    const Row levels = Levels({10, 30}, 3);
    ASSERT_EQ(levels.size(), 21U);
    EXPECT_EQ(levels[6], 10);
    EXPECT_EQ(levels[7], 10);
    EXPECT_EQ(levels[13], 40);
    EXPECT_EQ(levels[14], 40);
    EXPECT_EQ(levels[20], 70) << "the subgrade is shown as high as the layer above it";
}

// By hand: 5.555 / 6 = 0.9258; six of them are 5.5548, so 5.55; the next top is 5.555 itself, so 5.56.
TEST(BuildDepthLevels, TheTwoLevelsOfAnInterfaceCanDifferByAHundredth) {
    const Row levels = Levels({5.555}, 2);
    EXPECT_EQ(levels[6], 5.55);
    EXPECT_EQ(levels[7], 5.56);
}

// By hand: 10.0049 / 6 = 1.66748.. is 1.6675; six of them are 10.005, so 10.01; the top of the next layer is 10.
TEST(BuildDepthLevels, TheLowerLevelOfAnInterfaceCanLieAboveTheUpperOne) {
    const Row levels = Levels({10.0049}, 2);
    EXPECT_EQ(levels[6], 10.01);
    EXPECT_EQ(levels[7], 10);
}

TEST(BuildDepthLevels, ALayerTooThinForTwoDecimalsHasSevenEqualLevels) {
    const Row levels = Levels({10, 0.0005}, 3);
    EXPECT_EQ(Row(levels.begin() + 7, levels.begin() + 14), Row(7, 10.0));
}

TEST(BuildDepthLevels, AHundredLayersHaveSevenHundredLevels) {
    EXPECT_EQ(Levels(Row(99, 2.0), 100).size(), 700U);
    EXPECT_EQ(Levels(Row(99, 2.0), 100).back(), 200);
    EXPECT_EQ(Levels(Row(48, 2.0), 49).size(), 343U);
    EXPECT_EQ(Levels(Row(49, 2.0), 50).size(), 350U);
}

TEST(BuildDepthLevels, FewerThicknessesThanLayersAreFaultNine) {
    EXPECT_EQ(FaultOf([] { Levels({10}, 3); }), 9);
    EXPECT_TRUE(Levels({}, 0).empty());
}

TEST(LayerOfLevel, SevenLevelsBelongToALayer) {
    EXPECT_EQ(LayerOfLevel(1), 1);
    EXPECT_EQ(LayerOfLevel(7), 1);
    EXPECT_EQ(LayerOfLevel(8), 2);
    EXPECT_EQ(LayerOfLevel(700), 100);
}

TEST(BuildSectionGrid, BothAxesOfAPlaneFollowTheLoads) {
    GraphicsInputData data = test::ExampleData();
    data.Loads[1].LoadX = 100;
    data.Loads[1].LoadY = -50;
    const CoarseGrid grid = BuildSectionGrid(data, SectionKind::XY);
    EXPECT_EQ(grid.GridCountX(), 25);
    EXPECT_EQ(grid.GridCountY(), 25);
    EXPECT_EQ(grid.LayerCount, 2);
    EXPECT_EQ(PointCountOf(grid), 625);
    EXPECT_EQ(grid.GridX[13].ToDouble(), 100);
    EXPECT_EQ(grid.GridY[13].ToDouble(), -50);
}

TEST(BuildSectionGrid, AnXZSectionOfTwoLayersHasFourteenLevels) {
    const CoarseGrid grid = BuildSectionGrid(test::ExampleData(), SectionKind::XZ);
    EXPECT_EQ(grid.GridCountX(), 25);
    EXPECT_EQ(grid.GridCountY(), 14);
    EXPECT_EQ(PointCountOf(grid), 350);
}

// At 1E20 the next double lies 16384 away: edges, margins and centre are one number, and no gap is left to be divided.
// From 9.2E14 on a position passes the 64 bits of four decimals.
TEST(BuildSectionGrid, LoadsTooFarOutForAPositionAreFaultSixInWords) {
    for (const double far : {1E15, -1E15, 1E17, 1E20, -1E300}) {
        for (const bool alongX : {true, false}) {
            GraphicsInputData data = test::ExampleData();
            (alongX ? data.Loads[1].LoadX : data.Loads[1].LoadY) = far;
            const auto build = [&](SectionKind kind) { return [&data, kind] { BuildSectionGrid(data, kind); }; };
            EXPECT_EQ(FaultOf(build(SectionKind::XY)), 6) << far;
            EXPECT_EQ(SubjectOf(build(SectionKind::XY)), (FaultSubject{FaultMatter::LoadPositions, "", ""})) << far;
            EXPECT_EQ(FaultOf(build(SectionKind::XZ)), alongX ? 6 : 0) << far;
        }
    }
    GraphicsInputData wide = test::ExampleData();
    wide.Loads[1].Radius = 1E20;
    EXPECT_EQ(FaultOf([&] { BuildSectionGrid(wide, SectionKind::XY); }), 6);
    GraphicsInputData far = test::ExampleData();
    far.Loads[1].LoadX = 1E14;
    EXPECT_EQ(BuildSectionGrid(far, SectionKind::XY).GridCountX(), 25) << "two decimals are left";
}

TEST(BuildSectionGrid, AYZSectionIsFaultFive) {
    EXPECT_EQ(FaultOf([] { BuildSectionGrid(test::ExampleData(), SectionKind::YZ); }), 5);
}

// The same bound in the depth: 9.2E14 cm, and a step that passes it on its way.
TEST(BuildSectionGrid, LayersTooThickForALevelAreFaultSixInWords) {
    for (const double thick : {1E15, 9E14, 1E300}) {
        GraphicsInputData data = test::ExampleData();
        data.Layers[1].Thickness = thick;
        const auto build = [&] { BuildSectionGrid(data, SectionKind::XZ); };
        EXPECT_EQ(FaultOf(build), 6) << thick;
        EXPECT_EQ(SubjectOf(build), (FaultSubject{FaultMatter::Thicknesses, "", ""})) << thick;
        EXPECT_EQ(FaultOf([&] { BuildSectionGrid(data, SectionKind::XY); }), 0);
    }
}

}  // namespace
}  // namespace zirvo
