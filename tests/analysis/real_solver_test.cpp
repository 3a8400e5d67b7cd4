// The whole road with the analysis solver itself: input file, run, stamps, comma copies, rebuilt view.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <tuple>

#include "analysis/report_view.h"
#include "analysis/solver_run.h"
#include "base/fault_of.h"
#include "base/utf8.h"
#include "pavement/analysis_input.h"
#include "pavement/solver_process.h"
#include "pavement/support.h"
#include "platform/code_page.h"
#include "platform/files.h"
#include "text/catalogue.h"

namespace zirvo {
namespace {

using test::GetFile;
using test::PutFile;

using LineViews = std::vector<std::string_view>;

/// Three layers under two wheels, points from the surface to the last layer; the interfaces under both their layers.
PavementModel Road() {
    PavementModel model;
    model.LayerCount = 3;
    model.LoadCount = 2;
    model.PointCount = 6;
    model.Layers[1] = {5000, 0.35, 15, 0.5};
    model.Layers[2] = {300, 0.35, 30, 0};
    model.Layers[3] = {50, 0.4, 0, 0};
    model.Loads[1] = {49, 15, 0, 0, 0, 0};
    model.Loads[2] = {49, 15, 200, 0, 10, 90};
    model.Points[1] = {1, 0, 0, 0};
    model.Points[2] = {1, 0, 0, 15};
    model.Points[3] = {2, 0, 0, 15};
    model.Points[4] = {2, 10, -20, 30};
    model.Points[5] = {3, 0, 0, 45};
    model.Points[6] = {3, 100, 50, 500};
    model.InputFileName = "road.eva";
    model.ResultFileName = "road.bre";
    model.PrincipalFileName = "road.san";
    return model;
}

class RealSolver : public testing::TestWithParam<std::tuple<Int16, UnitSystem>> {
protected:
    test::WorkFolder Folder;
    std::unique_ptr<ProcessService> Process = MakeProcessService();

    Int16 LanguageBase() const { return std::get<0>(GetParam()); }
    UnitSystem Units() const { return std::get<1>(GetParam()); }

