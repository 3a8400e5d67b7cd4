// Characters of UTF-8 text. Wherever a rule counts columns or characters, it counts with these, never bytes.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

namespace zirvo {

/// True if the bytes are well-formed UTF-8 (no overlong forms, no surrogates, nothing above U+10FFFF).
bool IsValidUtf8(std::string_view bytes);

/// Number of characters (code points). A byte that is no part of a well-formed character counts as one.
std::size_t CharacterCount(std::string_view text);

/// `count` characters from the 0-based character `first` on; short or empty where the text ends earlier.
std::string_view CharacterSlice(std::string_view text, std::size_t first, std::size_t count);

/// The characters of the text; a byte that is no part of a well-formed character becomes U+FFFD.
std::u32string ToCharacters(std::string_view text);

/// The UTF-8 text of the characters; what is no code point becomes U+FFFD.
std::string FromCharacters(std::u32string_view characters);

}  // namespace zirvo
