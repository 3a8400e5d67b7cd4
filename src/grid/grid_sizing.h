// Columns of the number grids sized to their headings, and a grid kept in step with the count beside it.
// Callers: the option handlers and the change handlers of the counts on the two data screens.
#pragma once
#include <cstdint>
#include <string_view>

#include "base/int16.h"
#include "forms/ms_flex_grid.h"

namespace zirvo {

/// Sizes the heading column to the widest of its texts in the rows firstRow to lastRow, plus the width of "J" [twips].
/// With no such row the column keeps its width. Both the text's width and the sum are rounded, halves to even.
/// @param grid         measured with the font of its form
/// @param firstRow     -1 stands for 1
/// @param lastRow      -1 stands for the last row. A row outside the grid is fault 9
/// @param useCellFont  each row's cell becomes the current one and gives its font to the grid before the text is
///                     measured; the current cell and the form's font are put back at the end
void RA_AutosizeRows(forms::MSFlexGrid& grid, std::int32_t firstRow = -1, std::int32_t lastRow = -1,
                     bool useCellFont = false);

/// Sizes each of the columns firstCol to lastCol to its heading in row 0, plus the width of "J" [twips]; what stands in
/// the data cells does not count. Rounded as above.
/// @param firstCol     -1 stands for 1
/// @param lastCol      -1 stands for the last column. A column outside the grid is fault 9
/// @param useCellFont  each heading is measured in the font of its cell, which becomes the current one; the current
///                     cell and the form's font are put back at the end
void CA_AutosizeCols(forms::MSFlexGrid& grid, std::int32_t firstCol = -1, std::int32_t lastCol = -1,
                     bool useCellFont = false);

/// What the change of a count does to its grid: enables it, gives it `count` data rows, heads row i with the heading, a
/// blank and i ("LAYER 1"), and sizes the heading column. Rows that stay keep their texts; what is cut off is lost.
/// A negative count is fault 5; 32767, whose grid would have a row more than 16 bits count, is fault 6.
void FollowCount(forms::MSFlexGrid& grid, Int16 count, std::string_view heading);

}  // namespace zirvo
