// Typing into the grids of the graphics path's data screen.
#include <gtest/gtest.h>

#include "graphics/screens.h"
#include "pavement/graphics_example.h"

namespace zirvo {
namespace {

using test::Screens;
using Texts = std::vector<std::string>;

// With the keys of a user: from the options over bars and grids to the map, no mouse.
TEST(Form5, ThePavementCanBeTypedInByKeyboardAlone) {
    Screens screens;
    screens.ShowData();
    Form5& form = screens.Data();
    ASSERT_EQ(forms::FocusOf(form), "Option1");
    forms::Type(form, " ");
    forms::Type(form, "\t");  // VScroll1
    ASSERT_EQ(forms::FocusOf(form), "VScroll1");
    forms::Press(form, forms::key::Up);
    forms::Press(form, forms::key::Up);
    forms::Type(form, "\t");
    ASSERT_EQ(forms::FocusOf(form), "VScroll2");
    forms::Press(form, forms::key::Up);
    forms::Type(form, "\t");
    ASSERT_EQ(forms::FocusOf(form), "MSFlexGrid1");
    forms::Type(form, "35000\r0.35\r5\r0\r1000\r0.4\r");
    forms::Type(form, "\t");
    ASSERT_EQ(forms::FocusOf(form), "MSFlexGrid2");
    forms::Type(form, "5000\r15\r0\r0\r0\r0\r");
    forms::Type(form, "\t");
    ASSERT_EQ(forms::FocusOf(form), "Text3");
    for (int i = 0; i < 3; ++i) {
        forms::Type(form, "\t");
    }
    ASSERT_EQ(forms::FocusOf(form), "Command5");
    forms::Type(form, "\r");
    ASSERT_EQ(forms::FocusOf(form), "Command6");
    forms::Type(form, " ");
    ASSERT_EQ(forms::FocusOf(form), "Command7");
    EXPECT_EQ(test::GetFile("Untitled.ven"), test::ExampleVen());
    forms::Type(form, "\r");
    Form6& map = screens.Map();
    EXPECT_EQ(screens.Desktop.Log.back(), "show Form6");
    forms::Press(map, forms::key::Down);
    ASSERT_EQ(map.Combo1.Text.Get(), "EPSx");
    forms::Type(map, "\t");
    ASSERT_EQ(forms::FocusOf(map), "Option3");
    forms::Type(map, " ");
    ASSERT_EQ(forms::FocusOf(map), "Text1");
    forms::Type(map, "2.5\r");
    EXPECT_TRUE(map.DataReady);
    EXPECT_EQ(screens.Boxes(), Texts{});
}

TEST(Form5, AClickOnDataOkCommitsTheCellThatIsBeingEdited) {
    Screens screens;
    screens.ShowData();
    Form5& form = screens.Data();
    screens.EnterExample();
    form.MSFlexGrid1.UserClickCell(1, 1);
    forms::Type(form, "40000");
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(1, 1), "35000");
    form.Command5.UserClick();
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(1, 1), "40000");
    EXPECT_FALSE(form.Command5.Enabled);

    Screens dropped;
    dropped.ShowData();
    dropped.EnterExample();
    Form5& other = dropped.Data();
    other.MSFlexGrid1.UserClickCell(1, 1);
    forms::Type(other, "0\x1b");
    other.Command5.UserClick();
    EXPECT_EQ(other.MSFlexGrid1.TextMatrix(1, 1), "35000") << "Esc has dropped what was typed";
    EXPECT_EQ(dropped.Boxes(), Texts{});
}

TEST(Form5, TheGridWithTheFocusHasAnEditorAndNoMarking) {
    Screens screens;
    screens.ShowData();
    Form5& form = screens.Data();
    screens.EnterExample();
    form.MSFlexGrid1.UserClickCell(1, 2);
    EXPECT_EQ(form.MSFlexGrid1.Highlight, forms::HighlightKind::Never);
    ASSERT_NE(form.Controls.Find("tbFgEdit1"), nullptr);
    EXPECT_EQ(form.Controls.Find("tbFgEdit1")->Container(), &form.Frame3);
    form.MSFlexGrid2.UserClickCell(1, 1);
    EXPECT_EQ(form.MSFlexGrid1.Highlight, forms::HighlightKind::Always);
    EXPECT_EQ(form.MSFlexGrid2.Highlight, forms::HighlightKind::Never);
    int boxes = 0;
    for (const forms::Control* control : form.Controls) {
        boxes += control->Name().starts_with("tbFgEdit") ? 1 : 0;
    }
    EXPECT_EQ(boxes, 1) << "the one before has gone with its editor";
    forms::Type(form, "7");
    form.Command5.UserClick();
    EXPECT_EQ(form.MSFlexGrid2.TextMatrix(1, 1), "7");
    EXPECT_EQ(form.MSFlexGrid2.Highlight, forms::HighlightKind::Always);
}

// Each focus of a grid brings an editor of its own, which knows nothing of what the one before has been given.
TEST(Form5, AnEditorBeginsWithAnEmptyBox) {
    Screens screens;
    screens.ShowData();
    Form5& form = screens.Data();
    screens.EnterExample();
    form.MSFlexGrid1.UserClickCell(1, 1);
    forms::Type(form, "123\x1b");
    form.Text3.UserFocus();
    form.MSFlexGrid1.UserClickCell(1, 2);
    forms::Type(form, "\b\r");
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(1, 1), "35000");
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(1, 2), "");
}

}  // namespace
}  // namespace zirvo
