// The list of components on the map screen: what is typed into it, and what comes back when that is no component.
#include <gtest/gtest.h>

#include "graphics/screens.h"

namespace zirvo {
namespace {

using test::Screens;

TEST(Form6, TypingIntoTheListOfComponentsChoosesTheFirstThatFits) {
    Screens screens;
    Form6& form = screens.OpenMap();
    forms::Type(form, "EP");
    EXPECT_EQ(form.Combo1.Text.Get(), "EPSx");
    EXPECT_EQ(form.Plot.Section.OutputComponent, ComponentEpsX);
    EXPECT_TRUE(form.Option3.Enabled);
    forms::Type(form, "Sz");
    EXPECT_EQ(form.Combo1.Text.Get(), "EPSz");
    EXPECT_EQ(form.Plot.Section.OutputComponent, ComponentEpsZ);
}

TEST(Form6, TypingBehindAChoiceChoosesAnew) {
    Screens screens;
    Form6& form = screens.OpenMap();
    form.Combo1.UserChoose(0);
    forms::Type(form, "EPSz");
    EXPECT_EQ(form.Combo1.Text.Get(), "EPSz");
    EXPECT_EQ(form.Plot.Section.OutputComponent, ComponentEpsZ);
}

TEST(Form6, ATextThatIsNoComponentGoesWithTheFocusAndTheOneInForceComesBack) {
    Screens screens;
    Form6& form = screens.OpenMap();
    forms::Type(form, "EPSz");
    ASSERT_EQ(form.Combo1.Text.Get(), "EPSz");
    forms::Type(form, "q");  // no entry: it stands there while the box has the focus
    EXPECT_NE(form.Combo1.Text.Get(), "EPSz");
    const auto component = form.Plot.Section.OutputComponent;
    forms::Type(form, "\t");
    EXPECT_EQ(form.Combo1.Text.Get(), "EPSz");
    EXPECT_EQ(form.Combo1.ListIndex, 1);
    EXPECT_EQ(form.Plot.Section.OutputComponent, component);
    EXPECT_TRUE(form.Option3.Enabled);
}

TEST(Form6, ATextThatIsNoComponentLeavesTheMapAndItsButtonsAlone) {
    Screens screens;
    Form6& form = screens.OpenMap();
    screens.Choose(1, SectionKind::XY, "0");
    screens.Start();
    const auto drawn = screens.Picture().Drawn().size();
    form.Combo1.UserFocus();
    forms::Type(form, "\b");
    EXPECT_EQ(form.Combo1.Text.Get(), "");
    form.Check1(0).UserFocus();
    EXPECT_EQ(form.Combo1.Text.Get(), "EPSx");
    EXPECT_EQ(screens.Picture().Drawn().size(), drawn);
    EXPECT_FALSE(form.Command5.Enabled) << "nothing to draw again";
    EXPECT_TRUE(form.Command7.Enabled);
}

TEST(Form6, BehindAClearNothingIsInForceAndNothingTypedStays) {
    Screens screens;
    Form6& form = screens.OpenMap();
    form.Combo1.UserChoose(0);
    form.Option3.UserClick();
    forms::Type(form, "0");
    screens.Start();
    form.Command8.UserClick();
    form.Combo1.UserFocus();
    forms::Type(form, "q\t");
    EXPECT_EQ(form.Combo1.Text.Get(), "");
    EXPECT_FALSE(form.Option3.Enabled);
}

}  // namespace
}  // namespace zirvo
