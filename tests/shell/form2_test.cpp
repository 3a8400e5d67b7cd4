// The initial settings: loading, the forced order on an empty screen, and what each button does.
#include "shell/form2.h"

#include "shell/screens.h"

namespace zirvo {
namespace {

using forms::Language;
using Names = std::vector<std::string>;

const Names EmptyState{"Command1", "Command2", "Command3"};
const Names FolderState{"Command1", "Option1", "Option2", "Option3", "Command2", "Command3"};
const Names UnitState{"Command1", "Option1", "Option2", "Option3", "Option4", "Option5", "Command2", "Command3"};
const Names ReadyState{"Command1", "Option1",  "Option2",  "Option3", "Option4",
                       "Option5",  "Command2", "Command3", "Command4"};

/// Unit system and objective: "3 1"; 0 for none.
std::string Choices(const Form2& form) {
    return std::to_string(form.UnitSystem()) + " " + std::to_string(form.Objective());
}

std::string SettingsOf(const std::string& folder, int unit, int objective) {
    return folder + "\r\n " + std::to_string(unit) + " \r\n " + std::to_string(objective) + " \r\n";
}

TEST_F(Screens, Form2InEnglish) {
    Form2& form = StartSettings();
    EXPECT_EQ(form.Caption, "- ZIRVO Ver2.3 -");
    EXPECT_EQ(form.Label1.Caption, "Initial Setting");
    EXPECT_EQ(form.Frame1.Caption, "1. Select Folder");
    EXPECT_EQ(form.Command1.Caption, "SEARCH");
    EXPECT_EQ(form.Frame2.Caption, "2. Units of Measurement");
    EXPECT_EQ(form.Option1.Caption, "INPUT: kgf, kgf/cm2, cm　| OUTPUT: kgf/cm2, cm");
    EXPECT_EQ(form.Option2.Caption, "INPUT: kgf, kgf/cm2, cm　| OUTPUT: MPa, cm");
    EXPECT_EQ(form.Option3.Caption, "INPUT: kN, MPa, cm        | OUTPUT: MPa, cm");
    EXPECT_EQ(form.Frame3.Caption, "3. Objective");
    EXPECT_EQ(form.Option4.Caption, "ANALYSIS ONLY");
    EXPECT_EQ(form.Option5.Caption, "GRAPHICS");
    EXPECT_EQ(form.Command2.Caption, "HELP");
    EXPECT_EQ(form.Command3.Caption, "QUIT");
    EXPECT_EQ(form.Command4.Caption, "NEXT");
    ExpectTidyLayout(form);
}

TEST_F(Screens, Form2InJapanese) {
    Form2& form = StartSettings("", Language::Japanese);
    EXPECT_EQ(form.Caption, "- ZIRVO Ver2.3 -");
    EXPECT_EQ(form.Label1.Caption, "初 期 設 定");
    EXPECT_EQ(form.Frame1.Caption, "１．ﾌ ｫ ﾙ ﾀﾞ の選択");
    EXPECT_EQ(form.Command1.Caption, "参　照");
    EXPECT_EQ(form.Frame2.Caption, "２．単　位　の　選　択");
    EXPECT_EQ(form.Option1.Caption, "入力：　kgf, kgf/cm2, cm  ｜ 出力：　kgf/cm2, cm");
    EXPECT_EQ(form.Option2.Caption, "入力：　kgf, kgf/cm2, cm  ｜ 出力：　MPa, cm");
    EXPECT_EQ(form.Option3.Caption, "入力：　kN, MPa, cm　　　 　|  出力：　MPa, cm");
    EXPECT_EQ(form.Frame3.Caption, "３．目的");
    EXPECT_EQ(form.Option4.Caption, "解析のみ");
    EXPECT_EQ(form.Option5.Caption, "ｸﾞﾗﾌｨｯｸｽ");
    EXPECT_EQ(form.Command2.Caption, "ﾍﾙﾌﾟ");
    EXPECT_EQ(form.Command3.Caption, "終　了");
    EXPECT_EQ(form.Command4.Caption, "次　へ");
}

// Clearing the options fires no handler: it would enable the objectives and NEXT and show the form.
TEST_F(Screens, Form2WithoutASettingsFileStartsEmpty) {
    Form1& first = StartIn(Language::English);
    Desktop.Log.clear();
    first.Command2.UserClick();
    Form2& form = App.Get<Form2>();
    EXPECT_EQ(UsableControls(form), EmptyState);
    EXPECT_EQ(Choices(form), "0 0");
    EXPECT_EQ(form.Label2.Caption, "");
    EXPECT_EQ(forms::FocusOf(form), "Command1");
    EXPECT_EQ(Desktop.Log, (Names{"hide Form1", "show Form2"}));
    EXPECT_EQ(SettingsBytes(), "<missing>");
}

TEST_F(Screens, OrderOnAnEmptyForm2IsFolderUnitsObjective) {
    Form2& form = StartSettings();
    form.Option3.UserClick();
    form.Option4.UserClick();
    form.Command4.UserClick();
    EXPECT_EQ(Choices(form), "0 0");
    EXPECT_EQ(UsableControls(form), EmptyState);

    Desktop.Paths = {Work.Path()};
    form.Command1.UserClick();
    EXPECT_EQ(form.Label2.Caption, Work.Path());
    EXPECT_EQ(UsableControls(form), FolderState);

    form.Option3.UserClick();
    EXPECT_EQ(UsableControls(form), UnitState);

    form.Option4.UserClick();
    EXPECT_EQ(UsableControls(form), ReadyState);
    EXPECT_EQ(forms::FocusOf(form), "Command4");
    EXPECT_EQ(Choices(form), "3 1");
    EXPECT_EQ(SettingsBytes(), "<missing>") << "only NEXT writes";
}

TEST_F(Screens, KeyboardAloneGoesFromAnEmptyForm2ToTheDataScreen) {
    Form2& form = StartSettings();
    Desktop.Paths = {Work.Path()};
    forms::Type(form, "\r\t");             // SEARCH; the units
    forms::Press(form, forms::key::Down);  // the second
    EXPECT_EQ(Choices(form), "2 0");
    forms::Type(form, "\t ");  // the first objective, which leads to NEXT
    EXPECT_EQ(Choices(form), "2 1");
    EXPECT_EQ(forms::FocusOf(form), "Command4");
    forms::Type(form, "\r");
    EXPECT_EQ(SettingsBytes(), SettingsOf(Work.Path(), 2, 1));
    EXPECT_TRUE(App.Find("Form3")->IsVisible());
}

TEST_F(Screens, SearchAsksForAFolderInTheLanguageOfTheScreen) {
    for (const Language language : {Language::Japanese, Language::English}) {
        ProgramRun run(Desktop, Program);
        Form2& form = run.StartSettings(language);
        Desktop.Forget();
        Desktop.Paths = {"/first", "/second"};
        form.Command1.UserClick();
        form.Command1.UserClick();
        ASSERT_EQ(Desktop.Dialogs.size(), 2U);
        const forms::FileDialog& asked = Desktop.Dialogs[1].Asked;
        EXPECT_EQ(Desktop.Dialogs[1].What, forms::ScriptedDesktop::Dialog::Kind::Folder);
        EXPECT_EQ(asked.Owner, &form);
        EXPECT_EQ(asked.Title, language == Language::Japanese ? "ﾌｫﾙﾀﾞを選択して下さい" : "SELECT FOLDER");
        EXPECT_EQ(asked.Words, language);
        EXPECT_EQ(Desktop.Dialogs[0].Asked.Folder, "");
        EXPECT_EQ(asked.Folder, "/first") << "the browser starts at the folder that stands there";
        EXPECT_EQ(form.Label2.Caption, "/second");
    }
}

TEST_F(Screens, SearchThatIsCancelledKeepsTheFolder) {
    Form2& form = StartSettings();
    Desktop.Paths = {std::nullopt, Work.Path(), std::nullopt};
    form.Command1.UserClick();
    EXPECT_EQ(form.Label2.Caption, "");
    EXPECT_EQ(UsableControls(form), EmptyState);
    form.Command1.UserClick();
    form.Command1.UserClick();
    EXPECT_EQ(form.Label2.Caption, Work.Path());
    EXPECT_EQ(UsableControls(form), FolderState);
}

// A browser may also give a place that is no folder of the file system, and so has no path.
TEST_F(Screens, SearchThatGivesNoPathEmptiesTheFolderAndEnablesNothing) {
    Form2& form = StartSettings();
    Desktop.Paths = {""};
    form.Command1.UserClick();
    EXPECT_EQ(form.Label2.Caption, "");
    EXPECT_EQ(UsableControls(form), EmptyState);
}

TEST_F(Screens, SettingsOfTheLastRunAreRestored) {
    for (int unit = 1; unit <= 3; ++unit) {
        for (int objective = 1; objective <= 2; ++objective) {
            ProgramRun run(Desktop, Program);
            Program.Put("zirvo_sv.ini", SettingsOf(Work.Path(), unit, objective));
            Form2& form = run.StartSettings();
            EXPECT_EQ(form.Label2.Caption, Work.Path());
            EXPECT_EQ(Choices(form), std::to_string(unit) + " " + std::to_string(objective));
            EXPECT_EQ(UsableControls(form), ReadyState);
            EXPECT_EQ(forms::FocusOf(form), "Command4");
            EXPECT_EQ(form.WorkFolder, "") << "only NEXT takes it over";
            EXPECT_EQ(form.Command4.Caption, "NEXT") << "captions come last, behind the show";
        }
    }
}

class CountingForm2 : public Form2 {
public:
    CountingForm2(forms::Application& application, const std::string& programFolder, int& loads)
        : Form2(application, programFolder), loads_(loads) {}
    void Form_Load() override {
        ++loads_;
        Form2::Form_Load();
        shownInLoad_ = IsVisible();
    }
    bool WasShownInLoad() const { return shownInLoad_; }

private:
    int& loads_;
    bool shownInLoad_ = false;
};

// The handler of the objective shows the form, so that NEXT can take the focus.
TEST_F(Screens, RestoredObjectiveShowsForm2WithinItsLoadAndLoadsItOnce) {
    int loads = 0;
    App.Register("Form2",
                 [&](forms::Application& a) { return std::make_unique<CountingForm2>(a, Program.Path(), loads); });
    auto& form = dynamic_cast<CountingForm2&>(StartSettings(SettingsOf(Work.Path(), 1, 2)));
    EXPECT_EQ(loads, 1);
    EXPECT_TRUE(form.WasShownInLoad());
    EXPECT_TRUE(form.IsVisible());
    EXPECT_EQ(forms::FocusOf(form), "Command4");
}

TEST_F(Screens, FolderThatIsGoneStartsForm2EmptyAndKeepsTheFile) {
    const std::string bytes = SettingsOf(Work.Path("gone"), 3, 1);
    Form2& form = StartSettings(bytes);
    EXPECT_EQ(UsableControls(form), EmptyState);
    EXPECT_EQ(Choices(form), "0 0");
    EXPECT_EQ(form.Label2.Caption, "");
    EXPECT_TRUE(Desktop.Boxes.empty());
    EXPECT_EQ(SettingsBytes(), bytes);
}

TEST_F(Screens, EmptyFirstLineOfTheSettingsIsNoGoodFolder) {
    Form2& form = StartSettings(SettingsOf("", 3, 1));
    EXPECT_EQ(UsableControls(form), EmptyState);
    EXPECT_TRUE(Desktop.Boxes.empty());
}

// Deliberate: a drive that is gone passes, and so does a file in the folder's place.
TEST_F(Screens, RootAndFileInPlaceOfTheFolderAreRestored) {
    for (const std::string& folder : {std::string("D:\\"), Work.Path("gone/"), Work.Put("x", "")}) {
        ProgramRun run(Desktop, Program);
        Program.Put("zirvo_sv.ini", SettingsOf(folder, 3, 1));
        Form2& form = run.StartSettings();
        EXPECT_EQ(form.Label2.Caption, folder);
        EXPECT_EQ(UsableControls(form), ReadyState);
    }
}

TEST_F(Screens, UnitOutsideOneToThreeRestoresTheFolderAndNextWritesZero) {
    Form2& form = StartSettings(SettingsOf(Work.Path(), 4, 1));
    EXPECT_EQ(form.Label2.Caption, Work.Path());
    EXPECT_EQ(Choices(form), "0 1");
    EXPECT_EQ(UsableControls(form), ReadyState);
    form.Command4.UserClick();
    EXPECT_EQ(SettingsBytes(), SettingsOf(Work.Path(), 0, 1));
    EXPECT_EQ(Desktop.Log, (Names{"hide Form2", "show Form3"}));
}

TEST_F(Screens, ObjectiveOutsideOneAndTwoKeepsForm2OnTheScreenUntilItIsMended) {
    for (const int objective : {0, 3, 7}) {
        ProgramRun run(Desktop, Program);
        Program.Put("zirvo_sv.ini", SettingsOf(Work.Path(), 2, objective));
        Form2& form = run.StartSettings();
        EXPECT_EQ(Choices(form), "2 0");
        EXPECT_EQ(UsableControls(form), ReadyState);
        EXPECT_EQ(forms::FocusOf(form), "Command1");
        Desktop.Log.clear();
        form.Command4.UserClick();
        EXPECT_EQ(SettingsBytes(), SettingsOf(Work.Path(), 2, 0));
        EXPECT_EQ(form.WorkFolder, Work.Path());
        EXPECT_TRUE(form.IsVisible());
        EXPECT_TRUE(Desktop.Log.empty());
        form.Option5.UserClick();
        form.Command4.UserClick();
        EXPECT_EQ(SettingsBytes(), SettingsOf(Work.Path(), 2, 2));
        EXPECT_TRUE(run.App.Find("Form5")->IsVisible());
    }
}

TEST_F(Screens, NextWritesTheSettingsAndLeadsToTheScreenOfTheObjective) {
    Form2& form = StartSettings(SettingsOf(Work.Path(), 3, 1));
    form.Option1.UserClick();
    form.Command4.UserClick();
    EXPECT_EQ(form.WorkFolder, Work.Path());
    EXPECT_EQ(SettingsBytes(), SettingsOf(Work.Path(), 1, 1));
    EXPECT_EQ(Desktop.Log, (Names{"hide Form2", "show Form3"}));
    EXPECT_EQ(App.Find("Form2"), &form);
}

TEST_F(Screens, NextLeadsToForm5ForGraphics) {
    StartSettings(SettingsOf(Work.Path(), 3, 2)).Command4.UserClick();
    EXPECT_EQ(Desktop.Log, (Names{"hide Form2", "show Form5"}));
}

TEST_F(Screens, Form2ComesBackAsItWasLeftAndMayBeChanged) {
    Form2& form = StartSettings(SettingsOf(Work.Path(), 3, 1));
    form.Command4.UserClick();
    dynamic_cast<StandInScreen*>(App.Find("Form3"))->Previous.UserClick();
    EXPECT_TRUE(form.IsVisible());
    EXPECT_EQ(Choices(form), "3 1");
    EXPECT_EQ(UsableControls(form), ReadyState);
    EXPECT_EQ(forms::FocusOf(form), "Command4");

    Program.Put("new", "");
    Desktop.Paths = {Program.Path()};
    form.Command1.UserClick();
    form.Option2.UserClick();
    form.Option5.UserClick();
    EXPECT_EQ(form.WorkFolder, Work.Path()) << "until NEXT";
    form.Command4.UserClick();
    EXPECT_EQ(form.WorkFolder, Program.Path());
    EXPECT_EQ(SettingsBytes(), SettingsOf(Program.Path(), 2, 2));
    EXPECT_EQ(App.Find("Form3"), nullptr) << "PREVIOUS has unloaded it";
    EXPECT_TRUE(App.Find("Form5")->IsVisible());
}

TEST_F(Screens, FolderWithANameOutsideTheCodePageIsKeptFromRunToRun) {
    const std::string folder = Work.Path("Straße 層");
    std::filesystem::create_directory(test::Utf8Path(folder));
    Form2& form = StartSettings();
    Desktop.Paths = {folder};
    form.Command1.UserClick();
    form.Option1.UserClick();
    form.Option4.UserClick();
    form.Command4.UserClick();
    ProgramRun next(Desktop, Program);
    EXPECT_EQ(next.StartSettings().Label2.Caption, folder);
}

TEST_F(Screens, HelpOfForm2OpensTheManualOfTheLanguage) {
    Program.Put("ZIRVO1.html", "<p>");
    Program.Put("ZIRVO2.html", "<p>");
    StartSettings("", Language::Japanese).Command2.UserClick();
    ASSERT_EQ(Desktop.HelpCalls.size(), 1U);
    EXPECT_EQ(Desktop.HelpCalls[0].File, Program.Path("ZIRVO1.html"));
    EXPECT_EQ(Desktop.HelpCalls[0].Form, "Form2");
    App.Get<Form1>().Option2.Value = true;
    App.Get<Form2>().Command2.UserClick();
    EXPECT_EQ(Desktop.HelpCalls.at(1).File, Program.Path("ZIRVO2.html"));
    EXPECT_FALSE(App.HasEnded());
}

TEST_F(Screens, QuitOfForm2EndsTheProgramWithoutAQuestionOrAWrite) {
    const std::string bytes = SettingsOf(Work.Path(), 3, 1);
    Form2& form = StartSettings(bytes);
    form.Option1.UserClick();
    Desktop.Log.clear();
    form.Command3.UserClick();
    EXPECT_EQ(Desktop.Log, (Names{"end 0"}));
    EXPECT_TRUE(Desktop.Boxes.empty());
    EXPECT_EQ(SettingsBytes(), bytes);
}

TEST_F(Screens, FrameCannotCloseForm2) {
    Form2& form = StartSettings();
    EXPECT_FALSE(form.HasCloseEntry);
    form.UserClose();
    EXPECT_TRUE(form.IsVisible());
}

}  // namespace
}  // namespace zirvo
