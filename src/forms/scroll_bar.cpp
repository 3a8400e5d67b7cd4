// The vertical scroll bar.
#include <algorithm>
#include <charconv>
#include <cmath>

#include "base/runtime_fault.h"
#include "forms/application.h"
#include "forms/simple_controls.h"

namespace zirvo::forms {

VScrollBar::VScrollBar(Form& form, ControlId id, Control* container)
    : Control(form, std::move(id), container),
      Min(
          0, [this] { TellView(); }, [this] { SetEnds(); }),
      Max(
          32767, [this] { TellView(); }, [this] { SetEnds(); }),
      Value(0, [this] { TellView(); }),
      Typed("", [this] { TellView(); }) {
    Value.SetBy([this](int value) {
        lastHeld_ = 0;  // what the program writes belongs to no arrow
        SetValue(value);
    });
}

int VScrollBar::Clamped(int value) const {
    return std::clamp(value, std::min(Min.Get(), Max.Get()), std::max(Min.Get(), Max.Get()));
}

void VScrollBar::SetValue(int value) {
    if (value != Clamped(value)) {
        throw RuntimeFault(fault::InvalidCall);
    }
    if (Value.Store(value)) {
        Raise(Change);
    }
}

/// An end has moved: the value goes along.
void VScrollBar::SetEnds() {
    SetValue(Clamped(Value));
}

/// Any way to a value: the digits that stood ready are dropped.
void VScrollBar::UserSet(int value, int heldFor) {
    const ControlWatch watch(*this);
    UserFocus();
    if (watch.IsUsable()) {
        App().Dispatch([&] {
            lastHeld_ = heldFor;
            Typed = std::string();
            SetValue(Clamped(value));
        });
    }
}

/// How far a held arrow goes with this repetition: behind the first second at a speed v(t) = v0 2^(t - 1 s), summed
/// over the time since the repetition before. From 0 to 10000 it takes less than 9 s.
int VScrollBar::StepOf(int heldFor) const {
    constexpr double start = 1.0;                        // s: till then each repetition is one step
    constexpr double speed = 30.0;                       // v0, steps a second
    constexpr double longestPause = 0.2;                 // s: a machine that was busy must not jump
    constexpr double longest = 20.0;                     // s: the sum stays within an integer
    constexpr double scale = speed / 0.693147180559945;  // v0 / ln 2
    const double now = std::min(heldFor / 1000.0, longest);
    if (now <= start) {
        return 1;
    }
    const double before = std::max({lastHeld_ / 1000.0, start, now - longestPause});
    const double way = scale * (std::exp2(now - start) - std::exp2(std::min(before, now) - start));
    return std::max(1, static_cast<int>(std::lround(way)));
}

void VScrollBar::UserStepToMin(int heldFor) {
    const int step = StepOf(heldFor);
    UserSet(Min < Max ? Value - step : Value + step, heldFor);
}

void VScrollBar::UserStepToMax(int heldFor) {
    const int step = StepOf(heldFor);
    UserSet(Min < Max ? Value + step : Value - step, heldFor);
}

void VScrollBar::UserRelease(int value) {
    UserSet(value);
}

bool VScrollBar::TypedIsOutside() const {
    const std::string& digits = Typed;
    int number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number != Clamped(number);
}

void VScrollBar::TakeTyped() {
    if (!TypedIsOutside()) {
        const std::string digits = Typed;
        int number = 0;
        std::from_chars(digits.data(), digits.data() + digits.size(), number);
        UserSet(number);
    }
}

/// Digits, Backspace, Enter and Esc on their way to a number. False for any other stroke.
bool VScrollBar::TypesNumber(const KeyStroke& stroke) {
    constexpr std::size_t mostDigits = 6;
    std::string digits = Typed;
    if (stroke.Character >= U'0' && stroke.Character <= U'9') {
        if (digits.size() < mostDigits) {
            digits += static_cast<char>(stroke.Character);
        }
        Typed = digits;
        return true;
    }
    if (digits.empty()) {
        return false;
    }
    switch (stroke.Code) {
        case key::Backspace:
            digits.pop_back();
            Typed = digits;
            return true;
        case key::Escape:
            Typed = std::string();
            return true;
        case key::Enter:
            TakeTyped();
            return true;
        default:
            return false;
    }
}

bool VScrollBar::KeyDefault(const KeyStroke& stroke) {
    if (TypesNumber(stroke)) {
        return true;
    }
    switch (stroke.Code) {
        case key::Up:
        case key::Left:
        case key::PageUp:
            UserStepToMin(stroke.HeldFor);
            break;
        case key::Down:
        case key::Right:
        case key::PageDown:
            UserStepToMax(stroke.HeldFor);
            break;
        default:
            break;
    }
    return true;
}

}  // namespace zirvo::forms
