// What the data screen of the graphics path does with files: OPEN FILE, SAVE DATA.
#include <gtest/gtest.h>

#include "graphics/screens.h"
#include "pavement/graphics_example.h"
#include "shell/start_file.h"

namespace zirvo {
namespace {

using forms::Answer;
using forms::Icon;
using test::English;
using test::ExampleVen;
using test::GetFile;
using test::PutFile;
using test::Replaced;
using test::Screens;
using Texts = std::vector<std::string>;

struct ImportScreen : Screens {
    explicit ImportScreen(const test::ScreenOptions& options = {}) : Screens(options) {
        ShowData();
        Data().Option2.UserClick();
        Desktop.Forget();
    }
    void Open(const std::optional<std::string>& path, std::optional<Answer> update = std::nullopt) {
        Desktop.Paths = {path};
        if (update) {
            Desktop.Answers = {*update};
        }
        Data().Command1.UserClick();
    }
};

TEST(Form5Import, AsksForAFileOfTheFolder) {
    for (const Int16 base : {JapaneseBase, EnglishBase}) {
        ImportScreen screens({.Base = base});
        screens.Open(std::nullopt);
        ASSERT_EQ(screens.Desktop.Dialogs.size(), 1U);
        const forms::FileDialog& asked = screens.Desktop.Dialogs[0].Asked;
        EXPECT_EQ(asked.Owner, &screens.Data());
        EXPECT_EQ(asked.Title, GetMessage(base, 55));
        EXPECT_EQ(asked.Folder, screens.Folder.Path());
        EXPECT_EQ(asked.Filter, "ZIRVO Files (*.ven)|*.ven");
        EXPECT_EQ(asked.FilterIndex, 1);
        EXPECT_TRUE(asked.FileMustExist && asked.PathMustExist);
        EXPECT_EQ(asked.Words, base == JapaneseBase ? forms::Language::Japanese : forms::Language::English);
        EXPECT_EQ(screens.Boxes(), Texts{}) << "a cancel passes without a word";
        EXPECT_EQ(screens.Data().Label4.Caption.Get(), "0");
        EXPECT_TRUE(screens.Data().Command1.Enabled);
    }
}

TEST(Form5Import, FillsTheControls) {
    ImportScreen screens;
    PutFile("example.ven", ExampleVen());
    screens.Open(screens.Folder.Path("example.ven"), Answer::Yes);
    Form5& form = screens.Data();
    EXPECT_EQ(form.Text3.Text.Get(), "example.ven") << "without its folder";
    EXPECT_EQ(form.VScroll1.Value, 2);
    EXPECT_EQ(form.VScroll2.Value, 1);
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(1, 1), "35000");
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(1, 2), "0.35");
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(1, 3), "5");
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(1, 4), "0");
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(2, 1), "1000");
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(2, 2), "0.4");
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(2, 3), "") << "the last layer has two values";
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(2, 4), "");
    EXPECT_EQ(form.MSFlexGrid2.TextMatrix(1, 1), "5000");
    EXPECT_EQ(form.MSFlexGrid2.TextMatrix(1, 6), "0");
    EXPECT_EQ(form.MSFlexGrid2.TextMatrix(1, 0), "LOAD 1");
    ASSERT_EQ(screens.Desktop.Boxes.size(), 1U);
    EXPECT_EQ(screens.Desktop.Boxes[0], (forms::Message{.Text = "UPDATE INPUT FILE?",
                                                        .Title = "ZIRVO Ver2.3",
                                                        .Picture = Icon::None,
                                                        .Choice = forms::Buttons::YesNo}));
    EXPECT_EQ(form.ModelFromControls(), test::ExampleData());
}

