// Where a study file holds characters that its language knows in quotes and comments alone. Caller: the study file,
// before the library reads it: of some of these it takes for granted that they cannot come.
#pragma once
#include <optional>
#include <string_view>

namespace zirvo::study {

/// The first line (1-based) with a character beyond ASCII outside quotes and comments; none where there is no such
/// line; a text whose line a backslash carries on must go on with another. A byte order mark in front is none.
std::optional<long long> LineOfStrangeCharacter(std::string_view bytes);

}  // namespace zirvo::study
