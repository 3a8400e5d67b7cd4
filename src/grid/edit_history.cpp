// Undoing and redoing, see edit_history.h.
#include "grid/edit_history.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "forms/form.h"

namespace zirvo {

using forms::MSFlexGrid;

bool EditHistory::TableStep::HasCells() const {
    return std::any_of(Cells.begin(), Cells.end(), [](const PackedCells& cells) { return !cells.IsEmpty(); });
}

bool EditHistory::Screen::SameBesideTheGrids(const Screen& other) const {
    return Enabled == other.Enabled && Chosen == other.Chosen && Texts == other.Texts && Headings == other.Headings &&
           Widths == other.Widths;
}

std::size_t EditHistory::Step::Bytes() const {
    std::size_t bytes = sizeof(Step);
    for (const TableStep& table : Tables) {
        bytes += sizeof(TableStep);
        for (const PackedCells& cells : table.Cells) {
            bytes += sizeof(PackedCells) + cells.Bytes();
        }
    }
    return bytes;
}

EditHistory::EditHistory(forms::Form& form, std::vector<CountedTable> tables)
    : form_(form), tables_(std::move(tables)) {
    for (forms::Control* control : form.Controls) {
        if (dynamic_cast<MSFlexGrid*>(control) == nullptr) {
            controls_.push_back(control);
        }
        if (auto* option = dynamic_cast<forms::OptionButton*>(control)) {
            options_.push_back(option);
        } else if (auto* box = dynamic_cast<forms::TextBox*>(control)) {
            boxes_.push_back(box);
        }
    }
    kept_.resize(tables_.size());
    isKept_.resize(tables_.size());
    Forget();
    for (const CountedTable& table : tables_) {
        table.Grid.RecordBy(this);
    }
    form.App().Listen(*this);
}

EditHistory::~EditHistory() {
    form_.App().Ignore(*this);  // the grids may be gone by now
}

// What stands now ---------------------------------------------------------------------------------------------------

EditHistory::Count EditHistory::CountNow(std::size_t table) const {
    const CountedTable& its = tables_[table];
    return {its.Count.Caption, its.Bar.Value, its.Grid.Rows};
}

EditHistory::Screen EditHistory::ScreenNow() const {
    Screen now;
    for (const forms::Control* control : controls_) {
        now.Enabled.push_back(control->Enabled ? 1 : 0);
    }
    for (const forms::OptionButton* option : options_) {
        now.Chosen.push_back(option->Value ? 1 : 0);
    }
    for (const forms::TextBox* box : boxes_) {
        now.Texts.push_back(box->Text);
    }
    for (const CountedTable& table : tables_) {
        now.GridEnabled.push_back(table.Grid.Enabled ? 1 : 0);
        now.RowHeights.push_back(table.Grid.RowHeight);
        for (int col = table.Grid.FixedCols; col < table.Grid.Cols; ++col) {
            now.Headings.push_back(table.Grid.TextMatrix(0, col));
            now.Widths.push_back(table.Grid.ColWidth(col));
        }
    }
    return now;
}

void EditHistory::BeginAct() {
    counts_.clear();
    for (std::size_t t = 0; t < tables_.size(); ++t) {
        counts_.push_back(CountNow(t));
        if (!kept_[t].IsEmpty()) {
            kept_[t] = {};
            isKept_[t].clear();
        }
    }
}

void EditHistory::Clear(Steps& steps) {
    for (const Step& step : steps) {
        bytes_ -= step.Bytes();
    }
    steps.clear();
}

void EditHistory::Forget() {
    Clear(undo_);
    Clear(redo_);
    screen_ = std::make_shared<const Screen>(ScreenNow());
    BeginAct();
}

// The act that is running -------------------------------------------------------------------------------------------

std::size_t EditHistory::TableOf(const MSFlexGrid& grid) const {
    std::size_t t = 0;
    while (t < tables_.size() && &tables_[t].Grid != &grid) {
        ++t;
    }
    return t;
}

/// Keeps the text that the cell had before the act: not of a cell that has come in it, nor a second time.
void EditHistory::Keep(std::size_t table, int row, int col) {
    const MSFlexGrid& grid = tables_[table].Grid;
    if (row < grid.FixedRows || row >= counts_[table].Rows || col < grid.FixedCols) {
        return;
    }
    std::vector<bool>& isKept = isKept_[table];
    if (isKept.empty()) {
        isKept.assign(static_cast<std::size_t>(counts_[table].Rows) * static_cast<std::size_t>(grid.Cols), false);
    }
    const int index = row * grid.Cols + col;
    if (!isKept[static_cast<std::size_t>(index)]) {
        isKept[static_cast<std::size_t>(index)] = true;
        kept_[table].Add(index, grid.TextMatrix(row, col));
    }
}

void EditHistory::CellChanges(const MSFlexGrid& grid, int row, int col) {
    if (const std::size_t table = TableOf(grid); table < tables_.size()) {
        Keep(table, row, col);
    }
}

void EditHistory::RowsChange(const MSFlexGrid& grid, int rows) {
    if (const std::size_t table = TableOf(grid); table < tables_.size()) {
        for (int row = rows; row < grid.Rows; ++row) {
            for (int col = grid.FixedCols; col < grid.Cols; ++col) {
                Keep(table, row, col);
            }
        }
    }
}

bool EditHistory::AnyChange() const {
    for (std::size_t t = 0; t < tables_.size(); ++t) {
        if (!(CountNow(t) == counts_[t])) {
            return true;
        }
        bool differs = false;
        const MSFlexGrid& grid = tables_[t].Grid;
        kept_[t].Each([&](std::int32_t index, std::string_view text) {
            differs = differs || grid.TextMatrix(index / grid.Cols, index % grid.Cols) != text;
        });
        if (differs) {
            return true;
        }
    }
    return false;
}

/// The step of the act, without the rest of the screen.
EditHistory::Step EditHistory::Closed() {
    Step step;
    for (std::size_t t = 0; t < tables_.size(); ++t) {
        TableStep& table = step.Tables.emplace_back();
        table.Before = counts_[t];
        if (!kept_[t].IsEmpty()) {
            kept_[t].Trim();
            table.Cells.push_back(std::exchange(kept_[t], {}));
            isKept_[t].clear();
        }
    }
    return step;
}

void EditHistory::ActEnded() {
    const std::shared_ptr<const Screen> before = screen_;
    if (Screen now = ScreenNow(); !(now == *screen_)) {
        screen_ = std::make_shared<const Screen>(std::move(now));
    }
    Steps* receiver = std::exchange(receiver_, nullptr);
    if (!AnyChange() && before->Chosen == screen_->Chosen) {
        BeginAct();
        return;
    }
    Step step = Closed();
    step.Replaced = before->SameBesideTheGrids(*screen_) ? nullptr : before;
    BeginAct();
    if (receiver != nullptr) {
        Push(*receiver, std::move(step));
    } else if (JoinsTheLast(step)) {
        for (std::size_t t = 0; t < tables_.size(); ++t) {
            std::vector<PackedCells>& cells = undo_.back().Tables[t].Cells;
            bytes_ -= undo_.back().Bytes();
            std::move(step.Tables[t].Cells.begin(), step.Tables[t].Cells.end(), std::back_inserter(cells));
            bytes_ += undo_.back().Bytes();
        }
    } else {
        Clear(redo_);
        Push(undo_, std::move(step));
    }
}

/// Both are steps of one bar's count and of nothing else, and the arrow was held all the time.
bool EditHistory::JoinsTheLast(const Step& step) const {
    if (undo_.empty() || !redo_.empty() || step.Replaced != nullptr || undo_.back().Replaced != nullptr) {
        return false;
    }
    std::size_t changed = 0;
    for (std::size_t t = 0; t < tables_.size(); ++t) {
        const Count& before = step.Tables[t].Before;
        const Count& earlier = undo_.back().Tables[t].Before;
        const bool countMoves = before.Bar != tables_[t].Bar.Value;
        if (countMoves != (earlier.Bar != before.Bar) || (countMoves && !tables_[t].Bar.IsHeld()) ||
            (!countMoves && (step.Tables[t].HasCells() || undo_.back().Tables[t].HasCells()))) {
            return false;
        }
        changed += countMoves ? 1 : 0;
    }
    return changed == 1;
}

void EditHistory::Push(Steps& steps, Step step) {
    bytes_ += step.Bytes();
    steps.push_back(std::move(step));
    const auto tooMany = [&] { return steps.size() > MostSteps || (steps.size() > LeastSteps && bytes_ > LargeBytes); };
    while (tooMany()) {
        bytes_ -= steps.front().Bytes();
        steps.pop_front();
    }
}

// Going back --------------------------------------------------------------------------------------------------------

bool EditHistory::MayChange() const {
    bool anyRows = false;
    for (const CountedTable& table : tables_) {
        if (table.Grid.HasDataRows() && table.Grid.IsUsable()) {
            return true;
        }
        anyRows = anyRows || table.Grid.HasDataRows();
    }
    return !anyRows;
}

bool EditHistory::Take(Steps& from) {
    if (from.empty() || !MayChange()) {
        return false;
    }
    Steps& receiver = &from == &undo_ ? redo_ : undo_;
    form_.App().Dispatch([&] {
        receiver_ = &receiver;
        bytes_ -= from.back().Bytes();
        const Step step = std::move(from.back());
        from.pop_back();
        Apply(step);
        ShowFirstChange(step);
    });
    return true;
}

void EditHistory::Apply(const Step& step) {
    for (std::size_t t = 0; t < tables_.size(); ++t) {
        const CountedTable& table = tables_[t];
        const TableStep& its = step.Tables[t];
        table.Bar.Value = its.Before.Bar;  // which writes the caption
        table.Count.Caption = its.Before.Caption;
        table.Grid.Rows = its.Before.Rows;
        for (auto cells = its.Cells.rbegin(); cells != its.Cells.rend(); ++cells) {
            cells->Each([&](std::int32_t index, std::string_view text) {
                const int row = index / table.Grid.Cols;
                if (row < table.Grid.Rows) {
                    table.Grid.SetTextMatrix(row, index % table.Grid.Cols, std::string(text));
                }
            });
        }
    }
    if (step.Replaced != nullptr) {
        ApplyScreen(*step.Replaced);
    }
}

/// The buttons of the choice are set without their Click, which would begin all over again.
void EditHistory::ApplyScreen(const Screen& screen) {
    for (std::size_t i = 0; i < options_.size(); ++i) {
        options_[i]->Value.Store(screen.Chosen[i] != 0);
    }
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
        boxes_[i]->Text = screen.Texts[i];
    }
    std::size_t heading = 0;
    for (std::size_t t = 0; t < tables_.size(); ++t) {
        MSFlexGrid& grid = tables_[t].Grid;
        const bool sameSize = grid.RowHeight == screen.RowHeights[t];
        const double scale = sameSize ? 1 : grid.RowHeight / screen.RowHeights[t];
        for (int col = grid.FixedCols; col < grid.Cols; ++col, ++heading) {
            grid.SetTextMatrix(0, col, screen.Headings[heading]);
            grid.SetColWidth(col, screen.Widths[heading] * scale);
        }
    }
    for (std::size_t i = 0; i < controls_.size(); ++i) {
        controls_[i]->Enabled = screen.Enabled[i] != 0;
    }
    for (std::size_t t = 0; t < tables_.size(); ++t) {
        tables_[t].Grid.Enabled = screen.GridEnabled[t] != 0;
    }
}

void EditHistory::ShowFirstChange(const Step& step) {
    for (std::size_t t = 0; t < tables_.size(); ++t) {
        MSFlexGrid& grid = tables_[t].Grid;
        std::int32_t first = -1;
        for (const PackedCells& cells : step.Tables[t].Cells) {
            cells.Each([&](std::int32_t index, std::string_view /*text*/) {
                first = first < 0 ? index : std::min(first, index);
            });
        }
        if (first >= 0 && first / grid.Cols < grid.Rows) {
            grid.Row = first / grid.Cols;
            grid.Col = first % grid.Cols;
            static_cast<void>(grid.CellTop());  // brings it into sight
            return;
        }
    }
}

}  // namespace zirvo
