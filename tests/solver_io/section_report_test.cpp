// The report of a section: the fields that its reader throws away, the numbers that it keeps, and what a comma copy
// would make of its lines.
#include "solver/io/section_report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <sstream>

#include "platform/code_page.h"
#include "solver_io/support.h"
#include "text/csv_line.h"
#include "text/text_fields.h"

namespace zirvo::solver {
namespace {

using namespace test;

constexpr std::size_t NumbersOfRow = 18;

/// Text fields in front of the layers: one more in English with unit system 1.
int HeadFields(Language language, UnitSystem units) {
    return language == Language::English && units == UnitSystem::KgfToKgf ? 6 : 5;
}

/// The rows as the front end reads them: fields thrown away by number, then numbers.
std::vector<std::array<double, NumbersOfRow>> RowsOf(const std::string& report, const ReportData& data) {
    std::istringstream input(report);
    TextStream stream(input);
    const std::size_t layers = data.Input.Typed.Layers.size();
    for (std::size_t i = 0; i < static_cast<std::size_t>(HeadFields(data.Words, data.Units)) + layers + 4; ++i) {
        ReadTextFieldBytes(stream);
    }
    std::vector<std::array<double, NumbersOfRow>> rows(data.Input.Typed.Points.size());
    for (auto& row : rows) {
        for (double& number : row) {
            number = ReadNumberField(stream);
        }
    }
    return rows;
}

/// As much of everything as fits, and whatever makes lines long or blank.
ReportData Crowded(Language language, UnitSystem units) {
    ReportData data;
    data.Words = language;
    data.Units = units;
    data.InputName = "ZIRVO_SV.EVA";
    for (int i = 0; i < 100; ++i) {
        data.Input.Typed.Layers.push_back({i % 3 == 0 ? 1e-300 : 123456789012345, 0.5, 1.0 / (i + 1), 0});
    }
    data.Input.Typed.Loads.push_back({0, 1e-7, -1e300, 0, 1.0 / 3, -0.0});
    for (int i = 0; i < 200; ++i) {
        data.Input.Typed.Points.push_back({i % 100 + 1, i % 2 == 0 ? 0.0 : -9.9e11, std::pow(10, i % 13), 0.0});
        PointResult result;
        for (std::size_t k = 0; k < result.Values.size(); ++k) {
            result.Values[k] = (i + static_cast<int>(k)) % 2 == 0 ? 0 : -std::pow(10, i % 93 - 46);
        }
        result.OnLoadEdge = i % 3 == 0;
        result.Estimates = {0, i % 5 == 0 ? 2.5e-9 : 0, 0};
        data.Results.Points.push_back(result);
    }
    data.Input.MovedPoints = 3;
    EXPECT_EQ(FinishSection(data).Reason, Word::None);
    return data;
}

TEST(SectionReport, TheHeadHasTheFieldsThatItsReaderThrowsAway) {
    for (const Language language : Languages) {
        for (const UnitSystem units : AllUnits) {
            for (const std::size_t layers : {1U, 3U, 100U}) {
                ReportData data = Crowded(language, units);
                data.Input.Typed.Layers.resize(layers);
                const auto rows = RowsOf(SectionReport(data), data);
                for (std::size_t i = 0; i < rows.size(); ++i) {
                    EXPECT_EQ(rows[i][0], data.Input.Typed.Points[i].X) << i;
                    EXPECT_NEAR(rows[i][1], data.Input.Typed.Points[i].Y, 1e-4) << i;
                    EXPECT_EQ(rows[i][2], 0) << i;
                    for (std::size_t k = 0; k < ComponentCount; ++k) {
                        const double value = data.Results.Points[i].Values[k];
                        EXPECT_NEAR(rows[i][3 + k], value, 5e-10 * std::fabs(value)) << i << ", " << k;
                    }
                }
            }
        }
    }
}

TEST(SectionReport, OneCommaStandsInLineThreeInEnglishWithUnitSystemOneAndNoneAnywhereElse) {
    for (const Language language : Languages) {
        for (const UnitSystem units : AllUnits) {
            const std::string report = SectionReport(Crowded(language, units));
            const auto commas = std::count(report.begin(), report.end(), ',');
            EXPECT_EQ(commas, HeadFields(language, units) - 5);
            const std::string third = SplitLines(report)[2];
            EXPECT_EQ(std::count(third.begin(), third.end(), ','), commas) << third;
        }
    }
}

TEST(SectionReport, NoLineHasAGapThatACommaCopyWouldTakeForAField) {
    for (const Language language : Languages) {
        const ReportData data = Crowded(language, UnitSystem::KgfToMpa);
        const std::vector<std::string> lines = SplitLines(SectionReport(data));
        for (const std::string& line : lines) {
            EXPECT_EQ(line.find(std::string(13, ' ')), std::string::npos) << line;
            EXPECT_NE(line.find_first_not_of(' '), 8U) << line;
            EXPECT_EQ(line.find_first_of("\r\n\t"), std::string::npos) << line;
        }
        for (std::size_t i = 0; i < data.Input.Typed.Points.size(); ++i) {
            const std::string csv = ConvertToCsvLine(lines[5 + 100 + 4 + i], ' ', ',');
            EXPECT_EQ(std::count(csv.begin(), csv.end(), ',') + 1, static_cast<std::ptrdiff_t>(NumbersOfRow)) << csv;
        }
    }
}

TEST(SectionReport, LinesStandInTheirPlaces) {
    const ReportData data = HandMadeData(Language::English, UnitSystem::KgfToMpa);
    const std::vector<std::string> lines = SplitLines(SectionReport(data));
    EXPECT_EQ(lines[0], "   MULTI-LAYERED ELASTIC ANALYSIS - CROSS SECTION");
    EXPECT_EQ(lines[1], "");
    EXPECT_EQ(lines[2], "   INPUT UNITS: kgf; kgf/cm2; cm; OUTPUT UNITS: MPa; cm");
    EXPECT_EQ(lines[3], "");
    EXPECT_EQ(lines[4], "   No.   E(kgf/cm2)      POISSON    THICK(cm)    SLIP-RATE");
    EXPECT_EQ(lines[5], "     1         5000         0.35           15            0");
    EXPECT_EQ(lines[7], "     3           50          0.5            -            -");
    EXPECT_EQ(lines[8], "");
    EXPECT_EQ(lines[9].substr(0, 6), "   ===");
    EXPECT_EQ(lines[10].substr(0, 14), "   POINT(cm) -");
    EXPECT_EQ(lines[11].substr(0, 6), "   X -");
    EXPECT_EQ(lines.back(), "   END OF REPORT");
    EXPECT_EQ(SplitLines(SectionReport(HandMadeData(Language::English, UnitSystem::KgfToKgf)))[2],
              "   INPUT UNITS: kgf; kgf/cm2; cm, OUTPUT UNITS: kgf/cm2; cm");
}

TEST(SectionReport, NumbersAreWrittenToTheLastDigit) {
    ReportData data = HandMadeData(Language::English, UnitSystem::KnToMpa);
    data.Input.Typed.Layers.resize(1);
    data.Input.Typed.Points = {{1, -31.66667, 0, 12345.67895}, {1, -0.00004, 99999.99994, 1e10}};
    data.Results.Points.resize(2);
    for (PointResult& point : data.Results.Points) {
        point.Values.fill(0);
        // Half away from zero on the decimal digits: 1.2345678905 goes up.
        point.Values[U] = -0.12345678905;
        point.Values[V] = 9.9999999996e-5;
        point.Values[GAMzx] = -1e-99;
    }
    const std::vector<std::string> lines = SplitLines(SectionReport(data));
    EXPECT_EQ(lines[10],
              "    -31.6667      0.0000  12345.6790 -1.234567891E-01  1.000000000E-04  0  0  0  0  0  0  0  0  0  0  0"
              "  0 -1.000000000E-99");
    EXPECT_EQ(lines[11].substr(0, 43), "      0.0000  99999.9999 10000000000.0000 -");
}

TEST(SectionReport, TheTailSaysHowManyDepthsWereMovedAndWhichPointsLieOnEdges) {
    ReportData data = HandMadeData(Language::English, UnitSystem::KnToMpa);
    EXPECT_EQ(SectionReport(data).find("NEAREST BOUNDARY"), std::string::npos);
    data.Input.MovedPoints = 7;
    const std::string report = SectionReport(data);
    EXPECT_NE(report.find("   NOTE: DEPTHS OUTSIDE THE NAMED LAYER TAKEN ON ITS NEAREST BOUNDARY: 7\r\n"),
              std::string::npos);
    EXPECT_NE(report.find("   NOTE: POINTS ON THE EDGE OF A LOAD AT THE SURFACE: 1\r\n"), std::string::npos);
    EXPECT_NE(report.find("   LARGEST BOUND OF THE RELATIVE ERROR: 9.0E-12 (PROMISED: 1.0E-09)\r\n"),
              std::string::npos);
    data.Words = Language::Japanese;
    EXPECT_NE(DecodeText(SectionReport(data)).find("   注: 指定層から外れ 最も近い境界上とした着目点の数: 7\r\n"),
              std::string::npos);
}

TEST(SectionReport, IsTheGoldenFileByteForByte) {
    ExpectGolden("section_english.bre", SectionReport(HandMadeData(Language::English, UnitSystem::KgfToKgf)));
    ExpectGolden("section_japanese.bre", SectionReport(HandMadeData(Language::Japanese, UnitSystem::KnToMpa)));
}

TEST(FinishSection, AResultThatNoReportCanHoldIsNamed) {
    for (const auto& [value, reason] :
         {std::pair(std::numeric_limits<double>::quiet_NaN(), Word::NotFinite), std::pair(1e100, Word::TooLarge)}) {
        ReportData data = HandMadeData(Language::English, UnitSystem::KnToMpa);
        data.Results.Points[2].Values[TAUyz] = value;
        const InputError error = FinishSection(data);
        EXPECT_EQ(error.Reason, reason);
        EXPECT_EQ(error.RowNumber, 3);
        EXPECT_EQ(error.Component, "TAUyz");
    }
}

}  // namespace
}  // namespace zirvo::solver
