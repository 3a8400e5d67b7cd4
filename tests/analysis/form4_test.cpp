// The result viewer: which file in which view, fonts, the way back, the fault of a report that does not fit.
#include "analysis/form4.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "analysis/analysis_screens.h"
#include "forms/tidy_layout.h"
#include "platform/files.h"

namespace zirvo {
namespace {

using forms::Answer;
using forms::FocusOf;
using test::AnalysisScreens;
using test::GetFile;
using test::PutFile;
using Texts = std::vector<std::string>;

/// A line of the table: the point's column and five of 36 characters, told apart by a letter.
std::string TableLine(const std::string& point) {
    std::string line = point + std::string(30 - point.size(), '.');
    for (const char column : {'a', 'b', 'c', 'd', 'e'}) {
        line += std::string(36, column);
    }
    return line;
}

const std::string Report = "head\r\n   ===\r\nmiddle\r\n   ====\r\n" + TableLine("name") + "\r\n" + TableLine("unit") +
                           "\r\n" + TableLine("1") + "\r\n   === end\r\ntail\r\n";

class Form4Test : public testing::Test {
protected:
    AnalysisScreens Screens;

    explicit Form4Test(Int16 languageBase = EnglishBase) : Screens(languageBase) {
        Screens.Scripted.Work = [] {
            PutFile("Untitled.san", "principal values\r\n");
            PutFile("Untitled.bre", Report);
        };
        Screens.ImportAndAnswer(Answer::No);
        Screens.Data().Command7.UserClick();
        Screens.Desktop.Forget();
    }
    Form4& Form() { return Screens.Reports(); }
    std::string Contents() { return Form().txtContents.Text; }
    static std::string Stamped(const std::string& text) { return "   <ZIRVO Ver2.3>\r\n" + text; }
};

class Form4JapaneseTest : public Form4Test {
protected:
    Form4JapaneseTest() : Form4Test(JapaneseBase) {}
};

TEST_F(Form4Test, OpensOnTheWholeReport) {
    EXPECT_EQ(Form().Caption, "- ZIRVO Ver2.3 -");
    EXPECT_FALSE(Form().HasCloseEntry);
    EXPECT_TRUE(Form().Option3.Value);
    EXPECT_TRUE(Form().Option1.Value);
    EXPECT_EQ(Contents(), Stamped(Report));
    EXPECT_TRUE(Form().txtContents.Enabled);
    EXPECT_TRUE(Form().txtContents.MultiLine);
    EXPECT_TRUE(Form().txtContents.Locked);
}

TEST_F(Form4Test, HasItsCaptions) {
    EXPECT_EQ(Form().Frame1.Caption, "1. Output File");
    EXPECT_EQ(Form().Frame2.Caption, "2. Results");
    EXPECT_EQ(Form().Option3.Caption, "RESULTS");
    EXPECT_EQ(Form().Option4.Caption, "PRINC. VAL.");
    EXPECT_EQ(Form().Option1.Caption, "VIEW ALL");
    EXPECT_EQ(Form().Option2.Caption, "VIEW IN SUB-DIVISIONS");
    EXPECT_EQ(Form().Command2.Caption, "PREVIOUS");
    EXPECT_EQ(Form().Command3.Caption, "QUIT");
}

TEST_F(Form4JapaneseTest, HasItsCaptions) {
    EXPECT_EQ(Form().Option4.Caption, "主応力・主ひずみ");
    EXPECT_EQ(Form().Option2.Caption, "分割表示");
}

TEST_F(Form4Test, ItsFontHasOneWidth) {
    EXPECT_EQ(Form().txtContents.Font.Get(), (forms::FontSpec{.Name = "Courier", .Size = 10}));
}

TEST_F(Form4JapaneseTest, ItsFontHasOneWidth) {
    EXPECT_EQ(Form().txtContents.Font.Get(), (forms::FontSpec{.Name = "ＭＳ ゴシック", .Size = 10}));
}

TEST_F(Form4Test, IsScaledToTheScreen) {
    EXPECT_NEAR(Form().Width, 11730 * 1024.0 / 810, 0.01);
    EXPECT_NEAR(Form().Height, 8505 * 768.0 / 640, 0.01);
}

TEST_F(Form4Test, ItsLayoutIsTidy) {
    ExpectTidyLayout(Form());
}

TEST_F(Form4Test, PrincipalValuesAreSeenWholeOnly) {
    Form().Option2.UserClick();
    Form().Option4.UserClick();
    EXPECT_EQ(Contents(), Stamped("principal values\r\n"));
    EXPECT_FALSE(Form().Option2.Enabled);
    EXPECT_FALSE(Form().Option2.Value);
    EXPECT_TRUE(Form().Option1.Value);
    Form().Option2.UserClick();
    EXPECT_EQ(Contents(), Stamped("principal values\r\n"));
}

TEST_F(Form4Test, ResultsBehindPrincipalValuesAreSeenWholeAndCanBeDividedAgain) {
    Form().Option4.UserClick();
    Form().Option3.UserClick();
    EXPECT_TRUE(Form().Option2.Enabled);
    EXPECT_TRUE(Form().Option1.Value);
    EXPECT_EQ(Contents(), Stamped(Report));
}

TEST_F(Form4Test, SubDivisionsAreFiveTablesOfSixtySixCharacters) {
    Form().Option2.UserClick();
    std::string expected = Stamped("head\r\n   ===\r\nmiddle\r\n") + "\r\n   ====\r\n\r\n";
    for (const char column : {'a', 'b', 'c', 'd', 'e'}) {
        for (const char* point : {"name", "unit", "1"}) {
            expected += TableLine(point).substr(0, 30) + std::string(36, column) + "\r\n";
        }
        expected += "\r\n";
    }
    EXPECT_EQ(Contents(), expected);
    EXPECT_TRUE(Form().Option2.Value);
    EXPECT_FALSE(Form().Option1.Value);
}

// The heading of the table has three characters of double width in each of its last four columns.
TEST_F(Form4JapaneseTest, TheFirstLineOfTheTableIsCutNarrower) {
    Form().Option2.UserClick();
    const std::string first = TableLine("name");
    EXPECT_NE(Contents().find("\r\n" + first.substr(0, 30) + first.substr(66, 33) + "\r\n"), std::string::npos);
    const std::string second = TableLine("unit");
    EXPECT_NE(Contents().find("\r\n" + second.substr(0, 30) + second.substr(66, 36) + "\r\n"), std::string::npos);
}

TEST_F(Form4Test, ViewAllBehindSubDivisionsIsTheFileAgain) {
    Form().Option2.UserClick();
    Form().Option1.UserClick();
    EXPECT_EQ(Contents(), Stamped(Report));
}

TEST_F(Form4Test, ViewAllEnablesTheBox) {
    Form().txtContents.Enabled = false;
    Form().Option1.UserClick();
    EXPECT_TRUE(Form().txtContents.Enabled);
}

TEST_F(Form4Test, EveryClickReadsTheFileAgain) {
    PutFile("Untitled.bre", "changed meanwhile\r\n");
    Form().Option1.UserClick();
    EXPECT_EQ(Contents(), "changed meanwhile\r\n");
    PutFile("Untitled.bre", "once more\r\n");
    Form().Option2.UserClick();
    std::string expected = "once more\r\n";
    for (int i = 0; i < 5 * (1 + 2 + 1); ++i) {  // five tables of one point and two headings, all empty
        expected += "\r\n";
    }
    EXPECT_EQ(Contents(), expected);
}

TEST_F(Form4Test, AReportThatIsGoneShowsItsFaultNumberInTheWholeView) {
    std::filesystem::remove("Untitled.bre");
    Form().Option1.UserClick();
    EXPECT_EQ(Contents(), "53");
    EXPECT_EQ(Screens.Desktop.EndStatus, std::nullopt);
}

TEST_F(Form4Test, AReportThatIsGoneEndsTheProgramInTheDividedView) {
    std::filesystem::remove("Untitled.bre");
    Form().Option2.UserClick();
    EXPECT_EQ(Screens.Desktop.BoxHeads(), Texts{"Run-time error '53':\n\nFile not found"});
    EXPECT_EQ(Screens.Desktop.EndStatus, 1);
}

TEST_F(Form4Test, ATableWithMoreRowsThanPointsEndsTheProgram) {
    PutFile("Untitled.bre", Report.substr(0, Report.find("   === end")) + TableLine("2") + "\r\n");
    Form().Option2.UserClick();
    EXPECT_EQ(Screens.Desktop.BoxHeads(), Texts{"Run-time error '9':\n\nSubscript out of range"});
    EXPECT_EQ(Screens.Desktop.EndStatus, 1);
    EXPECT_EQ(GetFile("Untitled.eva"), test::ExampleFile());
}

TEST_F(Form4Test, TheFolderMayEndInASeparator) {
    Screens.App.Get<Form2>().Label2.Caption = Screens.Folder.Path() + "/";
    Form().Option1.UserClick();
    EXPECT_EQ(Contents(), Stamped(Report));
}

TEST_F(Form4Test, TheFolderOfTheScreensCountsAndNotTheCurrentOne) {
    TemporaryFolder elsewhere;
    ChangeFolder(elsewhere.Path());
    Form().Option4.UserClick();
    EXPECT_EQ(Contents(), Stamped("principal values\r\n"));
    ChangeFolder(Screens.Folder.Path());
}

// The way back ------------------------------------------------------------------------------------------------------

TEST_F(Form4Test, PreviousAsksAndUnloadsWhateverTheAnswer) {
    for (const Answer answer : {Answer::Yes, Answer::No}) {
        Screens.Desktop.Forget();
        Screens.Desktop.Answers.push_back(answer);
        Form().Command2.UserClick();
        ASSERT_EQ(Screens.Desktop.Boxes.size(), 1U);
        EXPECT_EQ(
            Screens.Desktop.Boxes[0],
            (forms::Message{.Text = "UPDATE INPUT DATA?", .Title = "ZIRVO Ver2.3", .Choice = forms::Buttons::YesNo}));
        EXPECT_EQ(Screens.Desktop.Log, (Texts{"show Form3", "hide Form4", "gone Form4"}));
        EXPECT_TRUE(Screens.Data().ActiveControl() != nullptr);
        Screens.Data().Command7.Enabled = true;
        Screens.Data().Command7.UserClick();
    }
}

TEST_F(Form4Test, PreviousWithYesTouchesNeitherPreviousNorClearNorTheOptions) {
    Form3& data = Screens.Data();
    data.Command3.Enabled = false;
    data.Command4.Enabled = false;
    data.Option1.Enabled = true;
    Screens.Desktop.Answers.push_back(Answer::Yes);
    Form().Command2.UserClick();
    EXPECT_FALSE(data.Command3.Enabled);
    EXPECT_FALSE(data.Command4.Enabled);
    EXPECT_TRUE(data.Option1.Enabled);
    EXPECT_FALSE(data.Option2.Enabled);
}

TEST_F(Form4Test, PreviousWithYesLeavesDataOkAsTheOnlyStepOn) {
    Form3& data = Screens.Data();
    data.Command5.Enabled = false;
    data.Command6.Enabled = true;
    data.Command7.Enabled = true;
    Screens.Desktop.Answers.push_back(Answer::Yes);
    Form().Command2.UserClick();
    EXPECT_TRUE(data.Command5.Enabled);
    EXPECT_FALSE(data.Command6.Enabled);
    EXPECT_FALSE(data.Command7.Enabled);
}

TEST_F(Form4Test, PreviousWithNoTouchesNeitherTheBarsNorDataOkNorSave) {
    Form3& data = Screens.Data();
    data.EnableBars(true);
    data.Command5.Enabled = true;
    data.Command6.Enabled = true;
    Screens.Desktop.Answers.push_back(Answer::No);
    Form().Command2.UserClick();
    EXPECT_TRUE(data.VScroll1.Enabled);
    EXPECT_TRUE(data.Command5.Enabled);
    EXPECT_TRUE(data.Command6.Enabled);
}

TEST_F(Form4Test, ANewRunLoadsTheViewerAnew) {
    Form().Option4.UserClick();
    Screens.Desktop.Answers.push_back(Answer::No);
    Form().Command2.UserClick();
    Screens.Data().Command7.UserClick();
    EXPECT_TRUE(Form().Option3.Value);
    EXPECT_EQ(Contents(), Stamped(Report));
}

TEST_F(Form4Test, QuitEndsTheProgramWithoutAQuestion) {
    Form().Command3.UserClick();
    EXPECT_EQ(Screens.Desktop.EndStatus, 0);
    EXPECT_TRUE(Screens.Desktop.Boxes.empty());
}

TEST_F(Form4Test, TabGoesThroughChoicesContentsAndButtons) {
    Form().Option3.UserFocus();
    Texts order;
    for (int i = 0; i < 5; ++i) {
        order.push_back(FocusOf(Form()));
        forms::Press(Form(), forms::key::Tab);
    }
    EXPECT_EQ(order, (Texts{"Option3", "Option1", "txtContents", "Command2", "Command3"}));
}

TEST_F(Form4Test, APrintedCopyIsCalledAsItsReport) {
    EXPECT_EQ(Form().PageName, "Untitled.bre");
    Form().Option4.UserClick();
    EXPECT_EQ(Form().PageName, "Untitled.san");
    Form().Option3.UserClick();
    Form().Option2.UserClick();
    EXPECT_EQ(Form().PageName, "Untitled.bre");
}

}  // namespace
}  // namespace zirvo
