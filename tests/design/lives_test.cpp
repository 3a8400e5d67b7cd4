// Lives against numbers worked by hand with logarithms of six digits, so right to 1E-4.
#include "design/lives.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <set>

#include "platform/temporary_folder.h"

namespace zirvo::design {
namespace {

constexpr double ByHand = 1e-4;
constexpr double Infinity = std::numeric_limits<double>::infinity();

double Life(const char* name, double strain, double modulus = 1, double c = 1) {
    const auto function = TransferFunctionOf(name);
    EXPECT_EQ(function.index(), 0U) << std::get<std::string>(function);
    return LifeOf(std::get<TransferFunction>(function), strain, modulus, c);
}

void ExpectByHand(double value, double expected) {
    EXPECT_NEAR(value / expected, 1, ByHand) << value;
}

// E = 3000 MPa = 435113 psi, log 5.638602, times 0.854 = 4.815366. e = 2E-4, -log 3.698970, times 3.291 = 12.173310.
// log 0.00432 = -2.364516. Sum 12.173310 - 4.815366 - 2.364516 = 4.993428: N = 98498.
TEST(Lives, FatigueInTheLaboratoryIsTheHandWorkedLife) {
    ExpectByHand(Life("ai-fatigue-lab", 200e-6, 3000), 98498);
}

// The same with 18.4 * 4.325E-3 = 0.07958, log -1.099196: 12.173310 - 4.815366 - 1.099196 = 6.258748: N = 1.81446E6.
TEST(Lives, FatigueOnTheRoadIsTheHandWorkedLife) {
    ExpectByHand(Life("ai-fatigue", 200e-6, 3000), 1.81446e6);
}

// e = 5E-4, -log 3.301030, times 4.477 = 14.778711; log 1.365E-9 = -8.864869. Sum 5.913842: N = 820054.
TEST(Lives, RuttingIsTheHandWorkedLife) {
    ExpectByHand(Life("ai-rutting", 500e-6), 820054);
}

// The metric variants that textbooks print: 6.16E-5 and 1.135E-3 with E in MPa, in three or four digits.
TEST(Lives, InMegapascalsTheCoefficientsAreThoseThatTextbooksPrint) {
    EXPECT_NEAR(Life("ai-fatigue-lab", 1, 1), 6.16e-5, 0.005e-5);
    EXPECT_NEAR(Life("ai-fatigue", 1, 1), 1.135e-3, 0.0005e-3);
}

// log e = -3.698970. 3.89 * 3.698970 = 14.388993; log 1.6064E-4 = -3.794146, E = 3000: 0.854 * 3.477121 = 2.969461.
// Sum 7.625386: N = 4.22072E7; with 0.5161E-4, log -4.287266: sum 7.132266: N = 1.35602E7.
// Rutting: 4.5337 * 3.301030 = 14.965880; log 4.1656E-8 = -7.380322: sum 7.585558: N = 3.85086E7; log 1.41E-8 =
// -7.850781: sum 7.115099: N = 1.30346E7.
TEST(Lives, TheIndianFunctionsAreTheHandWorkedLives) {
    ExpectByHand(Life("irc37-fatigue-80", 200e-6, 3000), 4.22072e7);
    ExpectByHand(Life("irc37-fatigue-90", 200e-6, 3000), 1.35602e7);
    ExpectByHand(Life("irc37-rutting-80", 500e-6), 3.85086e7);
    ExpectByHand(Life("irc37-rutting-90", 500e-6), 1.30346e7);
}

// -9.38 + 4.16 * 4 = 7.26: N = 1.81970E7 at e = 1E-4; -9.78 + 4.32 * 4 = 7.5: 3.16228E7; -7.21 + 3.95 * 3.301030 =
// 5.829069: N = 674635 at e = 5E-4.
TEST(Lives, TheBritishFunctionsAreTheHandWorkedLives) {
    ExpectByHand(Life("lr1132-fatigue-dbm", 100e-6), 1.81970e7);
    ExpectByHand(Life("lr1132-fatigue-hra", 100e-6), 3.16228e7);
    ExpectByHand(Life("lr1132-deformation", 500e-6), 674635);
}

// (9150 / 915)^7 = 1E7.
TEST(Lives, TheAustralianSubgradeStandsTenMillionAtATenthOfItsConstant) {
    ExpectByHand(Life("austroads-subgrade", 915e-6), 1e7);
}

// 11 / (5 + 11) = 0.6875; 4.84 * (0.6875 - 0.69) = -0.0121; 10^-0.0121 = 0.97252.
TEST(Lives, TheMixFactorIsTheHandWorkedOneAndScalesFatigueAlone) {
    ExpectByHand(MixFactor(5, 11), 0.97252);
    EXPECT_DOUBLE_EQ(Life("ai-fatigue", 200e-6, 3000, 0.5), 0.5 * Life("ai-fatigue", 200e-6, 3000));
    EXPECT_EQ(Life("ai-rutting", 200e-6, 3000, 0.5), Life("ai-rutting", 200e-6, 3000));
}

TEST(Lives, AStrainThatDoesNoHarmIsStoodForEver) {
    EXPECT_EQ(Life("ai-fatigue", 0, 3000), Infinity);
    EXPECT_EQ(Life("ai-rutting", -1e-6), Infinity);
}

TEST(Lives, OfAStrainThatIsNoNumberNoLifeIsKnown) {
    EXPECT_TRUE(std::isnan(Life("ai-rutting", std::numeric_limits<double>::quiet_NaN())));
}

// 1E-8 (2E-4)^-3 100^-0.5 = 1E-8 * 1.25E11 / 10 = 125; 1E-9 (5E-4)^-4 = 1E-9 * 1.6E13 = 16000.
TEST(Lives, CoefficientsOfOnesOwnAreTaken) {
    ExpectByHand(Life("fatigue=1E-8/3/0.5", 200e-6, 100), 125);
    ExpectByHand(Life("rutting=1E-9/4", 500e-6), 16000);
    for (const char* bad : {"fatigue=1/2", "rutting=1/2/3", "fatigue=a/2/3", "rutting=-1/4", "rutting=1/0", "creep=1/2",
                            "ai", "", "fatigue=", "rutting=1E400/4/"}) {
        EXPECT_EQ(TransferFunctionOf(bad).index(), 1U) << bad;
    }
}

// In a plane (300, 100, 0 shear): 300. Turned by 45 degrees: both 200, shear strain 200: again 300.
TEST(Lives, PowersThatNoNumberHoldsMakeALifeAllTheSame) {
    // 1E400 times 1E-400; 1E-4^-80 1E4^-100 = 1E-80; 2^-1100 2^1000 5 = 5 2^-100.
    EXPECT_NEAR(Life("fatigue=1/100/100", 1e-4, 1e4), 1, 1e-12);
    EXPECT_NEAR(Life("fatigue=1/80/100", 1e-4, 1e4) / 1e-80, 1, 1e-12);
    EXPECT_NEAR(Life("fatigue=5/1000/1100", 0.5, 2) / std::ldexp(5, -100), 1, 1e-12);
    // What is beyond all numbers is without an end, or nothing.
    EXPECT_EQ(Life("fatigue=1.1e6/63907.291/0.851e6", 1e-9, 3000), 0);
    EXPECT_EQ(Life("fatigue=1.1e6/63907.291/1", 1e-9, 3000), Infinity);
    EXPECT_EQ(Life("fatigue=1e300/1e308/1e308", 1e-9, 1e-300, 1e300), Infinity);
}

TEST(Lives, TheStrainOfFatigueIsTheLargestInThePlaneWhateverTheAxes) {
    std::array<double, solver::ComponentCount> values{};
    values[solver::EPSx] = 300;
    values[solver::EPSy] = 100;
    EXPECT_EQ(StrainOf(LifeKind::Fatigue, values), 300);
    values[solver::EPSx] = values[solver::EPSy] = 200;
    values[solver::GAMxy] = 200;
    EXPECT_EQ(StrainOf(LifeKind::Fatigue, values), 300);
    values[solver::EPSz] = -500;
    EXPECT_EQ(StrainOf(LifeKind::Rutting, values), 500);
}

// 100 / 1000 + 50 / 200 + 7 / infinity = 0.35.
TEST(Lives, DamagesOfDifferentLoadsAddUp) {
    EXPECT_DOUBLE_EQ(MinerDamage(std::array{100.0, 50.0, 7.0}, std::array{1000.0, 200.0, Infinity}), 0.35);
}

TEST(Lives, EveryFunctionHasANameOfItsOwnAndASource) {
    std::set<std::string> names;
    for (const TransferFunction& function : TransferFunctions()) {
        EXPECT_TRUE(names.insert(function.Name).second);
        EXPECT_GT(function.Source.size(), 10U);
    }
}

TEST(Lives, ATableOfAxleLoadsIsReadOrRefusedWithItsLine) {
    const TemporaryFolder folder;
    const auto read = ReadAxleLoads(folder.Put("a.csv", "load,repetitions\n80,1E6\n130,2000\n"));
    ASSERT_EQ(read.index(), 0U);
    EXPECT_EQ(std::get<0>(read)[1].Load, 130);
    EXPECT_EQ(std::get<0>(read)[0].Repetitions, 1e6);
    const auto told = [&](const char* bytes) {
        return std::get<FileError>(ReadAxleLoads(folder.Put("a.csv", bytes))).Text().substr(folder.Path().size() + 1);
    };
    EXPECT_EQ(told("load,repetitions\n80,5\n0,5\n"), "a.csv:3: load 0: is not above 0");
    EXPECT_EQ(told("load,repetitions\n80,-5\n"), "a.csv:2: repetitions -5: is below 0");
    EXPECT_EQ(told("load,n\n80,5\n"), "a.csv: the headings of a table of axle loads are load,repetitions");
}

}  // namespace
}  // namespace zirvo::design
