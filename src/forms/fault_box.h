// The text of the box that ends the program. Caller: Application.
#pragma once
#include <optional>
#include <string>

#include "base/runtime_fault.h"
#include "forms/desktop.h"

namespace zirvo::forms {

/// An error that ends the program.
struct FaultBox {
    std::string Heading{};                 ///< "Run-time error '6':"
    std::string Description{};             ///< "Overflow"
    const RuntimeFault* Caught = nullptr;  ///< what is known of it; nullptr for a mistake of the program's own
    std::optional<Language> Words{};       ///< none: both languages, one below the other
    std::optional<bool> Kept{};            ///< whether what was typed is kept; none: there is no such line
};

/// Heading and description, an empty line between; behind a further one what the error was about, that the program
/// ends, whether what was typed is kept.
std::string FaultBoxText(const FaultBox& box);

}  // namespace zirvo::forms
