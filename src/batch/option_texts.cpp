// Option texts as values, see option_texts.h.
#include "batch/option_texts.h"

#include <charconv>

#include "design/number_table.h"

namespace zirvo::batch {

int CountOf(std::string_view text, int highest) {
    int value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && stop == end && value >= 1 && value <= highest ? value : 0;
}

std::pair<int, int> SizeOf(std::string_view text) {
    const std::size_t cross = text.find('x');
    if (cross == std::string_view::npos) {
        return {};
    }
    const int wide = CountOf(text.substr(0, cross), LargestPicture);
    const int high = CountOf(text.substr(cross + 1), LargestPicture);
    return wide >= SmallestPicture && high >= SmallestPicture ? std::pair(wide, high) : std::pair(0, 0);
}

std::string JudgeNumber(const std::string& text) {
    return design::NumberOfText(text) ? "" : text + " is no number";
}

std::string JudgeThreads(const std::string& text) {
    return CountOf(text, HighestThreadCount) > 0
               ? ""
               : text + " is no number from 1 to " + std::to_string(HighestThreadCount);
}

}  // namespace zirvo::batch
