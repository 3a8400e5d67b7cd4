// Scale, frame, title and legend, compared as recorded commands with values worked out by hand.
// The picture: 7200 by 7200 twips, so 6000 by 6000 within the margins, on 480 by 480 pixels. On the test surface a text
// is 13 pixels high with 10 points and 27 with 20, and each character is half as wide as that.
#include "contour/plot_layout.h"

#include <gtest/gtest.h>

#include <cmath>

#include "contour/color_scale.h"
#include "contour/numeric_helpers.h"
#include "contour/recording_surface.h"

namespace zirvo {
namespace {

constexpr PlotGeometry Plot{0, 0, 7200, 7200};
constexpr MapExtent Extent{0, 60, 10, 70};  // 100 twips to a centimetre
constexpr Color Grey{200, 200, 200};
// 480 pixels show 72 cm: a pixel is 0.15 cm.
constexpr double Pixel = 0.15;
constexpr double High10 = 13 * Pixel;
constexpr double High20 = 27 * Pixel;

struct Printed {
    const char* Text;
    double X;
    double Y;
    FontPoints Size;
    bool Bold;
};

void ExpectPrints(const std::vector<PlotCommand>& commands, const std::vector<Printed>& expected, bool italic) {
    ASSERT_EQ(commands.size(), expected.size());
    for (std::size_t n = 0; n < expected.size(); ++n) {
        EXPECT_EQ(commands[n].Text, expected[n].Text) << n;
        EXPECT_NEAR(commands[n].X1, expected[n].X, 2e-5) << n << ' ' << expected[n].Text;
        EXPECT_NEAR(commands[n].Y1, expected[n].Y, 2e-5) << n << ' ' << expected[n].Text;
        EXPECT_EQ(commands[n].FontSize, expected[n].Size) << n;
        EXPECT_EQ(commands[n].FontBold, expected[n].Bold) << n;
        EXPECT_EQ(commands[n].FontItalic, italic) << n;
    }
}

void ScaleTo(PlotSurface& surface, SectionKind kind) {
    const MapScale scale = ScaleOfMap(Plot, kind, Extent);
    surface.Scale(static_cast<float>(scale.X1), static_cast<float>(scale.Y1), static_cast<float>(scale.X2),
                  static_cast<float>(scale.Y2));
}

TEST(ScaleOfMap, TheExtentFillsThePictureLessItsMargins) {
    const MapScale xy = ScaleOfMap(Plot, SectionKind::XY, Extent);
    EXPECT_NEAR(xy.X1, -7.5, 1e-12);  // 750 twips left of 0
    EXPECT_NEAR(xy.X2, 64.5, 1e-12);  // 450 twips right of 60
    EXPECT_NEAR(xy.Y1, 76, 1e-12);    // 600 twips above 70
    EXPECT_NEAR(xy.Y2, 4, 1e-12);
    const MapScale xz = ScaleOfMap(Plot, SectionKind::XZ, Extent);
    EXPECT_NEAR(xz.Y1, 4, 1e-12);  // depth grows downward
    EXPECT_NEAR(xz.Y2, 76, 1e-12);
    EXPECT_EQ(xz.X1, xy.X1);
}

TEST(ScaleOfMap, EachAxisIsScaledForItselfWhateverTheSectionsShape) {
    const MapScale flat = ScaleOfMap(Plot, SectionKind::XY, {0, 600, 0, 6});
    EXPECT_NEAR(flat.X2, 645, 1e-9);
    EXPECT_NEAR(flat.Y1, 6.6, 1e-12);
}

TEST(ScaleOfMap, ThePicturesOwnOriginCancels) {
    const MapScale moved = ScaleOfMap({100, 200, 7200, 7200}, SectionKind::XY, Extent);
    EXPECT_NEAR(moved.X1, -7.5, 1e-9);
    EXPECT_NEAR(moved.Y1, 76, 1e-9);
}

TEST(WithoutEmptyAxis, OneUnitIsAddedAtTheFarEnd) {
    EXPECT_EQ(WithoutEmptyAxis({3, 3, 0, 0}), (MapExtent{3, 4, 0, 1}));
    EXPECT_EQ(WithoutEmptyAxis({3, 5, -1, 0}), (MapExtent{3, 5, -1, 0}));
}

TEST(MakeTitleText, NamesComponentSectionPositionAndLayer) {
    EXPECT_EQ(MakeTitleText(SectionKind::XY, 1, "7.5", 2, "  <V>"), "EPSx  Section: X-Y  Z=7.5cm  Layer#=2  <V>");
    EXPECT_EQ(MakeTitleText(SectionKind::XY, 2, "0", 1, "  <V>"), "EPSz  Section: X-Y  Z=0cm  Layer#=1  <V>");
    EXPECT_EQ(MakeTitleText(SectionKind::XZ, 1, " 0.0 ", 2, "  <V>"), "EPSx  Section: X-Z  Y= 0.0 cm  <V>");
    EXPECT_EQ(MakeTitleText(SectionKind::XZ, 2, "", 0, "  <V>"), "EPSz  Section: X-Z  Y=cm  <V>");
    EXPECT_EQ(MakeTitleText(SectionKind::XY, 3, "0", 1, "  <V>"), "");
}

// X-Y: heights are negative, y runs upward. "I" is 6.5 pixels wide: 0.975 cm, half of it 0.4875. First axis: under the
// edge y0 = 10, at 10 - 0.5 * 1.95. Ticks at 10 + 0.75 * 1.95 and 70 + 0.25 * 1.95. "15.0" is 26 pixels, 3.9 cm.
// Second axis: "-" of 20 points is 13.5 pixels, 2.025 cm; its y is t + 0.6 * 4.05.
TEST(DrawPlotFrame, OnAnXYSectionTextsAreMovedWithNegativeHeights) {
    RecordingSurface surface(480, 480);
    ScaleTo(surface, SectionKind::XY);
    surface.Commands.clear();
    surface.FontItalic = true;
    DrawPlotFrame(surface, SectionKind::XY, Extent, Grey, false);
    const auto boxes = surface.Only(PlotCommand::Kind::Box);
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0], surface.Commands[0]);
    EXPECT_EQ(boxes[0].X1, 0);
    EXPECT_EQ(boxes[0].Y1, 70);
    EXPECT_EQ(boxes[0].X2, 60);
    EXPECT_EQ(boxes[0].Y2, 10);
    EXPECT_EQ(boxes[0].DrawWidth, 2);
    EXPECT_EQ(boxes[0].Ink, Grey);
    const double under = 10 - 0.5 * High10;
    const double low = 10 + 0.75 * High10;
    const double high = 70 + 0.25 * High10;
    ExpectPrints(surface.Only(PlotCommand::Kind::Print),
                 {{"0.0", 0 - 1.4625, under, FontPoints::Ten, false},
                  {"I", 15 - 0.4875, low, FontPoints::Ten, true},
                  {"I", 15 - 0.4875, high, FontPoints::Ten, true},
                  {"15.0", 15 - 1.95, under, FontPoints::Ten, false},
                  {"I", 30 - 0.4875, low, FontPoints::Ten, true},
                  {"I", 30 - 0.4875, high, FontPoints::Ten, true},
                  {"30.0", 30 - 1.95, under, FontPoints::Ten, false},
                  {"I", 45 - 0.4875, low, FontPoints::Ten, true},
                  {"I", 45 - 0.4875, high, FontPoints::Ten, true},
                  {"45.0", 45 - 1.95, under, FontPoints::Ten, false},
                  {"60.0", 60 - 1.95, under, FontPoints::Ten, false},
                  {"10.0", -1.25 * 3.9, 10 + 0.5 * High10, FontPoints::Ten, false},
                  {"-", 0, 25 + 0.6 * High20, FontPoints::Twenty, false},
                  {"-", 60 - 2.025, 25 + 0.6 * High20, FontPoints::Twenty, false},
                  {"25.0", -1.25 * 3.9, 25 + 0.5 * High10, FontPoints::Ten, false},
                  {"-", 0, 40 + 0.6 * High20, FontPoints::Twenty, false},
                  {"-", 60 - 2.025, 40 + 0.6 * High20, FontPoints::Twenty, false},
                  {"40.0", -1.25 * 3.9, 40 + 0.5 * High10, FontPoints::Ten, false},
                  {"-", 0, 55 + 0.6 * High20, FontPoints::Twenty, false},
                  {"-", 60 - 2.025, 55 + 0.6 * High20, FontPoints::Twenty, false},
                  {"55.0", -1.25 * 3.9, 55 + 0.5 * High10, FontPoints::Ten, false},
                  {"70.0", -1.25 * 3.9, 70 + 0.5 * High10, FontPoints::Ten, false}},
                 false);
    EXPECT_EQ(surface.DrawWidth, 1);
    EXPECT_EQ(surface.ForeColor, Grey);
}

