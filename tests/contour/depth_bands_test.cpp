// The rows of an X-Z section: which gaps have some, and where they lie.
#include "contour/depth_bands.h"

#include <gtest/gtest.h>

#include <string>

#include "base/fault_of.h"
#include "base/runtime_fault.h"

namespace zirvo {
namespace {

CoarseGrid GridOf(const std::vector<double>& levels) {
    CoarseGrid grid;
    for (const double level : levels) {
        grid.GridY.push_back(FixedPoint4::FromDouble(level));
    }
    grid.LayerCount = static_cast<int>(levels.size()) / (SubDivisionsY + 1);
    return grid;
}

/// "1-11 11-21 ..." of all gaps; in brackets where the rows are those of a gap above.
std::string RowsOf(const CoarseGrid& grid) {
    std::string text;
    VisitDepthBands(grid, HasRoomForRows, [&text](const DepthBand& band) {
        const std::string rows = std::to_string(band.FirstRow) + "-" + std::to_string(band.LastRow);
        text += (text.empty() ? "" : " ") + (band.HasRows ? rows : "(" + rows + ")");
    });
    return text;
}

TEST(VisitDepthBands, GapsOfALayerShareARowAndLayersShareNone) {
    EXPECT_EQ(RowsOf(GridOf({0, 1, 2, 3, 4, 5, 6, 6, 8, 10, 12, 14, 16, 18})),
              "1-11 11-21 21-31 31-41 41-51 51-61 62-72 72-82 82-92 92-102 102-112 112-122");
}

TEST(VisitDepthBands, AGapWithoutRowsIsVisitedWithTheRowsOfTheLastOneThatHasSome) {
    EXPECT_EQ(RowsOf(GridOf({0, 1, 1, 1, 2, 3, 4})), "1-11 (1-11) (1-11) 11-21 21-31 31-41");
    EXPECT_EQ(RowsOf(GridOf({0, 0, 1, 1, 1, 1, 1})), "(0-0) 0-10 (0-10) (0-10) (0-10) (0-10)");
}

// The gap from 0 to 0.001 is the bound itself.
TEST(VisitDepthBands, AGapHasRowsOnlyIfItIsHigherThanAThousandthOfACentimetre) {
    EXPECT_EQ(RowsOf(GridOf({0, 0.001, 0.0021, 0.0026, 1, 2, 3})), "(0-0) 0-10 (0-10) 10-20 20-30 30-40");
    EXPECT_TRUE(HasRoomForRows({.Top = 2, .Bottom = 1})) << "the sign does not count";
}

TEST(VisitDepthBands, LevelsThatAreNotThereAreAFault) {
    CoarseGrid grid = GridOf({0, 1, 2, 3, 4, 5, 6});
    grid.LayerCount = 2;
    EXPECT_EQ(FaultOf([&] { RowsOf(grid); }), fault::SubscriptOutOfRange);
}

}  // namespace
}  // namespace zirvo
