// Tests of where the grid's cells lie and how it scrolls. Every number is worked out from the sizes of GridForm: border
// 15, columns of 600, rows of 240, bars of 240 twips.
#include <gtest/gtest.h>

#include "forms/grid_form.h"

namespace zirvo::forms {
namespace {

using Geometry = GridScreen;

TEST_F(Geometry, HeadingsComeFirstBehindTheBorder) {
    EXPECT_EQ(grid.ColLeft(0), 15);
    EXPECT_EQ(grid.ColLeft(1), 15 + 600);
    EXPECT_EQ(grid.RowTop(0), 15);
    EXPECT_EQ(grid.RowTop(4), 15 + 4 * 240);
    EXPECT_EQ(grid.CellLeft(), 615);
    EXPECT_EQ(grid.CellTop(), 255);
    EXPECT_EQ(grid.CellWidth(), 600);
    EXPECT_EQ(grid.CellHeight(), 240);
}

TEST_F(Geometry, ScrolledRowsAndColumnsLieBeforeTheHeadings) {
    grid.Rows = 100;
    grid.TopRow = 5;
    EXPECT_EQ(grid.RowTop(5), 255);
    EXPECT_EQ(grid.RowTop(7), 255 + 2 * 240);
    EXPECT_EQ(grid.RowTop(3), 255 - 2 * 240);
    EXPECT_EQ(grid.RowTop(0), 15);
    grid.Cols = 10;
    grid.LeftCol = 2;
    EXPECT_EQ(grid.ColLeft(2), 615);
    EXPECT_EQ(grid.ColLeft(1), 615 - 600);
    EXPECT_EQ(grid.ColLeft(3), 615 + 600);
}

TEST_F(Geometry, ABarComesAsSoonAsTheRowsDoNotAllFit) {
    grid.Rows = 10;
    EXPECT_FALSE(grid.HasVerticalBar());
    EXPECT_EQ(grid.AreaWidth(), 4 * 600 + 240);
    grid.Rows = 11;
    EXPECT_TRUE(grid.HasVerticalBar());
    EXPECT_FALSE(grid.HasHorizontalBar());
    EXPECT_EQ(grid.AreaWidth(), 4 * 600);
    EXPECT_EQ(grid.AreaHeight(), 10 * 240);
}

TEST_F(Geometry, ABarTakesRoomAndMayCallForTheOther) {
    grid.Width = 2 * 15 + 4 * 600;  // no room for the vertical bar beside the columns
    grid.Rows = 11;
    EXPECT_TRUE(grid.HasVerticalBar());
    EXPECT_TRUE(grid.HasHorizontalBar());
    EXPECT_EQ(grid.AreaHeight(), 9 * 240);
    grid.Rows = 10;
    EXPECT_FALSE(grid.HasVerticalBar());
    EXPECT_FALSE(grid.HasHorizontalBar());
    grid.SetColWidth(1, 601);  // now the horizontal bar comes first, and takes the room of the tenth row
    EXPECT_TRUE(grid.HasHorizontalBar());
    EXPECT_TRUE(grid.HasVerticalBar());
}

TEST_F(Geometry, TheScrollPositionLeavesNoNeedlessBlankAtTheEnd) {
    grid.Rows = 31;
    EXPECT_EQ(grid.LastTopRow(), 22);  // 22 to 30 are nine rows
    grid.TopRow = 99;
    EXPECT_EQ(grid.TopRow, 22);
    grid.TopRow = -5;
    EXPECT_EQ(grid.TopRow, 1);
    grid.Cols = 7;
    EXPECT_EQ(grid.LastLeftCol(), 6);  // the area is 2400 wide, 600 of it headings: two of 960 are too much
    grid.LeftCol = 99;
    EXPECT_EQ(grid.LeftCol, 6);
    grid.SetColWidth(5, 840);
    EXPECT_EQ(grid.LastLeftCol(), 5);
}

TEST_F(Geometry, AGridThatFitsDoesNotScroll) {
    EXPECT_EQ(grid.LastTopRow(), 1);
    EXPECT_EQ(grid.LastLeftCol(), 1);
    grid.TopRow = 3;
    grid.LeftCol = 2;
    EXPECT_EQ(grid.TopRow, 1);
    EXPECT_EQ(grid.LeftCol, 1);
    EXPECT_EQ(form.Taken(), Lines{});
}

TEST_F(Geometry, AChangedScrollPositionRaisesScrollOnce) {
    grid.Rows = 31;
    grid.TopRow = 5;
    grid.TopRow = 5;
    EXPECT_EQ(form.Taken(), Lines{"scroll"});
    grid.UserScrollTo(9, 1);
    grid.UserScrollTo(9, 1);
    EXPECT_EQ(form.Taken(), Lines{"scroll"});
    EXPECT_EQ(grid.TopRow, 9);
}

TEST_F(Geometry, RowsThatGoTakeTheScrollPositionAlong) {
    grid.Rows = 101;
    grid.TopRow = 90;
    form.Taken();
    grid.Rows = 31;
    EXPECT_EQ(grid.TopRow, 22);
    EXPECT_EQ(form.Taken(), Lines{"scroll"});
    grid.Height = 2 * 15 + 20 * 240;
    EXPECT_EQ(grid.TopRow, 12);  // 19 rows in sight: 12 to 30
}

TEST_F(Geometry, ARowIsVisibleWhereItIsWhollyInSight) {
    grid.Rows = 31;
    grid.TopRow = 3;
    EXPECT_TRUE(grid.RowIsVisible(0));
    EXPECT_FALSE(grid.RowIsVisible(2));
    EXPECT_TRUE(grid.RowIsVisible(3));
    EXPECT_TRUE(grid.RowIsVisible(11));
    EXPECT_FALSE(grid.RowIsVisible(12));
    grid.Height = grid.Height - 1;
    EXPECT_FALSE(grid.RowIsVisible(11));
}

TEST_F(Geometry, AColumnIsVisibleWhereItIsWhollyInSight) {
    grid.Cols = 10;
    grid.LeftCol = 2;
    EXPECT_TRUE(grid.ColIsVisible(0));
    EXPECT_FALSE(grid.ColIsVisible(1));
    EXPECT_TRUE(grid.ColIsVisible(2));
    EXPECT_TRUE(grid.ColIsVisible(3));
    EXPECT_FALSE(grid.ColIsVisible(4));  // 960 wide, and only 840 left
}

TEST_F(Geometry, OfACellLargerThanTheAreaTheTopLeftCornerCounts) {
    grid.SetColWidth(2, 5000);
    EXPECT_TRUE(grid.ColIsVisible(2));
    grid.Col = 2;
    EXPECT_EQ(grid.CellLeft(), 1215);
    EXPECT_EQ(form.Taken(), (Lines{"leave 1 1", "enter 1 2"}));
    grid.LeftCol = 3;
    EXPECT_FALSE(grid.ColIsVisible(2));
    EXPECT_EQ(grid.CellLeft(), 615);
    EXPECT_EQ(grid.LeftCol, 2);
}

TEST_F(Geometry, ReadingThePlaceOfACellOutOfSightBringsItWhollyIntoSightAndThenRaisesScroll) {
    grid.Rows = 31;
    grid.Row = 15;
    form.Taken();
    grid.Scroll = [&] {
        EXPECT_TRUE(grid.RowIsVisible(15));
        form.Note("scroll");
    };
    EXPECT_EQ(grid.CellTop(), 255 + 8 * 240);  // the last of the nine in sight
    EXPECT_EQ(grid.TopRow, 7);
    EXPECT_EQ(grid.CellTop(), 255 + 8 * 240);
    EXPECT_EQ(form.Taken(), Lines{"scroll"});
    grid.Scroll = [&] { form.Note("scroll"); };
    grid.TopRow = 20;
    form.Taken();
    EXPECT_EQ(grid.CellLeft(), 615);  // either of the two brings the whole cell
    EXPECT_EQ(grid.TopRow, 15);
    EXPECT_EQ(form.Taken(), Lines{"scroll"});
}

TEST_F(Geometry, ReadingThePlaceOfACellInSightScrollsNothing) {
    grid.Rows = 31;
    grid.TopRow = 5;
    grid.Row = 13;
    form.Taken();
    EXPECT_EQ(grid.CellTop(), 255 + 8 * 240);
    EXPECT_EQ(grid.TopRow, 5);
    EXPECT_EQ(form.Taken(), Lines{});
}

TEST_F(Geometry, ReadingThePlaceScrollsBothWaysWithOneEvent) {
    grid.Rows = 31;
    grid.Cols = 10;
    grid.Row = 30;
    grid.Col = 9;
    form.Taken();
    EXPECT_EQ(grid.CellLeft(), 615);
    EXPECT_EQ(form.Taken(), Lines{"scroll"});
    EXPECT_TRUE(grid.RowIsVisible(30));
    EXPECT_TRUE(grid.ColIsVisible(9));
}

TEST_F(Geometry, APlaceInTheHeadingsScrollsNothing) {
    grid.Rows = 31;
    grid.TopRow = 9;
    grid.Row = 0;
    form.Taken();
    EXPECT_EQ(grid.CellTop(), 15);
    EXPECT_EQ(grid.TopRow, 9);
    EXPECT_EQ(form.Taken(), Lines{});
}

TEST_F(Geometry, AScrollHandlerMayReadThePlace) {
    grid.Rows = 31;
    grid.Row = 30;
    double left = 0;
    grid.Scroll = [&] { left = grid.CellLeft(); };
    grid.CellTop();
    EXPECT_EQ(left, 615);
}

TEST_F(Geometry, FindsTheCellAtAPoint) {
    grid.Rows = 31;
    grid.TopRow = 5;
    const auto at = [&](double x, double y) {
        const MSFlexGrid::Cell cell = grid.CellAt(x, y);
        return std::to_string(cell.Row) + " " + std::to_string(cell.Col);
    };
    EXPECT_EQ(at(15, 15), "0 0");
    EXPECT_EQ(at(614.9, 254.9), "0 0");
    EXPECT_EQ(at(615, 255), "5 1");
    EXPECT_EQ(at(1215, 255 + 240), "6 2");
    EXPECT_EQ(at(14, 100), "0 -1");         // the border
    EXPECT_EQ(at(15 + 2400, 100), "0 -1");  // the vertical bar
    EXPECT_EQ(at(100, 15 + 2400), "-1 0");  // below the area
    grid.Rows = 3;
    EXPECT_EQ(at(15 + 2400 + 1, 15 + 3 * 240 + 1), "-1 -1");  // behind the last column and row
}

TEST_F(Geometry, FindsTheCellBesideScrolledColumns) {
    grid.Cols = 10;
    grid.LeftCol = 3;
    EXPECT_EQ(grid.CellAt(20, 20).Col, 0);
    EXPECT_EQ(grid.CellAt(620, 20).Col, 3);
    EXPECT_EQ(grid.CellAt(620 + 600, 20).Col, 4);
    grid.FixedCols = 0;
    grid.LeftCol = 3;
    EXPECT_EQ(grid.CellAt(20, 20).Col, 3);
}

TEST_F(Geometry, AGridOfNoSizeAnswersAllTheSame) {
    grid.Move(0, 0, 0, 0);
    grid.Row = 4;
    grid.Col = 3;
    EXPECT_EQ(grid.AreaWidth(), 0);
    EXPECT_EQ(grid.AreaHeight(), 0);
    EXPECT_EQ(grid.PageRows(), 1);
    EXPECT_FALSE(grid.RowIsVisible(4));
    grid.CellLeft();
    EXPECT_EQ(grid.TopRow, 4);
    EXPECT_EQ(grid.LeftCol, 3);
    EXPECT_EQ(grid.CellAt(20, 20).Row, -1);
}

TEST_F(Geometry, SizesOfTheScalingToAScreenKeepTheCellAtTheEdgeInSight) {
    const double factor = 1024.0 / 810.0;  // no number that binary fractions hold
    grid.Rows = 11;
    grid.RowHeight = 0.1 * factor;
    grid.Height = 2 * 15 + 11 * (0.1 * factor);
    EXPECT_FALSE(grid.HasVerticalBar());
    EXPECT_TRUE(grid.RowIsVisible(10));
}

}  // namespace
}  // namespace zirvo::forms
