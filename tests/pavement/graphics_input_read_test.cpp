// Reading and checking the graphics input file: what passes, what is refused, in which order, and where the focus goes.
#include <gtest/gtest.h>

#include <sstream>

#include "pavement/graphics_example.h"
#include "pavement/graphics_input.h"
#include "pavement/read_bytes.h"
#include "text/catalogue.h"

namespace zirvo {
namespace {

using Error = InputError;
using test::ExampleData;
using test::ExampleVen;
using test::Replaced;

std::vector<std::string> CheckGraphics(const std::string& bytes) {
    std::istringstream stream(bytes);
    std::vector<std::string> texts;
    for (const Finding& finding : CheckGraphicsInput(stream)) {
        texts.push_back(FindingText(finding));
    }
    return texts;
}

/// A file of these counts and rows.
std::string FileOf(const std::string& counts, const std::string& layers, const std::string& loads) {
    return "heading\r\n" + counts + "\r\n\r\nheading\r\nheading\r\n" + layers + "\r\nheading\r\nheading\r\n" + loads;
}

/// What the user is told, and where the focus goes: to QUIT for wrong values, nowhere for a file that does not read.
void ExpectRefused(const std::string& bytes, Error error, const std::string& finding) {
    const GraphicsInputResult result = ReadGraphics(bytes);
    EXPECT_EQ(result.Failure().Error, error) << FindingText(result.Failure().First);
    EXPECT_EQ(result.Failure().Focus,
              error == Error::ReadFailed ? ImportFocus::FocusUnchanged : ImportFocus::FocusQuit);
    EXPECT_FALSE(result.Passed());
    EXPECT_EQ(FindingText(result.Failure().First), finding);
    const std::vector<std::string> all = CheckGraphics(bytes);
    ASSERT_FALSE(all.empty()) << "what the reader refuses the check must name";
    EXPECT_EQ(all.front(), finding);
}

const std::string NoNumber = "is not a number of the kind that belongs here, or two numbers touch";

TEST(ReadGraphicsInput, TheExampleReads) {
    const GraphicsInputResult result = ReadGraphics(ExampleVen());
    ASSERT_TRUE(result.Passed()) << FindingText(result.Failure().First);
    EXPECT_EQ(*result, ExampleData());
    EXPECT_TRUE(CheckGraphics(ExampleVen()).empty());
}

TEST(ReadGraphicsInput, EachResultHasItsMessage) {
    EXPECT_EQ(MessageOf(Error::CountsInvalid), 58);
    EXPECT_EQ(MessageOf(Error::LayerInvalid), 59);
    EXPECT_EQ(MessageOf(Error::LoadInvalid), 60);
    EXPECT_EQ(MessageOf(Error::ReadFailed), 0);
}

TEST(ReadGraphicsInput, AFileOfTheOtherLanguageReads) {
    const std::string japanese = WriteGraphicsInput(ExampleData(), UnitSystem::KnToMPa, JapaneseBase);
    EXPECT_EQ(*ReadGraphics(japanese), ExampleData());
}

TEST(ReadGraphicsInput, ReadsTheFileOfAPath) {
    const test::WorkFolder folder;
    test::PutFile("舗装.ven", ExampleVen());
    EXPECT_EQ(*ReadGraphicsInput(folder.Path() + "/舗装.ven"), ExampleData());
    EXPECT_TRUE(CheckGraphicsInput("舗装.ven").empty());
}

TEST(ReadGraphicsInput, AFileThatCannotBeOpenedIsAQuietFailure) {
    const test::WorkFolder folder;
    EXPECT_EQ(ReadGraphicsInput("none.ven").Failure().Error, Error::ReadFailed);
    EXPECT_EQ(FindingText(ReadGraphicsInput("none.ven").Failure().First), "file: File not found");
    EXPECT_EQ(FindingText(ReadGraphicsInput(folder.Path()).Failure().First), "file: Path/File access error");
    EXPECT_EQ(CheckGraphicsInput("none.ven").size(), 1u);
    test::PutFile("empty.ven", "");
    EXPECT_EQ(ReadGraphicsInput("empty.ven").Failure().Error, Error::ReadFailed);
}

TEST(ReadGraphicsInput, ARowBrokenOverLinesReadsAsIfItStoodOnOne) {
    EXPECT_EQ(*ReadGraphics(FileOf("2\r\n\r\n1", "35000\r\n0.35\r\n5 0 1000\r\n0.4\r\n", "5000 15\r\n0 0\r\n0 0\r\n")),
              ExampleData());
}

TEST(ReadGraphicsInput, HeadingsMayBeAnythingThatIsOneLineWithoutAComma) {
    EXPECT_TRUE(ReadGraphics(Replaced(ExampleVen(), "LOAD POINT", "")).Passed());
    EXPECT_TRUE(ReadGraphics(Replaced(ExampleVen(), "LAYERS", "道路")).Passed());
    EXPECT_TRUE(ReadGraphics(Replaced(ExampleVen(), "LOAD POINT", "\"in quotes, with a comma\"")).Passed());
}

TEST(ReadGraphicsInput, ACommaInAHeadingShiftsTheRestOfTheRead) {
    ExpectRefused(Replaced(ExampleVen(), "LOAD POINT", "LOAD, POINT"), Error::ReadFailed,
                  "load 1, VerticalLoad: " + NoNumber);
    ExpectRefused(Replaced(ExampleVen(), "LAYERS", "LAYERS,"), Error::ReadFailed, "counts, LayerCount: " + NoNumber);
}

TEST(ReadGraphicsInput, WhatStandsBehindTheLastLoadDoesNotMatter) {
    EXPECT_EQ(*ReadGraphics(ExampleVen() + "anything, \"at all"), ExampleData());
}

TEST(ReadGraphicsInput, ACountOfZeroIsInvalid) {
    ExpectRefused(FileOf("0 1", "", LoadRow), Error::CountsInvalid, "counts, LayerCount 0: is 0");
    ExpectRefused(FileOf("1 0", LastLayerRow, ""), Error::CountsInvalid, "counts, LoadCount 0: is 0");
}

TEST(ReadGraphicsInput, TheThreeTextsBehindTheCountsAreReadBeforeTheCountsAreJudged) {
    EXPECT_EQ(ReadGraphics("heading\r\n0 0\r\n\r\nheading\r\nheading\r\n").Failure().Error, Error::CountsInvalid);
    EXPECT_EQ(ReadGraphics("heading\r\n0 0\r\n\r\nheading\r\n").Failure().Error, Error::ReadFailed);
    EXPECT_EQ(ReadGraphics("heading\r\n0 0\r\n").Failure().Error, Error::ReadFailed);
}

TEST(ReadGraphicsInput, NegativeCountsAndThoseBeyondSixteenBitsFailQuietly) {
    ExpectRefused(FileOf("-1 1", LastLayerRow, LoadRow), Error::ReadFailed, "counts, LayerCount -1: is below 0");
    ExpectRefused(FileOf("0 -1", LastLayerRow, LoadRow), Error::ReadFailed, "counts, LoadCount -1: is below 0");
    ExpectRefused(FileOf("40000 1", LastLayerRow, LoadRow), Error::ReadFailed,
                  "counts, LayerCount: is outside -32768 to 32767");
    ExpectRefused(FileOf("1.0 1", LastLayerRow, LoadRow), Error::ReadFailed, "counts, LayerCount: " + NoNumber);
}

TEST(ReadGraphicsInput, LimitsThemselvesPassAndBeyondThemTheLayerFails) {
    EXPECT_TRUE(ReadGraphics(FileOf("2 1", "1 0.5 1e-9 0.99\r\n" + std::string(LastLayerRow), LoadRow)).Passed());
    EXPECT_TRUE(ReadGraphics(FileOf("2 1", "1 0.3 10 0\r\n1 0.5\r\n", LoadRow)).Passed());
    struct Row {
        const char* Layers;
        const char* Finding;
    };
    for (const Row& row : {Row{"1 0.51 10 0\r\n1 0.4", "layer 1, PoissonRatio 0.51: is above 0.5"},
                           Row{"1 0.4 10 0.991\r\n1 0.4", "layer 1, SlipRate 0.991: is above 0.99"},
                           Row{"1 0.4 10 -0.1\r\n1 0.4", "layer 1, SlipRate -0.1: is below 0"},
                           Row{"1 0 10 0\r\n1 0.4", "layer 1, PoissonRatio 0: is not above 0"},
                           Row{"0 0.4 10 0\r\n1 0.4", "layer 1, Modulus 0: is not above 0"},
                           Row{"1 0.4 0 0\r\n1 0.4", "layer 1, Thickness 0: is not above 0"},
                           Row{"1 0.4 10 0\r\n1 0.51", "layer 2, PoissonRatio 0.51: is above 0.5"},
                           Row{"1 0.4 10 0\r\n-1 0.4", "layer 2, Modulus -1: is not above 0"}}) {
        ExpectRefused(FileOf("2 1", row.Layers + std::string("\r\n"), LoadRow), Error::LayerInvalid, row.Finding);
    }
}

TEST(ReadGraphicsInput, ALoadNeedsARadiusAndOneOfItsTwoForces) {
    EXPECT_TRUE(ReadGraphics(FileOf("1 1", LastLayerRow, "0 15 0 0 10 0\r\n")).Passed());
    EXPECT_TRUE(ReadGraphics(FileOf("1 1", LastLayerRow, "-5 15 -1E9 1E9 0 -720\r\n")).Passed());
    ExpectRefused(FileOf("1 1", LastLayerRow, "0 15 0 0 0 0\r\n"), Error::LoadInvalid,
                  "load 1, VerticalLoad 0: is 0, and so is HorizontalLoad: the load does nothing");
    ExpectRefused(FileOf("1 1", LastLayerRow, "5 0 0 0 5 0\r\n"), Error::LoadInvalid,
                  "load 1, Radius 0: is not above 0");
    ExpectRefused(FileOf("1 1", LastLayerRow, "5 -15 0 0 5 0\r\n"), Error::LoadInvalid,
                  "load 1, Radius -15: is not above 0");
}

TEST(ReadGraphicsInput, TheFirstFailureDecidesAndLaterRowsAreNotRead) {
    ExpectRefused(FileOf("3 1", "1 0.6 10 0\r\nrubbish", ""), Error::LayerInvalid,
                  "layer 1, PoissonRatio 0.6: is above 0.5");
    ExpectRefused(FileOf("1 2", LastLayerRow, "0 0 0 0 0 0\r\nrubbish"), Error::LoadInvalid,
                  "load 1, VerticalLoad 0: is 0, and so is HorizontalLoad: the load does nothing");
}

TEST(ReadGraphicsInput, AHundredRowsAreReadAndTheHundredAndFirstStopsWithoutAWord) {
    EXPECT_TRUE(ReadGraphics(FileOf("100 100", Repeat(LayerRow, 99) + LastLayerRow, Repeat(LoadRow, 100))).Passed());
    ExpectRefused(FileOf("101 1", Repeat(LayerRow, 100) + LastLayerRow, LoadRow), Error::ReadFailed,
                  "layer 101: more rows than an analysis can have");
    ExpectRefused(FileOf("1 101", LastLayerRow, Repeat(LoadRow, 101)), Error::ReadFailed,
                  "load 101: more rows than an analysis can have");
    // It stops at the row, not at the count: an earlier row that fails is told.
    ExpectRefused(FileOf("101 1", "1 0.6 1 0\r\n" + Repeat(LayerRow, 99) + LastLayerRow, LoadRow), Error::LayerInvalid,
                  "layer 1, PoissonRatio 0.6: is above 0.5");
}

TEST(ReadGraphicsInput, WordsForNumbersFailQuietly) {
    ExpectRefused(Replaced(ExampleVen(), "0.35", "soft"), Error::ReadFailed, "layer 1, PoissonRatio: " + NoNumber);
    ExpectRefused(Replaced(ExampleVen(), "      5000", "     heavy"), Error::ReadFailed,
                  "load 1, VerticalLoad: " + NoNumber);
    ExpectRefused(Replaced(ExampleVen(), "35000", "  nan"), Error::ReadFailed, "layer 1, Modulus: " + NoNumber);
}

TEST(ReadGraphicsInput, AFileCutAtAnyByteReadsOrFailsQuietly) {
    const std::string whole = ExampleVen();
    const std::size_t lastNumber = whole.rfind('0');
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const GraphicsInputResult result = ReadGraphics(whole.substr(0, length));
        if (length > lastNumber) {
            EXPECT_EQ(*result, ExampleData());
        } else {
            // Nowhere in the example does a cut number end as a value that a rule refuses and more follows.
            EXPECT_FALSE(result.Passed()) << length;
        }
        EXPECT_EQ(CheckGraphics(whole.substr(0, length)).empty(), result.Passed()) << length;
    }
}

TEST(CheckGraphicsInput, NamesEveryFailingRowAndValue) {
    EXPECT_EQ(
        CheckGraphics(FileOf("2 2", "0 0.6 10 1\r\n1 0\r\n", "5 0 0 0 0 0\r\n0 15 0 0 0 0\r\n")),
        (std::vector<std::string>{"layer 1, Modulus 0: is not above 0", "layer 1, PoissonRatio 0.6: is above 0.5",
                                  "layer 1, SlipRate 1: is above 0.99", "layer 2, PoissonRatio 0: is not above 0",
                                  "load 1, Radius 0: is not above 0",
                                  "load 2, VerticalLoad 0: is 0, and so is HorizontalLoad: the load does nothing"}));
    EXPECT_EQ(CheckGraphics(FileOf("0 0", "", "")),
              (std::vector<std::string>{"counts, LayerCount 0: is 0", "counts, LoadCount 0: is 0"}));
}

TEST(CheckGraphicsInput, GoesOnUntilTheFileCannotBeToldApart) {
    EXPECT_EQ(CheckGraphics(FileOf("2 1", "1 0.6 10 0\r\nrubbish", LoadRow)),
              (std::vector<std::string>{"layer 1, PoissonRatio 0.6: is above 0.5", "layer 2, Modulus: " + NoNumber}));
}

}  // namespace
}  // namespace zirvo
