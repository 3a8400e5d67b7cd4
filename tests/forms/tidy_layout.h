// What any screen's layout must keep.
#pragma once
#include <gtest/gtest.h>

#include "forms/form.h"

namespace zirvo {

/// Visible, itself and its containers.
inline bool IsInSight(const forms::Control& control) {
    return control.Visible && (control.Container() == nullptr || IsInSight(*control.Container()));
}

/// Every control lies wholly in its container, and no two in sight that share one touch.
inline void ExpectTidyLayout(const forms::Form& form) {
    constexpr double rounding = 0.01;  // twips, of lengths that were scaled in 32 bits
    for (const forms::Control* control : form.Controls) {
        const forms::Control* container = control->Container();
        EXPECT_GT(control->Width, 0.0) << control->Name();
        EXPECT_GT(control->Height, 0.0) << control->Name();
        EXPECT_GE(control->Left, 0.0) << control->Name();
        EXPECT_GE(control->Top, 0.0) << control->Name();
        EXPECT_LE(control->Left + control->Width,
                  (container == nullptr ? form.Width.Get() : container->Width.Get()) + rounding)
            << control->Name();
        EXPECT_LE(control->Top + control->Height,
                  (container == nullptr ? form.Height.Get() : container->Height.Get()) + rounding)
            << control->Name();
        for (const forms::Control* other : form.Controls) {
            if (other == control || other->Container() != container || !IsInSight(*control) || !IsInSight(*other)) {
                continue;
            }
            const bool apart = control->Left + control->Width <= other->Left + rounding ||
                               other->Left + other->Width <= control->Left + rounding ||
                               control->Top + control->Height <= other->Top + rounding ||
                               other->Top + other->Height <= control->Top + rounding;
            EXPECT_TRUE(apart) << control->Name() << " and " << other->Name();
        }
    }
}

}  // namespace zirvo
