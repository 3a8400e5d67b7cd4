// What killed programs leave beside the files of the user's goes at a later write, and nothing else does.
#include "platform/left_in_folder.h"

namespace zirvo::test {
namespace {

using std::chrono::hours;

TEST_F(LeftTemporaries, StaysForADay) {
    folder_.Put(Left, "half");
    MakeOlder(Left, hours(23));
    Write();
    EXPECT_TRUE(folder_.Has(Left));
    MakeOlder(Left, hours(24));
    Write();
    EXPECT_FALSE(folder_.Has(Left));
}

// The clock has been set back since, or was ahead on the machine that wrote it.
TEST_F(LeftTemporaries, FromTheFutureStays) {
    folder_.Put(Left, "half");
    MakeOlder(Left, hours(-48));
    Write();
    EXPECT_TRUE(folder_.Has(Left));
}

TEST_F(LeftTemporaries, WhatOnlyLooksLikeOneStays) {
    for (const char* name :
         {".zirvo-12-3.tmp.bak", ".zirvo-12-3.TMP", ".zirvo-12.tmp", ".zirvo-x-3.tmp", ".zirvo-12-.tmp",
          ".zirvo-012-3.tmp", ".zirvo-12-03.tmp", ".zirvo--12-3.tmp", ".zirvo-0-3.tmp", "zirvo-12-3.tmp",
          ".zirvo-12-3x.tmp", ".zirvo-99999999999999999999-1.tmp", ".zirvo-12-3.tm", ".zirvo-lock"}) {
        PutOld(name);
        Write();
        EXPECT_TRUE(folder_.Has(name)) << name;
        std::filesystem::remove(folder_.Path(name));
    }
}

TEST_F(LeftTemporaries, GoesFromTheFolderOfTheFileThatIsWrittenAndFromNoOther) {
    std::filesystem::create_directory(Utf8Path(folder_.Path("舗装 試験")));
    PutOld("舗装 試験/.zirvo-12-3.tmp");
    PutOld(Left);
    WriteWholeFile(folder_.Path("舗装 試験/road.eva"), "new");
    EXPECT_EQ(NamesIn(folder_.Path("舗装 試験")), std::vector<std::string>{"road.eva"});
    EXPECT_TRUE(folder_.Has(Left));
}

}  // namespace
}  // namespace zirvo::test
