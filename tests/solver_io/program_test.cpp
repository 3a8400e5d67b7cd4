// ZIRVO_SV12.EXE as the front end starts it: in a folder, without arguments, its streams on the null device.
#include <gtest/gtest.h>

#include <filesystem>

#include "solver_io/support.h"

namespace zirvo::solver {
namespace {

using namespace test;

const std::string AnalysisCommand = ProgramWord("ZIRVO_SV12.EXE");

int ExitCodeOnNullDevice() {
    return ExitCodeOf(AnalysisCommand + OnNullDevice);
}

void PrepareAnalysis(const std::string& input) {
    WriteBytes("Initial_File", Lines({"LANGUAGE PREFERENCE", " 2 ", "", "INPUT/OUTPUT UNITS OF MEASUREMENT", " 3 ", "",
                                      "INPUT FILENAME", "Untitled.eva"}));
    WriteBytes("Untitled.eva", input);
}

TEST(SolverProgram, WithoutAControlFileTheCodeIsTwo) {
    const OwnFolder folder;
    EXPECT_EQ(ExitCodeOnNullDevice(), 2);
    EXPECT_TRUE(std::filesystem::is_empty("."));
}

TEST(SolverProgram, SolvesAnInputAndLeavesItsReports) {
    const OwnFolder folder;
    PrepareAnalysis(Example());
    EXPECT_EQ(ExitCodeOnNullDevice(), 0);
    EXPECT_NE(ReadBytes("Untitled.bre").find("   END OF REPORT\r\n"), std::string::npos);
    EXPECT_NE(ReadBytes("Untitled.san").find("   END OF REPORT\r\n"), std::string::npos);
}

// By hand, for a half-space: at the surface under the middle of the load SIGz is minus the pressure,
// 49 kN / (pi (15 cm)^2) = 0.69321 MPa, and W = 2 (1 - 0.4^2) p a / E = 2 * 0.84 * 0.69321 * 15 / 1000 = 0.017469 cm.
TEST(SolverProgram, AHalfSpaceHasTheHandComputedPressureAndDeflection) {
    const OwnFolder folder;
    std::vector<std::string> lines = SplitLines(Example());
    lines.erase(lines.begin() + 9);
    lines[5] = "  1         1          1";
    lines.back() = "    1               0            0            0";
    PrepareAnalysis(Lines(lines));
    EXPECT_EQ(ExitCodeOnNullDevice(), 0);
    const std::string report = ReadBytes("Untitled.bre");
    const std::size_t row = report.find("  1    0.000    0.000    0.000");
    ASSERT_NE(row, std::string::npos);
    EXPECT_EQ(report.substr(row + 54, 12), "  1.7469E-02");
    EXPECT_EQ(report.substr(row + 90, 12), " -6.9321E-01");
}

TEST(SolverProgram, BadInputEndsInCodeOneWithAReportAndALineOnStandardError) {
    const OwnFolder folder;
    PrepareAnalysis(ExampleWith(11, "1000 0.6"));
    EXPECT_EQ(ExitCodeOf(AnalysisCommand + " 2>messages"), 1);
    EXPECT_EQ(ReadBytes("messages"), "Untitled.eva: layer 2 (line 11): Poisson ratio 0.6: must be at most 0.5\n");
    EXPECT_NE(ReadBytes("Untitled.bre").find("   VALUE: Poisson ratio 0.6\r\n"), std::string::npos);
}

TEST(SolverProgram, WorksWithItsStandardStreamsClosed) {
    const OwnFolder folder;
    PrepareAnalysis(Example());
    EXPECT_EQ(ExitCodeOf(AnalysisCommand + " <&- >&- 2>&-"), 0);
    PrepareAnalysis(ExampleWith(11, "1000 0.6"));
    EXPECT_EQ(ExitCodeOf(AnalysisCommand + " <&- >&- 2>&-"), 1);
    EXPECT_EQ(ReadBytes("Untitled.eva"), ExampleWith(11, "1000 0.6"));
}

TEST(SolverProgram, TakesNoArgumentsButHelpAndVersion) {
    const OwnFolder folder;
    EXPECT_EQ(ExitCodeOf(AnalysisCommand + " --version >out"), 0);
    EXPECT_EQ(ReadBytes("out"), "ZIRVO_SV12 2.3\n");
    EXPECT_EQ(ExitCodeOf(AnalysisCommand + " --help >out"), 0);
    EXPECT_NE(ReadBytes("out").find("usage: "), std::string::npos);
    EXPECT_EQ(ExitCodeOf(AnalysisCommand + " --help >/dev/full 2>out"), 1);
    EXPECT_EQ(ReadBytes("out"), "standard output: cannot be written\n");
    EXPECT_EQ(ExitCodeOf(AnalysisCommand + " --version >&- 2>out"), 1);
    EXPECT_EQ(ExitCodeOf(AnalysisCommand + " Untitled.eva 2>out"), 2);
    EXPECT_NE(ReadBytes("out").find("usage: "), std::string::npos);
}

}  // namespace
}  // namespace zirvo::solver
