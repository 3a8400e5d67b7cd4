// What a stroke does to a text with a caret or selection. Shared by text boxes and the text of combo boxes.
#pragma once
#include <string>
#include <string_view>

#include "forms/key_stroke.h"

namespace zirvo::forms {

/// A text and what is selected of it, both counted in characters.
struct EditedText {
    EditedText(std::string_view text, int selStart, int selLength);

    std::u32string Characters;
    std::size_t Start;   ///< characters before the caret or the selection
    std::size_t Length;  ///< characters selected

    /// Puts the characters in the place of the selection, with the caret behind them.
    void Insert(std::u32string_view characters);
    /// Takes the selection away; where there is none, the character before or behind the caret.
    void Erase(bool backwards);
    /// Left, Right, Home and End move the caret, Backspace and Delete erase, printable characters are inserted. Any
    /// other stroke does nothing.
    void Apply(const KeyStroke& stroke);
    /// Only the strokes that move the caret.
    void Move(const KeyStroke& stroke);
};

/// A selection as a property may hold it: the start within the text, the length up to its end. Negative: fault 5.
int CheckedSelStart(std::string_view text, int selStart);
int CheckedSelLength(std::string_view text, int selStart, int selLength);

}  // namespace zirvo::forms
