// Editing in place: one floating text box that is laid over the current cell of a grid and writes its text back.
// Callers: the data screens, which put a new editor into service each time one of their grids gets the focus.
#pragma once
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/int16.h"
#include "forms/form.h"
#include "forms/ms_flex_grid.h"
#include "forms/text_box.h"

namespace zirvo {

/// The tab stop of one control, as it was before the editing began.
struct TabStopRecord {
    bool IsArray = false;    ///< the control is an element of a control array
    std::int32_t Index = 0;  ///< its index there
    std::string Name;
    bool TabStop = false;
};

/// Makes a grid editable. Owned through a shared_ptr (std::make_shared): an operation that runs while the screen puts
/// another editor in its place keeps this one alive until it has ended. When the last owner lets go, the box goes too,
/// and nothing is committed. Faults of the toolkit while it binds, releases, saves or restores are passed over.
class clsFlexGridEdit : public std::enable_shared_from_this<clsFlexGridEdit> {
public:
    clsFlexGridEdit();
    virtual ~clsFlexGridEdit();
    clsFlexGridEdit(const clsFlexGridEdit&) = delete;
    clsFlexGridEdit& operator=(const clsFlexGridEdit&) = delete;

    /// Binds the editor to the grid: lets the one before go, adds the box to the grid's form in the grid's container
    /// ("tbFgEdit1", or with as many more "1" as make the name free), and receives the grid's key, cell and scroll
    /// events from now on.
    virtual void FlexGridControl(forms::MSFlexGrid& grid);
    /// Border of the box: 0 none, 1 single. Takes effect at once.
    virtual void EditBoxBorderStyle(std::int32_t style);
    /// Is stored only: Enter always goes to the next cell.
    virtual void EnterKeyBehaviour(Int16 flag);
    /// Not 0: the form's other controls lose their tab stops while a cell is being edited. Going to 0 gives them back.
    virtual void TabKeyBehaviour(Int16 flag);

    virtual void fg_KeyDown(int& keyCode);
    virtual void fg_DblClick();
    virtual void fg_KeyPress(int& keyAscii);
    virtual void fg_EnterCell();
    virtual void fg_LeaveCell();
    virtual void fg_Scroll();
    virtual void Tb_KeyPress(int& keyAscii);
    virtual void Tb_KeyDown(int& keyCode);
    virtual void Tb_LostFocus();

    /// Opens the box over the current cell.
    /// @param key  the character that began it, or a code without one (0, 8, 13, 27, 32; 127 for Delete, which empties
    ///             the cell and opens nothing). Becomes 0 where it is a character that no number holds.
    virtual void BeginEdit(int& key);
    /// Commits, goes to another cell and opens the box there: 1 next along the row, 2 next down the column, 3 up,
    /// 4 back along the row. 0 only gives the grid the focus; any other direction does nothing.
    virtual void MoveEdit(int direction);
    /// Keeps the tab stop of every control of the form and takes it away.
    virtual void SaveTabStops();
    virtual void RestoreTabStops();
    /// Takes the box off the form and lets the grid go. Commits nothing.
    virtual void ReleaseGrid();
    /// If the box is visible, its text goes into the cell and the box is hidden.
    virtual void CommitEdit();

    /// The floating box, or nullptr while no grid is in service. `BoxName` is its name in the form's controls.
    forms::TextBox* Box() const { return Tb; }
    const std::string& BoxName() const { return boxName_; }
    bool IsMoving() const { return moving_; }

private:
    void ReceiveGridEvents();
    void ReceiveBoxEvents();
    void AddBox();
    void PlaceBox();
    bool IsOpen() const;
    void WriteCell();
    void GoNextAlongRow();
    void GoNextDownColumn();
    void GoUp();
    void GoBackAlongRow();

    forms::MSFlexGrid* fg = nullptr;
    std::weak_ptr<const void> gridLife_;  ///< the form may go first, and the grid with it
    forms::TextBox* Tb = nullptr;
    std::string boxName_;
    std::vector<TabStopRecord> tabStore_;  ///< from 1; the element at 0 is empty
    std::int32_t editBoxBorderStyle_ = 0;
    Int16 enterKeyBehaviour_ = 0;
    Int16 tabKeyBehaviour_ = 0;
    bool moving_ = false;
};

}  // namespace zirvo
