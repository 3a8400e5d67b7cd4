// The limits of what there may be, on the screens: the largest pavement in both languages, a thousand folders of kept
// data, a clock before 1970, a folder whose path has 4000 bytes.
#include <gtest/gtest.h>

#include "analysis/analysis_screens.h"
#include "faults/limits.h"
#include "graphics/screens.h"
#include "kept/kept_folder.h"
#include "kept/kept_json.h"
#include "kept/some_screens.h"
#include "platform/clock.h"
#include "platform/folders.h"
#include "shell/settings.h"

namespace zirvo::test {
namespace {

using forms::Answer;

TEST(ScreenLimits, TheLargestPavementIsImportedCheckedSavedAndAnalyzedInBothLanguages) {
    const std::unique_ptr<ProcessService> processes = MakeProcessService();
    for (const Int16 base : {EnglishBase, JapaneseBase}) {
        AnalysisScreens screens(base);
        screens.UseSolver(*processes, ZIRVO_BIN);
        const std::string bytes = WriteAnalysisInput(ModelAtTheLimit(), UnitSystem::KnToMPa, base);
        screens.Desktop.Answers.push_back(Answer::Yes);  // change it
        screens.Import(bytes, "limit.eva");
        screens.Data().Text7.Text = "again";
        screens.Data().Command5.UserClick();  // DATA OK!
        screens.Data().Command6.UserClick();  // SAVE DATA
        EXPECT_EQ(GetFile("again.eva"), bytes);
        screens.Data().Command7.UserClick();  // ANALYZE
        EXPECT_TRUE(screens.IsShown("Form4"));
        EXPECT_EQ(screens.Desktop.EndStatus, std::nullopt);
        EXPECT_EQ(RowsOfReport(GetFile("limit.bre")), 10000);
        EXPECT_EQ(RowsOfReport(GetFile("limit.san")), 10000);
    }
}

TEST(ScreenLimits, AMapOfAHundredLayersAndLoadsIsDrawnInBothLanguages) {
    for (const Int16 base : {EnglishBase, JapaneseBase}) {
        Screens screens({.Base = base, .Units = 3});
        Form6& map = screens.OpenMap(GraphicsAtTheLimit(5));
        screens.Choose(1, SectionKind::XZ, "0");
        screens.Start();
        EXPECT_EQ(screens.Boxes(), std::vector<std::string>{});
        EXPECT_TRUE(map.Command7.Enabled);
        EXPECT_FALSE(screens.Picture().IsClear());
    }
}

TEST(ScreenLimits, AThousandFoldersOfKeptDataAreLookedThroughAndThoseThatHoldNothingGo) {
    const TemporaryFolder state;
    const std::string folder = state.Path("kept");
    ASSERT_TRUE(MakePrivateFolders(folder));
    for (int i = 0; i < 1000; ++i) {
        const std::string run = folder + "/" + std::to_string(i);
        ASSERT_TRUE(MakeNewFolder(run));
        PutFile(run + "/lock", "");
        if (i == 500) {
            PutFile(run + "/Form3.json", KeptJson(SomeScreen("of a thousand")));
        }
    }
    KeptFolder kept(folder);
    const auto offer = kept.Newest("Form3", [](const KeptScreen&) { return true; });
    ASSERT_TRUE(offer.has_value());
    EXPECT_EQ(MarkOf(offer->Data), "of a thousand");
    EXPECT_EQ(NamesIn(folder), std::vector<std::string>{"500"});
}

// 1960-01-01 00:00 is 315619200 s before 1970: ten years with three leap days. A millisecond before 1970 is in 1969.
TEST(ScreenLimits, AClockBeforeNineteenSeventyIsShownAndKept) {
    setenv("TZ", "UTC", 1);
    tzset();
    EXPECT_EQ(LocalTimeText(-315619200000), "1960-01-01 00:00");
    EXPECT_EQ(LocalTimeText(-1), "1969-12-31 23:59");
    EXPECT_EQ(LocalTimeText(-60000), "1969-12-31 23:59");
    EXPECT_EQ(LocalTimeText(0), "1970-01-01 00:00");
    unsetenv("TZ");
    tzset();
    KeptScreen screen = SomeScreen();
    screen.When = -315619200000;
    const auto read = ReadKeptJson(KeptJson(screen));
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(read->When, screen.When);
}

TEST(ScreenLimits, ASettingsFolderOfFourThousandBytesIsReadBack) {
    const TemporaryFolder program;
    std::string folder = "/";
    while (folder.size() < 4000) {
        folder += std::string(99, 'd') + "/";
    }
    folder.resize(3999);
    folder += "路";  // three bytes, two of them in the code page
    SaveSettings(folder, 3, 1, program.Path());
    const std::optional<Settings> settings = LoadSettings(program.Path());
    ASSERT_TRUE(settings.has_value());
    EXPECT_EQ(settings->WorkFolder, folder);
}

}  // namespace
}  // namespace zirvo::test
