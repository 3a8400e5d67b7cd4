// Focus, keys and the common state of all controls.
#include "forms/control.h"

#include "forms/application.h"

namespace zirvo::forms {

Control::Control(Form& form, ControlId id, Control* container)
    : Enabled(true, [this] { TellView(); }),
      Visible(true, [this] { TellView(); }),
      TabStop(true, [this] { TellView(); }),
      Left(0, [this] { TellView(); }),
      Top(0, [this] { TellView(); }),
      Width(
          0, [this] { TellView(); }, [this] { Resized(); }),
      Height(
          0, [this] { TellView(); }, [this] { Resized(); }),
      Font(FontSpec{}, [this] { TellView(); }),
      form_(form),
      id_(std::move(id)),
      container_(container),
      life_(std::make_shared<char>()) {
    form_.Controls.Enter(*this);
}

Control::~Control() {
    if (!gone_) {
        form_.Controls.Leave(*this);
    }
}

Application& Control::App() const {
    return form_.App();
}

void Control::TellForm() const {
    if (form_.ControlsChanged) {
        form_.ControlsChanged();
    }
}

void Control::Move(double left, double top, double width, double height) {
    Left = left;
    Top = top;
    Width = width;
    Height = height;
}

void Control::SetFocus() {
    if (TakesFocus() && IsUsable()) {
        App().Dispatch([this] { form_.MoveFocus(this); });
    }
}

bool Control::HasFocus() const {
    return form_.ActiveControl() == this;
}

void Control::ZOrder() {
    depth_ = ++form_.lastDepth_;
    TellView();
}

bool Control::IsUsable() const {
    return !gone_ && !form_.IsGone() && Enabled && Visible && (container_ == nullptr || container_->IsUsable());
}

bool Control::IsTabStop() const {
    return TakesFocus() && TabStop && countsAt_ == nullptr && IsUsable();
}

void Control::UserFocus() {
    // A user's act is an outermost handler, and behind that the events are raised.
    SetFocus();
}

bool Control::UserKey(const KeyStroke& stroke) {
    if (!HasFocus() || !IsUsable()) {
        return true;  // a stroke for one that has just lost the focus
    }
    const bool isEnter = stroke.Code == key::Enter && !stroke.Control && !stroke.Alt;
    if (isEnter && KeepsEnter()) {
        return false;
    }
    if (isEnter && UserEnter()) {
        return true;
    }
    const ControlWatch watch(*this);
    KeyStroke changed = stroke;
    if (RaisesKeys() && watch.IsThere()) {
        App().Dispatch([&] { Raise(KeyDown, changed.Code); });
        if (watch.IsThere() && stroke.Character != 0 && (!stroke.Alt || stroke.Control)) {
            int ascii = static_cast<int>(stroke.Character);
            App().Dispatch([&] { Raise(KeyPress, ascii); });
            changed.Character = static_cast<char32_t>(ascii);
        }
    }
    if (!watch.IsUsable() || !HasFocus() || (stroke.Character != 0 && changed.Character == 0)) {
        return true;
    }
    if (stroke.Alt && !stroke.Control) {
        return !HasOwnEditing() || stroke.Character != 0;
    }
    if (changed.Code == key::Tab && !stroke.Control) {
        UserTab(stroke.Shift);
        return true;
    }
    if (KeyDefault(changed) || !HasOwnEditing()) {
        return true;
    }
    const bool asTyped = stroke.Character != 0 ? changed.Character == stroke.Character : changed.Code == stroke.Code;
    if (!asTyped) {
        EditBy(changed);
    }
    return !asTyped;
}

/// Enter presses the focused button, else the default button. False if there is neither.
bool Control::UserEnter() {
    CommandButton* button = dynamic_cast<CommandButton*>(this);
    if (button == nullptr) {
        button = form_.DefaultButton();
    }
    if (button == nullptr) {
        return false;
    }
    button->Press();
    return true;
}

void Control::UserTab(bool backwards) {
    Control* next = form_.NextTabStop(this, backwards);
    if (next != nullptr) {
        next->UserFocus();
    }
}

bool Control::KeyDefault(const KeyStroke& /*stroke*/) {
    return false;
}

ControlWatch::ControlWatch(Control& control) : control_(control), application_(control.App()), life_(control.Life()) {}

bool ControlWatch::IsThere() const {
    return !application_.HasEnded() && !life_.expired() && !control_.gone_ && !control_.form_.IsGone();
}

}  // namespace zirvo::forms
