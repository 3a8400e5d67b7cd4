// What the reports of both programs share: numbers and layers of the head, the tail, the judgement of the values.
// Callers: reports.cpp and section_report.cpp.
#pragma once
#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>

#include "solver/io/report_text.h"
#include "solver/io/reports.h"

namespace zirvo::solver {

/// Columns of the tables of the head: a row number in columns 4 to 6, then numbers of 12 columns and a blank.
inline constexpr std::size_t RowNumberWidth = 6;
inline constexpr std::size_t HeadNumberWidth = 12;
inline constexpr std::size_t HeadColumnWidth = HeadNumberWidth + 1;

/// What the last layer has in place of a thickness and a slip rate.
inline constexpr std::string_view NoValue = "-";

Cell HeadNumber(double x);
Cell HeadText(std::string_view text);
Cell RowNumber(std::size_t number);

/// Number, modulus, Poisson ratio, thickness, slip rate.
std::array<Cell, 5> LayerHeadings(const ReportData& data);

/// One line for each layer, without a comma.
void LayerRows(ReportText& report, const ReportData& data);

/// Notes on points at load edges and on moved points, the bounds, the end line.
/// @param movedNote  the words for points that were taken on the boundary of their layer
void Tail(ReportText& report, const ReportData& data, Word movedNote);

/// Whether all values can be printed; the first that cannot is the error.
/// @param point  0-based
template <std::size_t Count>
InputError JudgeValues(const std::array<double, Count>& values, const std::array<std::string_view, Count>& names,
                       std::size_t point) {
    InputError error;
    for (std::size_t i = 0; i < Count; ++i) {
        if (!(std::fabs(values[i]) <= LargestPrinted)) {
            error.Reason = std::isfinite(values[i]) ? Word::TooLarge : Word::NotFinite;
            error.Row = Word::RowPoint;
            error.RowNumber = static_cast<int>(point) + 1;
            error.Component = names[i];
            break;
        }
    }
    return error;
}

}  // namespace zirvo::solver