// X-Z: heights are positive, y runs downward: numbers under the edge y1 = 70, ticks just inside both edges.
TEST(DrawPlotFrame, OnAnXZSectionTheNumbersStandUnderTheOtherEdge) {
    RecordingSurface surface(480, 480);
    ScaleTo(surface, SectionKind::XZ);
    surface.Commands.clear();
    DrawPlotFrame(surface, SectionKind::XZ, Extent, Grey, false);
    auto prints = surface.Only(PlotCommand::Kind::Print);
    ASSERT_EQ(prints.size(), 22u);
    prints.erase(prints.begin() + 4, prints.begin() + 11);
    prints.resize(8);
    ExpectPrints(prints,
                 {{"0.0", 0 - 1.4625, 70 + 0.5 * High10, FontPoints::Ten, false},
                  {"I", 15 - 0.4875, 10 - 0.25 * High10, FontPoints::Ten, true},
                  {"I", 15 - 0.4875, 70 - 0.75 * High10, FontPoints::Ten, true},
                  {"15.0", 15 - 1.95, 70 + 0.5 * High10, FontPoints::Ten, false},
                  {"10.0", -1.25 * 3.9, 10 - 0.5 * High10, FontPoints::Ten, false},
                  {"-", 0, 25 - 0.6 * High20, FontPoints::Twenty, false},
                  {"-", 60 - 2.025, 25 - 0.6 * High20, FontPoints::Twenty, false},
                  {"25.0", -1.25 * 3.9, 25 - 0.5 * High10, FontPoints::Ten, false}},
                 false);
}

