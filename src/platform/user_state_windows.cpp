// Locks and the folder for the state of programs on Windows, see file_lock.h and folders.h.
#include <windows.h>

#include <array>

#include "base/runtime_fault.h"
#include "platform/file_lock.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "platform/windows_text.h"

namespace zirvo {
namespace {

constexpr std::intptr_t None = -1;

/// A handle that shares nothing: nobody else can open the file while it lives.
std::intptr_t LockedFile(const std::string& path, DWORD disposition) {
    try {
        const HANDLE file = CreateFileW(ToWide(path).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, disposition,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
        return file == INVALID_HANDLE_VALUE ? None : reinterpret_cast<std::intptr_t>(file);
    } catch (const RuntimeFault&) {  // no path that Windows can have
        return None;
    }
}

}  // namespace

std::string UserStateFolder() {
    std::array<wchar_t, 32768> folder{};  // the longest that the system can hold
    const DWORD length = GetEnvironmentVariableW(L"LOCALAPPDATA", folder.data(), static_cast<DWORD>(folder.size()));
    return length == 0 || length >= folder.size() ? "" : JoinPath(FromWide({folder.data(), length}), "ZIRVO");
}

FileLock::FileLock(std::string path, std::intptr_t handle) : path_(std::move(path)), handle_(handle) {}

FileLock::~FileLock() {
    Release();
}

std::unique_ptr<FileLock> FileLock::OfNewFile(const std::string& path) {
    const std::intptr_t file = LockedFile(path, CREATE_NEW);
    return std::unique_ptr<FileLock>(file == None ? nullptr : new FileLock(path, file));
}

std::unique_ptr<FileLock> FileLock::OfFile(const std::string& path) {
    const std::intptr_t file = LockedFile(path, OPEN_EXISTING);
    return std::unique_ptr<FileLock>(file == None ? nullptr : new FileLock(path, file));
}

std::unique_ptr<FileLock> FileLock::OfAnyFile(const std::string& path, bool& held) {
    const std::intptr_t file = LockedFile(path, OPEN_ALWAYS);
    held = file == None && GetLastError() == ERROR_SHARING_VIOLATION;
    return std::unique_ptr<FileLock>(file == None ? nullptr : new FileLock(path, file));
}

void FileLock::RemoveFile() {
    Release();
    RemoveIfThere(path_);
}

void FileLock::Release() {
    if (handle_ != None) {
        CloseHandle(reinterpret_cast<HANDLE>(handle_));
        handle_ = None;
    }
}

}  // namespace zirvo
