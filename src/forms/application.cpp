// The application: forms by name, the outermost handler, what it catches and what it leaves behind.
#include "forms/application.h"

#include <algorithm>

#include "base/runtime_fault.h"

namespace zirvo::forms {
namespace {

/// Two controls that hand the focus to each other in their own events would do so for ever; beyond this count of
/// events behind one handler the rest is dropped.
constexpr int MostFocusEvents = 1000;

}  // namespace

Application::Application(Desktop& desktop) : desktop_(desktop) {}

Application::~Application() {
    ended_ = true;
    while (!loaded_.empty()) {
        loaded_.back()->gone_ = true;
        BuryForm(*loaded_.back());
    }
    DestroyGone();
}

void Application::Register(const std::string& name, Factory factory) {
    factories_[name] = std::move(factory);
}

Form* Application::Find(const std::string& name) const {
    const auto found = std::find_if(loaded_.begin(), loaded_.end(),
                                    [&](const std::unique_ptr<Form>& form) { return form->Name() == name; });
    return found == loaded_.end() ? nullptr : found->get();
}

Form& Application::Load(const std::string& name) {
    Form* known = Find(name);
    if (known != nullptr) {
        return *known;
    }
    const auto factory = factories_.find(name);
    if (factory == factories_.end()) {
        throw RuntimeFault(fault::InvalidCall);
    }
    loaded_.push_back(factory->second(*this));
    Form& form = *loaded_.back();
    form.loaded_ = true;
    try {
        form.Form_Load();
    } catch (...) {  // no form stays behind half loaded
        form.gone_ = true;
        form.loaded_ = false;
        form.Hide();
        BuryForm(form);
        throw;
    }
    return form;
}

void Application::Show(const std::string& name) {
    Dispatch([&] { Load(name).Show(); });
}

void Application::Dispatch(const std::function<void()>& handler) {
    if (ended_) {
        return;
    }
    if (InHandler()) {
        handler();
        return;
    }
    RunOutermost(handler);
    RaiseFocusEvents();
    RunThoseBehind();
    DestroyGone();
}

void Application::DispatchBehind(std::function<void()> handler) {
    if (!InHandler()) {
        Dispatch(handler);
        return;
    }
    behind_.push_back(std::move(handler));
}

void Application::RunThoseBehind() {
    while (!behind_.empty() && !ended_) {
        const std::function<void()> handler = std::move(behind_.front());
        behind_.pop_front();
        RunOutermost(handler);
        RaiseFocusEvents();
    }
}

void Application::RunOutermost(const std::function<void()>& handler) {
    const auto caught = [this](const auto& work) {
        try {
            work();
        } catch (const RuntimeFault& fault) {
            ShowFault({.Heading = "Run-time error '" + std::to_string(fault.Number()) + "':",
                       .Description = fault.what(),
                       .Caught = &fault});
        } catch (const std::exception& error) {
            // A mistake of our own, or no memory, which the toolkit must not see.
            ShowFault({.Heading = "Internal error:", .Description = error.what()});
        }
    };
    ++depth_;
    caught(handler);
    if (!ended_) {
        caught([this] {
            for (ActListener* listener : listeners_) {
                listener->ActEnded();
            }
        });
    }
    --depth_;
}

void Application::ShowFault(FaultBox box) {
    if (ended_) {
        return;
    }
    TellTheEnd();  // before the box: whoever sees it may switch the machine off
    box.Words = language_;
    try {
        box.Kept = KeepTypedData ? KeepTypedData() : std::nullopt;
    } catch (const std::exception&) {  // the error that is being told is the one to be told
        box.Kept = false;
    }
    desktop_.Show({.Text = FaultBoxText(box),
                   .Title = "ZIRVO Ver2.3",
                   .Picture = Icon::Stop,
                   .Words = language_.value_or(Language::English)});
    End(1);
}

void Application::RaiseFocusEvents() {
    for (int left = MostFocusEvents; left > 0 && !ended_; --left) {
        Form* form = FormWithFocusEvent();
        if (form == nullptr) {
            return;
        }
        RunOutermost([form] { form->RaiseFocusEvent(); });
    }
    for (const std::unique_ptr<Form>& form : loaded_) {
        form->ForgetFocusEvents();
    }
}

/// Settles the focus of the forms on the screen, and gives the first of them with an event that waits.
Form* Application::FormWithFocusEvent() {
    for (const std::unique_ptr<Form>& form : loaded_) {
        if (form->IsVisible()) {
            form->SettleFocus();
        }
    }
    const auto found = std::find_if(loaded_.begin(), loaded_.end(),
                                    [](const std::unique_ptr<Form>& form) { return form->HasFocusEvent(); });
    return found == loaded_.end() ? nullptr : found->get();
}

void Application::End(int status) {
    if (!ended_) {
        TellTheEnd();
        ended_ = true;
        desktop_.EndProgram(status);
    }
}

void Application::TellTheEnd() {
    for (const std::unique_ptr<Form>& form : loaded_) {
        form->Form_ProgramEnds();
    }
}

void Application::BuryForm(Form& form) {
    const auto found = std::find_if(loaded_.begin(), loaded_.end(),
                                    [&](const std::unique_ptr<Form>& one) { return one.get() == &form; });
    if (found != loaded_.end()) {
        goneForms_.push_back(std::move(*found));
        loaded_.erase(found);
    }
}

void Application::BuryControl(std::unique_ptr<Control> control) {
    goneControls_.push_back(std::move(control));
}

/// A form that goes may remove controls of its own while it goes.
void Application::DestroyGone() {
    while (!goneForms_.empty() || !goneControls_.empty()) {
        goneControls_.clear();
        const std::vector<std::unique_ptr<Form>> goneForms = std::move(goneForms_);
        goneForms_.clear();
        for (const std::unique_ptr<Form>& form : goneForms) {
            desktop_.FormGone(*form);
            form->Attach(nullptr);
        }
    }
}

}  // namespace zirvo::forms
