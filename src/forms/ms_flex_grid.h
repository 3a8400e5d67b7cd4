// The grid of the data screens: texts in rows and columns under fixed headings, a current cell, and a scroll position.
// Its geometry is worked out here, in twips, so that an editor's box lies over its cell with or without a screen; the
// view draws by the same numbers.
//
// What is shown: the border, then the fixed rows and columns, then rows from TopRow and columns from LeftCol as far as
// the area reaches; a vertical bar at the right edge while the rows do not all fit, a horizontal one at the bottom
// while the columns do not.
#pragma once
#include <string>
#include <vector>

#include "forms/control.h"

namespace zirvo::forms {

class MSFlexGrid;

class GridView : public ControlView {
public:
    virtual void CellChanged(int row, int col) = 0;
    /// Rows have come or gone, or many cells have changed.
    virtual void RowsChanged() = 0;
    /// TopRow or LeftCol has changed.
    virtual void Scrolled() = 0;
    /// The current cell has moved.
    virtual void CurrentCellMoved() = 0;
};

/// Hears of every change of a cell's text and of the rows, right before it is made: so that it can be undone.
class GridRecorder {
public:
    virtual ~GridRecorder() = default;
    /// The cell is about to get another text.
    virtual void CellChanges(const MSFlexGrid& grid, int row, int col) = 0;
    /// The grid is about to have so many rows: those from there on go, or new ones come.
    virtual void RowsChange(const MSFlexGrid& grid, int rows) = 0;
};

/// Which cells carry the filled marking of the current cell: 0 none, 1 the current one.
enum class HighlightKind { Never = 0, Always = 1 };

class MSFlexGrid : public Control {
public:
    MSFlexGrid(Form& form, ControlId id, Control* container = nullptr);

    /// At least FixedRows. Rows that stay keep their texts; new ones are empty. When the current row goes: LeaveCell
    /// before the rows go, then Row is clamped, EnterCell after. Outside: fault 5.
    Property<int> Rows;
    Property<int> Cols;
    Property<int> FixedRows;
    Property<int> FixedCols;
    /// The current cell; a change raises LeaveCell before and EnterCell after. Outside the grid: fault 9.
    Property<int> Row;
    Property<int> Col;
    Property<int> TopRow;   ///< first data row in sight; clamped, raises Scroll when it changes
    Property<int> LeftCol;  ///< first data column in sight
    Property<HighlightKind> Highlight;

    std::function<void()> EnterCell;
    std::function<void()> LeaveCell;
    std::function<void()> Scroll;
    std::function<void()> DblClick;

    /// Text of a cell; row and column from 0. Outside: fault 9.
    const std::string& TextMatrix(int row, int col) const;
    void SetTextMatrix(int row, int col, std::string text);
    /// Text of the current cell.
    const std::string& Text() const { return TextMatrix(Row, Col); }
    void SetText(std::string text) { SetTextMatrix(Row, Col, std::move(text)); }

    /// Width of a column [twips], 0 or more; one that nobody has set is DefaultColWidth. Outside: fault 9.
    double ColWidth(int col) const;
    void SetColWidth(int col, double width);
    /// Height of every row [twips], above 0; else fault 5.
    Property<double> RowHeight;
    /// The user has chosen another size for all texts: rows and columns grow and shrink with it. 1 is as told.
    void UserScaleCells(double scale);

    /// Place and size of the current cell [twips], relative to the grid. Reading the place of a cell that is not wholly
    /// in sight brings it wholly into sight, and then raises Scroll.
    double CellLeft();
    double CellTop();
    double CellWidth() const;
    double CellHeight() const;
    /// Wholly in sight; of a cell larger than the area, its top left corner.
    bool RowIsVisible(int row) const;
    bool ColIsVisible(int col) const;

    /// Left edge of a column and top edge of a row at the present scroll position [twips], relative to the grid, also
    /// where they lie outside the area. For the view.
    double ColLeft(int col) const;
    double RowTop(int row) const;
    /// The area of the data cells and headings: all but the border and the bars [twips].
    double AreaWidth() const;
    double AreaHeight() const;
    bool HasVerticalBar() const;
    bool HasHorizontalBar() const;
    /// The largest TopRow and LeftCol that leave no needless blank at the end.
    int LastTopRow() const;
    int LastLeftCol() const;
    /// The cell at a point of the grid [twips]; row or column -1 outside of all cells.
    struct Cell {
        int Row = -1;
        int Col = -1;
    };
    Cell CellAt(double x, double y) const;
    /// Whole data rows that the area holds below the headings, at least 1: what PgUp and PgDn go by.
    int PageRows() const;

    static constexpr double Border = 15;
    static constexpr double BarThickness = 240;
    static constexpr double DefaultColWidth = 960;

    /// The user clicks a cell: focus first; a data cell becomes the current one; a heading cell takes the focus only.
    void UserClickCell(int row, int col);
    /// The user double-clicks a cell: raises DblClick on a data cell.
    void UserDoubleClickCell(int row, int col);
    /// The user moves a bar of the grid, or turns the wheel over it. A disabled grid scrolls too, so that its data can
    /// be read, and raises nothing.
    void UserScrollTo(int topRow, int leftCol);
    /// Called on receiving the focus, before GotFocus: a current cell in a heading moves to (1, 1) if there are data
    /// rows; nothing scrolls.
    void EnterData();
    bool HasDataRows() const { return Rows > FixedRows; }

    /// All data cells and their headings are selected, to be copied. Ends when the current cell moves, rows come or go,
    /// another key is struck, or the focus comes anew.
    Property<bool> AllSelected;
    /// Brings a cell into sight, as far as the scroll position allows, and marks it as the one to be mended; the
    /// current cell stays. A change of its text takes the mark away. Outside the grid: fault 9.
    void MarkCell(int row, int col);
    void Unmark();
    /// Row and column -1 where no cell is marked.
    Cell MarkedCell() const { return marked_; }

    /// Who hears of every change; nobody: nullptr.
    void RecordBy(GridRecorder* recorder) { recorder_ = recorder; }

    void Attach(ControlView* view) override;

protected:
    bool KeyDefault(const KeyStroke& stroke) override;
    bool RaisesKeys() override;
    void ReceivesFocus() override {
        AllSelected = false;
        EnterData();
    }
    void Resized() override { ScrollTo(TopRow, LeftCol); }

private:
    struct Bars {
        bool Vertical = false;
        bool Horizontal = false;
    };

    bool IsDataCell(int row, int col) const;
    Cell KeyTarget(const KeyStroke& stroke) const;
    void MoveTo(int row, int col);
    void BringIntoSight() { BringIntoSight(Row, Col); }
    void BringIntoSight(int row, int col);
    void ScrollTo(int topRow, int leftCol);
    bool StoreScroll(int topRow, int leftCol);
    void TellScroll();
    void SetRows(int rows);
    void SetCols(int cols);
    void Resize(int rows, int cols);
    void SetFixed(Property<int>& fixed, int count, int limit);
    void CheckRow(int row) const;
    void CheckCol(int col) const;
    double WidthOf(int firstCol, int endCol) const;
    Bars NeededBars() const;
    std::size_t IndexOf(int row, int col) const;

    GridView* gridView_ = nullptr;
    GridRecorder* recorder_ = nullptr;
    Cell marked_;

    std::vector<std::string> texts_;  ///< row by row, Rows x Cols
    std::vector<double> colWidths_;   ///< one for each column; negative: not set
};

}  // namespace zirvo::forms
