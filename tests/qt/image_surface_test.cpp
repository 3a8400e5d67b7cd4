// Which pixels the image surface paints: worked out by hand on pictures of a few pixels.
#include "qt/image_surface.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "contour/color_scale.h"
#include "contour/recording_surface.h"

namespace zirvo {
namespace {

using Rows = std::vector<std::string>;
constexpr Color White{255, 255, 255};

/// '#' for each pixel that is not black.
Rows Painted(const ImageSurface& surface) {
    const QImage& image = surface.Image();
    Rows rows;
    for (int row = 0; row < image.height(); ++row) {
        std::string line;
        for (int column = 0; column < image.width(); ++column) {
            line += (image.pixel(column, row) & RGB_MASK) != 0 ? '#' : '.';
        }
        rows.push_back(line);
    }
    return rows;
}

/// One line on 8 by 5 pixels, in pixel coordinates.
Rows LineFrom(float x1, float y1, float x2, float y2, int width = 1) {
    ImageSurface surface(8, 5);
    surface.DrawWidth = width;
    surface.Line(x1, y1, x2, y2, White);
    return Painted(surface);
}

TEST(ImageSurface, IsAnImageOf32BitsAt96DotsPerInchAndRatioOne) {
    const ImageSurface surface(529, 540);
    const QImage& image = surface.Image();
    EXPECT_EQ(image.size(), QSize(529, 540));
    EXPECT_EQ(image.depth(), 32);
    EXPECT_EQ(image.logicalDpiX(), 96);
    EXPECT_EQ(image.devicePixelRatio(), 1.0);
    EXPECT_EQ(image.pixel(0, 0), qRgb(0, 0, 0));
}

TEST(ImageSurface, ALineDrawsBothItsEnds) {
    EXPECT_EQ(LineFrom(1, 2, 5, 2), (Rows{"........", "........", ".#####..", "........", "........"}));
    EXPECT_EQ(LineFrom(3, 1, 3, 4), (Rows{"........", "...#....", "...#....", "...#....", "...#...."}));
    EXPECT_EQ(LineFrom(4, 2, 4, 2), (Rows{"........", "........", "....#...", "........", "........"}));
    EXPECT_EQ(LineFrom(1, 0, 5, 4), (Rows{".#......", "..#.....", "...#....", "....#...", ".....#.."}));
    // Six columns to one row: a half, at the middle, goes down.
    EXPECT_EQ(LineFrom(0, 1, 6, 2), (Rows{"........", "###.....", "...####.", "........", "........"}));
}

TEST(ImageSurface, ALineIsTheSameInBothDirections) {
    for (int x = 0; x < 8; ++x) {
        for (int y = 0; y < 5; ++y) {
            const auto endX = static_cast<float>(x);
            const auto endY = static_cast<float>(y);
            EXPECT_EQ(LineFrom(3, 2, endX, endY), LineFrom(endX, endY, 3, 2)) << x << ' ' << y;
        }
    }
}

TEST(ImageSurface, ACoordinateFallsOnThePixelBelowIt) {
    const Rows wanted{"........", ".####...", "........", "........", "........"};
    EXPECT_EQ(LineFrom(1.99F, 1.99F, 4.99F, 1.01F), wanted);
    EXPECT_EQ(LineFrom(-0.01F, 1, -0.99F, 3), LineFrom(-5, 1, -5, 3)) << "left of the picture, not on its first pixel";
}

TEST(ImageSurface, ALineOfWidthTwoHasItsLeftAndUpperNeighboursToo) {
    EXPECT_EQ(LineFrom(2, 2, 5, 2, 2), (Rows{"........", ".#####..", ".#####..", "........", "........"}));
    EXPECT_EQ(LineFrom(2, 1, 4, 3, 2), (Rows{".##.....", ".###....", "..###...", "...##...", "........"}));
    EXPECT_EQ(LineFrom(8, 1, 8, 3, 2), (Rows{".......#", ".......#", ".......#", ".......#", "........"}));
}

// The pixels of a line do not depend on where the picture ends: the column of row r is round(40 r / 100), a half up.
TEST(ImageSurface, ALineThatLeavesThePictureIsCutNotBent) {
    ImageSurface surface(8, 5);
    surface.Line(-400, -1000, 800, 2000, White);
    EXPECT_EQ(Painted(surface), (Rows{"#.......", "#.......", ".#......", ".#......", "..#....."}));
}

TEST(ImageSurface, CoordinatesBeyondAllMeasureHarmNothing) {
    ImageSurface surface(8, 5);
    constexpr float Far = std::numeric_limits<float>::max();
    constexpr float NoNumber = std::numeric_limits<float>::quiet_NaN();
    for (const float x : {-Far, Far, NoNumber, 3.0F}) {
        for (const float y : {-Far, Far, NoNumber, 2.0F}) {
            surface.Line(x, y, -x, 1, White);
            surface.Box(x, y, 2, -y, White);
            surface.FilledBox(x, y, 1, 1, White);
            surface.CurrentX = x;
            surface.CurrentY = y;
            surface.Print("text");
        }
    }
    surface.FilledBox(-Far, -Far, Far, Far, White);
    EXPECT_EQ(Painted(surface), Rows(5, "########"));
}

TEST(ImageSurface, ABoxIsAnOutline) {
    ImageSurface surface(8, 5);
    surface.Box(1, 0, 5, 3, White);
    EXPECT_EQ(Painted(surface), (Rows{".#####..", ".#...#..", ".#...#..", ".#####..", "........"}));
    surface.Cls();
    surface.DrawWidth = 2;
    surface.Box(6, 4, 2, 1, White);
    EXPECT_EQ(Painted(surface), (Rows{".######.", ".######.", ".##..##.", ".######.", ".######."}));
}

TEST(ImageSurface, AFilledBoxIncludesBothCornerPixels) {
    ImageSurface surface(8, 5);
    surface.FilledBox(1, 3, 4, 1, White);
    EXPECT_EQ(Painted(surface), (Rows{"........", ".####...", ".####...", ".####...", "........"}));
    surface.FilledBox(6.5F, 2.5F, 6.6F, 2.6F, White);
    EXPECT_EQ(Painted(surface)[2], ".####.#.");
}

// Picture coordinates 80 to 0 from left to right and 50 to 0 from top to bottom: 10 units to a pixel. 45 lies 3.5
// pixels from the left.
TEST(ImageSurface, OnReversedAxesTheSameRulesHoldInPixels) {
    ImageSurface surface(8, 5);
    surface.Scale(80, 50, 0, 0);
    surface.FilledBox(45, 25, 15, 35, White);
    EXPECT_EQ(Painted(surface), (Rows{"........", "...####.", "...####.", "........", "........"}));
    surface.Cls();
    surface.Line(70, 10, 60, 10, White);
    EXPECT_EQ(Painted(surface)[4], ".##.....");
    surface.Cls();
    surface.Box(79.9F, 49.9F, 0.1F, 0.1F, White);
    EXPECT_EQ(Painted(surface), (Rows{"########", "#......#", "#......#", "#......#", "########"}));
}

TEST(ImageSurface, ClearsToItsBackgroundAndKeepsItsScale) {
    ImageSurface surface(8, 5);
    surface.Scale(0, 0, 80, 50);
    surface.FilledBox(0, 0, 80, 50, White);
    surface.BackColor = {1, 2, 3};
    surface.Cls();
    EXPECT_EQ(surface.Image().pixel(7, 4), qRgb(1, 2, 3));
    surface.Line(10, 10, 10, 10, White);
    EXPECT_EQ(surface.Image().pixel(1, 1), qRgb(255, 255, 255));
}

// Liberation Sans: ascent 0.905 and descent 0.212 of its size; "0" is 0.556 wide, "I" 0.278.
TEST(ImageSurface, ATextIsAsHighAsItsFontAndAsWideAsItsAdvance) {
    ImageSurface surface(100, 100);
    for (const auto& [points, pixels] :
         {std::pair{FontPoints::Seven, 9}, {FontPoints::Eight, 11}, {FontPoints::Ten, 13}, {FontPoints::Twenty, 27}}) {
        surface.FontSize = points;
        EXPECT_NEAR(surface.TextHeight("0"), 1.117 * pixels, 0.02) << pixels;
        EXPECT_NEAR(surface.TextWidth("0"), 0.556 * pixels, 0.02) << pixels;
        EXPECT_NEAR(surface.TextWidth("I"), 0.278 * pixels, 0.02) << pixels;
        EXPECT_NEAR(surface.TextWidth("1111"), 4 * 0.556 * pixels, 0.1) << "no digit moves closer to the next";
        EXPECT_EQ(surface.TextHeight("0"), surface.TextHeight("Ay"));
    }
    EXPECT_EQ(surface.TextWidth(""), 0);
    // Twice the width for a double-width character of the Japanese stand-in: the size of the font.
    EXPECT_NEAR(surface.TextWidth("\u5C64"), 27, 0.1);
}

TEST(ImageSurface, TextMeasuresHaveTheSignsOfTheAxes) {
    ImageSurface surface(100, 200);
    const float wide = surface.TextWidth("12.5");
    const float high = surface.TextHeight("12.5");
    surface.Scale(0, 100, 50, 0);  // X-Y: the second axis runs upward
    EXPECT_FLOAT_EQ(surface.TextWidth("12.5"), wide / 2);
    EXPECT_FLOAT_EQ(surface.TextHeight("12.5"), -high / 2);
    surface.Scale(50, 0, 0, 400);
    EXPECT_FLOAT_EQ(surface.TextWidth("12.5"), -wide / 2);
    EXPECT_FLOAT_EQ(surface.TextHeight("12.5"), high * 2);
}

/// The smallest rectangle round all pixels that are not black.
QRect PaintedRect(const QImage& image) {
    QRect rect;
    for (int row = 0; row < image.height(); ++row) {
        for (int column = 0; column < image.width(); ++column) {
            if ((image.pixel(column, row) & RGB_MASK) != 0) {
                rect |= QRect(column, row, 1, 1);
            }
        }
    }
    return rect;
}

// "H" of 13 pixels: 0.729 high on a base line 0.905 below the top, so on 12: rows 3 to 11, from 20 on 23 to 31.
TEST(ImageSurface, ATextStandsWithItsTopLeftCornerAtTheCurrentPoint) {
    ImageSurface surface(100, 60);
    surface.Scale(0, 60, 100, 0);
    surface.CurrentX = 30.7F;
    surface.CurrentY = 39.5F;  // row 20
    surface.Print("H");
    const QRect rect = PaintedRect(surface.Image());
    EXPECT_NEAR(rect.left(), 31, 1);
    EXPECT_NEAR(rect.top(), 23, 1);
    EXPECT_EQ(rect.bottom(), 31);
}

TEST(ImageSurface, TextIsAntialiasedInGreyOnATransparentGround) {
    ImageSurface surface(60, 20);
    surface.Print("SOS");
    bool grey = false;
    for (int row = 0; row < 20; ++row) {
        for (int column = 0; column < 60; ++column) {
            const QRgb pixel = surface.Image().pixel(column, row);
            EXPECT_TRUE(qRed(pixel) == qGreen(pixel) && qGreen(pixel) == qBlue(pixel)) << column << ' ' << row;
            grey = grey || (qRed(pixel) > 0 && qRed(pixel) < 255);
        }
    }
    EXPECT_TRUE(grey);
    surface.FilledBox(0, 0, 59, 19, {0, 0, 255});
    surface.Print("SOS");
    EXPECT_EQ(surface.Image().pixel(59, 19), qRgb(0, 0, 255));
    EXPECT_EQ(surface.Image().pixel(0, 0), qRgb(0, 0, 255));
}

TEST(ImageSurface, TheImageHandedOutIsLeftAloneByLaterDrawing) {
    ImageSurface surface(40, 20);
    surface.Print("A");
    const QImage before = surface.Image();
    const QImage copy = before.copy();
    surface.Print("B");
    surface.FilledBox(0, 0, 40, 20, White);
    EXPECT_EQ(before, copy);
    EXPECT_NE(surface.Image(), copy);
}

TEST(ImageSurface, MayEndWithAText) {
    for (int n = 0; n < 100; ++n) {
        ImageSurface surface(40 + n, 20);
        surface.Print("A");
    }
}

/// A field with far more cells than pixels along one axis and fewer along the other; the second axis turns back once.
ContourField WavyField() {
    ContourField field;
    field.Values = ValueMatrix(301, 21);
    for (int i = 1; i <= 301; ++i) {
        field.FineAxis1.push_back(0.1 * i);
    }
    for (int j = 1; j <= 21; ++j) {
        field.FineAxis2.push_back(j == 11 ? 9.9 : j);
    }
    for (int j = 1; j <= 21; ++j) {
        for (int i = 1; i <= 301; ++i) {
            field.Values.At(i, j) = std::sin(0.05 * i) * j;
        }
    }
    return field;
}

TEST(ImageSurface, TheFillIsThePictureOfAllCellsDrawnInOrder) {
    const ContourField field = WavyField();
    for (const bool upward : {true, false}) {
        ImageSurface surface(73, 61);
        RecordingSurface all(0, 0);  // without pixels of its own: nothing may be left out
        const float top = upward ? 22.0F : 0.5F;
        surface.Scale(-1, top, 33, 22.5F - top);
        FillContourCells(surface, -15, 15, field);
        FillContourCells(all, -15, 15, field);
        EXPECT_EQ(all.Commands.size(), 300U * 20U);
        ImageSurface replayed(73, 61);
        replayed.Scale(-1, top, 33, 22.5F - top);
        for (const PlotCommand& command : all.Commands) {
            replayed.FilledBox(command.X1, command.Y1, command.X2, command.Y2, command.Ink);
        }
        EXPECT_EQ(surface.Image(), replayed.Image());
        EXPECT_NE(PaintedRect(surface.Image()), QRect());
    }
}

}  // namespace
}  // namespace zirvo
