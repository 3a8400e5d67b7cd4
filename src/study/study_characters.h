// Where a study file holds characters that its language knows in quotes and comments alone. Caller: the study file,
// before the library reads it: of some of these it takes for granted that they cannot come.
#pragma once
#include <optional>
#include <string_view>

namespace zirvo::study {

/// The first line (1-based) with a character beyond ASCII outside quotes and comments; none where there is no such
/// line. Blanks of full width and those that no line is broken at are let through, as the library takes them for
/// blanks, and so is a byte order mark in front.
std::optional<long long> LineOfStrangeCharacter(std::string_view bytes);

}  // namespace zirvo::study
