// What the screens write, with one call to the system that fails, each call in turn and in five ways.
//
// What is checked Old file or new, whole; no temporary; an act that fails ends in the box of a run-time error that
// names
//                 the file, or, where failures are quiet on purpose (SAVE PICTURE, kept data), in none.
#include <gtest/gtest.h>

#include <memory>
#include <sstream>

#include "analysis/analysis_screens.h"
#include "faults/each_call.h"
#include "graphics/screens.h"
#include "kept/kept_folder.h"
#include "kept/kept_json.h"
#include "kept/some_screens.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "shell/screens.h"
#include "shell/settings.h"

namespace zirvo::test {
namespace {

using forms::Answer;

constexpr const char* Old = "old\r\n";
const std::string SettingsName(SettingsFileName);

/// The last part of a path that the call was about.
std::string NameIn(const std::string& call) {
    return std::filesystem::path(call).filename().string();
}

/// The box of the error names the file, or the folder that it lies in.
void ExpectTold(const forms::ScriptedDesktop& desktop, const std::string& name, const std::string& folder) {
    ASSERT_EQ(desktop.EndStatus, 1) << "the program goes on";
    ASSERT_FALSE(desktop.Boxes.empty());
    const std::string& box = desktop.Boxes.back().Text;
    EXPECT_TRUE(box.starts_with("Run-time error '")) << box;
    EXPECT_TRUE(box.find(name) != std::string::npos || box.find("Folder: " + folder) != std::string::npos) << box;
}

/// The same for the file of a call that failed: of a rename either name, of a temporary file that of its target. The
/// rules have it that an input or a report that cannot be looked at is one that is missing, and the program goes on.
void ExpectTold(const forms::ScriptedDesktop& desktop, const Failure& failure, const std::string& folder) {
    if (failure.Call.starts_with("stat ") && !desktop.EndStatus) {
        ASSERT_FALSE(desktop.Boxes.empty());
        const std::string& told = desktop.Boxes.back().Text;
        EXPECT_TRUE(told == "INPUT FILE DOES NOT EXIST OR EMPTY" || told == "ANALYSIS UNCOMPLETED") << told;
        return;
    }
    std::istringstream words(failure.Call);
    std::string call;
    std::string path;
    std::string to;
    words >> call >> path >> to;
    const std::string& box = desktop.Boxes.empty() ? "" : desktop.Boxes.back().Text;
    const bool namesTheTarget = !to.empty() && box.find(NameIn(to)) != std::string::npos;
    const std::string name = NameIn(namesTheTarget ? to : path);
    ExpectTold(desktop, name.starts_with(".zirvo-") ? "File: " + folder : name, folder);
}

struct SavedData {
    std::unique_ptr<AnalysisScreens> Screens = std::make_unique<AnalysisScreens>();

    SavedData() {
        Screens->ImportAndAnswer(Answer::Yes);
        Screens->Data().Text7.Text = "road";
        Screens->Data().Command5.UserClick();
        Screens->Desktop.Forget();
        PutFile("road.eva", Old);
    }
    std::string Folder() const { return Screens->Folder.Path(); }
    void Act() const {
        Screens->Desktop.Answers = {Answer::Yes};  // over the old one
        Screens->Data().Command6.UserClick();
        Screens->Desktop.Answers.clear();
    }
    bool Done() const { return !Screens->Desktop.EndStatus; }
    bool Whole() const { return GetFile("road.eva") == Old || GetFile("road.eva") == ExampleFile(); }
    void Judge(const Failure& /*failure*/) const {
        ExpectOldOrNew(GetFile("road.eva"), Old, ExampleFile(), Done());
        ExpectNoTemporary(Folder());
        if (!Done()) {
            ExpectTold(Screens->Desktop, "road.eva", Folder());
        }
    }
};

TEST(ScreenFault, SaveDataOverAnOldFileLeavesItOrTheNewOne) {
    FailEachCall<SavedData>([] { return SavedData(); });
}

// A folder of the network that goes away while it is written to: at whichever call, it is told with the file's name.
TEST(ScreenFault, SaveDataIntoAFolderThatGoesAwayLeavesTheOldFileOrTheNewOne) {
    FailEachCall<SavedData>([] { return SavedData(); }, NetworkTroubles);
}

TEST(ScreenFault, SaveDataThatIsKilledLeavesTheOldFileOrTheNewOne) {
    KillBeforeEachCall<SavedData>([] { return SavedData(); });
}

/// ANALYZE with the solver itself.
struct Analyzed {
    std::unique_ptr<ProcessService> Processes = MakeProcessService();
    std::unique_ptr<AnalysisScreens> Screens = std::make_unique<AnalysisScreens>();
    static constexpr std::array Files{"Untitled.san", "Untitled_san.csv", "Untitled.bre", "Untitled_bre.csv"};

