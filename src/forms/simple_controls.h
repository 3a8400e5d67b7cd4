// The controls without a state of their own beyond a caption or picture, and the buttons.
#pragma once
#include <cstdint>
#include <vector>

#include "forms/control.h"

namespace zirvo::forms {

/// 24 bits, 0xRRGGBB. -1 stands for the colour of the screens.
using ScreenColor = std::int32_t;

inline constexpr ScreenColor White = 0xFFFFFF;
inline constexpr ScreenColor DefaultColor = -1;

enum class Alignment { Left, Right, Center };

/// Plain text; "&" shows as it is. Takes no focus.
class Label : public Control {
public:
    Label(Form& form, ControlId id, Control* container = nullptr);
    Property<std::string> Caption;
    Property<Alignment> Align;
    Property<ScreenColor> ForeColor;
    Property<ScreenColor> BackColor;
    std::function<void()> Change;
    bool TakesFocus() const override { return false; }
};

/// A titled group; option buttons in one frame are one group. Takes no focus.
class Frame : public Control {
public:
    Frame(Form& form, ControlId id, Control* container = nullptr);
    Property<std::string> Caption;
    bool TakesFocus() const override { return false; }
};

/// A picture by the name of its drawing ("pavement", "plane_xy"), scaled to the control. Takes no focus.
class Image : public Control {
public:
    Image(Form& form, ControlId id, Control* container = nullptr);
    Property<std::string> Picture;
    bool TakesFocus() const override { return false; }
};

/// A picture with a border: a drawing by its name, or plain wrapped text (the notes), or, where a service of its own
/// draws on it (the map), whatever that shows. Takes no focus.
class PictureBox : public Control {
public:
    PictureBox(Form& form, ControlId id, Control* container = nullptr);
    Property<std::string> Picture;
    Property<std::string> Text;
    Property<ScreenColor> BackColor;
    /// A mouse button goes down on it: button 1 left, 2 right, 4 middle; pixels from its top left corner.
    std::function<void(int button, int x, int y)> MouseDown;
    bool TakesFocus() const override { return false; }
    /// The user's act. Does nothing on a disabled or hidden picture.
    void UserMouseDown(int button, int x, int y);
};

class CommandButton : public Control {
public:
    CommandButton(Form& form, ControlId id, Control* container = nullptr);
    Property<std::string> Caption;
    /// Enter presses it wherever the focus is, while it is enabled and visible. Setting it clears the other buttons'.
    Property<bool> Default;
    std::function<void()> Click;
    /// Presses it without moving the focus: Enter, Space, a program. Does nothing while it is disabled or hidden.
    void Press();
    /// The user's click: takes the focus first, with its events, and then presses it, if that is still possible.
    void UserClick();

protected:
    bool KeyDefault(const KeyStroke& stroke) override;
};

class OptionButton : public Control {
public:
    OptionButton(Form& form, ControlId id, Control* container = nullptr);
    Property<std::string> Caption;
    /// Setting it clears the others of its container, then raises Click; clearing it raises nothing.
    Property<bool> Value;
    std::function<void()> Click;
    /// The user's click: focus, then Click, also where it is set already.
    void UserClick();

    bool IsTabStop() const override;
    bool SharesStopWith(const Control& other) const override;

protected:
    bool KeyDefault(const KeyStroke& stroke) override;

private:
    std::vector<OptionButton*> Group() const;
    OptionButton* Neighbour(bool backwards) const;
    void Set(bool value);
    void Choose();
};

class CheckBox : public Control {
public:
    CheckBox(Form& form, ControlId id, Control* container = nullptr);
    Property<std::string> Caption;
    Property<bool> Value;
    std::function<void()> Click;
    /// The user's click: focus, then the other value, with Click.
    void UserClick();

protected:
    bool KeyDefault(const KeyStroke& stroke) override;
};

/// A scroll bar; its minimum stands at the top, and may be above the maximum: then the value grows upwards.
class VScrollBar : public Control {
public:
    VScrollBar(Form& form, ControlId id, Control* container = nullptr);
    Property<int> Min;
    Property<int> Max;
    /// Between Min and Max; a value outside is fault 5.
    Property<int> Value;
    std::function<void()> Change;
    /// Digits that the user has typed while the bar has the focus: Enter makes them the value in one step, unless that
    /// lies outside, and then they stay; Backspace takes one away; Esc, any other way to a value and the loss of the
    /// focus drop them.
    Property<std::string> Typed;
    /// The number that Typed stands for lies outside Min and Max.
    bool TypedIsOutside() const;
    /// The user's arrows, keys and clicks beside the thumb: the focus first, then a step towards Min or towards Max,
    /// not beyond. A step is 1; behind the first second of holding the arrow it grows, so that the value doubles its
    /// speed every second.
    /// @param heldFor  milliseconds since the arrow was pressed; 0 for the press itself
    void UserStepToMin(int heldFor = 0);
    void UserStepToMax(int heldFor = 0);
    /// The value was last set by an arrow that went on being held: with the press, one act of the user.
    bool IsHeld() const { return lastHeld_ > 0; }
    /// The user releases the thumb at this value.
    void UserRelease(int value);

protected:
    bool KeyDefault(const KeyStroke& stroke) override;
    void LosesFocus() override { Typed = std::string(); }

private:
    void SetValue(int value);
    void SetEnds();
    void UserSet(int value, int heldFor = 0);
    int Clamped(int value) const;
    int StepOf(int heldFor) const;
    bool TypesNumber(const KeyStroke& stroke);
    void TakeTyped();

    int lastHeld_ = 0;  ///< milliseconds
};

}  // namespace zirvo::forms
