// Every failure of a file, folder or program tells which, with its folder.
#include "platform/fault_subject.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "base/fault_of.h"
#include "platform/files.h"
#include "platform/in_child.h"
#include "platform/open_file.h"
#include "platform/process.h"
#include "platform/temporary_folder.h"

namespace zirvo {
namespace {

namespace fs = std::filesystem;

FaultSubject File(const std::string& path) {
    return {FaultMatter::File, path, {}};
}
FaultSubject InFolder(const std::string& path) {
    return {FaultMatter::Folder, path, {}};
}

/// Nothing where a fault of the number came that is about this; what came instead.
template <class Call>
std::string Wrong(Call call, int number, const FaultSubject& about) {
    try {
        call();
    } catch (const RuntimeFault& caught) {
        return caught.Number() == number && caught.About() == about
                   ? ""
                   : std::to_string(caught.Number()) + " about " + caught.About().Name;
    }
    return "no fault";
}

TEST(FaultSubject, WhatIsMissingIsNamedByEveryOperation) {
    const TemporaryFolder folder;
    const std::string none = folder.Path("none");
    const std::string there = folder.Put("there", "x");
    EXPECT_EQ(Wrong([&] { FileLength(none); }, 53, File(none)), "");
    EXPECT_EQ(Wrong([&] { AttributesOf(none); }, 53, File(none)), "");
    EXPECT_EQ(Wrong([&] { ReadFileBytes(none); }, 53, File(none)), "");
    EXPECT_EQ(Wrong([&] { OpenForReading(none); }, 53, File(none)), "");
    EXPECT_EQ(Wrong([&] { RenameFile(none, there); }, 53, File(none)), "");
    EXPECT_EQ(Wrong([&] { RemoveFile(none); }, 53, File(none)), "");
}

TEST(FaultSubject, AFolderThatIsMissingIsTheOneThatIsNamed) {
    const TemporaryFolder folder;
    const std::string gone = folder.Path("gone");
    const std::string file = gone + "/a.eva";
    const std::string there = folder.Put("there", "x");
    EXPECT_EQ(Wrong([&] { FileLength(file); }, 76, InFolder(gone)), "");
    EXPECT_EQ(Wrong([&] { ReadFileBytes(file); }, 76, InFolder(gone)), "");
    EXPECT_EQ(Wrong([&] { OpenForReading(file); }, 76, InFolder(gone)), "");
    EXPECT_EQ(Wrong([&] { WriteWholeFile(file, "x"); }, 76, InFolder(gone)), "");
    EXPECT_EQ(Wrong([&] { RemoveFile(file); }, 76, InFolder(gone)), "");
    EXPECT_EQ(Wrong([&] { RenameFile(there, file); }, 76, InFolder(gone)), "");
    EXPECT_EQ(Wrong([&] { ChangeFolder(gone); }, 76, InFolder(gone)), "") << "the folder itself, not the one around it";
    EXPECT_EQ(Wrong([&] { FileLength(there + "/a"); }, 76, InFolder(there)), "");
    EXPECT_EQ(Wrong([] { ChangeFolder(""); }, 76, InFolder("")), "");
}

TEST(FaultSubject, WhatStandsInTheWayIsNamed) {
    const TemporaryFolder folder;
    const std::string a = folder.Put("a", "x");
    const std::string b = folder.Put("b", "x");
    const std::string pipe = folder.Path("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0666), 0);
    EXPECT_EQ(Wrong([&] { RenameFile(a, b); }, 58, File(b)), "");
    EXPECT_EQ(Wrong([&] { WriteWholeFile(folder.Path(), "x"); }, 75, File(folder.Path())), "");
    EXPECT_EQ(Wrong([&] { WriteWholeFile(folder.Path() + "/", "x"); }, 75, File(folder.Path() + "/")), "");
    EXPECT_EQ(Wrong([&] { WriteWholeFile(pipe, "x"); }, 75, File(pipe)), "") << "nobody reads it";
    EXPECT_EQ(Wrong([&] { RemoveFile(folder.Path()); }, 75, File(folder.Path())), "");
    EXPECT_EQ(Wrong([&] { ReadFileBytes(folder.Path()); }, 75, File(folder.Path())), "");
    EXPECT_EQ(Wrong([&] { OpenForReading(folder.Path()); }, 75, File(folder.Path())), "");
    EXPECT_EQ(Wrong([&] { OpenForReading(pipe); }, 75, File(pipe)), "");
    fs::create_symlink("loop", folder.Path("loop"));
    EXPECT_EQ(Wrong([&] { ReadFileBytes(folder.Path("loop")); }, 75, File(folder.Path("loop"))), "");
}

TEST(FaultSubject, ANameThatNoFileCanHaveIsShownAsFarAsItCanBe) {
    const TemporaryFolder folder;
    const std::string longName = folder.Path(std::string(300, 'n'));
    EXPECT_EQ(Wrong([&] { WriteWholeFile(longName, "x"); }, 52, File(longName)), "");
    EXPECT_EQ(Wrong([&] { FileLength(folder.Path("a") + std::string("\0b", 2)); }, 52, File(folder.Path("a"))), "");
}

TEST(FaultSubject, ANameInNoEncodingOfOursIsShownAsFarAsItCanBe) {
    const TemporaryFolder folder;
    EXPECT_EQ(Wrong([&] { FileLength(folder.Path("a\xFF")); }, 53, File(folder.Path("a\xEF\xBF\xBD"))), "");
}

TEST(FaultSubject, OfAFullDiskTheFileIsNamedAndNotTheTemporaryOne) {
    const TemporaryFolder folder;
    EXPECT_EQ(Wrong([] { WriteWholeFile("/dev/full", "x"); }, 61, File("/dev/full")), "");
    // 0: the fault was 61 and about this file.
    const std::string target = folder.Put("a.eva", "old");
    const auto write = [&] {
        if (Wrong([&] { WriteWholeFile(target, std::string(1000, 'x')); }, 61, File(target)).empty()) {
            _exit(0);
        }
        _exit(1);
    };
    EXPECT_EQ(FaultWithFilesLimitedTo(100, write), 0);
    EXPECT_EQ(folder.Get("a.eva"), "old");
}

TEST(FaultSubject, OfMissingRightsTheFileIsNamed) {
    const TemporaryFolder folder;
    const std::string secret = folder.Put("secret", "x");
    const std::string fixed = folder.Path("fixed");
    fs::create_directory(fixed);
    folder.Put("fixed/a", "x");
    chmod(secret.c_str(), 0);
    chmod(fixed.c_str(), 0555);
    const auto all = [&] {
        const std::string inFixed = fixed + "/a";
        const std::string wrong = Wrong([&] { ReadFileBytes(secret); }, 75, File(secret)) +
                                  Wrong([&] { OpenForReading(secret); }, 70, File(secret)) +
                                  Wrong([&] { WriteWholeFile(secret, "y"); }, 75, File(secret)) +
                                  Wrong([&] { WriteWholeFile(fixed + "/b", "y"); }, 75, File(fixed + "/b")) +
                                  Wrong([&] { RemoveFile(inFixed); }, 75, File(inFixed)) +
                                  Wrong([&] { RenameFile(inFixed, fixed + "/b"); }, 75, File(fixed + "/b"));
        _exit(wrong.empty() ? 0 : 1);
    };
    EXPECT_EQ(FaultAsOrdinaryUser(all), 0);
    chmod(fixed.c_str(), 0777);
}

TEST(FaultSubject, AProgramThatCannotBeStartedIsNamed) {
    const TemporaryFolder folder;
    const auto about = [](const std::string& path) { return FaultSubject{FaultMatter::Program, path, {}}; };
    const std::unique_ptr<ProcessService> processes = MakeProcessService();
    const auto start = [&](const std::string& program) {
        return [&processes, program] { processes->StartHidden(program); };
    };
    const std::string none = folder.Path("S.EXE");
    EXPECT_EQ(Wrong(start(none), 53, about(none)), "");
    const std::string locked = folder.Put("locked", "#!/bin/sh\n");
    chmod(locked.c_str(), 0644);
    EXPECT_EQ(Wrong(start(locked), 70, about(locked)), "");
    const std::string rubbish = folder.Put("rubbish", "rubbish");
    chmod(rubbish.c_str(), 0755);
    EXPECT_EQ(Wrong(start(rubbish), 75, about(rubbish)), "");
}

/// In a child, since the current folder belongs to the whole process. 0 where all is as told.
TEST(FaultSubject, ANameWithoutAFolderIsToldWithTheCurrentOne) {
    const TemporaryFolder folder;
    const auto inFolder = [&] {
        ChangeFolder(folder.Path());
        const bool named = FullPath("a.eva") == folder.Path("a.eva") && FullPath("/b/c") == "/b/c" &&
                           Wrong([] { ReadFileBytes("a.eva"); }, 53, File(folder.Path("a.eva"))).empty() &&
                           Wrong([] { WriteWholeFile("no/a.eva", "x"); }, 76, InFolder(folder.Path("no"))).empty() &&
                           Wrong([] { ChangeFolder("no"); }, 76, InFolder(folder.Path("no"))).empty();
        _exit(named ? 0 : 1);
    };
    EXPECT_EQ(FaultInChild([] {}, inFolder), 0);
    const auto inNoFolder = [&] {
        fs::create_directory(folder.Path("gone"));
        if (chdir(folder.Path("gone").c_str()) != 0) {
            _exit(2);
        }
        fs::remove(folder.Path("gone"));
        _exit(FullPath("a.eva") == "a.eva" && Wrong([] { CurrentFolder(); }, 76, {}).empty() ? 0 : 1);
    };
    EXPECT_EQ(FaultInChild([] {}, inNoFolder), 0);
}

TEST(Naming, GivesWhatTheWorkGivesAndNamesTheFaultsThatTellNothing) {
    EXPECT_EQ(Naming(FaultMatter::File, "/a", [] { return 7; }), 7);
    EXPECT_EQ(Wrong([] { Naming(FaultMatter::File, "/a", [] { throw RuntimeFault(62); }); }, 62, File(FullPath("/a"))),
              "");
    EXPECT_EQ(
        Wrong([] { Naming(FaultMatter::File, "/a", [] { RaiseFileFault(53, "/b"); }); }, 53, File(FullPath("/b"))), "");
}

}  // namespace
}  // namespace zirvo
