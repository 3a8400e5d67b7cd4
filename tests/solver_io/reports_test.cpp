// The reports, byte for byte and line by line.
#include "solver/io/reports.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/utf8.h"
#include "platform/code_page.h"
#include "solver_io/support.h"
#include "text/csv_line.h"

namespace zirvo::solver {
namespace {

using namespace test;

/// A problem with as much of everything as fits, and with whatever makes lines long or blank.
ReportData CrowdedData(Language language) {
    ReportData data;
    data.Words = language;
    data.Units = UnitSystem::KgfToMpa;
    data.InputName = "  a,    b  道路　Straße.eva   ";
    for (int i = 0; i < 100; ++i) {
        data.Input.Typed.Layers.push_back({i % 3 == 0 ? 1e-300 : 123456789012345, 0.5, 1.0 / (i + 1), 0});
    }
    for (int i = 0; i < 100; ++i) {
        data.Input.Typed.Loads.push_back({0, 1e-7 * (i + 1), -1e300, 0, 1.0 / 3, -0.0});
    }
    for (int i = 0; i < 200; ++i) {
        data.Input.Typed.Points.push_back({i % 100 + 1, i % 2 == 0 ? 0.0 : -9.9e99, 1e8 * i, 0.0});
        PointResult result;
        for (std::size_t k = 0; k < result.Values.size(); ++k) {
            result.Values[k] = (i + static_cast<int>(k)) % 2 == 0 ? 0 : -std::pow(10, i % 93 - 46);
        }
        result.OnLoadEdge = i % 3 == 0;
        result.Estimates = {0, i % 5 == 0 ? 2.5e-9 : 0, i % 7 == 0 ? std::nan("") : 0};
        data.Results.Points.push_back(result);
    }
    data.Results.LargestEstimate = std::numeric_limits<double>::infinity();
    data.Input.MovedPoints = 3;
    EXPECT_EQ(FinishResults(data).Reason, Word::None);
    return data;
}

std::vector<std::string> DecodedLines(const std::string& report) {
    EXPECT_EQ(report.substr(report.size() - 2), "\r\n");
    return SplitLines(DecodeText(report));
}

std::size_t FieldCount(const std::string& csv) {
    return static_cast<std::size_t>(std::count(csv.begin(), csv.end(), ',')) + 1;
}

bool IsMarker(const std::string& line) {
    return line.substr(0, 6) == "   ===";
}

/// First and last place of the table: its heading lines and rows, without the marker lines.
std::pair<std::size_t, std::size_t> TableOf(const std::vector<std::string>& lines) {
    std::vector<std::size_t> markers;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (IsMarker(lines[i])) {
            markers.push_back(i);
        }
    }
    EXPECT_EQ(markers.size(), 3U);
    return markers.size() == 3 ? std::pair(markers[1] + 1, markers[2]) : std::pair<std::size_t, std::size_t>(0, 0);
}

void ExpectCleanLine(const std::string& line) {
    EXPECT_EQ(line.find(std::string(13, ' ')), std::string::npos) << line;
    EXPECT_EQ(line.find(','), std::string::npos) << line;
    EXPECT_NE(line.find_first_not_of(' '), 8U) << line;
    EXPECT_EQ(line.find_first_of("\r\n\t"), std::string::npos) << line;
}

/// What holds for every line of every report, and for its table of points of so many columns.
void ExpectCleanReport(const std::string& report, std::size_t points, std::size_t width, std::size_t fields) {
    const std::vector<std::string> lines = DecodedLines(report);
    const auto [first, end] = TableOf(lines);
    ASSERT_EQ(end - first, points + 2);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        ExpectCleanLine(lines[i]);
        const bool row = i >= first + 2 && i < end;
        if (!row && !lines[i].empty()) {
            EXPECT_EQ(lines[i].substr(0, 3), "   ") << lines[i];
        }
        if (IsMarker(lines[i])) {
            EXPECT_EQ(lines[i], "   " + std::string(width - 3, '='));
        } else {
            EXPECT_EQ(lines[i].find("=="), std::string::npos) << lines[i];
        }
        if (i >= first && i < end) {
            EXPECT_EQ(EncodeText(lines[i]).size(), width) << "prints as wide as the others: " << lines[i];
        }
        if (row) {
            EXPECT_EQ(CharacterCount(lines[i]), width);
            EXPECT_EQ(lines[i].find("-0.000 "), std::string::npos);
        }
        if (i > first && i < end) {
            EXPECT_EQ(FieldCount(ConvertToCsvLine(lines[i], ' ', ',')), fields) << lines[i];
        }
    }
}

