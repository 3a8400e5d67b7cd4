// The states of the data screen and the ways between them, all from the two tables below.
#include <gtest/gtest.h>

#include <map>

#include "analysis/analysis_screens.h"

namespace zirvo {
namespace {

using forms::Answer;
using forms::FocusOf;
using test::AnalysisScreens;
using test::ExampleFile;

/// What is enabled, "x" in a column: both options, OPEN FILE, PREVIOUS, CLEAR FORM, DATA OK!, SAVE DATA, ANALYZE, the
/// three boxes, the three bars, the three grids ("?": those whose count has changed).
const std::map<std::string, std::string> States{
    {"Empty", "x.x......."},
    {"NewData", "x.xxx..xx?"},
    {"ImportChoosing", "xxxx......"},
    {"Editing", "..xxx..xxx"},
    {"ImportedAsIs", "..xx..x..."},
    {"Checked", "..xx.x...."},
    {"Overwriting refused", "..xxx....."},
    {"Saved", "..xx..x..."},
    {"AfterRun", "..xx......"},
};

/// 'x' or '.' where the controls agree; '#' where they do not.
template <class... Control>
char Together(const Control&... controls) {
    const int enabled = (static_cast<int>(controls.Enabled.Get()) + ...);
    return enabled == 0 ? '.' : enabled == static_cast<int>(sizeof...(controls)) ? 'x' : '#';
}

std::string EnabledOn(Form3& form) {
    return {Together(form.Option1, form.Option2),
            Together(form.Command1),
            Together(form.Command3),
            Together(form.Command4),
            Together(form.Command5),
            Together(form.Command6),
            Together(form.Command7),
            Together(form.Text7, form.Text8, form.Text1),
            Together(form.VScroll1, form.VScroll2, form.VScroll3),
            Together(form.MSFlexGrid1, form.MSFlexGrid2, form.MSFlexGrid3)};
}

void ExpectState(Form3& form, const std::string& state) {
    std::string expected = States.at(state);
    std::string enabled = EnabledOn(form);
    if (expected.back() == '?') {
        expected.pop_back();
        enabled.pop_back();
    }
    EXPECT_EQ(enabled, expected) << "in the state " << state;
    EXPECT_TRUE(form.Command8.Enabled) << "HELP in the state " << state;
    EXPECT_TRUE(form.Command9.Enabled) << "QUIT in the state " << state;
    EXPECT_FALSE(form.Text9.Visible) << "the note in the state " << state;
    EXPECT_TRUE(state == "NewData" || state == "ImportChoosing" || !form.Option1.Enabled ||
                (!form.Option1.Value && !form.Option2.Value));
}

void ClickSave(AnalysisScreens& screens, Answer overwrite) {
    screens.Desktop.Answers.push_back(overwrite);
    screens.Data().Command6.UserClick();
}

/// Brings a fresh screen into a state by the shortest way of its user.
void BringInto(AnalysisScreens& screens, const std::string& state) {
    Form3& form = screens.Data();
    if (state == "Empty") {
        return;
    }
    if (state == "NewData") {
        form.Option1.UserClick();
    } else if (state == "ImportChoosing") {
        form.Option2.UserClick();
    } else if (state == "ImportedAsIs") {
        screens.ImportAndAnswer(Answer::No);
    } else {
        screens.ImportAndAnswer(Answer::Yes);
        if (state != "Editing") {
            form.Command5.UserClick();
        }
        if (state == "Overwriting refused") {
            ClickSave(screens, Answer::No);
        } else if (state == "Saved" || state == "AfterRun") {
            ClickSave(screens, Answer::Yes);
        }
        if (state == "AfterRun") {
            screens.Data().LosesReport = true;
            form.Command7.UserClick();
        }
    }
    screens.Desktop.Forget();
}

// Every row of the table of states ----------------------------------------------------------------------------------

class Form3State : public testing::TestWithParam<std::string> {
protected:
    AnalysisScreens Screens;
    Form3& Form = Screens.Data();

