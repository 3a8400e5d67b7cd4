// The first screens of the real program, by keys and clicks.
#include <gtest/gtest.h>

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

}  // namespace
}  // namespace zirvo::window_tests
