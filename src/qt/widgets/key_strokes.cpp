// Key events as strokes, see key_strokes.h. The codes are those that the rules of the editor are written in: those of
// the Windows keyboard, where "." has the code 190 and 46 is Delete.
#include "qt/widgets/key_strokes.h"

#include <array>

namespace zirvo::widgets {
namespace {

struct KeyCode {
    int QtKey;
    int Code;
};

constexpr std::array NamedKeys{
    KeyCode{Qt::Key_Backspace, forms::key::Backspace},
    KeyCode{Qt::Key_Tab, forms::key::Tab},
    KeyCode{Qt::Key_Backtab, forms::key::Tab},
    KeyCode{Qt::Key_Return, forms::key::Enter},
    KeyCode{Qt::Key_Enter, forms::key::Enter},
    KeyCode{Qt::Key_Shift, 16},
    KeyCode{Qt::Key_Control, 17},
    KeyCode{Qt::Key_Alt, 18},
    KeyCode{Qt::Key_Pause, 19},
    KeyCode{Qt::Key_CapsLock, 20},
    KeyCode{Qt::Key_Escape, forms::key::Escape},
    KeyCode{Qt::Key_Space, forms::key::Space},
    KeyCode{Qt::Key_PageUp, forms::key::PageUp},
    KeyCode{Qt::Key_PageDown, forms::key::PageDown},
    KeyCode{Qt::Key_End, forms::key::End},
    KeyCode{Qt::Key_Home, forms::key::Home},
    KeyCode{Qt::Key_Left, forms::key::Left},
    KeyCode{Qt::Key_Up, forms::key::Up},
    KeyCode{Qt::Key_Right, forms::key::Right},
    KeyCode{Qt::Key_Down, forms::key::Down},
    KeyCode{Qt::Key_Insert, 45},
    KeyCode{Qt::Key_Delete, forms::key::Delete},
    KeyCode{Qt::Key_Menu, 93},
    KeyCode{Qt::Key_Semicolon, 186},
    KeyCode{Qt::Key_Colon, 186},
    KeyCode{Qt::Key_Equal, 187},
    KeyCode{Qt::Key_Plus, 187},
    KeyCode{Qt::Key_Comma, 188},
    KeyCode{Qt::Key_Minus, 189},
    KeyCode{Qt::Key_Underscore, 189},
    KeyCode{Qt::Key_Period, 190},
    KeyCode{Qt::Key_Slash, 191},
};

/// The keys of the number block, which have codes of their own.
constexpr std::array BlockKeys{
    KeyCode{Qt::Key_Asterisk, 106}, KeyCode{Qt::Key_Plus, 107},  KeyCode{Qt::Key_Minus, 109},
    KeyCode{Qt::Key_Period, 110},   KeyCode{Qt::Key_Comma, 110}, KeyCode{Qt::Key_Slash, 111},
};

/// A key that has no code of its own here.
constexpr int OtherKey = 229;

int CodeOf(const QKeyEvent& event) {
    const int pressed = event.key();
    if (event.modifiers().testFlag(Qt::KeypadModifier)) {
        if (pressed >= Qt::Key_0 && pressed <= Qt::Key_9) {
            return 96 + pressed - Qt::Key_0;
        }
        for (const KeyCode& entry : BlockKeys) {
            if (entry.QtKey == pressed) {
                return entry.Code;
            }
        }
    }
    if ((pressed >= Qt::Key_0 && pressed <= Qt::Key_9) || (pressed >= Qt::Key_A && pressed <= Qt::Key_Z)) {
        return pressed;
    }
    if (pressed >= Qt::Key_F1 && pressed <= Qt::Key_F24) {
        return forms::key::F1 + pressed - Qt::Key_F1;
    }
    for (const KeyCode& entry : NamedKeys) {
        if (entry.QtKey == pressed) {
            return entry.Code;
        }
    }
    return OtherKey;
}

char32_t CharacterOf(const QKeyEvent& event, int code, bool control, bool alt) {
    switch (code) {
        case forms::key::Backspace:
        case forms::key::Enter:
        case forms::key::Escape:
        case forms::key::Space:
            return static_cast<char32_t>(code);
        default:
            break;
    }
    if (control && !alt && code >= 'A' && code <= 'Z') {
        return static_cast<char32_t>(code - 'A' + 1);
    }
    if (alt != control) {  // both together are how some keyboards reach their third level
        return 0;
    }
    const QList<uint> typed = event.text().toUcs4();
    return typed.size() == 1 && typed.front() >= 32 && typed.front() != 127 ? static_cast<char32_t>(typed.front()) : 0;
}

}  // namespace

forms::KeyStroke StrokeOfEvent(const QKeyEvent& event) {
    forms::KeyStroke stroke;
    stroke.Code = CodeOf(event);
    stroke.Shift = event.modifiers().testFlag(Qt::ShiftModifier) || event.key() == Qt::Key_Backtab;
    stroke.Control = event.modifiers().testFlag(Qt::ControlModifier);
    stroke.Alt = event.modifiers().testFlag(Qt::AltModifier);
    stroke.Character = CharacterOf(event, stroke.Code, stroke.Control, stroke.Alt);
    return stroke;
}

}  // namespace zirvo::widgets
