// The dialogs on a scripted desktop: what they ask for, what they give, and where the current folder is afterwards.
#include "dialogs/common_dialog.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "base/fault_of.h"
#include "forms/application.h"
#include "forms/scripted_desktop.h"
#include "platform/files.h"
#include "platform/temporary_folder.h"

namespace zirvo {
namespace {

using forms::Language;
using Kind = forms::ScriptedDesktop::Dialog::Kind;

class BareForm : public forms::Form {
public:
    static constexpr const char* FormName = "Form3";
    explicit BareForm(forms::Application& application) : Form(application, FormName) {}
};

/// Words of the fault that a call raises; "" if it came back.
template <class Call>
std::string FaultWordsOf(Call call) {
    try {
        call();
    } catch (const RuntimeFault& caught) {
        return caught.what();
    }
    return "";
}

class Dialogs : public testing::Test {
protected:
    Dialogs() {
        application_.Register("Form3", [](forms::Application& a) { return std::make_unique<BareForm>(a); });
        ChangeFolder(elsewhere_.Path());
    }
    ~Dialogs() override { ChangeFolder(before_); }

    forms::Form& Owner() { return application_.Get<BareForm>(); }
    const forms::FileDialog& Asked() const { return Desktop.Dialogs.back().Asked; }

    forms::ScriptedDesktop Desktop;
    const TemporaryFolder Work;

private:
    const std::string before_ = CurrentFolder();
    const TemporaryFolder elsewhere_;
    forms::Application application_{Desktop};
};

TEST_F(Dialogs, NewInstanceHasFilterOneAndRaisesNothingOnACancel) {
    const cCommonDialog dialog(Owner());
    EXPECT_EQ(dialog.FilterIndex, 1);
    EXPECT_FALSE(dialog.CancelError);
    EXPECT_EQ(dialog.flags, 0);
    EXPECT_EQ(dialog.HelpCommand, 0);
    for (const std::string* text : {&dialog.DialogTitle, &dialog.InitDir, &dialog.Filter, &dialog.Filename,
                                    &dialog.FileTitle, &dialog.HelpFile}) {
        EXPECT_EQ(*text, "");
    }
}

TEST_F(Dialogs, ShowOpenAsksForWhatThePropertiesSay) {
    cCommonDialog dialog(Owner());
    dialog.DialogTitle = "Select Input File";
    dialog.InitDir = Work.Path();
    dialog.Filter = "ZIRVO Files (*.eva)|*.eva|All|*.*";
    dialog.FilterIndex = 2;
    dialog.flags = 6144;
    dialog.Filename = "start.eva";
    dialog.Words = Language::Japanese;
    Desktop.Paths = {std::nullopt};
    dialog.ShowOpen();
    ASSERT_EQ(Desktop.Dialogs.size(), 1U);
    EXPECT_EQ(Desktop.Dialogs[0].What, Kind::Open);
    EXPECT_EQ(Asked().Owner, &Owner());
    EXPECT_EQ(Asked().Title, "Select Input File");
    EXPECT_EQ(Asked().Folder, Work.Path());
    EXPECT_EQ(Asked().Filter, "ZIRVO Files (*.eva)|*.eva|All|*.*");
    EXPECT_EQ(Asked().FilterIndex, 2);
    EXPECT_EQ(Asked().StartName, "start.eva");
    EXPECT_TRUE(Asked().FileMustExist);
    EXPECT_TRUE(Asked().PathMustExist);
    EXPECT_EQ(Asked().Words, Language::Japanese);
}

TEST_F(Dialogs, EachBitOfTheFlagsStandsForItself) {
    cCommonDialog dialog(Owner());
    for (const int flags : {0, 2048, 4096}) {
        dialog.flags = flags;
        Desktop.Paths = {std::nullopt};
        dialog.ShowOpen();
        EXPECT_EQ(Asked().PathMustExist, flags == 2048);
        EXPECT_EQ(Asked().FileMustExist, flags == 4096);
        EXPECT_EQ(dialog.flags, flags);
    }
}

TEST_F(Dialogs, BitOfTheTemplateIsCleared) {
    cCommonDialog dialog(Owner());
    dialog.flags = 6144 + 64;
    Desktop.Paths = {std::nullopt};
    dialog.ShowOpen();
    EXPECT_EQ(dialog.flags, 6144);
}

TEST_F(Dialogs, BitReadOnlyIsReportedAsClearBehindAChosenFile) {
    cCommonDialog dialog(Owner());
    dialog.flags = 6144 + 1;
    Desktop.Paths = {std::nullopt, Work.Path("a.eva")};
    dialog.ShowOpen();
    EXPECT_EQ(dialog.flags, 6144 + 1) << "nothing is reported of a cancelled dialog";
    dialog.ShowOpen();
    EXPECT_EQ(dialog.flags, 6144);
}

TEST_F(Dialogs, FilterIndexZeroBecomesOne) {
    cCommonDialog dialog(Owner());
    for (const auto show : {&cCommonDialog::ShowOpen, &cCommonDialog::ShowSave}) {
        dialog.FilterIndex = 0;
        Desktop.Paths = {std::nullopt};
        (dialog.*show)();
        EXPECT_EQ(dialog.FilterIndex, 1);
        EXPECT_EQ(Asked().FilterIndex, 1);
    }
}

TEST_F(Dialogs, ColonPartsAFilterAsABarDoes) {
    cCommonDialog dialog(Owner());
    dialog.Filter = "Input:*.eva|All|*.*";
    Desktop.Paths = {std::nullopt};
    dialog.ShowOpen();
    EXPECT_EQ(Asked().Filter, "Input|*.eva|All|*.*");
    EXPECT_EQ(dialog.Filter, "Input:*.eva|All|*.*");
}

TEST_F(Dialogs, ShowOpenGivesTheFileWithAndWithoutItsFolder) {
    cCommonDialog dialog(Owner());
    Desktop.Paths = {Work.Path("道路 1.eva")};
    dialog.ShowOpen();
    EXPECT_EQ(dialog.Filename, Work.Path("道路 1.eva"));
    EXPECT_EQ(dialog.FileTitle, "道路 1.eva");
}

TEST_F(Dialogs, ShowOpenMovesTheCurrentFolderToTheFile) {
    cCommonDialog dialog(Owner());
    Desktop.Paths = {Work.Put("a.eva", "text")};
    dialog.ShowOpen();
    EXPECT_EQ(CurrentFolder(), Work.Path());
    EXPECT_EQ(ReadFileBytes("a.eva"), "text");
}

// The import compares this text with the folder of the settings.
TEST_F(Dialogs, CurrentFolderIsTheTextThatTheDialogReportedAndNotWhereALinkLeads) {
    std::filesystem::create_directory(Work.Path("real"));
    std::filesystem::create_directory_symlink(Work.Path("real"), Work.Path("link"));
    cCommonDialog dialog(Owner());
    Desktop.Paths = {Work.Path("link/a.eva")};
    dialog.ShowOpen();
    EXPECT_EQ(CurrentFolder(), Work.Path("link"));
}

TEST_F(Dialogs, FileInTheRootMovesTheCurrentFolderThere) {
    cCommonDialog dialog(Owner());
    Desktop.Paths = {"/a.eva"};
    dialog.ShowOpen();
    EXPECT_EQ(CurrentFolder(), "/");
    EXPECT_EQ(dialog.FileTitle, "a.eva");
}

TEST_F(Dialogs, FolderThatGoesWhileTheDialogStandsIsFault76) {
    cCommonDialog dialog(Owner());
    Desktop.Paths = {Work.Path("gone/a.eva")};
    EXPECT_EQ(FaultOf([&] { dialog.ShowOpen(); }), 76);
}

TEST_F(Dialogs, CancelWithCancelErrorIsFailure20001) {
    const std::string folder = CurrentFolder();
    cCommonDialog dialog(Owner());
    dialog.CancelError = true;
    dialog.Filename = "*.bmp";
    Desktop.Paths = {std::nullopt, std::nullopt, std::nullopt};
    EXPECT_EQ(FaultOf([&] { dialog.ShowOpen(); }), 20001);
    EXPECT_EQ(FaultOf([&] { dialog.ShowSave(); }), 20001);
    EXPECT_EQ(FaultWordsOf([&] { dialog.ShowOpen(); }), "User selected cancel.");
    EXPECT_EQ(dialog.Filename, "*.bmp");
    EXPECT_EQ(dialog.FileTitle, "");
    EXPECT_EQ(CurrentFolder(), folder);
}

TEST_F(Dialogs, CancelWithoutCancelErrorSimplyReturns) {
    const std::string folder = CurrentFolder();
    cCommonDialog dialog(Owner());
    dialog.Filename = "*.bmp";
    Desktop.Paths = {std::nullopt, std::nullopt};
    dialog.ShowOpen();
    dialog.ShowSave();
    EXPECT_EQ(dialog.Filename, "*.bmp");
    EXPECT_EQ(dialog.FileTitle, "");
    EXPECT_EQ(CurrentFolder(), folder);
}

TEST_F(Dialogs, ShowSaveGivesTheNameAndLeavesTheCurrentFolder) {
    const std::string folder = CurrentFolder();
    cCommonDialog dialog(Owner());
    dialog.flags = 6144;
    dialog.Filename = "*.bmp";
    Desktop.Paths = {Work.Path("new/map")};
    dialog.ShowSave();
    EXPECT_EQ(Desktop.Dialogs[0].What, Kind::Save);
    EXPECT_EQ(Asked().StartName, "*.bmp");
    EXPECT_TRUE(Asked().PathMustExist);
    EXPECT_FALSE(Asked().FileMustExist) << "a bit of the open dialog";
    EXPECT_EQ(dialog.Filename, Work.Path("new/map"));
    EXPECT_EQ(dialog.FileTitle, "map");
    EXPECT_EQ(CurrentFolder(), folder);
}

TEST_F(Dialogs, HelpShowsThePageThatStandsForTheOldHelpFile) {
    Work.Put("ZIRVO1.html", "<p>");
    Work.Put("b.html", "<p>");
    Work.Put("c.txt", "");
    for (const auto& [file, page] :
         {std::pair{"ZIRVO1.HLP", "ZIRVO1.html"}, {"b.hlp", "b.html"}, {"b.html", "b.html"}, {"c.txt", "c.txt"}}) {
        Desktop.Forget();
        cCommonDialog dialog(Owner());
        dialog.HelpFile = Work.Path(file);
        dialog.HelpCommand = 11;
        dialog.ShowHelp();
        ASSERT_EQ(Desktop.HelpCalls.size(), 1U);
        EXPECT_EQ(Desktop.HelpCalls[0].File, Work.Path(page));
        EXPECT_EQ(Desktop.HelpCalls[0].Form, "Form3");
    }
}

TEST_F(Dialogs, HelpThatIsMissingOrCannotBeShownIsFault53) {
    EXPECT_EQ(FaultOf([&] { ShowHelpFile(Owner(), Work.Path("ZIRVO1.HLP"), 11); }), 53);
    EXPECT_EQ(FaultOf([&] { ShowHelpFile(Owner(), Work.Path("none/ZIRVO1.HLP"), 11); }), 53);
    EXPECT_EQ(FaultOf([&] { ShowHelpFile(Owner(), "", 11); }), 53);
    std::filesystem::create_directory(Work.Path("ZIRVO2.html"));
    EXPECT_EQ(FaultOf([&] { ShowHelpFile(Owner(), Work.Path("ZIRVO2.HLP"), 11); }), 53);
    EXPECT_TRUE(Desktop.HelpCalls.empty());
    Work.Put("ZIRVO1.html", "<p>");
    Desktop.HelpCanBeShown = false;
    EXPECT_EQ(FaultOf([&] { ShowHelpFile(Owner(), Work.Path("ZIRVO1.HLP"), 11); }), 53);
}

TEST_F(Dialogs, HelpCommands513And515AreFailure13705) {
    Work.Put("ZIRVO1.html", "<p>");
    const auto show = [&](int command) { ShowHelpFile(Owner(), Work.Path("ZIRVO1.HLP"), command); };
    for (const int command : {513, 515}) {
        EXPECT_EQ(FaultOf([&] { show(command); }), 13705);
        EXPECT_EQ(FaultWordsOf([&] { show(command); }), "Invalid WinHelp Command Passed to ShowHelp function.");
    }
    EXPECT_TRUE(Desktop.HelpCalls.empty());
    for (const int command : {0, 3, 11, 512, 514, 516}) {
        show(command);
    }
    EXPECT_EQ(Desktop.HelpCalls.size(), 6U);
}

TEST_F(Dialogs, OpenFileDialogGivesTheNameWithoutFolderAndMovesTheCurrentFolder) {
    Desktop.Paths = {Work.Path("a.eva")};
    EXPECT_EQ(OpenFileDialog(Owner(), "Title", "/start", "Input|*.eva", 1, Language::Japanese), "a.eva");
    EXPECT_EQ(CurrentFolder(), Work.Path());
    EXPECT_EQ(Desktop.Dialogs[0].What, Kind::Open);
    EXPECT_EQ(Asked().Title, "Title");
    EXPECT_EQ(Asked().Folder, "/start");
    EXPECT_EQ(Asked().Filter, "Input|*.eva");
    EXPECT_EQ(Asked().FilterIndex, 1);
    EXPECT_EQ(Asked().StartName, "");
    EXPECT_TRUE(Asked().FileMustExist && Asked().PathMustExist);
    EXPECT_EQ(Asked().Words, Language::Japanese);
}

TEST_F(Dialogs, SaveFileDialogGivesTheNameWithFolder) {
    const std::string folder = CurrentFolder();
    Desktop.Paths = {Work.Path("a.bmp")};
    EXPECT_EQ(SaveFileDialog(Owner(), "Title", "/start", "Picture|*.bmp", 2, "*.bmp", Language::English),
              Work.Path("a.bmp"));
    EXPECT_EQ(CurrentFolder(), folder);
    EXPECT_EQ(Desktop.Dialogs[0].What, Kind::Save);
    EXPECT_EQ(Asked().StartName, "*.bmp");
    EXPECT_EQ(Asked().FilterIndex, 2);
    EXPECT_EQ(Asked().Words, Language::English);
}

TEST_F(Dialogs, OperationsGiveNothingForACancelAndLetOtherFaultsTravel) {
    const std::string folder = CurrentFolder();
    Desktop.Paths = {std::nullopt, std::nullopt, std::nullopt, Work.Path("gone/a.eva")};
    EXPECT_EQ(OpenFileDialog(Owner(), "", "", "", 1, Language::English), std::nullopt);
    EXPECT_EQ(SaveFileDialog(Owner(), "", "", "", 1, "", Language::English), std::nullopt);
    EXPECT_EQ(ChooseFolderDialog(Owner(), "", "", Language::English), std::nullopt);
    EXPECT_EQ(CurrentFolder(), folder);
    EXPECT_EQ(FaultOf([&] { OpenFileDialog(Owner(), "", "", "", 1, Language::English); }), 76);
}

TEST_F(Dialogs, ChooseFolderDialogGivesTheFolderAndLeavesTheCurrentOne) {
    const std::string folder = CurrentFolder();
    Desktop.Paths = {Work.Path()};
    EXPECT_EQ(ChooseFolderDialog(Owner(), "SELECT FOLDER", "/start", Language::Japanese), Work.Path());
    EXPECT_EQ(CurrentFolder(), folder);
    EXPECT_EQ(Desktop.Dialogs[0].What, Kind::Folder);
    EXPECT_EQ(Asked().Owner, &Owner());
    EXPECT_EQ(Asked().Title, "SELECT FOLDER");
    EXPECT_EQ(Asked().Folder, "/start");
    EXPECT_EQ(Asked().Words, Language::Japanese);
}

}  // namespace
}  // namespace zirvo
