// A box of text with a list under it.
#pragma once
#include <string>
#include <vector>

#include "forms/control.h"

namespace zirvo::forms {

class ComboBox : public Control {
public:
    ComboBox(Form& form, ControlId id, Control* container = nullptr);

    /// Writing an entry's text makes it current (with Click if the index changes); any other text makes ListIndex -1
    /// without an event.
    Property<std::string> Text;
    /// The current entry from 0, -1 for none. A change sets Text and raises Click. Outside the list: fault 5.
    Property<int> ListIndex;
    Property<int> SelStart;
    Property<int> SelLength;
    /// Whether the list stands open; the view keeps it.
    Property<bool> ListOpen;
    std::function<void()> Click;
    /// The user has edited the text. No write of the program raises it.
    std::function<void()> Change;

    void AddItem(std::string text);
    /// Shows an entry, -1 for none and an empty text, without an event: what the user has left there is no choice.
    /// It is selected, as behind a choice.
    void ShowEntry(int index);
    int ListCount() const { return static_cast<int>(items_.size()); }
    /// Outside the list: fault 5.
    const std::string& List(int index) const;

    /// The user takes an entry from the list: the list closes, the focus comes here, the whole text is selected, then
    /// Click, also where the entry is the current one.
    void UserChoose(int index);
    /// The view's own editing of the text.
    void UserEdited(std::string text, int selStart, int selLength);
    void UserSelected(int selStart, int selLength);

    /// The model's own editing of the text, as of a text box.
    void EditBy(const KeyStroke& stroke) override;

protected:
    bool KeyDefault(const KeyStroke& stroke) override;
    bool HasOwnEditing() const override { return true; }
    bool KeepsEnter() const override { return ListOpen; }

private:
    void SetText(const std::string& text);
    void SetIndex(int index, bool byUser);
    void StoreSelection(int selStart, int selLength);

    std::vector<std::string> items_;
};

}  // namespace zirvo::forms
