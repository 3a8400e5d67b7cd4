// What ends the program on the screen of the initial settings: nothing catches these faults but the fault box.
#include <sys/stat.h>

#include <filesystem>

#include "platform/files.h"
#include "platform/in_child.h"
#include "shell/screens.h"

namespace zirvo {
namespace {

class SettingsFaults : public Screens {
protected:
    /// The one box that stood, which must be the fault box, and the program ended behind it.
    std::string FaultText() const {
        if (Desktop.Boxes.size() != 1 || Desktop.EndStatus != 1) {
            return "no fault";
        }
        EXPECT_EQ(Desktop.Boxes[0].Title, "ZIRVO Ver2.3");
        EXPECT_EQ(Desktop.Boxes[0].Choice, forms::Buttons::Ok);
        return forms::ScriptedDesktop::HeadOf(Desktop.Boxes[0].Text);
    }
    /// The same, where the settings file holds these bytes.
    std::string FaultTextOf(const std::string& bytes) {
        Program.Put("zirvo_sv.ini", bytes);
        StartIn(forms::Language::English).Command2.UserClick();
        EXPECT_EQ(SettingsBytes(), bytes);
        return FaultText();
    }
};

TEST_F(SettingsFaults, FolderWithACommaIsATypeMismatchOfTheNextField) {
    EXPECT_EQ(FaultTextOf(Work.Path() + ", old\r\n 3 \r\n 1 \r\n"), "Run-time error '13':\n\nType mismatch");
}

TEST_F(SettingsFaults, FileThatIsTooShortIsAnInputPastItsEnd) {
    EXPECT_EQ(FaultTextOf(Work.Path() + "\r\n 3 \r\n"), "Run-time error '62':\n\nInput past end of file");
}

// The file is read whole before the folder is looked at.
TEST_F(SettingsFaults, WrongLineIsAFaultAlsoBehindAFolderThatIsGone) {
    EXPECT_EQ(FaultTextOf("/gone\r\n 3 \r\nfast\r\n"), "Run-time error '13':\n\nType mismatch");
}

TEST_F(SettingsFaults, UnitBeyond16BitsIsAnOverflow) {
    EXPECT_EQ(FaultTextOf(Work.Path() + "\r\n 32768 \r\n 1 \r\n"), "Run-time error '6':\n\nOverflow");
}

TEST_F(SettingsFaults, EmptyFileIsAnInputPastItsEnd) {
    EXPECT_EQ(FaultTextOf(""), "Run-time error '62':\n\nInput past end of file");
}

TEST_F(SettingsFaults, FolderInPlaceOfTheFileIsAPathAccessError) {
    std::filesystem::create_directory(Program.Path("zirvo_sv.ini"));
    StartIn(forms::Language::English).Command2.UserClick();
    EXPECT_EQ(FaultText(), "Run-time error '75':\n\nPath/File access error");
}

TEST_F(SettingsFaults, ManualThatIsMissingIsAFileNotFound) {
    StartSettings().Command2.UserClick();
    EXPECT_EQ(FaultText(), "Run-time error '53':\n\nFile not found");
}

TEST_F(SettingsFaults, ProgramFolderThatIsGoneAtNextIsAPathNotFound) {
    Form2& form = StartSettings(Work.Path() + "\r\n 3 \r\n 1 \r\n");
    std::filesystem::remove_all(Program.Path());
    form.Command4.UserClick();
    EXPECT_EQ(FaultText(), "Run-time error '76':\n\nPath not found");
    EXPECT_TRUE(form.IsVisible()) << "nothing of NEXT happens behind the fault";
    EXPECT_EQ(App.Find("Form3"), nullptr);
}

// What the boxes say behind their two lines
// ----------------------------------------------------------------------------

TEST_F(SettingsFaults, TheBoxNamesTheFileAndSaysThatItMayBeDeletedInTheLanguageOfTheScreen) {
    Program.Put("zirvo_sv.ini", Work.Path() + ", old\r\n 3 \r\n 1 \r\n");
    for (const forms::Language language : {forms::Language::Japanese, forms::Language::English}) {
        forms::ScriptedDesktop desktop;
        ProgramRun run(desktop, Program);
        run.StartIn(language).Command2.UserClick();
        ASSERT_EQ(desktop.Boxes.size(), 1U);
        EXPECT_EQ(desktop.Boxes[0].Words, language);
        const std::string file = Program.Path("zirvo_sv.ini");
        EXPECT_EQ(desktop.Boxes[0].Text,
                  language == forms::Language::Japanese
                      ? "Run-time error '13':\n\nType mismatch\n\nファイル: " + file +
                            "\n内容を読み取れません。このファイルを削除すると、フォルダ、単位、目的を選び直せます。\n\n"
                            "プログラムを終了します。"
                      : "Run-time error '13':\n\nType mismatch\n\nFile: " + file +
                            "\nIts contents cannot be read. Please delete this file: folder, units and objective can "
                            "then be chosen anew.\n\nThe program ends now.");
    }
}

TEST_F(SettingsFaults, BeforeALanguageIsChosenTheBoxSpeaksBoth) {
    Start();
    App.Dispatch([this] { ChangeFolder(Program.Path("gone")); });
    ASSERT_EQ(Desktop.Boxes.size(), 1U);
    EXPECT_EQ(Desktop.Boxes[0].Text,
              "Run-time error '76':\n\nPath not found\n\nフォルダ: " + Program.Path("gone") +
                  "\nこのフォルダはありません。\n\nプログラムを終了します。\n\nFolder: " + Program.Path("gone") +
                  "\nThis folder does not exist.\n\nThe program ends now.");
}

TEST_F(SettingsFaults, AManualThatIsMissingIsNamed) {
    StartSettings().Command2.UserClick();
    ASSERT_EQ(Desktop.Boxes.size(), 1U);
    EXPECT_NE(Desktop.Boxes[0].Text.find("\n\nFile: " + Program.Path("ZIRVO2.html") + "\nThis file does not exist.\n"),
              std::string::npos)
        << Desktop.Boxes[0].Text;
}

TEST_F(SettingsFaults, AFolderWithACommaIsThereAgainInTheNextRun) {
    const std::string folder = Work.Path("roads, \"old\"");
    std::filesystem::create_directory(folder);
    Form2& form = StartSettings();
    Desktop.Paths = {folder};
    form.Command1.UserClick();
    form.Option2.UserClick();
    form.Option5.UserClick();
    form.Command4.UserClick();
    EXPECT_EQ(SettingsBytes(), "\"" + folder + "\"\r\n 2 \r\n 2 \r\n");
    forms::ScriptedDesktop desktop;
    ProgramRun next(desktop, Program);
    Form2& again = next.StartSettings();
    EXPECT_EQ(again.Label2.Caption.Get(), folder);
    EXPECT_TRUE(again.Option2.Value);
    EXPECT_TRUE(again.Option5.Value);
    EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(SettingsFaults, ProgramFolderThatMayNotBeWrittenEndsTheProgramAtNext) {
    const std::string bytes = Work.Path() + "\r\n 3 \r\n 1 \r\n";
    Program.Put("zirvo_sv.ini", bytes);
    chmod(Program.Path("zirvo_sv.ini").c_str(), 0444);
    chmod(Program.Path().c_str(), 0555);
    const int status = FaultAsOrdinaryUser([&] {
        StartIn(forms::Language::English).Command2.UserClick();
        App.Get<Form2>().Option1.UserClick();
        App.Get<Form2>().Command4.UserClick();
        const bool told = FaultText() == "Run-time error '75':\n\nPath/File access error";
        if (!told || !App.Find("Form2")->IsVisible()) {
            throw RuntimeFault(fault::InvalidCall);
        }
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(SettingsBytes(), bytes);
    chmod(Program.Path().c_str(), 0755);
}

}  // namespace
}  // namespace zirvo
