// The rules on cell texts, as DATA OK! applies them, and the model made from them.
#include <gtest/gtest.h>

#include "base/fault_of.h"
#include "pavement/pavement_rules.h"
#include "pavement/support.h"

namespace zirvo {
namespace {

using test::ExampleTexts;

TEST(ValidateCounts, NeedsThreeTextsThatAreNotZero) {
    const auto validate = [](std::string_view a, std::string_view b, std::string_view c) {
        const std::array<std::string_view, 3> captions{a, b, c};
        return ValidateCounts(captions);
    };
    EXPECT_TRUE(validate(" 1", " 1", " 1"));
    EXPECT_TRUE(validate("100", " 100", " 10000"));
    EXPECT_FALSE(validate(" 0", " 1", " 1"));
    EXPECT_FALSE(validate(" 1", " 0", " 1"));
    EXPECT_FALSE(validate(" 1", " 1", "0"));
    EXPECT_FALSE(validate("", " 1", " 1"));
    EXPECT_FALSE(validate(" 1", " 1", ""));
    EXPECT_FALSE(validate(" ", " 1", " 1"));  // a blank is no empty text, but reads as 0
}

TEST(ValidateFileNames, NeedsThreeTexts) {
    const std::array<std::string_view, 3> names{"a", " ", ".san"};
    EXPECT_TRUE(ValidateFileNames(names));
    for (std::size_t i = 0; i < names.size(); ++i) {
        auto missing = names;
        missing[i] = "";
        EXPECT_FALSE(ValidateFileNames(missing)) << i;
    }
}

TEST(LayerTexts, OnlyTheEmptyTextIsAnEmptyCell) {
    EXPECT_TRUE(Passes(JudgeLayerTexts({"35000", "0.35", "5", " "}, false)));  // a blank reads as 0, a slip rate of 0
    EXPECT_EQ(JudgeLayerTexts({"35000", "0.35", "5", ""}, false)[3], Refusal::Empty);
    EXPECT_EQ(JudgeLayerTexts({"", "0.35", "5", "0"}, false)[0], Refusal::Empty);
    EXPECT_EQ(JudgeLayerTexts({" ", "0.35", "5", "0"}, false)[0], Refusal::NotPositive);
    EXPECT_EQ(JudgeLayerTexts({"abc", "0.35", "5", "0"}, false)[0], Refusal::NotPositive);
}

TEST(LayerTexts, WhatStandsInTheLastTwoCellsOfTheLastRowIsNotLookedAt) {
    EXPECT_TRUE(Passes(JudgeLayerTexts({"1000", "0.4", "", ""}, true)));
    EXPECT_TRUE(Passes(JudgeLayerTexts({"1000", "0.4", "-7", "abc"}, true)));
    EXPECT_FALSE(Passes(JudgeLayerTexts({"1000", "", "", ""}, true)));
    EXPECT_FALSE(Passes(JudgeLayerTexts({"", "0.4", "", ""}, true)));
}

TEST(LayerTexts, NumbersAreThePrefixesOfTheTexts) {
    EXPECT_TRUE(Passes(JudgeLayerTexts({"35E3", "0.5x", "5 cm", "0.99,5"}, false)));
    EXPECT_FALSE(Passes(JudgeLayerTexts({"35E3", "0,5", "5", "0"}, false)));  // "0,5" is 0
}

TEST(LoadTexts, TextsThatAreNoNumbersReadAsZeroWhereNothingIsAskedOfThem) {
    EXPECT_TRUE(Passes(JudgeLoadTexts({"49", "15", "abc", " ", "x", "?"})));
    EXPECT_FALSE(Passes(JudgeLoadTexts({"abc", "15", "0", "0", "0", "0"})));
    EXPECT_TRUE(Passes(JudgeLoadTexts({"-100", "15", "0", "0", "0", "0"})));
    const LoadTexts full{"49", "15", "0", "0", "0", "0"};
    for (std::size_t c = 0; c < full.size(); ++c) {
        LoadTexts cells = full;
        cells[c] = "";
        EXPECT_EQ(JudgeLoadTexts(cells)[c], Refusal::Empty) << c;
    }
}

TEST(PointTexts, NegativeNumbersAndEmptyCellsFail) {
    EXPECT_TRUE(Passes(JudgePointTexts({"1", "0", "0", "5"})));
    EXPECT_TRUE(Passes(JudgePointTexts({"0", "-3", "abc", " "})));
    EXPECT_FALSE(Passes(JudgePointTexts({"-1", "0", "0", "5"})));
    EXPECT_FALSE(Passes(JudgePointTexts({"1", "0", "0", "-5E-11"})));  // unlike the import, which lets it pass
    EXPECT_FALSE(Passes(JudgePointTexts({"1", "", "0", "5"})));
    EXPECT_FALSE(Passes(JudgePointTexts({"1", "0", "", "5"})));
    EXPECT_FALSE(Passes(JudgePointTexts({"1", "0", "0", ""})));
}

TEST(PointTexts, ALayerNumberThatIsNoNumberAsAWholeIsFaultThirteenAlsoIfOtherCellsFailToo) {
    for (const char* text : {"", " ", "1a", "abc", ".", "1 2", "1,5"}) {
        EXPECT_EQ(FaultOf([&] { JudgePointTexts({text, "0", "0", "5"}); }), 13) << text;
        EXPECT_EQ(FaultOf([&] { JudgePointTexts({text, "", "", "-1"}); }), 13) << text;
    }
}

TEST(PointTexts, ALayerNumberBeyondSixteenBitsIsAFailedRowAndNoFault) {
    EXPECT_EQ(JudgePointTexts({"40000", "0", "0", "5"})[0], Refusal::OutsideSixteenBits);
    EXPECT_EQ(JudgePointTexts({"-40000", "0", "0", "5"})[0], Refusal::OutsideSixteenBits);
    EXPECT_EQ(JudgePointTexts({"1E400", "0", "0", "5"})[0], Refusal::OutsideSixteenBits);
    EXPECT_EQ(JudgePointTexts({"32767.5", "0", "0", "5"})[0], Refusal::OutsideSixteenBits);  // rounds to 32768
    EXPECT_EQ(JudgePointTexts({"32767", "0", "0", "5"})[0], Refusal::None);
}

TEST(ValidatePoints, AFailingRowAboveEndsBeforeTheFault) {
    const std::vector<PointTexts> failAbove{{}, {"1", "0", "0", "-1"}, {"1a", "0", "0", "0"}};
    EXPECT_FALSE(ValidatePoints(failAbove, 2));
    const std::vector<PointTexts> faultAbove{{}, {"1a", "0", "0", "0"}, {"1", "0", "0", "-1"}};
    EXPECT_EQ(FaultOf([&] { ValidatePoints(faultAbove, 2); }), 13);
    EXPECT_EQ(SubjectOf([&] { ValidatePoints(faultAbove, 2); }), (FaultSubject{FaultMatter::LayerCell, "1", ""}));
    const std::vector<PointTexts> faultBelow{{}, {"1", "0", "0", "1"}, {"", "0", "0", "0"}};
    EXPECT_EQ(SubjectOf([&] { ValidatePoints(faultBelow, 2); }), (FaultSubject{FaultMatter::LayerCell, "2", ""}));
}

TEST(SurvivesInFile, IsTrueForWhatComesBackAsItWasWritten) {
    for (const char* const name :
         {"a", "run.eva", "a b", "a .eva", "道路.eva", "ｱｲｳ.bre", "Straße.san", "a\"b", "10％", "　a"}) {
        EXPECT_TRUE(SurvivesInFile(name)) << name;
    }
    for (const std::string name : {"", " ", " a", "a ", "\ta", "a,b", ",", "\"a\"", "\"a", "a/b", "/a", "a/", "a\nb",
                                   "a\rb", "ﾂｵ", "aﾂｵ.bre", "a\x7F", "a\xFF"}) {
        EXPECT_FALSE(SurvivesInFile(name)) << name;
    }
    EXPECT_FALSE(SurvivesInFile(std::string("a\0b", 3)));
}

TEST(ValidateRows, FewerRowsThanTheCountAreFaultNine) {
    const std::vector<LayerTexts> layers{{}, {"1", "0.3", "1", "0"}};
    EXPECT_TRUE(ValidateLayers(layers, 1));
    EXPECT_EQ(FaultOf([&] { ValidateLayers(layers, 2); }), 9);
    EXPECT_EQ(FaultOf([&] { ValidateLoads({}, 1); }), 9);
    EXPECT_EQ(FaultOf([&] { ValidatePoints({}, 1); }), 9);
}

TEST(ValidateRows, RowsBeyondTheCountAndRowZeroAreNotLookedAt) {
    const std::vector<LayerTexts> layers{{"x", "", "", ""}, {"1", "0.3", "1", "0"}, {"", "", "", ""}};
    EXPECT_TRUE(ValidateLayers(layers, 1));
}

TEST(ModelFromTexts, IsTheModelOfTheCells) {
    PavementModel expected = test::ExampleModel();
    expected.InputFileName = "Untitled.eva";
    EXPECT_EQ(ModelFromTexts(ExampleTexts()), expected);
}

TEST(ModelFromTexts, LeavesThicknessAndSlipRateOfTheLastLayerAtZero) {
    PavementTexts texts = ExampleTexts();
    texts.Layers[2] = {"1000", "0.4", "12", "0.5"};
    const PavementModel model = ModelFromTexts(texts);
    EXPECT_EQ(model.Layers[2].Thickness, 0);
    EXPECT_EQ(model.Layers[2].SlipRate, 0);
}

TEST(ModelFromTexts, RoundsLayerNumbersHalfToEven) {
    PavementTexts texts = ExampleTexts();
    texts.Points[1][0] = "1.5";
    EXPECT_EQ(ModelFromTexts(texts).Points[1].LayerNumber, 2);
    texts.Points[1][0] = "2.5";
    EXPECT_EQ(ModelFromTexts(texts).Points[1].LayerNumber, 2);
    texts.Points[1][0] = "1a";  // here the prefix counts; only DATA OK! is strict
    EXPECT_EQ(ModelFromTexts(texts).Points[1].LayerNumber, 1);
}

TEST(ModelFromTexts, CountsBeyondTheBoundsAreFaultNine) {
    PavementTexts texts = ExampleTexts();
    texts.LayerCount = " 101";
    texts.Layers.assign(102, {"1", "0.3", "1", "0"});
    EXPECT_EQ(FaultOf([&] { ModelFromTexts(texts); }), 9);
    texts.LayerCount = " 40000";
    EXPECT_EQ(FaultOf([&] { ModelFromTexts(texts); }), 6);
}

TEST(ValidateData, PassesTheExample) {
    EXPECT_EQ(ValidateData(ExampleTexts()), DataRule::None);
    EXPECT_EQ(MessageOf(DataRule::None), 0);
}

TEST(ValidateData, AppliesTheRulesInOrderAndEachHasItsMessage) {
    PavementTexts texts = ExampleTexts();
    texts.Points[1][3] = "5.1";  // below the bottom of layer 1 at 5 cm
    EXPECT_EQ(ValidateData(texts), DataRule::PointDepths);
    texts.Points[1][3] = "-1";
    EXPECT_EQ(ValidateData(texts), DataRule::Points);
    texts.Loads[1][1] = "0";
    EXPECT_EQ(ValidateData(texts), DataRule::Loads);
    texts.Layers[1][2] = "0";
    EXPECT_EQ(ValidateData(texts), DataRule::Layers);
    texts.ResultFileName = "";
    EXPECT_EQ(ValidateData(texts), DataRule::FileNames);
    texts.PointCount = " 0";
    EXPECT_EQ(ValidateData(texts), DataRule::Counts);

    EXPECT_EQ(MessageOf(DataRule::Counts), 58);
    EXPECT_EQ(MessageOf(DataRule::FileNames), 63);
    EXPECT_EQ(MessageOf(DataRule::Layers), 59);
    EXPECT_EQ(MessageOf(DataRule::Loads), 60);
    EXPECT_EQ(MessageOf(DataRule::Points), 61);
    EXPECT_EQ(MessageOf(DataRule::PointDepths), 61);
}

TEST(ValidateData, AnEmptyLayerNumberIsTheFaultAndNotTheMessage) {
    PavementTexts texts = ExampleTexts();
    texts.Points[1][0] = "";
    EXPECT_EQ(FaultOf([&] { ValidateData(texts); }), 13);
    texts.Loads[1][1] = "0";  // a rule above ends first
    EXPECT_EQ(ValidateData(texts), DataRule::Loads);
}

TEST(ValidateData, OneLayerNeedsOnlyModulusAndPoissonRatio) {
    PavementTexts texts = ExampleTexts();
    texts.LayerCount = " 1";
    texts.Layers = {{}, {"1000", "0.4", "", ""}};
    texts.Points = {{}, {"1", "0", "0", "5000"}};
    EXPECT_EQ(ValidateData(texts), DataRule::None);
}

TEST(ValidateData, TheLimitsOfTheCountsAreLegal) {
    PavementTexts texts = ExampleTexts();
    texts.LayerCount = " 100";
    texts.LoadCount = " 100";
    texts.PointCount = " 10000";
    texts.Layers.assign(101, {"1000", "0.4", "2", "0"});
    texts.Loads.assign(101, {"49", "15", "0", "0", "0", "0"});
    texts.Points.assign(10001, {"100", "0", "0", "198"});
    EXPECT_EQ(ValidateData(texts), DataRule::None);
    texts.Points[10000][3] = "197";
    EXPECT_EQ(ValidateData(texts), DataRule::PointDepths);
}

TEST(ValidateLoadedPavement, AppliesTheSharedRulesInTheSameOrderToTwoCountsAndOneName) {
    PavementTexts texts = ExampleTexts();
    texts.PointCount = "";  // points and reports are the analysis's own
    texts.ResultFileName = "";
    EXPECT_EQ(ValidateLoadedPavement(texts), DataRule::None);
    texts.Loads[1][1] = "0";
    EXPECT_EQ(ValidateLoadedPavement(texts), DataRule::Loads);
    texts.Layers[1][2] = "0";
    EXPECT_EQ(ValidateLoadedPavement(texts), DataRule::Layers);
    texts.InputFileName = "";
    EXPECT_EQ(ValidateLoadedPavement(texts), DataRule::FileNames);
    texts.LoadCount = " 0";
    EXPECT_EQ(ValidateLoadedPavement(texts), DataRule::Counts);
}

TEST(LoadedPavementFromTexts, IsTheModelWithoutItsPoints) {
    EXPECT_EQ(LoadedPavementFromTexts(ExampleTexts()), static_cast<const LoadedPavement&>(test::ExampleModel()));
    PavementTexts texts = ExampleTexts();
    texts.LoadCount = " 3";  // of which the grid has one
    EXPECT_EQ(FaultOf([&] { LoadedPavementFromTexts(texts); }), 9);
}

}  // namespace
}  // namespace zirvo
