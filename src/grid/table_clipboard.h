// A table's cells to the clipboard's text and back. Caller: the data screens, for Ctrl+C and Ctrl+V.
#pragma once
#include <string>
#include <string_view>

#include "forms/ms_flex_grid.h"
#include "forms/simple_controls.h"

namespace zirvo {

/// What came of a paste.
struct PasteResult {
    enum class Kind {
        Pasted,
        Nothing,         ///< the clipboard holds no text, or the table can take none now
        TextRefused,     ///< a text that no key could have typed
        TooManyColumns,  ///< more than there are from the cell on
        TooManyRows,     ///< more than the count can be
    };
    Kind What = Kind::Nothing;
    int Row = 0;  ///< TextRefused: the cell that would have got the text, which may lie below the last row
    int Col = 0;
    std::string Text;  ///< TextRefused: the text
    int Given = 0;     ///< TooManyColumns, TooManyRows: what the block needs
    int Room = 0;      ///< and what the table has from the cell on; of rows the highest count
};

/// The block that Ctrl+V puts into a table, beginning with its current cell (with the first one where the whole table
/// is selected, or where there are no data rows). Cells that a short row of the block lacks keep their texts. Rows that
/// are missing come by the table's bar, through its own event. All of the block goes in, or nothing.
/// A first line that holds the table's own headings is none of the rows. Where it has the corner above the row headings
/// too, as in what CopyOfTable gives, so has each row its heading: the cells go into the first column and those behind.
/// @param bar  sets the count of the grid's data rows
PasteResult PasteIntoTable(forms::MSFlexGrid& grid, forms::VScrollBar& bar, std::string_view text);

/// What Ctrl+C takes: the current cell's text, or, where the whole table is selected, all of it with its headings.
/// Nothing without data rows.
std::string CopyOfTable(const forms::MSFlexGrid& grid);

}  // namespace zirvo
