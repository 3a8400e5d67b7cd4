// What can be undone on a screen of tables: every change of their cells, counts and rows, and, where the data have been
// replaced as a whole (new data, an empty screen, an import), the rest of the screen with it.
//
// Notation
//   act    what one outermost handler does (Dispatch): all its changes are one step
//   step   what it takes to go back behind an act: for each table the count as it was, the texts of the cells that
//          were there before and have changed or gone, and the screen's other controls where they changed with the data
// Steps
//   The history hears of each change of a cell and of the rows before it is made, keeps a text the first time that its
//   cell changes in an act, and closes the step when the act has ended. To undo is an act itself, whose own step is the
//   one that redoes it. Counts go through their bars and captions, with their events; nothing else raises one.
// Special cases
//   An act that changes no data is no step: names of files have the undoing of their own boxes. The choice where the
//   data come from is one also where there are none yet, so that no step is taken back on the screen of another choice.
//   A held arrow of a count is one step with its press. Where all tables that have rows are disabled the data cannot
//   change, and nothing is undone or redone.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "forms/application.h"
#include "forms/ms_flex_grid.h"
#include "forms/simple_controls.h"
#include "grid/packed_cells.h"

namespace zirvo {

/// The grid of a table, the caption that holds its count, and the bar that sets it.
struct CountedTable {
    forms::Label& Count;
    forms::VScrollBar& Bar;
    forms::MSFlexGrid& Grid;
};

class EditHistory : public forms::GridRecorder, public forms::ActListener {
public:
    /// @param form  whose other controls go along where the data are replaced; boxes that come later do not count
    EditHistory(forms::Form& form, std::vector<CountedTable> tables);
    ~EditHistory() override;
    EditHistory(const EditHistory&) = delete;
    EditHistory& operator=(const EditHistory&) = delete;

    /// Takes the last step back, as an act of the user; the current cell goes to the first cell that changed by it.
    /// False if there is none, or the data cannot change now.
    bool Undo() { return Take(undo_); }
    bool Redo() { return Take(redo_); }
    /// Whether Undo, or Redo, would bring the screen of other data.
    bool UndoReplaces() const { return Replaces(undo_); }
    bool RedoReplaces() const { return Replaces(redo_); }
    /// What stands now is the beginning; also within the act that brought it.
    void Forget();

    std::size_t UndoSteps() const { return undo_.size(); }
    std::size_t RedoSteps() const { return redo_.size(); }
    /// Memory of all steps, roughly.
    std::size_t Bytes() const { return bytes_; }

    static constexpr std::size_t MostSteps = 1000;
    /// So many are kept however large they are; beyond them the oldest go where all take more than LargeBytes.
    static constexpr std::size_t LeastSteps = 200;
    static constexpr std::size_t LargeBytes = 32U << 20U;

    void CellChanges(const forms::MSFlexGrid& grid, int row, int col) override;
    void RowsChange(const forms::MSFlexGrid& grid, int rows) override;
    void ActEnded() override;

private:
    /// The controls beside the tables as they stood at one moment. Steps share it.
    struct Screen {
        std::vector<char> Enabled;
        std::vector<char> Chosen;
        std::vector<std::string> Texts;
        std::vector<std::string> Headings;
        std::vector<double> Widths;
        std::vector<double> RowHeights;  ///< by which the user's size of texts is told, in which the widths are
        std::vector<char> GridEnabled;   ///< which a changed count sets too
        bool operator==(const Screen&) const = default;
        bool SameBesideTheGrids(const Screen& other) const;
    };
    struct Count {
        std::string Caption;
        int Bar = 0;
        int Rows = 0;
        bool operator==(const Count&) const = default;
    };
    struct TableStep {
        Count Before;
        std::vector<PackedCells> Cells;  ///< of acts that were joined, the first one first
        bool HasCells() const;
    };
    struct Step {
        std::vector<TableStep> Tables;
        std::shared_ptr<const Screen> Replaced;  ///< the rest of the screen; none where only cells and counts changed
        std::size_t Bytes() const;
    };
    using Steps = std::deque<Step>;

    bool MayChange() const;
    bool Replaces(const Steps& steps) const {
        return MayChange() && !steps.empty() && steps.back().Replaced != nullptr;
    }
    bool Take(Steps& from);
    void Apply(const Step& step);
    void ApplyScreen(const Screen& screen);
    void ShowFirstChange(const Step& step);
    std::size_t TableOf(const forms::MSFlexGrid& grid) const;
    Count CountNow(std::size_t table) const;
    Screen ScreenNow() const;
    void Keep(std::size_t table, int row, int col);
    bool AnyChange() const;
    Step Closed();
    bool JoinsTheLast(const Step& step) const;
    void Push(Steps& steps, Step step);
    void Clear(Steps& steps);
    void BeginAct();

    forms::Form& form_;
    std::vector<CountedTable> tables_;
    std::vector<forms::Control*> controls_;  ///< all but the grids
    std::vector<forms::OptionButton*> options_;
    std::vector<forms::TextBox*> boxes_;

    Steps undo_;
    Steps redo_;
    std::size_t bytes_ = 0;
    Steps* receiver_ = nullptr;  ///< of the step of the act that is running, while it undoes or redoes

    // The act that is running, and what stood before it.
    std::shared_ptr<const Screen> screen_;
    std::vector<Count> counts_;
    std::vector<PackedCells> kept_;
    std::vector<std::vector<bool>> isKept_;
};

}  // namespace zirvo
