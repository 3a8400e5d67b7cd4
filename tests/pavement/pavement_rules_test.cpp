// The rules on numbers: layers, loads, depths, names.
#include "pavement/pavement_rules.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "base/fault_of.h"
#include "pavement/support.h"

namespace zirvo {
namespace {

bool LayerPasses(double modulus, double poisson, double thickness, double slip, bool last = false) {
    return Passes(JudgeLayer({modulus, poisson, thickness, slip}, last));
}

TEST(JudgeLayer, LimitsThemselvesPassAndWhatIsBeyondDoesNot) {
    EXPECT_TRUE(LayerPasses(35000, 0.35, 5, 0));
    EXPECT_TRUE(LayerPasses(35000, 0.5, 5, 0));
    EXPECT_FALSE(LayerPasses(35000, std::nextafter(0.5, 1), 5, 0));
    EXPECT_FALSE(LayerPasses(35000, 0, 5, 0));
    EXPECT_TRUE(LayerPasses(35000, 1e-9, 5, 0));
    EXPECT_TRUE(LayerPasses(35000, 0.35, 5, 0.99));
    EXPECT_FALSE(LayerPasses(35000, 0.35, 5, 0.990001));
    EXPECT_FALSE(LayerPasses(35000, 0.35, 5, -1e-9));
    EXPECT_FALSE(LayerPasses(0, 0.35, 5, 0));
    EXPECT_FALSE(LayerPasses(-1, 0.35, 5, 0));
    EXPECT_FALSE(LayerPasses(35000, 0.35, 0, 0));
    EXPECT_FALSE(LayerPasses(35000, 0.35, -5, 0));
}

TEST(JudgeLayer, OfTheLastLayerOnlyModulusAndPoissonRatioCount) {
    EXPECT_TRUE(LayerPasses(1000, 0.4, -5, 7, true));
    EXPECT_FALSE(LayerPasses(0, 0.4, 5, 0, true));
    EXPECT_FALSE(LayerPasses(1000, 0, 5, 0, true));
    EXPECT_FALSE(LayerPasses(1000, 0.51, 5, 0, true));
}

TEST(JudgeLayer, NamesEveryValueThatFails) {
    const RowRefusals<4> expected{Refusal::NotPositive, Refusal::AbovePoissonLimit, Refusal::NotPositive,
                                  Refusal::AboveSlipLimit};
    EXPECT_EQ(JudgeLayer({0, 0.6, 0, 1}, false), expected);
    const RowRefusals<4> negative{Refusal::NotPositive, Refusal::NotPositive, Refusal::None, Refusal::Negative};
    EXPECT_EQ(JudgeLayer({-1, -1, 1, -1}, false), negative);
}

TEST(JudgeLayer, ANumberThatIsNoneNeverPasses) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(LayerPasses(nan, 0.35, 5, 0));
    EXPECT_FALSE(LayerPasses(1, nan, 5, 0));
    EXPECT_FALSE(LayerPasses(1, 0.35, nan, 0));
    EXPECT_FALSE(LayerPasses(1, 0.35, 5, nan));
}

TEST(JudgeLoad, EitherLoadIsEnoughAndSignsAreFree) {
    EXPECT_TRUE(Passes(JudgeLoad({49, 15, 0, 0, 0, 0})));
    EXPECT_TRUE(Passes(JudgeLoad({-100, 15, 0, 0, 0, 0})));
    EXPECT_TRUE(Passes(JudgeLoad({0, 15, 0, 0, 10, 0})));
    EXPECT_TRUE(Passes(JudgeLoad({0, 15, -1e6, 1e6, -10, 12345})));
    EXPECT_TRUE(Passes(JudgeLoad({1e-300, 15, 0, 0, 0, 0})));  // exactly 0 is what is refused
    EXPECT_FALSE(Passes(JudgeLoad({0, 15, 0, 0, 0, 0})));
    EXPECT_FALSE(Passes(JudgeLoad({-0.0, 15, 0, 0, 0, 0})));
    EXPECT_FALSE(Passes(JudgeLoad({49, 0, 0, 0, 0, 0})));
    EXPECT_FALSE(Passes(JudgeLoad({49, -15, 0, 0, 0, 0})));
}

/// Layers of 10 cm, then 20 cm, then the last one.
class PointDepths : public testing::Test {
protected:
    std::vector<PavementLayer> Layers{{}, {1, 0.3, 10, 0}, {1, 0.3, 20, 0}, {1, 0.3, 0, 0}};

