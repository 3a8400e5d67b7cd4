// The version texts of the program.
#pragma once
#include <string>

#include "base/int16.h"

namespace zirvo {

/// 0 the number "2.3", 1 the stamp of output files, 2 window titles, 3 titles of message boxes; any other kind "NA".
std::string MakeVersionStamp(Int16 kind);

}  // namespace zirvo
