// A block of cells as spreadsheets have it on the clipboard: a line for each row, a tab between two cells, quotes round
// a cell that holds a tab, a line end or a quote. Callers: copying and pasting of tables.
#pragma once
#include <string>
#include <string_view>
#include <vector>

namespace zirvo {

/// Row by row; rows may differ in length.
using CellBlock = std::vector<std::vector<std::string>>;

/// Reads a block. Lines end with CR LF, LF or CR, the last one may do without; an empty text is no row at all. A cell
/// that begins with a quote ends with the next single one, a doubled one inside stands for itself; without an end it is
/// taken as it stands, so that nothing is swallowed.
CellBlock ReadCellBlock(std::string_view text);

/// The text of a block, with LF behind each row but the last.
std::string WriteCellBlock(const CellBlock& block);

}  // namespace zirvo
