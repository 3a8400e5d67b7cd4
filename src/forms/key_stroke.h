// One stroke of a key, as the controls see it. Made by the view from the toolkit's key event, or by a test.
#pragma once
#include <string>

namespace zirvo::forms {

/// Codes of the keys that the rules name; letters and digits have the code of their upper case character.
namespace key {
inline constexpr int Backspace = 8;
inline constexpr int Tab = 9;
inline constexpr int Enter = 13;
inline constexpr int Shift = 16;
inline constexpr int Control = 17;
inline constexpr int Alt = 18;
inline constexpr int Escape = 27;
inline constexpr int Space = 32;
inline constexpr int PageUp = 33;
inline constexpr int PageDown = 34;
inline constexpr int End = 35;
inline constexpr int Home = 36;
inline constexpr int Left = 37;
inline constexpr int Up = 38;
inline constexpr int Right = 39;
inline constexpr int Down = 40;
inline constexpr int Delete = 46;
inline constexpr int F1 = 112;
inline constexpr int F4 = 115;
}  // namespace key

struct KeyStroke {
    int Code = 0;  ///< see key
    char32_t Character =
        0;  ///< what the stroke types: printable characters, 8, 13, 27, 32, 1 to 26 with Ctrl; 0 for none
    bool Shift = false;
    bool Control = false;
    bool Alt = false;
    int HeldFor = 0;  ///< milliseconds since the key went down; 0 for a stroke that is no repetition

    /// Shift, Ctrl or Alt alone.
    bool IsModifier() const { return Code >= key::Shift && Code <= key::Alt; }
    /// Ctrl, without Alt, and the letter, which is upper case here.
    bool IsControl(char letter) const { return Control && !Alt && Code == letter; }
};

/// The stroke of a printable character ("5", "x", "あ") as a keyboard makes it.
KeyStroke StrokeOf(char32_t character);
/// The stroke of Ctrl and a letter, which is upper case here.
KeyStroke StrokeOfControl(char letter);
/// The stroke of a named key, with the character that it makes where it makes one (8, 13, 27, 32).
KeyStroke StrokeOfKey(int code, bool shift = false);

}  // namespace zirvo::forms
