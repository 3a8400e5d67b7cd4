// The settings file, to the byte and edge by edge.
#include "shell/settings.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "base/fault_of.h"
#include "platform/in_child.h"
#include "platform/temporary_folder.h"

namespace zirvo {
namespace {

const std::string Name = "zirvo_sv.ini";

/// What a file of these bytes is read as.
std::optional<Settings> Loaded(const std::string& bytes) {
    const TemporaryFolder program;
    program.Put(Name, bytes);
    return LoadSettings(program.Path());
}

int LoadFault(const std::string& bytes) {
    return FaultOf([&] { Loaded(bytes); });
}

std::string Saved(const std::string& folder, Int16 unitSystem, Int16 objective) {
    const TemporaryFolder program;
    SaveSettings(folder, unitSystem, objective, program.Path());
    return program.Get(Name);
}

TEST(SaveSettings, WritesFolderUnitsAndObjectiveOnThreeLines) {
    EXPECT_EQ(Saved("C:\\data", 3, 1), "C:\\data\r\n 3 \r\n 1 \r\n");
    EXPECT_EQ(Saved("/home/road", 1, 2), "/home/road\r\n 1 \r\n 2 \r\n");
}

TEST(SaveSettings, WritesAChoiceThatWasNotMadeAsZero) {
    EXPECT_EQ(Saved("/d", 0, 0), "/d\r\n 0 \r\n 0 \r\n");
}

TEST(SaveSettings, WritesTheFolderAsItStandsAndInQuotesWhereItHoldsAComma) {
    EXPECT_EQ(Saved("/a b \"c\"", 1, 1), "/a b \"c\"\r\n 1 \r\n 1 \r\n");
    EXPECT_EQ(Saved("C:\\roads, old", 1, 1), "\"C:\\roads, old\"\r\n 1 \r\n 1 \r\n");
    EXPECT_EQ(Saved("/a, b \"c\"", 1, 1), "\"/a, b \"c\"\"\r\n 1 \r\n 1 \r\n");
    EXPECT_EQ(Saved("", 1, 1), "\r\n 1 \r\n 1 \r\n");
}

// 層 is 91 77 in code page 932, the kana ﾃ is C3.
TEST(SaveSettings, WritesTheFolderInTheCodePage) {
    EXPECT_EQ(Saved("/層/ﾃ", 1, 1), "/\x91\x77/\xC3\r\n 1 \r\n 1 \r\n");
}

TEST(SaveSettings, WritesAFolderThatTheCodePageLacksAsUtf8) {
    EXPECT_EQ(Saved("/Straße", 1, 1),
              "/Stra\xC3\x9F"
              "e\r\n 1 \r\n 1 \r\n");
}

TEST(SaveSettings, ReplacesAnEarlierFileWhole) {
    const TemporaryFolder program;
    program.Put(Name, std::string(1000, 'x'));
    SaveSettings("/d", 2, 1, program.Path());
    EXPECT_EQ(program.Get(Name), "/d\r\n 2 \r\n 1 \r\n");
    EXPECT_EQ(program.Entries(), 1U);
}

TEST(SaveSettings, IsAFaultInAProgramFolderThatMayNotBeWritten) {
    const TemporaryFolder program;
    std::filesystem::create_directory(program.Path("bin"));
    chmod(program.Path("bin").c_str(), 0555);
    const int fault = FaultAsOrdinaryUser([&] { SaveSettings("/d", 1, 1, program.Path("bin")); });
    EXPECT_TRUE(fault == 70 || fault == 75) << fault;
    EXPECT_TRUE(std::filesystem::is_empty(program.Path("bin")));
}

TEST(SaveSettings, LeavesAnEarlierFileThatMayNotBeWrittenAsItWas) {
    const TemporaryFolder program;
    program.Put(Name, "/old\r\n 1 \r\n 1 \r\n");
    chmod(program.Path(Name).c_str(), 0444);
    EXPECT_EQ(FaultAsOrdinaryUser([&] { SaveSettings("/d", 2, 2, program.Path()); }), 75);
    EXPECT_EQ(program.Get(Name), "/old\r\n 1 \r\n 1 \r\n");
    EXPECT_EQ(program.Entries(), 1U);
}

TEST(SaveSettings, IsAFaultWhereTheProgramFolderIsGoneOrTheDiskFull) {
    const TemporaryFolder program;
    EXPECT_EQ(FaultOf([&] { SaveSettings("/d", 1, 1, program.Path("none")); }), 76);
    program.Put(Name, "/old\r\n 1 \r\n 1 \r\n");
    EXPECT_EQ(FaultWithFilesLimitedTo(4, [&] { SaveSettings("/d", 2, 2, program.Path()); }), 61);
    EXPECT_EQ(program.Get(Name), "/old\r\n 1 \r\n 1 \r\n");
    EXPECT_EQ(program.Entries(), 1U);
}

TEST(SettingsFolder, IsTheProgramsAsLongAsItMayBeWritten) {
    const TemporaryFolder program;
    const TemporaryFolder user;
    EXPECT_EQ(SettingsFolder(program.Path(), user.Path("zirvo")), program.Path());
    EXPECT_EQ(program.Entries() + user.Entries(), 0U) << "nothing is left behind";
}

TEST(SettingsFolder, IsTheUsersWhereTheProgramsMayNotBeWrittenAndIsMadeThen) {
    const TemporaryFolder program;
    const TemporaryFolder user;
    chmod(program.Path().c_str(), 0555);
    const auto chosen = [&](const std::string& users) {
        return FaultAsOrdinaryUser([&] { SaveSettings("/d", 1, 2, SettingsFolder(program.Path(), users)); });
    };
    EXPECT_EQ(chosen(user.Path("new/zirvo")), 0);
    EXPECT_EQ(user.Get("new/zirvo/zirvo_sv.ini"), "/d\r\n 1 \r\n 2 \r\n");
    EXPECT_FALSE(program.Has(Name));
    // No folder of the user's, or one that cannot be made: the program's own, and its fault when it is written.
    EXPECT_EQ(chosen(""), 75);
    EXPECT_EQ(chosen(user.Path("new/zirvo/zirvo_sv.ini/below")), 75);
    chmod(program.Path().c_str(), 0777);
}

TEST(LoadSettings, GivesNothingWhereThereIsNoFile) {
    const TemporaryFolder program;
    EXPECT_EQ(LoadSettings(program.Path()), std::nullopt);
    EXPECT_EQ(LoadSettings(program.Path("none")), std::nullopt);
}

TEST(LoadSettings, ReadsWhatWasSaved) {
    const TemporaryFolder program;
    for (const std::string folder : {"C:\\data", "/home/road", "D:\\", "/", "", "/層/表", "/Straße", "/道路 2", "/1"}) {
        for (Int16 number = 0; number <= 3; ++number) {
            SaveSettings(folder, number, static_cast<Int16>(3 - number), program.Path());
            EXPECT_EQ(LoadSettings(program.Path()), (Settings{folder, number, static_cast<Int16>(3 - number)}))
                << folder;
        }
    }
}

TEST(LoadSettings, TakesAnyLineEndAndFieldsOnOneLine) {
    const Settings expected{"/d", 3, 1};
    EXPECT_EQ(Loaded("/d\n 3 \n 1 \n"), expected);
    EXPECT_EQ(Loaded("/d\r 3 \r 1 \r"), expected);
    EXPECT_EQ(Loaded("/d\r\n3\r\n1"), expected);
    EXPECT_EQ(Loaded("\"/d\", 3 1"), expected);
    EXPECT_EQ(Loaded("/d\r\n 3 \r\n 1 \r\nmore"), expected);
}

TEST(LoadSettings, TakesAnEmptyFirstLineAsAnEmptyFolder) {
    EXPECT_EQ(Loaded("\r\n 3 \r\n 1 \r\n"), (Settings{"", 3, 1}));
}

TEST(LoadSettings, GivesNumbersThatStandForNoChoiceAsTheyAre) {
    EXPECT_EQ(Loaded("/d\r\n 4 \r\n-7 \r\n"), (Settings{"/d", 4, -7}));
}

// The folder's field ends at the comma, and the rest of the line is no number.
TEST(LoadSettings, FolderWithACommaAndNoQuotesIsTheFaultOfTheNextField) {
    EXPECT_EQ(LoadFault("/roads, old\r\n 1 \r\n 2 \r\n"), 13);
}

TEST(LoadSettings, FolderWithCommasReadsBack) {
    for (const std::string folder : {"/roads, old", "C:\\a,b,c", "/,", "/a,b\"c\",d", "/道路,旧",
                                     "/Stra\xC3\x9F"
                                     "e, Nord"}) {
        const TemporaryFolder program;
        SaveSettings(folder, 1, 2, program.Path());
        EXPECT_EQ(LoadSettings(program.Path()), (Settings{folder, 1, 2}));
    }
}

TEST(LoadSettings, AQuotedFolderOfAnotherWriterReadsAsAField) {
    EXPECT_EQ(Loaded("\"/roads, old\", 3 , 1"), (Settings{"/roads, old", 3, 1}));
    EXPECT_EQ(Loaded("  \"/roads, old\"\r\n 3 \r\n 1 \r\n"), (Settings{"/roads, old", 3, 1}));
    EXPECT_EQ(Loaded("\"/roads\" \r\n 3 \r\n 1 \r\n"), (Settings{"/roads", 3, 1}));
    EXPECT_EQ(Loaded("\"/roads, old\r\n 3 \r\n 1 \r\n"), (Settings{"/roads, old", 3, 1})) << "ends with its line";
    EXPECT_EQ(Loaded("\"\r\n 3 \r\n 1 \r\n"), (Settings{"", 3, 1}));
}

TEST(LoadSettings, AFaultTellsWhichFileAndThatItIsThatOfTheSettings) {
    const TemporaryFolder program;
    const std::string file = program.Put("zirvo_sv.ini", "/d\r\n 3 \r\n");
    try {
        LoadSettings(program.Path());
        FAIL();
    } catch (const RuntimeFault& caught) {
        EXPECT_EQ(caught.About(), (FaultSubject{FaultMatter::Settings, file, ""}));
    }
}

// Deliberate: "2026" behind the comma is a number, and is taken as the unit system.
TEST(LoadSettings, FolderIsCutAtItsCommaWhereANumberFollows) {
    EXPECT_EQ(Loaded("/roads,2026\r\n 3 \r\n 1 \r\n"), (Settings{"/roads", 2026, 3}));
}

TEST(LoadSettings, FileThatIsTooShortIsAFault) {
    const std::string whole = "/d\r\n 3 \r\n 1";
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_EQ(LoadFault(whole.substr(0, length)), 62) << length;
    }
    EXPECT_EQ(LoadFault(whole), 0);
}

TEST(LoadSettings, WrongLineIsAFault) {
    EXPECT_EQ(LoadFault("/d\r\nx\r\n 1 \r\n"), 13);
    EXPECT_EQ(LoadFault("/d\r\n 3 \r\nx\r\n"), 13);
    EXPECT_EQ(LoadFault("/d\r\n 3.0 \r\n 1 \r\n"), 13);
    EXPECT_EQ(LoadFault("/d\r\n 40000 \r\n 1 \r\n"), 6);
    EXPECT_EQ(LoadFault("/d\r\n 3 \r\n-40000 \r\n"), 6);
    EXPECT_EQ(LoadFault(std::string(2 << 20, 'x')), 5);
}

TEST(LoadSettings, FileThatCannotBeOpenedIsAFault) {
    const TemporaryFolder program;
    std::filesystem::create_directory(program.Path(Name));
    EXPECT_EQ(FaultOf([&] { LoadSettings(program.Path()); }), 75);
    const TemporaryFolder secret;
    secret.Put(Name, "/d\r\n 3 \r\n 1 \r\n");
    chmod(secret.Path(Name).c_str(), 0);
    EXPECT_EQ(FaultAsOrdinaryUser([&] { LoadSettings(secret.Path()); }), 70);
}

TEST(IsGoodFolder, IsTrueForWhateverIsThere) {
    const TemporaryFolder folder;
    EXPECT_TRUE(IsGoodFolder(folder.Path()));
    EXPECT_TRUE(IsGoodFolder(folder.Put("x", "")));  // a file has a length, too
    EXPECT_FALSE(IsGoodFolder(folder.Path("gone")));
    EXPECT_FALSE(IsGoodFolder(""));
}

TEST(IsGoodFolder, IsTrueForAFolderThatMayNotBeWritten) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.Path("read"));
    chmod(folder.Path("read").c_str(), 0555);
    EXPECT_EQ(FaultAsOrdinaryUser([&] {
                  if (!IsGoodFolder(folder.Path("read"))) {
                      throw RuntimeFault(fault::InvalidCall);
                  }
              }),
              0);
}

// A drive that is gone is found out later, on the data screen.
TEST(IsGoodFolder, TakesWhatEndsLikeARootWithoutALook) {
    for (const char* folder : {"D:\\", "\\", "/", "/gone/", "C:\\gone\\"}) {
        EXPECT_TRUE(IsGoodFolder(folder)) << folder;
    }
    EXPECT_FALSE(IsGoodFolder("D:"));
}

}  // namespace
}  // namespace zirvo
