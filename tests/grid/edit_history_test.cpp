// Undoing and redoing on a screen of tables.
#include "grid/edit_history.h"

#include <gtest/gtest.h>

#include <random>

#include "grid/counted_screen.h"

namespace zirvo::test {
namespace {

struct Undoing : testing::Test, CountedWorld {
    CountedScreen& screen = *Screen;
    forms::MSFlexGrid& grid = screen.Grid1;
    EditHistory& history = screen.History;
};

TEST_F(Undoing, TakesACellBackAndBringsItAgain) {
    screen.Bar1.UserRelease(3);
    Write(grid, 2, 1, "5");
    Write(grid, 2, 1, "7");
    EXPECT_TRUE(history.Undo());
    EXPECT_EQ(grid.TextMatrix(2, 1), "5");
    EXPECT_TRUE(history.Undo());
    EXPECT_EQ(grid.TextMatrix(2, 1), "");
    EXPECT_TRUE(history.Redo());
    EXPECT_TRUE(history.Redo());
    EXPECT_EQ(grid.TextMatrix(2, 1), "7");
    EXPECT_FALSE(history.Redo());
}

TEST_F(Undoing, GoesToTheCellThatChanged) {
    screen.Bar1.UserRelease(100);
    Write(grid, 90, 3, "5");
    App.Dispatch([this] { grid.TopRow = 1; });
    history.Undo();
    EXPECT_EQ(grid.Row, 90);
    EXPECT_EQ(grid.Col, 3);
    EXPECT_TRUE(grid.RowIsVisible(90));
}

TEST_F(Undoing, OneActIsOneStepHoweverMuchItChanges) {
    screen.Bar1.UserRelease(3);
    App.Dispatch([this] {
        screen.Bar1.Value = 20;
        for (int row = 1; row <= 20; ++row) {
            grid.SetTextMatrix(row, 1, std::to_string(row));
        }
    });
    EXPECT_EQ(history.UndoSteps(), 2U);
    history.Undo();
    EXPECT_EQ(grid.Rows, 4);
    EXPECT_EQ(grid.TextMatrix(3, 1), "");
    history.Redo();
    EXPECT_EQ(grid.Rows, 21);
    EXPECT_EQ(grid.TextMatrix(20, 1), "20");
}

TEST_F(Undoing, RowsThatASmallerCountCutOffComeBack) {
    screen.Bar1.UserRelease(5);
    Write(grid, 5, 4, "12.5");
    const std::string before = Seen();
    screen.Bar1.UserRelease(2);
    screen.Bar1.UserRelease(5);
    EXPECT_EQ(grid.TextMatrix(5, 4), "");
    history.Undo();
    history.Undo();
    EXPECT_EQ(Seen(), before);
    EXPECT_EQ(screen.Bar1.Value, 5);
    EXPECT_EQ(grid.TextMatrix(5, 0), "ROW 5");
}

TEST_F(Undoing, BringsColumnsBackInTheSizeOfTextsThatTheUserHasByNow) {
    screen.Bar1.UserRelease(3);
    App.Dispatch([this] { grid.SetColWidth(2, 1200); });
    screen.New.UserClick();
    App.Dispatch([this] { grid.UserScaleCells(1.5); });
    history.Undo();
    EXPECT_EQ(grid.RowHeight, 1.5 * 255);
    EXPECT_EQ(grid.ColWidth(2), 1.5 * 1200);
    App.Dispatch([this] { grid.UserScaleCells(1); });
    EXPECT_EQ(grid.ColWidth(2), 1200);
}

TEST_F(Undoing, OfCountsGoesThroughTheirBars) {
    screen.Bar1.UserRelease(5);
    screen.Changes = 0;
    history.Undo();
    EXPECT_EQ(screen.Changes, 1);
    EXPECT_EQ(screen.Count1.Caption, "0");  // as it stood, without a blank
}

TEST_F(Undoing, NewDataComeBackWithTheRestOfTheScreenAndNoClick) {
    screen.Old.UserClick();
    screen.Bar1.UserRelease(2);
    Write(grid, 1, 1, "5000");
    App.Dispatch([this] { screen.Name.Text = "mine"; });
    const std::string before = Seen();
    screen.New.UserClick();
    const std::string after = Seen();
    EXPECT_NE(after, before);
    history.Undo();
    EXPECT_EQ(Seen(), before);
    EXPECT_EQ(screen.Clicks, 1);
    history.Redo();
    EXPECT_EQ(Seen(), after);
    EXPECT_EQ(screen.Clicks, 1);
}

TEST_F(Undoing, LeavesTheRestOfTheScreenWhereOnlyCellsChanged) {
    screen.Bar1.UserRelease(2);
    Write(grid, 1, 1, "5");
    App.Dispatch([this] {
        screen.Name.Text = "later";
        screen.Go.Enabled = true;
    });
    history.Undo();
    EXPECT_EQ(screen.Name.Text, "later");
    EXPECT_TRUE(screen.Go.Enabled);
}

TEST_F(Undoing, WhatChangesNoDataIsNoStep) {
    App.Dispatch([this] {
        screen.Name.Text = "x";
        screen.Go.Enabled = true;
        grid.SetTextMatrix(0, 1, "MODULUS");
    });
    screen.Bar1.UserRelease(1);
    App.Dispatch([this] {
        grid.SetTextMatrix(1, 1, "5");
        grid.SetTextMatrix(1, 1, "");
    });
    EXPECT_EQ(history.UndoSteps(), 1U);
}

TEST_F(Undoing, ANewActEndsWhatCouldBeRedone) {
    screen.Bar1.UserRelease(2);
    Write(grid, 1, 1, "5");
    history.Undo();
    Write(grid, 1, 1, "6");
    EXPECT_FALSE(history.Redo());
    EXPECT_EQ(grid.TextMatrix(1, 1), "6");
}

TEST_F(Undoing, DoesNothingWhereTheTablesWithRowsAreDisabled) {
    screen.Bar1.UserRelease(2);
    Write(grid, 1, 1, "5");
    screen.Fix.UserClick();
    EXPECT_FALSE(history.Undo());
    EXPECT_FALSE(history.Redo());
    EXPECT_EQ(grid.TextMatrix(1, 1), "5");
}

TEST_F(Undoing, AHeldArrowIsOneStepWithItsPress) {
    screen.Bar2.UserRelease(40);
    Write(screen.Grid2, 40, 1, "last");
    Write(screen.Grid2, 35, 1, "other");
    const std::string before = Seen();
    screen.Bar2.UserStepToMax();
    for (int held = 500; held <= 1000; held += 50) {
        screen.Bar2.UserStepToMax(held);
    }
    EXPECT_EQ(screen.Bar2.Value, 28);
    EXPECT_EQ(history.UndoSteps(), 4U);
    history.Undo();
    EXPECT_EQ(Seen(), before);
    history.Redo();
    EXPECT_EQ(screen.Bar2.Value, 28);
    screen.Bar2.UserStepToMax();
    screen.Bar2.UserStepToMax();  // two presses are two steps
    EXPECT_EQ(history.UndoSteps(), 6U);
}

TEST_F(Undoing, GoesBackAtLeast200Steps) {
    screen.Bar1.UserRelease(1);
    for (int i = 1; i <= 220; ++i) {
        Write(grid, 1, 1, std::to_string(i));
    }
    for (int i = 219; i >= 20; --i) {
        ASSERT_TRUE(history.Undo());
        ASSERT_EQ(grid.TextMatrix(1, 1), std::to_string(i));
    }
}

// Rows that were added and taken away while the one choice stood would else come back on the screen of the other.
TEST_F(Undoing, TheChoiceOfOtherDataIsAStepOfItsOwnWhereThereAreNone) {
    screen.New.UserClick();
    screen.Bar1.UserRelease(1);
    screen.Bar1.UserRelease(0);
    screen.Old.UserClick();
    EXPECT_EQ(history.UndoSteps(), 4U);
    EXPECT_TRUE(history.UndoReplaces());
    EXPECT_FALSE(history.RedoReplaces());
    history.Undo();
    EXPECT_TRUE(screen.New.Value);
    EXPECT_FALSE(screen.Old.Value);
    EXPECT_EQ(screen.Bar1.Value, 0);
    EXPECT_TRUE(history.RedoReplaces());
    EXPECT_FALSE(history.UndoReplaces());
    history.Undo();
    EXPECT_EQ(screen.Bar1.Value, 1);
    screen.Old.UserClick();  // nothing of the one choice is redone on the screen of the other
    EXPECT_EQ(history.RedoSteps(), 0U);
    history.Undo();
    history.Undo();
    history.Undo();
    EXPECT_FALSE(screen.New.Value || screen.Old.Value);
    EXPECT_EQ(screen.Name.Text, "");
}

TEST_F(Undoing, ForgetsWhereItIsTold) {
    screen.Bar1.UserRelease(2);
    history.Forget();
    EXPECT_FALSE(history.Undo());
    EXPECT_EQ(history.Bytes(), 0U);
}

/// Acts by chance, with a fixed seed: behind each the state is noted, and must come back step by step, and again.
TEST_F(Undoing, ByChanceBringsEveryEarlierStateBack) {
    std::mt19937 chance(20240607);
    const auto upTo = [&](int most) { return static_cast<int>(chance() % static_cast<unsigned>(most + 1)); };
    std::vector<std::string> states{Seen()};
    for (int i = 0; i < 240; ++i) {
        forms::MSFlexGrid& one = upTo(1) == 0 ? screen.Grid1 : screen.Grid2;
        forms::VScrollBar& bar = &one == &screen.Grid1 ? screen.Bar1 : screen.Bar2;
        switch (upTo(4)) {
            case 0:
                bar.UserRelease(upTo(12));
                break;
            case 1:
                screen.New.UserClick();
                break;
            case 2:
                App.Dispatch([&] {  // a block, over a count that goes down and up
                    bar.Value = upTo(3);
                    bar.Value = upTo(9);
                    for (int row = 1; row < one.Rows; ++row) {
                        one.SetTextMatrix(row, 1 + upTo(3), std::to_string(upTo(99)));
                    }
                });
                break;
            default:
                if (one.HasDataRows()) {
                    Write(one, 1 + upTo(one.Rows - 2), 1 + upTo(3), std::to_string(upTo(999)));
                }
        }
        if (history.UndoSteps() == states.size()) {
            states.push_back(Seen());
        } else {
            states.back() = Seen();  // an act that changed no data, or only the rest of the screen
        }
    }
    ASSERT_EQ(history.UndoSteps() + 1, states.size());
    ASSERT_GT(states.size(), 150U);
    const auto tables = [](const std::string& seen) { return seen.substr(0, seen.rfind('\n')); };
    for (int round = 0; round < 2; ++round) {
        for (std::size_t i = states.size() - 1; i > 0; --i) {
            ASSERT_TRUE(history.Undo());
            ASSERT_EQ(tables(Seen()), tables(states[i - 1])) << "step " << i;
        }
        for (std::size_t i = 1; i < states.size(); ++i) {
            ASSERT_TRUE(history.Redo());
            ASSERT_EQ(tables(Seen()), tables(states[i])) << "step " << i;
        }
    }
}

// 10000 rows of four texts of up to 15 digits, each replaced whole 200 times: 200 x 40000 texts of 15 bytes, with two
// bytes each of the packing, are 136 MB; typical numbers of 6 digits take 64 MB.
TEST_F(Undoing, OfWholeTablesOfTenThousandRowsStaysSmall) {
    constexpr int rows = 10000;
    screen.Bar2.UserRelease(rows);
    for (int round = 0; round < 10; ++round) {
        App.Dispatch([&] {
            for (int row = 1; row <= rows; ++row) {
                for (int col = 1; col < 5; ++col) {
                    screen.Grid2.SetTextMatrix(row, col,
                                               std::to_string(100000 + (row * 31 + col * 7 + round) % 900000));
                }
            }
        });
    }
    EXPECT_EQ(history.UndoSteps(), 11U);
    EXPECT_LT(history.Bytes() / 10, 340'000U);  // 8 bytes a text, a first round of empty ones
    history.Undo();
    EXPECT_EQ(screen.Grid2.TextMatrix(rows, 4), std::to_string(100000 + (rows * 31 + 4 * 7 + 8) % 900000));
}

}  // namespace
}  // namespace zirvo::test
