// A whole numerical analysis in the real program: by keys alone, by clicks alone, and with a solver that is missing.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "desktop/desktop_session.h"

namespace zirvo::window_tests {
namespace {

namespace fs = std::filesystem;

class AnalysisScreens : public testing::TestWithParam<forms::Language> {
protected:
    /// Up to the data screen, with kN and MPa.
    void GoThere(forms::Language language) {
        std::ofstream(session_.ProgramFolder() / "zirvo_sv.ini") << Folder().string() << "\r\n 3 \r\n 1 \r\n";
        session_.Start();
        session_.Key(language == forms::Language::Japanese ? "space" : "Down");
        session_.Language(language);
        session_.Key("Return");
        session_.WaitForWindow("Form2");
        session_.Key("Return");
        session_.WaitForWindow("Form3");
    }
    fs::path Folder() const { return session_.WorkFolder(); }
    std::string BytesOf(const char* file) const {
        std::ifstream in(Folder() / file, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    void Keys(const char* key, int times) {
        for (int i = 0; i < times; ++i) {
            session_.Key(key);
        }
    }
    /// A row of cells, with Enter behind each but the last.
    void TypeCells(std::initializer_list<const char*> cells) {
        const char* const* last = cells.end() - 1;
        for (const char* const* cell = cells.begin(); cell != cells.end(); ++cell) {
            session_.Type(*cell);
            if (cell != last) {
                session_.Key("Return");
            }
        }
    }
    void Import(const char* sample) {
        fs::copy(fs::path(ZIRVO_SAMPLES) / sample, Folder());
        session_.Click("Form3", "Option2");
        session_.Click("Form3", "Command1");
        session_.GivePath("FileDialog", sample);
    }

    DesktopSession session_;
};

TEST_P(AnalysisScreens, NewDataIsTypedSavedAndAnalyzedByKeysAlone) {
    GoThere(GetParam());
    session_.Key("space");  // NEW DATA has the focus
    session_.Key("Tab");
    Keys("Up", 2);  // two layers
    session_.Key("Tab");
    session_.Key("Up");  // a load
    session_.Key("Tab");
    session_.Key("Up");  // a point
    session_.Key("Tab");
    TypeCells({"5000", "0.35", "15", "0", "50x0", "0.4"});
    session_.Key("Tab");
    TypeCells({"49", "15", "0", "0", "0", "0"});
    session_.Key("Tab");
    TypeCells({"1", "0", "0", "15"});
    Keys("Tab", 6);
    session_.Key("Return");  // DATA OK!; the focus goes to SAVE DATA, and from there to ANALYZE
    session_.Key("Return");
    session_.WaitFor("the saved file", [this] { return fs::exists(Folder() / "Untitled.eva"); });
    const std::string saved = BytesOf("Untitled.eva");
    EXPECT_NE(saved.find("\r\n         5000             0.35               15               0\r\n"), std::string::npos);
    EXPECT_NE(saved.find("\r\n          500              0.4\r\n"), std::string::npos);
    EXPECT_NE(saved.find("\r\n    1               0            0           15\r\n"), std::string::npos);
    session_.Key("Return");
    session_.WaitForWindow("Form4");
    const std::string first = BytesOf("Untitled.bre");
    EXPECT_NE(first.find("   ==="), std::string::npos);

    // The principal values, the divided view, and the way back to change one number.
    QImage before = session_.Picture("Form4", "txtContents");
    session_.Key("Right");
    session_.WaitUntilItChanges("Form4", "txtContents", before);
    before = session_.Picture("Form4", "txtContents");
    session_.Key("Left");
    session_.WaitUntilItChanges("Form4", "txtContents", before);
    before = session_.Picture("Form4", "txtContents");
    session_.Key("Tab");
    session_.Key("Right");
    session_.WaitUntilItChanges("Form4", "txtContents", before);
    Keys("Tab", 2);
    session_.Key("Return");
    session_.AnswerBox();  // update the data
    session_.WaitForWindow("Form3");
    Keys("Tab", 5);  // from HELP, where the focus went during the run, to the layers
    Keys("Home", 1);
    Keys("Up", 1);
    session_.Type("6000");
    Keys("Tab", 8);
    session_.Key("Return");
    session_.Key("Return");
    session_.AnswerBox();  // overwrite
    session_.WaitForWindow("Form3");
    session_.Key("Return");
    session_.WaitForWindow("Form4");
    EXPECT_NE(BytesOf("Untitled.bre"), first);
    EXPECT_NE(BytesOf("Untitled.eva").find("         6000 "), std::string::npos);
    Keys("shift+Tab", 1);
    session_.Key("Return");  // QUIT
    EXPECT_EQ(session_.WaitForExit(), 0);
}

TEST_P(AnalysisScreens, ASampleIsImportedAnalyzedAndLookedAtByClicksAlone) {
    GoThere(GetParam());
    Import("motorway.eva");
    session_.AnswerBox(1);  // as it is
    session_.WaitForWindow("Form3");
    session_.Click("Form3", "Command7");
    session_.WaitForWindow("Form4");
    for (const char* choice : {"Option4", "Option3", "Option2", "Option1"}) {
        const QImage before = session_.Picture("Form4", "txtContents");
        session_.Click("Form4", choice);
        session_.WaitUntilItChanges("Form4", "txtContents", before);
    }
    // What stands in the folder is what the tool for scripts makes of the same file.
    const std::string reports = BytesOf("motorway.bre");
    fs::create_directory(Folder() / "batch");
    fs::copy(Folder() / "motorway.eva", Folder() / "batch");
    const std::string batch = (session_.ProgramFolder() / "zirvo-batch").string();
    if (fs::exists(batch)) {
        const std::string language = GetParam() == forms::Language::Japanese ? "ja" : "en";
        const std::string command = "cd '" + (Folder() / "batch").string() + "' && '" + batch +
                                    "' analyze motorway.eva --units 3 --language " + language + " > /dev/null";
        ASSERT_EQ(std::system(command.c_str()), 0);  // NOLINT(concurrency-mt-unsafe)
        EXPECT_EQ(BytesOf("batch/motorway.bre"), reports);
    }
    session_.Click("Form4", "Command2");
    session_.AnswerBox(1);  // the data stays as it is
    session_.WaitForWindow("Form3");
    session_.Click("Form3", "Command7");
    session_.WaitForWindow("Form4");
    EXPECT_EQ(BytesOf("motorway.bre"), reports);
    session_.Click("Form4", "Command3");
    EXPECT_EQ(session_.WaitForExit(), 0);
}

TEST_P(AnalysisScreens, ACellIsEditedByADoubleClickAndCommittedByDataOk) {
    GoThere(GetParam());
    Import("road.eva");
    session_.AnswerBox();
    session_.WaitForWindow("Form3");
    // The vertical load: behind a heading of at most 65 pixels, in the second row of 17 pixels each.
    const QImage before = session_.Picture("Form3", "MSFlexGrid2");
    session_.ClickAt("Form3", "MSFlexGrid2", {110, 26}, 2);
    session_.WaitUntilItChanges("Form3", "MSFlexGrid2", before);
    session_.Key("End");
    session_.Type("0");
    session_.Click("Form3", "Command5");
    session_.Click("Form3", "Command6");
    session_.AnswerBox();
    session_.WaitFor("the changed load",
                     [this] { return BytesOf("road.eva").find("\r\n       490 ") != std::string::npos; });
    session_.WaitForWindow("Form3");
    session_.Click("Form3", "Command9");
    EXPECT_EQ(session_.WaitForExit(), 0);
}

TEST_P(AnalysisScreens, AMissingSolverEndsTheProgramAndLeavesTheDataWhole) {
    GoThere(GetParam());
    fs::remove(session_.ProgramFolder() / "ZIRVO_SV12.EXE");
    Import("road.eva");
    session_.AnswerBox(1);
    session_.WaitForWindow("Form3");
    session_.Key("Return");  // the focus went to ANALYZE
    session_.WaitForWindow("MessageBox");
    EXPECT_EQ(session_.TitleOf("MessageBox"), "ZIRVO Ver2.3");
    session_.AnswerBox();
    EXPECT_EQ(session_.WaitForExit(), 1);
    std::ifstream sample(fs::path(ZIRVO_SAMPLES) / "road.eva", std::ios::binary);
    EXPECT_EQ(BytesOf("road.eva"), std::string(std::istreambuf_iterator<char>(sample), {}));
    EXPECT_TRUE(fs::exists(Folder() / "Initial_File"));
}

INSTANTIATE_TEST_SUITE_P(Languages, AnalysisScreens,
                         testing::Values(forms::Language::English, forms::Language::Japanese), [](const auto& chosen) {
                             return chosen.param == forms::Language::Japanese ? "Japanese" : "English";
                         });

}  // namespace
}  // namespace zirvo::window_tests
