// The combo box: its entries, the current one, and the text in its box.
#include "forms/combo_box.h"

#include <algorithm>

#include "base/runtime_fault.h"
#include "base/utf8.h"
#include "forms/application.h"
#include "forms/text_edit.h"

namespace zirvo::forms {

ComboBox::ComboBox(Form& form, ControlId id, Control* container)
    : Control(form, std::move(id), container),
      Text("", [this] { TellView(); }),
      ListIndex(-1, [this] { TellView(); }),
      SelStart(0, [this] { TellView(); }),
      SelLength(0, [this] { TellView(); }),
      ListOpen(false, [this] { TellView(); }) {
    Text.SetBy([this](const std::string& text) { SetText(text); });
    ListIndex.SetBy([this](int index) { SetIndex(index, false); });
    SelStart.SetBy([this](int start) { StoreSelection(CheckedSelStart(Text, start), 0); });
    SelLength.SetBy([this](int length) { StoreSelection(SelStart, CheckedSelLength(Text, SelStart, length)); });
}

void ComboBox::AddItem(std::string text) {
    items_.push_back(std::move(text));
    TellView();
}

const std::string& ComboBox::List(int index) const {
    if (index < 0 || index >= ListCount()) {
        throw RuntimeFault(fault::InvalidCall);
    }
    return items_[static_cast<std::size_t>(index)];
}

void ComboBox::SetText(const std::string& text) {
    const auto entry = std::find(items_.begin(), items_.end(), text);
    if (entry != items_.end() && (ListIndex < 0 || List(ListIndex) != text)) {
        SetIndex(static_cast<int>(entry - items_.begin()), false);
        return;
    }
    if (entry == items_.end()) {
        ListIndex.Store(-1);
    }
    if (text != Text.Get()) {
        StoreSelection(0, 0);
        Text.Store(text);
    }
}

void ComboBox::ShowEntry(int index) {
    const std::string text = index == -1 ? std::string() : List(index);
    ListIndex.Store(index);
    if (text != Text.Get()) {
        StoreSelection(0, 0);
        Text.Store(text);
        StoreSelection(0, CheckedSelLength(text, 0, static_cast<int>(text.size())));
    }
}

/// Makes an entry current, with its text; -1 makes none current and empties the text.
/// @param byUser  Click is raised also where the index stays, and the whole text is selected: what is typed next
///                takes its place
void ComboBox::SetIndex(int index, bool byUser) {
    const std::string text = index == -1 ? std::string() : List(index);
    const bool changed = ListIndex.Store(index);
    if (changed || byUser) {
        StoreSelection(0, 0);
        Text.Store(text);
        if (byUser) {
            StoreSelection(0, CheckedSelLength(text, 0, static_cast<int>(text.size())));
        }
        Raise(Click);
    }
}

void ComboBox::StoreSelection(int selStart, int selLength) {
    SelStart.Store(selStart);
    SelLength.Store(selLength);
}

void ComboBox::UserChoose(int index) {
    ListOpen = false;
    const ControlWatch watch(*this);
    UserFocus();
    if (watch.IsUsable() && index >= 0 && index < ListCount()) {
        App().Dispatch([&] { SetIndex(index, true); });
    }
}

void ComboBox::UserEdited(std::string text, int selStart, int selLength) {
    if (!IsUsable()) {
        return;
    }
    const EditedText edited(text, selStart, selLength);
    App().Dispatch([&] {
        const bool changed = Text.Store(std::move(text));
        StoreSelection(static_cast<int>(edited.Start), static_cast<int>(edited.Length));
        if (changed) {
            ListIndex.Store(-1);
            Raise(Change);
        }
    });
}

void ComboBox::UserSelected(int selStart, int selLength) {
    const EditedText edited(Text, selStart, selLength);
    StoreSelection(static_cast<int>(edited.Start), static_cast<int>(edited.Length));
}

void ComboBox::EditBy(const KeyStroke& stroke) {
    EditedText edited(Text, SelStart, SelLength);
    edited.Apply(stroke);
    UserEdited(FromCharacters(edited.Characters), static_cast<int>(edited.Start), static_cast<int>(edited.Length));
}

/// Up and Down with the list closed are a choice; an open list is the view's.
bool ComboBox::KeyDefault(const KeyStroke& stroke) {
    if (stroke.Code != key::Up && stroke.Code != key::Down) {
        return false;
    }
    if (ListOpen) {
        return false;
    }
    const int next = stroke.Code == key::Up ? ListIndex - 1 : ListIndex + 1;
    if (next >= 0 && next < ListCount()) {
        UserChoose(next);
    }
    return true;
}

}  // namespace zirvo::forms
