// The active control of a form, its tab stops and its default button.
//
// Notation
//   place     position of a control among the controls of the form; a cell's box has its grid's place
//   active    the control that has the focus, as far as the program knows
//   reported  the control that last had its GotFocus, and has not had its LostFocus since
// Steps
//   A write of the program moves `active` at once. When the outermost handler has ended, the application asks each form
//   on the screen to settle (an active control that has become unusable hands on) and raises, one by one, the events by
//   which `reported` follows `active`. A form that is not on the screen does neither: it does so when it is shown.
#include "forms/application.h"
#include "forms/form.h"

namespace zirvo::forms {

void Form::TellFocus() {
    if (view_ != nullptr) {
        view_->FocusMoved();
    }
}

void Form::MoveFocus(Control* control) {
    lostPlace_.reset();
    if (control != active_) {
        active_ = control;
        TellFocus();
    }
}

void Form::SettleFocus() {
    if (active_ != nullptr && active_->IsUsable()) {
        return;
    }
    if (active_ != nullptr) {
        MoveFocus(NextTabStop(active_, false));
    } else if (lostPlace_.has_value()) {
        MoveFocus(TabStopFrom(*lostPlace_, false, nullptr));
        if (active_ == nullptr) {
            TellFocus();  // of the removed one the view has not heard that it lost the focus
        }
    } else {
        MoveFocus(TabStopFrom(-1, false, nullptr));
    }
}

void Form::RaiseFocusEvent() {
    if (reported_ != nullptr) {
        Control* old = reported_;
        reported_ = nullptr;
        old->LosesFocus();
        Control::Raise(old->LostFocus);
    } else if (active_ != nullptr) {
        reported_ = active_;
        reported_->ReceivesFocus();
        Control::Raise(reported_->GotFocus);
    }
}

void Form::ControlGone(const Control& control, int place) {
    if (lostPlace_.has_value() && place <= *lostPlace_) {
        --*lostPlace_;
    }
    if (active_ == &control) {
        active_ = nullptr;
        const Control* at = control.TabPlace();
        // Behind its own place now stands its successor; behind a grid's place stands what followed the grid.
        lostPlace_ = at == &control ? place - 1 : Controls.PlaceOf(*at);
    }
    if (reported_ == &control) {
        reported_ = nullptr;
    }
}

Control* Form::NextTabStop(const Control* from, bool backwards) const {
    if (from == nullptr) {
        return TabStopFrom(backwards ? Controls.Count() : -1, backwards, nullptr);
    }
    return TabStopFrom(Controls.PlaceOf(*from->TabPlace()), backwards, from->IsUsable() ? from : nullptr);
}

/// The first tab stop behind (or before) a place, wrapping; the place itself comes last.
/// @param from  whose stop does not count: Tab leaves a group of option buttons, and the grid of a cell's box; nullptr
///              where all count
Control* Form::TabStopFrom(int place, bool backwards, const Control* from) const {
    const int count = Controls.Count();
    for (int step = 1; step <= count; ++step) {
        const int next = ((backwards ? place - step : place + step) % count + count) % count;
        Control& control = Controls.At(next);
        const bool own = from != nullptr && (from->SharesStopWith(control) || from->TabPlace() == &control);
        if (control.IsTabStop() && !own) {
            return &control;
        }
    }
    return nullptr;
}

CommandButton* Form::DefaultButton() const {
    for (Control* control : Controls) {
        auto* button = dynamic_cast<CommandButton*>(control);
        if (button != nullptr && button->Default && button->IsUsable()) {
            return button;
        }
    }
    return nullptr;
}

bool Form::UserKey(const KeyStroke& stroke) {
    if (application_.HasEnded() || gone_) {
        return true;
    }
    if (Shortcut && Shortcut(stroke)) {
        return true;
    }
    if (active_ != nullptr) {
        return active_->UserKey(stroke);
    }
    Control* first = NextTabStop(nullptr, stroke.Shift);
    CommandButton* button = DefaultButton();
    if (stroke.Code == key::Tab && first != nullptr) {
        first->UserFocus();
    } else if (stroke.Code == key::Enter && button != nullptr) {
        button->Press();
    }
    return true;
}

void Form::Strike(const KeyStroke& stroke) {
    forms::Application& application = application_;
    std::weak_ptr<const void> life;
    Control* control = active_;
    if (control != nullptr) {
        life = control->Life();
    }
    if (!UserKey(stroke) && !application.HasEnded() && !life.expired()) {
        control->EditBy(stroke);
    }
}

}  // namespace zirvo::forms
