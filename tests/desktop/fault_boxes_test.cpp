// Errors and refusals in the real program, in both languages: the box stands, the program ends with status 1 where it
// must, and leads on where it can.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "desktop/desktop_session.h"

namespace zirvo::window_tests {
namespace {

namespace fs = std::filesystem;

class FaultBoxes : public testing::TestWithParam<forms::Language> {
protected:
    bool Japanese() const { return GetParam() == forms::Language::Japanese; }
    void Settings(const fs::path& folder, const char* objective) {
        std::ofstream(session_.ProgramFolder() / "zirvo_sv.ini")
            << folder.string() << "\r\n 3 \r\n " << objective << " \r\n";
    }
    /// Up to Form2.
    void GoToTheSettings() {
        session_.Start();
        session_.Key(Japanese() ? "space" : "Down");
        session_.Language(GetParam());
        session_.Key("Return");
        session_.WaitForWindow("Form2");
    }
    void GoToTheData(const char* objective, const char* form) {
        Settings(session_.WorkFolder(), objective);
        GoToTheSettings();
        session_.Key("Return");  // NEXT has the focus, since all is set
        session_.WaitForWindow(form);
    }
    /// The file is imported and used as it is.
    void Import(const char* form, const std::string& name, const std::string& bytes, int answer = 1) {
        std::ofstream(session_.WorkFolder() / name, std::ios::binary) << bytes;
        session_.Click(form, "Option2");
        session_.Click(form, "Command1");
        session_.GivePath("FileDialog", name);
        session_.AnswerBox(answer);
        session_.WaitForWindow(form);
    }
    static std::string Sample(const std::string& name) {
        std::ifstream in(fs::path(ZIRVO_SAMPLES) / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    /// The road with these lines of loads.
    static std::string Ven(int loads, const std::string& lines) {
        std::string file = "L\r\n  3";
        file.append(10 - std::to_string(loads).size(), ' ').append(std::to_string(loads));
        file.append("\r\n\r\nP\r\nH\r\n 5000 0.35 15 0\r\n 300 0.35 30 0\r\n 50 0.4\r\n\r\nL\r\nH\r\n");
        return file.append(lines);
    }
    /// Over the imported file to the map screen, with a component and a section.
    void GoToTheSection(const std::string& ven, const char* option) {
        GoToTheData("2", "Form5");
        Import("Form5", "road.ven", ven);
        session_.Key("Return");  // TO GRAPHICS has the focus
        session_.WaitForWindow("Form6");
        session_.Key("Down");
        session_.Click("Form6", option);
    }
    void ExpectTheEnd() {
        session_.WaitForWindow("MessageBox");
        EXPECT_EQ(session_.TitleOf("MessageBox"), "ZIRVO Ver2.3");
        session_.AnswerBox();
        EXPECT_EQ(session_.WaitForExit(), 1);
    }

    DesktopSession session_;
};

TEST_P(FaultBoxes, SettingsThatCannotBeReadEndTheProgram) {
    Settings(session_.WorkFolder() / "roads, old", "1");
    session_.Start();
    session_.Key(Japanese() ? "space" : "Down");
    session_.Language(GetParam());
    session_.Key("Return");
    ExpectTheEnd();
}

TEST_P(FaultBoxes, AFolderWithACommaIsThereAgainInTheNextRun) {
    const fs::path folder = session_.WorkFolder() / "roads, old";
    fs::create_directory(folder);
    GoToTheSettings();
    session_.Click("Form2", "Command1");
    session_.GivePath("FolderDialog", folder.string());
    session_.WaitForWindow("Form2");
    session_.Click("Form2", "Option3");
    session_.Click("Form2", "Option4");
    session_.Key("Return");
    session_.WaitForWindow("Form3");
    session_.Click("Form3", "Command9");
    EXPECT_EQ(session_.WaitForExit(), 0);
    std::ifstream in(session_.ProgramFolder() / "zirvo_sv.ini", std::ios::binary);
    std::string settings(1, '"');
    settings.append(folder.string()).append("\"\r\n 3 \r\n 1 \r\n");
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), settings);
    GoToTheSettings();
    session_.Key("Return");
    session_.WaitForWindow("Form3");
    session_.Click("Form3", "Command9");
    EXPECT_EQ(session_.WaitForExit(), 0);
}

TEST_P(FaultBoxes, AMissingGraphicsSolverEndsTheProgram) {
    fs::remove(session_.ProgramFolder() / "ZIRVO_SV22.exe");
    GoToTheSection(Sample("road.ven"), "Option4");
    session_.Type("0");
    session_.Key("Return");
    ExpectTheEnd();
}

TEST_P(FaultBoxes, APositionBeyondAnyUseEndsTheProgram) {
    GoToTheSection(Sample("road.ven"), "Option4");
    session_.Type("1E400");
    session_.Key("Return");
    ExpectTheEnd();
}

TEST_P(FaultBoxes, ALoadTooFarOutForAGridEndsTheProgram) {
    GoToTheSection(Ven(1, " 49 15 1E20 0 0 0\r\n"), "Option3");
    session_.Type("0");
    session_.Key("Return");
    ExpectTheEnd();
    EXPECT_FALSE(fs::exists(session_.WorkFolder() / "ZIRVO_SV.EVA"));
}

TEST_P(FaultBoxes, BehindTooManyPointsPreviousLeadsBackToTheLoads) {
    std::string loads;
    for (int i = 1; i <= 100; ++i) {
        const std::string place = std::to_string(3 * i);
        loads.append(" 49 1 ").append(place).append(" ").append(place).append(" 0 0\r\n");
    }
    GoToTheSection(Ven(100, loads), "Option3");
    session_.Type("0");
    session_.Key("Return");
    session_.AnswerBox();
    session_.AnswerBox();
    session_.WaitForWindow("Form6");
    session_.Click("Form6", "Command9");  // QUIT asks, and Cancel stays
    session_.AnswerBox(1);
    session_.WaitForWindow("Form6");
    session_.Click("Form6", "Command2");
    session_.AnswerBox();
    session_.WaitForWindow("Form5");
    EXPECT_TRUE(session_.IsRunning());
}

TEST_P(FaultBoxes, BehindARefusedLayerPreviousLeadsBackToTheData) {
    GoToTheSection(Sample("road.ven"), "Option3");
    session_.Type("15");
    session_.Key("Return");
    session_.AnswerBox(1);  // not layer 1
    session_.AnswerBox(1);  // not layer 2
    session_.AnswerBox();   // decide
    session_.WaitForWindow("Form6");
    session_.Click("Form6", "Command2");
    session_.AnswerBox();
    session_.WaitForWindow("Form5");
    EXPECT_TRUE(session_.IsRunning());
}

// A map, another section, another component: RE-DRAW has nothing to draw, and the next map comes as always.
TEST_P(FaultBoxes, AnotherSectionDropsTheMap) {
    GoToTheSection(Sample("road.ven"), "Option3");
    const QImage empty = session_.Picture("Form6", "Picture1");
    session_.Type("0");
    session_.Key("Return");
    session_.WaitUntilItChanges("Form6", "Picture1", empty);
    const QImage map = session_.Picture("Form6", "Picture1");
    session_.Click("Form6", "Option4");
    session_.WaitUntilItChanges("Form6", "Picture1", map);
    session_.Click("Form6", "Command7");  // does nothing: no dialog stands before what follows
    session_.Click("Form6", "Combo1");
    session_.Key("Down");
    session_.Key("Return");
    session_.Click("Form6", "Command5");
    session_.Click("Form6", "Option4");
    session_.Type("0");
    const QImage before = session_.Picture("Form6", "Picture1");
    session_.Key("Return");
    session_.WaitUntilItChanges("Form6", "Picture1", before);
    EXPECT_TRUE(session_.IsRunning());
    EXPECT_FALSE(session_.IsShown("MessageBox"));
    EXPECT_FALSE(session_.IsShown("FileDialog"));
}

TEST_P(FaultBoxes, ANameThatDoesNotSurviveInAFileIsRefusedAtDataOk) {
    GoToTheData("1", "Form3");
    Import("Form3", "road.eva", Sample("road.eva"), 0);
    for (const char* const box : {"Text7", "Text8", "Text1"}) {
        session_.ClickAt("Form3", box, {30, 10});
        session_.Key("Home");
        session_.Type("a,b");
        session_.Click("Form3", "Command5");
        session_.AnswerBox();
        session_.AnswerBox();
        session_.WaitForWindow("Form3");
        session_.ClickAt("Form3", box, {30, 10});
        session_.Key("Home");
        for (int i = 0; i < 3; ++i) {
            session_.Key("Delete");
        }
    }
    session_.Click("Form3", "Command5");
    session_.Key("Return");  // SAVE DATA
    session_.AnswerBox();    // overwrite
    session_.WaitForWindow("Form3");
    session_.Key("Return");  // ANALYZE finds the files under the names that were left
    session_.WaitForWindow("Form4");
}

INSTANTIATE_TEST_SUITE_P(Languages, FaultBoxes, testing::Values(forms::Language::English, forms::Language::Japanese),
                         [](const auto& chosen) {
                             return chosen.param == forms::Language::Japanese ? "Japanese" : "English";
                         });

}  // namespace
}  // namespace zirvo::window_tests
