// The writing of a whole file on POSIX systems: under a temporary name, then renamed over its target.
//
// Steps           1. Links are followed, so that the temporary file lies beside the file itself and not beside a link.
//                 2. An existing target is opened for writing, which tells whether the user may, and closed untouched.
//                 3. The temporary file is written, brought to the disk if wanted, and closed: each of these can tell
//                 of a full disk. It takes the owner and the permissions of the target, and is locked until step 4
//                 is done; what killed programs have left in the folder goes (left_temporaries.h).
//                 4. It is renamed over the target. On any failure before, it is deleted.
// Special cases   a device or a pipe has no earlier file that could be lost, and must not be replaced by a file: it is
//                 written straight.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <optional>

#include "base/runtime_fault.h"
#include "platform/fault_subject.h"
#include "platform/files.h"
#include "platform/interruption.h"
#include "platform/left_temporaries.h"
#include "platform/posix_support.h"
#include "platform/temporary_names.h"

namespace zirvo {
namespace {

constexpr int MostLinks = 40;  // as many as Linux itself follows
constexpr int MostAttempts = 1000;
constexpr mode_t PermissionBits = 07777;

/// The file that the path leads to at last, whether it is there or not.
std::string FollowLinks(std::string path) {
    for (int i = 0; i < MostLinks; ++i) {
        std::array<char, PATH_MAX> link{};
        const ssize_t length = Uninterrupted([&] { return readlink(path.c_str(), link.data(), link.size()); });
        if (length < 0 && (errno == EINVAL || errno == ENOENT)) {  // no link, or nothing
            return path;
        }
        if (length < 0) {
            RaiseSystemFault(errno, path);
        }
        const std::string target(link.data(), static_cast<std::size_t>(length));
        path = target.front() == '/' ? target : JoinPath(FolderOf(path), target);
    }
    RaiseSystemFault(ELOOP, path);
}

/// Writes all bytes; the failure's errno, or 0.
int WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), std::min<std::size_t>(bytes.size(), SSIZE_MAX));
        if (written >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR) {
            return errno;
        }
    }
    return 0;
}

