// The grid: its texts, rows and columns, the current cell and what raises which event.
#include "forms/ms_flex_grid.h"

#include <algorithm>

#include "base/runtime_fault.h"
#include "forms/application.h"

namespace zirvo::forms {
namespace {

/// More cells than any screen has: a count that is out of hand is refused before memory runs out.
constexpr long long MostCells = 10'000'000;
constexpr int FirstRows = 2;
constexpr int FirstCols = 2;
constexpr double FirstRowHeight = 255;

}  // namespace

MSFlexGrid::MSFlexGrid(Form& form, ControlId id, Control* container)
    : Control(form, std::move(id), container),
      Rows(FirstRows),
      Cols(FirstCols),
      FixedRows(1),
      FixedCols(1),
      Row(1),
      Col(1),
      TopRow(1),
      LeftCol(1),
      Highlight(HighlightKind::Always, [this] { TellView(); }),
      RowHeight(FirstRowHeight, [this] { TellView(); }),
      AllSelected(false, [this] { TellView(); }),
      texts_(static_cast<std::size_t>(FirstRows) * FirstCols),
      colWidths_(FirstCols, -1.0) {
    Rows.SetBy([this](int rows) { SetRows(rows); });
    Cols.SetBy([this](int cols) { SetCols(cols); });
    FixedRows.SetBy([this](int count) { SetFixed(FixedRows, count, Rows); });
    FixedCols.SetBy([this](int count) { SetFixed(FixedCols, count, Cols); });
    Row.SetBy([this](int row) {
        CheckRow(row);
        MoveTo(row, Col);
    });
    Col.SetBy([this](int col) {
        CheckCol(col);
        MoveTo(Row, col);
    });
    TopRow.SetBy([this](int row) { ScrollTo(row, LeftCol); });
    LeftCol.SetBy([this](int col) { ScrollTo(TopRow, col); });
    RowHeight.SetBy([this](double height) {
        if (!(height > 0)) {
            throw RuntimeFault(fault::InvalidCall);
        }
        if (RowHeight.Store(height)) {
            Resized();
        }
    });
}

void MSFlexGrid::UserScaleCells(double scale) {
    const double ratio = FirstRowHeight * scale / RowHeight;
    if (ratio == 1) {
        return;
    }
    for (int col = 0; col < Cols; ++col) {
        SetColWidth(col, ColWidth(col) * ratio);
    }
    RowHeight = FirstRowHeight * scale;
}

void MSFlexGrid::Attach(ControlView* view) {
    Control::Attach(view);
    gridView_ = dynamic_cast<GridView*>(view);
}

void MSFlexGrid::CheckRow(int row) const {
    if (row < 0 || row >= Rows) {
        throw RuntimeFault(fault::SubscriptOutOfRange);
    }
}

void MSFlexGrid::CheckCol(int col) const {
    if (col < 0 || col >= Cols) {
        throw RuntimeFault(fault::SubscriptOutOfRange);
    }
}

std::size_t MSFlexGrid::IndexOf(int row, int col) const {
    CheckRow(row);
    CheckCol(col);
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(Cols) + static_cast<std::size_t>(col);
}

const std::string& MSFlexGrid::TextMatrix(int row, int col) const {
    return texts_[IndexOf(row, col)];
}

void MSFlexGrid::SetTextMatrix(int row, int col, std::string text) {
    std::string& cell = texts_[IndexOf(row, col)];
    if (cell != text) {
        if (recorder_ != nullptr) {
            recorder_->CellChanges(*this, row, col);
        }
        cell = std::move(text);
        if (row == marked_.Row && col == marked_.Col) {
            Unmark();
        }
        if (gridView_ != nullptr) {
            gridView_->CellChanged(row, col);
        }
        TellForm();
    }
}

void MSFlexGrid::SetRows(int rows) {
    Resize(rows, Cols);
}

void MSFlexGrid::SetCols(int cols) {
    Resize(Rows, cols);
}

/// New counts of rows and columns: LeaveCell before the current cell goes, EnterCell behind, Scroll at last.
void MSFlexGrid::Resize(int rows, int cols) {
    if (rows < std::max(1, FixedRows.Get()) || cols < std::max(1, FixedCols.Get()) ||
        static_cast<long long>(rows) * cols > MostCells) {
        throw RuntimeFault(fault::InvalidCall);
    }
    if (rows == Rows && cols == Cols) {
        return;
    }
    const bool currentGoes = Row >= rows || Col >= cols;
    if (currentGoes && HasDataRows()) {
        Raise(LeaveCell);
    }
    if (recorder_ != nullptr) {
        recorder_->RowsChange(*this, rows);
    }
    AllSelected = false;
    if (marked_.Row >= rows || marked_.Col >= cols) {
        marked_ = {};
    }
    if (cols == Cols) {
        texts_.resize(static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols));
    } else {
        std::vector<std::string> texts(static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols));
        for (int row = 0; row < std::min(rows, Rows.Get()); ++row) {
            for (int col = 0; col < std::min(cols, Cols.Get()); ++col) {
                texts[static_cast<std::size_t>(row) * static_cast<std::size_t>(cols) + static_cast<std::size_t>(col)] =
                    std::move(texts_[IndexOf(row, col)]);
            }
        }
        texts_ = std::move(texts);
        colWidths_.resize(static_cast<std::size_t>(cols), -1.0);
    }
    Rows.Store(rows);
    Cols.Store(cols);
    Row.Store(std::min(Row.Get(), rows - 1));
    Col.Store(std::min(Col.Get(), cols - 1));
    const bool scrolled = StoreScroll(TopRow, LeftCol);
    if (gridView_ != nullptr) {
        gridView_->RowsChanged();
    }
    TellForm();
    if (currentGoes && HasDataRows()) {
        Raise(EnterCell);
    }
    if (scrolled) {
        TellScroll();
    }
}

