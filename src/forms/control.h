// What all controls share: name, place, enabled and visible state, focus and key events, and the view that shows them.
// A control is a plain object and holds the data; the view only shows it and hands the user's acts in.
#pragma once
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "forms/font_spec.h"
#include "forms/key_stroke.h"
#include "forms/property.h"

namespace zirvo::forms {

class Application;
class Form;

/// What shows a control. A view writes nothing back while it refreshes.
class ControlView {
public:
    virtual ~ControlView() = default;
    /// Something about the control has changed: read it again.
    virtual void Refresh() = 0;
};

/// Name of a control; elements of a control array have an index too.
struct ControlId {
    ControlId(const char* name) : Name(name) {}  // NOLINT(google-explicit-constructor)
    ControlId(std::string name, int index = -1) : Name(std::move(name)), Index(index) {}  // NOLINT
    std::string Name;
    int Index = -1;  ///< -1: no element of an array
};

class Control {
public:
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control();

    const std::string& Name() const { return id_.Name; }
    /// Index in its control array, -1 outside of one.
    int Index() const { return id_.Index; }
    Form& Parent() const { return form_; }
    /// The frame or picture that it stands in; nullptr for the form itself. Left and Top count from its corner.
    Control* Container() const { return container_; }

    Property<bool> Enabled;
    Property<bool> Visible;
    Property<bool> TabStop;
    Property<double> Left;  ///< twips, from the container's left edge
    Property<double> Top;
    Property<double> Width;
    Property<double> Height;
    Property<FontSpec> Font;
    std::string Tag;

    std::function<void()> GotFocus;
    std::function<void()> LostFocus;
    /// Every stroke; the handler may change the code.
    std::function<void(int& keyCode)> KeyDown;
    /// Strokes that make a character; a handler that sets the code to 0 drops it.
    std::function<void(int& keyAscii)> KeyPress;

    /// All four at once [twips].
    void Move(double left, double top, double width, double height);
    /// Makes it the active control of its form at once; its events wait for the end of the outermost handler. Does
    /// nothing on a control that is disabled or hidden, itself or through a container.
    void SetFocus();
    bool HasFocus() const;
    /// To the front of the controls of its container.
    void ZOrder();
    /// How far in front it stands: the last one that came to the front has the largest number.
    int Depth() const { return depth_; }

    /// Enabled and visible, itself and every container. (A form that is not shown does not count.)
    bool IsUsable() const;
    /// Whether it can be the active control: labels, frames, pictures and images cannot.
    virtual bool TakesFocus() const { return true; }
    /// Where it counts in the tab order when it is not its own place: a cell's box counts at its grid's.
    void CountAt(Control& other) { countsAt_ = &other; }
    const Control* TabPlace() const { return countsAt_ == nullptr ? this : countsAt_; }

    /// The view that shows it, at most one; nullptr takes it off. A control without a view works the same.
    virtual void Attach(ControlView* view) { view_ = view; }
    ControlView* View() const { return view_; }

    /// The user gives it the focus (click, tab): LostFocus and GotFocus are raised before this returns.
    void UserFocus();
    /// The user strikes a key while it is the active control. Gives true if the stroke is used up; false leaves it to
    /// the view's own editing (text boxes, the text of a combo box).
    bool UserKey(const KeyStroke& stroke);

    /// A token that dies with the control: for those who must know whether it is still there.
    std::weak_ptr<const void> Life() const { return life_; }
    /// Whether it has been removed from its form. It then lives on until the outermost handler has ended.
    bool IsGone() const { return gone_; }
    /// Whether it is a stop of the Tab key: usable, takes the focus, and counts at its own place.
    virtual bool IsTabStop() const;
    /// Whether both are one stop of the Tab key: option buttons of one group.
    virtual bool SharesStopWith(const Control& other) const { return this == &other; }

    /// What the model itself makes of a stroke that UserKey has left to the view's editing. For tests, and for views
    /// without an editing of their own; the base does nothing.
    virtual void EditBy(const KeyStroke& /*stroke*/) {}

protected:
    Control(Form& form, ControlId id, Control* container);

    Application& App() const;
    /// Tells the view and the form that something has changed.
    void TellView() const {
        if (view_ != nullptr) {
            view_->Refresh();
        }
        TellForm();
    }
    /// Tells the form alone: for a change that the view is told in a way of its own.
    void TellForm() const;
    /// What the control does with a stroke behind KeyDown and KeyPress (arrows of a grid, Space of a button). True if
    /// it used it.
    virtual bool KeyDefault(const KeyStroke& stroke);
    /// Whether the view edits text by itself: only then UserKey leaves strokes to it.
    virtual bool HasOwnEditing() const { return false; }
    /// Whether KeyDown and KeyPress are raised at all: not on a grid without data.
    virtual bool RaisesKeys() { return true; }
    /// Whether Enter belongs to the view and to nothing else: an open list takes its entry with it.
    virtual bool KeepsEnter() const { return false; }
    /// Called right before GotFocus.
    virtual void ReceivesFocus() {}
    /// Called right before LostFocus.
    virtual void LosesFocus() {}
    /// Width or height has changed.
    virtual void Resized() {}
    /// Calls an event handler if there is one. The handler may be replaced while it runs: a copy is called.
    template <class... Parameters, class... Values>
    static void Raise(const std::function<void(Parameters...)>& event, Values&&... values) {
        if (event) {
            const std::function<void(Parameters...)> running = event;
            running(std::forward<Values>(values)...);
        }
    }

private:
    friend class Application;
    friend class ControlCollection;
    friend class ControlWatch;
    friend class Form;

    bool UserEnter();
    void UserTab(bool backwards);

    Form& form_;
    ControlId id_;
    Control* container_;
    Control* countsAt_ = nullptr;
    ControlView* view_ = nullptr;
    int depth_ = 0;
    bool gone_ = false;
    std::shared_ptr<const void> life_;
};

/// Tells behind a handler whether a control can still be used: handlers remove controls, unload forms and end the
/// program.
class ControlWatch {
public:
    explicit ControlWatch(Control& control);
    /// The control is there, its form is loaded, the program runs.
    bool IsThere() const;
    /// It is there, enabled and visible.
    bool IsUsable() const { return IsThere() && control_.IsUsable(); }

private:
    Control& control_;
    Application& application_;
    std::weak_ptr<const void> life_;
};

}  // namespace zirvo::forms
