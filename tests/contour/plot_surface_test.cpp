// The mapping of picture coordinates to pixels: floor, reversed axes, coordinates that are no pixel.
#include "contour/plot_surface.h"

#include <gtest/gtest.h>

#include <limits>

#include "contour/recording_surface.h"

namespace zirvo {
namespace {

TEST(PictureScale, ACoordinateFallsOnThePixelBelowIt) {
    PixelSurface surface(10, 20);
    surface.Scale(0, 0, 5, 5);
    EXPECT_EQ(surface.Picture().Column(0), 0);
    EXPECT_EQ(surface.Picture().Column(0.49F), 0);
    EXPECT_EQ(surface.Picture().Column(0.5F), 1);
    EXPECT_EQ(surface.Picture().Column(5), 10);
    EXPECT_EQ(surface.Picture().Column(-0.1F), -1);
    EXPECT_EQ(surface.Picture().Row(4.9F), 19);
}

TEST(PictureScale, AReversedAxisRunsTheOtherWay) {
    PixelSurface surface(10, 10);
    surface.Scale(0, 30, 10, 20);
    EXPECT_EQ(surface.Picture().Row(30), 0);
    EXPECT_EQ(surface.Picture().Row(20.5F), 9);
    EXPECT_EQ(surface.Picture().HeightOf(2), -2);
    EXPECT_EQ(surface.Picture().WidthOf(2), 2);
}

TEST(PictureScale, CoordinatesThatAreNoPixelAreFarOutsideAndNoFault) {
    PixelSurface surface(10, 10);
    surface.Scale(0, 0, 1, 1);
    EXPECT_EQ(surface.Picture().Column(1e30F), 1000000000);
    EXPECT_EQ(surface.Picture().Column(-1e30F), -1000000000);
    EXPECT_EQ(surface.Picture().Column(std::numeric_limits<float>::quiet_NaN()), -1000000000);
    surface.Scale(1, 1, 1, 1);
    EXPECT_EQ(surface.Picture().Column(1), -1000000000);
}

TEST(PixelSurface, ALineTouchesEveryRowOfItsWayAndBothEnds) {
    PixelSurface surface(3, 541);
    surface.Scale(0, 0, 3, 541);
    surface.Line(1, 540, 1, 0, {9, 9, 9});
    surface.Line(2, 7, 2, 7, {8, 8, 8});
    for (std::size_t row = 0; row <= 540; ++row) {
        EXPECT_EQ(surface.Pixels[3 * row + 1].Red, 9) << row;
        EXPECT_EQ(surface.Pixels[3 * row + 2].Red, row == 7 ? 8 : 0) << row;
    }
}

TEST(PlotSurface, StartsBlackWithWhiteTextOfTenPoints) {
    const RecordingSurface surface(10, 10);
    EXPECT_EQ(surface.BackColor, (Color{0, 0, 0}));
    EXPECT_EQ(surface.ForeColor, (Color{255, 255, 255}));
    EXPECT_EQ(surface.FontName, "arial");
    EXPECT_EQ(surface.FontSize, FontPoints::Ten);
    EXPECT_EQ(surface.DrawWidth, 1);
}

}  // namespace
}  // namespace zirvo
