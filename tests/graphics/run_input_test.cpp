// The solver's input of a section, byte for byte, and the tests that stand before and behind it.
#include "graphics/run_input.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "base/fault_of.h"
#include "pavement/analysis_input.h"
#include "pavement/graphics_example.h"
#include "platform/in_child.h"
#include "text/catalogue.h"

namespace zirvo {
namespace {

using test::CrLfLines;
using test::ExampleData;
using Lines = std::vector<std::string>;

SectionDefinition XY(double depth, Int16 layer) {
    return {ComponentEpsX, SectionKind::XY, depth, layer};
}

SectionDefinition XZ(double y) {
    return {ComponentEpsX, SectionKind::XZ, y, 0};
}

Lines Written(const GraphicsInputData& data, const SectionDefinition& section, UnitSystem units = UnitSystem::KgfToKgf,
              Int16 base = EnglishBase) {
    return CrLfLines(WriteGraphicsRunInput(data, section, BuildSectionGrid(data, section.Kind), units, base));
}

GraphicsInputData WithThickness(double thickness) {
    GraphicsInputData data = ExampleData();
    data.Layers[1].Thickness = thickness;
    return data;
}

bool DepthsPass(double thickness, SectionKind kind = SectionKind::XZ) {
    const GraphicsInputData data = WithThickness(thickness);
    return ValidateSectionDepths(data, kind, BuildSectionGrid(data, kind));
}

/// Loads in a row, far enough from each other that none of their edges coincide.
GraphicsInputData WithLoads(Int16 count) {
    GraphicsInputData data = ExampleData();
    data.LoadCount = count;
    for (int i = 1; i <= count; ++i) {
        data.Loads[i] = {25, 10, i * 100.0, i * 100.0, 0, 0};
    }
    return data;
}

TEST(WriteGraphicsRunInput, AnXYSectionComesOutByteForByte) {
    const Lines lines = Written(ExampleData(), XY(2.5, 1));
    ASSERT_EQ(lines.size(), 2U + 1 + 625 + 14);
    EXPECT_EQ(
        Lines(lines.begin(), lines.begin() + 18),
        (Lines{"OUTPUT FILENAME", "ZIRVO_SV.BRE", "",
               "LAYERS  \x81\x40"
               "LOADS     POINTS",
               "  2         1        625", "", "LAYER PROPERTIES",
               "MODULUS(kgf/cm2)\x81\x40   \x81\x40\x81\x40   MU\x81\x40       THICKNESS(cm)\x81\x40   SLIP RATE",
               "        35000             0.35                5               0", "         1000              0.4", "",
               "LOAD POINT",
               "VERT. LOAD(kgf)   RADIUS(cm)      X-AXIS(cm)      Y-AXIS(cm)     HORIZ. LOAD(kgf)    ANGLE FROM X(deg)",
               // 10, 15, 15, 15, 15 and 19 columns.
               "      5000             15              0              0              0                  0", "",
               "POINT OF INTEREST", "LAYER NO.   X-AXIS(cm)   Y-AXIS(cm)   Z-AXIS(cm)",
               "    1             -35          -35          2.5"}));
    // Y outer, X inner, both ascending; positions of four decimals stand with two.
    EXPECT_EQ(lines[18], "    1          -31.67          -35          2.5");
    EXPECT_EQ(lines[17 + 24], "    1              35          -35          2.5");
    EXPECT_EQ(lines[17 + 25], "    1             -35       -31.67          2.5");
    EXPECT_EQ(lines.back(), "    1              35           35          2.5");
}

TEST(WriteGraphicsRunInput, AnXZSectionComesOutByteForByte) {
    const Lines lines = Written(ExampleData(), XZ(-1.23456), UnitSystem::KnToMPa);
    ASSERT_EQ(lines.size(), 2U + 1 + 350 + 14);
    EXPECT_EQ(lines[4], "  2       1        350") << "3, 8 and 11 columns";
    EXPECT_EQ(lines[7],
              " MODULUS(MPa)\x81\x40      \x81\x40\x81\x40   MU  \x81\x40      THICKNESS(cm)\x81\x40  SLIP RATE");
    // Layer outer, level inner, X innermost; the plane's position stands unrounded.
    EXPECT_EQ(lines[17], "    1             -35     -1.23456            0");
    EXPECT_EQ(lines[18], "    1          -31.67     -1.23456            0");
    EXPECT_EQ(lines[17 + 25], "    1             -35     -1.23456         0.83");
    // The interface at 5 cm: the bottom of layer 1 and the top of layer 2.
    EXPECT_EQ(lines[17 + 6 * 25], "    1             -35     -1.23456            5");
    EXPECT_EQ(lines[17 + 7 * 25], "    2             -35     -1.23456            5");
    EXPECT_EQ(lines.back(), "    2              35     -1.23456           10");
}

TEST(WriteGraphicsRunInput, InAnXYSectionAllPointsHaveOneLayerAndOneDepth) {
    const Lines lines = Written(ExampleData(), XY(-1.0 / 3, 2));
    for (std::size_t i = 17; i < lines.size(); ++i) {
        EXPECT_EQ(lines[i].substr(0, 5), "    2");
        EXPECT_EQ(lines[i].substr(34), "-0.333333333333333") << "unrounded, and longer than its column";
    }
}

TEST(WriteGraphicsRunInput, HeadingsFollowLanguageAndUnits) {
    const Lines japanese = Written(ExampleData(), XZ(0), UnitSystem::KnToMPa, JapaneseBase);
    const std::string whole = WriteAnalysisInput(test::ExampleModel(), UnitSystem::KnToMPa, JapaneseBase);
    const Lines analysis = CrLfLines(whole);
    EXPECT_EQ(japanese[0], analysis[0]);
    for (const std::size_t heading : {3U, 6U, 7U, 11U, 12U, 15U, 16U}) {
        EXPECT_EQ(japanese[heading], analysis[heading + 1]) << heading;
    }
    const Lines none = Written(ExampleData(), XZ(0), UnitSystem::None);
    EXPECT_EQ(none[7], "");
    EXPECT_EQ(none[12], "");
}

TEST(WriteGraphicsRunInput, CountsAboveSixteenBitsStandInTheFile) {
    // Ten loads: gaps 20, then nine times (10, 10, 80), 10, 10, 20, so 6 * 31 + 1 positions on each axis.
    const Lines lines = Written(WithLoads(10), XY(0, 1));
    EXPECT_EQ(lines[4], "  2        10      34969");
    EXPECT_EQ(lines.size(), 17U + 9 + 34969);
}

TEST(WriteGraphicsRunInput, MorePointsThanTheLimitAreFaultNine) {
    EXPECT_EQ(FaultOf([] { Written(WithLoads(18), XY(0, 1)); }), 9);
    EXPECT_EQ(
        FaultOf([] {
            WriteGraphicsRunInput(ExampleData(), {1, SectionKind::YZ, 0, 0}, {}, UnitSystem::KnToMPa, EnglishBase);
        }),
        5);
}

TEST(ValidateSectionDepths, FailsWhereTwoDecimalsLiftTheTopOfTheLastLayer) {
    EXPECT_TRUE(DepthsPass(5));
    EXPECT_TRUE(DepthsPass(5.55));
    EXPECT_TRUE(DepthsPass(5.555)) << "goes to 5.56, down into the layer";
    EXPECT_FALSE(DepthsPass(10.0049)) << "goes to 10, up out of the layer";
    EXPECT_FALSE(DepthsPass(5.554));
    // Four decimals swallow the first of these whole, and what is lost is below the tolerance.
    EXPECT_TRUE(DepthsPass(5 + 0.9e-10));
    EXPECT_FALSE(DepthsPass(5 + 2e-10));
}

TEST(ValidateSectionDepths, OnlyTheLastLayerIsTested) {
    GraphicsInputData data = ExampleData();
    data.LayerCount = 3;
    // The top of layer 2 goes from 10.0049 to 10 and would fail; that of layer 3 is 20 exactly.
    data.Layers[1] = {1000, 0.35, 10.0049, 0};
    data.Layers[2] = {1000, 0.35, 9.9951, 0};
    data.Layers[3] = {1000, 0.35, 0, 0};
    EXPECT_TRUE(ValidateSectionDepths(data, SectionKind::XZ, BuildSectionGrid(data, SectionKind::XZ)));
    data.LayerCount = 1;
    EXPECT_TRUE(ValidateSectionDepths(data, SectionKind::XZ, BuildSectionGrid(data, SectionKind::XZ)));
}

TEST(ValidateSectionDepths, AnXYSectionPassesWhateverItsDepthIs) {
    EXPECT_TRUE(DepthsPass(10.0049, SectionKind::XY));
}

TEST(ValidateSectionDepths, AHundredLayersAreTested) {
    GraphicsInputData data = ExampleData();
    data.LayerCount = 100;
    for (int i = 1; i <= 100; ++i) {
        data.Layers[i] = {1000, 0.35, i < 100 ? 2.0 : 0.0, 0};
    }
    EXPECT_TRUE(ValidateSectionDepths(data, SectionKind::XZ, BuildSectionGrid(data, SectionKind::XZ)));
    data.Layers[99].Thickness = 2.004;
    EXPECT_FALSE(ValidateSectionDepths(data, SectionKind::XZ, BuildSectionGrid(data, SectionKind::XZ)));
}

TEST(PrepareSectionInput, WritesTheFileAndGivesItsGrid) {
    const test::WorkFolder folder;
    test::PutFile("ZIRVO_SV.EVA", std::string(1 << 20, 'x'));
    const SectionInput input = PrepareSectionInput(ExampleData(), XY(2.5, 1), UnitSystem::KgfToKgf, EnglishBase);
    EXPECT_EQ(input.Status, SectionInputStatus::Written);
    EXPECT_EQ(input.PointCount, 625);
    EXPECT_EQ(input.Grid.GridCountX(), 25);
    EXPECT_EQ(test::GetFile("ZIRVO_SV.EVA"),
              WriteGraphicsRunInput(ExampleData(), XY(2.5, 1), input.Grid, UnitSystem::KgfToKgf, EnglishBase));
    EXPECT_EQ(folder.Names(), Lines{"ZIRVO_SV.EVA"});
}

// Eighteen loads: 6 * (3 * 18 + 1) + 1 = 331 positions on each axis, 109561 points. Seventeen: 313, 97969 points.
TEST(PrepareSectionInput, TooManyPointsWriteNothing) {
    const test::WorkFolder folder;
    test::PutFile("ZIRVO_SV.EVA", "the earlier one");
    EXPECT_EQ(PrepareSectionInput(WithLoads(18), XY(0, 1), UnitSystem::KgfToKgf, EnglishBase).Status,
              SectionInputStatus::TooManyPoints);
    EXPECT_EQ(test::GetFile("ZIRVO_SV.EVA"), "the earlier one");
    EXPECT_EQ(PrepareSectionInput(WithLoads(17), XY(0, 1), UnitSystem::KgfToKgf, EnglishBase).PointCount, 97969);
}

TEST(PrepareSectionInput, AfterAFailedDepthTestTheFileStandsComplete) {
    const test::WorkFolder folder;
    const GraphicsInputData data = WithThickness(10.0049);
    const SectionInput input = PrepareSectionInput(data, XZ(0), UnitSystem::KgfToKgf, EnglishBase);
    EXPECT_EQ(input.Status, SectionInputStatus::DepthInvalid);
    EXPECT_EQ(test::GetFile("ZIRVO_SV.EVA"),
              WriteGraphicsRunInput(data, XZ(0), input.Grid, UnitSystem::KgfToKgf, EnglishBase));
}

TEST(PrepareSectionInput, AFileThatCannotBeWrittenIsAFaultAndTheOldOneStaysWhole) {
    const test::WorkFolder folder;
    test::PutFile("ZIRVO_SV.EVA", "the earlier one");
    EXPECT_EQ(FaultWithFilesLimitedTo(
                  100, [] { PrepareSectionInput(ExampleData(), XZ(0), UnitSystem::KgfToKgf, EnglishBase); }),
              61);
    EXPECT_EQ(test::GetFile("ZIRVO_SV.EVA"), "the earlier one");
    std::filesystem::remove("ZIRVO_SV.EVA");
    std::filesystem::create_directory("ZIRVO_SV.EVA");
    EXPECT_EQ(FaultOf([] { PrepareSectionInput(ExampleData(), XZ(0), UnitSystem::KgfToKgf, EnglishBase); }), 75);
}

}  // namespace
}  // namespace zirvo
