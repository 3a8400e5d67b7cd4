// What killed programs leave beside the files of the user's: locks, links, pipes, other users and processes.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

#include "platform/in_child.h"
#include "platform/left_in_folder.h"
#include "platform/without_locks.h"

namespace zirvo::test {
namespace {

namespace fs = std::filesystem;
using std::chrono::hours;

TEST_F(LeftTemporaries, OfAProgramThatWasKilledGoesAtAWriteOnTheNextDay) {
    FaultInChild([] {},
                 [this] {
                     WholeFile file(folder_.Path("road.eva"));
                     file.Write("half a rep");
                     kill(getpid(), SIGKILL);
                 });
    const std::string left = OneThere();
    EXPECT_EQ(folder_.Get(left), "half a rep");
    Write();
    EXPECT_TRUE(folder_.Has(left)) << "it may still be written to on another machine";
    MakeOlder(left, hours(25));
    Write();
    EXPECT_EQ(folder_.Entries(), 1U);
}

TEST_F(LeftTemporaries, OfAProgramThatLivesStaysHoweverOldAndIsPutInPlace) {
    WholeFile slow(folder_.Path("slow.csv"));
    slow.Write("row 1\n");
    const std::string its = OneThere();
    MakeOlder(its, hours(1000));
    Write();
    EXPECT_EQ(FaultInChild([] {}, [this] { Write(); }), 0);
    EXPECT_TRUE(folder_.Has(its));
    slow.Write("row 2\n");
    slow.PutInPlace(Flush::ToSystem);
    EXPECT_EQ(folder_.Get("slow.csv"), "row 1\nrow 2\n");
    EXPECT_EQ(folder_.Entries(), 2U);
}

TEST_F(LeftTemporaries, ThatAnybodyHoldsStaysUntilHeLetsGo) {
    PutOld(Left);
    const int file = open(folder_.Path(Left).c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(flock(file, LOCK_SH), 0);
    Write();
    EXPECT_TRUE(folder_.Has(Left));
    close(file);
    Write();
    EXPECT_FALSE(folder_.Has(Left));
}

TEST_F(LeftTemporaries, FoldersLinksAndPipesOfTheNameStay) {
    fs::create_directory(folder_.Path(".zirvo-1-1.tmp"));
    MakeOlder(".zirvo-1-1.tmp", hours(48));
    PutOld("mine");
    fs::create_symlink("mine", folder_.Path(".zirvo-1-2.tmp"));
    ASSERT_EQ(mkfifo(folder_.Path(".zirvo-1-3.tmp").c_str(), 0666), 0);
    MakeOlder(".zirvo-1-3.tmp", hours(48));
    Write();
    EXPECT_EQ(folder_.Entries(), 5U);
    EXPECT_EQ(folder_.Get("mine"), "half a rep");
}

TEST_F(LeftTemporaries, StaysWhereTheDriveKnowsNoLocks) {
    PutOld(Left);
    EXPECT_EQ(FaultInChild(RefuseLocks, [this] { Write(); }), 0);
    EXPECT_EQ(folder_.Get("road.eva"), "new");
    EXPECT_TRUE(folder_.Has(Left));
}

TEST_F(LeftTemporaries, ThatTheUserMayNotTouchStaysAndDisturbsNoWrite) {
    PutOld(Left);
    fs::permissions(folder_.Path(Left), fs::perms::owner_read);
    EXPECT_EQ(FaultAsOrdinaryUser([this] { Write(); }), 0);
    EXPECT_TRUE(folder_.Has(Left) || geteuid() != 0);
}

TEST_F(LeftTemporaries, InAFolderThatMayNotBeWrittenStayAndTheWriteIsToldAsEver) {
    PutOld(Left);
    fs::permissions(folder_.Path(),
                    fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_read | fs::perms::others_exec);
    constexpr int pathAccess = 75;
    EXPECT_EQ(FaultAsOrdinaryUser([this] { WriteWholeFile(folder_.Path("road.eva"), "new"); }), pathAccess);
    EXPECT_TRUE(folder_.Has(Left));
    fs::permissions(folder_.Path(), fs::perms::all);
}

// Process 12 of this machine has ended; the file may be that of process 12 of another one.
TEST_F(LeftTemporaries, OfAProcessThatWasMadeToEndGoAtOnceButForOneThatIsHeld) {
    folder_.Put(Left, "half");
    folder_.Put(".zirvo-12-4.tmp", "half");
    folder_.Put(".zirvo-12-mine.tmp", "whole");
    folder_.Put(".zirvo-123-1.tmp", "half");
    const int file = open(folder_.Path(".zirvo-12-4.tmp").c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(flock(file, LOCK_EX), 0);
    const auto there = [this] { ASSERT_EQ(chdir(folder_.Path().c_str()), 0); };
    EXPECT_EQ(FaultInChild(there, [] { RemoveTemporariesOf(12); }), 0);
    EXPECT_EQ(NamesIn(folder_.Path()),
              (std::vector<std::string>{".zirvo-12-4.tmp", ".zirvo-12-mine.tmp", ".zirvo-123-1.tmp"}));
    close(file);
}

TEST_F(LeftTemporaries, OfAProcessThatWasMadeToEndGoWhereTheDriveKnowsNoLocks) {
    folder_.Put(Left, "half");
    const auto there = [this] {
        RefuseLocks();
        ASSERT_EQ(chdir(folder_.Path().c_str()), 0);
    };
    EXPECT_EQ(FaultInChild(there, [] { RemoveTemporariesOf(12); }), 0);
    EXPECT_EQ(folder_.Entries(), 0U);
}

}  // namespace
}  // namespace zirvo::test
