// A desktop without a screen: it answers from lists and records all that the forms ask of it.
// Every text is as wide as its characters, 105 twips each and 210 for one of full width, and as high as its font.
#pragma once
#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/utf8.h"
#include "forms/desktop.h"
#include "forms/form.h"

namespace zirvo::forms {

class ScriptedDesktop : public Desktop {
public:
    /// A call of the open or save dialog, or of the folder dialog (title and start folder only).
    struct Dialog {
        enum class Kind { Open, Save, Folder };
        Kind What = Kind::Open;
        FileDialog Asked;
    };
    struct HelpCall {
        std::string Form;
        std::string File;
    };

    // What it answers with, the next one first. A box with an OK button alone needs no answer; any other call without
    // one left is a failure of the test.
    std::deque<Answer> Answers;
    std::deque<std::optional<std::string>> Paths;  ///< of all three dialogs
    bool HelpCanBeShown = true;
    ScreenSize Size{.Width = 1024 * 15, .Height = 768 * 15, .TwipsPerPixel = 15};
    std::string Clipboard;
    /// Called while a box stands, before it is answered.
    std::function<void(const Message&)> OnBox;
    /// Called within PaintNow.
    std::function<void(Form&)> OnPaint;

    /// A call that waits for its time, which comes when the test says so.
    struct WaitingCall {
        int Milliseconds = 0;
        std::function<void()> Call;
    };
    std::vector<WaitingCall> Waiting;
    /// The time of all that wait has come; what they ask for in turn waits for the next call.
    void RunWaiting() {
        const std::vector<WaitingCall> calls = std::move(Waiting);
        Waiting.clear();
        for (const WaitingCall& waiting : calls) {
            waiting.Call();
        }
    }

    // What it has seen.
    std::vector<Message> Boxes;
    std::vector<Dialog> Dialogs;
    std::vector<HelpCall> HelpCalls;
    /// Everything that has no answer, in order: "show Form3", "hide Form3", "gone Form3", "paint Form3", "discard",
    /// "end 0".
    std::vector<std::string> Log;
    std::optional<int> EndStatus;
    /// Works that have begun and not ended; what they told of their progress, negative where nobody knows.
    int WorksUnderWay = 0;
    std::vector<double> Ticks;
    int TicksOutsideOfWork = 0;

    /// Texts of the boxes, in order.
    std::vector<std::string> BoxTexts() const {
        std::vector<std::string> texts;
        for (const Message& box : Boxes) {
            texts.push_back(box.Text);
        }
        return texts;
    }
    /// The same, of the box of an error its two lines alone: not what it was about, which tests of its words look at.
    std::vector<std::string> BoxHeads() const {
        std::vector<std::string> texts = BoxTexts();
        for (std::string& text : texts) {
            text = HeadOf(text);
        }
        return texts;
    }
    static std::string HeadOf(const std::string& box) {
        const bool ofAnError = box.starts_with("Run-time error") || box.starts_with("Internal error");
        const std::size_t first = box.find("\n\n");
        return ofAnError && first != std::string::npos ? box.substr(0, box.find("\n\n", first + 2)) : box;
    }
    /// Forgets what it has seen; the answers stay.
    void Forget() {
        Boxes.clear();
        Dialogs.clear();
        HelpCalls.clear();
        Log.clear();
        Ticks.clear();
    }

    Answer Show(const Message& message) override {
        Boxes.push_back(message);
        if (OnBox) {
            OnBox(message);
        }
        if (message.Choice == Buttons::Ok) {
            return Answer::Ok;
        }
        if (Answers.empty()) {
            ADD_FAILURE() << "no answer left for the box \"" << message.Text << "\"";
            return message.Choice == Buttons::YesNo ? Answer::No : Answer::Cancel;
        }
        return Take(Answers);
    }
    std::optional<std::string> Open(const FileDialog& dialog) override { return Path(Dialog::Kind::Open, dialog); }
    std::optional<std::string> Save(const FileDialog& dialog) override { return Path(Dialog::Kind::Save, dialog); }
    std::optional<std::string> ChooseFolder(Form& owner, const std::string& title, const std::string& start,
                                            Language words) override {
        return Path(Dialog::Kind::Folder, {.Owner = &owner, .Title = title, .Folder = start, .Words = words});
    }
    bool ShowHelp(Form& owner, const std::string& file) override {
        HelpCalls.push_back({.Form = owner.Name(), .File = file});
        return HelpCanBeShown;
    }

    ScreenSize Screen() const override { return Size; }
    float TextWidth(const FontSpec& /*font*/, std::string_view text) const override {
        float width = 0;
        for (const char32_t character : ToCharacters(text)) {
            const bool full = character >= 0x1100 && !(character >= 0xFF61 && character <= 0xFF9F);
            width += full ? 210.0F : 105.0F;
        }
        return width;
    }
    float TextHeight(const FontSpec& font, std::string_view /*text*/) const override {
        return static_cast<float>(font.Size * 20);  // 20 twips to a point
    }

    void ShowForm(Form& form) override { Log.push_back("show " + form.Name()); }
    void HideForm(Form& form) override { Log.push_back("hide " + form.Name()); }
    void FormGone(Form& form) override { Log.push_back("gone " + form.Name()); }
    std::string ClipboardText() const override { return Clipboard; }
    void SetClipboardText(const std::string& text) override { Clipboard = text; }
    void PaintNow(Form& form) override {
        Log.push_back("paint " + form.Name());
        if (OnPaint) {
            OnPaint(form);
        }
    }
    void WorkBegins() override { ++WorksUnderWay; }
    void WorkEnds() override { --WorksUnderWay; }
    void WorkGoesOn(double done) override {
        Ticks.push_back(done);
        TicksOutsideOfWork += WorksUnderWay > 0 ? 0 : 1;
    }
    void DiscardInput() override { Log.emplace_back("discard"); }
    void CallLater(int milliseconds, std::function<void()> call) override {
        Waiting.push_back({.Milliseconds = milliseconds, .Call = std::move(call)});
    }
    void EndProgram(int status) override {
        Log.push_back("end " + std::to_string(status));
        EndStatus = status;
    }

private:
    template <class T>
    static T Take(std::deque<T>& answers) {
        T answer = answers.front();
        answers.pop_front();
        return answer;
    }
    std::optional<std::string> Path(Dialog::Kind kind, const FileDialog& dialog) {
        Dialogs.push_back({.What = kind, .Asked = dialog});
        if (Paths.empty()) {
            ADD_FAILURE() << "no path left for the dialog \"" << dialog.Title << "\"";
            return std::nullopt;
        }
        return Take(Paths);
    }
};

}  // namespace zirvo::forms
