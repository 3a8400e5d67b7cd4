// The ".bre" report rebuilt as five narrow tables, for a window that the whole table is too wide for.
// Caller: the sub-divided view of the result viewer.
#pragma once
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/int16.h"

namespace zirvo {

/// The lines of a text without their ends (CR LF, LF or CR). A line end at the very end begins no further line. The
/// lines point into `text`.
std::vector<std::string_view> SplitLines(std::string_view text);

/// The report up to its second marker line ("   ===" in front) as it stands, then, for each of the five value columns
/// of the table behind it, a table of its own with the point's column repeated in front. Columns are cut by characters;
/// with Japanese the first line of the table is narrower, as its headings have double-width characters. What follows
/// the third marker line is dropped. Each table has pointCount + 2 lines, whatever the report holds.
///
/// Fault 9 if the table has more than pointCount + 2 lines, 6 if that number leaves 16 bits.
/// @param lines  UTF-8, without line ends
/// @return       UTF-8 with CR LF line ends
std::string SplitResultView(std::span<const std::string_view> lines, Int16 pointCount, bool japanese);

}  // namespace zirvo
