// Which texts the keys can put into a cell. Callers: the editor's filter, and pasting, which must let in no more.
#pragma once
#include <string_view>

namespace zirvo {

/// Printable ASCII that no number holds: all but "+", "-", ".", the digits, "D", "E", "d", "e". The blank is not among
/// them, since it begins an edit.
bool IsRefusedInCell(int code);

/// Whether the box of a cell lets this character through: none that IsRefusedInCell, no blank, no control character.
/// Everything above ASCII passes, as it does from a keyboard.
bool CanBeTypedInCell(char32_t character);

/// Whether keys could have made this text, which may be empty.
/// @param text  UTF-8
bool CanBeTypedInCell(std::string_view text);

}  // namespace zirvo
