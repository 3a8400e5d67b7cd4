// A drive that knows no locks, such as a home folder on a server without them: each call to lock a file fails there.
#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>

#include "kept/kept_folder.h"
#include "kept/some_screens.h"
#include "platform/file_lock.h"
#include "platform/in_child.h"
#include "platform/temporary_folder.h"
#include "platform/without_locks.h"

namespace zirvo::test {
namespace {

namespace fs = std::filesystem;

/// What the child found, where it is not as it must be.
void Require(bool holds) {
    if (!holds) {
        throw std::runtime_error("not so");
    }
}

TEST(WithoutLocks, NothingIsKeptAndNoFolderStaysBehind) {
    const TemporaryFolder home;
    const std::string folder = home.Path("kept");
    EXPECT_EQ(FaultInChild(RefuseLocks,
                           [&] {
                               KeptFolder program(folder);
                               Require(!program.Write(SomeScreen("1")));
                               Require(!program.Write(SomeScreen("2")));
                           }),
              0);
    EXPECT_TRUE(fs::is_empty(folder));
}

TEST(WithoutLocks, AFileThatWasMadeToBeLockedGoesAgain) {
    const TemporaryFolder home;
    const std::string file = home.Path("lock");
    EXPECT_EQ(FaultInChild(RefuseLocks,
                           [&] {
                               bool held = true;
                               Require(FileLock::OfAnyFile(file, held) == nullptr && !held);
                           }),
              0);
    EXPECT_FALSE(fs::exists(file));
}

TEST(WithoutLocks, AFileThatWasThereStays) {
    const TemporaryFolder home;
    const std::string file = home.Path("lock");
    bool held = true;
    const auto lock = FileLock::OfAnyFile(file, held);
    ASSERT_NE(lock, nullptr);
    EXPECT_EQ(FaultInChild(RefuseLocks,
                           [&] {
                               bool heldByAnother = true;
                               Require(FileLock::OfAnyFile(file, heldByAnother) == nullptr);
                           }),
              0);
    EXPECT_TRUE(fs::exists(file));
}

}  // namespace
}  // namespace zirvo::test