TEST(Form5Import, TakesEverySampleAndSavesItAsItWas) {
    for (const auto& entry : std::filesystem::directory_iterator(ZIRVO_SAMPLES)) {
        if (entry.path().extension() != ".ven") {
            continue;
        }
        const std::string bytes = GetFile(entry.path().string());
        const int units = bytes.find("(MPa)") != std::string::npos ? 3 : 1;
        const Int16 base = bytes.starts_with("LAYERS") ? EnglishBase : JapaneseBase;
        ImportScreen screens({.Base = base, .Units = units});
        PutFile("sample.ven", bytes);
        screens.Open(screens.Folder.Path("sample.ven"), Answer::Yes);
        screens.Data().Command5.UserClick();
        screens.Desktop.Answers = {Answer::Yes};
        screens.Data().Command6.UserClick();
        EXPECT_EQ(GetFile("sample.ven"), bytes) << entry.path();
    }
}

TEST(Form5Import, AFileOfAnotherFolderIsNotTaken) {
    ImportScreen screens;
    const TemporaryFolder elsewhere;
    elsewhere.Put("example.ven", ExampleVen());
    screens.Open(elsewhere.Path("example.ven"));
    EXPECT_EQ(screens.Boxes(), Texts{"ZIRVO Ver2.3|USE DATA FROM DESIGNATED FOLDER"});
    EXPECT_EQ(screens.Desktop.Boxes[0].Picture, Icon::Stop);
    EXPECT_EQ(screens.Data().Label4.Caption.Get(), "0");
    EXPECT_EQ(CurrentFolder(), elsewhere.Path()) << "but the dialog has gone there";
    // The comparison is of the exact text: the same folder by another name is another one.
    screens.Desktop.Forget();
    screens.App.Dispatch([&] { screens.Settings().Label2.Caption = elsewhere.Path() + "/"; });
    screens.Open(elsewhere.Path("example.ven"));
    EXPECT_EQ(screens.Desktop.BoxHeads(), Texts{"USE DATA FROM DESIGNATED FOLDER"});
}

TEST(Form5Import, AMissingFileIsToldAndTheReadThatFollowsFailsQuietly) {
    ImportScreen screens;
    screens.Open(screens.Folder.Path("missing.ven"));
    EXPECT_EQ(screens.Boxes(), Texts{"ZIRVO Ver2.3|INPUT FILE DOES NOT EXIST OR EMPTY"});
    EXPECT_EQ(screens.Desktop.Boxes[0].Picture, Icon::Stop);
    EXPECT_EQ(forms::FocusOf(screens.Data()), "Command1");
    EXPECT_FALSE(screens.App.HasEnded());
}

struct BadFile {
    std::string Bytes;
    Int16 Message;  ///< 0: quiet
};

TEST(Form5Import, WhatAFileLacksIsToldByItsGroupOrNotAtAll) {
    const std::string good = ExampleVen();
    for (const BadFile& row :
         {BadFile{"", 0}, BadFile{good.substr(0, 200), 0}, BadFile{Replaced(good, "  2         1", "101         1"), 0},
          BadFile{Replaced(good, "  2         1", "  x         1"), 0},
          BadFile{Replaced(good, "  2         1", " -2         1"), 0},
          BadFile{Replaced(good, "  2         1", "  0         1"), 58},
          BadFile{Replaced(good, "  2         1", "  2         0"), 58}, BadFile{Replaced(good, "0.35", "0.51"), 59},
          BadFile{Replaced(good, "0.4", "0.0"), 59}, BadFile{Replaced(good, " 5000 ", "    0 "), 60}}) {
        ImportScreen screens;
        PutFile("bad.ven", row.Bytes);
        screens.Open(screens.Folder.Path("bad.ven"));
        EXPECT_EQ(screens.Boxes(), row.Message == 0 ? Texts{}
                                                    : (Texts{"ZIRVO Ver2.3|" + English(row.Message),
                                                             "ZIRVO Ver2.3|ANALYSIS STOPPED - CHECK INPUT DATA"}))
            << row.Bytes;
        EXPECT_EQ(forms::FocusOf(screens.Data()), row.Message == 0 ? "Command1" : "Command9") << row.Bytes;
        EXPECT_EQ(screens.Data().Label4.Caption.Get(), "0");
        EXPECT_EQ(screens.Data().Text3.Text.Get(), "");
        EXPECT_TRUE(screens.Data().Command1.Enabled) << "another file can be chosen";
    }
}

