// A program that keeps its data screen, from its start to its end, and one after the other on the same kept data.
#pragma once
#include <gtest/gtest.h>

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "analysis/analysis_screens.h"
#include "kept/kept_folder.h"

namespace zirvo::test {

using Answers = std::deque<forms::Answer>;

/// A program from its start to its end.
struct Program {
    KeptStore Store;
    AnalysisScreens Screens;

    explicit Program(const std::string& folder, Answers answers = {}, Int16 language = EnglishBase, int unit = 3)
        : Store(folder), Screens(language, unit, &Store, std::move(answers)) {}

    Form3& Form() { return Screens.Data(); }
    /// The times of all that waits have come.
    void LetTimePass() {
        Screens.Desktop.RunWaiting();
        Store.Wait();
    }
    /// What was asked while the screen came up.
    const std::vector<forms::Message>& Asked() const { return Screens.BoxesAtTheStart; }
    bool IsAsked() const { return !Asked().empty(); }
};

/// A program that is killed is one whose objects go without a word: what still waits for its time is lost with it.
class KeptPrograms : public testing::Test {
protected:
    const TemporaryFolder Home;
    const std::string Folder = Home.Path("kept");

    std::unique_ptr<Program> Start(Answers answers = {}, Int16 language = EnglishBase, int unit = 3) const {
        return std::make_unique<Program>(Folder, std::move(answers), language, unit);
    }
    /// Whether the next program would ask. It is not asked.
    bool IsSomethingKept() const {
        KeptFolder next(Folder);
        return next.Newest("Form3", [](const KeptScreen&) { return true; }).has_value();
    }
    /// Data of one layer, load and point, typed and kept; then the program is killed.
    void TypeAndCrash() const {
        const auto program = Start();
        program->Screens.TypeNewData();
        program->LetTimePass();
    }
};

}  // namespace zirvo::test
