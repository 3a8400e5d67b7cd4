// The tables of the real program as the user of a spreadsheet takes them: blocks from another program, undoing, large
// counts, the cell that a rule refuses, and data that are only read.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "desktop/desktop_session.h"

namespace zirvo::window_tests {
namespace {

namespace fs = std::filesystem;

class Tables : public testing::TestWithParam<forms::Language> {
protected:
    /// Up to the data screen of that objective, with kN and MPa.
    void GoTo(const char* form, int objective) {
        session_.StartAt(objective, GetParam());
        session_.WaitForWindow(form);
    }
    /// NEW DATA, and one row in each table.
    void NewData(const char* form, std::initializer_list<const char*> bars) {
        session_.Click(form, "Option1");
        for (const char* bar : bars) {
            TypeCount(form, bar, "1");
        }
    }
    /// A count by its digits, in the bar that a click beside the thumb has given the focus.
    void TypeCount(const char* form, const char* bar, const char* digits) {
        session_.Click(form, bar);
        session_.Type(digits);
        session_.Key("Return");
    }
    /// Puts a block into the table from its first cell on: the row is the second one, the column is found by the key.
    void PasteInto(const char* form, const char* grid, const std::string& block) {
        session_.PutOnClipboard(block);
        session_.ClickAt(form, grid, {100, 26});
        session_.Key("Home");
        session_.Key("ctrl+v");
    }
    /// The same of a block that changes the count, waited for.
    void PasteInto(const char* form, const char* grid, const char* count, const std::string& block) {
        const QImage before = session_.Picture(form, count);
        PasteInto(form, grid, block);
        session_.WaitUntilItChanges(form, count, before);
    }
    static std::string Points(int count, int bad) {
        std::string rows;
        for (int i = 1; i <= count; ++i) {
            rows += "1\t" + std::to_string(i) + "\t0\t" + (i == bad ? "-5" : "5") + "\r\n";
        }
        return rows;
    }
    std::string BytesOf(const char* file) const {
        std::ifstream in(session_.WorkFolder() / file, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    DesktopSession session_;
};

constexpr const char* Layers = "5000\t0.35\t15\t0\r\n500\t0.4\r\n";
constexpr const char* Loads = "49\t15\t0\t0\t0\t0\n49\t15\t100\t0\t0\t0\n";

TEST_P(Tables, BlocksOfASpreadsheetArePastedUndoneAndSaved) {
    GoTo("Form3", 1);
    NewData("Form3", {"VScroll1", "VScroll2", "VScroll3"});
    PasteInto("Form3", "MSFlexGrid1", "Label7", Layers);
    PasteInto("Form3", "MSFlexGrid2", "Label8", Loads);
    PasteInto("Form3", "MSFlexGrid3", "Label9", Points(60, 0));
    const QImage pasted = session_.Picture("Form3", "Label9");
    session_.Key("ctrl+z");  // the points
    session_.WaitUntilItChanges("Form3", "Label9", pasted);
    session_.Key("ctrl+y");
    session_.WaitFor("the count of the points", [&] { return session_.Picture("Form3", "Label9") == pasted; });
    session_.Click("Form3", "Command4");  // CLEAR FORM, by a slip
    session_.WaitUntilItChanges("Form3", "Label9", pasted);
    session_.Key("ctrl+z");
    session_.WaitFor("the count of the points", [&] { return session_.Picture("Form3", "Label9") == pasted; });
    session_.Click("Form3", "Command5");
    session_.Click("Form3", "Command6");
    session_.WaitFor("the saved file", [&] { return fs::exists(session_.WorkFolder() / "Untitled.eva"); });
    const std::string saved = BytesOf("Untitled.eva");
    EXPECT_NE(saved.find("\r\n         5000             0.35               15               0\r\n"), std::string::npos);
    EXPECT_NE(saved.find("\r\n    1              60            0            5\r\n"), std::string::npos);
}

TEST_P(Tables, ATableIsCopiedWithItsHeadings) {
    GoTo("Form5", 2);
    NewData("Form5", {"VScroll1", "VScroll2"});
    PasteInto("Form5", "MSFlexGrid1", "Label4", Layers);
    session_.Key("ctrl+a");
    session_.Key("ctrl+c");
    const bool japanese = GetParam() == forms::Language::Japanese;
    const std::string headings = japanese ? "\t弾性係数 (MPa)\tﾎﾟｱｿﾝ比\t層厚 (cm)\t層間すべり率\n"
                                          : "\tMODULUS(MPa)\tPOISSON RATIO\tTHICKNESS(cm)\tSLIP RATE\n";
    const std::string layer = japanese ? "層" : "LAYER";
    EXPECT_EQ(session_.Clipboard(), headings + layer + " 1\t5000\t0.35\t15\t0\n" + layer + " 2\t500\t0.4\t\t");
}

TEST_P(Tables, ATableThatWasCopiedWithItsHeadingsIsPastedBack) {
    GoTo("Form5", 2);
    NewData("Form5", {"VScroll1", "VScroll2"});
    PasteInto("Form5", "MSFlexGrid1", "Label4", Layers);
    PasteInto("Form5", "MSFlexGrid2", "Label5", Loads);
    session_.ClickAt("Form5", "MSFlexGrid1", {100, 26});
    session_.Key("ctrl+a");
    session_.Key("ctrl+c");
    const std::string copy = session_.Clipboard();
    const QImage two = session_.Picture("Form5", "Label4");
    TypeCount("Form5", "VScroll1", "1");
    session_.WaitUntilItChanges("Form5", "Label4", two);
    PasteInto("Form5", "MSFlexGrid1", "Label4", copy + "\n");
    EXPECT_FALSE(session_.IsShown("MessageBox"));
    session_.Click("Form5", "Command5");
    session_.Click("Form5", "Command6");
    session_.WaitFor("the saved file", [&] { return fs::exists(session_.WorkFolder() / "Untitled.ven"); });
    const std::string saved = BytesOf("Untitled.ven");
    EXPECT_NE(saved.find("\r\n         5000             0.35               15               0\r\n"), std::string::npos);
    EXPECT_NE(saved.find("\r\n          500              0.4\r\n"), std::string::npos);
}

TEST_P(Tables, ABlockThatCannotBeTypedIsRefusedInABox) {
    GoTo("Form3", 1);
    NewData("Form3", {"VScroll1"});
    const QImage before = session_.Picture("Form3", "Label7");
    PasteInto("Form3", "MSFlexGrid1", "5000\t0.35\n1,000\t0.4\n");
    session_.WaitForWindow("MessageBox");
    EXPECT_EQ(session_.TitleOf("MessageBox"), "ZIRVO Ver2.3");
    session_.AnswerBox();
    session_.WaitForWindow("Form3");
    EXPECT_EQ(session_.Picture("Form3", "Label7"), before);
}

TEST_P(Tables, TheCellThatARuleRefusesComesIntoSightAndIsMarked) {
    GoTo("Form3", 1);
    NewData("Form3", {"VScroll1", "VScroll2", "VScroll3"});
    PasteInto("Form3", "MSFlexGrid1", "Label7", Layers);
    PasteInto("Form3", "MSFlexGrid2", "Label8", Loads);
    PasteInto("Form3", "MSFlexGrid3", "Label9", Points(60, 55));
    session_.Click("Form3", "Command5");
    session_.AnswerBox();
    session_.AnswerBox();
    session_.WaitForWindow("Form3");
    const QImage marked = session_.Picture("Form3", "MSFlexGrid3");
    int red = 0;
    for (int y = 0; y < marked.height(); ++y) {
        for (int x = 0; x < marked.width(); ++x) {
            red += marked.pixelColor(x, y) == QColor(0xC0, 0, 0) ? 1 : 0;
        }
    }
    EXPECT_GT(red, 50);  // the frame of a cell
}

TEST_P(Tables, ADraggedThumbShowsItsNumberAndDigitsSetACount) {
    GoTo("Form3", 1);
    session_.Click("Form3", "Option1");
    const QImage zero = session_.Picture("Form3", "Label9");
    const QImage frame = session_.Picture("Form3", "Frame2");
    const QSize bar = session_.Picture("Form3", "VScroll3").size();
    const QPoint thumb(bar.width() / 2, bar.height() - 24);  // at the bottom, over the lower arrow
    session_.PressAt("Form3", "VScroll3", thumb);
    session_.MoveTo("Form3", "VScroll3", thumb - QPoint(0, 10));
    session_.WaitUntilItChanges("Form3", "Frame2", frame);
    session_.MoveTo("Form3", "VScroll3", thumb - QPoint(0, 14));
    EXPECT_EQ(session_.Picture("Form3", "Label9"), zero);  // until it is released
    session_.Release();
    session_.WaitUntilItChanges("Form3", "Label9", zero);
    const QImage dragged = session_.Picture("Form3", "Label9");
    session_.Type("9999");
    session_.Key("Return");
    session_.WaitUntilItChanges("Form3", "Label9", dragged);
    session_.Key("ctrl+z");
    session_.WaitFor("the count that was dragged", [&] { return session_.Picture("Form3", "Label9") == dragged; });
}

TEST_P(Tables, ImportedDataAreReadToTheLastRowBeforeTheirRun) {
    GoTo("Form3", 1);
    fs::copy(fs::path(ZIRVO_SAMPLES) / "motorway.eva", session_.WorkFolder());
    session_.Click("Form3", "Option2");
    session_.Click("Form3", "Command1");
    session_.GivePath("FileDialog", "motorway.eva");
    session_.AnswerBox(1);  // as it is: the tables are locked
    session_.WaitForWindow("Form3");
    QImage before = session_.Picture("Form3", "MSFlexGrid3");
    session_.TurnWheel("Form3", "MSFlexGrid3", 2);
    session_.WaitUntilItChanges("Form3", "MSFlexGrid3", before);
    before = session_.Picture("Form3", "MSFlexGrid3");
    session_.ClickAt("Form3", "MSFlexGrid3", {before.width() - 9, before.height() - 28});  // its bar, below the thumb
    session_.WaitUntilItChanges("Form3", "MSFlexGrid3", before);
    session_.Key("Return");  // the focus is still on ANALYZE
    session_.WaitForWindow("Form4");
}

INSTANTIATE_TEST_SUITE_P(Languages, Tables, testing::Values(forms::Language::English, forms::Language::Japanese),
                         [](const auto& chosen) {
                             return chosen.param == forms::Language::Japanese ? "Japanese" : "English";
                         });

}  // namespace
}  // namespace zirvo::window_tests