    Analyzed() {
        Screens->UseSolver(*Processes, ZIRVO_BIN);
        Screens->ImportAndAnswer(Answer::No);
        Screens->Desktop.Forget();
        for (const char* file : Files) {
            PutFile(file, Old);
        }
    }
    std::string Folder() const { return Screens->Folder.Path(); }
    void Act() const { Screens->Data().Command7.UserClick(); }
    bool Done() const { return Screens->IsShown("Form4"); }
    bool Whole() const;
    void Recover() const { std::filesystem::remove("ZIRVO_SV.TMP"); }
    void Judge(const Failure& failure) const;
};

/// What a run without a failure leaves.
const std::map<std::string, std::string>& WholeReports() {
    static const std::map<std::string, std::string> whole = [] {
        const Analyzed scene;
        scene.Act();
        EXPECT_TRUE(scene.Done());
        std::map<std::string, std::string> files;
        for (const char* file : Analyzed::Files) {
            files[file] = GetFile(file);
        }
        return files;
    }();
    return whole;
}

std::string Unstamped(const std::string& report) {
    return report.substr(report.find('\n') + 1);
}

/// A report may be gone, or lie in ZIRVO_SV.TMP while its stamp is put in front of it.
bool Analyzed::Whole() const {
    const std::string aside = Screens->Folder.Get("ZIRVO_SV.TMP");
    bool known = aside == "<missing>";
    bool whole = true;
    for (const auto& [name, bytes] : WholeReports()) {
        const std::string found = Screens->Folder.Get(name);
        const bool report = name.ends_with("san") || name.ends_with("bre");
        known = known || aside == Unstamped(bytes);
        whole = whole &&
                (found == Old || found == bytes || (report && (found == "<missing>" || found == Unstamped(bytes))));
    }
    return known && whole;
}

void Analyzed::Judge(const Failure& failure) const {
    for (const auto& [name, whole] : WholeReports()) {
        const std::string found = Screens->Folder.Get(name);
        const bool report = name.ends_with("san") || name.ends_with("bre");
        const bool solvers = report && found == Unstamped(whole);
        EXPECT_TRUE(found == whole || (!Done() && (found == Old || solvers))) << name << ":\n" << found;
    }
    ExpectNoTemporary(Folder());
    const bool removal = failure.Call.starts_with("remove ");
    EXPECT_TRUE(!Screens->Folder.Has("ZIRVO_SV.TMP") || (removal && NameIn(failure.Call) == "ZIRVO_SV.TMP"));
    EXPECT_TRUE(!Screens->Folder.Has("Initial_File") || (removal && NameIn(failure.Call) == "Initial_File") ||
                failure.Call.starts_with("start "));
    if (!Done()) {
        ExpectTold(Screens->Desktop, failure, Folder());
    }
}

TEST(ScreenFault, AnalyzeLeavesReportsAndCommaCopiesOldOrNew) {
    WholeReports();
    FailEachCall<Analyzed>([] { return Analyzed(); });
}

TEST(ScreenFault, AnalyzeThatIsKilledLeavesReportsOldOrNewAndTheNextOneWorks) {
    WholeReports();
    KillBeforeEachCall<Analyzed>([] { return Analyzed(); });
}

/// A section to its map.
struct Mapped {
    std::unique_ptr<Screens> Map = std::make_unique<Screens>();

    Mapped() {
        Map->OpenMap();
        Map->Choose(1, SectionKind::XY, "0");
        Map->Desktop.Forget();
    }
    std::string Folder() const { return Map->Folder.Path(); }
    void Act() const { Map->Start(); }
    bool Done() const { return !Map->Desktop.EndStatus && Map->Map().Command7.Enabled; }
    /// What it writes are work files alone.
    bool Whole() const { return Map->Folder.Has("Untitled.ven"); }
    void Recover() const { std::filesystem::remove("ZIRVO_SV.TMP"); }
    void Judge(const Failure& failure) const {
        ExpectNoTemporary(Folder());
        const bool removal = failure.Call.starts_with("remove ");
        EXPECT_TRUE(!Map->Folder.Has("ZIRVO_SV.TMP") || (removal && NameIn(failure.Call) == "ZIRVO_SV.TMP"));
        if (Done()) {
            return;
        }
        // The rules have it that an input which cannot be looked at is one that is missing, and go on behind that to
        // the report, which nobody has written.
        const auto& boxes = Map->Desktop.Boxes;
        const bool missing = !boxes.empty() && boxes.front().Text == "INPUT FILE DOES NOT EXIST OR EMPTY";
        EXPECT_TRUE(!missing || failure.Call == "stat " + Map->Folder.Path("ZIRVO_SV.EVA"));
        if (missing) {
            ExpectTold(Map->Desktop, "ZIRVO_SV.BRE", Folder());
        } else {
            ExpectTold(Map->Desktop, failure, Folder());
        }
    }
};

TEST(ScreenFault, ASectionComesToItsMapOrTellsWhichFileWasInTheWay) {
    FailEachCall<Mapped>([] { return Mapped(); });
}

TEST(ScreenFault, AMapThatIsKilledIsNoHindranceForTheNextOne) {
    KillBeforeEachCall<Mapped>([] { return Mapped(); });
}

struct SavedSettings {
    std::unique_ptr<TemporaryFolder> Program = std::make_unique<TemporaryFolder>();
    std::unique_ptr<TemporaryFolder> Work = std::make_unique<TemporaryFolder>();
    std::unique_ptr<forms::ScriptedDesktop> Desktop = std::make_unique<forms::ScriptedDesktop>();
    std::unique_ptr<ProgramRun> Run;
    std::string OldBytes = Work->Path() + "\r\n 3 \r\n 1 \r\n";

