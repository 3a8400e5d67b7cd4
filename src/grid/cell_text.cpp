// Texts of cells, see cell_text.h.
#include "grid/cell_text.h"

#include <algorithm>

#include "base/utf8.h"

namespace zirvo {

bool IsRefusedInCell(int code) {
    return (code >= 33 && code <= 42) || code == 44 || code == 47 || (code >= 58 && code <= 67) ||
           (code >= 70 && code <= 99) || (code >= 102 && code <= 126);
}

bool CanBeTypedInCell(char32_t character) {
    constexpr char32_t deleteCharacter = 127;
    return character > U' ' && character != deleteCharacter &&
           (character > deleteCharacter || !IsRefusedInCell(static_cast<int>(character)));
}

bool CanBeTypedInCell(std::string_view text) {
    const std::u32string characters = ToCharacters(text);
    return std::all_of(characters.begin(), characters.end(),
                       [](char32_t character) { return CanBeTypedInCell(character); });
}

}  // namespace zirvo