TEST(DrawPlotFrame, StandsBareWhenAsked) {
    RecordingSurface surface(480, 480);
    DrawPlotFrame(surface, SectionKind::XY, Extent, Grey, true);
    EXPECT_EQ(surface.Commands.size(), 1u);
    EXPECT_EQ(surface.DrawWidth, 1);
}

// Quarters are added one after the other. Where the fourth sum exceeds the end by rounding, the last number is missing;
// where it falls short, the last position counts as an inner one and has its ticks too.
TEST(DrawPlotFrame, RepeatedAdditionMayLeaveOutTheLastNumber) {
    int missing = 0;
    for (int n = 1; n <= 300; ++n) {
        const double x0 = -0.01 * n;
        const double x1 = 0.07 * n;
        const double step = 0.25 * (x1 - x0);
        const double last = x0 + step + step + step + step;
        RecordingSurface surface(480, 480);
        DrawPlotFrame(surface, SectionKind::XZ, {x0, x1, 0, 1}, Grey, false);
        EXPECT_EQ(surface.Only(PlotCommand::Kind::Print).size(), last > x1 ? 21u : last < x1 ? 24u : 22u) << n;
        missing += last > x1 ? 1 : 0;
    }
    EXPECT_GT(missing, 0);
}

TEST(DrawPlotFrame, AnExtentTooSmallForItsDistanceFromZeroComesToAnEnd) {
    RecordingSurface surface(480, 480);
    DrawPlotFrame(surface, SectionKind::XY, {1e17, std::nextafter(1e17, 2e17), 1e17, 1e17}, Grey, false);
    EXPECT_LE(surface.Commands.size(), 30u);
}

