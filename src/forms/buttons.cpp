// Command buttons, option buttons and their groups, check boxes.
#include <algorithm>

#include "forms/application.h"
#include "forms/simple_controls.h"

namespace zirvo::forms {

CommandButton::CommandButton(Form& form, ControlId id, Control* container)
    : Control(form, std::move(id), container),
      Caption("", [this] { TellView(); }),
      Default(false, [this] { TellView(); }) {
    Default.SetBy([this](bool value) {
        for (Control* control : Parent().Controls) {
            auto* other = dynamic_cast<CommandButton*>(control);
            if (value && other != nullptr && other != this) {
                other->Default.Store(false);
            }
        }
        Default.Store(value);
    });
}

void CommandButton::Press() {
    if (IsUsable()) {
        App().Dispatch([this] {
            const Work work(App().World());
            Raise(Click);
        });
    }
}

void CommandButton::UserClick() {
    const ControlWatch watch(*this);
    UserFocus();
    if (watch.IsUsable()) {
        Press();
    }
}

bool CommandButton::KeyDefault(const KeyStroke& stroke) {
    if (stroke.Code == key::Space) {
        Press();
    }
    return true;
}

OptionButton::OptionButton(Form& form, ControlId id, Control* container)
    : Control(form, std::move(id), container),
      Caption("", [this] { TellView(); }),
      Value(false, [this] { TellView(); }) {
    Value.SetBy([this](bool value) { Set(value); });
}

/// The option buttons of its container, itself among them, in the order of the form's controls.
std::vector<OptionButton*> OptionButton::Group() const {
    std::vector<OptionButton*> group;
    for (Control* control : Parent().Controls) {
        auto* option = dynamic_cast<OptionButton*>(control);
        if (option != nullptr && option->Container() == Container()) {
            group.push_back(option);
        }
    }
    return group;
}

void OptionButton::Set(bool value) {
    if (!value) {
        Value.Store(false);
    } else if (!Value) {
        Choose();
    }
}

void OptionButton::Choose() {
    for (OptionButton* other : Group()) {
        if (other != this) {
            other->Value.Store(false);
        }
    }
    Value.Store(true);
    Raise(Click);
}

void OptionButton::UserClick() {
    const ControlWatch watch(*this);
    UserFocus();
    if (watch.IsUsable()) {
        App().Dispatch([this] {
            const Work work(App().World());
            Choose();
        });
    }
}

/// The group's stop is the set button; where none is set, or the set one cannot be one, its first that can.
bool OptionButton::IsTabStop() const {
    if (!Control::IsTabStop()) {
        return false;
    }
    if (Value) {
        return true;
    }
    for (const OptionButton* option : Group()) {
        const bool can = option->Control::IsTabStop();
        if (can && option->Value) {
            return false;
        }
    }
    const std::vector<OptionButton*> group = Group();
    const auto first =
        std::find_if(group.begin(), group.end(), [](const OptionButton* o) { return o->Control::IsTabStop(); });
    return first != group.end() && *first == this;
}

bool OptionButton::SharesStopWith(const Control& other) const {
    return dynamic_cast<const OptionButton*>(&other) != nullptr && other.Container() == Container();
}

/// The next usable button of the group, wrapping; nullptr where there is no other.
OptionButton* OptionButton::Neighbour(bool backwards) const {
    std::vector<OptionButton*> group = Group();
    if (backwards) {
        std::reverse(group.begin(), group.end());
    }
    const auto self = std::find(group.begin(), group.end(), this);
    std::rotate(group.begin(), self, group.end());
    const auto next = std::find_if(group.begin() + 1, group.end(), [](const OptionButton* o) { return o->IsUsable(); });
    return next == group.end() ? nullptr : *next;
}

bool OptionButton::KeyDefault(const KeyStroke& stroke) {
    const bool back = stroke.Code == key::Left || stroke.Code == key::Up;
    const bool forth = stroke.Code == key::Right || stroke.Code == key::Down;
    OptionButton* chosen = nullptr;
    if (stroke.Code == key::Space) {
        chosen = this;
    } else if (back || forth) {
        chosen = Neighbour(back);
    }
    if (chosen != nullptr) {
        chosen->UserClick();
    }
    return true;
}

CheckBox::CheckBox(Form& form, ControlId id, Control* container)
    : Control(form, std::move(id), container),
      Caption("", [this] { TellView(); }),
      Value(
          false, [this] { TellView(); }, [this] { Raise(Click); }) {}

void CheckBox::UserClick() {
    const ControlWatch watch(*this);
    UserFocus();
    if (watch.IsUsable()) {
        App().Dispatch([this] { Value = !Value; });
    }
}

bool CheckBox::KeyDefault(const KeyStroke& stroke) {
    if (stroke.Code == key::Space) {
        UserClick();
    }
    return true;
}

}  // namespace zirvo::forms
