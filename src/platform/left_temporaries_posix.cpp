// Temporary files that killed programs have left, see left_temporaries.h.
//
// Which are left  Whoever writes a temporary file holds it locked until it stands under its name, and the system lets
//                 go of the lock when the program ends, however it ends. So one that nobody holds is left, whatever
//                 process has the number in its name by now and whichever machine that was a process of.
// What may be     Some drives of the network keep the locks of each machine to themselves, and one between its making
// wrong with it   and its locking is held by nobody. So one goes only if besides nothing has been written to it for a
//                 day, by the drive's own clock on both sides: no program takes so long between two writes. Where no
//                 lock can be had it stays.
// Another way     A file without a name (O_TMPFILE), which goes with its program, cannot be put in the place of another
//                 file: it must be given a name first, and a kill before the rename leaves that one. Folders on other
//                 machines mostly know no such files. So what is collected here would be left all the same, only more
//                 seldom, and there would be two ways to write a file.
#include "platform/left_temporaries.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <exception>
#include <memory>

#include "platform/files.h"
#include "platform/interruption.h"
#include "platform/posix_support.h"
#include "platform/temporary_names.h"

namespace zirvo {
namespace {

constexpr time_t LeftAlone = 24L * 60 * 60;  // [s]

bool TryLock(int file) {
    return Uninterrupted([&] { return flock(file, LOCK_EX | LOCK_NB); }) == 0;
}

/// @param evenWithoutLocks  whether it goes where the drive knows no locks
void RemoveUnlessHeld(const std::string& path, bool evenWithoutLocks) {
    const Descriptor file(
        Uninterrupted([&] { return open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK); }));
    if (!file.IsOpen()) {
        return;
    }
    const bool goes = TryLock(file.Number()) || (evenWithoutLocks && errno != EWOULDBLOCK);
    if (goes && PlaceOf(path, file.Number()) == Place::Here) {
        const NotInterrupted whole;
        Uninterrupted([&] { return unlink(path.c_str()); });
    }
}

bool IsOldFile(const std::string& path, time_t now) {
    struct stat status {};
    return Uninterrupted([&] { return lstat(path.c_str(), &status); }) == 0 && S_ISREG(status.st_mode) &&
           now - status.st_mtime >= LeftAlone;
}

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};

void RemoveOldOnes(const std::string& folder, time_t now) {
    const std::unique_ptr<DIR, CloseFolder> names(opendir(folder.empty() ? "." : folder.c_str()));
    if (names == nullptr) {
        return;
    }
    // One thread at a time reads from an open folder.
    while (const dirent* const entry = readdir(names.get())) {  // NOLINT(concurrency-mt-unsafe)
        const std::string path = IsTemporaryName(entry->d_name) ? JoinPath(folder, entry->d_name) : "";
        if (!path.empty() && IsOldFile(path, now)) {
            RemoveUnlessHeld(path, false);
        }
    }
}

}  // namespace

void HoldTemporary(int file) {
    TryLock(file);
}

void RemoveLeftTemporaries(const std::string& folder, int own) {
    struct stat status {};
    if (Uninterrupted([&] { return fstat(own, &status); }) != 0) {
        return;
    }
    try {
        RemoveOldOnes(folder, status.st_mtime);
    } catch (const std::exception&) {  // no memory: they are there the next time too
        return;
    }
}

void RemoveTemporaryOfEnded(const std::string& path) {
    RemoveUnlessHeld(path, true);
}

}  // namespace zirvo