/// A file that lies under a temporary name until it is put into place, and vanishes if it never is.
class TemporaryFile {
public:
    /// @param target  whose name a fault shall tell, since the user knows no other
    /// @param name    a fixed one, or empty
    TemporaryFile(const std::string& target, const std::string& name) : target_(target) {
        {
            const NotInterrupted untilItIsNoted;
            file_.Reset(name.empty() ? OpenNew() : OpenFixed(name));
            if (!file_.IsOpen()) {
                RaiseSystemFault(errno == ENOENT ? ENOTDIR : errno, target_);
            }
            lies_ = true;
        }
        if (name.empty()) {
            HoldTemporary(file_.Number());
            RemoveLeftTemporaries(FolderOf(target_), file_.Number());
        }
    }
    ~TemporaryFile() {
        const NotInterrupted untilItIsGone;
        Remove();
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    void TakeOwnerAndPermissions(const struct stat& status) {
        // The owner can be set by root only; a file that becomes the user's own is as good.
        if (Uninterrupted([&] { return fchown(file_.Number(), status.st_uid, status.st_gid); }) != 0) {
            errno = 0;
        }
        if (Uninterrupted([&] { return fchmod(file_.Number(), status.st_mode & PermissionBits); }) != 0) {
            RaiseSystemFault(errno, target_);
        }
    }

    void Write(std::string_view bytes) {
        if (const int error = WriteAll(file_.Number(), bytes); error != 0) {
            RaiseSystemFault(error, target_);
        }
    }

    void PutInPlace(Flush flush) {
        if (flush == Flush::ToDisk && Uninterrupted([&] { return fsync(file_.Number()); }) != 0 && errno != EINVAL &&
            errno != ENOTSUP) {
            RaiseSystemFault(errno, target_);
        }
        // The double keeps the lock: closing the file itself is what tells of a write that has failed.
        const Descriptor held(Uninterrupted([&] { return fcntl(file_.Number(), F_DUPFD_CLOEXEC, 0); }));
        if (!file_.Close()) {
            RaiseSystemFault(errno, target_);
        }
        const NotInterrupted untilItIsThere;
        if (Uninterrupted([&] { return rename(path_.c_str(), target_.c_str()); }) != 0) {
            RaiseSystemFault(errno == ENOENT ? ENOTDIR : errno, target_);  // the folder is gone, and the file with it
        }
        lies_ = false;
    }

private:
    int Open(int flags) const {
        return Uninterrupted([&] { return open(path_.c_str(), flags | O_WRONLY | O_CREAT | O_CLOEXEC, 0666); });
    }

    /// Under a name that nobody has.
    int OpenNew() {
        static std::atomic<unsigned> counter = 0;
        int number = -1;
        for (int attempt = 0; attempt < MostAttempts; ++attempt) {
            path_ = JoinPath(FolderOf(target_), TemporaryName(getpid(), ++counter));
            number = Open(O_EXCL);
            if (number >= 0 || errno != EEXIST) {
                break;
            }
        }
        return number;
    }

    int OpenFixed(const std::string& name) {
        path_ = JoinPath(FolderOf(target_), name);
        return Open(O_TRUNC | O_NOFOLLOW | O_NONBLOCK);
    }

    void Remove() {
        if (lies_) {
            Uninterrupted([&] { return unlink(path_.c_str()); });
            lies_ = false;
        }
    }

    std::string target_;
    std::string path_;
    Descriptor file_;
    bool lies_ = false;  // under its temporary name
    const UndoneIfInterrupted gone_{[this] { Remove(); }};
};

/// A device or pipe: opened without waiting, then written with waiting.
int OpenStraight(const std::string& path) {
    const int device = Uninterrupted([&] { return open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK); });
    if (device < 0) {
        RaiseFileFault(fault::PathAccess, path);
    }
    fcntl(device, F_SETFL, fcntl(device, F_GETFL) & ~O_NONBLOCK);
    return device;
}

}  // namespace

class WholeFile::Work {
public:
    Work(const std::string& path, const std::string& temporary) : path_(path) {
        RequireUsablePath(path);
        if (FileNameOf(path).empty()) {
            RaiseFileFault(fault::PathAccess, path);
        }
        struct stat status {};
        const bool exists = Uninterrupted([&] { return stat(path.c_str(), &status); }) == 0;
        if (exists && S_ISDIR(status.st_mode)) {
            RaiseFileFault(fault::PathAccess, path);
        }
        if (exists && !S_ISREG(status.st_mode)) {
            device_.Reset(OpenStraight(path));
            return;
        }
        if (!exists && errno != ENOENT) {
            RaiseSystemFault(errno, path);
        }
        const std::string target = FollowLinks(path);
        if (exists) {
            RequireRightToWrite(target);
        }
        file_.emplace(target, temporary);
        if (exists) {
            file_->TakeOwnerAndPermissions(status);
        }
    }

    void Write(std::string_view bytes) {
        if (file_) {
            file_->Write(bytes);
        } else if (const int error = WriteAll(device_.Number(), bytes); error != 0) {
            RaiseSystemFault(error, path_);
        }
    }

    void PutInPlace(Flush flush) {
        if (file_) {
            file_->PutInPlace(flush);
        } else if (!device_.Close()) {
            RaiseSystemFault(errno, path_);
        }
    }

private:
    std::string path_;
    Descriptor device_;
    std::optional<TemporaryFile> file_;

    void RequireRightToWrite(const std::string& target) const {
        const Descriptor probe(Uninterrupted([&] { return open(target.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK); }));
        if (!probe.IsOpen()) {
            RaiseFileFault(fault::PathAccess, path_);
        }
    }
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
