// Tests of the grid's texts, its current cell and its events.
#include "forms/ms_flex_grid.h"

#include <gtest/gtest.h>

#include "base/fault_of.h"
#include "forms/grid_form.h"

namespace zirvo::forms {
namespace {

using Grid = GridScreen;

TEST_F(Grid, HoldsATextForEachCell) {
    grid.SetTextMatrix(0, 1, "MODULUS");
    grid.SetTextMatrix(4, 3, "35000");
    EXPECT_EQ(grid.TextMatrix(0, 1), "MODULUS");
    EXPECT_EQ(grid.TextMatrix(4, 3), "35000");
    EXPECT_EQ(grid.TextMatrix(3, 3), "");
    grid.Row = 4;
    grid.Col = 3;
    EXPECT_EQ(grid.Text(), "35000");
    grid.SetText("1");
    EXPECT_EQ(grid.TextMatrix(4, 3), "1");
}

TEST_F(Grid, ACellOutsideIsFault9) {
    EXPECT_EQ(FaultOf([&] { grid.TextMatrix(5, 0); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(FaultOf([&] { grid.TextMatrix(0, 4); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(FaultOf([&] { grid.TextMatrix(-1, 0); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(FaultOf([&] { grid.SetTextMatrix(0, -1, "x"); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(FaultOf([&] { grid.Row = 5; }), fault::SubscriptOutOfRange);
    EXPECT_EQ(FaultOf([&] { grid.Col = -1; }), fault::SubscriptOutOfRange);
    EXPECT_EQ(FaultOf([&] { grid.ColWidth(4); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(FaultOf([&] { grid.SetColWidth(-1, 5); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(FaultOf([&] { grid.RowIsVisible(5); }), fault::SubscriptOutOfRange);
}

TEST_F(Grid, CountsOutsideAreFault5) {
    EXPECT_EQ(FaultOf([&] { grid.Rows = 0; }), fault::InvalidCall);
    EXPECT_EQ(FaultOf([&] { grid.Cols = 0; }), fault::InvalidCall);
    EXPECT_EQ(FaultOf([&] { grid.Rows = 2147483647; }), fault::InvalidCall);
    EXPECT_EQ(FaultOf([&] { grid.FixedRows = 6; }), fault::InvalidCall);
    EXPECT_EQ(FaultOf([&] { grid.RowHeight = 0; }), fault::InvalidCall);
    EXPECT_EQ(FaultOf([&] { grid.SetColWidth(0, -1); }), fault::InvalidCall);
    EXPECT_EQ(grid.Rows, 5);
    EXPECT_EQ(grid.Cols, 4);
}

TEST_F(Grid, RowsThatStayKeepTheirTextsAndNewOnesAreEmpty) {
    grid.SetTextMatrix(2, 2, "kept");
    grid.SetTextMatrix(3, 2, "lost");
    grid.Rows = 3;
    grid.Rows = 6;
    EXPECT_EQ(grid.TextMatrix(2, 2), "kept");
    EXPECT_EQ(grid.TextMatrix(3, 2), "");
    EXPECT_EQ(grid.TextMatrix(5, 3), "");
}

TEST_F(Grid, ColumnsThatStayKeepTheirTextsAndWidths) {
    grid.SetTextMatrix(2, 1, "kept");
    grid.SetTextMatrix(2, 3, "lost");
    grid.SetColWidth(1, 500);
    grid.Cols = 3;
    grid.Cols = 7;
    EXPECT_EQ(grid.TextMatrix(2, 1), "kept");
    EXPECT_EQ(grid.TextMatrix(2, 3), "");
    EXPECT_EQ(grid.TextMatrix(4, 6), "");
    EXPECT_EQ(grid.ColWidth(1), 500);
    EXPECT_EQ(grid.ColWidth(6), MSFlexGrid::DefaultColWidth);
}

TEST_F(Grid, AChangedRowOrColumnRaisesLeaveCellBeforeAndEnterCellAfter) {
    grid.Row = 3;
    EXPECT_EQ(form.Taken(), (Lines{"leave 1 1", "enter 3 1"}));
    grid.Col = 2;
    EXPECT_EQ(form.Taken(), (Lines{"leave 3 1", "enter 3 2"}));
    grid.Row = 3;
    grid.Col = 2;
    EXPECT_EQ(form.Taken(), Lines{});
}

TEST_F(Grid, WhenTheCurrentRowGoesLeaveCellComesBeforeTheRowsGoAndEnterCellAfter) {
    grid.Row = 4;
    grid.SetText("last");
    grid.LeaveCell = [&] { form.Note("leave " + grid.TextMatrix(4, 1) + " of " + std::to_string(grid.Rows)); };
    form.Taken();
    grid.Rows = 3;
    EXPECT_EQ(form.Taken(), (Lines{"leave last of 5", "enter 2 1"}));
    EXPECT_EQ(grid.Row, 2);
}

TEST_F(Grid, RowsThatComeOrGoBelowTheCurrentOneRaiseNothing) {
    grid.Rows = 3;
    grid.Rows = 10;
    EXPECT_EQ(form.Taken(), Lines{});
}

TEST_F(Grid, WhenTheLastDataRowGoesThereIsNoCellToEnter) {
    grid.Rows = 1;
    EXPECT_EQ(form.Taken(), Lines{"leave 1 1"});
    EXPECT_EQ(grid.Row, 0);
    EXPECT_FALSE(grid.HasDataRows());
}

TEST_F(Grid, WithoutDataRowsThereAreNoKeyDoubleClickOrCellEvents) {
    grid.Rows = 1;
    grid.SetFocus();
    form.Taken();
    Type(form, "5\r ");
    Press(form, key::Down);
    Press(form, key::Delete);
    grid.UserDoubleClickCell(0, 1);
    grid.Col = 2;
    grid.Row = 0;
    EXPECT_EQ(form.Taken(), Lines{});
    EXPECT_EQ(grid.Col, 2);
    Press(form, key::Tab);
    EXPECT_EQ(FocusOf(form), "Text1");  // Tab leaves it all the same
}

TEST_F(Grid, RowsThatComeBackLeaveTheCurrentCellInTheHeading) {
    grid.Rows = 1;
    grid.Rows = 5;
    EXPECT_EQ(grid.Row, 0);
    form.Taken();
    grid.SetFocus();
    EXPECT_EQ(form.Taken(), (Lines{"leave 0 1", "enter 1 1", "got Grid"}));
}

TEST_F(Grid, OnReceivingTheFocusACellInTheHeadingsMovesIntoTheDataBeforeGotFocus) {
    grid.Row = 0;
    grid.Col = 3;
    form.Taken();
    grid.UserFocus();
    EXPECT_EQ(form.Taken(), (Lines{"leave 0 3", "enter 1 1", "got Grid"}));
}

TEST_F(Grid, OnReceivingTheFocusNothingScrolls) {
    grid.Rows = 100;
    grid.TopRow = 50;
    grid.Row = 0;
    form.Taken();
    grid.UserFocus();
    EXPECT_EQ(grid.Row, 1);
    EXPECT_EQ(grid.TopRow, 50);
    EXPECT_EQ(form.Taken(), (Lines{"leave 0 1", "enter 1 1", "got Grid"}));
}

TEST_F(Grid, ACellInTheDataStaysOnReceivingTheFocus) {
    grid.Row = 3;
    form.Taken();
    grid.UserFocus();
    EXPECT_EQ(form.Taken(), Lines{"got Grid"});
}

TEST_F(Grid, AKeyFindsACellOfTheDataAlsoWhereTheRowsCameWhileItHadTheFocus) {
    grid.Rows = 1;
    grid.SetFocus();
    grid.Rows = 5;
    form.Taken();
    Type(form, "5");
    EXPECT_EQ(form.Taken(), (Lines{"leave 0 1", "enter 1 1", "down 53", "press 53"}));
}

TEST_F(Grid, AClickTakesTheFocusAndThenMovesTheCell) {
    grid.UserClickCell(3, 2);
    EXPECT_EQ(form.Taken(), (Lines{"got Grid", "leave 1 1", "enter 3 2"}));
}

TEST_F(Grid, AClickOnAHeadingTakesTheFocusOnly) {
    grid.UserClickCell(0, 2);
    grid.UserClickCell(2, 0);
    grid.UserClickCell(-1, -1);
    grid.UserClickCell(5, 1);
    EXPECT_EQ(form.Taken(), Lines{"got Grid"});
    EXPECT_EQ(grid.Row, 1);
    EXPECT_EQ(grid.Col, 1);
}

TEST_F(Grid, ADoubleClickCountsOnADataCellOnly) {
    grid.UserDoubleClickCell(0, 2);
    grid.UserDoubleClickCell(2, 0);
    EXPECT_EQ(form.Taken(), Lines{});
    grid.UserDoubleClickCell(2, 2);
    EXPECT_EQ(form.Taken(), Lines{"double"});
}

TEST_F(Grid, ADisabledGridHearsNothingOfClicks) {
    grid.Rows = 100;
    grid.Enabled = false;
    form.Taken();
    grid.UserClickCell(2, 2);
    grid.UserDoubleClickCell(2, 2);
    EXPECT_EQ(form.Taken(), Lines{});
    EXPECT_EQ(grid.Row, 1);
    EXPECT_FALSE(grid.HasFocus());
}

struct GridKeys : GridScreen {
    void SetUp() override {
        grid.Rows = 31;  // 30 data rows, of which 9 are in sight
        grid.SetFocus();
        form.Taken();
    }
    std::string CellAfter(int code, bool control = false) {
        KeyStroke stroke = StrokeOfKey(code);
        stroke.Control = control;
        form.Strike(stroke);
        return std::to_string(grid.Row) + " " + std::to_string(grid.Col);
    }
};

TEST_F(GridKeys, ArrowsMoveTheCellByOne) {
    EXPECT_EQ(CellAfter(key::Down), "2 1");
    EXPECT_EQ(CellAfter(key::Right), "2 2");
    EXPECT_EQ(CellAfter(key::Up), "1 2");
    EXPECT_EQ(CellAfter(key::Left), "1 1");
}

TEST_F(GridKeys, TheCellStaysWithinTheData) {
    EXPECT_EQ(CellAfter(key::Up), "1 1");
    EXPECT_EQ(CellAfter(key::Left), "1 1");
    EXPECT_EQ(CellAfter(key::PageUp), "1 1");
    grid.Row = 30;
    grid.Col = 3;
    EXPECT_EQ(CellAfter(key::Down), "30 3");
    EXPECT_EQ(CellAfter(key::Right), "30 3");
    EXPECT_EQ(CellAfter(key::PageDown), "30 3");
}

TEST_F(GridKeys, HomeAndEndGoAlongTheRowAndWithControlToTheCorners) {
    grid.Row = 5;
    EXPECT_EQ(CellAfter(key::End), "5 3");
    EXPECT_EQ(CellAfter(key::Home), "5 1");
    EXPECT_EQ(CellAfter(key::End, true), "30 3");
    EXPECT_EQ(CellAfter(key::Home, true), "1 1");
}

TEST_F(GridKeys, PageUpAndPageDownGoByTheRowsInSight) {
    EXPECT_EQ(grid.PageRows(), 9);
    EXPECT_EQ(CellAfter(key::PageDown), "10 1");
    EXPECT_EQ(CellAfter(key::PageDown), "19 1");
    EXPECT_EQ(CellAfter(key::PageUp), "10 1");
}

TEST_F(GridKeys, TheCellComesIntoSightBehindItsEvents) {
    grid.Row = 9;
    form.Taken();
    EXPECT_EQ(CellAfter(key::Down), "10 1");
    EXPECT_EQ(form.Taken(), (Lines{"down 40", "leave 9 1", "enter 10 1", "scroll"}));
    EXPECT_EQ(grid.TopRow, 2);
}

TEST_F(GridKeys, AKeyOnACellOutOfSightBringsItBack) {
    grid.TopRow = 20;
    form.Taken();
    EXPECT_EQ(CellAfter(key::Up), "1 1");
    EXPECT_EQ(grid.TopRow, 1);
    EXPECT_EQ(form.Taken(), (Lines{"down 38", "scroll"}));
}

TEST_F(GridKeys, ARefusedCharacterOrDeleteIsLeftToTheHandlers) {
    grid.KeyDown = [&](int& code) { code = code == key::Delete ? 127 : code; };
    Press(form, key::Delete);
    Type(form, "\r\x1b x");
    EXPECT_EQ(form.Taken(), (Lines{"press 13", "press 27", "press 32", "press 120"}));
    EXPECT_EQ(grid.Row, 1);
}

TEST_F(GridKeys, AGridThatGoesOrIsDisabledInItsKeyDownMovesNoCell) {
    grid.KeyDown = [&](int&) { grid.Enabled = false; };
    EXPECT_EQ(CellAfter(key::Down), "1 1");
}

struct WatchedGrid : GridScreen {
    struct View : GridView {
        Lines Told;
        void Refresh() override { Told.emplace_back("refresh"); }
        void CellChanged(int row, int col) override {
            Told.push_back("cell " + std::to_string(row) + " " + std::to_string(col));
        }
        void RowsChanged() override { Told.emplace_back("rows"); }
        void Scrolled() override { Told.emplace_back("scrolled"); }
        void CurrentCellMoved() override { Told.emplace_back("moved"); }
    };
    View view;
    void SetUp() override { grid.Attach(&view); }
    void TearDown() override { grid.Attach(nullptr); }
};

TEST_F(WatchedGrid, TheViewIsToldWhatHasChanged) {
    grid.SetTextMatrix(1, 2, "a");
    grid.SetTextMatrix(1, 2, "a");
    grid.Rows = 50;
    grid.Row = 3;
    grid.TopRow = 20;
    grid.SetColWidth(1, 700);
    grid.SetColWidth(1, 700);
    grid.Highlight = HighlightKind::Never;
    EXPECT_EQ(view.Told, (Lines{"cell 1 2", "rows", "moved", "scrolled", "refresh", "refresh"}));
}

TEST_F(WatchedGrid, ALeaveCellThatTakesRowsAwayLeavesACellThatIsThere) {
    grid.LeaveCell = [&] {
        grid.LeaveCell = nullptr;
        grid.Rows = 3;
    };
    grid.Row = 4;
    EXPECT_EQ(grid.Row, 2);
    EXPECT_EQ(grid.Text(), "");
}

}  // namespace
}  // namespace zirvo::forms
