// Where the cells of the grid lie, what of it is in sight, and how it scrolls. All lengths in twips.
//
// Notation
//   area      what the border and the bars leave: headings and data
//   TopRow    the first data row below the heading rows; LeftCol likewise
// Special cases
//   A bar takes room, which may call for the other one. A cell larger than the area is in sight with its top left
//   corner. Headings never scroll.
#include <algorithm>
#include <cmath>

#include "base/runtime_fault.h"
#include "forms/ms_flex_grid.h"

namespace zirvo::forms {
namespace {

/// Sizes come from products with the factors of the screen: a cell that ends on the edge of the area is within it.
constexpr double Tolerance = 1e-6;

/// Whether a span lies within an area that begins at `from` and ends at `to`; of a longer one its start.
bool InSight(double start, double length, double from, double to) {
    if (length > to - from + Tolerance) {
        return start > from - Tolerance && start < to;
    }
    return start > from - Tolerance && start + length < to + Tolerance;
}

}  // namespace

double MSFlexGrid::ColWidth(int col) const {
    CheckCol(col);
    const double width = colWidths_[static_cast<std::size_t>(col)];
    return width < 0 ? DefaultColWidth : width;
}

void MSFlexGrid::SetColWidth(int col, double width) {
    CheckCol(col);
    if (!(width >= 0)) {
        throw RuntimeFault(fault::InvalidCall);
    }
    double& stored = colWidths_[static_cast<std::size_t>(col)];
    if (stored != width) {
        stored = width;
        TellView();
        Resized();
    }
}

/// Width of the columns from the first up to, without, the end.
double MSFlexGrid::WidthOf(int firstCol, int endCol) const {
    double width = 0;
    for (int col = firstCol; col < endCol; ++col) {
        width += ColWidth(col);
    }
    return width;
}

MSFlexGrid::Bars MSFlexGrid::NeededBars() const {
    const double width = Width - 2 * Border + Tolerance;
    const double height = Height - 2 * Border + Tolerance;
    const double allCols = WidthOf(0, Cols);
    const double allRows = Rows * RowHeight;
    Bars bars;
    bars.Vertical = allRows > height;
    bars.Horizontal = allCols > width - (bars.Vertical ? BarThickness : 0);
    bars.Vertical = allRows > height - (bars.Horizontal ? BarThickness : 0);  // which takes no bar away again
    return bars;
}

bool MSFlexGrid::HasVerticalBar() const {
    return NeededBars().Vertical;
}

bool MSFlexGrid::HasHorizontalBar() const {
    return NeededBars().Horizontal;
}

double MSFlexGrid::AreaWidth() const {
    return std::max(0.0, Width - 2 * Border - (HasVerticalBar() ? BarThickness : 0));
}

double MSFlexGrid::AreaHeight() const {
    return std::max(0.0, Height - 2 * Border - (HasHorizontalBar() ? BarThickness : 0));
}

double MSFlexGrid::ColLeft(int col) const {
    CheckCol(col);
    if (col < FixedCols) {
        return Border + WidthOf(0, col);
    }
    const double headings = Border + WidthOf(0, FixedCols);
    return col < LeftCol ? headings - WidthOf(col, LeftCol) : headings + WidthOf(LeftCol, col);
}

double MSFlexGrid::RowTop(int row) const {
    CheckRow(row);
    return Border + (row < FixedRows ? row : FixedRows + row - TopRow) * RowHeight;
}

double MSFlexGrid::CellWidth() const {
    return ColWidth(Col);
}

double MSFlexGrid::CellHeight() const {
    return RowHeight;
}

double MSFlexGrid::CellLeft() {
    BringIntoSight();
    return ColLeft(Col);
}

double MSFlexGrid::CellTop() {
    BringIntoSight();
    return RowTop(Row);
}

bool MSFlexGrid::RowIsVisible(int row) const {
    const double from = row < FixedRows ? Border : Border + FixedRows * RowHeight;
    return InSight(RowTop(row), RowHeight, from, Border + AreaHeight());
}

bool MSFlexGrid::ColIsVisible(int col) const {
    const double from = col < FixedCols ? Border : Border + WidthOf(0, FixedCols);
    return InSight(ColLeft(col), ColWidth(col), from, Border + AreaWidth());
}

int MSFlexGrid::PageRows() const {
    const double rows = (AreaHeight() - FixedRows * RowHeight + Tolerance) / RowHeight;
    return std::isfinite(rows) ? std::clamp(static_cast<int>(rows), 1, std::max(1, Rows.Get())) : 1;
}

int MSFlexGrid::LastTopRow() const {
    return std::max(FixedRows.Get(), Rows - PageRows());
}

int MSFlexGrid::LastLeftCol() const {
    const double room = AreaWidth() - WidthOf(0, FixedCols) + Tolerance;
    int col = std::max(FixedCols.Get(), Cols - 1);
    while (col > FixedCols && WidthOf(col - 1, Cols) <= room) {
        --col;
    }
    return col;
}

MSFlexGrid::Cell MSFlexGrid::CellAt(double x, double y) const {
    Cell cell;
    if (x >= Border && x < Border + AreaWidth()) {
        for (int col = FixedCols > 0 ? 0 : LeftCol.Get(); col < Cols && cell.Col < 0;
             col = col + 1 == FixedCols ? LeftCol.Get() : col + 1) {
            if (x >= ColLeft(col) && x < ColLeft(col) + ColWidth(col)) {
                cell.Col = col;
            }
        }
    }
    if (y >= Border && y < Border + AreaHeight()) {
        const int line = static_cast<int>((y - Border) / RowHeight);
        const int row = line < FixedRows ? line : line - FixedRows + TopRow;
        cell.Row = row < Rows ? row : -1;
    }
    return cell;
}

/// Scrolls as far as it takes to have the cell wholly in sight.
void MSFlexGrid::BringIntoSight(int row, int col) {
    int top = TopRow;
    int left = LeftCol;
    if (row >= FixedRows && !RowIsVisible(row)) {
        top = row < TopRow ? row : std::max(FixedRows.Get(), row - PageRows() + 1);
    }
    if (col >= FixedCols && !ColIsVisible(col)) {
        const double room = AreaWidth() - WidthOf(0, FixedCols) + Tolerance;
        left = std::min(left, col);
        while (left < col && WidthOf(left, col + 1) > room) {
            ++left;
        }
    }
    ScrollTo(top, left);
}

void MSFlexGrid::ScrollTo(int topRow, int leftCol) {
    if (StoreScroll(topRow, leftCol)) {
        TellScroll();
    }
}

/// Stores the scroll position as far as the grid allows it. True if it changed.
bool MSFlexGrid::StoreScroll(int topRow, int leftCol) {
    const bool moved = TopRow.Store(std::clamp(topRow, FixedRows.Get(), LastTopRow()));
    return LeftCol.Store(std::clamp(leftCol, FixedCols.Get(), LastLeftCol())) || moved;
}

void MSFlexGrid::TellScroll() {
    if (gridView_ != nullptr) {
        gridView_->Scrolled();
    }
    Raise(Scroll);
}

}  // namespace zirvo::forms