// 10 characters of 6.5 pixels: 9.75 cm. X-Y: top 70, 1.1 * 1.95 above it.
TEST(DrawPlotTitle, EndsAtTheRightAboveTheTopEdge) {
    RecordingSurface surface(480, 480);
    ScaleTo(surface, SectionKind::XY);
    surface.FontItalic = true;
    DrawPlotTitle(surface, "0123456789", 60, 70, {1, 2, 3});
    ScaleTo(surface, SectionKind::XZ);
    DrawPlotTitle(surface, "0123456789", 60, 10, {1, 2, 3});
    const auto prints = surface.Only(PlotCommand::Kind::Print);
    ExpectPrints(prints,
                 {{"0123456789", 50.25, 70 + 1.1 * High10, FontPoints::Ten, true},
                  {"0123456789", 50.25, 10 - 1.1 * High10, FontPoints::Ten, true}},
                 false);
    EXPECT_EQ(prints[0].Ink, (Color{1, 2, 3}));
}

// Anchor: 400 of 7200 twips, 60 cm wide: 3.3333 from x0 and from the top edge. Lw = 60 * 0.586854 / 20 = 1.760562,
// Lh = 60 * 7.124464 / 20 = 21.373392, G = 60 * 0.1643192 / 20 = 0.4929576.
constexpr double Anchor = 400.0 / 7200 * 60;
constexpr double BarWidth = 1.760562;
constexpr double BarHeight = 21.373392;
constexpr double NumberX = Anchor + BarWidth + 0.4929576;

std::vector<PlotCommand> Legend(SectionKind kind, RecordingSurface& surface, const PlotGeometry& plot = Plot) {
    ScaleTo(surface, kind);
    surface.Commands.clear();
    DrawLegend(surface, kind, plot, Extent, -1e-4, 3e-4);
    return surface.Only(PlotCommand::Kind::Line);
}

TEST(DrawLegend, OnAnXYSectionTheBarRunsUpwardFromLowToHigh) {
    RecordingSurface surface(0, 0);
    const auto lines = Legend(SectionKind::XY, surface);
    const double top = 70 - Anchor;
    ASSERT_EQ(lines.size(), 2138u);  // 21.373392 / 0.01, and the first
    EXPECT_NEAR(lines[0].Y1, top - BarHeight, 1e-5);
    EXPECT_NEAR(lines[0].X1, Anchor, 1e-6);
    EXPECT_NEAR(lines[0].X2, Anchor + BarWidth, 1e-6);
    EXPECT_EQ(lines[0].Y1, lines[0].Y2);
    EXPECT_NEAR(lines[1].Y1, top - BarHeight + 0.01, 1e-5);
    EXPECT_NEAR(lines.back().Y1, top - BarHeight + 21.37, 1e-5);
    // A quarter up the bar the colour is that of 0: 534 * 0.01 = 5.34 of 21.373392, value -6.2E-08.
    EXPECT_EQ(lines[534].Ink, ColorSet(LinearInterpolate(5.34, 0, -1e-4, BarHeight, 3e-4), -1e-4, 3e-4));
    EXPECT_EQ(lines.back().Ink, ColorSet(3e-4 - 4e-4 * 0.003392 / BarHeight, -1e-4, 3e-4));
}

TEST(DrawLegend, OnAnXZSectionTheBarRunsDownwardFromHighToLow) {
    RecordingSurface surface(0, 0);
    const auto lines = Legend(SectionKind::XZ, surface);
    ASSERT_EQ(lines.size(), 2138u);
    EXPECT_NEAR(lines[0].Y1, 10 + Anchor, 1e-5);
    EXPECT_NEAR(lines.back().Y1, 10 + Anchor + 21.37, 1e-5);
    EXPECT_EQ(lines[2000].Ink, ColorSet(LinearInterpolate(20, 0, 3e-4, BarHeight, -1e-4), -1e-4, 3e-4));
}

// Three numbers: high at the top, low at the bottom, then the middle, which on X-Z stands at half of Ya + Lh, where Ya
// counts but once.
TEST(DrawLegend, NumbersStandBesideTheBar) {
    RecordingSurface xy(480, 480);
    Legend(SectionKind::XY, xy);
    const double top = 70 - Anchor;
    ExpectPrints(xy.Only(PlotCommand::Kind::Print),
                 {{"3.00E-4", NumberX, top + 0.4 * High10, FontPoints::Ten, true},
                  {"-1.00E-4", NumberX, top - BarHeight + 0.8 * High10, FontPoints::Ten, true},
                  {"1.00E-4", NumberX, top - 0.5 * BarHeight + 0.4 * High10, FontPoints::Ten, true}},
                 true);
    EXPECT_EQ(xy.ForeColor, (Color{255, 255, 255}));
    RecordingSurface xz(480, 480);
    Legend(SectionKind::XZ, xz);
    const double edge = 10 + Anchor;
    ExpectPrints(xz.Only(PlotCommand::Kind::Print),
                 {{"3.00E-4", NumberX, edge - 0.4 * High10, FontPoints::Ten, true},
                  {"-1.00E-4", NumberX, edge + BarHeight - 0.8 * High10, FontPoints::Ten, true},
                  {"1.00E-4", NumberX, 0.5 * (edge + BarHeight) - 0.4 * High10, FontPoints::Ten, true}},
                 true);
}