    Refusal Judge(int layer, double z) const {
        return JudgePointDepth({static_cast<Int16>(layer), 0, 0, z}, ComputeLayerTops(Layers),
                               static_cast<int>(Layers.size()) - 1);
    }
};

TEST_F(PointDepths, APointOnAnInterfaceBelongsToBothNeighbours) {
    EXPECT_EQ(Judge(1, 10), Refusal::None);
    EXPECT_EQ(Judge(2, 10), Refusal::None);
    EXPECT_EQ(Judge(2, 30), Refusal::None);
    EXPECT_EQ(Judge(3, 30), Refusal::None);
    EXPECT_EQ(Judge(1, 30), Refusal::BelowItsLayer);
    EXPECT_EQ(Judge(3, 10), Refusal::AboveItsLayer);
}

TEST_F(PointDepths, TheToleranceIsATenBillionthOfACentimetre) {
    EXPECT_EQ(Judge(1, 10.00000000005), Refusal::None);
    EXPECT_EQ(Judge(1, 10.0000001), Refusal::BelowItsLayer);
    EXPECT_EQ(Judge(3, 30 - 5e-11), Refusal::None);
    EXPECT_EQ(Judge(3, 30 - 2e-10), Refusal::AboveItsLayer);
    EXPECT_EQ(Judge(1, -5e-11), Refusal::None);
    EXPECT_EQ(Judge(1, -2e-10), Refusal::AboveItsLayer);
}

// With T = 10 the sums T - e and T + e are rounded to doubles (step 1.8E-15 at 10); a z that equals the rounded sum
// passes, its neighbour beyond does not. A test of z - T < -e would decide otherwise: z - T is exact here.
TEST_F(PointDepths, ComparesTheRoundedSumsOfTopAndTolerance) {
    const double lowest = 10.0 - 1e-10;
    const double highest = 10.0 + 1e-10;
    EXPECT_EQ(Judge(2, lowest), Refusal::None);
    EXPECT_EQ(Judge(2, std::nextafter(lowest, 0)), Refusal::AboveItsLayer);
    EXPECT_EQ(Judge(1, highest), Refusal::None);
    EXPECT_EQ(Judge(1, std::nextafter(highest, 11)), Refusal::BelowItsLayer);
    // The difference form: 10 - lowest is 1.000000082740371E-10 > e, so it would refuse what the sums let pass.
    EXPECT_GT(10.0 - lowest, 1e-10);
}

TEST_F(PointDepths, TheLastLayerHasNoLowerLimit) {
    EXPECT_EQ(Judge(3, 1e300), Refusal::None);
    EXPECT_EQ(Judge(3, 29), Refusal::AboveItsLayer);
}

TEST_F(PointDepths, LayerNumbersOutsideTheCountFailWhateverTheDepth) {
    EXPECT_EQ(Judge(-1, 0), Refusal::NoSuchLayer);
    EXPECT_EQ(Judge(4, 100), Refusal::NoSuchLayer);
    EXPECT_EQ(Judge(-32768, 0), Refusal::NoSuchLayer);
    EXPECT_EQ(Judge(32767, 0), Refusal::NoSuchLayer);
}

TEST_F(PointDepths, LayerNumberZeroIsALayerWithoutThicknessAtTheSurface) {
    EXPECT_EQ(Judge(0, 0), Refusal::None);
    EXPECT_EQ(Judge(0, 5e-11), Refusal::None);
    EXPECT_EQ(Judge(0, 1e-9), Refusal::BelowItsLayer);
    EXPECT_EQ(Judge(0, -1e-9), Refusal::AboveItsLayer);
}

TEST_F(PointDepths, WithOneLayerEveryPointIsOneOfTheLastLayerAlsoUnderNumberZero) {
    Layers = {{}, {1, 0.3, 0, 0}};
    EXPECT_EQ(Judge(1, 0), Refusal::None);
    EXPECT_EQ(Judge(1, 1e9), Refusal::None);
    EXPECT_EQ(Judge(0, 1e9), Refusal::None);
    EXPECT_EQ(Judge(1, -1), Refusal::AboveItsLayer);
    EXPECT_EQ(Judge(2, 0), Refusal::NoSuchLayer);
}

TEST_F(PointDepths, AHundredLayersAreJudgedToTheLast) {
    Layers.assign(101, PavementLayer{1, 0.3, 2, 0});
    EXPECT_EQ(Judge(99, 198), Refusal::None);   // 98 layers of 2 cm above it, itself to 198
    EXPECT_EQ(Judge(100, 198), Refusal::None);  // 99 layers above
    EXPECT_EQ(Judge(100, 197), Refusal::AboveItsLayer);
    EXPECT_EQ(Judge(101, 300), Refusal::NoSuchLayer);
}

TEST_F(PointDepths, ValidationStopsAtTheFirstFailureAndLooksAtEveryRow) {
    const LayerTops tops = ComputeLayerTops(Layers);
    std::vector<InterestPoint> points{{99, 0, 0, 0}, {1, 0, 0, 5}, {3, 0, 0, 31}};  // row 0 is no point
    EXPECT_TRUE(ValidatePointDepths(points, tops, 3));
    points.push_back({2, 0, 0, 5});
    EXPECT_FALSE(ValidatePointDepths(points, tops, 3));
}

TEST_F(PointDepths, MoreLayersThanThereAreTopsAreFaultNine) {
    EXPECT_EQ(FaultOf([&] { JudgePointDepth({1, 0, 0, 0}, LayerTops{}, 101); }), 9);
}

TEST(JudgeReportName, GoesByTheFirstPointAndTheCase) {
    EXPECT_EQ(JudgeReportName("run.bre", ".bre"), Refusal::None);
    EXPECT_EQ(JudgeReportName(".bre", ".bre"), Refusal::None);
    EXPECT_EQ(JudgeReportName("", ".bre"), Refusal::Empty);
    EXPECT_EQ(JudgeReportName("run", ".bre"), Refusal::NoPoint);
    EXPECT_EQ(JudgeReportName("run.san", ".bre"), Refusal::WrongExtension);
    EXPECT_EQ(JudgeReportName("run.BRE", ".bre"), Refusal::WrongExtension);
    // Before the first point stands "a", and "a.bre" is another name.
    EXPECT_EQ(JudgeReportName("a.b.bre", ".bre"), Refusal::WrongExtension);
    EXPECT_EQ(JudgeReportName("run.bre ", ".bre"), Refusal::WrongExtension);
}

TEST(NormaliseFileName, GivesTheExtensionAndUnderscoresForEveryOtherPoint) {
    EXPECT_EQ(NormaliseFileName("run", ".eva"), "run.eva");
    EXPECT_EQ(NormaliseFileName("run.eva", ".eva"), "run.eva");
    EXPECT_EQ(NormaliseFileName("run.txt", ".eva"), "run_txt.eva");
    EXPECT_EQ(NormaliseFileName("a.b.eva", ".eva"), "a_b_eva.eva");
    EXPECT_EQ(NormaliseFileName("RUN.EVA", ".eva"), "RUN_EVA.eva");
    EXPECT_EQ(NormaliseFileName("", ".eva"), ".eva");
    EXPECT_EQ(NormaliseFileName(".eva", ".eva"), ".eva");
    EXPECT_EQ(NormaliseFileName("run.", ".eva"), "run_.eva");
    EXPECT_EQ(NormaliseFileName("run.bre", ".san"), "run_bre.san");
    EXPECT_EQ(NormaliseFileName("舗装.1", ".bre"), "舗装_1.bre");
}

TEST(NormaliseFileName, AResultPassesTheRuleThatFilesApply) {
    for (const char* name : {"", ".", "..", "a", "a.bre", "a.b.bre", "A.BRE", "a bre", "道.路"}) {
        EXPECT_EQ(JudgeReportName(NormaliseFileName(name, ".bre"), ".bre"), Refusal::None) << name;
        EXPECT_EQ(NormaliseFileName(NormaliseFileName(name, ".bre"), ".bre"), NormaliseFileName(name, ".bre")) << name;
    }
}

}  // namespace
}  // namespace zirvo
