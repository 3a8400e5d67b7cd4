// The system's calls with one that fails, see failing_calls.h. Linux.
//
// Nothing here allocates before a plan is made: these functions are called before main, by whatever the program loads.
#include "faults/failing_calls.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <spawn.h>
#include <stdarg.h>
#include <stdio.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace zirvo::test {
namespace {

constexpr std::size_t MostFiles = 1024;

struct Plan {
    std::string Folders;  // each with ":" behind it
    int Number = 0;
    Trouble What = Trouble::Denied;
    std::string Log;
    std::atomic<int> Seen = 0;
    std::string Failed;
};

std::atomic<Plan*> plan = nullptr;
std::array<std::atomic<bool>, MostFiles> watched;  // descriptors of files that count

/// The system's own.
template <class Function>
Function* Real(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}
#define ZIRVO_REAL(name) static auto* const real = Real<decltype(::name)>(#name)

std::string FullPathOf(const char* path) {
    std::array<char, PATH_MAX> current{};
    const bool stands = path[0] == '/' || path[0] == ':';  // Qt's own files have a colon in front
    return stands || getcwd(current.data(), current.size()) == nullptr ? path
                                                                       : std::string(current.data()) + "/" + path;
}

bool Counts(const char* path) {
    const Plan* const now = plan.load();
    if (now == nullptr || path == nullptr) {
        return false;
    }
    const std::string full = FullPathOf(path);
    std::string_view folders = now->Folders;
    for (std::size_t end = folders.find(':'); end != std::string_view::npos; end = folders.find(':')) {
        if (full.starts_with(folders.substr(0, end))) {
            return true;
        }
        folders.remove_prefix(end + 1);
    }
    return false;
}

bool Counts(int file) {
    return plan.load() != nullptr && file >= 0 && static_cast<std::size_t>(file) < MostFiles &&
           watched[static_cast<std::size_t>(file)];
}

int Watch(int file, bool counts) {
    if (file >= 0 && static_cast<std::size_t>(file) < MostFiles) {
        watched[static_cast<std::size_t>(file)] = counts;
    }
    return file;
}

void Note(Plan& now, const char* call, const std::string& what) {
    now.Failed = std::string(call) + " " + what;
    if (!now.Log.empty()) {
        Plan* const mine = plan.exchange(nullptr);
        const int log = open(now.Log.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
        if (log >= 0) {
            [[maybe_unused]] const ssize_t written = write(log, now.Failed.data(), now.Failed.size());
            close(log);
        }
        plan = mine;
    }
}

std::string NameOfFile(int file) {
    std::array<char, PATH_MAX> name{};
    const ssize_t length = readlink(("/proc/self/fd/" + std::to_string(file)).c_str(), name.data(), name.size());
    return {name.data(), static_cast<std::size_t>(length < 0 ? 0 : length)};
}

/// The error of the call that is being made, or 0.
/// @param full  what the call gives on a full disk
/// @param gone  and where what it is about is gone
int ErrorOf(const char* call, const std::string& what, int full, int gone) {
    Plan* const now = plan.load();
    if (now == nullptr || ++now->Seen != now->Number) {
        return 0;
    }
    Note(*now, call, what);
    switch (now->What) {
        case Trouble::Denied:
            return EACCES;
        case Trouble::Full:
            return full;
        case Trouble::Gone:
            return gone;
        case Trouble::Interrupted:
            return EINTR;
        case Trouble::Killed:
            kill(getpid(), SIGKILL);
            break;
        case Trouble::Stale:
            return ESTALE;
        case Trouble::OverQuota:
            return EDQUOT;
        case Trouble::NoMemory:
            break;
    }
    return ENOMEM;
}

int ErrorOfPath(const char* call, const char* path, int full = ENOSPC) {
    return Counts(path) ? ErrorOf(call, FullPathOf(path), full, ENOENT) : 0;
}

/// Noted with both names.
int ErrorOfRename(const char* from, const char* to) {
    return Counts(from) ? ErrorOf("rename", FullPathOf(from) + " " + FullPathOf(to), ENOSPC, ENOENT) : 0;
}

/// The name is asked too: a stream may have closed its file by the system's own means, and the number be another's.
int ErrorOfFile(const char* call, int file, int full) {
    if (!Counts(file)) {
        return 0;
    }
    const std::string name = NameOfFile(file);
    return Counts(name.c_str()) ? ErrorOf(call, name, full, EIO) : 0;
}

template <class Result, class Call>
Result FailOr(int error, Result failure, const Call& call) {
    if (error != 0) {
        errno = error;
        return failure;
    }
    return call();
}

const char* Variable(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? "" : value;
}

/// In a real program: makes the plan that the test has put into the environment.
__attribute__((constructor)) void TakePlanOfEnvironment() {
    if (std::strcmp(Variable("ZIRVO_FAILING_PROGRAM"), program_invocation_short_name) != 0) {
        return;
    }
    auto* const made = new Plan;
    made->Folders = Variable("ZIRVO_FAILING_FOLDERS");
    made->Number = std::atoi(Variable("ZIRVO_FAILING_CALL"));
    made->What = static_cast<Trouble>(std::atoi(Variable("ZIRVO_FAILING_TROUBLE")));
    made->Log = Variable("ZIRVO_FAILING_LOG");
    plan = made;
}

}  // namespace

std::string NameOf(Trouble trouble) {
    constexpr std::array names{"denied", "full", "gone", "interrupted", "no memory", "killed", "stale", "over quota"};
    return names.at(static_cast<std::size_t>(trouble));
}

FailingCall::FailingCall(const std::string& folder, int number, Trouble trouble) {
    auto* const made = new Plan;
    made->Folders = folder + ":";
    made->Number = number;
    made->What = trouble;
    delete plan.exchange(made);
}

FailingCall::~FailingCall() {
    delete plan.exchange(nullptr);
}

std::string FailingCall::Failed() {
    return plan.load()->Failed;
}

int FailingCall::Calls() {
    return plan.load()->Seen;
}

std::vector<std::pair<std::string, std::string>> FailingCallOf(const std::string& program,
                                                               const std::vector<std::string>& folders, int number,
                                                               Trouble trouble, const std::string& log) {
    std::string list;
    for (const std::string& folder : folders) {
        list += folder + ":";
    }
    return {{"LD_PRELOAD", ZIRVO_FAILING_CALLS},
            // A program with sanitizers in it wants to be loaded before anything else, and need not be.
            {"ASAN_OPTIONS", std::string(Variable("ASAN_OPTIONS")) + ":verify_asan_link_order=0"},
            {"ZIRVO_FAILING_PROGRAM", program},
            {"ZIRVO_FAILING_FOLDERS", list},
            {"ZIRVO_FAILING_CALL", std::to_string(number)},
            {"ZIRVO_FAILING_TROUBLE", std::to_string(static_cast<int>(trouble))},
            {"ZIRVO_FAILING_LOG", log}};
}

}  // namespace zirvo::test

