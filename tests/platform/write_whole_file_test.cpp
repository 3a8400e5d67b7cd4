// The writing of a whole file: the target is the old file or the new one, and nothing else stays behind.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "base/fault_of.h"
#include "platform/files.h"
#include "platform/in_child.h"
#include "platform/small_disk.h"
#include "platform/temporary_folder.h"

namespace zirvo {
namespace {

namespace fs = std::filesystem;

mode_t PermissionsOf(const std::string& path) {
    struct stat status {};
    stat(path.c_str(), &status);
    return status.st_mode & 07777;
}

TEST(WriteWholeFile, WritesANewFileAndReplacesAnOldOne) {
    const TemporaryFolder folder;
    const std::string bytes("line\r\n\0\xFF", 8);
    WriteWholeFile(folder.Path("a"), "something longer than what follows");
    WriteWholeFile(folder.Path("a"), bytes);
    EXPECT_EQ(folder.Get("a"), bytes);
    WriteWholeFile(folder.Path("a"), "");
    EXPECT_EQ(folder.Get("a"), "");
    EXPECT_EQ(folder.Entries(), 1U);
}

TEST(WriteWholeFile, NewFileHasTheOrdinaryPermissions) {
    const TemporaryFolder folder;
    const mode_t mask = umask(027);
    WriteWholeFile(folder.Path("a"), "x");
    umask(mask);
    EXPECT_EQ(PermissionsOf(folder.Path("a")), 0640U);
}

TEST(WriteWholeFile, KeepsThePermissionsAndTheOwnerOfAnExistingFile) {
    const TemporaryFolder folder;
    const std::string a = folder.Put("a", "old");
    const bool root = geteuid() == 0;
    if (root) {
        ASSERT_EQ(chown(a.c_str(), 1234, 4321), 0);
    }
    chmod(a.c_str(), 0604);
    WriteWholeFile(a, "new");
    struct stat status {};
    ASSERT_EQ(stat(a.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0604U);
    EXPECT_EQ(status.st_uid, root ? 1234U : geteuid());
    EXPECT_EQ(folder.Get("a"), "new");
}

TEST(WriteWholeFile, FileOfAnotherUserThatMayBeWrittenIsWritten) {
    const TemporaryFolder folder;
    const std::string a = folder.Put("a", "old");
    chmod(a.c_str(), 0666);
    EXPECT_EQ(FaultAsOrdinaryUser([&] { WriteWholeFile(a, "new"); }), 0);
    EXPECT_EQ(folder.Get("a"), "new");
    EXPECT_EQ(PermissionsOf(a), 0666U);
}

TEST(WriteWholeFile, FollowsLinksToTheirFile) {
    const TemporaryFolder folder;
    fs::create_directories(folder.Path("far/away"));
    folder.Put("far/away/file", "old");
    fs::create_symlink("away/file", folder.Path("far/second"));
    fs::create_symlink(folder.Path("far/second"), folder.Path("first"));
    WriteWholeFile(folder.Path("first"), "new");
    EXPECT_EQ(folder.Get("far/away/file"), "new");
    EXPECT_TRUE(fs::is_symlink(folder.Path("first")));
    EXPECT_TRUE(fs::is_symlink(folder.Path("far/second")));
    EXPECT_EQ(folder.Entries(), 2U);
}

TEST(WriteWholeFile, MakesTheFileThatADanglingLinkNames) {
    const TemporaryFolder folder;
    fs::create_symlink("file", folder.Path("link"));
    WriteWholeFile(folder.Path("link"), "new");
    EXPECT_EQ(folder.Get("file"), "new");
    EXPECT_TRUE(fs::is_symlink(folder.Path("link")));
}

TEST(WriteWholeFile, LinksInACircleAreAnAccessError) {
    const TemporaryFolder folder;
    fs::create_symlink("b", folder.Path("a"));
    fs::create_symlink("a", folder.Path("b"));
    EXPECT_EQ(FaultOf([&] { WriteWholeFile(folder.Path("a"), "x"); }), 75);
}

TEST(WriteWholeFile, TakesANameAsLongAsANameCanBe) {
    const TemporaryFolder folder;
    const std::string name(255, 'n');
    WriteWholeFile(folder.Path(name), "x");
    EXPECT_EQ(folder.Get(name), "x");
    EXPECT_EQ(FaultOf([&] { WriteWholeFile(folder.Path(name + "n"), "x"); }), 52);
}

TEST(WriteWholeFile, FolderOrNoNameIsAnAccessErrorAndMissingFolderPathNotFound) {
    const TemporaryFolder folder;
    folder.Put("file", "old");
    fs::create_directory(folder.Path("inner"));
    EXPECT_EQ(FaultOf([&] { WriteWholeFile(folder.Path("inner"), "x"); }), 75);
    EXPECT_EQ(FaultOf([&] { WriteWholeFile(folder.Path("inner/"), "x"); }), 75);
    EXPECT_EQ(FaultOf([] { WriteWholeFile("", "x"); }), 75);
    EXPECT_EQ(FaultOf([&] { WriteWholeFile(folder.Path("none/a"), "x"); }), 76);
    EXPECT_EQ(FaultOf([&] { WriteWholeFile(folder.Path("file/a"), "x"); }), 76);
    EXPECT_EQ(FaultOf([&] { WriteWholeFile(folder.Path(std::string("a\0b", 3)), "x"); }), 52);
    EXPECT_EQ(folder.Entries(), 2U);
    EXPECT_EQ(folder.Get("file"), "old");
}

TEST(WriteWholeFile, FileThatTheUserMayNotWriteIsAnAccessErrorThoughItsFolderWouldAllowTheRename) {
    const TemporaryFolder folder;
    const std::string a = folder.Put("a", "old");
    chmod(a.c_str(), 0444);
    EXPECT_EQ(FaultAsOrdinaryUser([&] { WriteWholeFile(a, "new"); }), 75);
    EXPECT_EQ(folder.Get("a"), "old");
    EXPECT_EQ(folder.Entries(), 1U);
}

TEST(WriteWholeFile, FolderThatTheUserMayNotWriteIsAnAccessErrorAndTheOldFileStaysWhole) {
    const TemporaryFolder folder;
    const std::string a = folder.Put("a", "old");
    chmod(a.c_str(), 0666);
    chmod(folder.Path().c_str(), 0555);
    EXPECT_EQ(FaultAsOrdinaryUser([&] { WriteWholeFile(a, "new"); }), 75);
    EXPECT_EQ(FaultAsOrdinaryUser([&] { WriteWholeFile(folder.Path("b"), "new"); }), 75);
    chmod(folder.Path().c_str(), 0777);
    EXPECT_EQ(folder.Get("a"), "old");
    EXPECT_EQ(folder.Entries(), 1U);
}

TEST(WriteWholeFile, FullDiskLeavesTheOldFileWholeAndNoTemporaryOne) {
    const TemporaryFolder folder;
    const std::string old(5000, 'o');
    const std::string a = folder.Put("a", old);
    EXPECT_EQ(FaultWithFilesLimitedTo(10000, [&] { WriteWholeFile(a, std::string(10001, 'n')); }), 61);
    EXPECT_EQ(folder.Get("a"), old);
    EXPECT_EQ(folder.Entries(), 1U);
    EXPECT_EQ(FaultWithFilesLimitedTo(10000, [&] { WriteWholeFile(folder.Path("b"), std::string(100000, 'n')); }), 61);
    EXPECT_EQ(folder.Entries(), 1U);
    EXPECT_EQ(FaultWithFilesLimitedTo(10000, [&] { WriteWholeFile(a, std::string(10000, 'n')); }), 0);
    EXPECT_EQ(folder.Get("a"), std::string(10000, 'n'));
}

// A new file takes the place of one name; bytes that are changed where they stand could be left half changed.
TEST(WriteWholeFile, OfAHardLinkTheOtherNameKeepsTheOldFile) {
    const TemporaryFolder folder;
    fs::create_hard_link(folder.Put("a", "old"), folder.Path("b"));
    WriteWholeFile(folder.Path("b"), "new");
    EXPECT_EQ(folder.Get("a"), "old");
    EXPECT_EQ(folder.Get("b"), "new");
}

TEST(WriteWholeFile, ADiskThatMayOnlyBeReadIsAnAccessError) {
    const TemporaryFolder folder;
    const test::SmallDisk disk(folder.Path("disk"), 64);
    if (!disk.IsThere()) {
        GTEST_SKIP() << "no disk can be mounted here";
    }
    folder.Put("disk/a", "old");
    ASSERT_EQ(mount(nullptr, folder.Path("disk").c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
    EXPECT_EQ(FaultOf([&] { WriteWholeFile(folder.Path("disk/a"), "new"); }), 75);
    EXPECT_EQ(FaultOf([&] { WriteWholeFile(folder.Path("disk/b"), "new"); }), 75);
    EXPECT_EQ(folder.Get("disk/a"), "old");
}

TEST(WholeFile, IsWrittenPieceByPieceAndStandsUnderItsNameAtLast) {
    const TemporaryFolder folder;
    const std::string a = folder.Put("a", "old");
    WholeFile file(a, "a.part");
    file.Write("new");
    file.Write("er");
    EXPECT_EQ(folder.Get("a"), "old");
    EXPECT_TRUE(folder.Has("a.part"));
    file.PutInPlace(Flush::ToSystem);
    EXPECT_EQ(folder.Get("a"), "newer");
    EXPECT_EQ(folder.Entries(), 1U);
}

TEST(WholeFile, ThatIsNotPutInPlaceLeavesTheOldOneAndNothingElse) {
    const TemporaryFolder folder;
    const std::string a = folder.Put("a", "old");
    {
        WholeFile file(a);
        file.Write("new");
        EXPECT_EQ(folder.Entries(), 2U);
    }
    EXPECT_EQ(folder.Get("a"), "old");
    EXPECT_EQ(folder.Entries(), 1U);
}

TEST(WholeFile, TakesThePlaceOfWhatAKilledProgramLeftUnderItsFixedName) {
    const TemporaryFolder folder;
    folder.Put("a.part", "much longer than what comes");
    WholeFile file(folder.Path("a"), "a.part");
    file.Write("new");
    file.PutInPlace(Flush::ToDisk);
    EXPECT_EQ(folder.Get("a"), "new");
    EXPECT_EQ(folder.Entries(), 1U);
}

// A link under that name could lead to any file of the user's.
TEST(WholeFile, FollowsNoLinkUnderItsFixedName) {
    const TemporaryFolder folder;
    folder.Put("precious", "old");
    fs::create_symlink("precious", folder.Path("a.part"));
    EXPECT_EQ(FaultOf([&] { WholeFile(folder.Path("a"), "a.part"); }), 75);
    EXPECT_EQ(folder.Get("precious"), "old");
}

TEST(WholeFile, AFolderThatGoesAwayWhileItIsWrittenIsPathNotFound) {
    const TemporaryFolder folder;
    fs::create_directory(folder.Path("far"));
    WholeFile file(folder.Path("far/a"));
    file.Write("new");
    fs::remove_all(folder.Path("far"));
    EXPECT_EQ(FaultOf([&] { file.PutInPlace(Flush::ToDisk); }), 76);
}

TEST(WholeFile, ANameThatBecomesAFolderWhileItIsWrittenIsAnAccessError) {
    const TemporaryFolder folder;
    {
        WholeFile file(folder.Path("a"));
        file.Write("new");
        fs::create_directory(folder.Path("a"));
        EXPECT_EQ(FaultOf([&] { file.PutInPlace(Flush::ToDisk); }), 75);
    }
    EXPECT_TRUE(fs::is_directory(folder.Path("a")));
    EXPECT_EQ(folder.Entries(), 1U);
}

// As an ordinary user, who may write the devices of the machine but could not put a file in their place: root could, if
// these tests ever failed.
TEST(WriteWholeFile, DeviceIsWrittenAndNotReplacedByAFile) {
    EXPECT_EQ(FaultAsOrdinaryUser([] { WriteWholeFile("/dev/full", "x"); }), 61);
    EXPECT_EQ(FaultAsOrdinaryUser([] { WriteWholeFile("/dev/null", "x"); }), 0);
}

TEST(WriteWholeFile, LinkToADeviceIsFollowed) {
    const TemporaryFolder folder;
    fs::create_symlink("/dev/full", folder.Path("full"));
    EXPECT_EQ(FaultAsOrdinaryUser([&] { WriteWholeFile(folder.Path("full"), "x"); }), 61);
    EXPECT_TRUE(fs::is_symlink(folder.Path("full")));
}

TEST(WriteWholeFile, PipeThatNobodyReadsIsAnAccessErrorAndNotWaitedFor) {
    const TemporaryFolder folder;
    ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0666), 0);
    EXPECT_EQ(FaultOf([&] { WriteWholeFile(folder.Path("pipe"), "x"); }), 75);
}

TEST(WriteWholeFile, LeftOverTemporaryFileOfAnotherRunIsNoHindrance) {
    const TemporaryFolder folder;
    // The names that this process will try first.
    const std::string stem = ".zirvo-" + std::to_string(getpid()) + "-";
    for (int i = 1; i <= 50; ++i) {
        folder.Put(stem + std::to_string(i) + ".tmp", "left over");
    }
    WriteWholeFile(folder.Path("a"), "new");
    EXPECT_EQ(folder.Get("a"), "new");
    EXPECT_EQ(folder.Get(stem + "1.tmp"), "left over");
    EXPECT_EQ(folder.Entries(), 51U);
}

}  // namespace
}  // namespace zirvo
