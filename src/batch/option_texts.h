// Option texts as values. Callers: the command line, the options of the commands.
#pragma once
#include <string>
#include <string_view>
#include <utility>

namespace zirvo::batch {

inline constexpr int HighestThreadCount = 256;

/// The whole text as a number from 1 to `highest`; 0 for anything else.
int CountOf(std::string_view text, int highest);

inline constexpr int SmallestPicture = 100;  ///< pixels a side; margins take 80
inline constexpr int LargestPicture = 8000;

/// Width and height of a text like 529x540; 0 and 0 where it is no size, or one out of bounds.
std::pair<int, int> SizeOf(std::string_view text);

/// What is wrong with a text that should be a number, or a number of threads; "" where nothing is.
std::string JudgeNumber(const std::string& text);
std::string JudgeThreads(const std::string& text);

}  // namespace zirvo::batch
