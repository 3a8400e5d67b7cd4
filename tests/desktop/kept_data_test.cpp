// What was typed comes back in the real program: after a run-time error, after a crash, after PREVIOUS.
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

#include "desktop/desktop_session.h"
#include "kept/kept_json.h"

namespace zirvo::window_tests {
namespace {

namespace fs = std::filesystem;

class KeptDataScreens : public testing::TestWithParam<forms::Language> {
protected:
    /// Up to the data screen of that objective, with kN and MPa; what is asked there is not answered yet.
    void GoThere(int objective = 1) { session_.StartAt(objective, GetParam()); }
    void Keys(const char* key, int times) {
        for (int i = 0; i < times; ++i) {
            session_.Key(key);
        }
    }
    void TypeCells(std::initializer_list<const char*> cells) {
        for (const char* cell : cells) {
            session_.Type(cell);
            session_.Key("Return");
        }
    }
    /// New data of one layer and one load, and a point whose cells are empty; the focus stays on the loads.
    void TypeAllButThePoint() {
        session_.Key("space");
        Keys("Tab", 1);
        session_.Key("Up");
        Keys("Tab", 1);
        session_.Key("Up");
        Keys("Tab", 1);
        session_.Key("Up");
        Keys("Tab", 1);
        TypeCells({"1234", "0.35"});
        Keys("Tab", 1);
        TypeCells({"49", "15", "0", "0", "0", "0"});
    }
    /// What is kept of a screen.
    std::optional<KeptScreen> Kept(const std::string& form) const {
        std::error_code error;
        const fs::path folder = session_.StateFolder() / "zirvo" / "kept";
        for (fs::recursive_directory_iterator entry(folder, error), end; !error && entry != end;
             entry.increment(error)) {
            if (entry->path().filename() == form + ".json") {
                return ReadKeptJson(BytesOf(entry->path()));
            }
        }
        return std::nullopt;
    }
    /// Until all that TypeAllButThePoint types is kept.
    void WaitForTheLastCell(const std::string& form) {
        session_.WaitFor("the last cell to be kept", [&] {
            const std::optional<KeptScreen> kept = Kept(form);
            return kept && kept->Tables[1].Rows() == 1 && kept->Tables[1].Cells.back() == "0";
        });
    }
    std::string Saved(const char* name) const { return BytesOf(session_.WorkFolder() / name); }
    /// The user quits a screen on which nothing is asked.
    void QuitFromAFreshScreen(const std::string& form) {
        session_.WaitForWindow(form);
        session_.Click(form, "Command9");
        EXPECT_EQ(session_.WaitForExit(), 0);
    }

