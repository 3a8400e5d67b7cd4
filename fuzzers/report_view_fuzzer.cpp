// The report viewer: the lines of a report and its five narrow tables, against a slow second reading that works on
// whole characters.
#include <optional>
#include <string>
#include <vector>

#include "analysis/report_view.h"
#include "base/utf8.h"
#include "platform/code_page.h"
#include "support/byte_source.h"
#include "support/fuzzing.h"

namespace zirvo::fuzz {
namespace {

using Line = std::u32string;

/// The lines of a text: at CR LF, LF or CR; an end at the very end begins no further line.
std::vector<Line> LinesOf(const std::string& text) {
    std::vector<Line> lines;
    Line line;
    bool open = false;
    const std::u32string characters = ToCharacters(text);
    for (std::size_t i = 0; i < characters.size(); ++i) {
        const char32_t c = characters[i];
        if (c != U'\r' && c != U'\n') {
            line += c;
            open = true;
            continue;
        }
        if (c == U'\r' && i + 1 < characters.size() && characters[i + 1] == U'\n') {
            ++i;
        }
        lines.push_back(line);
        line.clear();
        open = false;
    }
    if (open) {
        lines.push_back(line);
    }
    return lines;
}

Line Columns(const Line& line, std::size_t first, std::size_t count) {
    return first >= line.size() ? Line() : line.substr(first, count);
}

/// The view of those lines; nothing where the table has more rows than it may.
std::optional<std::string> ViewOf(const std::vector<Line>& lines, int pointCount, bool japanese) {
    const std::size_t rows = static_cast<std::size_t>(pointCount) + 2;
    std::vector<Line> before;
    std::vector<Line> table;
    int markers = 0;
    for (const Line& line : lines) {
        const bool marker = line.substr(0, 6) == U"   ===";
        if (marker && ++markers == 2) {
            before.insert(before.end(), {Line(), line, Line()});
        } else if (markers < 2) {
            before.push_back(line);
        } else if (markers == 2) {
            table.push_back(line);
        }
    }
    if (table.size() > rows) {
        return std::nullopt;
    }
    Line all;
    for (const Line& line : before) {
        all += line + U"\r\n";
    }
    for (std::size_t group = 0; group < 5; ++group) {
        for (std::size_t row = 0; row < rows; ++row) {
            if (row < table.size()) {
                const bool narrow = japanese && row == 0;
                const std::size_t width = narrow && group > 0 ? 33 : 36;
                const std::size_t first = group == 0 ? 30 : 66 + (group - 1) * (narrow ? 33 : 36);
                all += Columns(table[row], 0, 30) + Columns(table[row], first, width);
            }
            all += U"\r\n";
        }
        all += U"\r\n";
    }
    return FromCharacters(all);
}

}  // namespace

const int LongestRun = 1;

void RunInput(std::string_view bytes) {
    ByteSource source(bytes);
    const bool japanese = source.Flag();
    const int pointCount = source.Flag() ? source.Between(0, 40) : source.Between(-32768, 32767);
    const std::string text = DecodeText(source.Rest());
    const std::vector<std::string_view> lines = SplitLines(text);
    const std::vector<Line> slowly = LinesOf(text);
    Require(lines.size() == slowly.size(), "both readings find as many lines");
    for (std::size_t i = 0; i < lines.size(); ++i) {
        RequireEqual(lines[i], FromCharacters(slowly[i]), "both readings find the same lines");
    }

    std::string view;
    const std::optional<int> fault =
        FaultOf([&] { view = SplitResultView(lines, static_cast<Int16>(pointCount), japanese); });
    if (pointCount > 32767 - 2) {
        Require(fault == fault::Overflow, "a number of rows beyond 16 bits is fault 6");
    } else if (pointCount < -2) {
        Require(fault == fault::SubscriptOutOfRange, "a number of rows below 0 is fault 9");
    } else if (const auto expected = ViewOf(slowly, pointCount, japanese)) {
        Require(!fault, "a report whose table has no more rows than it may is shown");
        RequireEqual(view, *expected, "both readings show the same tables");
    } else {
        Require(fault == fault::SubscriptOutOfRange, "more rows than points are fault 9");
    }
}

}  // namespace zirvo::fuzz
