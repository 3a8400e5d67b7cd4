// Whole maps as recorded commands: the order of the steps, what each display item brings, both section kinds.
#include "contour/draw_contour_map.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "base/fault_of.h"
#include "contour/recording_surface.h"
#include "contour/refinement.h"

namespace zirvo {
namespace {

using Kind = PlotCommand::Kind;

/// One coarse cell, 60 by 60 cm, the value grows from 0 to 10 along x: 100 fine cells.
ContourMap SmallMap(SectionKind kind) {
    ContourMap map;
    map.Kind = kind;
    for (const int position : {0, 60}) {
        map.Grid.GridX.push_back(FixedPoint4::FromDouble(position));
    }
    map.Grid.GridY = map.Grid.GridX;
    map.Grid.LayerCount = 1;
    map.Field.FineAxis1 = BuildFineAxis(map.Grid.GridX);
    map.Field.FineAxis2 = map.Field.FineAxis1;
    map.Field.Values = ValueMatrix(11, 11);
    for (int j = 1; j <= 11; ++j) {
        for (int i = 1; i <= 11; ++i) {
            map.Field.Values.At(i, j) = i - 1;
        }
    }
    if (kind == SectionKind::XZ) {
        map.Grid.GridY.assign(1, FixedPoint4());
        for (int level = 0; level <= 6; ++level) {
            map.Grid.GridY.push_back(FixedPoint4::FromDouble(level == 0 ? 0 : 60));  // one gap with a height
        }
    }
    map.Extent = {0, 60, 0, 60};
    map.ValueMin = 0;
    map.ValueMax = 10;
    return map;
}

/// The runs of one kind of command, as a text: what came in which order.
std::string Order(const std::vector<PlotCommand>& commands) {
    std::string order;
    for (const PlotCommand& command : commands) {
        const char letter = "CSLBFP"[static_cast<int>(command.What)];
        if (order.empty() || order.back() != letter) {
            order += letter;
        }
    }
    return order;
}

MapView ViewOf(const DisplayItems& items) {
    MapView view;
    view.Items = items;
    view.ContourLineCount = 5;
    view.Plot = {0, 0, 7200, 7200};
    view.Title = "TITLE";
    return view;
}

std::vector<PlotCommand> Draw(SectionKind kind, const DisplayItems& items) {
    RecordingSurface surface(480, 480);
    DrawContourMap(surface, SmallMap(kind), ViewOf(items));
    return surface.Commands;
}

PlotCommand Only(const std::vector<PlotCommand>& commands, Kind kind) {
    for (const PlotCommand& command : commands) {
        if (command.What == kind) {
            return command;
        }
    }
    return {};
}

std::size_t CountOf(const std::vector<PlotCommand>& commands, Kind kind) {
    return static_cast<std::size_t>(
        std::count_if(commands.begin(), commands.end(), [&](const PlotCommand& c) { return c.What == kind; }));
}

TEST(DrawContourMap, ClearsScalesFillsThenFrameTitleAndLegend) {
    const auto commands = Draw(SectionKind::XY, DisplayItems());
    EXPECT_EQ(Order(commands), "CSFBPLP");  // frame and title print, the bar is lines, its numbers print
    const PlotCommand scale = commands[1];
    EXPECT_FLOAT_EQ(scale.X1, -7.5F);
    EXPECT_FLOAT_EQ(scale.Y1, 66);
    EXPECT_FLOAT_EQ(scale.X2, 64.5F);
    EXPECT_FLOAT_EQ(scale.Y2, -6);
    EXPECT_EQ(CountOf(commands, Kind::FilledBox), 100u);
    EXPECT_EQ(CountOf(commands, Kind::Print), 22u + 1 + 3);
    // The first cell: middle 0.5 of 0 to 10, a fifth of the first band: 255 * 0.5 / 2.5 = 51.
    EXPECT_EQ(Only(commands, Kind::FilledBox).Ink, (Color{0, 51, 255}));
}

TEST(DrawContourMap, AnXZSectionRunsDownwardWithItsTitleAboveTheFirstDepth) {
    const auto commands = Draw(SectionKind::XZ, DisplayItems());
    EXPECT_EQ(Order(commands), "CSFBPLP");
    EXPECT_FLOAT_EQ(commands[1].Y1, -6);
    EXPECT_FLOAT_EQ(commands[1].Y2, 66);
    const PlotCommand title = commands[commands.size() - 1 - 3 - CountOf(commands, Kind::Line)];
    EXPECT_EQ(title.Text, "TITLE");
    EXPECT_NEAR(title.Y1, 0 - 1.1 * 13 * 0.15, 1e-5);  // 0.15 cm a pixel
    EXPECT_NEAR(title.X1, 60 - 5 * 6.5 * 0.15, 1e-5);
    EXPECT_EQ(title.Ink, (Color{255, 255, 255}));
}

TEST(DrawContourMap, WithOnlyTheFillTheFrameItsNumbersAndTheTitleAreStillDrawn) {
    const auto commands = Draw(SectionKind::XY, {true, false, false, false, false});
    EXPECT_EQ(Order(commands), "CSFBP");
    EXPECT_EQ(CountOf(commands, Kind::Print), 23u);
}

// Levels 0, 2.5, 5, 7.5, 10 of a field that grows by 1 in a cell: 0 and 2.5, 5 and 7.5 are met in ten rows of cells, 10
// only touches the highest corners. Level 2.5 lies in the middle of a cell, on its centre.
TEST(DrawContourMap, LinesAloneCarryTheColourScale) {
    const auto commands = Draw(SectionKind::XY, {false, true, false, false, false});
    EXPECT_EQ(Order(commands), "CSLBP");
    std::vector<Color> colors;
    for (const PlotCommand& command : commands) {
        if (command.What == Kind::Line) {
            EXPECT_EQ(command.DrawWidth, 1);
            if (std::find(colors.begin(), colors.end(), command.Ink) == colors.end()) {
                colors.push_back(command.Ink);
            }
        }
    }
    EXPECT_EQ(colors, (std::vector<Color>{{0, 0, 255}, {0, 255, 255}, {0, 255, 0}, {255, 255, 0}}));
    EXPECT_FLOAT_EQ(Only(commands, Kind::Line).Y1, 54);  // the uppermost row of cells comes first: 54 to 60 cm
}

TEST(DrawContourMap, LinesOverAFillAreGrey) {
    const auto commands = Draw(SectionKind::XY, {true, true, false, false, false});
    EXPECT_EQ(Order(commands), "CSFLBP");
    for (const PlotCommand& command : commands) {
        if (command.What == Kind::Line) {
            EXPECT_EQ(command.Ink, (Color{200, 200, 200}));
        }
    }
}

TEST(DrawContourMap, WithResultsTheFrameStandsBareUnderMarksAndValues) {
    for (const SectionKind kind : {SectionKind::XY, SectionKind::XZ}) {
        const auto commands = Draw(kind, {false, false, false, true, true});
        EXPECT_EQ(Order(commands), "CSBP");
        std::string texts;
        for (const PlotCommand& command : commands) {
            texts += command.What == Kind::Print ? command.Text + " " : "";
        }
        // The four coarse nodes; on X-Y row by row, on X-Z column by column.
        EXPECT_EQ(texts, kind == SectionKind::XY ? "X X X X 0.00E0 1.00E1 0.00E0 1.00E1 TITLE "
                                                 : "X X X X 0.00E0 0.00E0 1.00E1 1.00E1 TITLE ");
        EXPECT_EQ(commands[3].Ink, (Color{255, 204, 0}));
        EXPECT_EQ(commands[7].Ink, (Color{255, 100, 100}));
    }
}

TEST(DrawContourMap, ValuesBeyondANarrowedRangeAreBlackAndLevelsMove) {
    ContourMap map = SmallMap(SectionKind::XY);
    map.ValueMin = 4;
    map.ValueMax = 6;
    RecordingSurface surface(480, 480);
    DrawContourMap(surface, map, ViewOf({true, true, false, false, false}));
    const auto cells = surface.Only(Kind::FilledBox);
    ASSERT_EQ(cells.size(), 100u);
    for (std::size_t n = 0; n < 10; ++n) {
        EXPECT_EQ(cells[n].Ink == (Color{0, 0, 0}), n != 4 && n != 5) << n;  // middles 4.5 and 5.5 remain
    }
    for (const PlotCommand& line : surface.Only(Kind::Line)) {
        EXPECT_GE(line.X1, 24);  // 4 of 10
        EXPECT_LE(line.X1, 36);
    }
}

TEST(DrawContourMap, EqualValuesAndAnEmptyRangeGiveABlueMapWithoutLines) {
    ContourMap map = SmallMap(SectionKind::XY);
    for (int j = 1; j <= 11; ++j) {
        for (int i = 1; i <= 11; ++i) {
            map.Field.Values.At(i, j) = 3;
        }
    }
    map.ValueMin = map.ValueMax = 3;
    RecordingSurface surface(480, 480);
    DrawContourMap(surface, map, ViewOf({true, true, false, false, false}));
    EXPECT_EQ(surface.Only(Kind::FilledBox)[0].Ink, (Color{0, 0, 255}));
    EXPECT_TRUE(surface.Only(Kind::Line).empty());
}

// One position along the first axis: the fine axis is empty, the frame one unit wide.
TEST(DrawContourMap, AnEmptyExtentIsOneUnitWide) {
    ContourMap map = SmallMap(SectionKind::XY);
    map.Field.FineAxis1.assign(1, 0);
    map.Extent.AxisMax1 = 0;
    RecordingSurface surface(480, 480);
    DrawContourMap(surface, map, ViewOf({true, true, true, true, false}));
    EXPECT_EQ(surface.Only(Kind::Box)[0].X2, 1);
    EXPECT_TRUE(surface.Only(Kind::FilledBox).empty());
}

TEST(DrawContourMap, DrawsFromScratchAndLeavesTheScaleInForce) {
    RecordingSurface surface(480, 480);
    const MapView view = ViewOf({true, true, true, true, false});
    DrawContourMap(surface, SmallMap(SectionKind::XY), view);
    const auto first = surface.Commands;
    surface.Commands.clear();
    DrawContourMap(surface, SmallMap(SectionKind::XY), view);
    EXPECT_EQ(surface.Commands, first);
    EXPECT_FLOAT_EQ(surface.Picture().X1, -7.5F);
}

TEST(DrawContourMap, ACountOfOneLineIsAFault) {
    MapView view = ViewOf({false, true, false, false, false});
    view.ContourLineCount = 1;
    RecordingSurface surface(480, 480);
    EXPECT_EQ(FaultOf([&] { DrawContourMap(surface, SmallMap(SectionKind::XY), view); }), fault::DivisionByZero);
}

}  // namespace
}  // namespace zirvo
