// A form with one grid that notes its events, for the tests of the grid.
#pragma once
#include <gtest/gtest.h>

#include <string>

#include "forms/ms_flex_grid.h"
#include "forms/plain_form.h"

namespace zirvo::forms {

/// Four columns of 600 twips and rows of 240. The size of the grid, with no bars, holds ten rows; there are five at
/// first, so that no bar is needed: 2 * 15 + 4 * 600 wide, 2 * 15 + 10 * 240 high, and room for a vertical bar.
struct GridForm : PlainForm {
    TextBox Text1{*this, "Text1"};
    MSFlexGrid Grid{*this, "Grid"};

    explicit GridForm(forms::Application& application) : PlainForm(application) {
        Grid.Rows = 5;
        Grid.Cols = 4;
        Grid.RowHeight = 240;
        for (int col = 0; col < 4; ++col) {
            Grid.SetColWidth(col, 600);
        }
        Grid.Move(0, 0, 2 * 15 + 4 * 600 + 240, 2 * 15 + 10 * 240);
        NoteKeys(Grid);
        Grid.GotFocus = [this] { Note("got Grid"); };
        Grid.EnterCell = [this] { Note("enter " + Cell()); };
        Grid.LeaveCell = [this] { Note("leave " + Cell()); };
        Grid.Scroll = [this] { Note("scroll"); };
        Grid.DblClick = [this] { Note("double"); };
    }
    std::string Cell() const { return std::to_string(Grid.Row) + " " + std::to_string(Grid.Col); }
};

struct GridScreen : testing::Test {
    Screen<GridForm> screen;
    GridForm& form = screen.form;
    MSFlexGrid& grid = form.Grid;
};

}  // namespace zirvo::forms
