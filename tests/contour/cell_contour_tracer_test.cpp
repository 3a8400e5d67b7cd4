// The second tracer: its levels, its crossings, saddles and corners on a level.
#include "contour/cell_contour_tracer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "base/fault_of.h"
#include "contour/color_scale.h"
#include "contour/recording_surface.h"

namespace zirvo {
namespace {

/// One cell from (0, 0) to (4, 2), corners 1 to 4.
struct OneCell {
    ValueMatrix D{2, 2};
    std::vector<double> X{0, 0, 4};
    std::vector<double> Y{0, 0, 2};

    OneCell(double c1, double c2, double c3, double c4) {
        D.At(1, 1) = c1;
        D.At(2, 1) = c2;
        D.At(2, 2) = c3;
        D.At(1, 2) = c4;
    }
};

std::vector<PlotCommand> Trace(const OneCell& cell, double low, double high, Int16 count, int grey = 0) {
    RecordingSurface surface(0, 0);
    CellContourTracer(surface, low, high, 1, 2, 1, 2, 4, 2, cell.X, cell.Y, cell.D, count, grey);
    return surface.Commands;
}

void ExpectLine(const PlotCommand& line, double x1, double y1, double x2, double y2) {
    EXPECT_FLOAT_EQ(line.X1, static_cast<float>(x1));
    EXPECT_FLOAT_EQ(line.Y1, static_cast<float>(y1));
    EXPECT_FLOAT_EQ(line.X2, static_cast<float>(x2));
    EXPECT_FLOAT_EQ(line.Y2, static_cast<float>(y2));
}

// d = x: levels 0, 1, 2, 3, 4 of the range 0 to 4 with 5 levels. At level 1 the edges 1-2 (x = 1) and 3-4 cross.
// Level 0 lies on the edge 4-1: h = 0, 4, 4, 0: crossings at corner 1 (edge 1-2), corner 4 (3-4), and corner 4 once
// more as the first corner of the edge 4-1; three of them: corner 1 to corner 4. Level 4 likewise on the edge 2-3.
TEST(CellContourTracer, DrawsCountLevelsFromTheLowestOn) {
    const auto lines = Trace(OneCell(0, 4, 4, 0), 0, 4, 5);
    ASSERT_EQ(lines.size(), 5u);
    ExpectLine(lines[0], 0, 0, 0, 2);
    ExpectLine(lines[1], 1, 0, 1, 2);
    ExpectLine(lines[2], 2, 0, 2, 2);
    ExpectLine(lines[3], 3, 0, 3, 2);
    ExpectLine(lines[4], 4, 0, 4, 2);
    EXPECT_EQ(lines[0].Ink, (Color{0, 0, 255}));
    EXPECT_EQ(lines[1].Ink, (Color{0, 255, 255}));
    EXPECT_EQ(lines[4].Ink, (Color{255, 0, 0}));
}

// d = y: edges 2-3 and 4-1, found in that order.
TEST(CellContourTracer, CrossingsComeInTheOrderOfTheEdges) {
    const auto lines = Trace(OneCell(0, 0, 4, 4), -7, 9, 3);  // levels -7, 1, 9
    ASSERT_EQ(lines.size(), 1u);
    ExpectLine(lines[0], 4, 0.5, 0, 0.5);
}

// Corners 3, -1, 3, -1 at level 0: crossings (3, 0), (4, 0.5), (1, 2), (0, 1.5). s12 = 1.25, s14 = 11.25: 1 with 2.
TEST(CellContourTracer, ASaddleJoinsTheFirstCrossingToTheNearerOne) {
    auto lines = Trace(OneCell(3, -1, 3, -1), -8, 8, 3);
    ASSERT_EQ(lines.size(), 2u);
    ExpectLine(lines[0], 3, 0, 4, 0.5);
    ExpectLine(lines[1], 1, 2, 0, 1.5);
    // Corners 1, -3, 1, -3: crossings (1, 0), (4, 1.5), (3, 2), (0, 0.5): 1 with 4.
    lines = Trace(OneCell(1, -3, 1, -3), -8, 8, 3);
    ASSERT_EQ(lines.size(), 2u);
    ExpectLine(lines[0], 1, 0, 0, 0.5);
    ExpectLine(lines[1], 4, 1.5, 3, 2);
}

// Corners 1, -1, 1, -1: crossings (2, 0), (4, 1), (2, 2), (0, 1): both distances are 5.
TEST(CellContourTracer, ATieOfASaddleGoesToTheSecondForm) {
    const auto lines = Trace(OneCell(1, -1, 1, -1), -8, 8, 3);
    ASSERT_EQ(lines.size(), 2u);
    ExpectLine(lines[0], 2, 0, 0, 1);
    ExpectLine(lines[1], 4, 1, 2, 2);
}

// Corners 0, 1, 1, -1: crossings corner 1 (edge 1-2), (2, 2) on 3-4, and on 4-1 the point of h = 0: corner 1 again.
TEST(CellContourTracer, OfThreeCrossingsTheTwoFarthestApartAreJoined) {
    const auto lines = Trace(OneCell(0, 1, 1, -1), -8, 8, 3);
    ASSERT_EQ(lines.size(), 1u);
    ExpectLine(lines[0], 0, 0, 2, 2);
}

TEST(CellContourTracer, ACellBetweenTwoLevelsDrawsNothing) {
    EXPECT_TRUE(Trace(OneCell(1.1, 1.2, 1.8, 1.5), 0, 4, 5).empty());
    EXPECT_TRUE(Trace(OneCell(10, 11, 12, 13), 0, 4, 5).empty());
    EXPECT_TRUE(Trace(OneCell(-10, -11, -12, -13), 0, 4, 5).empty());
}

TEST(CellContourTracer, ACornerAboveTheCutOffRemovesTheCell) {
    EXPECT_FALSE(Trace(OneCell(0, 1e10, 1, 1), 0, 4, 5).empty());
    EXPECT_TRUE(Trace(OneCell(0, std::nextafter(1e10, 2e10), 1, 1), 0, 4, 5).empty());
    EXPECT_TRUE(Trace(OneCell(2e10, 0, 1, 1), 0, 4, 5).empty());  // corner 1 takes part
}

TEST(CellContourTracer, CornerOneTakesPartInTheSmallestValue) {
    EXPECT_EQ(Trace(OneCell(0.5, 3.5, 3.5, 3.5), 0, 4, 5).size(), 3u);  // levels 1, 2, 3
}

TEST(CellContourTracer, ColumnsOfCellsAreOuter) {
    ValueMatrix d(3, 3);
    const std::vector<double> axis{0, 0, 1, 2};
    for (int j = 1; j <= 3; ++j) {
        for (int i = 1; i <= 3; ++i) {
            d.At(i, j) = i + j % 2 * 0.25;
        }
    }
    RecordingSurface surface(0, 0);
    CellContourTracer(surface, 0.5, 4.5, 1, 3, 1, 3, 1, 1, axis, axis, d, 5, 1);  // levels 1.5 and 2.5 are met
    ASSERT_EQ(surface.Commands.size(), 4u);
    EXPECT_LT(surface.Commands[0].X1, 1);
    EXPECT_LT(surface.Commands[1].X1, 1);
    EXPECT_LT(surface.Commands[0].Y1, surface.Commands[1].Y1);
    EXPECT_GT(surface.Commands[2].X1, 1);
    EXPECT_EQ(surface.Commands[0].Ink, (Color{200, 200, 200}));
}

TEST(CellContourTracer, LevelsWithoutADistanceAndIndicesBeyondTheArraysAreFaults) {
    const OneCell cell(0, 1, 1, 0);
    EXPECT_EQ(FaultOf([&] { Trace(cell, 0, 1, 1); }), fault::DivisionByZero);
    EXPECT_EQ(FaultOf([&] { Trace(cell, 1, 1, 5); }), fault::DivisionByZero);
    EXPECT_EQ(FaultOf([&] { Trace(cell, 0, 1, 0); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(FaultOf([&] { Trace(cell, -1.7e308, 1.7e308, 5); }), fault::Overflow);
    EXPECT_TRUE(Trace(cell, 1, 0, 5).empty());
    RecordingSurface surface(0, 0);
    EXPECT_EQ(FaultOf([&] { CellContourTracer(surface, 0, 1, 1, 3, 1, 2, 1, 1, cell.X, cell.Y, cell.D, 5, 0); }),
              fault::SubscriptOutOfRange);
}

}  // namespace
}  // namespace zirvo
