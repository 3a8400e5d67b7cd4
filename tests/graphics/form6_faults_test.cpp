// Faults on the way from a start button to a map, and what their boxes say.
#include <gtest/gtest.h>

#include <array>

#include "graphics/map_starts.h"
#include "pavement/graphics_example.h"
#include "pavement/scripted_process.h"

namespace zirvo {
namespace {

using forms::Icon;
using test::FaultOf;
using test::GetFile;
using test::PutFile;
using test::RoundedTop;
using test::Screens;
using Texts = std::vector<std::string>;

TEST(Form6Run, TheBoxOfAnEndlessCommaFileHasItsThreeTexts) {
    Screens screens;
    Form6& form = screens.OpenMap();
    screens.App.Dispatch([&] { form.TellTooManyDataLines(); });
    ASSERT_EQ(screens.Desktop.Boxes.size(), 1U);
    EXPECT_EQ(
        screens.Desktop.Boxes[0],
        (forms::Message{.Text = "ANALYTICAL RESULTS (ON) -> ANALYTICAL POINTS (ON) AND LEGEND (OFF)\n9000000ERROR!",
                        .Title = "POINTS SHOULD NOT BE EXCEEDED ",
                        .Picture = Icon::Exclamation}));
}

// Every fault on the way ends the program with its number; what lay in the folder stays whole.
TEST(Form6Run, FaultsOnTheWayEndTheProgram) {
    struct Row {
        const char* What;
        std::function<void(const Screens&)> Spoil;
        int Fault;
    };
    const std::array rows{
        Row{"input is a folder",
            [](const Screens& s) { std::filesystem::create_directory(s.Folder.Path("ZIRVO_SV.EVA")); }, 75},
        Row{"control file is a folder",
            [](const Screens& s) { std::filesystem::create_directory(s.Folder.Path("Initial_File")); }, 75},
        Row{"temporary file in the way", [](const Screens&) { PutFile("ZIRVO_SV.TMP", "x"); }, 58},
        Row{"comma file is a folder",
            [](const Screens& s) { std::filesystem::create_directory(s.Folder.Path("ZIRVO_SV.CSV")); }, 75},
    };
    for (const Row& row : rows) {
        Screens screens;
        screens.OpenMap();
        PutFile("mine.txt", "mine");
        row.Spoil(screens);
        screens.Choose(1, SectionKind::XY, "0");
        screens.Start();
        EXPECT_EQ(FaultOf(screens), row.Fault) << row.What;
        EXPECT_EQ(GetFile("mine.txt"), "mine");
        EXPECT_EQ(GetFile("Untitled.ven"), test::ExampleVen());
    }
}

/// The text of the box that ended the program behind its two lines.
std::string WordsOfFault(const Screens& screens) {
    if (!screens.Desktop.EndStatus || screens.Desktop.Boxes.empty()) {
        return "no fault";
    }
    const std::string& text = screens.Desktop.Boxes.back().Text;
    return text.substr(forms::ScriptedDesktop::HeadOf(text).size());
}

TEST(Form6Run, AMissingSolverIsNamedByTheFaultOfItsReport) {
    for (const Int16 base : {EnglishBase, JapaneseBase}) {
        const TemporaryFolder programs;
        Screens screens({.Base = base, .ProgramFolder = programs.Path()});
        screens.OpenMap();
        screens.Choose(1, SectionKind::XY, "0");
        screens.Start();
        EXPECT_EQ(FaultOf(screens), 53);
        const std::string solver = programs.Path("ZIRVO_SV22.exe");
        EXPECT_EQ(WordsOfFault(screens),
                  base == EnglishBase
                      ? "\n\nProgram: " + solver +
                            "\nThis program is missing or cannot be started. Please unpack ZIRVO again.\n\n"
                            "The program ends now."
                      : "\n\nプログラム: " + solver +
                            "\nこのプログラムがないか、起動できません。ZIRVOを展開し直してください。\n\n"
                            "プログラムを終了します。");
        EXPECT_EQ(screens.Desktop.Boxes.back().Words,
                  base == EnglishBase ? forms::Language::English : forms::Language::Japanese);
    }
}

TEST(Form6Run, ASolverThatLeavesNoReportIsToldByTheReportsName) {
    Texts log;
    auto process = std::make_shared<test::ScriptedProcess>(log);
    Screens screens({.Process = process});
    screens.OpenMap();
    screens.Choose(1, SectionKind::XY, "0");
    screens.Start();
    EXPECT_EQ(WordsOfFault(screens), "\n\nFile: " + screens.Folder.Path("ZIRVO_SV.BRE") +
                                         "\nThe solver has not written this file.\n\nThe program ends now.");
}

// 1E400 is read as the largest double, whose 20 columns touch the X in front of it in the input: the solver says so.
TEST(Form6Run, TheReasonThatTheSolverLeftStandsInTheBox) {
    for (const Int16 base : {EnglishBase, JapaneseBase}) {
        Screens screens({.Base = base});
        screens.OpenMap();
        screens.Choose(1, SectionKind::XZ, "1E400");
        screens.Start();
        EXPECT_EQ(FaultOf(screens), 62);
        const std::string words = WordsOfFault(screens);
        const bool english = base == EnglishBase;
        EXPECT_TRUE(words.starts_with((english ? "\n\nFile: " : "\n\nファイル: ") +
                                      screens.Folder.Path("ZIRVO_SV.BRE") +
                                      (english ? "\nIt ends too early.\nThe solver's report says:\n"
                                               : "\nファイルが途中で終わっています。\nソルバーの報告:\n")))
            << words;
        EXPECT_NE(words.find(english ? "\nREASON: " : "\n理由: "), std::string::npos) << words;
        EXPECT_TRUE(words.ends_with(english ? "\n\nThe program ends now." : "\n\nプログラムを終了します。")) << words;
    }
}

TEST(Form6Run, LoadsTooFarOutForAGridAreFaultSixInWords) {
    for (const SectionKind kind : {SectionKind::XY, SectionKind::XZ}) {
        GraphicsInputData data = test::ExampleData();
        data.Loads[1].LoadX = 1E20;
        Screens screens;
        screens.OpenMap(data);
        screens.Choose(1, kind, "0");
        screens.Start();
        EXPECT_EQ(FaultOf(screens), 6);
        EXPECT_EQ(WordsOfFault(screens),
                  "\n\nThe loads lie so far out that no grid of points can be made. Please check their X, Y and "
                  "radius.\n\nThe program ends now.");
        EXPECT_EQ(screens.Folder.Names(), Texts{"Untitled.ven"}) << "nothing was written";
    }
}

TEST(Form6Run, FaultsOnTheWayNameTheFile) {
    struct Row {
        const char* File;
        const char* Hint;
        bool InTheWay;
    };
    for (const Row& row : {Row{"ZIRVO_SV.EVA", "It may not be read or written.", false},
                           Row{"Initial_File", "It may not be read or written.", false},
                           Row{"ZIRVO_SV.CSV", "It may not be read or written.", false},
                           Row{"ZIRVO_SV.TMP", "A file of this name is in the way. Please move or delete it.", true}}) {
        Screens screens;
        screens.OpenMap();
        if (row.InTheWay) {
            PutFile(row.File, "x");
        } else {
            std::filesystem::create_directory(screens.Folder.Path(row.File));
        }
        screens.Choose(1, SectionKind::XY, "0");
        screens.Start();
        EXPECT_TRUE(WordsOfFault(screens).starts_with("\n\nFile: " + screens.Folder.Path(row.File) + "\n" + row.Hint))
            << WordsOfFault(screens);
    }
    Screens again;
    again.OpenMap(RoundedTop());
    again.Choose(1, SectionKind::XZ, "0");
    again.Start();
    again.Map().Command10.UserClick();
    EXPECT_EQ(WordsOfFault(again), "\n\nFile: " + again.Folder.Path("ZIRVO_SV.EVA") +
                                       "\nThis file is still open. Please start ZIRVO again.\n\nThe program ends now.");
}

TEST(Form6Run, ReportsThatAreShortOrHoldWordsAreFaults) {
    struct Row {
        const char* Report;
        int Fault;
    };
    for (const Row& row : {Row{"", 62}, Row{"1\r\n2\r\n", 62},
                           Row{"1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n1\r\n2\r\n1\r\n2\r\n3\r\n4\r\n1 2 x\r\n", 13}}) {
        Texts log;
        auto process = std::make_shared<test::ScriptedProcess>(log);
        process->Work = [&] { PutFile("ZIRVO_SV.BRE", row.Report); };
        Screens screens({.Process = process});
        screens.OpenMap();
        screens.Choose(1, SectionKind::XY, "0");
        screens.Start();
        EXPECT_EQ(FaultOf(screens), row.Fault) << row.Report;
    }
}

}  // namespace
}  // namespace zirvo
