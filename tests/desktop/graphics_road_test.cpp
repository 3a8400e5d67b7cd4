// The whole road of the graphics screens in the real program: a pavement typed in, saved, taken to a map, worked on,
// and its picture saved, which is the one that the batch tool draws.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "desktop/desktop_session.h"

namespace zirvo::window_tests {
namespace {

class GraphicsRoad : public testing::Test {
protected:
    /// With the settings of an earlier day: the folder, unit system 1, graphics.
    GraphicsRoad() {
        std::ofstream(session_.ProgramFolder() / "zirvo_sv.ini")
            << session_.WorkFolder().string() << "\r\n 1 \r\n 2 \r\n";
    }

    void GoToTheDataScreen(forms::Language language) {
        session_.Start();
        session_.Key(language == forms::Language::Japanese ? "space" : "Down");
        session_.Language(language);
        session_.Key("Return");
        session_.WaitForWindow("Form2");
        session_.Key("Return");  // NEXT has the focus, since all is set
        session_.WaitForWindow("Form5");
    }
    /// Two layers and one load, by keys: bars, grids, the name of the file left as it is.
    void TypeThePavement() {
        session_.Key("space");  // NEW DATA
        session_.Key("Tab");
        session_.Key("Up");
        session_.Key("Up");
        session_.Key("Tab");
        session_.Key("Up");
        session_.Key("Tab");
        TypeCells({"35000", "0.35", "5", "0", "1000", "0.4"});
        session_.Key("Tab");
        TypeCells({"5000", "15", "0", "0", "0", "0"});
    }
    void TypeCells(const std::vector<std::string>& cells) {
        for (const std::string& cell : cells) {
            session_.Type(cell);
            session_.Key("Return");
        }
    }
    /// Does something that ends with another map.
    void Draw(const std::function<void()>& act) {
        const QImage before = session_.Picture("Form6", "Picture1");
        act();
        session_.WaitUntilItChanges("Form6", "Picture1", before);
    }
    std::filesystem::path SaveByClick(const std::string& name) {
        session_.Click("Form6", "Command7");
        return Save(name);
    }
    /// With the focus as many stops before (or behind) SAVE PICTURE.
    std::filesystem::path SaveByKeys(const std::string& name, int stops) {
        PressTab(stops);
        session_.Key("Return");
        return Save(name);
    }
    /// Forwards, or backwards for a number below 0.
    void PressTab(int times) {
        for (int i = 0; i < std::abs(times); ++i) {
            session_.Key(times < 0 ? "shift+Tab" : "Tab");
        }
    }
    std::filesystem::path Save(const std::string& name) {
        const std::filesystem::path file = session_.WorkFolder() / name;
        session_.GivePath("FileDialog", file.string());
        session_.WaitFor(name, [&] { return std::filesystem::exists(file); });
        session_.WaitForWindow("Form6");
        return file;
    }
    /// What the batch tool draws for the saved pavement.
    std::string BatchMap(const std::vector<std::string>& section) {
        const std::filesystem::path file = session_.WorkFolder() / "batch.bmp";
        const QImage picture = session_.Picture("Form6", "Picture1");
        std::vector<std::string> arguments{(session_.ProgramFolder() / "zirvo-batch").string(),
                                           "map",
                                           (session_.WorkFolder() / "Untitled.ven").string(),
                                           "--units",
                                           "1",
                                           "--language",
                                           "en",
                                           "--quiet",
                                           "-o",
                                           file.string(),
                                           "--size",
                                           std::to_string(picture.width()) + "x" + std::to_string(picture.height())};
        arguments.insert(arguments.end(), section.begin(), section.end());
        ChildProcess batch(arguments, {{"PATH", "/usr/bin:/bin"}}, session_.WorkFolder().string());
        session_.WaitFor("zirvo-batch", [&] { return batch.ExitStatus().has_value(); });
        EXPECT_EQ(batch.ExitStatus(), 0);
        return BytesOf(file);
    }

