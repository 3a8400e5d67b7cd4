// Tests of the controls of a form: look-up, arrays, boxes that come and go.
#include "forms/control_collection.h"

#include <gtest/gtest.h>

#include "base/fault_of.h"
#include "forms/plain_form.h"

namespace zirvo::forms {
namespace {

struct ListForm : PlainForm {
    using PlainForm::PlainForm;
    Label Label1{*this, "Label1"};
    Frame Frame1{*this, "Frame1"};
    ControlArray<CheckBox> Check1{*this, "Check1", 3, &Frame1};
    TextBox Text1{*this, "Text1"};
};

struct Collection : testing::Test {
    Screen<ListForm> screen;
    ListForm& form = screen.form;
    ControlCollection& controls = form.Controls;
};

TEST_F(Collection, HoldsTheControlsInTheOrderOfTheirDeclaration) {
    Lines names;
    for (const Control* control : controls) {
        names.push_back(control->Name() + " " + std::to_string(control->Index()));
    }
    EXPECT_EQ(names, (Lines{"Label1 -1", "Frame1 -1", "Check1 0", "Check1 1", "Check1 2", "Text1 -1"}));
    EXPECT_EQ(controls.Count(), 6);
    EXPECT_EQ(&controls.At(5), &form.Text1);
    EXPECT_EQ(FaultOf([&] { controls.At(6); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(FaultOf([&] { controls.At(-1); }), fault::SubscriptOutOfRange);
}

TEST_F(Collection, FindsByNameWhateverTheCaseAndByIndexInAnArray) {
    EXPECT_EQ(controls.Find("Text1"), &form.Text1);
    EXPECT_EQ(controls.Find("tEXT1"), &form.Text1);
    EXPECT_EQ(controls.Find("Text11"), nullptr);
    EXPECT_EQ(controls.Find("Check1", 2), &form.Check1(2));
    EXPECT_EQ(controls.Find("Check1"), nullptr);
    EXPECT_EQ(controls.Find("Check1", 3), nullptr);
    EXPECT_TRUE(controls.IsArray("check1"));
    EXPECT_FALSE(controls.IsArray("Text1"));
    EXPECT_TRUE(controls.Contains(form.Text1));
}

TEST_F(Collection, AnElementThatAnArrayLacksIsFault9) {
    EXPECT_EQ(FaultOf([&] { form.Check1(3); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(FaultOf([&] { form.Check1(-1); }), fault::SubscriptOutOfRange);
    EXPECT_EQ(form.Check1(1).Container(), &form.Frame1);
}

TEST_F(Collection, AddMakesAHiddenBoxBehindAllOthers) {
    TextBox& box = controls.Add("tbFgEdit1", &form.Frame1);
    EXPECT_EQ(&controls.At(controls.Count() - 1), &box);
    EXPECT_EQ(box.Container(), &form.Frame1);
    EXPECT_FALSE(box.Visible);
    EXPECT_EQ(controls.Find("tbFgEdit1"), &box);
}

TEST_F(Collection, ANameThatIsTakenByWhateverCaseOrByAnArrayIsFault5) {
    for (const char* name : {"Text1", "TEXT1", "Check1", ""}) {
        EXPECT_EQ(FaultOf([&] { controls.Add(name, nullptr); }), fault::InvalidCall) << name;
    }
    EXPECT_EQ(controls.Count(), 6);
}

TEST_F(Collection, RemoveTakesOnlyWhatAddHasMade) {
    controls.Add("box", nullptr);
    controls.Remove("BOX");
    EXPECT_EQ(controls.Find("box"), nullptr);
    EXPECT_EQ(controls.Count(), 6);
    for (const char* name : {"box", "Text1", "Check1", ""}) {
        EXPECT_EQ(FaultOf([&] { controls.Remove(name); }), fault::InvalidCall) << name;
    }
}

TEST_F(Collection, ARemovedBoxLivesOnUntilTheOutermostHandlerHasEnded) {
    TextBox& box = controls.Add("box", nullptr);
    const std::weak_ptr<const void> life = box.Life();
    screen.Run([&] {
        controls.Remove("box");
        EXPECT_FALSE(life.expired());
        EXPECT_TRUE(box.IsGone());
        box.Visible = true;
        box.Text = "still there";
        EXPECT_FALSE(box.IsUsable());
        box.SetFocus();
        EXPECT_FALSE(box.HasFocus());
        EXPECT_FALSE(controls.Contains(box));
        controls.Add("box", nullptr);  // its name is free again
    });
    EXPECT_TRUE(life.expired());
}

TEST_F(Collection, ARemovedBoxHasNoView) {
    TextBox& box = controls.Add("box", nullptr);
    CountingView view;
    box.Attach(&view);
    screen.Run([&] {
        controls.Remove("box");
        box.Text = "a";
        EXPECT_EQ(box.View(), nullptr);
    });
    EXPECT_EQ(view.Refreshes, 0);
}

TEST_F(Collection, ABoxMayRemoveItselfInItsOwnEvents) {
    for (int round = 0; round < 3; ++round) {
        TextBox& box = controls.Add("box", nullptr);
        box.Visible = true;
        box.LostFocus = [&] { controls.Remove("box"); };
        box.UserFocus();
        form.Text1.UserFocus();
        EXPECT_EQ(controls.Find("box"), nullptr);
    }
    EXPECT_EQ(controls.Count(), 6);
}

TEST_F(Collection, AFormGoesWithTheBoxesThatItStillHas) {
    const std::weak_ptr<const void> life = controls.Add("box", &form.Frame1).Life();
    form.Unload();
    EXPECT_TRUE(life.expired());
}

TEST_F(Collection, AFormMayRemoveItsBoxWhileItGoes) {
    struct Owner {
        Form* form = nullptr;
        ~Owner() { form->Controls.Remove("box"); }
    };
    struct OwningForm : PlainForm {
        explicit OwningForm(forms::Application& a) : PlainForm(a, "Owning") { owner.form = this; }
        Owner owner;
    };
    screen.app.Register("Owning", [](Application& a) { return std::make_unique<OwningForm>(a); });
    const std::weak_ptr<const void> life = screen.app.Load("Owning").Controls.Add("box", nullptr).Life();
    screen.app.Find("Owning")->Unload();
    EXPECT_TRUE(life.expired());
}

}  // namespace
}  // namespace zirvo::forms
