// The folder of kept screens: what lies where, what is offered, and what other programs and broken disks do to it.
// A second KeptFolder stands for a second program: the system tells their locks apart all the same.
#include "kept/kept_folder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <fstream>

#include "kept/kept_json.h"
#include "kept/some_screens.h"
#include "platform/in_child.h"
#include "platform/temporary_folder.h"

namespace zirvo::test {
namespace {

namespace fs = std::filesystem;

class KeptFolders : public testing::Test {
protected:
    const TemporaryFolder Home;
    const std::string Folder = Home.Path("zirvo/kept");

    /// A program that wrote this and ended without a word, as a killed one does.
    void Crashed(const std::string& mark, int age = 0) {
        const std::set<fs::path> before = AllFiles();
        {
            KeptFolder program(Folder);
            ASSERT_TRUE(program.Write(SomeScreen(mark)));
        }
        for (const fs::path& file : AllFiles()) {
            if (!before.contains(file)) {
                fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(age));
            }
        }
    }
    std::set<fs::path> AllFiles() const {
        std::set<fs::path> files;
        if (fs::exists(Folder)) {
            for (const auto& entry : fs::recursive_directory_iterator(Folder)) {
                if (entry.is_regular_file()) {
                    files.insert(entry.path());
                }
            }
        }
        return files;
    }
    std::multiset<std::string> Names() const {
        std::multiset<std::string> names;
        for (const fs::path& file : AllFiles()) {
            names.insert(file.filename().string());
        }
        return names;
    }
    /// What a program would be offered: the mark, with "again " before what was declined; "" for nothing.
    static std::string OfferOf(KeptFolder& program, const std::string& screen = "Form3") {
        const auto offer = program.Newest(screen, FitsAll);
        return !offer ? "" : (offer->Declined ? "again " : "") + MarkOf(offer->Data);
    }
    std::string OfferOfANewProgram() const {
        KeptFolder program(Folder);
        return OfferOf(program);
    }
    /// A new program's user says No to what it offers.
    void DeclineInANewProgram() const {
        KeptFolder program(Folder);
        const auto offer = program.Newest("Form3", FitsAll);
        ASSERT_TRUE(offer.has_value());
        program.Decline(*offer);
    }
};

using Names = std::multiset<std::string>;

TEST_F(KeptFolders, NothingIsMadeBeforeThereIsSomethingToKeep) {
    KeptFolder program(Folder);
    EXPECT_EQ(OfferOf(program), "");
    program.StartAnother("Form3");
    program.Forget("Form3");
    EXPECT_EQ(Home.Entries(), 0U);
}

TEST_F(KeptFolders, WhatAProgramLeftIsOfferedToTheNext) {
    Crashed("5000");
    EXPECT_EQ(OfferOfANewProgram(), "5000");
    KeptFolder program(Folder);
    const auto offer = program.Newest("Form3", FitsAll);
    ASSERT_TRUE(offer.has_value());
    EXPECT_TRUE(HoldSameData(offer->Data, SomeScreen()));
    EXPECT_EQ(offer->Data.When, SomeScreen().When);
}

TEST_F(KeptFolders, OnlyTheUserMayReadIt) {
    Crashed("5000");
    for (const auto& entry : fs::recursive_directory_iterator(Folder)) {
        if (entry.is_directory()) {
            EXPECT_EQ(entry.status().permissions(), fs::perms::owner_all);
        }
    }
}

TEST_F(KeptFolders, EachScreenHasItsOwn) {
    KeptFolder program(Folder);
    program.Write(SomeScreen("3"));
    KeptScreen other = OtherScreen();
    other.Tables[0].Cells[0] = "5";
    program.Write(other);
    program.StartAnother("Form3");
    program.StartAnother("Form5");
    EXPECT_EQ(OfferOf(program, "Form3"), "3");
    EXPECT_EQ(OfferOf(program, "Form5"), "5");
    EXPECT_EQ(OfferOf(program, "Form6"), "");
}

TEST_F(KeptFolders, TheLaterWriteOfTheSameDataTakesThePlaceOfTheEarlier) {
    KeptFolder program(Folder);
    program.Write(SomeScreen("1"));
    program.Write(SomeScreen("2"));
    EXPECT_EQ(Names(), (test::Names{"Form3.json", "lock"}));
    program.StartAnother("Form3");
    EXPECT_EQ(OfferOf(program), "2");
}

TEST_F(KeptFolders, OtherDataMakeTheLastTheLastButOneOnlyOnceTheyAreWritten) {
    KeptFolder program(Folder);
    program.Write(SomeScreen("1"));
    program.StartAnother("Form3");
    EXPECT_EQ(Names(), (test::Names{"Form3.json", "lock"}));
    program.Write(SomeScreen("2"));
    EXPECT_EQ(Names(), (test::Names{"Form3-before.json", "Form3.json", "lock"}));
    program.Write(SomeScreen("3"));
    program.StartAnother("Form3");
    EXPECT_EQ(OfferOf(program), "3");
}

TEST_F(KeptFolders, WhatStandsOnTheScreenIsNotOfferedToIt) {
    KeptFolder program(Folder);
    program.Write(SomeScreen("1"));
    EXPECT_EQ(OfferOf(program), "");
}

TEST_F(KeptFolders, WhatIsSavedIsForgottenAndTheLastButOneStays) {
    KeptFolder program(Folder);
    program.Write(SomeScreen("1"));
    program.StartAnother("Form3");
    program.Write(SomeScreen("2"));
    program.Forget("Form3");
    EXPECT_EQ(Names(), (test::Names{"Form3-before.json", "lock"}));
    program.StartAnother("Form3");
    EXPECT_EQ(OfferOf(program), "1");
}

TEST_F(KeptFolders, ForgettingDataThatWereNeverWrittenLeavesTheEarlierOnes) {
    KeptFolder program(Folder);
    program.Write(SomeScreen("1"));
    program.StartAnother("Form3");
    program.Forget("Form3");
    EXPECT_EQ(OfferOf(program), "1");
}

TEST_F(KeptFolders, AProgramThatEndsWithNothingKeptLeavesNothing) {
    {
        KeptFolder program(Folder);
        program.Write(SomeScreen());
        program.Forget("Form3");
    }
    EXPECT_TRUE(fs::is_empty(Folder));
}

TEST_F(KeptFolders, ALivingProgramsDataAreNotOfferedToAnother) {
    KeptFolder living(Folder);
    living.Write(SomeScreen("1"));
    EXPECT_EQ(OfferOfANewProgram(), "");
}

TEST_F(KeptFolders, TwoProgramsAtOnceKeepEachItsOwn) {
    {
        KeptFolder one(Folder);
        KeptFolder two(Folder);
        one.Write(SomeScreen("1"));
        two.Write(SomeScreen("2"));
        one.Write(SomeScreen("1 again"));
    }
    KeptFolder third(Folder);
    auto first = third.Newest("Form3", FitsAll);
    ASSERT_TRUE(first.has_value());
    EXPECT_EQ(MarkOf(first->Data), "1 again");
    third.Take(*first);
    first.reset();
    third.StartAnother("Form3");
    third.Write(SomeScreen("3"));
    EXPECT_EQ(OfferOf(third), "2");
}

TEST_F(KeptFolders, AnOfferThatWaitsForItsAnswerIsMadeToNobodyElse) {
    Crashed("1");
    KeptFolder asking(Folder);
    auto offer = asking.Newest("Form3", FitsAll);
    EXPECT_EQ(OfferOfANewProgram(), "");
    offer.reset();
    EXPECT_EQ(OfferOfANewProgram(), "1");
}

TEST_F(KeptFolders, TheNewestOfSeveralIsOfferedFirst) {
    Crashed("old", 3);
    Crashed("new", 1);
    Crashed("older", 5);
    EXPECT_EQ(OfferOfANewProgram(), "new");
}

TEST_F(KeptFolders, YesMakesItTheProgramsOwn) {
    Crashed("1");
    KeptFolder program(Folder);
    program.Take(*program.Newest("Form3", FitsAll));
    EXPECT_EQ(Names(), (test::Names{"Form3.json", "lock"}));
    EXPECT_EQ(OfferOf(program), "");
    EXPECT_EQ(OfferOfANewProgram(), "");
    program.Write(SomeScreen("1 and more"));
    program.StartAnother("Form3");
    EXPECT_EQ(OfferOf(program), "1 and more");
}

TEST_F(KeptFolders, YesAfterPreviousGoesOnWithTheSameData) {
    KeptFolder program(Folder);
    program.Write(SomeScreen("1"));
    program.StartAnother("Form3");  // the screen is gone and comes up again
    program.Take(*program.Newest("Form3", FitsAll));
    program.Write(SomeScreen("1 and more"));
    EXPECT_EQ(Names(), (test::Names{"Form3.json", "lock"}));
}

TEST_F(KeptFolders, NoIsAskedOnceMoreAndThenNoMore) {
    Crashed("1");
    DeclineInANewProgram();
    EXPECT_EQ(OfferOfANewProgram(), "again 1");
    DeclineInANewProgram();
    EXPECT_EQ(OfferOfANewProgram(), "");
    EXPECT_TRUE(fs::is_empty(Folder));
}

TEST_F(KeptFolders, WhatWasDeclinedBySlipCanStillBeTaken) {
    Crashed("1");
    KeptFolder program(Folder);
    program.Decline(*program.Newest("Form3", FitsAll));
    program.StartAnother("Form3");
    program.Take(*program.Newest("Form3", FitsAll));
    EXPECT_EQ(Names(), (test::Names{"Form3.json", "lock"}));
    program.StartAnother("Form3");
    EXPECT_EQ(OfferOf(program), "1");
}

TEST_F(KeptFolders, WhatWasDeclinedWaitsBehindNewerData) {
    Crashed("1", 2);
    DeclineInANewProgram();
    Crashed("2");
    EXPECT_EQ(OfferOfANewProgram(), "2");
    DeclineInANewProgram();
    EXPECT_EQ(OfferOfANewProgram(), "again 2");
    DeclineInANewProgram();
    EXPECT_EQ(OfferOfANewProgram(), "again 1");
}

TEST_F(KeptFolders, WhatWasDeclinedBeforeInTheSameProgramIsStillOfferedOnceMore) {
    KeptFolder program(Folder);
    for (const char* mark : {"1", "2", "3"}) {
        program.Write(SomeScreen(mark));
        program.StartAnother("Form3");  // the screen is gone and comes up again
        EXPECT_EQ(OfferOf(program), mark);
        program.Decline(*program.Newest("Form3", FitsAll));
    }
    std::set<std::string> offered;
    for (int question = 0; question < 3; ++question) {
        offered.insert(OfferOf(program));
        program.Decline(*program.Newest("Form3", FitsAll));
    }
    EXPECT_EQ(offered, (std::set<std::string>{"again 1", "again 2", "again 3"}));
    EXPECT_EQ(OfferOf(program), "");
}

TEST_F(KeptFolders, OfManyThatWereDeclinedEachGoesOnceItStandsInAFile) {
    KeptFolder program(Folder);
    for (const char* mark : {"1", "2"}) {
        program.Write(SomeScreen(mark));
        program.StartAnother("Form3");
        program.Decline(*program.Newest("Form3", FitsAll));
    }
    program.ForgetCopies(SomeScreen("2"));
    EXPECT_EQ(OfferOf(program), "again 1");
}

TEST_F(KeptFolders, ALastButOneIsDeclinedTwiceLikeAnyOther) {
    KeptFolder program(Folder);
    program.Write(SomeScreen("1"));
    program.StartAnother("Form3");
    program.Write(SomeScreen("2"));
    program.Forget("Form3");
    program.StartAnother("Form3");
    program.Decline(*program.Newest("Form3", FitsAll));
    EXPECT_EQ(OfferOf(program), "again 1");
    program.Decline(*program.Newest("Form3", FitsAll));
    EXPECT_EQ(OfferOf(program), "");
}

TEST_F(KeptFolders, WhatCannotBeFilledInIsPassedOver) {
    Crashed("1", 2);
    Crashed("2");
    KeptFolder program(Folder);
    const auto offer = program.Newest("Form3", [](const KeptScreen& screen) { return MarkOf(screen) != "2"; });
    ASSERT_TRUE(offer.has_value());
    EXPECT_EQ(MarkOf(offer->Data), "1");
}

TEST_F(KeptFolders, BrokenForeignAndHugeFilesArePassedOver) {
    Crashed("good", 5);
    for (const char* bytes : {"", "{", "no JSON at all", "{\"format\":\"something else\"}"}) {
        const std::set<fs::path> before = AllFiles();
        Crashed("bad");
        for (const fs::path& file : AllFiles()) {
            if (!before.contains(file) && file.filename() == "Form3.json") {
                std::ofstream(file, std::ios::binary) << bytes;
            }
        }
    }
    Crashed("huge");
    for (const fs::path& file : AllFiles()) {
        if (file.filename() == "Form3.json" && fs::file_size(file) > 0 &&
            fs::last_write_time(file) > fs::file_time_type::clock::now() - std::chrono::minutes(1)) {
            fs::resize_file(file, std::uintmax_t{3} << 30);  // without taking that room
        }
    }
    EXPECT_EQ(OfferOfANewProgram(), "good");
}

TEST_F(KeptFolders, AFileOfAnotherScreenUnderThisNameIsPassedOver) {
    Crashed("1");
    for (const fs::path& file : AllFiles()) {
        if (file.filename() == "Form3.json") {
            std::ofstream(file, std::ios::binary) << KeptJson(OtherScreen());
        }
    }
    EXPECT_EQ(OfferOfANewProgram(), "");
}

TEST_F(KeptFolders, StrangeFilesAndFoldersInItAreLeftAlone) {
    Crashed("1");
    std::ofstream(Folder + "/notes.txt") << "mine";
    fs::create_directories(Folder + "/mine");
    std::ofstream(Folder + "/mine/notes.txt") << "mine";
    EXPECT_EQ(OfferOfANewProgram(), "1");
    EXPECT_TRUE(fs::exists(Folder + "/notes.txt"));
    EXPECT_TRUE(fs::exists(Folder + "/mine/notes.txt"));
}

TEST_F(KeptFolders, WhatAKilledProgramLeftHalfWrittenGoes) {
    Crashed("1");
    for (const auto& entry : fs::directory_iterator(Folder)) {
        std::ofstream(entry.path() / ".zirvo-77-1.tmp") << "{\"cou";
    }
    fs::create_directory(Folder + "/1234-0");  // killed before it had its lock
    EXPECT_EQ(OfferOfANewProgram(), "1");
    EXPECT_EQ(Names(), (test::Names{"Form3.json", "lock"}));
    EXPECT_FALSE(fs::exists(Folder + "/1234-0"));
}

TEST_F(KeptFolders, AFolderThatWasTakenAwayMeanwhileIsMadeAgain) {
    KeptFolder program(Folder);
    program.Write(SomeScreen("1"));
    fs::remove_all(Home.Path("zirvo"));
    EXPECT_TRUE(program.Write(SomeScreen("2")));
    program.StartAnother("Form3");
    EXPECT_EQ(OfferOf(program), "2");
}

TEST_F(KeptFolders, WithoutAFolderNothingIsKeptAndNothingHappens) {
    KeptFolder program("");
    EXPECT_FALSE(program.Write(SomeScreen()));
    EXPECT_EQ(OfferOf(program), "");
    KeptFolder belowAFile(Home.Put("file", "x") + "/kept");
    EXPECT_FALSE(belowAFile.Write(SomeScreen()));
    EXPECT_EQ(OfferOf(belowAFile), "");
}

TEST_F(KeptFolders, AFolderThatMayNotBeWrittenKeepsNothing) {
    ASSERT_TRUE(fs::create_directories(Folder));
    fs::permissions(Folder, fs::perms::owner_read | fs::perms::owner_exec);
    const int failed = FaultAsOrdinaryUser([this] {
        KeptFolder program(Folder);
        if (program.Write(SomeScreen()) || OfferOf(program) != "") {
            _exit(1);
        }
    });
    EXPECT_EQ(failed, 0);
}

TEST_F(KeptFolders, AFullDiskLeavesTheFormerFileWhole) {
    Crashed("1");
    const int failed = FaultInChild([] {},
                                    [this] {
                                        KeptFolder program(Folder);
                                        program.Take(*program.Newest("Form3", FitsAll));
                                        std::signal(SIGXFSZ, SIG_IGN);
                                        const rlimit none{16, 16};
                                        setrlimit(RLIMIT_FSIZE, &none);
                                        if (program.Write(SomeScreen("2"))) {
                                            _exit(1);
                                        }
                                    });
    EXPECT_EQ(failed, 0);
    EXPECT_EQ(OfferOfANewProgram(), "1");
    EXPECT_EQ(Names(), (test::Names{"Form3.json", "lock"}));
}

TEST_F(KeptFolders, OnAFullDiskWhatIsTakenStaysWhereItIs) {
    Crashed("1");
    const int failed = FaultWithFilesLimitedTo(16, [this] {
        KeptFolder program(Folder);
        program.Take(*program.Newest("Form3", FitsAll));
    });
    EXPECT_EQ(failed, 0);
    EXPECT_EQ(OfferOfANewProgram(), "1");
}

}  // namespace
}  // namespace zirvo::test
