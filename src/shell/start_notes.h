// The short note on the system that the first screen shows once a language is chosen.
#pragma once
#include <string>

#include "forms/desktop.h"

namespace zirvo {

/// Lines ended by line feeds; long ones are to be wrapped.
std::string StartNotes(forms::Language language);

/// The two lines on rights that end the notes and stand on the version screen.
inline constexpr const char* RightsLine = "Copyright (c) 2026 the ZIRVO developers";
inline constexpr const char* LicenseLine = "MIT License";

}  // namespace zirvo
