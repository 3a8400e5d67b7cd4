// What the user of a spreadsheet expects of the tables of a data screen: copying and pasting, undoing and redoing, by
// keys that come before any control's own. Caller: DataScreen.
#pragma once
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "forms/form.h"
#include "grid/cls_flex_grid_edit.h"
#include "grid/edit_history.h"
#include "grid/table_clipboard.h"
#include "text/catalogue.h"

namespace zirvo {

class TableEditing {
public:
    /// @param rowNames  the messages of the row headings, one for each table
    /// @param editor    the editor of the grid that got the focus last, or none
    TableEditing(forms::Form& form, std::vector<CountedTable> tables, std::vector<Int16> rowNames,
                 const std::shared_ptr<clsFlexGridEdit>& editor);

    /// Called when undoing or redoing is about to bring the screen of other data, and when it stands there. May be
    /// empty.
    std::function<void()> DataGo;
    std::function<void()> DataAreBack;

    /// The language of what it says, from now on.
    void Speak(Int16 languageBase) { languageBase_ = languageBase; }
    /// The first stroke of all: Ctrl with C, V, A, Z or Y. True if that is all there is to do.
    bool Key(const forms::KeyStroke& stroke);
    /// What stands now is the beginning of what can be undone.
    void Forget() { history_.Forget(); }
    const EditHistory& History() const { return history_; }

private:
    const CountedTable* FocusedTable() const;
    forms::TextBox* OpenBox() const;
    bool IsEdited() const;
    void CloseBox();
    void UndoOrRedo(bool undo);
    bool Copy(const CountedTable& table);
    bool Paste(const CountedTable& table);
    void TellRefused(const CountedTable& table, const PasteResult& result) const;
    std::string WordsOf(const CountedTable& table, const PasteResult& result) const;

    forms::Form& form_;
    std::vector<CountedTable> tables_;
    std::vector<Int16> rowNames_;
    const std::shared_ptr<clsFlexGridEdit>& editor_;
    EditHistory history_;
    Int16 languageBase_ = 0;
};

}  // namespace zirvo
