// The way to a map in the real program, and what happens to the user's impatience while the solver works.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "desktop/desktop_session.h"

namespace zirvo::window_tests {
namespace {

class MapScreen : public testing::Test {
protected:
    MapScreen() {
        std::filesystem::copy(std::filesystem::path(ZIRVO_SAMPLES) / "road.ven", session_.WorkFolder());
        std::ofstream(session_.ProgramFolder() / "zirvo_sv.ini")
            << session_.WorkFolder().string() << "\r\n 3 \r\n 2 \r\n";
    }

    /// From the start to the map screen with the road's data.
    void GoThere() {
        session_.Start();
        session_.Key("Down");  // English
        session_.Language(forms::Language::English);
        session_.Key("Return");
        session_.WaitForWindow("Form2");
        session_.Key("Return");
        session_.WaitForWindow("Form5");
        session_.Click("Form5", "Option2");
        session_.Key("Return");  // the focus went to OPEN FILE
        session_.GivePath("FileDialog", "road.ven");
        session_.AnswerBox(1);  // no update of the file; the focus goes to TO GRAPHICS
        session_.WaitForWindow("Form5");
        session_.Key("Return");
        session_.WaitForWindow("Form6");
    }
    /// The X-Z section through the wheel, up to the start of the solver.
    void Begin() {
        session_.Key("Down");  // EPSx in the combo box
        session_.Click("Form6", "Option4");
        session_.Type("0");
        session_.Key("Return");
    }
    /// The solver takes its time, as with a large pavement: it says that it has begun, and waits for a word to go on.
    void SlowDownTheSolver() {
        const std::filesystem::path solver = session_.ProgramFolder() / "ZIRVO_SV22.exe";
        std::filesystem::rename(solver, session_.ProgramFolder() / "real");
        std::ofstream(solver)
            << "#!/bin/sh\ntouch begun\nwhile [ ! -e go ]; do sleep 0.02; done\n\"$(dirname \"$0\")/real\" \"$@\"\n";
        std::filesystem::permissions(solver, std::filesystem::perms::owner_all);
    }

    DesktopSession session_;
};

TEST_F(MapScreen, AMapComesUpByKeysAndIsSavedAsABitmap) {
    GoThere();
    const QImage before = session_.Picture("Form6", "Picture1");
    Begin();
    session_.WaitUntilItChanges("Form6", "Picture1", before);
    session_.Click("Form6", "Command7");
    session_.GivePath("FileDialog", (session_.WorkFolder() / "map.bmp").string());
    session_.WaitFor("the bitmap", [this] { return std::filesystem::exists(session_.WorkFolder() / "map.bmp"); });
    session_.WaitForWindow("Form6");
    const QImage saved(QString::fromStdString((session_.WorkFolder() / "map.bmp").string()));
    EXPECT_EQ(saved.convertToFormat(QImage::Format_RGB32), session_.Picture("Form6", "Picture1"));
    session_.Click("Form6", "Command9");
    session_.AnswerBox();
    EXPECT_EQ(session_.WaitForExit(), 0);
}

TEST_F(MapScreen, WhatIsTypedAndClickedWhileTheSolverWorksIsThrownAway) {
    SlowDownTheSolver();
    GoThere();
    const QImage before = session_.Picture("Form6", "Picture1");
    const QImage position = session_.Picture("Form6", "Text2");
    Begin();
    session_.WaitFor("the solver", [this] { return std::filesystem::exists(session_.WorkFolder() / "begun"); });
    const QImage typed = session_.Picture("Form6", "Text2");
    EXPECT_NE(typed, position);
    session_.Type("123");
    session_.Click("Form6", "Command9");
    session_.Click("Form6", "Command2");
    session_.AskToClose("Form6");
    std::ofstream(session_.WorkFolder() / "go") << "x";
    session_.WaitUntilItChanges("Form6", "Picture1", before);
    // The first thing that counts comes behind all that did not: the question of QUIT, and nothing before it.
    session_.Click("Form6", "Command9");
    session_.WaitForWindow("MessageBox");
    session_.AnswerBox(1);
    session_.WaitForWindow("Form6");
    EXPECT_FALSE(session_.IsShown("MessageBox"));
    EXPECT_FALSE(session_.IsShown("Form5"));
    session_.Click("Form6", "Command9");
    session_.AnswerBox();
    EXPECT_EQ(session_.WaitForExit(), 0);
}

}  // namespace
}  // namespace zirvo::window_tests
