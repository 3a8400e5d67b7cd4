// The one application: it owns the forms, makes them by name, and runs every handler that the outside starts.
#pragma once
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/desktop.h"
#include "forms/fault_box.h"
#include "forms/form.h"

namespace zirvo::forms {

/// Hears when an outermost handler has ended: what came of one act of the user is then complete. It must raise nothing.
class ActListener {
public:
    virtual ~ActListener() = default;
    virtual void ActEnded() = 0;
};

class Application {
public:
    using Factory = std::function<std::unique_ptr<Form>(Application&)>;

    explicit Application(Desktop& desktop);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    Desktop& World() const { return desktop_; }

    /// Names a form and tells how it is made.
    void Register(const std::string& name, Factory factory);

    /// The loaded form of that type, loaded first if it is not. T has a `static constexpr const char* FormName`.
    template <class T>
    T& Get() {
        return dynamic_cast<T&>(Load(T::FormName));
    }
    /// The loaded form, or nullptr.
    Form* Find(const std::string& name) const;
    /// Makes the form and runs its load step if it is not loaded. A name that nobody registered is fault 5.
    Form& Load(const std::string& name);
    /// Loads if need be, shows, brings to the front.
    void Show(const std::string& name);

    /// Runs a handler that the outside starts. The outermost one catches a RuntimeFault, which ends the program with
    /// the fault box and exit status 1; behind it the focus events that wait are raised, each as a handler of its own,
    /// and what has been unloaded or removed is destroyed. An inner one is a plain call. Nothing runs once the program
    /// has ended.
    void Dispatch(const std::function<void()>& handler);
    /// Runs a handler behind the outermost one that is running, and behind its focus events, as an outermost handler of
    /// its own; at once where none is running.
    void DispatchBehind(std::function<void()> handler);
    /// From now on, and no longer, the listener hears of the ends of handlers.
    void Listen(ActListener& listener) { listeners_.push_back(&listener); }
    void Ignore(ActListener& listener) { std::erase(listeners_, &listener); }
    /// Whether a handler is running: a view drops what the user does meanwhile.
    bool InHandler() const { return depth_ > 0; }

    /// The language of the program's own boxes; none before the user has chosen one, and then they speak both.
    void Speak(Language language) { language_ = language; }
    /// Called when an uncaught fault is about to end the program, before its box: keeps what the user typed, and tells
    /// whether that is kept now. Nothing where there is nothing to be kept; without this function no line tells of it.
    std::function<std::optional<bool>()> KeepTypedData;

    /// Ends the program at once: no unloading, no question. Each loaded form has its Form_ProgramEnds before.
    void End(int status = 0);
    bool HasEnded() const { return ended_; }

private:
    friend class Form;
    friend class ControlCollection;

    void RunOutermost(const std::function<void()>& handler);
    void RaiseFocusEvents();
    void RunThoseBehind();
    void TellTheEnd();
    Form* FormWithFocusEvent();
    void BuryForm(Form& form);
    void BuryControl(std::unique_ptr<Control> control);
    void DestroyGone();
    void ShowFault(FaultBox box);

    Desktop& desktop_;
    std::map<std::string, Factory> factories_;
    std::vector<std::unique_ptr<Form>> loaded_;
    std::vector<std::unique_ptr<Form>> goneForms_;
    std::vector<std::unique_ptr<Control>> goneControls_;
    std::optional<Language> language_;
    std::deque<std::function<void()>> behind_;  ///< handlers of DispatchBehind that wait
    std::vector<ActListener*> listeners_;
    int depth_ = 0;
    bool ended_ = false;
};

}  // namespace zirvo::forms
