// The editor on a grid that it is bound to by hand: binding, release, the cell and scroll events, tab stops.
#include "grid/cls_flex_grid_edit.h"

#include <gtest/gtest.h>

#include "base/runtime_fault.h"
#include "grid/edited_screen.h"

namespace zirvo {
namespace {

using test::EditedScreen;

class FlexGridEdit : public testing::Test {
protected:
    test::EditedWorld World;
    EditedScreen& Screen = *World.Screen;
    forms::MSFlexGrid& Grid = Screen.Grid;
    std::shared_ptr<clsFlexGridEdit> Editor = std::make_shared<clsFlexGridEdit>();

    void Bind() { Editor->FlexGridControl(Grid); }
    void Open(int key = 0) {
        World.App.Dispatch([&] { Editor->BeginEdit(key); });
    }
    forms::TextBox& Box() { return *Editor->Box(); }
    forms::Control* Named(const char* name) { return Screen.Controls.Find(name); }
};

// Binding and release -----------------------------------------------------------------------------------------------

TEST_F(FlexGridEdit, HasNoBoxBeforeItIsBound) {
    EXPECT_EQ(Editor->Box(), nullptr);
    int key = '5';
    Editor->BeginEdit(key);
    Editor->MoveEdit(1);
    Editor->SaveTabStops();
    Editor->RestoreTabStops();
    Editor->CommitEdit();
    Editor->ReleaseGrid();
    EXPECT_EQ(key, '5');
    EXPECT_TRUE(Screen.Other.TabStop);
}

TEST_F(FlexGridEdit, BindingAddsAHiddenFlatBoxInFrontInTheGridsContainer) {
    Grid.Font = forms::FontSpec{.Name = "Courier", .Size = 10};
    const int controls = Screen.Controls.Count();
    Bind();
    EXPECT_EQ(Screen.Controls.Count(), controls + 1);
    ASSERT_NE(Editor->Box(), nullptr);
    EXPECT_EQ(Named("tbFgEdit1"), Editor->Box());
    EXPECT_EQ(Box().Container(), &Screen.Frame1);
    EXPECT_FALSE(Box().Visible);
    EXPECT_EQ(Box().BorderStyle, 0);
    EXPECT_EQ(Box().Text, "");
    EXPECT_EQ(Box().Font.Get(), Grid.Font.Get());
    EXPECT_EQ(Box().TabPlace(), &Grid);
    for (const forms::Control* control : Screen.Controls) {
        EXPECT_TRUE(control == Editor->Box() || control->Depth() < Box().Depth()) << control->Name();
    }
}

TEST_F(FlexGridEdit, ANameClashMakesTheNameGrowByAFurtherOne) {
    Screen.Controls.Add("tbFgEdit1", nullptr);
    Bind();
    EXPECT_EQ(Editor->BoxName(), "tbFgEdit11");
    const auto second = std::make_shared<clsFlexGridEdit>();
    second->FlexGridControl(Grid);
    EXPECT_EQ(second->BoxName(), "tbFgEdit111");
}

TEST_F(FlexGridEdit, ANewBindingTakesTheOldBoxAwayAndCommitsNothing) {
    Bind();
    Open();
    Box().Text = "7";
    Bind();
    EXPECT_EQ(Grid.TextMatrix(1, 1), "110");
    EXPECT_EQ(Editor->BoxName(), "tbFgEdit1");
    EXPECT_FALSE(Box().Visible);
}

TEST_F(FlexGridEdit, TheEndOfTheInstanceTakesTheBoxAwayAndCommitsNothing) {
    Bind();
    Open();
    Box().Text = "7";
    Editor.reset();
    EXPECT_EQ(Named("tbFgEdit1"), nullptr);
    EXPECT_EQ(Grid.TextMatrix(1, 1), "110");
    Grid.Row = 2;  // the grid's events find nobody
    World.App.Dispatch([&] { Grid.DblClick(); });
    EXPECT_EQ(Named("tbFgEdit1"), nullptr);
}

TEST_F(FlexGridEdit, MayOutliveItsForm) {
    Bind();
    Open();
    World.App.Dispatch([&] { Screen.Unload(); });
    Editor.reset();
    EXPECT_EQ(World.App.Find(EditedScreen::FormName), nullptr);
}

TEST_F(FlexGridEdit, AReleasedGridIsLeftAlone) {
    Bind();
    Editor->ReleaseGrid();
    EXPECT_EQ(Editor->Box(), nullptr);
    Grid.Row = 2;
    EXPECT_EQ(Grid.Tag, "");
    int key = '5';
    Grid.KeyPress(key);
    EXPECT_EQ(Named("tbFgEdit1"), nullptr);
}

TEST_F(FlexGridEdit, EventsOfAnEarlierGridAreNotHeard) {
    forms::MSFlexGrid another(Screen, "Another");
    another.Rows = 2;
    Editor->FlexGridControl(another);
    Bind();
    another.DblClick();
    EXPECT_FALSE(Box().Visible);
}

/// Replaces the screen's editor while it runs, as the focus of a grid would.
class ReplacedWhileMoving : public clsFlexGridEdit {
public:
    explicit ReplacedWhileMoving(EditedScreen& screen) : screen_(screen) {}
    void fg_EnterCell() override {
        if (IsMoving()) {
            screen_.Editor = std::make_shared<clsFlexGridEdit>();
            screen_.Editor->FlexGridControl(screen_.Grid);
            BoxStoodStill = Box() != nullptr;
        }
        clsFlexGridEdit::fg_EnterCell();
    }
    static inline bool BoxStoodStill = false;

private:
    EditedScreen& screen_;
};

TEST_F(FlexGridEdit, AReplacedInstanceLivesUntilItsOperationHasEnded) {
    Screen.Editor = std::make_shared<ReplacedWhileMoving>(Screen);
    Screen.Editor->FlexGridControl(Grid);
    const std::weak_ptr<clsFlexGridEdit> old = Screen.Editor;
    int enter = forms::key::Enter;
    Screen.Editor->Box()->KeyDown(enter);
    EXPECT_TRUE(ReplacedWhileMoving::BoxStoodStill);
    EXPECT_TRUE(old.expired());
    EXPECT_EQ(Named("tbFgEdit1"), nullptr);
    EXPECT_EQ(Screen.Editor->BoxName(), "tbFgEdit11");
    EXPECT_EQ(Named("tbFgEdit11"), Screen.Editor->Box());
    EXPECT_EQ(Grid.Col, 2);
    Grid.DblClick();  // goes to the new one
    EXPECT_TRUE(Screen.Editor->Box()->Visible);
}

// Properties --------------------------------------------------------------------------------------------------------

TEST_F(FlexGridEdit, TheBorderStyleReachesABoxThatStandsAndTheNextOne) {
    Bind();
    Editor->EditBoxBorderStyle(1);
    EXPECT_EQ(Box().BorderStyle, 1);
    Bind();
    EXPECT_EQ(Box().BorderStyle, 1);
}

TEST_F(FlexGridEdit, EnterGoesToTheNextCellWhateverItsBehaviour) {
    Bind();
    for (const Int16 flag : {Int16{1}, Int16{-1}, Int16{0}}) {
        Editor->EnterKeyBehaviour(flag);
        Grid.Col = 1;
        Open();
        int enter = forms::key::Enter;
        Box().KeyDown(enter);
        EXPECT_EQ(Grid.Col, 2);
    }
}

TEST_F(FlexGridEdit, WithTabKeyBehaviourTheOthersAreNoTabStopsWhileACellIsEdited) {
    Bind();
    Editor->TabKeyBehaviour(-1);
    Screen.Other.TabStop = false;
    EXPECT_TRUE(Screen.Button.TabStop);
    Open();
    EXPECT_FALSE(Screen.Button.TabStop);
    EXPECT_FALSE(Screen.Check(0).TabStop);
    EXPECT_FALSE(Screen.Check(1).TabStop);
    Box().LostFocus();
    EXPECT_TRUE(Screen.Button.TabStop);
    EXPECT_TRUE(Screen.Check(0).TabStop);
    EXPECT_TRUE(Screen.Check(1).TabStop);
    EXPECT_FALSE(Screen.Other.TabStop);
}

TEST_F(FlexGridEdit, ElementsOfAControlArrayKeepTheirOwnTabStops) {
    Bind();
    Screen.Check(1).TabStop = false;
    Editor->SaveTabStops();
    Editor->RestoreTabStops();
    EXPECT_TRUE(Screen.Check(0).TabStop);
    EXPECT_FALSE(Screen.Check(1).TabStop);
}

TEST_F(FlexGridEdit, AnEditThatGoesOnInAnotherCellSavesTheTabStopsAsTheyWere) {
    Bind();
    Editor->TabKeyBehaviour(-1);
    Open();
    World.App.Dispatch([&] { Editor->MoveEdit(1); });
    EXPECT_TRUE(Box().Visible);
    EXPECT_FALSE(Screen.Button.TabStop);
    Box().LostFocus();
    EXPECT_TRUE(Screen.Button.TabStop);
}

TEST_F(FlexGridEdit, WithoutTabKeyBehaviourTheTabStopsStay) {
    Bind();
    Open();
    EXPECT_TRUE(Screen.Button.TabStop);
}

TEST_F(FlexGridEdit, TabKeyBehaviourGoingToZeroGivesTheTabStopsBackOnce) {
    Bind();
    Editor->TabKeyBehaviour(1);
    Open();
    Editor->TabKeyBehaviour(2);
    EXPECT_FALSE(Screen.Button.TabStop);
    Editor->TabKeyBehaviour(0);
    EXPECT_TRUE(Screen.Button.TabStop);
    Screen.Button.TabStop = false;
    Editor->RestoreTabStops();  // the store is empty again
    EXPECT_FALSE(Screen.Button.TabStop);
}

TEST_F(FlexGridEdit, TabKeyBehaviourThatWasZeroGivesNothingBack) {
    Bind();
    Editor->SaveTabStops();
    Editor->TabKeyBehaviour(0);
    EXPECT_FALSE(Screen.Button.TabStop);
}

TEST_F(FlexGridEdit, AControlThatHasGoneSinceTheSavingIsPassedOver) {
    Bind();
    Screen.Controls.Add("Gone", nullptr);
    Editor->SaveTabStops();
    Screen.Controls.Remove("Gone");
    Editor->RestoreTabStops();
    EXPECT_TRUE(Screen.Button.TabStop);
}

// Cell and scroll events --------------------------------------------------------------------------------------------

TEST_F(FlexGridEdit, EnteringACellHidesTheBoxAndKeepsTheTextInTheTag) {
    Bind();
    Box().Visible = true;
    Editor->fg_EnterCell();
    EXPECT_FALSE(Box().Visible);
    EXPECT_EQ(Grid.Tag, "110");
    Grid.Row = 2;
    EXPECT_EQ(Grid.Tag, "210");
}

TEST_F(FlexGridEdit, LeavingACellCommitsAnOpenBox) {
    Bind();
    Open();
    Box().Text = "7";
    Grid.Row = 2;
    EXPECT_EQ(Grid.TextMatrix(1, 1), "7");
    EXPECT_EQ(Grid.TextMatrix(2, 1), "210");
    EXPECT_FALSE(Box().Visible);
}

TEST_F(FlexGridEdit, LeavingACellWritesNothingFromAHiddenBox) {
    Bind();
    Box().Text = "7";
    Grid.Row = 2;
    EXPECT_EQ(Grid.TextMatrix(1, 1), "110");
}

TEST_F(FlexGridEdit, RowsThatGoWithTheEditedCellCommitFirst) {
    Bind();
    Grid.Row = 3;
    Open();
    Box().Text = "7";
    Grid.Rows = 3;
    EXPECT_FALSE(Box().Visible);
    EXPECT_EQ(Grid.Row, 2);
    EXPECT_EQ(Grid.TextMatrix(2, 1), "210");
}

TEST_F(FlexGridEdit, CommitEditWritesAnOpenBoxAndNoHiddenOne) {
    Bind();
    Box().Text = "8";
    Editor->CommitEdit();
    EXPECT_EQ(Grid.TextMatrix(1, 1), "110");
    Open();
    Box().Text = "7";
    Editor->CommitEdit();
    EXPECT_EQ(Grid.TextMatrix(1, 1), "7");
    EXPECT_FALSE(Box().Visible);
}

TEST_F(FlexGridEdit, LosingTheFocusCommitsAnOpenBoxAndNoHiddenOne) {
    Bind();
    Box().Text = "8";
    Box().LostFocus();
    EXPECT_EQ(Grid.TextMatrix(1, 1), "110");
    Open();
    Box().Text = "7";
    Box().LostFocus();
    EXPECT_EQ(Grid.TextMatrix(1, 1), "7");
    EXPECT_FALSE(Box().Visible);
}

/// Rows for more than one sight, without the focus in the box, so that it stays open while the grid scrolls.
class ScrolledEdit : public FlexGridEdit {
protected:
    ScrolledEdit() {
        Grid.Rows = 40;
        Bind();
        Grid.Row = 5;
        Open();
        EXPECT_FALSE(Grid.RowIsVisible(30));
    }
    double CellTopNow() { return Grid.Top + Grid.RowTop(Grid.Row); }
};

TEST_F(ScrolledEdit, AHiddenBoxStaysWhereItIs) {
    Box().Visible = false;
    const double top = Box().Top;
    Grid.TopRow = 4;
    EXPECT_EQ(Box().Top, top);
}

TEST_F(ScrolledEdit, TheBoxFollowsItsCellInSightAndKeepsItsSize) {
    World.App.Dispatch([&] {
        Box().Move(Box().Left, Box().Top, 777, 222);
        Grid.TopRow = 3;
        EXPECT_EQ(Box().Top, CellTopNow());
        EXPECT_EQ(Box().Left, Grid.Left + Grid.ColLeft(1));
        EXPECT_EQ(Box().Width, 777);
        EXPECT_EQ(Box().Height, 222);
        EXPECT_TRUE(Box().Visible);
        EXPECT_TRUE(Grid.HasFocus());
        Box().SetFocus();
    });
}

TEST_F(ScrolledEdit, TheBoxWaitsOutsideWhileItsCellIsOutOfSight) {
    World.App.Dispatch([&] {
        Grid.TopRow = 20;
        EXPECT_EQ(Box().Left, -Box().Width);
        EXPECT_EQ(Box().Top, -Box().Height);
        EXPECT_TRUE(Box().Visible);
        EXPECT_TRUE(Grid.HasFocus());
        Grid.TopRow = 4;
        EXPECT_EQ(Box().Top, CellTopNow());
        Box().SetFocus();
    });
}

TEST_F(ScrolledEdit, AKeyInABoxThatWaitsOutsideBringsCellAndBoxBack) {
    World.App.Dispatch([&] {
        Grid.TopRow = 20;
        int digit = '5';
        Box().KeyDown(digit);
        EXPECT_TRUE(Grid.RowIsVisible(5));
        EXPECT_EQ(Box().Top, CellTopNow());
        EXPECT_EQ(Box().Left, Grid.Left + Grid.ColLeft(1));
        EXPECT_EQ(digit, '5');
        Box().SetFocus();
    });
}

TEST_F(ScrolledEdit, OneEdgeOutsideIsEnough) {
    for (const double left : {-1.0, 100.0}) {
        World.App.Dispatch([&] {
            Grid.TopRow = 20;
            Box().Move(left, left < 0 ? 100 : -1, Box().Width, Box().Height);
            int digit = '5';
            Box().KeyDown(digit);
            EXPECT_TRUE(Grid.RowIsVisible(5));
            EXPECT_EQ(Box().Top, CellTopNow());
            Box().SetFocus();
        });
    }
}

// Where the box holds the focus, the focus that Scroll gives to the grid ends the edit.
TEST_F(ScrolledEdit, ScrollingWhileTheBoxHoldsTheFocusCommitsAndCloses) {
    ASSERT_TRUE(Box().HasFocus());
    World.App.Dispatch([&] { Box().Text = "7"; });
    World.App.Dispatch([&] { Grid.UserScrollTo(20, 1); });
    EXPECT_EQ(Grid.TextMatrix(5, 1), "7");
    EXPECT_FALSE(Box().Visible);
    EXPECT_TRUE(Grid.HasFocus());
}

}  // namespace
}  // namespace zirvo
