// Option texts as values. Callers: the command line, the options of the map command.
#pragma once
#include <string_view>
#include <utility>

namespace zirvo::batch {

/// The whole text as a number from 1 to `highest`; 0 for anything else.
int CountOf(std::string_view text, int highest);

inline constexpr int SmallestPicture = 100;  ///< pixels a side; margins take 80
inline constexpr int LargestPicture = 8000;

/// Width and height of a text like 529x540; 0 and 0 where it is no size, or one out of bounds.
std::pair<int, int> SizeOf(std::string_view text);

}  // namespace zirvo::batch