TEST(Reports, EveryLineIsFitForTheViewerAndTheCommaCopy) {
    for (const Language language : Languages) {
        for (const UnitSystem units : AllUnits) {
            const ReportData data = HandMadeData(language, units);
            ExpectCleanReport(ResultReport(data), 4, 210, 4 + 15);
            ExpectCleanReport(PrincipalReport(data), 4, 198, 4 + 14);
        }
        const ReportData crowded = CrowdedData(language);
        ExpectCleanReport(ResultReport(crowded), 200, 210, 4 + 15);
        ExpectCleanReport(PrincipalReport(crowded), 200, 198, 4 + 14);
    }
}

TEST(Reports, AreTheGoldenFilesByteForByte) {
    ExpectGolden("english.bre", ResultReport(HandMadeData(Language::English, UnitSystem::KgfToKgf)));
    ExpectGolden("english.san", PrincipalReport(HandMadeData(Language::English, UnitSystem::KgfToKgf)));
    ExpectGolden("japanese.bre", ResultReport(HandMadeData(Language::Japanese, UnitSystem::KnToMpa)));
    ExpectGolden("japanese.san", PrincipalReport(HandMadeData(Language::Japanese, UnitSystem::KnToMpa)));
}

/// Widths of the six columns into which the viewer cuts the first heading line.
void ExpectGroupWidths(const std::string& line, const std::vector<std::size_t>& widths) {
    std::size_t first = 0;
    for (std::size_t i = 0; i < widths.size(); ++i) {
        const std::string group(CharacterSlice(line, first, widths[i]));
        const std::string bytes = EncodeText(group);
        EXPECT_EQ(bytes.size(), i == 0 ? 30U : 36U) << "prints as wide as its columns: " << group;
        EXPECT_EQ(group.front(), ' ');
        EXPECT_EQ(group.back(), '-') << "the rest is filled: " << group;
        const std::size_t doubles = bytes.size() - CharacterCount(group);
        EXPECT_EQ(doubles, widths[i] == 33 ? 3U : 0U) << group;
        first += widths[i];
    }
    EXPECT_EQ(CharacterCount(line), first);
}

TEST(ResultReport, TheFirstHeadingHasTheWidthsByWhichTheViewerCutsIt) {
    for (const UnitSystem units : AllUnits) {
        const auto japanese = DecodedLines(ResultReport(HandMadeData(Language::Japanese, units)));
        ExpectGroupWidths(japanese[TableOf(japanese).first], {30, 36, 33, 33, 33, 33});
        const auto english = DecodedLines(ResultReport(HandMadeData(Language::English, units)));
        ExpectGroupWidths(english[TableOf(english).first], {30, 36, 36, 36, 36, 36});
    }
}

TEST(ResultReport, TheSecondHeadingNamesTheComponentsOverTheirColumns) {
    for (const Language language : Languages) {
        const auto lines = DecodedLines(ResultReport(HandMadeData(language, UnitSystem::KgfToKgf)));
        const std::string& names = lines[TableOf(lines).first + 1];
        EXPECT_EQ(CharacterCount(names), 210U) << "no double-width character";
        for (std::size_t i = 0; i < ComponentNames.size(); ++i) {
            EXPECT_EQ(CharacterSlice(names, 30 + i * 12, 12), Padded(ComponentNames[i], 12));
        }
        EXPECT_EQ(CharacterSlice(names, 9, 3), "  X");
        EXPECT_EQ(CharacterSlice(names, 12, 9), Padded("Y", 9));
        EXPECT_EQ(CharacterSlice(names, 21, 9), Padded("Z", 9));
    }
}

TEST(ResultReport, GroupsNameTheUnitOfTheOutput) {
    const auto heading = [](UnitSystem units) {
        const auto lines = DecodedLines(ResultReport(HandMadeData(Language::English, units)));
        return lines[TableOf(lines).first];
    };
    EXPECT_NE(heading(UnitSystem::KgfToKgf).find("STRESS(kgf/cm2)"), std::string::npos);
    EXPECT_NE(heading(UnitSystem::KgfToMpa).find("STRESS(MPa)"), std::string::npos);
    EXPECT_NE(heading(UnitSystem::KnToMpa).find("STRAIN(micro)"), std::string::npos);
}

