// Files and folders of Windows. Called wherever a file is read, renamed, deleted or asked about.
#include <windows.h>

#include <algorithm>
#include <vector>

#include "base/runtime_fault.h"
#include "platform/fault_subject.h"
#include "platform/files.h"
#include "platform/interruption.h"
#include "platform/windows_handle.h"
#include "platform/windows_text.h"

namespace zirvo {
namespace {

void RequireReadableLength(std::uint64_t length, const std::string& path) {
    if (length > LongestFile) {
        RaiseFileFault(fault::InvalidCall, path);
    }
}

/// The system would call the empty name a path that is not there.
void RequireAName(const std::string& path) {
    if (path.empty()) {
        RaiseFileFault(fault::FileNotFound, path);
    }
}

WIN32_FILE_ATTRIBUTE_DATA DataOf(const std::string& path) {
    RequireAName(path);
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (GetFileAttributesExW(ToWide(path).c_str(), GetFileExInfoStandard, &data) == 0) {
        RaiseSystemFault(GetLastError(), path);
    }
    return data;
}

bool IsFolder(DWORD attributes) {
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::string FolderOfTheSystem() {
    std::vector<wchar_t> folder(GetCurrentDirectoryW(0, nullptr));
    const DWORD length = GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data());
    if (length == 0 || length >= folder.size()) {
        RaiseSystemFault(GetLastError(), "");
    }
    return FromWide({folder.data(), length});
}

/// What the program last set; empty before it has set anything.
std::string& FolderLastSet() {
    static std::string folder;
    return folder;
}

/// "C:\..." or "\\server\...": a path that means the same in whatever folder one is.
bool IsFullPath(const std::string& path) {
    const auto separator = [&](std::size_t i) { return i < path.size() && (path[i] == '/' || path[i] == '\\'); };
    return (path.size() > 2 && path[1] == ':' && separator(2)) || (separator(0) && separator(1));
}

}  // namespace

std::uint64_t FileLength(const std::string& path) {
    const WIN32_FILE_ATTRIBUTE_DATA data = DataOf(path);
    return static_cast<std::uint64_t>(data.nFileSizeHigh) << 32 | data.nFileSizeLow;
}

FileAttributes AttributesOf(const std::string& path) {
    const DWORD attributes = DataOf(path).dwFileAttributes;
    return {.Directory = IsFolder(attributes), .ReadOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0};
}

std::string ReadFileBytes(const std::string& path) {
    RequireAName(path);
    const std::wstring name = ToWide(path);
    const DWORD attributes = GetFileAttributesW(name.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && IsFolder(attributes)) {
        RaiseFileFault(fault::PathAccess, path);
    }
    const OwnedHandle file(CreateFileW(name.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                       OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen()) {
        RaiseSystemFault(GetLastError(), path);
    }
    if (GetFileType(file.Get()) != FILE_TYPE_DISK) {  // "CON" and its like have no end
        RaiseFileFault(fault::PathAccess, path);
    }
    LARGE_INTEGER told{};
    if (GetFileSizeEx(file.Get(), &told) == 0) {
        RaiseSystemFault(GetLastError(), path);
    }
    RequireReadableLength(static_cast<std::uint64_t>(told.QuadPart), path);
    constexpr std::size_t Step = 1 << 20;
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(told.QuadPart) + Step);
    for (DWORD got = 1; got != 0;) {
        const std::size_t length = bytes.size();
        RequireReadableLength(length, path);  // it may have grown since
        bytes.resize(length + Step);
        if (ReadFile(file.Get(), bytes.data() + length, static_cast<DWORD>(Step), &got, nullptr) == 0) {
            RaiseSystemFault(GetLastError(), path);
        }
        bytes.resize(length + got);
    }
    return bytes;
}

void RenameFile(const std::string& from, const std::string& to) {
    const NotInterrupted whole;
    DataOf(from);
    const std::wstring target = ToWide(to);
    if (GetFileAttributesW(target.c_str()) != INVALID_FILE_ATTRIBUTES) {
        RaiseFileFault(fault::FileAlreadyExists, to);
    }
    if (MoveFileExW(ToWide(from).c_str(), target.c_str(), 0) == 0) {  // without the flag that would replace
        RaiseSystemFault(GetLastError(), to);
    }
}

void RemoveFile(const std::string& path) {
    const NotInterrupted whole;
    if (IsFolder(DataOf(path).dwFileAttributes)) {
        RaiseFileFault(fault::PathAccess, path);
    }
    if (DeleteFileW(ToWide(path).c_str()) == 0) {
        RaiseSystemFault(GetLastError(), path);
    }
}

std::string CurrentFolder() {
    return FolderLastSet().empty() ? FolderOfTheSystem() : FolderLastSet();
}

void ChangeFolder(const std::string& path) {
    if (path.empty()) {  // the system would call it a bad name
        throw RuntimeFault(fault::PathNotFound, AboutPath(FaultMatter::Folder, path));
    }
    if (SetCurrentDirectoryW(ToWide(path).c_str()) == 0) {
        const DWORD error = GetLastError();
        const bool missing = error == ERROR_FILE_NOT_FOUND || error == ERROR_DIRECTORY;
        throw RuntimeFault(missing ? fault::PathNotFound : SystemFaultOf(error), AboutPath(FaultMatter::Folder, path));
    }
    FolderLastSet() = IsFullPath(path) ? path : FolderOfTheSystem();
}

std::string ProgramFolder() {
    std::vector<wchar_t> program(MAX_PATH);
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
        if (length == 0) {
            RaiseSystemFault(GetLastError(), "");
        }
        if (length < program.size()) {
            return FolderOf(FromWide({program.data(), length}));
        }
        program.resize(2 * program.size());
    }
}

}  // namespace zirvo
