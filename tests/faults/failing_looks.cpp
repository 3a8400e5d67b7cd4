// The system's functions that only look at something, with one that fails: see failing_calls.h. Linux.
#include <dirent.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstdlib>

#include "faults/failing_plan.h"
#include "faults/real_function.h"

using namespace zirvo::test;  // NOLINT(google-build-using-namespace)

namespace {

constexpr std::size_t MostFiles = 1024;
std::array<std::atomic<bool>, MostFiles> unread;  // descriptors of folders of which no name has been given yet

/// A disk may be full: that is no reason not to look. The device fails then.
int ErrorOfLook(const char* call, int folder, const char* path) {
    return ErrorOfPath(call, FullPathAt(folder, path).c_str(), EIO, Act::Looks);
}

int ErrorOfLook(const char* call, int file) {
    return ErrorOfFile(call, file, EIO, Act::Looks);
}

DIR* Opened(DIR* folder, bool counts) {
    if (folder != nullptr) {
        const int file = Watch(dirfd(folder), counts);
        if (static_cast<std::size_t>(file) < MostFiles) {
            unread[static_cast<std::size_t>(file)] = true;
        }
    }
    return folder;
}

/// The names come from the system many at a time: so the first of them alone can fail.
int ErrorOfName(DIR* folder) {
    const int file = dirfd(folder);
    const bool first =
        static_cast<std::size_t>(file) < MostFiles && unread[static_cast<std::size_t>(file)].exchange(false);
    return first ? ErrorOfLook("list", file) : 0;
}

}  // namespace

extern "C" {

int stat(const char* path, struct stat* status) noexcept {
    ZIRVO_REAL(stat);
    return FailOr(ErrorOfLook("stat", AT_FDCWD, path), -1, [&] { return real(path, status); });
}

int stat64(const char* path, struct stat64* status) noexcept {
    ZIRVO_REAL(stat64);
    return FailOr(ErrorOfLook("stat", AT_FDCWD, path), -1, [&] { return real(path, status); });
}

int lstat(const char* path, struct stat* status) noexcept {
    ZIRVO_REAL(lstat);
    return FailOr(ErrorOfLook("stat", AT_FDCWD, path), -1, [&] { return real(path, status); });
}

int lstat64(const char* path, struct stat64* status) noexcept {
    ZIRVO_REAL(lstat64);
    return FailOr(ErrorOfLook("stat", AT_FDCWD, path), -1, [&] { return real(path, status); });
}

int fstat(int file, struct stat* status) noexcept {
    ZIRVO_REAL(fstat);
    return FailOr(ErrorOfLook("stat", file), -1, [&] { return real(file, status); });
}

int fstat64(int file, struct stat64* status) noexcept {
    ZIRVO_REAL(fstat64);
    return FailOr(ErrorOfLook("stat", file), -1, [&] { return real(file, status); });
}

int fstatat(int folder, const char* path, struct stat* status, int flags) noexcept {
    ZIRVO_REAL(fstatat);
    return FailOr(ErrorOfLook("stat", folder, path), -1, [&] { return real(folder, path, status, flags); });
}

int fstatat64(int folder, const char* path, struct stat64* status, int flags) noexcept {
    ZIRVO_REAL(fstatat64);
    return FailOr(ErrorOfLook("stat", folder, path), -1, [&] { return real(folder, path, status, flags); });
}

int statx(int folder, const char* path, int flags, unsigned mask, struct statx* status) noexcept {
    ZIRVO_REAL(statx);
    return FailOr(ErrorOfLook("stat", folder, path), -1, [&] { return real(folder, path, flags, mask, status); });
}

int statvfs(const char* path, struct statvfs* status) noexcept {
    ZIRVO_REAL(statvfs);
    return FailOr(ErrorOfLook("stat", AT_FDCWD, path), -1, [&] { return real(path, status); });
}

int access(const char* path, int rights) noexcept {
    ZIRVO_REAL(access);
    return FailOr(ErrorOfLook("access", AT_FDCWD, path), -1, [&] { return real(path, rights); });
}

int faccessat(int folder, const char* path, int rights, int flags) noexcept {
    ZIRVO_REAL(faccessat);
    return FailOr(ErrorOfLook("access", folder, path), -1, [&] { return real(folder, path, rights, flags); });
}

ssize_t readlink(const char* path, char* target, size_t size) noexcept {
    ZIRVO_REAL(readlink);
    return FailOr(ErrorOfLook("readlink", AT_FDCWD, path), ssize_t{-1}, [&] { return real(path, target, size); });
}

char* realpath(const char* path, char* full) noexcept {
    ZIRVO_REAL(realpath);
    return FailOr(ErrorOfLook("realpath", AT_FDCWD, path), static_cast<char*>(nullptr),
                  [&] { return real(path, full); });
}

char* getcwd(char* path, size_t size) noexcept {
    ZIRVO_REAL(getcwd);
    return FailOr(ErrorOfLook("getcwd", AT_FDCWD, ""), static_cast<char*>(nullptr), [&] { return real(path, size); });
}

int chdir(const char* path) noexcept {
    ZIRVO_REAL(chdir);
    return FailOr(ErrorOfLook("chdir", AT_FDCWD, path), -1, [&] { return real(path); });
}

DIR* opendir(const char* path) {
    ZIRVO_REAL(opendir);
    return FailOr(ErrorOfLook("open", AT_FDCWD, path), static_cast<DIR*>(nullptr),
                  [&] { return Opened(real(path), Counts(path)); });
}

DIR* fdopendir(int file) {
    ZIRVO_REAL(fdopendir);
    return FailOr(ErrorOfLook("open", file), static_cast<DIR*>(nullptr),
                  [&] { return Opened(real(file), Counts(file)); });
}

dirent* readdir(DIR* folder) {
    ZIRVO_REAL(readdir);
    return FailOr(ErrorOfName(folder), static_cast<dirent*>(nullptr), [&] { return real(folder); });
}

dirent64* readdir64(DIR* folder) {
    ZIRVO_REAL(readdir64);
    return FailOr(ErrorOfName(folder), static_cast<dirent64*>(nullptr), [&] { return real(folder); });
}

void* mmap64(void* place, size_t length, int rights, int flags, int file, off64_t from) noexcept {
    ZIRVO_REAL(mmap64);
    return FailOr(ErrorOfLook("map", file), MAP_FAILED, [&] { return real(place, length, rights, flags, file, from); });
}

void* mmap(void* place, size_t length, int rights, int flags, int file, off_t from) noexcept {
    return mmap64(place, length, rights, flags, file, from);
}

}  // extern "C"
