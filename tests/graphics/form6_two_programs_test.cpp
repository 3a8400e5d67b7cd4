// The map screen in a folder in which another program computes, or has computed.
#include <gtest/gtest.h>

#include "graphics/screens.h"
#include "platform/file_lock.h"

namespace zirvo::test {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* Busy =
    "ZIRVO Ver2.3|ANOTHER ZIRVO IS COMPUTING IN THIS FOLDER.\nPLEASE TRY AGAIN WHEN IT HAS FINISHED.";
constexpr const char* Replaced =
    "ZIRVO Ver2.3|THE RESULTS IN THIS FOLDER ARE THOSE OF ANOTHER RUN BY NOW.\nPLEASE START THE ANALYSIS AGAIN.";

std::string EnabledOfMap(Screens& screens) {
    return NamesOf(screens.Map(), [](const forms::Control& control) -> bool { return control.Enabled; });
}

TEST(Form6InAFolderOfTwo, AStartIsRefusedAndChangesNothing) {
    for (const SectionKind kind : {SectionKind::XY, SectionKind::XZ}) {
        Screens screens;
        screens.OpenMap();
        screens.Choose(1, kind, "0");
        const std::string enabled = EnabledOfMap(screens);
        bool held = false;
        const std::unique_ptr<FileLock> other = FileLock::OfAnyFile(screens.Folder.Path(".zirvo-lock"), held);
        screens.Start();
        EXPECT_EQ(screens.Boxes(), Texts{Busy});
        EXPECT_EQ(EnabledOfMap(screens), enabled);
        EXPECT_EQ(screens.Folder.Names(), (Texts{".zirvo-lock", "Untitled.ven"}));
        other->RemoveFile();
        screens.Desktop.Forget();
        screens.Start();
        EXPECT_EQ(screens.Boxes(), Texts{});
        EXPECT_TRUE(screens.Map().Command7.Enabled) << "the map stands";
        EXPECT_FALSE(screens.Folder.Has(".zirvo-lock"));
    }
}

TEST(Form6InAFolderOfTwo, TheOtherComponentIsNotTakenFromAReportOfAnotherRun) {
    Screens screens;
    screens.OpenMap();
    screens.Choose(1, SectionKind::XY, "0");
    screens.Start();
    ASSERT_EQ(screens.Boxes(), Texts{});
    screens.Map().Combo1.UserChoose(1);
    const std::string enabled = EnabledOfMap(screens);
    const std::string report = GetFile("ZIRVO_SV.BRE");
    {
        bool held = false;
        const std::unique_ptr<FileLock> other = FileLock::OfAnyFile(screens.Folder.Path(".zirvo-lock"), held);
        screens.Map().Command5.UserClick();
        EXPECT_EQ(screens.Boxes(), Texts{Busy});
        other->RemoveFile();
    }
    std::filesystem::last_write_time("ZIRVO_SV.BRE", std::filesystem::last_write_time("ZIRVO_SV.BRE") +
                                                         std::chrono::seconds(1));  // the other's has other points
    screens.Desktop.Forget();
    screens.Map().Command5.UserClick();
    EXPECT_EQ(screens.Boxes(), Texts{Replaced});
    EXPECT_EQ(EnabledOfMap(screens), enabled);
    EXPECT_EQ(GetFile("ZIRVO_SV.BRE"), report);
}

}  // namespace
}  // namespace zirvo::test
