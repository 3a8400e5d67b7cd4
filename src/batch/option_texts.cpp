// Option texts as values, see option_texts.h.
#include "batch/option_texts.h"

#include <charconv>

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

}  // namespace zirvo::batch
