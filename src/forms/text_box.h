// A box of text that the user edits: one line, or many lines to read.
#pragma once
#include <string>
#include <string_view>

#include "forms/control.h"

namespace zirvo::forms {

class TextBox : public Control {
public:
    TextBox(Form& form, ControlId id, Control* container = nullptr);

    Property<std::string> Text;  ///< UTF-8
    Property<int> SelStart;      ///< characters before the caret or the selection
    Property<int> SelLength;     ///< characters selected; more than there are means all behind SelStart
    Property<int> BorderStyle;   ///< 0 none, 1 single
    Property<bool> MultiLine;    ///< many lines, not wrapped, with both scroll bars
    Property<bool> Locked;       ///< the user may read, select and copy, not edit
    std::function<void()> Change;

    /// The user types: the focus comes here, then each character is a stroke to whatever has the focus, through KeyDown
    /// and KeyPress, and then into the text at the selection. What the handlers drop is not typed. For tests and for
    /// views without an editing of their own.
    void Type(std::string_view text);
    /// The user pastes: only the first line into a box of one line, through no filter.
    void Paste(std::string_view text);
    /// The view's own editing has brought this text and selection: stores them and raises Change, as one act of the
    /// user. Nothing on a locked or disabled box.
    void UserEdited(std::string text, int selStart, int selLength);
    /// The user has moved the caret or selection; raises nothing.
    void UserSelected(int selStart, int selLength);

    /// The model's own editing: characters, Backspace, Delete, Left, Right, Home, End.
    void EditBy(const KeyStroke& stroke) override;

protected:
    bool HasOwnEditing() const override { return true; }

private:
    void SetText(const std::string& text);
    void StoreSelection(int selStart, int selLength);
};

}  // namespace zirvo::forms
