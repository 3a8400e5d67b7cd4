// The tracer of the maps: hand-worked cells, the order of emission, and sameness with the plain loop on many fields.
#include "contour/conrec.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

#include "base/fault_of.h"
#include "contour/allocation_count.h"
#include "contour/color_scale.h"
#include "contour/numeric_helpers.h"
#include "contour/recording_surface.h"

namespace zirvo {
namespace {

struct TestField {
    ValueMatrix D;
    std::vector<double> X{0};
    std::vector<double> Y{0};

    int LastX() const { return static_cast<int>(X.size()) - 1; }
    int LastY() const { return static_cast<int>(Y.size()) - 1; }
};

TestField FieldOf(int nodesX, int nodesY) {
    TestField field;
    field.D = ValueMatrix(nodesX, nodesY);
    for (int i = 0; i < nodesX; ++i) {
        field.X.push_back(i);
    }
    for (int j = 0; j < nodesY; ++j) {
        field.Y.push_back(j);
    }
    return field;
}

/// One cell from (0, 0) to (2, 2) with these values at corners 1 to 4.
TestField CellOf(double c1, double c2, double c3, double c4) {
    TestField field = FieldOf(2, 2);
    field.X = {0, 0, 2};
    field.Y = {0, 0, 2};
    field.D.At(1, 1) = c1;
    field.D.At(2, 1) = c2;
    field.D.At(2, 2) = c3;
    field.D.At(1, 2) = c4;
    return field;
}

std::vector<PlotCommand> Trace(const TestField& field, double zmin, double zmax, Int16 count, int grey = 0) {
    RecordingSurface surface(0, 0);
    conrec(surface, zmin, zmax, field.D, field.X, field.Y, count, 1, field.LastX(), 1, field.LastY(), grey);
    return surface.Commands;
}

PlotCommand Line(double x1, double y1, double x2, double y2, Color color) {
    PlotCommand command;
    command.What = PlotCommand::Kind::Line;
    command.X1 = static_cast<float>(x1);
    command.Y1 = static_cast<float>(y1);
    command.X2 = static_cast<float>(x2);
    command.Y2 = static_cast<float>(y2);
    command.Ink = color;
    return command;
}

constexpr Color Green{0, 255, 0};
constexpr Color LowestBlue{0, 0, 255};

// d = x on the cell: corners 0, 2, 2, 0, centre 1 at (1, 1). Levels -3, 0.5, 4: at 0.5 the heights are -0.5, 1.5, 1.5,
// -0.5, centre 0.5. m = 1: signs -, +, +: case 9, S(m3, m1) on the lower edge at x 0.5, S(m1, m2) half way to the
// centre. m = 2: all +. m = 3: +, +, -: case 8, S(m2, m3) half way centre to corner 4, S(m3, m1) on the upper edge. m =
// 4: -, +, -: case 7, S(m1, m2) and S(m2, m3).
TEST(Conrec, AStraightLineThroughACellIsDrawnTriangleByTriangle) {
    const std::vector<PlotCommand> expected{Line(0.5, 0, 0.5, 0.5, Green), Line(0.5, 1.5, 0.5, 2, Green),
                                            Line(0.5, 1.5, 0.5, 0.5, Green)};
    EXPECT_EQ(Trace(CellOf(0, 2, 2, 0), -3, 4, 3), expected);
}

// A saddle 1, -1, 1, -0.5 has its centre at 0.125: above the level 0, so that the corners 1 and 3 are joined through
// it. m = 1 (+ + -): case 8, S(0, 2): h 0.125 and -1, from (1, 1) to (2, 0): 1 + 0.125 / 1.125 = 10/9, 8/9; S(2, 1):
// (1, 0). m = 2 (- + +): case 9, S(3, 2) at (2, 1), then S(2, 0).  m = 3 (+ + -): case 8, S(0, 4): (1 - 0.2, 1 + 0.2);
// S(4, 3): from (0, 2), h -0.5, to (2, 2), h 1: x = 2/3.  m = 4 (- + +): case 9, S(1, 4): y = 2 * 1 / 1.5 = 4/3; S(4,
// 0).
TEST(Conrec, TellsBehindEachRowOfCellsHowMuchIsDone) {
    const TestField field = FieldOf(3, 5);
    RecordingSurface surface(0, 0);
    std::vector<double> told;
    conrec(surface, 0, 1, field.D, field.X, field.Y, 5, 1, field.LastX(), 1, field.LastY(), 0,
           [&](double done) { told.push_back(done); });
    EXPECT_EQ(told, (std::vector<double>{0.25, 0.5, 0.75, 1}));
}

TEST(Conrec, TheCentreDecidesHowTheLinesOfASaddleJoin) {
    const auto lines = Trace(CellOf(1, -1, 1, -0.5), -2, 2, 3);
    const std::vector<PlotCommand> expected{Line(10.0 / 9, 8.0 / 9, 1, 0, Green), Line(2, 1, 10.0 / 9, 8.0 / 9, Green),
                                            Line(0.8, 1.2, 2.0 / 3, 2, Green), Line(0, 4.0 / 3, 0.8, 1.2, Green)};
    ASSERT_EQ(lines.size(), expected.size());
    for (std::size_t n = 0; n < lines.size(); ++n) {
        EXPECT_FLOAT_EQ(lines[n].X1, expected[n].X1) << n;
        EXPECT_FLOAT_EQ(lines[n].Y1, expected[n].Y1) << n;
        EXPECT_FLOAT_EQ(lines[n].X2, expected[n].X2) << n;
        EXPECT_FLOAT_EQ(lines[n].Y2, expected[n].Y2) << n;
    }
}

// Corners 0, 1, 0, -1, centre 0: corners 1 and 3 and the centre lie on the level. m = 1 (0 0 +): case 1, m1 to m2.
// m = 2 (+ 0 0): case 2, m2 to m3. m = 3 (0 0 -): case 1. m = 4 (- 0 0): case 2.
TEST(Conrec, ALevelThroughTwoOppositeCornersRunsAlongTriangleSides) {
    const std::vector<PlotCommand> expected{Line(0, 0, 1, 1, Green), Line(1, 1, 2, 2, Green), Line(2, 2, 1, 1, Green),
                                            Line(1, 1, 0, 0, Green)};
    EXPECT_EQ(Trace(CellOf(0, 1, 0, -1), -2, 2, 3), expected);
}

// Corners 0, 0, 4, 4 at the level 0: centre 2. m = 1 (0 + 0): case 3, m3 to m1, the lower edge; nothing else: m = 2 is
// (0 + +): 0, m = 3 is (+ + +), m = 4 is (+ + 0): 0.
TEST(Conrec, AnEdgeOnTheLevelIsCaseThree) {
    const std::vector<PlotCommand> expected{Line(2, 0, 0, 0, LowestBlue)};
    EXPECT_EQ(Trace(CellOf(0, 0, 4, 4), 0, 8, 2), expected);
}

// Corner 2 on the level, centre on it, corner 1 above: (+ 0 0) and so on are above; here cases 4, 5 and 6.
// Corners 0, 2, 1, -7 at level 0: centre -1. m = 1 (0 - +): case 4 from vertex m1 to S(m2, m3): corner 1 (0, 0) to the
// side centre (1, 1), h -1, to corner 2 (2, 0), h 2: 1 + 1/3, 1 - 1/3. m = 2 (+ - +): case 7. m = 3 (+ - -): case 9.
// m = 4 (- - 0): 0.
TEST(Conrec, ACornerOnTheLevelStartsALineToTheOppositeSide) {
    const auto lines = Trace(CellOf(0, 2, 1, -7), -8, 8, 3);
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_FLOAT_EQ(lines[0].X1, 0);
    EXPECT_FLOAT_EQ(lines[0].Y1, 0);
    EXPECT_FLOAT_EQ(lines[0].X2, 4.0F / 3);
    EXPECT_FLOAT_EQ(lines[0].Y2, 2.0F / 3);
}

// Two rows and two columns of cells, each crossed by the level 0 (d alternates): the upper row comes first, in it the
// left cell.
TEST(Conrec, RowsRunDownwardAndColumnsUpward) {
    TestField field = FieldOf(3, 3);
    for (int j = 1; j <= 3; ++j) {
        for (int i = 1; i <= 3; ++i) {
            field.D.At(i, j) = (i + j) % 2 == 0 ? 1 : -2;
        }
    }
    std::vector<std::pair<int, int>> cells;
    for (const PlotCommand& line : Trace(field, -3, 3, 3)) {
        const std::pair<int, int> cell{static_cast<int>(0.5F * (line.X1 + line.X2)),
                                       static_cast<int>(0.5F * (line.Y1 + line.Y2))};
        if (cells.empty() || cells.back() != cell) {
            cells.push_back(cell);
        }
    }
    EXPECT_EQ(cells, (std::vector<std::pair<int, int>>{{0, 1}, {1, 1}, {0, 0}, {1, 0}}));
}

TEST(Conrec, LevelsOfACellComeFromTheLowestToTheHighest) {
    const auto lines = Trace(CellOf(0, 8, 8, 0), 1, 7, 4);  // levels 1, 3, 5, 7 cross at x = level / 4
    ASSERT_EQ(lines.size(), 12u);
    for (std::size_t n = 0; n < lines.size(); ++n) {
        EXPECT_EQ(lines[n].Ink, ColorSet(1 + 2 * static_cast<double>(n / 3), 1, 7)) << n;
    }
}

TEST(Conrec, FourEqualValuesDrawNothingEvenOnALevel) {
    EXPECT_TRUE(Trace(CellOf(2, 2, 2, 2), 0, 4, 3).empty());
    EXPECT_TRUE(Trace(CellOf(2, 2, 2, 2), 2, 2, 20).empty());  // equal values everywhere, an empty range
}

TEST(Conrec, ALevelThatOnlyTouchesTheHighestCornerDrawsNothing) {
    EXPECT_TRUE(Trace(CellOf(0, 1, 4, 1), 4, 8, 2).empty());
    EXPECT_FALSE(Trace(CellOf(0, 1, 4, 1), 3.5, 8, 2).empty());
    EXPECT_FALSE(Trace(CellOf(0, 0, 4, 1), 0, 8, 2).empty());  // the lower bound is closed
}

TEST(Conrec, AFieldOutsideTheRangeDrawsNothing) {
    EXPECT_TRUE(Trace(CellOf(0, 1, 2, 1), 5, 9, 20).empty());
    EXPECT_TRUE(Trace(CellOf(0, 1, 2, 1), -9, -5, 20).empty());
}

TEST(Conrec, LinesAreGreyWhateverTheLevelWhenAskedFor) {
    const auto lines = Trace(CellOf(0, 8, 8, 0), 0, 8, 5, 1);
    ASSERT_FALSE(lines.empty());
    for (const PlotCommand& line : lines) {
        EXPECT_EQ(line.Ink, (Color{200, 200, 200}));
    }
}

// 0.3 and 0.7 in 12 intervals: some last level lies an ulp above the range, where the scale is black.
TEST(Conrec, ALastLevelAnUlpAboveTheRangeIsBlack) {
    for (int i = 1; i <= 2000; ++i) {
        const double zmax = 1e-6 * i + 1.7e-4;
        if (ContourLevels(1.1e-4, zmax, 20).back() > zmax) {
            const auto lines = Trace(CellOf(zmax - 1e-9, 1, 1, zmax - 1e-9), 1.1e-4, zmax, 20);
            ASSERT_FALSE(lines.empty());
            EXPECT_EQ(lines.back().Ink, (Color{0, 0, 0}));
            return;
        }
    }
    FAIL() << "no such range among the tried ones";
}

// The field is d = x; node (2, 2) of 5 by 5 touches the cells from (0, 0) to (2, 2).
TEST(Conrec, AValueOfTheCutOffRemovesTheFourCellsAroundItAndNoOther) {
    TestField field = FieldOf(5, 5);
    for (int j = 1; j <= 5; ++j) {
        for (int i = 1; i <= 5; ++i) {
            field.D.At(i, j) = i;
        }
    }
    const std::size_t all = Trace(field, 1.5, 4.5, 4).size();  // each cell has its level on the centre: 2 segments
    EXPECT_EQ(all, 32u);
    field.D.At(2, 2) = 1e37;
    EXPECT_EQ(Trace(field, 1.5, 4.5, 4).size(), 24u);
    field.D.At(2, 2) = std::nextafter(1e37, 0);
    EXPECT_GT(Trace(field, 1.5, 4.5, 4).size(), 24u);
}

TEST(Conrec, CountsAndIndicesThatCannotBeAreFaults) {
    const TestField field = CellOf(0, 2, 2, 0);
    RecordingSurface surface(0, 0);
    EXPECT_EQ(FaultOf([&] { Trace(field, 0, 1, 1); }), fault::DivisionByZero);
    EXPECT_EQ(FaultOf([&] { Trace(field, 0, 1, 0); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(FaultOf([&] { Trace(field, 0, 1, -5); }), fault::SubscriptOutOfRange);
    const auto trace = [&](int ilb, int iub, int jlb, int jub) {
        return FaultOf([&] { conrec(surface, 0, 1, field.D, field.X, field.Y, 5, ilb, iub, jlb, jub, 0); });
    };
    EXPECT_EQ(trace(1, 3, 1, 2), fault::SubscriptOutOfRange);
    EXPECT_EQ(trace(1, 2, 1, 3), fault::SubscriptOutOfRange);
    EXPECT_EQ(trace(-1, 2, 1, 2), fault::SubscriptOutOfRange);
    EXPECT_EQ(trace(1, 1, 1, 2), 0);
    EXPECT_EQ(trace(1, 0, 1, 0), 0);
    EXPECT_TRUE(surface.Commands.empty());
}

/// The plain loop: every cell, every level, every test as it is told, nothing passed over.
std::vector<PlotCommand> TraceEveryCell(const TestField& field, double zmin, double zmax, Int16 count) {
    const std::vector<double> z = ContourLevels(zmin, zmax, count);
    const int cases[27] = {0, 0, 8, 0, 2, 5, 7, 6, 9, 0, 3, 4, 1, 3, 1, 4, 3, 0, 9, 6, 7, 5, 2, 0, 8, 0, 0};
    const auto& d = field.D;
    std::vector<PlotCommand> lines;
    for (int j = field.LastY() - 1; j >= 1; --j) {
        for (int i = 1; i < field.LastX(); ++i) {
            const double c[5] = {0, d.At(i, j), d.At(i + 1, j), d.At(i + 1, j + 1), d.At(i, j + 1)};
            const double dmin = std::min({c[1], c[2], c[3], c[4]});
            const double dmax = std::max({c[1], c[2], c[3], c[4]});
            if (dmax >= 1e37 || dmax < z[1] || dmin > z.back()) {
                continue;
            }
            for (std::size_t k = 1; k < z.size(); ++k) {
                if (z[k] < dmin || z[k] >= dmax) {
                    continue;
                }
                const auto n = static_cast<std::size_t>(i);
                const auto r = static_cast<std::size_t>(j);
                const double xh[5] = {0.5 * (field.X[n] + field.X[n + 1]), field.X[n], field.X[n + 1], field.X[n + 1],
                                      field.X[n]};
                const double yh[5] = {0.5 * (field.Y[r] + field.Y[r + 1]), field.Y[r], field.Y[r], field.Y[r + 1],
                                      field.Y[r + 1]};
                double h[5] = {};
                for (int m = 1; m <= 4; ++m) {
                    h[m] = c[m] - z[k];
                }
                h[0] = 0.25 * (h[1] + h[2] + h[3] + h[4]);
                for (int m = 1; m <= 4; ++m) {
                    const int v[3] = {m, 0, m == 4 ? 1 : m + 1};
                    int index = 0;
                    for (const int vertex : v) {
                        index = 3 * index + (h[vertex] > 0 ? 2 : h[vertex] < 0 ? 0 : 1);
                    }
                    const auto crossing = [&](int p, int q) {
                        return std::pair{(h[q] * xh[p] - h[p] * xh[q]) / (h[q] - h[p]),
                                         (h[q] * yh[p] - h[p] * yh[q]) / (h[q] - h[p])};
                    };
                    // Ends of the cases 1 to 9: a single vertex, or the side that starts at it (10 more).
                    const int ends[10][2] = {{0, 0},  {0, 1},  {1, 2},   {2, 0},   {0, 11},
                                             {1, 12}, {2, 10}, {10, 11}, {11, 12}, {12, 10}};
                    const int triangleCase = cases[index];
                    if (triangleCase == 0) {
                        continue;
                    }
                    const auto end = [&](int which) {
                        return which < 10 ? std::pair{xh[v[which]], yh[v[which]]}
                                          : crossing(v[which - 10], v[(which - 9) % 3]);
                    };
                    const auto from = end(ends[triangleCase][0]);
                    const auto to = end(ends[triangleCase][1]);
                    lines.push_back(Line(from.first, from.second, to.first, to.second, ColorSet(z[k], zmin, zmax)));
                }
            }
        }
    }
    return lines;
}

TEST(Conrec, DrawsWhatThePlainLoopOverAllCellsAndLevelsDraws) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> noise(-1, 1);
    for (const auto& [nodesX, nodesY] : {std::pair{2, 2}, {2, 40}, {17, 3}, {18, 9}, {33, 33}, {34, 20}, {101, 7}}) {
        for (int kind = 0; kind < 4; ++kind) {
            TestField field = FieldOf(nodesX, nodesY);
            for (int j = 1; j <= nodesY; ++j) {
                for (int i = 1; i <= nodesX; ++i) {
                    const double smooth = std::sin(0.11 * i) * std::cos(0.07 * j);
                    const double whole = std::round(3 * noise(random));  // many values exactly on levels
                    field.D.At(i, j) = kind == 0 ? smooth : kind == 1 ? noise(random) : whole;
                    if (kind == 3 && i % 9 == 4 && j % 5 == 2) {
                        field.D.At(i, j) = 2e37;
                    }
                }
            }
            for (const auto& [low, high] : {std::pair{-1.0, 1.0}, {-3.0, 3.0}, {-0.2, 0.1}, {0.0, 0.0}, {1.0, -1.0}}) {
                for (const Int16 count : {Int16{2}, Int16{7}, Int16{60}}) {
                    EXPECT_EQ(Trace(field, low, high, count), TraceEveryCell(field, low, high, count))
                        << nodesX << " x " << nodesY << " kind " << kind << " range " << low << " " << high;
                }
            }
        }
    }
}

/// Takes lines and keeps nothing.
class SilentSurface : public PixelSurface {
public:
    SilentSurface() : PixelSurface(1, 1) {}
    void Line(float, float, float, float, Color) override { ++Lines; }
    std::size_t Lines = 0;
};

// The lists are sized before the first row; so the number of allocations must not grow with the field.
TEST(Conrec, AllocatesNothingInTheCellLoop) {
    std::vector<std::size_t> allocations;
    for (const int nodes : {20, 400}) {
        TestField field = FieldOf(nodes, nodes);
        for (int j = 1; j <= nodes; ++j) {
            for (int i = 1; i <= nodes; ++i) {
                field.D.At(i, j) = (i * j) % 7;
            }
        }
        SilentSurface surface;
        const std::size_t before = AllocationCount();
        conrec(surface, 0, 6, field.D, field.X, field.Y, 20, 1, nodes, 1, nodes, 0);
        allocations.push_back(AllocationCount() - before);
        EXPECT_GT(surface.Lines, 100u);
    }
    EXPECT_GT(allocations[0], 0u);
    EXPECT_EQ(allocations[0], allocations[1]);
}

}  // namespace
}  // namespace zirvo
