// The editor's life on a grid and its events; what a key begins and where an edit goes on stand in
// cls_flex_grid_edit_keys.cpp.
#include "grid/cls_flex_grid_edit.h"

#include <cassert>

#include "base/runtime_fault.h"

namespace zirvo {
namespace {

/// One call of the toolkit whose fault is passed over. Gives whether it went through.
template <class Call>
bool PassOver(const Call& call) {
    try {
        call();
        return true;
    } catch (const RuntimeFault&) {
        return false;
    }
}

}  // namespace

clsFlexGridEdit::clsFlexGridEdit() : tabStore_(1) {}

clsFlexGridEdit::~clsFlexGridEdit() {
    clsFlexGridEdit::ReleaseGrid();
}

void clsFlexGridEdit::FlexGridControl(forms::MSFlexGrid& grid) {
    ReleaseGrid();
    fg = &grid;
    gridLife_ = grid.Life();
    ReceiveGridEvents();
    AddBox();
    ReceiveBoxEvents();
    Tb->Visible = false;
    Tb->BorderStyle = editBoxBorderStyle_;
    Tb->Font = grid.Font.Get();
    Tb->ZOrder();
}

void clsFlexGridEdit::AddBox() {
    forms::ControlCollection& controls = fg->Parent().Controls;
    boxName_ = "tbFgEdit";
    bool added = false;
    while (!added) {
        boxName_ += "1";
        added = PassOver([&] { controls.Add(boxName_, fg->Container()); });
    }
    Tb = dynamic_cast<forms::TextBox*>(controls.Find(boxName_));
    assert(Tb != nullptr);
    Tb->CountAt(*fg);
}

// A grid has one receiver: the editor that was bound last. The events of an earlier grid or of an ended editor find
// nobody. `self` keeps the editor alive for the length of the event.
void clsFlexGridEdit::ReceiveGridEvents() {
    assert(!weak_from_this().expired());
    const auto self = [weak = weak_from_this(), grid = fg] {
        std::shared_ptr<clsFlexGridEdit> editor = weak.lock();
        return editor != nullptr && editor->fg == grid ? editor : nullptr;
    };
    fg->KeyDown = [self](int& keyCode) {
        if (const auto editor = self()) {
            editor->fg_KeyDown(keyCode);
        }
    };
    fg->KeyPress = [self](int& keyAscii) {
        if (const auto editor = self()) {
            editor->fg_KeyPress(keyAscii);
        }
    };
    const auto event = [self](void (clsFlexGridEdit::*handler)()) {
        return [self, handler] {
            if (const auto editor = self()) {
                (editor.get()->*handler)();
            }
        };
    };
    fg->DblClick = event(&clsFlexGridEdit::fg_DblClick);
    fg->EnterCell = event(&clsFlexGridEdit::fg_EnterCell);
    fg->LeaveCell = event(&clsFlexGridEdit::fg_LeaveCell);
    fg->Scroll = event(&clsFlexGridEdit::fg_Scroll);
}

void clsFlexGridEdit::ReceiveBoxEvents() {
    const auto self = [weak = weak_from_this(), box = Tb] {
        std::shared_ptr<clsFlexGridEdit> editor = weak.lock();
        return editor != nullptr && editor->Tb == box ? editor : nullptr;
    };
    Tb->KeyDown = [self](int& keyCode) {
        if (const auto editor = self()) {
            editor->Tb_KeyDown(keyCode);
        }
    };
    Tb->KeyPress = [self](int& keyAscii) {
        if (const auto editor = self()) {
            editor->Tb_KeyPress(keyAscii);
        }
    };
    Tb->LostFocus = [self] {
        if (const auto editor = self()) {
            editor->Tb_LostFocus();
        }
    };
}

void clsFlexGridEdit::ReleaseGrid() {
    if (fg == nullptr) {
        return;
    }
    Tb = nullptr;
    if (!gridLife_.expired()) {
        forms::ControlCollection& controls = fg->Parent().Controls;
        PassOver([&] { controls.Remove(boxName_); });
    }
    fg = nullptr;
}

void clsFlexGridEdit::EditBoxBorderStyle(std::int32_t style) {
    editBoxBorderStyle_ = style;
    if (Tb != nullptr) {
        Tb->BorderStyle = style;
    }
}

void clsFlexGridEdit::EnterKeyBehaviour(Int16 flag) {
    enterKeyBehaviour_ = flag;
}

void clsFlexGridEdit::TabKeyBehaviour(Int16 flag) {
    if (flag == 0 && tabKeyBehaviour_ != 0) {
        RestoreTabStops();
    }
    tabKeyBehaviour_ = flag;
}

void clsFlexGridEdit::fg_EnterCell() {
    Tb->Visible = false;
    fg->Tag = fg->Text();
}

void clsFlexGridEdit::fg_LeaveCell() {
    CommitEdit();
}

// The box follows its cell; where the cell is out of sight it waits outside the grid's container.
void clsFlexGridEdit::fg_Scroll() {
    if (!IsOpen()) {
        return;
    }
    if (fg->RowIsVisible(fg->Row) && fg->ColIsVisible(fg->Col)) {
        const double left = fg->Left + fg->CellLeft();
        const double top = fg->Top + fg->CellTop();
        fg->SetFocus();
        Tb->Move(left, top, Tb->Width, Tb->Height);
    } else {
        fg->SetFocus();
        Tb->Move(-Tb->Width, -Tb->Height, Tb->Width, Tb->Height);
    }
}

void clsFlexGridEdit::Tb_LostFocus() {
    if (!IsOpen()) {
        return;
    }
    WriteCell();
    Tb->Visible = false;
    RestoreTabStops();
}

void clsFlexGridEdit::CommitEdit() {
    if (IsOpen()) {
        WriteCell();
        Tb->Visible = false;
    }
}

bool clsFlexGridEdit::IsOpen() const {
    return Tb != nullptr && Tb->Visible;
}

void clsFlexGridEdit::WriteCell() {
    fg->SetText(Tb->Text);
}

void clsFlexGridEdit::SaveTabStops() {
    if (fg == nullptr) {
        return;
    }
    const forms::ControlCollection& controls = fg->Parent().Controls;
    tabStore_.assign(static_cast<std::size_t>(controls.Count()) + 1, TabStopRecord{});
    for (int i = 0; i < controls.Count(); ++i) {
        forms::Control& control = controls.At(i);
        TabStopRecord& record = tabStore_[static_cast<std::size_t>(i) + 1];
        record.IsArray = controls.IsArray(control.Name());
        if (record.IsArray) {
            record.Index = control.Index();
        }
        record.Name = control.Name();
        record.TabStop = control.TabStop;
        control.TabStop = false;
    }
}

void clsFlexGridEdit::RestoreTabStops() {
    if (fg == nullptr) {
        return;
    }
    const forms::ControlCollection& controls = fg->Parent().Controls;
    for (std::size_t i = 1; i < tabStore_.size(); ++i) {
        const TabStopRecord& record = tabStore_[i];
        forms::Control* control = controls.Find(record.Name, record.IsArray ? record.Index : -1);
        if (control != nullptr) {
            control->TabStop = record.TabStop;
        }
    }
    tabStore_.assign(1, TabStopRecord{});
}

}  // namespace zirvo
