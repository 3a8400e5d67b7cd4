// What the failing calls have found, each by itself: what was wrong stands in front of each test.
#include <gtest/gtest.h>

#include "base/fault_of.h"
#include "faults/failing_calls.h"
#include "kept/kept_folder.h"
#include "kept/some_screens.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "platform/open_file.h"
#include "platform/temporary_folder.h"
#include "text/file_helpers.h"
#include "text/version_stamp.h"

namespace zirvo::test {
namespace {

/// Does the work while one call after the other fails; the first whose failed call begins like this is told.
template <class Work>
std::string WithFailing(const TemporaryFolder& folder, const std::string& front, Trouble trouble, Work work) {
    for (int number = 1; number < 50; ++number) {
        const FailingCall failing(folder.Path(), number, trouble);
        std::string told;
        try {
            work();
        } catch (const RuntimeFault& caught) {
            told = std::to_string(caught.Number()) + " " + FileNameOf(caught.About().Name);
        }
        if (FailingCall::Failed().starts_with(front)) {
            return told;
        }
    }
    return "no such call";
}

// A signal during an open was told as a fault of the device, and as a missing right where a stream was opened.
TEST(MendedFault, AnOpenThatIsInterruptedIsMadeAgain) {
    const TemporaryFolder folder;
    const std::string path = folder.Put("a.eva", "bytes");
    EXPECT_EQ(WithFailing(folder, "open", Trouble::Interrupted, [&] { EXPECT_EQ(ReadFileBytes(path), "bytes"); }), "");
    EXPECT_EQ(WithFailing(folder, "open", Trouble::Interrupted, [&] { OpenForReading(path); }), "");
    EXPECT_EQ(WithFailing(folder, "rename", Trouble::Interrupted, [&] { WriteWholeFile(path, "new"); }), "");
    EXPECT_EQ(folder.Get("a.eva"), "new");
}

// Everything that kept a stream from being opened was told as a missing right.
TEST(MendedFault, AStreamThatCannotBeOpenedForWantOfMemoryIsNoMatterOfRights) {
    const TemporaryFolder folder;
    const std::string path = folder.Put("a.eva", "bytes");
    EXPECT_EQ(WithFailing(folder, "open", Trouble::NoMemory, [&] { OpenForReading(path); }), "57 a.eva");
    EXPECT_EQ(WithFailing(folder, "open", Trouble::Gone, [&] { OpenForReading(path); }), "53 a.eva");
    EXPECT_EQ(WithFailing(folder, "open", Trouble::Denied, [&] { OpenForReading(path); }), "70 a.eva");
}

// A report whose first bytes could not be read passed for one without a stamp, and would have been stamped twice.
TEST(MendedFault, AReportThatCannotBeReadIsNotOneWithoutAStamp) {
    const TemporaryFolder folder;
    const std::string path = folder.Put("a.bre", "   " + MakeVersionStamp(1) + "\r\n");
    EXPECT_EQ(WithFailing(folder, "read", Trouble::Gone, [&] { IsStamped(path); }), "57 a.bre");
}

// A link that could not be looked at would have been replaced by a file.
TEST(MendedFault, ALinkThatCannotBeLookedAtIsNotReplaced) {
    const TemporaryFolder folder;
    folder.Put("file", "old");
    std::filesystem::create_symlink("file", folder.Path("link"));
    EXPECT_EQ(WithFailing(folder, "readlink", Trouble::NoMemory, [&] { WriteWholeFile(folder.Path("link"), "new"); }),
              "57 link");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.Path("link")));
    EXPECT_EQ(folder.Get("file"), "old");
}

// The fault of a file that was gone when it was renamed named the new name, under which nothing could be found.
TEST(MendedFault, ARenameOfAFileThatIsGoneNamesThatFile) {
    const TemporaryFolder folder;
    const std::string from = folder.Put("a.san", "report");
    EXPECT_EQ(WithFailing(folder, "rename", Trouble::Gone, [&] { RenameFile(from, folder.Path("ZIRVO_SV.TMP")); }),
              "53 a.san");
}

// Drives of the network let a signal interrupt a look too: a file was one that is not there, or the device had failed.
TEST(MendedFault, ALookThatIsInterruptedIsMadeAgain) {
    const TemporaryFolder folder;
    const std::string path = folder.Put("a.eva", "bytes");
    EXPECT_EQ(WithFailing(folder, "stat", Trouble::Interrupted, [&] { EXPECT_TRUE(FileExists(path)); }), "");
    EXPECT_EQ(WithFailing(folder, "access", Trouble::Interrupted, [&] { EXPECT_FALSE(AttributesOf(path).ReadOnly); }),
              "");
    EXPECT_EQ(WithFailing(folder, "stat", Trouble::Interrupted, [&] { EXPECT_TRUE(WrittenAt(path)); }), "");
    EXPECT_EQ(WithFailing(folder, "chmod", Trouble::Interrupted, [&] { WriteWholeFile(path, "new"); }), "");
}

// A file was looked at before it was removed, and stayed where it could not be looked at: the control file, or the
// report that had been moved aside, which stops every later run.
TEST(MendedFault, AFileIsRemovedAndRenamedWithoutALookAtIt) {
    const TemporaryFolder folder;
    const std::string path = folder.Path("ZIRVO_SV.TMP");
    EXPECT_EQ(WithFailing(folder, "stat", Trouble::NoMemory,
                          [&] {
                              std::error_code ignored;
                              std::filesystem::remove(folder.Path("a.san"), ignored);
                              folder.Put("ZIRVO_SV.TMP", "report");
                              RenameFile(path, folder.Path("a.san"));
                              folder.Put("ZIRVO_SV.TMP", "report");
                              RemoveFile(path);
                          }),
              "no such call");
}

// A lock that could not be looked at for once was taken for one that is gone: the program left its folder, and what it
// had kept there was offered as that of another program.
TEST(MendedFault, KeptDataStayInTheirFolderWhereItsLockCannotBeLookedAt) {
    const TemporaryFolder state;
    KeptFolder kept(state.Path("kept"));
    EXPECT_TRUE(kept.Write(SomeScreen("first")));
    for (const Trouble trouble : {Trouble::Denied, Trouble::NoMemory, Trouble::Interrupted}) {
        WithFailing(state, "stat", trouble, [&] { kept.Write(SomeScreen("second")); });
    }
    EXPECT_EQ(NamesIn(state.Path("kept")).size(), 1U);
}

// The other one of two that were declined took its place where it could not be looked at.
TEST(MendedFault, DeclinedDataThatCannotBeLookedAtAreNotReplaced) {
    const TemporaryFolder state;
    KeptFolder kept(state.Path("kept"));
    EXPECT_TRUE(kept.Write(SomeScreen("first")));
    const std::string own = state.Path("kept") + "/" + NamesIn(state.Path("kept")).at(0);
    const KeptOffer offer{
        .Data = SomeScreen("first"), .Declined = false, .File = own + "/Form3.json", .Owner = nullptr};
    kept.Decline(offer);
    EXPECT_TRUE(kept.Write(SomeScreen("second")));
    {
        const FailingCall failing(state.Path(), 1, Trouble::NoMemory);
        kept.Decline(offer);
        EXPECT_EQ(FailingCall::Failed(), "stat " + own + "/Form3-declined.json");
    }
    EXPECT_NE(ReadFileBytes(own + "/Form3-declined.json").find("first"), std::string::npos);
    EXPECT_NE(ReadFileBytes(own + "/Form3-declined-2.json").find("second"), std::string::npos);
}

}  // namespace
}  // namespace zirvo::test
