// The desktop of the benchmarks of the screens: the real windows, and nobody who answers.
#pragma once
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "qt/widgets/qt_desktop.h"

namespace zirvo::bench {

/// The real windows; boxes are answered with Yes, the file dialog with one path.
class AnsweringDesktop : public forms::Desktop {
public:
    std::string Path;
    std::string Clipboard;
    /// The screen that the forms are fitted to; the platform's own where there is none.
    std::optional<forms::ScreenSize> Size;
    /// The last call that waits for its time is held here, for the benchmark to make.
    bool HoldsCalls = false;
    std::function<void()> Waiting;

    forms::Answer Show(const forms::Message&) override { return forms::Answer::Yes; }
    std::optional<std::string> Open(const forms::FileDialog&) override { return Path; }
    std::optional<std::string> Save(const forms::FileDialog&) override { return std::nullopt; }
    std::optional<std::string> ChooseFolder(forms::Form&, const std::string&, const std::string&,
                                            forms::Language) override {
        return std::nullopt;
    }
    bool ShowHelp(forms::Form&, const std::string&) override { return false; }
    forms::ScreenSize Screen() const override { return Size.value_or(windows_.Screen()); }
    float TextWidth(const forms::FontSpec& font, std::string_view text) const override {
        return windows_.TextWidth(font, text);
    }
    float TextHeight(const forms::FontSpec& font, std::string_view text) const override {
        return windows_.TextHeight(font, text);
    }
    void ShowForm(forms::Form& form) override { windows_.ShowForm(form); }
    void HideForm(forms::Form& form) override { windows_.HideForm(form); }
    void FormGone(forms::Form& form) override { windows_.FormGone(form); }
    std::string ClipboardText() const override { return Clipboard; }
    void SetClipboardText(const std::string& text) override { Clipboard = text; }
    void PaintNow(forms::Form& form) override { windows_.PaintNow(form); }
    void DiscardInput() override { windows_.DiscardInput(); }
    void CallLater(int milliseconds, std::function<void()> call) override {
        if (HoldsCalls) {
            Waiting = std::move(call);
        } else {
            windows_.CallLater(milliseconds, std::move(call));
        }
    }
    void EndProgram(int status) override { std::exit(status); }  // a fault: nothing to measure any more
    MapPictureFactory MapPictureMaker() { return windows_.MapPictureMaker(); }
    void Release() { windows_.ReleaseForms(); }

private:
    widgets::QtDesktop windows_;
};

}  // namespace zirvo::bench
