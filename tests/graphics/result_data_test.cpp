// The comma file read into the data of a map: lines, extents, the fine axes, each value in its node, the read-outs.
#include "graphics/result_data.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

#include "base/fault_of.h"
#include "graphics/point_grid.h"
#include "pavement/graphics_example.h"

namespace zirvo {
namespace {

const std::string Head = "# ZIRVO Ver2.3\r\n# X,Y,Z,EPSx\r\n# (cm),(cm),(cm),micro\r\n";

/// A coarse value that the refinement has passed need not come back to the last bit.
constexpr double CornerError = 1e-9;

ResultDataSet Read(const std::string& bytes, SectionKind kind = SectionKind::XY, const CoarseGrid& grid = {}) {
    std::istringstream stream(bytes);
    return ReadResultData(stream, kind, grid);
}

int FaultOfReading(const std::string& bytes) {
    return FaultOf([&] { Read(bytes); });
}

/// Positions in cm as a 1-based axis.
std::vector<FixedPoint4> Positions(const std::vector<double>& values) {
    std::vector<FixedPoint4> positions{FixedPoint4()};
    for (const double value : values) {
        positions.push_back(FixedPoint4::FromDouble(value));
    }
    return positions;
}

/// A file of `count` lines whose values are 1, 2, 3, ...
std::string Numbered(long long count) {
    std::string bytes = Head;
    for (long long i = 1; i <= count; ++i) {
        bytes += " 0 , 0 , 0 , " + std::to_string(i) + " \r\n";
    }
    return bytes;
}

/// The section of layers of these thicknesses, the last one apart, under a load of radius 15: 25 positions of X.
CoarseGrid GridOfLayers(const std::vector<double>& thicknesses) {
    GraphicsInputData data = test::ExampleData();
    data.LayerCount = static_cast<Int16>(thicknesses.size() + 1);
    for (std::size_t i = 0; i < thicknesses.size(); ++i) {
        data.Layers[static_cast<int>(i) + 1] = {1000, 0.35, thicknesses[i], 0};
    }
    return BuildSectionGrid(data, SectionKind::XZ);
}

ResultDataSet NumberedSection(const CoarseGrid& grid) {
    return Read(Numbered(PointCountOf(grid)), SectionKind::XZ, grid);
}

TEST(ReadResultData, CommentLinesAreThoseWhoseVeryFirstCharacterIsASign) {
    const ResultDataSet data = Read(Head + "-35 , 1 , 5 , 123.456 \r\n# 1,2,3,4\r\n 0.5 , 2 , 5 ,-0.25 \r\n");
    EXPECT_EQ(data.PointValue, (std::vector<double>{0, 123.456, -0.25}));
    EXPECT_EQ(data.Count(), 2);
    // A blank in front makes it a data line, whose words are 0.
    EXPECT_EQ(Read(" # X,Y,Z,EPSx\r\n").PointValue, (std::vector<double>{0, 0}));
    EXPECT_EQ(FaultOfReading(" # ZIRVO Ver2.3\r\n"), 9);
}

TEST(ReadResultData, FieldsAreReadAsCellsAndFurtherOnesDoNotMatter) {
    EXPECT_EQ(Read(" 1 , 2 , 3 , 4x5 , 6 , 7 \r\n").PointValue[1], 4);
    EXPECT_EQ(Read("a,b,c,d").PointValue[1], 0);
    EXPECT_EQ(Read(",,,").PointValue[1], 0);
    EXPECT_EQ(Read("1,2,3,1.5E2\n").PointValue[1], 150);
}

TEST(ReadResultData, ALineOfFewerThanFourFieldsAndAnEmptyOneAreFaultNine) {
    EXPECT_EQ(FaultOfReading(Head + "1,2,3\r\n"), 9);
    EXPECT_EQ(FaultOfReading(Head + "1\r\n"), 9);
    EXPECT_EQ(FaultOfReading(Head + "\r\n"), 9);
    EXPECT_EQ(FaultOfReading(Head + "1,2,3,4\r\n\r\n1,2,3,4\r\n"), 9);
}

TEST(ReadResultData, TheAxesOfEachKindHaveTheirFields) {
    const std::string bytes = Head + " 1 , 20 , 300 , 7 \r\n 4 , 50 , 600 , 8 \r\n-2 , 10 , 700 , 9 \r\n";
    EXPECT_EQ(Read(bytes, SectionKind::XY).Map.Extent, (MapExtent{-2, 4, 10, 50}));
    EXPECT_EQ(Read(bytes, SectionKind::XZ).Map.Extent, (MapExtent{-2, 4, 300, 700}));
    EXPECT_EQ(Read(bytes, SectionKind::YZ).Map.Extent, (MapExtent{10, 50, 300, 700}));
    EXPECT_EQ(Read(bytes).Map.ValueMin, 7);
    EXPECT_EQ(Read(bytes).Map.ValueMax, 9);
}

TEST(ReadResultData, AnEmptyFileIsADataSetOfZeros) {
    const ResultDataSet data = Read("");
    EXPECT_EQ(data.Count(), 0);
    EXPECT_EQ(data.Map.Extent, MapExtent());
    EXPECT_EQ(data.Map.ValueMax, 0);
}

TEST(ReadResultData, OnePointHasEqualLimitsAndEmptyFineAxes) {
    CoarseGrid grid;
    grid.GridX = Positions({3});
    grid.GridY = Positions({4});
    const ResultDataSet data = Read("3,4,0,7\r\n", SectionKind::XY, grid);
    EXPECT_EQ(data.Map.Extent, (MapExtent{3, 3, 4, 4}));
    EXPECT_EQ(data.Map.ValueMin, 7);
    EXPECT_EQ(data.Map.ValueMax, 7);
    EXPECT_EQ(data.Map.Field.FineCountX(), 0);
    EXPECT_EQ(data.Map.Field.FineCountY(), 0);
    EXPECT_NEAR(data.Map.Field.Values.At(1, 1), 7, CornerError);
}

// Three positions by two, X inner: the values of the file stand at every tenth node.
TEST(ReadResultData, AnXYSectionTakesItsValuesYOuterAndXInner) {
    CoarseGrid grid;
    grid.GridX = Positions({0, 10, 30});
    grid.GridY = Positions({-5, 5});
    const ResultDataSet data = Read(Numbered(6), SectionKind::XY, grid);
    const ContourField& field = data.Map.Field;
    EXPECT_EQ(field.FineCountX(), 21);
    EXPECT_EQ(field.FineCountY(), 11);
    EXPECT_EQ(field.FineAxis1[11], 10);
    EXPECT_EQ(field.FineAxis1[12], 12) << "each gap is cut into ten, whatever its width";
    EXPECT_EQ(field.FineAxis2[1], -5);
    EXPECT_EQ(field.FineAxis2[11], 5);
    EXPECT_NEAR(field.Values.At(1, 1), 1, CornerError);
    EXPECT_NEAR(field.Values.At(11, 1), 2, CornerError);
    EXPECT_NEAR(field.Values.At(21, 1), 3, CornerError);
    EXPECT_NEAR(field.Values.At(1, 11), 4, CornerError);
    EXPECT_NEAR(field.Values.At(21, 11), 6, CornerError);
    // By hand: the middle between 1, 2, 4 and 5, so the matrix has been refined.
    EXPECT_NEAR(field.Values.At(6, 6), 3, 1e-12);
}

// The extent is that of the file, with two decimals, the fine axes that of the grid, with four.
TEST(ReadResultData, ExtentAndFineAxesDifferByTheDecimalsOfTheirSources) {
    CoarseGrid grid;
    grid.GridX = Positions({-31.6667, 31.6667});
    grid.GridY = Positions({0, 1});
    const ResultDataSet data =
        Read("-31.67,0,0,1\r\n31.67,0,0,1\r\n-31.67,1,0,1\r\n31.67,1,0,1\r\n", SectionKind::XY, grid);
    EXPECT_EQ(data.Map.Extent.AxisMax1, 31.67);
    EXPECT_EQ(data.Map.Field.FineAxis1[1], -31.6667);
}

TEST(ReadResultData, AnXZSectionHasSixtyOneRowsForALayer) {
    const ResultDataSet data = NumberedSection(GridOfLayers({5, 20}));
    EXPECT_EQ(data.Map.Field.FineCountY(), 3 * 61);
    EXPECT_EQ(data.Map.Field.FineCountX(), 241);
    EXPECT_EQ(data.Map.Field.Values.LastY(), 201) << "sized for one more gap between two layers";
}

// Values are numbered point by point, 25 to a level. The first gap of a layer takes its two levels, row 1 and row 11.
TEST(ReadResultData, AtAnInterfaceBothLevelsKeepTheirValues) {
    const ResultDataSet data = NumberedSection(GridOfLayers({5}));
    const ContourField& field = data.Map.Field;
    EXPECT_NEAR(field.Values.At(1, 1), 1, CornerError);
    EXPECT_NEAR(field.Values.At(1, 11), 26, CornerError);
    EXPECT_NEAR(field.Values.At(1, 21), 51, CornerError);
    EXPECT_NEAR(field.Values.At(241, 21), 75, CornerError);
    EXPECT_EQ(field.FineAxis2[61], 5);
    EXPECT_EQ(field.FineAxis2[62], 5) << "the depth of the interface stands twice";
    EXPECT_NEAR(field.Values.At(1, 61), 6 * 25 + 1, CornerError);
    EXPECT_NEAR(field.Values.At(1, 62), 7 * 25 + 1, CornerError);
    EXPECT_NEAR(field.Values.At(1, 72), 8 * 25 + 1, CornerError);
    EXPECT_NEAR(field.Values.At(1, 122), 13 * 25 + 1, CornerError);
    EXPECT_NEAR(field.FineAxis2[2], 0.083, 1e-15);  // 0.83 / 10
    // By hand, halfway from 151 down the lower layer's first gap to 176 and 201: nothing is smoothed across.
    EXPECT_NEAR(field.Values.At(1, 67), (176 + 201) / 2.0, 1e-9);
}

// All seven levels of the second layer are at 10 cm: its gaps take up no values, so the third layer shows those of the
// second. The 175 values of the last seven levels are left over.
TEST(ReadResultData, ALayerTooThinForTwoDecimalsShiftsAllLaterRows) {
    const ResultDataSet data = NumberedSection(GridOfLayers({10, 0.0005}));
    const ContourField& field = data.Map.Field;
    EXPECT_EQ(field.FineCountY(), 61) << "the subgrade is as high as the layer above it, so it has none either";
    const ResultDataSet shifted = NumberedSection(GridOfLayers({10, 0.0005, 20}));
    ASSERT_EQ(shifted.Map.Field.FineCountY(), 3 * 61);
    EXPECT_EQ(shifted.Map.Field.FineAxis2[62], 10);
    EXPECT_NEAR(shifted.Map.Field.Values.At(1, 61), 6 * 25 + 1, CornerError);
    EXPECT_NEAR(shifted.Map.Field.Values.At(1, 62), 7 * 25 + 1, CornerError)
        << "a value of the thin layer, not of the third";
    EXPECT_NEAR(shifted.Map.Field.Values.At(1, 183), 20 * 25 + 1, CornerError);
}

// A layer of 0.03 cm has its levels at 0, 0.01, 0.01, 0.02, 0.02, 0.03, 0.03: three of its six gaps have a height. By
// hand: d = 0.005, and 0.005, 0.015, 0.025 round away from zero.
TEST(ReadResultData, AGapThatVanishesByRoundingTakesUpNoValues) {
    const CoarseGrid grid = GridOfLayers({0.03});
    ASSERT_EQ(grid.GridY[2].ToDouble(), 0.01);
    ASSERT_EQ(grid.GridY[3].ToDouble(), 0.01);
    const ResultDataSet data = NumberedSection(grid);
    const ContourField& field = data.Map.Field;
    EXPECT_EQ(field.FineCountY(), 2 * 31);
    EXPECT_NEAR(field.Values.At(1, 11), 26, CornerError);
    EXPECT_NEAR(field.Values.At(1, 21), 51, CornerError) << "the third level's value where the fourth level is";
    EXPECT_NEAR(field.Values.At(1, 32), 101, CornerError) << "the fifth level's value on top of the next layer";
}

// By hand, 0.006 cm: d = 0.001, so the levels are 0 up to 0.004 and 0.01 from 0.005 on: only the fifth gap has a
// height.
TEST(ReadResultData, AFirstGapWithoutAHeightLeavesOutTheTopOfItsLayer) {
    const CoarseGrid grid = GridOfLayers({0.006});
    ASSERT_EQ(grid.GridY[6].ToDouble(), 0.01);
    ASSERT_EQ(grid.GridY[5].ToDouble(), 0);
    const ResultDataSet data = NumberedSection(grid);
    // Ten rows of gap 5 alone, in which only the lower level, row 10, has a value: the very first of the file.
    EXPECT_EQ(data.Map.Field.FineAxis2[1], 0.001);
    EXPECT_NEAR(data.Map.Field.Values.At(1, 10), 1, CornerError);
}

TEST(ReadResultData, FortyNineAndFiftyLayersAndMoreAreRead) {
    for (const std::size_t layers : {49U, 50U, 100U}) {
        const ResultDataSet data = NumberedSection(GridOfLayers(std::vector<double>(layers - 1, 2.0)));
        EXPECT_EQ(data.Map.Field.FineCountY(), static_cast<int>(61 * layers)) << "beyond 3000 from 50 layers on";
        EXPECT_NEAR(data.Map.Field.Values.At(1, static_cast<int>(61 * layers)),
                    (7.0 * static_cast<double>(layers) - 1) * 25 + 1, CornerError);
    }
}

TEST(ReadResultData, ValuesThatTheFileDoesNotHaveAreZero) {
    CoarseGrid grid;
    grid.GridX = Positions({0, 10});
    grid.GridY = Positions({0, 10});
    const ResultDataSet data = Read(Numbered(3), SectionKind::XY, grid);
    EXPECT_NEAR(data.Map.Field.Values.At(1, 11), 3, CornerError);
    EXPECT_NEAR(data.Map.Field.Values.At(11, 11), 0, CornerError);
}

TEST(ReadResultData, EqualValuesEverywhereAreOneValue) {
    CoarseGrid grid;
    grid.GridX = Positions({0, 10});
    grid.GridY = Positions({0, 10});
    const ResultDataSet data = Read("0,0,0,5\r\n10,0,0,5\r\n0,10,0,5\r\n10,10,0,5\r\n", SectionKind::XY, grid);
    EXPECT_EQ(data.Map.ValueMin, data.Map.ValueMax);
    for (int i = 1; i <= 11; ++i) {
        EXPECT_NEAR(data.Map.Field.Values.At(i, 6), 5, CornerError);
    }
}

TEST(ReadResultData, AHundredThousandLinesAreReadAndOneMoreIsFaultNine) {
    EXPECT_EQ(Read(Numbered(100000)).Count(), 100000);
    EXPECT_EQ(FaultOfReading(Numbered(100001)), 9);
}

TEST(ReadResultData, AFileCutAtAnyByteReadsOrIsFaultNine) {
    const std::string whole = Head + "-35 , 0 , 5 , 123.456 \r\n 0.5 , 0 , 5 ,-0.25 \r\n";
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const int fault = FaultOfReading(whole.substr(0, length));
        EXPECT_TRUE(fault == 0 || fault == 9) << length << ": " << fault;
    }
}

TEST(ReadResultData, ReadsTheFileOfAPathAndFaultsWhereThereIsNone) {
    const test::WorkFolder folder;
    EXPECT_EQ(FaultOf([] { ReadResultData("ZIRVO_SV.CSV", SectionKind::XY, {}); }), 53);
    test::PutFile("ZIRVO_SV.CSV", Numbered(2));
    EXPECT_EQ(ReadResultData("ZIRVO_SV.CSV", SectionKind::XY, {}).Count(), 2);
}

TEST(ReadResultData, AGridThatDoesNotHoldItsLayersIsFaultNine) {
    CoarseGrid grid = GridOfLayers({5});
    grid.LayerCount = 3;
    EXPECT_EQ(FaultOf([&] { NumberedSection(grid); }), 9);
}

TEST(TakeReadOuts, RoundTheValueRangeToThreeDigitsAndShowTheExtentWithTwoDecimals) {
    ResultDataSet data = Read("-35,0.125,0,-1234.567\r\n 35.004 , 1 , 0 , 0.0098765 \r\n");
    EXPECT_EQ(TakeReadOuts(data), (ReadOuts{"-35.00", "35.00", "0.13", "1.00", "-1.23E+03", "9.88E-03"}));
    EXPECT_EQ(data.Map.ValueMin, -1230);
    EXPECT_EQ(data.Map.ValueMax, 0.00988);
    EXPECT_EQ(data.ContourMin, -1230);
    EXPECT_EQ(data.ContourMax, 0.00988);
    EXPECT_EQ(data.Map.Extent.AxisMax1, 35.004) << "only the value range is taken back from its texts";
}

TEST(TakeReadOuts, AnEmptyDataSetShowsZeros) {
    ResultDataSet data = Read("");
    EXPECT_EQ(TakeReadOuts(data), (ReadOuts{"0.00", "0.00", "0.00", "0.00", "0.00E+00", "0.00E+00"}));
}

TEST(ReadResultData, TellsHowFarItHasComeAndNeverPassesItsEnd) {
    CoarseGrid grid;
    std::vector<double> positions;
    for (int i = 0; i < 100; ++i) {
        positions.push_back(i);
    }
    grid.GridX = Positions(positions);
    grid.GridY = grid.GridX;
    for (const long long lines : {10000LL, 12000LL}) {  // as many as the grid has, and more
        std::istringstream stream(Numbered(lines));
        std::vector<double> told;
        ReadResultData(stream, SectionKind::XY, grid, [&](double done) { told.push_back(done); });
        EXPECT_GE(told.size(), 10U);
        EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
        EXPECT_EQ(told.front(), 0.1);
        EXPECT_EQ(told.back(), 1);
    }
}

}  // namespace
}  // namespace zirvo
