// The bytes of the analysis input file.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "base/fault_of.h"
#include "pavement/analysis_input.h"
#include "pavement/read_bytes.h"
#include "pavement/support.h"
#include "platform/files.h"
#include "platform/in_child.h"
#include "text/catalogue.h"

namespace zirvo {
namespace {

using test::ExampleModel;

std::vector<std::string> LinesOf(const std::string& bytes) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t end = bytes.find("\r\n", at);
        EXPECT_NE(end, std::string::npos) << "a line without an end";
        lines.push_back(bytes.substr(at, end - at));
        at = end + 2;
    }
    return lines;
}

TEST(WriteAnalysisInput, TheExampleInEnglishIsItsBytes) {
    EXPECT_EQ(WriteAnalysisInput(ExampleModel(), UnitSystem::KnToMPa, EnglishBase), test::ExampleFile());
}

// Two layers, two loads, two points in kgf. The bytes of the headings are those of the code page's table, character by
// character: 0x83 0x5C is the full-width katakana SO, whose second byte is a backslash; 0xCC 0xA7 0xB2 0xD9 are the
// four half-width katakana of "file"; 0x81 0x40 is the ideographic space.
TEST(WriteAnalysisInput, AnExampleInJapaneseIsItsBytes) {
    PavementModel model;
    model.LayerCount = 2;
    model.LoadCount = 2;
    model.PointCount = 2;
    model.Layers[1] = {50000, 0.35, 12.5, 0.99};
    model.Layers[2] = {800, 0.5, 0, 0};
    model.Loads[1] = {5000, 15, -16, 0, 0, 0};
    model.Loads[2] = {-2500.5, 11.3, 16, 1e15, 120, 45};
    model.Points[1] = {1, 0, 0, 12.5};
    model.Points[2] = {2, -100.25, 0.00001, 12.5};
    model.ResultFileName = "舗装.bre";
    model.PrincipalFileName = "舗装.san";
    const std::string expected =
        "\x8F\x6F\x97\xCD\xCC\xA7\xB2\xD9\x96\xBC\r\n"
        "\x95\xDC\x91\x95.bre\r\n"
        "\x95\xDC\x91\x95.san\r\n"
        "\r\n"
        "\x91\x77\x90\x94\x81\x40\x81\x40\x8D\xDA\x89\xD7\x93\x5F\x90\x94\x81\x40\x81\x40\x92\x85\x96\xDA\x93\x5F\x90"
        "\x94"
        "\r\n"
        "  2         2          2\r\n"
        "\r\n"
        "\x91\x77\x93\xC1\x90\xAB\r\n"
        "\x92\x65\x90\xAB\x8C\x57\x90\x94(kgf/cm2)\x81\x40   \x83\x7C\x83\x41\x83\x5C\x83\x93\x94\xE4\x81\x40   "
        "\x81\x40"
        "\x91\x77\x8C\xFA(cm)\x81\x40    \x91\x77\x8A\xD4\x82\xB7\x82\xD7\x82\xE8\x97\xA6\r\n"
        "        50000             0.35             12.5            0.99\r\n"
        "          800              0.5\r\n"
        "\r\n"
        "\x8D\xDA\x89\xD7\x93\x5F\r\n"
        "\x89\x94\x92\xBC\x89\xD7\x8F\x64(kgf)      \x94\xBC\x8C\x61(cm)       X-\x8D\xC0\x95\x57(cm)      "
        "Y-\x8D\xC0\x95"
        "\x57(cm)     \x90\x85\x95\xBD\x89\xD7\x8F\x64(kgf)   X-\x8E\xB2\x82\xC6\x82\xCC\x8A\x70\x93\x78(deg) \r\n"
        "      5000               15              -16               0              0                  0\r\n"
        "   -2500.5             11.3               16           1E+15            120                 45\r\n"
        "\r\n"
        "\x92\x85\x96\xDA\x93\x5F\r\n"
        "\x91\x77\x94\xD4\x8D\x86\x81\x40     X-\x8D\xC0\x95\x57(cm)   Y-\x8D\xC0\x95\x57(cm)   "
        "Z-\x8D\xC0\x95\x57(cm)\r\n"
        "    1               0            0         12.5\r\n"
        "    2         -100.25      0.00001         12.5\r\n";
    EXPECT_EQ(WriteAnalysisInput(model, UnitSystem::KgfToMPa, JapaneseBase), expected);
    EXPECT_EQ(WriteAnalysisInput(model, UnitSystem::KgfToKgf, JapaneseBase), expected);
}