    DesktopSession session_;
};

TEST_P(KeptDataScreens, ARunTimeErrorTakesNothingWithIt) {
    GoThere();
    session_.WaitForWindow("Form3");
    TypeAllButThePoint();
    session_.Click("Form3", "Command5");  // the empty layer of the point is error 13
    session_.WaitForWindow("MessageBox");
    EXPECT_TRUE(Kept("Form3").has_value());
    session_.AnswerBox();
    EXPECT_EQ(session_.WaitForExit(), 1);

    GoThere();
    session_.WaitForWindow("MessageBox");
    EXPECT_EQ(session_.TitleOf("MessageBox"), "ZIRVO Ver2.3");
    session_.AnswerBox(0);
    session_.WaitForWindow("Form3");
    session_.ClickAt("Form3", "MSFlexGrid3", {110, 26});  // in the second row of 17 pixels each
    session_.Key("Home");
    TypeCells({"1", "0", "0", "15"});
    session_.Click("Form3", "Command5");
    session_.Click("Form3", "Command6");
    session_.WaitFor("the saved file", [this] { return fs::exists(session_.WorkFolder() / "Untitled.eva"); });
    EXPECT_NE(Saved("Untitled.eva").find("\r\n         1234             0.35\r\n"), std::string::npos);
    session_.WaitFor("the kept data to go", [this] { return !Kept("Form3").has_value(); });
    session_.Click("Form3", "Command9");
    EXPECT_EQ(session_.WaitForExit(), 0);

    GoThere();
    QuitFromAFreshScreen("Form3");
}

TEST_P(KeptDataScreens, ACrashTakesNothingWithItAndNoIsNoLoss) {
    GoThere();
    session_.WaitForWindow("Form3");
    TypeAllButThePoint();
    WaitForTheLastCell("Form3");
    session_.Kill();

    GoThere();
    session_.AnswerBox(1);  // a slip
    QuitFromAFreshScreen("Form3");

    GoThere();
    session_.AnswerBox(0);
    session_.WaitForWindow("Form3");
    session_.Click("Form3", "Command3");
    session_.WaitForWindow("Form2");
    session_.Key("Return");
    session_.WaitForWindow("MessageBox");  // PREVIOUS has kept them too
    session_.AnswerBox(0);
    session_.WaitForWindow("Form3");
    session_.Click("Form3", "Command5");
    session_.WaitForWindow("MessageBox");
    session_.AnswerBox();
    EXPECT_EQ(session_.WaitForExit(), 1);  // the point has its empty cells again, which is error 13
}

// Ctrl+Z takes the filling back, Ctrl+Y brings it again; a slip on CLEAR FORM costs nothing, and is no data of its own.
TEST_P(KeptDataScreens, UndoingAndKeptDataGoTogether) {
    GoThere();
    session_.WaitForWindow("Form3");
    TypeAllButThePoint();
    WaitForTheLastCell("Form3");
    session_.Kill();

    GoThere();
    session_.AnswerBox(0);
    session_.WaitForWindow("Form3");
    const QImage filled = session_.Picture("Form3", "Label7");
    session_.Key("ctrl+z");
    session_.WaitUntilItChanges("Form3", "Label7", filled);
    session_.Key("ctrl+y");
    session_.WaitFor("the data again", [&] { return session_.Picture("Form3", "Label7") == filled; });
    session_.Click("Form3", "Command4");  // CLEAR FORM
    session_.WaitUntilItChanges("Form3", "Label7", filled);
    session_.Key("ctrl+z");
    session_.WaitFor("the data again", [&] { return session_.Picture("Form3", "Label7") == filled; });
    session_.ClickAt("Form3", "MSFlexGrid3", {110, 26});
    session_.Key("Home");
    TypeCells({"1", "0", "0", "15"});
    session_.Click("Form3", "Command5");
    session_.Click("Form3", "Command6");
    session_.WaitFor("the saved file", [this] { return fs::exists(session_.WorkFolder() / "Untitled.eva"); });
    session_.WaitForWindow("Form3");
    session_.Click("Form3", "Command9");
    EXPECT_EQ(session_.WaitForExit(), 0);

    GoThere();
    QuitFromAFreshScreen("Form3");
}

TEST_P(KeptDataScreens, TheDataOfAMapComeBackToo) {
    GoThere(2);
    session_.WaitForWindow("Form5");
    session_.Key("space");
    Keys("Tab", 1);
    session_.Key("Up");
    Keys("Tab", 1);
    session_.Key("Up");
    Keys("Tab", 1);
    TypeCells({"1234", "0.35"});
    Keys("Tab", 1);
    TypeCells({"49", "15", "0", "0", "0", "0"});
    WaitForTheLastCell("Form5");
    session_.Click("Form5", "Command9");
    EXPECT_EQ(session_.WaitForExit(), 0);

    GoThere(2);
    session_.AnswerBox(0);
    session_.WaitForWindow("Form5");
    session_.Key("Return");  // DATA OK! has the focus, then SAVE DATA
    session_.Key("Return");
    session_.WaitFor("the saved file", [this] { return fs::exists(session_.WorkFolder() / "Untitled.ven"); });
    EXPECT_NE(Saved("Untitled.ven").find("1234"), std::string::npos);
    session_.Click("Form5", "Command9");
    EXPECT_EQ(session_.WaitForExit(), 0);
}

INSTANTIATE_TEST_SUITE_P(Languages, KeptDataScreens,
                         testing::Values(forms::Language::English, forms::Language::Japanese), [](const auto& chosen) {
                             return chosen.param == forms::Language::Japanese ? "Japanese" : "English";
                         });

}  // namespace
}  // namespace zirvo::window_tests