TEST(Form5Save, WritesTheNumbersOfTheCells) {
    Screens screens;
    screens.ShowData();
    screens.EnterExample();
    Form5& form = screens.Data();
    screens.App.Dispatch([&] {
        form.MSFlexGrid1.SetTextMatrix(1, 1, "35E3");
        form.MSFlexGrid1.SetTextMatrix(1, 2, "0.350 or so");
        form.MSFlexGrid1.SetTextMatrix(2, 3, "7 or anything");
        form.Text3.Text = "x";
    });
    EXPECT_EQ(form.ModelFromControls(), test::ExampleData()) << "nobody reads the thickness of the last layer";
    form.Command5.UserClick();
    EXPECT_EQ(screens.Folder.Names(), Texts{});
    form.Command6.UserClick();
    EXPECT_EQ(screens.Folder.Names(), Texts{"x.ven"});
    EXPECT_EQ(GetFile("x.ven"), ExampleVen());
    EXPECT_EQ(form.MSFlexGrid1.TextMatrix(1, 1), "35E3") << "the cell keeps its text";
    EXPECT_EQ(screens.Boxes(), Texts{});
}

TEST(Form5Save, AnExistingFileIsReplacedOnYesOnly) {
    Screens screens;
    screens.ShowData();
    screens.EnterExample();
    PutFile("Untitled.ven", "mine");
    Form5& form = screens.Data();
    form.Command5.UserClick();
    screens.Desktop.Answers = {Answer::No, Answer::No, Answer::Yes};
    for (int time = 1; time <= 2; ++time) {
        screens.Desktop.Forget();
        form.Command6.UserClick();
        ASSERT_EQ(screens.Boxes(), (Texts{"ZIRVO Ver2.3|OVERWRITE EXISTING FILE?", "ZIRVO Ver2.3|CHANGE FILENAME!"}));
        EXPECT_EQ(screens.Desktop.Boxes[0].Picture, Icon::None);
        EXPECT_EQ(screens.Desktop.Boxes[0].Choice, forms::Buttons::YesNo);
        EXPECT_EQ(screens.Desktop.Boxes[1].Picture, Icon::Information);
        EXPECT_EQ(GetFile("Untitled.ven"), "mine");
        EXPECT_FALSE(form.Text3.Enabled) << "the name cannot be changed, whatever the box says";
        EXPECT_FALSE(form.VScroll1.Enabled || form.MSFlexGrid1.Enabled || form.MSFlexGrid2.Enabled);
        form.Command5.UserClick();
    }
    form.Command6.UserClick();
    EXPECT_EQ(GetFile("Untitled.ven"), ExampleVen());
    EXPECT_TRUE(form.Command7.Enabled);
}

TEST(Form5Save, AFileThatCannotBeWrittenEndsTheProgram) {
    Screens screens;
    screens.ShowData();
    screens.EnterExample();
    std::filesystem::create_directory("Untitled.ven");
    screens.Data().Command5.UserClick();
    screens.Desktop.Answers = {Answer::Yes};  // a folder counts as an existing file
    screens.Data().Command6.UserClick();
    EXPECT_EQ(screens.Desktop.BoxHeads().back(), "Run-time error '75':\n\nPath/File access error");
    EXPECT_EQ(screens.Desktop.EndStatus, 1);
}

