// Copying and pasting, see table_clipboard.h.
#include "grid/table_clipboard.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "grid/cell_block.h"
#include "grid/cell_text.h"

namespace zirvo {
namespace {

using Kind = PasteResult::Kind;

/// The cell that gets the first text of a block.
forms::MSFlexGrid::Cell FirstTarget(const forms::MSFlexGrid& grid) {
    if (grid.AllSelected || !grid.HasDataRows()) {
        return {grid.FixedRows, grid.FixedCols};
    }
    return {std::max(grid.Row.Get(), grid.FixedRows.Get()), std::max(grid.Col.Get(), grid.FixedCols.Get())};
}

/// Whether a line holds the headings of the columns from `col` on, and at least one that is not empty.
bool HoldsHeadings(const std::vector<std::string>& line, const forms::MSFlexGrid& grid, int col) {
    if (static_cast<int>(line.size()) > grid.Cols - col) {
        return false;
    }
    bool any = false;
    for (const std::string& text : line) {
        if (text != grid.TextMatrix(0, col++)) {
            return false;
        }
        any = any || !text.empty();
    }
    return any;
}

/// Takes the headings out of a block that has them in front of its rows.
void DropHeadings(CellBlock& block, const forms::MSFlexGrid& grid, forms::MSFlexGrid::Cell& first) {
    if (block.size() < 2 || grid.FixedRows == 0) {
        return;
    }
    if (static_cast<int>(block.front().size()) == grid.Cols && HoldsHeadings(block.front(), grid, 0)) {
        for (auto& row : block) {
            row.erase(row.begin(), row.begin() + std::min<std::ptrdiff_t>(grid.FixedCols, std::ssize(row)));
        }
        first.Col = grid.FixedCols;
    } else if (!HoldsHeadings(block.front(), grid, first.Col)) {
        return;
    }
    block.erase(block.begin());
}

/// Why the block cannot go in; Pasted where it can.
PasteResult Judge(const CellBlock& block, const forms::MSFlexGrid& grid, int highest, forms::MSFlexGrid::Cell first) {
    const int columns = grid.Cols - first.Col;
    for (const auto& row : block) {
        const int given = static_cast<int>(row.size());
        if (given > columns) {
            return {.What = Kind::TooManyColumns, .Text = {}, .Given = given, .Room = columns};
        }
    }
    const std::size_t needed = static_cast<std::size_t>(first.Row - grid.FixedRows) + block.size();
    if (needed > static_cast<std::size_t>(highest)) {
        return {.What = Kind::TooManyRows, .Text = {}, .Given = static_cast<int>(needed), .Room = highest};
    }
    for (std::size_t r = 0; r < block.size(); ++r) {
        for (std::size_t c = 0; c < block[r].size(); ++c) {
            if (!CanBeTypedInCell(block[r][c])) {
                return {.What = Kind::TextRefused,
                        .Row = first.Row + static_cast<int>(r),
                        .Col = first.Col + static_cast<int>(c),
                        .Text = block[r][c]};
            }
        }
    }
    return {.What = Kind::Pasted, .Text = {}};
}

/// Gives the grid that count of data rows, as the user's bar does it.
void RaiseCount(const forms::MSFlexGrid& grid, forms::VScrollBar& bar, int count) {
    if (bar.Value != count) {
        bar.Value = count;
    } else if (grid.Rows - grid.FixedRows < count && bar.Change) {
        bar.Change();  // it stood there while the count had been set to 0 without it
    }
}

}  // namespace

PasteResult PasteIntoTable(forms::MSFlexGrid& grid, forms::VScrollBar& bar, std::string_view text) {
    CellBlock block = ReadCellBlock(text);
    if (block.empty() || !grid.IsUsable() || grid.Cols <= grid.FixedCols) {
        return {};
    }
    forms::MSFlexGrid::Cell first = FirstTarget(grid);
    DropHeadings(block, grid, first);
    const int present = grid.Rows - grid.FixedRows;
    const int highest = bar.IsUsable() ? std::max(bar.Min.Get(), bar.Max.Get()) : present;
    if (highest == 0) {
        return {};
    }
    PasteResult result = Judge(block, grid, highest, first);
    if (result.What != Kind::Pasted) {
        return result;
    }
    const int needed = first.Row - grid.FixedRows + static_cast<int>(block.size());
    if (needed > present) {
        RaiseCount(grid, bar, needed);
    }
    for (std::size_t r = 0; r < block.size(); ++r) {
        for (std::size_t c = 0; c < block[r].size(); ++c) {
            grid.SetTextMatrix(first.Row + static_cast<int>(r), first.Col + static_cast<int>(c), block[r][c]);
        }
    }
    return result;
}

std::string CopyOfTable(const forms::MSFlexGrid& grid) {
    if (!grid.HasDataRows()) {
        return {};
    }
    if (!grid.AllSelected) {
        return WriteCellBlock({{grid.Text()}});
    }
    CellBlock block(static_cast<std::size_t>(grid.Rows));
    for (int row = 0; row < grid.Rows; ++row) {
        for (int col = 0; col < grid.Cols; ++col) {
            block[static_cast<std::size_t>(row)].push_back(grid.TextMatrix(row, col));
        }
    }
    return WriteCellBlock(block);
}

}  // namespace zirvo
