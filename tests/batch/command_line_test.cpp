// What zirvo-batch can be asked for, and what it answers to a command line that is wrong.
#include <gtest/gtest.h>

#include "batch/work_folder.h"

namespace zirvo::test {
namespace {

using Arguments = std::vector<std::string>;

struct WrongUsage {
    Arguments Line;
    std::string Told;  ///< part of the message
};

TEST(CommandLine, WrongUsageEndsWithTwoAndSaysWhatIsWrong) {
    const std::vector<WrongUsage> rows{
        {{}, "subcommand is required"},
        {{"melt"}, "melt is no command; there are solve, analyze, map, check, gear, lives, study\n"},
        {{"--quiet", "road.eva", "--units", "3"}, "road.eva is no command; there are solve"},
        {{"solve"}, "FILE is required"},
        {{"solve", "road.eva"}, "--units is required"},
        {{"solve", "road.eva", "--units"}, "--units"},
        {{"solve", "road.eva", "--units", "0"}, "--units: 0 not in"},
        {{"solve", "road.eva", "--units", "4"}, "--units: 4 not in"},
        {{"solve", "road.eva", "--units", "three"}, "--units: three not in"},
        {{"solve", "road.eva", "--units", "03"}, "--units: 03 not in"},
        {{"solve", "road.eva", "--units", "1", "--units", "2"}, "--units"},
        {{"solve", "road.eva", "--units", "3", "--threads", "0"}, "--threads"},
        {{"solve", "road.eva", "--units", "3", "--threads", "-1"}, "--threads"},
        {{"solve", "road.eva", "--units", "3", "--threads", "257"}, "--threads"},
        {{"solve", "road.eva", "--units", "3", "--threads", "2x"}, "--threads"},
        {{"solve", "road.eva", "--units", "3", "--bogus"}, "--bogus"},
        {{"solve", "road.eva", "two.eva", "--units", "3"}, "two.eva"},
        {{"solve", "road.eva", "--units", "3", "--csv", "road.eva"}, "road.eva is the input"},
        {{"solve", "road.eva", "--units", "3", "--csv", "./road.eva"}, "is the input"},
        {{"solve", "road.eva", "--units", "3", "--language", "en"}, "--language"},
        {{"analyze", "road.eva", "--units", "3"}, "--language is required"},
        {{"analyze", "road.eva", "--language", "en"}, "--units is required"},
        {{"analyze", "road.eva", "--units", "3", "--language", "de"}, "--language: de not in"},
        {{"analyze", "road.txt", "--units", "3", "--language", "en"}, "road.txt is no analysis input file"},
        {{"analyze", ".eva", "--units", "3", "--language", "en"}, ".eva is no analysis input file"},
        {{"check"}, "FILE is required"},
        {{"check", "road.txt"}, "road.txt is neither an analysis input file (.eva) nor a graphics input file (.ven)"},
        {{"analyze", "road.ven", "--units", "3", "--language", "en"}, "road.ven is no analysis input file"},
        {{"check", "road.eva", "--units", "3"}, "--units"},
        {{"solve", "road.eva", "--units", "3", "check", "road.eva"}, "argument"},
    };
    const WorkFolder folder;
    const std::string road = SampleBytes(folder.PutSample("road.eva"));
    for (const WrongUsage& row : rows) {
        const Outcome outcome = folder.Batch(row.Line);
        const std::string line = testing::PrintToString(row.Line);
        EXPECT_EQ(outcome.Code, 2) << line;
        EXPECT_EQ(outcome.Out, "") << line;
        EXPECT_NE(outcome.Err.find(row.Told), std::string::npos) << line << outcome.Err;
    }
    EXPECT_EQ(folder.Names(), Arguments{"road.eva"});
    EXPECT_EQ(folder.Get("road.eva"), road);
}

TEST(CommandLine, EveryCommandTellsTheVersion) {
    const WorkFolder folder;
    for (const Arguments& line : std::vector<Arguments>{{"--version"},
                                                        {"solve", "--version"},
                                                        {"analyze", "--version"},
                                                        {"map", "--version"},
                                                        {"check", "--version"},
                                                        {"gear", "--version"},
                                                        {"lives", "--version"},
                                                        {"study", "--version"}}) {
        const Outcome outcome = folder.Batch(line);
        EXPECT_EQ(outcome.Code, 0);
        EXPECT_EQ(outcome.Out, "zirvo-batch 2.3\n");
        EXPECT_EQ(outcome.Err, "");
    }
}

TEST(CommandLine, EveryCommandHasHelpThatNamesItsOptions) {
    const std::vector<std::pair<Arguments, Arguments>> rows{
        {{"--help"},
         {"solve", "analyze", "map", "check", "gear", "lives", "study", "--version", "--quiet", "Exit codes"}},
        {{"solve", "--help"}, {"FILE", "--units", "--csv", "--threads", "--estimates", "--quiet", "--version"}},
        {{"analyze", "--help"}, {"FILE", "--units", "--language", "ja|en", "--quiet", "--version"}},
        {{"map", "--help"},
         {"FILE", "--units", "--language", "--section", "xy|xz", "--position", "--layer", "--component", "EPSx|EPSz",
          "--lines", "--items", "--min", "--max", "--size", "WxH", "-o,--output", "--quiet", "--version"}},
        {{"check", "--help"}, {"FILE", "--quiet", "--version"}},
        {{"gear", "--help"},
         {"NAME", "--list", "--file", "--units", "--load", "--pressure", "--radius", "--spacing", "--axle-spacing",
          "--track", "--at", "X,Y", "--angle", "--into", "-o,--output", "--language", "--quiet", "--version"}},
        {{"lives", "--help"},
         {"FILE", "--list", "--units", "--life", "NAME:POINTS", "--c", "--voids", "--binder", "--axles", "--keep",
          "radius|pressure", "--csv", "--quiet", "--version"}},
        {{"study", "--help"},
         {"STUDY", "-o,--output", "--threads", "--part", "I/N", "--merge", "--plot", "--x", "--y", "--lines",
          "--histogram", "--bins", "--where", "--log", "--size", "--quiet", "--version"}},
    };
    const WorkFolder folder;
    for (const auto& [line, words] : rows) {
        const Outcome outcome = folder.Batch(line);
        EXPECT_EQ(outcome.Code, 0);
        EXPECT_EQ(outcome.Err, "");
        for (const std::string& word : words) {
            EXPECT_NE(outcome.Out.find(word), std::string::npos) << word;
        }
    }
}

TEST(CommandLine, AFullDiskBehindStandardOutputIsAFailureOfEveryCommand) {
    const WorkFolder folder;
    folder.PutSample("road.eva");
    for (const Arguments& line : std::vector<Arguments>{{"--help"},
                                                        {"--version"},
                                                        {"check", "road.eva"},
                                                        {"solve", "road.eva", "--units", "3"},
                                                        {"analyze", "road.eva", "--units", "3", "--language", "en"}}) {
        const Outcome outcome = folder.Batch(line, {.OutputFile = "/dev/full"});
        EXPECT_EQ(outcome.Code, 1) << line.front();
        EXPECT_EQ(outcome.Err, "standard output: cannot be written\n") << line.front();
    }
}

TEST(CommandLine, QuietMayStandBeforeAndBehindTheCommand) {
    const WorkFolder folder;
    folder.PutSample("road.eva");
    EXPECT_EQ(folder.Batch({"--quiet", "check", "road.eva"}).Code, 0);
    EXPECT_EQ(folder.Batch({"check", "road.eva", "--quiet"}).Code, 0);
}

}  // namespace
}  // namespace zirvo::test