    Form3State() { BringInto(Screens, GetParam()); }
};

std::vector<std::string> StateNames() {
    std::vector<std::string> names;
    for (const auto& [name, enabled] : States) {
        names.push_back(name);
    }
    return names;
}

std::string TestName(std::string name) {
    std::erase_if(name, [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; });
    return name;
}

TEST_P(Form3State, EnablesWhatTheTableSays) {
    ExpectState(Form, GetParam());
}

TEST_P(Form3State, IsNotLeftByAnyButtonThatIsDisabled) {
    const std::string enabled = EnabledOn(Form);
    const std::string captions = Form.Label7.Caption.Get() + Form.Label8.Caption.Get() + Form.Label9.Caption.Get();
    for (forms::CommandButton* button :
         {&Form.Command1, &Form.Command3, &Form.Command4, &Form.Command5, &Form.Command6, &Form.Command7}) {
        if (!button->Enabled) {
            button->UserClick();
            button->Press();
        }
    }
    for (forms::OptionButton* option : {&Form.Option1, &Form.Option2}) {
        if (!option->Enabled) {
            option->UserClick();
        }
    }
    EXPECT_EQ(EnabledOn(Form), enabled);
    EXPECT_EQ(Form.Label7.Caption.Get() + Form.Label8.Caption.Get() + Form.Label9.Caption.Get(), captions);
    EXPECT_TRUE(Screens.Desktop.Boxes.empty());
    EXPECT_TRUE(Screens.Desktop.Log.empty());
}

TEST_P(Form3State, HoldsTheFocusOnAControlThatWorks) {
    const forms::Control* active = Form.ActiveControl();
    ASSERT_NE(active, nullptr);
    EXPECT_TRUE(active->IsUsable()) << active->Name();
}

TEST_P(Form3State, ClearFormLeadsToEmptyWhereItIsEnabled) {
    if (!Form.Command4.Enabled) {
        EXPECT_EQ(GetParam(), "Empty");
        return;
    }
    Form.Command4.UserClick();
    // A grid whose count changed on the way stays enabled: that is looked at apart.
    EXPECT_EQ(EnabledOn(Form).substr(0, 9), States.at("Empty").substr(0, 9));
    EXPECT_FALSE(Form.Option1.Value);
    EXPECT_FALSE(Form.Option2.Value);
    EXPECT_EQ(Form.MSFlexGrid1.Rows, 1);
    EXPECT_EQ(Form.MSFlexGrid3.Rows, 1);
    EXPECT_EQ(Form.Text7.Text, "");
    EXPECT_NE(FocusOf(Form), "Command4");
    EXPECT_NE(Form.ActiveControl(), nullptr);
}

TEST_P(Form3State, PreviousUnloadsTheScreenWithoutAQuestion) {
    Form.Command3.UserClick();
    EXPECT_FALSE(Screens.IsLoaded("Form3"));
    EXPECT_TRUE(Screens.IsShown("Form2"));
    EXPECT_TRUE(Screens.Desktop.Boxes.empty());
    Screens.App.Show("Form3");
    ExpectState(Screens.Data(), "Empty");
}

TEST_P(Form3State, QuitEndsTheProgramWithoutAQuestion) {
    Form.Command9.UserClick();
    EXPECT_EQ(Screens.Desktop.EndStatus, 0);
    EXPECT_TRUE(Screens.Desktop.Boxes.empty());
}

INSTANTIATE_TEST_SUITE_P(Table, Form3State, testing::ValuesIn(StateNames()),
                         [](const auto& chosen) { return TestName(chosen.param); });

// Every row of the table of transitions -----------------------------------------------------------------------------

struct Transition {
    std::string From;
    std::string Event;
    std::string To;
    std::string Focus;               ///< afterwards
    std::vector<std::string> Boxes;  ///< what is shown on the way: k and the letter of its icon
    std::function<void(AnalysisScreens&)> Act;
};

void PrintTo(const Transition& row, std::ostream* out) {
    *out << row.From << ": " << row.Event;
}

void ClickNewData(AnalysisScreens& screens) {
    screens.Data().Option1.UserClick();
}
void ClickImport(AnalysisScreens& screens) {
    screens.Data().Option2.UserClick();
}
void ClickDataOk(AnalysisScreens& screens) {
    screens.Data().Command5.UserClick();
}
/// OPEN FILE, with a file of these bytes behind the dialog.
auto Opening(const std::string& bytes, std::optional<Answer> answer) {
    return [=](AnalysisScreens& screens) {
        if (answer) {
            screens.Desktop.Answers.push_back(*answer);
        }
        screens.Desktop.Paths.emplace_back(screens.Folder.Path("Untitled.eva"));
        test::PutFile(screens.Folder.Path("Untitled.eva"), bytes);
        screens.Data().Command1.UserClick();
    };
}
void CancelDialog(AnalysisScreens& screens) {
    screens.Desktop.Paths.emplace_back(std::nullopt);
    screens.Data().Command1.UserClick();
}
/// Cell (1, 1) of the layers.
auto WithModulus(const std::string& text, std::function<void(AnalysisScreens&)> act) {
    return [=](AnalysisScreens& screens) {
        screens.Data().MSFlexGrid1.SetTextMatrix(1, 1, text);
        act(screens);
    };
}
void SaveANewFile(AnalysisScreens& screens) {
    std::filesystem::remove(screens.Folder.Path("Untitled.eva"));
    screens.Data().Command6.UserClick();
}
auto Saving(Answer answer) {
    return [=](AnalysisScreens& screens) { ClickSave(screens, answer); };
}
auto Analyzing(bool losesReport) {
    return [=](AnalysisScreens& screens) {
        screens.Data().LosesReport = losesReport;
        screens.Data().Command7.UserClick();
    };
}
/// A run that ends on Form4, and the way back from there.
auto ComingBack(Answer answer) {
    return [=](AnalysisScreens& screens) {
        screens.Data().Command7.UserClick();
        EXPECT_TRUE(screens.IsShown("Form4"));
        EXPECT_FALSE(screens.IsShown("Form3"));
        screens.Desktop.Answers.push_back(answer);
        screens.Reports().Command2.UserClick();
        EXPECT_FALSE(screens.IsLoaded("Form4"));
        EXPECT_TRUE(screens.IsShown("Form3"));
    };
}
/// New data as far as the rules ask for it.
void FillAndClickDataOk(AnalysisScreens& screens) {
    screens.TypeNewData();
    ClickDataOk(screens);
}

const std::string BadLayer = test::Replaced(ExampleFile(), "0.35", "0.75");

std::vector<Transition> Transitions() {
    return {
        {"Empty", "NEW DATA", "NewData", "Option1", {}, ClickNewData},
        {"Empty", "IMPORT FROM FILE", "ImportChoosing", "Command1", {}, ClickImport},
        {"NewData", "NEW DATA again", "NewData", "Option1", {}, ClickNewData},
        {"NewData", "IMPORT FROM FILE", "ImportChoosing", "Command1", {}, ClickImport},
        {"ImportChoosing", "NEW DATA", "NewData", "Option1", {}, ClickNewData},
        {"ImportChoosing", "IMPORT FROM FILE again", "ImportChoosing", "Command1", {}, ClickImport},
        {"ImportChoosing", "OPEN FILE, Yes", "Editing", "Command5", {"62"}, Opening(ExampleFile(), Answer::Yes)},
        {"ImportChoosing", "OPEN FILE, No", "ImportedAsIs", "Command7", {"62"}, Opening(ExampleFile(), Answer::No)},
        {"ImportChoosing",
         "OPEN FILE, refused",
         "ImportChoosing",
         "Command1",
         {"59!", "57x"},
         Opening(BadLayer, std::nullopt)},
        {"ImportChoosing", "OPEN FILE, unreadable", "ImportChoosing", "Command1", {}, Opening("", std::nullopt)},
        {"ImportChoosing", "OPEN FILE, cancelled", "ImportChoosing", "Command1", {}, CancelDialog},
        {"NewData", "DATA OK! passes", "Checked", "Command6", {}, FillAndClickDataOk},
        {"NewData", "DATA OK! fails", "NewData", "Command5", {"58!", "57x"}, ClickDataOk},
        {"Editing", "DATA OK! passes", "Checked", "Command6", {}, ClickDataOk},
        {"Editing", "DATA OK! fails", "Editing", "Command5", {"59!", "57x"}, WithModulus("0", ClickDataOk)},
        {"Checked", "SAVE DATA of a new file", "Saved", "Command7", {}, SaveANewFile},
        {"Checked", "SAVE DATA, Yes", "Saved", "Command7", {"64"}, Saving(Answer::Yes)},
        {"Checked", "SAVE DATA, No", "Overwriting refused", "Command5", {"64", "65i"}, Saving(Answer::No)},
        {"Overwriting refused", "DATA OK! again", "Checked", "Command6", {}, ClickDataOk},
        {"Saved", "ANALYZE, a report lost", "AfterRun", "Command8", {"173x"}, Analyzing(true)},
        {"ImportedAsIs", "ANALYZE, a report lost", "AfterRun", "Command8", {"173x"}, Analyzing(true)},
        {"Saved", "ANALYZE, PREVIOUS, Yes", "Editing", "Command8", {"81"}, ComingBack(Answer::Yes)},
        {"Saved", "ANALYZE, PREVIOUS, No", "ImportedAsIs", "Command7", {"81"}, ComingBack(Answer::No)},
        {"ImportedAsIs", "ANALYZE, PREVIOUS, Yes", "Editing", "Command8", {"81"}, ComingBack(Answer::Yes)},
        {"ImportedAsIs", "ANALYZE, PREVIOUS, No", "ImportedAsIs", "Command7", {"81"}, ComingBack(Answer::No)},
    };
}

std::string IconLetter(forms::Icon icon) {
    switch (icon) {
        case forms::Icon::Exclamation:
            return "!";
        case forms::Icon::Stop:
            return "x";
        case forms::Icon::Information:
            return "i";
        default:
            break;
    }
    return "";
}

class Form3Transition : public testing::TestWithParam<Transition> {};

TEST_P(Form3Transition, LeadsWhereTheTableSays) {
    const Transition& row = GetParam();
    for (const Int16 languageBase : {EnglishBase, JapaneseBase}) {
        AnalysisScreens screens(languageBase);
        BringInto(screens, row.From);
        ExpectState(screens.Data(), row.From);
        row.Act(screens);
        ExpectState(screens.Data(), row.To);
        EXPECT_EQ(FocusOf(screens.Data()), row.Focus);

        std::vector<std::string> boxes;
        for (const forms::Message& box : screens.Desktop.Boxes) {
            Int16 k = 1;
            while (k <= HighestMessage && screens.Words(k) != box.Text) {
                ++k;
            }
            // k=81 has the words of k=62 in Japanese.
            const bool onForm4 = k == 62 && row.Boxes.front() == "81";
            boxes.push_back(std::to_string(onForm4 ? 81 : k) + IconLetter(box.Picture));
            EXPECT_EQ(box.Title, "ZIRVO Ver2.3");
            const bool asks = k == 62 || k == 64 || k == 81;
            EXPECT_EQ(box.Choice, asks ? forms::Buttons::YesNo : forms::Buttons::Ok);
            EXPECT_EQ(box.Words, languageBase == JapaneseBase ? forms::Language::Japanese : forms::Language::English);
        }
        EXPECT_EQ(boxes, row.Boxes);
    }
}

INSTANTIATE_TEST_SUITE_P(Table, Form3Transition, testing::ValuesIn(Transitions()),
                         [](const auto& chosen) { return TestName(chosen.param.From + chosen.param.Event); });

// While the solver runs ---------------------------------------------------------------------------------------------

struct WhileRunning {
    std::string Enabled;
    bool Help = true, Quit = true, NoteShown = false, NoteEnabled = true;
    std::string Note;
};

WhileRunning RunFrom(const std::string& state) {
    AnalysisScreens screens;
    BringInto(screens, state);
    WhileRunning seen;
    screens.Scripted.Work = [&] {
        Form3& form = screens.Data();
        seen = {EnabledOn(form),    form.Command8.Enabled, form.Command9.Enabled,
                form.Text9.Visible, form.Text9.Enabled,    form.Text9.Text};
        test::PutFile("Untitled.san", "principal\r\n");
        test::PutFile("Untitled.bre", "results\r\n");
    };
    screens.Data().Command7.UserClick();
    EXPECT_TRUE(screens.IsShown("Form4"));
    return seen;
}

TEST(Form3Running, NothingIsEnabledAndTheNoteShows) {
    for (const char* state : {"Saved", "ImportedAsIs"}) {
        const WhileRunning seen = RunFrom(state);
        EXPECT_EQ(seen.Enabled, "..........") << state;
        EXPECT_FALSE(seen.Help) << state;
        EXPECT_FALSE(seen.Quit) << state;
        EXPECT_TRUE(seen.NoteShown) << state;
        EXPECT_FALSE(seen.NoteEnabled) << state;
        EXPECT_EQ(seen.Note, "COMPUTING NOW...") << state;
    }
}

// The boxes stay where No at the overwriting question left them: only DATA OK! leads on, and to the same question.
TEST(Form3DeadEnd, OverwritingRefusedLeadsToTheSameQuestionAgain) {
    AnalysisScreens screens;
    BringInto(screens, "Overwriting refused");
    for (int round = 0; round < 3; ++round) {
        ClickDataOk(screens);
        ExpectState(screens.Data(), "Checked");
        ClickSave(screens, Answer::No);
        ExpectState(screens.Data(), "Overwriting refused");
    }
    EXPECT_EQ(test::GetFile("Untitled.eva"), ExampleFile());
}

}  // namespace
}  // namespace zirvo
