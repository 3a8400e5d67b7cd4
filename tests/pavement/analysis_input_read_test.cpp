// Reading the analysis input file: what passes, what is refused, in which order, and where the focus goes.
#include <gtest/gtest.h>

#include <limits>
#include <sstream>

#include "pavement/analysis_input.h"
#include "pavement/read_bytes.h"
#include "pavement/support.h"
#include "text/catalogue.h"

namespace zirvo {
namespace {

using Error = InputError;
using test::ExampleFile;
using test::ExampleModel;
using test::Replaced;

/// The example with other counts and rows.
std::string FileOf(const std::string& counts, const std::string& layers, const std::string& loads,
                   const std::string& points) {
    return "heading\r\nUntitled.bre\r\nUntitled.san\r\n\r\nheading\r\n" + counts + "\r\n\r\nheading\r\nheading\r\n" +
           layers + "\r\nheading\r\nheading\r\n" + loads + "\r\nheading\r\nheading\r\n" + points;
}

/// What the user is told, and where the focus goes.
void ExpectRefused(const std::string& bytes, Error error, bool focusMoves, const char* finding) {
    const AnalysisInputResult result = ReadAnalysis(bytes);
    EXPECT_EQ(result.Failure().Error, error) << FindingText(result.Failure().First);
    EXPECT_EQ(result.Failure().Focus, focusMoves ? ImportFocus::FocusQuit : ImportFocus::FocusUnchanged);
    EXPECT_FALSE(result.Passed());
    EXPECT_EQ(FindingText(result.Failure().First), finding);
}

TEST(ReadAnalysisInput, TheExampleReads) {
    const AnalysisInputResult result = ReadAnalysis(ExampleFile());
    ASSERT_TRUE(result.Passed()) << FindingText(result.Failure().First);
    EXPECT_EQ(*result, ExampleModel());
}

TEST(ReadAnalysisInput, ReadsTheFileOfAPath) {
    const test::WorkFolder folder;
    test::PutFile("run.eva", ExampleFile());
    EXPECT_EQ(*ReadAnalysisInput("run.eva"), ExampleModel());
    test::PutFile("舗装.eva", ExampleFile());
    EXPECT_EQ(*ReadAnalysisInput(folder.Path() + "/舗装.eva"), ExampleModel());
}

TEST(ReadAnalysisInput, ARowBrokenOverLinesReadsAsIfItStoodOnOne) {
    EXPECT_EQ(*ReadAnalysis(FileOf("2\r\n1\r\n\r\n1", "35000\r\n0.35\r\n\r\n5 0 1000\r\n0.4\r\n",
                                   "49 15\r\n0 0\r\n0 0\r\n", "1\r\n0\r\n0\r\n5\r\n")),
              ExampleModel());
}

TEST(ReadAnalysisInput, NumbersMayBeSeparatedByCommasAndTabs) {
    EXPECT_EQ(
        *ReadAnalysis(FileOf("2,1 , 1", "35000,0.35,5,0\r\n1000\t0.4\r\n", "49,15,0,0,0,0\r\n", "1, 0, 0, 5\r\n")),
        ExampleModel());
}

TEST(ReadAnalysisInput, LineEndsOfEveryKindRead) {
    std::string lineFeeds;
    std::string carriageReturns;
    for (const char c : ExampleFile()) {
        if (c != '\r') {
            lineFeeds += c;
        }
        if (c != '\n') {
            carriageReturns += c;
        }
    }
    EXPECT_EQ(*ReadAnalysis(lineFeeds), ExampleModel());
    EXPECT_EQ(*ReadAnalysis(carriageReturns), ExampleModel());
}

TEST(ReadAnalysisInput, HeadingsMayBeAnythingThatIsOneLineWithoutAComma) {
    EXPECT_TRUE(ReadAnalysis(Replaced(ExampleFile(), "LOAD POINT", "")).Passed());
    EXPECT_TRUE(ReadAnalysis(Replaced(ExampleFile(), "LOAD POINT", "道路 UTF-8")).Passed());
    EXPECT_TRUE(ReadAnalysis(Replaced(ExampleFile(), "LOAD POINT", "\x8D\xDA\x89\xD7\x93\x5F")).Passed());
    EXPECT_TRUE(ReadAnalysis(Replaced(ExampleFile(), "LOAD POINT", "\xFF\xFE\x80")).Passed());
    EXPECT_TRUE(ReadAnalysis(Replaced(ExampleFile(), "LOAD POINT", "\"in quotes, with a comma\"")).Passed());
    EXPECT_TRUE(
        ReadAnalysis(Replaced(ExampleFile(), "LOAD POINT", "\"a quote that is not closed, and a comma")).Passed());
    EXPECT_TRUE(ReadAnalysis(Replaced(ExampleFile(), "LOAD POINT", std::string("a\0b", 3))).Passed());
}

TEST(ReadAnalysisInput, ACommaInAHeadingShiftsTheRestOfTheRead) {
    // The words behind the comma are read as the next heading, and the true next heading as a number.
    ExpectRefused(Replaced(ExampleFile(), "LOAD POINT", "LOAD, POINT"), Error::ReadFailed, false,
                  "load 1, VerticalLoad: is not a number of the kind that belongs here, or two numbers touch");
    // In the very first line it shifts the names: "B" stands where the result name should.
    ExpectRefused(Replaced(ExampleFile(), "OUTPUT FILENAME", "A, B"), Error::ReadFailed, false,
                  "counts, LayerCount: is not a number of the kind that belongs here, or two numbers touch");
}

TEST(ReadAnalysisInput, ACommaBehindTheLastNumberOfARowBringsInOneEmptyField) {
    // After the last layer: the comma ends the number, the line end is an empty field, and the load's heading is left
    // over for the load. Between two rows of numbers the same comma does no harm.
    ExpectRefused(Replaced(ExampleFile(), "0.4\r\n", "0.4,\r\n"), Error::ReadFailed, false,
                  "load 1, VerticalLoad: is not a number of the kind that belongs here, or two numbers touch");
    EXPECT_TRUE(ReadAnalysis(Replaced(ExampleFile(), "               5               0\r\n",
                                      "               5               0,\r\n"))
                    .Passed());
}

TEST(ReadAnalysisInput, WhateverStandsBehindTheLastPointIsIgnored) {
    EXPECT_EQ(*ReadAnalysis(ExampleFile() + "1 2 3, \"x\r\n" + std::string("\0\xFF", 2)), ExampleModel());
}

TEST(ReadAnalysisInput, ALastNumberWithoutALineEndIsComplete) {
    std::string bytes = ExampleFile();
    bytes.resize(bytes.size() - 2);
    EXPECT_EQ(*ReadAnalysis(bytes), ExampleModel());
}

TEST(ReadAnalysisInput, AFileInOneLanguageAndUnitSystemReadsInAnyOther) {
    for (const UnitSystem units : {UnitSystem::KgfToKgf, UnitSystem::KgfToMPa, UnitSystem::KnToMPa}) {
        for (const Int16 base : {JapaneseBase, EnglishBase}) {
            EXPECT_EQ(*ReadAnalysis(WriteAnalysisInput(ExampleModel(), units, base)), ExampleModel());
        }
    }
}

TEST(ReadAnalysisInput, OneLayerTakesTwoNumbers) {
    EXPECT_TRUE(ReadAnalysis(FileOf("1 1 1", LastLayerRow, LoadRow, "1 0 0 5000\r\n")).Passed());
}

// Names -------------------------------------------------------------------------------------------------------------

TEST(ReadAnalysisInput, AnEmptyNameLeavesTheFocus) {
    ExpectRefused(Replaced(ExampleFile(), "Untitled.bre", ""), Error::NamesInvalid, false,
                  "report names, ResultFileName: is empty");
    ExpectRefused(Replaced(ExampleFile(), "Untitled.san", "  "), Error::NamesInvalid, false,
                  "report names, PrincipalFileName: is empty");
    // Both are asked for before the first is tested further.
    ExpectRefused(Replaced(Replaced(ExampleFile(), "Untitled.bre", "x"), "Untitled.san", ""), Error::NamesInvalid,
                  false, "report names, PrincipalFileName: is empty");
    EXPECT_EQ(MessageOf(Error::NamesInvalid), 56);
    EXPECT_EQ(MessageOf(Error::ReadFailed), 0);
}

TEST(ReadAnalysisInput, ABadResultNameMovesTheFocusAlsoWithoutAPoint) {
    ExpectRefused(Replaced(ExampleFile(), "Untitled.bre", "Untitled"), Error::NamesInvalid, true,
                  "report names, ResultFileName Untitled: has no point, so no extension");
    ExpectRefused(Replaced(ExampleFile(), "Untitled.bre", "a.b.bre"), Error::NamesInvalid, true,
                  "report names, ResultFileName a.b.bre: has another extension");
    ExpectRefused(Replaced(ExampleFile(), "Untitled.bre", "Untitled.BRE"), Error::NamesInvalid, true,
                  "report names, ResultFileName Untitled.BRE: has another extension");
}

TEST(ReadAnalysisInput, ABadPrincipalNameMovesTheFocusButNotWithoutAPoint) {
    ExpectRefused(Replaced(ExampleFile(), "Untitled.san", "Untitled"), Error::NamesInvalid, false,
                  "report names, PrincipalFileName Untitled: has no point, so no extension");
    ExpectRefused(Replaced(ExampleFile(), "Untitled.san", "Untitled.bre"), Error::NamesInvalid, true,
                  "report names, PrincipalFileName Untitled.bre: has another extension");
}

TEST(ReadAnalysisInput, ANameOfTheExtensionAlonePasses) {
    const AnalysisInputResult result = ReadAnalysis(Replaced(ExampleFile(), "Untitled.bre", ".bre"));
    ASSERT_TRUE(result.Passed());
    EXPECT_EQ(result->ResultFileName, ".bre");
}

TEST(ReadAnalysisInput, ANameWithACommaIsNotReadBackAsItWasWritten) {
    PavementModel model = ExampleModel();
    model.ResultFileName = "a,b.bre";
    ExpectRefused(WriteAnalysisInput(model, UnitSystem::KnToMPa, EnglishBase), Error::ReadFailed, false,
                  "counts, LayerCount: is not a number of the kind that belongs here, or two numbers touch");
}

TEST(ReadAnalysisInput, NamesAreReadInTheCodePageAndAsUtf8WhereItCannotHoldThem) {
    EXPECT_EQ(ReadAnalysis(Replaced(ExampleFile(), "Untitled.bre", "\x95\xDC\x91\x95.bre"))->ResultFileName,
              "舗装.bre");
    EXPECT_EQ(ReadAnalysis(Replaced(ExampleFile(), "Untitled.bre",
                                    "Stra\xC3\x9F"
                                    "e.bre"))
                  ->ResultFileName,
              "Straße.bre");
}

// Counts ------------------------------------------------------------------------------------------------------------

TEST(ReadAnalysisInput, ACountOfZeroMovesTheFocus) {
    ExpectRefused(FileOf("0 1 1", LastLayerRow, LoadRow, "1 0 0 5\r\n"), Error::CountsInvalid, true,
                  "counts, LayerCount 0: is 0");
    ExpectRefused(FileOf("1 0 1", LastLayerRow, LoadRow, "1 0 0 5\r\n"), Error::CountsInvalid, true,
                  "counts, LoadCount 0: is 0");
    ExpectRefused(FileOf("1 1 0", LastLayerRow, LoadRow, "1 0 0 5\r\n"), Error::CountsInvalid, true,
                  "counts, PointCount 0: is 0");
    EXPECT_EQ(MessageOf(Error::CountsInvalid), 58);
}

TEST(ReadAnalysisInput, CountsBelowZeroAndBeyondSixteenBitsFailTheReadBeforeNamesAreJudged) {
    for (const auto& [count, reason] : {std::pair<const char*, const char*>{"-1", "counts, LoadCount -1: is below 0"},
                                        {"40000", "counts, LoadCount: is outside -32768 to 32767"},
                                        {"3000000000", "counts, LoadCount: is outside -32768 to 32767"},
                                        {"99999999999999999999999", "counts, LoadCount: is outside -32768 to 32767"}}) {
        const std::string bytes = FileOf(std::string("1 ") + count + " 1", LastLayerRow, LoadRow, "1 0 0 5\r\n");
        ExpectRefused(bytes, Error::ReadFailed, false, reason);
        ExpectRefused(Replaced(bytes, "Untitled.bre", ""), Error::ReadFailed, false, reason);
    }
}

TEST(ReadAnalysisInput, ACountIsASignAndDigitsAndNothingElse) {
    const auto read = [](const char* count) {
        return ReadAnalysis(FileOf(std::string("1 ") + count + " 1", LastLayerRow, LoadRow, "1 0 0 5\r\n"));
    };
    EXPECT_TRUE(read("1").Passed());
    EXPECT_TRUE(read("+1").Passed());
    for (const char* count : {"1.0", "1E0", "one", "0x1", "1a", "1;"}) {
        EXPECT_EQ(read(count).Failure().Error, Error::ReadFailed) << count;
    }
}

TEST(ReadAnalysisInput, AShortFileFailsTheReadWhateverItsNames) {
    ExpectRefused("heading\r\n\r\n\r\n\r\nheading\r\n  1         1\r\n", Error::ReadFailed, false,
                  "counts, PointCount: the file ends here");
    // Lines 7 to 9 are read before the names and the counts are judged.
    ExpectRefused("heading\r\n\r\n\r\n\r\nheading\r\n  0         1          1\r\n\r\nheading", Error::ReadFailed, false,
                  "file: the file ends here");
    ExpectRefused("heading\r\n\r\n\r\n\r\nheading\r\n  0         1          1\r\n\r\nheading\r\nheading",
                  Error::NamesInvalid, false, "report names, ResultFileName: is empty");
}

// Rows --------------------------------------------------------------------------------------------------------------

TEST(ReadAnalysisInput, ABadLastLayerMovesTheFocusAndABadLayerAboveDoesNot) {
    ExpectRefused(FileOf("2 1 1", "1000 0.6 10 0\r\n100 0.4\r\n", LoadRow, "1 0 0 5\r\n"), Error::LayerInvalid, false,
                  "layer 1, PoissonRatio 0.6: is above 0.5");
    ExpectRefused(FileOf("2 1 1", "1000 0.3 10 0\r\n100 0.6\r\n", LoadRow, "1 0 0 5\r\n"), Error::LayerInvalid, true,
                  "layer 2, PoissonRatio 0.6: is above 0.5");
    EXPECT_EQ(MessageOf(Error::LayerInvalid), 59);
}

TEST(ReadAnalysisInput, LaterRowsThanABadOneAreNotRead) {
    ExpectRefused(FileOf("2 1 1", "1000 0.3 0 0\r\nrubbish", "", ""), Error::LayerInvalid, false,
                  "layer 1, Thickness 0: is not above 0");
    ExpectRefused(FileOf("1 2 1", LastLayerRow, "49 0 0 0 0 0\r\nrubbish", ""), Error::LoadInvalid, true,
                  "load 1, Radius 0: is not above 0");
}

TEST(ReadAnalysisInput, ARowIsReadWholeBeforeItIsJudged) {
    ExpectRefused(FileOf("2 1 1", "-1 0.3 x 0\r\n", "", ""), Error::ReadFailed, false,
                  "layer 1, Thickness: is not a number of the kind that belongs here, or two numbers touch");
}

TEST(ReadAnalysisInput, ABadLoadMovesTheFocus) {
    ExpectRefused(FileOf("1 2 1", LastLayerRow, "49 15 0 0 0 0\r\n0 15 0 0 0 0\r\n", "1 0 0 5\r\n"), Error::LoadInvalid,
                  true, "load 2, VerticalLoad 0: is 0, and so is HorizontalLoad: the load does nothing");
    EXPECT_TRUE(ReadAnalysis(FileOf("1 1 1", LastLayerRow, "0 15 0 0 10 0\r\n", "1 0 0 5\r\n")).Passed());
    EXPECT_TRUE(ReadAnalysis(FileOf("1 1 1", LastLayerRow, "-100 15 0 0 0 0\r\n", "1 0 0 5\r\n")).Passed());
    EXPECT_EQ(MessageOf(Error::LoadInvalid), 60);
}

TEST(ReadAnalysisInput, ABadPointMovesTheFocus) {
    const auto file = [](const char* point) {
        return FileOf("2 1 1", std::string(LayerRow) + LastLayerRow, LoadRow, point);
    };
    ExpectRefused(file("3 0 0 5\r\n"), Error::PointInvalid, true,
                  "point 1, LayerNumber 3: names no layer: there are 2");
    ExpectRefused(file("-1 0 0 5\r\n"), Error::PointInvalid, true,
                  "point 1, LayerNumber -1: names no layer: there are 2");
    ExpectRefused(file("2 0 0 9\r\n"), Error::PointInvalid, true,
                  "point 1, PointZ 9: lies above the top of layer 2 at 10 cm");
    ExpectRefused(file("1 0 0 10.5\r\n"), Error::PointInvalid, true,
                  "point 1, PointZ 10.5: lies below the bottom of layer 1 at 10 cm");
    EXPECT_EQ(MessageOf(Error::PointInvalid), 61);
}

TEST(ReadAnalysisInput, ADepthBelowZeroHasNoTestOfItsOwn) {
    EXPECT_TRUE(ReadAnalysis(FileOf("1 1 1", LastLayerRow, LoadRow, "1 0 0 -5E-11\r\n")).Passed());
    ExpectRefused(FileOf("1 1 1", LastLayerRow, LoadRow, "1 0 0 -2E-10\r\n"), Error::PointInvalid, true,
                  "point 1, PointZ -0.0000000002: lies above the top of layer 1 at 0 cm");
}

TEST(ReadAnalysisInput, LayersWhoseDepthsLeaveTheRangeOfADoubleRefuseTheirPointsAndNothingElseFails) {
    const std::string thick = "1000 0.35 1E308 0\r\n";
    ExpectRefused(FileOf("4 1 1", Repeat(thick, 3) + LastLayerRow, LoadRow, "4 0 0 5\r\n"), Error::PointInvalid, true,
                  "point 1, PointZ 5: lies above the top of layer 4 at no depth that a number can hold");
    EXPECT_TRUE(ReadAnalysis(FileOf("4 1 1", Repeat(thick, 3) + LastLayerRow, LoadRow, "1 0 0 5\r\n")).Passed());
}

TEST(ReadAnalysisInput, NumbersBeyondADoubleAreTheLargestOne) {
    const AnalysisInputResult result = ReadAnalysis(FileOf("1 1 1", "1E999 0.4\r\n", LoadRow, "1 -1E999 0 1E999\r\n"));
    ASSERT_TRUE(result.Passed()) << FindingText(result.Failure().First);
    EXPECT_EQ(result->Layers[1].Modulus, std::numeric_limits<double>::max());
    EXPECT_EQ(result->Points[1].PointX, -std::numeric_limits<double>::max());
}

TEST(ReadAnalysisInput, LayerNumberZeroIsAcceptedWhereTheDepthRuleLetsItPass) {
    EXPECT_TRUE(ReadAnalysis(FileOf("2 1 1", std::string(LayerRow) + LastLayerRow, LoadRow, "0 0 0 0\r\n")).Passed());
    EXPECT_EQ(
        ReadAnalysis(FileOf("2 1 1", std::string(LayerRow) + LastLayerRow, LoadRow, "0 0 0 5\r\n")).Failure().Error,
        Error::PointInvalid);
    EXPECT_TRUE(ReadAnalysis(FileOf("1 1 1", LastLayerRow, LoadRow, "0 0 0 5\r\n")).Passed());
}

TEST(ReadAnalysisInput, ALayerNumberOutsideSixteenBitsFailsTheRead) {
    ExpectRefused(FileOf("1 1 1", LastLayerRow, LoadRow, "40000 0 0 5\r\n"), Error::ReadFailed, false,
                  "point 1, LayerNumber: is outside -32768 to 32767");
}

// Bounds ------------------------------------------------------------------------------------------------------------

TEST(ReadAnalysisInput, AHundredLayersAndLoadsAndTenThousandPointsRead) {
    const std::string bytes = FileOf("100 100 10000", Repeat(LayerRow, 99) + LastLayerRow, Repeat(LoadRow, 100),
                                     Repeat("100 0 0 990\r\n", 10000));
    const AnalysisInputResult result = ReadAnalysis(bytes);
    ASSERT_TRUE(result.Passed()) << FindingText(result.Failure().First);
    EXPECT_EQ(result->Points[10000], (InterestPoint{100, 0, 0, 990}));
}

TEST(ReadAnalysisInput, ALayerBeyondAHundredFailsAtItsRowAfterTheRowsAboveHaveBeenAccepted) {
    ExpectRefused(FileOf("101 1 1", Repeat(LayerRow, 100) + LastLayerRow, LoadRow, "1 0 0 5\r\n"), Error::ReadFailed,
                  false, "layer 101: more rows than an analysis can have");
    // Row 100 is not the last one, so it takes four numbers and all of them are judged, and its failure moves no focus.
    ExpectRefused(FileOf("101 1 1", Repeat(LayerRow, 99) + "1000 0.35 10 1\r\n" + LastLayerRow, LoadRow, "1 0 0 5\r\n"),
                  Error::LayerInvalid, false, "layer 100, SlipRate 1: is above 0.99");
    ExpectRefused(FileOf("101 1 1", Repeat(LayerRow, 99) + "1000 0.35", "", ""), Error::ReadFailed, false,
                  "layer 100, Thickness: is not a number of the kind that belongs here, or two numbers touch");
}

TEST(ReadAnalysisInput, ALoadBeyondAHundredFailsAtItsRow) {
    ExpectRefused(FileOf("1 101 1", LastLayerRow, Repeat(LoadRow, 101), "1 0 0 5\r\n"), Error::ReadFailed, false,
                  "load 101: more rows than an analysis can have");
}

TEST(ReadAnalysisInput, APointBeyondTenThousandFailsTheReadAlsoIfTheFirstOneLiesOutsideItsLayer) {
    const std::string points = "7 0 0 5\r\n" + Repeat("1 0 0 5\r\n", 10000);
    ExpectRefused(FileOf("1 1 10001", LastLayerRow, LoadRow, points), Error::ReadFailed, false,
                  "point 10001: more rows than an analysis can have");
    ExpectRefused(FileOf("1 1 10000", LastLayerRow, LoadRow, points), Error::PointInvalid, true,
                  "point 1, LayerNumber 7: names no layer: there are 1");
}

}  // namespace
}  // namespace zirvo
