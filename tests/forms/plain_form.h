// Forms for the tests of this folder: a form without controls of its own that logs its events, and a screen that shows
// one.
#pragma once
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "forms/application.h"
#include "forms/screen_helpers.h"
#include "forms/scripted_desktop.h"

namespace zirvo::forms {

class PlainForm : public Form {
public:
    static constexpr const char* FormName = "Plain";

    explicit PlainForm(forms::Application& application, const char* name = FormName) : Form(application, name) {}

    /// What has happened, in order.
    std::vector<std::string> Events;

    void Note(std::string event) { Events.push_back(std::move(event)); }
    /// Gives the events and forgets them.
    std::vector<std::string> Taken() { return std::exchange(Events, {}); }
    /// Notes "got NAME" and "lost NAME".
    void NoteFocus(Control& control) {
        control.GotFocus = [this, &control] { Note("got " + control.Name()); };
        control.LostFocus = [this, &control] { Note("lost " + control.Name()); };
    }
    /// Notes "down CODE" and "press CODE".
    void NoteKeys(Control& control) {
        control.KeyDown = [this](int& code) { Note("down " + std::to_string(code)); };
        control.KeyPress = [this](int& code) { Note("press " + std::to_string(code)); };
    }
};

using Lines = std::vector<std::string>;

/// One form of type T on the screen of a scripted desktop.
template <class T>
struct Screen {
    ScriptedDesktop desktop;
    Application app{desktop};
    T& form;

    Screen() : form(ShowFirst()) {}

    /// Runs as a handler of the program.
    template <class Handler>
    void Run(Handler handler) {
        app.Dispatch(handler);
    }

private:
    T& ShowFirst() {
        app.Register(T::FormName, [](Application& application) { return std::make_unique<T>(application); });
        app.Show(T::FormName);
        return app.Get<T>();
    }
};

/// A view that counts what it is told.
struct CountingView : ControlView {
    int Refreshes = 0;
    void Refresh() override { ++Refreshes; }
};

}  // namespace zirvo::forms
