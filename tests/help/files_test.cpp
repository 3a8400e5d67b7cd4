// Every file that the manual quotes is one that the programs write, to the byte.
#include <gtest/gtest.h>

#include "batch/work_folder.h"
#include "help/manual.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "shell/settings.h"
#include "text/catalogue.h"

namespace zirvo::test {
namespace {

using Lines = std::vector<std::string>;

/// The lines of a file of ours as text.
Lines TextLines(const std::string& bytes) {
    return LinesOf(DecodeText(bytes));
}

class ManualFiles : public testing::TestWithParam<Int16> {
protected:
    const Manual& Pages() const { return ManualOf(GetParam()); }
    Lines Block(const char* anchor) const { return Pages().Page.BlockBehind(anchor); }
    std::string SampleName() const { return GetParam() == JapaneseBase ? "dual_wheels" : "road"; }

    /// Analyses the road.eva of the folder, which ends with this exit code.
    void Analyze(const WorkFolder& folder, int code) const {
        const Outcome done = folder.Batch({"analyze", "road.eva", "--units", "3", "--language", Pages().BatchWord});
        ASSERT_EQ(done.Code, code) << done.Err;
    }
};

/// Each quoted line begins a line of the file, and they come in its order.
void ExpectQuoted(const Lines& quoted, const Lines& file) {
    ASSERT_GT(quoted.size(), 2U);
    std::size_t at = 0;
    for (const std::string& line : quoted) {
        while (at < file.size() && (file[at].substr(0, line.size()) != line || (line.empty() && !file[at].empty()))) {
            ++at;
        }
        ASSERT_LT(at, file.size()) << "not in the file: " << line;
        ++at;
    }
}

TEST_P(ManualFiles, InputFilesAreSamples) {
    EXPECT_EQ(Block("sample-eva"), TextLines(SampleBytes(SampleName() + ".eva")));
    EXPECT_EQ(Block("sample-ven"), TextLines(SampleBytes(SampleName() + ".ven")));
    EXPECT_NE(Pages().Page.TextBetween("eva", "ven").find("samples/" + SampleName() + ".eva"), std::string::npos);
    EXPECT_NE(Pages().Page.TextBetween("ven", "bre").find("samples/" + SampleName() + ".ven"), std::string::npos);
}

TEST_P(ManualFiles, ReportsAndTheirCopiesAreThoseOfTheRoad) {
    const WorkFolder folder;
    folder.PutSample("road.eva");
    Analyze(folder, 0);
    ExpectQuoted(Block("sample-bre"), TextLines(folder.Get("road.bre")));
    ExpectQuoted(Block("sample-san"), TextLines(folder.Get("road.san")));
    ExpectQuoted(Block("sample-csv"), TextLines(folder.Get("road_bre.csv")));
}

TEST_P(ManualFiles, ReportWithoutResultsIsThatOfNumbersThatTouch) {
    const WorkFolder folder;
    folder.Put("road.eva", With(SampleBytes("road.eva"), "         5000             0.35               15",
                                "12345.67890123450.333333333333333               15"));
    Analyze(folder, 1);
    EXPECT_EQ(Block("sample-refused"), TextLines(folder.Get("road.bre")));
}

TEST_P(ManualFiles, SettingsAreAsTheProgramWritesThem) {
    const TemporaryFolder folder;
    SaveSettings("C:\\data", 3, 1, folder.Path());
    EXPECT_EQ(Block("sample-ini"), TextLines(folder.Get(std::string(SettingsFileName))));
}

TEST_P(ManualFiles, EveryCommandOfTheBatchToolIsNamed) {
    const std::string chapter = Pages().Page.TextBetween("batch", "trouble");
    const WorkFolder folder;
    const std::string help = folder.Batch({"--help"}).Out;
    const std::vector<std::string> lines = LinesOf(help.substr(help.find("Subcommands:")));
    int commands = 0;
    for (const std::string& line : lines) {
        if (line.size() > 3 && line.substr(0, 2) == "  " && line[2] != ' ') {
            const std::string command = line.substr(2, line.find(' ', 2) - 2);
            EXPECT_NE(chapter.find("zirvo-batch " + command), std::string::npos) << command;
            ++commands;
        }
    }
    EXPECT_GE(commands, 7);
}

INSTANTIATE_TEST_SUITE_P(Languages, ManualFiles, testing::Values(JapaneseBase, EnglishBase));

}  // namespace
}  // namespace zirvo::test
