// Files, folders and paths on real files.
#include "platform/files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "base/fault_of.h"
#include "platform/in_child.h"
#include "platform/temporary_folder.h"

namespace zirvo {
namespace {

namespace fs = std::filesystem;

TEST(FileLength, IsTheNumberOfBytes) {
    const TemporaryFolder folder;
    EXPECT_EQ(FileLength(folder.Put("a", std::string("a\0b", 3))), 3U);
    EXPECT_EQ(FileLength(folder.Put("empty", "")), 0U);
}

TEST(FileLength, CanBeTakenOfAFolder) {
    const TemporaryFolder folder;
    EXPECT_EQ(FaultOf([&] { FileLength(folder.Path()); }), 0);
}

TEST(FileLength, OfNothingIsFileOrPathNotFound) {
    const TemporaryFolder folder;
    folder.Put("file", "");
    EXPECT_EQ(FaultOf([&] { FileLength(folder.Path("none")); }), 53);
    EXPECT_EQ(FaultOf([&] { FileLength(folder.Path("none/file")); }), 76);
    EXPECT_EQ(FaultOf([&] { FileLength(folder.Path("file/file")); }), 76);
    EXPECT_EQ(FaultOf([] { FileLength(""); }), 53);
    EXPECT_EQ(FaultOf([] { FileLength("a file that is nowhere"); }), 53);
}

TEST(FileLength, NameThatNoFileCanHaveIsABadFileName) {
    const TemporaryFolder folder;
    EXPECT_EQ(FaultOf([&] { FileLength(folder.Path() + std::string("\0x", 2)); }), 52);
    EXPECT_EQ(FaultOf([&] { FileLength(folder.Path(std::string(300, 'n'))); }), 52);
}

TEST(AttributesOf, TellsFolderFromFile) {
    const TemporaryFolder folder;
    EXPECT_TRUE(AttributesOf(folder.Path()).Directory);
    EXPECT_FALSE(AttributesOf(folder.Put("a", "")).Directory);
    EXPECT_EQ(FaultOf([&] { AttributesOf(folder.Path("none")); }), 53);
    EXPECT_EQ(FaultOf([&] { AttributesOf(folder.Path("none/none")); }), 76);
}

TEST(AttributesOf, ReadOnlyMeansThatThisUserMayNotWrite) {
    const TemporaryFolder folder;
    const std::string file = folder.Put("a", "");
    const std::string inner = folder.Path("inner");
    fs::create_directory(inner);
    EXPECT_FALSE(AttributesOf(file).ReadOnly);
    chmod(file.c_str(), 0444);
    chmod(inner.c_str(), 0555);
    const auto throwIfWritable = [](const std::string& path) {
        if (!AttributesOf(path).ReadOnly) {
            throw RuntimeFault(fault::InvalidCall);
        }
    };
    EXPECT_EQ(FaultAsOrdinaryUser([&] { throwIfWritable(file); }), 0);
    EXPECT_EQ(FaultAsOrdinaryUser([&] { throwIfWritable(inner); }), 0);
    EXPECT_EQ(FaultAsOrdinaryUser([&] { throwIfWritable(folder.Path()); }), 5);
}

TEST(ReadFileBytes, GivesAllBytesAsTheyStand) {
    const TemporaryFolder folder;
    std::string bytes;
    for (int i = 0; i < 300000; ++i) {
        bytes += static_cast<char>(i % 256);
    }
    EXPECT_EQ(ReadFileBytes(folder.Put("a", bytes)), bytes);
    EXPECT_EQ(ReadFileBytes(folder.Put("empty", "")), "");
}

TEST(ReadFileBytes, FileWithoutALengthIsReadToItsEnd) {
    EXPECT_NE(ReadFileBytes("/proc/self/status").find("Pid:"), std::string::npos);  // its length is told as 0
}

TEST(ReadFileBytes, FailuresHaveTheirNumbers) {
    const TemporaryFolder folder;
    EXPECT_EQ(FaultOf([&] { ReadFileBytes(folder.Path("none")); }), 53);
    EXPECT_EQ(FaultOf([&] { ReadFileBytes(folder.Path("none/a")); }), 76);
    EXPECT_EQ(FaultOf([&] { ReadFileBytes(folder.Path()); }), 75);
    const std::string secret = folder.Put("secret", "s");
    chmod(secret.c_str(), 0);
    EXPECT_EQ(FaultAsOrdinaryUser([&] { ReadFileBytes(secret); }), 75);
}

TEST(ReadFileBytes, FileBeyondTheLongestIsAnInvalidCallAndTakesNoMemory) {
    const TemporaryFolder folder;
    const std::string file = folder.Put("sparse", "");
    fs::resize_file(file, std::uint64_t{1} << 42);  // takes no room on the disk
    EXPECT_EQ(FaultOf([&] { ReadFileBytes(file); }), 5);
}

TEST(ReadFileBytes, PipeOrEndlessDeviceIsRefusedAndNotWaitedFor) {
    const TemporaryFolder folder;
    const std::string pipe = folder.Path("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0666), 0);
    EXPECT_EQ(FaultOf([&] { ReadFileBytes(pipe); }), 75);
    EXPECT_EQ(FaultOf([] { ReadFileBytes("/dev/zero"); }), 75);
}

TEST(RenameFile, MovesTheFile) {
    const TemporaryFolder folder;
    RenameFile(folder.Put("a", "text"), folder.Path("b"));
    EXPECT_FALSE(folder.Has("a"));
    EXPECT_EQ(folder.Get("b"), "text");
}

TEST(RenameFile, NeverReplacesWhatIsThere) {
    const TemporaryFolder folder;
    const std::string a = folder.Put("a", "new");
    const std::string b = folder.Put("b", "old");
    EXPECT_EQ(FaultOf([&] { RenameFile(a, b); }), 58);
    EXPECT_EQ(FaultOf([&] { RenameFile(a, a); }), 58);
    EXPECT_EQ(FaultOf([&] { RenameFile(a, folder.Path()); }), 58);
    fs::create_symlink("nowhere", folder.Path("dangling"));
    EXPECT_EQ(FaultOf([&] { RenameFile(a, folder.Path("dangling")); }), 58);
    EXPECT_EQ(folder.Get("a"), "new");
    EXPECT_EQ(folder.Get("b"), "old");
}

TEST(RenameFile, MissingFileIsToldBeforeAnExistingTarget) {
    const TemporaryFolder folder;
    const std::string b = folder.Put("b", "old");
    EXPECT_EQ(FaultOf([&] { RenameFile(folder.Path("none"), b); }), 53);
    EXPECT_EQ(FaultOf([&] { RenameFile(folder.Path("none/none"), b); }), 76);
    EXPECT_EQ(FaultOf([&] { RenameFile(b, folder.Path("none/b")); }), 76);
    EXPECT_EQ(folder.Get("b"), "old");
}

TEST(RenameFile, FolderThatMayNotBeWrittenIsAnAccessError) {
    const TemporaryFolder folder;
    const std::string a = folder.Put("a", "text");
    chmod(folder.Path().c_str(), 0555);
    EXPECT_EQ(FaultAsOrdinaryUser([&] { RenameFile(a, folder.Path("b")); }), 75);
    chmod(folder.Path().c_str(), 0777);
    EXPECT_EQ(folder.Get("a"), "text");
}

TEST(RemoveFile, DeletesTheFileAndOfALinkTheLink) {
    const TemporaryFolder folder;
    folder.Put("a", "text");
    fs::create_symlink("a", folder.Path("link"));
    RemoveFile(folder.Path("link"));
    EXPECT_FALSE(folder.Has("link"));
    RemoveFile(folder.Path("a"));
    EXPECT_FALSE(folder.Has("a"));
}

TEST(RemoveFile, FailuresHaveTheirNumbers) {
    const TemporaryFolder folder;
    EXPECT_EQ(FaultOf([&] { RemoveFile(folder.Path("none")); }), 53);
    EXPECT_EQ(FaultOf([&] { RemoveFile(folder.Path("none/none")); }), 76);
    EXPECT_EQ(FaultOf([&] { RemoveFile(folder.Path()); }), 75);
    const std::string a = folder.Put("a", "text");
    chmod(folder.Path().c_str(), 0555);
    EXPECT_EQ(FaultAsOrdinaryUser([&] { RemoveFile(a); }), 75);
    chmod(folder.Path().c_str(), 0777);
    EXPECT_TRUE(folder.Has("a"));
}

/// Each in a child, since the current folder belongs to the whole process.
class CurrentFolderTest : public testing::Test {
protected:
    /// The current folder after the work, told through a file.
    template <class Work>
    std::string FolderAfter(Work work) {
        const int fault = FaultInChild([] {},
                                       [&] {
                                           work();
                                           WriteWholeFile(folder.Path("told"), CurrentFolder());
                                       });
        return fault == 0 ? folder.Get("told") : "fault " + std::to_string(fault);
    }
    TemporaryFolder folder;
};

TEST_F(CurrentFolderTest, IsWhatTheSystemTellsUntilTheProgramSetsOne) {
    EXPECT_EQ(FolderAfter([&] { ASSERT_EQ(chdir(folder.Path().c_str()), 0); }), fs::canonical(folder.Path()).string());
}

TEST_F(CurrentFolderTest, IsTheTextThatWasSetAndNotWhatALinkLeadsTo) {
    fs::create_directory(folder.Path("real"));
    fs::create_symlink("real", folder.Path("link"));
    EXPECT_EQ(FolderAfter([&] { ChangeFolder(folder.Path("link")); }), folder.Path("link"));
}

TEST_F(CurrentFolderTest, KeepsTheTextByteForByte) {
    EXPECT_EQ(FolderAfter([&] { ChangeFolder(folder.Path() + "//."); }), folder.Path() + "//.");
}

TEST_F(CurrentFolderTest, RelativeFolderIsJoinedToTheTextBefore) {
    fs::create_directories(folder.Path("real/inner"));
    fs::create_symlink("real", folder.Path("link"));
    EXPECT_EQ(FolderAfter([&] {
                  ChangeFolder(folder.Path("link"));
                  ChangeFolder("inner");
              }),
              folder.Path("link/inner"));
}

TEST_F(CurrentFolderTest, ParentOfALinkIsWhereTheSystemIs) {
    fs::create_directories(folder.Path("real/inner"));
    fs::create_symlink("real/inner", folder.Path("link"));
    EXPECT_EQ(FolderAfter([&] {
                  ChangeFolder(folder.Path("link"));
                  ChangeFolder("..");
              }),
              fs::canonical(folder.Path("real")).string());
}

TEST_F(CurrentFolderTest, MovesTheWholeProcess) {
    fs::create_directory(folder.Path("inner"));
    EXPECT_EQ(FaultInChild([] {},
                           [&] {
                               ChangeFolder(folder.Path("inner"));
                               WriteWholeFile("file", "here");
                           }),
              0);
    EXPECT_EQ(folder.Get("inner/file"), "here");
}

TEST_F(CurrentFolderTest, WhatIsNoFolderIsPathNotFoundAndChangesNothing) {
    const std::string file = folder.Put("file", "");
    EXPECT_EQ(FolderAfter([&] {
                  ChangeFolder(folder.Path());
                  EXPECT_EQ(FaultOf([&] { ChangeFolder(folder.Path("none")); }), 76);
                  EXPECT_EQ(FaultOf([&] { ChangeFolder(file); }), 76);
                  EXPECT_EQ(FaultOf([] { ChangeFolder(""); }), 76);
              }),
              folder.Path());
}

TEST_F(CurrentFolderTest, FolderThatIsGoneIsPathNotFound) {
    const std::string gone = folder.Path("gone");
    fs::create_directory(gone);
    EXPECT_EQ(FaultInChild([] {},
                           [&] {
                               ASSERT_EQ(chdir(gone.c_str()), 0);
                               fs::remove(gone);
                               CurrentFolder();
                           }),
              76);
}

TEST(ProgramFolder, HoldsTheRunningProgram) {
    const std::string path = ProgramFolder();
    EXPECT_EQ(path, fs::read_symlink("/proc/self/exe").parent_path().string());
    EXPECT_TRUE(FileLength(JoinPath(path, "test_platform")) > 0);
}

TEST(Paths, JoinPutsOneSeparatorBetween) {
    EXPECT_EQ(JoinPath("/a", "b"), "/a/b");
    EXPECT_EQ(JoinPath("/a/", "b"), "/a/b");
    EXPECT_EQ(JoinPath("/", "b"), "/b");
    EXPECT_EQ(JoinPath("C:\\", "b"), "C:\\b");  // a folder that ends in "\" counts as a root here too
    EXPECT_EQ(JoinPath("", "b"), "b");
}

TEST(Paths, NameIsThePartBehindTheLastSeparator) {
    EXPECT_EQ(FileNameOf("/a/b.eva"), "b.eva");
    EXPECT_EQ(FileNameOf("b.eva"), "b.eva");
    EXPECT_EQ(FileNameOf("/a/"), "");
    EXPECT_EQ(FileNameOf("/"), "");
    EXPECT_EQ(FileNameOf(""), "");
    EXPECT_EQ(FileNameOf("a\\b:c"), "a\\b:c");  // ordinary characters of a name here
}

TEST(Paths, FolderIsThePartBeforeTheLastSeparator) {
    EXPECT_EQ(FolderOf("/a/b.eva"), "/a");
    EXPECT_EQ(FolderOf("/a/b/"), "/a/b");
    EXPECT_EQ(FolderOf("/a"), "/");
    EXPECT_EQ(FolderOf("/"), "/");
    EXPECT_EQ(FolderOf("a"), "");
    EXPECT_EQ(FolderOf(""), "");
    EXPECT_EQ(FolderOf("d:/a"), "d:");
}

}  // namespace
}  // namespace zirvo