    SolverRunResult Run(const PavementModel& model) {
        PutFile(model.InputFileName, WriteAnalysisInput(model, Units(), LanguageBase()));
        return RunAgain(model);
    }
    SolverRunResult RunAgain(const PavementModel& model) {
        return RunSolver({model.InputFileName, model.ResultFileName, model.PrincipalFileName,
                          LanguageNumberOf(LanguageBase()), Units(), ZIRVO_BIN},
                         *Process, {});
    }
};

std::vector<std::string> Fields(std::string_view line) {
    std::vector<std::string> fields(1);
    for (const char c : line) {
        if (c == ',') {
            fields.emplace_back();
        } else {
            fields.back() += c;
        }
    }
    return fields;
}

/// The lines of a comma copy that begin with a layer number and hold `count` fields: those of the points.
std::vector<std::vector<std::string>> PointRows(const std::string& copy, std::size_t count) {
    std::vector<std::vector<std::string>> rows;
    for (const std::string_view line : SplitLines(copy)) {
        std::vector<std::string> fields = Fields(line);
        if (fields.size() == count && fields[0].find_first_not_of("0123456789") == std::string::npos) {
            rows.push_back(std::move(fields));
        }
    }
    return rows;
}

TEST_P(RealSolver, LeavesStampedReportsAndCommaCopiesAndNoWorkFiles) {
    EXPECT_EQ(Run(Road()), SolverRunResult::Finished);
    EXPECT_EQ(Folder.Names(),
              (std::vector<std::string>{"road.bre", "road.eva", "road.san", "road_bre.csv", "road_san.csv"}));
    for (const char* report : {"road.bre", "road.san"}) {
        const std::string bytes = GetFile(report);
        EXPECT_TRUE(bytes.starts_with("   <ZIRVO Ver2.3>\r\n")) << report;
        EXPECT_EQ(bytes.find("<ZIRVO Ver2.3>", 20), std::string::npos) << report;
        EXPECT_EQ(DecodeText(bytes).find("\xEF\xBF\xBD"), std::string::npos) << report << " is not in the code page";
    }
}

TEST_P(RealSolver, TheCommaCopiesHoldOneFieldForEachValue) {
    EXPECT_EQ(Run(Road()), SolverRunResult::Finished);
    const auto results = PointRows(GetFile("road_bre.csv"), 19);  // layer, three coordinates, 15 values
    ASSERT_EQ(results.size(), 6U);
    const auto principals = PointRows(GetFile("road_san.csv"), 18);  // the same and 14 values
    EXPECT_EQ(principals.size(), 6U);
    EXPECT_EQ(results[4][0], "3");
    EXPECT_EQ(std::stod(results[4][3]), 45);
    // Under the middle of the load SIGz is minus the contact pressure, and the other load adds nothing to it:
    // 49 / (pi 15^2) = 0.069321... in units of force per cm2; kN/cm2 are 10 MPa, kgf/cm2 0.0980665 MPa.
    const double perArea = 49 / (3.14159265358979323846 * 15 * 15);
    const double inOutput = Units() == UnitSystem::KnToMPa    ? perArea * 10
                            : Units() == UnitSystem::KgfToMPa ? perArea * 0.0980665
                                                              : perArea;
    EXPECT_NEAR(std::stod(results[0][9]) / -inOutput, 1, 1e-4);  // five digits are printed
}

TEST_P(RealSolver, ItsTableIsRebuiltAsFiveOfSixtySixCharacters) {
    EXPECT_EQ(Run(Road()), SolverRunResult::Finished);
    const bool japanese = LanguageBase() == JapaneseBase;
    const std::string report = DecodeText(ReadFileBytes("road.bre"));
    const std::string view = SplitResultView(SplitLines(report), 6, japanese);
    const LineViews lines = SplitLines(view);
    ASSERT_GT(lines.size(), 45U);
    const LineViews tables(lines.end() - 45, lines.end());  // five tables of 6 + 2 lines and an empty one
    for (std::size_t i = 0; i < tables.size(); ++i) {
        const std::size_t row = i % 9;
        // The Japanese heading has three double-width characters in each of its last four groups.
        const std::size_t expected = row == 8 ? 0 : (japanese && row == 0 && i >= 9 ? 63 : 66);
        EXPECT_EQ(CharacterCount(tables[i]), expected) << i << ": " << tables[i];
    }
    for (std::size_t table = 0; table < 5; ++table) {
        for (std::size_t row = 2; row < 8; ++row) {
            EXPECT_EQ(CharacterSlice(tables[table * 9 + row], 0, 30), CharacterSlice(tables[row], 0, 30));
        }
    }
    // One point less than the report holds is the fault of a report that does not belong to the data.
    EXPECT_EQ(FaultOf([&] { SplitResultView(SplitLines(report), 5, japanese); }), 9);
}

TEST_P(RealSolver, ASecondRunGivesTheSameReportsWithOneStamp) {
    EXPECT_EQ(Run(Road()), SolverRunResult::Finished);
    const std::string results = GetFile("road.bre");
    const std::string principals = GetFile("road.san");
    EXPECT_EQ(RunAgain(Road()), SolverRunResult::Finished);
    EXPECT_EQ(GetFile("road.bre"), results);
    EXPECT_EQ(GetFile("road.san"), principals);
}

TEST_P(RealSolver, ItsReportOfAnErrorIsAReportLikeAnyOther) {
    EXPECT_EQ(Run(Road()), SolverRunResult::Finished);
    const std::string before = GetFile("road.bre");
    PavementModel model = Road();
    model.Layers[2].PoissonRatio = 0.7;  // the data screen would not have let it pass
    EXPECT_EQ(Run(model), SolverRunResult::Finished);
    const std::string report = DecodeText(GetFile("road.bre"));
    EXPECT_TRUE(report.starts_with("   <ZIRVO Ver2.3>\r\n"));
    EXPECT_EQ(report.find("   ==="), std::string::npos);  // nothing of the report before is left
    EXPECT_NE(report.find("0.7"), std::string::npos) << report;
    // The viewer shows it as it stands, and five empty tables behind it.
    EXPECT_TRUE(SplitResultView(SplitLines(report), 6, false).starts_with(report));
}

TEST_P(RealSolver, NamesOfAnyScriptRun) {
    PavementModel model = Road();
    model.InputFileName = "舗装 表.eva";
    model.ResultFileName = "Straße.bre";
    model.PrincipalFileName = "ソ.san";  // its second byte is a backslash in the code page
    EXPECT_EQ(Run(model), SolverRunResult::Finished);
    EXPECT_EQ(PointRows(GetFile("Straße_bre.csv"), 19).size(), 6U);
    EXPECT_EQ(PointRows(GetFile("ソ_san.csv"), 18).size(), 6U);
}

INSTANTIATE_TEST_SUITE_P(LanguagesAndUnits, RealSolver,
                         testing::Combine(testing::Values(JapaneseBase, EnglishBase),
                                          testing::Values(UnitSystem::KgfToKgf, UnitSystem::KgfToMPa,
                                                          UnitSystem::KnToMPa)),
                         [](const auto& chosen) {
                             const bool japanese = std::get<0>(chosen.param) == JapaneseBase;
                             return std::string(japanese ? "Japanese" : "English") +
                                    std::to_string(static_cast<int>(std::get<1>(chosen.param)));
                         });

}  // namespace
}  // namespace zirvo