TEST(Form5Drop, AFileGoesTheWayOfOpenFileWithoutItsDialog) {
    for (const bool sourceChosen : {false, true}) {
        Screens screens;
        screens.ShowData();
        Form5& form = screens.Data();
        if (sourceChosen) {
            form.Option2.UserClick();
        }
        screens.Desktop.Forget();
        PutFile("example.ven", ExampleVen());
        const std::string path = screens.Folder.Path("example.ven");
        ASSERT_TRUE(form.TakesFile(path));
        screens.Desktop.Answers = {Answer::Yes};
        form.UserDrop(path);
        EXPECT_TRUE(screens.Desktop.Dialogs.empty());
        EXPECT_EQ(screens.Boxes(), Texts{"ZIRVO Ver2.3|UPDATE INPUT FILE?"});
        EXPECT_TRUE(form.Option2.Value);
        EXPECT_EQ(form.Text3.Text.Get(), "example.ven");
        EXPECT_EQ(form.ModelFromControls(), test::ExampleData());
        EXPECT_EQ(forms::FocusOf(form), "Command5") << "as behind OPEN FILE";
    }
}

TEST(Form5Start, TheFileThatTheProgramWasStartedWithIsImportedOnceTheScreenIsUp) {
    Screens screens;
    PutFile(screens.Folder.Path("example.ven"), ExampleVen());
    StartFile start(screens.Folder.Path("example.ven"));
    screens.App.Register("Form5", [&](forms::Application& app) {
        auto form = std::make_unique<Form5>(app);
        form->ImportAtStart(start);
        return form;
    });
    screens.Desktop.Answers = {Answer::Yes};
    screens.ShowData();
    EXPECT_EQ(screens.Boxes(), Texts{"ZIRVO Ver2.3|UPDATE INPUT FILE?"});
    EXPECT_EQ(screens.Data().ModelFromControls(), test::ExampleData());
    EXPECT_FALSE(start.Waits(".ven"));
}

TEST(Form5Drop, AFileOfAnotherFolderAndABadFileAreRefusedByTheirMessages) {
    Screens screens;
    screens.ShowData();
    screens.Desktop.Forget();
    const TemporaryFolder elsewhere;
    elsewhere.Put("example.ven", ExampleVen());
    screens.Data().UserDrop(elsewhere.Path("example.ven"));
    EXPECT_EQ(screens.Boxes(), Texts{"ZIRVO Ver2.3|USE DATA FROM DESIGNATED FOLDER"});
    screens.Desktop.Forget();
    PutFile(screens.Folder.Path("bad.ven"), Replaced(ExampleVen(), "0.35", "0.51"));
    screens.Data().UserDrop(screens.Folder.Path("bad.ven"));
    EXPECT_EQ(screens.Boxes(),
              (Texts{"ZIRVO Ver2.3|" + English(59), "ZIRVO Ver2.3|ANALYSIS STOPPED - CHECK INPUT DATA"}));
    // What is dropped counts once: OPEN FILE asks again.
    screens.Desktop.Forget();
    screens.Desktop.Paths = {std::nullopt};
    screens.Data().Command1.UserClick();
    EXPECT_EQ(screens.Desktop.Dialogs.size(), 1U);
}

TEST(Form5Drop, OnlyAFileOfTheScreensKindIsTakenAndOnlyWhereItReplacesNothing) {
    Screens screens;
    screens.ShowData();
    Form5& form = screens.Data();
    EXPECT_TRUE(form.TakesFile("/data/road.ven"));
    EXPECT_TRUE(form.TakesFile("/data/ROAD.VEN"));
    for (const char* other : {"/data/road.eva", "/data/road.ven.txt", "/data/.ven.", ".ven", "", "/data/道路"}) {
        EXPECT_FALSE(form.TakesFile(other)) << other;
    }
    form.Option1.UserClick();  // NEW DATA
    EXPECT_TRUE(form.TakesFile("/data/road.ven")) << "nothing has been typed yet";
    form.VScroll1.UserStepToMin();
    EXPECT_FALSE(form.TakesFile("/data/road.ven")) << "a row may hold what was typed";
    form.Command4.UserClick();  // CLEAR FORM
    EXPECT_TRUE(form.TakesFile("/data/road.ven"));
}

}  // namespace
}  // namespace zirvo
