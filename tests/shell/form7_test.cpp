// The version screen.
#include "shell/form7.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>

#include "shell/screens.h"
#include "shell/update_history.h"

namespace zirvo {
namespace {

using forms::Language;
using Names = std::vector<std::string>;

TEST_F(Screens, Form7TellsNameVersionAndRightsInBothLanguagesAlike) {
    for (const Language language : {Language::Japanese, Language::English}) {
        ProgramRun run(Desktop, Program);
        run.StartIn(language).Command3.UserClick();
        const Form7& form = run.App.Get<Form7>();
        EXPECT_EQ(form.Label1.Caption, "ZIRVO for Windows");
        EXPECT_EQ(form.Label4.Caption, "Version");
        EXPECT_EQ(form.Label7.Caption, "2.3");
        EXPECT_EQ(form.Label5.Caption, "Home Page");
        EXPECT_EQ(form.Label8.Caption, "see README.md");
        EXPECT_EQ(form.Label6.Caption, "E-mail");
        EXPECT_EQ(form.Label9.Caption, "see README.md");
        EXPECT_EQ(form.Label2.Caption, "Copyright (c) 2026 the ZIRVO developers");
        EXPECT_EQ(form.Label3.Caption, "MIT License");
        EXPECT_EQ(form.Command1.Caption, "OK");
        ExpectTidyLayout(form);
    }
}

TEST_F(Screens, Form7InJapanese) {
    StartIn(Language::Japanese).Command3.UserClick();
    Form7& form = App.Get<Form7>();
    EXPECT_EQ(form.Caption, "ZIRVO のﾊﾞｰｼﾞｮﾝ情報");
    EXPECT_EQ(form.Label10.Caption, "更新履歴");
    EXPECT_EQ(form.Text1.Text, UpdateHistory(Language::Japanese));
}

TEST_F(Screens, Form7InEnglish) {
    StartIn(Language::English).Command3.UserClick();
    Form7& form = App.Get<Form7>();
    EXPECT_EQ(form.Caption, "Version Information for ZIRVO");
    EXPECT_EQ(form.Label10.Caption, "UPDATE HISTORY");
    EXPECT_EQ(form.Text1.Text, UpdateHistory(Language::English));
}

TEST_F(Screens, HistoryOfForm7CanBeReadButNotEdited) {
    StartIn(Language::English).Command3.UserClick();
    Form7& form = App.Get<Form7>();
    EXPECT_TRUE(form.Text1.MultiLine);
    form.Text1.UserFocus();
    forms::Type(form, "x\b");
    form.Text1.Paste("x");
    EXPECT_EQ(form.Text1.Text, UpdateHistory(Language::English));
}

TEST_F(Screens, ButtonOfForm7UnloadsItAndLeavesForm1AsItWas) {
    Form1& first = StartIn(Language::English);
    first.Command3.UserClick();
    Desktop.Log.clear();
    App.Get<Form7>().Command1.UserClick();
    EXPECT_EQ(App.Find("Form7"), nullptr);
    EXPECT_EQ(Desktop.Log, (Names{"hide Form7", "gone Form7"}));
    EXPECT_TRUE(first.IsVisible());
    EXPECT_EQ(UsableControls(first), (Names{"Command1", "Command2", "Command3"}));
}

TEST_F(Screens, EscapeClosesForm7FromTheHistoryAndFromTheButton) {
    Form1& first = StartIn(Language::English);
    for (const char* keys : {"\x1b", "\t\x1b"}) {
        first.Command3.UserClick();
        Desktop.Log.clear();
        forms::Type(App.Get<Form7>(), keys);
        EXPECT_EQ(App.Find("Form7"), nullptr);
        EXPECT_EQ(Desktop.Log, (Names{"hide Form7", "gone Form7"}));
        EXPECT_TRUE(first.IsVisible());
    }
}

/// Every word of a text that looks like a file of the program's folder: "README.md", "LICENSE".
Names FilesNamedIn(const std::string& text) {
    static const std::regex name(R"([A-Za-z0-9_]+\.(md|txt|html|pdf)|LICENSE)");
    return {std::sregex_token_iterator(text.begin(), text.end(), name), std::sregex_token_iterator()};
}

TEST_F(Screens, EveryFileThatForm7NamesLiesInTheFolderOfThePrograms) {
    for (const Language language : {Language::Japanese, Language::English}) {
        ProgramRun run(Desktop, Program);
        run.StartIn(language).Command3.UserClick();
        std::string texts;
        for (forms::Control* control : run.App.Get<Form7>().Controls) {
            if (const auto* label = dynamic_cast<const forms::Label*>(control)) {
                texts += label->Caption.Get() + "\n";
            }
        }
        texts += run.App.Get<Form7>().Text1.Text.Get();
        const Names named = FilesNamedIn(texts);
        EXPECT_EQ(named, (Names{"README.md", "README.md"})) << "home page and e-mail";
        for (const std::string& file : named) {
            EXPECT_TRUE(std::filesystem::is_regular_file(std::filesystem::path(ZIRVO_BIN) / file)) << file;
        }
    }
    // The licence is named by its kind, and its text lies there too.
    EXPECT_TRUE(std::filesystem::is_regular_file(std::filesystem::path(ZIRVO_BIN) / "LICENSE"));
}

TEST_F(Screens, TheReadmeThatForm7PointsToTellsHomePageAndMail) {
    std::ifstream in(std::filesystem::path(ZIRVO_BIN) / "README.md");
    const std::string readme{std::istreambuf_iterator<char>(in), {}};
    EXPECT_NE(readme.find("## Home page and e-mail"), std::string::npos);
}

TEST_F(Screens, Form7IsLoadedAnewEachTime) {
    Form1& first = StartIn(Language::English);
    first.Command3.UserClick();
    App.Get<Form7>().Label1.Caption = "changed";
    App.Get<Form7>().Command1.UserClick();
    first.Command3.UserClick();
    EXPECT_EQ(App.Get<Form7>().Label1.Caption, "ZIRVO for Windows");
}

TEST_F(Screens, VersionInfoPressedAgainBringsTheSameForm7ToTheFront) {
    Form1& first = StartIn(Language::English);
    first.Command3.UserClick();
    const Form7* const form = &App.Get<Form7>();
    first.Command3.UserClick();
    EXPECT_EQ(&App.Get<Form7>(), form);
    EXPECT_EQ(Desktop.Log, (Names{"show Form1", "show Form7", "show Form7"}));
}

TEST_F(Screens, FrameCannotCloseForm7) {
    StartIn(Language::English).Command3.UserClick();
    Form7& form = App.Get<Form7>();
    EXPECT_FALSE(form.HasCloseEntry);
    form.UserClose();
    EXPECT_TRUE(form.IsVisible());
}

TEST_F(Screens, TabOfForm7GoesFromTheHistoryToTheButtonAndBack) {
    StartIn(Language::English).Command3.UserClick();
    Form7& form = App.Get<Form7>();
    EXPECT_EQ(forms::FocusOf(form), "Text1");
    forms::Type(form, "\t");
    EXPECT_EQ(forms::FocusOf(form), "Command1");
    forms::Type(form, "\t");
    EXPECT_EQ(forms::FocusOf(form), "Text1");
}

}  // namespace
}  // namespace zirvo
