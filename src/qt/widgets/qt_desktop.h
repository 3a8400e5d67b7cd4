// The desktop as people have it: a window for each form, message boxes, dialogs, the help, and the end of the program.
// Caller: main, and through the interface every form.
#pragma once
#include <QObject>
#include <QPointer>
#include <memory>
#include <unordered_map>

#include "forms/desktop.h"
#include "graphics/map_picture.h"
#include "qt/widgets/form_window.h"
#include "qt/widgets/help_window.h"
#include "qt/widgets/map_pictures.h"
#include "qt/widgets/work_shown.h"

namespace zirvo::widgets {

/// Needs a QApplication that outlives it. Paths are UTF-8.
class QtDesktop final : public forms::Desktop {
public:
    QtDesktop() = default;
    ~QtDesktop() override;
    QtDesktop(const QtDesktop&) = delete;
    QtDesktop& operator=(const QtDesktop&) = delete;

    forms::Answer Show(const forms::Message& message) override;
    std::optional<std::string> Open(const forms::FileDialog& dialog) override;
    std::optional<std::string> Save(const forms::FileDialog& dialog) override;
    std::optional<std::string> ChooseFolder(forms::Form& owner, const std::string& title, const std::string& start,
                                            forms::Language words) override;
    bool ShowHelp(forms::Form& owner, const std::string& file) override;

    forms::ScreenSize Screen() const override;
    float TextWidth(const forms::FontSpec& font, std::string_view text) const override;
    float TextHeight(const forms::FontSpec& font, std::string_view text) const override;

    void ShowForm(forms::Form& form) override;
    void HideForm(forms::Form& form) override;
    void FormGone(forms::Form& form) override;
    std::string ClipboardText() const override;
    void SetClipboardText(const std::string& text) override;
    void PaintNow(forms::Form& form) override;
    void WorkBegins() override;
    void WorkEnds() override;
    void WorkGoesOn(double done) override;
    void DiscardInput() override;
    void CallLater(int milliseconds, std::function<void()> call) override;
    void EndProgram(int status) override;

    /// Listens to the user until the program ends. Gives the exit status.
    int WaitForEnd();

    /// Makes the pictures of maps that picture controls show. This object must outlive them.
    MapPictureFactory MapPictureMaker();
    /// How a printer is chosen from now on: a test has one that writes a PDF.
    void SetPrinterChoice(PrinterChoice choose);
    /// Lets go of every form and closes the windows; the forms may then be destroyed.
    void ReleaseForms();

private:
    FormWindow* WindowOf(const forms::Form* form) const;
    /// What a box of the program stands in front of: the form that was shown last, if it is on the screen.
    QWidget* Front() const;

    void TakeTextStep(TextStep step);

    MapPictures maps_;
    QObject timers_;  ///< calls that wait go with it
    TextSizes textSizes_;
    WorkShown work_;
    PrinterChoice choosePrinter_ = AskForPrinter;
    std::unordered_map<const forms::Form*, FormWindow*> windows_;
    QPointer<FormWindow> front_;
    std::unique_ptr<HelpWindow> help_;
    bool ended_ = false;
    int status_ = 0;
};

}  // namespace zirvo::widgets
