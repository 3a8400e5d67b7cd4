// The layer of an X-Y plane: depths, questions at interfaces, and the odd rows that sums of doubles bring.
#include "graphics/section.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "base/fault_of.h"
#include "text/catalogue.h"

namespace zirvo {
namespace {

/// Answers from a list and writes down what was asked; a question too many fails the test and is a No.
class Script {
public:
    explicit Script(std::vector<bool> answers) : answers_(std::move(answers)) {}

    LayerQuestion Ask() {
        return [this](Int16 layer, std::string_view title) {
            Asked.push_back(std::to_string(layer) + " " + std::string(title));
            if (Asked.size() > answers_.size()) {
                ADD_FAILURE() << "not expected: " << Asked.back();
                return false;
            }
            return bool{answers_[Asked.size() - 1]};
        };
    }

    std::vector<std::string> Asked;

private:
    std::vector<bool> answers_;
};

using Questions = std::vector<std::string>;

std::optional<Int16> Resolve(double position, const std::vector<double>& thicknesses, Script& script,
                             Int16 base = EnglishBase) {
    std::vector<double> rows{0};
    rows.insert(rows.end(), thicknesses.begin(), thicknesses.end());
    return ResolveLayerOfInterest(position, rows, static_cast<Int16>(rows.size()), base, script.Ask());
}

/// Without any question.
Int16 LayerAt(double position, const std::vector<double>& thicknesses) {
    Script silent({});
    return Resolve(position, thicknesses, silent).value_or(-1);
}

TEST(ResolveLayerOfInterest, OneLayerIsTheLayerOfEveryPosition) {
    for (const double position : {-5.0, 0.0, 0.5, 1e9}) {
        EXPECT_EQ(LayerAt(position, {}), 1);
    }
}

TEST(ResolveLayerOfInterest, TheSurfaceIsLayerOneWithoutAQuestion) {
    EXPECT_EQ(LayerAt(0, {10, 20}), 1);
    EXPECT_EQ(LayerAt(-0.0, {10, 20}), 1);
    EXPECT_EQ(LayerAt(0, {0, 20}), 1) << "exactly 0 comes before all, also before an interface at 0";
}

TEST(ResolveLayerOfInterest, ADepthBetweenInterfacesIsInItsLayer) {
    EXPECT_EQ(LayerAt(1e-300, {10, 20}), 1);
    EXPECT_EQ(LayerAt(9.99, {10, 20}), 1);
    EXPECT_EQ(LayerAt(10.01, {10, 20}), 2);
    EXPECT_EQ(LayerAt(29.99, {10, 20}), 2);
}

TEST(ResolveLayerOfInterest, BeyondTheLastInterfaceAndAboveTheSurfaceItIsTheLastLayer) {
    EXPECT_EQ(LayerAt(30.01, {10, 20}), 3);
    EXPECT_EQ(LayerAt(-0.01, {10, 20}), 3);
    EXPECT_EQ(LayerAt(-1e9, {10, 20}), 3);
}

TEST(ResolveLayerOfInterest, YesAtAnInterfaceIsTheLayerAbove) {
    Script yes({true});
    EXPECT_EQ(Resolve(10, {10, 20}, yes), 1);
    EXPECT_EQ(yes.Asked, Questions{"1 LAYER OF INTEREST"});
}

TEST(ResolveLayerOfInterest, NoAndThenYesIsTheLayerBelow) {
    Script script({false, true});
    EXPECT_EQ(Resolve(30, {10, 20}, script), 3);
    EXPECT_EQ(script.Asked, (Questions{"2 LAYER OF INTEREST", "3 着 目 層"}));
}

TEST(ResolveLayerOfInterest, TwiceNoIsRefused) {
    Script script({false, false});
    EXPECT_EQ(Resolve(10, {10, 20}, script), std::nullopt);
    EXPECT_EQ(script.Asked.size(), 2U) << "nothing more is asked";
}

// The catalogue's Japanese title has ideographic spaces; the second question's own literal has plain blanks.
TEST(ResolveLayerOfInterest, TheSecondTitleIsALiteralWithPlainBlanksInBothLanguages) {
    for (const Int16 base : {JapaneseBase, EnglishBase}) {
        Script script({false, true});
        EXPECT_EQ(Resolve(10, {10}, script, base), 2);
        EXPECT_EQ(script.Asked[0], "1 " + std::string(base == JapaneseBase ? "着　目　層" : "LAYER OF INTEREST"));
        EXPECT_EQ(script.Asked[1], "2 着 目 層");
    }
}

// 0.1 + 0.1 + 0.1 is 0.30000000000000004, which is not 0.3, so that 0.3 lies strictly inside layer 3.
TEST(ResolveLayerOfInterest, ASumThatMissesTheDepthByRoundingIsNoInterface) {
    EXPECT_EQ(LayerAt(0.3, {0.1, 0.1, 0.1}), 3);
}

// Layer 2 goes from 0.1 to 0.30000000000000004, but this less 0.2 is 0.10000000000000003: the depth one step below 0.1
// is in neither layer.
TEST(ResolveLayerOfInterest, ADepthJustBelowAnInterfaceCanMatchNoLayerAndFallsToTheLast) {
    EXPECT_EQ(LayerAt(std::nextafter(0.1, 1), {0.1, 0.2, 5}), 4);
}

// At the interface 0.1: layer 2 ends at 0.5, and this less 0.4 is 0.09999999999999998, so that 0.1 itself lies strictly
// inside layer 2 by rounding.
TEST(ResolveLayerOfInterest, TheAnswerStandsWhereTheLayerBelowMatchesByRounding) {
    Script script({true});
    EXPECT_EQ(Resolve(0.1, {0.1, 0.4}, script), 1);
}

// 1E17 + 1 is 1E17 again: layers 1 and 2 end at one depth.
TEST(ResolveLayerOfInterest, AThicknessLostInTheSumAsksTwiceForOneInterface) {
    Script keeps({true, true});
    EXPECT_EQ(Resolve(1e17, {1e17, 1}, keeps), 2);
    EXPECT_EQ(keeps.Asked, (Questions{"1 LAYER OF INTEREST", "2 LAYER OF INTEREST"}));
    Script refuses({true, false, false});
    EXPECT_EQ(Resolve(1e17, {1e17, 1}, refuses), std::nullopt);
    EXPECT_EQ(refuses.Asked.size(), 3U);
}

TEST(ResolveLayerOfInterest, FewerThicknessesThanLayersAreFaultNine) {
    Script script({});
    const std::vector<double> rows{0, 10};
    EXPECT_EQ(FaultOf([&] { ResolveLayerOfInterest(15, rows, 3, EnglishBase, script.Ask()); }), 9);
}

}  // namespace
}  // namespace zirvo
