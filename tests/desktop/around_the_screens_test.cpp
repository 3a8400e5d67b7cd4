// What surrounds the screens in the real program, in both languages: questions answered by Y and N, pictures in other
// formats, sizes of texts, looking for words, printing, a bar behind two seconds.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "desktop/desktop_session.h"

namespace zirvo::window_tests {
namespace {

namespace fs = std::filesystem;

class AroundTheScreens : public testing::TestWithParam<forms::Language> {
protected:
    void GoTo(const char* screen, int objective) {
        std::ofstream(session_.ProgramFolder() / "zirvo_sv.ini")
            << Folder().string() << "\r\n 3 \r\n " << objective << " \r\n";
        session_.Start();
        session_.Key(GetParam() == forms::Language::Japanese ? "space" : "Down");
        session_.Language(GetParam());
        session_.Key("Return");
        session_.WaitForWindow("Form2");
        session_.Key("Return");
        session_.WaitForWindow(screen);
    }
    void Import(const char* screen, const char* sample) {
        fs::copy(fs::path(ZIRVO_SAMPLES) / sample, Folder());
        session_.Click(screen, "Option2");
        session_.Click(screen, "Command1");
        session_.GivePath("FileDialog", sample);
        session_.WaitForWindow("MessageBox");
        session_.Key("n");  // no update of the file
        session_.WaitForNoWindow("MessageBox");
    }
    void GoToTheMap() {
        GoTo("Form5", 2);
        Import("Form5", "road.ven");
        session_.WaitForWindow("Form5");
        session_.Key("Return");  // TO GRAPHICS
        session_.WaitForWindow("Form6");
    }
    void DrawTheMap() {
        const QImage before = session_.Picture("Form6", "Picture1");
        session_.Key("Down");  // EPSx
        session_.Click("Form6", "Option4");
        session_.Type("0");
        session_.Key("Return");
        session_.WaitUntilItChanges("Form6", "Picture1", before);
    }
    void GoToTheReport() {
        GoTo("Form3", 1);
        Import("Form3", "road.eva");
        session_.WaitForWindow("Form3");
        session_.Key("Return");  // ANALYZE
        session_.WaitForWindow("Form4");
    }
    fs::path Folder() const { return session_.WorkFolder(); }
    fs::path Remembered() const { return Folder().parent_path() / ".config" / "zirvo" / "screens.ini"; }
    void SaveAs(const std::string& name) {
        session_.Click("Form6", "Command7");
        session_.GivePath("FileDialog", (Folder() / name).string());
    }
    void Quit(const char* screen) {
        session_.Click(screen, "Command9");
        if (std::string(screen) == "Form6") {
            session_.AnswerBox();
        }
        EXPECT_EQ(session_.WaitForExit(), 0);
    }

