// Runs of the graphics solver in a folder, with results made by hand: its input, its depth rule, its one report.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "platform/code_page.h"
#include "solver/io/solver_run.h"
#include "solver_io/support.h"

namespace zirvo::solver {
namespace {

using namespace test;
namespace fs = std::filesystem;

/// The generated input of a section: two layers, one load, these point rows.
std::string SectionInput(const std::vector<std::string>& points, const std::string& report = "ZIRVO_SV.BRE") {
    std::vector<std::string> lines{
        "OUTPUT FILENAME",
        report,
        "",
        "LAYERS     LOADS     POINTS",
        "  2         1" + Padded(std::to_string(points.size()), 11),
        "",
        "LAYER PROPERTIES",
        " MODULUS(MPa)            MU         THICKNESS(cm)    SLIP RATE",
        "        35000             0.35                5               0",
        "         1000              0.4",
        "",
        "LOAD POINT",
        "VERT. LOAD(kN)    RADIUS(cm)      X-AXIS(cm)      Y-AXIS(cm)     HORIZ. LOAD(kN)    ANGLE FROM X(deg)",
        "        49             15              0              0              0                  0",
        "",
        "POINT OF INTEREST",
        "LAYER NO.   X-AXIS(cm)   Y-AXIS(cm)   Z-AXIS(cm)"};
    lines.insert(lines.end(), points.begin(), points.end());
    return Lines(lines);
}

/// A result for every point: W is the depth that the theory was given, U the layer.
Solution TellDepths(const Problem& problem, const SolveOptions&) {
    Solution solution;
    for (const Point& point : problem.Points) {
        PointResult result;
        result.Values[U] = point.Layer;
        result.Values[W] = point.Z;
        solution.Points.push_back(result);
    }
    return solution;
}

class SectionRun : public ::testing::Test {
protected:
    OwnFolder Folder;
    std::string Messages;

    ExitCode Execute(const std::string& input, int language = 2, int units = 3) {
        WriteBytes("Initial_File", Lines({"LANGUAGE PREFERENCE", " " + std::to_string(language) + " ", "",
                                          "INPUT/OUTPUT UNITS OF MEASUREMENT", " " + std::to_string(units) + " ", "",
                                          "Input FileName", "ZIRVO_SV.EVA"}));
        WriteBytes("ZIRVO_SV.EVA", input);
        std::ostringstream messages;
        const ExitCode code = RunSection(TellDepths, messages);
        Messages = messages.str();
        return code;
    }

    static std::string Listing() {
        std::vector<std::string> names;
        for (const fs::directory_entry& entry : fs::directory_iterator(".")) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        std::string listing;
        for (const std::string& name : names) {
            listing += (listing.empty() ? "" : " ") + name;
        }
        return listing;
    }

