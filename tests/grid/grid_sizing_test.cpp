// Column widths from headings, and a grid that follows its count.
#include "grid/grid_sizing.h"

#include <gtest/gtest.h>

#include <map>

#include "base/fault_of.h"
#include "grid/edited_screen.h"

namespace zirvo {
namespace {

/// Texts of given widths; all others are 100 twips a character, and twice that in bold.
class MeasuredDesktop : public forms::ScriptedDesktop {
public:
    std::map<std::string, float, std::less<>> Widths;

    float TextWidth(const forms::FontSpec& font, std::string_view text) const override {
        const auto found = Widths.find(text);
        const float width = found != Widths.end() ? found->second : 100.0F * static_cast<float>(text.size());
        return font.Bold ? 2 * width : width;
    }
};

class GridSizing : public testing::Test {
protected:
    MeasuredDesktop Desktop;
    forms::Application App{Desktop};
    test::EditedScreen Screen{App};
    forms::MSFlexGrid& Grid = Screen.Grid;
};

// RA_AutosizeRows ---------------------------------------------------------------------------------------------------

TEST_F(GridSizing, TheHeadingColumnIsAsWideAsItsWidestHeadingAndOneJ) {
    Grid.SetTextMatrix(0, 0, "a heading above the headings");  // row 0 does not count
    Grid.SetTextMatrix(1, 0, "A");
    Grid.SetTextMatrix(2, 0, "ABCD");
    Grid.SetTextMatrix(3, 0, "AB");
    RA_AutosizeRows(Grid);
    EXPECT_EQ(Grid.ColWidth(0), 400 + 100);
}

TEST_F(GridSizing, EmptyHeadingsLeaveTheWidthOfOneJ) {
    RA_AutosizeRows(Grid);
    EXPECT_EQ(Grid.ColWidth(0), 100);
}

TEST_F(GridSizing, WithNoRowsTheHeadingColumnKeepsItsWidth) {
    Grid.SetColWidth(0, 777);
    Grid.Rows = 1;
    RA_AutosizeRows(Grid);
    EXPECT_EQ(Grid.ColWidth(0), 777);
}

TEST_F(GridSizing, OnlyTheRowsAskedForCount) {
    Grid.SetTextMatrix(1, 0, "ABCDEF");
    Grid.SetTextMatrix(2, 0, "AB");
    Grid.SetTextMatrix(3, 0, "ABCD");
    RA_AutosizeRows(Grid, 2);
    EXPECT_EQ(Grid.ColWidth(0), 500);
    RA_AutosizeRows(Grid, 2, 2);
    EXPECT_EQ(Grid.ColWidth(0), 300);
    RA_AutosizeRows(Grid, 3, 2);  // none
    EXPECT_EQ(Grid.ColWidth(0), 300);
    EXPECT_EQ(FaultOf([&] { RA_AutosizeRows(Grid, 1, 4); }), 9);
}

struct Rounding {
    float Text, J;
    double Column;
};

class RoundedWidth : public GridSizing, public testing::WithParamInterface<Rounding> {};

// By hand: the width is rounded, then the sum, each time halves to the even neighbour.
TEST_P(RoundedWidth, IsRoundedTwiceHalvesToEven) {
    const auto& [text, j, column] = GetParam();
    Desktop.Widths = {{"", 0.0F}, {"text", text}, {"J", j}};
    Grid.SetTextMatrix(2, 0, "text");
    Grid.SetTextMatrix(0, 2, "text");
    RA_AutosizeRows(Grid);
    CA_AutosizeCols(Grid);
    EXPECT_EQ(Grid.ColWidth(0), column);
    EXPECT_EQ(Grid.ColWidth(2), column);
}

INSTANTIATE_TEST_SUITE_P(Rows, RoundedWidth,
                         testing::Values(Rounding{100.5F, 0.0F, 100},   // the width alone: 100
                                         Rounding{101.5F, 0.0F, 102},   // 102
                                         Rounding{100.0F, 10.5F, 110},  // the sum alone: 110.5
                                         Rounding{101.0F, 10.5F, 112},  // 111.5
                                         Rounding{100.5F, 10.5F, 110},  // 100, then 110.5; at once it would be 111
                                         Rounding{101.5F, 10.5F, 112},  // 102, then 112.5; at once it would be 112
                                         Rounding{100.4F, 0.3F, 100},   // 100, then 100.3; at once it would be 101
                                         // 2^24 + 1 is no 32-bit float: the sum is taken in doubles
                                         Rounding{16777216.0F, 1.0F, 16777217}));

// CA_AutosizeCols ---------------------------------------------------------------------------------------------------

TEST_F(GridSizing, EachColumnIsAsWideAsItsOwnHeadingAndOneJ) {
    Grid.SetTextMatrix(0, 0, "the corner does not count");
    Grid.SetTextMatrix(0, 1, "A");
    Grid.SetTextMatrix(0, 2, "ABC");
    Grid.SetTextMatrix(0, 3, "");
    Grid.SetTextMatrix(1, 1, "a number wider than its heading");
    Grid.SetColWidth(0, 777);
    CA_AutosizeCols(Grid);
    EXPECT_EQ(Grid.ColWidth(0), 777);
    EXPECT_EQ(Grid.ColWidth(1), 200);
    EXPECT_EQ(Grid.ColWidth(2), 400);
    EXPECT_EQ(Grid.ColWidth(3), 100);
    EXPECT_EQ(Grid.TextMatrix(1, 1), "a number wider than its heading");
}

TEST_F(GridSizing, AWidthBelowNothingCountsAsNothing) {
    Desktop.Widths = {{"A", -50.0F}};
    Grid.SetTextMatrix(0, 1, "A");
    CA_AutosizeCols(Grid);
    EXPECT_EQ(Grid.ColWidth(1), 100);
}

TEST_F(GridSizing, OnlyTheColumnsAskedForAreSized) {
    for (int col = 0; col < 4; ++col) {
        Grid.SetColWidth(col, 777);
        Grid.SetTextMatrix(0, col, "AB");
    }
    CA_AutosizeCols(Grid, 2, 2);
    EXPECT_EQ(Grid.ColWidth(1), 777);
    EXPECT_EQ(Grid.ColWidth(2), 300);
    EXPECT_EQ(Grid.ColWidth(3), 777);
    CA_AutosizeCols(Grid, 3);
    EXPECT_EQ(Grid.ColWidth(3), 300);
    CA_AutosizeCols(Grid, 0, 0);
    EXPECT_EQ(Grid.ColWidth(0), 300);
    EXPECT_EQ(FaultOf([&] { CA_AutosizeCols(Grid, 1, 4); }), 9);
}

// The mode that measures in the cells' own font ---------------------------------------------------------------------

class CellFontSizing : public GridSizing {
protected:
    std::vector<std::string> Visited;

