// Strokes of keys as a keyboard makes them. Called by views and tests.
#include "forms/key_stroke.h"

namespace zirvo::forms {
namespace {

bool HasCharacter(int code) {
    return code == key::Backspace || code == key::Enter || code == key::Escape || code == key::Space;
}

/// The code of the key that makes the character: upper case letters and digits have their own, other characters, whose
/// place differs from keyboard to keyboard, one that no rule names.
int CodeOf(char32_t character) {
    constexpr int NoNamedKey = 255;
    if (character >= U'a' && character <= U'z') {
        return static_cast<int>(character - U'a' + U'A');
    }
    const bool named = (character >= U'A' && character <= U'Z') || (character >= U'0' && character <= U'9');
    return named ? static_cast<int>(character) : NoNamedKey;
}

}  // namespace

KeyStroke StrokeOf(char32_t character) {
    const int code = static_cast<int>(character);
    if (character == key::Tab || HasCharacter(code)) {
        return StrokeOfKey(code);
    }
    return {.Code = CodeOf(character), .Character = character, .Shift = character >= U'A' && character <= U'Z'};
}

KeyStroke StrokeOfControl(char letter) {
    return {.Code = letter, .Character = static_cast<char32_t>(letter - 'A' + 1), .Control = true};
}

KeyStroke StrokeOfKey(int code, bool shift) {
    return {.Code = code, .Character = HasCharacter(code) ? static_cast<char32_t>(code) : U'\0', .Shift = shift};
}

}  // namespace zirvo::forms
