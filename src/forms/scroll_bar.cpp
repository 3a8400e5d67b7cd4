// The vertical scroll bar.
#include <algorithm>

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
      Value(0, [this] { TellView(); }) {
    Value.SetBy([this](int value) { SetValue(value); });
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

void VScrollBar::UserSet(int value) {
    const ControlWatch watch(*this);
    UserFocus();
    if (watch.IsUsable()) {
        App().Dispatch([&] { SetValue(Clamped(value)); });
    }
}

void VScrollBar::UserStepToMin() {
    UserSet(Min < Max ? Value - 1 : Value + 1);
}

void VScrollBar::UserStepToMax() {
    UserSet(Min < Max ? Value + 1 : Value - 1);
}

void VScrollBar::UserRelease(int value) {
    UserSet(value);
}

bool VScrollBar::KeyDefault(const KeyStroke& stroke) {
    switch (stroke.Code) {
        case key::Up:
        case key::Left:
        case key::PageUp:
            UserStepToMin();
            break;
        case key::Down:
        case key::Right:
        case key::PageDown:
            UserStepToMax();
            break;
        default:
            break;
    }
    return true;
}

}  // namespace zirvo::forms
