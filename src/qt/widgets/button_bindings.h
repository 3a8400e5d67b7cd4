// The buttons: what they look like follows the model alone; a click of the mouse goes into it.
#pragma once
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

#include "forms/simple_controls.h"
#include "qt/widgets/control_binding.h"

namespace zirvo::widgets {

class CommandBinding final : public ControlBinding {
public:
    CommandBinding(forms::CommandButton& button, QWidget& parent);

protected:
    void ShowState() override;
    std::optional<TextInBox> TextToFit() const override;

private:
    forms::CommandButton& button_;
    QPushButton& shown_;
};

class OptionBinding final : public ControlBinding {
public:
    OptionBinding(forms::OptionButton& option, QWidget& parent);

protected:
    void ShowState() override;
    std::optional<TextInBox> TextToFit() const override;

private:
    forms::OptionButton& option_;
    QRadioButton& shown_;
};

class CheckBinding final : public ControlBinding {
public:
    CheckBinding(forms::CheckBox& check, QWidget& parent);

protected:
    void ShowState() override;
    std::optional<TextInBox> TextToFit() const override;

private:
    forms::CheckBox& check_;
    QCheckBox& shown_;
};

}  // namespace zirvo::widgets
