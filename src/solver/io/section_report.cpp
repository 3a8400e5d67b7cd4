// The report of a section, see section_report.h. Called by the solver run.
#include "solver/io/section_report.h"

#include <array>
#include <cmath>
#include <string_view>
#include <vector>

#include "base/decimal15.h"
#include "solver/io/report_parts.h"

namespace zirvo::solver {
namespace {

/// Columns of the table, as long as the numbers fit: coordinates with 4 decimals up to 99999 cm, values with 10
/// significant digits. No gap reaches 13 blanks and no line begins with 8, which the comma copies could not part.
constexpr std::size_t PlaceWidth = 12;
constexpr std::size_t PlaceDecimals = 4;
constexpr std::size_t SectionValueWidth = 17;
constexpr int ValueDecimals = 9;
constexpr std::size_t TableWidth = 3 * PlaceWidth + ComponentCount * SectionValueWidth;
constexpr std::size_t LongestScientific = 25;

std::string UnitsLine(const ReportData& data) {
    const std::string in =
        std::string(ForceUnit(data.Units)) + "; " + std::string(InputStressUnit(data.Units)) + "; cm";
    const std::string out = std::string(OutputStressUnit(data.Units)) + "; cm";
    // The one comma of the head: readers of this report count a field more in just this case.
    const bool comma = data.Words == Language::English && data.Units == UnitSystem::KgfToKgf;
    return FillIn(TextOf(data.Words, Word::InputUnits), {in}) + (comma ? ", " : "; ") +
           FillIn(TextOf(data.Words, Word::OutputUnits), {out});
}

void Headings(ReportText& report, const ReportData& data) {
    const Language words = data.Words;
    const std::string_view stress = OutputStressUnit(data.Units);
    const auto group = [words](Word word, std::string_view unit = {}) {
        return Cell{FillIn(TextOf(words, word), {unit}), 3 * SectionValueWidth};
    };
    const std::array groups{Cell{std::string(TextOf(words, Word::GroupPoint)), 3 * PlaceWidth},
                            group(Word::GroupDisplacement),
                            group(Word::GroupStress, stress),
                            group(Word::GroupShearStress, stress),
                            group(Word::GroupStrain),
                            group(Word::GroupShearStrain)};
    std::vector<Cell> names{{"X", PlaceWidth}, {"Y", PlaceWidth}, {"Z", PlaceWidth}};
    for (const std::string_view name : ComponentNames) {
        names.push_back({std::string(name), SectionValueWidth});
    }
    report.EmptyLine();
    report.Rule('=', TableWidth);
    report.GroupHeading(groups);
    report.GroupHeading(names);
}

/// The text right-justified in the columns, with at least one blank in front.
void AppendPlace(std::string& rows, double x) {
    const std::string text = FixedText(x, PlaceDecimals);
    rows.append(text.size() < PlaceWidth ? PlaceWidth - text.size() : 1, ' ');
    rows += text;
}

/// A blank, one more in place of a sign, and the number. A value that is as good as none is a bare "0", which stands
/// where the number would begin, since in front of it the gap would be too long.
void AppendValue(std::string& rows, double value) {
    if (!(std::fabs(value) >= SmallestPrinted)) {
        rows += "  0";
        return;
    }
    std::array<char, LongestScientific> text{};
    const std::size_t length = WriteScientific(value, ValueDecimals, text.data());
    rows += value < 0 ? " " : "  ";
    rows.append(text.data(), length);
}

std::string Rows(const ReportData& data) {
    constexpr std::size_t LineEndLength = 2;
    const std::vector<Point>& points = data.Input.Typed.Points;
    std::string rows;
    rows.reserve(points.size() * (TableWidth + LineEndLength));
    for (std::size_t i = 0; i < points.size(); ++i) {
        for (const double x : {points[i].X, points[i].Y, points[i].Z}) {
            AppendPlace(rows, x);
        }
        for (const double value : data.Results.Points[i].Values) {
            AppendValue(rows, value);
        }
        rows += "\r\n";
    }
    return rows;
}

}  // namespace

InputError FinishSection(ReportData& data) {
    InputError error;
    for (std::size_t i = 0; i < data.Results.Points.size() && error.Reason == Word::None; ++i) {
        std::array<double, ComponentCount>& values = data.Results.Points[i].Values;
        values = ToOutputUnits(values, data.Units);
        error = JudgeValues(values, ComponentNames, i);
    }
    return error;
}

std::string SectionReport(const ReportData& data) {
    ReportText report(data.Words);
    report.Line(Word::TitleSection);
    report.EmptyLine();
    report.Line(UnitsLine(data));
    report.EmptyLine();
    report.Cells(LayerHeadings(data));
    LayerRows(report, data);
    Headings(report, data);
    report.WholeLines(Rows(data));
    Tail(report, data, Word::PointsOnBoundary);
    return report.Take();
}

}  // namespace zirvo::solver
