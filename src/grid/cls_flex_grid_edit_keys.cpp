// What the keys do: on the grid, where a key begins an edit, and in the box, where it is filtered or moves on.
#include "base/utf8.h"
#include "forms/key_stroke.h"
#include "grid/cell_text.h"
#include "grid/cls_flex_grid_edit.h"

namespace zirvo {
namespace {

constexpr int DeleteCharacter = 127;

/// What a key code means to an edit that it begins.
enum class KeyKind { NoCharacter, Backspace, Refused, Delete, OfNumber };

KeyKind KindOf(int code) {
    if (code == forms::key::Backspace) {
        return KeyKind::Backspace;
    }
    if (code >= 0 && code <= 32) {
        return KeyKind::NoCharacter;
    }
    if (code == DeleteCharacter) {
        return KeyKind::Delete;
    }
    return IsRefusedInCell(code) ? KeyKind::Refused : KeyKind::OfNumber;
}

/// The character of a code. A negative one is the 16-bit form of a character from U+8000 on.
std::string CharacterText(int code) {
    const auto character = static_cast<char32_t>(code < 0 ? code + 0x10000 : code);
    return FromCharacters({&character, 1});
}

}  // namespace

void clsFlexGridEdit::BeginEdit(int& key) {
    if (fg == nullptr) {
        return;
    }
    switch (KindOf(key)) {
        case KeyKind::NoCharacter:
            Tb->Text = fg->Text();
            fg->SetFocus();
            Tb->SelStart = 0;
            break;
        case KeyKind::Backspace:
            // The box keeps the text that it last held, and a commit writes that.
            fg->SetText("");
            fg->SetFocus();
            Tb->SelStart = 0;
            break;
        case KeyKind::Refused:
            key = 0;
            Tb->Text = fg->Text();
            break;
        case KeyKind::Delete:
            fg->SetText("");
            return;
        case KeyKind::OfNumber:
            Tb->Text = CharacterText(key);
            Tb->SelStart = static_cast<int>(CharacterCount(Tb->Text.Get()));
            break;
    }
    PlaceBox();
}

void clsFlexGridEdit::PlaceBox() {
    const double left = fg->Left + fg->CellLeft();
    const double top = fg->Top + fg->CellTop();
    Tb->Move(left, top, fg->CellWidth(), fg->CellHeight());
    Tb->Visible = true;
    Tb->SetFocus();
    if (tabKeyBehaviour_ != 0) {
        RestoreTabStops();
        SaveTabStops();
    }
}

// Delete makes no character: it is handed on as the character of that name, since 46 would be the point.
void clsFlexGridEdit::fg_KeyDown(int& keyCode) {
    if (keyCode == forms::key::Delete) {
        keyCode = DeleteCharacter;
        BeginEdit(keyCode);
    }
}

void clsFlexGridEdit::fg_KeyPress(int& keyAscii) {
    BeginEdit(keyAscii);
}

void clsFlexGridEdit::fg_DblClick() {
    int blank = forms::key::Space;
    BeginEdit(blank);
}

// Only the characters are looked at, not their order: "1-2E" can be typed, and counts as its leading number.
void clsFlexGridEdit::Tb_KeyPress(int& keyAscii) {
    const bool isCleared = keyAscii == forms::key::Tab || keyAscii == forms::key::Enter ||
                           keyAscii == forms::key::Escape || keyAscii == forms::key::Space ||
                           IsRefusedInCell(keyAscii) || keyAscii == DeleteCharacter;
    if (isCleared) {
        keyAscii = 0;
    }
}

void clsFlexGridEdit::Tb_KeyDown(int& keyCode) {
    if (Tb->Left < 0 || Tb->Top < 0) {
        // The reading brings the cell back into sight, and the scroll event of that the box.
        static_cast<void>(fg->CellTop());
        static_cast<void>(fg->CellLeft());
    }
    switch (keyCode) {
        case forms::key::Enter:
            MoveEdit(1);
            break;
        case forms::key::Escape:
            Tb->Visible = false;
            fg->SetFocus();
            break;
        case forms::key::Up:
            MoveEdit(3);
            break;
        case forms::key::Down:
            MoveEdit(2);
            break;
        default:
            break;
    }
}

void clsFlexGridEdit::MoveEdit(int direction) {
    if (fg == nullptr || direction < 0 || direction > 4) {
        return;
    }
    struct Moving {
        explicit Moving(bool& flag) : Flag(flag) { Flag = true; }
        ~Moving() { Flag = false; }
        Moving(const Moving&) = delete;
        Moving& operator=(const Moving&) = delete;
        bool& Flag;
    } const moving(moving_);

    if (direction == 0) {
        fg->SetFocus();
        return;
    }
    WriteCell();
    fg->SetFocus();
    switch (direction) {
        case 1:
            GoNextAlongRow();
            break;
        case 2:
            GoNextDownColumn();
            break;
        case 3:
            GoUp();
            break;
        default:
            GoBackAlongRow();
            break;
    }
    int noKey = 0;
    BeginEdit(noKey);
}

void clsFlexGridEdit::GoNextAlongRow() {
    if (fg->Col < fg->Cols - 1) {
        fg->Col = fg->Col + 1;
    } else if (fg->Row < fg->Rows - 1) {
        fg->Row = fg->Row + 1;
        fg->Col = 1;
    } else {
        fg->Col = 1;
        fg->Row = 1;
    }
}

void clsFlexGridEdit::GoNextDownColumn() {
    if (fg->Row + 1 < fg->Rows) {
        fg->Row = fg->Row + 1;
    } else if (fg->Col + 1 < fg->Cols) {
        fg->Col = fg->Col + 1;
        fg->Row = 1;
    } else {
        fg->Col = 1;
        fg->Row = 1;
    }
}

// From the top of a column it goes to the bottom of the one to the right. At the top of the last column it stays,
// unless that is also the last cell.
void clsFlexGridEdit::GoUp() {
    if (fg->Row > fg->FixedRows) {
        fg->Row = fg->Row - 1;
    } else if (fg->Col < fg->Cols - 1) {
        fg->Col = fg->Col + 1;
        fg->Row = fg->Rows - 1;
    } else if (fg->Row + 1 == fg->Rows) {
        fg->Col = 1;
        fg->Row = 1;
    }
}

void clsFlexGridEdit::GoBackAlongRow() {
    if (fg->Col > fg->FixedCols) {
        fg->Col = fg->Col - 1;
    } else if (fg->Row < fg->Rows - 1) {
        fg->Col = fg->Cols - 1;
        fg->Row = fg->Row + 1;
    } else if (fg->Col + 1 == fg->Cols) {
        fg->Col = 1;
        fg->Row = 1;
    }
}

}  // namespace zirvo