// 3 * 1.23456E-5 kgf/cm2 * 0.0980665 = 3.6321E-06 MPa; 9 * 1.23456E-5 = 111.11 micro.
TEST(ResultReport, ARowHoldsThePointAndItsValuesInTheUnitsOfTheOutput) {
    const auto lines = DecodedLines(ResultReport(HandMadeData(Language::English, UnitSystem::KgfToMpa)));
    const std::string& row = lines[TableOf(lines).first + 2];
    EXPECT_EQ(row.substr(0, 66), "  1    0.000    0.000    0.000           0  1.2346E-05  2.4691E-05");
    EXPECT_EQ(row.substr(66, 12), "  3.6321E-06");
    EXPECT_EQ(row.substr(138, 12), "  1.1111E+02");
}

TEST(PrincipalReport, TheHeadingsHaveNoDoubleWidthCharacter) {
    for (const Language language : Languages) {
        const auto lines = DecodedLines(PrincipalReport(HandMadeData(language, UnitSystem::KgfToKgf)));
        const std::size_t first = TableOf(lines).first;
        EXPECT_EQ(CharacterCount(lines[first]), 198U);
        EXPECT_EQ(CharacterCount(lines[first + 1]), 198U);
        EXPECT_EQ(CharacterSlice(lines[first + 1], 30, 36), "        SIG1        SIG2        SIG3");
        EXPECT_EQ(CharacterSlice(lines[first + 1], 102, 24), "      TAUmax      GAMmax");
    }
}

TEST(PrincipalReport, ARowHoldsThePrincipalValuesAndTheDirections) {
    ReportData data = HandMadeData(Language::English, UnitSystem::KnToMpa);
    PointResult result;
    result.Values[SIGz] = -0.7;
    result.Values[EPSx] = result.Values[EPSy] = 0.00005;
    result.Values[EPSz] = -0.00014;
    data.Input.Typed.Points.resize(1);
    data.Results.Points = {result};
    ASSERT_EQ(FinishResults(data).Reason, Word::None);
    const auto lines = DecodedLines(PrincipalReport(data));
    const std::string zero = Padded("0", 12), one = "  1.0000E+00";
    EXPECT_EQ(lines[TableOf(lines).first + 2], "  1    0.000    0.000    0.000" + zero + zero + " -7.0000E-01" +
                                                   "  5.0000E+01" + "  5.0000E+01" + " -1.4000E+02" + "  3.5000E-01" +
                                                   "  1.9000E+02" + one + zero + zero + zero + zero + one);
}

TEST(Reports, TheHeadTellsTitleInputUnitsAndSigns) {
    ReportData data = HandMadeData(Language::English, UnitSystem::KgfToMpa);
    data.InputName = "a,   b.eva";
    const auto lines = DecodedLines(ResultReport(data));
    EXPECT_EQ(lines[0], "   MULTI-LAYERED ELASTIC ANALYSIS - RESULTS");
    EXPECT_EQ(lines[2], "   INPUT FILE: a; b.eva");
    EXPECT_EQ(lines[3], "   INPUT UNITS: kgf; kgf/cm2; cm");
    EXPECT_EQ(lines[4], "   OUTPUT UNITS: MPa; cm");
    EXPECT_NE(lines[5].find("TENSION IS POSITIVE"), std::string::npos);
    EXPECT_EQ(DecodedLines(ResultReport(HandMadeData(Language::Japanese, UnitSystem::KnToMpa)))[3],
              "   入力単位: kN; MPa; cm");
}

TEST(Reports, TheHeadHoldsLayersAndLoadsInColumnsOfThirteen) {
    const auto lines = DecodedLines(ResultReport(HandMadeData(Language::English, UnitSystem::KnToMpa)));
    const auto has = [&](const std::string& line) { return std::count(lines.begin(), lines.end(), line) == 1; };
    EXPECT_TRUE(has("   No.       E(MPa)      POISSON    THICK(cm)    SLIP-RATE"));
    EXPECT_TRUE(has("     1         5000         0.35           15            0"));
    EXPECT_TRUE(has("     2 333.33333333 0.3333333333         30.5         0.99"));
    EXPECT_TRUE(has("     3           50          0.5            -            -"));
    EXPECT_TRUE(has("   No.     VERT(kN)   RADIUS(cm)        X(cm)        Y(cm)    HORIZ(kN)   ANGLE(deg)"));
    EXPECT_TRUE(has("     2         24.5           11         -106           66           -5         33.5"));
}

TEST(Reports, TheSummaryStandsBetweenTheFirstTwoMarkers) {
    const auto lines = DecodedLines(ResultReport(HandMadeData(Language::English, UnitSystem::KnToMpa)));
    const std::size_t table = TableOf(lines).first;
    EXPECT_TRUE(IsMarker(lines[table - 3]));
    EXPECT_EQ(lines[table - 2], "   NUMBER OF POINTS: 4");
    EXPECT_TRUE(IsMarker(lines[table - 1]));
}

