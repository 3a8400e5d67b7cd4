// The first screens on a scripted desktop, in a program folder of their own, with stand-ins for the data screens.
#pragma once
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "forms/application.h"
#include "forms/screen_helpers.h"
#include "forms/scripted_desktop.h"
#include "forms/tidy_layout.h"
#include "platform/temporary_folder.h"
#include "shell/form1.h"
#include "shell/form2.h"
#include "shell/form7.h"

namespace zirvo {

/// What stands behind Form2 here: a screen with a way back, as PREVIOUS is.
class StandInScreen : public forms::Form {
public:
    StandInScreen(forms::Application& application, const std::string& name) : Form(application, name) {
        Previous.Click = [this] {
            Unload();
            App().Show("Form2");
        };
    }
    forms::CommandButton Previous{*this, "Previous"};
};

/// One run of the program, with the settings file in the folder `program`.
class ProgramRun {
public:
    ProgramRun(forms::Desktop& desktop, const TemporaryFolder& program) : App(desktop) {
        App.Register("Form1", [](forms::Application& a) { return std::make_unique<Form1>(a); });
        App.Register("Form2", [&](forms::Application& a) { return std::make_unique<Form2>(a, program.Path()); });
        App.Register("Form7", [](forms::Application& a) { return std::make_unique<Form7>(a); });
        for (const char* name : {"Form3", "Form5"}) {
            App.Register(name, [name](forms::Application& a) { return std::make_unique<StandInScreen>(a, name); });
        }
    }

    Form1& Start() {
        App.Show("Form1");
        return App.Get<Form1>();
    }
    /// The user chooses a language.
    Form1& StartIn(forms::Language language) {
        Form1& first = Start();
        (language == forms::Language::Japanese ? first.Option1 : first.Option2).UserClick();
        return first;
    }
    /// And goes on to the settings.
    Form2& StartSettings(forms::Language language = forms::Language::English) {
        StartIn(language).Command2.UserClick();
        return App.Get<Form2>();
    }

    forms::Application App;
};

class Screens : public testing::Test {
protected:
    Form1& Start() { return run_.Start(); }
    Form1& StartIn(forms::Language language) { return run_.StartIn(language); }
    /// On to the settings, which lie in the settings file with these bytes ("" for no file).
    Form2& StartSettings(const std::string& bytes = "", forms::Language language = forms::Language::English) {
        if (!bytes.empty()) {
            Program.Put("zirvo_sv.ini", bytes);
        }
        Form2& form = run_.StartSettings(language);
        Desktop.Log.clear();
        return form;
    }
    std::string SettingsBytes() const { return Program.Get("zirvo_sv.ini"); }

    forms::ScriptedDesktop Desktop;
    TemporaryFolder Program;
    TemporaryFolder Work;

private:
    ProgramRun run_{Desktop, Program};

protected:
    forms::Application& App = run_.App;
};

/// Names of the controls that the user can give the focus, in tab order.
inline std::vector<std::string> UsableControls(const forms::Form& form) {
    std::vector<std::string> names;
    for (const forms::Control* control : form.Controls) {
        if (control->TakesFocus() && control->IsUsable()) {
            names.push_back(control->Name());
        }
    }
    return names;
}

inline std::vector<std::string> ControlsInSight(const forms::Form& form) {
    std::vector<std::string> names;
    for (const forms::Control* control : form.Controls) {
        if (IsInSight(*control)) {
            names.push_back(control->Name());
        }
    }
    return names;
}

}  // namespace zirvo