    DesktopSession session_;
};

TEST_F(GraphicsRoad, APavementTypedInBecomesTheMapThatTheBatchToolDraws) {
    GoToTheDataScreen(forms::Language::English);
    TypeThePavement();
    session_.Click("Form5", "Command5");
    session_.Key("Return");  // SAVE DATA has the focus
    session_.WaitFor("the file", [this] { return std::filesystem::exists(session_.WorkFolder() / "Untitled.ven"); });
    session_.Key("Return");  // TO GRAPHICS
    session_.WaitForWindow("Form6");

    // EPSz on the X-Z section through the wheel, with lines over the fill.
    session_.Key("Down");
    session_.Key("Down");
    session_.Click("Form6", "Option4");
    session_.Type("0");
    Draw([this] { session_.Click("Form6", "Command10"); });
    session_.Click("Form6", "Check1(1)");
    Draw([this] { session_.Click("Form6", "Command5"); });
    EXPECT_EQ(BytesOf(SaveByClick("xz.bmp")),
              BatchMap({"--section", "xz", "--position", "0", "--component", "EPSz", "--items", "fill,lines,legend"}));

    // The probe's marks stay while a box stands before the map, and are saved with it.
    Draw([this] { session_.ClickAt("Form6", "Picture1", {300, 200}); });
    const QImage marked = session_.Picture("Form6", "Picture1");
    session_.Click("Form6", "Command9");
    session_.WaitForWindow("MessageBox");
    session_.AnswerBox(1);  // Cancel
    session_.WaitForWindow("Form6");
    session_.WaitFor("the map as it was", [&] { return session_.Picture("Form6", "Picture1") == marked; });
    EXPECT_EQ(QImage(QString::fromStdString(SaveByClick("marked.bmp").string())).convertToFormat(QImage::Format_RGB32),
              marked.convertToFormat(QImage::Format_RGB32));

    // A narrowed range: typed over the maximum, then RE-DRAW.
    session_.ClickAt("Form6", "Text4", {40, 10}, 2);
    session_.Key("ctrl+a");
    session_.Type("100");
    Draw([this] { session_.Click("Form6", "Command5"); });
    EXPECT_NE(session_.Picture("Form6", "Picture1"), marked);

    session_.Click("Form6", "Command9");
    session_.AnswerBox();
    EXPECT_EQ(session_.WaitForExit(), 0);
}

TEST_F(GraphicsRoad, TheWholeRoadGoesByKeysAlone) {
    GoToTheDataScreen(forms::Language::Japanese);
    TypeThePavement();
    PressTab(4);  // the name of the file, PREVIOUS, CLEAR FORM, DATA OK!
    session_.Key("Return");
    session_.Key("Return");
    session_.WaitFor("the file", [this] { return std::filesystem::exists(session_.WorkFolder() / "Untitled.ven"); });
    session_.Key("Return");
    session_.WaitForWindow("Form6");

    // EPSx at the bottom of the asphalt: No to the first layer, Yes to the second.
    session_.Key("Down");
    session_.Key("Tab");
    session_.Key("space");
    session_.Type("5");
    const QImage empty = session_.Picture("Form6", "Picture1");
    session_.Key("Return");
    session_.AnswerBox(1);
    session_.AnswerBox(0);
    session_.WaitForWindow("Form6");
    session_.WaitUntilItChanges("Form6", "Picture1", empty);
    EXPECT_EQ(BytesOf(SaveByKeys("xy.bmp", -5)),
              BatchMap({"--section", "xy", "--position", "5", "--layer", "2", "--component", "EPSx"}));

    // From SAVE PICTURE back to the lines, and to RE-DRAW before them.
    PressTab(-6);  // HELP, PREVIOUS, results, points, legend, lines
    session_.Key("space");
    PressTab(-2);
    Draw([this] { session_.Key("Return"); });
    // RE-DRAW is disabled now, and the fill behind it has the focus.
    EXPECT_EQ(BytesOf(SaveByKeys("lines.bmp", 7)), BatchMap({"--section", "xy", "--position", "5", "--layer", "2",
                                                             "--component", "EPSx", "--items", "fill,lines,legend"}));
    PressTab(2);
    session_.Key("Return");  // QUIT
    session_.AnswerBox();
    EXPECT_EQ(session_.WaitForExit(), 0);
}

}  // namespace
}  // namespace zirvo::window_tests
