// What each key does: where it begins an edit, in the box, and where an edit goes on.
#include <gtest/gtest.h>

#include <string_view>

#include "base/fault_of.h"
#include "forms/key_stroke.h"
#include "grid/edited_screen.h"

namespace zirvo {
namespace {

using test::EditedScreen;
namespace key = forms::key;

constexpr std::string_view OfNumbers = "+-.0123456789DEde";

bool IsPrintable(int code) {
    return code >= 33 && code <= 126;
}
bool IsOfNumber(int code) {
    return OfNumbers.find(static_cast<char>(code)) != std::string_view::npos;
}

class FlexGridEditKeys : public testing::Test {
protected:
    test::EditedWorld World;
    EditedScreen& Screen = *World.Screen;
    forms::MSFlexGrid& Grid = Screen.Grid;
    std::shared_ptr<clsFlexGridEdit> Editor = std::make_shared<clsFlexGridEdit>();

    FlexGridEditKeys() { Rebind(); }

    /// A box that has held nothing yet, over cell (1, 1) with "123".
    void Rebind() {
        Editor->FlexGridControl(Grid);
        Grid.Row = 1;
        Grid.Col = 1;
        Grid.SetTextMatrix(1, 1, "123");
    }
    forms::TextBox& Box() { return *Editor->Box(); }
    /// Gives the code as the operation left it.
    int Begin(int code) {
        World.App.Dispatch([&] { Editor->BeginEdit(code); });
        return code;
    }
    void Move(int direction) {
        World.App.Dispatch([&] { Editor->MoveEdit(direction); });
    }
    int PressInBox(int code) {
        Box().KeyPress(code);
        return code;
    }
    void DownInBox(int code) {
        World.App.Dispatch([&] { Box().KeyDown(code); });
    }
};

// Keys that begin an edit -------------------------------------------------------------------------------------------

TEST_F(FlexGridEditKeys, ACodeWithoutACharacterOpensTheBoxWithTheCellsText) {
    for (int code = 0; code <= 32; ++code) {
        if (code == key::Backspace) {
            continue;
        }
        Rebind();
        Box().Text = "123";
        Box().SelStart = 2;
        EXPECT_EQ(Begin(code), code);
        EXPECT_TRUE(Box().Visible) << code;
        EXPECT_EQ(Box().Text, "123") << code;
        EXPECT_EQ(Box().SelStart, 0) << code;
        EXPECT_EQ(Grid.Text(), "123") << code;
        EXPECT_TRUE(Box().HasFocus()) << code;
    }
}

TEST_F(FlexGridEditKeys, ACharacterThatNoNumberHoldsIsDroppedAndOpensTheBoxWithTheCellsText) {
    for (int code = 33; code <= 126; ++code) {
        if (IsOfNumber(code)) {
            continue;
        }
        Rebind();
        EXPECT_EQ(Begin(code), 0) << code;
        EXPECT_TRUE(Box().Visible) << code;
        EXPECT_EQ(Box().Text, "123") << code;
        EXPECT_EQ(Grid.Text(), "123") << code;
        EXPECT_TRUE(Box().HasFocus()) << code;
    }
}

TEST_F(FlexGridEditKeys, ACharacterOfANumberReplacesTheTextWithTheCaretBehindIt) {
    for (const char c : OfNumbers) {
        Rebind();
        EXPECT_EQ(Begin(c), c);
        EXPECT_TRUE(Box().Visible) << c;
        EXPECT_EQ(Box().Text, std::string(1, c).c_str());
        EXPECT_EQ(Box().SelStart, 1) << c;
        EXPECT_EQ(Grid.Text(), "123") << c;
        EXPECT_TRUE(Box().HasFocus()) << c;
    }
}

TEST_F(FlexGridEditKeys, ACharacterBeyondAsciiIsOneOfItsOwn) {
    const struct {
        int Code;
        const char* Text;
    } rows[] = {{128, "\xC2\x80"}, {0xFF15, "５"}, {0x5C64, "層"}, {0xFF15 - 0x10000, "５"}};
    for (const auto& row : rows) {
        Rebind();
        EXPECT_EQ(Begin(row.Code), row.Code);
        EXPECT_EQ(Box().Text, row.Text);
        EXPECT_EQ(Box().SelStart, 1);
    }
}

TEST_F(FlexGridEditKeys, BackspaceEmptiesTheCellAndShowsWhatTheBoxLastHeld) {
    Begin('4');
    Editor->CommitEdit();
    Grid.SetText("123");
    EXPECT_EQ(Begin(key::Backspace), key::Backspace);
    EXPECT_EQ(Grid.Text(), "");
    EXPECT_TRUE(Box().Visible);
    EXPECT_EQ(Box().Text, "4");
    EXPECT_EQ(Box().SelStart, 0);
}

TEST_F(FlexGridEditKeys, EnterBehindBackspaceWritesTheStaleTextOfTheBox) {
    Begin('4');
    Editor->CommitEdit();
    Grid.SetText("123");
    Begin(key::Backspace);
    DownInBox(key::Enter);
    EXPECT_EQ(Grid.TextMatrix(1, 1), "4");
}

TEST_F(FlexGridEditKeys, DeleteEmptiesTheCellWithoutABox) {
    int code = key::Delete;
    Grid.KeyDown(code);
    EXPECT_EQ(code, 127);
    EXPECT_EQ(Grid.Text(), "");
    EXPECT_FALSE(Box().Visible);
}

TEST_F(FlexGridEditKeys, NoOtherKeyOfTheGridDoesAnythingOnItsWayDown) {
    for (int code = 0; code < 256; ++code) {
        if (code != key::Delete) {
            int after = code;
            Grid.KeyDown(after);
            EXPECT_EQ(after, code);
            EXPECT_EQ(Grid.Text(), "123") << code;
            EXPECT_FALSE(Box().Visible) << code;
        }
    }
}

TEST_F(FlexGridEditKeys, CodeFortySixIsAPointAmongTheCharacters) {
    int point = '.';
    Grid.KeyPress(point);
    EXPECT_EQ(Box().Text, ".");
    EXPECT_TRUE(Box().Visible);
}

TEST_F(FlexGridEditKeys, ADoubleClickOpensTheBoxWithTheCaretAtTheStart) {
    Grid.DblClick();
    EXPECT_TRUE(Box().Visible);
    EXPECT_EQ(Box().Text, "123");
    EXPECT_EQ(Box().SelStart, 0);
}

TEST_F(FlexGridEditKeys, TheBoxLiesExactlyOverTheCell) {
    Grid.SetColWidth(0, 400);
    Grid.SetColWidth(1, 700);
    Grid.SetColWidth(2, 900);
    Grid.Row = 3;
    Grid.Col = 2;
    Begin(0);
    EXPECT_EQ(Box().Left, Grid.Left + forms::MSFlexGrid::Border + 400 + 700);
    EXPECT_EQ(Box().Top, Grid.Top + forms::MSFlexGrid::Border + 3 * Grid.RowHeight);
    EXPECT_EQ(Box().Left, Grid.Left + Grid.CellLeft());
    EXPECT_EQ(Box().Top, Grid.Top + Grid.CellTop());
    EXPECT_EQ(Box().Width, 900);
    EXPECT_EQ(Box().Height, Grid.RowHeight.Get());
}

TEST_F(FlexGridEditKeys, ACellOutOfSightComesIntoSightFirst) {
    Grid.Rows = 40;
    Grid.Row = 30;
    EXPECT_FALSE(Grid.RowIsVisible(30));
    Begin('5');
    EXPECT_TRUE(Grid.RowIsVisible(30));
    EXPECT_EQ(Box().Top, Grid.Top + Grid.RowTop(30));
    EXPECT_TRUE(Box().Visible);
    EXPECT_EQ(Box().Text, "5");
}

// Keys in the box ---------------------------------------------------------------------------------------------------

TEST_F(FlexGridEditKeys, TheBoxTakesTheCharactersOfANumberAndWhatIsNoAsciiCharacter) {
    Begin(0);
    for (int code = 1; code < 300; ++code) {
        const bool isCleared = code == 9 || code == 13 || code == 27 || code == 32 || code == 127 ||
                               (IsPrintable(code) && !IsOfNumber(code));
        EXPECT_EQ(PressInBox(code), isCleared ? 0 : code) << code;
    }
    EXPECT_EQ(PressInBox(0x5C64), 0x5C64);
    EXPECT_EQ(PressInBox(-100), -100);
}

TEST_F(FlexGridEditKeys, EnterCommitsAndOpensTheNextCellOfTheRow) {
    Begin('5');
    DownInBox(key::Enter);
    EXPECT_EQ(Grid.TextMatrix(1, 1), "5");
    EXPECT_EQ(Grid.Row, 1);
    EXPECT_EQ(Grid.Col, 2);
    EXPECT_TRUE(Box().Visible);
    EXPECT_EQ(Box().Text, "120");
    EXPECT_EQ(Box().SelStart, 0);
    EXPECT_TRUE(Box().HasFocus());
}

TEST_F(FlexGridEditKeys, DownCommitsAndOpensTheCellBelow) {
    Begin('5');
    DownInBox(key::Down);
    EXPECT_EQ(Grid.TextMatrix(1, 1), "5");
    EXPECT_EQ(Grid.Row, 2);
    EXPECT_EQ(Grid.Col, 1);
    EXPECT_EQ(Box().Text, "210");
}

TEST_F(FlexGridEditKeys, UpCommitsAndOpensTheCellAbove) {
    Grid.Row = 2;
    Begin('5');
    DownInBox(key::Up);
    EXPECT_EQ(Grid.TextMatrix(2, 1), "5");
    EXPECT_EQ(Grid.Row, 1);
    EXPECT_EQ(Box().Text, "123");
}

TEST_F(FlexGridEditKeys, EscDropsWhatWasTypedAndGivesTheGridTheFocus) {
    Begin('5');
    DownInBox(key::Escape);
    EXPECT_EQ(Grid.Text(), "123");
    EXPECT_FALSE(Box().Visible);
    EXPECT_TRUE(Grid.HasFocus());
}

TEST_F(FlexGridEditKeys, AllOtherKeysAreLeftToTheBoxAndTheForm) {
    Begin('5');
    for (const int code : {key::Left, key::Right, key::Tab, key::Home, key::End, key::Delete, key::Backspace,
                           key::PageUp, key::PageDown, key::F1, static_cast<int>('7')}) {
        int after = code;
        Box().KeyDown(after);
        EXPECT_EQ(after, code);
        EXPECT_TRUE(Box().Visible);
        EXPECT_EQ(Grid.TextMatrix(1, 1), "123");
        EXPECT_EQ(Grid.Col, 1);
    }
}

// Where an edit goes on ---------------------------------------------------------------------------------------------

struct Step {
    int Direction;
    int Rows, Cols;
    int FromRow, FromCol;
    int ToRow, ToCol;
};

class MovedEdit : public FlexGridEditKeys, public testing::WithParamInterface<Step> {};

TEST_P(MovedEdit, GoesToTheCellOfTheTable) {
    const Step& step = GetParam();
    Grid.Rows = step.Rows;
    Grid.Cols = step.Cols;
    Grid.Row = step.FromRow;
    Grid.Col = step.FromCol;
    Grid.SetTextMatrix(step.ToRow, step.ToCol, "there");
    Begin(0);
    Box().Text = "typed";
    Move(step.Direction);
    EXPECT_EQ(Grid.Row, step.ToRow);
    EXPECT_EQ(Grid.Col, step.ToCol);
    EXPECT_EQ(Grid.TextMatrix(step.FromRow, step.FromCol), "typed");
    const bool stays = step.FromRow == step.ToRow && step.FromCol == step.ToCol;
    EXPECT_EQ(Box().Text, stays ? "typed" : "there");
    EXPECT_TRUE(Box().Visible);
    EXPECT_TRUE(Box().HasFocus());
    EXPECT_FALSE(Editor->IsMoving());
}

INSTANTIATE_TEST_SUITE_P(Table, MovedEdit,
                         testing::Values(
                             // 1, next along the row; behind the last cell to (1, 1)
                             Step{1, 4, 4, 1, 1, 1, 2}, Step{1, 4, 4, 1, 3, 2, 1}, Step{1, 4, 4, 3, 2, 3, 3},
                             Step{1, 4, 4, 3, 3, 1, 1}, Step{1, 2, 2, 1, 1, 1, 1},
                             // 2, next down the column; behind the last cell to (1, 1)
                             Step{2, 4, 4, 1, 1, 2, 1}, Step{2, 4, 4, 3, 1, 1, 2}, Step{2, 4, 4, 3, 3, 1, 1},
                             Step{2, 2, 4, 1, 1, 1, 2}, Step{2, 2, 2, 1, 1, 1, 1},
                             // 3, up; from the top row to the bottom of the column to the right
                             Step{3, 4, 4, 3, 1, 2, 1}, Step{3, 4, 4, 1, 1, 3, 2}, Step{3, 4, 4, 1, 3, 1, 3},
                             Step{3, 4, 4, 3, 3, 2, 3}, Step{3, 2, 4, 1, 1, 1, 2}, Step{3, 2, 4, 1, 3, 1, 1},
                             // 4, back along the row; from the first column to the end of the row below
                             Step{4, 4, 4, 1, 2, 1, 1}, Step{4, 4, 4, 1, 1, 2, 3}, Step{4, 4, 4, 3, 1, 3, 1},
                             Step{4, 4, 2, 3, 1, 1, 1}, Step{4, 4, 2, 1, 1, 2, 1}));

// More fixed rows and columns show where the rules take FixedRows and FixedCols and where the literal 1.
TEST_F(FlexGridEditKeys, WrapsGoToTheLiteralRowAndColumnOne) {
    Grid.FixedRows = 2;
    Grid.FixedCols = 2;
    const struct {
        int Direction, FromRow, FromCol, ToRow, ToCol;
    } rows[] = {
        {1, 2, 3, 3, 1}, {1, 3, 3, 1, 1}, {2, 3, 2, 1, 3},
        {2, 3, 3, 1, 1}, {3, 2, 2, 3, 3},  // row 2 is the top of the data
        {4, 2, 2, 3, 3},                   // column 2 is the first of the data
    };
    for (const auto& row : rows) {
        Grid.Row = row.FromRow;
        Grid.Col = row.FromCol;
        Begin(0);
        Move(row.Direction);
        EXPECT_EQ(Grid.Row, row.ToRow) << row.Direction;
        EXPECT_EQ(Grid.Col, row.ToCol) << row.Direction;
    }
}

TEST_F(FlexGridEditKeys, DirectionZeroOnlyGivesTheGridTheFocus) {
    World.App.Dispatch([&] {
        Begin('5');
        Editor->MoveEdit(0);
        EXPECT_TRUE(Grid.HasFocus());
        EXPECT_EQ(Grid.Text(), "123");
        EXPECT_EQ(Grid.Col, 1);
        EXPECT_EQ(Box().Text, "5");
        EXPECT_FALSE(Editor->IsMoving());
        Box().SetFocus();
    });
}

TEST_F(FlexGridEditKeys, AnUnknownDirectionDoesNothing) {
    Begin('5');
    for (const int direction : {-1, 5, 100}) {
        Move(direction);
        EXPECT_TRUE(Box().HasFocus());
        EXPECT_EQ(Box().Text, "5");
        EXPECT_EQ(Grid.Text(), "123");
        EXPECT_FALSE(Editor->IsMoving());
    }
}

/// Tells whether the move was marked while the next edit began, and fails there if asked to.
class WatchedMove : public clsFlexGridEdit {
public:
    bool WasMoving = false;
    bool Fails = false;
    void BeginEdit(int& code) override {
        WasMoving = IsMoving();
        if (Fails) {
            throw RuntimeFault(fault::InvalidCall);
        }
        clsFlexGridEdit::BeginEdit(code);
    }
};

TEST_F(FlexGridEditKeys, TheMoveIsMarkedUntilItEndsInWhateverWay) {
    const auto watched = std::make_shared<WatchedMove>();
    watched->FlexGridControl(Grid);
    watched->MoveEdit(1);
    EXPECT_TRUE(watched->WasMoving);
    EXPECT_FALSE(watched->IsMoving());
    watched->Fails = true;
    EXPECT_EQ(FaultOf([&] { watched->MoveEdit(1); }), 5);
    EXPECT_FALSE(watched->IsMoving());
}

}  // namespace
}  // namespace zirvo
