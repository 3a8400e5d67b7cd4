// What is told of a solver that runs, and how its reports tell of success. Callers: the commands that start it.
#pragma once
#include <string_view>

#include "base/int16.h"

namespace zirvo::batch {

/// The message "computing".
inline constexpr Int16 MessageComputing = 164;

/// In the table of a report, and nowhere else in it; a report of bad input has none.
inline constexpr std::string_view MarkerLine = "\n   ===";

}  // namespace zirvo::batch