// The calls themselves. Their failures are those of the manual: -1 and errno, a null pointer, or the error itself.
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

ssize_t read(int file, void* bytes, size_t count) {
    ZIRVO_REAL(read);
    return FailOr(ErrorOfFile("read", file, EIO), ssize_t{-1}, [&] { return real(file, bytes, count); });
}

ssize_t write(int file, const void* bytes, size_t count) {
    ZIRVO_REAL(write);
    return FailOr(ErrorOfFile("write", file, ENOSPC), ssize_t{-1}, [&] { return real(file, bytes, count); });
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

/// Files that count are not brought to the disk: no test ends the power, and the wait is most of the time of a test.
int fsync(int file) {
    ZIRVO_REAL(fsync);
    return FailOr(ErrorOfFile("fsync", file, ENOSPC), -1, [&] { return Counts(file) ? 0 : real(file); });
}

int fdatasync(int file) {
    ZIRVO_REAL(fdatasync);
    return FailOr(ErrorOfFile("fsync", file, ENOSPC), -1, [&] { return Counts(file) ? 0 : real(file); });
}

/// Of all that it does locks alone count.
int fcntl64(int file, int command, ...) {
    ZIRVO_REAL(fcntl64);
    va_list more;
    va_start(more, command);
    void* const argument = va_arg(more, void*);
    va_end(more);
    const bool locks = command == F_GETLK || command == F_SETLK || command == F_SETLKW;
    return FailOr(locks ? ErrorOfFile("lock", file, ENOLCK) : 0, -1, [&] { return real(file, command, argument); });
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
    return FailOr(ErrorOfRename(from, to), -1, [&] { return real(from, to); });
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept {
    ZIRVO_REAL(renameat2);
    return FailOr(ErrorOfRename(from, to), -1, [&] { return real(fromFolder, from, toFolder, to, flags); });
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
    const std::string full = folder == AT_FDCWD ? path : NameOfFile(folder) + "/" + path;
    return FailOr(ErrorOfPath("remove", full.c_str(), EIO), -1, [&] { return real(folder, path, flags); });
}

/// One that is there already is told before anything else.
int mkdir(const char* path, mode_t mode) noexcept {
    ZIRVO_REAL(mkdir);
    const bool there = access(path, F_OK) == 0;
    return FailOr(there ? 0 : ErrorOfPath("mkdir", path), -1, [&] { return real(path, mode); });
}

ssize_t readlink(const char* path, char* target, size_t size) noexcept {
    ZIRVO_REAL(readlink);
    return FailOr(ErrorOfPath("readlink", path, EIO), ssize_t{-1}, [&] { return real(path, target, size); });
}

int posix_spawn(pid_t* child, const char* path, const posix_spawn_file_actions_t* actions,
                const posix_spawnattr_t* attributes, char* const arguments[], char* const environment[]) {
    ZIRVO_REAL(posix_spawn);
    const int error = plan.load() == nullptr ? 0 : ErrorOf("start", path, EAGAIN, ENOENT);
    return error != 0 ? error : real(child, path, actions, attributes, arguments, environment);
}

int waitid(idtype_t kind, id_t id, siginfo_t* information, int options) {
    ZIRVO_REAL(waitid);
    const int error = plan.load() == nullptr ? 0 : ErrorOf("wait", "for a program", ECHILD, ECHILD);
    return FailOr(error, -1, [&] { return real(kind, id, information, options); });
}

pid_t waitpid(pid_t id, int* status, int options) {
    ZIRVO_REAL(waitpid);
    const int error = plan.load() == nullptr ? 0 : ErrorOf("wait", "for a program", ECHILD, ECHILD);
    return FailOr(error, pid_t{-1}, [&] { return real(id, status, options); });
}

}  // extern "C"
