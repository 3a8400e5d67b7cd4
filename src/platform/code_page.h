// Code page 932 (Windows-31J), in which every file of the program is written, and UTF-8, in which text is held.
#pragma once
#include <string>
#include <string_view>

namespace zirvo {

/// UTF-8 text as bytes of code page 932. A character that the code page lacks becomes "?". No best fit.
std::string EncodeText(std::string_view text);

/// Bytes of code page 932 as UTF-8. Bytes that the code page lacks become U+FFFD; never a failure.
std::string DecodeText(std::string_view bytes);

/// A file or folder name as it stands inside a file: code page 932, or UTF-8 where the code page cannot hold it.
std::string EncodeName(std::string_view name);

/// The name that bytes inside a file stand for: UTF-8 if they are valid UTF-8 and hold a character outside the code
/// page, else code page 932.
std::string DecodeName(std::string_view bytes);

}  // namespace zirvo
