// Tests of a form: its window's data, showing and hiding, measuring of texts.
#include "forms/form.h"

#include <gtest/gtest.h>

#include "forms/plain_form.h"

namespace zirvo::forms {
namespace {

struct CountingFormView : FormView {
    int Refreshes = 0;
    int FocusMoves = 0;
    void Refresh() override { ++Refreshes; }
    void ControlAdded(Control& /*control*/) override {}
    void ControlRemoved(Control& /*control*/) override {}
    void FocusMoved() override { ++FocusMoves; }
};

/// Counts the measurements.
struct MeasuringDesktop : ScriptedDesktop {
    mutable int Measured = 0;
    float TextWidth(const FontSpec& font, std::string_view text) const override {
        ++Measured;
        return ScriptedDesktop::TextWidth(font, text) * static_cast<float>(font.Size) / 9.0F;
    }
};

TEST(Form, ItsDataTellTheViewOfEveryChange) {
    Screen<PlainForm> screen;
    CountingFormView view;
    screen.form.Attach(&view);
    screen.form.Caption = "- ZIRVO Ver2.3 -";
    screen.form.Width = 11730;
    screen.form.HasCloseEntry = false;
    screen.form.HasCloseEntry = false;
    EXPECT_EQ(view.Refreshes, 3);
    screen.form.Attach(nullptr);
}

TEST(Form, ShowsAndHides) {
    Screen<PlainForm> screen;
    EXPECT_TRUE(screen.form.IsVisible());
    screen.form.Hide();
    screen.form.Hide();
    screen.form.ZOrder();  // a hidden form does not come to the front
    EXPECT_FALSE(screen.form.IsVisible());
    screen.form.Show();
    screen.form.ZOrder();
    EXPECT_EQ(screen.desktop.Log, (Lines{"show Plain", "hide Plain", "show Plain", "show Plain"}));
}

TEST(Form, AHiddenFormStaysLoadedWithItsData) {
    Screen<PlainForm> screen;
    screen.form.Caption = "kept";
    screen.form.Hide();
    EXPECT_EQ(&screen.app.Get<PlainForm>(), &screen.form);
    EXPECT_TRUE(screen.form.Caption == "kept");
}

TEST(Form, MeasuresEachTextOnce) {
    MeasuringDesktop desktop;
    Application app(desktop);
    app.Register("Plain", [](Application& a) { return std::make_unique<PlainForm>(a); });
    auto& form = app.Get<PlainForm>();
    EXPECT_EQ(form.TextWidth("LAYER 1"), 7 * 105.0F);
    EXPECT_EQ(form.TextWidth("LAYER 1"), 7 * 105.0F);
    EXPECT_EQ(form.TextWidth("層 1"), 420.0F);  // one of full width and two of half
    EXPECT_EQ(desktop.Measured, 2);
}

TEST(Form, MeasuresAnewInAnotherFont) {
    MeasuringDesktop desktop;
    Application app(desktop);
    app.Register("Plain", [](Application& a) { return std::make_unique<PlainForm>(a); });
    auto& form = app.Get<PlainForm>();
    EXPECT_EQ(form.TextWidth("J"), 105.0F);
    form.Font = FontSpec{.Name = {}, .Size = 18};
    EXPECT_EQ(form.TextWidth("J"), 210.0F);
    form.Font = FontSpec{};
    EXPECT_EQ(form.TextWidth("J"), 105.0F);
}

TEST(Form, RemembersABoundedNumberOfWidths) {
    MeasuringDesktop desktop;
    Application app(desktop);
    app.Register("Plain", [](Application& a) { return std::make_unique<PlainForm>(a); });
    auto& form = app.Get<PlainForm>();
    for (int i = 0; i < 50000; ++i) {
        const std::string heading = "POINT " + std::to_string(i);
        EXPECT_EQ(form.TextWidth(heading), 105.0F * static_cast<float>(heading.size()));
    }
    EXPECT_EQ(form.TextWidth("POINT 0"), 7 * 105.0F);
    EXPECT_EQ(desktop.Measured, 50001);  // the first ones are forgotten by then
}

TEST(Form, ATextThatTheUserTypesGoesToTheActiveControlOnly) {
    Screen<PlainForm> screen;
    Type(screen.form, "x");  // no control at all
    EXPECT_EQ(FocusOf(screen.form), "");
}

}  // namespace
}  // namespace zirvo::forms
