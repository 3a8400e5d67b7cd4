// Writing the graphics input file, byte for byte.
#include <gtest/gtest.h>

#include <array>
#include <sstream>

#include "base/fault_of.h"
#include "pavement/analysis_input.h"
#include "pavement/graphics_example.h"
#include "pavement/graphics_input.h"
#include "pavement/read_bytes.h"
#include "platform/files.h"
#include "platform/in_child.h"
#include "text/catalogue.h"

namespace zirvo {
namespace {

using test::CrLfLines;
using test::ExampleData;
using test::ExampleVen;

std::vector<std::string> Written(const GraphicsInputData& data, UnitSystem units = UnitSystem::KgfToKgf,
                                 Int16 base = EnglishBase) {
    return CrLfLines(WriteGraphicsInput(data, units, base));
}

TEST(WriteGraphicsInput, TheExampleComesOutByteForByte) {
    EXPECT_EQ(WriteGraphicsInput(ExampleData(), UnitSystem::KgfToKgf, EnglishBase), ExampleVen());
    EXPECT_EQ(WriteGraphicsInput(ExampleData(), UnitSystem::KgfToMPa, EnglishBase), ExampleVen());
}

TEST(WriteGraphicsInput, HasEightLinesMoreThanLayersAndLoads) {
    for (const auto& [layers, loads] : {std::array<Int16, 2>{1, 1}, {2, 3}, {100, 100}}) {
        GraphicsInputData data = ExampleData();
        data.LayerCount = layers;
        data.LoadCount = loads;
        EXPECT_EQ(Written(data).size(), static_cast<std::size_t>(layers + loads + 8));
    }
}

TEST(WriteGraphicsInput, TheOnlyLayerHasTwoFieldsOnLineSixAndLineSevenIsEmpty) {
    GraphicsInputData data = ExampleData();
    data.LayerCount = 1;
    EXPECT_EQ(Written(data)[5], "        35000             0.35");
    EXPECT_EQ(Written(data)[6], "");
}

TEST(WriteGraphicsInput, TheLargestCountsFillTheirColumns) {
    GraphicsInputData data = ExampleData();
    data.LayerCount = 100;
    data.LoadCount = 100;
    EXPECT_EQ(Written(data)[1], "100       100");
}

TEST(WriteGraphicsInput, TheJapaneseCountHeadingIsInTheCodePage) {
    // 層数　　載荷点数 in code page 932.
    EXPECT_EQ(Written(ExampleData(), UnitSystem::KgfToKgf, JapaneseBase)[0],
              "\x91\x77\x90\x94\x81\x40\x81\x40\x8D\xDA\x89\xD7\x93\x5F\x90\x94");
}

TEST(WriteGraphicsInput, BlocksOfLayersAndLoadsAreThoseOfTheAnalysisInputByteForByte) {
    PavementModel model = test::ExampleModel();
    model.LoadCount = 2;
    model.Loads[2] = {-7.25, 0.5, 1e-9, -123.456, 12, 359.5};
    GraphicsInputData data;
    data.LayerCount = model.LayerCount;
    data.LoadCount = model.LoadCount;
    data.Layers = model.Layers;
    data.Loads = model.Loads;
    for (const UnitSystem units : {UnitSystem::None, UnitSystem::KgfToKgf, UnitSystem::KgfToMPa, UnitSystem::KnToMPa}) {
        for (const Int16 base : {JapaneseBase, EnglishBase}) {
            const auto analysis = CrLfLines(WriteAnalysisInput(model, units, base));
            const auto graphics = CrLfLines(WriteGraphicsInput(data, units, base));
            ASSERT_EQ(graphics.size(), 12u);
            // Both from the heading of the layers to the last load: line 8 there, line 4 here.
            EXPECT_EQ(std::vector(analysis.begin() + 7, analysis.begin() + 16),
                      std::vector(graphics.begin() + 3, graphics.end()));
        }
    }
}

// A Poisson ratio of 15 threes needs 17 columns, all that its field has. The format is kept so.
TEST(WriteGraphicsInput, AValueThatFillsItsWidthTouchesTheOneBeforeItAndIsNotReadBack) {
    GraphicsInputData data = ExampleData();
    data.Layers[1].PoissonRatio = 0.333333333333333;
    const std::string bytes = WriteGraphicsInput(data, UnitSystem::KgfToKgf, EnglishBase);
    EXPECT_EQ(CrLfLines(bytes)[5], "        350000.333333333333333                5               0");
    EXPECT_FALSE(ReadGraphics(bytes).Passed());
}

TEST(WriteGraphicsInput, ReadingAndWritingAgainGivesTheSameBytes) {
    GraphicsInputData data = ExampleData();
    data.LayerCount = 3;
    data.LoadCount = 2;
    data.Layers[1] = {1.0 / 3, 0.5, 1e-7, 0.99};
    data.Layers[2] = {1e20, 0.123456789, 10, 1e-9};
    data.Layers[3] = {1.7976931348623157e308, 1e-300, 0, 0};
    data.Loads[1] = {-1e-5, 15.25, -1e9, 123.456, 0, 360};
    data.Loads[2] = {0, 1e-3, -0.0, 0, -7, -45.5};
    for (const UnitSystem units : {UnitSystem::KgfToKgf, UnitSystem::KgfToMPa, UnitSystem::KnToMPa}) {
        for (const Int16 base : {JapaneseBase, EnglishBase}) {
            const std::string bytes = WriteGraphicsInput(data, units, base);
            const GraphicsInputResult result = ReadGraphics(bytes);
            ASSERT_TRUE(result.Passed()) << FindingText(result.Failure().First);
            EXPECT_EQ(WriteGraphicsInput(*result, units, base), bytes);
        }
    }
}

TEST(WriteGraphicsInput, AFullDataSetIsReadBackAsItIs) {
    GraphicsInputData data;
    data.LayerCount = 100;
    data.LoadCount = 100;
    for (int i = 1; i <= 100; ++i) {
        data.Layers[i] = {1000.0 + i, 0.35, 2, 0.5};
        data.Loads[i] = {25, 8.5, i * 3.0, -i * 4.0, 5, i * 4.5};
    }
    data.Layers[100].Thickness = 0;
    data.Layers[100].SlipRate = 0;
    const GraphicsInputResult result = ReadGraphics(WriteGraphicsInput(data, UnitSystem::KnToMPa, JapaneseBase));
    ASSERT_TRUE(result.Passed()) << FindingText(result.Failure().First);
    EXPECT_EQ(*result, data);
}

TEST(WriteGraphicsInput, ACountBeyondTheBoundsIsFaultNine) {
    GraphicsInputData data = ExampleData();
    data.LoadCount = 101;
    EXPECT_EQ(FaultOf([&] { WriteGraphicsInput(data, UnitSystem::KgfToKgf, EnglishBase); }), 9);
}

TEST(SavingTheGraphicsInput, OnAFullDiskIsFaultSixtyOneAndTheOldFileStaysWhole) {
    const test::WorkFolder folder;
    test::PutFile("road.ven", "the old file");
    const std::string bytes = WriteGraphicsInput(ExampleData(), UnitSystem::KgfToKgf, EnglishBase);
    EXPECT_EQ(FaultWithFilesLimitedTo(100, [&] { WriteWholeFile("road.ven", bytes); }), 61);
    EXPECT_EQ(test::GetFile("road.ven"), "the old file");
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"road.ven"});
}

}  // namespace
}  // namespace zirvo
