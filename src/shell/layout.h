// What all screens do with their windows on load: no closing by the frame, and fitting to the screen.
// Callers: Form_Load of every screen.
#pragma once
#include "base/int16.h"
#include "forms/form.h"

namespace zirvo {

/// A length on the screen in twips: 15 to a logical pixel.
constexpr double Pixels(double pixels) {
    return 15 * pixels;
}

/// Puts a control somewhere in its container, all four in logical pixels.
inline void Place(forms::Control& control, double left, double top, double width, double height) {
    control.Move(Pixels(left), Pixels(top), Pixels(width), Pixels(height));
}

/// Takes away what would close the window by its frame: a screen is left by its buttons only.
void TrimSystemMenu(forms::Form& form);

/// Size of the screen that the data screens are laid out for [pixels].
inline constexpr Int16 DesignWidth = 810;
inline constexpr Int16 DesignHeight = 640;

struct LayoutFactors {
    float X = 1;
    float Y = 1;

    bool operator==(const LayoutFactors&) const = default;
};

/// The screen's pixels over the design's, each way. Fault 6 for a screen of more than 32767 pixels.
LayoutFactors FactorsOf(const forms::ScreenSize& screen, Int16 designWidth = DesignWidth,
                        Int16 designHeight = DesignHeight);

enum class FormItself { Stays, Scaled };

/// Multiplies Left and Width of every control by xFactor, Top and Height by yFactor, and those of the form too where it
/// is scaled itself. A combo box keeps its height, which follows from its font. No font changes.
void ScaleFormLayout(float xFactor, float yFactor, forms::Form& form, FormItself formItself);

/// Fits a data screen to the screen of the machine, itself included.
void ScaleToScreen(forms::Form& form);

}  // namespace zirvo
