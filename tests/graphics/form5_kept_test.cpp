// Nothing typed on the data screen of the graphics path goes with the program; the rules that both data screens share
// are tested with the other one.
#include <gtest/gtest.h>

#include <filesystem>

#include "graphics/screens.h"
#include "platform/temporary_folder.h"

namespace zirvo::test {
namespace {

using forms::Answer;

class Form5Kept : public testing::Test {
protected:
    const TemporaryFolder Home;
    const std::string Folder = Home.Path("kept");

    /// A program that types the example, works on, and is killed.
    template <class Work>
    void TypeAndCrash(const Work& work) const {
        KeptStore store(Folder);
        Screens screens({.Kept = &store});
        screens.ShowData();
        screens.EnterExample();
        work(screens);
        screens.Desktop.RunWaiting();
    }
};

TEST_F(Form5Kept, WhatWasTypedIsOfferedAndFilledInAfterACrash) {
    TypeAndCrash([](Screens& screens) {
        screens.Data().MSFlexGrid2.UserFocus();
        forms::Type(screens.Data(), "1x");  // the box takes no "x"
    });
    KeptStore store(Folder);
    Screens screens({.Base = JapaneseBase, .Kept = &store});
    screens.Desktop.Answers = {Answer::Yes};
    screens.ShowData();
    ASSERT_EQ(screens.Desktop.Boxes.size(), 1U);
    EXPECT_EQ(screens.Desktop.Boxes[0].Words, forms::Language::Japanese);
    Form5& form = screens.Data();
    EXPECT_EQ(form.Label4.Caption, " 2");
    EXPECT_EQ(form.Label5.Caption, " 1");
    EXPECT_EQ(form.Text3.Text, "Untitled.ven");
    EXPECT_EQ(form.MSFlexGrid2.TextMatrix(1, 1), "1");
    EXPECT_NE(form.MSFlexGrid1.TextMatrix(2, 1), "");
    EXPECT_EQ(forms::FocusOf(form), "Command5");
    EXPECT_FALSE(form.Option1.Enabled);
    EXPECT_TRUE(form.Text3.Enabled && form.VScroll1.Enabled && form.MSFlexGrid1.Enabled && form.MSFlexGrid2.Enabled);
    EXPECT_FALSE(form.Command7.Enabled);
}

TEST_F(Form5Kept, WhatIsFilledInGoesOnToTheMap) {
    TypeAndCrash([](Screens&) {});
    KeptStore store(Folder);
    Screens screens({.Kept = &store});
    screens.Desktop.Answers = {Answer::Yes};
    screens.ShowData();
    screens.GoToMap();
    EXPECT_TRUE(screens.Map().IsVisible());
    EXPECT_TRUE(std::filesystem::exists(screens.Folder.Path("Untitled.ven")));
}

TEST_F(Form5Kept, ARunTimeErrorOnTheMapScreenKeepsWhatStandsBehindIt) {
    TypeAndCrash([](Screens& screens) {
        screens.GoToMap();
        screens.App.Dispatch([&] { screens.Data().ReturnToEditing(); });
        screens.Data().MSFlexGrid1.SetTextMatrix(1, 1, "4321");
        screens.App.Dispatch([] { throw RuntimeFault(fault::Overflow); });
    });
    KeptStore store(Folder);
    Screens screens({.Kept = &store});
    screens.Desktop.Answers = {Answer::Yes};
    screens.ShowData();
    EXPECT_EQ(screens.Data().MSFlexGrid1.TextMatrix(1, 1), "4321");
}

TEST_F(Form5Kept, TheMapsRoadLeavesNothingToOffer) {
    TypeAndCrash([](Screens& screens) { screens.GoToMap(); });
    KeptStore store(Folder);
    Screens screens({.Kept = &store});
    screens.ShowData();
    EXPECT_TRUE(screens.Desktop.Boxes.empty());
}

TEST_F(Form5Kept, WhatTheOtherScreenKeptIsNotAskedHere) {
    {
        KeptStore store(Folder);
        auto kept = std::make_shared<KeptScreen>();
        kept->Screen = "Form3";
        kept->Names = {"a.eva", "", ""};
        store.Keep(kept, nullptr);
    }
    KeptStore store(Folder);
    Screens screens({.Kept = &store});
    screens.ShowData();
    EXPECT_TRUE(screens.Desktop.Boxes.empty());
}

}  // namespace
}  // namespace zirvo::test
