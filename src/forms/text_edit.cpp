// Editing of a text by strokes, character by character.
#include "forms/text_edit.h"

#include <algorithm>

#include "base/runtime_fault.h"
#include "base/utf8.h"

namespace zirvo::forms {
namespace {

constexpr char32_t FirstPrintable = U' ';
constexpr char32_t DeleteCharacter = 127;

int CountOf(std::string_view text) {
    return static_cast<int>(CharacterCount(text));
}

}  // namespace

EditedText::EditedText(std::string_view text, int selStart, int selLength)
    : Characters(ToCharacters(text)),
      Start(std::min(static_cast<std::size_t>(std::max(selStart, 0)), Characters.size())),
      Length(std::min(static_cast<std::size_t>(std::max(selLength, 0)), Characters.size() - Start)) {}

void EditedText::Insert(std::u32string_view characters) {
    Characters.erase(Start, Length);
    Characters.insert(Start, characters);
    Start += characters.size();
    Length = 0;
}

void EditedText::Erase(bool backwards) {
    if (Length == 0) {
        if (backwards ? Start == 0 : Start == Characters.size()) {
            return;
        }
        Start -= backwards ? 1 : 0;
        Length = 1;
    }
    Insert({});
}

void EditedText::Move(const KeyStroke& stroke) {
    const std::size_t end = Start + Length;
    switch (stroke.Code) {
        case key::Left:
            Start -= Length == 0 && Start > 0 ? 1 : 0;
            break;
        case key::Right:
            Start = Length == 0 ? std::min(end + 1, Characters.size()) : end;
            break;
        case key::Home:
            Start = 0;
            break;
        case key::End:
            Start = Characters.size();
            break;
        default:
            return;
    }
    Length = 0;
}

void EditedText::Apply(const KeyStroke& stroke) {
    if (stroke.Character == static_cast<char32_t>(key::Backspace)) {
        Erase(true);
    } else if (stroke.Character >= FirstPrintable && stroke.Character != DeleteCharacter) {
        Insert(std::u32string_view(&stroke.Character, 1));
    } else if (stroke.Character == 0 && stroke.Code == key::Delete) {
        Erase(false);
    } else if (stroke.Character == 0) {
        Move(stroke);
    }
}

int CheckedSelStart(std::string_view text, int selStart) {
    if (selStart < 0) {
        throw RuntimeFault(fault::InvalidCall);
    }
    return std::min(selStart, CountOf(text));
}

int CheckedSelLength(std::string_view text, int selStart, int selLength) {
    if (selLength < 0) {
        throw RuntimeFault(fault::InvalidCall);
    }
    return std::min(selLength, CountOf(text) - selStart);
}

}  // namespace zirvo::forms
