// The road from a pavement to the comma file with ZIRVO_SV22.exe itself, in both languages and all three units.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>

#include "base/fault_of.h"
#include "graphics/result_conversion.h"
#include "graphics/run_input.h"
#include "graphics/section_run.h"
#include "pavement/graphics_example.h"
#include "text/catalogue.h"

namespace zirvo {
namespace {

using test::CrLfLines;
using test::GetFile;
using Lines = std::vector<std::string>;

struct Road {
    SectionDefinition Section;
    UnitSystem Units = UnitSystem::KgfToKgf;
    Int16 Base = EnglishBase;

    SectionInput Prepare(const GraphicsInputData& data) const {
        return PrepareSectionInput(data, Section, Units, Base);
    }
    void Solve() const {
        EXPECT_EQ(RunGraphicsSolver({LanguageNumberOf(Base), Units, ZIRVO_BIN}, *MakeProcessService(), {}),
                  GraphicsRunResult::Finished);
    }
    ConversionRequest Conversion(const GraphicsInputData& data, const SectionInput& input) const {
        return {SectionReportName, SectionCsvName,   LanguageNumberOf(Base), Units,
                data.LayerCount,   input.PointCount, Section.OutputComponent};
    }
};

/// The four numbers of a line of the comma file.
std::array<double, 4> Numbers(const std::string& line) {
    std::array<double, 4> numbers{};
    EXPECT_EQ(std::sscanf(line.c_str(), "%lf , %lf , %lf , %lf", &numbers[0], &numbers[1], &numbers[2], &numbers[3]), 4)
        << line;
    return numbers;
}

TEST(SectionRoad, LeavesItsThreeFilesInEveryLanguageAndUnit) {
    const GraphicsInputData data = test::ExampleData();
    for (const Int16 base : {JapaneseBase, EnglishBase}) {
        for (const UnitSystem units : {UnitSystem::KgfToKgf, UnitSystem::KgfToMPa, UnitSystem::KnToMPa}) {
            const test::WorkFolder folder;
            Road road{{ComponentEpsX, SectionKind::XY, 5, 1}, units, base};
            const SectionInput input = road.Prepare(data);
            road.Solve();
            EXPECT_EQ(folder.Names(), (Lines{"ZIRVO_SV.BRE", "ZIRVO_SV.EVA"}));
            ConvertResultsToCsv(road.Conversion(data, input));
            EXPECT_EQ(folder.Names(), (Lines{"ZIRVO_SV.BRE", "ZIRVO_SV.CSV", "ZIRVO_SV.EVA"}));
            const Lines epsX = CrLfLines(GetFile("ZIRVO_SV.CSV"));
            ASSERT_EQ(epsX.size(), 628U);
            EXPECT_EQ(CrLfLines(GetFile("ZIRVO_SV.BRE"))[0], "   <ZIRVO Ver2.3>");
            // RE-DRAW with the other component reads the stamped report.
            road.Section.OutputComponent = ComponentEpsZ;
            ConvertResultsToCsv(road.Conversion(data, input));
            const Lines epsZ = CrLfLines(GetFile("ZIRVO_SV.CSV"));
            ASSERT_EQ(epsZ.size(), 628U);
            // Point 313 of 625 is the middle one, at 0, 0: tension below the asphalt, shortening along the depth.
            EXPECT_EQ(epsX[315].substr(0, 13), " 0 , 0 , 5 , ");
            EXPECT_GT(Numbers(epsX[315])[3], 0);
            EXPECT_EQ(epsZ[315].substr(0, 12), " 0 , 0 , 5 ,");
            EXPECT_LT(Numbers(epsZ[315])[3], 0);
            EXPECT_EQ(epsZ[3].substr(0, 14), "-35 ,-35 , 5 ,");
        }
    }
}

TEST(SectionRoad, AnInterfaceOfAnXZSectionHasBothStrains) {
    const test::WorkFolder folder;
    const GraphicsInputData data = test::ExampleData();
    const Road road{{ComponentEpsZ, SectionKind::XZ, 0, 0}};
    const SectionInput input = road.Prepare(data);
    EXPECT_EQ(input.PointCount, 350);
    road.Solve();
    ConvertResultsToCsv(road.Conversion(data, input));
    const Lines lines = CrLfLines(GetFile("ZIRVO_SV.CSV"));
    ASSERT_EQ(lines.size(), 353U);
    // X = 0 is position 13; the interface is level 7 (in the asphalt) and level 8 (in the ground).
    const auto above = Numbers(lines[3 + 6 * 25 + 12]);
    const auto below = Numbers(lines[3 + 7 * 25 + 12]);
    EXPECT_EQ(above[0], 0);
    EXPECT_EQ(above[2], 5);
    EXPECT_EQ(below[2], 5);
    EXPECT_LT(below[3], 2 * above[3]) << "the softer ground is shortened much more";
}

// By hand, half-space of 1000 kgf/cm2 and nu 0.4 under 5000 kgf on radius 15: p = 5000 / (225 pi) = 7.0736 kgf/cm2;
// EPSz at the surface under the middle is -(1 + nu)(1 - 2 nu) p / E = -1.4 * 0.2 * 7.0736 / 1000 = -1980.6 micro.
TEST(SectionRoad, TheMiddleOfAHalfSpaceHasTheHandComputedStrain) {
    const test::WorkFolder folder;
    GraphicsInputData data = test::ExampleData();
    data.LayerCount = 1;
    data.Layers[1] = {1000, 0.4, 0, 0};
    const Road road{{ComponentEpsZ, SectionKind::XY, -3, 1}};
    const SectionInput input = road.Prepare(data);
    road.Solve();
    ConvertResultsToCsv(road.Conversion(data, input));
    const auto middle = Numbers(CrLfLines(GetFile("ZIRVO_SV.CSV"))[315]);
    EXPECT_EQ(middle[2], 0) << "a negative depth is the surface";
    EXPECT_NEAR(middle[3], -1.4 * 0.2 * 5000 / (225 * 3.14159265358979) / 1000 * 1e6, 1e-5);
}

TEST(SectionRoad, WithoutASolverAStaleReportIsShownAsNewAndAMissingOneIsAFault) {
    const test::WorkFolder folder;
    const GraphicsInputData data = test::ExampleData();
    const Road road{{ComponentEpsX, SectionKind::XY, 5, 1}};
    const SectionInput input = road.Prepare(data);
    const GraphicsRunRequest nowhere{2, UnitSystem::KgfToKgf, folder.Path()};
    RunGraphicsSolver(nowhere, *MakeProcessService(), {});
    EXPECT_EQ(FaultOf([&] { ConvertResultsToCsv(road.Conversion(data, input)); }), 53);
    road.Solve();
    const std::string report = GetFile("ZIRVO_SV.BRE");
    RunGraphicsSolver(nowhere, *MakeProcessService(), {});
    EXPECT_EQ(GetFile("ZIRVO_SV.BRE"), report);
    ConvertResultsToCsv(road.Conversion(data, input));
    EXPECT_EQ(CrLfLines(GetFile("ZIRVO_SV.CSV")).size(), 628U);
}

TEST(SectionRoad, TwoRunsReplaceAllThreeFilesWithoutAQuestion) {
    const test::WorkFolder folder;
    const GraphicsInputData data = test::ExampleData();
    const Road road{{ComponentEpsX, SectionKind::XZ, 0, 0}};
    Lines first;
    for (int run = 1; run <= 2; ++run) {
        const SectionInput input = road.Prepare(data);
        road.Solve();
        ConvertResultsToCsv(road.Conversion(data, input));
        const Lines files{GetFile("ZIRVO_SV.EVA"), GetFile("ZIRVO_SV.BRE"), GetFile("ZIRVO_SV.CSV")};
        EXPECT_TRUE(first.empty() || files == first) << "stamped once only, since the solver wrote it anew";
        first = files;
    }
}

// A load of 49 kN, layers of 0.0005 cm, loads in one place: odd, but the solver takes them.
TEST(SectionRoad, ThinLayersAndCoincidingLoadsAreSolved) {
    const test::WorkFolder folder;
    GraphicsInputData data = test::ExampleData();
    data.LayerCount = 3;
    data.LoadCount = 2;
    data.Layers[1] = {5000, 0.35, 10, 0};
    data.Layers[2] = {1000, 0.35, 0.0005, 0};
    data.Layers[3] = {100, 0.4, 0, 0};
    data.Loads[2] = data.Loads[1];
    const Road road{{ComponentEpsX, SectionKind::XZ, 0, 0}};
    const SectionInput input = road.Prepare(data);
    EXPECT_EQ(input.PointCount, 25 * 21);
    road.Solve();
    ConvertResultsToCsv(road.Conversion(data, input));
    EXPECT_EQ(CrLfLines(GetFile("ZIRVO_SV.CSV")).size(), 3U + 25 * 21);
}

}  // namespace
}  // namespace zirvo
