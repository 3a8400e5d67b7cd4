// The first screens of the real program, by keys and clicks.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "desktop/desktop_session.h"

namespace zirvo::window_tests {
namespace {

TEST(FirstScreens, TheProgramBeginsWithTheLanguageScreenAndEndsByQuit) {
    DesktopSession session;
    session.Start();
    EXPECT_EQ(session.TitleOf("Form1"), "- ZIRVO Ver2.3 -");
    const QImage before = session.Picture("Form1", "Command2");
    session.Click("Form1", "Option2");
    session.Language(forms::Language::English);
    session.WaitUntilItChanges("Form1", "Command2", before);
    session.Click("Form1", "Command1");
    EXPECT_EQ(session.WaitForExit(), 0);
}

TEST(FirstScreens, TheFrameCannotCloseTheLanguageScreen) {
    DesktopSession session;
    session.Start();
    session.AskToClose("Form1");
    // The program has answered the request once it shows what comes behind it.
    session.Key("Down");
    session.Key("Return");
    session.WaitForWindow("Form2");
    EXPECT_TRUE(session.IsRunning());
    session.AskToClose("Form2");
    session.Click("Form2", "Command3");
    EXPECT_EQ(session.WaitForExit(), 0);
}

TEST(FirstScreens, TheChainIsWalkedByKeysAlone) {
    DesktopSession session;
    session.Start();
    session.Key("space");  // Japanese, the first option; the focus goes to NEXT
    session.Language(forms::Language::Japanese);
    session.Key("Tab");
    session.Key("Return");
    session.WaitForWindow("Form7");
    session.Key("shift+Tab");
    session.Key("Return");
    session.WaitForNoWindow("Form7");
    session.WaitForWindow("Form1");
    session.Key("shift+Tab");
    session.Key("Return");
    session.WaitForWindow("Form2");
    EXPECT_FALSE(session.IsShown("Form1"));
}

TEST(FirstScreens, EscapeClosesTheVersionScreenInBothLanguages) {
    for (const forms::Language language : {forms::Language::Japanese, forms::Language::English}) {
        DesktopSession session;
        session.Start();
        session.Click("Form1", language == forms::Language::Japanese ? "Option1" : "Option2");
        session.Language(language);
        session.Click("Form1", "Command3");
        session.WaitForWindow("Form7");
        session.Key("Escape");
        session.WaitForNoWindow("Form7");
        session.WaitForWindow("Form1");
        EXPECT_TRUE(session.IsRunning());
        EXPECT_TRUE(std::filesystem::exists(session.ProgramFolder() / "README.md"));
        session.Click("Form1", "Command1");
        EXPECT_EQ(session.WaitForExit(), 0);
    }
}

TEST(FirstScreens, FolderUnitsAndObjectiveAreKeptFromRunToRun) {
    DesktopSession session;
    session.Start();
    session.Click("Form1", "Option2");
    session.Language(forms::Language::English);
    session.Key("Return");  // the focus went to NEXT
    session.WaitForWindow("Form2");
    session.Click("Form2", "Command1");
    session.GivePath("FolderDialog", session.WorkFolder().string());
    session.WaitForWindow("Form2");
    session.Click("Form2", "Option2");
    session.Click("Form2", "Option5");
    session.Key("Return");  // the focus went to NEXT
    session.WaitForWindow("Form5");
    EXPECT_FALSE(session.IsShown("Form2"));
    session.Click("Form5", "Command9");
    EXPECT_EQ(session.WaitForExit(), 0);
    const std::filesystem::path settings = session.ProgramFolder() / "zirvo_sv.ini";
    EXPECT_EQ(BytesOf(settings), session.WorkFolder().string() + "\r\n 2 \r\n 2 \r\n");

    session.Start();
    session.Key("Down");  // English
    session.Key("Return");
    session.WaitForWindow("Form2");
    session.Key("Return");  // restored, so that NEXT is enabled and has the focus
    session.WaitForWindow("Form5");
    EXPECT_TRUE(session.IsRunning());
}

TEST(FirstScreens, TheFolderDialogThatIsCancelledChangesNothing) {
    DesktopSession session;
    session.Start();
    session.Key("space");
    session.Language(forms::Language::Japanese);
    session.Key("Return");
    session.WaitForWindow("Form2");
    const QImage before = session.Picture("Form2", "Label2");
    session.Click("Form2", "Command1");
    session.WaitForWindow("FolderDialog");
    session.Key("Escape");
    session.WaitForNoWindow("FolderDialog");
    session.WaitForWindow("Form2");
    EXPECT_EQ(session.Picture("Form2", "Label2"), before);
    session.Click("Form2", "Command3");
    EXPECT_EQ(session.WaitForExit(), 0);
    EXPECT_FALSE(std::filesystem::exists(session.ProgramFolder() / "zirvo_sv.ini"));
}

TEST(FirstScreens, WhereTheProgramsFolderCannotBeWrittenABoxNamesTheUsersOwnOnce) {
    DesktopSession session;
    if (!session.BecomeAnotherUser()) {
        GTEST_SKIP() << "only root can become another user";
    }
    session.Launch();
    session.WaitForWindow("MessageBox");
    session.AnswerBox();
    session.WaitForWindow("Form1");
    session.Click("Form1", "Option2");
    session.Language(forms::Language::English);
    session.Key("Return");
    session.WaitForWindow("Form2");
    session.Click("Form2", "Command1");
    session.GivePath("FolderDialog", session.WorkFolder().string());
    session.WaitForWindow("Form2");
    session.Click("Form2", "Option3");
    session.Click("Form2", "Option4");
    session.Key("Return");
    session.WaitForWindow("Form3");
    session.Click("Form3", "Command9");
    EXPECT_EQ(session.WaitForExit(), 0);
    EXPECT_EQ(BytesOf(session.StateFolder() / "zirvo" / "zirvo_sv.ini"),
              session.WorkFolder().string() + "\r\n 3 \r\n 1 \r\n");
    EXPECT_FALSE(std::filesystem::exists(session.ProgramFolder() / "zirvo_sv.ini"));

    session.Start();  // without a box: the settings are there
    session.Key("Down");
    session.Key("Return");
    session.WaitForWindow("Form2");
    session.Key("Return");
    session.WaitForWindow("Form3");
    EXPECT_TRUE(session.IsRunning());
}

TEST(FirstScreens, AFileNamedAtTheStartIsImportedOnItsScreen) {
    DesktopSession session;
    const std::filesystem::path folder = session.WorkFolder() / "ZIRVO 試験";
    std::filesystem::create_directory(folder);
    std::filesystem::copy_file(ZIRVO_SAMPLES "/road.ven", folder / "road.ven");
    std::ofstream(session.ProgramFolder() / "zirvo_sv.ini") << session.WorkFolder().string() << "\r\n 3 \r\n 2 \r\n";
    session.Launch({"ZIRVO 試験/road.ven"});  // from the folder of the user's files
    session.WaitForWindow("Form1");
    session.Key("Down");
    session.Language(forms::Language::English);
    session.Key("Return");
    session.WaitForWindow("Form2");
    session.Key("Return");
    session.WaitForWindow("MessageBox");  // UPDATE INPUT FILE?
    session.AnswerBox(1);
    session.WaitForWindow("Form5");
    session.Key("Return");  // TO GRAPHICS
    session.WaitForWindow("Form6");
    // In code page 932, as all files are.
    EXPECT_EQ(BytesOf(session.ProgramFolder() / "zirvo_sv.ini"),
              session.WorkFolder().string() + "/ZIRVO \x8E\x8E\x8C\xB1\r\n 3 \r\n 2 \r\n");
}

TEST(FirstScreens, ABadNameAtTheStartIsToldAndTheProgramGoesOn) {
    DesktopSession session;
    session.Launch({"nowhere.eva"});
    session.WaitForWindow("MessageBox");
    session.AnswerBox();
    session.WaitForWindow("Form1");
    session.Key("Down");
    session.Language(forms::Language::English);
    session.Click("Form1", "Command1");
    EXPECT_EQ(session.WaitForExit(), 0);
}

TEST(FirstScreens, SettingsThatAreTooShortEndInTheFaultBoxWithStatusOne) {
    DesktopSession session;
    std::ofstream(session.ProgramFolder() / "zirvo_sv.ini") << session.WorkFolder().string() << "\r\n";
    session.Start();
    session.Key("Down");
    session.Key("Return");
    session.WaitForWindow("MessageBox");
    EXPECT_EQ(session.TitleOf("MessageBox"), "ZIRVO Ver2.3");
    session.Key("Return");
    EXPECT_EQ(session.WaitForExit(), 1);
}

}  // namespace
}  // namespace zirvo::window_tests
