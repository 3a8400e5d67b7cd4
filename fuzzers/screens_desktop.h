// The world of the screens as a fuzzer has it: boxes and dialogs are answered by bytes, and what must never come up is
// a finding.
#pragma once
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "forms/desktop.h"
#include "support/byte_source.h"

namespace zirvo::fuzz {

class RandomDesktop : public forms::Desktop {
public:
    /// @param paths  that the dialogs may give: of files to open and save, of folders
    RandomDesktop(ByteSource& source, std::vector<std::string> files, std::vector<std::string> folders);

    /// The time of all that waits has come.
    void RunWaiting();
    /// Behind it the program has been told to end.
    std::optional<int> EndStatus;
    /// Whether the box of a fault has been shown.
    bool FaultShown = false;
    /// Boxes and dialogs since the last act of the user.
    int Questions = 0;
    std::string Clipboard;

    forms::Answer Show(const forms::Message& message) override;
    std::optional<std::string> Open(const forms::FileDialog& dialog) override;
    std::optional<std::string> Save(const forms::FileDialog& dialog) override;
    std::optional<std::string> ChooseFolder(forms::Form& owner, const std::string& title, const std::string& start,
                                            forms::Language words) override;
    bool ShowHelp(forms::Form& owner, const std::string& file) override;
    forms::ScreenSize Screen() const override { return screen_; }
    float TextWidth(const forms::FontSpec& font, std::string_view text) const override;
    float TextHeight(const forms::FontSpec& font, std::string_view text) const override;
    void ShowForm(forms::Form& form) override;
    void HideForm(forms::Form& form) override;
    void FormGone(forms::Form& form) override;
    std::string ClipboardText() const override { return Clipboard; }
    void SetClipboardText(const std::string& text) override { Clipboard = text; }
    void PaintNow(forms::Form& form) override;
    void WorkBegins() override { ++works_; }
    void WorkEnds() override { --works_; }
    void DiscardInput() override {}
    void CallLater(int milliseconds, std::function<void()> call) override;
    void EndProgram(int status) override;

private:
    void Ask();
    std::optional<std::string> PathOf(const std::vector<std::string>& paths);

    ByteSource& source_;
    std::vector<std::string> files_;
    std::vector<std::string> folders_;
    forms::ScreenSize screen_;
    std::vector<std::function<void()>> waiting_;
    int works_ = 0;
};

}  // namespace zirvo::fuzz
