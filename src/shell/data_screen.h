// What the two data screens share: a table as cell texts and from numbers, a count with its bar, the row of buttons.
// Callers: Form3 and Form5.
#pragma once
#include <array>
#include <cstddef>
#include <initializer_list>
#include <string>
#include <vector>

#include "forms/ms_flex_grid.h"
#include "forms/simple_controls.h"

namespace zirvo {

/// The data cells of a grid, by row; entry 0 stands for the headings and is empty. Fewer columns than asked for are
/// fault 9.
template <std::size_t Columns>
std::vector<std::array<std::string, Columns>> CellsOf(const forms::MSFlexGrid& grid) {
    std::vector<std::array<std::string, Columns>> rows(static_cast<std::size_t>(grid.Rows));
    for (int row = 1; row < grid.Rows; ++row) {
        for (std::size_t c = 0; c < Columns; ++c) {
            rows[static_cast<std::size_t>(row)][c] = grid.TextMatrix(row, static_cast<int>(c) + 1);
        }
    }
    return rows;
}

/// Writes the texts of the numbers into a row, from column 1 on. Outside the grid: fault 9.
void FillRow(forms::MSFlexGrid& grid, int row, std::initializer_list<double> values);

/// Width of the column in which PlaceCount puts a count [pixels of the design].
inline constexpr double CountColumnWidth = 74;

/// Puts a count into one column of its frame: the name, the value, and the bar under both, which works like a spinner
/// from 0 up to `highest` and is disabled.
/// @param left, top, barHeight  pixels of the design
void PlaceCount(double left, double top, double barHeight, int highest, forms::Label& name, forms::Label& value,
                forms::VScrollBar& bar);

/// Puts the seven buttons of a data screen into its last row, in the order in which they are pressed; the last two,
/// HELP and QUIT, stand apart from the work.
void PlaceButtonRow(const std::array<forms::CommandButton*, 7>& buttons);

}  // namespace zirvo
