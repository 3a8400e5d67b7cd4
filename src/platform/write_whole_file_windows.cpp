// The writing of a whole file on Windows: under a temporary name, then renamed over its target.
//
// Steps           1. Links are followed, so that the temporary file lies beside the file itself and not beside a link.
//                 2. An existing target is opened for writing, which tells whether the user may, and closed untouched.
//                 3. The temporary file is written, brought to the disk and closed; what killed programs have left in
//                 the folder goes (left_temporaries.h).
//                 4. It is renamed over the target. On any failure before, it is deleted.
// Special cases   a device ("NUL") has no earlier file that could be lost: it is written straight.
#include <windows.h>

#include <algorithm>
#include <atomic>
#include <optional>
#include <utility>
#include <vector>

#include "base/runtime_fault.h"
#include "platform/fault_subject.h"
#include "platform/files.h"
#include "platform/interruption.h"
#include "platform/left_temporaries.h"
#include "platform/temporary_names.h"
#include "platform/windows_handle.h"
#include "platform/windows_text.h"

namespace zirvo {
namespace {

constexpr int MostAttempts = 1000;
constexpr std::size_t LargestWrite = std::size_t{1} << 30;

/// The path of an open file with all links followed; the path itself where the system cannot tell.
std::wstring FinalPath(HANDLE file, const std::wstring& path) {
    std::vector<wchar_t> name(GetFinalPathNameByHandleW(file, nullptr, 0, FILE_NAME_NORMALIZED) + 1);
    const DWORD length =
        GetFinalPathNameByHandleW(file, name.data(), static_cast<DWORD>(name.size()), FILE_NAME_NORMALIZED);
    return length == 0 || length >= name.size() ? path : std::wstring(name.data(), length);
}

/// @param path  what a fault tells
void WriteAll(HANDLE file, std::string_view bytes, const std::string& path) {
    while (!bytes.empty()) {
        DWORD written = 0;
        const DWORD length = static_cast<DWORD>(std::min(bytes.size(), LargestWrite));
        if (WriteFile(file, bytes.data(), length, &written, nullptr) == 0) {
            RaiseSystemFault(GetLastError(), path);
        }
        bytes.remove_prefix(written);
    }
}

/// A file that lies under a temporary name until it is put into place, and vanishes if it never is.
class TemporaryFile {
public:
    /// @param name   of the target as the user knows it, for a fault to tell
    /// @param fixed  name of the temporary file, or empty
    TemporaryFile(const std::wstring& folder, std::string name, const std::string& fixed)
        : name_(std::move(name)), file_(INVALID_HANDLE_VALUE) {
        static std::atomic<unsigned> counter = 0;
        {
            const NotInterrupted untilItIsNoted;
            for (int attempt = 0; attempt < MostAttempts && !file_.IsOpen(); ++attempt) {
                path_ = folder + ToWide(fixed.empty() ? TemporaryName(GetCurrentProcessId(), ++counter) : fixed);
                // Others may delete it, since an interruption does while it is open.
                file_.Reset(CreateFileW(path_.c_str(), GENERIC_WRITE, FILE_SHARE_DELETE, nullptr,
                                        fixed.empty() ? CREATE_NEW : CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
                if (!file_.IsOpen() && GetLastError() != ERROR_FILE_EXISTS) {
                    RaiseSystemFault(GetLastError(), name_);
                }
            }
            if (!file_.IsOpen()) {
                RaiseFileFault(fault::PathAccess, name_);
            }
            lies_ = true;
        }
        if (fixed.empty()) {
            RemoveLeftTemporaries(folder, file_.Get());
        }
    }
    ~TemporaryFile() {
        const NotInterrupted untilItIsGone;
        if (lies_) {
            file_.Close();
            DeleteFileW(path_.c_str());
            lies_ = false;
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    void Write(std::string_view bytes) { WriteAll(file_.Get(), bytes, name_); }

    /// @param exists  the target is there: its permissions and attributes go over to the new file.
    void PutInPlaceOf(const std::wstring& target, bool exists, Flush flush) {
        if ((flush == Flush::ToDisk && FlushFileBuffers(file_.Get()) == 0) || !file_.Close()) {
            RaiseSystemFault(GetLastError(), name_);
        }
        const NotInterrupted untilItIsThere;
        lies_ = !((exists && ReplaceFileW(target.c_str(), path_.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS,
                                          nullptr, nullptr) != 0) ||
                  MoveFileExW(path_.c_str(), target.c_str(),
                              MOVEFILE_REPLACE_EXISTING | (flush == Flush::ToDisk ? MOVEFILE_WRITE_THROUGH : 0)) != 0);
        if (lies_) {
            RaiseSystemFault(GetLastError(), name_);
        }
    }

private:
    std::string name_;
    std::wstring path_;
    OwnedHandle file_;
    bool lies_ = false;  // under its temporary name
    const UndoneIfInterrupted gone_{[this] {
        if (lies_) {
            DeleteFileW(path_.c_str());
        }
    }};
};

}  // namespace

class WholeFile::Work {
public:
    Work(const std::string& path, const std::string& temporary)
        : path_(path), target_(ToWide(path)), device_(INVALID_HANDLE_VALUE) {
        const DWORD attributes = GetFileAttributesW(target_.c_str());
        exists_ = attributes != INVALID_FILE_ATTRIBUTES;
        if (FileNameOf(path).empty() || (exists_ && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)) {
            RaiseFileFault(fault::PathAccess, path);
        }
        if (exists_) {
            device_.Reset(CreateFileW(target_.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
            if (!device_.IsOpen()) {
                RaiseFileFault(fault::PathAccess, path);
            }
            if (GetFileType(device_.Get()) != FILE_TYPE_DISK) {
                return;
            }
            target_ = FinalPath(device_.Get(), target_);
            device_.Close();
        }
        const std::size_t name = target_.find_last_of(L"/\\:");
        file_.emplace(name == std::wstring::npos ? std::wstring() : target_.substr(0, name + 1), path, temporary);
    }

    void Write(std::string_view bytes) {
        if (file_) {
            file_->Write(bytes);
        } else {
            WriteAll(device_.Get(), bytes, path_);
        }
    }

    void PutInPlace(Flush flush) {
        if (file_) {
            file_->PutInPlaceOf(target_, exists_, flush);
        } else {
            device_.Close();
        }
    }

private:
    std::string path_;
    std::wstring target_;
    OwnedHandle device_;
    bool exists_ = false;
    std::optional<TemporaryFile> file_;
};

WholeFile::WholeFile(const std::string& path, const std::string& temporary)
    : work_(std::make_unique<Work>(path, temporary)) {}
WholeFile::~WholeFile() = default;

void WholeFile::Write(std::string_view bytes) {
    work_->Write(bytes);
}
void WholeFile::PutInPlace(Flush flush) {
    work_->PutInPlace(flush);
}

}  // namespace zirvo
