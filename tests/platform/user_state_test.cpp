// Private folders, the lock that dies with its program, the user's state folder and the clock, on real files.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "platform/clock.h"
#include "platform/file_lock.h"
#include "platform/folders.h"
#include "platform/temporary_folder.h"

namespace zirvo {
namespace {

/// An environment variable for the length of a test.
class Variable {
public:
    Variable(const char* name, const char* value) : name_(name) {
        const char* before = std::getenv(name);
        had_ = before != nullptr;
        before_ = had_ ? before : "";
        value == nullptr ? unsetenv(name) : setenv(name, value, 1);
    }
    ~Variable() { had_ ? setenv(name_, before_.c_str(), 1) : unsetenv(name_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name_;
    bool had_ = false;
    std::string before_;
};

TEST(UserStateFolder, IsTheOneThatTheUserNames) {
    const Variable state("XDG_STATE_HOME", "/somewhere/state");
    EXPECT_EQ(UserStateFolder(), "/somewhere/state/zirvo");
}

TEST(UserStateFolder, IsBelowHomeWhereNoneOrNoFullPathIsNamed) {
    const Variable home("HOME", "/home/user");
    for (const char* named : {static_cast<const char*>(nullptr), "", "state"}) {
        const Variable state("XDG_STATE_HOME", named);
        EXPECT_EQ(UserStateFolder(), "/home/user/.local/state/zirvo");
    }
}

TEST(UserStateFolder, IsNoneWithoutAHome) {
    const Variable state("XDG_STATE_HOME", nullptr);
    const Variable home("HOME", nullptr);
    EXPECT_EQ(UserStateFolder(), "");
}

TEST(PrivateFolders, AreMadeWithThoseAboveForTheUserAlone) {
    const TemporaryFolder folder;
    ASSERT_TRUE(MakePrivateFolders(folder.Path("a/b")));
    for (const char* made : {"a", "a/b"}) {
        struct stat status {};
        ASSERT_EQ(stat(folder.Path(made).c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777, 0700U);
    }
    EXPECT_TRUE(MakePrivateFolders(folder.Path("a/b")));
}

TEST(PrivateFolders, CannotBeMadeBelowAFile) {
    const TemporaryFolder folder;
    folder.Put("file", "x");
    EXPECT_FALSE(MakePrivateFolders(folder.Path("file/a")));
    EXPECT_FALSE(MakePrivateFolders(folder.Path("file")));
    EXPECT_FALSE(MakePrivateFolders(""));
}

TEST(PrivateFolders, ANewOneIsNotThereBefore) {
    const TemporaryFolder folder;
    EXPECT_TRUE(MakeNewFolder(folder.Path("a")));
    EXPECT_FALSE(MakeNewFolder(folder.Path("a")));
    EXPECT_FALSE(MakeNewFolder(folder.Path("b/c")));
}

TEST(NamesIn, AreSortedAndNoneOfAFolderThatIsNotThere) {
    const TemporaryFolder folder;
    folder.Put("b", "");
    folder.Put(".a", "");
    EXPECT_EQ(NamesIn(folder.Path()), (std::vector<std::string>{".a", "b"}));
    EXPECT_TRUE(NamesIn(folder.Path("gone")).empty());
}

TEST(MoveOver, ReplacesWhatWasThere) {
    const TemporaryFolder folder;
    folder.Put("from", "new");
    folder.Put("to", "old");
    EXPECT_TRUE(MoveOver(folder.Path("from"), folder.Path("to")));
    EXPECT_EQ(folder.Get("to"), "new");
    EXPECT_FALSE(folder.Has("from"));
    EXPECT_FALSE(MoveOver(folder.Path("from"), folder.Path("to")));
    EXPECT_EQ(folder.Get("to"), "new");
}

TEST(RemoveIfThere, TakesFilesAndEmptyFoldersOnly) {
    const TemporaryFolder folder;
    ASSERT_TRUE(MakeNewFolder(folder.Path("a")));
    folder.Put("a/file", "x");
    EXPECT_FALSE(RemoveIfThere(folder.Path("a")));
    EXPECT_TRUE(RemoveIfThere(folder.Path("a/file")));
    EXPECT_TRUE(RemoveIfThere(folder.Path("a")));
    EXPECT_TRUE(RemoveIfThere(folder.Path("a")));
    EXPECT_FALSE(folder.Has("a"));
}

TEST(WrittenAt, IsLaterForAFileThatIsWrittenLater) {
    const TemporaryFolder folder;
    folder.Put("a", "x");
    folder.Put("b", "x");
    const auto early = std::filesystem::file_time_type::clock::now() - std::chrono::hours(1);
    std::filesystem::last_write_time(folder.Path("a"), early);
    ASSERT_TRUE(WrittenAt(folder.Path("a")) && WrittenAt(folder.Path("b")));
    EXPECT_LT(*WrittenAt(folder.Path("a")), *WrittenAt(folder.Path("b")));
    EXPECT_FALSE(WrittenAt(folder.Path("c")));
    EXPECT_FALSE(WrittenAt(folder.Path()));
}

TEST(FileLock, IsHeldOnceAtATime) {
    const TemporaryFolder folder;
    auto lock = FileLock::OfNewFile(folder.Path("lock"));
    ASSERT_NE(lock, nullptr);
    EXPECT_EQ(FileLock::OfFile(folder.Path("lock")), nullptr);
    lock.reset();
    EXPECT_NE(FileLock::OfFile(folder.Path("lock")), nullptr);
}

TEST(FileLock, ANewFileMustNotBeThereAndAnOldOneMust) {
    const TemporaryFolder folder;
    folder.Put("lock", "");
    EXPECT_EQ(FileLock::OfNewFile(folder.Path("lock")), nullptr);
    EXPECT_EQ(FileLock::OfFile(folder.Path("other")), nullptr);
    EXPECT_EQ(FileLock::OfNewFile(folder.Path("gone/lock")), nullptr);
}

TEST(FileLock, TakesItsFileAwayWhenAsked) {
    const TemporaryFolder folder;
    const auto lock = FileLock::OfNewFile(folder.Path("lock"));
    lock->RemoveFile();
    EXPECT_FALSE(folder.Has("lock"));
}

TEST(FileLock, EndsWithAProgramThatIsKilled) {
    const TemporaryFolder folder;
    int told[2];
    ASSERT_EQ(pipe(told), 0);
    const pid_t child = fork();
    if (child == 0) {
        const auto lock = FileLock::OfNewFile(folder.Path("lock"));
        const char byte = lock != nullptr ? 'y' : 'n';
        if (write(told[1], &byte, 1) == 1) {
            pause();
        }
        _exit(1);
    }
    char byte = 0;
    ASSERT_EQ(read(told[0], &byte, 1), 1);
    EXPECT_EQ(byte, 'y');
    EXPECT_EQ(FileLock::OfFile(folder.Path("lock")), nullptr);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    close(told[0]);
    close(told[1]);
    EXPECT_NE(FileLock::OfFile(folder.Path("lock")), nullptr);
}

// 1795300200 s are 2026-11-21 22:30 UTC (date -u -d @1795300200).
TEST(LocalTimeText, IsTheMinuteOnTheClockOfThePlace) {
    {
        const Variable zone("TZ", "UTC");
        tzset();
        EXPECT_EQ(LocalTimeText(1795300200000 + 59999), "2026-11-21 22:30");
    }
    {
        const Variable zone("TZ", "JST-9");
        tzset();
        EXPECT_EQ(LocalTimeText(1795300200000), "2026-11-22 07:30");
    }
    tzset();
}

TEST(MillisecondsSince1970, IsNotBeforeThisWasWritten) {
    EXPECT_GT(MillisecondsSince1970(), 1600000000000);  // 2020-09-13
}

}  // namespace
}  // namespace zirvo
