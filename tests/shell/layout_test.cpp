// Fitting of the screens.
#include "shell/layout.h"

#include <gtest/gtest.h>

#include <vector>

#include "base/fault_of.h"
#include "forms/application.h"
#include "forms/combo_box.h"
#include "forms/scripted_desktop.h"

namespace zirvo {
namespace {

class Laid : public forms::Form {
public:
    static constexpr const char* FormName = "Form3";
    explicit Laid(forms::Application& application) : Form(application, FormName) {
        Left = 210;
        Top = 300;
        Width = 11730;
        Height = 8505;
        Frame1.Move(100, 200, 3000, 4000);
        Label1.Move(10, 20, 300, 400);
        Combo1.Move(50, 60, 700, 315);
        Box.Move(11, 13, 17, 19);
    }
    forms::Frame Frame1{*this, "Frame1"};
    forms::Label Label1{*this, "Label1", &Frame1};
    forms::ComboBox Combo1{*this, "Combo1", &Frame1};
    forms::TextBox& Box = Controls.Add("Box", nullptr);
};

std::vector<double> PlaceOf(const forms::Control& control) {
    return {control.Left, control.Top, control.Width, control.Height};
}
std::vector<double> PlaceOf(const forms::Form& form) {
    return {form.Left, form.Top, form.Width, form.Height};
}

class Layout : public testing::Test {
protected:
    Layout() {
        App.Register("Form3", [](forms::Application& a) { return std::make_unique<Laid>(a); });
    }
    forms::ScriptedDesktop Desktop;
    forms::Application App{Desktop};
};

TEST_F(Layout, TrimmedFormCannotBeClosedByItsFrame) {
    Laid& form = App.Get<Laid>();
    EXPECT_TRUE(form.HasCloseEntry);
    TrimSystemMenu(form);
    EXPECT_FALSE(form.HasCloseEntry);
}

TEST_F(Layout, EveryControlIsScaledEachWayByItsOwnFactor) {
    Laid& form = App.Get<Laid>();
    ScaleFormLayout(2.0F, 0.5F, form, FormItself::Stays);
    EXPECT_EQ(PlaceOf(form.Frame1), (std::vector<double>{200, 100, 6000, 2000}));
    EXPECT_EQ(PlaceOf(form.Label1), (std::vector<double>{20, 10, 600, 200}));
    EXPECT_EQ(PlaceOf(form.Box), (std::vector<double>{22, 6.5, 34, 9.5}));
}

TEST_F(Layout, ComboBoxKeepsItsHeight) {
    Laid& form = App.Get<Laid>();
    ScaleFormLayout(2.0F, 0.5F, form, FormItself::Stays);
    EXPECT_EQ(PlaceOf(form.Combo1), (std::vector<double>{100, 30, 1400, 315}));
}

TEST_F(Layout, FormItselfIsScaledOnlyWhereItIsAskedFor) {
    Laid& form = App.Get<Laid>();
    ScaleFormLayout(2.0F, 0.5F, form, FormItself::Stays);
    EXPECT_EQ(PlaceOf(form), (std::vector<double>{210, 300, 11730, 8505}));
    ScaleFormLayout(2.0F, 0.5F, form, FormItself::Scaled);
    EXPECT_EQ(PlaceOf(form), (std::vector<double>{420, 150, 23460, 4252.5}));
}

TEST_F(Layout, FontsStayAsTheyAre) {
    Laid& form = App.Get<Laid>();
    const forms::FontSpec font{.Name = "arial", .Size = 10, .Bold = true, .Italic = false};
    form.Label1.Font = font;
    form.Font = font;
    ScaleFormLayout(2.0F, 2.0F, form, FormItself::Scaled);
    EXPECT_EQ(form.Label1.Font, font);
    EXPECT_EQ(form.Font, font);
}

// 1024 / 810 and 768 / 640 in 32 bits.
TEST_F(Layout, FactorsAreThePixelsOfTheScreenOverThoseOfTheDesign) {
    EXPECT_EQ(FactorsOf({.Width = 1024 * 15, .Height = 768 * 15, .TwipsPerPixel = 15}),
              (LayoutFactors{.X = 1024.0F / 810.0F, .Y = 1.2F}));
    EXPECT_EQ(FactorsOf({.Width = 810 * 12, .Height = 640 * 12, .TwipsPerPixel = 12}),
              (LayoutFactors{.X = 1.0F, .Y = 1.0F}));
    EXPECT_EQ(FactorsOf({.Width = 1000, .Height = 1000, .TwipsPerPixel = 10}, 50, 25),
              (LayoutFactors{.X = 2.0F, .Y = 4.0F}));
}

// 1023.5 pixels become 1024, 1024.5 become 1024: a half goes to the even neighbour.
TEST_F(Layout, PixelsOfTheScreenAreWholeNumbers) {
    EXPECT_EQ(FactorsOf({.Width = 1023.5 * 15, .Height = 1024.5 * 15, .TwipsPerPixel = 15}, 1024, 1024),
              (LayoutFactors{.X = 1.0F, .Y = 1.0F}));
}

TEST_F(Layout, ScreenOfMoreThan32767PixelsIsAnOverflow) {
    EXPECT_EQ(FaultOf([] { FactorsOf({.Width = 32767 * 15, .Height = 15, .TwipsPerPixel = 15}); }), 0);
    EXPECT_EQ(FaultOf([] { FactorsOf({.Width = 32768 * 15, .Height = 15, .TwipsPerPixel = 15}); }), 6);
    EXPECT_EQ(FaultOf([] { FactorsOf({.Width = 15, .Height = 32768 * 15, .TwipsPerPixel = 15}); }), 6);
}

TEST_F(Layout, DataScreenFillsTheScreenAsItFilledTheDesign) {
    Laid& form = App.Get<Laid>();
    form.ScaleMode = 3;
    Desktop.Size = {.Width = 1620 * 15, .Height = 1280 * 15, .TwipsPerPixel = 15};
    ScaleToScreen(form);
    EXPECT_EQ(form.ScaleMode, 1);
    EXPECT_EQ(PlaceOf(form), (std::vector<double>{420, 600, 23460, 17010}));
    EXPECT_EQ(PlaceOf(form.Frame1), (std::vector<double>{200, 400, 6000, 8000}));
    EXPECT_EQ(PlaceOf(form.Combo1), (std::vector<double>{100, 120, 1400, 315}));
}

// 11730 * 1024 / 810 = 14829.037 twips, 8505 * 1.2 = 10206: both within the screen of 15360 by 11520.
TEST_F(Layout, DataScreenFitsASmallScreen) {
    Laid& form = App.Get<Laid>();
    ScaleToScreen(form);
    EXPECT_NEAR(form.Width, 14829.037, 0.002);
    EXPECT_NEAR(form.Height, 10206, 0.002);
}

}  // namespace
}  // namespace zirvo
