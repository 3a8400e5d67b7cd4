// What only Windows can get wrong: handles, long files, names that are empty or Japanese.
#include <gtest/gtest.h>
#include <windows.h>
//
#include <fcntl.h>
#include <io.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>

#include "base/fault_of.h"
#include "platform/fault_subject.h"
#include "platform/files.h"
#include "platform/left_in_folder.h"
#include "platform/process.h"
#include "platform/temporary_folder.h"
#include "platform/terminal.h"

namespace zirvo {
namespace {

// A process that has ended can be opened as long as anybody holds a handle to it; the system itself lets go a little
// later.
TEST(WindowsProcess, ARunLeavesNoHandleBehind) {
    const char* windows = std::getenv("SystemRoot");
    ASSERT_NE(windows, nullptr);
    const auto service = MakeProcessService();
    const int identifier = service->StartHidden(std::string(windows) + "\\system32\\hostname.exe");
    const std::intptr_t handle = service->Open(identifier);
    ASSERT_NE(handle, 0);
    service->Wait(handle);
    service->Close(handle);
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    std::intptr_t again = 0;
    while ((again = service->Open(identifier)) != 0 && std::chrono::steady_clock::now() < end) {
        service->Close(again);
        std::this_thread::yield();
    }
    EXPECT_EQ(again, 0);
}

// The file has no bytes of its own on the disk, only a length of 1 GiB and one byte.
TEST(WindowsFiles, AFileBeyondTheLongestIsRefusedBeforeItIsRead) {
    const TemporaryFolder folder;
    const std::string path = folder.Put("long", "");
    std::filesystem::resize_file(path, LongestFile + 1);
    EXPECT_EQ(FaultOf([&] { ReadFileBytes(path); }), 5);
}

TEST(WindowsFiles, TheEmptyNameIsAFileThatIsNotFound) {
    EXPECT_EQ(FaultOf([] { FileLength(""); }), 53);
    EXPECT_EQ(FaultOf([] { AttributesOf(""); }), 53);
    EXPECT_EQ(FaultOf([] { ReadFileBytes(""); }), 53);
}

TEST(WindowsFiles, AreFoundUnderJapaneseNames) {
    const TemporaryFolder folder;
    const std::string path = folder.Path("舗装 試験.eva");
    WriteWholeFile(path, "a\r\n");
    EXPECT_EQ(folder.Get("舗装 試験.eva"), "a\r\n");
    EXPECT_EQ(ReadFileBytes(path), "a\r\n");
    EXPECT_EQ(FileLength(path), 3U);
    WriteWholeFile(path, "b");
    EXPECT_EQ(ReadFileBytes(path), "b");
    RenameFile(path, folder.Path("表"));
    RemoveFile(folder.Path("表"));
    EXPECT_EQ(folder.Entries(), 0U);
}

/// As a program that works on it does.
class WrittenFile {
public:
    explicit WrittenFile(const std::string& path)
        : handle_(CreateFileW(test::Utf8Path(path).c_str(), GENERIC_WRITE, FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                              FILE_ATTRIBUTE_NORMAL, nullptr)) {
        EXPECT_NE(handle_, INVALID_HANDLE_VALUE);
    }
    ~WrittenFile() { CloseHandle(handle_); }
    WrittenFile(const WrittenFile&) = delete;
    WrittenFile& operator=(const WrittenFile&) = delete;

private:
    HANDLE handle_;
};

using test::Left;
using test::LeftTemporaries;

TEST_F(LeftTemporaries, ThatAnybodyHasOpenStaysUntilHeClosesIt) {
    PutOld(Left);
    {
        const WrittenFile open(folder_.Path(Left));
        Write();
        EXPECT_TRUE(folder_.Has(Left));
    }
    Write();
    EXPECT_EQ(folder_.Entries(), 1U);
}

TEST_F(LeftTemporaries, FoldersOfTheNameStay) {
    std::filesystem::create_directory(folder_.Path(Left));
    Write();
    EXPECT_TRUE(folder_.Has(Left));
}

TEST(WindowsPaths, BothSlashesSeparateAndADriveHasARoot) {
    EXPECT_EQ(JoinPath("C:\\a", "b"), "C:\\a\\b");
    EXPECT_EQ(JoinPath("C:\\", "b"), "C:\\b");
    EXPECT_EQ(JoinPath("C:/a/", "b"), "C:/a/b");
    EXPECT_EQ(JoinPath("", "b"), "b");
    EXPECT_EQ(FileNameOf("C:\\a/b.eva"), "b.eva");
    EXPECT_EQ(FileNameOf("C:/a\\b.eva"), "b.eva");
    EXPECT_EQ(FileNameOf("C:\\"), "");
    EXPECT_EQ(FolderOf("C:\\a\\b.eva"), "C:\\a");
    EXPECT_EQ(FolderOf("C:\\a"), "C:\\");
    EXPECT_EQ(FolderOf("d:/a"), "d:/");
    EXPECT_EQ(FolderOf("a"), "");
}

TEST(WindowsPaths, AFullPathHasItsDrive) {
    const std::string before = CurrentFolder();
    const std::string drive = before.substr(0, 2);
    EXPECT_EQ(drive[1], ':');
    EXPECT_EQ(FullPath("\\folder\\x"), drive + "\\folder\\x");
    EXPECT_EQ(FullPath("/folder/x"), drive + "/folder/x");
    EXPECT_EQ(FullPath("\\"), drive + "\\");
    EXPECT_EQ(FullPath("x"), JoinPath(before, "x"));
    for (const char* whole : {"C:\\x", "z:/x", "C:x", "\\\\server\\share\\x", "//server/share/x", ""}) {
        EXPECT_EQ(FullPath(whole), whole);
    }
}

TEST(WindowsPaths, TheProgramsFolderHoldsTheProgram) {
    EXPECT_GT(FileLength(JoinPath(ProgramFolder(), "test_platform.exe")), 0U);
}

/// The other end of a pipe that stands for standard output while it lives.
class CaughtOutput {
public:
    CaughtOutput() {
        std::fflush(stdout);
        earlier_ = _dup(1);
        EXPECT_EQ(_pipe(ends_, 4096, _O_TEXT), 0);
        EXPECT_EQ(_dup2(ends_[1], 1), 0);
        _setmode(ends_[0], _O_BINARY);
    }
    ~CaughtOutput() {
        _close(earlier_);
        _close(ends_[0]);
    }
    CaughtOutput(const CaughtOutput&) = delete;
    CaughtOutput& operator=(const CaughtOutput&) = delete;

    std::string Text() {
        std::fflush(stdout);
        _dup2(earlier_, 1);
        _close(ends_[1]);
        char text[100];
        const int length = _read(ends_[0], text, sizeof text);
        return {text, static_cast<std::size_t>(length < 0 ? 0 : length)};
    }

private:
    int earlier_;
    int ends_[2];
};

TEST(WindowsTerminal, StandardOutputKeepsItsLineEnds) {
    CaughtOutput output;
    std::string text;
    {
        const PlainStreams plain;
        std::fputs("層\n", stdout);
        text = output.Text();
    }
    _setmode(1, _O_TEXT);  // as it was for the tests that follow
    EXPECT_EQ(text, "層\n");
}

}  // namespace
}  // namespace zirvo