void MSFlexGrid::SetFixed(Property<int>& fixed, int count, int limit) {
    if (count < 0 || count > limit) {
        throw RuntimeFault(fault::InvalidCall);
    }
    if (fixed.Store(count)) {
        const bool scrolled = StoreScroll(TopRow, LeftCol);
        if (gridView_ != nullptr) {
            gridView_->RowsChanged();
        }
        if (scrolled) {
            TellScroll();
        }
    }
}

bool MSFlexGrid::IsDataCell(int row, int col) const {
    return row >= FixedRows && row < Rows && col >= FixedCols && col < Cols;
}

/// The current cell moves, with its events, which a grid without data has not.
void MSFlexGrid::MoveTo(int row, int col) {
    if (row == Row && col == Col) {
        return;
    }
    if (HasDataRows()) {
        Raise(LeaveCell);
    }
    AllSelected = false;
    Row.Store(std::min(row, Rows - 1));  // LeaveCell may have taken rows
    Col.Store(std::min(col, Cols - 1));
    if (gridView_ != nullptr) {
        gridView_->CurrentCellMoved();
    }
    if (HasDataRows()) {
        Raise(EnterCell);
    }
}

void MSFlexGrid::EnterData() {
    if (HasDataRows() && Cols > FixedCols && !IsDataCell(Row, Col)) {
        MoveTo(FixedRows, FixedCols);
    }
}

void MSFlexGrid::UserClickCell(int row, int col) {
    const ControlWatch watch(*this);
    UserFocus();
    if (watch.IsUsable() && IsDataCell(row, col)) {
        App().Dispatch([&] { MoveTo(row, col); });
    }
}

void MSFlexGrid::UserDoubleClickCell(int row, int col) {
    if (IsUsable() && IsDataCell(row, col)) {
        App().Dispatch([this] { Raise(DblClick); });
    }
}

void MSFlexGrid::UserScrollTo(int topRow, int leftCol) {
    if (IsUsable()) {
        App().Dispatch([&] { ScrollTo(topRow, leftCol); });
    } else if (!IsGone() && Visible && StoreScroll(topRow, leftCol) && gridView_ != nullptr) {
        gridView_->Scrolled();
    }
}

void MSFlexGrid::MarkCell(int row, int col) {
    CheckRow(row);
    CheckCol(col);
    marked_ = {row, col};
    BringIntoSight(row, col);
    TellView();
}

void MSFlexGrid::Unmark() {
    if (marked_.Row >= 0) {
        marked_ = {};
        TellView();
    }
}

/// Keys reach a grid that has data, and then a cell of the data.
bool MSFlexGrid::RaisesKeys() {
    if (!HasDataRows() || Cols <= FixedCols) {
        return false;
    }
    App().Dispatch([this] { EnterData(); });
    return true;
}

/// The cell that a key moves to; row -1 for other keys.
MSFlexGrid::Cell MSFlexGrid::KeyTarget(const KeyStroke& stroke) const {
    const int lastRow = Rows - 1;
    const int lastCol = Cols - 1;
    switch (stroke.Code) {
        case key::Left:
            return {Row, std::max(Col - 1, FixedCols.Get())};
        case key::Right:
            return {Row, std::min(Col + 1, lastCol)};
        case key::Up:
            return {std::max(Row - 1, FixedRows.Get()), Col};
        case key::Down:
            return {std::min(Row + 1, lastRow), Col};
        case key::Home:
            return {stroke.Control ? FixedRows.Get() : Row.Get(), FixedCols};
        case key::End:
            return {stroke.Control ? lastRow : Row.Get(), lastCol};
        case key::PageUp:
            return {std::max(Row - PageRows(), FixedRows.Get()), Col};
        case key::PageDown:
            return {std::min(Row + PageRows(), lastRow), Col};
        default:
            return {};
    }
}

bool MSFlexGrid::KeyDefault(const KeyStroke& stroke) {
    if (!stroke.IsModifier()) {
        AllSelected = false;
    }
    if (!HasDataRows() || !IsDataCell(Row, Col)) {
        return true;
    }
    const Cell target = KeyTarget(stroke);
    if (target.Row >= 0) {
        App().Dispatch([&] {
            MoveTo(target.Row, target.Col);
            BringIntoSight();
        });
    }
    return true;
}

}  // namespace zirvo::forms
