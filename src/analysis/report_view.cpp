// The rebuilt view of a report, see report_view.h.
#include "analysis/report_view.h"

#include <array>
#include <cstddef>

#include "base/runtime_fault.h"
#include "base/utf8.h"

namespace zirvo {

namespace {

constexpr std::string_view Marker = "   ===";
constexpr std::string_view LineEnd = "\r\n";
constexpr std::size_t Columns = 6;
constexpr Int16 HeadingLines = 2;

/// One line of the table; the columns point into the report's lines.
using TableLine = std::array<std::string_view, Columns>;
using ColumnWidths = std::array<std::size_t, Columns>;

// Characters, not bytes. Each group of the Japanese heading has three characters of double width, so that 33 of them
// print as wide as 36.
constexpr ColumnWidths Widths{30, 36, 36, 36, 36, 36};
constexpr ColumnWidths JapaneseHeadingWidths{30, 36, 33, 33, 33, 33};

/// Cuts a line in one pass; columns beyond its end are short or empty.
TableLine CutLine(std::string_view line, const ColumnWidths& widths) {
    TableLine cut;
    for (std::size_t c = 0; c < Columns; ++c) {
        cut[c] = CharacterSlice(line, 0, widths[c]);
        line.remove_prefix(cut[c].size());
    }
    return cut;
}

/// The number of rows of the table; more rows, or a number of rows below 0, pass the bounds of an array of fixed size.
std::size_t TableRows(Int16 pointCount) {
    const Int16 rows = AddInt16(pointCount, HeadingLines);
    if (rows < 0) {
        throw RuntimeFault(fault::SubscriptOutOfRange);
    }
    return static_cast<std::size_t>(rows);
}

void AppendTables(std::string& out, const std::vector<TableLine>& table, std::size_t rows) {
    for (std::size_t c = 1; c < Columns; ++c) {
        for (const TableLine& line : table) {
            out.append(line[0]).append(line[c]).append(LineEnd);
        }
        for (std::size_t r = table.size(); r < rows; ++r) {
            out.append(LineEnd);
        }
        out.append(LineEnd);
    }
}

}  // namespace

std::vector<std::string_view> SplitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = text.find_first_of("\r\n");
        lines.push_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            break;
        }
        const bool two = text.substr(end, LineEnd.size()) == LineEnd;
        text.remove_prefix(end + (two ? 2 : 1));
    }
    return lines;
}

std::string SplitResultView(std::span<const std::string_view> lines, Int16 pointCount, bool japanese) {
    const std::size_t rows = TableRows(pointCount);
    std::vector<TableLine> table;
    std::string out;
    int markers = 0;
    for (const std::string_view line : lines) {
        const bool marker = line.starts_with(Marker);
        markers += marker ? 1 : 0;
        if (markers > 2) {
            continue;
        }
        if (markers < 2) {
            out.append(line).append(LineEnd);
        } else if (marker) {
            out.append(LineEnd).append(line).append(LineEnd).append(LineEnd);
        } else {
            if (table.size() == rows) {
                throw RuntimeFault(fault::SubscriptOutOfRange);
            }
            table.push_back(CutLine(line, japanese && table.empty() ? JapaneseHeadingWidths : Widths));
        }
    }
    AppendTables(out, table, rows);
    return out;
}

}  // namespace zirvo
