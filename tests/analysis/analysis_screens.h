// The four screens of an analysis as tests have them: a desktop that answers from a script, a folder of their own for
// the user's files, and a solver as told.
#pragma once
#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "analysis/form3.h"
#include "analysis/form4.h"
#include "forms/screen_helpers.h"
#include "forms/scripted_desktop.h"
#include "kept/kept_store.h"
#include "pavement/analysis_input.h"
#include "pavement/scripted_process.h"
#include "pavement/support.h"
#include "shell/form1.h"
#include "shell/form2.h"
#include "text/catalogue.h"

namespace zirvo::test {

/// The data screen, whose run can be made to lose a report behind its stamp.
class TestedForm3 : public Form3 {
public:
    using Form3::Form3;
    bool LosesReport = false;

protected:
    SolverRunResult RunAnalysis(const SolverRunRequest& request, const SolverRunCallbacks& callbacks) override {
        const SolverRunResult result = Form3::RunAnalysis(request, callbacks);
        return LosesReport ? SolverRunResult::Uncompleted : result;
    }
};

class AnalysisScreens {
public:
    WorkFolder Folder;
    TemporaryFolder Program;  ///< without a solver of its own
    forms::ScriptedDesktop Desktop;
    forms::Application App{Desktop};
    std::vector<std::string> ProcessLog;
    ScriptedProcess Scripted{ProcessLog};
    Int16 LanguageBase;
    /// What stood before the data screen came to its user.
    std::vector<forms::Message> BoxesAtTheStart;

    /// The screens up to the data screen, in that language and with that unit option set (0 for none). The scripted
    /// solver leaves both reports.
    /// @param kept     what the data screen is kept in; nothing is kept where it is nullptr
    /// @param answers  to what is asked meanwhile
    explicit AnalysisScreens(Int16 languageBase = EnglishBase, int unit = 3, KeptStore* kept = nullptr,
                             std::deque<forms::Answer> answers = {})
        : LanguageBase(languageBase), Kept(kept) {
        Desktop.Answers = std::move(answers);
        Scripted.Work = [] {
            PutFile("Untitled.san", "principal\r\n");
            PutFile("Untitled.bre", "results\r\n");
        };
        App.Register("Form1", [](auto& app) { return std::make_unique<Form1>(app); });
        App.Register("Form2", [this](auto& app) { return std::make_unique<Form2>(app, Program.Path()); });
        App.Register("Form3", [this](auto& app) {
            auto form =
                std::make_unique<TestedForm3>(app, Processes == nullptr ? Scripted : *Processes, SolverFolder());
            if (Kept != nullptr) {
                form->KeepIn(*Kept);
            }
            return form;
        });
        App.Register("Form4", [](auto& app) { return std::make_unique<Form4>(app); });
        App.Dispatch([&] {
            (languageBase == JapaneseBase ? First().Option1 : First().Option2).Value = true;
            Form2& settings = App.Get<Form2>();
            settings.Label2.Caption = Folder.Path();
            for (auto* option : {&settings.Option1, &settings.Option2, &settings.Option3}) {
                option->Value = --unit == 0;
            }
        });
        App.Show("Form3");
        BoxesAtTheStart = Desktop.Boxes;
        Desktop.Forget();
    }

    /// A data screen of its own for a run of that solver.
    void UseSolver(ProcessService& processes, const std::string& folder) {
        Processes = &processes;
        SolverPath = folder;
        App.Dispatch([this] { Data().Unload(); });
        App.Show("Form3");
        Desktop.Forget();
    }

    Form1& First() { return App.Get<Form1>(); }
    TestedForm3& Data() { return dynamic_cast<TestedForm3&>(App.Get<Form3>()); }
    Form4& Reports() { return App.Get<Form4>(); }
    bool IsLoaded(const char* form) { return App.Find(form) != nullptr; }
    bool IsShown(const char* form) { return IsLoaded(form) && App.Find(form)->IsVisible(); }
    std::string Words(Int16 k) const { return std::string(GetMessage(LanguageBase, k)); }

    /// The user puts a file of that name and these bytes into the folder, and imports it.
    void Import(const std::string& bytes, const std::string& name = "Untitled.eva") {
        PutFile(Folder.Path(name), bytes);
        Desktop.Paths.emplace_back(Folder.Path(name));
        Data().Option2.UserClick();
        Data().Command1.UserClick();
    }
    void ImportAndAnswer(forms::Answer answer, const std::string& bytes = ExampleFile()) {
        Desktop.Answers.push_back(answer);
        Import(bytes);
    }

    /// Data of one layer, one load and one point, typed with keys alone from the focus on NEW DATA.
    void TypeNewData() {
        using forms::Press;
        using forms::Type;
        namespace key = forms::key;
        Data().Option1.UserClick();
        for (forms::VScrollBar* bar : {&Data().VScroll1, &Data().VScroll2, &Data().VScroll3}) {
            bar->UserFocus();
            Press(Data(), key::Up);
        }
        Data().MSFlexGrid1.UserFocus();
        Type(Data(), "1000\r0.35\t");
        Data().MSFlexGrid2.UserFocus();
        Type(Data(), "49\r15\r0\r0\r0\r0\t");
        Data().MSFlexGrid3.UserFocus();
        Type(Data(), "1\r0\r0\r5\t");
    }

private:
    KeptStore* Kept;
    ProcessService* Processes = nullptr;
    std::string SolverPath;
    std::string SolverFolder() const { return Processes == nullptr ? Program.Path() : SolverPath; }
};

}  // namespace zirvo::test
