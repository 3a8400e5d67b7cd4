// Shared parts of the reports, see report_parts.h.
#include "solver/io/report_parts.h"

#include <vector>

#include "base/decimal15.h"

namespace zirvo::solver {
namespace {

constexpr std::size_t EdgePointsToALine = 15;

std::string BoundText(Language words, double bound) {
    return std::isfinite(bound) ? ScientificText(bound, 1) : std::string(TextOf(words, Word::UnknownBound));
}

/// How values at the edges of loads are to be read stands in every report; the points, where there are any.
void EdgeNotes(ReportText& report, const Solution& results) {
    std::vector<std::string> numbers;
    for (std::size_t i = 0; i < results.Points.size(); ++i) {
        if (results.Points[i].OnLoadEdge) {
            numbers.push_back(std::to_string(i + 1));
        }
    }
    report.Line(Word::EdgeNote1, {std::to_string(numbers.size())});
    for (const Word note : {Word::EdgeNote2, Word::EdgeNote3, Word::EdgeNote4}) {
        report.Line(note);
    }
    if (!numbers.empty()) {
        report.Line(Word::EdgePoints);
    }
    std::string line;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        line += (line.empty() ? "" : " ") + numbers[i];
        if ((i + 1) % EdgePointsToALine == 0 || i + 1 == numbers.size()) {
            report.Line(line);
            line.clear();
        }
    }
}

void BoundNotes(ReportText& report, const Solution& results) {
    const Language words = report.Words();
    const std::string promised = ScientificText(PromisedError, 1);
    report.Line(Word::LargestBound, {BoundText(words, results.LargestEstimate), promised});
    for (std::size_t i = 0; i < results.Points.size(); ++i) {
        double worst = 0;
        for (const double bound : results.Points[i].Estimates) {
            worst = bound <= worst ? worst : bound;  // NaN stays
        }
        if (!(worst <= PromisedError)) {
            report.Line(Word::PointAbovePromise, {std::to_string(i + 1), BoundText(words, worst)});
        }
    }
}

}  // namespace

Cell HeadNumber(double x) {
    return {FittedNumberText(x, HeadNumberWidth), HeadColumnWidth};
}
Cell HeadText(std::string_view text) {
    return {std::string(text), HeadColumnWidth};
}
Cell RowNumber(std::size_t number) {
    return {std::to_string(number), RowNumberWidth};
}

std::array<Cell, 5> LayerHeadings(const ReportData& data) {
    const Language words = data.Words;
    return {Cell{"No.", RowNumberWidth}, HeadText("E(" + std::string(InputStressUnit(data.Units)) + ")"),
            HeadText(TextOf(words, Word::HeadPoisson)), HeadText(TextOf(words, Word::HeadThickness)),
            HeadText(TextOf(words, Word::HeadSlip))};
}

void LayerRows(ReportText& report, const ReportData& data) {
    const std::vector<Layer>& layers = data.Input.Typed.Layers;
    for (std::size_t i = 0; i < layers.size(); ++i) {
        const bool last = i + 1 == layers.size();
        const std::array cells{RowNumber(i + 1), HeadNumber(layers[i].Modulus), HeadNumber(layers[i].PoissonRatio),
                               last ? HeadText(NoValue) : HeadNumber(layers[i].Thickness),
                               last ? HeadText(NoValue) : HeadNumber(layers[i].SlipRate)};
        report.Cells(cells);
    }
}

void Tail(ReportText& report, const ReportData& data, Word movedNote) {
    EdgeNotes(report, data.Results);
    if (data.Input.MovedPoints > 0) {
        report.Line(movedNote, {std::to_string(data.Input.MovedPoints)});
    }
    BoundNotes(report, data.Results);
    report.Line(Word::EndOfReport);
}

}  // namespace zirvo::solver
