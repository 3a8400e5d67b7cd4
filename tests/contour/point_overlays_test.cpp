// Marks and values of the analysed points on both section kinds, and the probe.
#include "contour/point_overlays.h"

#include <gtest/gtest.h>

#include "base/fault_of.h"
#include "contour/positions.h"
#include "contour/recording_surface.h"
#include "contour/refinement.h"

namespace zirvo {
namespace {

/// Nodes at x 0, 10, 20 and y 0, 40; the value is 100 x + y.
ContourMap MapXY() {
    ContourMap map;
    map.Grid.GridX = Positions({0, 10, 20});
    map.Grid.GridY = Positions({0, 40});
    map.Field.FineAxis1 = BuildFineAxis(map.Grid.GridX);
    map.Field.FineAxis2 = BuildFineAxis(map.Grid.GridY);
    map.Field.Values = ValueMatrix(21, 11);
    for (int j = 1; j <= 11; ++j) {
        for (int i = 1; i <= 21; ++i) {
            map.Field.Values.At(i, j) = 100 * map.Field.FineAxis1[static_cast<std::size_t>(i)] +
                                        map.Field.FineAxis2[static_cast<std::size_t>(j)];
        }
    }
    map.Extent = {0, 20, 0, 40};
    return map;
}

/// Two layers with the levels 0 to 6 and 6 to 12 cm, nodes at x 0 and 10; the value is the row's number.
ContourMap MapXZ() {
    ContourMap map;
    map.Kind = SectionKind::XZ;
    map.Grid.GridX = Positions({0, 10});
    map.Grid.GridY = Positions({0, 1, 2, 3, 4, 5, 6, 6, 7, 8, 9, 10, 11, 12});
    map.Grid.LayerCount = 2;
    map.Field.FineAxis1 = BuildFineAxis(map.Grid.GridX);
    for (int row = 1; row <= 122; ++row) {
        map.Field.FineAxis2.push_back(row <= 61 ? 0.1 * (row - 1) : 6 + 0.1 * (row - 62));
    }
    map.Field.Values = ValueMatrix(11, 131);
    for (int row = 1; row <= 122; ++row) {
        for (int i = 1; i <= 11; ++i) {
            map.Field.Values.At(i, row) = row;
        }
    }
    map.Extent = {0, 10, 0, 12};
    return map;
}

/// 100 by 100 pixels; 10 cm to 100 pixels along x, so 0.1 cm a pixel.
struct Surface : RecordingSurface {
    Surface(float y1, float y2) : RecordingSurface(100, 100) {
        Scale(0, y1, 10, y2);
        Commands.clear();
    }
};

// "X" of 10 points: 6.5 by 13 pixels: 0.65 cm wide; high on a reversed axis of 40 cm: -5.2.
TEST(DrawPointMarksXY, MarksOneNodeInTenWithTheSecondAxisOuter) {
    Surface surface(40, 0);
    surface.FontItalic = true;
    DrawPointMarksXY(surface, MapXY(), {255, 204, 0});
    ASSERT_EQ(surface.Commands.size(), 6u);
    const double x[6] = {0, 10, 20, 0, 10, 20};
    const double y[6] = {0, 0, 0, 40, 40, 40};
    for (std::size_t n = 0; n < 6; ++n) {
        const PlotCommand& mark = surface.Commands[n];
        EXPECT_EQ(mark.Text, "X");
        EXPECT_NEAR(mark.X1, x[n] - 0.325, 1e-5) << n;
        EXPECT_NEAR(mark.Y1, y[n] + 2.6, 1e-5) << n;
        EXPECT_EQ(mark.FontSize, FontPoints::Ten);
        EXPECT_TRUE(mark.FontBold);
        EXPECT_FALSE(mark.FontItalic);
        EXPECT_EQ(mark.DrawWidth, 2);
        EXPECT_EQ(mark.Ink, (Color{255, 204, 0}));
    }
    EXPECT_EQ(surface.DrawWidth, 1);
}

// 7 points: 9 pixels high, 4.5 wide: "1.00E3" is 2.7 cm wide; 0.5 * 9 pixels of -0.4 cm.
TEST(DrawPointValuesXY, StandUnderTheirPoints) {
    Surface surface(40, 0);
    DrawPointValuesXY(surface, MapXY(), {255, 100, 100});
    ASSERT_EQ(surface.Commands.size(), 6u);
    const char* const texts[6] = {"0.00E0", "1.00E3", "2.00E3", "4.00E1", "1.04E3", "2.04E3"};
    for (std::size_t n = 0; n < 6; ++n) {
        EXPECT_EQ(surface.Commands[n].Text, texts[n]);
        EXPECT_EQ(surface.Commands[n].FontSize, FontPoints::Seven);
        EXPECT_FALSE(surface.Commands[n].FontBold);
        EXPECT_EQ(surface.Commands[n].DrawWidth, 1);
    }
    EXPECT_NEAR(surface.Commands[4].X1, 10 - 1.35, 1e-5);
    EXPECT_NEAR(surface.Commands[4].Y1, 40 - 1.8, 1e-5);
}

// Marks at the levels 0, 1, ..., 6 and 6, 7, ..., 12 of each column: the interface twice. Height 13 pixels of 0.12 cm.
TEST(DrawPointMarksXZ, WalksTheLayersAndMarksAnInterfaceTwice) {
    Surface surface(0, 12);
    DrawPointMarksXZ(surface, MapXZ(), {255, 204, 0});
    ASSERT_EQ(surface.Commands.size(), 28u);
    for (std::size_t n = 0; n < 28; ++n) {
        const std::size_t level = n % 14;
        const double depth = static_cast<double>(level < 7 ? level : level - 1);
        EXPECT_NEAR(surface.Commands[n].X1, (n < 14 ? 0 : 10) - 0.325, 1e-5) << n;
        EXPECT_NEAR(surface.Commands[n].Y1, depth - 0.78, 1e-5) << n;
        EXPECT_EQ(surface.Commands[n].DrawWidth, 2);
    }
    EXPECT_EQ(surface.DrawWidth, 1);
}

// Rows with results: 1, 11, ..., 61, 62, 72, ..., 122. "1.00E0" is 27 pixels wide; 0.5 * 9 pixels of 0.12 cm above.
TEST(DrawPointValuesXZ, AreCentredOnTheirPoints) {
    Surface surface(0, 12);
    DrawPointValuesXZ(surface, MapXZ(), {255, 100, 100});
    ASSERT_EQ(surface.Commands.size(), 28u);
    const char* const texts[14] = {"1.00E0", "1.10E1", "2.10E1", "3.10E1", "4.10E1", "5.10E1", "6.10E1",
                                   "6.20E1", "7.20E1", "8.20E1", "9.20E1", "1.02E2", "1.12E2", "1.22E2"};
    for (std::size_t n = 0; n < 28; ++n) {
        EXPECT_EQ(surface.Commands[n].Text, texts[n % 14]);
    }
    EXPECT_NEAR(surface.Commands[1].X1, -1.35, 1e-5);
    EXPECT_NEAR(surface.Commands[1].Y1, 1 - 0.54, 1e-5);
}

// The third gap has no height: its rows were never laid out.
TEST(DrawPointMarksXZ, AGapWithoutHeightHasNoMark) {
    ContourMap map = MapXZ();
    map.Grid.GridY = Positions({0, 1, 2, 2, 3, 4, 5});
    map.Grid.LayerCount = 1;
    Surface surface(0, 12);
    DrawPointValuesXZ(surface, map, {});
    ASSERT_EQ(surface.Commands.size(), 12u);
    EXPECT_EQ(surface.Commands[3].Text, "3.10E1");  // row 31 follows row 21
    EXPECT_EQ(surface.Commands[5].Text, "5.10E1");
}

TEST(DrawPointValuesXZ, RowsThatTheMatrixDoesNotHoldAreAFault) {
    ContourMap map = MapXZ();
    map.Field.Values = ValueMatrix(11, 60);
    Surface surface(0, 12);
    EXPECT_EQ(FaultOf([&] { DrawPointValuesXZ(surface, map, {}); }), fault::SubscriptOutOfRange);
}

TEST(ProbeValue, IsBilinearInItsFineCell) {
    EXPECT_NEAR(ProbeValue(MapXY(), 13.25, 17).value(), 1342, 1e-9);
}

TEST(ProbeValue, FindsNothingExactlyOnANodeLine) {
    EXPECT_FALSE(ProbeValue(MapXY(), 13, 17));    // nodes of x stand at whole centimetres
    EXPECT_FALSE(ProbeValue(MapXY(), 13.5, 16));  // nodes of y at every fourth
    EXPECT_FALSE(ProbeValue(MapXY(), 0, 17));
}

TEST(ProbeValue, FindsNothingOutsideTheExtent) {
    EXPECT_FALSE(ProbeValue(MapXY(), -0.1, 17));
    EXPECT_FALSE(ProbeValue(MapXY(), 20.1, 17));
    EXPECT_FALSE(ProbeValue(MapXY(), 13.5, 40.1));
    ContourMap wide = MapXY();
    wide.Extent = {-5, 25, 0, 40};
    EXPECT_FALSE(ProbeValue(wide, -0.1, 17));  // inside the extent, and no cell there
    EXPECT_FALSE(ProbeValue(ContourMap(), 0, 0));
}

// Extent of two decimals, axes of four: a node beyond the extent is out of reach, the extent itself is not.
TEST(ProbeValue, TheExtentIsInclusive) {
    ContourMap map = MapXY();
    map.Extent = {0, 13.5, 0, 17};
    EXPECT_TRUE(ProbeValue(map, 13.5, 17));
    EXPECT_FALSE(ProbeValue(map, 13.6, 17));
}

// Rounded apart, the upper layer ends at 6.01 and the lower one begins at 6: between them both hold the depth.
TEST(ProbeValue, AmongOverlappingRowsTheLastCounts) {
    ContourMap map = MapXZ();
    map.Field.FineAxis2[61] = 6.01;
    const double value = ProbeValue(map, 5.5, 6.005).value();
    EXPECT_NEAR(value, 62.05, 1e-9);  // rows 62 and 63 at 6 and 6.1, not rows 60 and 61
}

TEST(DrawProbeMark, PutsTheValueUnderAPlus) {
    Surface surface(0, 12);
    surface.FontBold = true;
    surface.FontItalic = true;
    DrawProbeMark(surface, 5, 6, 1.26e-4);
    ASSERT_EQ(surface.Commands.size(), 2u);
    EXPECT_EQ(surface.Commands[0].Text, "+");
    EXPECT_EQ(surface.Commands[0].FontSize, FontPoints::Ten);
    EXPECT_NEAR(surface.Commands[0].X1, 5 - 0.325, 1e-5);
    EXPECT_NEAR(surface.Commands[0].Y1, 6 - 0.78, 1e-5);
    EXPECT_EQ(surface.Commands[1].Text, "1.3E-4");
    EXPECT_EQ(surface.Commands[1].FontSize, FontPoints::Eight);  // 11 pixels, 5.5 wide: 3.3 cm
    EXPECT_NEAR(surface.Commands[1].X1, 5 - 1.65, 1e-5);
    EXPECT_NEAR(surface.Commands[1].Y1, 6 + 0.66, 1e-5);
    EXPECT_EQ(surface.Commands[1].Ink, (Color{250, 250, 250}));
    EXPECT_FALSE(surface.Commands[1].FontBold);
    EXPECT_FALSE(surface.Commands[1].FontItalic);
}

}  // namespace
}  // namespace zirvo
