// The five-stop scale with its floors, and the fill: every cell, or those in sight, and the same picture either way.
#include "contour/color_scale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "base/fault_of.h"
#include "contour/recording_surface.h"

namespace zirvo {
namespace {

constexpr Color Black{0, 0, 0};
constexpr Color Blue{0, 0, 255};

TEST(ColorSet, StopsHaveTheirColours) {
    EXPECT_EQ(ColorSet(0, 0, 4), Blue);
    EXPECT_EQ(ColorSet(1, 0, 4), (Color{0, 255, 255}));
    EXPECT_EQ(ColorSet(2, 0, 4), (Color{0, 255, 0}));
    EXPECT_EQ(ColorSet(3, 0, 4), (Color{255, 255, 0}));
    EXPECT_EQ(ColorSet(4, 0, 4), (Color{255, 0, 0}));
}

// 255 / 2 = 127.5 in the middle of each band, floored.
TEST(ColorSet, ChannelsAreFloored) {
    EXPECT_EQ(ColorSet(0.5, 0, 4), (Color{0, 127, 255}));
    EXPECT_EQ(ColorSet(1.5, 0, 4), (Color{0, 255, 127}));
    EXPECT_EQ(ColorSet(2.5, 0, 4), (Color{127, 255, 0}));
    EXPECT_EQ(ColorSet(3.5, 0, 4), (Color{255, 127, 0}));
    // 255 * 0.999 = 254.745
    EXPECT_EQ(ColorSet(0.999, 0, 4), (Color{0, 254, 255}));
}

TEST(ColorSet, OutsideTheRangeIsBlackInBothDirections) {
    EXPECT_EQ(ColorSet(std::nextafter(4.0, 5.0), 0, 4), Black);
    EXPECT_EQ(ColorSet(std::nextafter(0.0, -1.0), 0, 4), Black);
    EXPECT_EQ(ColorSet(-1e300, 0, 4), Black);
}

TEST(ColorSet, AnEmptyRangeNeedsNoDivision) {
    EXPECT_EQ(ColorSet(2, 2, 2), Blue);
    EXPECT_EQ(ColorSet(std::nextafter(2.0, 3.0), 2, 2), Black);
    EXPECT_EQ(ColorSet(1, 2, 2), Black);
    EXPECT_EQ(ColorSet(0, 0, 0), Blue);
}

// Two doubles that are neighbours leave room for none of the stops between them.
TEST(ColorSet, TheSmallestAndTheLargestRangeWorkToo) {
    const double next = std::nextafter(1.0, 2.0);
    EXPECT_EQ(ColorSet(1, 1, next), Blue);
    EXPECT_EQ(ColorSet(next, 1, next).Blue, 0);
    const double huge = std::ldexp(1.0, 1023);
    EXPECT_EQ(ColorSet(0, -huge, huge), (Color{0, 255, 0}));
    EXPECT_EQ(ColorSet(-huge / 2, -huge, huge), (Color{0, 255, 255}));
    EXPECT_EQ(ColorSet(huge, -huge, huge), (Color{255, 0, 0}));
    EXPECT_EQ(ColorSet(0, 0, std::numeric_limits<double>::infinity()), Blue);
    EXPECT_NO_THROW(ColorSet(1, 0, std::numeric_limits<double>::infinity()));
}

/// A field on the given axes (entry 0 unused), all values 0.
ContourField FieldOn(std::vector<double> x, std::vector<double> y) {
    ContourField field;
    field.Values = ValueMatrix(static_cast<int>(x.size()), static_cast<int>(y.size()));
    field.FineAxis1 = std::move(x);
    field.FineAxis2 = std::move(y);
    return field;
}

PlotCommand Filled(float x1, float y1, float x2, float y2, Color color) {
    PlotCommand command;
    command.What = PlotCommand::Kind::FilledBox;
    command.X1 = x1;
    command.Y1 = y1;
    command.X2 = x2;
    command.Y2 = y2;
    command.Ink = color;
    return command;
}

// Middles of the four cells, from the nodes (rows upward) 0 1 4 / 2 3 6 / 4 7 8:
// (0+1+2+3)/4 = 1.5, (1+4+3+6)/4 = 3.5, (2+3+4+7)/4 = 4, (3+6+7+8)/4 = 6; on the range 0 to 6 the stops lie at 1.5, 3
// and 4.5: 3.5 is a third of green to yellow, 85; 4 two thirds, 170.
TEST(FillContourCells, DrawsRowsOuterAndColumnsInnerInTheColourOfTheMiddle) {
    ContourField field = FieldOn({0, 10, 12, 16}, {0, 1, 2, 5});
    const double nodes[3][3] = {{0, 1, 4}, {2, 3, 6}, {4, 7, 8}};
    for (int j = 1; j <= 3; ++j) {
        for (int i = 1; i <= 3; ++i) {
            field.Values.At(i, j) = nodes[j - 1][i - 1];
        }
    }
    const std::vector<PlotCommand> expected{Filled(10, 1, 12, 2, {0, 255, 255}), Filled(12, 1, 16, 2, {85, 255, 0}),
                                            Filled(10, 2, 12, 5, {170, 255, 0}), Filled(12, 2, 16, 5, {255, 0, 0})};
    RecordingSurface withoutPixels(0, 0);
    FillContourCells(withoutPixels, 0, 6, field);
    EXPECT_EQ(withoutPixels.Commands, expected);
    RecordingSurface withPixels(100, 100);
    withPixels.Scale(9, 6, 17, 0);
    withPixels.Commands.clear();
    FillContourCells(withPixels, 0, 6, field);
    EXPECT_EQ(withPixels.Commands, expected);
}

TEST(FillContourCells, CellsBeyondTheRangeArePaintedBlack) {
    ContourField field = FieldOn({0, 0, 1}, {0, 0, 1});
    RecordingSurface surface(0, 0);
    FillContourCells(surface, 1, 2, field);
    ASSERT_EQ(surface.Commands.size(), 1u);
    EXPECT_EQ(surface.Commands[0].Ink, Black);
}

TEST(FillContourCells, AnAxisOfOneNodeOrNoneDrawsNothing) {
    RecordingSurface surface(10, 10);
    FillContourCells(surface, 0, 1, FieldOn({0}, {0, 1, 2}));
    FillContourCells(surface, 0, 1, FieldOn({0, 1, 2}, {0, 5}));
    FillContourCells(surface, 0, 1, ContourField());
    EXPECT_TRUE(surface.Commands.empty());
}

TEST(FillContourCells, AMatrixSmallerThanItsAxesIsAFault) {
    ContourField field = FieldOn({0, 1, 2}, {0, 1, 2});
    field.Values = ValueMatrix(1, 1);
    RecordingSurface surface(10, 10);
    EXPECT_EQ(FaultOf([&] { FillContourCells(surface, 0, 1, field); }), fault::SubscriptOutOfRange);
}

/// Every cell in order, nothing left out.
void FillEveryCell(PlotSurface& surface, double low, double high, const ContourField& field) {
    const auto& d = field.Values;
    for (int j = 1; j < field.FineCountY(); ++j) {
        for (int i = 1; i < field.FineCountX(); ++i) {
            const double s1 = d.At(i, j) + 0.5 * (d.At(i + 1, j) - d.At(i, j));
            const double s2 = d.At(i, j + 1) + 0.5 * (d.At(i + 1, j + 1) - d.At(i, j + 1));
            const auto x = [&](int n) { return static_cast<float>(field.FineAxis1[static_cast<std::size_t>(n)]); };
            const auto y = [&](int n) { return static_cast<float>(field.FineAxis2[static_cast<std::size_t>(n)]); };
            surface.FilledBox(x(i), y(j), x(i + 1), y(j + 1), ColorSet(s1 + 0.5 * (s2 - s1), low, high));
        }
    }
}

struct Shape {
    int Nodes;
    float Left, Top, Right, Bottom;
};

// Fine and coarse cells, axes that run both ways, a scale that cuts off a part, an axis that repeats a node and steps
// back by a hundredth as two layers may.
TEST(FillContourCells, WhatIsLeftOutIsNowhereInThePicture) {
    std::mt19937 random(17);
    std::uniform_real_distribution<double> value(-0.2, 1.2);
    for (const Shape& shape : {Shape{7, -1, 11, 11, -1}, Shape{300, 0, 10, 10, 0}, Shape{300, -2, -1, 12, 13},
                               Shape{150, 3, 3, 5, 8}, Shape{90, 12, 12, -2, -2}}) {
        std::vector<double> x{0};
        std::vector<double> y{0};
        for (int n = 0; n < shape.Nodes; ++n) {
            x.push_back(10.0 * n / (shape.Nodes - 1));
            y.push_back(n == shape.Nodes / 2 || n == shape.Nodes / 3 ? y.back() - (n % 2) * 0.01
                                                                     : 10.0 * n / (shape.Nodes - 1));
        }
        ContourField field = FieldOn(x, y);
        for (int j = 1; j <= shape.Nodes; ++j) {
            for (int i = 1; i <= shape.Nodes; ++i) {
                field.Values.At(i, j) = value(random);
            }
        }
        PixelSurface all(64, 48);
        PixelSurface seen(64, 48);
        for (PixelSurface* surface : {&all, &seen}) {
            surface->Scale(shape.Left, shape.Top, shape.Right, shape.Bottom);
            std::fill(surface->Pixels.begin(), surface->Pixels.end(), Color{1, 2, 3});
        }
        FillEveryCell(all, 0, 1, field);
        FillContourCells(seen, 0, 1, field);
        EXPECT_EQ(all.Pixels, seen.Pixels) << shape.Nodes;
    }
}

TEST(FillContourCells, DrawsNoMoreCellsThanThePictureHasPixels) {
    std::vector<double> axis{0};
    for (int n = 0; n < 1000; ++n) {
        axis.push_back(n);
    }
    const ContourField field = FieldOn(axis, axis);
    RecordingSurface surface(40, 30);
    surface.Scale(-10, 1010, 1010, -10);
    surface.Commands.clear();
    FillContourCells(surface, 0, 1, field);
    EXPECT_LE(surface.Commands.size(), 40u * 30u);
    EXPECT_GT(surface.Commands.size(), 30u * 20u);
}

}  // namespace
}  // namespace zirvo