// A picture whose top is not 0 moves the anchor on X-Z, by design not on X-Y: 400 / 7200 there, 400 / 14400 here.
TEST(DrawLegend, ThePicturesTopCountsOnXZSectionsOnly) {
    const PlotGeometry moved{0, 7200, 7200, 7200};
    RecordingSurface surface(0, 0);
    auto lines = Legend(SectionKind::XY, surface, moved);
    EXPECT_NEAR(lines[0].Y1, 70 - Anchor - BarHeight, 1e-5);
    lines = Legend(SectionKind::XZ, surface, moved);
    EXPECT_NEAR(lines[0].Y1, 10 + Anchor / 2, 1e-5);
}

// Slope and intercept can put the value at an end of the bar an ulp beyond the range; the line is then black, not
// clamped.
TEST(DrawLegend, AnEndLineThatMissesTheRangeByAnUlpIsBlack) {
    for (int n = 1; n <= 500; ++n) {
        const double high = 1e-4 + 3.7e-7 * n;
        RecordingSurface surface(0, 0);
        DrawLegend(surface, SectionKind::XZ, Plot, Extent, -1.3e-4, high);
        const double ya = LinearInterpolate(400, 0, 10, 7200, 70);
        const double lh = 60 * 7.124464 / 20;
        const double atTop = LinearInterpolate(ya, ya + lh, -1.3e-4, ya, high);
        const Color first = surface.Only(PlotCommand::Kind::Line)[0].Ink;
        if (atTop > high) {
            EXPECT_EQ(first, (Color{0, 0, 0}));
            return;
        }
        EXPECT_EQ(first.Red, 255);
    }
    FAIL() << "no such range among the tried ones";
}

TEST(DrawLegend, WhatIsLeftOutIsNowhereInThePicture) {
    for (const SectionKind kind : {SectionKind::XY, SectionKind::XZ}) {
        RecordingSurface every(0, 0);
        Legend(kind, every);
        RecordingSurface some(480, 480);
        Legend(kind, some);
        PixelSurface all(480, 480);
        PixelSurface seen(480, 480);
        const auto replay = [&](PixelSurface& surface, const RecordingSurface& record) {
            ScaleTo(surface, kind);
            for (const PlotCommand& line : record.Only(PlotCommand::Kind::Line)) {
                surface.Line(line.X1, line.Y1, line.X2, line.Y2, line.Ink);
            }
        };
        replay(all, every);
        replay(seen, some);
        EXPECT_EQ(all.Pixels, seen.Pixels);
        EXPECT_LE(some.Commands.size(), 2u * 145 + 3);  // 21.37 cm are 143 pixels
        EXPECT_LT(some.Commands.size(), every.Commands.size() / 5);
    }
}

TEST(DrawLegend, ComesToAnEndWhateverTheExtent) {
    for (const double width : {1e9, 1e30}) {
        RecordingSurface surface(48, 48);
        surface.Scale(0, 0, static_cast<float>(width), static_cast<float>(width));
        surface.Commands.clear();
        DrawLegend(surface, SectionKind::XZ, Plot, {0, width, 0, width}, 0, 1);
        EXPECT_LE(surface.Commands.size(), 50u);
        EXPECT_GE(surface.Commands.size(), 20u);
    }
    RecordingSurface surface(0, 0);
    DrawLegend(surface, SectionKind::XY, Plot, {0, 1, 1e17, std::nextafter(1e17, 2e17)}, 0, 1);
    EXPECT_LE(surface.Commands.size(), 5u);
}

}  // namespace
}  // namespace zirvo
