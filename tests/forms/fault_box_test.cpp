// The box that ends the program: its two lines, then in the user's language what it was about, the end, the data.
#include "forms/fault_box.h"

#include <gtest/gtest.h>

#include "forms/application.h"
#include "forms/scripted_desktop.h"

namespace zirvo::forms {
namespace {

const RuntimeFault Missing(fault::FileNotFound, {FaultMatter::File, "/w/a.eva", ""});

FaultBox BoxOf(std::optional<Language> words, std::optional<bool> kept = std::nullopt) {
    return {.Heading = "Run-time error '53':",
            .Description = "File not found",
            .Caught = &Missing,
            .Words = words,
            .Kept = kept};
}

TEST(FaultBoxText, HasTheTwoLinesAndThenWhatItWasAboutInTheUsersLanguage) {
    EXPECT_EQ(FaultBoxText(BoxOf(Language::English)),
              "Run-time error '53':\n\nFile not found\n\nFile: /w/a.eva\nThis file does not exist.\n\n"
              "The program ends now.");
    EXPECT_EQ(FaultBoxText(BoxOf(Language::Japanese)),
              "Run-time error '53':\n\nFile not found\n\nファイル: /w/a.eva\nこのファイルはありません。\n\n"
              "プログラムを終了します。");
}

TEST(FaultBoxText, SpeaksBothLanguagesBeforeOneIsChosen) {
    EXPECT_EQ(FaultBoxText(BoxOf(std::nullopt)),
              "Run-time error '53':\n\nFile not found\n\n"
              "ファイル: /w/a.eva\nこのファイルはありません。\n\nプログラムを終了します。\n\n"
              "File: /w/a.eva\nThis file does not exist.\n\nThe program ends now.");
}

TEST(FaultBoxText, TellsOfTheDataOnlyWhereThereAreSome) {
    EXPECT_TRUE(FaultBoxText(BoxOf(Language::English, true)).ends_with("ends now.\nWhat you typed is kept."));
    EXPECT_TRUE(FaultBoxText(BoxOf(Language::English, false)).ends_with("\nWhat you typed could not be kept."));
    EXPECT_TRUE(FaultBoxText(BoxOf(Language::Japanese, true)).ends_with("\n入力した内容は残してあります。"));
}

struct FaultedApplication : testing::Test {
    ScriptedDesktop desktop;
    Application app{desktop};

    void Fail() {
        app.Dispatch([] { throw Missing; });
    }
};

TEST_F(FaultedApplication, SpeaksTheLanguageThatWasChosen) {
    app.Speak(Language::Japanese);
    Fail();
    ASSERT_EQ(desktop.Boxes.size(), 1U);
    EXPECT_EQ(desktop.Boxes[0].Text, FaultBoxText(BoxOf(Language::Japanese)));
    EXPECT_EQ(desktop.Boxes[0].Words, Language::Japanese);
    EXPECT_EQ(desktop.Boxes[0].Title, "ZIRVO Ver2.3");
    EXPECT_EQ(desktop.EndStatus, 1);
}

TEST_F(FaultedApplication, KeepsWhatWasTypedBeforeTheBoxAndTellsWhetherItIsKept) {
    for (const std::optional<bool> kept : std::initializer_list<std::optional<bool>>{true, false, std::nullopt}) {
        ScriptedDesktop world;
        Application one(world);
        one.Speak(Language::English);
        int asked = 0;
        one.KeepTypedData = [&] {
            EXPECT_TRUE(world.Boxes.empty());
            ++asked;
            return kept;
        };
        one.Dispatch([] { throw Missing; });
        EXPECT_EQ(asked, 1);
        ASSERT_EQ(world.Boxes.size(), 1U);
        EXPECT_EQ(world.Boxes[0].Text, FaultBoxText(BoxOf(Language::English, kept)));
    }
}

TEST_F(FaultedApplication, AFailureToKeepTheDataIsToldAndHidesNoFault) {
    app.Speak(Language::English);
    app.KeepTypedData = []() -> std::optional<bool> { throw RuntimeFault(fault::DiskFull); };
    Fail();
    ASSERT_EQ(desktop.Boxes.size(), 1U);
    EXPECT_EQ(desktop.Boxes[0].Text, FaultBoxText(BoxOf(Language::English, false)));
}

TEST_F(FaultedApplication, AMistakeOfTheProgramsOwnTellsTheEndAndTheDataToo) {
    app.Speak(Language::English);
    app.KeepTypedData = [] { return std::optional(true); };
    app.Dispatch([] { throw std::length_error("too long"); });
    EXPECT_EQ(desktop.BoxTexts(), std::vector<std::string>{"Internal error:\n\ntoo long\n\nThe program ends now.\n"
                                                           "What you typed is kept."});
}

}  // namespace
}  // namespace zirvo::forms
