// `zirvo-batch lives` as a user runs it.
#include <gtest/gtest.h>

#include <cmath>

#include "batch/film.h"
#include "batch/work_folder.h"

namespace zirvo::test {
namespace {

using Arguments = std::vector<std::string>;

constexpr double StatedDigits = 2e-4;  // of strains that are stated with five digits, to the power of four

std::vector<std::string> Row(const std::string& out, std::size_t line) {
    const std::vector<std::string> lines = LinesOf(out);
    return line < lines.size() ? FieldsOf(lines[line]) : std::vector<std::string>(12);
}

// From the strains that samples/README.md states, 182.12 and -502.73 micro, by logarithms of six digits. Fatigue: 3.291
// * 3.739642 = 12.307162, E = 5000 MPa = 725189 psi, 0.854 * 5.860451 = 5.004825, log 0.07958 = -1.099196:
// sum 6.203141, N = 1.59640E6. Rutting: 4.477 * 3.298665 = 14.768123 - 8.864869 = 5.903254, N = 800302.
TEST(Lives, OfTheRoadAreThoseWorkedByHand) {
    const WorkFolder folder;
    folder.PutSample("road.eva");
    const Outcome outcome =
        folder.Batch({"lives", "road.eva", "--units", "3", "--life", "ai-fatigue:2", "--life", "ai-rutting:5"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    EXPECT_EQ(LinesOf(outcome.Out).size(), 3U);
    EXPECT_EQ(LinesOf(outcome.Out)[0], "function,point,layer,x,y,z,load,strain,modulus,life");
    const auto fatigue = Row(outcome.Out, 1);
    EXPECT_EQ(fatigue[0], "ai-fatigue");
    EXPECT_EQ(fatigue[1], "2");
    EXPECT_EQ(fatigue[5], "15");
    EXPECT_EQ(fatigue[6], "49");
    EXPECT_EQ(fatigue[8], "5000");
    EXPECT_NEAR(std::stod(fatigue[7]), 182.12, 0.005);
    EXPECT_NEAR(std::stod(fatigue[9]) / 1.59640e6, 1, StatedDigits);
    const auto rutting = Row(outcome.Out, 2);
    EXPECT_NEAR(std::stod(rutting[7]), 502.73, 0.005);
    EXPECT_NEAR(std::stod(rutting[9]) / 800302, 1, StatedDigits);
}

// Strains are proportional to the load on the same circle: twice the load, 2^-4.477 = 0.044901 of the life.
// Damage: 1000 / 800302 + 1000 / 35934 = 0.001250 + 0.027829 = 0.029078.
TEST(Lives, DamageOverATableOfAxleLoadsIsTheHandWorkedSum) {
    const WorkFolder folder;
    folder.PutSample("road.eva");
    folder.Put("axles.csv", "load,repetitions\n49,1000\n98,1000\n");
    const Outcome outcome = folder.Batch(
        {"lives", "road.eva", "--units", "3", "--life", "ai-rutting:5", "--axles", "axles.csv", "--csv", "out.csv"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    EXPECT_EQ(outcome.Out, "");
    const std::string out = folder.Get("out.csv");
    EXPECT_EQ(LinesOf(out)[0], "function,point,layer,x,y,z,load,strain,modulus,life,repetitions,damage");
    EXPECT_NEAR(std::stod(Row(out, 2)[9]) / std::stod(Row(out, 1)[9]), std::pow(2, -4.477), 1e-6);
    EXPECT_EQ(Row(out, 3)[6], "all");
    EXPECT_EQ(Row(out, 3)[10], "2000");
    EXPECT_NEAR(std::stod(Row(out, 3)[11]) / 0.029078, 1, StatedDigits);
    EXPECT_NEAR(std::stod(Row(out, 3)[9]), 2000 / std::stod(Row(out, 3)[11]), 1e-6);
}

// Four times the load at the same pressure is a circle of twice the radius: the file with 196 kN on 30 cm.
TEST(Lives, AtTheSamePressureTheCirclesGrow) {
    const WorkFolder folder;
    folder.PutSample("road.eva");
    folder.Put("wide.eva", With(SampleBytes("road.eva"), "        49               15", "       196               30"));
    folder.Put("axles.csv", "load,repetitions\n196,1\n");
    const Arguments life{"--units", "3", "--life", "ai-rutting:5", "--life", "ai-fatigue:2"};
    Arguments line{"lives", "road.eva", "--axles", "axles.csv", "--keep", "pressure"};
    line.insert(line.end(), life.begin(), life.end());
    Arguments whole{"lives", "wide.eva"};
    whole.insert(whole.end(), life.begin(), life.end());
    const Outcome scaled = folder.Batch(line);
    const Outcome read = folder.Batch(whole);
    ASSERT_EQ(scaled.Code, 0) << scaled.Err;
    EXPECT_NEAR(std::stod(Row(scaled.Out, 1)[9]) / std::stod(Row(read.Out, 1)[9]), 1, 1e-9);
    EXPECT_NEAR(std::stod(Row(scaled.Out, 3)[9]) / std::stod(Row(read.Out, 2)[9]), 1, 1e-9);
}

// 10^(4.84 (0.6875 - 0.69)) = 0.97252; 5000 kgf/cm2 would be 490.3 MPa.
TEST(Lives, MixAndUnitsAreTaken) {
    const WorkFolder folder;
    folder.PutSample("road.eva");
    const Arguments base{"lives", "road.eva", "--units", "3", "--life", "ai-fatigue:2"};
    const auto lifeWith = [&](const Arguments& more) {
        Arguments line = base;
        line.insert(line.end(), more.begin(), more.end());
        return std::stod(Row(folder.Batch(line).Out, 1)[9]);
    };
    const double plain = lifeWith({});
    EXPECT_NEAR(lifeWith({"--voids", "5", "--binder", "11"}) / plain, 0.97252, 1e-5);
    EXPECT_NEAR(lifeWith({"--c", "2"}) / plain, 2, 1e-12);
    folder.PutSample("dual_wheels.eva");
    const Outcome kgf = folder.Batch({"lives", "dual_wheels.eva", "--units", "1", "--life", "fatigue=1/1/0:2"});
    EXPECT_NEAR(std::stod(Row(kgf.Out, 1)[8]), 60000 * 0.0980665, 1e-6) << kgf.Out << kgf.Err;
    EXPECT_EQ(Row(kgf.Out, 1)[6], "5000");
}

TEST(Lives, APointInCompressionIsStoodForEver) {
    const WorkFolder folder;
    folder.PutSample("road.eva");
    const Outcome outcome = folder.Batch({"lives", "road.eva", "--units", "3", "--life", "ai-fatigue:1"});
    EXPECT_EQ(Row(outcome.Out, 1)[9], "inf");
}

TEST(Lives, OfStrainsThatNobodyKnowsAreToldSo) {
    const WorkFolder folder;
    folder.Put("film.eva", Film);
    const Outcome outcome = folder.Batch({"lives", "film.eva", "--units", "3", "--life", "ai-rutting:1"});
    EXPECT_EQ(outcome.Code, 0);
    const std::vector<std::string> told = LinesOf(outcome.Err);
    ASSERT_EQ(told.size(), 2U) << outcome.Err;
    EXPECT_EQ(told[0], "film.eva: 1 point just outside its layer was taken on its boundary");
    EXPECT_EQ(told[1].substr(0, 47), "film.eva: point 1: bound of the relative error ") << told[1];
    EXPECT_NE(told[1].find("E-03, above 1E-9"), std::string::npos) << told[1];
}

TEST(Lives, TheListNamesEveryFunctionWithItsSource) {
    const WorkFolder folder;
    const Outcome outcome = folder.Batch({"lives", "--list"});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_NE(outcome.Out.find("ai-rutting: rutting\n    Asphalt Institute, Research Report 82-2"), std::string::npos);
    EXPECT_NE(
        outcome.Out.find("\n\nHold these coefficients against the document that is named before you sign a design."),
        std::string::npos);
    EXPECT_NE(outcome.Out.find("Japanese design guide"), std::string::npos);
}

TEST(Lives, WrongUsageAndBadInputAreSaid) {
    const WorkFolder folder;
    folder.PutSample("road.eva");
    folder.Put("axles.csv", "load,repetitions\n-1,5\n");
    const std::vector<std::tuple<Arguments, int, std::string>> rows{
        {{"lives"}, 2, "FILE is required"},
        {{"lives", "road.eva"}, 2, "--units is required"},
        {{"lives", "road.eva", "--units", "3"}, 2, "--life is required"},
        {{"lives", "road.eva", "--units", "3", "--life", "ai-fatigue"}, 2, "names no points"},
        {{"lives", "road.eva", "--units", "3", "--life", "creep:1"}, 2, "creep is no transfer function"},
        {{"lives", "road.eva", "--units", "3", "--life", "ai-fatigue:0"}, 2, "numbers from 1 to"},
        {{"lives", "road.eva", "--units", "3", "--life", "ai-fatigue:2,"}, 2, "numbers from 1 to"},
        {{"lives", "road.eva", "--units", "3", "--life", "ai-fatigue:2", "--voids", "5"}, 2, "either C, or both"},
        {{"lives", "road.eva", "--units", "3", "--life", "ai-fatigue:2", "--keep", "pressure"},
         2,
         "--keep: only an axle of a table"},
        {{"lives", "road.eva", "--units", "3", "--life", "ai-fatigue:2", "--c", "0"}, 2, "0 is not above 0"},
        {{"lives", "road.eva", "--units", "3", "--life", "ai-fatigue:2", "--csv", "road.eva"}, 2, "would be lost"},
        {{"lives", "road.eva", "--units", "3", "--life", "ai-fatigue:13"}, 1, "there is no point 13: there are 12"},
        {{"lives", "none.eva", "--units", "3", "--life", "ai-fatigue:2"}, 1, "none.eva"},
        {{"lives", "road.eva", "--units", "3", "--life", "ai-fatigue:2", "--axles", "axles.csv"},
         1,
         "axles.csv:2: load -1: is not above 0"},
    };
    for (const auto& [line, code, told] : rows) {
        const Outcome outcome = folder.Batch(line);
        EXPECT_EQ(outcome.Code, code) << testing::PrintToString(line);
        EXPECT_EQ(outcome.Out, "");
        EXPECT_NE(outcome.Err.find(told), std::string::npos) << testing::PrintToString(line) << outcome.Err;
    }
}

TEST(Lives, AFullDiskBehindStandardOutputIsAFailure) {
    const WorkFolder folder;
    folder.PutSample("road.eva");
    EXPECT_EQ(
        folder.Batch({"lives", "road.eva", "--units", "3", "--life", "ai-fatigue:2"}, {.OutputFile = "/dev/full"}).Err,
        "standard output: cannot be written\n");
}

}  // namespace
}  // namespace zirvo::test
