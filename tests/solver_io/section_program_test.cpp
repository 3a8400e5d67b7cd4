// ZIRVO_SV22.exe as the front end starts it: in a folder, without arguments, its streams on the null device.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "solver_io/support.h"

namespace zirvo::solver {
namespace {

using namespace test;

const std::string SectionCommand = ProgramWord("ZIRVO_SV22.exe");

void PrepareSection(const std::string& point) {
    WriteBytes("Initial_File", Lines({"LANGUAGE PREFERENCE", " 2 ", "", "INPUT/OUTPUT UNITS OF MEASUREMENT", " 3 ", "",
                                      "Input FileName", "ZIRVO_SV.EVA"}));
    std::vector<std::string> lines = SplitLines(Example());
    lines.erase(lines.begin() + 9);  // a half-space
    lines.erase(lines.begin() + 2);  // one name
    lines[1] = "ZIRVO_SV.BRE";
    lines[4] = "  1         1          1";
    lines.back() = point;
    WriteBytes("ZIRVO_SV.EVA", Lines(lines));
}

TEST(SectionProgram, WithoutAControlFileTheCodeIsTwo) {
    const OwnFolder folder;
    EXPECT_EQ(ExitCodeOf(SectionCommand + OnNullDevice), 2);
    EXPECT_TRUE(std::filesystem::is_empty("."));
}

// By hand, for a half-space: at the surface under the middle of the load SIGz is minus the pressure,
// 49 kN / (pi (15 cm)^2) = 0.6932 MPa, W = 2 (1 - 0.4^2) p a / E = 0.017469 cm, and
// EPSz = -(1 + nu) (1 - 2 nu) p / E = -1.4 * 0.2 * 0.6932 / 1000 = -194.1 micro.
TEST(SectionProgram, AHalfSpaceHasTheHandComputedValues) {
    const OwnFolder folder;
    PrepareSection("    1               0            0            0");
    EXPECT_EQ(ExitCodeOf(SectionCommand + OnNullDevice), 0);
    // Title, empty, units, empty, heading, one layer, and four more.
    std::istringstream row(SplitLines(ReadBytes("ZIRVO_SV.BRE")).at(10));
    std::vector<double> numbers;
    for (double number = 0; row >> number;) {
        numbers.push_back(number);
    }
    ASSERT_EQ(numbers.size(), 18U);
    const double pressure = 490 / (3.14159265358979 * 225);
    EXPECT_NEAR(numbers[5], 2 * 0.84 * pressure * 15 / 1000, 1e-11);
    EXPECT_NEAR(numbers[8], -pressure, 1e-9);
    EXPECT_NEAR(numbers[14], -1.4 * 0.2 * pressure / 1000 * 1e6, 1e-6);
}

TEST(SectionProgram, ANegativeDepthIsTheSurface) {
    const OwnFolder folder;
    PrepareSection("    1               0            0           -5");
    EXPECT_EQ(ExitCodeOf(SectionCommand), 0);
    EXPECT_EQ(SplitLines(ReadBytes("ZIRVO_SV.BRE")).at(10).substr(24, 12), "      0.0000");
}

TEST(SectionProgram, BadInputEndsInCodeOneWithAReportAndALineOnStandardError) {
    const OwnFolder folder;
    PrepareSection("    9               0            0            0");
    EXPECT_EQ(ExitCodeOf(SectionCommand + " 2>messages"), 1);
    EXPECT_EQ(ReadBytes("messages"), "ZIRVO_SV.EVA: point of interest 1 (line 17): layer number 9: must be 0 to 1\n");
    EXPECT_NE(ReadBytes("ZIRVO_SV.BRE").find("   VALUE: layer number 9\r\n"), std::string::npos);
}

TEST(SectionProgram, TakesNoArgumentsButHelpAndVersion) {
    const OwnFolder folder;
    EXPECT_EQ(ExitCodeOf(SectionCommand + " --version >out"), 0);
    EXPECT_EQ(ReadBytes("out"), "ZIRVO_SV22 2.3\n");
    EXPECT_EQ(ExitCodeOf(SectionCommand + " --help >out"), 0);
    EXPECT_EQ(ReadBytes("out").find("usage: ZIRVO_SV22.exe\n"), 0U);
    EXPECT_EQ(ExitCodeOf(SectionCommand + " ZIRVO_SV.EVA 2>out"), 2);
    EXPECT_EQ(ReadBytes("out").find("usage: ZIRVO_SV22.exe\n"), 0U);
}

}  // namespace
}  // namespace zirvo::solver
