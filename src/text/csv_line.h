// Fixed-column report text as delimited text: the comma copies of the reports.
#pragma once
#include <string>
#include <string_view>

namespace zirvo {

/// Collapses runs of the delimiter into one, takes a very long gap as missing fields, and puts `replacement` in place
/// of the delimiter. The constants 11 and 7 inside are fitted to the columns of the reports, asymmetry included. `line`
/// is UTF-8 (or any text in which the delimiter's byte is no part of another character).
std::string ConvertToCsvLine(std::string_view line, char delimiter, char replacement);

}  // namespace zirvo
