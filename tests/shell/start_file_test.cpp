// The file that the program is started with: what is told at once, what waits for its screen.
#include "shell/start_file.h"

#include "platform/files.h"
#include "shell/screens.h"

namespace zirvo {
namespace {

TEST(StartFile, WaitsForTheScreenOfItsKindUntilItIsTaken) {
    const TemporaryFolder folder;
    forms::ScriptedDesktop desktop;
    StartFile start(folder.Put("road.EVA", "x"));
    EXPECT_TRUE(start.Waits(".eva"));
    EXPECT_FALSE(start.Waits(".ven"));
    EXPECT_EQ(start.Path(), folder.Path("road.EVA"));
    EXPECT_EQ(start.Folder(), folder.Path());
    start.TellWhatIsWrong(desktop);
    EXPECT_TRUE(desktop.Boxes.empty());
    start.Take();
    EXPECT_FALSE(start.Waits(".eva"));
    EXPECT_EQ(start.Folder(), "");
}

TEST(StartFile, WhatCannotBeOneIsToldInBothLanguagesAndDoesNotWait) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.Path("folder.eva"));
    for (const auto& [name, words] : {std::pair(folder.Path("none.eva"), "This file is not there"),
                                      std::pair(folder.Path("no folder/a.ven"), "This file is not there"),
                                      std::pair(folder.Path("folder.eva"), "This file is not there"),
                                      std::pair(folder.Put("a.txt", "x"), "neither an analysis input file"),
                                      std::pair(std::string("--help"), "neither an analysis input file"),
                                      std::pair(std::string(), "neither an analysis input file")}) {
        forms::ScriptedDesktop desktop;
        const StartFile start(name);
        EXPECT_FALSE(start.Waits(".eva") || start.Waits(".ven")) << name;
        start.TellWhatIsWrong(desktop);
        ASSERT_EQ(desktop.Boxes.size(), 1U) << name;
        const std::string& text = desktop.Boxes[0].Text;
        EXPECT_NE(text.find(words), std::string::npos) << text;
        EXPECT_NE(text.find("ファイル"), std::string::npos) << text;
        EXPECT_EQ(text.substr(text.size() - name.size()), name) << "which file";
    }
}

TEST(StartFile, NothingNamedTellsNothing) {
    forms::ScriptedDesktop desktop;
    const StartFile none;
    none.TellWhatIsWrong(desktop);
    EXPECT_TRUE(desktop.Boxes.empty());
    EXPECT_FALSE(none.Waits(".eva"));
}

class StartFolder : public testing::Test {
protected:
    /// The settings screen of a program that was started with a file of that folder.
    Form2& SettingsWith(const std::string& folder) {
        run_.App.Register("Form2", [this, folder](forms::Application& a) {
            auto form = std::make_unique<Form2>(a, program_.Path());
            form->StartIn(folder);
            return form;
        });
        return run_.StartSettings();
    }

    TemporaryFolder program_;
    TemporaryFolder work_;
    forms::ScriptedDesktop desktop_;
    ProgramRun run_{desktop_, program_};
};

TEST_F(StartFolder, OfAFirstRunIsThereAsIfSearchHadChosenIt) {
    Form2& form = SettingsWith(work_.Path());
    EXPECT_EQ(form.Label2.Caption, work_.Path());
    EXPECT_TRUE(form.Option1.Enabled && form.Option2.Enabled && form.Option3.Enabled);
    EXPECT_FALSE(form.Option4.Enabled || form.Command4.Enabled) << "units and objective are still to be chosen";
}

TEST_F(StartFolder, StandsInPlaceOfThatOfTheSettingsWhichKeepTheRest) {
    const TemporaryFolder earlier;
    program_.Put("zirvo_sv.ini", earlier.Path() + "\r\n 2 \r\n 1 \r\n");
    Form2& form = SettingsWith(work_.Path());
    EXPECT_EQ(form.Label2.Caption, work_.Path());
    EXPECT_EQ(form.UnitSystem(), 2);
    EXPECT_EQ(form.Objective(), 1);
    EXPECT_TRUE(form.Command4.Enabled);
}

TEST_F(StartFolder, ThatIsGoneLeavesTheSettings) {
    const TemporaryFolder earlier;
    program_.Put("zirvo_sv.ini", earlier.Path() + "\r\n 2 \r\n 1 \r\n");
    EXPECT_EQ(SettingsWith(work_.Path("gone")).Label2.Caption, earlier.Path());
}

}  // namespace
}  // namespace zirvo
