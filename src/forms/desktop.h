// All that the forms may ask of the world. Shown to people by the toolkit; tests have a scripted one that answers from
// a list and records every box.
#pragma once
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "forms/font_spec.h"

namespace zirvo::forms {

class Form;

enum class Icon { None, Exclamation, Stop, Information, Question };
enum class Buttons { Ok, YesNo, OkCancel };
enum class Answer { Ok, Cancel, Yes, No };
enum class Language { Japanese, English };

/// A message box, modal to the whole program.
struct Message {
    std::string Text{};
    std::string Title{};  ///< "" is shown as "ZIRVO"
    Icon Picture = Icon::None;
    Buttons Choice = Buttons::Ok;
    Language Words = Language::English;  ///< of the words on the buttons

    bool operator==(const Message&) const = default;
};

/// An open or save dialog.
struct FileDialog {
    Form* Owner = nullptr;
    std::string Title{};
    std::string Folder{};     ///< where it starts
    std::string Filter{};     ///< "words|pattern", several with further "|"
    int FilterIndex = 1;      ///< from 1
    std::string StartName{};  ///< what the name box holds at first
    bool FileMustExist = false;
    bool PathMustExist = false;
    Language Words = Language::English;
};

/// The screen [twips] and how many twips are one pixel of it.
struct ScreenSize {
    double Width = 0;
    double Height = 0;
    double TwipsPerPixel = 15;
};

class Desktop {
public:
    virtual ~Desktop() = default;

    virtual Answer Show(const Message& message) = 0;
    /// Full path of the chosen file; nothing if the user cancels.
    virtual std::optional<std::string> Open(const FileDialog& dialog) = 0;
    /// Full path to save under; asks no overwrite question, adds no suffix.
    virtual std::optional<std::string> Save(const FileDialog& dialog) = 0;
    /// A folder of the file system; nothing if the user cancels. Starts at `start` if that exists, else at home.
    virtual std::optional<std::string> ChooseFolder(Form& owner, const std::string& title, const std::string& start,
                                                    Language words) = 0;
    /// Opens a help page in a window of its own that does not hold up the program. False if the file cannot be shown.
    virtual bool ShowHelp(Form& owner, const std::string& file) = 0;

    virtual ScreenSize Screen() const = 0;
    /// Width and height of a text in a font [twips].
    virtual float TextWidth(const FontSpec& font, std::string_view text) const = 0;
    virtual float TextHeight(const FontSpec& font, std::string_view text) const = 0;

    /// Puts the form's window on the screen, made with its controls' present state if it is new, and in front.
    virtual void ShowForm(Form& form) = 0;
    virtual void HideForm(Form& form) = 0;
    /// The form is gone: its window goes, and all views of it let go of the model, which dies right behind this call.
    /// It may come from within an event of that very window, so that widgets must be destroyed later.
    virtual void FormGone(Form& form) = 0;
    /// The text on the clipboard, UTF-8; "" where it holds none. Line ends as the other program wrote them.
    virtual std::string ClipboardText() const = 0;
    virtual void SetClipboardText(const std::string& text) = 0;
    /// Paints what has changed on the form before this returns.
    virtual void PaintNow(Form& form) = 0;
    /// Work begins that the user waits for, and ends; see Work. A desktop that shows nothing of it may leave all three
    /// alone.
    virtual void WorkBegins() {}
    virtual void WorkEnds() {}
    /// The work goes on. To be called a few times a second; it lets in no input and paints nothing of the screens.
    /// @param done  share of it from 0 to 1; negative where nobody knows
    virtual void WorkGoesOn(double /*done*/) {}
    /// Throws away what the user typed and clicked while the program did not listen.
    virtual void DiscardInput() = 0;
    /// Calls back once, so many milliseconds from now, while the program listens to the user: also while a box stands
    /// open, within the handler that waits for it. Never once the program has ended. The call must not throw.
    virtual void CallLater(int milliseconds, std::function<void()> call) = 0;
    /// The program ends with this exit status; the call returns, and nothing of the user's is listened to any more.
    virtual void EndProgram(int status) = 0;
};

/// Work that the user waits for, as long as it lives; one may stand inside another.
class Work {
public:
    explicit Work(Desktop& world) : world_(world) { world_.WorkBegins(); }
    ~Work() { world_.WorkEnds(); }
    Work(const Work&) = delete;
    Work& operator=(const Work&) = delete;

private:
    Desktop& world_;
};

}  // namespace zirvo::forms
