// The plan of a call that fails, see failing_calls.h. Linux. The functions that ask it stand in failing_functions.cpp.
//
// Nothing here allocates before a plan is made: it is asked before main too, by whatever the program loads.
#include "faults/failing_calls.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "faults/failing_plan.h"

namespace zirvo::test {
namespace {

constexpr std::size_t MostFiles = 1024;

struct Plan {
    std::string Folders;  // each with ":" behind it
    int Number = 0;
    Trouble What = Trouble::Denied;
    std::string Log;
    std::string Only;  // the kind of call that counts; empty: each
    std::atomic<int> Seen = 0;
    std::string Failed;
};

std::atomic<Plan*> plan = nullptr;
std::array<std::atomic<bool>, MostFiles> watched;  // descriptors of files that count

/// The current folder, and the file behind a descriptor, as the system itself tells them: not by functions that fail.
std::string FolderNow() {
    std::array<char, PATH_MAX> current{};
    return syscall(SYS_getcwd, current.data(), current.size()) > 0 ? current.data() : "";
}

std::string NameOfFile(int file) {
    std::array<char, PATH_MAX> name{};
    const long length =
        syscall(SYS_readlinkat, AT_FDCWD, ("/proc/self/fd/" + std::to_string(file)).c_str(), name.data(), name.size());
    return {name.data(), static_cast<std::size_t>(length < 0 ? 0 : length)};
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
    made->Only = Variable("ZIRVO_FAILING_ONLY");
    plan = made;
}

}  // namespace

std::string FullPathAt(int folder, const char* path) {
    if (path[0] == '/' || path[0] == ':') {  // Qt's own files have a colon in front
        return path;
    }
    const std::string beside = folder == AT_FDCWD ? FolderNow() : NameOfFile(folder);
    return path[0] == '\0' || beside.empty() ? beside : beside + "/" + path;
}

bool Counts(const char* path) {
    const Plan* const now = plan.load();
    if (now == nullptr || path == nullptr) {
        return false;
    }
    const std::string full = FullPathAt(AT_FDCWD, path);
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

int ErrorOf(const char* call, const std::string& what, int full, int gone, Act act) {
    Plan* const now = plan.load();
    if (now == nullptr || (now->What == Trouble::Killed && act == Act::Looks) ||
        (!now->Only.empty() && now->Only != call) || ++now->Seen != now->Number) {
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

int ErrorOfPath(const char* call, const char* path, int full, Act act) {
    return Counts(path) ? ErrorOf(call, FullPathAt(AT_FDCWD, path), full, ENOENT, act) : 0;
}

/// The name is asked too: a stream may have closed its file by the system's own means, and the number be another's.
int ErrorOfFile(const char* call, int file, int full, Act act) {
    if (!Counts(file)) {
        return 0;
    }
    const std::string name = NameOfFile(file);
    return Counts(name.c_str()) ? ErrorOf(call, name, full, EIO, act) : 0;
}

int ErrorOfBoth(const char* call, const std::string& from, const std::string& to) {
    return Counts(from.c_str()) ? ErrorOf(call, from + " " + to, ENOSPC, ENOENT) : 0;
}

/// No signal interrupts it.
int ErrorOfThread() {
    if (const Plan* const now = plan.load(); now == nullptr || now->What == Trouble::Interrupted) {
        return 0;
    }
    return ErrorOf("thread", "", EAGAIN, EAGAIN, Act::Looks) == 0 ? 0 : EAGAIN;
}

std::string NameOf(Trouble trouble) {
    constexpr std::array names{"denied", "full", "gone", "interrupted", "no memory", "killed", "stale", "over quota"};
    return names.at(static_cast<std::size_t>(trouble));
}

bool OnlyLooks(const std::string& call) {
    constexpr std::array looks{"stat ", "access ", "readlink ", "realpath ", "getcwd ", "chdir ", "list ", "map "};
    return std::any_of(looks.begin(), looks.end(), [&](const char* look) { return call.starts_with(look); });
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
                                                               Trouble trouble, const std::string& log,
                                                               const std::string& only) {
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
            {"ZIRVO_FAILING_LOG", log},
            {"ZIRVO_FAILING_ONLY", only}};
}

}  // namespace zirvo::test
