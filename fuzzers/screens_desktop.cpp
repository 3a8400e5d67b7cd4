// The random world of the screens, see screens_desktop.h.
#include "screens_desktop.h"

#include <array>
#include <utility>

#include "base/utf8.h"
#include "forms/form.h"
#include "support/fuzzing.h"

namespace zirvo::fuzz {

namespace {

/// More questions than any act of the user asks.
constexpr int MostQuestions = 300;
constexpr std::array Screens{forms::ScreenSize{1024 * 15, 768 * 15, 15}, forms::ScreenSize{1920 * 15, 1080 * 15, 15},
                             forms::ScreenSize{640 * 15, 480 * 15, 15}, forms::ScreenSize{3840 * 12, 2160 * 12, 12}};

}  // namespace

RandomDesktop::RandomDesktop(ByteSource& source, std::vector<std::string> files, std::vector<std::string> folders)
    : source_(source),
      files_(std::move(files)),
      folders_(std::move(folders)),
      screen_(Screens[source.Below(Screens.size())]) {}

void RandomDesktop::RunWaiting() {
    const auto calls = std::exchange(waiting_, {});
    for (const std::function<void()>& call : calls) {
        call();
    }
}

void RandomDesktop::Ask() {
    Require(!EndStatus, "a program that has ended asks nothing");
    Require(++Questions < MostQuestions, "no act asks without an end");
}

forms::Answer RandomDesktop::Show(const forms::Message& message) {
    Ask();
    Require(!message.Text.starts_with("Internal error"), "only a fault ends the program");
    Require(IsValidUtf8(message.Text) && IsValidUtf8(message.Title), "a box has a text");
    FaultShown = FaultShown || message.Text.starts_with("Run-time error");
    const std::uint8_t choice = source_.Byte();
    if (choice >= 240) {  // a box may stand for a while
        RunWaiting();
    }
    switch (message.Choice) {
        case forms::Buttons::YesNo:
            return choice % 2 == 0 ? forms::Answer::Yes : forms::Answer::No;
        case forms::Buttons::OkCancel:
            return choice % 2 == 0 ? forms::Answer::Cancel : forms::Answer::Ok;
        default:
            return forms::Answer::Ok;
    }
}

std::optional<std::string> RandomDesktop::PathOf(const std::vector<std::string>& paths) {
    Ask();
    const std::size_t choice = source_.Below(paths.size() + 1);
    return choice == paths.size() ? std::nullopt : std::optional(paths[choice]);
}

std::optional<std::string> RandomDesktop::Open(const forms::FileDialog& /*dialog*/) {
    return PathOf(files_);
}

std::optional<std::string> RandomDesktop::Save(const forms::FileDialog& /*dialog*/) {
    return PathOf(files_);
}

std::optional<std::string> RandomDesktop::ChooseFolder(forms::Form& /*owner*/, const std::string& /*title*/,
                                                       const std::string& /*start*/, forms::Language /*words*/) {
    return PathOf(folders_);
}

bool RandomDesktop::ShowHelp(forms::Form& /*owner*/, const std::string& /*file*/) {
    Ask();
    return source_.Byte() < 200;
}

float RandomDesktop::TextWidth(const forms::FontSpec& /*font*/, std::string_view text) const {
    return static_cast<float>(CharacterCount(text)) * 105.0F;
}

float RandomDesktop::TextHeight(const forms::FontSpec& font, std::string_view /*text*/) const {
    return static_cast<float>(font.Size * 20);
}

void RandomDesktop::ShowForm(forms::Form& form) {
    Require(form.IsLoaded() && !form.IsGone(), "only a loaded form is shown");
}

void RandomDesktop::HideForm(forms::Form& form) {
    Require(!form.Name().empty(), "a form that is hidden is there");
}

void RandomDesktop::FormGone(forms::Form& form) {
    Require(form.IsGone(), "only a form that goes is told of as gone");
}

void RandomDesktop::PaintNow(forms::Form& form) {
    Require(form.IsVisible(), "only what is on the screen is painted");
}

void RandomDesktop::CallLater(int /*milliseconds*/, std::function<void()> call) {
    Require(waiting_.size() < 100, "calls that wait do not pile up");
    waiting_.push_back(std::move(call));
}

void RandomDesktop::EndProgram(int status) {
    Require(!EndStatus, "a program ends once");
    EndStatus = status;
}

}  // namespace zirvo::fuzz
