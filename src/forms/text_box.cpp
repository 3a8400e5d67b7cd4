// The text box: its text and selection, what the program writes and what the user types and pastes.
#include "forms/text_box.h"

#include "base/utf8.h"
#include "forms/application.h"
#include "forms/text_edit.h"

namespace zirvo::forms {

TextBox::TextBox(Form& form, ControlId id, Control* container)
    : Control(form, std::move(id), container),
      Text("", [this] { TellView(); }),
      SelStart(0, [this] { TellView(); }),
      SelLength(0, [this] { TellView(); }),
      BorderStyle(1, [this] { TellView(); }),
      MultiLine(false, [this] { TellView(); }),
      Locked(false, [this] { TellView(); }) {
    Text.SetBy([this](const std::string& text) { SetText(text); });
    SelStart.SetBy([this](int start) { StoreSelection(CheckedSelStart(Text, start), 0); });
    SelLength.SetBy([this](int length) { StoreSelection(SelStart, CheckedSelLength(Text, SelStart, length)); });
}

/// A text that the program writes has its caret at the start.
void TextBox::SetText(const std::string& text) {
    if (text == Text.Get()) {
        return;
    }
    StoreSelection(0, 0);
    Text.Store(text);
    Raise(Change);
}

void TextBox::StoreSelection(int selStart, int selLength) {
    SelStart.Store(selStart);
    SelLength.Store(selLength);
}

void TextBox::UserEdited(std::string text, int selStart, int selLength) {
    if (Locked || !IsUsable()) {
        return;
    }
    const EditedText edited(text, selStart, selLength);
    App().Dispatch([&] {
        const bool changed = Text.Store(std::move(text));
        StoreSelection(static_cast<int>(edited.Start), static_cast<int>(edited.Length));
        if (changed) {
            Raise(Change);
        }
    });
}

void TextBox::UserSelected(int selStart, int selLength) {
    const EditedText edited(Text, selStart, selLength);
    StoreSelection(static_cast<int>(edited.Start), static_cast<int>(edited.Length));
}

void TextBox::EditBy(const KeyStroke& stroke) {
    EditedText edited(Text, SelStart, SelLength);
    if (Locked) {
        edited.Move(stroke);
        UserSelected(static_cast<int>(edited.Start), static_cast<int>(edited.Length));
        return;
    }
    edited.Apply(stroke);
    UserEdited(FromCharacters(edited.Characters), static_cast<int>(edited.Start), static_cast<int>(edited.Length));
}

void TextBox::Type(std::string_view text) {
    const ControlWatch watch(*this);
    UserFocus();
    for (const char32_t character : ToCharacters(text)) {
        if (!watch.IsThere()) {
            return;
        }
        Parent().Strike(StrokeOf(character));
    }
}

void TextBox::Paste(std::string_view text) {
    if (!MultiLine) {
        text = text.substr(0, text.find_first_of("\r\n"));
    }
    if (text.empty()) {
        return;
    }
    EditedText edited(Text, SelStart, SelLength);
    edited.Insert(ToCharacters(text));
    UserEdited(FromCharacters(edited.Characters), static_cast<int>(edited.Start), static_cast<int>(edited.Length));
}

}  // namespace zirvo::forms
