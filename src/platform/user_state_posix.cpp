// Locks and the folder for the state of programs on POSIX systems, see file_lock.h and folders.h.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "platform/file_lock.h"
#include "platform/files.h"
#include "platform/folders.h"
#include "platform/posix_support.h"

namespace zirvo {
namespace {

constexpr std::intptr_t None = -1;
constexpr int MostTries = 100;

bool Lock(int file) {
    return Uninterrupted([&] { return flock(file, LOCK_EX | LOCK_NB); }) == 0;
}

/// Lets go of a file that could not be locked. One that was made for it goes again: where a drive knows no locks they
/// would gather.
void LeaveUnlocked(const std::string& path, int file, bool made) {
    if (made && PlaceOf(path, file) == Place::Here) {
        Uninterrupted([&] { return unlink(path.c_str()); });
    }
    close(file);
}

/// The descriptor of the locked file, or None.
std::intptr_t LockedFile(const std::string& path, int flags) {
    const int file = Uninterrupted([&] { return open(path.c_str(), flags | O_RDWR | O_CLOEXEC | O_NOFOLLOW, 0600); });
    if (file < 0) {
        return None;
    }
    if (!Lock(file) || PlaceOf(path, file) != Place::Here) {
        LeaveUnlocked(path, file, (flags & O_EXCL) != 0);
        return None;
    }
    return file;
}

/// Opens a file, which is made where it is missing.
int OpenOrMake(const std::string& path, bool& made) {
    constexpr int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK;
    int file = Uninterrupted([&] { return open(path.c_str(), flags | O_CREAT | O_EXCL, 0666); });
    made = file >= 0;
    if (!made && errno == EEXIST) {
        file = Uninterrupted([&] { return open(path.c_str(), flags | O_CREAT, 0666); });
    }
    return file;
}

std::string Variable(const char* name) {
    const char* value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): nothing here changes the environment
    return value == nullptr ? "" : value;
}

}  // namespace

std::string UserStateFolder() {
    const std::string folder = Variable("XDG_STATE_HOME");
    if (!folder.empty() && folder.front() == '/') {
        return JoinPath(folder, "zirvo");
    }
    const std::string home = Variable("HOME");
    return home.empty() || home.front() != '/' ? "" : JoinPath(home, ".local/state/zirvo");
}

FileLock::FileLock(std::string path, std::intptr_t handle) : path_(std::move(path)), handle_(handle) {}

FileLock::~FileLock() {
    Release();
}

std::unique_ptr<FileLock> FileLock::OfNewFile(const std::string& path) {
    const std::intptr_t file = LockedFile(path, O_CREAT | O_EXCL);
    return std::unique_ptr<FileLock>(file == None ? nullptr : new FileLock(path, file));
}

std::unique_ptr<FileLock> FileLock::OfFile(const std::string& path) {
    const std::intptr_t file = LockedFile(path, 0);
    return std::unique_ptr<FileLock>(file == None ? nullptr : new FileLock(path, file));
}

/// Opened for reading, since the file may have been left by another user; not closed in a child, so that a solver whose
/// starter is killed holds the lock until it has ended. Where the drive knows no locks the file goes again.
std::unique_ptr<FileLock> FileLock::OfAnyFile(const std::string& path, bool& held) {
    held = false;
    for (int tries = 0; tries < MostTries; ++tries) {
        bool made = false;
        const int file = OpenOrMake(path, made);
        if (file < 0) {
            return nullptr;
        }
        if (!Lock(file)) {
            held = errno == EWOULDBLOCK;
            LeaveUnlocked(path, file, made && !held);
            return nullptr;
        }
        switch (PlaceOf(path, file)) {
            case Place::Here:
                return std::unique_ptr<FileLock>(new FileLock(path, file));
            case Place::Elsewhere:  // its owner has removed it in between
                close(file);
                break;
            case Place::Unknown:
                LeaveUnlocked(path, file, made);
                return nullptr;
        }
    }
    held = true;
    return nullptr;
}

void FileLock::RemoveFile() {
    Uninterrupted([&] { return unlink(path_.c_str()); });
    Release();
}

void FileLock::Release() {
    if (handle_ != None) {
        close(static_cast<int>(handle_));
        handle_ = None;
    }
}

}  // namespace zirvo
