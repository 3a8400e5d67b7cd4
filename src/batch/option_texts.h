// Option texts as values. Callers: the command line, the options of the map command.
#pragma once
#include <string>
#include <string_view>

namespace zirvo::batch {

/// The whole text as a number from 1 to `highest`; 0 for anything else.
int CountOf(std::string_view text, int highest);

/// True if the name ends in the extension (in small letters), in capitals or not, and has something in front of it.
bool HasExtension(const std::string& name, std::string_view extension);

}  // namespace zirvo::batch
