// Copying, pasting and undoing on a data screen, see table_editing.h.
#include "shell/table_editing.h"

#include <utility>

#include "base/utf8.h"
#include "forms/application.h"
#include "grid/cell_block.h"
#include "shell/screen_language.h"
#include "text/version_stamp.h"

namespace zirvo {
namespace {

/// As much of a text as a box can show in a line.
std::string Shortened(const std::string& text) {
    constexpr std::size_t most = 40;  // characters
    std::u32string characters = ToCharacters(text);
    for (char32_t& character : characters) {
        character = character < U' ' ? U' ' : character;
    }
    if (characters.size() > most) {
        characters.resize(most);
        characters += U'\u2026';
    }
    return FromCharacters(characters);
}

/// Whether the text is more than what goes into one cell.
bool IsBlock(const std::string& text) {
    const CellBlock block = ReadCellBlock(text);
    return block.size() > 1 || (block.size() == 1 && block.front().size() > 1);
}

}  // namespace

TableEditing::TableEditing(forms::Form& form, std::vector<CountedTable> tables, std::vector<Int16> rowNames,
                           const std::shared_ptr<clsFlexGridEdit>& editor)
    : form_(form),
      tables_(tables),
      rowNames_(std::move(rowNames)),
      editor_(editor),
      history_(form, std::move(tables)) {}

/// The table whose grid has the focus, or whose cell is being edited.
const CountedTable* TableEditing::FocusedTable() const {
    const forms::Control* active = form_.ActiveControl();
    for (const CountedTable& table : tables_) {
        if (active != nullptr && active->TabPlace() == &table.Grid) {
            return &table;
        }
    }
    return nullptr;
}

/// The box of a cell, where it has the focus.
forms::TextBox* TableEditing::OpenBox() const {
    forms::TextBox* box = editor_ == nullptr ? nullptr : editor_->Box();
    return box != nullptr && box->Visible && box->HasFocus() ? box : nullptr;
}

/// Whether what stands in the open box is not what its cell holds.
bool TableEditing::IsEdited() const {
    const CountedTable* table = FocusedTable();
    const forms::TextBox* box = OpenBox();
    return table != nullptr && box != nullptr && box->Text.Get() != table->Grid.Text();
}

/// As Esc does it: the cell keeps its text, and the grid has the focus.
void TableEditing::CloseBox() {
    if (OpenBox() != nullptr) {
        form_.App().Dispatch([this] {
            int escape = forms::key::Escape;
            editor_->Tb_KeyDown(escape);
        });
    }
}

bool TableEditing::Key(const forms::KeyStroke& stroke) {
    const CountedTable* table = FocusedTable();
    const bool inNameBox = table == nullptr && dynamic_cast<forms::TextBox*>(form_.ActiveControl()) != nullptr;
    if (inNameBox) {
        return false;  // which has an editing of its own
    }
    if (stroke.IsControl('Z') || stroke.IsControl('Y')) {
        UndoOrRedo(stroke.Code == 'Z' && !stroke.Shift);
        return true;
    }
    if (table == nullptr) {
        return false;
    }
    if (stroke.IsControl('C')) {
        return Copy(*table);
    }
    if (stroke.IsControl('V')) {
        return Paste(*table);
    }
    if (stroke.IsControl('A') && OpenBox() == nullptr) {
        table->Grid.AllSelected = table->Grid.HasDataRows();
        return true;
    }
    return false;
}

/// In a box that has been typed into, Ctrl+Z takes back what has been typed there, and Ctrl+Y has nothing to bring.
void TableEditing::UndoOrRedo(bool undo) {
    if (IsEdited()) {
        if (undo) {
            form_.App().Dispatch([this] {
                forms::TextBox& box = *OpenBox();
                box.Text = FocusedTable()->Grid.Text();
                box.SelStart = static_cast<int>(CharacterCount(box.Text.Get()));
            });
        }
        return;
    }
    CloseBox();
    const bool replaces = undo ? history_.UndoReplaces() : history_.RedoReplaces();
    if (replaces && DataGo) {
        DataGo();
    }
    static_cast<void>(undo ? history_.Undo() : history_.Redo());
    if (replaces && DataAreBack) {
        DataAreBack();
    }
}

/// In an open box with something selected, that is what is copied.
bool TableEditing::Copy(const CountedTable& table) {
    const forms::TextBox* box = OpenBox();
    if (box != nullptr && (box->SelLength > 0 || IsEdited())) {
        return false;
    }
    if (table.Grid.HasDataRows()) {
        form_.World().SetClipboardText(CopyOfTable(table.Grid));
    }
    return true;
}

/// An open box takes a single text itself; a block goes into the cells, unless the box has been typed into.
bool TableEditing::Paste(const CountedTable& table) {
    const std::string text = form_.World().ClipboardText();
    if (OpenBox() != nullptr) {
        if (IsEdited() || !IsBlock(text)) {
            return false;
        }
        CloseBox();
    }
    form_.App().Dispatch([&] {
        const PasteResult result = PasteIntoTable(table.Grid, table.Bar, text);
        if (result.What != PasteResult::Kind::Pasted && result.What != PasteResult::Kind::Nothing) {
            TellRefused(table, result);
        }
    });
    return true;
}

void TableEditing::TellRefused(const CountedTable& table, const PasteResult& result) const {
    form_.World().Show({.Text = WordsOf(table, result),
                        .Title = MakeVersionStamp(3),
                        .Picture = forms::Icon::Exclamation,
                        .Choice = forms::Buttons::Ok,
                        .Words = LanguageOf(languageBase_)});
}

std::string TableEditing::WordsOf(const CountedTable& table, const PasteResult& result) const {
    const bool japanese = languageBase_ == JapaneseBase;
    const std::string nothing = japanese ? "貼り付けませんでした。\n\n" : "Nothing was pasted.\n\n";
    const std::string given = std::to_string(result.Given);
    const std::string room = std::to_string(result.Room);
    if (result.What == PasteResult::Kind::TooManyColumns) {
        return nothing +
               (japanese ? "ｸﾘｯﾌﾟﾎﾞｰﾄﾞには " + given + " 列ありますが、このセルからは " + room + " 列しかありません。"
                         : "The clipboard holds " + given + " columns; from this cell on the table has " + room + ".");
    }
    if (result.What == PasteResult::Kind::TooManyRows) {
        return nothing + (japanese ? "貼り付けると " + given + " 行になりますが、この表は " + room + " 行までです。"
                                   : "The table would need " + given + " rows; it can have " + room + ".");
    }
    std::string name;
    for (std::size_t t = 0; t < tables_.size(); ++t) {
        if (&tables_[t].Grid == &table.Grid) {
            name = GetMessage(languageBase_, rowNames_[t]);
        }
    }
    name += " " + std::to_string(result.Row) + ", " + table.Grid.TextMatrix(0, result.Col);
    const std::string text = Shortened(result.Text);
    return nothing + (japanese ? name + "：\n「" + text + "」はキーで入力できない文字を含みます。"
                               : name + ":\n\"" + text + "\" holds characters that cannot be typed into a cell.");
}

}  // namespace zirvo
