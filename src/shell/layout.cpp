// Fitting of the screens, see layout.h.
#include "shell/layout.h"

#include "forms/combo_box.h"
#include "text/number_text.h"

namespace zirvo {
namespace {

/// Lengths of the screen are 32-bit floats.
double Product(double length, float factor) {
    return static_cast<float>(length) * factor;
}

float PixelsOf(double twips, double twipsPerPixel) {
    return RoundToInt16(twips / twipsPerPixel);
}

}  // namespace

void TrimSystemMenu(forms::Form& form) {
    form.HasCloseEntry = false;
}

LayoutFactors FactorsOf(const forms::ScreenSize& screen, Int16 designWidth, Int16 designHeight) {
    return {.X = PixelsOf(screen.Width, screen.TwipsPerPixel) / static_cast<float>(designWidth),
            .Y = PixelsOf(screen.Height, screen.TwipsPerPixel) / static_cast<float>(designHeight)};
}

void ScaleFormLayout(float xFactor, float yFactor, forms::Form& form, FormItself formItself) {
    for (int i = 0; i < form.Controls.Count(); ++i) {
        forms::Control& control = form.Controls.At(i);
        const bool heightOfItsFont = dynamic_cast<const forms::ComboBox*>(&control) != nullptr;
        control.Move(Product(control.Left, xFactor), Product(control.Top, yFactor), Product(control.Width, xFactor),
                     heightOfItsFont ? control.Height.Get() : Product(control.Height, yFactor));
    }
    if (formItself == FormItself::Scaled) {
        form.Left = Product(form.Left, xFactor);
        form.Top = Product(form.Top, yFactor);
        form.Width = Product(form.Width, xFactor);
        form.Height = Product(form.Height, yFactor);
    }
}

void ScaleToScreen(forms::Form& form) {
    form.ScaleMode = 1;
    const LayoutFactors factors = FactorsOf(form.World().Screen());
    ScaleFormLayout(factors.X, factors.Y, form, FormItself::Scaled);
}

}  // namespace zirvo
