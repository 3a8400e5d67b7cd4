// The system's functions that change something, with one that fails: see failing_calls.h. Linux. Those that only look
// stand in failing_looks.cpp.
#include <fcntl.h>
#include <pthread.h>
#include <spawn.h>
#include <stdarg.h>
#include <stdio.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

#include "faults/failing_plan.h"
#include "faults/real_function.h"

// Their failures are those of the manual: -1 and errno, a null pointer, or the error itself.
using namespace zirvo::test;  // NOLINT(google-build-using-namespace)

extern "C" {

int open(const char* path, int flags, ...) {
    ZIRVO_REAL(open);
    va_list more;
    va_start(more, flags);
    const mode_t mode = (flags & (O_CREAT | __O_TMPFILE)) != 0 ? va_arg(more, mode_t) : 0;
    va_end(more);
    const int full = (flags & O_CREAT) != 0 ? ENOSPC : EACCES;
    return FailOr(ErrorOfPath("open", path, full), -1, [&] { return Watch(real(path, flags, mode), Counts(path)); });
}

int open64(const char* path, int flags, ...) {
    va_list more;
    va_start(more, flags);
    const mode_t mode = (flags & (O_CREAT | __O_TMPFILE)) != 0 ? va_arg(more, mode_t) : 0;
    va_end(more);
    return open(path, flags, mode);
}

int openat(int folder, const char* path, int flags, ...) {
    ZIRVO_REAL(openat);
    va_list more;
    va_start(more, flags);
    const mode_t mode = (flags & (O_CREAT | __O_TMPFILE)) != 0 ? va_arg(more, mode_t) : 0;
    va_end(more);
    const std::string full = FullPathAt(folder, path);
    return FailOr(ErrorOfPath("open", full.c_str(), (flags & O_CREAT) != 0 ? ENOSPC : EACCES), -1,
                  [&] { return Watch(real(folder, path, flags, mode), Counts(full.c_str())); });
}

int openat64(int folder, const char* path, int flags, ...) {
    va_list more;
    va_start(more, flags);
    const mode_t mode = (flags & (O_CREAT | __O_TMPFILE)) != 0 ? va_arg(more, mode_t) : 0;
    va_end(more);
    return openat(folder, path, flags, mode);
}

FILE* fopen64(const char* path, const char* mode) {
    ZIRVO_REAL(fopen64);
    return FailOr(ErrorOfPath("open", path, EACCES), static_cast<FILE*>(nullptr), [&] {
        FILE* const file = real(path, mode);
        if (file != nullptr) {
            Watch(fileno(file), Counts(path));
        }
        return file;
    });
}

FILE* fopen(const char* path, const char* mode) {
    return fopen64(path, mode);
}

ssize_t read(int file, void* bytes, size_t count) {
    ZIRVO_REAL(read);
    return FailOr(ErrorOfFile("read", file, EIO), ssize_t{-1}, [&] { return real(file, bytes, count); });
}

ssize_t write(int file, const void* bytes, size_t count) {
    ZIRVO_REAL(write);
    return FailOr(ErrorOfFile("write", file, ENOSPC), ssize_t{-1}, [&] { return real(file, bytes, count); });
}

ssize_t writev(int file, const iovec* pieces, int count) {
    ZIRVO_REAL(writev);
    return FailOr(ErrorOfFile("write", file, ENOSPC), ssize_t{-1}, [&] { return real(file, pieces, count); });
}

ssize_t pread64(int file, void* bytes, size_t count, off64_t place) {
    ZIRVO_REAL(pread64);
    return FailOr(ErrorOfFile("read", file, EIO), ssize_t{-1}, [&] { return real(file, bytes, count, place); });
}

ssize_t pwrite64(int file, const void* bytes, size_t count, off64_t place) {
    ZIRVO_REAL(pwrite64);
    return FailOr(ErrorOfFile("write", file, ENOSPC), ssize_t{-1}, [&] { return real(file, bytes, count, place); });
}

int ftruncate64(int file, off64_t length) noexcept {
    ZIRVO_REAL(ftruncate64);
    return FailOr(ErrorOfFile("truncate", file, EIO), -1, [&] { return real(file, length); });
}

int truncate64(const char* path, off64_t length) noexcept {
    ZIRVO_REAL(truncate64);
    return FailOr(ErrorOfPath("truncate", path, EIO), -1, [&] { return real(path, length); });
}

int truncate(const char* path, off_t length) noexcept {
    return truncate64(path, length);
}

/// Files that count are not brought to the disk: no test ends the power, and the wait is most of the time of a test.
int fsync(int file) {
    ZIRVO_REAL(fsync);
    return FailOr(ErrorOfFile("fsync", file, ENOSPC), -1, [&] { return Counts(file) ? 0 : real(file); });
}

int fdatasync(int file) {
    ZIRVO_REAL(fdatasync);
    return FailOr(ErrorOfFile("fsync", file, ENOSPC), -1, [&] { return Counts(file) ? 0 : real(file); });
}

/// Of all that it does locks and doubles alone count; the double itself does not, so that its file is closed but once.
int fcntl64(int file, int command, ...) {
    ZIRVO_REAL(fcntl64);
    va_list more;
    va_start(more, command);
    void* const argument = va_arg(more, void*);
    va_end(more);
    const bool locks = command == F_GETLK || command == F_SETLK || command == F_SETLKW;
    const bool doubles = command == F_DUPFD || command == F_DUPFD_CLOEXEC;
    const int error = locks     ? ErrorOfFile("lock", file, ENOLCK)
                      : doubles ? ErrorOfFile("double", file, EMFILE, Act::Looks)
                                : 0;
    return FailOr(error, -1, [&] { return real(file, command, argument); });
}

int fcntl(int file, int command, ...) {
    va_list more;
    va_start(more, command);
    void* const argument = va_arg(more, void*);
    va_end(more);
    return fcntl64(file, command, argument);
}

int flock(int file, int command) noexcept {
    ZIRVO_REAL(flock);
    return FailOr(ErrorOfFile("lock", file, ENOLCK), -1, [&] { return real(file, command); });
}

/// Closes it all the same, as the system does.
int close(int file) {
    ZIRVO_REAL(close);
    const int error = ErrorOfFile("close", file, ENOSPC);
    Watch(file, false);
    const int result = real(file);
    return FailOr(error, -1, [&] { return result; });
}

int rename(const char* from, const char* to) noexcept {
    ZIRVO_REAL(rename);
    return FailOr(ErrorOfBoth("rename", FullPathAt(AT_FDCWD, from), FullPathAt(AT_FDCWD, to)), -1,
                  [&] { return real(from, to); });
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept {
    ZIRVO_REAL(renameat);
    return FailOr(ErrorOfBoth("rename", FullPathAt(fromFolder, from), FullPathAt(toFolder, to)), -1,
                  [&] { return real(fromFolder, from, toFolder, to); });
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept {
    ZIRVO_REAL(renameat2);
    return FailOr(ErrorOfBoth("rename", FullPathAt(fromFolder, from), FullPathAt(toFolder, to)), -1,
                  [&] { return real(fromFolder, from, toFolder, to, flags); });
}

int link(const char* from, const char* to) noexcept {
    ZIRVO_REAL(link);
    return FailOr(ErrorOfBoth("link", FullPathAt(AT_FDCWD, from), FullPathAt(AT_FDCWD, to)), -1,
                  [&] { return real(from, to); });
}

int symlink(const char* target, const char* path) noexcept {
    ZIRVO_REAL(symlink);
    return FailOr(ErrorOfPath("link", path), -1, [&] { return real(target, path); });
}

int unlink(const char* path) noexcept {
    ZIRVO_REAL(unlink);
    return FailOr(ErrorOfPath("remove", path, EIO), -1, [&] { return real(path); });
}

int remove(const char* path) noexcept {
    ZIRVO_REAL(remove);
    return FailOr(ErrorOfPath("remove", path, EIO), -1, [&] { return real(path); });
}

int unlinkat(int folder, const char* path, int flags) noexcept {
    ZIRVO_REAL(unlinkat);
    return FailOr(ErrorOfPath("remove", FullPathAt(folder, path).c_str(), EIO), -1,
                  [&] { return real(folder, path, flags); });
}

int rmdir(const char* path) noexcept {
    ZIRVO_REAL(rmdir);
    return FailOr(ErrorOfPath("remove", path, EIO), -1, [&] { return real(path); });
}

/// One that is there already is told before anything else.
int mkdir(const char* path, mode_t mode) noexcept {
    ZIRVO_REAL(mkdir);
    const bool there = syscall(SYS_access, path, F_OK) == 0;
    return FailOr(there ? 0 : ErrorOfPath("mkdir", path), -1, [&] { return real(path, mode); });
}

int chmod(const char* path, mode_t mode) noexcept {
    ZIRVO_REAL(chmod);
    return FailOr(ErrorOfPath("chmod", path, EPERM), -1, [&] { return real(path, mode); });
}

int fchmod(int file, mode_t mode) noexcept {
    ZIRVO_REAL(fchmod);
    return FailOr(ErrorOfFile("chmod", file, EPERM), -1, [&] { return real(file, mode); });
}

int fchmodat(int folder, const char* path, mode_t mode, int flags) noexcept {
    ZIRVO_REAL(fchmodat);
    return FailOr(ErrorOfPath("chmod", FullPathAt(folder, path).c_str(), EPERM), -1,
                  [&] { return real(folder, path, mode, flags); });
}

int fchown(int file, uid_t user, gid_t group) noexcept {
    ZIRVO_REAL(fchown);
    return FailOr(ErrorOfFile("chown", file, EPERM), -1, [&] { return real(file, user, group); });
}

int utimensat(int folder, const char* path, const timespec* times, int flags) noexcept {
    ZIRVO_REAL(utimensat);
    return FailOr(ErrorOfPath("times", FullPathAt(folder, path).c_str(), EPERM), -1,
                  [&] { return real(folder, path, times, flags); });
}

int posix_spawn(pid_t* child, const char* path, const posix_spawn_file_actions_t* actions,
                const posix_spawnattr_t* attributes, char* const arguments[], char* const environment[]) {
    ZIRVO_REAL(posix_spawn);
    const int error = ErrorOf("start", path, EAGAIN, ENOENT);
    return error != 0 ? error : real(child, path, actions, attributes, arguments, environment);
}

int waitid(idtype_t kind, id_t id, siginfo_t* information, int options) {
    ZIRVO_REAL(waitid);
    const int error = ErrorOf("wait", "for a program", ECHILD, ECHILD);
    return FailOr(error, -1, [&] { return real(kind, id, information, options); });
}

pid_t waitpid(pid_t id, int* status, int options) {
    ZIRVO_REAL(waitpid);
    const int error = ErrorOf("wait", "for a program", ECHILD, ECHILD);
    return FailOr(error, pid_t{-1}, [&] { return real(id, status, options); });
}

int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*work)(void*), void* given) noexcept {
    ZIRVO_REAL(pthread_create);
    const int error = ErrorOfThread();
    return error != 0 ? error : real(thread, attributes, work, given);
}

}  // extern "C"
