// What stands on a data screen, as a plain value: what the user typed, valid or not, and nothing made of it.
// Callers: whoever takes it from the controls of a screen, the text that it is kept as, the store of kept screens.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zirvo {

/// The data cells of a grid, without its headings.
struct KeptTable {
    int Columns = 0;
    std::vector<std::string> Cells;  ///< row by row

    int Rows() const { return Columns == 0 ? 0 : static_cast<int>(Cells.size()) / Columns; }
    /// @param row, column  from 0, within the table
    const std::string& At(int row, int column) const {
        return Cells[static_cast<std::size_t>(row) * static_cast<std::size_t>(Columns) +
                     static_cast<std::size_t>(column)];
    }
    bool operator==(const KeptTable&) const = default;
};

/// The text in the box over a cell, which the cell does not have yet.
struct KeptOpenCell {
    int Table = 0;  ///< from 0, as Row and Column within that table
    int Row = 0;
    int Column = 0;
    std::string Text;
    bool operator==(const KeptOpenCell&) const = default;
};

/// One screen. All texts as they are.
struct KeptScreen {
    std::string Screen;              ///< the name of its form
    int Units = 0;                   ///< number of the unit system, 0 for none
    bool Japanese = false;           ///< the language that it was typed in
    std::int64_t When = 0;           ///< milliseconds since 1970, universal time
    std::vector<int> Counts;         ///< in the order of the screen
    std::vector<std::string> Names;  ///< of its files
    std::vector<KeptTable> Tables;
    std::optional<KeptOpenCell> Open;
};

/// Whether both hold the same data: all but time and language.
bool HoldSameData(const KeptScreen& one, const KeptScreen& other);

}  // namespace zirvo
