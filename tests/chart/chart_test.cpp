// Charts by what is drawn: numbers at axes, lines, bars, labels.
#include "chart/chart.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "chart/axis.h"
#include "contour/recording_surface.h"

namespace zirvo {
namespace {

using Kind = PlotCommand::Kind;

std::vector<std::string> TextsOf(const ChartAxis& axis) {
    std::vector<std::string> texts;
    for (const auto& tick : axis.Ticks) {
        texts.push_back(tick.second);
    }
    return texts;
}

TEST(ChartAxes, NumbersAreRoundAndEncloseTheValues) {
    EXPECT_EQ(TextsOf(AxisOf(10, 30, 6, false)), (std::vector<std::string>{"10", "15", "20", "25", "30"}));
    EXPECT_EQ(TextsOf(AxisOf(-0.31, 0.29, 8, false)),
              (std::vector<std::string>{"-0.4", "-0.3", "-0.2", "-0.1", "0", "0.1", "0.2", "0.3"}));
    EXPECT_EQ(TextsOf(AxisOf(0.1, 0.1 + 0.2, 4, false)),
              (std::vector<std::string>{"0.1", "0.15", "0.2", "0.25", "0.3"}));
    const ChartAxis one = AxisOf(5, 5, 4, false);
    EXPECT_LT(one.Low, 5);
    EXPECT_GT(one.High, 5);
}

TEST(ChartAxes, LogarithmicOnesHavePowersOfTen) {
    const ChartAxis axis = AxisOf(3e4, 2e9, 5, true);
    EXPECT_EQ(TextsOf(axis), (std::vector<std::string>{"10000", "100000", "1E6", "1E7", "1E8", "1E9", "1E10"}));
    EXPECT_NEAR(axis.PlaceOf(1e7), 0.5, 1e-12);
    EXPECT_EQ(TextsOf(AxisOf(2, 70, 5, true)), (std::vector<std::string>{"2", "5", "10", "20", "50", "100"}));
    EXPECT_EQ(TextsOf(AxisOf(2.1e6, 4e6, 5, false)).front(), "2E6");
    EXPECT_EQ(TextsOf(AxisOf(2.1e6, 4e6, 5, false))[1], "2.5E6");
}

Chart TwoLines() {
    Chart chart;
    chart.Title = "of a road";
    chart.XLabel = "thickness [cm]";
    chart.YLabel = "strain [micro]";
    chart.LinesLabel = "modulus";
    chart.Lines = {{"2000 MPa", {{10, 300}, {20, 200}}}, {"5000 MPa", {{10, 250}, {20, 150}}}};
    return chart;
}

TEST(Charts, LabelsNumbersAndNamesOfLinesArePrinted) {
    RecordingSurface surface(800, 560);
    DrawChart(surface, TwoLines(), 800, 560);
    std::vector<std::string> texts;
    for (const PlotCommand& command : surface.Only(Kind::Print)) {
        texts.push_back(command.Text);
        EXPECT_GE(command.X1, 0) << command.Text;
        EXPECT_GE(command.Y1, 0) << command.Text;
        EXPECT_LE(command.X1, 800) << command.Text;
        EXPECT_LE(command.Y1, 560) << command.Text;
    }
    for (const char* wanted : {"of a road", "thickness [cm]", "strain [micro]", "modulus", "2000 MPa", "5000 MPa", "10",
                               "20", "160", "300"}) {
        EXPECT_EQ(std::count(texts.begin(), texts.end(), wanted), 1) << wanted;
    }
}

// Two points of a line are joined from the left end of the axes to the right; higher values stand higher.
TEST(Charts, ALineRunsFromPointToPoint) {
    RecordingSurface surface(800, 560);
    DrawChart(surface, TwoLines(), 800, 560);
    const auto lines = surface.Only(Kind::Line);
    const auto frame = surface.Only(Kind::Box).front();
    std::vector<PlotCommand> wide;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(wide), [&](const PlotCommand& line) {
        return line.DrawWidth == 2 && line.X1 == frame.X1 && line.X2 == frame.X2;
    });
    ASSERT_EQ(wide.size(), 2U);
    EXPECT_LT(wide[0].Y1, wide[0].Y2);  // falls
    EXPECT_LT(wide[0].Y1, wide[1].Y1);  // the softer one is strained more
    EXPECT_EQ(wide[0].Y1, frame.Y1);    // 300 is the end of the axis
}

TEST(Charts, WhatCannotStandOnAnAxisLeavesAGap) {
    Chart chart = TwoLines();
    chart.Lines = {{"", {{1, 10}, {2, std::numeric_limits<double>::infinity()}, {3, 0}, {4, 10}}}};
    chart.LogY = true;
    RecordingSurface surface(800, 560);
    EXPECT_TRUE(CanBeDrawn(chart));
    DrawChart(surface, chart, 800, 560);
    const auto lines = surface.Only(Kind::Line);
    EXPECT_TRUE(std::none_of(lines.begin(), lines.end(), [](const PlotCommand& line) { return line.DrawWidth == 2; }));
    EXPECT_EQ(surface.Only(Kind::FilledBox).size(), 2U);  // the two marks
    chart.Lines[0].Points = {{1, -1}};
    EXPECT_FALSE(CanBeDrawn(chart));
}

// 1, 2, 2, 3, 9 in four bars of width 2: 1 to 3 (three), 3 to 5 (one), 5 to 7, 7 to 9 (one, with its upper end).
TEST(Charts, BarsCountTheValuesBetweenTheirEnds) {
    const std::vector<ChartBar> bars = BarsOf({1, 2, 2, 3, 9, std::nan("")}, 4, false);
    ASSERT_EQ(bars.size(), 4U);
    EXPECT_EQ(bars[0].From, 1);
    EXPECT_EQ(bars[0].To, 3);
    EXPECT_EQ(bars[0].Count, 3);
    EXPECT_EQ(bars[1].Count, 1);
    EXPECT_EQ(bars[2].Count, 0);
    EXPECT_EQ(bars[3].Count, 1);
    const std::vector<ChartBar> decades = BarsOf({1, 10, 100, 1000}, 3, true);
    EXPECT_NEAR(decades[1].From, 10, 1e-9);
    EXPECT_TRUE(BarsOf({}, 0, false).empty());
    EXPECT_EQ(BarsOf({5, 5, 5}, 0, false)[0].Count, 3);
}

TEST(Charts, SmallAndLargePicturesKeepTheirPartsInOrder) {
    for (const auto& [wide, high] : {std::pair(100, 100), std::pair(8000, 8000)}) {
        RecordingSurface surface(wide, high);
        DrawChart(surface, TwoLines(), wide, high);
        const auto frame = surface.Only(Kind::Box).front();
        EXPECT_LT(frame.X1, frame.X2);
        EXPECT_LT(frame.Y1, frame.Y2);
    }
}

}  // namespace
}  // namespace zirvo
