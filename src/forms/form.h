// A screen: a window with its controls, its active control and default button, and the life of a form from load to
// unload.
#pragma once
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "forms/control_collection.h"
#include "forms/desktop.h"
#include "forms/simple_controls.h"

namespace zirvo::forms {

class Application;

/// What shows a form: its window.
class FormView {
public:
    virtual ~FormView() = default;
    /// Caption, size or frame entries have changed.
    virtual void Refresh() = 0;
    virtual void ControlAdded(Control& control) = 0;
    /// Its view lets go of it before this returns. It may come from within an event of that very widget, which must
    /// be destroyed later.
    virtual void ControlRemoved(Control& control) = 0;
    /// The active control has changed, possibly to none: give it the toolkit's focus without telling back.
    virtual void FocusMoved() = 0;
};

/// Why a form is asked to go.
enum class UnloadMode { ControlMenu = 0, Code = 1 };

class Form {
public:
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    virtual ~Form();

    const std::string& Name() const { return name_; }
    forms::Application& App() const { return application_; }
    Desktop& World() const;

    Property<std::string> Caption;
    Property<double> Left;  ///< twips on the screen; meaningless where Centered
    Property<double> Top;
    Property<double> Width;  ///< of the client area [twips]
    Property<double> Height;
    Property<bool> Centered;       ///< stands in the middle of the screen
    Property<bool> HasCloseEntry;  ///< false once the system menu is trimmed: the frame cannot close it
    Property<FontSpec> Font;       ///< of TextWidth, and of the controls that have none of their own
    int ScaleMode = 1;             ///< 1: twips
    ControlCollection Controls;

    /// Asked first about every stroke in this window; true: it is used up, and no control hears of it.
    std::function<bool(const KeyStroke& stroke)> Shortcut;
    /// The language of what the window says in words of its own.
    Language ViewLanguage = Language::English;
    /// What a printed copy of the page of text that it shows is called; "": as its caption.
    std::string PageName;

    bool IsVisible() const { return visible_; }
    /// From the beginning of its load step until it is unloaded.
    bool IsLoaded() const { return loaded_; }
    /// Whether it has been unloaded. It then lives on until the outermost handler has ended.
    bool IsGone() const { return gone_; }
    /// Puts it on the screen and in front. Within its own load it shows it without loading it again.
    void Show();
    void Hide();
    /// To the front.
    void ZOrder();
    /// Asks Form_QueryUnload, then takes it off the screen and out of the application. It lives on until the outermost
    /// handler has ended.
    void Unload();
    /// The user or the window manager asks the frame to close it. Nothing without a close entry.
    void UserClose();

    /// Width of a text in the form's font [twips]. Remembered for each text, since headings are measured again and
    /// again.
    float TextWidth(const std::string& text) const;
    /// The user has chosen another size for all texts: what follows from their widths is measured anew.
    void TextSizesChanged() const { widths_.clear(); }

    Control* ActiveControl() const { return active_; }
    /// The visible and enabled default button, or nullptr.
    CommandButton* DefaultButton() const;
    /// The user strikes a key in this window. See Control::UserKey. With no active control only Tab and Enter count.
    bool UserKey(const KeyStroke& stroke);
    /// The same, with the model's own editing of what is left to the view. For tests.
    void Strike(const KeyStroke& stroke);
    /// The next or previous tab stop from a control, wrapping; nullptr where there is none. A group of option buttons
    /// is one stop.
    Control* NextTabStop(const Control* from, bool backwards) const;

    /// Whether a file that the user drags over the window can be dropped on it now.
    virtual bool TakesFile(const std::string& /*path*/) const { return false; }
    /// The user drops that file.
    virtual void UserDrop(const std::string& /*path*/) {}

    /// The view that shows it, at most one. Hidden forms keep theirs.
    void Attach(FormView* view) { view_ = view; }
    FormView* View() const { return view_; }

    /// The load step, once, before the first show.
    virtual void Form_Load() {}
    /// May set cancel. The base refuses what comes from the window's control menu.
    virtual void Form_QueryUnload(bool& cancel, UnloadMode mode);
    /// The last step before it goes.
    virtual void Form_Unload() {}
    /// The program ends, without unloading: the last moment to keep what stands here. At a fault it comes before the
    /// fault's box, and once more behind it. Must not throw.
    virtual void Form_ProgramEnds() {}

    /// Called behind every change of a property, a cell or a count of rows of its controls, whoever made it. Must be
    /// quick, and must not change a control.
    std::function<void()> ControlsChanged;

protected:
    Form(forms::Application& application, std::string name);

private:
    friend class forms::Application;
    friend class Control;
    friend class ControlCollection;

    void TellView() const;
    void UnloadFor(UnloadMode mode);
    void MoveFocus(Control* control);
    void TellFocus();
    void SettleFocus();  ///< hands a lost focus on; takes a first tab stop where there is none
    bool HasFocusEvent() const { return visible_ && reported_ != active_; }
    void RaiseFocusEvent();  ///< one of those that wait: LostFocus of the old control, else GotFocus of the new one
    void ForgetFocusEvents() { reported_ = active_; }
    void ControlGone(const Control& control, int place);
    Control* TabStopFrom(int place, bool backwards, const Control* from) const;

    forms::Application& application_;
    std::string name_;
    FormView* view_ = nullptr;
    bool visible_ = false;
    bool loaded_ = false;
    bool unloading_ = false;
    bool gone_ = false;
    Control* active_ = nullptr;
    Control* reported_ = nullptr;   ///< the control that last had GotFocus
    std::optional<int> lostPlace_;  ///< the tab place that the active control had when it was removed
    int lastDepth_ = 0;
    mutable std::unordered_map<std::string, float> widths_;  ///< of texts in widthsFont_
    mutable FontSpec widthsFont_;
};

}  // namespace zirvo::forms