TEST(WriteAnalysisInput, HasOneLineForEachRowAndFifteenMore) {
    for (const auto& [layers, loads, points] : {std::array<Int16, 3>{1, 1, 1}, {2, 3, 5}, {100, 100, 10000}}) {
        PavementModel model = ExampleModel();
        model.LayerCount = layers;
        model.LoadCount = loads;
        model.PointCount = points;
        const auto lines = LinesOf(WriteAnalysisInput(model, UnitSystem::KgfToKgf, EnglishBase));
        EXPECT_EQ(lines.size(), static_cast<std::size_t>(layers + loads + points + 15));
    }
}

TEST(WriteAnalysisInput, TheOnlyLayerHasTwoFieldsOnLineTen) {
    PavementModel model = ExampleModel();
    model.LayerCount = 1;
    const auto lines = LinesOf(WriteAnalysisInput(model, UnitSystem::KnToMPa, EnglishBase));
    EXPECT_EQ(lines[9], "        35000             0.35");
    EXPECT_EQ(lines[10], "");
}

TEST(WriteAnalysisInput, TheLargestCountsFillTheirColumns) {
    PavementModel model = ExampleModel();
    model.LayerCount = 100;
    model.LoadCount = 100;
    model.PointCount = 10000;
    const auto lines = LinesOf(WriteAnalysisInput(model, UnitSystem::KnToMPa, EnglishBase));
    EXPECT_EQ(lines[5], "100       100      10000");
}

TEST(WriteAnalysisInput, HeadingsFollowUnitsAndKeepTheirBlanks) {
    const auto kgf = LinesOf(WriteAnalysisInput(ExampleModel(), UnitSystem::KgfToMPa, EnglishBase));
    EXPECT_EQ(kgf[8],
              "MODULUS(kgf/cm2)\x81\x40   \x81\x40\x81\x40   MU\x81\x40       THICKNESS(cm)\x81\x40   SLIP RATE");
    EXPECT_EQ(kgf[13],
              "VERT. LOAD(kgf)   RADIUS(cm)      X-AXIS(cm)      Y-AXIS(cm)     HORIZ. LOAD(kgf)    ANGLE FROM X(deg)");
    const auto japanese = LinesOf(WriteAnalysisInput(ExampleModel(), UnitSystem::KgfToKgf, JapaneseBase));
    EXPECT_EQ(japanese[13].back(), ' ');  // this heading ends in a blank
    const auto kn = LinesOf(WriteAnalysisInput(ExampleModel(), UnitSystem::KnToMPa, EnglishBase));
    EXPECT_EQ(kn[8].front(), ' ');  // and this one begins with one
}

TEST(WriteAnalysisInput, WithoutUnitsOrLanguageTheHeadingLinesAreEmptyAndTheFileStillReads) {
    const std::string noUnits = WriteAnalysisInput(ExampleModel(), UnitSystem::None, EnglishBase);
    const auto lines = LinesOf(noUnits);
    EXPECT_EQ(lines[8], "");
    EXPECT_EQ(lines[13], "");
    EXPECT_EQ(lines[12], "LOAD POINT");
    EXPECT_EQ(*ReadAnalysis(noUnits), ExampleModel());
    const std::string noLanguage = WriteAnalysisInput(ExampleModel(), UnitSystem::KnToMPa, 0);
    EXPECT_EQ(LinesOf(noLanguage)[0], "");
    EXPECT_EQ(*ReadAnalysis(noLanguage), ExampleModel());
}

// A Poisson ratio of 15 threes needs 17 columns, all that its field has. This is a flaw of the format and kept: the
// solver is built against it.
TEST(WriteAnalysisInput, AValueThatFillsItsWidthTouchesTheOneBeforeIt) {
    PavementModel model = ExampleModel();
    model.Layers[1].PoissonRatio = 0.333333333333333;
    const std::string bytes = WriteAnalysisInput(model, UnitSystem::KnToMPa, EnglishBase);
    EXPECT_EQ(LinesOf(bytes)[9], "        350000.333333333333333                5               0");
    EXPECT_FALSE(ReadAnalysis(bytes).Passed());
}

