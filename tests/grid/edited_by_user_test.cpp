// A cell edited as a user does it, on a screen where each focus of the grid brings a new editor: real strokes and
// clicks, with the focus events behind them.
#include <gtest/gtest.h>

#include "grid/edited_screen.h"

namespace zirvo {
namespace {

using forms::FocusOf;
using forms::Press;
using forms::Type;
namespace key = forms::key;

class EditedByUser : public testing::Test {
protected:
    test::EditedWorld World;
    test::EditedScreen& Screen = *World.Screen;
    forms::MSFlexGrid& Grid = Screen.Grid;

    EditedByUser() {
        Screen.EditOnFocus();
        Grid.SetTextMatrix(1, 1, "123");
        Grid.UserFocus();
    }
    forms::TextBox& Box() { return *Screen.Editor->Box(); }
};

TEST_F(EditedByUser, TypingReplacesTheTextAndGoesOnBehindIt) {
    Type(Screen, "5");
    EXPECT_EQ(FocusOf(Screen), "tbFgEdit1");
    EXPECT_EQ(Box().Text, "5");
    EXPECT_EQ(Box().SelStart, 1);
    Type(Screen, "7.5E-3");
    EXPECT_EQ(Box().Text, "57.5E-3");
    EXPECT_EQ(Grid.TextMatrix(1, 1), "123");
    Type(Screen, "\r");
    EXPECT_EQ(Grid.TextMatrix(1, 1), "57.5E-3");
    EXPECT_EQ(Box().Text, "120");
}

TEST_F(EditedByUser, ARefusedCharacterOpensTheBoxAndIsDroppedThereToo) {
    Type(Screen, "x");
    EXPECT_TRUE(Box().Visible);
    EXPECT_EQ(Box().Text, "123");
    Type(Screen, "x y,");
    EXPECT_EQ(Box().Text, "123");
}

TEST_F(EditedByUser, TheOrderOfTheCharactersIsNotChecked) {
    Type(Screen, "1-2E\r");
    EXPECT_EQ(Grid.TextMatrix(1, 1), "1-2E");
}

TEST_F(EditedByUser, SpaceOpensTheBoxWithTheCaretAtTheStart) {
    Type(Screen, " ");
    EXPECT_EQ(Box().Text, "123");
    EXPECT_EQ(Box().SelStart, 0);
    Type(Screen, "9");
    EXPECT_EQ(Box().Text, "9123");
}

TEST_F(EditedByUser, ADoubleClickOpensTheBoxWithTheCaretAtTheStart) {
    Grid.UserClickCell(2, 2);
    Grid.UserDoubleClickCell(2, 2);
    EXPECT_EQ(FocusOf(Screen), "tbFgEdit1");
    EXPECT_EQ(Box().Text, "220");
    EXPECT_EQ(Box().SelStart, 0);
}

TEST_F(EditedByUser, EnterOnACellOpensTheBox) {
    Type(Screen, "\r");
    EXPECT_TRUE(Box().Visible);
    EXPECT_EQ(Box().Text, "123");
    EXPECT_EQ(Grid.Col, 1);
}

TEST_F(EditedByUser, EscOnACellOpensTheBoxToo) {
    Type(Screen, "\x1b");
    EXPECT_TRUE(Box().Visible);
}

TEST_F(EditedByUser, DeleteEmptiesTheCellWithoutABox) {
    Press(Screen, key::Delete);
    EXPECT_EQ(Grid.TextMatrix(1, 1), "");
    EXPECT_FALSE(Box().Visible);
    EXPECT_EQ(FocusOf(Screen), "Grid");
}

TEST_F(EditedByUser, DeleteWithinTheBoxDeletesACharacter) {
    Type(Screen, " ");
    Press(Screen, key::Delete);
    EXPECT_EQ(Box().Text, "23");
    Type(Screen, "\r");
    EXPECT_EQ(Grid.TextMatrix(1, 1), "23");
}

TEST_F(EditedByUser, BackspaceWithinTheBoxDeletesACharacter) {
    Type(Screen, "57\b");
    EXPECT_EQ(Box().Text, "5");
}

// The box is fresh with each focus of the grid, so on the screens there is no stale text to write.
TEST_F(EditedByUser, BackspaceAndEnterLeaveTheCellEmpty) {
    Type(Screen, "\b");
    EXPECT_TRUE(Box().Visible);
    EXPECT_EQ(Box().Text, "");
    Type(Screen, "\r");
    EXPECT_EQ(Grid.TextMatrix(1, 1), "");
}

TEST_F(EditedByUser, EscKeepsTheCellAndDoesNotOpenTheBoxAgain) {
    Type(Screen, "5\x1b");
    EXPECT_EQ(Grid.TextMatrix(1, 1), "123");
    EXPECT_FALSE(Box().Visible);
    EXPECT_EQ(FocusOf(Screen), "Grid");
}

TEST_F(EditedByUser, EnterKeepsTheSameEditorThroughTheWholeGrid) {
    Type(Screen, "1");
    const clsFlexGridEdit* editor = Screen.Editor.get();
    Type(Screen, "\r2\r3\r4\r5\r6\r7\r8\r9\r");
    // A box that Enter opened holds the cell's text with the caret in front, so what is typed stands before it.
    EXPECT_EQ(Grid.TextMatrix(1, 2), "2120");
    EXPECT_EQ(Grid.TextMatrix(3, 3), "9330");
    EXPECT_EQ(Screen.Editor.get(), editor);
    EXPECT_EQ(Grid.Row, 1);
    EXPECT_EQ(Grid.Col, 1);
    EXPECT_TRUE(Box().Visible);
}

TEST_F(EditedByUser, DownInTheLastRowGoesToTheNextColumnAndUpInTheFirstToItsBottom) {
    Grid.UserClickCell(3, 1);
    Type(Screen, "5");
    Press(Screen, key::Down);
    EXPECT_EQ(Grid.TextMatrix(3, 1), "5");
    EXPECT_EQ(Grid.Row, 1);
    EXPECT_EQ(Grid.Col, 2);
    Press(Screen, key::Up);
    EXPECT_EQ(Grid.Row, 3);
    EXPECT_EQ(Grid.Col, 3);
    EXPECT_TRUE(Box().Visible);
}

TEST_F(EditedByUser, AClickOnAnotherCellCommits) {
    Type(Screen, "5");
    Grid.UserClickCell(2, 3);
    EXPECT_EQ(Grid.TextMatrix(1, 1), "5");
    EXPECT_EQ(Grid.TextMatrix(2, 3), "230");
    EXPECT_EQ(Grid.Row, 2);
    EXPECT_FALSE(Box().Visible);
}

TEST_F(EditedByUser, AClickOnAHeadingCommitsAndStays) {
    Type(Screen, "5");
    Grid.UserClickCell(0, 2);
    EXPECT_EQ(Grid.TextMatrix(1, 1), "5");
    EXPECT_EQ(Grid.Row, 1);
    EXPECT_EQ(Grid.Col, 1);
}

TEST_F(EditedByUser, AClickOnAButtonCommitsBeforeTheButtonActs) {
    std::string seen;
    Screen.Button.Click = [&] { seen = Grid.TextMatrix(1, 1); };
    Type(Screen, "5");
    Screen.Button.UserClick();
    EXPECT_EQ(seen, "5");
}

TEST_F(EditedByUser, TabLeavesTheGridForwardsAndCommits) {
    Type(Screen, "5\t");
    EXPECT_EQ(Grid.TextMatrix(1, 1), "5");
    EXPECT_EQ(FocusOf(Screen), "Other");
}

TEST_F(EditedByUser, ShiftAndTabLeaveTheGridBackwardsAndCommit) {
    Type(Screen, "5");
    Press(Screen, key::Tab, true);
    EXPECT_EQ(Grid.TextMatrix(1, 1), "5");
    EXPECT_EQ(FocusOf(Screen), "Before");
}

TEST_F(EditedByUser, TheWheelOverTheGridCommitsAndCloses) {
    Grid.Rows = 40;
    Type(Screen, "5");
    Grid.UserScrollTo(10, 1);
    EXPECT_EQ(Grid.TextMatrix(1, 1), "5");
    EXPECT_FALSE(Box().Visible);
    EXPECT_EQ(FocusOf(Screen), "Grid");
    EXPECT_EQ(Grid.TopRow, 10);
}

TEST_F(EditedByUser, ACellScrolledOutOfSightComesBackWhenItIsTypedInto) {
    Grid.Rows = 40;
    Grid.UserScrollTo(20, 1);
    EXPECT_FALSE(Grid.RowIsVisible(1));
    Type(Screen, "5");
    EXPECT_TRUE(Grid.RowIsVisible(1));
    EXPECT_EQ(Box().Top, Grid.Top + Grid.RowTop(1));
    EXPECT_EQ(FocusOf(Screen), "tbFgEdit1");
}

TEST_F(EditedByUser, EachFocusOfTheGridBringsANewEditorAndOneBoxOnly) {
    const std::weak_ptr<clsFlexGridEdit> first = Screen.Editor;
    Screen.Button.UserFocus();
    EXPECT_FALSE(first.expired());  // ends with the next focus, not with the loss of it
    Grid.UserFocus();
    EXPECT_TRUE(first.expired());
    EXPECT_EQ(Screen.Editor->BoxName(), "tbFgEdit1");
    EXPECT_EQ(Screen.Controls.Find("tbFgEdit11"), nullptr);
}

TEST_F(EditedByUser, AGridWithoutDataRowsOpensNoBox) {
    Screen.Button.UserFocus();
    Grid.Rows = 1;
    Grid.UserFocus();
    Type(Screen, "5 \r\b");
    Press(Screen, key::Delete);
    Grid.UserDoubleClickCell(0, 1);
    EXPECT_FALSE(Box().Visible);
    EXPECT_EQ(FocusOf(Screen), "Grid");
}

TEST_F(EditedByUser, APastedLineIsNotFiltered) {
    Type(Screen, " ");
    Box().SelLength = 3;
    Box().Paste("abc\nsecond line");
    Type(Screen, "\r");
    EXPECT_EQ(Grid.TextMatrix(1, 1), "abc");
}

}  // namespace
}  // namespace zirvo