    SavedSettings() {
        Program->Put(SettingsName, OldBytes);
        Run = std::make_unique<ProgramRun>(*Desktop, *Program);
        Run->StartSettings().Option1.UserClick();
    }
    std::string Folder() const { return Program->Path(); }
    void Act() const { Run->App.Get<Form2>().Command4.UserClick(); }
    bool Done() const { return !Desktop->EndStatus; }
    std::string NewBytes() const { return Work->Path() + "\r\n 1 \r\n 1 \r\n"; }
    bool Whole() const { return Program->Get(SettingsName) == OldBytes || Program->Get(SettingsName) == NewBytes(); }
    void Judge(const Failure& /*failure*/) const {
        ExpectOldOrNew(Program->Get(SettingsName), OldBytes, NewBytes(), Done());
        ExpectNoTemporary(Folder());
        if (!Done()) {
            ExpectTold(*Desktop, SettingsName, Folder());
        }
    }
};

TEST(ScreenFault, NextLeavesTheSettingsOldOrNew) {
    FailEachCall<SavedSettings>([] { return SavedSettings(); });
}

TEST(ScreenFault, NextThatIsKilledLeavesTheSettingsOldOrNew) {
    KillBeforeEachCall<SavedSettings>([] { return SavedSettings(); });
}

/// Kept data: whatever cannot be written is not kept, and that is all.
struct KeptAgain {
    std::unique_ptr<TemporaryFolder> State = std::make_unique<TemporaryFolder>();
    std::unique_ptr<KeptFolder> Kept = std::make_unique<KeptFolder>(State->Path("kept"));
    mutable bool Written = false;

    KeptAgain() { EXPECT_TRUE(Kept->Write(SomeScreen("first"))); }
    std::string Folder() const { return State->Path(); }
    void Act() const { Written = Kept->Write(SomeScreen("second")); }
    bool Done() const { return Written; }
    std::string Mark() const {
        const std::string own = State->Path("kept") + "/" + NamesIn(State->Path("kept")).back();  // the last one made
        const auto kept = ReadKeptJson(ReadFileBytes(own + "/Form3.json"));
        return kept ? MarkOf(*kept) : "broken";
    }
    bool Whole() const { return Mark() == "first" || Mark() == "second"; }
    void Judge(const Failure& /*failure*/) {
        ExpectNoTemporary(Folder());
        EXPECT_EQ(Mark(), Written ? "second" : "first");
        EXPECT_TRUE(Kept->Write(SomeScreen("third"))) << "it is kept again behind a failure";
    }
};

TEST(ScreenFault, KeptDataIsTheLastOrTheOneBeforeItAndIsKeptAgain) {
    FailEachCall<KeptAgain>([] { return KeptAgain(); });
}

TEST(ScreenFault, KeptDataOfAProgramThatIsKilledAreWhole) {
    KillBeforeEachCall<KeptAgain>([] { return KeptAgain(); });
}

/// The first write, which makes the folders.
struct KeptFirst {
    std::unique_ptr<TemporaryFolder> State = std::make_unique<TemporaryFolder>();
    std::unique_ptr<KeptFolder> Kept = std::make_unique<KeptFolder>(State->Path("kept"));
    mutable bool Written = false;

    std::string Folder() const { return State->Path(); }
    void Act() const { Written = Kept->Write(SomeScreen()); }
    bool Done() const { return Written; }
    void Judge(const Failure& /*failure*/) const {
        ExpectNoTemporary(Folder());
        EXPECT_TRUE(Kept->Write(SomeScreen("second")));
    }
};

TEST(ScreenFault, TheFolderOfKeptDataIsMadeAtTheNextWriteWhereItCouldNotBe) {
    FailEachCall<KeptFirst>([] { return KeptFirst(); });
}

}  // namespace
}  // namespace zirvo::test
