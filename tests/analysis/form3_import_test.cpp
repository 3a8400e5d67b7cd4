// The import of the data screen: what it asks of the dialog, what it refuses and how, what stands on the screen behind.
#include <gtest/gtest.h>

#include <filesystem>

#include "analysis/analysis_screens.h"
#include "platform/files.h"
#include "shell/start_file.h"

namespace zirvo {
namespace {

using forms::Answer;
using forms::FocusOf;
using test::AnalysisScreens;
using test::ExampleFile;
using test::Replaced;
using Texts = std::vector<std::string>;

class Form3Import : public testing::Test {
protected:
    AnalysisScreens Screens;
    Form3& Form = Screens.Data();

    Texts Boxes() const { return Screens.Desktop.BoxHeads(); }
    void ExpectNothingShown() {
        EXPECT_EQ(Form.Label7.Caption, "0");
        EXPECT_EQ(Form.Text7.Text, "");
        EXPECT_EQ(Form.MSFlexGrid1.Rows, 1);
        EXPECT_TRUE(Form.Command1.Enabled);
        EXPECT_TRUE(Form.Option1.Enabled);
        EXPECT_EQ(Screens.Desktop.EndStatus, std::nullopt);
    }
};

TEST_F(Form3Import, AsksForAFileOfTheFolder) {
    Screens.Desktop.Paths.emplace_back(std::nullopt);
    Form.Option2.UserClick();
    EXPECT_EQ(FocusOf(Form), "Command1");
    Form.Command1.UserClick();
    ASSERT_EQ(Screens.Desktop.Dialogs.size(), 1U);
    const forms::FileDialog& asked = Screens.Desktop.Dialogs[0].Asked;
    EXPECT_EQ(Screens.Desktop.Dialogs[0].What, forms::ScriptedDesktop::Dialog::Kind::Open);
    EXPECT_EQ(asked.Owner, &Form);
    EXPECT_EQ(asked.Title, "Select Input File");
    EXPECT_EQ(asked.Folder, Screens.Folder.Path());
    EXPECT_EQ(asked.Filter, "ZIRVO Files (*.eva)|*.eva");
    EXPECT_EQ(asked.FilterIndex, 1);
    EXPECT_EQ(asked.StartName, "");
    EXPECT_TRUE(asked.FileMustExist);
    EXPECT_TRUE(asked.PathMustExist);
    EXPECT_EQ(asked.Words, forms::Language::English);
    EXPECT_TRUE(Boxes().empty());
    ExpectNothingShown();
}

TEST_F(Form3Import, ShowsTheWholeModel) {
    Screens.ImportAndAnswer(Answer::Yes);
    EXPECT_EQ(Form.Label7.Caption, " 2");
    EXPECT_EQ(Form.Label8.Caption, " 1");
    EXPECT_EQ(Form.Label9.Caption, " 1");
    EXPECT_EQ(Form.VScroll1.Value, 2);
    EXPECT_EQ(Form.VScroll2.Value, 1);
    EXPECT_EQ(Form.VScroll3.Value, 1);
    EXPECT_EQ(Form.Text7.Text, "Untitled.eva");
    EXPECT_EQ(Form.Text8.Text, "Untitled.bre");
    EXPECT_EQ(Form.Text1.Text, "Untitled.san");
    const Texts layers{"LAYER 1", "35000", "0.35", "5", "0"};
    const Texts loads{"LOAD 1", "49", "15", "0", "0", "0", "0"};
    const Texts points{"POINT 1", "1", "0", "0", "5"};
    for (int col = 0; col < 7; ++col) {
        const auto at = static_cast<std::size_t>(col);
        EXPECT_EQ(Form.MSFlexGrid2.TextMatrix(1, col), loads[at]);
        if (col < 5) {
            EXPECT_EQ(Form.MSFlexGrid1.TextMatrix(1, col), layers[at]);
            EXPECT_EQ(Form.MSFlexGrid3.TextMatrix(1, col), points[at]);
        }
    }
    EXPECT_EQ(Form.MSFlexGrid1.TextMatrix(2, 1), "1000");
    EXPECT_EQ(Form.MSFlexGrid1.TextMatrix(2, 2), "0.4");
}

TEST_F(Form3Import, LeavesThicknessAndSlipOfTheLastLayerAsTheyStand) {
    Screens.Desktop.Answers.push_back(Answer::No);
    test::PutFile("Untitled.eva", ExampleFile());
    Screens.Desktop.Paths.emplace_back(Screens.Folder.Path("Untitled.eva"));
    Form.Option2.UserClick();
    Form.MSFlexGrid1.Rows = 3;
    Form.MSFlexGrid1.SetTextMatrix(2, 3, "thickness");
    Form.MSFlexGrid1.SetTextMatrix(2, 4, "slip");
    Form.Command1.UserClick();
    EXPECT_EQ(Form.MSFlexGrid1.TextMatrix(2, 1), "1000");
    EXPECT_EQ(Form.MSFlexGrid1.TextMatrix(2, 3), "thickness");
    EXPECT_EQ(Form.MSFlexGrid1.TextMatrix(2, 4), "slip");
}

// The counts go to "0" before the file is chosen, so a user never meets the rule above.
TEST_F(Form3Import, RowsOfTheDataBeforeAreGone) {
    Screens.ImportAndAnswer(Answer::Yes);
    Form.MSFlexGrid1.SetTextMatrix(2, 3, "before");
    Form.Command4.UserClick();
    Screens.ImportAndAnswer(Answer::Yes);
    EXPECT_EQ(Form.MSFlexGrid1.TextMatrix(2, 3), "");
}

TEST_F(Form3Import, AnyAnswerButNoMeansUpdate) {
    Screens.ImportAndAnswer(Answer::Cancel);
    EXPECT_EQ(Boxes(), Texts{"UPDATE INPUT FILE?"});
    EXPECT_EQ(FocusOf(Form), "Command5");
    EXPECT_TRUE(Form.Text7.Enabled);
    EXPECT_TRUE(Form.MSFlexGrid1.Enabled);
}

TEST_F(Form3Import, NoDisablesTheBarsAndGridsWhateverTheyWere) {
    Screens.Desktop.OnBox = [&](const forms::Message&) { Form.EnableBars(true); };
    Screens.ImportAndAnswer(Answer::No);
    EXPECT_FALSE(Form.VScroll1.Enabled || Form.VScroll2.Enabled || Form.VScroll3.Enabled);
    EXPECT_FALSE(Form.MSFlexGrid1.Enabled || Form.MSFlexGrid2.Enabled || Form.MSFlexGrid3.Enabled);
}

TEST_F(Form3Import, TheQuestionComesWhenTheDataStands) {
    std::string seen;
    Screens.Desktop.OnBox = [&](const forms::Message&) { seen = Form.MSFlexGrid3.TextMatrix(1, 4); };
    Screens.ImportAndAnswer(Answer::No);
    EXPECT_EQ(seen, "5");
}

// What is refused ---------------------------------------------------------------------------------------------------

struct Refusal {
    const char* Name;
    const char* From;
    const char* To;
    const char* Message;
    const char* Focus;
};

class Form3ImportRefusal : public Form3Import, public testing::WithParamInterface<Refusal> {};

TEST_P(Form3ImportRefusal, SaysWhichGroupAndLeavesTheScreen) {
    const Refusal& row = GetParam();
    Screens.Import(Replaced(ExampleFile(), row.From, row.To));
    const Texts expected = *row.Message == '\0' ? Texts{} : Texts{row.Message, "ANALYSIS STOPPED - CHECK INPUT DATA"};
    EXPECT_EQ(Boxes(), expected);
    if (!expected.empty()) {
        EXPECT_EQ(Screens.Desktop.Boxes[0].Picture, forms::Icon::Exclamation);
        EXPECT_EQ(Screens.Desktop.Boxes[1].Picture, forms::Icon::Stop);
    }
    EXPECT_EQ(FocusOf(Form), row.Focus);
    ExpectNothingShown();
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Form3ImportRefusal,
    testing::Values(
        Refusal{"ResultsWithAnotherEnd", "Untitled.bre", "Untitled.txt", "OUTPUT FILE ERROR!", "Command9"},
        Refusal{"ResultsWithoutAPoint", "Untitled.bre", "Untitled", "OUTPUT FILE ERROR!", "Command9"},
        Refusal{"ResultsWithTwoPoints", "Untitled.bre", "a.b.bre", "OUTPUT FILE ERROR!", "Command9"},
        Refusal{"NoResults", "Untitled.bre", "", "OUTPUT FILE ERROR!", "Command1"},
        Refusal{"PrincipalsWithAnotherEnd", "Untitled.san", "Untitled.SAN", "OUTPUT FILE ERROR!", "Command9"},
        Refusal{"PrincipalsWithoutAPoint", "Untitled.san", "Untitled", "OUTPUT FILE ERROR!", "Command1"},
        Refusal{"NoPrincipals", "Untitled.san", "", "OUTPUT FILE ERROR!", "Command1"},
        Refusal{"NoLoads", "  2         1          1", "  2         0          1", "INITIAL SETTING ERROR!",
                "Command9"},
        Refusal{"AnUpperLayer", "0.35", "0.75", "LAYER PROPERTIES ERROR!", "Command1"},
        Refusal{"TheLastLayer", " 0.4\r", " 0.6\r", "LAYER PROPERTIES ERROR!", "Command9"},
        Refusal{"ALoad", "        49 ", "         0 ", "LOAD ERROR!", "Command9"},
        Refusal{"APoint", "            5\r\n", "            6\r\n", "MEASUREMENT POINT ERROR!", "Command9"},
        Refusal{"APointOfNoLayer", "\r\n    1   ", "\r\n    3   ", "MEASUREMENT POINT ERROR!", "Command9"},
        Refusal{"AFileThatEndsEarly", "            5\r\n", "", "", "Command1"},
        Refusal{"ANumberThatIsNone", "35000", "abcde", "", "Command1"},
        Refusal{"TooManyLayers", "  2         1          1", "101         1          1", "", "Command1"},
        Refusal{"ACountBeyondSixteenBits", "         1          1", "         1     100000", "", "Command1"}),
    [](const auto& chosen) { return std::string(chosen.param.Name); });

TEST_F(Form3Import, AFileOfZeroBytesIsRefusedWithoutAWord) {
    Screens.Import("");
    EXPECT_TRUE(Boxes().empty());
    ExpectNothingShown();
}

TEST_F(Form3Import, AFileOfAnotherFolderIsRefusedEvenIfItIsFine) {
    TemporaryFolder other;
    Screens.Desktop.Paths.emplace_back(other.Put("Untitled.eva", ExampleFile()));
    Form.Option2.UserClick();
    Form.Command1.UserClick();
    EXPECT_EQ(Boxes(), Texts{"USE DATA FROM DESIGNATED FOLDER"});
    EXPECT_EQ(Screens.Desktop.Boxes[0].Picture, forms::Icon::Stop);
    EXPECT_EQ(CurrentFolder(), other.Path());  // the dialog has moved it
    ExpectNothingShown();
    ChangeFolder(Screens.Folder.Path());
}

TEST_F(Form3Import, TheFolderIsComparedAsText) {
    for (const std::string& folder :
         {Screens.Folder.Path() + "/", Screens.Folder.Path("."), "/" + Screens.Folder.Path()}) {
        Screens.App.Get<Form2>().Label2.Caption = folder;
        Screens.Desktop.Forget();
        Screens.Import(ExampleFile());
        EXPECT_EQ(Boxes(), Texts{"USE DATA FROM DESIGNATED FOLDER"}) << folder;
    }
}

TEST_F(Form3Import, AFileThatIsGoneIsToldSo) {
    Screens.Desktop.Paths.emplace_back(Screens.Folder.Path("gone.eva"));
    Form.Option2.UserClick();
    Form.Command1.UserClick();
    EXPECT_EQ(Boxes(), Texts{"INPUT FILE DOES NOT EXIST OR EMPTY"});
    EXPECT_EQ(Screens.Desktop.Boxes[0].Picture, forms::Icon::Stop);
    ExpectNothingShown();
}

TEST_F(Form3Import, AFolderThatIsGoneEndsTheImportWithoutAWord) {
    Screens.Desktop.Paths.emplace_back(Screens.Folder.Path("gone/Untitled.eva"));
    Form.Option2.UserClick();
    Form.Command1.UserClick();
    EXPECT_TRUE(Boxes().empty());
    ExpectNothingShown();
}

TEST_F(Form3Import, AFileOfTheOtherLanguageAndUnitsIsReadWithoutAWord) {
    const PavementModel model = test::ExampleModel();
    Screens.ImportAndAnswer(Answer::Yes, WriteAnalysisInput(model, UnitSystem::KgfToKgf, JapaneseBase));
    EXPECT_EQ(Boxes(), Texts{"UPDATE INPUT FILE?"});
    EXPECT_EQ(Form.MSFlexGrid1.TextMatrix(0, 1), "MODULUS(MPa)");
    EXPECT_EQ(Form.MSFlexGrid1.TextMatrix(1, 1), "35000");
}

TEST_F(Form3Import, ThePointsOfTheFileReachTheirLimit) {
    PavementModel model = test::ExampleModel();
    model.PointCount = MaximumPoints;
    for (int i = 1; i <= MaximumPoints; ++i) {
        model.Points[i] = {1, i + 0.25, 0, 5};
    }
    Screens.ImportAndAnswer(Answer::Yes, WriteAnalysisInput(model, UnitSystem::KnToMPa, EnglishBase));
    EXPECT_EQ(Form.Label9.Caption, " 10000");
    EXPECT_EQ(Form.VScroll3.Value, 10000);
    EXPECT_EQ(Form.MSFlexGrid3.Rows, 10001);
    EXPECT_EQ(Form.MSFlexGrid3.TextMatrix(10000, 0), "POINT 10000");
    EXPECT_EQ(Form.MSFlexGrid3.TextMatrix(10000, 2), "10000.25");
    Form.Command5.UserClick();
    EXPECT_TRUE(Form.Command6.Enabled);
}

// Every sample of the program reads, checks and is written back with the same bytes.
TEST_F(Form3Import, EverySampleIsWrittenBackAsItWas) {
    int samples = 0;
    for (const auto& entry : std::filesystem::directory_iterator(ZIRVO_SAMPLES)) {
        if (entry.path().extension() != ".eva") {
            continue;
        }
        ++samples;
        const std::string bytes = test::GetFile(entry.path().string());
        Screens.Desktop.Forget();
        Form.Command4.UserClick();
        Screens.ImportAndAnswer(Answer::Yes, bytes);
        EXPECT_EQ(Boxes(), Texts{"UPDATE INPUT FILE?"}) << entry.path();
        Form.Text7.Text = "copy";
        Form.Command5.UserClick();
        std::filesystem::remove("copy.eva");
        Form.Command6.UserClick();
        // The headings are those of the screen's units and language; the numbers are the file's.
        const AnalysisInputResult before = ReadAnalysisInput(entry.path().string());
        const AnalysisInputResult after = ReadAnalysisInput("copy.eva");
        ASSERT_TRUE(before.Passed() && after.Passed()) << entry.path();
        EXPECT_EQ(*after, *before) << entry.path();
    }
    EXPECT_GE(samples, 5);
}

TEST_F(Form3Import, AFileThatIsDroppedGoesTheSameWayWithoutTheDialog) {
    test::PutFile("road.eva", ExampleFile());
    const std::string path = Screens.Folder.Path("road.eva");
    ASSERT_TRUE(Form.TakesFile(path));
    EXPECT_FALSE(Form.TakesFile(Screens.Folder.Path("road.ven")));
    Screens.Desktop.Answers.push_back(Answer::No);
    Form.UserDrop(path);
    EXPECT_TRUE(Screens.Desktop.Dialogs.empty());
    EXPECT_EQ(Boxes(), Texts{"UPDATE INPUT FILE?"});
    EXPECT_EQ(Form.Text7.Text, "road.eva");
    EXPECT_EQ(Form.Label7.Caption, " 2");
    EXPECT_EQ(FocusOf(Form), "Command7") << "ANALYZE, as behind OPEN FILE";
    EXPECT_FALSE(Form.TakesFile(path)) << "data stand here now";
}

/// The same screens, started with that file.
class Form3Start : public testing::Test {
protected:
    void StartWith(const std::string& name) {
        test::PutFile(Screens.Folder.Path(name), ExampleFile());
        Start = StartFile(Screens.Folder.Path(name));
        Screens.App.Register("Form3", [this](forms::Application& app) {
            auto form = std::make_unique<test::TestedForm3>(app, Screens.Scripted, Screens.Program.Path());
            form->ImportAtStart(Start);
            return form;
        });
        ComeUp();
    }
    void ComeUp() {
        Screens.App.Dispatch([this] { Screens.Data().Unload(); });
        Screens.App.Show("Form3");
    }

