// The types of a map: bounds of the matrix, gaps of the depth levels, the display items of a fresh screen.
#include "contour/contour_map.h"

#include <gtest/gtest.h>

#include "base/fault_of.h"

namespace zirvo {
namespace {

TEST(ValueMatrix, IsZeroUntilFilledAndHoldsBothLastIndices) {
    ValueMatrix d(2, 3);
    EXPECT_EQ(d.At(2, 3), 0);
    d.At(2, 3) = 5;
    d.At(0, 0) = 7;
    EXPECT_EQ(d.Row(3)[2], 5);
    EXPECT_EQ(d.Row(0)[0], 7);
    EXPECT_EQ(d.Row(1).size(), 3u);
}

TEST(ValueMatrix, EveryIndexIsChecked) {
    ValueMatrix d(2, 3);
    EXPECT_EQ(FaultOf([&] { d.At(3, 0); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(FaultOf([&] { d.At(-1, 0); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(FaultOf([&] { d.At(0, 4); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(FaultOf([&] { d.Row(-1); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(FaultOf([] { ValueMatrix().At(0, 0); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(FaultOf([] { ValueMatrix(-1, 4); }), fault::SubscriptOutOfRange);
}

TEST(DepthGapOf, ALayerHasSevenLevelsAndSixGaps) {
    CoarseGrid grid;
    grid.LayerCount = 2;
    for (int level = 1; level <= 14; ++level) {
        grid.GridY.push_back(FixedPoint4::FromDouble(level <= 7 ? level - 1 : level - 2));
    }
    EXPECT_EQ(DepthGapOf(grid, 1, 1).Top, 0);
    EXPECT_EQ(DepthGapOf(grid, 1, 6).Bottom, 6);
    EXPECT_EQ(DepthGapOf(grid, 2, 1).Top, 6);  // the interface once more
    EXPECT_EQ(DepthGapOf(grid, 2, 6).Bottom, 12);
    EXPECT_EQ(FaultOf([&] { DepthGapOf(grid, 3, 1); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(FaultOf([&] { DepthGapOf(grid, 0, 1); }), fault::SubscriptOutOfRange);
}

TEST(DisplayItems, FillAndLegendAreOnAfterAReset) {
    EXPECT_EQ(DisplayItems(), (DisplayItems{true, false, true, false, false}));
}

}  // namespace
}  // namespace zirvo
