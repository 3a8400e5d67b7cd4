#include "grid/grid_sizing.h"

#include <cmath>
#include <string>

#include "base/runtime_fault.h"
#include "forms/form.h"

namespace zirvo {
namespace {

/// To the nearest whole number, halves to even (the rounding mode of the program is never changed).
double RoundToWhole(double x) {
    return std::nearbyint(x);
}

/// The current cell of a grid and the font of its form, put back at the end.
class PlaceAndFont {
public:
    explicit PlaceAndFont(forms::MSFlexGrid& grid)
        : grid_(grid), row_(grid.Row), col_(grid.Col), font_(grid.Parent().Font) {}

    void PutBack() {
        grid_.Row = row_;
        grid_.Col = col_;
        grid_.Parent().Font = font_;
    }

private:
    forms::MSFlexGrid& grid_;
    int row_;
    int col_;
    forms::FontSpec font_;
};

/// The font of the current cell: the cells of these grids have no fonts of their own.
forms::FontSpec CellFont(const forms::MSFlexGrid& grid) {
    return grid.Font;
}

double MeasuredWidth(const forms::MSFlexGrid& grid, int row, int col) {
    return RoundToWhole(grid.Parent().TextWidth(grid.TextMatrix(row, col)));
}

double WithMargin(const forms::MSFlexGrid& grid, double width) {
    return RoundToWhole(width + static_cast<double>(grid.Parent().TextWidth("J")));
}

}  // namespace

void RA_AutosizeRows(forms::MSFlexGrid& grid, std::int32_t firstRow, std::int32_t lastRow, bool useCellFont) {
    const int first = firstRow == -1 ? 1 : firstRow;
    const int last = lastRow == -1 ? grid.Rows - 1 : lastRow;
    PlaceAndFont saved(grid);
    double widest = 0;
    for (int row = first; row <= last; ++row) {
        if (useCellFont) {
            grid.Row = row;
            grid.Col = 0;
            grid.Font = CellFont(grid);
        }
        widest = std::fmax(widest, MeasuredWidth(grid, row, 0));
    }
    if (first <= last) {
        grid.SetColWidth(0, WithMargin(grid, widest));
    }
    if (useCellFont) {
        saved.PutBack();
    }
}

void CA_AutosizeCols(forms::MSFlexGrid& grid, std::int32_t firstCol, std::int32_t lastCol, bool useCellFont) {
    const int first = firstCol == -1 ? 1 : firstCol;
    const int last = lastCol == -1 ? grid.Cols - 1 : lastCol;
    PlaceAndFont saved(grid);
    for (int col = first; col <= last; ++col) {
        if (useCellFont) {
            grid.Row = 0;
            grid.Col = col;
            grid.Parent().Font = CellFont(grid);
        }
        const double width = std::fmax(0.0, MeasuredWidth(grid, 0, col));
        grid.SetColWidth(col, WithMargin(grid, width));
    }
    if (useCellFont) {
        saved.PutBack();
    }
}

void FollowCount(forms::MSFlexGrid& grid, Int16 count, std::string_view heading) {
    grid.Enabled = true;
    if (count < 0) {
        throw RuntimeFault(fault::InvalidCall);
    }
    grid.Rows = AddInt16(count, 1);
    std::string text(heading);
    text += ' ';
    const std::size_t stem = text.size();
    for (int row = 1; row <= count; ++row) {
        text.resize(stem);
        text += std::to_string(row);
        grid.SetTextMatrix(row, 0, text);
    }
    RA_AutosizeRows(grid);
}

}  // namespace zirvo