std::vector<std::string> TailOf(const std::string& report) {
    const std::vector<std::string> lines = DecodedLines(report);
    return {lines.begin() + static_cast<std::ptrdiff_t>(TableOf(lines).second) + 1, lines.end()};
}

/// What the tail of every report says of the edges of loads, here where no point lies on one.
std::vector<std::string> WithEdgeNotes(const std::vector<std::string>& rest) {
    std::vector<std::string> tail{
        "   NOTE: POINTS ON THE EDGE OF A LOAD AT THE SURFACE: 0",
        "   VALUES THAT JUMP THERE ARE THE MEAN OF THE TWO SIDES.",
        "   VALUES THAT A HORIZONTAL LOAD MAKES INFINITE THERE (SIGx SIGy TAUxy EPSx EPSy EPSz GAMxy)",
        "   TAKE FOR ITS SHARE THE MEAN OF THOSE AT 0.999 AND 1.001 OF THE RADIUS."};
    tail.insert(tail.end(), rest.begin(), rest.end());
    return tail;
}

TEST(Reports, TheTailOfAPlainReportTellsHowEdgesAreTakenAndTheLargestBoundAndEnds) {
    ReportData data = HandMadeData(Language::English, UnitSystem::KnToMpa);
    data.Results.Points[1].OnLoadEdge = false;
    const std::vector<std::string> tail =
        WithEdgeNotes({"   LARGEST BOUND OF THE RELATIVE ERROR: 9.0E-12 (PROMISED: 1.0E-09)", "   END OF REPORT"});
    EXPECT_EQ(TailOf(ResultReport(data)), tail);
    EXPECT_EQ(TailOf(PrincipalReport(data)), tail);
}

TEST(Reports, TheTailNamesThePointsOnAnEdgeAndTellsWhatTheirValuesAre) {
    ReportData data = HandMadeData(Language::English, UnitSystem::KnToMpa);
    data.Input.Typed.Points.assign(40, {1, 0, 0, 0});
    data.Results.Points.assign(40, {});
    for (std::size_t i = 1; i < 18; ++i) {
        data.Results.Points[i].OnLoadEdge = true;
    }
    ASSERT_EQ(FinishResults(data).Reason, Word::None);
    const std::vector<std::string> tail = TailOf(ResultReport(data));
    ASSERT_EQ(tail.size(), 9U);
    EXPECT_EQ(tail[0], "   NOTE: POINTS ON THE EDGE OF A LOAD AT THE SURFACE: 17");
    EXPECT_EQ(tail[1], "   VALUES THAT JUMP THERE ARE THE MEAN OF THE TWO SIDES.");
    EXPECT_EQ(tail[5], "   2 3 4 5 6 7 8 9 10 11 12 13 14 15 16");
    EXPECT_EQ(tail[6], "   17 18");
}

TEST(Reports, TheTailNamesThePointsWhoseBoundIsAboveThePromise) {
    ReportData data = HandMadeData(Language::English, UnitSystem::KnToMpa);
    data.Results.Points[1].OnLoadEdge = false;
    data.Results.Points[0].Estimates = {1e-9, 0, 0};  // the promise itself is kept
    data.Results.Points[2].Estimates = {0, 2.5e-7, 1e-12};
    data.Results.Points[3].Estimates = {0, 0, std::nan("")};
    data.Results.LargestEstimate = 2.5e-7;
    data.Input.MovedPoints = 2;
    const std::vector<std::string> tail = WithEdgeNotes(
        {"   NOTE: DEPTHS OUTSIDE THE NAMED LAYER BY AT MOST 0.01 cm TAKEN ON ITS BOUNDARY: 2",
         "   LARGEST BOUND OF THE RELATIVE ERROR: 2.5E-07 (PROMISED: 1.0E-09)",
         "   NOTE: POINT 3: BOUND OF THE RELATIVE ERROR 2.5E-07 IS ABOVE THE PROMISE",
         "   NOTE: POINT 4: BOUND OF THE RELATIVE ERROR UNKNOWN IS ABOVE THE PROMISE", "   END OF REPORT"});
    EXPECT_EQ(TailOf(PrincipalReport(data)), tail);
}

