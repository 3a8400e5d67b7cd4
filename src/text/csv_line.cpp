// Columns of a report as delimited text. Called for each line of a comma copy and of a section's report.
#include "text/csv_line.h"

namespace zirvo {

std::string ConvertToCsvLine(std::string_view line, char delimiter, char replacement) {
    constexpr int LongestGap = 11;  // pairs of delimiters in a gap of twelve, which is still one gap
    constexpr int EmptyFirst = 7;   // pairs in a leading gap of eight, which stands for an empty first field
    if (line.empty()) {
        return {};
    }
    int run = 0;
    int lead = 0;
    bool seenText = false;
    std::string text(1, line[0]);
    text.reserve(line.size());
    for (std::size_t p = 1; p < line.size(); ++p) {
        if (line[p - 1] == delimiter && line[p] == delimiter) {
            ++run;
            if (!seenText) {
                ++lead;
            }
            text.pop_back();
        } else {
            run = 0;
            seenText = true;
        }
        if (run > LongestGap || (seenText && lead == EmptyFirst)) {
            text += delimiter;
            run = 0;
            lead = 0;
        }
        text += line[p];
    }
    for (char& c : text) {
        if (c == delimiter) {
            c = replacement;
        }
    }
    if (text.front() == replacement) {
        text.erase(0, 1);
    }
    if (!text.empty() && text.back() == replacement) {
        text.pop_back();
    }
    return text;
}

}  // namespace zirvo
