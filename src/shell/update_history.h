// The program's history of changes, as the version screen tells it.
#pragma once
#include <string>

#include "forms/desktop.h"

namespace zirvo {

/// Newest version first, a blank line between versions, every line ended by CR LF.
std::string UpdateHistory(forms::Language language);

}  // namespace zirvo