InputError ErrorOf(double value, Component component, UnitSystem units) {
    ReportData data;
    data.Units = units;
    data.Input.Typed.Points.assign(2, {1, 0, 0, 0});
    data.Results.Points.assign(2, {});
    data.Results.Points[1].Values[static_cast<std::size_t>(component)] = value;
    return FinishResults(data);
}

TEST(FinishResults, AResultThatIsNoFiniteNumberIsNamed) {
    for (const double value : {std::nan(""), std::numeric_limits<double>::infinity()}) {
        EXPECT_EQ(OneLine(Language::English, "a.eva", ErrorOf(value, TAUzx, UnitSystem::KgfToKgf)),
                  "a.eva: point of interest 2: TAUzx: the result is not a finite number");
    }
}

TEST(FinishResults, AResultAboveTheLargestPrintedIsNamedInTheUnitsOfTheOutput) {
    EXPECT_EQ(OneLine(Language::English, "a.eva", ErrorOf(1e100, W, UnitSystem::KgfToKgf)),
              "a.eva: point of interest 2: W: the result is above 9.9999E+99");
    EXPECT_EQ(ErrorOf(9.9999e99, W, UnitSystem::KgfToKgf).Reason, Word::None);
    EXPECT_EQ(ErrorOf(1e94, EPSz, UnitSystem::KgfToKgf).Component, "EPSz") << "1E100 micro";
    EXPECT_EQ(ErrorOf(1e101, SIGx, UnitSystem::KgfToMpa).Reason, Word::None) << "9.8E99 MPa";
    EXPECT_EQ(ErrorOf(1e101, SIGx, UnitSystem::KgfToKgf).Reason, Word::TooLarge);
}

TEST(FinishResults, APrincipalValueAboveTheLargestPrintedIsNamed) {
    ReportData data;
    data.Input.Typed.Points.assign(1, {1, 0, 0, 0});
    data.Results.Points.assign(1, {});
    for (const Component component : {SIGx, SIGy, TAUxy}) {
        data.Results.Points[0].Values[static_cast<std::size_t>(component)] = 9e99;
    }
    EXPECT_EQ(OneLine(Language::English, "a.eva", FinishResults(data)),
              "a.eva: point of interest 1: SIG1: the result is above 9.9999E+99");
}

InputError SomeError() {
    InputError error;
    error.Reason = Word::OutsideRange;
    error.Arguments = {"0", "0.5"};
    error.Row = Word::RowLayer;
    error.RowNumber = 3;
    error.Line = 12;
    error.Value = Word::PoissonRatio;
    error.Text = "0.6";
    return error;
}

TEST(ErrorReport, NamesFileRowAndValueInTheChosenLanguage) {
    EXPECT_EQ(DecodeText(ErrorReport(Language::English, Word::TitleResults, "a.eva", SomeError())),
              "   MULTI-LAYERED ELASTIC ANALYSIS - RESULTS\r\n\r\n"
              "   ERROR - THIS REPORT HOLDS NO RESULTS\r\n"
              "   FILE: a.eva\r\n"
              "   ROW: layer 3 (line 12)\r\n"
              "   VALUE: Poisson ratio 0.6\r\n"
              "   REASON: must be 0 to 0.5\r\n");
    EXPECT_EQ(DecodeText(ErrorReport(Language::Japanese, Word::TitlePrincipal, "道路.eva", SomeError())),
              "   多層弾性解析 - 主応力と主ひずみ\r\n\r\n"
              "   エラー - この報告に計算結果はありません\r\n"
              "   ファイル: 道路.eva\r\n"
              "   行: 層 3 (12行目)\r\n"
              "   値: ポアソン比 0.6\r\n"
              "   理由: 0から0.5まででなければなりません\r\n");
}

TEST(ErrorReport, HasNoMarkerAndNoLineThatWouldSpoilTheCommaCopy) {
    for (const Language language : Languages) {
        for (int reason = static_cast<int>(Word::FileMissing); reason < static_cast<int>(Word::WordCount); ++reason) {
            InputError error = SomeError();
            error.Reason = static_cast<Word>(reason);
            error.Text = "1,5" + std::string(40, ' ') + "=====";
            error.Arguments = {"a,b" + std::string(20, ' '), "   ==="};
            const std::string name = "x,y" + std::string(30, ' ') + ".eva";
            for (const std::string& line : DecodedLines(ErrorReport(language, Word::TitleResults, name, error))) {
                ExpectCleanLine(line);
                EXPECT_FALSE(IsMarker(line)) << line;
                EXPECT_TRUE(line.empty() || line.substr(0, 3) == "   ") << line;
            }
        }
    }
}

}  // namespace
}  // namespace zirvo::solver
