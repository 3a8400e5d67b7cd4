// Characters of code page 932 as bytes.
#pragma once
#include <string>

namespace zirvo {

/// What bytes that are no character are read as.
inline const std::string Bad = "\uFFFD";

/// A character of two bytes.
inline std::string Pair(unsigned lead, unsigned trail) {
    return {static_cast<char>(lead), static_cast<char>(trail)};
}

}  // namespace zirvo
