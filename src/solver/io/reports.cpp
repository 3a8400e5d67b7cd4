// Heads, tables and tails of the two reports. Called by the solver run.
#include "solver/io/reports.h"

#include <array>
#include <cmath>
#include <string_view>

#include "solver/io/report_parts.h"
#include "solver/io/report_text.h"

namespace zirvo::solver {
namespace {

void HeadTable(ReportText& report, Word title, std::span<const Cell> headings) {
    report.EmptyLine();
    report.Line(title);
    report.Cells(headings);
    report.Rule('-', RowNumberWidth + (headings.size() - 1) * HeadColumnWidth);
}

void LayerTable(ReportText& report, const ReportData& data) {
    HeadTable(report, Word::LayersTitle, LayerHeadings(data));
    LayerRows(report, data);
}

void LoadTable(ReportText& report, const ReportData& data) {
    const Language words = data.Words;
    const std::string_view force = ForceUnit(data.Units);
    const std::array headings{Cell{"No.", RowNumberWidth},
                              HeadText(FillIn(TextOf(words, Word::HeadVertical), {force})),
                              HeadText(TextOf(words, Word::HeadRadius)),
                              HeadText("X(cm)"),
                              HeadText("Y(cm)"),
                              HeadText(FillIn(TextOf(words, Word::HeadHorizontal), {force})),
                              HeadText(TextOf(words, Word::HeadAngle))};
    HeadTable(report, Word::LoadsTitle, headings);
    std::size_t number = 0;
    for (const Load& load : data.Input.Typed.Loads) {
        const std::array cells{RowNumber(++number),   HeadNumber(load.Vertical), HeadNumber(load.Radius),
                               HeadNumber(load.X),    HeadNumber(load.Y),        HeadNumber(load.Horizontal),
                               HeadNumber(load.Angle)};
        report.Cells(cells);
    }
}

void Head(ReportText& report, const ReportData& data, Word title, std::span<const Word> signs) {
    report.Line(title);
    report.EmptyLine();
    report.Line(Word::InputFile, {PrintableText(data.InputName)});
    const std::string in = std::string(ForceUnit(data.Units)) + "; " + std::string(InputStressUnit(data.Units));
    report.Line(Word::InputUnits, {in + "; cm"});
    report.Line(Word::OutputUnits, {std::string(OutputStressUnit(data.Units)) + "; cm"});
    for (const Word sign : signs) {
        report.Line(sign);
    }
    LayerTable(report, data);
    LoadTable(report, data);
    report.EmptyLine();
}

void AddComponents(std::vector<Cell>& cells, std::initializer_list<std::string_view> names) {
    for (const std::string_view name : names) {
        cells.push_back({std::string(name), ValueWidth});
    }
}

/// "LAYER" ends before the column of X does, so that the line can begin with three blanks as all others do.
std::vector<Cell> PointHeadings(Language words) {
    constexpr std::size_t LayerHeadingWidth = 8;
    return {{std::string(TextOf(words, Word::HeadLayer)), LayerHeadingWidth},
            {"X", LayerWidth + CoordinateWidth - LayerHeadingWidth},
            {"Y", CoordinateWidth},
            {"Z", CoordinateWidth}};
}

Cell Group(Language words, Word word, std::size_t columns, std::string_view unit = {}) {
    return {FillIn(TextOf(words, word), {unit}), columns * ValueWidth};
}

/// From the second marker line to the third, the rows by `writeRow(point index, first value's place)`.
template <class WriteRow>
void Table(ReportText& report, const ReportData& data, std::span<const Cell> groups, std::span<const Cell> names,
           std::size_t width, WriteRow writeRow) {
    const std::vector<Point>& points = data.Input.Typed.Points;
    report.Rule('=', width);
    report.Line(Word::NumberOfPoints, {std::to_string(points.size())});
    report.Rule('=', width);
    report.GroupHeading(groups);
    report.Cells(names);
    constexpr std::size_t LineEndLength = 2;
    char* row = report.Rows(points.size(), width);
    for (std::size_t i = 0; i < points.size(); ++i) {
        WritePointColumns(points[i], row);
        writeRow(i, row + PointWidth);
        row += width + LineEndLength;
    }
    report.Rule('=', width);
}

/// The 14 values of a row of the principal values.
std::array<double, PrincipalColumns> PrincipalRow(const PrincipalValues& p) {
    return {p.Stresses[0], p.Stresses[1], p.Stresses[2], p.Strains[0], p.Strains[1], p.Strains[2], p.ShearStress,
            p.ShearStrain, p.First[0],    p.First[1],    p.First[2],   p.Third[0],   p.Third[1],   p.Third[2]};
}

constexpr std::array<std::string_view, PrincipalColumns> PrincipalNames{
    "SIG1", "SIG2", "SIG3", "EPS1", "EPS2", "EPS3", "TAUmax", "GAMmax", "L1", "M1", "N1", "L3", "M3", "N3"};

template <std::size_t Count>
void WriteValues(const std::array<double, Count>& values, char* place) {
    for (const double value : values) {
        place += ValueWidth;
        WriteValueColumn(value, place);
    }
}

}  // namespace

InputError FinishResults(ReportData& data) {
    InputError error;
    data.Principal.clear();
    data.Principal.reserve(data.Results.Points.size());
    for (std::size_t i = 0; i < data.Results.Points.size(); ++i) {
        std::array<double, ComponentCount>& values = data.Results.Points[i].Values;
        values = ToOutputUnits(values, data.Units);
        error = JudgeValues(values, ComponentNames, i);
        if (error.Reason != Word::None) {
            return error;
        }
        data.Principal.push_back(ComputePrincipalValues(values));
        error = JudgeValues(PrincipalRow(data.Principal.back()), PrincipalNames, i);
        if (error.Reason != Word::None) {
            return error;
        }
    }
    return error;
}

std::string ResultReport(const ReportData& data) {
    const Language words = data.Words;
    const std::string_view stress = OutputStressUnit(data.Units);
    ReportText report(words);
    constexpr std::array Signs{Word::Signs, Word::SignsOfStrains};
    Head(report, data, Word::TitleResults, Signs);
    const std::array groups{Cell{std::string(TextOf(words, Word::GroupPoint)), PointWidth},
                            Group(words, Word::GroupDisplacement, 3),
                            Group(words, Word::GroupStress, 3, stress),
                            Group(words, Word::GroupShearStress, 3, stress),
                            Group(words, Word::GroupStrain, 3),
                            Group(words, Word::GroupShearStrain, 3)};
    std::vector<Cell> names = PointHeadings(words);
    for (const std::string_view name : ComponentNames) {
        AddComponents(names, {name});
    }
    Table(report, data, groups, names, ResultTableWidth,
          [&](std::size_t i, char* place) { WriteValues(data.Results.Points[i].Values, place); });
    Tail(report, data, Word::MovedPoints);
    return report.Take();
}

std::string PrincipalReport(const ReportData& data) {
    const Language words = data.Words;
    const std::string_view stress = OutputStressUnit(data.Units);
    ReportText report(words);
    constexpr std::array Signs{Word::Signs, Word::SignsOfStrains, Word::SignsOfPrincipal};
    Head(report, data, Word::TitlePrincipal, Signs);
    const std::array groups{Cell{std::string(TextOf(words, Word::GroupPoint)), PointWidth},
                            Group(words, Word::GroupPrincipalStress, 3, stress),
                            Group(words, Word::GroupPrincipalStrain, 3),
                            Group(words, Word::GroupLargestShear, 2, stress),
                            Group(words, Word::GroupFirstDirection, 3),
                            Group(words, Word::GroupThirdDirection, 3)};
    std::vector<Cell> names = PointHeadings(words);
    for (const std::string_view name : PrincipalNames) {
        AddComponents(names, {name});
    }
    Table(report, data, groups, names, PrincipalTableWidth,
          [&](std::size_t i, char* place) { WriteValues(PrincipalRow(data.Principal[i]), place); });
    Tail(report, data, Word::MovedPoints);
    return report.Take();
}

std::string ErrorReport(Language language, Word title, const std::string& file, const InputError& error) {
    ReportText report(language);
    report.Line(title);
    report.EmptyLine();
    report.Line(Word::BadInput);
    report.Line(Word::ErrorFile, {PrintableText(file)});
    if (const std::string row = RowText(language, error); !row.empty()) {
        report.Line(Word::ErrorRow, {PrintableText(row)});
    }
    if (const std::string value = ValueText(language, error); !value.empty()) {
        report.Line(Word::ErrorValue, {PrintableText(value)});
    }
    report.Line(Word::ErrorReason, {PrintableText(ReasonText(language, error))});
    return report.Take();
}

}  // namespace zirvo::solver
