// What a user does at a screen, for tests of forms: strokes go to whatever has the focus, as at a real keyboard.
//
//     ScriptedDesktop desktop;
//     Application app(desktop);
//     app.Register("Form3", [](Application& a) { return std::make_unique<Form3>(a); });
//     app.Show("Form3");  // load and show as one handler, with the focus events behind it
//     Form3& form = app.Get<Form3>();
//     form.Option1.UserClick();
//     Type(form, "12.5\r");
//
// As a program:
//
//     app.Dispatch([&] { form.Text7.Text = "a"; form.Command5.SetFocus(); });
#pragma once
#include <string_view>

#include "base/utf8.h"
#include "forms/application.h"
#include "forms/form.h"

namespace zirvo::forms {

/// The user types characters; "\b" is Backspace, "\t" Tab, "\r" Enter, "\x1b" Esc.
inline void Type(Form& form, std::string_view text) {
    for (const char32_t character : ToCharacters(text)) {
        form.Strike(StrokeOf(character));
    }
}

/// The user strikes a named key: Press(form, key::Down).
inline void Press(Form& form, int code, bool shift = false) {
    form.Strike(StrokeOfKey(code, shift));
}

/// Name of the active control, with the index of an element: "Check1(2)"; "" where there is none.
inline std::string FocusOf(const Form& form) {
    const Control* active = form.ActiveControl();
    if (active == nullptr) {
        return "";
    }
    return active->Index() < 0 ? active->Name() : active->Name() + "(" + std::to_string(active->Index()) + ")";
}

}  // namespace zirvo::forms
