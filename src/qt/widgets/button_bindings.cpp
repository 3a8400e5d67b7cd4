// Buttons, see button_bindings.h.
#include "qt/widgets/button_bindings.h"

#include <QStyle>
#include <QStyleOptionButton>

namespace zirvo::widgets {
namespace {

/// The rectangle that the style gives a caption, in the widget's present size, without the pixel at its right edge: the
/// grey of a last letter would be cut there.
TextInBox CaptionBeside(const QWidget& widget, const std::string& caption, QSize size, QStyle::SubElement element) {
    QStyleOptionButton option;
    option.initFrom(&widget);
    option.rect = QRect(QPoint(0, 0), size);
    const QSize room = widget.style()->subElementRect(element, &option, &widget).size() - QSize(1, 0);
    return {.Text = ToQt(caption), .Room = room};
}

}  // namespace

CommandBinding::CommandBinding(forms::CommandButton& button, QWidget& parent)
    : ControlBinding(button, *new QPushButton(&parent)), button_(button), shown_(static_cast<QPushButton&>(Widget())) {
    connect(&shown_, &QPushButton::clicked, this, [this] { Act([this] { button_.UserClick(); }); });
}

void CommandBinding::ShowState() {
    shown_.setText(WithoutMnemonics(button_.Caption));
    shown_.setAccessibleName(ToQt(button_.Caption.Get()));
    shown_.setDefault(button_.Default);  // the look; Enter is the form's
}

std::optional<TextInBox> CommandBinding::TextToFit() const {
    // The style's own margin is meant for buttons that grow with their words.
    constexpr int edge = 4;
    return TextInBox{.Text = ToQt(button_.Caption.Get()), .Room = Place().size() - QSize(2 * edge, edge)};
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

std::optional<TextInBox> OptionBinding::TextToFit() const {
    return CaptionBeside(shown_, option_.Caption, Place().size(), QStyle::SE_RadioButtonContents);
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

std::optional<TextInBox> CheckBinding::TextToFit() const {
    return CaptionBeside(shown_, check_.Caption, Place().size(), QStyle::SE_CheckBoxContents);
}

}  // namespace zirvo::widgets