    DesktopSession session_;
};

TEST_P(AroundTheScreens, PicturesAreSavedInTheFormatOfTheirNamesAndOtherFilesAreSpared) {
    GoToTheMap();
    DrawTheMap();
    const auto saved = [this](const char* name) {
        session_.WaitFor(name, [this, name] { return fs::exists(Folder() / name); });
        session_.WaitForWindow("Form6");
        return BytesOf(Folder() / name);
    };
    SaveAs("map");
    EXPECT_TRUE(saved("map.bmp").starts_with("BM"));
    SaveAs("map.svg");
    EXPECT_NE(saved("map.svg").find("<svg"), std::string::npos);
    SaveAs("map.pdf");
    EXPECT_TRUE(saved("map.pdf").starts_with("%PDF-"));
    SaveAs("map.png");
    EXPECT_TRUE(saved("map.png").starts_with("\x89PNG"));
    const QImage png(QString::fromStdString((Folder() / "map.png").string()));
    EXPECT_EQ(png.convertToFormat(QImage::Format_RGB32), session_.Picture("Form6", "Picture1"));

    const std::string data = BytesOf(Folder() / "road.ven");
    SaveAs("road.ven");
    session_.WaitForWindow("MessageBox");
    session_.Key("Escape");  // it wants an answer
    session_.Key("n");
    session_.WaitForNoWindow("MessageBox");
    session_.WaitForWindow("Form6");
    EXPECT_EQ(BytesOf(Folder() / "road.ven"), data);
    SaveAs("road.ven");
    session_.WaitForWindow("MessageBox");
    session_.Key("y");
    session_.WaitFor("the picture", [&] { return BytesOf(Folder() / "road.ven").starts_with("BM"); });
    session_.WaitForWindow("Form6");
    Quit("Form6");
}

TEST_P(AroundTheScreens, TheListOfComponentsShowsTheOneInForceOnceItIsLeft) {
    GoToTheMap();
    DrawTheMap();
    session_.Click("Form6", "Check1(1)");
    session_.WaitForWindow("Form6");
    const QImage chosen = session_.Picture("Form6", "Combo1");
    session_.ClickAt("Form6", "Combo1", {20, 8});
    session_.Key("ctrl+a");
    session_.Type("q9");
    session_.WaitUntilItChanges("Form6", "Combo1", chosen);
    session_.Click("Form6", "Check1(1)");
    session_.WaitFor("the component in force", [&] { return session_.Picture("Form6", "Combo1") == chosen; });
    Quit("Form6");
}

TEST_P(AroundTheScreens, TextsGrowWithControlAndPlusAndAreSoAtTheNextStart) {
    GoTo("Form3", 1);
    // Not QUIT, on which the mouse stands behind the first run.
    const QImage told = session_.Picture("Form3", "Command3");
    session_.Key("ctrl+plus");
    session_.Key("ctrl+plus");
    session_.WaitUntilItChanges("Form3", "Command3", told);
    session_.WaitFor("the settings", [this] { return BytesOf(Remembered()).find("=125") != std::string::npos; });
    session_.WaitForWindow("Form3");
    const QImage larger = session_.Picture("Form3", "Command3");
    Quit("Form3");

    session_.Start();
    session_.Key(GetParam() == forms::Language::Japanese ? "space" : "Down");
    session_.Key("Return");
    session_.WaitForWindow("Form2");
    session_.Key("Return");
    session_.WaitForWindow("Form3");
    EXPECT_EQ(session_.Picture("Form3", "Command3"), larger);
    session_.Key("ctrl+0");
    session_.WaitFor("the told size", [&] { return session_.Picture("Form3", "Command3") == told; });
    Quit("Form3");
}

TEST_P(AroundTheScreens, WordsAreLookedForInAReportAndItIsPrinted) {
    GoToTheReport();
    session_.Key("ctrl+f");
    session_.WaitForWindow("Find");
    session_.Type("0.000");
    const QImage before = session_.Picture("Form4", "txtContents");
    session_.Key("Return");
    session_.WaitUntilItChanges("Form4", "txtContents", before);
    session_.Key("Escape");
    session_.WaitForNoWindow("Find");
    session_.WaitForWindow("Form4");
    session_.Key("ctrl+p");
    session_.WaitForWindow("PrintDialog");
    session_.Key("Escape");
    session_.WaitForNoWindow("PrintDialog");
    session_.WaitForWindow("Form4");
    session_.Click("Form4", "Command3");
    EXPECT_EQ(session_.WaitForExit(), 0);
}

TEST_P(AroundTheScreens, ABarTellsThatTheSolverIsStillAtWork) {
    const fs::path solver = session_.ProgramFolder() / "ZIRVO_SV22.exe";
    fs::rename(solver, session_.ProgramFolder() / "real");
    std::ofstream(solver) << "#!/bin/sh\nwhile [ ! -e go ]; do sleep 0.02; done\n\"$(dirname \"$0\")/real\" \"$@\"\n";
    fs::permissions(solver, fs::perms::owner_all);
    GoToTheMap();
    session_.Key("Down");
    session_.Click("Form6", "Option4");
    session_.Type("0");
    const QImage before = session_.Picture("Form6", "Picture1");
    session_.Key("Return");
    session_.WaitUntilItChanges("Form6", "Picture1", before);  // the bar stands over it: the map is not drawn yet
    EXPECT_FALSE(fs::exists(Folder() / "ZIRVO_SV.CSV"));
    const QImage bar = session_.Picture("Form6", "Picture1");
    session_.WaitUntilItChanges("Form6", "Picture1", bar);  // the next second
    std::ofstream(Folder() / "go") << "x";
    session_.WaitFor("the map", [this] { return fs::exists(Folder() / "ZIRVO_SV.CSV"); });
    session_.WaitForWindow("Form6");
    Quit("Form6");
}

INSTANTIATE_TEST_SUITE_P(Languages, AroundTheScreens,
                         testing::Values(forms::Language::Japanese, forms::Language::English),
                         [](const testing::TestParamInfo<forms::Language>& tested) {
                             return tested.param == forms::Language::Japanese ? "Japanese" : "English";
                         });

}  // namespace
}  // namespace zirvo::window_tests
