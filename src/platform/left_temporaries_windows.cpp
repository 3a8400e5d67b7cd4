// Temporary files that killed programs have left, on Windows; see left_temporaries.h.
//
// Which are left  Whoever writes a temporary file has it open and lets nobody else write, on this machine and on others
//                 that share the drive, and the system closes it when the program ends, however it ends. So one that
//                 can be opened for oneself alone is left. Between its closing and its taking its target's name it is
//                 open nowhere: so one goes only if besides nothing has been written to it for a day, by the drive's
//                 own clock on both sides, as on other systems.
#include "platform/left_temporaries.h"

#include <windows.h>

#include <cstdint>
#include <exception>

#include "platform/temporary_names.h"
#include "platform/windows_handle.h"
#include "platform/windows_text.h"

namespace zirvo {
namespace {

constexpr std::int64_t LeftAlone = 24LL * 60 * 60 * 10'000'000;  // [100 ns]

class FoundFiles {
public:
    explicit FoundFiles(const std::wstring& pattern) : search_(FindFirstFileW(pattern.c_str(), &found_)) {}
    ~FoundFiles() {
        if (Any()) {
            FindClose(search_);
        }
    }
    FoundFiles(const FoundFiles&) = delete;
    FoundFiles& operator=(const FoundFiles&) = delete;

    bool Any() const { return search_ != INVALID_HANDLE_VALUE; }
    const WIN32_FIND_DATAW& Found() const { return found_; }
    bool Next() { return FindNextFileW(search_, &found_) != 0; }

private:
    WIN32_FIND_DATAW found_{};
    HANDLE search_;
};

/// When a file was last written to [100 ns]; false if the system cannot tell.
bool LastWritten(HANDLE file, std::int64_t& time) {
    FILETIME written{};
    if (GetFileTime(file, nullptr, nullptr, &written) == 0) {
        return false;
    }
    time = static_cast<std::int64_t>(written.dwHighDateTime) << 32 | written.dwLowDateTime;
    return true;
}

/// Opened for nobody else; what others have open cannot be.
class AloneFile {
public:
    explicit AloneFile(const std::wstring& path)
        : handle_(CreateFileW(path.c_str(), DELETE | FILE_READ_ATTRIBUTES, 0, nullptr, OPEN_EXISTING,
                              FILE_FLAG_OPEN_REPARSE_POINT, nullptr)) {}

    bool IsOlderThan(std::int64_t now) const {
        std::int64_t written = 0;
        return handle_.IsOpen() && LastWritten(handle_.Get(), written) && now - written >= LeftAlone;
    }
    bool IsOpen() const { return handle_.IsOpen(); }
    void Delete() const {
        FILE_DISPOSITION_INFO disposition{};
        disposition.DeleteFile = TRUE;
        SetFileInformationByHandle(handle_.Get(), FileDispositionInfo, &disposition, sizeof disposition);
    }

private:
    OwnedHandle handle_;
};

bool MayBeOne(const WIN32_FIND_DATAW& found) {
    constexpr DWORD notPlain = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    return (found.dwFileAttributes & notPlain) == 0 && IsTemporaryName(FromWide(found.cFileName));
}

void RemoveOldOnes(const std::wstring& folder, std::int64_t now) {
    FoundFiles files(folder + L".zirvo-*.tmp");
    for (bool more = files.Any(); more; more = files.Next()) {
        if (!MayBeOne(files.Found())) {
            continue;
        }
        // The time in the folder may be that of the file's making.
        if (const AloneFile file(folder + files.Found().cFileName); file.IsOlderThan(now)) {
            file.Delete();
        }
    }
}

}  // namespace

void RemoveLeftTemporaries(const std::wstring& folder, void* own) {
    std::int64_t now = 0;
    if (!LastWritten(own, now)) {
        return;
    }
    try {
        RemoveOldOnes(folder, now);
    } catch (const std::exception&) {  // no memory: they are there the next time too
        return;
    }
}

void RemoveTemporaryOfEnded(const std::string& path) {
    if (const AloneFile file(ToWide(path)); file.IsOpen()) {
        file.Delete();
    }
}

}  // namespace zirvo
