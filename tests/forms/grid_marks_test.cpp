// What stands beside the current cell of a grid: scrolling while it is disabled, the cell to be mended, the selected
// table, and who hears of changes.
#include <gtest/gtest.h>

#include <stdexcept>

#include "base/runtime_fault.h"
#include "forms/grid_form.h"

namespace zirvo::forms {
namespace {

struct ScrollView : GridView {
    int Scrolls = 0;
    int Refreshes = 0;
    void Refresh() override { ++Refreshes; }
    void CellChanged(int /*row*/, int /*col*/) override {}
    void RowsChanged() override {}
    void Scrolled() override { ++Scrolls; }
    void CurrentCellMoved() override {}
};

using DisabledGrid = GridScreen;

TEST_F(DisabledGrid, ScrollsForTheUserAndRaisesNothing) {
    grid.Rows = 101;
    grid.Enabled = false;
    ScrollView view;
    grid.Attach(&view);
    form.Taken();
    grid.UserScrollTo(1000, 1);
    EXPECT_EQ(grid.TopRow, 92);  // ten rows are in sight, of which one is the heading: 92 to 100
    EXPECT_EQ(view.Scrolls, 1);
    EXPECT_EQ(form.Taken(), Lines{});
    grid.Attach(nullptr);
}

TEST_F(DisabledGrid, ThatIsHiddenDoesNotScroll) {
    grid.Rows = 101;
    grid.Enabled = false;
    grid.Visible = false;
    grid.UserScrollTo(50, 1);
    EXPECT_EQ(grid.TopRow, 1);
}

TEST_F(DisabledGrid, AnEnabledOneRaisesScrollAsBefore) {
    grid.Rows = 101;
    form.Taken();
    grid.UserScrollTo(50, 1);
    EXPECT_EQ(form.Taken(), Lines{"scroll"});
}

using MarkedCell = GridScreen;

TEST_F(MarkedCell, ComesIntoSightAndLeavesFocusAndCurrentCell) {
    grid.Rows = 101;
    form.Text1.SetFocus();
    form.Taken();
    grid.MarkCell(80, 2);
    EXPECT_TRUE(grid.RowIsVisible(80));
    EXPECT_EQ(grid.MarkedCell().Row, 80);
    EXPECT_EQ(grid.MarkedCell().Col, 2);
    EXPECT_EQ(form.Cell(), "1 1");
    EXPECT_EQ(FocusOf(form), "Text1");
    EXPECT_EQ(form.Taken(), Lines{"scroll"});
}

TEST_F(MarkedCell, LosesItsMarkWithAnotherText) {
    grid.MarkCell(2, 2);
    grid.SetTextMatrix(2, 1, "5");
    EXPECT_EQ(grid.MarkedCell().Row, 2);
    grid.SetTextMatrix(2, 2, "5");
    EXPECT_EQ(grid.MarkedCell().Row, -1);
}

TEST_F(MarkedCell, LosesItsMarkWithItsRow) {
    grid.MarkCell(4, 2);
    grid.Rows = 4;
    EXPECT_EQ(grid.MarkedCell().Row, -1);
    grid.Rows = 5;
    EXPECT_EQ(grid.MarkedCell().Row, -1);
}

TEST_F(MarkedCell, OutsideTheGridIsFault9) {
    EXPECT_THROW(grid.MarkCell(5, 1), RuntimeFault);
    EXPECT_THROW(grid.MarkCell(1, 4), RuntimeFault);
}

struct SelectedTable : GridScreen {
    void SetUp() override {
        grid.SetFocus();
        grid.AllSelected = true;
    }
};

TEST_F(SelectedTable, EndsWithTheNextKeyButNotWithTheControlKeyItself) {
    form.Strike({.Code = key::Control, .Control = true});
    EXPECT_TRUE(grid.AllSelected);
    Press(form, key::F1);
    EXPECT_FALSE(grid.AllSelected);
}

TEST_F(SelectedTable, EndsWhenTheCurrentCellMoves) {
    grid.UserClickCell(2, 2);
    EXPECT_FALSE(grid.AllSelected);
}

TEST_F(SelectedTable, EndsWhenRowsComeOrGo) {
    grid.Rows = 7;
    EXPECT_FALSE(grid.AllSelected);
}

TEST_F(SelectedTable, EndsWhenTheFocusComesAnew) {
    form.Text1.UserFocus();
    grid.UserFocus();
    EXPECT_FALSE(grid.AllSelected);
}

struct Recorded : GridScreen, GridRecorder {
    Lines Heard;
    void CellChanges(const MSFlexGrid& changed, int row, int col) override {
        Heard.push_back(std::to_string(row) + " " + std::to_string(col) + " was " + changed.TextMatrix(row, col));
    }
    void RowsChange(const MSFlexGrid& changed, int rows) override {
        Heard.push_back(std::to_string(changed.Rows) + " to " + std::to_string(rows));
    }
};

TEST_F(Recorded, HearsOfATextAndOfRowsBeforeTheyChange) {
    grid.SetTextMatrix(2, 2, "old");
    grid.RecordBy(this);
    grid.SetTextMatrix(2, 2, "new");
    grid.SetTextMatrix(2, 2, "new");  // no change
    grid.Rows = 3;
    grid.Rows = 3;
    EXPECT_EQ(Heard, (Lines{"2 2 was old", "5 to 3"}));
    grid.RecordBy(nullptr);
    grid.Rows = 9;
    EXPECT_EQ(Heard.size(), 2U);
}

}  // namespace
}  // namespace zirvo::forms