    /// Layer and depth of each row, as the theory was given them.
    static std::vector<std::pair<double, double>> SolvedAt() {
        std::vector<std::pair<double, double>> places;
        const std::vector<std::string> lines = SplitLines(ReadBytes("ZIRVO_SV.BRE"));
        for (std::size_t i = 11; i < lines.size() && lines[i].substr(0, 4) != "   N" && lines[i].substr(0, 4) != "   L";
             ++i) {
            std::istringstream row(lines[i]);
            double number = 0;
            std::pair<double, double> place;
            for (int column = 1; column <= 6; ++column) {
                row >> number;
                (column == 4 ? place.first : place.second) = number;
            }
            places.push_back(place);
        }
        return places;
    }
};

TEST_F(SectionRun, LeavesItsOneReportAndNothingElse) {
    EXPECT_EQ(Execute(SectionInput({"    1               0            0            5"})), ExitCode::Solved);
    EXPECT_EQ(Messages, "");
    EXPECT_EQ(Listing(), "Initial_File ZIRVO_SV.BRE ZIRVO_SV.EVA");
    EXPECT_EQ(SplitLines(ReadBytes("ZIRVO_SV.BRE"))[0], "   MULTI-LAYERED ELASTIC ANALYSIS - CROSS SECTION");
    EXPECT_NE(ReadBytes("ZIRVO_SV.BRE").find("   END OF REPORT\r\n"), std::string::npos);
}

TEST_F(SectionRun, AnyDepthOutsideItsLayerIsTakenOnTheNearestBoundaryAndTheTailSaysHowMany) {
    EXPECT_EQ(Execute(SectionInput({"1 0 0 5", "1 0 0 5.01", "1 0 0 700", "1 0 0 -3", "2 0 0 -3", "2 0 0 4.99",
                                    "2 0 0 700", "0 0 0 2.5", "0 0 0 7"})),
              ExitCode::Solved);
    EXPECT_EQ(SolvedAt(), (std::vector<std::pair<double, double>>{
                              {1, 5}, {1, 5}, {1, 5}, {1, 0}, {2, 5}, {2, 5}, {2, 700}, {1, 2.5}, {1, 5}}));
    EXPECT_NE(
        ReadBytes("ZIRVO_SV.BRE").find("   NOTE: DEPTHS OUTSIDE THE NAMED LAYER TAKEN ON ITS NEAREST BOUNDARY: 6\r\n"),
        std::string::npos);
}

TEST_F(SectionRun, TheDepthInTheReportIsTheOneThatWasSolved) {
    EXPECT_EQ(Execute(SectionInput({"2 0 0 4.99"})), ExitCode::Solved);
    EXPECT_EQ(SplitLines(ReadBytes("ZIRVO_SV.BRE"))[11].substr(0, 36), "      0.0000      0.0000      5.0000");
}

TEST_F(SectionRun, ALayerThatDoesNotExistIsBadInput) {
    EXPECT_EQ(Execute(SectionInput({"3 0 0 5"})), ExitCode::BadInput);
    EXPECT_EQ(Messages, "ZIRVO_SV.EVA: point of interest 1 (line 18): layer number 3: must be 0 to 2\n");
    EXPECT_NE(ReadBytes("ZIRVO_SV.BRE").find("   VALUE: layer number 3\r\n"), std::string::npos);
    EXPECT_EQ(ReadBytes("ZIRVO_SV.BRE").find("==="), std::string::npos) << "no marker line";
    EXPECT_EQ(Execute(SectionInput({"-1 0 0 5"})), ExitCode::BadInput);
}

TEST_F(SectionRun, CoordinatesNeedNoColumn) {
    EXPECT_EQ(Execute(SectionInput({"1 -99999999999.25 0 5"})), ExitCode::Solved);
    EXPECT_EQ(SplitLines(ReadBytes("ZIRVO_SV.BRE"))[11].substr(0, 30), " -99999999999.2500      0.0000");
}

TEST_F(SectionRun, NumbersThatTouchAreCutAtTheNarrowerColumnsOfItsLoads) {
    std::vector<std::string> lines = SplitLines(SectionInput({"1 0 0 5"}));
    // 10, 15, 15, 15, 15, 19 columns: the radius fills its fifteen and touches the load.
    lines[13] =
        Padded("49", 10) + "14.999999999999" + Padded("0", 15) + Padded("0", 15) + Padded("0", 15) + Padded("0", 19);
    EXPECT_EQ(Execute(Lines(lines)), ExitCode::Solved) << Messages;
    lines[13] = Padded("49", 10) + "14.9999999999999" + Padded("0", 16);
    EXPECT_EQ(Execute(Lines(lines)), ExitCode::BadInput);
}

TEST_F(SectionRun, TheNarrowerCountLineOfTheOtherSectionKindReads) {
    std::vector<std::string> lines = SplitLines(SectionInput({"1 0 0 5"}));
    lines[4] = "  2       1          1";
    EXPECT_EQ(Execute(Lines(lines)), ExitCode::Solved) << Messages;
}

TEST_F(SectionRun, AHundredThousandPointsAreSolvedAndOneMoreIsRefused) {
    const std::vector<std::string> points(100000, "    1               0            0            5");
    EXPECT_EQ(Execute(SectionInput(points)), ExitCode::Solved) << Messages;
    EXPECT_EQ(SolvedAt().size(), 100000U);
    std::vector<std::string> lines = SplitLines(SectionInput(points));
    lines[4] = "  2         1     100001";
    lines.push_back(points.front());
    EXPECT_EQ(Execute(Lines(lines)), ExitCode::BadInput);
    EXPECT_EQ(Messages, "ZIRVO_SV.EVA: counts (line 5): number of points 100001: must be 1 to 100000\n");
}

TEST_F(SectionRun, AnOldReportIsNeverTakenForANewOne) {
    WriteBytes("ZIRVO_SV.BRE", "old");
    EXPECT_EQ(Execute(SectionInput({"1 0 0 x"})), ExitCode::BadInput);
    EXPECT_NE(ReadBytes("ZIRVO_SV.BRE").find("   REASON: is not a number\r\n"), std::string::npos);
    EXPECT_EQ(ReadBytes("ZIRVO_SV.BRE").find("old"), std::string::npos);
}

TEST_F(SectionRun, AReportNameThatMustNotBeUsedTouchesNothing) {
    fs::create_directory("folder");
    for (const std::string name : {"", "folder/x.bre", "folder", "ZIRVO_SV.EVA", "Initial_File"}) {
        EXPECT_EQ(Execute(SectionInput({"1 0 0 5"}, name)), ExitCode::BadInput) << name;
        EXPECT_EQ(Listing(), "Initial_File ZIRVO_SV.EVA folder");
        EXPECT_EQ(ReadBytes("ZIRVO_SV.EVA"), SectionInput({"1 0 0 5"}, name));
    }
}

TEST_F(SectionRun, BothLanguagesAndAllUnitsGiveAReport) {
    for (const int language : {1, 2}) {
        for (const int units : {1, 2, 3}) {
            EXPECT_EQ(Execute(SectionInput({"1 0 0 5"}), language, units), ExitCode::Solved);
            const std::string report = DecodeText(ReadBytes("ZIRVO_SV.BRE"));
            EXPECT_NE(report.find(language == 1 ? "報告終わり" : "END OF REPORT"), std::string::npos);
            EXPECT_NE(report.find(units == 1 ? "kgf/cm2; cm\r\n" : "MPa; cm\r\n"), std::string::npos);
        }
    }
}

TEST_F(SectionRun, AnInputCutAtAnyByteLeavesNoReportOfResults) {
    const std::string text = SectionInput({"1 0 0 5", "1 0 0 4"});
    const std::size_t lastNumber = text.rfind('4');
    for (std::size_t length = 0; length < text.size(); ++length) {
        std::error_code ignored;
        fs::remove("ZIRVO_SV.BRE", ignored);
        const bool whole = length > lastNumber;
        EXPECT_EQ(Execute(text.substr(0, length)), whole ? ExitCode::Solved : ExitCode::BadInput) << length;
        if (!whole && fs::exists("ZIRVO_SV.BRE")) {
            EXPECT_NE(ReadBytes("ZIRVO_SV.BRE").find("ERROR"), std::string::npos) << length;
        }
    }
}

}  // namespace
}  // namespace zirvo::solver