    CellFontSizing() {
        Grid.Font = forms::FontSpec{.Name = "Courier", .Size = 10, .Bold = true};
        Grid.Row = 2;
        Grid.Col = 3;
        Grid.EnterCell = [this] { Visited.push_back(std::to_string(Grid.Row) + "," + std::to_string(Grid.Col)); };
    }
    void ExpectAllIsAsBefore() {
        EXPECT_EQ(Grid.Row, 2);
        EXPECT_EQ(Grid.Col, 3);
        EXPECT_EQ(Screen.Font.Get(), forms::FontSpec{});
        EXPECT_EQ(Grid.Font.Get(), (forms::FontSpec{.Name = "Courier", .Size = 10, .Bold = true}));
    }
};

TEST_F(CellFontSizing, ColumnsAreMeasuredInTheFontOfTheirHeadings) {
    Grid.SetTextMatrix(0, 1, "AB");
    CA_AutosizeCols(Grid, 1, 1, true);
    EXPECT_EQ(Grid.ColWidth(1), 400 + 200);  // the form is bold while it measures
    EXPECT_EQ(Visited.front(), "0,3");
    EXPECT_EQ(Visited[1], "0,1");
    ExpectAllIsAsBefore();
}

TEST_F(CellFontSizing, RowsAreMeasuredInTheFontOfTheFormAllTheSame) {
    Grid.SetTextMatrix(1, 0, "AB");
    RA_AutosizeRows(Grid, 1, 1, true);
    EXPECT_EQ(Grid.ColWidth(0), 200 + 100);
    EXPECT_EQ(Visited.front(), "1,3");
    EXPECT_EQ(Visited[1], "1,0");
    ExpectAllIsAsBefore();
}

TEST_F(CellFontSizing, WithoutTheModeNoCellIsVisited) {
    RA_AutosizeRows(Grid);
    CA_AutosizeCols(Grid);
    EXPECT_TRUE(Visited.empty());
    ExpectAllIsAsBefore();
}

// A grid and its count ----------------------------------------------------------------------------------------------

TEST_F(GridSizing, AGridFollowsItsCountWithHeadingsAndWidth) {
    Grid.Enabled = false;
    FollowCount(Grid, 2, "LAYER");
    EXPECT_TRUE(Grid.Enabled);
    EXPECT_EQ(Grid.Rows, 3);
    EXPECT_EQ(Grid.TextMatrix(0, 0), "");
    EXPECT_EQ(Grid.TextMatrix(1, 0), "LAYER 1");
    EXPECT_EQ(Grid.TextMatrix(2, 0), "LAYER 2");
    EXPECT_EQ(Grid.ColWidth(0), 700 + 100);
}

TEST_F(GridSizing, RowsThatStayKeepTheirTextsAndRowsThatGoLoseThem) {
    FollowCount(Grid, 1, "LOAD");
    EXPECT_EQ(Grid.TextMatrix(1, 2), "120");
    FollowCount(Grid, 3, "LOAD");
    EXPECT_EQ(Grid.TextMatrix(1, 2), "120");
    EXPECT_EQ(Grid.TextMatrix(2, 2), "");
    EXPECT_EQ(Grid.TextMatrix(3, 0), "LOAD 3");
}

TEST_F(GridSizing, TheTenthRowWidensTheHeadingColumnByADigitAndItsLossNarrowsItAgain) {
    FollowCount(Grid, 9, "P");
    const double nine = Grid.ColWidth(0);
    FollowCount(Grid, 10, "P");
    EXPECT_EQ(Grid.ColWidth(0), nine + 100);
    FollowCount(Grid, 9, "P");
    EXPECT_EQ(Grid.ColWidth(0), nine);
}

TEST_F(GridSizing, ACountOfZeroLeavesTheHeadingRowAndTheWidth) {
    FollowCount(Grid, 10, "P");
    const double ten = Grid.ColWidth(0);
    FollowCount(Grid, 0, "P");
    EXPECT_EQ(Grid.Rows, 1);
    EXPECT_EQ(Grid.ColWidth(0), ten);
}

TEST_F(GridSizing, CountsThatNoGridCanFollowAreFaults) {
    EXPECT_EQ(FaultOf([&] { FollowCount(Grid, 32767, "P"); }), 6);
    EXPECT_EQ(FaultOf([&] { FollowCount(Grid, -1, "P"); }), 5);
}

}  // namespace
}  // namespace zirvo