    AnalysisScreens Screens;
    StartFile Start;
};

TEST_F(Form3Start, TheFileIsImportedOnceTheScreenIsUpAndNotAgain) {
    Screens.Desktop.Answers = {Answer::No};
    Screens.Desktop.OnBox = [this](const forms::Message&) { EXPECT_TRUE(Screens.IsShown("Form3")); };
    StartWith("road.eva");
    EXPECT_EQ(Screens.Desktop.BoxHeads(), Texts{"UPDATE INPUT FILE?"});
    EXPECT_TRUE(Screens.Desktop.Dialogs.empty());
    EXPECT_EQ(Screens.Data().Text7.Text, "road.eva");
    EXPECT_EQ(Screens.Data().Label7.Caption, " 2");
    EXPECT_EQ(FocusOf(Screens.Data()), "Command7") << "as behind OPEN FILE";
    EXPECT_FALSE(Start.Waits(".eva"));
    ComeUp();
    EXPECT_EQ(Screens.Data().Label7.Caption, "0");
    EXPECT_FALSE(Screens.Data().Option2.Value);
}

TEST_F(Form3Start, AFileOfTheOtherScreenWaitsOn) {
    StartWith("road.ven");
    EXPECT_TRUE(Screens.Desktop.Boxes.empty());
    EXPECT_EQ(Screens.Data().Label7.Caption, "0");
    EXPECT_TRUE(Start.Waits(".ven"));
}

TEST_F(Form3Start, AFileThatIsGoneMeanwhileIsToldAsOpenFileTells) {
    Screens.Desktop.Answers = {Answer::No};
    StartWith("road.eva");
    Start = StartFile(Screens.Folder.Path("road.eva"));
    std::filesystem::remove(Screens.Folder.Path("road.eva"));
    Screens.Desktop.Forget();
    ComeUp();
    EXPECT_EQ(Screens.Data().Label7.Caption, "0");
    EXPECT_TRUE(Screens.Data().Command1.Enabled) << "another file can be opened";
    EXPECT_EQ(Screens.Desktop.EndStatus, std::nullopt);
}

}  // namespace
}  // namespace zirvo
