// `zirvo-batch analyze` with the real solver: reports, stamps, comma copies.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <ostream>

#include "batch/work_folder.h"
#include "platform/code_page.h"
#include "platform/files.h"

namespace zirvo::test {
namespace {

using Lines = std::vector<std::string>;

struct Choice {
    std::string Units;
    std::string Language;
};

/// How a failure and the list of tests name a choice.
void PrintTo(const Choice& choice, std::ostream* out) {
    *out << "units " << choice.Units << ", language " << choice.Language;
}

class Analyze : public testing::TestWithParam<Choice> {};

TEST_P(Analyze, EverySampleGivesStampedReportsAndCommaCopies) {
    const auto& [units, language] = GetParam();
    const WorkFolder folder;
    for (const std::string& name : SampleNames()) {
        folder.PutSample(name);
        const Outcome outcome = folder.Batch({"analyze", name, "--units", units, "--language", language});
        const std::string stem = name.substr(0, name.find('.'));
        EXPECT_EQ(outcome.Code, 0) << outcome.Err;
        EXPECT_EQ(outcome.Err, "");
        EXPECT_EQ(LinesOf(outcome.Out), (Lines{stem + ".san", stem + "_san.csv", stem + ".bre", stem + "_bre.csv"}));
        for (const char* extension : {"bre", "san"}) {
            const std::string report = folder.Get(stem + "." + extension);
            EXPECT_EQ(report.rfind("   <ZIRVO Ver2.3>\r\n", 0), 0U);
            EXPECT_EQ(report.find("<ZIRVO", 5), std::string::npos) << "stamped twice";
            EXPECT_NE(DecodeText(report).find(language == "ja" ? "多層弾性解析" : "MULTI-LAYERED ELASTIC ANALYSIS"),
                      std::string::npos);
            // The copy has a line for each line of the report, the stamp included.
            const std::string copy = folder.Get(stem + "_" + extension + ".csv");
            EXPECT_EQ(copy.rfind("<ZIRVO,Ver2.3>\r\n", 0), 0U);
            EXPECT_EQ(LinesOf(copy).size(), LinesOf(report).size());
        }
    }
    EXPECT_EQ(folder.Names().size(), 5 * SampleNames().size()) << "a work file is left";
}

INSTANTIATE_TEST_SUITE_P(UnitsAndLanguages, Analyze,
                         testing::Values(Choice{"1", "ja"}, Choice{"1", "en"}, Choice{"2", "ja"}, Choice{"2", "en"},
                                         Choice{"3", "ja"}, Choice{"3", "en"}),
                         [](const auto& choice) { return "Units" + choice.param.Units + choice.param.Language; });

constexpr const char* SolverFiles = "road.bre road.eva road.san road_bre.csv road_san.csv";

std::string Joined(const Lines& names) {
    std::string text;
    for (const std::string& name : names) {
        text.append(text.empty() ? "" : " ").append(name);
    }
    return text;
}

const Lines AnalyzeRoad{"analyze", "road.eva", "--units", "3", "--language", "en"};

// The values of the comma copy are those that `solve` gives, with the digits of the report.
TEST(AnalyzeRoad, TheCommaCopyHoldsTheValuesThatSolveGives) {
    const WorkFolder folder;
    folder.PutSample("road.eva");
    ASSERT_EQ(folder.Batch(AnalyzeRoad).Code, 0);
    const Lines solved = LinesOf(folder.Batch({"solve", "road.eva", "--units", "3"}).Out);
    const Lines copy = LinesOf(folder.Get("road_bre.csv"));
    std::size_t rows = 0;
    for (const std::string& line : copy) {
        const Lines fields = FieldsOf(line);
        if (fields.size() != 19 || fields[0].find_first_not_of("0123456789") != std::string::npos) {
            continue;
        }
        const Lines values = FieldsOf(solved.at(++rows));
        for (std::size_t c = 0; c < fields.size(); ++c) {
            const double exact = std::stod(values[c]);
            EXPECT_NEAR(std::stod(fields[c]), exact, 0.51e-4 * std::abs(exact)) << line;
        }
    }
    EXPECT_EQ(rows, 12U);
}

TEST(AnalyzeRoad, ASecondRunReplacesTheReportsAndStampsThemOnce) {
    const WorkFolder folder;
    folder.PutSample("road.eva");
    ASSERT_EQ(folder.Batch(AnalyzeRoad).Code, 0);
    const std::string first = folder.Get("road.bre");
    ASSERT_EQ(folder.Batch(AnalyzeRoad).Code, 0);
    EXPECT_EQ(folder.Get("road.bre"), first);
    EXPECT_EQ(Joined(folder.Names()), SolverFiles);
}

TEST(AnalyzeRoad, WorksInTheFolderOfTheFileAndNamesItAsTheUserDid) {
    const WorkFolder folder;
    const WorkFolder elsewhere;
    folder.PutSample("road.eva");
    const Outcome outcome = elsewhere.Batch({"analyze", folder.Path("road.eva"), "--units", "3", "--language", "en"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    EXPECT_EQ(LinesOf(outcome.Out), (Lines{folder.Path("road.san"), folder.Path("road_san.csv"),
                                           folder.Path("road.bre"), folder.Path("road_bre.csv")}));
    EXPECT_EQ(Joined(folder.Names()), SolverFiles);
    EXPECT_EQ(elsewhere.Entries(), 0U);
}

TEST(AnalyzeRoad, NamesInJapaneseWorkForFolderInputAndReports) {
    const WorkFolder folder;
    std::filesystem::create_directory(Utf8Path(folder.Path("国道一号")));
    std::string bytes = With(SampleBytes("road.eva"), "road.bre", EncodeName("表層.bre"));
    bytes = With(bytes, "road.san", EncodeName("表層.san"));
    folder.Put("国道一号/道路.eva", bytes);
    const Outcome outcome = folder.Batch({"analyze", "国道一号/道路.eva", "--units", "3", "--language", "ja"});
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
    const std::string in = JoinPath("国道一号", "");
    EXPECT_EQ(LinesOf(outcome.Out),
              (Lines{in + "表層.san", in + "表層_san.csv", in + "表層.bre", in + "表層_bre.csv"}));
    EXPECT_NE(DecodeText(folder.Get("国道一号/表層.bre")).find("道路.eva"), std::string::npos);
}

TEST(AnalyzeRoad, TakesAnInputThatOnlyTheSolverCanMend) {
    // Touching numbers, as SAVE DATA writes them where a value fills its column; the import would refuse them.
    const WorkFolder folder;
    folder.Put("road.eva",
               With(SampleBytes("road.eva"), "           50              0.4", "           500.400000000000000"));
    EXPECT_EQ(folder.Batch({"check", "road.eva"}).Code, 1);
    const Outcome outcome = folder.Batch(AnalyzeRoad);
    EXPECT_EQ(outcome.Code, 0) << outcome.Err;
}

}  // namespace
}  // namespace zirvo::test
