// The road of a section, step by step, with ZIRVO_SV22.exe itself and a surface that records.
#include "graphics/section_plot.h"

#include <gtest/gtest.h>

#include "contour/recording_surface.h"
#include "pavement/graphics_example.h"
#include "text/catalogue.h"

namespace zirvo {
namespace {

SectionPlot PlotOf(SectionKind kind, Int16 component, const std::string& position) {
    SectionPlot plot;
    plot.Units = UnitSystem::KgfToKgf;
    plot.LanguageBase = EnglishBase;
    plot.Section = {component, kind, 0, 1};
    plot.PositionText = position;
    return plot;
}

ReadOuts TakeRoad(SectionPlot& plot) {
    EXPECT_EQ(StartSection(plot, test::ExampleData()), SectionInputStatus::Written);
    EXPECT_EQ(SolveSection(plot, ZIRVO_BIN, *MakeProcessService(), {}), GraphicsRunResult::Finished);
    ConvertSection(plot);
    return LoadSection(plot);
}

std::string LastTitle(const RecordingSurface& surface) {
    for (const PlotCommand& command : surface.Only(PlotCommand::Kind::Print)) {
        if (command.Text.rfind("EPS", 0) == 0) {
            return command.Text;
        }
    }
    return "";
}

// The load's radius is 15 at 0, so the grid reaches 35 on both sides.
TEST(SectionPlot, LeadsFromThePavementToTheMap) {
    const test::WorkFolder folder;
    SectionPlot plot = PlotOf(SectionKind::XY, ComponentEpsZ, "0.0");
    const ReadOuts texts = TakeRoad(plot);
    EXPECT_EQ(plot.LayerCount, 2);
    EXPECT_EQ(plot.Input.PointCount, 625);
    EXPECT_EQ(texts.AxisMin1, "-35.00");
    EXPECT_EQ(texts.AxisMax2, "35.00");
    EXPECT_EQ(plot.Data.Map.ValueMin, plot.Data.ContourMin);
    RecordingSurface surface(529, 540);
    DrawSection(surface, plot, {}, 20, GeometryOfPixels(529, 540));
    EXPECT_EQ(LastTitle(surface), "EPSz  Section: X-Y  Z=0.0cm  Layer#=1  <ZIRVO Ver2.3>");
    EXPECT_EQ(LastTitle(surface), TitleOf(plot));
    EXPECT_FALSE(surface.Only(PlotCommand::Kind::FilledBox).empty());
}

TEST(SectionPlot, ARedrawWithTheOtherComponentNeedsNoSolver) {
    const test::WorkFolder folder;
    SectionPlot plot = PlotOf(SectionKind::XZ, ComponentEpsX, "0");
    const ReadOuts first = TakeRoad(plot);
    plot.Section.OutputComponent = ComponentEpsZ;
    ConvertSection(plot);
    const ReadOuts second = LoadSection(plot);
    EXPECT_NE(first.ValueMin, second.ValueMin);
    EXPECT_EQ(first.AxisMax2, second.AxisMax2);
    EXPECT_EQ(TitleOf(plot), "EPSz  Section: X-Z  Y=0cm  <ZIRVO Ver2.3>");
    plot.Section.OutputComponent = ComponentEpsX;
    ConvertSection(plot);
    EXPECT_EQ(LoadSection(plot), first);
}

TEST(SectionPlot, DrawsTheItemsAndLinesThatItIsAskedFor) {
    const test::WorkFolder folder;
    SectionPlot plot = PlotOf(SectionKind::XY, ComponentEpsX, "0");
    TakeRoad(plot);
    const auto countOf = [&](const DisplayItems& items, Int16 lines, PlotCommand::Kind kind) {
        RecordingSurface surface(529, 540);
        DrawSection(surface, plot, items, lines, GeometryOfPixels(529, 540));
        return surface.Only(kind).size();
    };
    const DisplayItems lines{false, true, false, false, false};
    EXPECT_EQ(countOf(lines, 5, PlotCommand::Kind::FilledBox), 0U);
    EXPECT_GT(countOf(lines, 40, PlotCommand::Kind::Line), 4 * countOf(lines, 5, PlotCommand::Kind::Line));
    // A mark for each of 625 points, and the title, on a frame with five numbers and six ticks an axis.
    EXPECT_EQ(countOf({false, false, false, true, false}, 20, PlotCommand::Kind::Print), 625U + 1U + 2U * 11U);
}

}  // namespace
}  // namespace zirvo
