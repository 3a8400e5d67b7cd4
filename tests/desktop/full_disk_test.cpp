// A disk that is full: the program ends as told, the files that were there stand as they were, and nothing typed goes
// with it.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "desktop/desktop_session.h"
#include "platform/small_disk.h"

namespace zirvo::window_tests {
namespace {

namespace fs = std::filesystem;

class FullDisk : public testing::TestWithParam<forms::Language> {
protected:
    FullDisk() {
        std::ofstream(session_.ProgramFolder() / "zirvo_sv.ini") << Folder().string() << "\r\n 3 \r\n 1 \r\n";
    }
    void GoToTheData() {
        session_.Start();
        session_.Key(GetParam() == forms::Language::Japanese ? "space" : "Down");
        session_.Language(GetParam());
        session_.Key("Return");
        session_.WaitForWindow("Form2");
        session_.Key("Return");
    }
    /// The first cell of the layers, by a click in the second row of 17 pixels each.
    void TypeModulus(const char* text) {
        session_.ClickAt("Form3", "MSFlexGrid1", {100, 26});
        session_.Key("Home");
        session_.Type(text);
        session_.Key("Return");
    }
    void Import(int answer) {
        session_.Click("Form3", "Option2");
        session_.Click("Form3", "Command1");
        session_.GivePath("FileDialog", "motorway.eva");
        session_.AnswerBox(answer);
        session_.WaitForWindow("Form3");
    }
    void ExpectTheEnd() {
        session_.WaitForWindow("MessageBox");
        EXPECT_EQ(session_.TitleOf("MessageBox"), "ZIRVO Ver2.3");
        session_.AnswerBox();
        EXPECT_EQ(session_.WaitForExit(), 1);
    }
    fs::path Folder() const { return session_.WorkFolder() / "small"; }

    DesktopSession session_;
    test::SmallDisk disk_{Folder(), 256};
};

TEST_P(FullDisk, DataThatCannotBeSavedAreOfferedAtTheNextStart) {
    if (!disk_.IsThere()) {
        GTEST_SKIP() << "no disk can be mounted here";
    }
    fs::copy(fs::path(ZIRVO_SAMPLES) / "motorway.eva", Folder());
    const std::string file = BytesOf(Folder() / "motorway.eva");
    GoToTheData();
    session_.WaitForWindow("Form3");
    Import(0);  // to be updated
    TypeModulus("4321");
    disk_.Fill();
    session_.Click("Form3", "Command5");
    session_.Key("Return");  // SAVE DATA
    session_.AnswerBox(0);   // over the file that is there
    ExpectTheEnd();
    EXPECT_EQ(BytesOf(Folder() / "motorway.eva"), file);

    fs::remove(Folder() / "filler");
    GoToTheData();
    session_.AnswerBox(0);  // the question of kept data
    session_.WaitForWindow("Form3");
    session_.Key("Return");  // DATA OK!
    session_.Key("Return");
    session_.AnswerBox(0);
    session_.WaitFor("the saved file",
                     [&] { return BytesOf(Folder() / "motorway.eva").find(" 4321 ") != std::string::npos; });
}

TEST_P(FullDisk, AnAnalysisWithoutRoomForItsReportsEndsTheProgramAndLeavesTheData) {
    if (!disk_.IsThere()) {
        GTEST_SKIP() << "no disk can be mounted here";
    }
    fs::copy(fs::path(ZIRVO_SAMPLES) / "motorway.eva", Folder());
    const std::string file = BytesOf(Folder() / "motorway.eva");
    GoToTheData();
    session_.WaitForWindow("Form3");
    Import(0);
    TypeModulus("4321");
    session_.Click("Form3", "Command5");
    session_.Key("Return");
    session_.AnswerBox(0);
    session_.WaitFor("the saved file",
                     [&] { return BytesOf(Folder() / "motorway.eva").find(" 4321 ") != std::string::npos; });
    disk_.Fill(12);  // the control file finds room, but not a report
    session_.WaitForWindow("Form3");
    session_.Key("Return");  // ANALYZE has the focus
    ExpectTheEnd();
    EXPECT_NE(BytesOf(Folder() / "motorway.eva"), file);
    EXPECT_FALSE(fs::exists(Folder() / "motorway_bre.csv"));

    fs::remove(Folder() / "filler");
    GoToTheData();
    session_.WaitForWindow("Form3");  // nothing is asked: the data stand in their file
    Import(1);
    session_.Key("Return");
    session_.WaitForWindow("Form4");
}

INSTANTIATE_TEST_SUITE_P(Languages, FullDisk, testing::Values(forms::Language::English, forms::Language::Japanese),
                         [](const auto& chosen) {
                             return chosen.param == forms::Language::Japanese ? "Japanese" : "English";
                         });

}  // namespace
}  // namespace zirvo::window_tests
