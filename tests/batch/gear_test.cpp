// `zirvo-batch gear` as a user runs it.
#include <gtest/gtest.h>

#include "batch/work_folder.h"

namespace zirvo::test {
namespace {

using Arguments = std::vector<std::string>;

TEST(Gear, TheListNamesEveryGearWithItsSource) {
    const WorkFolder folder;
    const Outcome outcome = folder.Batch({"gear", "--list"});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Err, "");
    const std::vector<std::string> lines = LinesOf(outcome.Out);
    EXPECT_GE(lines.size(), 3U * 12);
    EXPECT_EQ(lines.size() % 3, 2U);  // an empty one and the caution behind the gears
    EXPECT_EQ(lines.back().substr(0, 55), "Hold these numbers against the document that is named b");
    EXPECT_EQ(lines[0], "ms1-80: one end of the 80 kN single axle of the Asphalt Institute: two wheels of 20 kN");
    EXPECT_EQ(lines[1], "    2 wheels, 40 kN, 0.483 MPa");
    EXPECT_EQ(lines[2], "    Asphalt Institute MS-1, 9th edition (1981): 70 psi, radius 4.52 in, spacing 13.57 in");
}

// The columns are those of road.eva: 10, 17, 17, 16, 15, 19 characters.
TEST(Gear, ALineIsByteForByteThatOfAFile) {
    const WorkFolder folder;
    const Outcome outcome = folder.Batch({"gear", "lr1132-40", "--units", "3", "--load", "49", "--radius", "15"});
    EXPECT_EQ(outcome.Code, 0);
    EXPECT_EQ(outcome.Out,
              "        49               15                0               0              0                  0\r\n");
    const std::string road = SampleBytes("road.eva");
    EXPECT_NE(road.find(outcome.Out), std::string::npos);
}

TEST(Gear, IntoAFileItReplacesTheLoadsAndNothingElse) {
    const WorkFolder folder;
    folder.PutSample("road.eva");
    folder.PutSample("road.ven");
    for (const std::string kind : {".eva", ".ven"}) {
        const Outcome same = folder.Batch({"gear", "lr1132-40", "--units", "3", "--load", "49", "--radius", "15",
                                           "--into", "road" + kind, "-o", "same" + kind});
        EXPECT_EQ(same.Code, 0) << same.Err;
        EXPECT_EQ(folder.Get("same" + kind), SampleBytes("road" + kind));
        const Outcome other = folder.Batch(
            {"gear", "us-tandem", "--units", "3", "--into", "road" + kind, "-o", "other" + kind, "--at", "10,-20"});
        EXPECT_EQ(other.Code, 0) << other.Err;
        const Outcome check = folder.Batch({"check", "other" + kind});
        EXPECT_EQ(check.Code, 0) << check.Err;
        EXPECT_NE(check.Out.find("3 layers, 8 loads"), std::string::npos) << check.Out;
    }
    const Outcome lines = folder.Batch({"gear", "us-tandem", "--units", "3", "--at", "10,-20"});
    EXPECT_NE(folder.Get("other.eva").find(lines.Out), std::string::npos);
    EXPECT_EQ(folder.Names(), (Arguments{"other.eva", "other.ven", "road.eva", "road.ven", "same.eva", "same.ven"}));
}

TEST(Gear, AGearOfOnesOwnComesFromAFile) {
    const WorkFolder folder;
    folder.Put("own.csv", "x,y\n-20,0\n20,0\n");
    const Outcome outcome =
        folder.Batch({"gear", "--file", "own.csv", "--units", "1", "--load", "5000", "--radius", "11.3"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    EXPECT_EQ(outcome.Out,
              "      2500             11.3              -20               0              0                  0\r\n"
              "      2500             11.3               20               0              0                  0\r\n");
    folder.Put("bad.csv", "x,y\n-20,0\n20\n");
    const Outcome bad = folder.Batch({"gear", "--file", "bad.csv", "--units", "1", "--load", "1", "--radius", "1"});
    EXPECT_EQ(bad.Code, 1);
    EXPECT_EQ(bad.Err, "bad.csv:3: 1 numbers beneath 2 headings\n");
}

TEST(Gear, WrongUsageIsSaidAndWritesNothing) {
    const WorkFolder folder;
    const std::string road = SampleBytes(folder.PutSample("road.eva"));
    folder.Put("other.ven", "x");
    const std::vector<std::pair<Arguments, std::string>> rows{
        {{"gear"}, "either a NAME or --file is wanted"},
        {{"gear", "sledge", "--units", "3"}, "sledge is no gear"},
        {{"gear", "ms1-80"}, "--units is required"},
        {{"gear", "ms1-80", "--file", "own.csv", "--units", "3"}, "either a NAME or --file"},
        {{"gear", "ms1-80", "--units", "3", "--load", "heavy"}, "heavy is no number"},
        {{"gear", "ms1-80", "--units", "3", "--load", "0"}, "--load: 0 is not from"},
        {{"gear", "ms1-80", "--units", "3", "--load", "1", "--pressure", "1", "--radius", "1"}, "two of them decide"},
        {{"gear", "ms1-80", "--units", "3", "--at", "5"}, "5 is no place"},
        {{"gear", "ms1-80", "--units", "3", "--into", "road.eva"}, "--into and --output go together"},
        {{"gear", "ms1-80", "--units", "3", "--language", "ja"}, "--language: only a file (--into) has headings"},
        {{"gear", "ms1-80", "--units", "3", "--into", "road.eva", "-o", "other.ven"}, "of another kind"},
        {{"gear", "ms1-80", "--units", "3", "--into", "road.eva", "-o", "./road.eva"}, "would be lost"},
        {{"gear", "ms1-80", "--units", "3", "--into", "road.txt", "-o", "b.eva"}, "road.txt is neither"},
    };
    for (const auto& [line, told] : rows) {
        const Outcome outcome = folder.Batch(line);
        EXPECT_EQ(outcome.Code, 2) << testing::PrintToString(line);
        EXPECT_EQ(outcome.Out, "");
        EXPECT_NE(outcome.Err.find(told), std::string::npos) << testing::PrintToString(line) << outcome.Err;
    }
    EXPECT_EQ(folder.Get("road.eva"), road);
    EXPECT_EQ(folder.Names(), (Arguments{"other.ven", "road.eva"}));
}

TEST(Gear, AFileThatBreaksARuleOrCannotBeWrittenIsNamed) {
    const WorkFolder folder;
    folder.Put("bad.eva", With(SampleBytes("road.eva"), "0.35", "0.75"));
    const Outcome bad = folder.Batch({"gear", "ms1-80", "--units", "3", "--into", "bad.eva", "-o", "new.eva"});
    EXPECT_EQ(bad.Code, 1);
    EXPECT_EQ(bad.Err, "bad.eva: layer 1, PoissonRatio 0.75: is above 0.5\n");
    folder.PutSample("road.eva");
    const Outcome unwritten =
        folder.Batch({"gear", "ms1-80", "--units", "3", "--into", "road.eva", "-o", "no/new.eva"});
    EXPECT_EQ(unwritten.Code, 1);
    EXPECT_NE(unwritten.Err.find("no/new.eva: cannot be written"), std::string::npos) << unwritten.Err;
    EXPECT_EQ(folder.Names(), (Arguments{"bad.eva", "road.eva"}));
}

}  // namespace
}  // namespace zirvo::test