TEST(WriteAnalysisInput, AValueLongerThanItsWidthStaysWhole) {
    PavementModel model = ExampleModel();
    model.Points[1].PointY = -123456.789012345;
    EXPECT_EQ(LinesOf(WriteAnalysisInput(model, UnitSystem::KnToMPa, EnglishBase))[18],
              "    1               0-123456.789012345            5");
}

TEST(WriteAnalysisInput, ANameThatTheCodePageCannotHoldIsWrittenAsUtf8AndReadBack) {
    PavementModel model = ExampleModel();
    model.ResultFileName = "Straße.bre";
    const std::string bytes = WriteAnalysisInput(model, UnitSystem::KnToMPa, EnglishBase);
    EXPECT_EQ(LinesOf(bytes)[1],
              "Stra\xC3\x9F"
              "e.bre");
    EXPECT_EQ(*ReadAnalysis(bytes), model);
}

TEST(WriteAnalysisInput, ReadingAndWritingAgainGivesTheSameBytes) {
    PavementModel model = ExampleModel();
    model.LayerCount = 3;
    model.LoadCount = 2;
    model.PointCount = 4;
    model.Layers[1] = {1.0 / 3, 0.5, 1e-7, 0.99};
    model.Layers[2] = {1e20, 0.123456789, 10, 1e-9};
    model.Layers[3] = {1.7976931348623157e308, 1e-300, 0, 0};
    model.Loads[1] = {-1e-5, 15.25, -1e9, 123.456, 0, 360};
    model.Loads[2] = {0, 1e-3, 0, 0, -7, -45.5};
    model.Points[1] = {0, 1, 2, 0};
    model.Points[2] = {1, -0.0, 0.1, 1e-7};
    model.Points[3] = {3, 1e5, -1e5, 10.0000001};
    model.Points[4] = {2, 1, 1, 5};
    for (const UnitSystem units : {UnitSystem::KgfToKgf, UnitSystem::KgfToMPa, UnitSystem::KnToMPa}) {
        for (const Int16 base : {JapaneseBase, EnglishBase}) {
            const std::string bytes = WriteAnalysisInput(model, units, base);
            const AnalysisInputResult result = ReadAnalysis(bytes);
            ASSERT_TRUE(result.Passed()) << FindingText(result.Failure().First);
            EXPECT_EQ(WriteAnalysisInput(*result, units, base), bytes);
        }
    }
}

TEST(WriteAnalysisInput, AFullModelIsReadBackAsItIs) {
    PavementModel model = ExampleModel();
    model.LayerCount = 100;
    model.LoadCount = 100;
    model.PointCount = 10000;
    for (int i = 1; i <= 100; ++i) {
        model.Layers[i] = {1000.0 + i, 0.35, 2, 0.5};
        model.Loads[i] = {25, 8.5, i * 3.0, -i * 4.0, 5, i * 4.5};
    }
    model.Layers[100].Thickness = 0;
    model.Layers[100].SlipRate = 0;
    for (int i = 1; i <= 10000; ++i) {
        model.Points[i] = {static_cast<Int16>(1 + i % 100), i * 0.5, i * -0.25, (i % 100) * 2.0};
    }
    const AnalysisInputResult result = ReadAnalysis(WriteAnalysisInput(model, UnitSystem::KnToMPa, JapaneseBase));
    ASSERT_TRUE(result.Passed()) << FindingText(result.Failure().First);
    EXPECT_EQ(*result, model);
}

TEST(WriteAnalysisInput, ACountBeyondTheBoundsIsFaultNine) {
    PavementModel model = ExampleModel();
    model.LayerCount = 101;
    EXPECT_EQ(FaultOf([&] { WriteAnalysisInput(model, UnitSystem::KnToMPa, EnglishBase); }), 9);
}

TEST(SavingTheInput, OnAFullDiskIsFaultSixtyOneAndTheOldFileStaysWhole) {
    const test::WorkFolder folder;
    test::PutFile("run.eva", "the old file");
    const std::string bytes = WriteAnalysisInput(ExampleModel(), UnitSystem::KnToMPa, EnglishBase);
    EXPECT_EQ(FaultWithFilesLimitedTo(100, [&] { WriteWholeFile("run.eva", bytes); }), 61);
    EXPECT_EQ(test::GetFile("run.eva"), "the old file");
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"run.eva"});
}

}  // namespace
}  // namespace zirvo
