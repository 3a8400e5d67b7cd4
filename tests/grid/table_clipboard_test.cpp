// Blocks put into tables and taken out of them.
#include "grid/table_clipboard.h"

#include <gtest/gtest.h>

#include "grid/counted_screen.h"

namespace zirvo::test {
namespace {

using Kind = PasteResult::Kind;

struct Pasting : testing::Test, CountedWorld {
    CountedScreen& screen = *Screen;
    forms::MSFlexGrid& grid = screen.Grid1;

    void SetUp() override {
        screen.Bar1.UserRelease(3);
        for (int col = 1; col < 5; ++col) {
            grid.SetTextMatrix(0, col, "HEAD " + std::to_string(col));
        }
        screen.History.Forget();
        screen.Changes = 0;
    }
    PasteResult Paste(int row, int col, std::string_view text) {
        PasteResult result;
        App.Dispatch([&] {
            grid.Row = row;
            grid.Col = col;
            result = PasteIntoTable(grid, screen.Bar1, text);
        });
        return result;
    }
};

TEST_F(Pasting, FillsToTheRightAndBelowInOneStep) {
    EXPECT_EQ(Paste(2, 2, "1\t2.5\r\n-3\t4E2\r\n").What, Kind::Pasted);
    EXPECT_EQ(grid.TextMatrix(2, 2), "1");
    EXPECT_EQ(grid.TextMatrix(2, 3), "2.5");
    EXPECT_EQ(grid.TextMatrix(3, 2), "-3");
    EXPECT_EQ(grid.TextMatrix(3, 3), "4E2");
    EXPECT_EQ(screen.Changes, 0);
    EXPECT_EQ(screen.History.UndoSteps(), 1U);
    screen.History.Undo();
    EXPECT_EQ(grid.TextMatrix(3, 3), "");
}

TEST_F(Pasting, RaisesTheCountThroughItsBar) {
    EXPECT_EQ(Paste(3, 1, "1\n2\n3").What, Kind::Pasted);
    EXPECT_EQ(screen.Bar1.Value, 5);
    EXPECT_EQ(screen.Count1.Caption, " 5");
    EXPECT_EQ(screen.Changes, 1);
    EXPECT_EQ(grid.TextMatrix(5, 0), "ROW 5");
    EXPECT_EQ(grid.TextMatrix(5, 1), "3");
    EXPECT_EQ(screen.History.UndoSteps(), 1U);
    screen.History.Undo();
    EXPECT_EQ(screen.Bar1.Value, 3);
    EXPECT_EQ(grid.Rows, 4);
}

TEST_F(Pasting, AShortRowLeavesTheCellsThatItLacks) {
    Write(grid, 2, 3, "old");
    Paste(1, 2, "1\t2\n3");
    EXPECT_EQ(grid.TextMatrix(2, 3), "old");
}

TEST_F(Pasting, ATextThatKeysCannotMakeRefusesTheWholeBlockAndNamesItsCell) {
    const PasteResult result = Paste(3, 1, "1\t2\n3\tabc\n");
    EXPECT_EQ(result.What, Kind::TextRefused);
    EXPECT_EQ(result.Row, 4);
    EXPECT_EQ(result.Col, 2);
    EXPECT_EQ(result.Text, "abc");
    EXPECT_EQ(grid.TextMatrix(3, 1), "");
    EXPECT_EQ(grid.Rows, 4);
    EXPECT_EQ(screen.History.UndoSteps(), 0U);
}

TEST_F(Pasting, ABlockThatIsTooWideIsRefused) {
    const PasteResult result = Paste(1, 3, "1\t2\t3");
    EXPECT_EQ(result.What, Kind::TooManyColumns);
    EXPECT_EQ(result.Given, 3);
    EXPECT_EQ(result.Room, 2);
    EXPECT_EQ(grid.TextMatrix(1, 3), "");
}

TEST_F(Pasting, ABlockBeyondTheHighestCountIsRefused) {
    std::string rows = "1";
    for (int i = 0; i < 98; ++i) {
        rows += "\n1";
    }
    EXPECT_EQ(Paste(2, 1, rows).What, Kind::Pasted);  // 99 rows from the second on: 100
    const PasteResult result = Paste(3, 1, rows);
    EXPECT_EQ(result.What, Kind::TooManyRows);
    EXPECT_EQ(result.Given, 101);
    EXPECT_EQ(result.Room, 100);
}

TEST_F(Pasting, GoesIntoATableWithoutRowsFromItsFirstCellOn) {
    screen.Bar1.UserRelease(0);
    EXPECT_EQ(Paste(0, 0, "1\t2\n3\t4").What, Kind::Pasted);
    EXPECT_EQ(grid.TextMatrix(2, 2), "4");
}

TEST_F(Pasting, RaisesACountThatWasZeroedWithoutItsBar) {
    App.Dispatch([this] { screen.Count1.Caption = "0"; });  // the bar stays at 3
    EXPECT_EQ(Paste(0, 0, "1\n2\n3").What, Kind::Pasted);
    EXPECT_EQ(screen.Count1.Caption, " 3");
    EXPECT_EQ(grid.TextMatrix(3, 1), "3");
}

TEST_F(Pasting, DoesNothingWhereNothingMayChange) {
    EXPECT_EQ(Paste(1, 1, "").What, Kind::Nothing);
    App.Dispatch([this] { screen.Bar1.Enabled = false; });
    EXPECT_EQ(Paste(3, 1, "1\n2").What, Kind::TooManyRows);  // the rows that are there can be filled
    EXPECT_EQ(Paste(3, 1, "1").What, Kind::Pasted);
    App.Dispatch([this] { grid.Enabled = false; });
    EXPECT_EQ(Paste(1, 1, "9").What, Kind::Nothing);
    EXPECT_EQ(grid.TextMatrix(1, 1), "");
}

TEST_F(Pasting, BeginsAtTheFirstCellWhereTheWholeTableIsSelected) {
    App.Dispatch([this] { grid.Row = 3; });
    grid.AllSelected = true;
    App.Dispatch([this] { PasteIntoTable(grid, screen.Bar1, "8"); });
    EXPECT_EQ(grid.TextMatrix(1, 1), "8");
    EXPECT_EQ(grid.TextMatrix(3, 1), "");
}

TEST_F(Pasting, ATableCopiedWithItsHeadingsGoesBackIntoItsColumns) {
    const char* copy = "\tHEAD 1\tHEAD 2\tHEAD 3\tHEAD 4\r\nROW 1\t1\t2\t3\t4\r\nROW 2\t5\t\t\t8\r\n";
    EXPECT_EQ(Paste(2, 3, copy).What, Kind::Pasted);
    EXPECT_EQ(grid.TextMatrix(1, 1), "");
    EXPECT_EQ(grid.TextMatrix(2, 1), "1");
    EXPECT_EQ(grid.TextMatrix(2, 4), "4");
    EXPECT_EQ(grid.TextMatrix(3, 1), "5");
    EXPECT_EQ(grid.TextMatrix(3, 4), "8");
    EXPECT_EQ(grid.TextMatrix(2, 0), "ROW 2");
    EXPECT_EQ(screen.Bar1.Value, 3);
    EXPECT_EQ(screen.History.UndoSteps(), 1U);
    screen.History.Undo();
    EXPECT_EQ(grid.TextMatrix(3, 4), "");
}

TEST_F(Pasting, WhatCopyOfTableGivesComesBackAsItWas) {
    for (int row = 1; row <= 3; ++row) {
        for (int col = 1; col <= 4; ++col) {
            Write(grid, row, col, row == col ? "" : std::to_string(10 * row + col));
        }
    }
    const std::string before = Seen();
    grid.AllSelected = true;
    const std::string copy = CopyOfTable(grid);
    screen.Bar1.UserRelease(0);
    EXPECT_EQ(Paste(0, 0, copy).What, Kind::Pasted);
    EXPECT_EQ(Seen(), before);
}

TEST_F(Pasting, HeadingsOfTheColumnsFromTheCellOnAreNoRow) {
    EXPECT_EQ(Paste(1, 2, "HEAD 2\tHEAD 3\n1\t2\n3\t4\n").What, Kind::Pasted);
    EXPECT_EQ(grid.TextMatrix(1, 2), "1");
    EXPECT_EQ(grid.TextMatrix(2, 3), "4");
    EXPECT_EQ(grid.TextMatrix(3, 2), "");
}

TEST_F(Pasting, HeadingsOfOtherColumnsOrOfNoRowsAreRefusedAsTexts) {
    EXPECT_EQ(Paste(1, 1, "HEAD 2\tHEAD 3\n1\t2").What, Kind::TextRefused);
    EXPECT_EQ(Paste(1, 1, "HEAD 1\tHEAD 2").What, Kind::TextRefused);
    EXPECT_EQ(Paste(1, 1, "HEAD 1\tHEAD 2\n1\tx").Row, 1);  // counted without the line of the headings
    EXPECT_EQ(grid.TextMatrix(1, 1), "");
}

TEST_F(Pasting, AnEmptyFirstLineIsARowWhereTheTableHasNoHeadingsYet) {
    for (int col = 1; col < 5; ++col) {
        grid.SetTextMatrix(0, col, "");
    }
    EXPECT_EQ(Paste(1, 1, "\t\n1\t2").What, Kind::Pasted);
    EXPECT_EQ(grid.TextMatrix(2, 2), "2");
}

TEST_F(Pasting, WhatWasCopiedIsACellOrTheTableWithItsHeadings) {
    Write(grid, 1, 1, "5");
    Write(grid, 3, 4, "7");
    App.Dispatch([this] {
        grid.Row = 1;
        grid.Col = 1;
    });
    EXPECT_EQ(CopyOfTable(grid), "5");
    grid.AllSelected = true;
    EXPECT_EQ(CopyOfTable(grid), "\tHEAD 1\tHEAD 2\tHEAD 3\tHEAD 4\nROW 1\t5\t\t\t\nROW 2\t\t\t\t\nROW 3\t\t\t\t7");
}

}  // namespace
}  // namespace zirvo::test
