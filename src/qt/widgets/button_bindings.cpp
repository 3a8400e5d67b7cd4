// Buttons, see button_bindings.h.
#include "qt/widgets/button_bindings.h"

namespace zirvo::widgets {

CommandBinding::CommandBinding(forms::CommandButton& button, QWidget& parent)
    : ControlBinding(button, *new QPushButton(&parent)), button_(button), shown_(static_cast<QPushButton&>(Widget())) {
    connect(&shown_, &QPushButton::clicked, this, [this] { Act([this] { button_.UserClick(); }); });
}

void CommandBinding::ShowState() {
    shown_.setText(WithoutMnemonics(button_.Caption));
    shown_.setAccessibleName(ToQt(button_.Caption.Get()));
    shown_.setDefault(button_.Default);  // the look; Enter is the form's
}

OptionBinding::OptionBinding(forms::OptionButton& option, QWidget& parent)
    : ControlBinding(option, *new QRadioButton(&parent)),
      option_(option),
      shown_(static_cast<QRadioButton&>(Widget())) {
    shown_.setAutoExclusive(false);  // groups are the model's
    connect(&shown_, &QRadioButton::clicked, this, [this] { Act([this] { option_.UserClick(); }); });
}

void OptionBinding::ShowState() {
    shown_.setText(WithoutMnemonics(option_.Caption));
    shown_.setAccessibleName(ToQt(option_.Caption.Get()));
    shown_.setChecked(option_.Value);
}

CheckBinding::CheckBinding(forms::CheckBox& check, QWidget& parent)
    : ControlBinding(check, *new QCheckBox(&parent)), check_(check), shown_(static_cast<QCheckBox&>(Widget())) {
    connect(&shown_, &QCheckBox::clicked, this, [this] { Act([this] { check_.UserClick(); }); });
}

void CheckBinding::ShowState() {
    shown_.setText(WithoutMnemonics(check_.Caption));
    shown_.setAccessibleName(ToQt(check_.Caption.Get()));
    shown_.setChecked(check_.Value);
}

}  // namespace zirvo::widgets
